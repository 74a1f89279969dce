#include "refhost/window/keylist.h"

#include "refhost/core/menutext.h"

#include <KActionCollection>
#include <KExtendableItemDelegate>
#include <KKeySequenceWidget>
#include <KShortcutsEditor>

#include <QAbstractButton>
#include <QAction>
#include <QCoreApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QTreeWidget>
#include <QTreeWidgetItemIterator>
#include <QVBoxLayout>

#include <algorithm>
#include <utility>

namespace quelhost {

namespace {

constexpr int kActionRole = Qt::UserRole + 2; // where the library keeps a row's action
constexpr int kShownKeys = 2;                 // of a command, in a column each

// A row holds a place for a key that was taken away.
Keys keysOf(const QAction& action)
{
    Keys keys;
    for (const QKeySequence& each : action.shortcuts()) {
        if (!each.isEmpty() && !keys.contains(each))
            keys << each;
    }
    return keys;
}

// Of keys that are given to another command, the library takes only those that it shows.
void takeHiddenKeys(const QKeySequence& keys, QAction& action)
{
    Keys left = action.shortcuts();
    for (int i = left.size() - 1; i >= kShownKeys; --i) {
        if (keys.matches(left.at(i)) != QKeySequence::NoMatch ||
            left.at(i).matches(keys) != QKeySequence::NoMatch)
            left.removeAt(i);
    }
    if (left != action.shortcuts())
        action.setShortcuts(left);
}

} // namespace

KeyList::KeyList(QWidget* parent)
    : QWidget(parent)
    , m_editor(new KShortcutsEditor(this,
                                    KShortcutsEditor::WidgetAction | KShortcutsEditor::WindowAction,
                                    KShortcutsEditor::LetterShortcutsDisallowed))
    , m_tree(m_editor->findChild<QTreeWidget*>())
    , m_search(m_editor->findChild<QLineEdit*>())
{
    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_editor);
    m_search->setAccessibleName(qtTrId("accelerators-search"));
    m_tree->setAccessibleName(qtTrId("accelerators-list"));
    m_tree->installEventFilter(this);
    connect(m_editor, &KShortcutsEditor::keyChange, this, &KeyList::changed);
    connect(m_tree, &QTreeWidget::currentItemChanged, this, &KeyList::changed);
    if (auto* const rows = qobject_cast<KExtendableItemDelegate*>(m_tree->itemDelegate()))
        connect(rows, &KExtendableItemDelegate::extenderCreated, this,
                [this](QWidget* row) { prepareRow(*row); });
}

KeyList::~KeyList()
{
    const QSignalBlocker quiet(this); // who listens may be going too
    dropGroups();
}

void KeyList::showGroups(const std::vector<EditedGroup>& groups)
{
    const std::optional<std::size_t> at = current();
    dropGroups();
    for (const EditedGroup& group : groups)
        addGroup(group);
    if (at)
        goTo(*at);
    emit changed();
}

// An action without a first key, but with a second one, would leave that one behind in the toolkit.
void KeyList::dropGroups()
{
    m_editor->clearCollections();
    for (QAction* const action : std::exchange(m_actions, {}))
        action->setShortcuts(Keys());
    qDeleteAll(std::exchange(m_collections, {}));
}

void KeyList::addGroup(const EditedGroup& group)
{
    auto* const collection = new KActionCollection(m_editor);
    m_collections.push_back(collection);
    for (const EditedCommand& command : group.commands) {
        // It goes with the collection, which by itself only lists it.
        auto* const action = new QAction(command.icon, unmarkedMenuText(command.text), collection);
        // Some names make the library leave an action out, so a command's id is none.
        collection->addAction(QStringLiteral("command%1").arg(m_actions.size()), action);
        if (!command.keys.packageKeys.isEmpty())
            collection->setDefaultShortcuts(action, command.keys.packageKeys);
        action->setShortcuts(command.keys.keys);
        m_actions.push_back(action);
    }
    m_editor->addCollection(collection, group.title);
}

// What the user opens below a row is reached from there.
void KeyList::prepareRow(QWidget& row)
{
    QWidget* before = m_tree;
    for (auto* const part : row.findChildren<QWidget*>()) {
        if ((part->focusPolicy() & Qt::TabFocus) == 0)
            continue;
        setTabOrder(before, part);
        before = part;
    }
    for (auto* const keys : row.findChildren<KKeySequenceWidget*>())
        prepareKeys(*keys);
}

// Without a session bus, the library would ask whether to take each new key from nobody.
void KeyList::prepareKeys(KKeySequenceWidget& keys)
{
    keys.setCheckForConflictsAgainst(KKeySequenceWidget::LocalShortcuts |
                                     KKeySequenceWidget::StandardShortcuts);
    connect(&keys, &KKeySequenceWidget::stealShortcut, this,
            [](const QKeySequence& taken, QAction* from) { takeHiddenKeys(taken, *from); });
    for (auto* const button : keys.findChildren<QAbstractButton*>()) {
        const bool clears = button->text().isEmpty();
        const QString name = clears ? qtTrId("accelerators-clear") : qtTrId("accelerators-key");
        button->setAccessibleName(name);
        button->setToolTip(name);
        // Once the row has its place.
        if (!clears)
            QMetaObject::invokeMethod(button, "setFocus", Qt::QueuedConnection);
    }
}

std::vector<Keys> KeyList::keys() const
{
    std::vector<Keys> all;
    for (const QAction* const action : m_actions)
        all.push_back(keysOf(*action));
    return all;
}

std::optional<std::size_t> KeyList::current() const
{
    const QTreeWidgetItem* const item = m_tree->currentItem();
    const QAction* const action = item == nullptr ? nullptr : actionOf(*item);
    const auto known = std::find(m_actions.begin(), m_actions.end(), action);
    if (known == m_actions.end())
        return std::nullopt;
    return static_cast<std::size_t>(known - m_actions.begin());
}

void KeyList::goTo(std::size_t command)
{
    for (QTreeWidgetItemIterator each(m_tree); *each != nullptr; ++each) {
        if (command < m_actions.size() && actionOf(**each) == m_actions[command])
            m_tree->setCurrentItem(*each);
    }
}

void KeyList::focusSearch()
{
    m_search->setFocus();
}

// The library's editor puts its parts into an order of its own until then.
void KeyList::showEvent(QShowEvent* event)
{
    QWidget::showEvent(event);
    setTabOrder(m_search, m_tree);
}

QAction* KeyList::actionOf(const QTreeWidgetItem& item)
{
    return qobject_cast<QAction*>(item.data(0, kActionRole).value<QObject*>());
}

// Enter opens a row, as the blank does; without any it is the dialog's. The line to search with
// hands it on to the list.
bool KeyList::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == m_tree && event->type() == QEvent::KeyPress && current()) {
        const auto& key = *static_cast<const QKeyEvent*>(event);
        if (key.key() == Qt::Key_Return || key.key() == Qt::Key_Enter) {
            QKeyEvent blank(QEvent::KeyPress, Qt::Key_Space, Qt::NoModifier);
            QCoreApplication::sendEvent(m_tree, &blank);
            return true;
        }
    }
    return QWidget::eventFilter(watched, event);
}

} // namespace quelhost
