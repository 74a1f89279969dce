// A host for tests of command modules: it does nothing, notes everything and answers what a test
// scripts.
//
// Every call goes into one trace, a line each, in the order in which the calls began:
//
//     enterResourceScope("VxCuiCmdsRes.dll") -> true
//     quedGetString(0, "Enter name of menu file to load:") -> 5100 "/t/a.cuix"
//     setValue(4, "CUIX/LoadedCuix", string ";/t/a.cuix") -> 0
//     LoadStringW(VxCuiCmdsRes.dll, 6916, 1024) -> 8
//     refresh()
//
// Addresses never stand in the trace; what a test needs of them has a member of its own. A call
// that a test lets throw ends in "-> throws". A prompt without a scripted answer gives -5002,
// always, so that no command can loop.
//
// Buffers are written to the last character that the host interface promises, and what is handed in
// is read as far, so that a buffer that is too small is seen by the sanitizers. All texts and
// values are copied, in and out.
#pragma once

#include "host/commands.h"
#include "host/customization.h"
#include "host/errors.h"
#include "host/prompts.h"
#include "host/settings.h"
#include "host/variables.h"
#include "tests/support/answers.h"

#include <array>
#include <functional>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <vector>

class QuUiBaseDialog;
class CWnd;

namespace recording {

// A text that may be null.
using MaybeText = std::optional<std::wstring>;
using ResourceTexts = std::map<unsigned int, MaybeText>;

struct PromptAnswer
{
    int status;
    MaybeText text; // written to the answer buffer when there is one, whatever the status
};

struct LoadAnswer
{
    bool loaded;
    MaybeText group; // given to the caller when `loaded`
};

struct FileDialogAnswer
{
    int status;
    MaybeText path;
    int filterIndex = 0;
    int furtherResults = 0; // records that are linked behind the caller's
};

// What a caller's record held when it was handed to quedGetVar.
struct SeenRecord
{
    bool linked;
    short type;
    std::array<unsigned char, sizeof(resbuf::value)> value;
};

// What the crash recorder copied of an error object.
struct CrashRecord
{
    const void* address;
    int status; // 0 for an error with a message
    std::wstring context;
    int code;
    std::wstring message; // empty for an error with a status
};

class Host
{
public:
    Host();
    ~Host();
    Host(const Host&) = delete;
    Host& operator=(const Host&) = delete;

    // --- The trace.

    std::vector<std::string> trace;
    // The lines of one function, in their order.
    [[nodiscard]] std::vector<std::string> calls(const std::string& function) const;
    [[nodiscard]] int count(const std::string& function) const;
    // Forgets the calls so far, so that the next one of each function is its first.
    void forgetCalls();
    // Without words nothing goes into the trace, and count() alone tells of calls: a fuzzer runs a
    // million commands and looks at few of their lines.
    bool notesWords = true;
    // Also writes each line to standard error at once, for what happens after the test's end.
    bool announce = false;

    // --- What happens on a call, before it answers. Calls of a function count from 1.

    void onCall(const std::string& function, int which, std::function<void()> hook);
    // Throws a new error by pointer, which belongs to whoever catches it. Returns its address.
    const VxErrorStatus* throwOnCall(const std::string& function, int which = 1);

    // --- Command context and resources. Both scopes share one stack of current resource files.

    Answers<std::optional<bool>> contextScope{std::nullopt}; // nothing: whether there is the file
    Answers<std::optional<bool>> globalScope{std::nullopt};
    std::map<std::wstring, ResourceTexts> resources;
    std::vector<std::wstring> resourceStack;
    int leavesWithoutEnter = 0;
    // In place of LoadStringW's own work.
    std::function<int(unsigned int id, wchar_t* buffer, int room)> loadString;
    const wchar_t* lastLoadBuffer = nullptr;
    std::map<unsigned int, MaybeText> defaultTexts; // given to qumdQuResourceString
    std::map<std::wstring, std::wstring> filesToFind;
    std::wstring contextCommand;
    bool contextIsCommandLineOnly = false;
    const IQuelBuildInCommandContext* lastContext = nullptr; // given to commandShouldUseDialog

    // --- Prompts, variables and output.

    Answers<bool> useDialog{false};
    Answers<bool> scriptRuns{false};
    Answers<PromptAnswer> strings{{QuelStatus::kCancelled, std::nullopt}};
    Answers<PromptAnswer> keywords{{QuelStatus::kCancelled, std::nullopt}};
    // Whether the answer buffer was all zero when each prompt began.
    std::vector<bool> answerWasZeroed;
    // By name in capital letters; a variable that is not there gives -5001 and touches nothing.
    std::map<std::wstring, std::function<int(resbuf&)>> variables;
    void setVariable(const std::wstring& name, short value);
    void setVariable(const std::wstring& name, const MaybeText& value);
    std::vector<SeenRecord> seenRecords;
    // What the user has read on the command line.
    std::wstring printed;
    // Buffers handed out and not freed yet, and frees of what was never handed out.
    std::set<void*> buffers;
    int foreignFrees = 0;
    // A copy of `text` that counts as handed out.
    wchar_t* newBuffer(const std::wstring& text);
    std::optional<unsigned char> documentFlags = 0; // nothing: no active document

    // --- Boxes, dialogs and editors.

    Answers<int> boxes{1};
    std::wstring productName;
    CWnd* mainWindow = nullptr;
    Answers<int> modalResults{2};
    std::function<void(QuUiBaseDialog&)> whileModal;
    Answers<bool> controlsGenerated{true};
    std::function<void(QuUiBaseDialog&)> makeControls;
    // Counted as connected beside those that are.
    std::set<std::wstring> connectedControls;
    Answers<FileDialogAnswer> fileDialogs{{QuelStatus::kCancelled, std::nullopt, 0, 0}};
    // In place of vxGetFileDialog's own work; gives its status.
    std::function<int(resbuf& result, int& filterIndex)> fileDialog;
    Answers<int> editors{QuelStatus::kNormal};

    // --- Configuration store, application, managers and crash recorder.

    Answers<bool> storeIsThere{true};
    std::map<std::wstring, QuelVariant> settings;
    std::set<std::wstring> sections;
    Answers<int> readFailures{0};  // nonzero: getValue fails with it
    Answers<int> writeFailures{0}; // nonzero: setValue and addItem fail with it
    std::wstring stringSetting(const std::wstring& key) const;
    void setStringSetting(const std::wstring& key, const std::wstring& text);
    Answers<bool> applicationIsThere{true};
    Answers<bool> managerIsThere{true};
    Answers<LoadAnswer> loads{{true, L"GROUP"}};
    Answers<bool> aliasManagerIsThere{true};
    MaybeText aliasFile;
    Answers<bool> aliasesRead{true};
    Answers<bool> recorderIsThere{true};
    std::vector<CrashRecord> crashes;

    // --- For the implementation: notes a call and runs its hook.

    void called(const std::string& function, const std::string& arguments,
                const std::string& result = {});
    // Adds to a line that is in the trace.
    void amend(std::size_t line, const std::string& words);
    // Notes the call and makes the file current when the script or, without one, its being there
    // says so.
    bool enterScope(const std::string& function, const wchar_t* file,
                    Answers<std::optional<bool>>& script);
    // Goes back to the file that was current before.
    void leaveScope();

private:
    std::map<std::string, int> m_counts;
    std::map<std::pair<std::string, int>, std::function<void()>> m_hooks;
    std::set<const VxErrorStatus*> m_unthrown;
};

// The one host of the process. reset() makes it a new one; what was scripted and noted is gone.
Host& host();
void reset();

// The context that tests hand to commands.
class Context final : public IQuelBuildInCommandContext
{
public:
    const wchar_t* globalName() const override;
    bool isCommandLineOnly() const override;
    bool enterResourceScope(const wchar_t* name) override;
    void leaveResourceScope(int value) override;
    int findFile(const wchar_t* name, wchar_t* result) override;
};

// A store that notes what it is told and answers what `results` says.
class CommandStore final : public IQuelCommandStore
{
public:
    int addCommand(IQuelCommandFactory* factory, int value) override;
    int removeCommand(const wchar_t* globalName) override;

    Answers<int> results{0};
    std::vector<IQuelCommandFactory*> added;
    std::vector<const wchar_t*> removedNames;
};

} // namespace recording
