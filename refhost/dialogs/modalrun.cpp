#include "refhost/dialogs/modalrun.h"

#include <exception>
#include <utility>

namespace quelhost {

namespace {

struct ModalRun
{
    QDialog& dialog;
    std::exception_ptr exception;
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
        run->dialog.done(QDialog::Rejected);
        return false;
    }
}

int runModal(QDialog& dialog)
{
    ModalRun run{dialog, nullptr};
    int result = QDialog::Rejected;
    {
        const Entered entered(run);
        result = dialog.exec();
    }
    if (run.exception)
        std::rethrow_exception(run.exception);
    return result;
}

} // namespace quelhost
