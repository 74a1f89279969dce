#include "refhost/console/consoledialogs.h"

#include "refhost/console/consolesignals.h"

#include <QApplication>
#include <QWidget>

namespace quelhost {

namespace {

constexpr int kInterruptMilliseconds = 100;

} // namespace

ConsoleDialogs::ConsoleDialogs(Host& host, HelpPages help)
    : WidgetFace(std::move(help))
    , m_textFace(host.face())
{
    host.setFace(*this);
    // Runs only while a dialog does: the command line waits without the toolkit's event loop.
    QObject::connect(&m_interrupts, &QTimer::timeout, [] {
        QWidget* const front = QApplication::activeModalWidget();
        if (front != nullptr && takeInterrupt())
            front->close();
    });
    m_interrupts.start(kInterruptMilliseconds);
}

int ConsoleDialogs::askBox(const BoxRequest& request)
{
    const bool overDialog = QApplication::activeModalWidget() != nullptr;
    return overDialog ? WidgetFace::askBox(request) : m_textFace.askBox(request);
}

} // namespace quelhost
