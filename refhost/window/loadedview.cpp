#include "refhost/window/loadedview.h"

#include "refhost/core/menutext.h"
#include "refhost/window/plaintip.h"

#include <QApplication>
#include <QClipboard>
#include <QFontMetrics>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QTreeView>
#include <QVBoxLayout>

#include <utility>

namespace quelhost {

namespace {

constexpr QMargins kAround(6, 6, 6, 6);
constexpr int kNameCharacters = 30; // width of the column of names
constexpr int kKeysCharacters = 13;

QString placeText(const CommandPlace& place)
{
    switch (place.kind) {
    case CommandPlace::Kind::Menu:
        return qtTrId("loaded-place-menu").arg(place.text);
    case CommandPlace::Kind::Toolbar:
        return qtTrId("loaded-place-toolbar").arg(place.text);
    case CommandPlace::Kind::Key:
        break;
    }
    return qtTrId("loaded-place-key").arg(place.text);
}

// The rows that were searched for, and everything of a group that is called so.
class FoundRows final : public QSortFilterProxyModel
{
public:
    using QSortFilterProxyModel::QSortFilterProxyModel;

protected:
    [[nodiscard]] bool filterAcceptsRow(int row, const QModelIndex& parent) const override
    {
        bool accepts = QSortFilterProxyModel::filterAcceptsRow(row, parent);
        for (QModelIndex above = parent; above.isValid() && !accepts; above = above.parent())
            accepts = QSortFilterProxyModel::filterAcceptsRow(above.row(), above.parent());
        return accepts;
    }
};

} // namespace

LoadedView::LoadedView(QWidget* parent)
    : QWidget(parent)
    , m_found(*new FoundRows(this))
    , m_search(new QLineEdit(this))
    , m_tree(new QTreeView(this))
    , m_load(new QPushButton(qtTrId("loaded-load"), this))
    , m_unload(new QPushButton(qtTrId("loaded-unload"), this))
    , m_where(new QPushButton(qtTrId("loaded-where"), this))
{
    auto* const column = new QVBoxLayout(this);
    column->setContentsMargins(kAround);
    m_search->setObjectName(QStringLiteral("loadedSearch"));
    m_search->setPlaceholderText(qtTrId("loaded-search"));
    m_search->setAccessibleName(qtTrId("loaded-search"));
    m_search->setClearButtonEnabled(true);
    m_search->setAcceptDrops(false); // files that are dropped here are for the window
    connect(m_search, &QLineEdit::textChanged, this, &LoadedView::search);
    column->addWidget(m_search);
    addTree();
    column->addWidget(m_tree);
    addButtons();
    followCurrent();
}

void LoadedView::addTree()
{
    m_found.setSourceModel(&m_rows);
    m_found.setRecursiveFilteringEnabled(true);
    m_found.setFilterCaseSensitivity(Qt::CaseInsensitive);
    m_found.setFilterKeyColumn(-1);
    m_tree->setObjectName(QStringLiteral("loadedTree"));
    m_tree->setAccessibleName(qtTrId("window-loaded"));
    m_tree->setModel(&m_found);
    m_tree->setUniformRowHeights(true);
    m_tree->setContextMenuPolicy(Qt::CustomContextMenu);
    const int character = m_tree->fontMetrics().averageCharWidth();
    m_tree->header()->resizeSection(LoadedModel::kName, character * kNameCharacters);
    m_tree->header()->resizeSection(LoadedModel::kKeys, character * kKeysCharacters);
    connect(m_tree->selectionModel(), &QItemSelectionModel::currentChanged, this,
            &LoadedView::followCurrent);
    connect(m_tree, &QTreeView::customContextMenuRequested, this, &LoadedView::openContextMenu);
    connect(m_tree, &QTreeView::activated, this, [this] {
        const LoadedRow* const row = currentRow();
        if (row != nullptr && !row->command.isEmpty())
            emit runWanted(row->group, row->command);
    });
}

void LoadedView::addButtons()
{
    auto* const buttons = new QHBoxLayout;
    for (QPushButton* const button : {m_load, m_unload, m_where})
        buttons->addWidget(button);
    buttons->addStretch();
    static_cast<QVBoxLayout*>(layout())->addLayout(buttons);
    m_load->setObjectName(QStringLiteral("loadedLoad"));
    m_unload->setObjectName(QStringLiteral("loadedUnload"));
    m_where->setObjectName(QStringLiteral("loadedWhere"));
    connect(m_load, &QPushButton::clicked, this, &LoadedView::loadWanted);
    connect(m_unload, &QPushButton::clicked, this, &LoadedView::unload);
    auto* const places = new QMenu(m_where);
    connect(places, &QMenu::aboutToShow, this, [this, places] { fillPlaces(*places); });
    m_where->setMenu(places);
}

void LoadedView::show(const GroupModel& model, const QStringList& unshownFiles)
{
    const QStringList names = unfolded();
    const QStringList groups = std::exchange(m_groups, {});
    const QString current = nameOf(m_tree->currentIndex());
    m_model = model;
    m_rows.show(model, unshownFiles);
    unfold(names, current);
    // A group that is new shows what it has.
    for (int i = 0; i < m_found.rowCount(); ++i) {
        m_groups << nameOf(m_found.index(i, 0));
        if (!groups.contains(m_groups.last()))
            m_tree->expand(m_found.index(i, 0));
    }
    followCurrent();
}

void LoadedView::setCommandAsking(bool asking)
{
    m_asking = asking;
    followCurrent();
}

void LoadedView::focusSearch()
{
    m_search->setFocus(Qt::ShortcutFocusReason);
    m_search->selectAll();
}

void LoadedView::search(const QString& text)
{
    m_found.setFilterFixedString(text);
    if (text.isEmpty())
        m_tree->collapseAll();
    else
        m_tree->expandAll();
    if (text.isEmpty())
        m_tree->expandToDepth(0);
    m_tree->scrollTo(m_tree->currentIndex());
}

const LoadedRow* LoadedView::currentRow() const
{
    return m_rows.row(m_found.mapToSource(m_tree->currentIndex()));
}

// The buttons tell what they would do, or why not.
void LoadedView::followCurrent()
{
    const LoadedRow* const row = currentRow();
    m_load->setEnabled(!m_asking);
    m_load->setToolTip(qtTrId(m_asking ? "window-asking-first" : "loaded-load-tip"));
    const bool isCommand = row != nullptr && !row->command.isEmpty();
    m_where->setEnabled(isCommand);
    m_where->setToolTip(qtTrId(isCommand ? "loaded-where-tip" : "loaded-where-none"));
    tellUnload(row);
}

void LoadedView::tellUnload(const LoadedRow* row)
{
    QString tip;
    bool possible = false;
    if (m_asking) {
        tip = qtTrId("window-asking-first");
    } else if (row == nullptr || row->path.isEmpty()) {
        tip = qtTrId("loaded-unload-none");
    } else if (row->kind == LoadedRow::Kind::UnshownFile && row->isMissing) {
        tip = qtTrId("loaded-missing-tip");
    } else if (m_model && m_model->isMainFile(row->path)) {
        tip = qtTrId("loaded-main-file");
    } else {
        possible = true;
        tip = row->group.isEmpty()
                  ? row->path
                  : qtTrId("loaded-unload-tip")
                        .arg(row->group, unloadingText(m_model->changeByUnloading(row->group)));
    }
    m_unload->setEnabled(possible);
    m_unload->setToolTip(plainTip(tip));
}

void LoadedView::unload()
{
    if (const LoadedRow* const row = currentRow())
        emit unloadWanted(row->path);
}

void LoadedView::fillPlaces(QMenu& menu)
{
    menu.clear();
    const LoadedRow* const row = currentRow();
    if (row == nullptr || row->command.isEmpty())
        return;
    for (const CommandPlace& place : m_model->placesOf(row->group, row->command)) {
        connect(menu.addAction(unmarkedMenuText(placeText(place))), &QAction::triggered, this,
                [this, place, group = row->group, command = row->command] {
                    emit placeWanted(group, command, place);
                });
    }
    if (menu.isEmpty())
        menu.addAction(qtTrId("loaded-place-none"))->setEnabled(false);
}

void LoadedView::openContextMenu(const QPoint& at)
{
    const LoadedRow* const row = currentRow();
    if (row == nullptr)
        return;
    QMenu menu;
    if (!row->command.isEmpty()) {
        menu.addAction(qtTrId("loaded-run"), this,
                       [this, row = *row] { emit runWanted(row.group, row.command); });
        QMenu* const places = menu.addMenu(qtTrId("loaded-where"));
        fillPlaces(*places);
        menu.addSeparator();
    }
    const auto addCopy = [&menu](const QString& text, const QString& copied) {
        if (!copied.isEmpty())
            menu.addAction(text, [copied] { QApplication::clipboard()->setText(copied); });
    };
    addCopy(qtTrId("loaded-copy-name"), row->name);
    if (!row->command.isEmpty())
        addCopy(qtTrId("loaded-copy-macro"), row->detail);
    addCopy(qtTrId("loaded-copy-path"), row->path);
    menu.addSeparator();
    QAction* const unloading = menu.addAction(m_unload->text(), this, &LoadedView::unload);
    unloading->setEnabled(m_unload->isEnabled());
    menu.exec(m_tree->viewport()->mapToGlobal(at));
}

void LoadedView::goToKey(const QString& group, const QString& key)
{
    goTo(m_rows.keyIndex(group, key));
}

void LoadedView::goTo(const QModelIndex& source)
{
    if (!m_found.mapFromSource(source).isValid())
        m_search->clear();
    const QModelIndex index = m_found.mapFromSource(source);
    m_tree->setCurrentIndex(index);
    m_tree->scrollTo(index);
    m_tree->setFocus();
}

QString LoadedView::nameOf(const QModelIndex& index) const
{
    if (!index.isValid())
        return {};
    const LoadedRow* const row = m_rows.row(m_found.mapToSource(index));
    const QString own = row->kind == LoadedRow::Kind::Section ? QString::number(index.row())
                        : row->kind == LoadedRow::Kind::Group ? row->group
                                                              : row->name + row->command;
    return nameOf(index.parent()) + QLatin1Char('\n') + own;
}

QStringList LoadedView::unfolded(const QModelIndex& parent) const
{
    QStringList names;
    for (int i = 0; i < m_found.rowCount(parent); ++i) {
        const QModelIndex child = m_found.index(i, 0, parent);
        if (m_tree->isExpanded(child))
            names << nameOf(child) << unfolded(child);
    }
    return names;
}

void LoadedView::unfold(const QStringList& names, const QString& current, const QModelIndex& parent)
{
    for (int i = 0; i < m_found.rowCount(parent); ++i) {
        const QModelIndex child = m_found.index(i, 0, parent);
        const QString name = nameOf(child);
        if (name == current)
            m_tree->setCurrentIndex(child);
        if (names.contains(name)) {
            m_tree->expand(child);
            unfold(names, current, child);
        }
    }
}

} // namespace quelhost
