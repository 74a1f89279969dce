// What the menu load dialog asks of its controls at each size.
#include "tests/module/menuloaddialogfixture.h"

#include "tests/support/privatemember.h"

#include <climits>
#include <map>

namespace loaddialog {

namespace {

// The rows of a change of size, in their order.
struct SizeRow
{
    const char* control;
    bool grows;
    bool withWidth;
    bool withHeight;
};

constexpr SizeRow kRows[] = {
    {kListFrame, true, true, true},   {kList, true, true, true},
    {kFileFrame, true, true, false},  {kFileFrame, false, false, true},
    {kFileLabel, false, false, true}, {kEdit, true, true, false},
    {kEdit, false, false, true},      {kUnload, false, true, false},
    {kLoad, false, true, true},       {kBrowse, false, true, true},
    {kOk, false, true, true},         {kHelp, false, true, true},
};

// Where each control is, kept by the test.
using Places = std::map<std::string, QRect>;

Places designedPlaces()
{
    Places places;
    for (const Design& design : designs())
        places[design.name] = design.place;
    return places;
}

std::string itemFound(const std::string& control, bool there = true)
{
    return "GetDlgItem(\"" + control + "\") -> " + (there ? control : "null");
}

// The calls that put a control from its place to another one.
Lines placed(const std::string& control, const QRect& from, const QRect& to)
{
    const std::string onScreen = rectangle(from.translated(kDialogPlace.topLeft()));
    return {itemFound(control), "GetWindowRect(" + control + ") -> " + onScreen,
            "ScreenToClient(" + onScreen + ") -> " + rectangle(from),
            "MoveWindow(" + control + ", " + rectangle(to) + ", true)",
            "Invalidate(" + control + ", true)"};
}

Lines resized(Places& places, int dx, int dy)
{
    Lines lines;
    for (const SizeRow& row : kRows) {
        const QRect from = places.at(row.control);
        QRect to = from;
        if (row.grows)
            to = {from.topLeft(),
                  from.size() + QSize(row.withWidth ? dx : 0, row.withHeight ? dy : 0)};
        places[row.control] = to;
        lines = joined({lines, placed(row.control, from, to)});
    }
    return lines;
}

} // namespace

PRIVATE_MEMBER(LastWidth, VxMenuLoadDlg, int, m_lastWidth)
PRIVATE_MEMBER(LastHeight, VxMenuLoadDlg, int, m_lastHeight)
PRIVATE_MEMBER(FirstSize, VxMenuLoadDlg, int, m_firstSize)

TEST_F(LoadDialog, StartsWithoutASize)
{
    make();
    EXPECT_EQ(LastWidth::of(*dialog), 0);
    EXPECT_EQ(LastHeight::of(*dialog), 0);
    EXPECT_EQ(FirstSize::of(*dialog), 1);
}

TEST_F(LoadDialog, TakesItsFirstSizeForAReferenceAndRepaintsInOrder)
{
    open(L"");
    Places places = designedPlaces();
    dialog->OnSize(0, 640, 480);
    EXPECT_EQ(host().trace, resized(places, 0, 0));
    EXPECT_EQ(places, designedPlaces());
    EXPECT_EQ(FirstSize::of(*dialog), 0);
    EXPECT_EQ(LastWidth::of(*dialog), 640);
    EXPECT_EQ(LastHeight::of(*dialog), 480);
}

TEST_F(LoadDialog, GrowsTheListAndTheEditByEachFurtherSize)
{
    open(L"");
    Places places = designedPlaces();
    struct Size
    {
        unsigned int type;
        int width;
        int height;
    };
    int width = 420;
    int height = 300;
    dialog->OnSize(0, width, height);
    for (const Size& size : {Size{0, 460, 330}, Size{2, 460, 331}, Size{1, 459, 331},
                             Size{UINT_MAX, 300, 200}, Size{7, 420, 300}}) {
        host().forgetCalls();
        dialog->OnSize(size.type, size.width, size.height);
        EXPECT_EQ(host().trace, resized(places, size.width - width, size.height - height));
        width = size.width;
        height = size.height;
    }
    EXPECT_EQ(places, designedPlaces());
}

TEST_F(LoadDialog, LeavesEverythingElseInItsPlace)
{
    open(L"");
    dialog->OnSize(0, 420, 300);
    dialog->OnSize(0, 460, 330);
    Places expected = designedPlaces();
    expected[kList] = {16, 96, 324, 216};
    expected[kListFrame] = {8, 80, 340, 240};
    expected[kEdit] = {80, 22, 260, 24};
    expected[kFileFrame] = {8, 8, 444, 64};
    for (const auto& [name, place] : expected)
        EXPECT_EQ(control<QWidget>(name.c_str()).geometry(), place) << name;
}

TEST_F(LoadDialog, ShrinksWithoutALimit)
{
    open(L"");
    dialog->OnSize(0, 420, 300);
    host().forgetCalls();
    dialog->OnSize(0, 20, 0);
    Places places = designedPlaces();
    EXPECT_EQ(host().trace[3], "MoveWindow(IDC_MENULOAD_GRPMENU, [8, 80, -92, -10], true)");
    EXPECT_EQ(host().trace[8], "MoveWindow(IDC_MENULOAD_LIST, [16, 96, -100, -18], true)");
    EXPECT_EQ(control<QWidget>(kFileFrame).geometry(), QRect(8, 8, 4, 64));
    EXPECT_EQ(control<QWidget>(kOk).geometry(), places.at(kOk));
}

TEST_F(LoadDialog, TakesASizeOfNothingForAFirstSizeToo)
{
    open(L"");
    dialog->OnSize(0, 0, 0);
    dialog->OnSize(0, 10, 20);
    EXPECT_EQ(control<QWidget>(kList).geometry(), QRect(16, 96, 294, 206));
}

TEST_F(LoadDialog, PassesOverControlsThatAreMissingAtEachSize)
{
    for (const Design& design : designs()) {
        startAnew();
        describeControls({design.name});
        open(L"");
        dialog->OnSize(0, 420, 300);
        EXPECT_EQ(host().count("GetDlgItem"), 12) << design.name;
        int rows = 0;
        for (const SizeRow& row : kRows)
            rows += row.control == std::string(design.name) ? 1 : 0;
        EXPECT_EQ(host().count("MoveWindow"), 12 - rows) << design.name;
        EXPECT_EQ(host().count("Invalidate"), 12 - rows) << design.name;
    }
}

TEST_F(LoadDialog, FindsAControlByTheNumberOfItsRow)
{
    open(L"");
    Places places = designedPlaces();
    for (int number = 0; number < 12; ++number) {
        const char* const name = kRows[number].control;
        const QRect from = places.at(name);
        const QRect grown = from.adjusted(0, 0, 3, 5);
        host().forgetCalls();
        dialog->ResizeControl(number, 3, 5);
        EXPECT_EQ(host().trace, placed(name, from, grown)) << number;
        host().forgetCalls();
        dialog->MoveControl(number, 30, 50);
        EXPECT_EQ(host().trace, placed(name, grown, grown)) << number;
        places[name] = grown;
    }
}

TEST_F(LoadDialog, DoesNothingForANumberThatIsNoRow)
{
    open(L"");
    for (const int number : {-1, 12, 13, 1000, INT_MIN, INT_MAX}) {
        dialog->ResizeControl(number, 3, 5);
        dialog->MoveControl(number, 3, 5);
    }
    EXPECT_EQ(host().trace, Lines{});
}

TEST_F(LoadDialog, KnowsItsControlsBeforeItIsInitialised)
{
    make();
    host().forgetCalls();
    Places places = designedPlaces();
    dialog->OnSize(0, 420, 300);
    EXPECT_EQ(host().trace, resized(places, 0, 0));
}

} // namespace loaddialog
