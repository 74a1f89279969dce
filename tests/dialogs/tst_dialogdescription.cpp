// Building a dialog from its description, and saying what is wrong with one.
#include "refhost/dialogs/dialogdescription.h"
#include "tests/dialogs/smalldialog.h"
#include "tests/dialogs/testservices.h"

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QLayout>
#include <QLibraryInfo>
#include <QListWidget>
#include <QPushButton>
#include <QTemporaryDir>

using dialogtest::DescriptionFolder;
using dialogtest::SmallDialog;
using quelhost::buildDialog;
using quelhost::DialogDescription;
using quelhost::FaultKind;
using quelhost::Status;

namespace {

QString text(const char* utf8)
{
    return QString::fromUtf8(utf8);
}

DialogDescription realDialog()
{
    return {QStringLiteral(QUEL_RESOURCES), text("VxCuiCmdsRes/VxMenuCmdRes"),
            text("IDD_MENU_LOAD_DLG"), text("en")};
}

// The real description as it stands.
QByteArray realText()
{
    QFile file(QStringLiteral(QUEL_RESOURCES "/VxCuiCmdsRes/VxMenuCmdRes/IDD_MENU_LOAD_DLG.ui"));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

bool hasNothingInIt(const QDialog& dialog)
{
    return dialog.findChildren<QWidget*>().isEmpty() && dialog.layout() == nullptr;
}

struct DamagedRow
{
    const char* name;
    const char* replaced; // null: all of the text
    const char* by;
    const char* complaint; // a part of it
};

void PrintTo(const DamagedRow& row, std::ostream* stream)
{
    *stream << row.name;
}

class DamagedDescription : public testing::TestWithParam<DamagedRow>
{};

INSTANTIATE_TEST_SUITE_P(
    Descriptions, DamagedDescription,
    testing::Values(
        DamagedRow{"NotXml", nullptr, "no description at all", ""},
        DamagedRow{"Empty", nullptr, "", ""},
        DamagedRow{"OtherXml", nullptr, "<?xml version=\"1.0\"?><html><body/></html>", ""},
        DamagedRow{"CutOff", "  <widget class=\"QPushButton\" name=\"IDOK\">", "<", ""},
        DamagedRow{"NoDialog", "class=\"QDialog\"", "class=\"QWidget\"", "it describes no dialog."},
        DamagedRow{"ControlMissing", "name=\"IDC_MENULOAD_LIST\"", "name=\"IDC_OTHER\"",
                   "it has no control IDC_MENULOAD_LIST."},
        DamagedRow{"LabelSpelledRight", "name=\"IDC_MENULOAF_FILENAME\"",
                   "name=\"IDC_MENULOAD_FILENAME\"", "it has no control IDC_MENULOAF_FILENAME."},
        DamagedRow{"ControlOfAnotherClass", "class=\"QListWidget\"", "class=\"QTreeWidget\"",
                   "its control IDC_MENULOAD_LIST is no QListWidget."},
        DamagedRow{"ControlOfNoClass", "class=\"QListWidget\"", "class=\"NoSuchWidget\"",
                   "it has no control IDC_MENULOAD_LIST."},
        DamagedRow{"Layout", "  <widget class=\"QGroupBox\" name=\"IDC_MENULOAD_GRPFILE\">",
                   "<layout class=\"QVBoxLayout\"/>"
                   "<widget class=\"QGroupBox\" name=\"IDC_MENULOAD_GRPFILE\">",
                   "it arranges its controls in a layout."}),
    [](const auto& row) { return std::string(row.param.name); });

} // namespace

TEST(DialogDescription, LoadsNoPluginsOfTheMachine)
{
    const QTemporaryDir folder;
    const QString plugin = folder.filePath(text("designer/libprobe.so"));
    ASSERT_TRUE(QDir(folder.path()).mkdir(text("designer")));
    ASSERT_TRUE(QFile::copy(QLibraryInfo::location(QLibraryInfo::PluginsPath) +
                                text("/platforms/libqoffscreen.so"),
                            plugin));
    const QStringList before = QCoreApplication::libraryPaths();
    QCoreApplication::addLibraryPath(folder.path());
    const QStringList paths = QCoreApplication::libraryPaths();
    QDialog dialog;
    EXPECT_TRUE(buildDialog(dialog, realDialog()));
    EXPECT_EQ(QCoreApplication::libraryPaths(), paths);
    QFile mappings(text("/proc/self/maps"));
    ASSERT_TRUE(mappings.open(QIODevice::ReadOnly));
    const QByteArray mapped = mappings.readAll();
    EXPECT_TRUE(mapped.contains("libQt5Core"));
    EXPECT_FALSE(mapped.contains(plugin.toUtf8()));
    QCoreApplication::setLibraryPaths(before);
}

TEST_P(DamagedDescription, IsRefusedWithItsFileAndTheReason)
{
    const DamagedRow& row = GetParam();
    QByteArray description = row.replaced == nullptr ? QByteArray(row.by) : realText();
    if (row.replaced != nullptr) {
        ASSERT_TRUE(description.contains(row.replaced));
        description.replace(row.replaced, row.by);
    }
    const DescriptionFolder folder;
    const QString path = folder.write("IDD_MENU_LOAD_DLG", description);
    QDialog dialog;
    const Status status = buildDialog(
        dialog, {folder.path(), text("Small/Part"), text("IDD_MENU_LOAD_DLG"), text("en")});
    ASSERT_FALSE(status);
    EXPECT_EQ(status.fault().kind, FaultKind::Damaged);
    const QString sentence = status.fault().text();
    const QString start =
        text("The dialog cannot be shown: its description %1 is damaged: ").arg(path);
    EXPECT_TRUE(sentence.startsWith(start)) << sentence.toStdString();
    EXPECT_TRUE(sentence.endsWith(text(row.complaint))) << sentence.toStdString();
    EXPECT_GT(sentence.size(), start.size());
    EXPECT_TRUE(hasNothingInIt(dialog));
}

// Where a control stands is told in the dialog's coordinates.
TEST(DialogDescription, AControlInsideAFrameIsMissing)
{
    const QByteArray label = "<widget class=\"QLabel\"";
    const QByteArray edit = "<widget class=\"QLineEdit\"";
    QByteArray description = realText();
    const int frameEnd = description.lastIndexOf("</widget>", description.indexOf(label));
    ASSERT_GT(frameEnd, 0);
    description.remove(frameEnd, static_cast<int>(qstrlen("</widget>")));
    description.replace(edit, "</widget>" + edit);
    const DescriptionFolder folder;
    folder.write("IDD_MENU_LOAD_DLG", description);
    QDialog dialog;
    const Status status = buildDialog(
        dialog, {folder.path(), text("Small/Part"), text("IDD_MENU_LOAD_DLG"), text("en")});
    ASSERT_FALSE(status);
    EXPECT_TRUE(status.fault().text().endsWith(text("it has no control IDC_MENULOAF_FILENAME.")))
        << status.fault().text().toStdString();
}

TEST(DialogDescription, ADescriptionThatIsNotThereIsNamed)
{
    DialogDescription description = realDialog();
    description.dialog = text("IDD_OTHER");
    QDialog dialog;
    const Status status = buildDialog(dialog, description);
    ASSERT_FALSE(status);
    EXPECT_EQ(status.fault().kind, FaultKind::NotFound);
    EXPECT_EQ(status.fault().text(), text("The dialog cannot be shown: its description "
                                          "VxCuiCmdsRes/VxMenuCmdRes/IDD_OTHER is not there."));
    EXPECT_TRUE(hasNothingInIt(dialog));
}

// A name never leads out of the folder of resource files.
TEST(DialogDescription, ANameIsNoWayToAnotherFolder)
{
    const DescriptionFolder folder;
    folder.write("IDD_SMALL", dialogtest::smallDescription());
    const QString deeper = folder.path() + text("/Small");
    const struct
    {
        const char* resource;
        const char* dialog;
    } rows[] = {
        {"../Small/Part", "IDD_SMALL"},
        {"Part/../Part", "IDD_SMALL"},
        {"Part", "../Part/IDD_SMALL"},
        {"", "Part/IDD_SMALL"},
        {"Part/", "IDD_SMALL"},
        {"/Part", "IDD_SMALL"},
        {"Part", ""},
        {"", ""},
        {"./Part", "IDD_SMALL"},
        {"Part//", "IDD_SMALL"},
        {"Part", "."},
        {"Part", ".IDD_SMALL"},
    };
    for (const auto& row : rows) {
        QDialog dialog;
        const Status status =
            buildDialog(dialog, {deeper, text(row.resource), text(row.dialog), text("en")});
        EXPECT_FALSE(status) << row.resource << " " << row.dialog;
        EXPECT_TRUE(hasNothingInIt(dialog));
    }
    QDialog dialog;
    EXPECT_TRUE(buildDialog(dialog, {deeper, text("Part"), text("IDD_SMALL"), text("en")}));
}

TEST(DialogDescription, AFolderOfThatNameIsNoDescription)
{
    const DescriptionFolder folder;
    folder.write("IDD_SMALL.ui/inside", {});
    QDialog dialog;
    EXPECT_FALSE(
        buildDialog(dialog, {folder.path(), text("Small/Part"), text("IDD_SMALL"), text("en")}));
}

TEST(DialogDescription, BuildsTheControlsWithTheirSizesAtOnce)
{
    const DescriptionFolder folder;
    folder.write("IDD_SMALL", dialogtest::smallDescription());
    QDialog dialog;
    ASSERT_TRUE(
        buildDialog(dialog, {folder.path(), text("Small/Part"), text("IDD_SMALL"), text("en")}));
    EXPECT_EQ(dialog.size(), QSize(300, 200));
    EXPECT_EQ(dialog.objectName(), text("IDD_SMALL"));
    EXPECT_FALSE(dialog.isVisible());
    const auto* const rows = dialog.findChild<QListWidget*>(text("IDC_LIST"));
    ASSERT_NE(rows, nullptr);
    EXPECT_EQ(rows->geometry(), QRect(10, 50, 200, 100));
    EXPECT_EQ(rows->parentWidget(), &dialog);
}

TEST(DialogDescription, ItsTextsAreInForceOnlyWhileItIsBuilt)
{
    QDialog dialog;
    ASSERT_TRUE(buildDialog(dialog, realDialog()));
    EXPECT_EQ(dialog.windowTitle(), text("Load and Unload Customization Files"));
    EXPECT_EQ(qtTrId("IDD_MENU_LOAD_DLG.title"), text("IDD_MENU_LOAD_DLG.title"));
}

TEST(DialogDescription, ADamagedOneIsToldOnceWhenADialogIsMadeOfIt)
{
    const DescriptionFolder folder;
    folder.write("IDD_SMALL", "no description");
    SmallDialog dialog;
    EXPECT_FALSE(dialog.built());
    EXPECT_EQ(dialog.DoModal(), -1);
    ASSERT_EQ(dialogtest::services().sentences.size(), 1);
    EXPECT_TRUE(dialogtest::services().sentences[0].contains(text("IDD_SMALL.ui is damaged")))
        << dialogtest::services().sentences[0].toStdString();
    EXPECT_TRUE(dialog.steps.empty());
}
