#include "tests/window/stepdriver.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QDialog>
#include <QMainWindow>

#include <utility>

namespace windowtest {

namespace {

constexpr int kPauseMs = 2;
constexpr int kMostMs = 20000; // a hang, not a measure

QWidget* mainWindow()
{
    for (QWidget* widget : QApplication::topLevelWidgets()) {
        if (qobject_cast<QMainWindow*>(widget) != nullptr && widget->isVisible())
            return widget;
    }
    return nullptr;
}

void closeFrontWindow()
{
    if (QWidget* const popup = QApplication::activePopupWidget())
        popup->close();
    else if (auto* const dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget()))
        dialog->reject();
    else if (QWidget* const window = mainWindow())
        window->close();
}

// The windows that can be seen, for who has to find out why a step did not come.
std::string windowsInSight()
{
    std::string texts;
    for (const QWidget* widget : QApplication::topLevelWidgets()) {
        if (widget->isVisible())
            texts += std::string(" [") + widget->metaObject()->className() + " \"" +
                     widget->windowTitle().toStdString() + '"' +
                     (widget->isActiveWindow() ? ", active]" : "]");
    }
    return texts;
}

} // namespace

StepDriver::StepDriver()
{
    m_timer.setInterval(kPauseMs);
    connect(&m_timer, &QTimer::timeout, this, &StepDriver::look);
}

void StepDriver::step(const std::string& awaited, Condition condition, Action action)
{
    m_steps.push_back({awaited, std::move(condition), std::move(action)});
}

void StepDriver::run(const std::function<void()>& session)
{
    m_failed = false;
    m_deadline.setRemainingTime(kMostMs);
    m_timer.start();
    session();
    m_timer.stop();
    EXPECT_TRUE(m_failed || m_steps.empty())
        << "the session ended before: " << m_steps.front().awaited;
    m_steps.clear();
    m_next = {};
}

// An action is put into the queue of events: a timer does not run again while it is at work, and
// the action may wait for the steps behind it.
void StepDriver::look()
{
    if (m_failed) {
        closeFrontWindow();
    } else if (m_next) {
        return;
    } else if (!m_steps.empty() && m_steps.front().condition()) {
        m_next = std::move(m_steps.front().action);
        m_steps.pop_front();
        m_deadline.setRemainingTime(kMostMs);
        if (m_next)
            QMetaObject::invokeMethod(
                this, [this] { act(); }, Qt::QueuedConnection);
    } else if (m_deadline.hasExpired()) {
        fail(m_steps.empty() ? "the end of the session" : m_steps.front().awaited);
    }
}

void StepDriver::act()
{
    try {
        std::exchange(m_next, {})();
    } catch (const std::exception& error) {
        fail(error.what());
    }
}

void StepDriver::fail(const std::string& awaited)
{
    m_failed = true;
    ADD_FAILURE() << "waited in vain for " << awaited << "; in sight:" << windowsInSight();
}

} // namespace windowtest
