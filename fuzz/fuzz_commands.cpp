// Any stored list, any answers and any host through MENULOAD, CUILOAD, MENUUNLOAD, CUIUNLOAD and
// MENU, one after the other, against a model of them.
//
// The input is lines, each with a letter and a text:
//
//     s  the stored list ("S": no text is stored but a number)
//     a  an answer for the next prompt ("e" without a text, "x" an error, "c" a cancel)
//     d  a file picked in the next file dialog
//     o  how the host is from here on, a letter each: d wants dialogs, f FILEDIA is 1, s a script
//        runs, n no dialogs; q no store, r it cannot be read, w not written, g no manager, a no
//        application, z no texts of the module
//     k  the kinds of menu files
//     m  the main menu file
//     p  the name of a menu file that is found
//     g  the group of the files that are loaded ("h": they cannot be shown)
//     t  the name of a host function whose next call throws
//     l L u U b  run MENULOAD, CUILOAD, MENUUNLOAD, CUIUNLOAD, MENU
//
// Relative names mean files in the folder that kFiles is made in.
#include "fuzz/support/broken.h"
#include "fuzz/support/commandmodel.h"
#include "fuzz/support/fuzzinput.h"
#include "fuzz/support/searchcontext.h"

#include "tests/support/menufolder.h"
#include "tests/support/recordinghost.h"
#include "tests/support/tracetext.h"

#include "commands/menuunloadcommand.h"
#include "menufile/menucommand.h"
#include "menuload/menuloadcommand.h"
#include "module/cuiloadcommand.h"
#include "module/cuiunloadcommand.h"
#include "refhost/core/widetext.h"

#include <QApplication>

#include <fcntl.h>
#include <unistd.h>

#include <array>
#include <memory>

using fuzzing::Command;
using fuzzing::mustHold;
using fuzzing::Told;
using fuzzing::World;
using recording::host;

namespace {

constexpr wchar_t kListKey[] = L"CUIX/LoadedCuix";
constexpr int kMostRuns = 2;

// Among them are names that are one in capital letters, and names that many programs get wrong.
constexpr std::array<const wchar_t*, 18> kFiles{
    L"main.cuix",    L"plant.cuix",        L"PLANT.CUIX",   L"sub/plant.cuix",
    L"survey.cuix",  L"sub/survey.2.cuix", L"cuix",         L".cuix",
    L"notes.txt",    L"two words.cuix",    L"%s%n.cuix",    L"50%%.cuix",
    L"a;b.cuix",     L"stra\u00DFe.cuix",  L"STRASSE.cuix", L"\uFEFFplant.cuix",
    L"\uFB01t.cuix", L"\U0001F600.cuix",
};

recording::MenuFolder& theFolder()
{
    static recording::MenuFolder folder;
    return folder;
}

// The folder is the current one as long as this lives; the fuzzer itself works in another.
class InTheFolder
{
public:
    InTheFolder()
    {
        static const std::string path = quelhost::toUtf8(theFolder().path(L""));
        go(chdir(path.c_str()));
    }
    ~InTheFolder() { go(fchdir(home())); }
    InTheFolder(const InTheFolder&) = delete;
    InTheFolder& operator=(const InTheFolder&) = delete;

    // Where the fuzzer was started; asked for before the first one lives.
    static int home()
    {
        static const int folder = open(".", O_RDONLY | O_DIRECTORY | O_CLOEXEC);
        return folder;
    }

private:
    static void go(int result) { mustHold(result == 0, "the folder of the files is there"); }
};

class Session
{
public:
    // Words take most of the time; a run without them still tells what was stored and printed.
    Session(fuzzing::FuzzInput input, bool inWords)
        : m_input(input)
        , m_context(newHost(inWords).resourceStack)
    {
        m_world.kinds = L"cuix;mnu;mns;menuc";
        host().controlsGenerated.usually(false);
        host().resources[L"VxCuiCmdsRes.dll"] = {{11065, L"\"%s\" is already loaded."},
                                                 {11068, L"\"%s\" cannot be unloaded."}};
        setOptions(L"");
    }

    void run()
    {
        int runs = 0;
        while (!m_input.isAtEnd() && runs < kMostRuns) {
            const char letter = static_cast<char>(m_input.byte());
            const std::wstring text = fuzzing::wideText(m_input.line());
            const bool isRun = std::string_view("lLuUb").find(letter) != std::string_view::npos;
            runs += isRun ? 1 : 0;
            if (isRun)
                runCommand(letter);
            else
                obey(letter, text);
        }
    }

private:
    static recording::Host& newHost(bool inWords)
    {
        host().notesWords = inWords;
        return host();
    }

    void obey(char letter, const std::wstring& text)
    {
        switch (letter) {
        case 's':
            m_world.list = text;
            return host().setStringSetting(kListKey, text);
        case 'S':
            m_world.list = L"";
            return host().settings[kListKey].setInteger(7);
        case 'a':
            return answer(5100, text);
        case 'e':
            return answer(5000, text);
        case 'x':
            return answer(-5001, text);
        case 'c':
            return answer(-5002, text);
        case 'd':
            m_world.picked.push_back(text);
            return host().fileDialogs.next({5100, text, 0, 1});
        case 'o':
            return setOptions(text);
        case 'k':
            m_world.kinds = text;
            host().resources[L"QUELDRes.dll"][11005] = text;
            return;
        case 'm':
            m_world.menuName = text;
            return host().setVariable(L"MENUNAME", recording::MaybeText(text));
        case 'p':
            m_world.findable.push_back(text);
            m_context.files[text] = L"/found/" + text;
            return;
        case 'g':
            m_world.group = text;
            return host().loads.usually({true, text});
        case 'h':
            m_world.group = std::nullopt;
            return host().loads.usually({false, std::nullopt});
        case 't':
            m_throwing = mayThrow(text) ? quelhost::toUtf8(text) : std::string();
            return;
        default:
            return;
        }
    }

    // What gives back or leaves runs where an error is on its way already.
    static bool mayThrow(const std::wstring& function)
    {
        return function != L"quutDelBuffer" && function != L"quutRelRb" &&
               function != L"RestorePreviousResource";
    }

    void answer(int status, const std::wstring& text)
    {
        m_world.answers.push_back({status, text});
        host().strings.next({status, text});
    }

    void setOptions(const std::wstring& letters)
    {
        const auto has = [&letters](wchar_t letter) {
            return letters.find(letter) != letters.npos;
        };
        host().useDialog.usually(m_world.wantsDialog = has(L'd'));
        m_world.fileDialogs = has(L'f');
        host().setVariable(L"FILEDIA", static_cast<short>(has(L'f') ? 1 : 0));
        host().scriptRuns.usually(m_world.scriptRuns = has(L's'));
        m_world.noDialogs = has(L'n');
        host().documentFlags = static_cast<unsigned char>(has(L'n') ? 1 : 0);
        host().storeIsThere.usually(m_world.hasStore = !has(L'q'));
        m_world.reads = !has(L'r');
        host().readFailures.usually(has(L'r') ? 3 : 0);
        m_world.writes = !has(L'w');
        host().writeFailures.usually(has(L'w') ? 4 : 0);
        m_world.hasManager = !has(L'g') && !has(L'a');
        host().managerIsThere.usually(!has(L'g'));
        host().applicationIsThere.usually(!has(L'a'));
        m_world.hasTexts = !has(L'z');
        m_context.refusesScopes = has(L'z');
    }

    void runCommand(char letter)
    {
        host().forgetCalls();
        host().printed.clear();
        m_context.searched.clear();
        const VxErrorStatus* const error =
            m_throwing.empty() ? nullptr : host().throwOnCall(m_throwing);
        const std::wstring before = error == nullptr ? L"" : m_world.list.value_or(L"");
        const Told told = fuzzing::tell(commandOf(letter), m_world);
        int status = 0;
        try {
            status = newCommand(letter)->execute(&m_context);
        } catch (const VxErrorStatus* thrown) {
            mustHold(thrown == error, "the host's own error comes out of a command");
            delete thrown;
            checkTidy();
            checkStoredAfterError(before, told);
            return startAnew();
        }
        if (error != nullptr) {
            mustHold(host().count(m_throwing) == 0, "an error of the host is never kept back");
            throwNoMore();
        }
        // The second names always end normally.
        const bool isSecondName = letter == 'L' || letter == 'U';
        mustHold(status == (isSecondName ? 5100 : told.status),
                 "a command returns the status of what happened");
        checkTidy();
        checkStored(told);
        checkSaid(told);
        checkCalls(told);
    }

    static Command commandOf(char letter)
    {
        return letter == 'b'                    ? Command::Menu
               : letter == 'u' || letter == 'U' ? Command::Unload
                                                : Command::Load;
    }

    static std::unique_ptr<IQuelBuildInCommand> newCommand(char letter)
    {
        switch (letter) {
        case 'l':
            return std::make_unique<Quel6916Command>();
        case 'L':
            return std::make_unique<Quel6940Command>();
        case 'u':
            return std::make_unique<Quel6917Command>();
        case 'U':
            return std::make_unique<Quel6941Command>();
        default:
            return std::make_unique<Quel6915Command>();
        }
    }

    void checkTidy() const
    {
        mustHold(m_context.openScopes == 0, "every scope of a context is left");
        mustHold(host().resourceStack.size() == 1, "every resource file is put back");
        mustHold(host().leavesWithoutEnter == 0, "no scope is left that was not entered");
        mustHold(host().buffers.empty(), "every buffer of the host is given back");
        mustHold(host().foreignFrees == 0, "nothing is given back that is not the host's");
    }

    // Where a command stopped in its middle, a list is stored whole or not at all.
    void checkStoredAfterError(const std::wstring& before, const Told& told) const
    {
        const std::wstring stored = host().stringSetting(kListKey);
        const auto isStored = [&stored](const std::wstring& list) { return stored == list; };
        mustHold(isStored(before) ||
                     std::any_of(told.written.begin(), told.written.end(), isStored),
                 "an error leaves the list as it was or as it was to be");
    }

    void throwNoMore()
    {
        host().onCall(m_throwing, 1, [] {});
        m_throwing.clear();
    }

    // Nobody knows which answers an error left over.
    void startAnew()
    {
        throwNoMore();
        m_world.answers.clear();
        m_world.picked.clear();
        host().strings = recording::Answers<recording::PromptAnswer>({-5002, std::nullopt});
        host().fileDialogs =
            recording::Answers<recording::FileDialogAnswer>({-5002, std::nullopt, 0, 0});
        if (m_world.list)
            m_world.list = host().stringSetting(kListKey);
    }

    void checkStored(const Told& told) const
    {
        std::vector<std::string> writes;
        for (const std::wstring& list : told.written)
            writes.push_back("setValue(4, \"CUIX/LoadedCuix\", string " + recording::shown(list) +
                             ") -> " + (m_world.writes ? "0" : "4"));
        std::vector<std::string> seen;
        for (const std::string& call : host().calls("setValue")) {
            if (call.find("CUIX/LoadedCuix") != call.npos)
                seen.push_back(call);
        }
        mustHold(!host().notesWords || seen == writes,
                 "the list is written when it changed, and only then");
        mustHold(host().stringSetting(kListKey) == m_world.list.value_or(L""),
                 "the stored list is what the commands made of it");
    }

    static void checkSaid(const Told& told)
    {
        mustHold(host().printed == told.printed, "the user reads what happened");
        std::vector<std::string> boxes;
        for (const std::wstring& text : told.boxes)
            boxes.push_back("MessageBoxW(" + recording::shown(text) +
                            ", \"Drafting Desk\", 0x30) -> 1");
        mustHold(!host().notesWords || host().calls("MessageBoxW") == boxes,
                 "a box says what happened");
    }

    void checkCalls(const Told& told) const
    {
        mustHold(host().count("MessageBoxW") == static_cast<int>(told.boxes.size()),
                 "a box is shown for a file that is loaded already");
        mustHold(host().count("refresh") == told.refreshes, "the host is refreshed for a change");
        mustHold(host().count("loadMenuFile") == static_cast<int>(told.loaded.size()),
                 "a file is loaded once");
        mustHold(m_context.searched == told.searched, "menu files are searched for in order");
        mustHold(host().count("DoModal") == told.dialogs, "a tilde opens the dialog");
        mustHold(host().count("vxGetFileDialog") == told.fileDialogs,
                 "a file dialog opens where dialogs are");
    }

    fuzzing::FuzzInput m_input;
    World m_world;
    fuzzing::SearchContext m_context;
    std::string m_throwing;
};

} // namespace

extern "C" __attribute__((visibility("default"))) const char* __lsan_default_options()
{
    return "print_suppressions=0";
}

extern "C" __attribute__((visibility("default"))) const char* __lsan_default_suppressions()
{
    // What the toolkit keeps until the process ends.
    return "leak:libfontconfig.so\nleak:libqoffscreen.so\nleak:QScreen::QScreen\n"
           "leak:QPlatformScreen::QPlatformScreen\nleak:handleScreenAdded\n";
}

extern "C" int LLVMFuzzerInitialize(int* argc, char*** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    static QApplication application(*argc, *argv);
    recording::MenuFolder& folder = theFolder();
    folder.folder(L"sub");
    folder.folder(L"d.cuix");
    for (const wchar_t* const name : kFiles)
        folder.file(name);
    folder.link(L"gone.cuix", folder.path(L"nowhere"));
    return InTheFolder::home() >= 0 ? 0 : 1;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const InTheFolder here;
    Session({data, size}, size % 8 == 0).run();
    recording::reset(); // at the end, so that no run frees what another one took
    return 0;
}
