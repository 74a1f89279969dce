#include "refhost/core/package.h"

#include "refhost/core/customizationreader.h"
#include "refhost/core/imagecheck.h"
#include "refhost/core/packagearchive.h"
#include "refhost/core/packagefaults.h"
#include "refhost/core/packagefile.h"

#include <utility>

namespace quelhost {

namespace {

const QLatin1String kCustomization("customization.xml");

// Images are kept while they are checked up to that size. Were all of a large package kept, a fault
// behind them would have cost their memory besides the archive's; they are unpacked again instead.
constexpr qint64 kKeptImageBytes = 4LL * 1024 * 1024;

class PackageReader
{
public:
    PackageReader(const QByteArray& bytes, const QString& file)
        : m_bytes(bytes)
        , m_file(file)
    {}

    [[nodiscard]] PackageReading read();

private:
    [[nodiscard]] bool wants(const ArchiveReading& archive, const ArchiveEntry& entry);
    void take(const ArchiveReading& archive, ArchiveEntry& entry);
    void readText(const ArchiveReading& archive, const QByteArray& text);
    void readImage(const ArchiveEntry& entry);
    void keepImages();
    void addFaults(const std::vector<Fault>& faults);
    [[nodiscard]] QString imageFile(const ArchiveEntry& entry) const;

    const QByteArray& m_bytes;
    const QString& m_file;
    std::vector<Fault> m_faults; // of the text and the images
    bool m_isCut = false;        // there were too many
    MenuGroup m_group;
    qint64 m_imageBytes = 0;
};

PackageReading PackageReader::read()
{
    EntryUse use;
    use.wants = [this](const auto& reading, const auto& entry) { return wants(reading, entry); };
    use.take = [this](const auto& reading, auto& entry) { take(reading, entry); };
    ArchiveReading archive = readArchive(m_bytes, m_file, {}, use);
    std::vector<Fault> faults = std::move(archive.faults);
    if (archive.isOpen && archive.find(kCustomization) == nullptr)
        faults.push_back({FaultKind::NotFound, qtTrId("package-no-customization"), m_file});
    faults.insert(faults.end(), m_faults.begin(), m_faults.end());
    if (m_isCut)
        faults.push_back({FaultKind::BadInput, qtTrId("package-many-faults"), m_file, 0, 0});
    if (!faults.empty())
        return PackageReading(std::move(faults));
    if (m_imageBytes > kKeptImageBytes)
        keepImages();
    return PackageReading(std::move(m_group));
}

// Names alone tell that a package has no text, or a file of another kind among its images: nothing
// is unpacked for that.
bool PackageReader::wants(const ArchiveReading& archive, const ArchiveEntry& entry)
{
    if (entry.name == kCustomization || imageKind(entry.name))
        return archive.find(kCustomization) != nullptr;
    readImage(entry);
    return false;
}

void PackageReader::take(const ArchiveReading& archive, ArchiveEntry& entry)
{
    if (entry.name == kCustomization)
        readText(archive, entry.bytes);
    else
        readImage(entry);
    entry.bytes.clear();
}

void PackageReader::readText(const ArchiveReading& archive, const QByteArray& text)
{
    std::set<QString> names;
    for (const ArchiveEntry& entry : archive.entries)
        names.insert(entry.name);
    CustomizationReading reading = readCustomization(text, m_file, names);
    m_group = std::move(reading.group);
    addFaults(reading.faults);
}

void PackageReader::readImage(const ArchiveEntry& entry)
{
    if (m_faults.size() > kManyFaults) { // there may be 2,000 images
        m_isCut = true;
        return;
    }
    const ImageReading reading = checkImage(entry.name, entry.bytes, imageFile(entry));
    m_imageBytes += reading.bytes.size();
    addFaults(reading.faults);
    if (m_faults.empty() && m_imageBytes <= kKeptImageBytes)
        m_group.images[entry.name] = reading.bytes;
    else
        m_group.images.clear();
}

// Of a package that was found good.
void PackageReader::keepImages()
{
    EntryUse use;
    use.wants = [](const auto&, const auto& entry) { return entry.name != kCustomization; };
    use.take = [this](const auto&, auto& entry) {
        m_group.images[entry.name] = checkImage(entry.name, entry.bytes, imageFile(entry)).bytes;
        entry.bytes.clear();
    };
    static_cast<void>(readArchive(m_bytes, m_file, {}, use));
}

void PackageReader::addFaults(const std::vector<Fault>& faults)
{
    m_faults.insert(m_faults.end(), faults.begin(), faults.end());
    m_isCut = m_isCut || faults.size() > kManyFaults;
    if (!m_faults.empty())
        m_group = {};
}

QString PackageReader::imageFile(const ArchiveEntry& entry) const
{
    return m_file + QLatin1Char('!') + entry.name;
}

} // namespace

PackageReading::PackageReading(MenuGroup group)
    : m_state(std::in_place_index<0>, std::move(group))
{}

PackageReading::PackageReading(std::vector<Fault> faults)
    : m_state(std::in_place_index<1>, std::move(faults))
{}

PackageReading readPackage(const QString& path)
{
    const Result<QByteArray> bytes = readPackageFile(path, ArchiveLimits().fileBytes);
    if (!bytes)
        return PackageReading(std::vector<Fault>{bytes.fault()});
    return readPackageBytes(bytes.value(), path);
}

PackageReading readPackageBytes(const QByteArray& bytes, const QString& file)
{
    return PackageReader(bytes, file).read();
}

} // namespace quelhost
