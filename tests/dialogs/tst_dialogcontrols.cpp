// The controls of dialogs: any widget, edits and buttons, and lists.
#include "host/dialogs.h"

#include <gtest/gtest.h>

#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>

namespace {

std::vector<int> edges(const RECT& rect)
{
    return {rect.left, rect.top, rect.right, rect.bottom};
}

std::wstring textOf(const CWnd& window)
{
    CStdStr<wchar_t> text(L"before");
    window.GetWindowText(text);
    return text;
}

std::vector<int> rectOf(const CWnd& window)
{
    RECT rect{1, 2, 3, 4};
    window.GetWindowRect(&rect);
    return edges(rect);
}

struct ListBox : testing::Test
{
    ListBox() { box.attach(&widget); }

    void fill(std::initializer_list<const wchar_t*> rows)
    {
        for (const wchar_t* row : rows)
            box.AddString(row);
    }
    std::wstring row(int index)
    {
        CStdStr<wchar_t> text(L"before");
        box.GetText(index, text);
        return text;
    }

    QListWidget widget;
    CListBox box;
};

} // namespace

TEST_F(ListBox, AddsRowsAtTheEnd)
{
    std::wstring text = L"plant 😀 <b>&x";
    EXPECT_EQ(box.AddString(L"first"), 0);
    EXPECT_EQ(box.AddString(text.c_str()), 1);
    EXPECT_EQ(box.AddString(L""), 2);
    text.assign(text.size(), L'#');
    EXPECT_EQ(box.GetCount(), 3);
    EXPECT_EQ(row(1), L"plant 😀 <b>&x");
    EXPECT_EQ(row(2), L"");
    EXPECT_EQ(box.GetCurSel(), -1);
    EXPECT_EQ(box.AddString(nullptr), -1);
    EXPECT_EQ(box.GetCount(), 3);
}

TEST_F(ListBox, TellsTheLengthOfATextInItsOwnCharacters)
{
    fill({L"ab😀"});
    CStdStr<wchar_t> text;
    EXPECT_EQ(box.GetText(0, text), 3);
    EXPECT_EQ(box.GetText(1, text), -1);
    EXPECT_EQ(box.GetText(-1, text), -1);
    EXPECT_EQ(text, L"ab😀");
}

TEST_F(ListBox, SelectsRowsThatThereAre)
{
    fill({L"a", L"b", L"c"});
    EXPECT_EQ(box.SetCurSel(2), 2);
    EXPECT_EQ(box.GetCurSel(), 2);
    EXPECT_EQ(box.SetCurSel(-1), -1);
    EXPECT_EQ(box.GetCurSel(), -1);
    EXPECT_EQ(box.SetCurSel(3), -1);
    EXPECT_EQ(box.SetCurSel(-7), -1);
    EXPECT_EQ(box.GetCurSel(), -1);
}

TEST_F(ListBox, DeletingTheSelectedRowSelectsNoNeighbour)
{
    for (const int selected : {0, 1, 2}) {
        box.ResetContent();
        fill({L"a", L"b", L"c"});
        box.SetCurSel(selected);
        EXPECT_EQ(box.DeleteString(selected), 2);
        EXPECT_EQ(box.GetCurSel(), -1) << selected;
        EXPECT_TRUE(widget.selectedItems().isEmpty()) << selected;
    }
}

TEST_F(ListBox, DeletingAnotherRowKeepsTheSelectedText)
{
    fill({L"a", L"b", L"c"});
    box.SetCurSel(1);
    EXPECT_EQ(box.DeleteString(0), 2);
    EXPECT_EQ(box.GetCurSel(), 0);
    EXPECT_EQ(row(0), L"b");
    EXPECT_EQ(box.DeleteString(1), 1);
    EXPECT_EQ(box.GetCurSel(), 0);
    EXPECT_EQ(row(0), L"b");
}

TEST_F(ListBox, DeletingARowThatIsNotThereDoesNothing)
{
    EXPECT_EQ(box.DeleteString(0), -1);
    EXPECT_EQ(box.DeleteString(-1), -1);
    fill({L"a", L"b"});
    box.SetCurSel(1);
    EXPECT_EQ(box.DeleteString(2), -1);
    EXPECT_EQ(box.DeleteString(-1), -1);
    EXPECT_EQ(box.GetCount(), 2);
    EXPECT_EQ(box.GetCurSel(), 1);
}

TEST_F(ListBox, AnEmptyListHasNothingSelected)
{
    EXPECT_EQ(box.GetCount(), 0);
    EXPECT_EQ(box.GetCurSel(), -1);
    EXPECT_EQ(box.SetCurSel(0), -1);
    EXPECT_EQ(row(0), L"before");
    fill({L"a"});
    box.SetCurSel(0);
    box.ResetContent();
    EXPECT_EQ(box.GetCount(), 0);
    EXPECT_EQ(box.GetCurSel(), -1);
    EXPECT_EQ(box.SetCurSel(0), -1);
}

TEST(ListBoxWithoutAWidget, AnswersAsAnEmptyList)
{
    CListBox box;
    QPushButton other;
    for (QWidget* widget : {static_cast<QWidget*>(nullptr), static_cast<QWidget*>(&other)}) {
        box.attach(widget);
        box.ResetContent();
        EXPECT_EQ(box.AddString(L"a"), -1);
        EXPECT_EQ(box.GetCount(), 0);
        EXPECT_EQ(box.GetCurSel(), -1);
        EXPECT_EQ(box.SetCurSel(0), -1);
        EXPECT_EQ(box.DeleteString(0), -1);
        CStdStr<wchar_t> text;
        EXPECT_EQ(box.GetText(0, text), -1);
    }
}

TEST(Control, WithoutAWidgetDoesNothingAndIsEmpty)
{
    CWnd window;
    window.EnableWindow(false);
    window.SetWindowText(L"text");
    window.MoveWindow({1, 2, 3, 4}, true);
    window.Invalidate(true);
    EXPECT_EQ(textOf(window), L"");
    EXPECT_EQ(rectOf(window), (std::vector<int>{0, 0, 0, 0}));
    EXPECT_EQ(window.widget(), nullptr);
}

TEST(Control, DoesNotOwnItsWidget)
{
    QLineEdit edit;
    {
        CWnd window(&edit);
        CButton button;
        button.attach(&edit);
    }
    edit.setText(QStringLiteral("still here"));
    EXPECT_EQ(textOf(CWnd(&edit)), L"still here");
}

TEST(Control, ReadsAndWritesTheTextOfEachKind)
{
    QLineEdit edit;
    QPushButton button;
    QLabel label;
    QGroupBox frame;
    QWidget plain;
    for (QWidget* widget : {static_cast<QWidget*>(&edit), static_cast<QWidget*>(&button),
                            static_cast<QWidget*>(&label), static_cast<QWidget*>(&frame), &plain}) {
        CWnd window(widget);
        EXPECT_EQ(textOf(window), L"");
        window.SetWindowText(L"/t/é 😀 <b>%s&x");
        EXPECT_EQ(textOf(window), L"/t/é 😀 <b>%s&x");
        window.SetWindowText(nullptr);
        EXPECT_EQ(textOf(window), L"");
    }
    CWnd(&frame).SetWindowText(L"title");
    EXPECT_EQ(frame.title(), QStringLiteral("title"));
}

TEST(Control, ALabelShowsItsTextAsItStands)
{
    QLabel label;
    CWnd window(&label);
    window.SetWindowText(L"plain");
    const int plain = label.sizeHint().width();
    window.SetWindowText(L"<b>plain</b>");
    EXPECT_GT(label.sizeHint().width(), plain * 3 / 2);
}

TEST(Control, CanBeEnabledAndDisabled)
{
    QPushButton button;
    CButton window;
    window.attach(&button);
    window.EnableWindow(false);
    EXPECT_FALSE(button.isEnabled());
    window.EnableWindow(true);
    EXPECT_TRUE(button.isEnabled());
}

TEST(Control, MovesInItsParentAndTellsWhereItIsOnTheScreen)
{
    QWidget parent;
    parent.setGeometry(100, 200, 300, 300);
    QLineEdit edit(&parent);
    CWnd window(&edit);
    window.MoveWindow({10, 20, 110, 50}, true);
    EXPECT_EQ(edit.geometry(), QRect(10, 20, 100, 30));
    EXPECT_EQ(rectOf(window), (std::vector<int>{110, 220, 210, 250}));
}

TEST(Control, ShrinksBelowNothingAndGrowsBack)
{
    QWidget parent;
    parent.setGeometry(0, 0, 300, 300);
    QLineEdit edit(&parent);
    CWnd window(&edit);
    window.MoveWindow({10, 20, -30, 15}, true);
    EXPECT_EQ(edit.geometry(), QRect(10, 20, 0, 0));
    EXPECT_EQ(rectOf(window), (std::vector<int>{10, 20, -30, 15}));
    window.MoveWindow({10, 20, 70, 45}, true);
    EXPECT_EQ(edit.geometry(), QRect(10, 20, 60, 25));
    EXPECT_EQ(rectOf(window), (std::vector<int>{10, 20, 70, 45}));
}

TEST(Control, AMinimumSizeIsAsLowAsItGets)
{
    QWidget parent;
    parent.setGeometry(0, 0, 300, 300);
    QLineEdit edit(&parent);
    edit.setMinimumSize(50, 20);
    CWnd window(&edit);
    window.MoveWindow({10, 20, 40, 25}, true);
    EXPECT_EQ(edit.size(), QSize(50, 20));
    EXPECT_EQ(rectOf(window), (std::vector<int>{10, 20, 40, 25}));
    window.MoveWindow({10, 20, 90, 60}, true);
    EXPECT_EQ(edit.size(), QSize(80, 40));
}

TEST(Control, TellsTheRealSizeWhenSomebodyElseHasChangedIt)
{
    QWidget parent;
    parent.setGeometry(0, 0, 300, 300);
    QLineEdit edit(&parent);
    CWnd window(&edit);
    window.MoveWindow({10, 20, -30, 15}, true);
    edit.resize(33, 22);
    EXPECT_EQ(rectOf(window), (std::vector<int>{10, 20, 43, 42}));
    edit.setMaximumSize(60, 60);
    window.MoveWindow({10, 20, 210, 220}, true);
    EXPECT_EQ(rectOf(window), (std::vector<int>{10, 20, 70, 80}));
}
