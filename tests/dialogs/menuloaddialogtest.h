// What every test of the module's menu load dialog starts from: the dialog as it is described, real
// files, a list in the recording host's store, and steps that act on its controls.
#pragma once

#include "menuload/menuloaddialog.h"

#include "refhost/core/widetext.h"
#include "tests/dialogs/modalscript.h"
#include "tests/dialogs/testservices.h"
#include "tests/support/menufolder.h"
#include "tests/support/recordinghost.h"

#include <gtest/gtest.h>

#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QtTest/QTest>

#include <stdexcept>

namespace dialogtest {

inline void click(QWidget& widget)
{
    QTest::mouseClick(&widget, Qt::LeftButton);
}

// The child of that name and class; an exception when there is none.
template<typename Widget>
Widget& childOf(const QWidget& window, const char* name)
{
    auto* const found = window.findChild<Widget*>(QLatin1String(name));
    if (found == nullptr)
        throw std::runtime_error(std::string("no control ") + name);
    return *found;
}

// The controls of the menu load dialog.
struct Controls
{
    explicit Controls(QDialog& shown)
        : dialog(shown)
        , groups(childOf<QListWidget>(shown, "IDC_MENULOAD_LIST"))
        , file(childOf<QLineEdit>(shown, "IDC_MENULOAD_EDITCMD"))
        , load(childOf<QPushButton>(shown, "IDC_MENULOAD_LOAD"))
        , unload(childOf<QPushButton>(shown, "IDC_MENULOAD_BTNUNLOAD"))
        , browse(childOf<QPushButton>(shown, "IDC_MENULOAD_BROWSE"))
        , help(childOf<QPushButton>(shown, "IDC_MENULOAD_HELP"))
        , ok(childOf<QPushButton>(shown, "IDOK"))
        , groupsFrame(childOf<QGroupBox>(shown, "IDC_MENULOAD_GRPMENU"))
        , fileFrame(childOf<QGroupBox>(shown, "IDC_MENULOAD_GRPFILE"))
        , label(childOf<QLabel>(shown, "IDC_MENULOAF_FILENAME"))
    {}

    QDialog& dialog;
    QListWidget& groups;
    QLineEdit& file;
    QPushButton& load;
    QPushButton& unload;
    QPushButton& browse;
    QPushButton& help;
    QPushButton& ok;
    QGroupBox& groupsFrame;
    QGroupBox& fileFrame;
    QLabel& label;

    // All that the user acts on, and the label: nothing of it may cover another.
    [[nodiscard]] std::vector<QWidget*> inFront() const
    {
        return {&groups, &file, &load, &unload, &browse, &help, &ok, &label};
    }
    [[nodiscard]] std::vector<QWidget*> all() const
    {
        std::vector<QWidget*> result = inFront();
        result.push_back(&groupsFrame);
        result.push_back(&fileFrame);
        return result;
    }

    [[nodiscard]] QStringList rows() const
    {
        QStringList texts;
        for (int row = 0; row < groups.count(); ++row)
            texts << groups.item(row)->text();
        return texts;
    }
    void select(int row) const
    {
        const QRect place = groups.visualItemRect(groups.item(row));
        QTest::mouseClick(groups.viewport(), Qt::LeftButton, {}, place.center());
    }
    // As a user types, key by key, in place of what is there. Keys carry ASCII only.
    void type(const std::wstring& path) const
    {
        file.selectAll();
        QTest::keyClicks(&file, quelhost::toQString(path));
    }
    void pressEscape() const { QTest::keyClick(&dialog, Qt::Key_Escape); }
};

struct MenuLoadDialog : testing::Test
{
    using Steps = std::function<void(const Controls& controls)>;

    // What a dialog left behind.
    struct Outcome
    {
        int result;
        bool changed;
    };

    MenuLoadDialog()
    {
        setList(L"");
        recording::host().resourceStack.emplace_back(L"VxCuiCmdsRes.dll");
        recording::host().resources[L"VxCuiCmdsRes.dll"][11065] = L"\"%s\" is already loaded.";
    }

    // Shows the dialog and takes the steps in it.
    Outcome run(Steps steps)
    {
        VxMenuLoadDlg dialog(&context, nullptr);
        next(std::move(steps));
        const int result = dialog.DoModal();
        return {result, dialog.isChanged()};
    }
    // The steps for one dialog that somebody else shows.
    void next(Steps steps)
    {
        script.next([steps = std::move(steps)](QDialog& shown) { steps(Controls(shown)); });
    }

    static std::wstring list() { return recording::host().stringSetting(L"CUIX/LoadedCuix"); }
    static void setList(const std::wstring& text)
    {
        recording::host().setStringSetting(L"CUIX/LoadedCuix", text);
    }
    static int writes() { return recording::host().count("setValue"); }
    static const std::vector<quelhost::BoxRequest>& boxes() { return services().boxes; }
    static void answerBoxes(int answer)
    {
        services().askBox = [answer](const quelhost::BoxRequest&) { return answer; };
    }

    recording::MenuFolder folder;
    recording::Context context;
    ModalScript script;
};

} // namespace dialogtest
