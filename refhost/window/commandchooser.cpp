#include "refhost/window/commandchooser.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QTreeView>
#include <QVBoxLayout>

namespace quelhost {

CommandChooser::CommandChooser(const std::vector<ShownGroup>& groups, const CommandLooks& looks,
                               QWidget* parent)
    : QWidget(parent)
    , m_commands(groups, looks)
    , m_search(new QLineEdit(this))
    , m_tree(new QTreeView(this))
{
    m_search->setObjectName(QStringLiteral("commandSearch"));
    m_search->setPlaceholderText(qtTrId("toolbars-search"));
    m_search->setAccessibleName(qtTrId("toolbars-search"));
    m_search->setClearButtonEnabled(true);
    m_search->installEventFilter(this);
    connect(m_search, &QLineEdit::textChanged, this, &CommandChooser::search);
    addTree();
    auto* const column = new QVBoxLayout(this);
    column->setContentsMargins({});
    column->addWidget(m_search);
    column->addWidget(m_tree);
    setFocusProxy(m_search);
    search({});
}

void CommandChooser::addTree()
{
    m_found.setSourceModel(&m_commands);
    m_found.setRecursiveFilteringEnabled(true);
    m_found.setFilterCaseSensitivity(Qt::CaseInsensitive);
    m_found.setFilterRole(GroupCommandModel::kSearchRole);
    m_tree->setObjectName(QStringLiteral("commands"));
    m_tree->setAccessibleName(qtTrId("palette-commands"));
    m_tree->setModel(&m_found);
    m_tree->setHeaderHidden(true);
    m_tree->setUniformRowHeights(true);
    m_tree->setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_tree->setDragDropMode(QAbstractItemView::DragOnly);
    m_tree->installEventFilter(this);
    connect(m_tree->selectionModel(), &QItemSelectionModel::currentChanged, this,
            &CommandChooser::currentChanged);
    connect(m_tree, &QTreeView::doubleClicked, this, [this] {
        if (current())
            emit chosen();
    });
}

std::optional<GroupEntry> CommandChooser::current() const
{
    return GroupCommandModel::commandOf(m_tree->currentIndex());
}

// Goes to what was most likely meant.
void CommandChooser::search(const QString& text)
{
    m_found.setFilterFixedString(text);
    m_tree->expandAll();
    if (text.isEmpty() && current()) {
        m_tree->scrollTo(m_tree->currentIndex());
    } else {
        m_tree->scrollToTop();
        m_tree->setCurrentIndex(bestFound(text));
    }
    emit currentChanged();
    emit searched(m_found.rowCount() > 0);
}

// A command whose name begins with the text, or has it in it, before one with the text elsewhere.
QModelIndex CommandChooser::bestFound(const QString& text) const
{
    const QModelIndex first = m_found.index(0, 0);
    for (const Qt::MatchFlag where : {Qt::MatchStartsWith, Qt::MatchContains}) {
        for (const QModelIndex& found :
             m_found.match(first, Qt::DisplayRole, text, -1, where | Qt::MatchRecursive)) {
            if (GroupCommandModel::commandOf(found))
                return found;
        }
    }
    return m_found.index(0, 0, first);
}

bool CommandChooser::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() != QEvent::KeyPress)
        return QWidget::eventFilter(watched, event);
    auto* const key = static_cast<QKeyEvent*>(event);
    if (key->key() == Qt::Key_Return || key->key() == Qt::Key_Enter) {
        if (current())
            emit chosen();
        m_search->selectAll(); // the next search replaces it
        return true;
    }
    // From the search the arrows go through what was found.
    if (watched == m_search && (key->key() == Qt::Key_Down || key->key() == Qt::Key_Up)) {
        QCoreApplication::sendEvent(m_tree, event);
        return true;
    }
    return QWidget::eventFilter(watched, event);
}

} // namespace quelhost
