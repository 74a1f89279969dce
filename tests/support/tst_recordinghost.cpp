// What other tests rely on: the recording host's own promises.
#include "tests/support/recordinghost.h"

#include "host/aliases.h"
#include "host/dialogs.h"
#include "host/editors.h"
#include "host/filedialog.h"
#include "host/messageboxes.h"
#include "host/output.h"
#include "host/resources.h"

#include <gtest/gtest.h>

#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>

using recording::host;
using Lines = std::vector<std::string>;

namespace {

struct Dialog final : QuUiBaseDialog
{
    using QuUiBaseDialog::bindSingals;
    using QuUiBaseDialog::CheckIfConnected;
    using QuUiBaseDialog::DDX_Control;
    using QuUiBaseDialog::generateUICtrls;
    using QuUiBaseDialog::GetClientRect;
    using QuUiBaseDialog::GetDlgItem;
    using QuUiBaseDialog::getWidgetsFromOrignal;
    using QuUiBaseDialog::GetWindowRect;
    using QuUiBaseDialog::m_controlsGenerated;
    using QuUiBaseDialog::MessageBoxW;
    using QuUiBaseDialog::MoveWindow;
    using QuUiBaseDialog::ScreenToClient;

    void DoDataExchange(CDataExchange* exchange) override
    {
        QuUiBaseDialog::DoDataExchange(exchange);
        DDX_Control(exchange, L"IDC_LIST", list);
    }
    CListBox list;
};

template<typename Widget>
void addChild(QWidget& parent, const char* name)
{
    auto* const child = new Widget(&parent);
    child->setObjectName(QLatin1String(name));
}

std::wstring afterNull(const std::array<wchar_t, kQuelStringAnswerRoom>& buffer)
{
    const std::size_t end = std::wcslen(buffer.data()) + 1;
    return {buffer.begin() + static_cast<std::ptrdiff_t>(end), buffer.end()};
}

} // namespace

TEST(RecordingHost, CancelsEveryPromptWithoutAnAnswer)
{
    std::array<wchar_t, kQuelStringAnswerRoom> buffer{};
    for (int i = 0; i < 3; ++i) {
        EXPECT_EQ(quedGetString(0, L"p", buffer.data()), -5002);
        EXPECT_EQ(quedGetKword(L"k", buffer.data()), -5002);
    }
    host().strings.next({5100, L"one"});
    EXPECT_EQ(quedGetString(1, L"p", buffer.data()), 5100);
    EXPECT_STREQ(buffer.data(), L"one");
    EXPECT_EQ(quedGetString(1, nullptr, buffer.data()), -5002);
    EXPECT_EQ(host().trace.back(), "quedGetString(1, null) -> -5002");
}

TEST(RecordingHost, WritesPromptBuffersToTheirEnd)
{
    std::array<wchar_t, kQuelStringAnswerRoom> buffer{};
    host().strings.next({5100, L"abc"});
    host().strings.next({5100, std::wstring(5000, L'x')});
    EXPECT_EQ(quedGetString(0, L"p", buffer.data()), 5100);
    EXPECT_EQ(afterNull(buffer), std::wstring(2044, L'#'));
    EXPECT_EQ(quedGetString(0, L"p", buffer.data()), 5100);
    EXPECT_EQ(std::wstring(buffer.data()), std::wstring(2047, L'x'));
    EXPECT_EQ(host().answerWasZeroed, (std::vector<bool>{true, false}));
    std::array<wchar_t, kQuelKeywordAnswerRoom> keyword{};
    host().keywords.next({5000, std::wstring(5000, L'k')});
    EXPECT_EQ(quedGetKword(L"k", keyword.data()), 5000);
    EXPECT_EQ(std::wstring(keyword.data()), std::wstring(1023, L'k'));
}

TEST(RecordingHost, KeepsOneStackOfResourceFiles)
{
    recording::Context context;
    host().resources[L"VxCuiCmdsRes.dll"][5] = L"module";
    host().resources[L"QUELDRes.dll"][5] = L"host";
    wchar_t text[16];
    EXPECT_TRUE(context.enterResourceScope(L"VxCuiCmdsRes.dll"));
    EXPECT_EQ(LoadStringW(AfxGetResourceHandle(), 5, text, 16), 6);
    EXPECT_STREQ(text, L"module");
    EXPECT_EQ(text[15], L'#');
    EXPECT_TRUE(SetCurrentResourceName(L"QUELDRes.dll"));
    EXPECT_STREQ(qumdQuResourceString(5, L"default").kwszPtr(), L"host");
    RestorePreviousResource();
    EXPECT_EQ(LoadStringW(AfxGetResourceHandle(), 5, text, 4), 3);
    EXPECT_STREQ(text, L"mod");
    context.leaveResourceScope(0);
    EXPECT_FALSE(SetCurrentResourceName(L"OtherRes.dll"));
    EXPECT_EQ(host().leavesWithoutEnter, 0);
    RestorePreviousResource();
    EXPECT_EQ(host().leavesWithoutEnter, 1);
}

TEST(RecordingHost, ThrowsOnTheChosenCallAndNotesIt)
{
    const VxErrorStatus* const thrown = host().throwOnCall("quedInitGet", 2);
    EXPECT_EQ(quedInitGet(0, nullptr), 5100);
    const VxErrorStatus* caught = nullptr;
    try {
        quedInitGet(1, L"One Two");
    } catch (VxErrorStatus* error) {
        caught = error;
    }
    EXPECT_EQ(caught, thrown);
    EXPECT_EQ(quedInitGet(0, nullptr), 5100);
    EXPECT_EQ(host().trace,
              (Lines{"quedInitGet(0, null) -> 5100", "quedInitGet(1, \"One Two\") -> throws",
                     "quedInitGet(0, null) -> 5100"}));
    delete caught;
}

TEST(RecordingHost, CountsAnewWhenItForgetsCalls)
{
    const VxErrorStatus* const thrown = host().throwOnCall("quedInitGet", 2);
    EXPECT_EQ(quedInitGet(0, nullptr), 5100);
    host().forgetCalls();
    EXPECT_EQ(host().trace, Lines{});
    EXPECT_EQ(quedInitGet(0, nullptr), 5100);
    const VxErrorStatus* caught = nullptr;
    try {
        quedInitGet(0, nullptr);
    } catch (VxErrorStatus* error) {
        caught = error;
    }
    EXPECT_EQ(caught, thrown);
    delete caught;
}

TEST(RecordingHost, KnowsWhichButtonsAreConnected)
{
    Dialog dialog;
    auto* const button = new QPushButton(&dialog);
    button->setObjectName(QStringLiteral("IDOK"));
    EXPECT_FALSE(dialog.CheckIfConnected(L"IDOK"));
    host().connectedControls = {L"IDOK"};
    EXPECT_TRUE(dialog.CheckIfConnected(L"IDOK"));
    host().connectedControls.clear();
    dialog.bindSingals();
    EXPECT_TRUE(dialog.CheckIfConnected(L"IDOK"));
    EXPECT_FALSE(dialog.CheckIfConnected(L"IDCANCEL"));
}

TEST(RecordingHost, StoresDeepCopies)
{
    QueldConfig* const store = quelConfig();
    QuelVariant value;
    value.setString(L"text", QuelVariant::kString);
    EXPECT_EQ(store->setValue(QueldConfig::kUserProfile, L"K\\x", value), 0);
    value.setString(L"changed", QuelVariant::kString);
    QuelVariant read;
    EXPECT_EQ(store->getValue(QueldConfig::kUserProfile, L"K\\x", read), 0);
    EXPECT_EQ(read.stringOrEmpty(), L"text");
    EXPECT_NE(read.block(), host().settings[L"K\\x"].block());
    EXPECT_EQ(store->getValue(QueldConfig::kUserProfile, L"missing", read), 1);
    EXPECT_EQ(read.stringOrEmpty(), L"text");
    EXPECT_FALSE(store->isItemExist(QueldConfig::kUserProfile, L"Section"));
    EXPECT_EQ(store->addItem(QueldConfig::kUserProfile, L"Section"), 0);
    EXPECT_TRUE(store->isItemExist(QueldConfig::kUserProfile, L"Section"));
    EXPECT_EQ(host().trace[1], "setValue(4, \"K\\\\x\", string \"text\") -> 0");
}

TEST(RecordingHost, CountsTheBuffersItHandsOut)
{
    host().setVariable(L"MENUNAME", recording::MaybeText(L"/t/main"));
    resbuf record{nullptr, QuelResultType::kNone, {}};
    EXPECT_EQ(quedGetVar(L"MenuName", &record), 5100);
    EXPECT_STREQ(record.value.string, L"/t/main");
    EXPECT_EQ(host().buffers.size(), 1U);
    void* buffer = record.value.string;
    quutDelBuffer(buffer);
    EXPECT_EQ(buffer, nullptr);
    EXPECT_EQ(host().buffers.size(), 0U);
    EXPECT_EQ(host().foreignFrees, 0);
    int own = 0;
    void* foreign = &own;
    quutDelBuffer(foreign);
    EXPECT_EQ(host().foreignFrees, 1);
    EXPECT_EQ(quedGetVar(L"UNKNOWN", &record), -5001);
}

TEST(RecordingHost, PicksFilesWithFurtherResults)
{
    host().fileDialogs.next({5100, L"/t/a.cuix", 3, 2});
    resbuf record{nullptr, QuelResultType::kNone, {}};
    int filter = 1;
    EXPECT_EQ(
        vxGetFileDialog(L"T", L"/t", L"cuix", 0x18080002, &record, nullptr, filter, L"F", nullptr),
        5100);
    EXPECT_EQ(filter, 3);
    EXPECT_STREQ(record.value.string, L"/t/a.cuix");
    EXPECT_EQ(host().buffers.size(), 3U);
    quutRelRb(record.link);
    EXPECT_EQ(host().buffers.size(), 1U);
    EXPECT_EQ(host().foreignFrees, 0);
    record = {nullptr, QuelResultType::kNone, {}};
    EXPECT_EQ(vxGetFileDialog(L"T", L"/t", L"cuix", 2, &record, nullptr, filter, L"F", nullptr),
              -5002);
    EXPECT_EQ(record.type, -1);
    EXPECT_EQ(host().trace.front(),
              "vxGetFileDialog(\"T\", \"/t\", \"cuix\", 0x18080002, record, null, 1, \"F\", null)"
              " -> 5100");
}

TEST(RecordingHost, PrintsAsAHostDoes)
{
    quutPrintf(L"50%% of %s\n");
    const wchar_t* const format = L"%s-%s";
    quutPrintf(format, L"a", L"b");
    promptf(L"%d %s", 5, L"\U0001F600");
    EXPECT_EQ(host().printed, L"50% of %s\na-b5 \U0001F600");
    EXPECT_EQ(host().trace,
              (Lines{"quutPrintf(\"50%% of %s\\n\")", "quutPrintf(\"%s-%s\", \"a\", \"b\")",
                     "promptf(\"%d %s\", 5, \"\U0001F600\")"}));
}

TEST(RecordingHost, AnswersForItsServices)
{
    EXPECT_TRUE(quedScriptAppRunning() == false);
    host().scriptRuns.next(true);
    EXPECT_TRUE(quedScriptAppRunning());
    ASSERT_NE(GetQuelAppCtxActiveDocData(), nullptr);
    host().documentFlags = 1;
    EXPECT_EQ(GetQuelAppCtxActiveDocData()->flags, 1);
    host().documentFlags.reset();
    EXPECT_EQ(GetQuelAppCtxActiveDocData(), nullptr);
    host().boxes.next(6);
    EXPECT_EQ(MessageBoxW(nullptr, L"t", nullptr, 0x4), 6);
    EXPECT_EQ(AfxMessageBox(L"t", 1, 0), 1);
    EXPECT_EQ(AfxGetMainWnd(), nullptr);
    EXPECT_EQ(vxExcuteWSCommand(2, nullptr, nullptr), 5100);
    QuCmdAliasManager* const aliases = quCmdAliasManagerPtr();
    ASSERT_NE(aliases, nullptr);
    EXPECT_STREQ(aliases->getCurValidPgpFileName().kwszPtr(), L"QUELD.pgp");
    aliases->uninitAliasNameList();
    EXPECT_TRUE(aliases->initAliasNameList(true));
    const VxExceptionWithMsg error(L"c", 3, L"m");
    quelGetCrashRecorder()->record(&error);
    ASSERT_EQ(host().crashes.size(), 1U);
    EXPECT_EQ(host().crashes[0].message, L"m");
    recording::Context context;
    EXPECT_STREQ(context.globalName(), L"MENULOAD");
    EXPECT_FALSE(context.isCommandLineOnly());
}

TEST(RecordingHost, FindsFilesIntoBuffersOfOneThousandAndTwentyFour)
{
    recording::Context context;
    host().filesToFind[L"long"] = std::wstring(3000, L'p');
    std::array<wchar_t, 1024> path{};
    EXPECT_EQ(context.findFile(L"long", path.data()), 0);
    EXPECT_EQ(std::wstring(path.data()), std::wstring(1023, L'p'));
    path[0] = L'?';
    EXPECT_EQ(context.findFile(L"other", path.data()), 1);
    EXPECT_EQ(path[0], L'?');
}

TEST(RecordingHost, HasDialogsWithRealControls)
{
    Dialog dialog;
    host().makeControls = [](QuUiBaseDialog& made) {
        made.resize(300, 200);
        addChild<QListWidget>(made, "IDC_LIST");
        addChild<QLineEdit>(made, "IDC_EDIT");
        addChild<QPushButton>(made, "IDOK");
        addChild<QPushButton>(made, "IDCANCEL");
    };
    dialog.m_controlsGenerated = dialog.generateUICtrls(L"IDD", L"Res", 1, 0, 0);
    dialog.bindSingals();
    ASSERT_TRUE(dialog.m_controlsGenerated);
    host().whileModal = [](QuUiBaseDialog& shown) {
        shown.findChild<QPushButton*>(QStringLiteral("IDOK"))->click();
    };
    host().modalResults.next(1);
    EXPECT_EQ(dialog.DoModal(), 1);
    EXPECT_EQ(host().count("OnInitDialog"), 1);
    EXPECT_EQ(host().count("OnOK"), 1);
    ASSERT_NE(dialog.list.widget(), nullptr);
    CWnd* const edit = dialog.GetDlgItem(L"IDC_EDIT");
    ASSERT_NE(edit, nullptr);
    edit->SetWindowText(L"/t/a.cuix");
    CStdStr<wchar_t> text;
    edit->GetWindowText(text);
    EXPECT_EQ(text, L"/t/a.cuix");
    EXPECT_EQ(dialog.GetDlgItem(L"IDC_NONE"), nullptr);
    EXPECT_EQ(dialog.getWidgetsFromOrignal(L"IDC_NONE"), nullptr);
    edit->EnableWindow(false);
    EXPECT_FALSE(edit->widget()->isEnabled());
    edit->MoveWindow({1, 2, 31, 22}, true);
    EXPECT_EQ(edit->widget()->geometry(), QRect(1, 2, 30, 20));
    RECT rect;
    edit->GetWindowRect(&rect);
    dialog.ScreenToClient(&rect);
    EXPECT_EQ(rect.left, 1);
    EXPECT_EQ(rect.bottom, 22);
    dialog.GetClientRect(&rect);
    EXPECT_EQ(rect.right, 300);
    dialog.MoveWindow({5, 6, 405, 306}, true);
    dialog.GetWindowRect(&rect);
    EXPECT_EQ(rect.right - rect.left, 400);
    EXPECT_EQ(dialog.MessageBoxW(L"t", L"c", 1), 1);
    quelInvokeHelp(&dialog);
    EXPECT_EQ(host().trace.back(), "quelInvokeHelp(dialog)");
}

TEST(RecordingHost, ListsRowsWithAtMostOneSelected)
{
    QListWidget widget;
    CListBox list;
    EXPECT_EQ(list.AddString(L"nowhere"), -1);
    EXPECT_EQ(list.GetCurSel(), -1);
    list.attach(&widget);
    EXPECT_EQ(list.SetCurSel(0), -1);
    EXPECT_EQ(list.AddString(L"a"), 0);
    EXPECT_EQ(list.AddString(L"b"), 1);
    EXPECT_EQ(list.AddString(L"c"), 2);
    EXPECT_EQ(list.SetCurSel(1), 1);
    CStdStr<wchar_t> text;
    EXPECT_EQ(list.GetText(1, text), 1);
    EXPECT_EQ(text, L"b");
    EXPECT_EQ(list.GetText(9, text), -1);
    EXPECT_EQ(list.DeleteString(9), -1);
    EXPECT_EQ(list.DeleteString(1), 2);
    EXPECT_EQ(list.GetCurSel(), -1);
    list.ResetContent();
    EXPECT_EQ(list.GetCount(), 0);
}
