// A whole session in a window on a real display, driven by keys and the mouse.
#pragma once

#include "refhost/window/windowprogram.h"
#include "tests/window/stepdriver.h"

#include <gtest/gtest.h>

#include <QDialog>
#include <QStringList>
#include <QTemporaryDir>

#include <stdexcept>

class QFileDialog;
class QMessageBox;

namespace quelhost {
class MainWindow;
}

namespace windowtest {

// The widget of that name in a window. Throws when there is none, which fails the step.
template<class Widget>
[[nodiscard]] Widget& part(const QWidget& of, const char* name)
{
    auto* const found = of.findChild<Widget*>(QString::fromLatin1(name));
    if (found == nullptr)
        throw std::runtime_error(std::string("a part named ") + name);
    return *found;
}

// Clicks the button of that name.
void click(const QWidget& of, const char* button);
// Types into the field of that name, in place of what it holds.
void fill(const QWidget& of, const char* field, const QString& text);

class WindowSession : public testing::Test
{
protected:
    WindowSession();

    // Steps at the command line, once the prompt that begins with that text waits.
    void typeLine(const QString& line, const QString& prompt = QStringLiteral("Command:"));
    void atPrompt(StepDriver::Action action, const QString& prompt = QStringLiteral("Command:"));
    void closeWindow(const QString& prompt = QStringLiteral("Command:"));
    // Waits until the main window is the active one: keys that work all over it need that.
    void waitForKeyboard();
    // Waits until something was said.
    void waitForText(const QString& text);

    // Steps in a dialog, as soon as it is in front.
    void inLoadDialog(std::function<void(QDialog& dialog)> action);
    void inFileDialog(std::function<void(QFileDialog& dialog)> action);
    void inBox(std::function<void(QMessageBox& box)> action);
    // Opens the load dialog by MENULOAD, does something in it, and closes it with OK.
    void useLoadDialog(std::function<void(QDialog& dialog)> action = {});

    // Does the steps in one session. Returns why there was none, or nothing.
    [[nodiscard]] std::string run();

    // The texts of the menu bar.
    [[nodiscard]] static QStringList menus();
    // All that was said at the command line.
    [[nodiscard]] static QString said();
    // Throws when there is none.
    [[nodiscard]] static quelhost::MainWindow& window();

    // The stored settings whose keys begin like that, one "KEY<TAB>KIND<TAB>VALUE" each.
    [[nodiscard]] QStringList stored(const char* key) const;

    // A copy of an example package; returns its path.
    [[nodiscard]] QString copyOf(const char* example, const char* name) const;

    const QTemporaryDir m_folder;
    quelhost::Options m_options;
    StepDriver m_driver;
    const QString m_plant;

private:
    // The line typed last as it is said behind its prompt, and how often that stood there before.
    QString m_echo;
    int m_echoes = 0;
};

} // namespace windowtest
