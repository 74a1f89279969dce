// The table of contents is judged by itself, whatever the library that unpacks would find later.
#include "refhost/core/zipdirectory.h"

#include "tests/support/damagedarchives.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

using namespace quelhost;
using namespace packages;

namespace {

const char* const kDamaged = "p.cuix: The ZIP archive is damaged: its table of contents is missing "
                             "or contradicts the rest.";

Result<ZipDirectory> read(const QByteArray& archive)
{
    return readZipDirectory(archive, QStringLiteral("p.cuix"), 2000);
}

// The fault, or one line for each entry.
std::string outcomeOf(const QByteArray& archive)
{
    const Result<ZipDirectory> directory = read(archive);
    if (!directory)
        return directory.fault().text().toStdString();
    std::string text;
    for (const ZipEntry& entry : directory.value().entries)
        text += entry.name + (entry.encrypted ? " encrypted" : "") + " by " +
                std::to_string(entry.method) + ": " + std::to_string(entry.packedSize) + " of " +
                std::to_string(entry.size) + ", " + std::to_string(entry.begin) + " to " +
                std::to_string(entry.end) + "\n";
    return text;
}

// A text and an image, both stored: 30 bytes of header, the name, the bytes.
QByteArray plain()
{
    return PackageBuilder()
        .add("customization.xml", QByteArray(20, 't'), Packing::Store)
        .add("images/a.png", QByteArray(10, 'i'), Packing::Store)
        .build();
}

// The same with the records of its table of contents in the other order.
QByteArray turned()
{
    const QByteArray archive = plain();
    const int first = centralRecord(archive, 0);
    const int second = centralRecord(archive, 1);
    const int end = endRecord(archive);
    return archive.left(first) + archive.mid(second, end - second) +
           archive.mid(first, second - first) + archive.mid(end);
}

} // namespace

TEST(ZipDirectory, tellsWhatStandsInTheTableOfContents)
{
    const std::string text = "customization.xml by 0: 20 of 20, 0 to 67\n";
    const std::string image = "images/a.png by 0: 10 of 10, 67 to 119\n";
    const std::string encrypted = "images/a.png encrypted by 0: 10 of 10, 67 to 119\n";
    struct Row
    {
        const char* name;
        QByteArray archive;
        std::string outcome;
    };
    const Row rows[] = {
        {"no entry", QByteArray("PK\5\6", 4) + QByteArray(18, '\0'), ""},
        {"two entries", plain(), text + image},
        {"two entries in another order than their bytes", turned(), image + text},
        {"a comment", withComment(plain(), "made by hand, PK\5"), text + image},
        {"another size", withField32(plain(), 1, kSize, 16),
         text + "images/a.png by 0: 10 of 16, 67 to 119\n"},
        {"another packing", withField16(plain(), 1, kMethod, 8),
         text + "images/a.png by 8: 10 of 10, 67 to 119\n"},
        {"encrypted, as both say", withField16(plain(), 1, kFlags, 0x0001), text + encrypted},
        {"encrypted, as its header says", withLocal16(plain(), 1, kFlags.local, 0x0001),
         text + encrypted},
        {"encrypted, as the table of contents says",
         withCentral16(plain(), 1, kFlags.central, 0x0001), text + encrypted},
    };
    for (const Row& row : rows)
        EXPECT_EQ(outcomeOf(row.archive), row.outcome) << row.name;
}

TEST(ZipDirectory, takesNothingThatCouldBeReadInAnotherWay)
{
    const QByteArray good = plain();
    const auto beginOf = [&good](int index) {
        return static_cast<quint32>(centralRecord(good, index));
    };
    const auto withoutSignature = [](QByteArray archive, int at) {
        archive[at] = 'Q';
        return archive;
    };
    struct Row
    {
        const char* name;
        QByteArray archive;
    };
    const Row rows[] = {
        {"a byte behind the end", good + "x"},
        {"the last byte missing", good.chopped(1)},
        {"nothing behind the end's signature", good.left(endRecord(good) + 4)},
        {"a comment longer than said", withEnd16(withComment(good, "comment"), kEndCommentSize, 6)},
        {"a comment shorter than said", withEnd16(good, kEndCommentSize, 1)},
        {"another archive within the comment", withArchiveInComment(good, good)},
        {"entries in another part", withEnd16(good, kEndPartEntries, 1)},
        {"fewer entries than there are", withCount(good, 1)},
        {"no entries where there are some", withCount(good, 0)},
        {"more entries than there are", withCount(good, 3)},
        {"a table of contents that begins earlier", withEnd32(good, kEndDirectory, beginOf(0) - 1)},
        {"a table of contents that begins later", withEnd32(good, kEndDirectory, beginOf(1))},
        {"a table of contents shorter than it is", withEnd32(good, kEndDirectorySize, 46)},
        {"a table of contents longer than it is", withEnd32(good, kEndDirectorySize, 200)},
        {"a byte behind the table of contents",
         withEnd32(QByteArray(good).insert(endRecord(good), 'x'), kEndDirectorySize,
                   static_cast<quint32>(endRecord(good) + 1) - beginOf(0))},
        {"a record without its signature", withoutSignature(good, centralRecord(good, 1))},
        {"a name that reaches beyond its record", withCentral16(good, 1, 28, 13)},
        {"notes that reach beyond their record", withCentral16(good, 1, 30, 1)},
        {"a comment that reaches beyond its record", withCentral16(good, 1, 32, 1)},
        {"an entry without its header's signature", withoutSignature(good, localHeader(good, 1))},
        {"an entry that begins within another", withCentral32(good, 1, 42, 66)},
        {"an entry whose header reaches into the table of contents",
         withCentral32(good, 1, 42, beginOf(0) - 29)},
        {"a header's name that reaches into the table of contents", withLocal16(good, 1, 26, 13)},
        {"a header's notes that reach into the table of contents", withLocal16(good, 1, 28, 1)},
        {"an entry beyond the end", withCentral32(good, 1, 42, 0xFFFFFFFF)},
        {"an entry that reaches into the table of contents", withField32(good, 1, kPackedSize, 11)},
    };
    for (const Row& row : rows)
        EXPECT_EQ(outcomeOf(row.archive), kDamaged) << row.name;
}
