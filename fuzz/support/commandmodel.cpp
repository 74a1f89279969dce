#include "fuzz/support/commandmodel.h"

#include "fuzz/support/menufilemodel.h"
#include "tests/support/listrules.h"

#include <QFile>
#include <QString>

#include <sys/stat.h>

#include <algorithm>

namespace fuzzing {

namespace {

using listrules::Outcome;
using listrules::plain;

constexpr int kNormal = 5100;
constexpr int kStopped = 0;
constexpr int kError = -5001;
constexpr int kCancelled = -5002;

constexpr std::uint32_t kLastCharacter = 0x10FFFF;

bool exists(const std::wstring& path)
{
    const auto isNoCharacter = [](wchar_t character) {
        const auto code = static_cast<std::uint32_t>(character);
        return code > kLastCharacter || (code >= 0xD800 && code <= 0xDFFF);
    };
    // The toolkit has its own way with what is no character, and files of its own behind a colon.
    if (std::any_of(path.begin(), path.end(), isNoCharacter) ||
        (!path.empty() && path.front() == L':'))
        return QFile::exists(plain(path));
    struct stat status;
    return stat(plain(path).toUtf8().constData(), &status) == 0;
}

class Run
{
public:
    explicit Run(World& world)
        : m_world(world)
    {}

    Told told;

    void load()
    {
        if (showsDialogFirst())
            return;
        std::optional<int> end;
        while (!end)
            end = loadAnswer(nextAnswer());
        told.status = *end;
    }

    void unload()
    {
        if (showsDialogFirst())
            return;
        const TypedAnswer answer = nextAnswer();
        told.status = answer.status;
        if (answer.status == kNormal && !showsDialogFor(answer.text))
            told.status = unloadFile(answer.text);
    }

    void menu()
    {
        std::wstring path;
        told.status = kCancelled;
        const bool byPrompt = m_world.scriptRuns || m_world.noDialogs || !m_world.fileDialogs;
        if (byPrompt)
            askForPath(path);
        else
            pickPath(path);
        if (told.status == kNormal && !path.empty())
            search(withoutBlanks(withoutQuotes(withoutBlanks(path))));
    }

private:
    TypedAnswer nextAnswer()
    {
        if (m_world.answers.empty())
            return {kCancelled, {}};
        const TypedAnswer answer = m_world.answers.front();
        m_world.answers.pop_front();
        return answer;
    }

    bool showsDialogFirst()
    {
        const bool shows = m_world.wantsDialog && m_world.fileDialogs;
        if (shows)
            showDialog();
        return shows;
    }

    bool showsDialogFor(const std::wstring& answer)
    {
        const bool shows = !answer.empty() && answer.front() == L'~';
        if (shows)
            showDialog();
        return shows;
    }

    // Its user changes nothing.
    void showDialog()
    {
        ++told.dialogs;
        told.status = kNormal;
    }

    void print(const std::wstring& message) { told.printed += printedText(message); }

    void write(const std::wstring& list)
    {
        told.written.push_back(list);
        if (m_world.writes)
            m_world.list = list;
    }

    // The status that ends the command, or nothing to ask again.
    std::optional<int> loadAnswer(const TypedAnswer& answer)
    {
        if (answer.status != kNormal)
            return answer.status == kCancelled ? std::optional(kCancelled) : std::nullopt;
        if (showsDialogFor(answer.text))
            return kNormal;
        if (!listrules::isCustomizationFile(answer.text, exists)) {
            print(messageOf(L"Menu file load failed.  File not found:\"%s\"", answer.text));
            return std::nullopt;
        }
        if (!m_world.hasStore)
            return kStopped;
        if (!m_world.reads || !m_world.list)
            return std::nullopt;
        return loadFile(answer.text);
    }

    std::optional<int> loadFile(const std::wstring& path)
    {
        std::wstring list = *m_world.list;
        if (listrules::load(list, path, exists) == Outcome::Refused) {
            told.boxes.push_back(m_world.hasTexts ? messageOf(L"\"%s\" is already loaded.", path)
                                                  : L"");
            return kStopped;
        }
        write(list);
        if (!m_world.hasManager)
            return std::nullopt;
        ++told.refreshes;
        told.loaded.push_back(path);
        if (m_world.group)
            told.printed += L"\nLoading \"" + path + L"\" success.group:" + *m_world.group;
        told.printed += L"\n";
        return kNormal;
    }

    int unloadFile(const std::wstring& path)
    {
        if (!listrules::isCustomizationFile(path, exists)) {
            if (m_world.hasTexts)
                print(messageOf(L"\"%s\" cannot be unloaded.", path));
            return kNormal;
        }
        if (!m_world.hasStore)
            return kStopped;
        if (!m_world.reads || !m_world.list)
            return kNormal;
        std::wstring list = *m_world.list;
        const Outcome outcome = listrules::unload(list, path, exists);
        if (outcome == Outcome::Refused)
            return kStopped;
        if (outcome == Outcome::Done) {
            write(list);
            told.refreshes += m_world.hasManager ? 1 : 0;
        }
        return kNormal;
    }

    void askForPath(std::wstring& path)
    {
        const TypedAnswer answer = nextAnswer();
        told.status = answer.status;
        if (answer.status != kNormal)
            return;
        const wchar_t first = answer.text.empty() ? L'\0' : answer.text.front();
        if (first == L'~')
            pickPath(path);
        else if (first == L'\0')
            path = m_world.menuName.value_or(L"");
        else if (first != L'.')
            path = answer.text;
    }

    void pickPath(std::wstring& path)
    {
        told.status = m_world.hasStore ? kCancelled : kError;
        if (!m_world.hasStore)
            return;
        ++told.fileDialogs;
        if (m_world.picked.empty())
            return;
        path = m_world.picked.front();
        m_world.picked.pop_front();
        told.status = kNormal;
    }

    static std::wstring withoutQuotes(const std::wstring& text)
    {
        const std::size_t begin = text.find_first_not_of(L'"');
        return begin == text.npos ? std::wstring()
                                  : text.substr(begin, text.find_last_not_of(L'"') + 1 - begin);
    }

    void search(const std::wstring& name)
    {
        for (const std::wstring& candidate : searchedNames(name, m_world.kinds)) {
            told.searched.push_back(candidate);
            const auto& files = m_world.findable;
            if (std::find(files.begin(), files.end(), candidate) != files.end())
                return;
        }
        print(messageOf(L"Menu file load failed.  File not found:%s", name));
        told.status = kError;
    }

    World& m_world;
};

} // namespace

Told tell(Command command, World& world)
{
    Run run(world);
    switch (command) {
    case Command::Load:
        run.load();
        break;
    case Command::Unload:
        run.unload();
        break;
    case Command::Menu:
        run.menu();
        break;
    }
    return run.told;
}

} // namespace fuzzing
