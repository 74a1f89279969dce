// Picking a menu file in a session in a window, from the load dialog and by MENU.
#include "tests/window/sessionfixture.h"

#include <QComboBox>
#include <QFileDialog>
#include <QLineEdit>
#include <QPushButton>
#include <QtTest/QTest>

using namespace windowtest;

namespace {

constexpr char kFile[] = "IDC_MENULOAD_EDITCMD";
constexpr char kBrowse[] = "IDC_MENULOAD_BROWSE";
constexpr char kKeys[] = "UserInterfaceSettings\\\\Select Menu File";

QString text(const char* utf8)
{
    return QString::fromUtf8(utf8);
}

QString nameIn(const QFileDialog& dialog)
{
    return part<QLineEdit>(dialog, "fileNameEdit").text();
}

void chooseFilter(const QFileDialog& dialog, int index)
{
    auto& filters = part<QComboBox>(dialog, "fileTypeCombo");
    while (filters.currentIndex() < index)
        QTest::keyClick(&filters, Qt::Key_Down);
    EXPECT_EQ(filters.currentIndex(), index);
}

// Letters come faster here than anybody types, and the list of names that fit would open and close
// with each, which no window manager follows: it is left out.
void typeName(const QFileDialog& dialog, const QString& name)
{
    part<QLineEdit>(dialog, "fileNameEdit").setCompleter(nullptr);
    fill(dialog, "fileNameEdit", name);
}

void accept(const QFileDialog& dialog)
{
    QTest::keyClick(&part<QLineEdit>(dialog, "fileNameEdit"), Qt::Key_Return);
}

class FileDialogSession : public WindowSession
{
protected:
    [[nodiscard]] QStringList remembered(int filter, const QString& file) const
    {
        const QString key = QString::fromLatin1(kKeys);
        return {key + text("\tsection"), key + text("\\\\InitialDirectory\tstring\t") + file,
                key + text("\\\\InitialFilterIndex\tint\t%1").arg(filter)};
    }

    // A file dialog that opens on nothing remembered: names a file and picks it.
    void pickFirst(const QString& file, int filter)
    {
        inFileDialog([file, filter](QFileDialog& dialog) {
            EXPECT_EQ(dialog.windowTitle(), text("Select Menu File"));
            EXPECT_EQ(dialog.nameFilters().size(), 4);
            EXPECT_EQ(dialog.selectedNameFilter(), text("Customization files(*.cuix)"));
            chooseFilter(dialog, filter);
            typeName(dialog, file);
            accept(dialog);
        });
    }
};

} // namespace

TEST_F(FileDialogSession, BrowseFillsInTheFileAndRemembersItWithItsFilter)
{
    typeLine(text("MENULOAD"));
    inLoadDialog([](QDialog& dialog) { click(dialog, kBrowse); });
    pickFirst(m_plant, 1);
    inLoadDialog([this](QDialog& dialog) {
        EXPECT_EQ(part<QLineEdit>(dialog, kFile).text(), m_plant);
        EXPECT_TRUE(part<QPushButton>(dialog, "IDC_MENULOAD_LOAD").isEnabled());
        click(dialog, kBrowse);
    });
    inFileDialog([this](QFileDialog& dialog) {
        EXPECT_EQ(dialog.selectedNameFilter(), text("Menu Template(*.mnu)"));
        EXPECT_EQ(dialog.directory().absolutePath(), m_folder.path());
        EXPECT_EQ(nameIn(dialog), text("plant.cuix"));
        chooseFilter(dialog, 3);
        QTest::keyClick(&dialog, Qt::Key_Escape);
    });
    inLoadDialog([this](QDialog& dialog) {
        EXPECT_EQ(part<QLineEdit>(dialog, kFile).text(), m_plant);
        click(dialog, "IDC_MENULOAD_LOAD");
        click(dialog, "IDOK");
    });
    closeWindow();
    EXPECT_EQ(run(), "");
    EXPECT_EQ(stored(kKeys), remembered(2, m_plant));
}

TEST_F(FileDialogSession, TheNextSessionOpensItOnTheFileChosenLast)
{
    typeLine(text("MENU"));
    pickFirst(m_plant, 0);
    closeWindow();
    EXPECT_EQ(run(), "");
    typeLine(text("MENU"));
    inFileDialog([this](QFileDialog& dialog) {
        EXPECT_EQ(dialog.selectedNameFilter(), text("Customization files(*.cuix)"));
        EXPECT_EQ(dialog.directory().absolutePath(), m_folder.path());
        EXPECT_EQ(nameIn(dialog), text("plant.cuix"));
        accept(dialog);
    });
    closeWindow();
    EXPECT_EQ(run(), "");
    EXPECT_EQ(stored(kKeys), remembered(1, m_plant));
}

TEST_F(FileDialogSession, MenuPicksAFileToo)
{
    typeLine(text("MENU"));
    pickFirst(m_plant, 2);
    typeLine(text("MENU"));
    inFileDialog([this](QFileDialog& dialog) {
        EXPECT_EQ(dialog.selectedNameFilter(), text("Menu File(*.mns)"));
        EXPECT_EQ(dialog.directory().absolutePath(), m_folder.path());
        EXPECT_EQ(nameIn(dialog), text("plant.cuix"));
        QTest::keyClick(&dialog, Qt::Key_Escape);
    });
    closeWindow();
    EXPECT_EQ(run(), "");
    EXPECT_EQ(stored(kKeys), remembered(3, m_plant));
    EXPECT_FALSE(stored("CUIX/LoadedCuix").join(QString()).contains(m_plant));
}

TEST_F(FileDialogSession, CancellingRemembersNothing)
{
    typeLine(text("MENU"));
    inFileDialog([](QFileDialog& dialog) {
        chooseFilter(dialog, 1);
        QTest::keyClick(&dialog, Qt::Key_Escape);
    });
    typeLine(text("MENULOAD"));
    inLoadDialog([](QDialog& dialog) { click(dialog, kBrowse); });
    inFileDialog([](QFileDialog& dialog) { dialog.close(); });
    inLoadDialog([](QDialog& dialog) {
        EXPECT_EQ(part<QLineEdit>(dialog, kFile).text(), QString());
        click(dialog, "IDOK");
    });
    closeWindow();
    EXPECT_EQ(run(), "");
    EXPECT_EQ(stored(kKeys), QStringList());
}
