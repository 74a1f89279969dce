// The list of the menu load dialog: what it shows and what Load adds to it.
#include "tests/module/menuloaddialogfixture.h"

#include "tests/support/memorywatch.h"

namespace loaddialog {

namespace {

const std::string kProductName = "GetOemProductName() -> \"Drafting Desk\"";
const std::string kNotFoundFormat = R"("Menu file load failed.  File not found:\"%s\"")";

} // namespace

// --- What it shows.

TEST_F(LoadDialogList, ShowsTheBaseNamesOfTheFilesThatExistInTheirOrder)
{
    folder.file(L"other/My.Menu.cuix");
    const std::wstring list =
        joinedList({main, gone, L"", tree, folder.path(L"other/My.Menu.cuix"), plant, L""});
    open(L"");
    setList(list);
    dialog->UpdateMenuGroupList();
    EXPECT_EQ(host().trace,
              (Lines{kEmptied, kStore, listRead(list), added("main", 0), added("tree", 1),
                     added("My", 2), added("plant", 3), kFirstSelected}));
}

TEST_F(LoadDialogList, CountsOnlyShownEntriesAsRows)
{
    folder.file(L"other/main.cuix");
    struct Row
    {
        std::wstring list;
        Lines rows;
    };
    for (const Row& row :
         {Row{L"", {}}, Row{L";;;", {}}, Row{gone, {}}, Row{L";" + plant, {"plant"}},
          Row{gone + L";" + plant + L";" + tree, {"plant", "tree"}},
          Row{plant + L";" + plant, {"plant", "plant"}},
          Row{main + L";" + folder.path(L"other/main.cuix"), {"main", "main"}},
          Row{main + L"; " + plant, {"main"}}, Row{folder.path(L"other"), {"other"}},
          Row{folder.path(L"other/"), {""}}, Row{L"nowhere.cuix;/nowhere/at/all.cuix", {}}}) {
        startAnew();
        open(row.list);
        EXPECT_EQ(rows(), row.rows) << toUtf8(row.list);
        EXPECT_EQ(selected(), row.rows.empty() ? -1 : 0) << toUtf8(row.list);
    }
}

TEST_F(LoadDialogList, ShowsNamesOfAnyCharacters)
{
    for (const wchar_t* name :
         {L"\u00E9\u4E2D", L"\U0001F600", L"two words", L"50%d", L"stra\u00DFe", L"\uFEFFmark"}) {
        startAnew();
        open(folder.file(name + std::wstring(L".cuix")));
        EXPECT_EQ(rows(), Lines{toUtf8(name)});
        EXPECT_EQ(control<QListWidget>(kList).item(0)->text(), quelhost::toQString(name));
    }
}

TEST_F(LoadDialogList, EmptiesTheListAndStopsWithoutAStore)
{
    open(main + L";" + plant);
    host().storeIsThere.usually(false);
    dialog->UpdateMenuGroupList();
    EXPECT_EQ(host().trace, (Lines{kEmptied, kNoStore}));
    EXPECT_EQ(rows(), Lines{});
}

TEST_F(LoadDialogList, EmptiesTheListAndStopsWhenItCannotBeRead)
{
    open(main + L";" + plant);
    host().readFailures.next(7);
    dialog->UpdateMenuGroupList();
    EXPECT_EQ(host().trace, (Lines{kEmptied, kStore, "getValue(4, \"CUIX/LoadedCuix\") -> 7"}));
    EXPECT_EQ(rows(), Lines{});
}

TEST_F(LoadDialogList, SelectsTheFirstRowAndLeavesTheButtonsAlone)
{
    open(main + L";" + plant);
    for (const bool state : {true, false}) {
        control<QPushButton>(kUnload).setEnabled(state);
        control<QPushButton>(kLoad).setEnabled(!state);
        select(1);
        dialog->UpdateMenuGroupList();
        EXPECT_EQ(selected(), 0);
        EXPECT_EQ(isEnabled(kUnload), state);
        EXPECT_EQ(isEnabled(kLoad), !state);
    }
    setList(L"");
    host().forgetCalls();
    dialog->UpdateMenuGroupList();
    EXPECT_EQ(host().trace,
              (Lines{kEmptied, kStore, listRead(L""), "SetCurSel(IDC_MENULOAD_LIST, 0) -> -1"}));
    EXPECT_FALSE(isEnabled(kUnload));
}

// --- Load.

TEST_F(LoadDialogList, LoadsATypedFileInThisOrder)
{
    const std::wstring list = joinedList({main, gone, L"", tree});
    open(list);
    type(plant);
    control<QPushButton>(kLoad).click();
    const std::wstring longer = list + L";" + plant;
    EXPECT_EQ(host().trace,
              (Lines{kEditFound, editRead(plant), kProductName, kStore, listRead(list),
                     listWritten(longer), kEmptied, kStore, listRead(longer), added("main", 0),
                     added("tree", 1), added("plant", 2), kFirstSelected}));
    EXPECT_TRUE(dialog->isChanged());
    EXPECT_EQ(storedList(), longer);
    EXPECT_EQ(rows(), (Lines{"main", "tree", "plant"}));
    EXPECT_EQ(selected(), 0);
    EXPECT_EQ(typed(), plant);
    EXPECT_TRUE(isEnabled(kLoad));
}

TEST_F(LoadDialogList, PutsASeparatorBeforeTheFirstEntryAndLeavesUnloadOff)
{
    open(L"");
    type(plant);
    dialog->OnBtnLoadMenu();
    EXPECT_EQ(storedList(), L";" + plant);
    EXPECT_EQ(rows(), Lines{"plant"});
    EXPECT_FALSE(isEnabled(kUnload));
}

TEST_F(LoadDialogList, LoadsOneFileAfterTheOther)
{
    open(main);
    type(plant);
    dialog->OnBtnLoadMenu();
    type(tree);
    dialog->OnBtnLoadMenu();
    EXPECT_EQ(storedList(), joinedList({main, plant, tree}));
    EXPECT_EQ(rows(), (Lines{"main", "plant", "tree"}));
}

TEST_F(LoadDialogList, DoesNothingWithNothingTyped)
{
    open(main);
    dialog->OnBtnLoadMenu();
    EXPECT_EQ(host().trace, (Lines{kEditFound, editRead(L"")}));
    EXPECT_FALSE(dialog->isChanged());
}

TEST_F(LoadDialogList, TellsInABoxOfAMissingFileAndOfOneOfAnotherKind)
{
    const std::wstring names[] = {gone,
                                  folder.file(L"a.cui"),
                                  folder.file(L"uix"),
                                  folder.file(L"a.cuix.bak"),
                                  plant + L" ",
                                  L" " + plant,
                                  L" ",
                                  L"plant.cuix",
                                  L"50%d%s.cuix",
                                  folder.file(L"b.cu\u0130x")};
    for (const std::wstring& name : names) {
        startAnew();
        open(main);
        type(name);
        dialog->OnBtnLoadMenu();
        const std::wstring text = L"Menu file load failed.  File not found:\"" + name + L"\"";
        EXPECT_EQ(host().trace, (Lines{kEditFound, editRead(name), kProductName,
                                       "qumdQuResourceString(11070, " + kNotFoundFormat + ") -> " +
                                           kNotFoundFormat,
                                       "QuUiBaseDialog::MessageBoxW(" + shown(text) +
                                           ", \"Drafting Desk\", 0x30) -> 1"}));
        EXPECT_FALSE(dialog->isChanged()) << toUtf8(name);
        EXPECT_EQ(storedList(), main) << toUtf8(name);
        EXPECT_EQ(typed(), name);
    }
}

TEST_F(LoadDialogList, LoadsFilesWhoseNameEndsInTheFourLetters)
{
    for (const wchar_t* name : {L"a.CUIX", L"mycuix", L"cuix", L".cuix", L"c.cu\u0131x",
                                L"\U0001F600.cuix", L"%s%n.cuix", L"a;b.cuix", L" x.cuix"}) {
        startAnew();
        open(main);
        const std::wstring path = folder.file(name);
        type(path);
        dialog->OnBtnLoadMenu();
        EXPECT_EQ(storedList(), main + L";" + path) << toUtf8(name);
        EXPECT_TRUE(dialog->isChanged()) << toUtf8(name);
    }
}

TEST_F(LoadDialogList, SaysOnTheCommandLineThatAFileIsLoadedAlready)
{
    host().resources[L"QUELDRes.dll"] = {{11065, L"\"%s\" is loaded."}};
    const std::wstring path = folder.file(L"other/PLANT.50%d.cuix");
    const std::wstring list = joinedList({main, plant});
    open(list);
    type(path);
    dialog->OnBtnLoadMenu();
    EXPECT_EQ(host().trace, (Lines{kEditFound, editRead(path), kProductName, kStore, listRead(list),
                                   "AfxGetResourceHandle() -> QUELDRes.dll",
                                   "LoadStringW(QUELDRes.dll, 11065, 1024) -> 15",
                                   "quutPrintf(" + shown(L"\"" + path + L"\" is loaded.") + ")"}));
    EXPECT_FALSE(dialog->isChanged());
    EXPECT_EQ(storedList(), list);
    EXPECT_EQ(rows(), (Lines{"main", "plant"}));
}

TEST_F(LoadDialogList, SaysNothingButTheSameWithoutATextForIt)
{
    open(main);
    type(main);
    dialog->OnBtnLoadMenu();
    EXPECT_EQ(host().trace.back(), "quutPrintf(\"\")");
    EXPECT_EQ(host().count("QuUiBaseDialog::MessageBoxW"), 0);
    EXPECT_FALSE(dialog->isChanged());
}

TEST_F(LoadDialogList, AFileThatIsGoneBlocksNoOtherOfItsName)
{
    const std::wstring other = folder.file(L"other/gone.cuix");
    open(joinedList({main, gone}));
    type(other);
    dialog->OnBtnLoadMenu();
    EXPECT_EQ(storedList(), joinedList({main, gone, other}));
    EXPECT_EQ(rows(), (Lines{"main", "gone"}));
}

TEST_F(LoadDialogList, LoadsNothingWithoutAStore)
{
    open(main);
    type(plant);
    host().storeIsThere.usually(false);
    dialog->OnBtnLoadMenu();
    EXPECT_EQ(host().trace, (Lines{kEditFound, editRead(plant), kProductName, kNoStore}));
    EXPECT_FALSE(dialog->isChanged());
    EXPECT_EQ(rows(), Lines{"main"});
}

TEST_F(LoadDialogList, LoadsNothingWhenTheListCannotBeRead)
{
    open(main);
    type(plant);
    host().readFailures.next(1);
    dialog->OnBtnLoadMenu();
    EXPECT_EQ(host().trace, (Lines{kEditFound, editRead(plant), kProductName, kStore,
                                   "getValue(4, \"CUIX/LoadedCuix\") -> 1"}));
    EXPECT_FALSE(dialog->isChanged());
    EXPECT_EQ(rows(), Lines{"main"});
}

TEST_F(LoadDialogList, CountsAsChangedWhenTheStoreCannotWrite)
{
    open(main);
    type(plant);
    host().writeFailures.next(1);
    dialog->OnBtnLoadMenu();
    EXPECT_TRUE(dialog->isChanged());
    EXPECT_EQ(storedList(), main);
    EXPECT_EQ(rows(), Lines{"main"});
}

TEST_F(LoadDialogList, ShowsTheBoxWithTheProductsName)
{
    host().productName = L"Another Desk";
    open(main);
    type(gone);
    dialog->OnBtnLoadMenu();
    EXPECT_NE(host().trace.back().find("\", \"Another Desk\", 0x30)"), std::string::npos);
}

TEST_F(LoadDialogList, IsChangedByALoadOnlyOnceTheListIsWritten)
{
    const auto prepare = [this] {
        startAnew();
        open(main);
        type(plant);
    };
    prepare();
    dialog->OnBtnLoadMenu();
    const std::vector<NumberedCall> calls = numbered(host().trace);
    ASSERT_EQ(calls.size(), 12U);
    bool written = false;
    for (const NumberedCall& call : calls) {
        prepare();
        const VxErrorStatus* const thrown = host().throwOnCall(call.function, call.which);
        const auto caught = errorOutOf([this] { dialog->OnBtnLoadMenu(); });
        EXPECT_EQ(caught.get(), thrown) << call.function << " " << call.which;
        EXPECT_EQ(dialog->isChanged(), written) << call.function << " " << call.which;
        EXPECT_EQ(storedList(), written ? main + L";" + plant : main) << call.function;
        written = written || call.function == "setValue";
    }
    EXPECT_TRUE(written);
}

TEST_F(LoadDialogList, LetsErrorsOutOfItsRefusalsPass)
{
    for (const std::wstring& path : {main, gone}) {
        const auto prepare = [&] {
            startAnew();
            open(main);
            type(path);
        };
        prepare();
        dialog->OnBtnLoadMenu();
        for (const NumberedCall& call : numbered(host().trace)) {
            prepare();
            const VxErrorStatus* const thrown = host().throwOnCall(call.function, call.which);
            const auto caught = errorOutOf([this] { dialog->OnBtnLoadMenu(); });
            EXPECT_EQ(caught.get(), thrown) << call.function << " " << call.which;
            EXPECT_FALSE(dialog->isChanged()) << call.function << " " << call.which;
        }
    }
}

TEST_F(LoadDialogList, ReportsThatMemoryRunsOutWhenTheListIsStored)
{
    const std::wstring old(2000, L';');
    open(old);
    type(plant);
    const std::size_t newBlock = (old.size() + 1 + plant.size() + 1) * 4 + 4;
    recording::MemoryWatch watch(recording::Refusal::ofSize(newBlock));
    const auto caught = errorOutOf([&] { watch.run([this] { dialog->OnBtnLoadMenu(); }); });
    ASSERT_NE(caught, nullptr);
    EXPECT_EQ(caught->status(), Quel::eNoMemory);
    EXPECT_EQ(watch.refused(), 1);
    ASSERT_EQ(host().crashes.size(), 1U);
    EXPECT_EQ(host().crashes.front().address, caught.get());
    EXPECT_FALSE(dialog->isChanged());
    EXPECT_EQ(storedList(), old);
}

} // namespace loaddialog
