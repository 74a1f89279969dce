// The placement that the menu load dialog keeps from one run to the next.
#include "tests/module/menuloaddialogfixture.h"

#include "tests/support/privatemember.h"

#include <climits>
#include <cstring>
#include <functional>

namespace loaddialog {

namespace {

const std::string kGroup = R"(4, "UserInterfaceSettings\\MenuLoadDlg")";
const std::wstring kGroupKey = L"UserInterfaceSettings\\MenuLoadDlg";
constexpr const wchar_t* kFields[] = {L"X", L"Y", L"WIDTH", L"HEIGHT"};

std::wstring fieldKey(const std::wstring& field)
{
    return kGroupKey + L"\\" + field;
}

std::string exists(bool result)
{
    return "isItemExist(" + kGroup + ") -> " + shown(result);
}

std::string fieldRead(const wchar_t* field, const std::string& result)
{
    return "getValue(4, " + shown(fieldKey(field)) + ") -> " + result;
}

std::string fieldWritten(const wchar_t* field, int value, int result = 0)
{
    return "setValue(4, " + shown(fieldKey(field)) + ", integer " + shown(value) + ") -> " +
           shown(result);
}

void store(const wchar_t* field, int value)
{
    host().settings[fieldKey(field)].setInteger(value);
}

void store(const tagMenuloadDlgParam& placement)
{
    host().sections.insert(kGroupKey);
    store(L"X", placement.X);
    store(L"Y", placement.Y);
    store(L"WIDTH", placement.WIDTH);
    store(L"HEIGHT", placement.HEIGHT);
}

Lines placementRead(const tagMenuloadDlgParam& placement)
{
    return {kStore,
            exists(true),
            fieldRead(L"X", "0 integer " + shown(placement.X)),
            fieldRead(L"Y", "0 integer " + shown(placement.Y)),
            fieldRead(L"WIDTH", "0 integer " + shown(placement.WIDTH)),
            fieldRead(L"HEIGHT", "0 integer " + shown(placement.HEIGHT))};
}

Lines placementWritten(const tagMenuloadDlgParam& placement, int result = 0)
{
    return {fieldWritten(L"X", placement.X, result), fieldWritten(L"Y", placement.Y, result),
            fieldWritten(L"WIDTH", placement.WIDTH, result),
            fieldWritten(L"HEIGHT", placement.HEIGHT, result)};
}

std::vector<int> numbers(const tagMenuloadDlgParam& placement)
{
    return {placement.X, placement.Y, placement.WIDTH, placement.HEIGHT};
}

const std::string kWindowRead = "QuUiBaseDialog::GetWindowRect() -> " + rectangle(kDialogPlace);

} // namespace

PRIVATE_MEMBER(MinimumWidth, VxMenuLoadDlg, int, m_minimumWidth)
PRIVATE_MEMBER(MinimumHeight, VxMenuLoadDlg, int, m_minimumHeight)

// --- Reading the placement.

TEST_F(LoadDialog, StartsWithoutASmallestSize)
{
    make();
    EXPECT_EQ(MinimumWidth::of(*dialog), 0);
    EXPECT_EQ(MinimumHeight::of(*dialog), 0);
}

TEST_F(LoadDialog, TakesItsDesignedClientSizeForTheSmallestThatItRestores)
{
    store({70, 90, 900, 800});
    open(L"");
    EXPECT_EQ(MinimumWidth::of(*dialog), 420);
    EXPECT_EQ(MinimumHeight::of(*dialog), 300);
    EXPECT_EQ(dialog->geometry(), QRect(70, 90, 900, 800));
}

TEST_F(LoadDialog, RestoresItsPlacementBeforeTheHostInitialises)
{
    const tagMenuloadDlgParam placement{70, 90, 500, 400};
    store(placement);
    make();
    host().forgetCalls();
    initialise(*dialog);
    const Lines expected = joined(
        {{"GetClientRect() -> [0, 0, 420, 300]"},
         placementRead(placement),
         {"QuUiBaseDialog::MoveWindow([70, 90, 570, 490], true)", "OnInitDialog() -> true"}});
    ASSERT_GT(host().trace.size(), expected.size());
    EXPECT_EQ(Lines(host().trace.begin(), host().trace.begin() + 9), expected);
    EXPECT_EQ(dialog->geometry(), QRect(70, 90, 500, 400));
}

TEST_F(LoadDialog, UsesAStoredPlacementOnlyWhenItFits)
{
    struct Row
    {
        const char* name;
        tagMenuloadDlgParam placement;
        bool usable;
    };
    for (const Row& row : {
             Row{"the designed size at the origin", {0, 0, 420, 300}, true},
             Row{"larger", {1, 2, 421, 301}, true},
             Row{"one pixel too narrow", {0, 0, 419, 300}, false},
             Row{"one pixel too low", {0, 0, 420, 299}, false},
             Row{"one pixel left of the screen", {-1, 0, 420, 300}, false},
             Row{"one pixel above the screen", {0, -1, 420, 300}, false},
             Row{"no width", {0, 0, 0, 300}, false},
             Row{"a negative width", {0, 0, -420, 300}, false},
             Row{"a negative height", {0, 0, 420, -300}, false},
             Row{"the least numbers", {INT_MIN, INT_MIN, INT_MIN, INT_MIN}, false},
             Row{"the least left edge", {INT_MIN, 0, 420, 300}, false},
             Row{"the greatest left edge", {INT_MAX, 0, 420, 300}, true},
             Row{"the greatest numbers", {INT_MAX, INT_MAX, INT_MAX, INT_MAX}, true},
         }) {
        startAnew();
        open(L"");
        store(row.placement);
        tagMenuloadDlgParam param{-1, -1, -1, -1};
        EXPECT_EQ(dialog->GetMenuLoadDlgSize(param), row.usable ? 0 : -1) << row.name;
        EXPECT_EQ(numbers(param), numbers(row.placement)) << row.name;
        EXPECT_EQ(host().trace, placementRead(row.placement)) << row.name;
        startAnew();
        store(row.placement);
        make();
        initialise(*dialog);
        EXPECT_EQ(host().count("QuUiBaseDialog::MoveWindow"), row.usable ? 1 : 0) << row.name;
        if (!row.usable) {
            EXPECT_EQ(dialog->geometry(), kDialogPlace) << row.name;
        }
    }
}

TEST_F(LoadDialog, LetsAPlacementBeyondAllNumbersWrap)
{
    store({INT_MAX, 1, 420, INT_MAX});
    make();
    initialise(*dialog);
    EXPECT_EQ(host().calls("QuUiBaseDialog::MoveWindow"),
              Lines{"QuUiBaseDialog::MoveWindow([2147483647, 1, -2147483229, -2147483648], true)"});
}

TEST_F(LoadDialog, TakesAFieldOfAnotherKindForZero)
{
    struct Row
    {
        const char* name;
        std::function<void(QuelVariant&)> make;
    };
    const Row rows[] = {
        {"a string", [](QuelVariant& value) { value.setString(L"500", QuelVariant::kString); }},
        {"a string of kind 7",
         [](QuelVariant& value) { value.setString(L"500", QuelVariant::kString7); }},
        {"nothing", [](QuelVariant& value) { value.install(QuelVariant::kNone, nullptr); }},
        {"an integer without data",
         [](QuelVariant& value) { value.install(QuelVariant::kInteger, nullptr); }},
        {"a wide number",
         [](QuelVariant& value) {
             void* const block = QuelVariant::allocateValue(QuelVariant::kWide2, 0);
             std::memset(static_cast<char*>(block) + 4, 1, 8);
             value.install(QuelVariant::kWide2, block);
         }},
    };
    for (const Row& row : rows) {
        for (std::size_t field = 0; field < 4; ++field) {
            startAnew();
            open(L"");
            store({70, 90, 500, 400});
            row.make(host().settings[fieldKey(kFields[field])]);
            tagMenuloadDlgParam param{-1, -1, -1, -1};
            // A position of 0 is one; a size of 0 is too small.
            EXPECT_EQ(dialog->GetMenuLoadDlgSize(param), field < 2 ? 0 : -1) << row.name << field;
            std::vector<int> expected{70, 90, 500, 400};
            expected[field] = 0;
            EXPECT_EQ(numbers(param), expected) << row.name << field;
        }
    }
}

TEST_F(LoadDialog, LeavesAFieldThatCannotBeReadAsItWas)
{
    for (std::size_t field = 0; field < 4; ++field) {
        for (const bool absent : {true, false}) {
            for (const int before : {-1, 7, 1000}) {
                startAnew();
                open(L"");
                store({70, 90, 500, 400});
                if (absent)
                    host().settings.erase(fieldKey(kFields[field]));
                for (std::size_t read = 0; read < field; ++read)
                    host().readFailures.next(0);
                host().readFailures.next(absent ? 0 : -7);
                tagMenuloadDlgParam param{before, before, before, before};
                const int smallest = field == 2 ? 420 : (field == 3 ? 300 : 0);
                EXPECT_EQ(dialog->GetMenuLoadDlgSize(param), before >= smallest ? 0 : -1) << field;
                std::vector<int> expected{70, 90, 500, 400};
                expected[field] = before;
                EXPECT_EQ(numbers(param), expected) << field;
                EXPECT_EQ(host().count("getValue"), 4) << field;
            }
        }
    }
}

TEST_F(LoadDialog, RestoresNothingWhenAFieldCannotBeRead)
{
    for (const wchar_t* field : kFields) {
        startAnew();
        store({70, 90, 500, 400});
        host().settings.erase(fieldKey(field));
        open(L"");
        EXPECT_EQ(dialog->geometry(), kDialogPlace) << toUtf8(field);
    }
}

TEST_F(LoadDialog, HasNoPlacementWithoutItsGroupInTheStore)
{
    open(L"");
    store({70, 90, 500, 400});
    host().sections.clear();
    tagMenuloadDlgParam param{1, 2, 3, 4};
    EXPECT_EQ(dialog->GetMenuLoadDlgSize(param), -1);
    EXPECT_EQ(host().trace, (Lines{kStore, exists(false)}));
    EXPECT_EQ(numbers(param), (std::vector<int>{1, 2, 3, 4}));
}

TEST_F(LoadDialog, HasNoPlacementWithoutAStore)
{
    open(L"");
    store({70, 90, 500, 400});
    host().storeIsThere.usually(false);
    tagMenuloadDlgParam param{1, 2, 3, 4};
    EXPECT_EQ(dialog->GetMenuLoadDlgSize(param), -1);
    EXPECT_EQ(host().trace, Lines{kNoStore});
    EXPECT_EQ(numbers(param), (std::vector<int>{1, 2, 3, 4}));
}

// --- Writing the placement.

TEST_F(LoadDialog, KeepsItsPlacementWhenItIsClosedByOk)
{
    for (const bool groupExists : {false, true}) {
        startAnew();
        open(L"");
        if (groupExists)
            host().sections.insert(kGroupKey);
        control<QPushButton>(kOk).click();
        const Lines group = groupExists ? Lines{exists(true)}
                                        : Lines{exists(false), "addItem(" + kGroup + ") -> 0"};
        EXPECT_EQ(
            host().trace,
            joined(
                {{kWindowRead, kStore}, group, placementWritten({50, 60, 420, 300}), {"OnOK()"}}));
        EXPECT_EQ(dialog->result(), QDialog::Accepted);
    }
}

TEST_F(LoadDialog, KeepsAnyPlacementAsItIs)
{
    for (const tagMenuloadDlgParam& placement :
         {tagMenuloadDlgParam{1, 2, 3, 4}, tagMenuloadDlgParam{-5, -6, -7, -8},
          tagMenuloadDlgParam{INT_MAX, INT_MIN, INT_MAX, INT_MIN}}) {
        startAnew();
        host().sections.insert(kGroupKey);
        open(L"");
        dialog->SetMenuLoadDlgSize(placement);
        EXPECT_EQ(host().trace, joined({{kStore, exists(true)}, placementWritten(placement)}));
    }
}

TEST_F(LoadDialog, KeepsTheRestWhenTheStoreCannotWrite)
{
    open(L"");
    host().writeFailures.usually(9);
    dialog->OnOK();
    EXPECT_EQ(host().trace,
              joined({{kWindowRead, kStore, exists(false), "addItem(" + kGroup + ") -> 9"},
                      placementWritten({50, 60, 420, 300}, 9),
                      {"OnOK()"}}));
}

TEST_F(LoadDialog, ClosesByOkWithoutAStore)
{
    open(L"");
    host().storeIsThere.usually(false);
    dialog->OnOK();
    EXPECT_EQ(host().trace, (Lines{kWindowRead, kNoStore, "OnOK()"}));
    EXPECT_EQ(dialog->result(), QDialog::Accepted);
}

TEST_F(LoadDialog, KeepsNoPlacementWhenItIsClosedInAnotherWay)
{
    const std::function<void(QDialog&)> ways[] = {
        [](QDialog& closed) { closed.reject(); }, [](QDialog& closed) { closed.close(); },
        [](QDialog& closed) { closed.done(QDialog::Accepted); }};
    for (const auto& way : ways) {
        startAnew();
        open(L"");
        way(*dialog);
        EXPECT_EQ(host().trace, Lines{});
        EXPECT_EQ(host().sections.size(), 0U);
    }
}

TEST_F(LoadDialog, LetsErrorsOutOfClosingPassAndStaysOpen)
{
    open(L"");
    dialog->OnOK();
    const std::vector<NumberedCall> calls = numbered(host().trace);
    ASSERT_EQ(calls.size(), 9U);
    for (const NumberedCall& call : calls) {
        startAnew();
        open(L"");
        const VxErrorStatus* const thrown = host().throwOnCall(call.function, call.which);
        const auto caught = errorOutOf([this] { dialog->OnOK(); });
        EXPECT_EQ(caught.get(), thrown) << call.function << " " << call.which;
        EXPECT_EQ(dialog->result(), QDialog::Rejected) << call.function << " " << call.which;
    }
}

} // namespace loaddialog
