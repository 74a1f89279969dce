#include "tests/dialogs/modalscript.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QEvent>
#include <QPointer>

namespace dialogtest {

ModalScript::ModalScript()
{
    QCoreApplication::instance()->installEventFilter(this);
}

ModalScript::~ModalScript()
{
    EXPECT_TRUE(m_steps.empty()) << m_steps.size() << " dialogs were never shown";
}

void ModalScript::next(Steps steps)
{
    m_steps.push_back(std::move(steps));
}

// A dialog cannot be closed while it is only being shown, so its steps are put into the queue of
// events.
bool ModalScript::eventFilter(QObject* watched, QEvent* event)
{
    auto* const dialog = qobject_cast<QDialog*>(watched);
    if (event->type() == QEvent::Show && dialog != nullptr && dialog->isModal() &&
        !event->spontaneous()) {
        ++m_shown;
        QMetaObject::invokeMethod(
            dialog, [this, dialog] { run(*dialog); }, Qt::QueuedConnection);
    }
    return false;
}

void ModalScript::run(QDialog& dialog)
{
    if (!dialog.isVisible())
        return; // closed before anything could be done in it
    const QPointer<QDialog> still(&dialog);
    QApplication::setActiveWindow(&dialog); // the platform says so only some events later
    Steps steps = m_usual;
    if (!m_steps.empty()) {
        steps = std::move(m_steps.front());
        m_steps.pop_front();
    }
    if (steps)
        steps(dialog);
    else
        ADD_FAILURE() << "nobody waited for " << dialog.windowTitle().toStdString();
    if (still.isNull() || !still->isVisible())
        return;
    ADD_FAILURE() << "still open: " << still->windowTitle().toStdString();
    still->reject();
}

} // namespace dialogtest
