#include "refhost/window/toolbarplaces.h"

#include <QLayout>
#include <QToolBar>

#include <algorithm>

namespace quelhost {

namespace {

struct AreaName
{
    Qt::ToolBarArea area;
    const char* name;
};

constexpr AreaName kAreas[] = {{Qt::TopToolBarArea, "top"},
                               {Qt::BottomToolBarArea, "bottom"},
                               {Qt::LeftToolBarArea, "left"},
                               {Qt::RightToolBarArea, "right"}};
constexpr char kHidden[] = "hidden";

bool holds(const std::vector<QString>& row, const QString& name)
{
    return std::find(row.begin(), row.end(), name) != row.end();
}

} // namespace

void ToolbarPlaces::note()
{
    QHash<int, Rows> now = presentRows();
    for (auto area = m_rows.cbegin(); area != m_rows.cend(); ++area)
        keepAbsent(area.value(), now[area.key()]);
    m_rows = now;
    for (const auto* const toolbar :
         m_window.findChildren<QToolBar*>(QString(), Qt::FindDirectChildrenOnly))
        m_hidden[toolbar->objectName()] =
            toolbar->isHidden() && toolbar->testAttribute(Qt::WA_WState_ExplicitShowHide);
}

// The window's layout lists toolbars by area, row and place, hidden ones too. It cannot count.
QHash<int, ToolbarPlaces::Rows> ToolbarPlaces::presentRows() const
{
    QHash<int, Rows> rows;
    const QLayout& layout = *m_window.layout();
    for (int i = 0; QLayoutItem* const item = layout.itemAt(i); ++i) {
        auto* const toolbar = qobject_cast<QToolBar*>(item->widget());
        if (toolbar == nullptr)
            continue;
        Rows& area = rows[m_window.toolBarArea(toolbar)];
        if (area.empty() || m_window.toolBarBreak(toolbar))
            area.emplace_back();
        area.back().push_back(toolbar->objectName());
    }
    return rows;
}

// A toolbar that is away stays behind the one that it followed, or before the one that followed it.
void ToolbarPlaces::keepAbsent(const Rows& before, Rows& now) const
{
    std::size_t next = 0; // the row of `now` that a row of its own goes before
    for (const Row& row : before) {
        Row* found = nullptr;
        for (std::size_t i = 0; i < now.size() && found == nullptr; ++i) {
            const bool shares = std::any_of(row.begin(), row.end(), [&](const QString& name) {
                return present(name) != nullptr && holds(now[i], name);
            });
            if (shares) {
                found = &now[i];
                next = i + 1;
            }
        }
        Row absent;
        for (const QString& name : row) {
            if (present(name) == nullptr)
                absent.push_back(name);
        }
        if (absent.empty())
            continue;
        if (found == nullptr) {
            now.insert(now.begin() + static_cast<std::ptrdiff_t>(next++), absent);
            continue;
        }
        auto place = found->begin();
        for (const QString& name : row) {
            const auto stands = std::find(found->begin(), found->end(), name);
            place = stands != found->end() ? stands + 1 : found->insert(place, name) + 1;
        }
    }
}

bool ToolbarPlaces::find(const QString& name, Spot& spot) const
{
    for (auto area = m_rows.cbegin(); area != m_rows.cend(); ++area) {
        const Rows& rows = area.value();
        for (std::size_t row = 0; row < rows.size(); ++row) {
            const auto place = std::find(rows[row].begin(), rows[row].end(), name);
            if (place != rows[row].end()) {
                spot = {static_cast<Qt::ToolBarArea>(area.key()), row,
                        static_cast<std::size_t>(place - rows[row].begin())};
                return true;
            }
        }
    }
    return false;
}

// One that belongs to the window but has no place in it yet is not present.
QToolBar* ToolbarPlaces::present(const QString& name) const
{
    auto* const toolbar = m_window.findChild<QToolBar*>(name, Qt::FindDirectChildrenOnly);
    return toolbar != nullptr && m_window.toolBarArea(toolbar) != Qt::NoToolBarArea ? toolbar
                                                                                    : nullptr;
}

QToolBar* ToolbarPlaces::firstPresent(const Row& row, std::size_t from) const
{
    for (; from < row.size(); ++from) {
        if (QToolBar* const toolbar = present(row[from]))
            return toolbar;
    }
    return nullptr;
}

void ToolbarPlaces::add(QToolBar& toolbar, bool inNewRow)
{
    Spot spot;
    if (find(toolbar.objectName(), spot)) {
        insert(toolbar, spot);
    } else {
        m_window.addToolBar(&toolbar);
        if (inNewRow)
            m_window.insertToolBarBreak(&toolbar);
    }
    if (m_hidden.value(toolbar.objectName()))
        toolbar.hide();
}

void ToolbarPlaces::forget(const QString& name)
{
    unhide(name);
    for (Rows& rows : m_rows) {
        for (Row& row : rows)
            row.erase(std::remove(row.begin(), row.end(), name), row.end());
        rows.erase(std::remove(rows.begin(), rows.end(), Row()), rows.end());
    }
}

// The window can put a toolbar before another one only, and begin and end rows.
void ToolbarPlaces::insert(QToolBar& toolbar, const Spot& spot)
{
    const Rows& rows = m_rows[spot.area];
    const Row& row = rows[spot.row];
    if (QToolBar* const behind = firstPresent(row, spot.place + 1)) {
        m_window.insertToolBar(behind, &toolbar);
        return;
    }
    const bool opensRow = firstPresent(row, 0) == nullptr;
    QToolBar* nextRow = nullptr;
    for (std::size_t i = spot.row + 1; i < rows.size() && nextRow == nullptr; ++i)
        nextRow = firstPresent(rows[i], 0);
    if (nextRow == nullptr) {
        m_window.addToolBar(spot.area, &toolbar);
        if (opensRow)
            m_window.insertToolBarBreak(&toolbar);
        return;
    }
    m_window.insertToolBar(nextRow, &toolbar);
    m_window.insertToolBarBreak(nextRow);
    if (!opensRow)
        m_window.removeToolBarBreak(&toolbar);
}

QVariantMap ToolbarPlaces::toValues() const
{
    QVariantMap values;
    for (const AreaName& area : kAreas) {
        QVariantList rows;
        for (const Row& row : m_rows.value(area.area))
            rows << QVariant(QStringList(row.begin(), row.end()));
        values.insert(QLatin1String(area.name), rows);
    }
    QStringList hidden;
    for (auto each = m_hidden.cbegin(); each != m_hidden.cend(); ++each) {
        if (each.value())
            hidden << each.key();
    }
    hidden.sort();
    values.insert(QLatin1String(kHidden), hidden);
    return values;
}

void ToolbarPlaces::fromValues(const QVariantMap& values)
{
    m_rows.clear();
    m_hidden.clear();
    for (const AreaName& area : kAreas) {
        const QVariantList rows = values.value(QLatin1String(area.name)).toList();
        for (const QVariant& row : rows) {
            const QStringList names = row.toStringList();
            if (!names.isEmpty())
                m_rows[area.area].emplace_back(names.begin(), names.end());
        }
    }
    for (const QString& name : values.value(QLatin1String(kHidden)).toStringList())
        m_hidden.insert(name, true);
}

} // namespace quelhost
