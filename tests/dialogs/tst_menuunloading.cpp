// Unload in the menu load dialog.
#include "tests/dialogs/menuloaddialogtest.h"

using dialogtest::click;
using dialogtest::Controls;
using recording::host;

namespace {

QString text(const char* utf8)
{
    return QString::fromUtf8(utf8);
}

struct MenuUnloading : dialogtest::MenuLoadDialog
{
    MenuUnloading()
    {
        answerBoxes(1);
        setList(main + L";" + plant + L";" + gone + L";;" + survey);
    }

    const std::wstring main = folder.file(L"QUELD.cuix");
    const std::wstring plant = folder.file(L"Plant.cuix");
    const std::wstring gone = folder.path(L"gone.cuix");
    const std::wstring survey = folder.file(L"survey.cuix");
};

} // namespace

TEST_F(MenuUnloading, AsksAndTakesTheGroupOutOfTheList)
{
    const Outcome outcome = run([](const Controls& controls) {
        controls.select(1);
        click(controls.unload);
        EXPECT_EQ(controls.rows(), (QStringList{text("QUELD"), text("survey")}));
        controls.pressEscape();
    });
    EXPECT_TRUE(outcome.changed);
    EXPECT_EQ(list(), main + L";" + gone + L";;" + survey);
    ASSERT_EQ(boxes().size(), 1U);
    EXPECT_EQ(boxes()[0].text, L"Do you want to unload menu?");
    EXPECT_EQ(boxes()[0].caption, host().productName);
    EXPECT_EQ(boxes()[0].flags, 0x31U);
}

TEST_F(MenuUnloading, ASecondPressFindsNothingSelected)
{
    run([](const Controls& controls) {
        controls.select(1);
        click(controls.unload);
        EXPECT_EQ(controls.groups.currentRow(), -1);
        EXPECT_TRUE(controls.groups.selectedItems().isEmpty());
        click(controls.unload);
        EXPECT_EQ(controls.rows(), (QStringList{text("QUELD"), text("survey")}));
        controls.pressEscape();
    });
    EXPECT_EQ(boxes().size(), 1U);
    EXPECT_EQ(writes(), 1);
}

TEST_F(MenuUnloading, TheLastGroupLeavesNoNeighbourSelected)
{
    run([](const Controls& controls) {
        controls.select(2);
        click(controls.unload);
        EXPECT_EQ(controls.groups.currentRow(), -1);
        click(controls.unload);
        EXPECT_EQ(controls.rows(), (QStringList{text("QUELD"), text("Plant")}));
        controls.pressEscape();
    });
    EXPECT_EQ(list(), main + L";" + plant + L";" + gone + L";");
    EXPECT_EQ(boxes().size(), 1U);
}

TEST_F(MenuUnloading, TheNextGroupGoesWhenItIsSelected)
{
    run([](const Controls& controls) {
        controls.select(1);
        click(controls.unload);
        controls.select(1);
        click(controls.unload);
        EXPECT_EQ(controls.rows(), QStringList{text("QUELD")});
        controls.pressEscape();
    });
    EXPECT_EQ(list(), main + L";" + gone + L";");
    EXPECT_EQ(boxes().size(), 2U);
}

TEST_F(MenuUnloading, TheFirstGroupStaysWithoutAWord)
{
    const Outcome outcome = run([](const Controls& controls) {
        click(controls.unload);
        EXPECT_EQ(controls.groups.count(), 3);
        controls.pressEscape();
    });
    EXPECT_FALSE(outcome.changed);
    EXPECT_TRUE(boxes().empty());
    EXPECT_EQ(writes(), 0);
    EXPECT_TRUE(host().printed.empty());
}

TEST_F(MenuUnloading, CancelKeepsTheGroup)
{
    answerBoxes(2);
    const Outcome outcome = run([](const Controls& controls) {
        controls.select(1);
        click(controls.unload);
        EXPECT_EQ(controls.groups.count(), 3);
        EXPECT_EQ(controls.groups.currentRow(), 1);
        controls.pressEscape();
    });
    EXPECT_FALSE(outcome.changed);
    EXPECT_EQ(boxes().size(), 1U);
    EXPECT_EQ(writes(), 0);
}

// The selected row goes once for each entry, so the row below goes from view as well. It is still
// in the list, and back when the dialog opens again.
TEST_F(MenuUnloading, TwoFilesOfOneNameGoTogether)
{
    folder.folder(L"b");
    const std::wstring second = folder.file(L"b/Plant.cuix");
    setList(main + L";" + plant + L";" + second + L";" + survey + L";" + folder.path(L"b/plant"));
    run([](const Controls& controls) {
        EXPECT_EQ(controls.rows(),
                  (QStringList{text("QUELD"), text("Plant"), text("Plant"), text("survey")}));
        controls.select(1);
        click(controls.unload);
        EXPECT_EQ(controls.rows(), (QStringList{text("QUELD"), text("survey")}));
        controls.pressEscape();
    });
    EXPECT_EQ(list(), main + L";" + survey + L";" + folder.path(L"b/plant"));

    setList(main + L";" + plant + L";" + survey + L";" + second);
    run([](const Controls& controls) {
        controls.select(1);
        click(controls.unload);
        EXPECT_EQ(controls.rows(), (QStringList{text("QUELD"), text("Plant")}));
        controls.pressEscape();
    });
    EXPECT_EQ(list(), main + L";" + survey);
    run([](const Controls& controls) {
        EXPECT_EQ(controls.rows(), (QStringList{text("QUELD"), text("survey")}));
        controls.pressEscape();
    });
}

TEST_F(MenuUnloading, AGroupThatIsNoLongerInTheListIsLeftAlone)
{
    const Outcome outcome = run([this](const Controls& controls) {
        controls.select(1);
        setList(main);
        click(controls.unload);
        EXPECT_EQ(controls.groups.count(), 3);
        controls.pressEscape();
    });
    EXPECT_FALSE(outcome.changed);
    EXPECT_EQ(boxes().size(), 1U);
    EXPECT_EQ(writes(), 0);
}

TEST_F(MenuUnloading, AListThatCannotBeReadIsLeftAlone)
{
    const Outcome outcome = run([](const Controls& controls) {
        controls.select(1);
        host().readFailures.next(7);
        click(controls.unload);
        EXPECT_EQ(controls.groups.count(), 3);
        controls.pressEscape();
    });
    EXPECT_FALSE(outcome.changed);
    EXPECT_EQ(writes(), 0);
}

TEST_F(MenuUnloading, LoadedAgainItStandsAtTheEnd)
{
    run([this](const Controls& controls) {
        controls.select(1);
        click(controls.unload);
        controls.type(plant);
        click(controls.load);
        EXPECT_EQ(controls.rows(), (QStringList{text("QUELD"), text("survey"), text("Plant")}));
        EXPECT_EQ(controls.groups.currentRow(), 0);
        controls.pressEscape();
    });
    EXPECT_EQ(list(), main + L";" + gone + L";;" + survey + L";" + plant);
}
