// A command line in a window of its own that has the keyboard, and what came out of it.
#pragma once

#include "refhost/window/commandline.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QClipboard>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QPlainTextEdit>
#include <QTemporaryDir>
#include <QToolButton>
#include <QtTest/QTest>

#include <memory>
#include <string>
#include <vector>

class CommandLines : public testing::Test
{
protected:
    void SetUp() override { ASSERT_TRUE(begin()); }

    // A new command line with the history of the one before.
    [[nodiscard]] bool begin()
    {
        m_commandLine = std::make_unique<quelhost::CommandLine>(historyFile());
        QObject::connect(m_commandLine.get(), &quelhost::CommandLine::lineEntered,
                         [this](const QString& line) { m_entered.push_back(line.toStdString()); });
        QObject::connect(m_commandLine.get(), &quelhost::CommandLine::cancelled,
                         [this] { ++m_cancels; });
        m_commandLine->resize(600, 200);
        m_commandLine->show();
        m_commandLine->activateWindow();
        return QTest::qWaitForWindowActive(m_commandLine.get());
    }

    void ask(quelhost::Completion completion = quelhost::Completion::Nothing,
             const QStringList& words = {}, const wchar_t* prompt = L"Command: ")
    {
        m_commandLine->ask({prompt, completion, words, false});
    }

    // Keys for whatever has the focus.
    static void press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        QTest::keyClick(QApplication::focusWidget(), key, modifiers);
    }
    // Character by character, whatever they are.
    static void type(const char* text)
    {
        for (const uint character : QString::fromUtf8(text).toUcs4())
            QTest::sendKeyEvent(QTest::Click, QApplication::focusWidget(), Qt::Key_unknown,
                                QString::fromUcs4(&character, 1), Qt::NoModifier);
    }

    // Types a line and gives it to the history, as whoever asked does.
    void typeLine(const char* text)
    {
        ask();
        type(text);
        press(Qt::Key_Return);
        m_commandLine->remember(QString::fromUtf8(text).toStdWString());
    }

    [[nodiscard]] QLineEdit& line() const
    {
        return *m_commandLine->findChild<QLineEdit*>(QStringLiteral("line"));
    }
    [[nodiscard]] QPlainTextEdit& above() const
    {
        return *m_commandLine->findChild<QPlainTextEdit*>(QStringLiteral("said"));
    }
    [[nodiscard]] QListView& list() const
    {
        return *m_commandLine->findChild<QListView*>(QStringLiteral("suggestions"));
    }
    // The suggestions that are shown, the chosen one in brackets.
    [[nodiscard]] std::vector<std::string> suggested() const
    {
        std::vector<std::string> texts;
        for (int row = 0; list().isVisible() && row < list().model()->rowCount(); ++row) {
            const QModelIndex index = list().model()->index(row, 0);
            const std::string text = index.data().toString().toStdString();
            texts.push_back(index == list().currentIndex() ? "[" + text + "]" : text);
        }
        return texts;
    }
    [[nodiscard]] QWidget& keywords() const
    {
        return *m_commandLine->findChild<QWidget*>(QStringLiteral("keywords"));
    }
    // The keyword buttons that are shown.
    [[nodiscard]] std::vector<QToolButton*> buttons() const
    {
        std::vector<QToolButton*> shown;
        for (QToolButton* button : keywords().findChildren<QToolButton*>()) {
            if (button->isVisible())
                shown.push_back(button);
        }
        return shown;
    }
    [[nodiscard]] std::string typed() const { return line().text().toStdString(); }
    [[nodiscard]] std::string said() const { return above().toPlainText().toStdString(); }
    [[nodiscard]] std::string prompt() const
    {
        return m_commandLine->findChild<QLabel*>(QStringLiteral("prompt"))->text().toStdString();
    }
    [[nodiscard]] QString historyFile() const
    {
        return m_folder.filePath(QStringLiteral("history"));
    }
    [[nodiscard]] static std::string clipboard()
    {
        return QApplication::clipboard()->text().toStdString();
    }

    QTemporaryDir m_folder;
    std::unique_ptr<quelhost::CommandLine> m_commandLine;
    std::vector<std::string> m_entered;
    int m_cancels = 0;
};
