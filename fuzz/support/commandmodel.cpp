#include "fuzz/support/commandmodel.h"

#include "fuzz/support/menufilemodel.h"

#include <QFile>
#include <QString>

#include <sys/stat.h>

#include <algorithm>

namespace fuzzing {

namespace {

constexpr int kNormal = 5100;
constexpr int kStopped = 0;
constexpr int kError = -5001;
constexpr int kCancelled = -5002;

constexpr std::uint32_t kLastCharacter = 0x10FFFF;

// Character by character: nothing in front is taken for a mark of the encoding.
QString plain(const std::wstring& text)
{
    QString result;
    for (const wchar_t character : text) {
        const auto code = static_cast<std::uint32_t>(character);
        if (code > 0xFFFF)
            result += QString(QChar(QChar::highSurrogate(code))) + QChar(QChar::lowSurrogate(code));
        else
            result += QChar(static_cast<ushort>(code));
    }
    return result;
}

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

bool isCustomizationFile(const std::wstring& path)
{
    return exists(path) && plain(path).right(4).toUpper() == QStringLiteral("CUIX");
}

// By what a file is known among the loaded ones.
QString identity(const std::wstring& path)
{
    const std::size_t slash = path.rfind(L'/');
    const std::wstring name = slash == path.npos ? path : path.substr(slash + 1);
    return plain(name.substr(0, name.find(L'.'))).toUpper();
}

bool isSameFile(const std::wstring& entry, const std::wstring& path)
{
    return exists(entry) && identity(entry) == identity(path);
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
        if (!isCustomizationFile(answer.text)) {
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
        for (const std::wstring& entry : partsOf(*m_world.list)) {
            if (isSameFile(entry, path)) {
                told.boxes.push_back(
                    m_world.hasTexts ? messageOf(L"\"%s\" is already loaded.", path) : L"");
                return kStopped;
            }
        }
        write(*m_world.list + L";" + path);
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
        if (!isCustomizationFile(path)) {
            if (m_world.hasTexts)
                print(messageOf(L"\"%s\" cannot be unloaded.", path));
            return kNormal;
        }
        if (!m_world.hasStore)
            return kStopped;
        if (!m_world.reads || !m_world.list)
            return kNormal;
        const std::vector<std::wstring> entries = partsOf(*m_world.list);
        const auto wanted = [&](const std::wstring& entry) { return isSameFile(entry, path); };
        const auto found = std::find_if(entries.begin(), entries.end(), wanted);
        if (found == entries.begin())
            return kStopped;
        if (found == entries.end())
            return kNormal;
        std::wstring kept;
        bool isFirst = true;
        for (const std::wstring& entry : entries) {
            if (wanted(entry) || !exists(entry))
                continue;
            kept += isFirst ? entry : L";" + entry;
            isFirst = false;
        }
        write(kept);
        told.refreshes += m_world.hasManager ? 1 : 0;
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
