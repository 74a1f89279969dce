// The menu load dialog with real widgets in a recording host.
#pragma once

#include "menuload/menuloaddialog.h"

#include "refhost/core/widetext.h"
#include "tests/support/menufolder.h"
#include "tests/support/recordinghost.h"
#include "tests/support/tracetext.h"

#include <gtest/gtest.h>

#include <QFrame>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>

#include <memory>
#include <set>
#include <string>
#include <vector>

namespace loaddialog {

using quelhost::toUtf8;
using recording::host;
using recording::shown;
using Lines = std::vector<std::string>;

inline constexpr char kList[] = "IDC_MENULOAD_LIST";
inline constexpr char kEdit[] = "IDC_MENULOAD_EDITCMD";
inline constexpr char kLoad[] = "IDC_MENULOAD_LOAD";
inline constexpr char kUnload[] = "IDC_MENULOAD_BTNUNLOAD";
inline constexpr char kBrowse[] = "IDC_MENULOAD_BROWSE";
inline constexpr char kHelp[] = "IDC_MENULOAD_HELP";
inline constexpr char kOk[] = "IDOK";
inline constexpr char kListFrame[] = "IDC_MENULOAD_GRPMENU";
inline constexpr char kFileFrame[] = "IDC_MENULOAD_GRPFILE";
inline constexpr char kFileLabel[] = "IDC_MENULOAF_FILENAME";

// A control as the tests design it.
struct Design
{
    const char* name;
    QWidget* (*make)(QWidget* dialog);
    QRect place;
};

template<typename Widget>
QWidget* newWidget(QWidget* dialog)
{
    return new Widget(dialog);
}

inline constexpr QRect kDialogPlace{50, 60, 420, 300};

inline const std::vector<Design>& designs()
{
    static const std::vector<Design> all{
        {kListFrame, newWidget<QFrame>, {8, 80, 300, 210}},
        {kFileFrame, newWidget<QFrame>, {8, 8, 404, 64}},
        {kList, newWidget<QListWidget>, {16, 96, 284, 186}},
        {kFileLabel, newWidget<QLabel>, {16, 24, 60, 20}},
        {kEdit, newWidget<QLineEdit>, {80, 22, 220, 24}},
        {kLoad, newWidget<QPushButton>, {316, 100, 96, 26}},
        {kUnload, newWidget<QPushButton>, {316, 130, 97, 26}},
        {kBrowse, newWidget<QPushButton>, {316, 160, 98, 26}},
        {kHelp, newWidget<QPushButton>, {316, 190, 99, 26}},
        {kOk, newWidget<QPushButton>, {316, 220, 100, 26}},
    };
    return all;
}

// Makes all controls but those named.
inline void makeControls(QuUiBaseDialog& dialog, const std::set<std::string>& without = {})
{
    dialog.setGeometry(kDialogPlace);
    for (const Design& design : designs()) {
        if (without.count(design.name) > 0)
            continue;
        QWidget* const widget = design.make(&dialog);
        widget->setObjectName(QString::fromLatin1(design.name));
        widget->setGeometry(design.place);
    }
}

// The controls of dialogs that are made from now on.
inline void describeControls(const std::set<std::string>& without = {})
{
    host().makeControls = [without](QuUiBaseDialog& dialog) { makeControls(dialog, without); };
}

// The functions that a dialog shows to hosts only.
struct HostSide : QuUiBaseDialog
{
    using QuUiBaseDialog::bindSingals;
    using QuUiBaseDialog::DoDataExchange;
    using QuUiBaseDialog::OnInitDialog;
    using QuUiBaseDialog::OnOK;
};

inline bool initialise(QuUiBaseDialog& dialog)
{
    return (dialog.*(&HostSide::OnInitDialog))();
}

template<typename Widget>
Widget& widgetOf(const QWidget& dialog, const char* name)
{
    auto* const widget = dialog.findChild<Widget*>(QString::fromLatin1(name));
    if (widget == nullptr)
        throw std::runtime_error(std::string("no control ") + name);
    return *widget;
}

inline Lines rowsOf(const QWidget& dialog)
{
    const auto& box = widgetOf<QListWidget>(dialog, kList);
    Lines rows;
    for (int row = 0; row < box.count(); ++row)
        rows.push_back(box.item(row)->text().toStdString());
    return rows;
}

inline std::wstring storedList()
{
    return host().stringSetting(L"CUIX/LoadedCuix");
}

inline void setList(const std::wstring& text)
{
    host().setStringSetting(L"CUIX/LoadedCuix", text);
}

// Parts of the trace.

inline std::string listRead(const std::wstring& text)
{
    return "getValue(4, \"CUIX/LoadedCuix\") -> 0 string " + shown(text);
}

inline std::string listWritten(const std::wstring& text, int result = 0)
{
    return "setValue(4, \"CUIX/LoadedCuix\", string " + shown(text) + ") -> " + shown(result);
}

inline std::string added(const char* name, int row)
{
    return std::string("AddString(IDC_MENULOAD_LIST, \"") + name + "\") -> " + shown(row);
}

inline const std::string kEmptied = "ResetContent(IDC_MENULOAD_LIST)";
inline const std::string kFirstSelected = "SetCurSel(IDC_MENULOAD_LIST, 0) -> 0";
inline const std::string kStore = "quelConfig() -> store";
inline const std::string kNoStore = "quelConfig() -> null";
inline const std::string kEditFound =
    R"(GetDlgItem("IDC_MENULOAD_EDITCMD") -> IDC_MENULOAD_EDITCMD)";

inline std::string editRead(const std::wstring& text)
{
    return "GetWindowText(IDC_MENULOAD_EDITCMD) -> " + shown(text);
}

inline std::string enabled(const char* name, bool state)
{
    return std::string("EnableWindow(") + name + ", " + shown(state) + ")";
}

// A rectangle by its edges.
inline std::string rectangle(const QRect& rect)
{
    return "[" + shown(rect.x()) + ", " + shown(rect.y()) + ", " + shown(rect.x() + rect.width()) +
           ", " + shown(rect.y() + rect.height()) + "]";
}

inline Lines joined(const std::vector<Lines>& parts)
{
    Lines result;
    for (const Lines& part : parts)
        result.insert(result.end(), part.begin(), part.end());
    return result;
}

// A call in a trace: the function and its number among that function's calls.
struct NumberedCall
{
    std::string function;
    int which;
};

inline std::vector<NumberedCall> numbered(const Lines& trace)
{
    std::map<std::string, int> counts;
    std::vector<NumberedCall> result;
    for (const std::string& line : trace) {
        const std::string function = line.substr(0, line.find('('));
        result.push_back({function, ++counts[function]});
    }
    return result;
}

// Calls the function and returns the error that came out of it, or null.
template<typename Function>
std::unique_ptr<VxErrorStatus> errorOutOf(const Function& function)
{
    try {
        function();
    } catch (VxErrorStatus* error) {
        return std::unique_ptr<VxErrorStatus>(error);
    }
    return nullptr;
}

struct LoadDialog : testing::Test
{
    recording::MenuFolder folder;
    recording::Context context;
    std::unique_ptr<VxMenuLoadDlg> dialog;

    LoadDialog() { startAnew(); }

    // A new host with an empty list.
    static void startAnew()
    {
        recording::reset();
        describeControls();
        setList(L"");
    }

    void make() { dialog = std::make_unique<VxMenuLoadDlg>(&context, nullptr); }

    // The dialog as it is when the user sees it, on a list with this text. The trace begins there.
    void open(const std::wstring& list)
    {
        setList(list);
        make();
        initialise(*dialog);
        host().forgetCalls();
    }

    template<typename Widget>
    Widget& control(const char* name) const
    {
        return widgetOf<Widget>(*dialog, name);
    }
    bool isEnabled(const char* name) const { return control<QPushButton>(name).isEnabled(); }
    void type(const std::wstring& text) const
    {
        control<QLineEdit>(kEdit).setText(quelhost::toQString(text));
        host().forgetCalls();
    }
    std::wstring typed() const { return quelhost::toWide(control<QLineEdit>(kEdit).text()); }
    void select(int row) const { control<QListWidget>(kList).setCurrentRow(row); }
    int selected() const { return control<QListWidget>(kList).currentRow(); }
    Lines rows() const { return rowsOf(*dialog); }
};

inline std::wstring joinedList(std::initializer_list<std::wstring> entries)
{
    std::wstring text;
    for (const std::wstring& entry : entries)
        text += (&entry == entries.begin() ? L"" : L";") + entry;
    return text;
}

// A list of files that exist, and one that does not.
struct LoadDialogList : LoadDialog
{
    const std::wstring main = folder.file(L"main.cuix");
    const std::wstring plant = folder.file(L"plant.cuix");
    const std::wstring tree = folder.file(L"tree.cuix");
    const std::wstring fern = folder.file(L"fern.cuix");
    const std::wstring gone = folder.path(L"gone.cuix");

    LoadDialogList()
    {
        folder.folder(L"other");
        host().boxes.usually(1);
    }

    // A new host and a new dialog on a list, with that row selected.
    void openOn(const std::wstring& list, int row)
    {
        startAnew();
        host().boxes.usually(1);
        open(list);
        select(row);
    }
};

} // namespace loaddialog
