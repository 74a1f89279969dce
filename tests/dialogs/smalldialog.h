// Dialogs of the tests' own: descriptions written into a folder, and a dialog that shows what the
// framework's base does.
#pragma once

#include "host/dialogs.h"

#include <QSize>
#include <QTemporaryDir>

#include <functional>
#include <vector>

namespace dialogtest {

// One control of a description.
struct DescribedControl
{
    const char* widgetClass;
    const char* name;
    QRect place;
    const char* text = "";
};

// The description of a dialog of that name, 300 by 200 pixels, with these controls.
[[nodiscard]] QByteArray describe(const char* name, const std::vector<DescribedControl>& controls);
// OK, Cancel, a line edit, a list and a further button.
[[nodiscard]] QByteArray smallDescription();

// A folder of resource files, which is where the dialogs of the test are looked for as long as it
// lives.
class DescriptionFolder
{
public:
    DescriptionFolder();

    // Writes a description as "Small/Part/NAME.ui" and returns its path; an exception when it
    // cannot.
    QString write(const char* name, const QByteArray& description) const;
    [[nodiscard]] QString path() const { return m_folder.path(); }

private:
    QTemporaryDir m_folder;
};

// A dialog as a command would derive it.
class SmallDialog : public QuUiBaseDialog
{
    Q_OBJECT

public:
    // Builds "Small/Part/NAME.ui".
    explicit SmallDialog(const wchar_t* name = L"IDD_SMALL", QWidget* parent = nullptr);

    [[nodiscard]] bool built() const { return m_controlsGenerated; }

    using QuUiBaseDialog::bindSingals;
    using QuUiBaseDialog::CheckIfConnected;
    using QuUiBaseDialog::DDX_Control;
    using QuUiBaseDialog::GetClientRect;
    using QuUiBaseDialog::GetDlgItem;
    using QuUiBaseDialog::getWidgetsFromOrignal;
    using QuUiBaseDialog::GetWindowRect;
    using QuUiBaseDialog::MessageBoxW;
    using QuUiBaseDialog::MoveWindow;
    using QuUiBaseDialog::ScreenToClient;

    // Called at each step, when they are set.
    std::function<void()> atInit;
    std::function<void()> atOk;
    std::function<void()> atSize;
    std::function<void()> atAction; // the further button is clicked

    // What happened, in its order: "size 300x200", "init", "bind", "ok".
    std::vector<std::string> steps;
    CListBox rows; // bound to the list

public slots:
    void OnSize(unsigned int type, int cx, int cy);

protected:
    void OnOK() override;
    bool OnInitDialog() override;
    void DoDataExchange(CDataExchange* exchange) override;
};

} // namespace dialogtest
