// Pictures of packages as icons.
#include "refhost/window/packageicon.h"
#include "tests/support/packagebuilder.h"

#include <gtest/gtest.h>

#include <QImage>
#include <QPainter>

using namespace quelhost;

namespace {

// Red on the left, blue on the right.
const QByteArray kHalves = R"(<svg xmlns="http://www.w3.org/2000/svg" width="16" height="16">
<rect width="8" height="16" fill="#ff0000"/><rect x="8" width="8" height="16" fill="#0000ff"/></svg>)";

const QString kSvg = QStringLiteral("images/a.svg");

} // namespace

TEST(PackageIcons, AreSharpInEverySize)
{
    const QIcon icon = packageIcon(kSvg, kHalves);
    for (const int side : {16, 24, 32, 48, 200}) {
        const QImage image = icon.pixmap(QSize(side, side)).toImage();
        ASSERT_EQ(image.size(), QSize(side, side));
        EXPECT_EQ(image.pixelColor(side / 2 - 1, side / 2), QColor(Qt::red)) << side;
        EXPECT_EQ(image.pixelColor(side / 2, side / 2), QColor(Qt::blue)) << side;
    }
}

TEST(PackageIcons, AreDrawnInThePixelsOfTheDisplay)
{
    const QIcon icon = packageIcon(kSvg, kHalves);
    QPixmap display(64, 64);
    display.setDevicePixelRatio(2);
    display.fill(Qt::white);
    {
        QPainter painter(&display);
        icon.paint(&painter, QRect(0, 0, 31, 31)); // its middle lies between two units
    }
    const QImage image = display.toImage();
    EXPECT_EQ(image.pixelColor(30, 20), QColor(Qt::red));
    EXPECT_EQ(image.pixelColor(31, 20), QColor(Qt::blue));
    EXPECT_EQ(image.pixelColor(63, 20), QColor(Qt::white));
}

TEST(PackageIcons, AreNeverLargerThanTheLimit)
{
    const QIcon icon = packageIcon(kSvg, kHalves);
    EXPECT_EQ(icon.pixmap(QSize(5000, 300)).size(), QSize(256, 256));
}

TEST(PackageIcons, KeepTheirProportions)
{
    const QIcon wide =
        packageIcon(kSvg, R"(<svg xmlns="http://www.w3.org/2000/svg" width="20" height="10">
<rect width="20" height="10" fill="#00ff00"/></svg>)");
    const QImage image = wide.pixmap(QSize(40, 40)).toImage();
    EXPECT_EQ(image.pixelColor(20, 20), QColor(Qt::green));
    EXPECT_EQ(image.pixelColor(20, 5).alpha(), 0);
    EXPECT_EQ(image.pixelColor(20, 35).alpha(), 0);
}

TEST(PackageIcons, OfPngFilesAreDrawnToo)
{
    const QIcon icon = packageIcon(QStringLiteral("images/a.PNG"), packages::png(8, 8));
    const QImage image = icon.pixmap(QSize(32, 32)).toImage();
    EXPECT_EQ(image.size(), QSize(32, 32));
    EXPECT_EQ(image.pixelColor(16, 16).alpha(), 255);
}

TEST(PackageIcons, AreOtherwiseEmpty)
{
    EXPECT_TRUE(packageIcon(QString(), {}).isNull());
    EXPECT_TRUE(packageIcon(QStringLiteral("images/a.bmp"), kHalves).isNull());
    for (const char* name : {"a.svg", "a.png"}) {
        const QImage none =
            packageIcon(QString::fromLatin1(name), "junk").pixmap(QSize(16, 16)).toImage();
        EXPECT_EQ(none.pixelColor(8, 8).alpha(), 0) << name;
    }
}

TEST(PackageIcons, LookDeadWhenTheyAre)
{
    const QIcon icon = packageIcon(kSvg, kHalves);
    const QImage normal = icon.pixmap(QSize(16, 16)).toImage();
    const QImage dead = icon.pixmap(QSize(16, 16), QIcon::Disabled).toImage();
    EXPECT_EQ(dead.size(), normal.size());
    EXPECT_LT(dead.pixelColor(2, 8).saturation(), normal.pixelColor(2, 8).saturation());
}
