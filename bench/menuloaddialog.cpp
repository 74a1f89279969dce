// Showing many groups in the menu load dialog, beside a bare list of the same names.
#include "bench/support/ratios.h"

#include "host/commands.h"
#include "menuload/menuloaddialog.h"
#include "refhost/core/widetext.h"
#include "tests/support/testhost.h"

#include <QApplication>
#include <QFile>
#include <QFileInfo>
#include <QListView>
#include <QListWidget>
#include <QStringListModel>
#include <QTemporaryDir>
#include <QTimer>

#include <functional>

namespace {

constexpr int kGroups = 10000;

// The run of a command that only shows the dialog.
class Run final : public IQuelBuildInCommandContext
{
public:
    const wchar_t* globalName() const override { return L"MENULOAD"; }
    bool isCommandLineOnly() const override { return false; }
    bool enterResourceScope(const wchar_t*) override { return true; }
    void leaveResourceScope(int) override {}
    int findFile(const wchar_t*, wchar_t*) override { return 1; }
};

// Existing files, as paths in the order of the list.
QStringList manyFiles(const QTemporaryDir& folder)
{
    QStringList paths;
    for (int i = 0; i < kGroups; ++i) {
        paths << folder.filePath(QStringLiteral("package%1.cuix").arg(i));
        if (!QFile(paths.back()).open(QIODevice::WriteOnly))
            return {};
    }
    return paths;
}

// Runs `inside` while the dialog is shown, in the dialog's own event loop.
void withShownDialog(VxMenuLoadDlg& dialog, const std::function<void()>& inside)
{
    QTimer shown;
    shown.setSingleShot(true);
    QObject::connect(&shown, &QTimer::timeout, &dialog, [&] {
        inside();
        dialog.reject();
    });
    shown.start(0);
    dialog.DoModal();
}

// From the stored list to the painted rows.
void fillDialog(benchmark::State& state)
{
    Run run;
    VxMenuLoadDlg dialog(&run, nullptr);
    withShownDialog(dialog, [&] {
        auto* const rows = dialog.findChild<QListWidget*>();
        if (rows == nullptr)
            return state.SkipWithError("the dialog has no list");
        for (auto _ : state) {
            state.PauseTiming();
            rows->clear();
            state.ResumeTiming();
            dialog.UpdateMenuGroupList();
            rows->viewport()->repaint();
        }
        if (rows->count() != kGroups)
            state.SkipWithError("not all groups are there");
    });
}

void fillBareList(benchmark::State& state, const QStringList& paths)
{
    QListView list;
    QStringListModel model;
    list.setUniformItemSizes(true);
    list.setModel(&model);
    list.resize(250, 200);
    list.show();
    QApplication::processEvents();
    for (auto _ : state) {
        state.PauseTiming();
        model.setStringList({});
        state.ResumeTiming();
        QStringList names;
        for (const QString& path : paths) {
            if (QFile::exists(path))
                names << QFileInfo(path).baseName();
        }
        model.setStringList(names);
        list.viewport()->repaint();
    }
    if (model.rowCount() != kGroups)
        state.SkipWithError("not all names are there");
}

} // namespace

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    const QTemporaryDir folder;
    const QStringList paths = manyFiles(folder);
    quelhost::test::TestHostKind kind;
    kind.hasDisplay = true;
    const quelhost::test::TestHost host({}, kind);
    const std::wstring list = quelhost::toWide(paths.join(QLatin1Char(';')));
    if (paths.isEmpty() ||
        !host.settings->write(quelhost::Item::string(4, L"CUIX/LoadedCuix", list)))
        return 1;
    return ratios::run(
        argc, argv,
        {{"dialogList10000", fillDialog, "a bare list of the files that exist",
          [&paths](benchmark::State& state) { fillBareList(state, paths); }, 1 / 1.5}});
}
