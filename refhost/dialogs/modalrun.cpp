#include "refhost/dialogs/modalrun.h"

#include <exception>
#include <utility>

namespace quelhost {

namespace {

struct ModalRun
{
    QDialog& dialog;
    std::exception_ptr exception;
    bool looping = false; // whether closing the dialog ends its event loop
};

ModalRun* innermost = nullptr;

// Makes a run the innermost one as long as it lives.
class Entered
{
public:
    explicit Entered(ModalRun& run)
        : m_outer(std::exchange(innermost, &run))
    {}
    ~Entered() { innermost = m_outer; }
    Entered(const Entered&) = delete;
    Entered& operator=(const Entered&) = delete;

private:
    ModalRun* const m_outer;
};

// Is told when the dialog's event loop runs. A dialog that is closed while it is only being shown
// would wait for ever, so an exception from then closes it with the first event of its loop.
class LoopStart final : public QObject
{
public:
    explicit LoopStart(ModalRun& run)
        : m_run(run)
    {}

protected:
    void customEvent(QEvent*) override
    {
        m_run.looping = true;
        if (m_run.exception)
            m_run.dialog.done(QDialog::Rejected);
    }

private:
    ModalRun& m_run;
};

} // namespace

HostApplication::HostApplication(int& argc, char** argv)
    : QApplication(argc, argv)
{
    setQuitOnLastWindowClosed(false);
}

bool HostApplication::notify(QObject* receiver, QEvent* event)
{
    ModalRun* const run = innermost;
    if (run == nullptr)
        return QApplication::notify(receiver, event);
    try {
        return QApplication::notify(receiver, event);
    } catch (...) {
        // Events inside events pass here twice: the first to see the exception keeps it.
        if (!run->exception)
            run->exception = std::current_exception();
        if (run->looping)
            run->dialog.done(QDialog::Rejected);
        return false;
    }
}

int runModal(QDialog& dialog)
{
    ModalRun run{dialog, nullptr, false};
    int result = QDialog::Rejected;
    {
        const Entered entered(run);
        LoopStart start(run);
        QCoreApplication::postEvent(&start, new QEvent(QEvent::User)); // which the loop owns
        result = dialog.exec();
    }
    if (run.exception)
        std::rethrow_exception(run.exception);
    return result;
}

} // namespace quelhost
