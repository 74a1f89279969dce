#include "refhost/core/package.h"

#include "tests/support/packagebuilder.h"

#include <QDir>
#include <QFile>
#include <QImage>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <string>

using namespace quelhost;
using namespace packages;

namespace {

constexpr int kMiB = 1024 * 1024;

PackageReading read(const QByteArray& package)
{
    return readPackageBytes(package, QStringLiteral("p.cuix"));
}

// One line for each fault; empty for a good package.
std::string faultsOf(const PackageReading& reading)
{
    std::string text;
    if (!reading) {
        for (const Fault& fault : reading.faults())
            text += fault.text().toStdString() + "\n";
    }
    return text;
}

std::string faultsOf(const QByteArray& package)
{
    return faultsOf(read(package));
}

QByteArray withImage(const std::string& name, const QByteArray& image)
{
    return PackageBuilder().add("customization.xml", customization()).add(name, image).build();
}

} // namespace

TEST(Package, givesTheGroupWithItsImages)
{
    const QByteArray drawing = "<svg xmlns='http://www.w3.org/2000/svg'><path d='M0 0'/></svg>";
    const QByteArray text = R"(<customization format="1"><menugroup name="PLANT">
<commands><command id="pump" text="Pump" icon="images/pump.svg" macro="ECHO pump"/>
<command id="valve" text="Valve" icon="images/more/valve.png" macro="ECHO valve"/></commands>
<menus><menu id="m" text="M"><item command="pump"/></menu></menus></menugroup></customization>)";
    const PackageReading reading = read(PackageBuilder()
                                            .add("images/", "")
                                            .add("images/pump.svg", drawing)
                                            .add("images/more/valve.png", png(16, 8))
                                            .add("images/unused.png", png(1, 1))
                                            .add("customization.xml", text)
                                            .build());
    ASSERT_TRUE(reading) << faultsOf(reading);
    const MenuGroup& group = reading.group();
    EXPECT_EQ(group.name, QStringLiteral("PLANT"));
    EXPECT_EQ(group.commands.size(), 2U);
    EXPECT_EQ(group.menus.size(), 1U);
    ASSERT_EQ(group.images.size(), 3U);
    EXPECT_EQ(group.images.at(QStringLiteral("images/pump.svg")), drawing);
    const QByteArray valve = group.images.at(group.commands[1].icon);
    EXPECT_EQ(QImage::fromData(valve, "png").size(), QSize(16, 8));
    EXPECT_EQ(group.images.count(QStringLiteral("images/unused.png")), 1U);
}

TEST(Package, readsAFile)
{
    const QTemporaryDir dir;
    const QString path = dir.filePath(QStringLiteral("a.cuix"));
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(packageOf(customization()));
    file.close();
    const PackageReading good = readPackage(path);
    ASSERT_TRUE(good) << faultsOf(good);
    EXPECT_EQ(good.group().name, QStringLiteral("G"));
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    EXPECT_EQ(file.readAll(), packageOf(customization()));
    file.close();
    EXPECT_EQ(QDir(dir.path()).entryList(QDir::Files), QStringList(QStringLiteral("a.cuix")));

    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(packageOf("<customization>\n <x/></customization>"));
    file.close();
    EXPECT_EQ(faultsOf(readPackage(path)),
              path.toStdString() + ":1:1: There is no <menugroup>.\n" + path.toStdString() +
                  ":2:2: There is no element <x> inside <customization>.\n");
    EXPECT_EQ(faultsOf(readPackage(dir.path())),
              dir.path().toStdString() + ": This is a folder, not a package.\n");
    EXPECT_EQ(faultsOf(readPackage(path + QLatin1Char('x'))),
              path.toStdString() + "x: There is no such file.\n");
}

TEST(Package, findsTheExampleOfItsDocumentGood)
{
    QFile document(QStringLiteral(QUEL_RESOURCE_SOURCES "/../docs/format-cuix.md"));
    ASSERT_TRUE(document.open(QIODevice::ReadOnly));
    const QByteArray page = document.readAll();
    const QByteArray fence = "```xml\n";
    ASSERT_EQ(page.count(fence), 1);
    const int begin = page.indexOf(fence) + fence.size();
    const QByteArray example = page.mid(begin, page.indexOf("```", begin) - begin);
    const PackageReading reading = read(PackageBuilder()
                                            .add("customization.xml", example)
                                            .add("images/pump.svg", "<svg/>")
                                            .build());
    ASSERT_TRUE(reading) << faultsOf(reading);
    EXPECT_EQ(reading.group().name, QStringLiteral("PLANT"));
    EXPECT_EQ(reading.group().commands.size(), 2U);
    EXPECT_EQ(reading.group().menus.size(), 1U);
    EXPECT_EQ(reading.group().toolbars.size(), 1U);
    EXPECT_EQ(reading.group().accelerators.size(), 2U);
}

TEST(Package, refusesWithOneClearSentenceEach)
{
    struct Row
    {
        const char* name;
        QByteArray package;
        const char* faults;
    };
    QByteArray wrongSum = packageOf(customization());
    set32(wrongSum, localHeader(wrongSum, 0) + 14, 1);
    set32(wrongSum, centralRecord(wrongSum, 0) + 16, 1);
    const Row rows[] = {
        {"no archive", "<customization/>", "p.cuix: The file is not a ZIP archive.\n"},
        {"half an archive", packageOf(customization()).left(60),
         "p.cuix: The ZIP archive is damaged: its table of contents is missing or contradicts the "
         "rest.\n"},
        {"no text", PackageBuilder().add("images/a.png", png(1, 1)).build(),
         "p.cuix: The archive has no customization.xml.\n"},
        {"nothing", QByteArray("PK\5\6", 4) + QByteArray(18, '\0'),
         "p.cuix: The archive has no customization.xml.\n"},
        {"a text with a wrong checksum", wrongSum,
         "p.cuix: \"customization.xml\" is damaged: its content does not have the size and "
         "checksum that the archive states.\n"},
        {"an encrypted text",
         PackageBuilder().add("customization.xml", customization()).encrypt().build(),
         "p.cuix: \"customization.xml\" is encrypted; a package must not be.\n"},
        {"a text compressed in another way",
         PackageBuilder()
             .add("customization.xml", customization(QByteArray(9000, ' ')), Packing::Bzip2)
             .build(),
         "p.cuix: \"customization.xml\" is compressed in a way that is not supported; only stored "
         "and deflated entries are.\n"},
        {"a text that is a link",
         PackageBuilder().add("customization.xml", "/etc/passwd").unixMode(0120777).build(),
         "p.cuix: \"customization.xml\" is a link or a device, not a plain file.\n"},
        {"a text in another encoding",
         PackageBuilder()
             .add("customization.xml", "<?xml version='1.0' encoding='latin1'?>" + customization(),
                  Packing::Store)
             .build(),
         "p.cuix:1:21: The encoding \"latin1\" is not allowed; the text must be UTF-8.\n"},
        {"a text with a zero byte", packageOf(QByteArray("<customization>\n\0", 17)),
         "p.cuix:2:1: The character U+0000 is not allowed in XML.\n"},
        {"a text that is not UTF-8", packageOf("<customization>\n\xFC"),
         "p.cuix:2:1: The byte FC is not part of UTF-8 text.\n"},
        {"entities that multiply",
         packageOf("<!DOCTYPE c [<!ENTITY a 'aaaa'><!ENTITY b '&a;&a;&a;&a;'>]>\n"
                   "<customization>&b;</customization>"),
         "p.cuix:1:1: A document type (<!DOCTYPE) is not allowed.\n"},
        {"a bomb", withImage("images/a.png", QByteArray(16 * kMiB + 1, '\0')),
         "p.cuix: \"images/a.png\" is larger than 16 MiB.\n"},
        {"an image that is no image", withImage("images/a.png", "x"),
         "p.cuix!images/a.png: The file is not a PNG image.\n"},
        {"an image that is too large", withImage("images/a b.png", png(300, 20)),
         "p.cuix!images/a b.png: The image is 300 x 20 pixels; at most 256 x 256 are allowed.\n"},
        {"an image that fetches", withImage("images/a.svg", "<svg>\n <image/></svg>"),
         "p.cuix!images/a.svg:2:2: An image of a package must not contain <image>.\n"},
        {"a file that is no image", withImage("images/readme.txt", "x"),
         "p.cuix!images/readme.txt: The file is neither a .png nor an .svg image.\n"},
    };
    for (const Row& row : rows) {
        ASSERT_FALSE(row.package.isEmpty()) << row.name;
        EXPECT_EQ(faultsOf(row.package), row.faults) << row.name;
    }
}

TEST(Package, tellsAllFaultsOfAllParts)
{
    const QByteArray text =
        customization("\n<commands><command id='a' text='A' icon='images/link.png' macro='x'/>"
                      "\n<command id='b' text='B' icon='images/none.png' macro='{x}'/></commands>");
    const QByteArray package = PackageBuilder()
                                   .add("../evil", "x")
                                   .add("images/b.svg", "<svg><use/>\n<script/></svg>")
                                   .add("images/good.png", png(1, 1))
                                   .add("customization.xml", text)
                                   .add("images/link.png", "good.png")
                                   .unixMode(0120777)
                                   .add("images/a.png", "x")
                                   .build();
    // No fault follows from another: the link's icon is there, only not good.
    EXPECT_EQ(faultsOf(package),
              "p.cuix: The entry name \"../evil\" contains \".\" or \"..\" as a folder.\n"
              "p.cuix: \"images/link.png\" is a link or a device, not a plain file.\n"
              "p.cuix:3:26: The icon \"images/none.png\" is not in the archive.\n"
              "p.cuix:3:49: The macro uses unknown words: {x}; known are {cancel} and {enter}.\n"
              "p.cuix!images/b.svg:1:6: An image of a package must not contain <use>.\n"
              "p.cuix!images/b.svg:2:1: An image of a package must not contain <script>.\n"
              "p.cuix!images/a.png: The file is not a PNG image.\n");
}

TEST(Package, checksNoMoreImagesOnceThereAreTooManyFaults)
{
    const auto package = [](int faults) {
        return PackageBuilder()
            .add("customization.xml", customization())
            .add("images/a.svg", "<svg>" + QByteArray("<use/>").repeated(faults) + "</svg>")
            .add("images/b.png", "x")
            .build();
    };
    const PackageReading atLimit = read(package(10000));
    ASSERT_FALSE(atLimit);
    ASSERT_EQ(atLimit.faults().size(), 10001U);
    EXPECT_EQ(atLimit.faults().back().text().toStdString(),
              "p.cuix!images/b.png: The file is not a PNG image.");
    const PackageReading above = read(package(10001));
    ASSERT_FALSE(above);
    ASSERT_EQ(above.faults().size(), 10002U);
    EXPECT_EQ(above.faults().back().text().toStdString(),
              "p.cuix: There are so many faults that the rest was not checked.");
}

// More than is kept while the rest is checked.
TEST(Package, keepsAllImagesOfALargePackage)
{
    PackageBuilder builder;
    builder.add("customization.xml", customization()).add("images/z.png", png(16, 16));
    const QByteArray comments =
        "<svg>" + ("<!--" + QByteArray(60000, 'c') + "-->").repeated(17) + "</svg>";
    for (int i = 0; i < 6; ++i)
        builder.add("images/" + std::to_string(i) + ".svg", comments);
    const PackageReading reading = read(builder.build());
    ASSERT_TRUE(reading) << faultsOf(reading);
    ASSERT_EQ(reading.group().images.size(), 7U);
    for (int i = 0; i < 6; ++i)
        EXPECT_EQ(reading.group().images.at(QStringLiteral("images/%1.svg").arg(i)), comments) << i;
    EXPECT_FALSE(reading.group().images.at(QStringLiteral("images/z.png")).isEmpty());
}

TEST(Package, acceptsATextOf16MiBAndRefusesOneAbove)
{
    const QByteArray blanks = "<!--" + QByteArray(60000, ' ') + "-->\n";
    QByteArray text = blanks.repeated(279) + customization();
    text += QByteArray(16 * kMiB - text.size(), '\n');
    EXPECT_EQ(faultsOf(packageOf(text)), "");
    EXPECT_EQ(faultsOf(packageOf(text + "\n")),
              "p.cuix: \"customization.xml\" is larger than 16 MiB.\n");
}

// Whatever byte is wrong, the package is refused or gives the same group.
TEST(Package, neverGivesAnotherGroupForAWrongByte)
{
    const QByteArray package =
        withImage("images/a.svg", "<svg width='10' height='10'><path d='M0 0'/></svg>");
    for (int at = 0; at < package.size(); ++at) {
        for (const int change : {0x01, 0x20, 0xFF}) {
            QByteArray wrong = package;
            wrong[at] = static_cast<char>(wrong[at] ^ change);
            const PackageReading reading = read(wrong);
            if (reading) {
                EXPECT_EQ(reading.group().name, QStringLiteral("G")) << at;
                EXPECT_EQ(reading.group().images, read(package).group().images) << at;
            } else {
                EXPECT_FALSE(reading.faults().empty()) << at;
            }
        }
    }
}
