#include "refhost/core/packagearchive.h"

#include "tests/support/damagedarchives.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

using namespace quelhost;
using namespace packages;

namespace {

const char* const kDamaged = "p.cuix: The ZIP archive is damaged: its table of contents is missing "
                             "or contradicts the rest.\n";

ArchiveReading read(const QByteArray& archive, const ArchiveLimits& limits = {})
{
    return readArchive(archive, QStringLiteral("p.cuix"), limits);
}

std::string faultsOf(const ArchiveReading& reading)
{
    std::string text;
    for (const Fault& fault : reading.faults)
        text += fault.text().toStdString() + "\n";
    return text;
}

// "name=bytes" for a good entry, "name!" for one with a fault.
std::string entriesOf(const ArchiveReading& reading)
{
    std::string text;
    for (const ArchiveEntry& entry : reading.entries)
        text += entry.name.toStdString() +
                (entry.isGood ? "=" + entry.bytes.toStdString() : std::string("!")) + "\n";
    return text;
}

// A text file and an image, both deflated; what most tests damage.
QByteArray plain()
{
    return PackageBuilder()
        .add("customization.xml", QByteArray("text ").repeated(20))
        .add("images/a.png", QByteArray("image ").repeated(20))
        .build();
}

QByteArray withMode(quint32 mode)
{
    return PackageBuilder()
        .add("customization.xml", "text")
        .add("images/a.png", "image")
        .unixMode(mode)
        .build();
}

} // namespace

TEST(PackageArchive, unpacksFilesInTheirOrder)
{
    const QByteArray archive = PackageBuilder()
                                   .add("images/b.png", "stored", Packing::Store)
                                   .add("images/", "", Packing::Store)
                                   .unixMode(040755)
                                   .add("customization.xml", "<a/>")
                                   .add("images/sub/", "")
                                   .add("images/sub/\xC3\xA4 1.svg", "")
                                   .build();
    const ArchiveReading reading = read(archive);
    EXPECT_TRUE(reading.isOpen);
    EXPECT_EQ(faultsOf(reading), "");
    EXPECT_EQ(entriesOf(reading),
              "images/b.png=stored\ncustomization.xml=<a/>\nimages/sub/\xC3\xA4 1.svg=\n");
}

TEST(PackageArchive, findsEntriesByName)
{
    const ArchiveReading reading = read(plain());
    ASSERT_NE(reading.find(QStringLiteral("images/a.png")), nullptr);
    EXPECT_EQ(reading.find(QStringLiteral("images/a.png"))->bytes,
              QByteArray("image ").repeated(20));
    EXPECT_EQ(reading.find(QStringLiteral("images/A.png")), nullptr);
}

TEST(PackageArchive, acceptsWhatHonestPackersWrite)
{
    struct Row
    {
        const char* name;
        QByteArray archive;
    };
    const Row rows[] = {
        {"as it is", plain()},
        {"a comment", withComment(plain(), "made by hand")},
        {"a comment as long as can be", withComment(plain(), QByteArray(65535, 'c'))},
        {"no mode", withMode(0)},
        {"a plain file's mode", withMode(0100644)},
        {"permissions without a kind", withMode(0644)},
    };
    for (const Row& row : rows) {
        const ArchiveReading reading = read(row.archive);
        EXPECT_EQ(faultsOf(reading), "") << row.name;
        EXPECT_EQ(reading.entries.size(), 2U) << row.name;
    }
}

TEST(PackageArchive, acceptsAnArchiveOfNothing)
{
    const ArchiveReading reading = read(QByteArray("PK\5\6", 4) + QByteArray(18, '\0'));
    EXPECT_TRUE(reading.isOpen);
    EXPECT_EQ(faultsOf(reading), "");
    EXPECT_EQ(entriesOf(reading), "");
}

TEST(PackageArchive, acceptsEveryLimitAndRefusesOneAbove)
{
    struct Row
    {
        const char* name;
        QByteArray atLimit;
        QByteArray above;
        const char* fault;
        std::size_t entriesAbove;
    };
    const Row rows[] = {
        {"2,000 entries", manyEntries(2000), manyEntries(2001),
         "p.cuix: The archive has 2001 entries; at most 2000 are allowed.\n", 0},
        {"an entry of 16 MiB", entryOfSize(16 * kMiB), entryOfSize(16 * kMiB + 1),
         "p.cuix: \"images/a.png\" is larger than 16 MiB.\n", 2},
        {"64 MiB together", totalOfSize(64 * kMiB), totalOfSize(64 * kMiB + 1),
         "p.cuix: The entries together are larger than 64 MiB.\n", 0},
        {"256 KiB of names", namesOfSize(262144), namesOfSize(262145),
         "p.cuix: The names of all entries together are longer than 256 KiB.\n", 0},
    };
    for (const Row& row : rows) {
        const ArchiveReading atLimit = read(row.atLimit);
        EXPECT_TRUE(atLimit.isOpen) << row.name;
        EXPECT_EQ(faultsOf(atLimit), "") << row.name;
        const ArchiveReading above = read(row.above);
        EXPECT_EQ(faultsOf(above), row.fault) << row.name;
        EXPECT_EQ(above.entries.size(), row.entriesAbove) << row.name;
    }
}

TEST(PackageArchive, limitsTheFileItself)
{
    const QByteArray archive = plain();
    ArchiveLimits limits;
    limits.fileBytes = archive.size();
    EXPECT_EQ(faultsOf(read(archive, limits)), "");
    limits.fileBytes = archive.size() - 1;
    EXPECT_EQ(faultsOf(read(archive, limits)), "p.cuix: The file is larger than 0 MiB.\n");
    EXPECT_EQ(faultsOf(read(QByteArray(72 * kMiB + 1, 'x'))),
              "p.cuix: The file is larger than 72 MiB.\n");
    EXPECT_EQ(faultsOf(read(QByteArray(72 * kMiB, 'x'))),
              "p.cuix: The file is not a ZIP archive.\n");
}

TEST(PackageArchive, refusesNamesThatDoNotBelongThere)
{
    struct Row
    {
        const char* name;
        QByteArray entryName;
        const char* fault;
    };
    const Row rows[] = {
        {"up a folder", "images/../../etc/passwd",
         "p.cuix: The entry name \"images/../../etc/passwd\" contains \".\" or \"..\" as a "
         "folder.\n"},
        {"absolute", "/etc/passwd",
         "p.cuix: The entry name \"/etc/passwd\" is an absolute path.\n"},
        {"a backslash", "images\\a.png",
         "p.cuix: The entry name \"images\\a.png\" contains a backslash.\n"},
        {"a line end", "images/a\nb.png",
         "p.cuix: The entry name \"images/a\xEF\xBF\xBD"
         "b.png\" contains a control character.\n"},
        {"elsewhere", "readme.txt",
         "p.cuix: \"readme.txt\" does not belong in a package: only customization.xml and files "
         "below images/ do.\n"},
        {"not UTF-8", "images/\xE4.png",
         "p.cuix: The entry name \"images/\xEF\xBF\xBD.png\" is not UTF-8.\n"},
    };
    for (const Row& row : rows) {
        const ArchiveReading reading = read(withEntryNamed(row.entryName));
        EXPECT_EQ(faultsOf(reading), row.fault) << row.name;
        ASSERT_FALSE(reading.entries.empty()) << row.name;
        EXPECT_TRUE(reading.entries.front().isGood) << row.name;
    }
}

TEST(PackageArchive, refusesEntriesThatItCannotTrust)
{
    struct Row
    {
        const char* name;
        QByteArray archive;
        const char* fault;
    };
    const char* const kWrong = "p.cuix: \"images/a.png\" is damaged: its content does not have the "
                               "size and checksum that the archive states.\n";
    const char* const kSpecial =
        "p.cuix: \"images/a.png\" is a link or a device, not a plain file.\n";
    const char* const kEncrypted =
        "p.cuix: \"images/a.png\" is encrypted; a package must not be.\n";
    const char* const kOtherMethod = "p.cuix: \"images/a.png\" is compressed in a way that is not "
                                     "supported; only stored and deflated entries are.\n";
    const Row rows[] = {
        {"a link", withMode(0120777), kSpecial},
        {"a character device", withMode(0020644), kSpecial},
        {"a pipe", withMode(0010644), kSpecial},
        {"a socket", withMode(0140644), kSpecial},
        {"encrypted",
         PackageBuilder()
             .add("customization.xml", "text")
             .add("images/a.png", "image")
             .encrypt()
             .build(),
         kEncrypted},
        {"said to be encrypted", withField16(plain(), 1, kFlags, 0x0001), kEncrypted},
        {"said to be strongly encrypted", withField16(plain(), 1, kFlags, 0x0040), kEncrypted},
        {"said to have its header encrypted", withField16(plain(), 1, kFlags, 0x2000), kEncrypted},
        {"compressed another way",
         PackageBuilder()
             .add("customization.xml", "text")
             .add("images/a.png", QByteArray(5000, 'x'), Packing::Bzip2)
             .build(),
         kOtherMethod},
        {"compressed in an unknown way", withField16(plain(), 1, kMethod, 77), kOtherMethod},
        {"a wrong checksum", withField32(plain(), 1, kChecksum, 0x12345678), kWrong},
        {"more bytes than stated", withField32(plain(), 1, kSize, 119), kWrong},
        {"far more bytes than stated", withField32(plain(), 1, kSize, 1), kWrong},
        {"bytes where none are stated", withField32(plain(), 1, kSize, 0), kWrong},
        {"fewer bytes than stated", withField32(plain(), 1, kSize, 121), kWrong},
        {"far fewer bytes than stated", withField32(plain(), 1, kSize, 16 * kMiB), kWrong},
        {"a folder with content",
         PackageBuilder().add("customization.xml", "text").add("images/b/", "x").build(),
         "p.cuix: The folder \"images/b/\" has content of its own.\n"},
    };
    for (const Row& row : rows) {
        ASSERT_FALSE(row.archive.isEmpty()) << row.name;
        const ArchiveReading reading = read(row.archive);
        EXPECT_TRUE(reading.isOpen) << row.name;
        EXPECT_EQ(faultsOf(reading), row.fault) << row.name;
        // The rest stays readable, so that its faults can be told too.
        ASSERT_FALSE(reading.entries.empty()) << row.name;
        EXPECT_TRUE(reading.entries.front().isGood) << row.name;
    }
}

TEST(PackageArchive, refusesArchivesThatItCannotTrust)
{
    struct Row
    {
        const char* name;
        QByteArray archive;
        std::string fault;
    };
    const QByteArray good = plain();
    const QByteArray zeros(16 * kMiB, '\0');
    const std::string noZip = "p.cuix: The file is not a ZIP archive.\n";
    const Row rows[] = {
        {"nothing", "", noZip},
        {"a text", "<customization/>", noZip},
        {"another kind of archive", QByteArray("\x1F\x8B\x08\0\0\0\0\0", 8), noZip},
        {"only the beginning", good.left(100), kDamaged},
        {"the last byte is missing", good.left(good.size() - 1), kDamaged},
        {"bytes behind the end", good + "x", kDamaged},
        {"bytes before the beginning", "#!/bin/sh\n" + good, kDamaged},
        {"an end record within the comment",
         withComment(plain(), "x" + QByteArray("PK\5\6", 4) + QByteArray(18, '\0')), kDamaged},
        {"the second part of several", withEnd16(plain(), kEndPartEntries, 1), kDamaged},
        {"fewer entries than there are", withEnd16(plain(), kEndEntries, 1), kDamaged},
        {"more entries than there are", withCount(plain(), 3), kDamaged},
        {"a table of contents elsewhere", withEnd32(plain(), kEndDirectory, 0), kDamaged},
        {"a table of contents beyond the end", withEnd32(plain(), kEndDirectory, 0xFFFFFFF0),
         kDamaged},
        {"a table of contents of another size", withEnd32(plain(), kEndDirectorySize, 46),
         kDamaged},
        {"an entry beyond the end", withCentral32(plain(), 1, 42, 0xFFFFFFFF), kDamaged},
        {"an entry whose header is none", withCentral32(plain(), 1, 42, 1), kDamaged},
        {"an entry that reaches into the table of contents",
         withField32(plain(), 1, kPackedSize, 1000), kDamaged},
        {"an entry with a name of its own",
         [] {
             QByteArray archive = plain();
             archive[localHeader(archive, 1) + 30] = 'J';
             return archive;
         }(),
         kDamaged},
        {"an entry with a size of its own", withLocal32(plain(), 1, kSize.local, 119), kDamaged},
        {"entries that share bytes", overlapping(),
         "p.cuix: The entries \"images/a.png\" and \"images/b.png\" share bytes of the archive.\n"},
        {"two entries in one place", withCentral32(plain(), 1, 42, 0),
         "p.cuix: The entries \"customization.xml\" and \"images/a.png\" share bytes of the "
         "archive.\n"},
        {"five bombs of 16 MiB",
         PackageBuilder()
             .add("images/a.png", zeros)
             .add("images/b.png", zeros)
             .add("images/c.png", zeros)
             .add("images/d.png", zeros)
             .add("images/e.png", zeros)
             .build(),
         "p.cuix: The entries together are larger than 64 MiB.\n"},
        {"an entry said to be of 4 GiB", withField32(plain(), 1, kSize, 0xFFFFFFFF),
         "p.cuix: The entries together are larger than 64 MiB.\n"},
    };
    for (const Row& row : rows) {
        const ArchiveReading reading = read(row.archive);
        EXPECT_FALSE(reading.isOpen) << row.name;
        EXPECT_EQ(faultsOf(reading), row.fault) << row.name;
        EXPECT_TRUE(reading.entries.empty()) << row.name;
    }
}

// The library refuses such archives as a whole; the sentence is about the name all the same.
TEST(PackageArchive, tellsOfNamesThatMakeTheArchiveUnreadable)
{
    QByteArray twice = PackageBuilder()
                           .add("customization.xml", "text")
                           .add("images/a.png", "one")
                           .add("images/b.png", "two")
                           .build();
    rename(twice, 2, "images/a.png");
    const ArchiveReading readTwice = read(twice);
    EXPECT_FALSE(readTwice.isOpen);
    EXPECT_EQ(faultsOf(readTwice),
              "p.cuix: The archive has more than one entry \"images/a.png\".\n");

    rename(twice, 1, "readme12.txt");
    rename(twice, 2, "readme12.txt");
    EXPECT_EQ(faultsOf(read(twice)),
              "p.cuix: \"readme12.txt\" does not belong in a package: only customization.xml and "
              "files below images/ do.\n"
              "p.cuix: The archive has more than one entry \"readme12.txt\".\n");

    const ArchiveReading readZero = read(withEntryNamed(QByteArray("images/a.png\0.exe", 17)));
    EXPECT_FALSE(readZero.isOpen);
    EXPECT_EQ(faultsOf(readZero), "p.cuix: The entry name \"images/a.png\xEF\xBF\xBD.exe\" "
                                  "contains a control character.\n");
}

TEST(PackageArchive, tellsTheFaultsOfAllEntries)
{
    const QByteArray archive = PackageBuilder()
                                   .add("readme.txt", "x")
                                   .add("customization.xml", "text")
                                   .add("images/a.png", "image")
                                   .unixMode(0120777)
                                   .add("images/b.png", "image")
                                   .encrypt()
                                   .build();
    const ArchiveReading reading = read(archive);
    EXPECT_EQ(faultsOf(reading),
              "p.cuix: \"readme.txt\" does not belong in a package: only customization.xml and "
              "files below images/ do.\n"
              "p.cuix: \"images/a.png\" is a link or a device, not a plain file.\n"
              "p.cuix: \"images/b.png\" is encrypted; a package must not be.\n");
    EXPECT_EQ(entriesOf(reading), "customization.xml=text\nimages/a.png!\nimages/b.png!\n");
}

TEST(PackageArchive, refusesEveryBeginningOfAnArchive)
{
    const QByteArray archive = plain();
    for (int length = 0; length < archive.size(); ++length) {
        const ArchiveReading reading = read(archive.left(length));
        EXPECT_FALSE(reading.isOpen) << length;
        EXPECT_EQ(reading.faults.size(), 1U) << length;
    }
}

// Whatever byte is wrong: it is noticed, or it does not matter.
TEST(PackageArchive, neverGivesOtherContentForAWrongByte)
{
    const QByteArray archive = plain();
    const std::string content = entriesOf(read(archive));
    int refused = 0;
    for (int at = 0; at < archive.size(); ++at) {
        for (const int change : {0x01, 0x10, 0x80, 0xFF}) {
            QByteArray wrong = archive;
            wrong[at] = static_cast<char>(wrong[at] ^ change);
            const ArchiveReading reading = read(wrong);
            if (!reading.faults.empty())
                ++refused;
            else
                EXPECT_EQ(entriesOf(reading), content) << at << " " << change;
        }
    }
    // Times, versions and a few notes are all that may differ.
    EXPECT_GT(refused, archive.size() * 4 / 2);
}

TEST(PackageArchive, handsOverEachWantedGoodEntryTheTextFirst)
{
    const QByteArray archive = PackageBuilder()
                                   .add("images/a.png", "image")
                                   .add("images/b.png", "link")
                                   .unixMode(0120777)
                                   .add("images/c.png", "not wanted")
                                   .add("customization.xml", "text")
                                   .build();
    std::string asked;
    std::string used;
    EntryUse use;
    use.wants = [&asked](const ArchiveReading& all, const ArchiveEntry& entry) {
        asked += entry.name.toStdString() + " of " + std::to_string(all.entries.size()) + "\n";
        return !entry.name.contains(QStringLiteral("/c"));
    };
    use.take = [&used](const ArchiveReading& all, ArchiveEntry& entry) {
        used += entry.name.toStdString() + "=" + entry.bytes.toStdString() + " of " +
                std::to_string(all.entries.size()) + "\n";
        entry.bytes.clear();
    };
    const ArchiveReading reading = readArchive(archive, QStringLiteral("p.cuix"), {}, use);
    EXPECT_EQ(asked, "customization.xml of 4\nimages/a.png of 4\nimages/c.png of 4\n");
    EXPECT_EQ(used, "customization.xml=text of 4\nimages/a.png=image of 4\n");
    EXPECT_EQ(entriesOf(reading),
              "images/a.png=\nimages/b.png!\nimages/c.png=\ncustomization.xml=\n");
}
