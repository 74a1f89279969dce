// What a test does in a session that runs in a window: step by step inside the session's own event
// loop.
#pragma once

#include <QDeadlineTimer>
#include <QObject>
#include <QTimer>

#include <deque>
#include <functional>
#include <string>

namespace windowtest {

// Each step waits until something holds and then does something. What it does may open a dialog
// that runs a loop of its own: the next step is done in there.
//
// Nothing waits for ever. When a step has waited too long the test fails and everything is closed,
// from the front to the back, until the session ends.
class StepDriver final : public QObject
{
public:
    using Condition = std::function<bool()>;
    using Action = std::function<void()>;

    StepDriver();

    // A further step. `awaited` says in a failure what it waited for.
    void step(const std::string& awaited, Condition condition, Action action = {});

    // Runs `session` with the steps in its event loops. The test fails when it ends before they are
    // done.
    void run(const std::function<void()>& session);

private:
    struct Step
    {
        std::string awaited;
        Condition condition;
        Action action;
    };

    void look();
    void act();
    void fail(const std::string& awaited);

    std::deque<Step> m_steps;
    QTimer m_timer;
    QDeadlineTimer m_deadline;
    Action m_next; // of a step whose time has come
    bool m_failed = false;
};

} // namespace windowtest
