#include "refhost/core/toolbaredits.h"

#include "refhost/core/menutext.h"
#include "refhost/core/usercustomization.h"

#include <algorithm>

namespace quelhost {

namespace {

bool isSameTitle(const QString& left, const QString& right)
{
    return left.compare(right, Qt::CaseInsensitive) == 0;
}

} // namespace

ToolbarEdits::ToolbarEdits(std::vector<ShownGroup> groups, ToolbarChanges changes)
    : m_groups(std::move(groups))
    , m_steps{{std::move(changes), {}, {}}}
{
    show({});
}

bool ToolbarEdits::isLoaded(const QString& group) const
{
    return std::any_of(m_groups.begin(), m_groups.end(),
                       [&group](const ShownGroup& shown) { return shown.group.name == group; });
}

const EffectiveToolbar* ToolbarEdits::find(const GroupEntry& toolbar) const
{
    const auto found =
        std::find_if(m_toolbars.begin(), m_toolbars.end(),
                     [&toolbar](const EffectiveToolbar& each) { return each.name == toolbar; });
    return found == m_toolbars.end() ? nullptr : &*found;
}

bool ToolbarEdits::isEditable(const GroupEntry& toolbar) const
{
    const EffectiveToolbar* const found = find(toolbar);
    return found != nullptr && !found->deleted;
}

bool ToolbarEdits::isResettable(const GroupEntry& toolbar) const
{
    const EffectiveToolbar* const found = find(toolbar);
    return found != nullptr && !found->isOwn() && found->changed;
}

const Toolbar* ToolbarEdits::packageToolbar(const GroupEntry& toolbar) const
{
    for (const ShownGroup& shown : m_groups) {
        if (shown.group.name != toolbar.group)
            continue;
        for (const Toolbar& each : shown.group.toolbars) {
            if (each.id == toolbar.id)
                return &each;
        }
    }
    return nullptr;
}

QString ToolbarEdits::freeTitle(const QString& title, const GroupEntry& toolbar) const
{
    const Toolbar* const ofPackage = packageToolbar(toolbar);
    const auto isFree = [&](const QString& text) {
        if (ofPackage != nullptr && text == plainMenuText(ofPackage->text))
            return true; // as the package has it, whoever else has it too
        return std::none_of(
            m_toolbars.begin(), m_toolbars.end(), [&](const EffectiveToolbar& each) {
                return each.name != toolbar && !each.deleted && isSameTitle(each.title, text);
            });
    };
    const QString wanted = title.simplified();
    QString text = wanted;
    for (int number = 2; !isFree(text); ++number)
        text = QStringLiteral("%1 %2").arg(wanted, QString::number(number));
    return text;
}

GroupEntry ToolbarEdits::create(const QString& title)
{
    ToolbarChanges changes = result();
    const GroupEntry name = newOwnToolbar(changes);
    ToolbarChange& own = changes[name];
    own.title = freeTitle(title);
    own.entries.emplace();
    put(std::move(changes), m_spot, {name, -1});
    return name;
}

bool ToolbarEdits::rename(const GroupEntry& toolbar, const QString& title)
{
    const QString given = title.simplified();
    return !given.isEmpty() && edit(toolbar, -1, -1, [&](EffectiveToolbar& edited) {
        edited.title = freeTitle(given, toolbar);
    });
}

bool ToolbarEdits::remove(const GroupEntry& toolbar)
{
    if (!isEditable(toolbar))
        return false;
    ToolbarChanges changes = result();
    changes.erase(toolbar);
    if (!toolbar.group.isEmpty())
        changes[toolbar].deleted = true;
    return put(std::move(changes), {toolbar, -1}, {toolbar, -1});
}

bool ToolbarEdits::setHidden(const GroupEntry& toolbar, bool hidden)
{
    return edit(toolbar, -1, -1, [hidden](EffectiveToolbar& edited) { edited.hidden = hidden; });
}

bool ToolbarEdits::reset(const GroupEntry& toolbar)
{
    if (!isResettable(toolbar))
        return false;
    ToolbarChanges changes = result();
    changes.erase(toolbar);
    return put(std::move(changes), {toolbar, -1}, {toolbar, -1});
}

bool ToolbarEdits::resetAll()
{
    ToolbarChanges changes = result();
    for (auto each = changes.begin(); each != changes.end();)
        each = isLoaded(each->first.group) ? changes.erase(each) : std::next(each);
    return put(std::move(changes), m_spot, m_spot);
}

bool ToolbarEdits::insert(const GroupEntry& toolbar, int place, const ToolbarEntry& entry)
{
    const EffectiveToolbar* const found = find(toolbar);
    if (found == nullptr)
        return false;
    const int to = std::clamp(place, 0, static_cast<int>(found->entries.size()));
    return edit(toolbar, to, to, [&](EffectiveToolbar& edited) {
        edited.entries.insert(edited.entries.begin() + to, entry);
    });
}

bool ToolbarEdits::take(const GroupEntry& toolbar, int place)
{
    const EffectiveToolbar* const found = find(toolbar);
    if (found == nullptr || place < 0 || place >= static_cast<int>(found->entries.size()))
        return false;
    return edit(toolbar, place, place, [place](EffectiveToolbar& edited) {
        edited.entries.erase(edited.entries.begin() + place);
    });
}

bool ToolbarEdits::move(const GroupEntry& toolbar, int from, int to)
{
    const EffectiveToolbar* const found = find(toolbar);
    const auto isPlace = [found](int place) {
        return place >= 0 && place < static_cast<int>(found->entries.size());
    };
    if (found == nullptr || !isPlace(from) || !isPlace(to))
        return false;
    return edit(toolbar, from, to, [from, to](EffectiveToolbar& edited) {
        const auto begin = edited.entries.begin();
        if (from < to)
            std::rotate(begin + from, begin + from + 1, begin + to + 1);
        else
            std::rotate(begin + to, begin + from, begin + from + 1);
    });
}

// Works on a toolbar that can be worked on; what is the package's again is no change.
bool ToolbarEdits::edit(const GroupEntry& toolbar, int before, int after, const Change& change)
{
    if (!isEditable(toolbar))
        return false;
    EffectiveToolbar edited = *find(toolbar);
    change(edited);
    const Toolbar* const ofPackage = packageToolbar(toolbar);
    ToolbarChange noted;
    if (ofPackage != nullptr) {
        noted = changeOf(toolbar.group, *ofPackage, edited.title, edited.entries);
    } else {
        noted.title = edited.title;
        noted.entries = edited.entries;
    }
    noted.hidden = edited.hidden;
    ToolbarChanges changes = result();
    changes.insert_or_assign(toolbar, noted);
    if (noted.isNone())
        changes.erase(toolbar);
    return put(std::move(changes), {toolbar, before}, {toolbar, after});
}

bool ToolbarEdits::put(ToolbarChanges changes, const Spot& before, const Spot& after)
{
    if (changes == result())
        return false;
    m_steps.resize(m_now + 1);
    m_steps.push_back({std::move(changes), before, after});
    ++m_now;
    show(after);
    return true;
}

void ToolbarEdits::undo()
{
    const Spot spot = m_steps[m_now].before;
    --m_now;
    show(spot);
}

void ToolbarEdits::redo()
{
    ++m_now;
    show(m_steps[m_now].after);
}

void ToolbarEdits::show(const Spot& spot)
{
    m_spot = spot;
    m_toolbars = effectiveToolbars(m_groups, result());
}

} // namespace quelhost
