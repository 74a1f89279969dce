#include "refhost/core/customizationtables.h"

#include "refhost/core/effectivecustomization.h"
#include "refhost/core/hostlistings.h"
#include "refhost/core/packagefaults.h"

#include <algorithm>

namespace quelhost {

namespace {

// By the first column, in any case, then by all of them.
void sortRows(std::vector<QStringList>& rows)
{
    std::sort(rows.begin(), rows.end(), [](const QStringList& left, const QStringList& right) {
        const int order = left.first().compare(right.first(), Qt::CaseInsensitive);
        return order == 0 ? left < right : order < 0;
    });
}

QStringList table(std::vector<QStringList> rows, const QStringList& heading, const QString& noRows)
{
    if (rows.empty())
        return {noRows};
    sortRows(rows);
    rows.insert(rows.begin(), heading);
    return tableRows(rows);
}

QString yesOrNo(bool changed)
{
    return changed ? qtTrId("customize-yes") : qtTrId("customize-no");
}

QString orNone(const QString& text)
{
    return text.isEmpty() ? qtTrId("customize-none") : text;
}

// Commands of the toolbar's own group by their id, others with their group.
QString entriesText(const EffectiveToolbar& toolbar)
{
    QStringList entries;
    for (const ToolbarEntry& entry : toolbar.shownEntries) {
        if (isSeparator(entry))
            entries << QStringLiteral("|");
        else
            entries << (entry.group == toolbar.name.group
                            ? entry.id
                            : entry.group + QLatin1Char('/') + entry.id);
    }
    return orNone(entries.join(QLatin1Char(' ')));
}

QString stateText(const EffectiveToolbar& toolbar)
{
    if (toolbar.deleted)
        return qtTrId("customize-deleted");
    return toolbar.hidden ? qtTrId("customize-hidden") : yesOrNo(toolbar.changed);
}

} // namespace

QStringList acceleratorRows(const std::vector<ShownGroup>& groups, const KeyChanges& changes)
{
    std::vector<QStringList> rows;
    for (const CommandKeys& each : commandKeys(groups, changes)) {
        if (each.keys.isEmpty() && !each.isChanged())
            continue;
        const QString keys = QKeySequence::listToString(each.keys, QKeySequence::NativeText);
        rows.push_back(
            {each.command.id, orNone(keys), each.command.group, yesOrNo(each.isChanged())});
    }
    return table(std::move(rows),
                 {qtTrId("customize-command"), qtTrId("customize-key"), qtTrId("customize-group"),
                  qtTrId("customize-changed")},
                 qtTrId("customize-no-keys"));
}

QStringList toolbarRows(const std::vector<ShownGroup>& groups, const ToolbarChanges& changes)
{
    std::vector<QStringList> rows;
    for (const EffectiveToolbar& toolbar : effectiveToolbars(groups, changes))
        rows.push_back({shownText(toolbar.title),
                        toolbar.isOwn() ? qtTrId("customize-own") : toolbar.name.group,
                        entriesText(toolbar), stateText(toolbar)});
    return table(std::move(rows),
                 {qtTrId("customize-title"), qtTrId("customize-group"),
                  qtTrId("customize-commands"), qtTrId("customize-changed")},
                 qtTrId("customize-no-toolbars"));
}

} // namespace quelhost
