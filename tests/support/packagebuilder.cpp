#include "tests/support/packagebuilder.h"

#include <QBuffer>
#include <QImage>
#include <QtEndian>

#include <zip.h>

#include <map>
#include <memory>
#include <stdexcept>

namespace packages {

namespace {

[[nodiscard]] zip_int32_t method(Packing packing)
{
    if (packing == Packing::Store)
        return ZIP_CM_STORE;
    return packing == Packing::Deflate ? ZIP_CM_DEFLATE : ZIP_CM_BZIP2;
}

[[nodiscard]] quint32 crc32(const QByteArray& bytes)
{
    quint32 crc = 0xFFFFFFFF;
    for (const char byte : bytes) {
        crc ^= static_cast<quint8>(byte);
        for (int bit = 0; bit < 8; ++bit)
            crc = (crc >> 1) ^ ((crc & 1U) != 0 ? 0xEDB88320U : 0U);
    }
    return ~crc;
}

[[nodiscard]] QByteArray bigEndian(quint32 value)
{
    QByteArray bytes(4, '\0');
    qToBigEndian(value, bytes.data());
    return bytes;
}

[[nodiscard]] QByteArray readAll(zip_source_t* source)
{
    zip_stat_t stat;
    zip_stat_init(&stat);
    if (zip_source_stat(source, &stat) != 0 || zip_source_open(source) != 0)
        return {};
    QByteArray bytes(static_cast<int>(stat.size), '\0');
    const zip_int64_t got = zip_source_read(source, bytes.data(), stat.size);
    zip_source_close(source);
    return got == static_cast<zip_int64_t>(stat.size) ? bytes : QByteArray();
}

[[nodiscard]] zip_source_t* sourceOf(zip_t* zip, const QByteArray& bytes)
{
    return zip_source_buffer(zip, bytes.constData(), static_cast<zip_uint64_t>(bytes.size()), 0);
}

// Deflates contents; those that several entries share only once, so that a hundred bombs take no
// longer than one.
class DeflatedContents
{
public:
    // Null when the library refuses. REQUIRES: this lives until `zip` is closed.
    [[nodiscard]] zip_source_t* sourceOf(zip_t* zip, const QByteArray& bytes)
    {
        const auto [archive, isNew] =
            m_archives.try_emplace(bytes.constData(), nullptr, zip_discard);
        if (isNew)
            archive->second.reset(deflated(bytes));
        return archive->second == nullptr
                   ? nullptr
                   : zip_source_zip(zip, archive->second.get(), 0, ZIP_FL_COMPRESSED, 0, 0);
    }

private:
    // An archive of that one entry.
    [[nodiscard]] static zip_t* deflated(const QByteArray& bytes)
    {
        zip_source_t* target = zip_source_buffer_create(nullptr, 0, 0, nullptr);
        zip_source_keep(target);
        zip_t* zip = zip_open_from_source(target, ZIP_TRUNCATE, nullptr);
        const bool good =
            zip != nullptr && zip_file_add(zip, "bytes", packages::sourceOf(zip, bytes), 0) == 0 &&
            zip_set_file_compression(zip, 0, ZIP_CM_DEFLATE, 0) == 0 && zip_close(zip) == 0;
        return good ? zip_open_from_source(target, ZIP_RDONLY, nullptr) : nullptr;
    }

    // By where the contents stand.
    std::map<const char*, std::unique_ptr<zip_t, decltype(&zip_discard)>> m_archives;
};

} // namespace

PackageBuilder& PackageBuilder::add(const std::string& name, const QByteArray& bytes,
                                    Packing packing)
{
    m_entries.push_back({name, bytes, packing});
    return *this;
}

PackageBuilder& PackageBuilder::unixMode(quint32 mode)
{
    m_entries.back().mode = mode;
    return *this;
}

PackageBuilder& PackageBuilder::encrypt()
{
    m_entries.back().encrypted = true;
    return *this;
}

QByteArray PackageBuilder::build() const
{
    zip_source_t* target = zip_source_buffer_create(nullptr, 0, 0, nullptr);
    zip_source_keep(target);
    zip_t* zip = zip_open_from_source(target, ZIP_TRUNCATE, nullptr);
    bool good = zip != nullptr;
    DeflatedContents deflated;
    for (const Entry& entry : m_entries) {
        zip_source_t* source = entry.packing == Packing::Deflate
                                   ? deflated.sourceOf(zip, entry.bytes)
                                   : sourceOf(zip, entry.bytes);
        const zip_int64_t added = zip_file_add(zip, entry.name.c_str(), source, ZIP_FL_ENC_UTF_8);
        const auto index = static_cast<zip_uint64_t>(added);
        good =
            good && added >= 0 &&
            zip_set_file_compression(zip, index, method(entry.packing), 0) == 0 &&
            zip_file_set_external_attributes(zip, index, 0, ZIP_OPSYS_UNIX, entry.mode << 16) == 0;
        if (entry.encrypted)
            good = good && zip_file_set_encryption(zip, index, ZIP_EM_TRAD_PKWARE, "secret") == 0;
    }
    good = good && zip_close(zip) == 0;
    const QByteArray bytes = good ? readAll(target) : QByteArray();
    zip_source_free(target);
    return bytes;
}

QByteArray customization(const QByteArray& inside)
{
    return "<customization format=\"1\"><menugroup name=\"G\">" + inside +
           "</menugroup></customization>";
}

QByteArray packageOf(const QByteArray& customizationXml)
{
    return PackageBuilder().add("customization.xml", customizationXml).build();
}

QByteArray png(int width, int height)
{
    QImage image(width, height, QImage::Format_ARGB32);
    image.fill(Qt::red);
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, "png");
    return bytes;
}

QByteArray pngChunk(const QByteArray& name, const QByteArray& content)
{
    return bigEndian(static_cast<quint32>(content.size())) + name + content +
           bigEndian(crc32(name + content));
}

int endRecord(const QByteArray& archive)
{
    return archive.lastIndexOf(QByteArray("PK\5\6", 4));
}

int centralRecord(const QByteArray& archive, int index)
{
    auto at = static_cast<int>(get32(archive, endRecord(archive) + 16));
    for (int i = 0; i < index; ++i)
        at += static_cast<int>(46 + get16(archive, at + 28) + get16(archive, at + 30) +
                               get16(archive, at + 32));
    return at;
}

int localHeader(const QByteArray& archive, int index)
{
    return static_cast<int>(get32(archive, centralRecord(archive, index) + 42));
}

quint32 get16(const QByteArray& archive, int at)
{
    return qFromLittleEndian<quint16>(archive.constData() + at);
}

quint32 get32(const QByteArray& archive, int at)
{
    return qFromLittleEndian<quint32>(archive.constData() + at);
}

void set16(QByteArray& archive, int at, quint32 value)
{
    qToLittleEndian(static_cast<quint16>(value), archive.data() + at);
}

void set32(QByteArray& archive, int at, quint32 value)
{
    qToLittleEndian(value, archive.data() + at);
}

void rename(QByteArray& archive, int index, const QByteArray& name)
{
    const int central = centralRecord(archive, index);
    const int local = localHeader(archive, index);
    if (get16(archive, central + 28) != static_cast<quint32>(name.size()))
        throw std::logic_error("a name of another length");
    archive.replace(central + 46, name.size(), name);
    archive.replace(local + 30, name.size(), name);
}

} // namespace packages
