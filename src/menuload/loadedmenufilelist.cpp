#include "menuload/loadedmenufilelist.h"

#include "settings/settingskeys.h"

#include <QFile>
#include <QFileInfo>
#include <QString>

#include <algorithm>
#include <string_view>
#include <utility>

namespace {

constexpr wchar_t kSeparator = L';';
constexpr int kExtensionLength = 4;

// Whether each character is one and the same unit in wide texts and in Qt's: none is beyond 15
// bits.
bool isPlain(std::wstring_view text)
{
    constexpr wchar_t plainBits = 0x7FFF;
    wchar_t bits = 0;
    for (const wchar_t character : text)
        bits |= character;
    return (bits & ~plainBits) == 0;
}

// Qt's conversion takes U+FEFF in front for a mark of the byte order and drops it, and its four
// bytes in reverse for one that turns all that follows around. Here both belong to the name:
// without them another file would be meant. So they never stand in front.
QString convertedByQt(std::wstring_view text)
{
    std::wstring behindSlash(1, L'/');
    behindSlash += text;
    return QString::fromWCharArray(behindSlash.data(), static_cast<int>(behindSlash.size())).mid(1);
}

// Lists are long and their paths plain, and Qt's conversion takes its time for each character.
QString toQString(std::wstring_view text)
{
    if (!isPlain(text))
        return convertedByQt(text);
    QString result(static_cast<int>(text.size()), Qt::Uninitialized);
    std::transform(text.begin(), text.end(), result.begin(),
                   [](wchar_t character) { return QChar(static_cast<ushort>(character)); });
    return result;
}

QString qtBaseName(std::wstring_view path)
{
    return QFileInfo(toQString(path)).baseName();
}

std::wstring_view fileName(std::wstring_view path)
{
    const std::size_t slash = path.rfind(L'/');
    return slash == path.npos ? path : path.substr(slash + 1);
}

// As Qt has it, which knows more kinds of paths than absolute ones and replaces what is no
// character.
std::wstring baseName(std::wstring_view path)
{
    if (path.empty() || path.front() != L'/' || !isPlain(path))
        return qtBaseName(path).toStdWString();
    const std::wstring_view name = fileName(path);
    return std::wstring(name.substr(0, name.find(L'.')));
}

QString identity(std::wstring_view path)
{
    return qtBaseName(path).toUpper();
}

bool exists(std::wstring_view path)
{
    return QFile::exists(toQString(path));
}

// Calls `take` with each entry in turn, empty ones included, until it returns true; returns whether
// it did. A text without a separator is one entry.
template<typename Take>
bool findEntry(std::wstring_view text, const Take& take)
{
    for (std::size_t begin = 0; begin <= text.size();) {
        const std::size_t end = std::min(text.find(kSeparator, begin), text.size());
        if (take(text.substr(begin, end - begin)))
            return true;
        begin = end + 1;
    }
    return false;
}

bool isAscii(wchar_t character)
{
    return character >= 0 && character < 0x80;
}

wchar_t upperAscii(wchar_t character)
{
    return character >= L'a' && character <= L'z' ? character - L'a' + L'A' : character;
}

// Whether the base name of `path` surely differs from `identity`. An ASCII character has one ASCII
// capital, so the first difference among them decides; any other character may become several
// letters or none of its own and is left to the full comparison.
bool surelyDiffers(std::wstring_view path, const std::wstring& identity)
{
    const std::wstring_view name = fileName(path);
    std::size_t at = 0;
    for (; at < name.size() && name[at] != L'.'; ++at) {
        if (!isAscii(name[at]))
            return false;
        if (at >= identity.size() || upperAscii(name[at]) != identity[at])
            return true;
    }
    return at != identity.size();
}

// Whether an entry's file exists and has the base name of a path. Names are compared before the
// file system is asked: it is asked only about names that match.
class NameMatch
{
public:
    explicit NameMatch(const std::wstring& path)
        : m_wanted(identity(path))
        , m_wantedWide(m_wanted.toStdWString())
    {}

    bool operator()(std::wstring_view entry) const
    {
        return !surelyDiffers(entry, m_wantedWide) && hasWantedIdentity(entry) && exists(entry);
    }

private:
    bool hasWantedIdentity(std::wstring_view entry) const { return identity(entry) == m_wanted; }

    const QString m_wanted;
    const std::wstring m_wantedWide;
};

} // namespace

std::optional<LoadedMenuFileList> LoadedMenuFileList::read(QueldConfig& store)
{
    QuelVariant value;
    if (store.getValue(kSettingsPath, SettingsKey::kLoadedMenuFiles, value) != 0)
        return std::nullopt;
    return LoadedMenuFileList(value.stringOrEmpty());
}

bool LoadedMenuFileList::isLoaded(const std::wstring& path) const
{
    const NameMatch matches(path);
    return findEntry(m_text, [&](std::wstring_view entry) { return matches(entry); });
}

std::vector<std::wstring> LoadedMenuFileList::shownNames() const
{
    std::vector<std::wstring> names;
    findEntry(m_text, [&](std::wstring_view entry) {
        if (exists(entry))
            names.push_back(baseName(entry));
        return false;
    });
    return names;
}

// Removes the entries of which `isUnwanted` is true and returns how many there were.
template<typename Test>
int LoadedMenuFileList::removeIf(const Test& isUnwanted)
{
    int removed = 0;
    std::wstring kept;
    bool first = true;
    findEntry(m_text, [&](std::wstring_view entry) {
        if (isUnwanted(entry)) {
            ++removed;
            return false;
        }
        if (!std::exchange(first, false))
            kept += kSeparator;
        kept += entry;
        return false;
    });
    if (removed > 0)
        m_text = std::move(kept);
    return removed;
}

int LoadedMenuFileList::removeNamed(const std::wstring& name)
{
    return removeIf([&name](std::wstring_view entry) { return baseName(entry) == name; });
}

LoadedMenuFileList::Found LoadedMenuFileList::unload(const std::wstring& path)
{
    const NameMatch matches(path);
    std::size_t index = 0;
    Found found = Found::Nothing;
    findEntry(m_text, [&](std::wstring_view entry) {
        if (matches(entry))
            found = index == 0 ? Found::MainFile : Found::Removed;
        ++index;
        return found != Found::Nothing;
    });
    if (found == Found::Removed)
        removeIf([&matches](std::wstring_view entry) { return matches(entry) || !exists(entry); });
    return found;
}

void LoadedMenuFileList::append(const std::wstring& path)
{
    m_text += kSeparator;
    m_text += path;
}

void LoadedMenuFileList::write(QueldConfig& store) const
{
    write(store, value());
}

QuelVariant LoadedMenuFileList::value() const
{
    QuelVariant value;
    value.setString(m_text.c_str(), QuelVariant::kString);
    return value;
}

void LoadedMenuFileList::write(QueldConfig& store, const QuelVariant& value)
{
    store.setValue(kSettingsPath, SettingsKey::kLoadedMenuFiles, value);
}

bool isCustomizationFile(const std::wstring& path)
{
    const QString name = toQString(path);
    if (!QFile::exists(name))
        return false;
    return name.right(kExtensionLength).toUpper() == QLatin1String("CUIX");
}
