// Opening the editor of accelerators with many commands, beside the library's editor alone.
#include "bench/support/ratios.h"

#include "refhost/core/hostkeys.h"
#include "refhost/window/acceleratoreditor.h"
#include "refhost/window/libraries.h"

#include <KActionCollection>
#include <KShortcutsEditor>

#include <QAction>
#include <QApplication>
#include <QTemporaryDir>
#include <QTreeWidget>
#include <QTreeWidgetItemIterator>
#include <QVBoxLayout>

#include <memory>
#include <vector>

using namespace quelhost;

namespace {

constexpr int kGroups = 5;
constexpr int kCommandsOfGroup = 1000;
constexpr int kCommandsForAKey = 10;
constexpr int kLetters = 26;

QString commandText(int command)
{
    return QStringLiteral("Command %1").arg(command);
}

// Two combinations, different for each command that has keys.
Keys keysOf(int group, int command)
{
    if (command % kCommandsForAKey != 0)
        return {};
    const int number = (group * kCommandsOfGroup + command) / kCommandsForAKey;
    return {QKeySequence(Qt::CTRL + Qt::Key_A + number / kLetters,
                         Qt::CTRL + Qt::Key_A + number % kLetters)};
}

std::vector<ShownGroup> manyGroups()
{
    std::vector<ShownGroup> groups(kGroups);
    for (int i = 0; i < kGroups; ++i) {
        MenuGroup& group = groups[std::size_t(i)].group;
        group.name = QStringLiteral("GROUP%1").arg(i);
        for (int command = 0; command < kCommandsOfGroup; ++command) {
            const QString id = QStringLiteral("c%1").arg(command);
            group.commands.push_back({id, commandText(command), {}, {}, QStringLiteral("ECHO")});
            for (const QKeySequence& keys : keysOf(i, command))
                group.accelerators.push_back({id, keys});
        }
    }
    return groups;
}

// The commands that a shown dialog lists.
int rowsIn(const QWidget& dialog)
{
    int rows = 0;
    for (QTreeWidgetItemIterator each(dialog.findChild<QTreeWidget*>()); *each != nullptr; ++each)
        rows += (*each)->parent() == nullptr ? 0 : 1;
    return rows;
}

// Runs until everything is painted and has its width.
template<typename Open>
void measure(benchmark::State& state, int commands, const Open& open)
{
    for (auto _ : state) {
        std::unique_ptr<QDialog> dialog = open();
        dialog->show();
        QApplication::processEvents();
        state.PauseTiming();
        if (rowsIn(*dialog) != commands)
            return state.SkipWithError("not all commands are there");
        dialog.reset();
        QApplication::processEvents();
        state.ResumeTiming();
    }
}

// From what is loaded, copies of the actions included.
void openEditor(benchmark::State& state)
{
    const std::vector<ShownGroup> groups = manyGroups();
    const std::vector<GroupKey> keys = hostKeys();
    measure(state, kGroups * kCommandsOfGroup + static_cast<int>(keys.size()), [&] {
        return std::make_unique<AcceleratorEditor>(keys, groups, KeyChanges(),
                                                   KeyFilePrompts::byDialogs());
    });
}

// With actions that are there already.
void openLibrarysEditor(benchmark::State& state)
{
    std::vector<std::unique_ptr<KActionCollection>> collections;
    for (int group = 0; group < kGroups; ++group) {
        collections.push_back(std::make_unique<KActionCollection>(static_cast<QObject*>(nullptr)));
        for (int command = 0; command < kCommandsOfGroup; ++command) {
            auto* const action = new QAction(commandText(command));
            collections.back()->addAction(QStringLiteral("c%1").arg(command), action);
            collections.back()->setDefaultShortcuts(action, keysOf(group, command));
        }
    }
    measure(state, kGroups * kCommandsOfGroup, [&] {
        auto dialog = std::make_unique<QDialog>();
        auto* const editor = new KShortcutsEditor(dialog.get(), KShortcutsEditor::WidgetAction |
                                                                    KShortcutsEditor::WindowAction);
        (new QVBoxLayout(dialog.get()))->addWidget(editor);
        for (std::size_t group = 0; group < collections.size(); ++group)
            editor->addCollection(collections[group].get(), QStringLiteral("GROUP%1").arg(group));
        dialog->resize(820, 600);
        return dialog;
    });
}

} // namespace

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("DBUS_SESSION_BUS_ADDRESS", "disabled:");
    const QApplication application(argc, argv);
    const QTemporaryDir folder;
    prepareLibraries(QStringLiteral("en"), folder.path());
    return ratios::run(argc, argv,
                       {{"accelerators5000", openEditor, "the library's editor, the same actions",
                         openLibrarysEditor, 1 / 1.5}});
}
