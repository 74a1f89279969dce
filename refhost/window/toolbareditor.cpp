#include "refhost/window/toolbareditor.h"

#include "host/status.h"
#include "refhost/core/host.h"
#include "refhost/core/menutext.h"
#include "refhost/dialogs/modalrun.h"
#include "refhost/window/commandchooser.h"
#include "refhost/window/titledelegate.h"

#include <QDialogButtonBox>
#include <QGridLayout>
#include <QLabel>
#include <QListView>
#include <QMainWindow>
#include <QPushButton>
#include <QScreen>
#include <QShortcut>
#include <QStyle>

#include <algorithm>

namespace quelhost {

namespace {

// In letters of the font, so that it fits at any scale.
constexpr int kWidth = 128;
constexpr int kHeight = 30;

enum Column { kToolbars, kEntries, kCommands };
enum Row { kLabels, kLists, kButtons, kLine, kBottom };

QLabel* labelOf(const char* textId, QWidget* of)
{
    auto* const label = new QLabel(qtTrId(textId));
    label->setBuddy(of);
    return label;
}

// The buttons in rows of so many.
QGridLayout* rowsOf(const std::vector<QPushButton*>& buttons, int columns)
{
    auto* const rows = new QGridLayout;
    int place = 0;
    for (QPushButton* const button : buttons) {
        rows->addWidget(button, place / columns, place % columns);
        ++place;
    }
    return rows;
}

// The platform's keys and one that many are used to.
QList<QKeySequence> keysOf(QKeySequence::StandardKey standard, const char* usual)
{
    QList<QKeySequence> keys = QKeySequence::keyBindings(standard);
    const QKeySequence further(QLatin1String(usual), QKeySequence::PortableText);
    if (!keys.contains(further))
        keys << further;
    return keys;
}

QListView* makeList(const char* name, QAbstractItemModel& model)
{
    auto* const list = new QListView;
    list->setObjectName(QLatin1String(name));
    list->setModel(&model);
    list->setSelectionMode(QAbstractItemView::SingleSelection);
    return list;
}

} // namespace

ToolbarEditor::ToolbarEditor(ToolbarEdits& edits, ToolbarPreview preview, QWidget* parent)
    : QDialog(parent)
    , m_edits(edits)
    , m_preview(std::move(preview))
    , m_looks(edits.groups())
    , m_toolbarRows(edits)
    , m_entryRows(edits, m_looks)
    , m_toolbars(makeList("toolbars", m_toolbarRows))
    , m_entries(makeList("entries", m_entryRows))
    , m_commands(new CommandChooser(edits.groups(), m_looks))
    , m_remark(new QLabel)
{
    setObjectName(QStringLiteral("toolbarEditor"));
    setWindowTitle(qtTrId("toolbars-title"));
    setWindowFlag(Qt::WindowContextHelpButtonHint, false);
    auto* const grid = new QGridLayout(this);
    addToolbars(*grid);
    addEntries(*grid);
    addCommands(*grid);
    auto* const line = new QFrame;
    line->setFrameStyle(int(QFrame::HLine) | int(QFrame::Sunken));
    grid->addWidget(line, kLine, kToolbars, 1, kCommands + 1);
    grid->addWidget(makeBottom(), kBottom, kToolbars, 1, kCommands + 1);
    grid->setRowStretch(kLists, 1);
    grid->setColumnStretch(kToolbars, 4);
    for (const int column : {kEntries, kCommands})
        grid->setColumnStretch(column, 5);
    m_toolbars->setCurrentIndex(m_toolbarRows.index(0));
    showToolbar();
    resize(QSize(kWidth * fontMetrics().averageCharWidth(), kHeight * fontMetrics().height())
               .boundedTo(screen()->availableSize()));
}

void ToolbarEditor::placeOver(const QMainWindow& window)
{
    const QRect room = window.screen()->availableGeometry();
    const QWidget* const middle =
        window.centralWidget() == nullptr ? &window : window.centralWidget();
    const int left = window.mapToGlobal(window.rect().center()).x() - width() / 2;
    const int top = middle->mapToGlobal(QPoint(0, 0)).y();
    const int bar = style()->pixelMetric(QStyle::PM_TitleBarHeight);
    const QPoint last(room.right() - width(), room.bottom() - height() - bar);
    move(std::max(room.left(), std::min(left, last.x())),
         std::max(room.top(), std::min(top, last.y())));
}

void ToolbarEditor::addToolbars(QGridLayout& grid)
{
    m_toolbars->setAccessibleName(plainMenuText(qtTrId("toolbars-list")));
    m_toolbars->setAlternatingRowColors(true);
    m_toolbars->setItemDelegate(new TitleDelegate(m_toolbars));
    m_toolbars->setEditTriggers(QAbstractItemView::DoubleClicked |
                                QAbstractItemView::EditKeyPressed);
    connect(m_toolbars->selectionModel(), &QItemSelectionModel::currentChanged, this,
            &ToolbarEditor::showToolbar);
    connect(&m_toolbarRows, &ToolbarListModel::edited, this, &ToolbarEditor::follow);
    connect(&m_toolbarRows, &ToolbarListModel::told, this, &ToolbarEditor::tell);
    grid.addWidget(labelOf("toolbars-list", m_toolbars), kLabels, kToolbars);
    grid.addWidget(m_toolbars, kLists, kToolbars);

    QPushButton* const create = makeButton("new", "toolbars-new", &ToolbarEditor::create);
    m_rename = makeButton("rename", "toolbars-rename", &ToolbarEditor::rename);
    m_delete = makeButton("delete", "toolbars-delete", &ToolbarEditor::removeToolbar,
                          {QKeySequence::Delete}, m_toolbars);
    m_reset = makeButton("reset", "toolbars-reset", &ToolbarEditor::reset);
    QPushButton* const all = makeButton("resetAll", "toolbars-reset-all", &ToolbarEditor::resetAll);
    all->setToolTip(qtTrId("toolbars-reset-all-tip"));
    QGridLayout* const buttons = rowsOf({create, m_rename, m_delete, m_reset}, 3);
    buttons->addWidget(all, 1, 1, 1, 2);
    grid.addLayout(buttons, kButtons, kToolbars);
}

void ToolbarEditor::addEntries(QGridLayout& grid)
{
    m_entries->setDragDropMode(QAbstractItemView::DragDrop);
    m_entries->setDefaultDropAction(Qt::MoveAction);
    m_entries->setDropIndicatorShown(true);
    connect(m_entries->selectionModel(), &QItemSelectionModel::currentChanged, this,
            &ToolbarEditor::enableButtons);
    connect(&m_entryRows, &ToolbarEntryModel::edited, this, &ToolbarEditor::follow);
    grid.addWidget(labelOf("toolbars-buttons", m_entries), kLabels, kEntries);
    grid.addWidget(m_entries, kLists, kEntries);

    m_up = makeButton("up", "toolbars-up", &ToolbarEditor::moveUp,
                      {QKeySequence(QStringLiteral("Ctrl+Up"))}, m_entries);
    m_down = makeButton("down", "toolbars-down", &ToolbarEditor::moveDown,
                        {QKeySequence(QStringLiteral("Ctrl+Down"))}, m_entries);
    m_separator = makeButton("separator", "toolbars-separator", &ToolbarEditor::addSeparator);
    m_remove = makeButton("remove", "toolbars-remove", &ToolbarEditor::takeEntry,
                          {QKeySequence::Delete}, m_entries);
    grid.addLayout(rowsOf({m_up, m_down, m_separator, m_remove}, 2), kButtons, kEntries);
}

void ToolbarEditor::addCommands(QGridLayout& grid)
{
    connect(m_commands, &CommandChooser::currentChanged, this, &ToolbarEditor::enableButtons);
    connect(m_commands, &CommandChooser::chosen, this, &ToolbarEditor::addCommand);
    connect(m_commands, &CommandChooser::searched, this,
            [this](bool found) { tell(found ? QString() : qtTrId("toolbars-none-found")); });
    grid.addWidget(labelOf("toolbars-commands", m_commands->focusProxy()), kLabels, kCommands);
    grid.addWidget(m_commands, kLists, kCommands);

    m_add = makeButton("add", "toolbars-add", &ToolbarEditor::addCommand);
    m_add->setToolTip(qtTrId("toolbars-add-tip"));
    grid.addWidget(m_add, kButtons, kCommands, Qt::AlignLeft | Qt::AlignTop);
}

QWidget* ToolbarEditor::makeBottom()
{
    auto* const bottom = new QWidget;
    auto* const row = new QHBoxLayout(bottom);
    row->setContentsMargins({});
    m_undo = makeButton("undo", "toolbars-undo", &ToolbarEditor::undo,
                        keysOf(QKeySequence::Undo, "Ctrl+Z"), this);
    m_redo = makeButton("redo", "toolbars-redo", &ToolbarEditor::redo,
                        keysOf(QKeySequence::Redo, "Ctrl+Y"), this);
    row->addWidget(m_undo);
    row->addWidget(m_redo);
    m_remark->setObjectName(QStringLiteral("remark"));
    m_remark->setTextFormat(Qt::PlainText);
    m_remark->setWordWrap(true);
    row->addWidget(m_remark, 1);
    auto* const ends = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    ends->button(QDialogButtonBox::Ok)->setText(qtTrId("box-ok"));
    ends->button(QDialogButtonBox::Cancel)->setText(qtTrId("box-cancel"));
    connect(ends, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(ends, &QDialogButtonBox::rejected, this, &QDialog::reject);
    row->addWidget(ends);
    return bottom;
}

// The keys do what the button does where `keysIn` is, while the button can be pressed.
QPushButton* ToolbarEditor::makeButton(const char* name, const char* textId, Action action,
                                       const QList<QKeySequence>& keys, QWidget* keysIn)
{
    auto* const button = new QPushButton(qtTrId(textId));
    button->setObjectName(QLatin1String(name));
    connect(button, &QPushButton::clicked, this, action);
    for (const QKeySequence& key : keys) {
        auto* const shortcut = new QShortcut(key, keysIn);
        shortcut->setContext(keysIn == this ? Qt::WindowShortcut : Qt::WidgetShortcut);
        connect(shortcut, &QShortcut::activated, button, [button] { button->click(); });
    }
    if (!keys.isEmpty())
        button->setToolTip(QStringLiteral("%1 (%2)").arg(
            plainMenuText(button->text()), keys.front().toString(QKeySequence::NativeText)));
    return button;
}

GroupEntry ToolbarEditor::toolbar() const
{
    return m_toolbarRows.toolbar(m_toolbars->currentIndex());
}

int ToolbarEditor::place() const
{
    return m_entries->currentIndex().row();
}

void ToolbarEditor::create()
{
    m_edits.create(qtTrId("toolbars-new-title"));
    follow();
    rename();
}

void ToolbarEditor::rename()
{
    m_toolbars->setFocus();
    m_toolbars->edit(m_toolbars->currentIndex());
}

void ToolbarEditor::removeToolbar()
{
    if (m_edits.remove(toolbar()))
        follow();
}

void ToolbarEditor::reset()
{
    if (m_edits.reset(toolbar()))
        follow();
}

void ToolbarEditor::resetAll()
{
    if (m_edits.resetAll())
        follow();
}

void ToolbarEditor::moveUp()
{
    if (m_edits.move(toolbar(), place(), place() - 1))
        follow();
}

void ToolbarEditor::moveDown()
{
    if (m_edits.move(toolbar(), place(), place() + 1))
        follow();
}

void ToolbarEditor::addSeparator()
{
    insert({});
}

void ToolbarEditor::takeEntry()
{
    if (m_edits.take(toolbar(), place()))
        follow();
}

void ToolbarEditor::addCommand()
{
    if (const auto command = m_commands->current())
        insert(*command);
}

// Behind the current entry, so that one after the other comes in order.
void ToolbarEditor::insert(const ToolbarEntry& entry)
{
    const int behind = place() < 0 ? m_entryRows.rowCount() : place() + 1;
    if (m_edits.insert(toolbar(), behind, entry))
        follow();
}

void ToolbarEditor::undo()
{
    m_edits.undo();
    follow();
}

void ToolbarEditor::redo()
{
    m_edits.redo();
    follow();
}

// Goes to where the change happened, or as near as possible.
void ToolbarEditor::follow()
{
    const ToolbarEdits::Spot spot = m_edits.spot();
    const int row = m_toolbars->currentIndex().row();
    m_toolbarRows.follow();
    QModelIndex current = m_toolbarRows.indexOf(spot.toolbar);
    if (!current.isValid())
        current = m_toolbarRows.index(std::min(row, m_toolbarRows.rowCount() - 1));
    m_toolbars->setCurrentIndex(current);
    showToolbar();
    const int last = m_entryRows.rowCount() - 1;
    if (spot.place >= 0)
        m_entries->setCurrentIndex(m_entryRows.index(std::min(spot.place, last)));
    if (m_preview)
        m_preview(m_edits.result());
}

void ToolbarEditor::showToolbar()
{
    m_entryRows.show(toolbar());
    const EffectiveToolbar* const shown = m_edits.find(toolbar());
    const QString title = shown == nullptr ? QString() : shown->title;
    m_entries->setAccessibleName(qtTrId("toolbars-buttons-of").arg(title));
    tell(shown != nullptr && shown->deleted ? qtTrId("toolbars-deleted-hint") : QString());
    enableButtons();
}

void ToolbarEditor::enableButtons()
{
    const EffectiveToolbar* const shown = m_edits.find(toolbar());
    const bool isEditable = m_edits.isEditable(toolbar());
    const bool isEntry = isEditable && place() >= 0;
    for (QWidget* const part :
         std::initializer_list<QWidget*>{m_rename, m_delete, m_entries, m_separator})
        part->setEnabled(isEditable);
    m_reset->setEnabled(m_edits.isResettable(toolbar()));
    m_reset->setToolTip(qtTrId(m_reset->isEnabled()                 ? "toolbars-reset-tip"
                               : shown != nullptr && shown->isOwn() ? "toolbars-reset-own"
                                                                    : "toolbars-reset-same"));
    m_up->setEnabled(isEntry && place() > 0);
    m_down->setEnabled(isEntry && place() + 1 < m_entryRows.rowCount());
    m_remove->setEnabled(isEntry);
    m_add->setEnabled(isEditable && m_commands->current());
    m_undo->setEnabled(m_edits.canUndo());
    m_redo->setEnabled(m_edits.canRedo());
}

void ToolbarEditor::tell(const QString& sentence)
{
    m_remark->setText(sentence);
}

int editToolbars(Host& host, QMainWindow& window, const ToolbarPreview& preview)
{
    ToolbarEdits edits(host.groups.groups(), host.customization.toolbars());
    ToolbarEditor editor(edits, preview, &window);
    editor.placeOver(window);
    if (runModal(editor) != QDialog::Accepted) {
        if (preview && edits.canUndo())
            preview(host.customization.toolbars());
        return QuelStatus::kCancelled;
    }
    if (edits.isChanged()) {
        const Status stored = host.customization.replaceToolbars(edits.result());
        if (!stored)
            host.report(stored.fault());
    }
    return QuelStatus::kNormal;
}

} // namespace quelhost
