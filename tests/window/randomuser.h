// A person in a hurry at the window: keys, clicks, files dropped, menus, dialogs, whatever is in
// sight, all at random. Nothing is done while a user's input would wait.
#pragma once

#include "tests/hurry/world.h"

#include <QObject>
#include <QTimer>

#include <functional>
#include <map>
#include <string>

class QFileDialog;
class QWidget;
class QWindow;

namespace quelhost {
class MainWindow;
}

namespace windowtest {

class RandomUser final : public QObject
{
public:
    // Looks at everything when the command line waits; what is wrong, or nothing.
    using Look = std::function<std::string(quelhost::MainWindow& window)>;

    // Does that many things. REQUIRES: `world` outlives this object.
    RandomUser(hurry::World& world, unsigned int events, Look look);

    // Uses a window until its session ends: by something that was done, or because enough was.
    void use(const std::function<void()>& session);

    [[nodiscard]] bool hasDoneAll() const { return m_left == 0; }
    // The kinds of menus and dialogs that came up, and how often something was done in them.
    [[nodiscard]] const std::map<std::string, int>& seen() const { return m_seen; }
    // What was wrong, or nothing.
    [[nodiscard]] const std::string& problem() const { return m_problem; }

private:
    void act();
    void goOn();
    void atPrompt(quelhost::MainWindow& window);
    void inPopup(QWidget& popup);
    void inDialog(QWidget& dialog);
    void inFileDialog(QFileDialog& dialog);
    void leave();

    void typeLine(quelhost::MainWindow& window);
    void pressAccelerator(quelhost::MainWindow& window);
    void dropFiles(quelhost::MainWindow& window);
    void turnWheel(quelhost::MainWindow& window);
    void pressAnyKey(QWidget& window);
    void clickAnywhere(QWidget& window);
    void press(QWidget& window, int key, Qt::KeyboardModifiers modifiers = {},
               const QString& text = {});
    void note(const std::string& what) { m_world.done.add(what); }

    hurry::World& m_world;
    unsigned int m_left;
    const Look m_look;
    QTimer m_timer;
    bool m_waits = false; // the event loop that runs waits for events
    std::map<std::string, int> m_seen;
    std::string m_problem;
};

} // namespace windowtest
