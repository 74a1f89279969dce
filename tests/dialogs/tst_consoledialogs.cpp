// Dialogs of the console face: what stands over a dialog and what on the command line, interrupts,
// and the program's own module with its dialog in a whole host.
#include "refhost/console/consoledialogs.h"

#include "host/filedialog.h"
#include "host/messageboxes.h"
#include "refhost/console/consolesignals.h"
#include "refhost/core/widetext.h"
#include "tests/dialogs/modalscript.h"
#include "tests/support/testhost.h"

#include <gtest/gtest.h>

#include <QComboBox>
#include <QFileDialog>
#include <QLineEdit>
#include <QListWidget>
#include <QMessageBox>
#include <QPushButton>
#include <QtTest/QSignalSpy>
#include <QtTest/QTest>

#include <csignal>

using namespace quelhost;
using namespace quelhost::test;

namespace {

QString text(const char* utf8)
{
    return QString::fromUtf8(utf8);
}

TestHostKind withDisplay()
{
    TestHostKind kind;
    kind.hasDisplay = true;
    return kind;
}

void click(const QDialog& dialog, const char* name)
{
    QTest::mouseClick(dialog.findChild<QPushButton*>(QLatin1String(name)), Qt::LeftButton);
}

struct Console : testing::Test
{
    // As the user interrupts the program at the terminal. The dialog in front goes.
    static void interrupt(QDialog& front)
    {
        QSignalSpy closed(&front, &QDialog::finished);
        std::raise(SIGINT);
        EXPECT_TRUE(closed.wait());
    }

    dialogtest::ModalScript script;
    TestHost test{{}, withDisplay()};
    ConsoleDialogs dialogs{*test.host, {text(QUEL_HELP), text("en")}};
};

// The program's module in the host, with one loaded file and a further one.
struct ConsoleModule : Console
{
    void SetUp() override
    {
        const QString main = quelhost::toQString(writePackage(test.profile, "main.cuix", "MAIN"));
        ASSERT_TRUE(
            test.settings->write(Item::string(4, L"CUIX/LoadedCuix", toWide(main).c_str())));
        ASSERT_TRUE(test.host->loadModule(text(QUEL_MODULE)));
        plant = writePackage(test.profile, "plant.cuix", "PLANT");
        ASSERT_FALSE(plant.empty());
    }

    void type(const QDialog& dialog, const std::wstring& path) const
    {
        QTest::keyClicks(dialog.findChild<QLineEdit*>(text("IDC_MENULOAD_EDITCMD")),
                         toQString(path));
    }

    std::wstring plant;
};

} // namespace

TEST_F(Console, ABoxIsAskedOnTheCommandLine)
{
    test.lines.add(L"yes");
    EXPECT_EQ(::MessageBoxW(L"Go on?", L"Caption", QuelBox::kYesNo), QuelBox::kAnswerYes);
    EXPECT_EQ(test.output.take(), "Go on?\n[Yes/No]: yes\n");
    EXPECT_EQ(script.shown(), 0);
}

TEST_F(Console, ABoxOverADialogIsAWindow)
{
    QDialog dialog;
    int answer = 0;
    script.next([&](QDialog& shown) {
        answer = ::MessageBoxW(L"Go on?", L"Caption", QuelBox::kYesNo);
        shown.reject();
    });
    script.next([&](QDialog& box) {
        EXPECT_EQ(box.parentWidget(), &dialog);
        EXPECT_EQ(dynamic_cast<QMessageBox&>(box).text(), text("Go on?"));
        QTest::keyClick(&box, Qt::Key_Return);
    });
    dialog.exec();
    EXPECT_EQ(answer, QuelBox::kAnswerYes);
    EXPECT_EQ(test.output.take(), "");
}

TEST_F(Console, ThePickedFileReachesTheCaller)
{
    const std::wstring plant = writePackage(test.profile, "plant.cuix", "PLANT");
    resbuf result{};
    int filterIndex = 1;
    script.next([](QDialog& shown) {
        auto& dialog = dynamic_cast<QFileDialog&>(shown);
        EXPECT_EQ(dialog.selectedNameFilter(), text("B(*.b)"));
        QTest::keyClick(dialog.findChild<QComboBox*>(text("fileTypeCombo")), Qt::Key_Up);
        auto* const name = dialog.findChild<QLineEdit*>(text("fileNameEdit"));
        QTest::keyClicks(name, text("plant.cuix"));
        QTest::keyClick(name, Qt::Key_Return);
    });
    EXPECT_EQ(vxGetFileDialog(L"Title", toWide(test.profile.path()).c_str(), L"cuix;b", 0, &result,
                              nullptr, filterIndex, L"A(*.cuix)|B(*.b)", nullptr),
              5100);
    EXPECT_EQ(filterIndex, 0);
    ASSERT_EQ(result.type, QuelResultType::kString);
    EXPECT_EQ(std::wstring(result.value.string), plant);
    void* buffer = result.value.string;
    quutDelBuffer(buffer);
}

TEST_F(Console, ACancelledFileDialogLeavesTheCallersValuesAlone)
{
    resbuf result{};
    result.type = 77;
    int filterIndex = 1;
    script.next([](QDialog& shown) {
        QTest::keyClick(shown.findChild<QComboBox*>(text("fileTypeCombo")), Qt::Key_Up);
        shown.reject();
    });
    EXPECT_EQ(vxGetFileDialog(L"Title", L"/", L"a;b", 0, &result, nullptr, filterIndex,
                              L"A(*.a)|B(*.b)", nullptr),
              -5002);
    EXPECT_EQ(result.type, 77);
    EXPECT_EQ(filterIndex, 1);
}

TEST_F(Console, AnInterruptClosesOneDialogAtATime)
{
    const auto interrupts = installInterruptHandler();
    QDialog dialog;
    int answer = 0;
    script.next([&](QDialog& shown) {
        answer = ::MessageBoxW(L"Go on?", L"Caption", QuelBox::kYesNo);
        EXPECT_TRUE(shown.isVisible());
        interrupt(shown);
    });
    script.next([](QDialog& box) { interrupt(box); });
    EXPECT_EQ(dialog.exec(), QDialog::Rejected);
    EXPECT_EQ(answer, QuelBox::kAnswerNo);
    EXPECT_FALSE(takeInterrupt());
}

TEST_F(ConsoleModule, MenuloadLoadsAFileThroughItsDialog)
{
    test.lines.add(L"MENULOAD");
    script.next([this](QDialog& dialog) {
        EXPECT_EQ(dialog.windowTitle(), text("Load and Unload Customization Files"));
        type(dialog, plant);
        click(dialog, "IDC_MENULOAD_LOAD");
        EXPECT_EQ(dialog.findChild<QListWidget*>(text("IDC_MENULOAD_LIST"))->count(), 2);
        EXPECT_EQ(test.host->groups.groups().size(), 0U);
        click(dialog, "IDOK");
    });
    test.run();
    ASSERT_EQ(test.host->groups.groups().size(), 2U);
    EXPECT_EQ(test.host->groups.groups()[1].group.name, text("PLANT"));
    EXPECT_NE(valueIn(*test.settings, L"UserInterfaceSettings\\MenuLoadDlg\\WIDTH"), "nothing");
}

TEST_F(ConsoleModule, UnloadAsksInAWindowAndDropsTheGroup)
{
    test.lines.add(L"MENULOAD \"" + plant + L"\"");
    test.lines.add(L"CUILOAD");
    script.usually([this](QDialog& dialog) {
        if (auto* const box = qobject_cast<QMessageBox*>(&dialog)) {
            EXPECT_EQ(box->text(), text("Do you want to unload menu?"));
            QTest::keyClick(box, Qt::Key_Return);
            return;
        }
        auto& rows = *dialog.findChild<QListWidget*>(text("IDC_MENULOAD_LIST"));
        if (rows.count() < 2) {
            type(dialog, plant);
            click(dialog, "IDC_MENULOAD_LOAD");
        } else {
            rows.setCurrentRow(1);
            click(dialog, "IDC_MENULOAD_BTNUNLOAD");
        }
        click(dialog, "IDOK");
    });
    test.run();
    EXPECT_EQ(script.shown(), 3);
    EXPECT_EQ(test.host->groups.groups().size(), 1U);
}

TEST_F(ConsoleModule, AnInterruptClosesTheDialogAndTheSessionGoesOn)
{
    const auto interrupts = installInterruptHandler();
    test.lines.add(L"MENULOAD");
    test.lines.add(L"ECHO on");
    script.next([](QDialog& dialog) { interrupt(dialog); });
    const std::string printed = test.run();
    EXPECT_NE(printed.find("\non\n"), std::string::npos) << printed;
}

TEST_F(ConsoleModule, ABrowsedFileIsLoaded)
{
    test.lines.add(L"MENULOAD");
    script.next([this](QDialog& dialog) {
        type(dialog, plant);
        click(dialog, "IDC_MENULOAD_BROWSE");
        EXPECT_EQ(dialog.findChild<QLineEdit*>(text("IDC_MENULOAD_EDITCMD"))->text(),
                  toQString(plant));
        click(dialog, "IDC_MENULOAD_LOAD");
        click(dialog, "IDOK");
    });
    script.next([](QDialog& dialog) {
        EXPECT_EQ(dialog.windowTitle(), text("Select Menu File"));
        QTest::keyClick(dialog.findChild<QLineEdit*>(text("fileNameEdit")), Qt::Key_Return);
    });
    test.run();
    EXPECT_EQ(test.host->groups.groups().size(), 2U);
}

TEST_F(ConsoleModule, WhatIsLoadedAlreadyIsToldOnTheCommandLineBehindTheDialog)
{
    test.lines.add(L"MENULOAD");
    script.next([this](QDialog& dialog) {
        type(dialog, plant);
        click(dialog, "IDC_MENULOAD_LOAD");
        click(dialog, "IDC_MENULOAD_LOAD");
        EXPECT_NE(test.output.text().find("plant.cuix\" is already loaded."), std::string::npos)
            << test.output.text();
        click(dialog, "IDOK");
    });
    test.run();
    EXPECT_EQ(script.shown(), 1);
}
