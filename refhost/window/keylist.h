// Commands with their keys, to be searched and changed.
#pragma once

#include "refhost/window/editedkeys.h"

#include <QWidget>

#include <optional>
#include <vector>

class KActionCollection;
class KKeySequenceWidget;
class KShortcutsEditor;
class QAction;
class QLineEdit;
class QTreeWidget;
class QTreeWidgetItem;

namespace quelhost {

// The library's editor of keys over actions of its own: nothing that the user does there reaches
// the actions of a window. A key that another command has is given away only after a question that
// names that command.
class KeyList final : public QWidget
{
    Q_OBJECT

public:
    explicit KeyList(QWidget* parent = nullptr);
    ~KeyList() override;

    // Shows these commands and no others; the current one stays.
    // REQUIRES: different titles.
    void showGroups(const std::vector<EditedGroup>& groups);

    // The keys of each command as they are now, in the order in which they were shown.
    [[nodiscard]] std::vector<Keys> keys() const;
    // The command on whose row the user is, as its place in that order.
    [[nodiscard]] std::optional<std::size_t> current() const;

    // Lets the user type what to look for.
    void focusSearch();

signals:
    // The keys of a command or the current command are others.
    void changed();

protected:
    void showEvent(QShowEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void dropGroups();
    void addGroup(const EditedGroup& group);
    void prepareRow(QWidget& row);
    void prepareKeys(KKeySequenceWidget& keys);
    void goTo(std::size_t command);
    [[nodiscard]] static QAction* actionOf(const QTreeWidgetItem& item);

    KShortcutsEditor* const m_editor;
    QTreeWidget* const m_tree;
    QLineEdit* const m_search;
    std::vector<KActionCollection*> m_collections; // the editor's children
    std::vector<QAction*> m_actions;               // theirs
};

} // namespace quelhost
