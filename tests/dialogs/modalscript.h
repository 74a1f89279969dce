// What a test does in a dialog that is shown modally: the steps run inside the dialog's own event
// loop, as soon as it is shown.
#pragma once

#include <QDialog>
#include <QObject>

#include <deque>
#include <functional>

namespace dialogtest {

// The steps for the dialogs that are shown as long as it lives, in the order in which they are
// shown: whether one opens over another or after it does not matter.
//
// Nothing waits for a click that cannot come. A dialog that is still open when its steps are done,
// and one that no steps were given for, is rejected and the test fails.
class ModalScript final : public QObject
{
public:
    using Steps = std::function<void(QDialog& dialog)>;

    ModalScript();
    // Fails the test when a dialog that was waited for was never shown.
    ~ModalScript() override;

    // Steps for one further dialog. They close it, or do what has it closed.
    void next(Steps steps);
    // The same for each dialog that has no steps of its own.
    void usually(Steps steps) { m_usual = std::move(steps); }

    // How many dialogs have been shown.
    [[nodiscard]] int shown() const { return m_shown; }

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void run(QDialog& dialog);

    std::deque<Steps> m_steps;
    Steps m_usual;
    int m_shown = 0;
};

} // namespace dialogtest
