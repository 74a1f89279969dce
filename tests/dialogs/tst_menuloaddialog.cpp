// The menu load dialog as its user works with it: opening, Load, Browse, Help, closing.
#include "tests/dialogs/menuloaddialogtest.h"

#include <QtTest/QSignalSpy>

using dialogtest::click;
using dialogtest::Controls;
using dialogtest::MenuLoadDialog;
using dialogtest::services;
using recording::host;

namespace {

constexpr int kOk = 1;
constexpr int kOther = 2;

QString text(const char* utf8)
{
    return QString::fromUtf8(utf8);
}

} // namespace

TEST_F(MenuLoadDialog, OpensWithTheGroupsWhoseFilesExist)
{
    setList(folder.file(L"QUELD.cuix") + L";" + folder.path(L"gone.cuix") + L";;" +
            folder.file(L"My.plant.cuix"));
    const Outcome outcome = run([](const Controls& controls) {
        EXPECT_EQ(controls.rows(), (QStringList{text("QUELD"), text("My")}));
        EXPECT_EQ(controls.groups.currentRow(), 0);
        EXPECT_TRUE(controls.unload.isEnabled());
        EXPECT_FALSE(controls.load.isEnabled());
        EXPECT_TRUE(controls.file.text().isEmpty());
        controls.pressEscape();
    });
    EXPECT_EQ(outcome.result, kOther);
    EXPECT_FALSE(outcome.changed);
}

TEST_F(MenuLoadDialog, OpensOnAnEmptyListWithNothingToUnload)
{
    run([](const Controls& controls) {
        EXPECT_EQ(controls.groups.count(), 0);
        EXPECT_EQ(controls.groups.currentRow(), -1);
        EXPECT_FALSE(controls.unload.isEnabled());
        EXPECT_FALSE(controls.load.isEnabled());
        controls.pressEscape();
    });
}

TEST_F(MenuLoadDialog, TypingEnablesLoadAndClearingDisablesIt)
{
    run([](const Controls& controls) {
        QTest::keyClick(&controls.file, Qt::Key_X);
        EXPECT_TRUE(controls.load.isEnabled());
        QTest::keyClick(&controls.file, Qt::Key_Backspace);
        EXPECT_FALSE(controls.load.isEnabled());
        QTest::keyClicks(&controls.file, text("/t/a"));
        EXPECT_TRUE(controls.load.isEnabled());
        controls.file.clear();
        EXPECT_FALSE(controls.load.isEnabled());
        controls.pressEscape();
    });
}

TEST_F(MenuLoadDialog, LoadsATypedFileAsTheLastGroup)
{
    const std::wstring main = folder.file(L"QUELD.cuix");
    const std::wstring survey = folder.file(L"survey.cuix");
    const std::wstring plant = folder.file(L"Plant.two.CUIX");
    setList(main + L";" + survey);
    const Outcome outcome = run([&](const Controls& controls) {
        controls.select(1);
        controls.type(plant);
        click(controls.load);
        EXPECT_EQ(controls.rows(), (QStringList{text("QUELD"), text("survey"), text("Plant")}));
        EXPECT_EQ(controls.groups.currentRow(), 0);
        EXPECT_EQ(controls.file.text(), quelhost::toQString(plant));
        EXPECT_TRUE(controls.load.isEnabled());
        controls.pressEscape();
    });
    EXPECT_TRUE(outcome.changed);
    EXPECT_EQ(list(), main + L";" + survey + L";" + plant);
    EXPECT_EQ(host().count("GetQuelAppInterface"), 0);
    EXPECT_TRUE(boxes().empty());
}

TEST_F(MenuLoadDialog, TheFirstGroupOfAnEmptyListStandsBehindASeparator)
{
    const std::wstring plant = folder.file(L"plant.cuix");
    const Outcome outcome = run([&](const Controls& controls) {
        controls.type(plant);
        click(controls.load);
        EXPECT_EQ(controls.rows(), QStringList{text("plant")});
        EXPECT_EQ(controls.groups.currentRow(), 0);
        controls.pressEscape();
    });
    EXPECT_TRUE(outcome.changed);
    EXPECT_EQ(list(), L";" + plant);
}

// What was empty when the dialog opened keeps its button as it was: the list is filled, no more.
TEST_F(MenuLoadDialog, FillingTheListLeavesUnloadAsItWas)
{
    const std::wstring plant = folder.file(L"plant.cuix");
    run([&](const Controls& controls) {
        controls.type(plant);
        click(controls.load);
        EXPECT_FALSE(controls.unload.isEnabled());
        controls.pressEscape();
    });
}

TEST_F(MenuLoadDialog, AMissingFileAndAnotherKindAreToldInABox)
{
    for (const std::wstring& path :
         {folder.path(L"missing.cuix"), folder.file(L"notes.xml"), folder.file(L"uix")}) {
        services().boxes.clear();
        const Outcome outcome = run([&](const Controls& controls) {
            controls.type(path);
            click(controls.load);
            controls.pressEscape();
        });
        EXPECT_FALSE(outcome.changed);
        ASSERT_EQ(boxes().size(), 1U);
        EXPECT_EQ(boxes()[0].text, L"Menu file load failed.  File not found:\"" + path + L"\"");
        EXPECT_EQ(boxes()[0].caption, host().productName);
        EXPECT_EQ(boxes()[0].flags, 0x30U);
        EXPECT_EQ(host().count("quutPrintf"), 0);
    }
    EXPECT_EQ(writes(), 0);
}

TEST_F(MenuLoadDialog, AGroupThatIsLoadedIsToldOnTheCommandLine)
{
    const std::wstring main = folder.file(L"plant.cuix");
    folder.folder(L"b");
    const std::wstring second = folder.file(L"b/PLANT.more.cuix");
    setList(main);
    const Outcome outcome = run([&](const Controls& controls) {
        controls.type(second);
        click(controls.load);
        EXPECT_EQ(controls.groups.count(), 1);
        controls.pressEscape();
    });
    EXPECT_FALSE(outcome.changed);
    EXPECT_EQ(host().printed, L"\"" + second + L"\" is already loaded.");
    EXPECT_TRUE(boxes().empty());
    EXPECT_EQ(writes(), 0);
}

TEST_F(MenuLoadDialog, AnEntryWhoseFileIsGoneBlocksNothing)
{
    const std::wstring gone = folder.path(L"a/plant.cuix");
    const std::wstring plant = folder.file(L"plant.cuix");
    setList(gone);
    const Outcome outcome = run([&](const Controls& controls) {
        controls.type(plant);
        click(controls.load);
        EXPECT_EQ(controls.rows(), QStringList{text("plant")});
        controls.pressEscape();
    });
    EXPECT_TRUE(outcome.changed);
    EXPECT_EQ(list(), gone + L";" + plant);
}

TEST_F(MenuLoadDialog, BrowseStartsWithWhatIsTypedAndPutsThePickedFileIntoTheEdit)
{
    const std::wstring plant = folder.file(L"plant.cuix");
    host().fileDialogs.next({5100, plant, 0, 0});
    run([&](const Controls& controls) {
        controls.type(L"/t/typed.cuix");
        click(controls.browse);
        EXPECT_EQ(controls.file.text(), quelhost::toQString(plant));
        EXPECT_TRUE(controls.load.isEnabled());
        controls.pressEscape();
    });
    ASSERT_EQ(host().count("vxGetFileDialog"), 1);
    EXPECT_NE(host().calls("vxGetFileDialog")[0].find("/t/typed"), std::string::npos)
        << host().calls("vxGetFileDialog")[0];
    EXPECT_TRUE(host().buffers.empty());
}

TEST_F(MenuLoadDialog, ACancelledBrowseChangesNothing)
{
    host().fileDialogs.usually({-5002, std::nullopt, 0, 0});
    run([&](const Controls& controls) {
        click(controls.browse);
        EXPECT_TRUE(controls.file.text().isEmpty());
        EXPECT_FALSE(controls.load.isEnabled());
        controls.type(L"/t/typed.cuix");
        click(controls.browse);
        EXPECT_EQ(controls.file.text(), text("/t/typed.cuix"));
        EXPECT_TRUE(controls.load.isEnabled());
        controls.pressEscape();
    });
    EXPECT_EQ(host().count("vxGetFileDialog"), 2);
}

TEST_F(MenuLoadDialog, HelpShowsThePageOfTheDialogAndLeavesItOpen)
{
    const Outcome outcome = run([](const Controls& controls) {
        click(controls.help);
        EXPECT_TRUE(controls.dialog.isVisible());
        click(controls.ok);
    });
    EXPECT_EQ(services().helpPages, QStringList{text("IDD_MENU_LOAD_DLG")});
    EXPECT_EQ(outcome.result, kOk);
}

TEST_F(MenuLoadDialog, ReturnInTheEditClosesByOkAndDoesNothingElse)
{
    const std::wstring main = folder.file(L"QUELD.cuix");
    const std::wstring plant = folder.file(L"plant.cuix");
    const std::wstring survey = folder.file(L"survey.cuix");
    setList(main + L";" + survey);
    answerBoxes(1);
    const Outcome outcome = run([&](const Controls& controls) {
        controls.select(1);
        controls.type(plant);
        QTest::keyClick(&controls.file, Qt::Key_Return);
        EXPECT_FALSE(controls.dialog.isVisible());
    });
    EXPECT_EQ(outcome.result, kOk);
    EXPECT_FALSE(outcome.changed);
    EXPECT_EQ(list(), main + L";" + survey);
    EXPECT_TRUE(boxes().empty());
    EXPECT_EQ(host().count("vxGetFileDialog"), 0);
    EXPECT_EQ(writes(), 4);
}

TEST_F(MenuLoadDialog, ReturnInTheListClosesByOk)
{
    setList(folder.file(L"QUELD.cuix"));
    const Outcome outcome = run([&](const Controls& controls) {
        QTest::keyClick(&controls.groups, Qt::Key_Return);
        EXPECT_FALSE(controls.dialog.isVisible());
    });
    EXPECT_EQ(outcome.result, kOk);
}

TEST_F(MenuLoadDialog, EscapeAndTheCloseBoxKeepTheChangedFlag)
{
    for (const bool byEscape : {true, false}) {
        setList(L"");
        const std::wstring plant = folder.file(L"plant.cuix");
        const Outcome outcome = run([&](const Controls& controls) {
            controls.type(plant);
            click(controls.load);
            if (byEscape)
                controls.pressEscape();
            else
                controls.dialog.close();
        });
        EXPECT_EQ(outcome.result, kOther);
        EXPECT_TRUE(outcome.changed);
        EXPECT_EQ(host().count("addItem"), 0);
        EXPECT_EQ(list(), L";" + plant);
    }
    EXPECT_EQ(writes(), 2); // the list each time, the placement never
}

// A button that is pressed by its letter shows so first, and clicks when it is let go.
TEST_F(MenuLoadDialog, PressesAButtonByItsLetter)
{
    run([](const Controls& controls) {
        QSignalSpy helpClicked(&controls.help, &QPushButton::clicked);
        QTest::keyClick(&controls.file, Qt::Key_H, Qt::AltModifier);
        EXPECT_TRUE(helpClicked.wait());
        EXPECT_EQ(services().helpPages.size(), 1);
        QSignalSpy browseClicked(&controls.browse, &QPushButton::clicked);
        QTest::keyClick(&controls.file, Qt::Key_B, Qt::AltModifier);
        EXPECT_TRUE(browseClicked.wait());
        EXPECT_EQ(host().count("vxGetFileDialog"), 1);
        controls.groups.setFocus();
        QTest::keyClick(&controls.groups, Qt::Key_F, Qt::AltModifier);
        EXPECT_TRUE(controls.file.hasFocus());
        controls.pressEscape();
    });
}
