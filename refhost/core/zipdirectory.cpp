#include "refhost/core/zipdirectory.h"

#include "refhost/core/packagefaults.h"

#include <QtEndian>

#include <algorithm>
#include <optional>
#include <string_view>

namespace quelhost {

namespace {

constexpr qint64 kEndSize = 22;
constexpr qint64 kMaxCommentSize = 0xFFFF;
constexpr qint64 kCentralSize = 46;
constexpr qint64 kLocalSize = 30;
constexpr std::string_view kEndSignature("PK\5\6", 4);
constexpr std::string_view kCentralSignature("PK\1\2", 4);
constexpr std::string_view kLocalSignature("PK\3\4", 4);

// Encrypted, strongly encrypted, table of contents encrypted.
constexpr quint16 kEncryptedFlags = 0x0001 | 0x0040 | 0x2000;

class DirectoryReader
{
public:
    DirectoryReader(const QByteArray& archive, QString file)
        : m_bytes(archive.constData(), static_cast<std::size_t>(archive.size()))
        , m_file(std::move(file))
    {}

    [[nodiscard]] Result<ZipDirectory> read(qint64 maxEntries);

private:
    [[nodiscard]] bool hasSignature(qint64 at, std::string_view signature) const;
    [[nodiscard]] quint16 u16(qint64 at) const;
    [[nodiscard]] quint32 u32(qint64 at) const;
    [[nodiscard]] Fault damaged() const;
    [[nodiscard]] Fault bad(const QString& sentence) const;
    [[nodiscard]] Result<qint64> findEnd() const;
    [[nodiscard]] std::optional<ZipEntry> readEntry(qint64 at, qint64 directory) const;
    [[nodiscard]] std::optional<ZipDirectory> readEntries(qint64 at, qint64 end,
                                                          qint64 count) const;
    [[nodiscard]] Status checkOverlap(std::vector<ZipEntry> entries) const;

    std::string_view m_bytes;
    QString m_file;
};

bool DirectoryReader::hasSignature(qint64 at, std::string_view signature) const
{
    return m_bytes.substr(static_cast<std::size_t>(at), signature.size()) == signature;
}

quint16 DirectoryReader::u16(qint64 at) const
{
    return qFromLittleEndian<quint16>(m_bytes.data() + at);
}

quint32 DirectoryReader::u32(qint64 at) const
{
    return qFromLittleEndian<quint32>(m_bytes.data() + at);
}

Fault DirectoryReader::damaged() const
{
    return {FaultKind::Damaged, qtTrId("package-zip-damaged"), m_file, 0, 0};
}

Fault DirectoryReader::bad(const QString& sentence) const
{
    return {FaultKind::BadInput, sentence, m_file, 0, 0};
}

Result<qint64> DirectoryReader::findEnd() const
{
    const auto size = static_cast<qint64>(m_bytes.size());
    const qint64 first = std::max<qint64>(0, size - kEndSize - kMaxCommentSize);
    const std::string_view tail = m_bytes.substr(static_cast<std::size_t>(first));
    const std::size_t found = tail.rfind(kEndSignature);
    if (found == std::string_view::npos) {
        const bool beginsAsZip = hasSignature(0, kLocalSignature);
        return beginsAsZip ? damaged() : bad(qtTrId("package-not-zip"));
    }
    const qint64 end = first + static_cast<qint64>(found);
    // A second end record in a comment would give two programs two different archives.
    const bool unique = tail.find(kEndSignature) == found;
    if (!unique || end + kEndSize > size || end + kEndSize + u16(end + 20) != size)
        return damaged();
    return end;
}

// Nothing when the record, or the entry's own header, is not where it should be.
std::optional<ZipEntry> DirectoryReader::readEntry(qint64 at, qint64 directory) const
{
    const qint64 begin = u32(at + 42);
    if (begin + kLocalSize > directory || !hasSignature(begin, kLocalSignature))
        return std::nullopt;
    ZipEntry entry;
    entry.name = m_bytes.substr(static_cast<std::size_t>(at + kCentralSize), u16(at + 28));
    entry.encrypted = ((u16(at + 8) | u16(begin + 6)) & kEncryptedFlags) != 0;
    entry.method = u16(at + 10);
    entry.unixMode = u32(at + 38) >> 16;
    entry.packedSize = u32(at + 20);
    entry.size = u32(at + 24);
    entry.begin = begin;
    entry.end = begin + kLocalSize + u16(begin + 26) + u16(begin + 28) + entry.packedSize;
    if (entry.end > directory)
        return std::nullopt;
    return entry;
}

Status DirectoryReader::checkOverlap(std::vector<ZipEntry> entries) const
{
    std::stable_sort(entries.begin(), entries.end(),
                     [](const ZipEntry& a, const ZipEntry& b) { return a.begin < b.begin; });
    const auto overlap =
        std::adjacent_find(entries.begin(), entries.end(),
                           [](const ZipEntry& a, const ZipEntry& b) { return b.begin < a.end; });
    if (overlap == entries.end())
        return Done{};
    const QString first = shownText(QString::fromStdString(overlap->name));
    const QString second = shownText(QString::fromStdString(std::next(overlap)->name));
    return bad(qtTrId("package-zip-overlap").arg(first, second));
}

// Nothing unless the records fill the space from `at` to `end` exactly.
std::optional<ZipDirectory> DirectoryReader::readEntries(qint64 at, qint64 end, qint64 count) const
{
    const qint64 directory = at;
    ZipDirectory result;
    for (qint64 i = 0; i < count; ++i) {
        if (at + kCentralSize > end || !hasSignature(at, kCentralSignature))
            return std::nullopt;
        const qint64 next = at + kCentralSize + u16(at + 28) + u16(at + 30) + u16(at + 32);
        const std::optional<ZipEntry> entry = next <= end ? readEntry(at, directory) : std::nullopt;
        if (!entry)
            return std::nullopt;
        result.entries.push_back(*entry);
        at = next;
    }
    return at == end ? std::optional(result) : std::nullopt;
}

Result<ZipDirectory> DirectoryReader::read(qint64 maxEntries)
{
    const Result<qint64> end = findEnd();
    if (!end)
        return end.fault();
    const qint64 count = u16(end.value() + 10);
    if (count > maxEntries)
        return bad(qtTrId("package-too-many-entries").arg(count).arg(maxEntries));
    // An archive in several parts counts the entries of its last part apart.
    const qint64 directory = u32(end.value() + 16);
    const bool inOnePart = u16(end.value() + 8) == count;
    if (!inOnePart || directory + u32(end.value() + 12) != end.value())
        return damaged();
    const std::optional<ZipDirectory> result = readEntries(directory, end.value(), count);
    if (!result)
        return damaged();
    const Status apart = checkOverlap(result->entries);
    if (!apart)
        return apart.fault();
    return *result;
}

} // namespace

Result<ZipDirectory> readZipDirectory(const QByteArray& archive, const QString& file,
                                      qint64 maxEntries)
{
    return DirectoryReader(archive, file).read(maxEntries);
}

} // namespace quelhost
