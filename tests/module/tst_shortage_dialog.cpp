// Memory runs out in the menu load dialog: when it is made, opened, filled and moved, and in each
// of its slots.
#include "tests/module/menuloaddialogfixture.h"
#include "tests/module/shortagefixture.h"

namespace shortage {

namespace {

// The dialog of the case that runs, with real widgets. Made anew for each run.
std::unique_ptr<VxMenuLoadDlg> theDialog;

IQuelBuildInCommandContext* context()
{
    static recording::Context theContext;
    return &theContext;
}

void make()
{
    theDialog.reset();
    loaddialog::describeControls();
    theDialog = std::make_unique<VxMenuLoadDlg>(context(), nullptr);
    host().forgetCalls();
}

void open()
{
    make();
    loaddialog::initialise(*theDialog);
    host().forgetCalls();
}

std::function<void()> opened(const std::function<void()>& further)
{
    return [further] {
        open();
        further();
        host().forgetCalls();
    };
}

std::function<void()> typed(const std::wstring& path)
{
    return opened([path] {
        loaddialog::widgetOf<QLineEdit>(*theDialog, loaddialog::kEdit)
            .setText(quelhost::toQString(path));
    });
}

std::function<void()> selected(int row)
{
    return opened([row] {
        host().boxes.usually(1);
        loaddialog::widgetOf<QListWidget>(*theDialog, loaddialog::kList).setCurrentRow(row);
    });
}

std::function<int()> slot(void (VxMenuLoadDlg::*function)())
{
    return [function] {
        (theDialog.get()->*function)();
        return 0;
    };
}

// Calls a slot as the toolkit does, by its number.
std::function<int()> called(int index, std::vector<void*> arguments = {nullptr})
{
    return [index, arguments]() mutable {
        const int first = theDialog->metaObject()->methodOffset();
        return theDialog->qt_metacall(QMetaObject::InvokeMetaMethod, first + index,
                                      arguments.data());
    };
}

// A case in which the dialog stays open.
Case openCase(const char* name, const std::function<void()>& prepare,
              const std::function<int()>& run)
{
    return {name,
            prepare,
            run,
            [] { return loaddialog::rowsOf(*theDialog); },
            [] { return theDialog->isChanged(); },
            [] {
                host().storeIsThere.usually(true);
                host().readFailures.usually(0);
                theDialog->UpdateMenuGroupList();
            }};
}

std::vector<Case> lifeCases(const Files&)
{
    const auto openClosed = [] {
        loaddialog::initialise(*theDialog);
        return 0;
    };
    const auto remember = [] {
        const std::wstring section = L"UserInterfaceSettings\\MenuLoadDlg";
        host().sections.insert(section);
        for (const wchar_t* key : {L"\\X", L"\\Y", L"\\WIDTH", L"\\HEIGHT"})
            host().settings[section + key].setInteger(500);
    };
    const auto unmade = [] {
        theDialog.reset();
        loaddialog::describeControls();
    };
    const auto makeOnly = [] {
        const VxMenuLoadDlg dialog(context(), nullptr);
        return dialog.isChanged() ? 1 : 0;
    };
    return {
        {"made", unmade, makeOnly},
        {"made on a window", unmade,
         [] {
             CWnd window;
             const VxMenuLoadDlg dialog(context(), &window);
             return dialog.isChanged() ? 1 : 0;
         }},
        {"made without controls",
         [unmade] {
             unmade();
             host().controlsGenerated.usually(false);
         },
         makeOnly},
        {"opened", make, openClosed},
        {"opened where it was",
         [remember] {
             make();
             remember();
         },
         openClosed},
        {"opened without a store",
         [] {
             make();
             host().storeIsThere.usually(false);
         },
         openClosed},
    };
}

std::vector<Case> loadCases(const Files& files)
{
    const auto load = slot(&VxMenuLoadDlg::OnBtnLoadMenu);
    const auto giveText = [] {
        host().resources[L"VxCuiCmdsRes.dll"][11065] = L"The menu file \"%s\" is loaded already.";
        host().resourceStack.front() = L"VxCuiCmdsRes.dll";
    };
    return {
        openCase("loads", typed(files.other), load),
        openCase(
            "loads into an empty list",
            [path = files.other] {
                typed(path)();
                host().setStringSetting(L"CUIX/LoadedCuix", L"");
                theDialog->UpdateMenuGroupList();
                host().forgetCalls();
            },
            load),
        openCase("loads, called by its number", typed(files.other), called(2)),
        openCase("missing file", typed(files.lost), load),
        openCase(
            "already loaded",
            [giveText, path = files.plant] {
                typed(path)();
                giveText();
            },
            load),
        openCase("nothing typed", open, load),
        openCase(
            "no store",
            [path = files.other] {
                typed(path)();
                host().storeIsThere.usually(false);
            },
            load),
        openCase("path typed", typed(files.other), slot(&VxMenuLoadDlg::OnMenuPathChange)),
        openCase("path typed, called by its number", typed(files.other), called(5)),
    };
}

std::vector<Case> unloadCases(const Files& files)
{
    const auto unload = slot(&VxMenuLoadDlg::OnBtnUnLoadMenu);
    return {
        openCase("unloads", selected(1), unload),
        openCase("unloads, called by its number", selected(2), called(1)),
        openCase("main file", selected(0), unload),
        openCase("nothing selected", selected(-1), unload),
        openCase(
            "declined",
            [] {
                selected(1)();
                host().boxes.usually(2);
            },
            unload),
        openCase(
            "unreadable list",
            [] {
                selected(1)();
                host().readFailures.usually(7);
            },
            unload),
        {"no longer in the list",
         [main = files.main] {
             selected(1)();
             host().setStringSetting(L"CUIX/LoadedCuix", main);
         },
         unload},
    };
}

std::vector<Case> otherSlotCases(const Files& files)
{
    static tagMINMAXINFO limits;
    static unsigned int kind = 0;
    static int width = 640;
    static int height = 480;
    static tagMINMAXINFO* limitsPointer = &limits;
    // The edit's signal is kept back, and its slot has a case of its own: the toolkit loses texts
    // when an error passes through it.
    const auto pick = [path = files.other] {
        open();
        loaddialog::widgetOf<QLineEdit>(*theDialog, loaddialog::kEdit).blockSignals(true);
        host().fileDialogs.next({5100, path, 2, 1});
    };
    const auto size = [] {
        theDialog->OnSize(0, 640, 480);
        return 0;
    };
    return {
        openCase("browses", pick, slot(&VxMenuLoadDlg::OnBtnBrowse)),
        openCase("browses, called by its number", pick, called(3)),
        openCase("browses and cancels", typed(files.plant), slot(&VxMenuLoadDlg::OnBtnBrowse)),
        openCase("helps", open, slot(&VxMenuLoadDlg::OnHelp)),
        openCase("helps, called by its number", open, called(4)),
        openCase("closes", open, slot(&VxMenuLoadDlg::OnOK)),
        openCase("closes, called by its number", open, called(0)),
        openCase(
            "closes without a store",
            [] {
                open();
                host().storeIsThere.usually(false);
            },
            slot(&VxMenuLoadDlg::OnOK)),
        openCase("is asked for its limits", open, called(6, {nullptr, &limitsPointer})),
        openCase("first size", open, size),
        openCase("next size", opened([] { theDialog->OnSize(0, 420, 300); }), size),
        openCase("size, called by its number", open, called(7, {nullptr, &kind, &width, &height})),
        openCase("fills its list", open, slot(&VxMenuLoadDlg::UpdateMenuGroupList)),
        openCase("resizes and moves a control", open,
                 [] {
                     theDialog->ResizeControl(0, 40, 30);
                     theDialog->MoveControl(3, 40, 30);
                     return 0;
                 }),
        openCase("keeps and reads its place", open,
                 [] {
                     theDialog->SetMenuLoadDlgSize({10, 20, 700, 600});
                     tagMenuloadDlgParam place{};
                     return theDialog->GetMenuLoadDlgSize(place);
                 }),
    };
}

void closeTheDialog()
{
    theDialog.reset();
}

constexpr Group kDialog[] = {
    {"Life", lifeCases, 50, closeTheDialog},
    {"Load", loadCases, 110, closeTheDialog},
    {"Unload", unloadCases, 35, closeTheDialog},
    {"Others", otherSlotCases, 35, closeTheDialog},
};

} // namespace

INSTANTIATE_TEST_SUITE_P(Dialog, Shortage, testing::ValuesIn(kDialog),
                         [](const auto& group) { return std::string(group.param.name); });

} // namespace shortage
