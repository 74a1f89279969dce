// The path edit of the menu load dialog: typing, Browse and Help.
#include "tests/module/filedialogfixture.h"
#include "tests/module/menuloaddialogfixture.h"

namespace loaddialog {

namespace {

using filedialog::FileDialog;

// What is asked of the host when the edit's text changes.
Lines editChanged(const std::wstring& text)
{
    return {kEditFound, editRead(text), enabled(kLoad, !text.empty())};
}

std::string editSet(const std::wstring& text)
{
    return "SetWindowText(IDC_MENULOAD_EDITCMD, " + shown(text) + ")";
}

// Opening the file dialog for the first time, on what was typed.
Lines browsed(const std::wstring& typed, int status)
{
    return joined({{kEditFound, editRead(typed), kStore, filedialog::kExists + "false"},
                   filedialog::kLookups,
                   {filedialog::opened(shown(typed), 0, status)}});
}

// Keeping the choice for the next time; filters are counted from 1 there.
Lines remembered(const std::wstring& path, int filter)
{
    return {"quutDelBuffer(buffer)", filedialog::kExists + "false",
            "addItem(4, \"UserInterfaceSettings\\\\Select Menu File\") -> 0",
            "setValue" + filedialog::kFilterArgument + ", integer " + shown(filter) + ") -> 0",
            "setValue" + filedialog::kFileArgument + ", string " + shown(path) + ") -> 0"};
}

} // namespace

TEST_F(LoadDialog, TypingTurnsLoadOnAndClearingTurnsItOff)
{
    open(L"");
    auto& edit = control<QLineEdit>(kEdit);
    for (const std::wstring text : {L"a", L"", L" ", L"\u00E9\U0001F600", L"", L"a;b%s"}) {
        host().forgetCalls();
        edit.setText(quelhost::toQString(text));
        EXPECT_EQ(host().trace, editChanged(text));
        EXPECT_EQ(isEnabled(kLoad), !text.empty()) << toUtf8(text);
    }
}

TEST_F(LoadDialog, FollowsEachKeyInTheEdit)
{
    open(L"");
    auto& edit = control<QLineEdit>(kEdit);
    edit.insert(QStringLiteral("ab"));
    edit.backspace();
    EXPECT_TRUE(isEnabled(kLoad));
    edit.backspace();
    EXPECT_FALSE(isEnabled(kLoad));
    EXPECT_EQ(host().count("EnableWindow"), 3);
}

TEST_F(LoadDialog, ReadsTheEditWhenToldOfAChangeWithoutOne)
{
    open(L"");
    dialog->OnMenuPathChange();
    EXPECT_EQ(host().trace, editChanged(L""));
}

TEST_F(LoadDialog, BrowsesFromWhatIsTypedAndTakesWhatIsChosen)
{
    open(L"");
    type(L"/start/here");
    control<QPushButton>(kLoad).setEnabled(false);
    host().fileDialogs.next({5100, L"/t/plant.cuix", 2, 0});
    control<QPushButton>(kBrowse).click();
    EXPECT_EQ(host().trace, joined({browsed(L"/start/here", 5100),
                                    remembered(L"/t/plant.cuix", 3),
                                    {kEditFound, editSet(L"/t/plant.cuix")},
                                    editChanged(L"/t/plant.cuix"),
                                    {enabled(kLoad, true)}}));
    EXPECT_EQ(typed(), L"/t/plant.cuix");
    EXPECT_TRUE(isEnabled(kLoad));
    EXPECT_FALSE(dialog->isChanged());
    EXPECT_EQ(host().buffers.size(), 0U);
}

TEST_F(LoadDialog, TurnsLoadOnAlsoWhenTheChosenFileIsWhatWasTyped)
{
    open(L"");
    type(L"/t/plant.cuix");
    control<QPushButton>(kLoad).setEnabled(false);
    host().fileDialogs.next({5100, L"/t/plant.cuix", 1, 0});
    dialog->OnBtnBrowse();
    EXPECT_EQ(host().trace.back(), enabled(kLoad, true));
    EXPECT_TRUE(isEnabled(kLoad));
}

TEST_F(LoadDialog, TurnsLoadOffWhenNothingWasChosenUnderSuccess)
{
    for (const recording::MaybeText& path : {recording::MaybeText(L""), recording::MaybeText()}) {
        startAnew();
        open(L"");
        type(L"/start");
        host().fileDialogs.next({5100, path, 1, 0});
        dialog->OnBtnBrowse();
        EXPECT_EQ(typed(), L"");
        EXPECT_FALSE(isEnabled(kLoad));
        EXPECT_EQ(host().trace.back(), enabled(kLoad, false));
    }
}

TEST_F(LoadDialog, LeavesEverythingWhenBrowsingEndsInAnotherWay)
{
    for (const int status : {-5002, 5000, 0, 1, -1, -5001}) {
        for (const bool loadEnabled : {true, false}) {
            startAnew();
            open(L"");
            type(L"/start");
            control<QPushButton>(kLoad).setEnabled(loadEnabled);
            host().fileDialogs.next({status, L"/t/plant.cuix", 3, 0});
            dialog->OnBtnBrowse();
            EXPECT_EQ(host().trace, browsed(L"/start", status)) << status;
            EXPECT_EQ(typed(), L"/start") << status;
            EXPECT_EQ(isEnabled(kLoad), loadEnabled) << status;
        }
    }
}

TEST_F(LoadDialog, BrowsesNothingWithoutAStore)
{
    open(L"");
    type(L"/start");
    host().storeIsThere.usually(false);
    dialog->OnBtnBrowse();
    EXPECT_EQ(host().trace, (Lines{kEditFound, editRead(L"/start"), kNoStore}));
    EXPECT_EQ(typed(), L"/start");
}

TEST_F(LoadDialog, BrowsesWithoutAnEdit)
{
    describeControls({kEdit});
    open(L"");
    host().fileDialogs.next({5100, L"/t/plant.cuix", 1, 0});
    dialog->OnBtnBrowse();
    EXPECT_EQ(host().calls("vxGetFileDialog"), Lines{filedialog::opened("\"\"", 0, 5100)});
    EXPECT_EQ(host().count("SetWindowText"), 0);
    EXPECT_TRUE(isEnabled(kLoad));
}

TEST_F(LoadDialog, BrowsesOnTheFileLastChosenWhenNothingIsTyped)
{
    open(L"");
    FileDialog::remember(filedialog::integer(2), filedialog::text(L"/last/one.cuix"));
    dialog->OnBtnBrowse();
    EXPECT_EQ(host().calls("vxGetFileDialog"),
              Lines{filedialog::opened("\"/last/one.cuix\"", 1, -5002)});
    EXPECT_EQ(typed(), L"");
    EXPECT_FALSE(isEnabled(kLoad));
}

TEST_F(LoadDialog, LoadsWhatWasBrowsed)
{
    const std::wstring path = folder.file(L"plant.cuix");
    open(L"");
    host().fileDialogs.next({5100, path, 1, 0});
    control<QPushButton>(kBrowse).click();
    control<QPushButton>(kLoad).click();
    EXPECT_EQ(storedList(), L";" + path);
    EXPECT_EQ(rows(), Lines{"plant"});
}

TEST_F(LoadDialog, LetsErrorsOutOfBrowsingPass)
{
    const auto prepare = [this] {
        startAnew();
        open(L"");
        type(L"/start");
        host().fileDialogs.next({5100, L"/t/plant.cuix", 1, 0});
    };
    prepare();
    dialog->OnBtnBrowse();
    for (const NumberedCall& call : numbered(host().trace)) {
        prepare();
        // What the edit calls when its text is set does not come back through the toolkit.
        if (call.function == "SetWindowText")
            break;
        const VxErrorStatus* const thrown = host().throwOnCall(call.function, call.which);
        const auto caught = errorOutOf([this] { dialog->OnBtnBrowse(); });
        EXPECT_EQ(caught.get(), thrown) << call.function << " " << call.which;
        EXPECT_EQ(typed(), L"/start") << call.function << " " << call.which;
        EXPECT_EQ(host().buffers.size(), call.function == "quutDelBuffer" ? 1U : 0U)
            << call.function << " " << call.which;
    }
}

TEST_F(LoadDialog, OpensItsOwnHelp)
{
    open(L"");
    control<QPushButton>(kHelp).click();
    EXPECT_EQ(host().trace, Lines{"quelInvokeHelp(dialog)"});
}

} // namespace loaddialog
