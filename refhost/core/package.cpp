#include "refhost/core/package.h"

#include "refhost/core/customizationreader.h"
#include "refhost/core/imagecheck.h"
#include "refhost/core/packagearchive.h"

#include <utility>

namespace quelhost {

namespace {

const QLatin1String kCustomization("customization.xml");
constexpr std::size_t kManyFaults = 10000;

class PackageReader
{
public:
    PackageReader(ArchiveReading archive, QString file)
        : m_archive(std::move(archive))
        , m_file(std::move(file))
        , m_faults(m_archive.faults)
    {}

    [[nodiscard]] PackageReading read()
    {
        readText();
        readImages();
        return m_faults.empty() ? PackageReading(std::move(m_group))
                                : PackageReading(std::move(m_faults));
    }

private:
    void readText()
    {
        const ArchiveEntry* text = m_archive.find(kCustomization);
        if (text == nullptr)
            m_faults.push_back({FaultKind::NotFound, qtTrId("package-no-customization"), m_file});
        if (text == nullptr || !text->isGood)
            return;
        std::set<QString> names;
        for (const ArchiveEntry& entry : m_archive.entries)
            names.insert(entry.name);
        CustomizationReading reading = readCustomization(text->bytes, m_file, names);
        m_group = std::move(reading.group);
        addFaults(reading.faults);
    }

    void readImages()
    {
        for (const ArchiveEntry& entry : m_archive.entries) {
            if (!entry.isGood || entry.name == kCustomization)
                continue;
            // An image may have a quarter of a million faults, and there may be 2,000 images.
            if (m_faults.size() > kManyFaults) {
                m_faults.push_back(
                    {FaultKind::BadInput, qtTrId("package-many-faults"), m_file, 0, 0});
                return;
            }
            readImage(entry);
        }
    }

    void readImage(const ArchiveEntry& entry)
    {
        const QString file = m_file + QLatin1Char('!') + entry.name;
        const ImageReading reading = checkImage(entry.name, entry.bytes, file);
        m_group.images[entry.name] = reading.bytes;
        addFaults(reading.faults);
    }

    void addFaults(const std::vector<Fault>& faults)
    {
        m_faults.insert(m_faults.end(), faults.begin(), faults.end());
    }

    ArchiveReading m_archive;
    QString m_file;
    std::vector<Fault> m_faults;
    MenuGroup m_group;
};

[[nodiscard]] PackageReading readUnpacked(ArchiveReading archive, const QString& file)
{
    if (!archive.isOpen)
        return PackageReading(std::move(archive.faults));
    return PackageReader(std::move(archive), file).read();
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
    return readUnpacked(readArchiveFile(path), path);
}

PackageReading readPackageBytes(const QByteArray& bytes, const QString& file)
{
    return readUnpacked(readArchive(bytes, file), file);
}

} // namespace quelhost
