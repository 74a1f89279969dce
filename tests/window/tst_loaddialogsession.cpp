// The dialog that MENULOAD shows, in a session in a window.
#include "tests/window/sessionfixture.h"

#include "refhost/window/mainwindow.h"

#include <QAbstractButton>
#include <QLineEdit>
#include <QListWidget>
#include <QMessageBox>
#include <QtTest/QTest>

using namespace windowtest;

namespace {

QString text(const char* utf8)
{
    return QString::fromUtf8(utf8);
}

const char kFile[] = "IDC_MENULOAD_EDITCMD";
const char kGroups[] = "IDC_MENULOAD_LIST";
const char kLoad[] = "IDC_MENULOAD_LOAD";
const char kUnload[] = "IDC_MENULOAD_BTNUNLOAD";

QStringList groupsIn(const QDialog& dialog)
{
    const auto& list = part<QListWidget>(dialog, kGroups);
    QStringList groups;
    for (int row = 0; row < list.count(); ++row)
        groups += list.item(row)->text();
    return groups;
}

void choose(const QDialog& dialog, int row)
{
    auto& list = part<QListWidget>(dialog, kGroups);
    QTest::mouseClick(list.viewport(), Qt::LeftButton, Qt::NoModifier,
                      list.visualItemRect(list.item(row)).center());
    EXPECT_EQ(list.currentRow(), row);
}

bool isEnabled(const QDialog& dialog, const char* button)
{
    return part<QAbstractButton>(dialog, button).isEnabled();
}

// The button of a message box with that text.
void answer(const QMessageBox& box, const char* button)
{
    for (QAbstractButton* each : box.buttons()) {
        if (each->text().remove(QLatin1Char('&')) == QString::fromUtf8(button)) {
            QTest::mouseClick(each, Qt::LeftButton);
            return;
        }
    }
    throw std::runtime_error(std::string("a button ") + button);
}

class LoadDialogSession : public WindowSession
{
protected:
    [[nodiscard]] QString storedList() const
    {
        return stored("CUIX/LoadedCuix").join(QString()).section(QLatin1Char('\t'), 2);
    }
    [[nodiscard]] QString mainFile() const
    {
        return m_options.profile + QStringLiteral("/QUELD.cuix");
    }
};

} // namespace

TEST_F(LoadDialogSession, LoadsATypedFileAndItsMenusComeWithOk)
{
    typeLine(text("MENULOAD"));
    inLoadDialog([this](QDialog& dialog) {
        EXPECT_EQ(groupsIn(dialog), QStringList{text("QUELD")});
        EXPECT_FALSE(isEnabled(dialog, kLoad));
        fill(dialog, kFile, m_plant);
        EXPECT_TRUE(isEnabled(dialog, kLoad));
        click(dialog, kLoad);
        EXPECT_EQ(groupsIn(dialog), (QStringList{text("QUELD"), text("plant")}));
        EXPECT_EQ(part<QListWidget>(dialog, kGroups).currentRow(), 0);
        EXPECT_FALSE(menus().contains(text("&Plant")));
        click(dialog, "IDOK");
    });
    atPrompt([] { EXPECT_TRUE(menus().contains(text("&Plant"))); });
    closeWindow();
    EXPECT_EQ(run(), "");
    EXPECT_EQ(storedList(), mainFile() + text(";") + m_plant);
}

TEST_F(LoadDialogSession, UnloadsAGroupAfterAQuestion)
{
    m_options.files = QStringList{m_plant};
    atPrompt([] { EXPECT_TRUE(menus().contains(text("&Plant"))); });
    typeLine(text("MENULOAD"));
    inLoadDialog([](QDialog& dialog) {
        EXPECT_TRUE(isEnabled(dialog, kUnload));
        choose(dialog, 1);
        click(dialog, kUnload);
    });
    inBox([](QMessageBox& box) {
        EXPECT_EQ(box.text(), text("Do you want to unload menu?"));
        answer(box, "Cancel");
    });
    inLoadDialog([](QDialog& dialog) {
        EXPECT_EQ(groupsIn(dialog), (QStringList{text("QUELD"), text("plant")}));
        choose(dialog, 1);
        click(dialog, kUnload);
    });
    inBox([](QMessageBox& box) { answer(box, "OK"); });
    inLoadDialog([](QDialog& dialog) {
        EXPECT_EQ(groupsIn(dialog), QStringList{text("QUELD")});
        EXPECT_TRUE(menus().contains(text("&Plant")));
        click(dialog, "IDOK");
    });
    atPrompt([] { EXPECT_FALSE(menus().contains(text("&Plant"))); });
    closeWindow();
    EXPECT_EQ(run(), "");
    EXPECT_EQ(storedList(), mainFile());
}

TEST_F(LoadDialogSession, TheMainFileStays)
{
    useLoadDialog([](QDialog& dialog) {
        choose(dialog, 0);
        click(dialog, kUnload);
        EXPECT_EQ(groupsIn(dialog), QStringList{text("QUELD")});
    });
    closeWindow();
    EXPECT_EQ(run(), "");
    EXPECT_EQ(storedList(), mainFile());
}

TEST_F(LoadDialogSession, AMissingFileIsToldInABox)
{
    typeLine(text("MENULOAD"));
    inLoadDialog([](QDialog& dialog) {
        fill(dialog, kFile, text("/t/%s/no.cuix"));
        click(dialog, kLoad);
    });
    inBox([](QMessageBox& box) {
        EXPECT_EQ(box.text(), text("Menu file load failed.  File not found:\"/t/%s/no.cuix\""));
        answer(box, "OK");
    });
    inLoadDialog([](QDialog& dialog) { click(dialog, "IDOK"); });
    closeWindow();
    EXPECT_EQ(run(), "");
    EXPECT_EQ(storedList(), mainFile());
}

TEST_F(LoadDialogSession, AFileThatIsLoadedAlreadyIsToldAtTheCommandLine)
{
    m_options.files = QStringList{m_plant};
    typeLine(text("MENULOAD"));
    inLoadDialog([this](QDialog& dialog) {
        fill(dialog, kFile, m_plant);
        click(dialog, kLoad);
    });
    waitForText(text("\"%1\" is already loaded.").arg(m_plant));
    inLoadDialog([](QDialog& dialog) { click(dialog, "IDOK"); });
    closeWindow();
    EXPECT_EQ(run(), "");
    EXPECT_EQ(storedList(), mainFile() + text(";") + m_plant);
}

TEST_F(LoadDialogSession, WhatWasLoadedStaysWhenTheDialogIsClosedByEsc)
{
    typeLine(text("MENULOAD"));
    inLoadDialog([this](QDialog& dialog) {
        fill(dialog, kFile, m_plant);
        click(dialog, kLoad);
        QTest::keyClick(&dialog, Qt::Key_Escape);
    });
    atPrompt([] { EXPECT_TRUE(menus().contains(text("&Plant"))); });
    closeWindow();
    EXPECT_EQ(run(), "");
    EXPECT_EQ(storedList(), mainFile() + text(";") + m_plant);
}

TEST_F(LoadDialogSession, TheMainWindowWaitsWhileTheDialogIsOpen)
{
    useLoadDialog([](QDialog& dialog) {
        EXPECT_TRUE(dialog.isModal());
        EXPECT_EQ(QApplication::activeModalWidget(), &dialog);
        QTest::mouseClick(window().windowHandle(), Qt::LeftButton, Qt::NoModifier, QPoint(20, 10));
        EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
    });
    closeWindow();
    EXPECT_EQ(run(), "");
}
