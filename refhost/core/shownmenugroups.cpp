#include "refhost/core/shownmenugroups.h"

#include "host/settings.h"
#include "refhost/core/widetext.h"

#include <algorithm>

namespace quelhost {

namespace {

constexpr wchar_t kLoadedKey[] = L"CUIX/LoadedCuix";

std::vector<std::wstring> split(const std::wstring& text)
{
    std::vector<std::wstring> entries;
    std::size_t begin = 0;
    for (std::size_t end = 0; end != text.npos; begin = end + 1) {
        end = text.find(L';', begin);
        entries.push_back(text.substr(begin, end - begin));
    }
    return entries;
}

bool contains(const std::vector<std::wstring>& paths, const std::wstring& path)
{
    return std::find(paths.begin(), paths.end(), path) != paths.end();
}

} // namespace

ShownMenuGroups::ShownMenuGroups(QueldConfig& config, Report report)
    : m_config(config)
    , m_report(std::move(report))
{}

std::vector<std::wstring> ShownMenuGroups::listedPaths() const
{
    QuelVariant value;
    if (m_config.getValue(QueldConfig::kUserProfile, kLoadedKey, value) != 0)
        return {};
    return split(value.stringOrEmpty());
}

std::vector<std::wstring> ShownMenuGroups::notShownPaths() const
{
    std::vector<std::wstring> paths = listedPaths();
    const auto isNone = [this](const std::wstring& path) {
        return path.empty() || find(path) != nullptr;
    };
    paths.erase(std::remove_if(paths.begin(), paths.end(), isNone), paths.end());
    return paths;
}

void ShownMenuGroups::refresh()
{
    const std::vector<std::wstring> listed = listedPaths();
    forgetUnlisted(listed);
    for (const std::wstring& path : listed) {
        if (!path.empty() && find(path) == nullptr)
            show(path, false);
    }
    const auto place = [&listed](const ShownGroup& shown) {
        return std::find(listed.begin(), listed.end(), shown.path);
    };
    std::stable_sort(m_groups.begin(), m_groups.end(),
                     [&place](const ShownGroup& left, const ShownGroup& right) {
                         return place(left) < place(right);
                     });
    tellListener();
}

bool ShownMenuGroups::loadMenuFile(const QuString& path, QuString& group)
{
    const std::wstring file = path.kwszPtr() == nullptr ? L"" : path.kwszPtr();
    if (find(file) == nullptr && !show(file, !contains(listedPaths(), file)))
        return false;
    tellListener();
    group = toWide(find(file)->group.name).c_str();
    return true;
}

const ShownGroup* ShownMenuGroups::find(const std::wstring& path) const
{
    const auto found =
        std::find_if(m_groups.begin(), m_groups.end(),
                     [&path](const ShownGroup& shown) { return shown.path == path; });
    return found == m_groups.end() ? nullptr : &*found;
}

bool ShownMenuGroups::show(const std::wstring& path, bool unlisted)
{
    const PackageReading reading = m_reader(toQString(path));
    if (!reading) {
        complain(path, reading.faults());
        return false;
    }
    const QString name = reading.group().name;
    const auto same =
        std::find_if(m_groups.begin(), m_groups.end(),
                     [&name](const ShownGroup& shown) { return shown.group.name == name; });
    if (same != m_groups.end()) {
        const QString sentence =
            qtTrId("groups-name-taken").arg(toQString(path), name, toQString(same->path));
        complain(path, {Fault{FaultKind::BadInput, sentence, {}, 0, 0}});
        return false;
    }
    m_groups.push_back({path, reading.group(), unlisted});
    return true;
}

void ShownMenuGroups::complain(const std::wstring& path, const std::vector<Fault>& faults)
{
    if (!m_complained.insert(path).second)
        return;
    for (const Fault& fault : faults)
        m_report(fault);
}

void ShownMenuGroups::tellListener() const
{
    if (m_changed)
        m_changed();
}

// Drops what the list no longer names, groups and complaints alike.
void ShownMenuGroups::forgetUnlisted(const std::vector<std::wstring>& listed)
{
    for (ShownGroup& shown : m_groups)
        shown.unlisted = shown.unlisted && !contains(listed, shown.path);
    const auto gone = [&listed](const ShownGroup& shown) {
        return !shown.unlisted && !contains(listed, shown.path);
    };
    m_groups.erase(std::remove_if(m_groups.begin(), m_groups.end(), gone), m_groups.end());
    for (auto each = m_complained.begin(); each != m_complained.end();)
        each = contains(listed, *each) ? std::next(each) : m_complained.erase(each);
}

} // namespace quelhost
