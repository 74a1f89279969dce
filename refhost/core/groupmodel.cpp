#include "refhost/core/groupmodel.h"

#include "refhost/core/menutext.h"
#include "refhost/core/widetext.h"

#include <QFileInfo>

#include <algorithm>
#include <map>

namespace quelhost {

namespace {

QString counted(const char* id, std::size_t number)
{
    return number == 0 ? QString() : qtTrId(id, static_cast<int>(number));
}

// "Ctrl+K, Ctrl+P stay with SURVEY; F5 ...": one part for each group.
QString keysText(const std::vector<GroupKey>& keys, const char* id)
{
    QStringList groups;
    std::map<QString, QStringList> keysByGroup;
    for (const GroupKey& key : keys) {
        if (!groups.contains(key.group))
            groups << key.group;
        keysByGroup[key.group] << key.keys.toString(QKeySequence::NativeText);
    }
    QString text;
    for (const QString& group : groups) {
        const QStringList& own = keysByGroup[group];
        text += QStringLiteral("; ") +
                qtTrId(id, own.size()).arg(own.join(QStringLiteral(", ")), group);
    }
    return text;
}

std::size_t countOf(const std::vector<GroupKey>& keys, const QString& group)
{
    return static_cast<std::size_t>(std::count_if(
        keys.begin(), keys.end(), [&group](const GroupKey& key) { return key.group == group; }));
}

std::vector<EffectiveToolbar> seenToolbars(const std::vector<ShownGroup>& groups,
                                           const ToolbarChanges& changes)
{
    std::vector<EffectiveToolbar> toolbars = effectiveToolbars(groups, changes);
    const auto isUnseen = [](const EffectiveToolbar& toolbar) {
        return toolbar.deleted || toolbar.hidden;
    };
    toolbars.erase(std::remove_if(toolbars.begin(), toolbars.end(), isUnseen), toolbars.end());
    return toolbars;
}

GroupChange countsOf(const ShownGroup& shown, const KeyAssignment& with,
                     const ToolbarChanges& changes)
{
    const MenuGroup& group = shown.group;
    GroupChange change;
    change.menus = group.menus.size();
    for (const EffectiveToolbar& toolbar : seenToolbars({shown}, changes))
        change.toolbars += toolbar.isOwn() ? 0 : 1;
    change.accelerators = countOf(with.working, group.name);
    return change;
}

// The menus above a command, told as the user finds them.
class MenuWalk
{
public:
    MenuWalk(const QString& command, std::vector<CommandPlace>& places)
        : m_command(command)
        , m_places(places)
    {}

    void visit(const Menu& menu)
    {
        m_ids << menu.id;
        m_texts << plainMenuText(menu.text);
        bool isHere = false;
        for (const MenuItem& item : menu.items)
            isHere |= item.kind == MenuItem::Kind::Command && item.command == m_command;
        if (isHere)
            m_places.push_back(
                {CommandPlace::Kind::Menu, m_ids, m_texts.join(QStringLiteral(" > "))});
        for (const MenuItem& item : menu.items) {
            if (item.kind == MenuItem::Kind::Menu)
                visit(item.menu);
        }
        m_ids.removeLast();
        m_texts.removeLast();
    }

private:
    const QString& m_command;
    std::vector<CommandPlace>& m_places;
    QStringList m_ids;
    QStringList m_texts;
};

} // namespace

QString GroupChange::counts() const
{
    QStringList parts{counted("change-menus", menus), counted("change-toolbars", toolbars),
                      counted("change-accelerators", accelerators)};
    parts.removeAll(QString());
    return parts.isEmpty() ? qtTrId("change-nothing") : parts.join(QStringLiteral(", "));
}

QString loadingText(const GroupChange& change)
{
    return qtTrId("change-adds").arg(change.counts()) +
           keysText(change.keysOfOthers, "change-keys-stay") +
           keysText(change.keysTaken, "change-keys-taken");
}

QString unloadingText(const GroupChange& change)
{
    return qtTrId("change-removes").arg(change.counts()) +
           keysText(change.keysOfOthers, "change-keys-go");
}

GroupModel::GroupModel(const std::vector<GroupKey>& hostKeys, const std::vector<ShownGroup>& groups,
                       UserChanges changes, const QString& mainFile)
    : m_changes(std::move(changes))
    , m_hostKeys(withUserKeys(hostKeys, m_changes.keys))
    , m_groups(withUserKeys(groups, m_changes.keys))
    , m_keys(assignKeys(m_hostKeys, m_groups))
    , m_toolbars(seenToolbars(groups, m_changes.toolbars))
    , m_mainFile(mainFile.isEmpty() && !groups.empty() ? toQString(groups.front().path) : mainFile)
{}

const ShownGroup* GroupModel::find(const QString& group) const
{
    const auto found =
        std::find_if(m_groups.begin(), m_groups.end(),
                     [&group](const ShownGroup& shown) { return shown.group.name == group; });
    return found == m_groups.end() ? nullptr : &*found;
}

GroupChange GroupModel::changeByLoading(const MenuGroup& group) const
{
    const std::vector<ShownGroup> loaded = withUserKeys({{{}, group, false}}, m_changes.keys);
    std::vector<ShownGroup> with = m_groups;
    with.push_back(loaded.front());
    const KeyAssignment after = assignKeys(m_hostKeys, with);
    GroupChange change = countsOf(loaded.front(), after, m_changes.toolbars);
    for (const LostKey& lost : after.lost) {
        const bool isWanted = lost.wanted.group == group.name;
        const bool isKept = lost.kept.group == group.name;
        if (isWanted && !isKept)
            change.keysOfOthers.push_back(lost.kept);
        const auto& working = m_keys.working;
        if (isKept && std::find(working.begin(), working.end(), lost.wanted) != working.end())
            change.keysTaken.push_back(lost.wanted);
    }
    return change;
}

GroupChange GroupModel::changeByUnloading(const QString& group) const
{
    const ShownGroup* const goes = find(group);
    if (goes == nullptr)
        return {};
    std::vector<ShownGroup> without = m_groups;
    without.erase(without.begin() + (goes - m_groups.data()));
    const KeyAssignment after = assignKeys(m_hostKeys, without);
    GroupChange change = countsOf(*goes, m_keys, m_changes.toolbars);
    for (const LostKey& lost : m_keys.lost) {
        const auto& working = after.working;
        if (lost.kept.group == group &&
            std::find(working.begin(), working.end(), lost.wanted) != working.end())
            change.keysOfOthers.push_back(lost.wanted);
    }
    return change;
}

std::vector<CommandPlace> GroupModel::placesOf(const QString& group, const QString& command) const
{
    std::vector<CommandPlace> places;
    const ShownGroup* const shown = find(group);
    if (shown == nullptr)
        return places;
    MenuWalk walk(command, places);
    for (const Menu& menu : shown->group.menus)
        walk.visit(menu);
    for (const EffectiveToolbar& toolbar : m_toolbars) {
        const auto& entries = toolbar.shownEntries;
        if (std::find(entries.begin(), entries.end(), ToolbarEntry{group, command}) !=
            entries.end())
            places.push_back({CommandPlace::Kind::Toolbar,
                              {toolbar.name.group, toolbar.name.id},
                              toolbar.title});
    }
    for (const GroupKey& key : m_keys.working) {
        if (key.group == group && key.command == command)
            places.push_back(
                {CommandPlace::Kind::Key, {}, key.keys.toString(QKeySequence::NativeText)});
    }
    return places;
}

QString loadingPreview(const GroupModel& model, const QString& path, const MenuGroup& group)
{
    const ShownGroup* const same = model.find(group.name);
    if (same == nullptr)
        return loadingText(model.changeByLoading(group));
    const QString other = toQString(same->path);
    return QFileInfo(path).absoluteFilePath() == QFileInfo(other).absoluteFilePath()
               ? qtTrId("change-loaded")
               : qtTrId("change-name-taken").arg(group.name, other);
}

} // namespace quelhost
