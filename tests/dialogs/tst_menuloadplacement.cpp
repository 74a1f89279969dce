// Where the menu load dialog stands, how large it is, and how its controls follow.
#include "tests/dialogs/menuloaddialogtest.h"

#include <QScreen>

#include <array>
#include <climits>

using dialogtest::click;
using dialogtest::Controls;
using recording::host;
using Lines = std::vector<std::string>;

namespace {

const std::wstring kGroup = L"UserInterfaceSettings\\MenuLoadDlg";
constexpr QSize kDesigned(560, 300);

using Geometry = std::vector<QRect>;

Geometry geometryOf(const Controls& controls)
{
    Geometry result;
    for (const QWidget* control : controls.all())
        result.push_back(control->geometry());
    return result;
}

// What a user does with the window's border. The toolkit tells the dialog before it returns.
void resize(const Controls& controls, const QSize& size)
{
    controls.dialog.resize(size);
}

struct MenuLoadPlacement : dialogtest::MenuLoadDialog
{
    static void store(int x, int y, int width, int height)
    {
        host().sections.insert(kGroup);
        host().settings[kGroup + L"\\X"].setInteger(x);
        host().settings[kGroup + L"\\Y"].setInteger(y);
        host().settings[kGroup + L"\\WIDTH"].setInteger(width);
        host().settings[kGroup + L"\\HEIGHT"].setInteger(height);
    }
    static QRect stored()
    {
        const auto number = [](const wchar_t* name) {
            return host().settings[kGroup + name].integerOrZero();
        };
        return {number(L"\\X"), number(L"\\Y"), number(L"\\WIDTH"), number(L"\\HEIGHT")};
    }
    QRect placeWhenOpened()
    {
        QRect place;
        run([&](const Controls& controls) {
            place = controls.dialog.geometry();
            controls.pressEscape();
        });
        return place;
    }
};

} // namespace

TEST_F(MenuLoadPlacement, TheFirstTimeItOpensAsDesignedAndOkMakesTheGroup)
{
    QRect place;
    run([&](const Controls& controls) {
        place = controls.dialog.geometry();
        EXPECT_EQ(place.size(), kDesigned);
        click(controls.ok);
    });
    EXPECT_EQ(host().calls("addItem"),
              Lines{"addItem(4, \"UserInterfaceSettings\\\\MenuLoadDlg\") -> 0"});
    EXPECT_EQ(writes(), 4);
    EXPECT_EQ(stored(), place);
}

TEST_F(MenuLoadPlacement, OpensWhereItWasClosedByOk)
{
    run([](const Controls& controls) {
        controls.dialog.setGeometry(110, 120, 640, 350);
        click(controls.ok);
    });
    EXPECT_EQ(stored(), QRect(110, 120, 640, 350));
    EXPECT_EQ(placeWhenOpened(), QRect(110, 120, 640, 350));
}

TEST_F(MenuLoadPlacement, TheDesignedSizeIsTheSmallestThatIsRestored)
{
    store(110, 120, kDesigned.width(), kDesigned.height());
    EXPECT_EQ(placeWhenOpened(), QRect(QPoint(110, 120), kDesigned));
}

TEST_F(MenuLoadPlacement, ASmallerOrHiddenPlaceIsNotRestored)
{
    const QRect usual = placeWhenOpened();
    const std::array<int, 4> unusable[] = {
        {110, 120, 559, 300}, {110, 120, 560, 299}, {-1, 120, 640, 350},
        {110, -1, 640, 350},  {110, 120, 0, 0},     {110, 120, INT_MIN, INT_MAX},
    };
    for (const auto& [x, y, width, height] : unusable) {
        store(x, y, width, height);
        EXPECT_EQ(placeWhenOpened(), usual) << x << " " << width;
    }
}

TEST_F(MenuLoadPlacement, AnEdgeOfAnotherKindCountsAsZero)
{
    store(110, 120, 640, 350);
    host().settings[kGroup + L"\\X"].setString(L"110", QuelVariant::kString);
    EXPECT_EQ(placeWhenOpened(), QRect(0, 120, 640, 350));
}

TEST_F(MenuLoadPlacement, AMissingEdgeRestoresNothing)
{
    const QRect usual = placeWhenOpened();
    store(110, 120, 640, 350);
    host().settings.erase(kGroup + L"\\Y");
    EXPECT_EQ(placeWhenOpened(), usual);
}

TEST_F(MenuLoadPlacement, FiveRoundsLeaveItWhereItIs)
{
    QWidget behind;
    behind.setGeometry(20, 30, 700, 500);
    behind.show();
    for (QWidget* window : {static_cast<QWidget*>(nullptr), &behind}) {
        dialogtest::services().windowBehind = window;
        store(110, 120, 640, 350);
        for (int round = 0; round < 5; ++round) {
            const Outcome outcome = run([](const Controls& controls) {
                EXPECT_TRUE(QTest::qWaitForWindowExposed(&controls.dialog));
                click(controls.ok);
            });
            EXPECT_EQ(outcome.result, 1);
            EXPECT_EQ(stored(), QRect(110, 120, 640, 350)) << "round " << round;
        }
    }
}

TEST_F(MenuLoadPlacement, EscapeAndTheCloseBoxSaveNothing)
{
    for (const bool byEscape : {true, false}) {
        run([&](const Controls& controls) {
            controls.dialog.setGeometry(110, 120, 640, 350);
            if (byEscape)
                controls.pressEscape();
            else
                controls.dialog.close();
        });
    }
    EXPECT_EQ(writes(), 0);
    EXPECT_EQ(host().count("addItem"), 0);
}

TEST_F(MenuLoadPlacement, AReopenedDialogLooksAsItDidWhenOkWasPressed)
{
    Geometry closed;
    run([&](const Controls& controls) {
        controls.dialog.setGeometry(110, 120, 653, 341);
        closed = geometryOf(controls);
        click(controls.ok);
    });
    run([&](const Controls& controls) {
        EXPECT_EQ(geometryOf(controls), closed);
        EXPECT_EQ(controls.groups.size(), QSize(364 + 93, 164 + 41));
        controls.pressEscape();
    });
}

TEST_F(MenuLoadPlacement, GrowingStretchesTheListsAndTheEditAndMovesNothing)
{
    run([](const Controls& controls) {
        const Geometry before = geometryOf(controls);
        const QRect list = controls.groups.geometry();
        const QRect listFrame = controls.groupsFrame.geometry();
        const QRect file = controls.file.geometry();
        const QRect fileFrame = controls.fileFrame.geometry();
        resize(controls, kDesigned + QSize(40, 30));
        EXPECT_EQ(controls.groups.geometry(), list.adjusted(0, 0, 40, 30));
        EXPECT_EQ(controls.groupsFrame.geometry(), listFrame.adjusted(0, 0, 40, 30));
        EXPECT_EQ(controls.file.geometry(), file.adjusted(0, 0, 40, 0));
        EXPECT_EQ(controls.fileFrame.geometry(), fileFrame.adjusted(0, 0, 40, 0));
        const Geometry after = geometryOf(controls);
        for (std::size_t index = 0; index < before.size(); ++index)
            EXPECT_EQ(after[index].topLeft(), before[index].topLeft()) << index;
        for (const QWidget* fixed :
             {static_cast<QWidget*>(&controls.load), static_cast<QWidget*>(&controls.unload),
              static_cast<QWidget*>(&controls.browse), static_cast<QWidget*>(&controls.help),
              static_cast<QWidget*>(&controls.ok)})
            EXPECT_EQ(fixed->size(), QSize(136, 30)) << fixed->objectName().toStdString();
        EXPECT_EQ(controls.label.size(), QSize(98, 28));
        controls.pressEscape();
    });
}

TEST_F(MenuLoadPlacement, ShrinkingAndGrowingBackLosesNothing)
{
    const std::vector<QSize> sizes{{600, 330}, {559, 299}, {400, 200}, {180, 130}, {60, 40},
                                   {1, 1},     {2, 300},   {560, 3},   {90, 260}};
    run([&](const Controls& controls) {
        const Geometry designed = geometryOf(controls);
        for (const QSize& size : sizes) {
            resize(controls, size);
            EXPECT_EQ(controls.dialog.size(), size);
            resize(controls, kDesigned);
            EXPECT_EQ(geometryOf(controls), designed) << size.width() << "x" << size.height();
        }
        for (const QSize& size : sizes)
            resize(controls, size);
        resize(controls, kDesigned);
        EXPECT_EQ(geometryOf(controls), designed);
        controls.pressEscape();
    });
}

TEST_F(MenuLoadPlacement, ASmallerDialogHasSmallerControls)
{
    run([](const Controls& controls) {
        resize(controls, kDesigned - QSize(100, 60));
        EXPECT_EQ(controls.groups.size(), QSize(364 - 100, 164 - 60));
        EXPECT_EQ(controls.groupsFrame.size(), QSize(388 - 100, 200 - 60));
        EXPECT_EQ(controls.file.size(), QSize(264 - 100, 28));
        EXPECT_EQ(controls.fileFrame.size(), QSize(388 - 100, 68));
        controls.pressEscape();
    });
}

// A smaller size is stored when OK is pressed, and then not restored.
TEST_F(MenuLoadPlacement, ASmallerSizeIsStoredAndOpensAsDesigned)
{
    run([](const Controls& controls) {
        controls.dialog.setGeometry(110, 120, 400, 200);
        click(controls.ok);
    });
    EXPECT_EQ(stored(), QRect(110, 120, 400, 200));
    EXPECT_EQ(placeWhenOpened().size(), kDesigned);
}

// A screen that is no longer there: the dialog must not wait where nobody sees it.
TEST_F(MenuLoadPlacement, APlaceOutsideEveryScreenKeepsOnlyTheSize)
{
    for (const QPoint& corner :
         {QPoint(40000, 120), QPoint(110, 40000), QPoint(INT_MAX, INT_MAX)}) {
        store(corner.x(), corner.y(), 640, 350);
        run([&](const Controls& controls) {
            const QRect place = controls.dialog.geometry();
            EXPECT_TRUE(QApplication::primaryScreen()->geometry().intersects(place)) << place.x();
            EXPECT_EQ(place.size(), QSize(640, 350));
            controls.pressEscape();
        });
    }
}

TEST_F(MenuLoadPlacement, AStoreThatRefusesToWriteStillLetsOkClose)
{
    host().writeFailures.usually(9);
    const Outcome outcome = run([](const Controls& controls) { click(controls.ok); });
    EXPECT_EQ(outcome.result, 1);
    EXPECT_EQ(writes(), 4);
    EXPECT_TRUE(host().settings.count(kGroup + L"\\X") == 0);
}
