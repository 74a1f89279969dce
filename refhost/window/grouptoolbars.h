// The toolbars of the loaded menu groups.
#pragma once

#include "refhost/core/macro.h"
#include "refhost/window/groupobjects.h"

#include <QMainWindow>
#include <QToolBar>

#include <vector>

namespace quelhost {

// Keeps the window's toolbars as the groups stand: a group that stays keeps its toolbars where the
// user put them, one that goes takes all of its objects with it.
class GroupToolbars final : public QObject
{
    Q_OBJECT

public:
    // REQUIRES: the window outlives this object and has no other toolbars.
    explicit GroupToolbars(QMainWindow& window);
    ~GroupToolbars() override;

    void show(const std::vector<ShownGroup>& groups);
    // As MacroAction tells.
    void setCommandAsking(bool asking);

signals:
    void chosen(const std::vector<quelhost::MacroStep>& macro);

private:
    [[nodiscard]] GroupObjects<QToolBar>::Objects makeToolbars(const ShownGroup& shown);
    void fill(QToolBar& toolbar, const Toolbar& described, const MenuGroup& group);

    QMainWindow& m_window;
    GroupObjects<QToolBar> m_toolbars;
    bool m_asking = false;
};

} // namespace quelhost
