// Preloaded into a program, ends it as soon as its main window was painted.
#include <QApplication>
#include <QEvent>
#include <QMainWindow>
#include <QTimer>

#include <cstdlib>

namespace {

class FirstPaint final : public QObject
{
public:
    using QObject::QObject;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override
    {
        // What is inside the window is painted in the same turn of the event loop.
        if (event->type() == QEvent::Paint && qobject_cast<QMainWindow*>(watched) != nullptr)
            QTimer::singleShot(0, [] { std::_Exit(0); });
        return QObject::eventFilter(watched, event);
    }
};

void watchFirstPaint()
{
    QCoreApplication::instance()->installEventFilter(new FirstPaint(QCoreApplication::instance()));
}

} // namespace

Q_COREAPP_STARTUP_FUNCTION(watchFirstPaint)
