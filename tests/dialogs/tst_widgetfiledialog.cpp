// The file dialog in a window.
#include "refhost/dialogs/widgetface.h"
#include "tests/core/settingssupport.h"
#include "tests/dialogs/modalscript.h"

#include <gtest/gtest.h>

#include <QComboBox>
#include <QDir>
#include <QFileDialog>
#include <QLineEdit>
#include <QtTest/QTest>

#include <functional>

using quelhost::FileRequest;
using quelhost::PickedFile;
using quelhost::test::ScratchFolder;

namespace {

QString text(const char* utf8)
{
    return QString::fromUtf8(utf8);
}

const QStringList kFilters{text("Customization files(*.cuix)"), text("Menu Template(*.mnu)"),
                           text("Menu File(*.mns)"), text("Menu File(*.mns)")};

QLineEdit& nameEdit(const QFileDialog& dialog)
{
    return *dialog.findChild<QLineEdit*>(text("fileNameEdit"));
}

void enter(const QFileDialog& dialog, const QString& name)
{
    nameEdit(dialog).selectAll();
    QTest::keyClicks(&nameEdit(dialog), name);
    QTest::keyClick(&nameEdit(dialog), Qt::Key_Return);
}

void acceptAsItStands(const QFileDialog& dialog)
{
    QTest::keyClick(&nameEdit(dialog), Qt::Key_Return);
}

struct WidgetFileDialog : testing::Test
{
    using Steps = std::function<void(QFileDialog&)>;

    WidgetFileDialog()
    {
        made = quelhost::test::setBytes(plant, "x") && quelhost::test::setBytes(other, "x") &&
               QDir().mkpath(folder.file("inside"));
    }
    void SetUp() override { ASSERT_TRUE(made); }

    std::optional<PickedFile> pick(const FileRequest& request, Steps steps)
    {
        next(std::move(steps));
        return face.pickFile(request);
    }
    void next(Steps steps)
    {
        script.next([steps = std::move(steps)](QDialog& shown) {
            steps(dynamic_cast<QFileDialog&>(shown));
        });
    }
    // Where the dialog opens with that start.
    QString openedOn(const QString& start)
    {
        QString result;
        pick({text("Title"), start, kFilters, 0}, [&](QFileDialog& dialog) {
            result = dialog.directory().absolutePath();
            dialog.reject();
        });
        return result;
    }

    ScratchFolder folder;
    const QString plant = folder.file("pl ant.cuix");
    const QString other = folder.file("other.mnu");
    bool made = false;
    dialogtest::ModalScript script;
    quelhost::WidgetFace face{{}};
};

} // namespace

TEST_F(WidgetFileDialog, PicksAFileByItsName)
{
    const auto picked =
        pick({text("Select Menu File"), folder.path(), kFilters, 0}, [&](QFileDialog& dialog) {
            EXPECT_EQ(dialog.windowTitle(), text("Select Menu File"));
            EXPECT_EQ(dialog.nameFilters(), kFilters);
            EXPECT_EQ(dialog.selectedNameFilter(), kFilters[0]);
            enter(dialog, text("pl ant.cuix"));
        });
    ASSERT_TRUE(picked.has_value());
    EXPECT_EQ(picked->path, plant);
    EXPECT_EQ(picked->filterIndex, 0);
}

TEST_F(WidgetFileDialog, OpensOnAFileAndReturnTakesIt)
{
    const auto picked = pick({text("Title"), plant, kFilters, 0}, [&](QFileDialog& dialog) {
        EXPECT_EQ(dialog.directory().absolutePath(), folder.path());
        EXPECT_EQ(nameEdit(dialog).text(), text("pl ant.cuix"));
        acceptAsItStands(dialog);
    });
    ASSERT_TRUE(picked.has_value());
    EXPECT_EQ(picked->path, plant);
}

TEST_F(WidgetFileDialog, OpensOnTheNearestFolderThatThereIs)
{
    EXPECT_EQ(openedOn(folder.path()), folder.path());
    EXPECT_EQ(openedOn(folder.file("inside") + text("/")), folder.file("inside"));
    EXPECT_EQ(openedOn(folder.file("inside/missing.cuix")), folder.file("inside"));
    EXPECT_EQ(openedOn(folder.file("inside/no/such/folder/a.cuix")), folder.file("inside"));
    EXPECT_EQ(openedOn(plant + text("/below.cuix")), folder.path());
    EXPECT_EQ(openedOn(text("/")), text("/"));
    EXPECT_EQ(openedOn(text("missing.cuix")), QDir::currentPath());
    EXPECT_EQ(openedOn(text("no/such/folder/a.cuix")), QDir::currentPath());
}

TEST_F(WidgetFileDialog, ANameThatIsNotThereStaysOutOfTheEdit)
{
    pick({text("Title"), folder.file("inside/missing.cuix"), kFilters, 0}, [](QFileDialog& dialog) {
        EXPECT_EQ(nameEdit(dialog).text(), QString());
        dialog.reject();
    });
}

TEST_F(WidgetFileDialog, AMissingFileIsToldAndTheDialogStays)
{
    const auto picked = pick({text("Title"), folder.path(), kFilters, 0}, [&](QFileDialog& dialog) {
        script.next([](QDialog& warning) { warning.accept(); });
        enter(dialog, text("missing.cuix"));
        EXPECT_TRUE(dialog.isVisible());
        enter(dialog, text("pl ant.cuix"));
    });
    ASSERT_TRUE(picked.has_value());
    EXPECT_EQ(picked->path, plant);
    EXPECT_EQ(script.shown(), 2);
}

TEST_F(WidgetFileDialog, CancelGivesNothing)
{
    for (const bool byEscape : {true, false}) {
        const auto picked = pick({text("Title"), plant, kFilters, 0}, [&](QFileDialog& dialog) {
            if (byEscape)
                QTest::keyClick(&dialog, Qt::Key_Escape);
            else
                dialog.close();
        });
        EXPECT_FALSE(picked.has_value());
    }
}

TEST_F(WidgetFileDialog, ShowsTheFilterThatIsAskedForAndTellsTheOneThatIsChosen)
{
    const auto picked = pick({text("Title"), folder.path(), kFilters, 1}, [&](QFileDialog& dialog) {
        EXPECT_EQ(dialog.selectedNameFilter(), kFilters[1]);
        enter(dialog, text("other.mnu"));
    });
    ASSERT_TRUE(picked.has_value());
    EXPECT_EQ(picked->path, other);
    EXPECT_EQ(picked->filterIndex, 1);

    const auto changed = pick({text("Title"), other, kFilters, 0}, [&](QFileDialog& dialog) {
        QTest::keyClick(dialog.findChild<QComboBox*>(text("fileTypeCombo")), Qt::Key_Down);
        EXPECT_EQ(dialog.selectedNameFilter(), kFilters[1]);
        enter(dialog, text("other.mnu"));
    });
    ASSERT_TRUE(changed.has_value());
    EXPECT_EQ(changed->filterIndex, 1);
}

TEST_F(WidgetFileDialog, OfTwoFiltersThatReadTheSameTheOneAskedForCounts)
{
    for (const int index : {2, 3}) {
        const auto picked = pick({text("Title"), plant, kFilters, index},
                                 [](QFileDialog& dialog) { enter(dialog, text("pl ant.cuix")); });
        ASSERT_TRUE(picked.has_value());
        EXPECT_EQ(picked->filterIndex, index);
    }
}

TEST_F(WidgetFileDialog, AFilterThatIsNotThereIsTheFirst)
{
    for (const int index : {-1, 4, 1000}) {
        const auto picked = pick({text("Title"), plant, kFilters, index}, acceptAsItStands);
        ASSERT_TRUE(picked.has_value());
        EXPECT_EQ(picked->filterIndex, 0) << index;
    }
}

TEST_F(WidgetFileDialog, WithoutFiltersTheIndexStays)
{
    for (const int index : {0, 3}) {
        const auto picked = pick({text("Title"), plant, {}, index}, acceptAsItStands);
        ASSERT_TRUE(picked.has_value());
        EXPECT_EQ(picked->path, plant);
        EXPECT_EQ(picked->filterIndex, index);
    }
}

TEST_F(WidgetFileDialog, TheSecondTimeItOpensWhereItIsTold)
{
    pick({text("Title"), plant, kFilters, 2}, acceptAsItStands);
    pick({text("Other"), folder.file("inside"), kFilters, 1}, [&](QFileDialog& dialog) {
        EXPECT_EQ(dialog.windowTitle(), text("Other"));
        EXPECT_EQ(dialog.directory().absolutePath(), folder.file("inside"));
        EXPECT_EQ(dialog.selectedNameFilter(), kFilters[1]);
        EXPECT_EQ(nameEdit(dialog).text(), QString());
        dialog.reject();
    });
}
