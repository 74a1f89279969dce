// Exceptions in dialogs: out of whatever they come, they close the dialog in front and reach who
// runs it, and the next dialog works.
#include "refhost/dialogs/modalrun.h"
#include "tests/dialogs/modalscript.h"
#include "tests/dialogs/smalldialog.h"
#include "tests/dialogs/testservices.h"
#include "tests/support/thrownerror.h"

#include <gtest/gtest.h>

#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QtTest/QTest>

#include <stdexcept>

using dialogtest::SmallDialog;

namespace {

// What the tests throw when the kind does not matter.
struct Thrown
{
    int number;
};

// The number that `call` threw, 0 for none.
int thrownBy(const std::function<void()>& call)
{
    try {
        call();
    } catch (const Thrown& thrown) {
        return thrown.number;
    }
    return 0;
}

struct DialogExceptions : testing::Test
{
    DialogExceptions() { folder.write("IDD_SMALL", dialogtest::smallDescription()); }

    static void click(QDialog& dialog, const char* name)
    {
        QTest::mouseClick(dialog.findChild<QPushButton*>(QLatin1String(name)), Qt::LeftButton);
    }
    static void act(QDialog& shown) { click(shown, "IDC_ACTION"); }
    void expectNextDialogToWork()
    {
        SmallDialog dialog;
        script.next([](QDialog& shown) {
            EXPECT_TRUE(shown.isVisible());
            click(shown, "IDOK");
        });
        EXPECT_EQ(dialog.DoModal(), 1);
    }

    dialogtest::DescriptionFolder folder;
    dialogtest::ModalScript script;
};

} // namespace

TEST_F(DialogExceptions, OfAnyTypeLeaveDoModal)
{
    SmallDialog dialog;
    auto* const status = new VxErrorStatus(Quel::eNoMemory, L"context", 7);
    dialog.atAction = [status] { throw status; };
    script.next(act);
    EXPECT_EQ(recording::errorThrownBy([&] { dialog.DoModal(); }).get(), status);
    dialog.atAction = [] { throw std::runtime_error("text"); };
    script.next(act);
    EXPECT_THROW(dialog.DoModal(), std::runtime_error);
    dialog.atAction = [] { throw 42; };
    script.next(act);
    EXPECT_THROW(dialog.DoModal(), int);
    dialog.atAction = [] { throw "text"; };
    script.next(act);
    EXPECT_THROW(dialog.DoModal(), const char*);
    EXPECT_FALSE(dialog.isVisible());
    expectNextDialogToWork();
}

TEST_F(DialogExceptions, OutOfEveryKindOfEventLeaveDoModal)
{
    const std::pair<const char*, std::function<void(SmallDialog&)>> rows[] = {
        {"click", [](SmallDialog& dialog) { act(dialog); }},
        {"click by the window system",
         [](SmallDialog& dialog) {
             const QPoint place =
                 dialog.findChild<QPushButton*>(QStringLiteral("IDC_ACTION"))->geometry().center();
             QTest::mouseClick(dialog.windowHandle(), Qt::LeftButton, {}, place);
         }},
        {"key",
         [](SmallDialog& dialog) {
             QTest::keyClick(dialog.findChild<QPushButton*>(QStringLiteral("IDC_ACTION")),
                             Qt::Key_Space);
         }},
        {"queued call",
         [](SmallDialog& dialog) {
             QMetaObject::invokeMethod(
                 &dialog, [&dialog] { dialog.atAction(); }, Qt::QueuedConnection);
             QCoreApplication::processEvents();
         }},
        {"size",
         [](SmallDialog& dialog) {
             dialog.atSize = dialog.atAction;
             dialog.resize(400, 300);
         }},
        {"OK",
         [](SmallDialog& dialog) {
             dialog.atOk = dialog.atAction;
             click(dialog, "IDOK");
         }},
        {"Return",
         [](SmallDialog& dialog) {
             dialog.atOk = dialog.atAction;
             QTest::keyClick(dialog.findChild<QLineEdit*>(QStringLiteral("IDC_EDIT")),
                             Qt::Key_Return);
         }},
    };
    for (const auto& row : rows) {
        {
            SmallDialog dialog;
            dialog.atAction = [] { throw Thrown{5}; };
            script.next([&](QDialog&) {
                row.second(dialog);
                EXPECT_FALSE(dialog.isVisible());
            });
            EXPECT_EQ(thrownBy([&] { dialog.DoModal(); }), 5) << row.first;
        }
        expectNextDialogToWork();
    }
}

TEST_F(DialogExceptions, BeforeItIsShownLeaveDoModalAtOnce)
{
    SmallDialog dialog;
    dialog.atInit = [] { throw Thrown{1}; };
    EXPECT_EQ(thrownBy([&] { dialog.DoModal(); }), 1);
    dialog.atInit = nullptr;
    dialog.atSize = [] { throw Thrown{2}; };
    EXPECT_EQ(thrownBy([&] { dialog.DoModal(); }), 2);
    EXPECT_EQ(script.shown(), 0);
    expectNextDialogToWork();
}

// The dialog's loop does not run yet: it is left as soon as it does.
TEST_F(DialogExceptions, WhileItIsBeingShownCloseItAsWell)
{
    SmallDialog dialog;
    dialog.atInit = [&] {
        dialog.atSize = [] { throw Thrown{3}; };
        dialog.resize(400, 300);
    };
    EXPECT_EQ(thrownBy([&] { dialog.DoModal(); }), 3);
    EXPECT_FALSE(dialog.isVisible());
    EXPECT_EQ(script.shown(), 1);
    expectNextDialogToWork();
}

TEST_F(DialogExceptions, TheFirstOfSeveralIsTheOne)
{
    SmallDialog dialog;
    int number = 0;
    dialog.atAction = [&] { throw Thrown{++number}; };
    script.next([](QDialog& shown) {
        act(shown);
        act(shown);
        act(shown);
    });
    EXPECT_EQ(thrownBy([&] { dialog.DoModal(); }), 1);
    EXPECT_EQ(number, 3);
}

TEST_F(DialogExceptions, OutOfABoxOnTopCloseBoth)
{
    SmallDialog dialog;
    dialog.atAction = [] {
        QMessageBox box;
        box.addButton(QStringLiteral("Go"), QMessageBox::ActionRole);
        QObject::connect(&box, &QMessageBox::buttonClicked, [] { throw Thrown{4}; });
        quelhost::runModal(box);
        FAIL() << "the box has returned";
    };
    script.next([](QDialog& shown) {
        act(shown);
        EXPECT_FALSE(shown.isVisible());
    });
    script.next([](QDialog& box) {
        QTest::mouseClick(static_cast<QMessageBox&>(box).buttons().first(), Qt::LeftButton);
    });
    EXPECT_EQ(thrownBy([&] { dialog.DoModal(); }), 4);
    EXPECT_EQ(script.shown(), 2);
    expectNextDialogToWork();
}

TEST_F(DialogExceptions, CaughtBetweenTwoDialogsTheOuterOneStays)
{
    SmallDialog outer;
    SmallDialog inner;
    inner.atAction = [] { throw Thrown{6}; };
    int caught = 0;
    outer.atAction = [&] { caught = thrownBy([&] { inner.DoModal(); }); };
    script.next([&](QDialog& shown) {
        act(shown);
        EXPECT_TRUE(shown.isVisible());
        EXPECT_EQ(caught, 6);
        click(shown, "IDOK");
    });
    script.next(act);
    EXPECT_EQ(outer.DoModal(), 1);
}

// An event of the outer dialog that comes while another is in front closes the one in front first.
TEST_F(DialogExceptions, OutOfTheOuterDialogCloseTheOneInFrontToo)
{
    SmallDialog outer;
    SmallDialog inner;
    outer.atAction = [&] { inner.DoModal(); };
    outer.atSize = nullptr;
    script.next([](QDialog& shown) {
        act(shown);
        EXPECT_FALSE(shown.isVisible());
    });
    script.next([&](QDialog& front) {
        outer.atSize = [] { throw Thrown{8}; };
        outer.resize(400, 300);
        EXPECT_FALSE(front.isVisible());
    });
    EXPECT_EQ(thrownBy([&] { outer.DoModal(); }), 8);
    EXPECT_EQ(script.shown(), 2);
    expectNextDialogToWork();
}

TEST_F(DialogExceptions, WithoutADialogTheyGoOnToTheSender)
{
    QPushButton button;
    QObject::connect(&button, &QPushButton::clicked, [] { throw Thrown{9}; });
    QKeyEvent press(QEvent::KeyPress, Qt::Key_Space, Qt::NoModifier);
    QKeyEvent release(QEvent::KeyRelease, Qt::Key_Space, Qt::NoModifier);
    QCoreApplication::sendEvent(&button, &press);
    EXPECT_EQ(thrownBy([&] { QCoreApplication::sendEvent(&button, &release); }), 9);
    expectNextDialogToWork();
}
