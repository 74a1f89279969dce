#include "refhost/dialogs/dialogdescription.h"

#include "refhost/core/resources.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QLayout>
#include <QUiLoader>

namespace quelhost {

namespace {

struct NeededControl
{
    const char* dialog;
    const char* name;
    const char* widgetClass;
};

// What the commands of the known modules reach for in their dialogs.
constexpr NeededControl kNeededControls[] = {
    {"IDD_MENU_LOAD_DLG", "IDC_MENULOAD_LIST", "QListWidget"},
    {"IDD_MENU_LOAD_DLG", "IDC_MENULOAD_EDITCMD", "QLineEdit"},
    {"IDD_MENU_LOAD_DLG", "IDC_MENULOAD_LOAD", "QPushButton"},
    {"IDD_MENU_LOAD_DLG", "IDC_MENULOAD_BTNUNLOAD", "QPushButton"},
    {"IDD_MENU_LOAD_DLG", "IDC_MENULOAD_BROWSE", "QPushButton"},
    {"IDD_MENU_LOAD_DLG", "IDC_MENULOAD_HELP", "QPushButton"},
    {"IDD_MENU_LOAD_DLG", "IDOK", "QPushButton"},
    {"IDD_MENU_LOAD_DLG", "IDC_MENULOAD_GRPMENU", "QGroupBox"},
    {"IDD_MENU_LOAD_DLG", "IDC_MENULOAD_GRPFILE", "QGroupBox"},
    {"IDD_MENU_LOAD_DLG", "IDC_MENULOAF_FILENAME", "QLabel"},
};

// While one lives, the toolkit finds no plugins that it has not loaded yet.
class NoFurtherPlugins
{
public:
    NoFurtherPlugins() { QCoreApplication::setLibraryPaths({}); }
    ~NoFurtherPlugins() { QCoreApplication::setLibraryPaths(m_paths); }
    NoFurtherPlugins(const NoFurtherPlugins&) = delete;
    NoFurtherPlugins& operator=(const NoFurtherPlugins&) = delete;

private:
    const QStringList m_paths = QCoreApplication::libraryPaths();
};

// Builds into a dialog that exists already: it takes the place of the description's outermost
// widget.
//
// Only the toolkit's own widgets: made by itself, the toolkit's loader would load every plugin for
// its designer that the machine has, and with them some sixty libraries.
class IntoDialog final : private NoFurtherPlugins, public QUiLoader
{
public:
    explicit IntoDialog(QDialog& dialog)
        : m_dialog(dialog)
    {}

    QWidget* createWidget(const QString& className, QWidget* parent, const QString& name) override
    {
        if (parent != nullptr)
            return QUiLoader::createWidget(className, parent, name);
        m_describesDialog = className == QLatin1String("QDialog");
        if (!m_describesDialog)
            return nullptr;
        m_dialog.setObjectName(name);
        return &m_dialog;
    }

    // What is wrong when nothing was built.
    [[nodiscard]] QString fault() const
    {
        return m_describesDialog ? errorString() : qtTrId("dialog-not-a-dialog");
    }

private:
    QDialog& m_dialog;
    bool m_describesDialog = true;
};

Fault damaged(const QString& path, const QString& why)
{
    return Fault{FaultKind::Damaged, qtTrId("dialog-damaged").arg(path, why), {}, 0, 0};
}

bool isPlainName(const QString& name)
{
    return !name.isEmpty() && !name.contains(QLatin1Char('/')) &&
           !name.startsWith(QLatin1Char('.'));
}

QString descriptionFile(const DialogDescription& description)
{
    const QStringList parts = description.resource.split(QLatin1Char('/')) << description.dialog;
    for (const QString& part : parts) {
        if (!isPlainName(part))
            return {};
    }
    return QDir(description.resourceFolder)
        .filePath(parts.join(QLatin1Char('/')) + QStringLiteral(".ui"));
}

// What is wrong with the controls, or nothing.
QString controlsFault(const QDialog& dialog, const QString& dialogName)
{
    for (const NeededControl& needed : kNeededControls) {
        if (dialogName != QLatin1String(needed.dialog))
            continue;
        const QString name = QLatin1String(needed.name);
        const auto* control = dialog.findChild<QWidget*>(name, Qt::FindDirectChildrenOnly);
        if (control == nullptr)
            return qtTrId("dialog-control-missing").arg(name);
        if (!control->inherits(needed.widgetClass))
            return qtTrId("dialog-control-wrong").arg(name, QLatin1String(needed.widgetClass));
    }
    return dialog.layout() == nullptr ? QString() : qtTrId("dialog-has-layout");
}

void removeControls(QDialog& dialog)
{
    delete dialog.layout();
    qDeleteAll(dialog.findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly));
}

} // namespace

Status buildDialog(QDialog& dialog, const DialogDescription& description)
{
    const QString path = descriptionFile(description);
    QFile file(path);
    if (path.isEmpty() || !file.open(QIODevice::ReadOnly)) {
        const QString name = description.resource + QLatin1Char('/') + description.dialog;
        return Fault{FaultKind::NotFound, qtTrId("dialog-missing").arg(name), {}, 0, 0};
    }
    const QString resourceFile = description.resource.section(QLatin1Char('/'), 0, 0);
    const auto texts =
        installTexts(QDir(description.resourceFolder).filePath(resourceFile), description.language);
    IntoDialog loader(dialog);
    const QWidget* const built = loader.load(&file);
    const QString wrong =
        built == nullptr ? loader.fault() : controlsFault(dialog, description.dialog);
    if (built != nullptr && wrong.isEmpty())
        return Done{};
    removeControls(dialog);
    return damaged(path, wrong);
}

} // namespace quelhost
