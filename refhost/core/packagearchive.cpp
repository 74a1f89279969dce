#include "refhost/core/packagearchive.h"

#include "refhost/core/entryname.h"
#include "refhost/core/packagefaults.h"
#include "refhost/core/zipdirectory.h"

#include <sys/stat.h>
#include <zip.h>

#include <algorithm>
#include <cstring>
#include <memory>
#include <set>

namespace quelhost {

namespace {

constexpr qint64 kMiB = 1024 * 1024;
const QLatin1String kTextName("customization.xml");

// Discarding, unlike closing, never writes.
using ZipHandle = std::unique_ptr<zip_t, decltype(&zip_discard)>;
using ZipFile = std::unique_ptr<zip_file_t, decltype(&zip_fclose)>;

// Borrows `archive`, which must stay unchanged as long as the handle lives. Null when the library
// finds the archive inconsistent.
[[nodiscard]] ZipHandle openZip(const QByteArray& archive)
{
    zip_error_t error;
    zip_error_init(&error);
    zip_source_t* source = zip_source_buffer_create(
        archive.constData(), static_cast<zip_uint64_t>(archive.size()), 0, &error);
    zip_t* zip = source == nullptr
                     ? nullptr
                     : zip_open_from_source(source, ZIP_CHECKCONS | ZIP_RDONLY, &error);
    // An archive that was opened owns its source.
    if (zip == nullptr)
        zip_source_free(source);
    zip_error_fini(&error);
    return {zip, zip_discard};
}

// The library and the table of contents must speak of the same entries.
[[nodiscard]] bool agree(zip_t* zip, const ZipDirectory& directory)
{
    const auto count = static_cast<zip_int64_t>(directory.entries.size());
    if (zip == nullptr || zip_get_num_entries(zip, 0) != count)
        return false;
    for (zip_int64_t i = 0; i < count; ++i) {
        const ZipEntry& entry = directory.entries[static_cast<std::size_t>(i)];
        zip_stat_t stat;
        zip_stat_init(&stat);
        if (zip_stat_index(zip, static_cast<zip_uint64_t>(i), ZIP_FL_ENC_RAW, &stat) != 0 ||
            stat.size != static_cast<zip_uint64_t>(entry.size) ||
            std::strcmp(entry.name.c_str(), stat.name) != 0) // up to a zero byte, if any
            return false;
    }
    return true;
}

[[nodiscard]] QString totalSentence(const ZipDirectory& directory, const ArchiveLimits& limits)
{
    qint64 total = 0;
    qint64 names = 0;
    for (const ZipEntry& entry : directory.entries) {
        total += entry.size;
        names += static_cast<qint64>(entry.name.size());
    }
    if (total > limits.totalBytes)
        return qtTrId("package-total-too-large").arg(limits.totalBytes / kMiB);
    if (names > limits.nameBytes)
        return qtTrId("package-names-too-long").arg(limits.nameBytes / 1024);
    return {};
}

// What is wrong with an entry that bears the good name `name`; empty when nothing is.
[[nodiscard]] QString entrySentence(const ZipEntry& entry, const EntryName& name, qint64 maxBytes)
{
    const QString shown = shownText(name.text);
    const quint32 kind = entry.unixMode & S_IFMT;
    if (kind != 0 && kind != S_IFREG && kind != S_IFDIR)
        return qtTrId("package-entry-special").arg(shown);
    if (entry.encrypted)
        return qtTrId("package-entry-encrypted").arg(shown);
    if (entry.method != ZIP_CM_STORE && entry.method != ZIP_CM_DEFLATE)
        return qtTrId("package-entry-method").arg(shown);
    if (entry.size > maxBytes)
        return qtTrId("package-entry-too-large").arg(shown, QString::number(maxBytes / kMiB));
    if (name.isFolder && entry.size > 0)
        return qtTrId("package-entry-folder").arg(shown);
    return {};
}

class ArchiveReader
{
public:
    ArchiveReader(const QByteArray& archive, const QString& file, const ArchiveLimits& limits,
                  const EntryUse& use)
        : m_limits(limits)
        , m_use(use)
        , m_faults(file)
        , m_archive(archive)
    {}

    [[nodiscard]] ArchiveReading read(const ZipDirectory& directory);

private:
    void judge(const ZipEntry& entry);
    void unpackAll(const ZipDirectory& directory);
    void unpackEntry(const ZipDirectory& directory, std::size_t index, ArchiveEntry& into);
    [[nodiscard]] bool unpack(zip_uint64_t index, const ZipEntry& entry, ArchiveEntry& into);

    // What is thought of an entry before it is unpacked.
    struct Judged
    {
        EntryName name;
        bool isGood = false;
    };

    ArchiveLimits m_limits;
    const EntryUse& m_use;
    PackageFaults m_faults;
    const QByteArray& m_archive;
    ZipHandle m_zip{nullptr, zip_discard};
    std::set<QString> m_names;
    std::vector<Judged> m_judged; // one for each entry
    ArchiveReading m_reading;
};

ArchiveReading ArchiveReader::read(const ZipDirectory& directory)
{
    const QString sentence = totalSentence(directory, m_limits);
    if (!sentence.isEmpty()) {
        m_faults.add(sentence);
    } else {
        for (const ZipEntry& entry : directory.entries)
            judge(entry);
        m_zip = openZip(m_archive); // only now: the library reads every name
        m_reading.isOpen = agree(m_zip.get(), directory);
    }
    if (m_reading.isOpen)
        unpackAll(directory);
    else if (m_faults.isEmpty())
        m_faults.add(qtTrId("package-zip-damaged"), FaultKind::Damaged);
    m_reading.faults = m_faults.take();
    return std::move(m_reading);
}

void ArchiveReader::judge(const ZipEntry& entry)
{
    const EntryName name = readEntryName(entry.name);
    QString sentence = name.sentence;
    if (name.isGood())
        sentence = entrySentence(entry, name, m_limits.entryBytes);
    if (!m_names.insert(name.text).second)
        sentence = qtTrId("package-entry-twice").arg(shownText(name.text));
    if (!sentence.isEmpty())
        m_faults.add(sentence);
    m_judged.push_back({name, sentence.isEmpty()});
}

void ArchiveReader::unpackAll(const ZipDirectory& directory)
{
    std::vector<std::size_t> indexes; // of the entries that come out
    for (std::size_t i = 0; i < m_judged.size(); ++i) {
        const Judged& judged = m_judged[i];
        if (!judged.name.isGood() || judged.name.isFolder)
            continue;
        indexes.push_back(i);
        m_reading.entries.push_back({judged.name.text, {}, judged.isGood});
    }
    for (const bool isText : {true, false}) {
        for (std::size_t i = 0; i < indexes.size(); ++i) {
            ArchiveEntry& entry = m_reading.entries[i];
            if ((entry.name == kTextName) == isText)
                unpackEntry(directory, indexes[i], entry);
        }
    }
}

void ArchiveReader::unpackEntry(const ZipDirectory& directory, std::size_t index,
                                ArchiveEntry& into)
{
    if (into.isGood && m_use.wants && !m_use.wants(m_reading, into))
        return;
    into.isGood = into.isGood && unpack(index, directory.entries[index], into);
    if (into.isGood && m_use.take)
        m_use.take(m_reading, into);
}

bool ArchiveReader::unpack(zip_uint64_t index, const ZipEntry& entry, ArchiveEntry& into)
{
    const ZipFile file(zip_fopen_index(m_zip.get(), index, 0), zip_fclose);
    // What is stated may be far from what there is: memory that is not written to costs nothing.
    QByteArray bytes(static_cast<int>(entry.size) + 1, Qt::Uninitialized);
    zip_int64_t filled = 0;
    zip_int64_t got = file == nullptr ? -1 : 1;
    // The checksum is tested when the end is met, so one reads until nothing comes any more; the
    // one byte of room beyond the stated size tells whether there is more than that.
    while (got > 0 && filled < bytes.size()) {
        got = zip_fread(file.get(), bytes.data() + filled,
                        static_cast<zip_uint64_t>(bytes.size() - filled));
        filled += std::max<zip_int64_t>(got, 0);
    }
    if (got != 0 || filled != entry.size) {
        m_faults.add(qtTrId("package-entry-damaged").arg(shownText(into.name)), FaultKind::Damaged);
        return false;
    }
    bytes.chop(1);
    into.bytes = bytes;
    return true;
}

} // namespace

const ArchiveEntry* ArchiveReading::find(const QString& name) const
{
    const auto found = std::find_if(entries.begin(), entries.end(),
                                    [&name](const auto& entry) { return entry.name == name; });
    return found == entries.end() ? nullptr : &*found;
}

ArchiveReading readArchive(const QByteArray& archive, const QString& file,
                           const ArchiveLimits& limits, const EntryUse& use)
{
    if (archive.size() > limits.fileBytes) {
        const QString sentence = qtTrId("package-file-too-large").arg(limits.fileBytes / kMiB);
        return {false, {}, {Fault{FaultKind::BadInput, sentence, file, 0, 0}}};
    }
    const Result<ZipDirectory> directory = readZipDirectory(archive, file, limits.entries);
    if (!directory)
        return {false, {}, {directory.fault()}};
    return ArchiveReader(archive, file, limits, use).read(directory.value());
}

} // namespace quelhost
