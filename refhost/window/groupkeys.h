// The keys of the loaded menu groups.
#pragma once

#include "refhost/core/keyassignment.h"
#include "refhost/core/macro.h"

#include <QObject>
#include <QStringList>

#include <memory>
#include <vector>

class QWidget;

namespace quelhost {

class MacroAction;

// Makes the accelerators of the groups work in a window.
class GroupKeys final : public QObject
{
    Q_OBJECT

public:
    // REQUIRES: the window outlives this object.
    explicit GroupKeys(QWidget& window);
    ~GroupKeys() override;

    // Returns what is to be told: a sentence for each key that a command has lost since the last
    // time.
    [[nodiscard]] QStringList show(const std::vector<ShownGroup>& groups);
    // As MacroAction tells.
    void setCommandAsking(bool asking);

signals:
    void chosen(const std::vector<quelhost::MacroStep>& macro);

private:
    QWidget& m_window;
    std::vector<std::unique_ptr<MacroAction>> m_actions;
    std::vector<GroupKey> m_lost; // told already
    bool m_asking = false;
};

} // namespace quelhost
