// No drawing of a package makes the program open a file, whether it is refused or drawn.
#include "refhost/core/imagecheck.h"
#include "refhost/core/package.h"
#include "refhost/window/packageicon.h"
#include "tests/support/imagebuilder.h"
#include "tests/support/packagebuilder.h"

#include <QFile>
#include <QIcon>
#include <QPainter>
#include <QSvgRenderer>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <sys/inotify.h>
#include <unistd.h>

using namespace quelhost;
using packages::svg;

namespace {

// A local picture that is watched.
class HostileDrawings : public testing::Test
{
protected:
    void SetUp() override
    {
        QFile file(m_secret);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(packages::png(24, 24));
        file.close();
        ASSERT_GE(m_watch, 0);
        ASSERT_GE(inotify_add_watch(m_watch, QFile::encodeName(m_secret).constData(),
                                    IN_OPEN | IN_ACCESS),
                  0);
    }
    void TearDown() override { ::close(m_watch); }

    // Whether anybody opened or read the file since the last call.
    [[nodiscard]] bool wasTouched() const
    {
        char events[4096];
        return ::read(m_watch, events, sizeof events) > 0;
    }
    // The drawing with the file's path or address in place of FILE or URL.
    [[nodiscard]] QByteArray aimed(QByteArray drawing) const
    {
        const QByteArray path = QFile::encodeName(m_secret);
        return drawing.replace("URL", "file://" + path).replace("FILE", path);
    }

    const QTemporaryDir m_folder;
    const QString m_secret = m_folder.filePath(QStringLiteral("secret.png"));
    const int m_watch = inotify_init1(IN_NONBLOCK | IN_CLOEXEC);
};

struct Row
{
    const char* name;
    QByteArray drawing;
    bool isRefused;
};

// Each way to name a file that a renderer might follow. What is not refused must be harmless.
std::vector<Row> drawings()
{
    const auto in = [](const char* text) { return svg(text); };
    return {
        {"a picture", in("<image width='24' height='24' xlink:href='FILE'/>"), true},
        {"a picture by its address", in("<image width='24' height='24' href='URL'/>"), true},
        {"a part used again", in("<use xlink:href='URL#a'/>"), true},
        {"a fill", in("<rect width='9' height='9' fill='url(URL)'/>"), true},
        {"a style", in("<rect width='9' height='9' style='fill:url(FILE)'/>"), true},
        {"a style sheet", in("<style>rect { fill: url(FILE) }</style><rect width='9'/>"), true},
        {"a style sheet that fetches another", in("<style>@import 'URL';</style>"), true},
        {"a font",
         in("<style>@font-face { font-family: F; src: url(FILE) }</style>"
            "<text font-family='F'>x</text>"),
         true},
        {"a font of a drawing",
         in("<font><font-face><font-face-src><font-face-uri "
            "xlink:href='FILE'/></font-face-src></font-face></font>"),
         true},
        {"a page within", in("<foreignObject><img src='URL'/></foreignObject>"), true},
        {"a script", in("<script href='URL'/>"), true},
        {"another base", in("<g xml:base='URL'><a href='#x'/></g>"), true},
        {"an inclusion",
         in("<xi:include xmlns:xi='http://www.w3.org/2001/XInclude' "
            "href='URL' parse='text'/>"),
         true},
        {"a filter's picture",
         in("<filter id='f'><feImage xlink:href='FILE'/></filter>"
            "<rect width='9' height='9' filter='url(#f)'/>"),
         true},
        {"a pattern", in("<pattern id='p' xlink:href='URL#p'/><rect fill='url(#p)'/>"), true},
        {"a gradient", in("<linearGradient id='g' xlink:href='URL#g'/>"), true},
        {"data in an address", in("<a href='data:image/svg+xml,&lt;image href=\"FILE\"/&gt;'/>"),
         true},
        {"a style sheet named before the root",
         "<?xml-stylesheet type='text/css' href='URL'?>\n" + svg(""), true},
        {"an entity", "<!DOCTYPE svg [<!ENTITY f SYSTEM 'URL'>]>" + svg("<text>&f;</text>"), true},
        {"a document type", "<!DOCTYPE svg SYSTEM 'URL'>" + svg(""), true},
        {"an address that is set later",
         in("<a href='#x'><set attributeName='href' to='FILE'/></a>"), false},
        {"an address that changes",
         in("<linearGradient id='g'><animate attributeName='xlink:href' values='#a;FILE' "
            "dur='1s'/></linearGradient><rect width='9' height='9' fill='url(#g)'/>"),
         false},
        {"a picture by another attribute", in("<img src='FILE'/><video src='URL'/>"), false},
        {"a place of a schema", in("<g xsi:schemaLocation='URL FILE'/>"), false},
        {"a font's name", in("<text font-family='FILE'>x</text>"), false},
        {"a huge view",
         "<svg xmlns='http://www.w3.org/2000/svg' viewBox='0 0 1e9 1e9'>"
         "<rect width='1e9' height='1e9'/></svg>",
         false},
        {"a view of nothing", "<svg xmlns='http://www.w3.org/2000/svg' viewBox='0 0 0 -1'/>",
         false},
    };
}

void draw(const QByteArray& drawing)
{
    const QIcon icon = packageIcon(QStringLiteral("images/a.svg"), drawing);
    EXPECT_EQ(icon.pixmap(QSize(256, 256)).size(), QSize(256, 256));
}

} // namespace

TEST_F(HostileDrawings, NeverOpenALocalFile)
{
    for (const Row& row : drawings()) {
        const QByteArray drawing = aimed(row.drawing);
        const PackageReading reading =
            readPackageBytes(packages::PackageBuilder()
                                 .add("customization.xml", packages::customization())
                                 .add("images/a.svg", drawing)
                                 .build(),
                             QStringLiteral("p.cuix"));
        EXPECT_EQ(!reading, row.isRefused) << row.name;
        if (reading)
            draw(reading.group().images.at(QStringLiteral("images/a.svg")));
        EXPECT_FALSE(wasTouched()) << row.name;
    }
}

// The watch would notice, and the renderer would follow if it were let.
TEST_F(HostileDrawings, AnUncheckedDrawingOpensOne)
{
    QSvgRenderer renderer(
        aimed(svg("<image width='24' height='24' xmlns:xlink='http://www.w3.org/1999/xlink' "
                  "xlink:href='FILE'/>")));
    QImage image(24, 24, QImage::Format_ARGB32);
    QPainter painter(&image);
    renderer.render(&painter);
    EXPECT_TRUE(wasTouched());
    EXPECT_FALSE(wasTouched());
}
