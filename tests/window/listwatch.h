// Tells what the list of loaded files must be from what a user is seen to do in a window: from the
// answers that the commands took and from what was pressed in the dialog.
#pragma once

#include "tests/support/listrules.h"

#include <QObject>

#include <optional>
#include <set>
#include <string>

class QDialog;
class QWidget;

namespace quelhost {
class MainWindow;
}

namespace windowtest {

// Relative paths are below the current folder. What is done counts with the files that are there
// when it is seen: they change only right behind expect().
class ListWatch final : public QObject
{
public:
    // From here on it is that list, whatever it was.
    void begin(std::wstring list) { m_possible = {std::move(list)}; }

    // To be called with whatever is in front before anything is done there.
    void watch(QWidget& front);

    // What is wrong with the list that is found now, or nothing. All that the commands said is
    // read, so to be called again before the window goes if anything was done.
    [[nodiscard]] std::string expect(const quelhost::MainWindow& window, const std::wstring& found);
    // The same without a window: nothing was done since.
    [[nodiscard]] std::string expect(const std::wstring& found);

    // How often the list was to be another one.
    [[nodiscard]] int changes() const { return m_changes; }

private:
    void watchMenuDialog(QDialog& dialog);
    void readAnswers(const quelhost::MainWindow& window);
    void readAnswer(const std::wstring& row);
    // Lets each list that is possible become what `step` makes of it.
    template<typename Step>
    void become(const Step& step);

    std::set<std::wstring> m_possible; // more than one where it is not told which answer was meant
    std::optional<std::wstring> m_asked; // the name to be unloaded that is asked about
    int m_changes = 0;
};

} // namespace windowtest
