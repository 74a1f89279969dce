// A person in a hurry at the window: keys, clicks, files dropped, menus, dialogs, whatever is in
// sight, all at random. Nothing is done while a user's input would wait.
#pragma once

#include "tests/hurry/world.h"

#include <QMap>
#include <QObject>
#include <QString>
#include <QTimer>

#include <functional>
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
    // Looks before anything is done in a dialog; what is wrong, or nothing.
    using LookInFront = std::function<std::string(QWidget& dialog)>;

    // Does that many things. REQUIRES: `world` outlives this object.
    RandomUser(hurry::World& world, unsigned int events, Look look, LookInFront lookInFront);

    // Uses a window until its session ends: by something that was done, or because enough was. The
    // last thing in it is a look.
    void use(const std::function<void()>& session, unsigned int mostEvents);

    [[nodiscard]] bool hasDoneAll() const { return m_left == 0; }
    // The kinds of menus and dialogs that came up, and how often something was done in them.
    [[nodiscard]] const QMap<QString, int>& seen() const { return m_seen; }
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
    void unloadFrom(QWidget& window, const char* name);
    void removeLoaded();
    void pressAnyKey(QWidget& window);
    void clickAnywhere(QWidget& window);
    void press(QWidget& window, int key, Qt::KeyboardModifiers modifiers = {},
               const QString& text = {});
    void note(const std::string& what) { m_world.done.add(what); }

    hurry::World& m_world;
    unsigned int m_left;
    unsigned int m_leftInSession = 0;
    const Look m_look;
    const LookInFront m_lookInFront;
    QTimer m_timer;
    bool m_waits = false; // the event loop that runs waits for events
    QMap<QString, int> m_seen;
    std::string m_problem;
};

} // namespace windowtest
