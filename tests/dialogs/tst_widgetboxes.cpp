// Message boxes in windows.
#include "host/messageboxes.h"
#include "refhost/dialogs/widgetface.h"
#include "tests/dialogs/modalscript.h"
#include "tests/support/germantexts.h"

#include <gtest/gtest.h>

#include <QMessageBox>
#include <QPushButton>
#include <QtTest/QTest>

#include <functional>

using quelhost::WidgetFace;

namespace {

QString text(const char* utf8)
{
    return QString::fromUtf8(utf8);
}

struct BoxRow
{
    const char* name;
    unsigned int flags;
    std::vector<std::pair<const char*, int>> buttons; // in their order, the default first
    int safe;                                         // Esc and the close box
};

void PrintTo(const BoxRow& row, std::ostream* stream)
{
    *stream << row.name;
}

class WidgetBox : public testing::TestWithParam<BoxRow>
{
protected:
    // Shows the box, takes the steps in it, and returns its answer.
    int ask(unsigned int flags, std::function<void(QMessageBox&)> steps)
    {
        script.next([steps = std::move(steps)](QDialog& shown) {
            steps(dynamic_cast<QMessageBox&>(shown));
        });
        return face.askBox({L"a <b>bold</b> %s & text", L"Caption", flags});
    }

    dialogtest::ModalScript script;
    WidgetFace face{{}};
};

INSTANTIATE_TEST_SUITE_P(
    Kinds, WidgetBox,
    testing::Values(BoxRow{"Ok", 0x00, {{"OK", 1}}, 1},
                    BoxRow{"OkCancel", 0x01, {{"OK", 1}, {"Cancel", 2}}, 2},
                    BoxRow{"YesNo", 0x04, {{"Yes", 6}, {"No", 7}}, 7},
                    BoxRow{"OkWithAMark", 0x30, {{"OK", 1}}, 1},
                    BoxRow{"OkCancelWithAMark", 0x31, {{"OK", 1}, {"Cancel", 2}}, 2},
                    BoxRow{"YesNoWithAMark", 0x34, {{"Yes", 6}, {"No", 7}}, 7},
                    BoxRow{"Unknown", 0x0F, {{"OK", 1}}, 1}),
    [](const auto& row) { return std::string(row.param.name); });

// The order in which the buttons stand from left to right.
QList<QPushButton*> buttonsOf(const QMessageBox& box)
{
    QList<QPushButton*> result = box.findChildren<QPushButton*>();
    std::sort(result.begin(), result.end(), [](const QPushButton* left, const QPushButton* right) {
        return left->mapToGlobal({}).x() < right->mapToGlobal({}).x();
    });
    return result;
}

} // namespace

TEST_P(WidgetBox, ShowsTheTextAsItStandsWithItsButtons)
{
    const BoxRow& row = GetParam();
    ask(row.flags, [&](QMessageBox& box) {
        EXPECT_EQ(box.windowTitle(), text("Caption"));
        EXPECT_EQ(box.text(), text("a <b>bold</b> %s & text"));
        EXPECT_EQ(box.textFormat(), Qt::PlainText);
        EXPECT_EQ(box.icon() == QMessageBox::Warning, (row.flags & 0x30) == 0x30);
        const QList<QPushButton*> buttons = buttonsOf(box);
        EXPECT_EQ(static_cast<std::size_t>(buttons.size()), row.buttons.size());
        for (int index = 0; index < buttons.size(); ++index) {
            EXPECT_EQ(buttons[index]->text(),
                      text(row.buttons[static_cast<std::size_t>(index)].first));
            EXPECT_EQ(buttons[index]->isDefault(), index == 0);
        }
        box.reject();
    });
}

TEST_P(WidgetBox, GivesTheAnswerOfTheButtonThatIsClicked)
{
    const BoxRow& row = GetParam();
    for (std::size_t index = 0; index < row.buttons.size(); ++index) {
        const int answer = ask(row.flags, [index](QMessageBox& box) {
            QTest::mouseClick(buttonsOf(box).at(static_cast<int>(index)), Qt::LeftButton);
        });
        EXPECT_EQ(answer, row.buttons[index].second) << row.buttons[index].first;
    }
}

TEST_P(WidgetBox, ReturnGivesTheFirstButtonAndLeavingTheSafeOne)
{
    const BoxRow& row = GetParam();
    EXPECT_EQ(ask(row.flags, [](QMessageBox& box) { QTest::keyClick(&box, Qt::Key_Return); }),
              row.buttons.front().second);
    EXPECT_EQ(ask(row.flags, [](QMessageBox& box) { QTest::keyClick(&box, Qt::Key_Escape); }),
              row.safe);
    EXPECT_EQ(ask(row.flags, [](QMessageBox& box) { box.close(); }), row.safe);
    EXPECT_EQ(ask(row.flags, [](QMessageBox& box) { box.reject(); }), row.safe);
}

TEST_P(WidgetBox, SpeaksGerman)
{
    const quelhost::test::GermanTexts german;
    ASSERT_TRUE(german.loaded());
    const QMap<QString, QString> translated{{text("OK"), text("OK")},
                                            {text("Cancel"), text("Abbrechen")},
                                            {text("Yes"), text("Ja")},
                                            {text("No"), text("Nein")}};
    ask(GetParam().flags, [&](QMessageBox& box) {
        const QList<QPushButton*> buttons = buttonsOf(box);
        for (int index = 0; index < buttons.size(); ++index) {
            const char* const english = GetParam().buttons[static_cast<std::size_t>(index)].first;
            EXPECT_EQ(buttons[index]->text(), translated[text(english)]);
        }
        box.reject();
    });
}

TEST_F(WidgetBox, StandsOverTheDialogInFrontOrElseOverTheWindow)
{
    QWidget window;
    const WidgetFace overWindow({}, &window);
    QDialog dialog;
    script.next([&](QDialog& shown) {
        ask(0, [&](QMessageBox& box) {
            EXPECT_EQ(box.parentWidget(), &shown);
            box.reject();
        });
        shown.reject();
    });
    dialog.exec();
    script.next([&](QDialog& box) {
        EXPECT_EQ(box.parentWidget(), &window);
        box.reject();
    });
    EXPECT_EQ(const_cast<WidgetFace&>(overWindow).askBox({L"text", L"caption", 1}), 2);
}
