#include "tests/hurry/listmodel.h"

#include "refhost/core/widetext.h"

#include <algorithm>
#include <sys/stat.h>
#include <utility>

namespace hurry {

namespace {

std::wstring inCapitals(const std::wstring& text)
{
    return quelhost::toWide(quelhost::toQString(text).toUpper());
}

bool contains(const std::vector<std::wstring>& all, const std::wstring& one)
{
    return std::find(all.begin(), all.end(), one) != all.end();
}

} // namespace

std::wstring identityOf(const std::wstring& path)
{
    const std::wstring name = path.substr(path.rfind(L'/') + 1);
    return inCapitals(name.substr(0, name.find(L'.')));
}

std::vector<std::wstring> partsOf(const std::wstring& text)
{
    std::vector<std::wstring> parts(1);
    for (const wchar_t character : text) {
        if (character == L';')
            parts.emplace_back();
        else
            parts.back() += character;
    }
    return parts;
}

ListModel::ListModel(std::wstring text, std::wstring folder, GroupOf groupOf)
    : m_text(std::move(text))
    , m_folder(std::move(folder))
    , m_groupOf(std::move(groupOf))
{
    refresh();
}

std::wstring ListModel::absolute(const std::wstring& path) const
{
    return path.front() == L'/' ? path : m_folder + L'/' + path;
}

bool ListModel::exists(const std::wstring& path) const
{
    struct stat about = {};
    return !path.empty() && ::stat(quelhost::toUtf8(absolute(path)).c_str(), &about) == 0;
}

bool ListModel::isCustomizationFile(const std::wstring& path) const
{
    return exists(path) && path.size() >= 4 && inCapitals(path.substr(path.size() - 4)) == L"CUIX";
}

std::vector<std::wstring> ListModel::entries() const
{
    return partsOf(m_text);
}

ListModel::Outcome ListModel::load(const std::wstring& path)
{
    if (!isCustomizationFile(path))
        return Outcome::NoFile;
    for (const std::wstring& entry : entries()) {
        if (exists(entry) && identityOf(entry) == identityOf(path))
            return Outcome::Refused;
    }
    m_text += L';' + path;
    refresh();
    if (!isShown(path))
        show(path, !contains(entries(), path));
    return Outcome::Done;
}

ListModel::Outcome ListModel::unload(const std::wstring& path)
{
    if (!isCustomizationFile(path))
        return Outcome::NoFile;
    const std::vector<std::wstring> all = entries();
    if (exists(all.front()) && identityOf(all.front()) == identityOf(path))
        return Outcome::Refused;
    std::vector<std::wstring> kept;
    bool isFound = false;
    for (const std::wstring& entry : all) {
        if (!exists(entry))
            continue;
        if (identityOf(entry) == identityOf(path))
            isFound = true;
        else
            kept.push_back(entry);
    }
    if (!isFound)
        return Outcome::Nothing;
    m_text.clear();
    for (const std::wstring& entry : kept)
        m_text += (&entry == &kept.front() ? L"" : L";") + entry;
    refresh();
    return Outcome::Done;
}

void ListModel::follow(std::wstring text)
{
    m_text = std::move(text);
    refresh();
}

std::vector<std::wstring> ListModel::notShown() const
{
    std::vector<std::wstring> others;
    for (const std::wstring& entry : entries()) {
        if (!entry.empty() && !isShown(entry))
            others.push_back(entry);
    }
    return others;
}

bool ListModel::isShown(const std::wstring& path) const
{
    return std::any_of(m_shown.begin(), m_shown.end(),
                       [&path](const Shown& shown) { return shown.path == path; });
}

// The first file with a group's name keeps it.
void ListModel::show(const std::wstring& path, bool unlisted)
{
    const std::optional<std::wstring> group = m_groupOf(absolute(path));
    if (!group)
        return;
    const bool isTaken = std::any_of(m_shown.begin(), m_shown.end(), [&group](const Shown& shown) {
        return shown.group == *group;
    });
    if (!isTaken)
        m_shown.push_back({path, *group, unlisted});
}

void ListModel::refresh()
{
    const std::vector<std::wstring> listed = entries();
    std::vector<Shown> others;
    std::vector<Shown> sorted;
    for (Shown& shown : std::exchange(m_shown, {})) {
        if (contains(listed, shown.path))
            sorted.push_back({shown.path, shown.group, false});
        else if (shown.unlisted)
            others.push_back(shown);
    }
    m_shown = others;
    m_shown.insert(m_shown.end(), sorted.begin(), sorted.end());
    for (const std::wstring& entry : listed) {
        if (!entry.empty() && !isShown(entry))
            show(entry, false);
    }
    std::stable_sort(m_shown.begin(), m_shown.end(), [&](const Shown& left, const Shown& right) {
        return std::find(listed.begin(), listed.end(), left.path) <
               std::find(listed.begin(), listed.end(), right.path);
    });
}

} // namespace hurry
