#include "refhost/window/acceleratoreditor.h"

#include "host/editors.h"
#include "host/status.h"
#include "refhost/core/host.h"
#include "refhost/core/hostkeys.h"
#include "refhost/core/keyfile.h"
#include "refhost/dialogs/modalrun.h"
#include "refhost/window/keylist.h"

#include <QDialogButtonBox>
#include <QFileDialog>
#include <QHBoxLayout>
#include <QMessageBox>
#include <QPushButton>
#include <QScreen>
#include <QVBoxLayout>

namespace quelhost {

namespace {

constexpr QSize kStartSize(820, 600);

const GroupEntry* commandAt(const std::vector<EditedGroup>& groups, std::size_t place)
{
    for (const EditedGroup& group : groups) {
        if (place < group.commands.size())
            return &group.commands[place].keys.command;
        place -= group.commands.size();
    }
    return nullptr;
}

std::optional<QString> pick(QWidget& over, QFileDialog::AcceptMode mode, const QString& title)
{
    QFileDialog dialog(&over, title);
    dialog.setOption(QFileDialog::DontUseNativeDialog);
    dialog.setAcceptMode(mode);
    dialog.setFileMode(mode == QFileDialog::AcceptOpen ? QFileDialog::ExistingFile
                                                       : QFileDialog::AnyFile);
    dialog.setNameFilters({qtTrId("accelerators-files") + QStringLiteral(" (*.keys)"),
                           qtTrId("accelerators-all-files") + QStringLiteral(" (*)")});
    dialog.setDefaultSuffix(QStringLiteral("keys"));
    if (runModal(dialog) != QDialog::Accepted)
        return std::nullopt;
    return dialog.selectedFiles().value(0);
}

void tellByBox(QWidget& over, const Fault& fault)
{
    QMessageBox box(QMessageBox::Warning, qtTrId("accelerators-title"), fault.text(),
                    QMessageBox::Ok, &over);
    box.setTextFormat(Qt::PlainText);
    runModal(box);
}

} // namespace

KeyFilePrompts KeyFilePrompts::byDialogs()
{
    return {[](QWidget& over) {
                return pick(over, QFileDialog::AcceptOpen, qtTrId("accelerators-import-title"));
            },
            [](QWidget& over) {
                return pick(over, QFileDialog::AcceptSave, qtTrId("accelerators-export-title"));
            },
            tellByBox};
}

int editAccelerators(Host& host, QWidget& window)
{
    AcceleratorEditor editor(hostKeys(), host.groups.groups(), host.customization.keys(),
                             KeyFilePrompts::byDialogs(), &window);
    if (runModal(editor) != QDialog::Accepted)
        return QuelStatus::kCancelled;
    const Status stored = host.customization.replaceKeys(editor.changes());
    if (!stored)
        host.report(stored.fault());
    return QuelStatus::kNormal;
}

AcceleratorEditor::AcceleratorEditor(std::vector<GroupKey> hostKeys, std::vector<ShownGroup> groups,
                                     const KeyChanges& changes, KeyFilePrompts prompts,
                                     QWidget* parent)
    : QDialog(parent)
    , m_hostKeys(std::move(hostKeys))
    , m_groups(std::move(groups))
    , m_prompts(std::move(prompts))
    , m_list(new KeyList(this))
    , m_resetCurrent(makeButton("resetCommand", "accelerators-reset", "accelerators-reset-tip",
                                &AcceleratorEditor::resetCurrent))
    , m_resetAll(makeButton("resetAll", "accelerators-reset-all", "accelerators-reset-all-tip",
                            &AcceleratorEditor::resetAll))
{
    setObjectName(QStringLiteral("acceleratorEditor"));
    setWindowTitle(qtTrId("accelerators-title"));
    setWindowFlag(Qt::WindowContextHelpButtonHint, false);
    auto* const layout = new QVBoxLayout(this);
    layout->addWidget(m_list);
    addButtons();
    showChanges(changes);
    connect(m_list, &KeyList::changed, this, &AcceleratorEditor::enableResets);
    enableResets();
    m_list->focusSearch();
    resize(kStartSize.boundedTo(screen()->availableSize() * 9 / 10));
}

void AcceleratorEditor::addButtons()
{
    auto* const row = new QHBoxLayout;
    row->addWidget(m_resetCurrent);
    row->addWidget(m_resetAll);
    row->addStretch();
    row->addWidget(makeButton("import", "accelerators-import", "accelerators-import-tip",
                              &AcceleratorEditor::importFile));
    row->addWidget(makeButton("export", "accelerators-export", "accelerators-export-tip",
                              &AcceleratorEditor::exportFile));
    auto* const ends = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    ends->button(QDialogButtonBox::Ok)->setDefault(true);
    connect(ends, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(ends, &QDialogButtonBox::rejected, this, &QDialog::reject);
    auto* const column = static_cast<QVBoxLayout*>(layout());
    column->addLayout(row);
    column->addWidget(ends);
}

QPushButton* AcceleratorEditor::makeButton(const char* name, const char* textId, const char* tipId,
                                           void (AcceleratorEditor::*action)())
{
    auto* const button = new QPushButton(qtTrId(textId), this);
    button->setObjectName(QLatin1String(name));
    button->setToolTip(qtTrId(tipId));
    button->setAutoDefault(false);
    connect(button, &QPushButton::clicked, this, action);
    return button;
}

KeyChanges AcceleratorEditor::changes() const
{
    return changesAfter(m_changes, m_shown, m_list->keys());
}

// Who has a key then is what it will be in the window: a command may get or lose one to another.
void AcceleratorEditor::showChanges(const KeyChanges& changes)
{
    m_changes = changes;
    m_shown = editedGroups(m_hostKeys, m_groups, m_changes);
    m_list->showGroups(m_shown);
}

void AcceleratorEditor::enableResets()
{
    const KeyChanges now = changes();
    const std::optional<std::size_t> current = m_list->current();
    const GroupEntry* const command = current ? commandAt(m_shown, *current) : nullptr;
    m_resetCurrent->setEnabled(command != nullptr && now.count(*command) > 0);
    m_resetAll->setEnabled(changesOfOthers(now, m_shown) != now);
}

void AcceleratorEditor::resetCurrent()
{
    const std::optional<std::size_t> current = m_list->current();
    const GroupEntry* const command = current ? commandAt(m_shown, *current) : nullptr;
    if (command == nullptr)
        return;
    KeyChanges now = changes();
    now.erase(*command);
    showChanges(now);
}

void AcceleratorEditor::resetAll()
{
    showChanges(changesOfOthers(changes(), m_shown));
}

void AcceleratorEditor::importFile()
{
    const std::optional<QString> path = m_prompts.pickToImport(*this);
    if (!path)
        return;
    const Result<KeyChanges> imported = importKeys(*path);
    if (imported)
        showChanges(imported.value());
    else
        m_prompts.tell(*this, imported.fault());
}

void AcceleratorEditor::exportFile()
{
    const std::optional<QString> path = m_prompts.pickToExport(*this);
    if (!path)
        return;
    const Status written = exportKeys(*path, changes());
    if (!written)
        m_prompts.tell(*this, written.fault());
}

} // namespace quelhost
