// Memory runs out in the seven commands, as the host runs them: created, executed and released.
#include "tests/module/menuloaddialogfixture.h"
#include "tests/module/shortagefixture.h"

#include "module/customizationcommandapp.h"

#include <cwchar>
#include <stdexcept>

namespace shortage {

namespace {

using recording::HostCode;

IQuelCommandFactory& factoryOf(const wchar_t* name)
{
    static recording::CommandStore store;
    if (store.added.empty())
        GetQuelCmdApplication()->registCommand(&store);
    for (IQuelCommandFactory* factory : store.added) {
        if (std::wcscmp(factory->globalName(), name) == 0)
            return *factory;
    }
    throw std::runtime_error("no such command");
}

struct Release
{
    IQuelCommandFactory* factory;
    void operator()(IQuelBuildInCommand* command) const { factory->release(command); }
};

std::function<int()> runOf(const wchar_t* name)
{
    return [name, &factory = factoryOf(name)] {
        const std::unique_ptr<IQuelBuildInCommand, Release> command(factory.create(),
                                                                    Release{&factory});
        recording::Context context;
        return command->execute(&context);
    };
}

void type(const std::wstring& text)
{
    host().strings.next({5100, text});
}

std::function<void()> typing(const std::wstring& text)
{
    return [text] { type(text); };
}

// What the resource file says where the module has no text of its own.
void giveTexts()
{
    auto& texts = host().resources[L"VxCuiCmdsRes.dll"];
    texts[11065] = L"The menu file \"%s\" is loaded already, and once is enough.";
    texts[11068] = L"The menu file \"%s\" cannot be unloaded: there is no such file.";
    texts[8051] = L"Customize [Accelerator/Toolbar] <Accelerator>: ";
    texts[8052] = L"Accelerator Toolbar";
}

void allowDialogs()
{
    host().useDialog.usually(true);
    host().setVariable(L"FILEDIA", short{1});
    loaddialog::describeControls();
}

// The user types a path into the dialog's edit. Its signal is held back, since the toolkit loses
// texts when an error passes through it; the slot has a case of its own in the dialog's tests.
void typeInto(QuUiBaseDialog& dialog, const std::wstring& path)
{
    const HostCode user;
    auto& edit = loaddialog::widgetOf<QLineEdit>(dialog, loaddialog::kEdit);
    const QSignalBlocker quiet(edit);
    edit.setText(quelhost::toQString(path));
}

void select(QuUiBaseDialog& dialog, int row)
{
    const HostCode user;
    loaddialog::widgetOf<QListWidget>(dialog, loaddialog::kList).setCurrentRow(row);
}

VxMenuLoadDlg& own(QuUiBaseDialog& dialog)
{
    return dynamic_cast<VxMenuLoadDlg&>(dialog);
}

std::vector<Case> loadCases(const wchar_t* command, const Files& files)
{
    const auto run = runOf(command);
    const auto loadInDialog = [path = files.other](QuUiBaseDialog& dialog) {
        typeInto(dialog, path);
        own(dialog).OnBtnLoadMenu();
        own(dialog).OnOK();
    };
    return {
        {"loads into a list with missing files", typing(files.other), run},
        {"loads a file of an odd name", typing(files.odd), run},
        {"odd name already loaded", typing(files.oddLoaded), run},
        {"loads into an empty list",
         [path = files.other] {
             host().setStringSetting(L"CUIX/LoadedCuix", L"");
             type(path);
         },
         run},
        {"already loaded",
         [path = files.plant] {
             giveTexts();
             type(path);
         },
         run},
        {"not found, then found",
         [&files] {
             type(files.lost);
             type(L"a name without any extension");
             type(files.other);
         },
         run},
        {"cancelled", [] {}, run},
        {"Enter, then a cancel",
         [] {
             host().strings.next({5000, std::nullopt});
         },
         run},
        {"no store",
         [path = files.other] {
             type(path);
             host().storeIsThere.usually(false);
         },
         run},
        {"unreadable list",
         [path = files.other] {
             type(path);
             host().readFailures.usually(7);
         },
         run},
        {"no manager",
         [path = files.other] {
             type(path);
             host().managerIsThere.usually(false);
         },
         run},
        {"not shown",
         [path = files.other] {
             type(path);
             host().loads.usually({false, std::nullopt});
         },
         run},
        {"without a scope",
         [path = files.other] {
             type(path);
             host().contextScope.usually(false);
         },
         run},
        {"tilde, a dialog without controls",
         [] {
             type(L"~");
             host().controlsGenerated.usually(false);
         },
         run},
        {"tilde",
         [loadInDialog] {
             type(L"~");
             loaddialog::describeControls();
             host().whileModal = loadInDialog;
         },
         run},
        {"dialog that changes nothing", allowDialogs, run},
        {"dialog that loads",
         [loadInDialog] {
             allowDialogs();
             host().whileModal = loadInDialog;
         },
         run},
    };
}

std::vector<Case> unloadCases(const wchar_t* command, const Files& files)
{
    const auto run = runOf(command);
    return {
        {"unloads", typing(files.plant), run},
        {"unloads the only one",
         [path = files.plant] {
             host().setStringSetting(L"CUIX/LoadedCuix", L";" + path);
             type(path);
         },
         run},
        {"unloads a file of an odd name", typing(files.oddLoaded), run},
        {"main file", typing(files.main), run},
        {"not loaded", typing(files.other), run},
        {"no such file",
         [path = files.lost] {
             giveTexts();
             type(path);
         },
         run},
        {"no such file and no text for it", typing(files.lost), run},
        {"cancelled", [] {}, run},
        {"no store",
         [path = files.plant] {
             type(path);
             host().storeIsThere.usually(false);
         },
         run},
        {"unreadable list",
         [path = files.plant] {
             type(path);
             host().readFailures.usually(7);
         },
         run},
        {"no manager",
         [path = files.plant] {
             type(path);
             host().applicationIsThere.usually(false);
         },
         run},
        {"tilde",
         [] {
             type(L"~");
             loaddialog::describeControls();
         },
         run},
        {"dialog that unloads",
         [] {
             allowDialogs();
             host().whileModal = [](QuUiBaseDialog& dialog) {
                 select(dialog, 1);
                 own(dialog).OnBtnUnLoadMenu();
             };
         },
         run},
    };
}

void rememberFile(const std::wstring& file)
{
    const std::wstring section = L"UserInterfaceSettings\\Select Menu File";
    host().sections.insert(section);
    host().settings[section + L"\\InitialFilterIndex"].setInteger(3);
    host().setStringSetting(section + L"\\InitialDirectory", file);
}

std::vector<Case> menuCases(const Files& files)
{
    const auto run = runOf(L"MENU");
    const std::wstring plant = files.plant;
    const std::wstring other = files.other;
    const std::wstring longName = L"a menu file with a rather long name";
    const auto find = [plant](const std::wstring& name) { host().filesToFind[name] = plant; };
    const auto pick = [plant] { host().fileDialogs.next({5100, plant, 2, 1}); };
    return {
        {"found by its whole name",
         [=] {
             type(longName + L".CUIX");
             find(longName + L".CUIX");
         },
         run},
        {"found by an extension that was added",
         [=] {
             type(L"\" " + longName + L" \"");
             find(longName + L".cuix.mnu");
         },
         run},
        {"not found", typing(longName), run},
        {"an extension of another kind", typing(longName + L".text"), run},
        {"cancelled", [] {}, run},
        {"the main menu file",
         [=] {
             host().setVariable(L"MENUNAME", recording::MaybeText(longName + L".mns"));
             type(L"");
             find(longName + L".mns");
         },
         run},
        {"none", typing(L"."), run},
        {"tilde",
         [=] {
             host().setVariable(L"MENUNAME", recording::MaybeText(longName));
             type(L"~");
             pick();
             find(plant);
         },
         run},
        {"tilde and a cancel", typing(L"~"), run},
        {"dialog that remembers",
         [=] {
             host().setVariable(L"FILEDIA", short{1});
             rememberFile(other);
             pick();
             find(plant);
         },
         run},
        {"dialog without a store",
         [] {
             host().setVariable(L"FILEDIA", short{1});
             host().storeIsThere.usually(false);
         },
         run},
        {"kinds of the host",
         [=] {
             host().resources[L"QUELDRes.dll"][11005] = L";;menu;template file of a long kind;x;";
             host().resources[L"VxCuiCmdsRes.dll"][11069] = L"The name of a menu file <%s> or not:";
             type(longName);
             find(longName + L".menu.template file of a long kind");
         },
         run},
    };
}

std::vector<Case> customizeCases(const Files&)
{
    const auto run = runOf(L"CUSTOMIZE");
    const auto answer = [](int status, const recording::MaybeText& text) {
        return [status, text] {
            giveTexts();
            host().keywords.next({status, text});
        };
    };
    return {
        {"Enter", answer(5000, std::nullopt), run},
        {"accelerators", answer(5100, L"accelerator"), run},
        {"toolbars", answer(5100, L"TOOLBAR"), run},
        {"another word", answer(5100, L"something else of some length"), run},
        {"cancelled", [] { giveTexts(); }, run},
        {"no texts",
         [] {
             host().keywords.next({5100, L"Toolbar"});
         },
         run},
    };
}

std::vector<Case> reinitCases(const Files&)
{
    const auto run = runOf(L"REINIT");
    const auto aliasFile = [](const std::wstring& name) {
        return [name] { host().aliasFile = name; };
    };
    return {
        {"yes", [] {}, run},
        {"no", [] { host().boxes.usually(2); }, run},
        {"file of another name", aliasFile(L"a longer name of an alias file.PGP"), run},
        {"file without an extension", aliasFile(L"Mine of QUELD"), run},
        {"name that holds the replaced one", aliasFile(L"Mine, not QUELD.pgp"), run},
        {"no name", [] { host().aliasFile = std::nullopt; }, run},
        {"no manager", [] { host().aliasManagerIsThere.usually(false); }, run},
        {"unreadable file", [] { host().aliasesRead.usually(false); }, run},
        {"text of the resource file",
         [] {
             host().resources[L"VxCuiCmdsRes.dll"][6700] =
                 L"QUELD.pgp has changed. Is QUELD.pgp to be read again, 100%%?";
             host().aliasFile = L"a longer name of an alias file";
         },
         run},
    };
}

// Of the dialog, of which all runs are alike, a second name has one case.
std::vector<Case> withOneDialog(std::vector<Case> cases)
{
    const auto isDialog = [](const Case& row) {
        return std::string(row.name).find("dialog that changes") == 0 ||
               std::string(row.name) == "tilde";
    };
    cases.erase(std::remove_if(cases.begin(), cases.end(), isDialog), cases.end());
    return cases;
}

constexpr Group kCommands[] = {
    {"MENULOAD", [](const Files& files) { return loadCases(L"MENULOAD", files); }, 350},
    {"CUILOAD", [](const Files& files) { return withOneDialog(loadCases(L"CUILOAD", files)); },
     250},
    {"MENUUNLOAD", [](const Files& files) { return unloadCases(L"MENUUNLOAD", files); }, 220},
    {"CUIUNLOAD",
     [](const Files& files) { return withOneDialog(unloadCases(L"CUIUNLOAD", files)); }, 180},
    {"MENU", menuCases, 240},
    {"CUSTOMIZE", customizeCases, 28},
    {"REINIT", reinitCases, 120},
};

} // namespace

INSTANTIATE_TEST_SUITE_P(Commands, Shortage, testing::ValuesIn(kCommands),
                         [](const auto& group) { return std::string(group.param.name); });

} // namespace shortage
