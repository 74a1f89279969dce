#include "tests/hurry/listmodel.h"

#include "refhost/core/widetext.h"

#include <algorithm>
#include <sys/stat.h>
#include <utility>

namespace hurry {

using listrules::Outcome;

namespace {

bool contains(const std::vector<std::wstring>& all, const std::wstring& one)
{
    return std::find(all.begin(), all.end(), one) != all.end();
}

} // namespace

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

listrules::Exists ListModel::here() const
{
    return [this](const std::wstring& path) { return exists(path); };
}

std::vector<std::wstring> ListModel::entries() const
{
    return listrules::partsOf(m_text);
}

Outcome ListModel::load(const std::wstring& path)
{
    const Outcome outcome = listrules::load(m_text, path, here());
    if (outcome == Outcome::Done) {
        refresh();
        if (!isShown(path))
            show(path, !contains(entries(), path));
    }
    return outcome;
}

Outcome ListModel::unload(const std::wstring& path)
{
    const Outcome outcome = listrules::unload(m_text, path, here());
    if (outcome == Outcome::Done)
        refresh();
    return outcome;
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
