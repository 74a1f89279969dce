// Unload of the menu load dialog: which entries and rows go, and when nothing does.
#include "tests/module/menuloaddialogfixture.h"

namespace loaddialog {

namespace {

const std::string kSelectedRow = "GetCurSel(IDC_MENULOAD_LIST) -> ";
const std::string kQuestion =
    R"(qumdQuResourceString(11071, "Do you want to unload menu?") -> "Do you want to unload menu?")";
const std::string kAsked =
    R"(QuUiBaseDialog::MessageBoxW("Do you want to unload menu?", null, 0x31) -> )";

std::string rowCount(int count)
{
    return "GetCount(IDC_MENULOAD_LIST) -> " + shown(count);
}

std::string rowText(int row, int length)
{
    return "GetText(IDC_MENULOAD_LIST, " + shown(row) + ") -> " + shown(length);
}

std::string rowDeleted(int row, int left)
{
    return "DeleteString(IDC_MENULOAD_LIST, " + shown(row) + ") -> " + shown(left);
}

} // namespace

TEST_F(LoadDialogList, UnloadsTheSelectedGroupInThisOrder)
{
    const std::wstring list = joinedList({main, L"", gone, plant, tree});
    openOn(list, 2);
    control<QPushButton>(kUnload).click();
    EXPECT_EQ(host().trace, (Lines{kSelectedRow + "2", rowCount(3), rowText(2, 4), kQuestion,
                                   kAsked + "1", kStore, listRead(list), rowDeleted(2, 2),
                                   listWritten(joinedList({main, L"", gone, plant}))}));
    EXPECT_TRUE(dialog->isChanged());
    EXPECT_EQ(rows(), (Lines{"main", "plant"}));
    EXPECT_EQ(selected(), -1);
    EXPECT_TRUE(isEnabled(kUnload));
}

TEST_F(LoadDialogList, KeepsEveryOtherEntryAsItIs)
{
    folder.file(L"other/Plant.cuix");
    const std::wstring capital = folder.path(L"other/Plant.cuix");
    const std::wstring missing = L"/nowhere/x.cuix";
    struct Row
    {
        std::wstring list;
        int row;
        std::wstring kept;
    };
    for (const Row& row : {
             Row{joinedList({main, plant}), 1, main},
             Row{joinedList({L"", main, plant}), 1, joinedList({L"", main})},
             Row{joinedList({main, L"", missing, plant, tree}), 2,
                 joinedList({main, L"", missing, plant})},
             Row{joinedList({missing, main, plant}), 1, joinedList({missing, main})},
             Row{joinedList({main, plant, L"", L""}), 1, joinedList({main, L"", L""})},
             Row{joinedList({main, plant, capital}), 1, joinedList({main, capital})},
             Row{joinedList({main, capital, plant}), 1, joinedList({main, plant})},
             Row{joinedList({main, plant, plant + L" "}), 1, main},
             Row{joinedList({main, plant, L" " + plant}), 1, main},
             Row{joinedList({main, plant, L"plants.cuix"}), 1, joinedList({main, L"plants.cuix"})},
         }) {
        openOn(row.list, row.row);
        dialog->OnBtnUnLoadMenu();
        EXPECT_EQ(storedList(), row.kept) << toUtf8(row.list);
        EXPECT_TRUE(dialog->isChanged()) << toUtf8(row.list);
    }
}

TEST_F(LoadDialogList, UnloadsAllEntriesOfOneNameAndTakesTheRowBelowWithThem)
{
    const std::wstring other = folder.file(L"other/plant.xml");
    const std::wstring list = joinedList({main, plant, tree, other, fern});
    openOn(list, 1);
    EXPECT_EQ(rows(), (Lines{"main", "plant", "tree", "plant", "fern"}));
    dialog->OnBtnUnLoadMenu();
    EXPECT_EQ(host().trace, (Lines{kSelectedRow + "1", rowCount(5), rowText(1, 5), kQuestion,
                                   kAsked + "1", kStore, listRead(list), rowDeleted(1, 4),
                                   rowDeleted(1, 3), listWritten(joinedList({main, tree, fern}))}));
    EXPECT_EQ(rows(), (Lines{"main", "plant", "fern"}));
    dialog->UpdateMenuGroupList();
    EXPECT_EQ(rows(), (Lines{"main", "tree", "fern"}));
}

TEST_F(LoadDialogList, UnloadsEntriesOfTheNameWhoseFileIsGoneAsWell)
{
    const std::wstring missing = folder.path(L"other/plant.cuix");
    openOn(joinedList({main, missing, tree, plant}), 2);
    dialog->OnBtnUnLoadMenu();
    EXPECT_EQ(storedList(), joinedList({main, tree}));
    EXPECT_EQ(host().calls("DeleteString"), (Lines{rowDeleted(2, 2), rowDeleted(2, -1)}));
    EXPECT_EQ(rows(), (Lines{"main", "tree"}));
}

TEST_F(LoadDialogList, UnloadsTheFirstEntryTooWhenItHasTheName)
{
    const std::wstring other = folder.file(L"other/main.cuix");
    openOn(joinedList({main, other}), 1);
    dialog->OnBtnUnLoadMenu();
    EXPECT_EQ(host().trace.back(), listWritten(L""));
    EXPECT_EQ(host().settings.at(L"CUIX/LoadedCuix").type(), QuelVariant::kString);
    EXPECT_EQ(rows(), Lines{"main"});
}

TEST_F(LoadDialogList, NeverUnloadsTheFirstRow)
{
    for (const std::wstring& list : {main, main + L";" + plant, L";" + plant}) {
        openOn(list, 0);
        dialog->OnBtnUnLoadMenu();
        EXPECT_EQ(host().trace.front(), kSelectedRow + "0");
        EXPECT_EQ(host().count("QuUiBaseDialog::MessageBoxW"), 0);
        EXPECT_EQ(host().count("quelConfig"), 0);
        EXPECT_EQ(storedList(), list);
        EXPECT_FALSE(dialog->isChanged());
    }
}

TEST_F(LoadDialogList, UnloadsNothingWithoutASelectedRow)
{
    openOn(main + L";" + plant, -1);
    dialog->OnBtnUnLoadMenu();
    EXPECT_EQ(host().trace.front(), kSelectedRow + "-1");
    EXPECT_EQ(host().count("QuUiBaseDialog::MessageBoxW"), 0);
    openOn(L"", 0);
    dialog->OnBtnUnLoadMenu();
    EXPECT_EQ(host().trace.front(), kSelectedRow + "-1");
    EXPECT_EQ(host().count("QuUiBaseDialog::MessageBoxW"), 0);
}

TEST_F(LoadDialogList, UnloadsNothingBeyondTheLastRow)
{
    for (const int rowsLeft : {2, 1, 0}) {
        openOn(joinedList({main, plant, tree}), 2);
        host().onCall("GetCurSel", 1, [&] {
            auto& list = control<QListWidget>(kList);
            while (list.count() > rowsLeft)
                delete list.takeItem(list.count() - 1);
        });
        dialog->OnBtnUnLoadMenu();
        EXPECT_EQ(host().trace, (Lines{kSelectedRow + "2", rowCount(rowsLeft)}));
        EXPECT_FALSE(dialog->isChanged());
    }
}

TEST_F(LoadDialogList, UnloadsNoRowWithoutAText)
{
    openOn(joinedList({main, folder.path(L"other/")}), 1);
    dialog->OnBtnUnLoadMenu();
    EXPECT_EQ(host().trace, (Lines{kSelectedRow + "1", rowCount(2), rowText(1, 0)}));
    EXPECT_FALSE(dialog->isChanged());
}

TEST_F(LoadDialogList, UnloadsOnlyWhenTheUserAgrees)
{
    for (const int answer : {2, 0, -1, 6, 7}) {
        openOn(main + L";" + plant, 1);
        host().boxes.usually(answer);
        dialog->OnBtnUnLoadMenu();
        EXPECT_EQ(host().trace, (Lines{kSelectedRow + "1", rowCount(2), rowText(1, 5), kQuestion,
                                       kAsked + std::to_string(answer)}));
        EXPECT_FALSE(dialog->isChanged()) << answer;
        EXPECT_EQ(rows(), (Lines{"main", "plant"})) << answer;
        EXPECT_EQ(selected(), 1) << answer;
    }
}

TEST_F(LoadDialogList, UnloadsNothingWithoutAStoreAndSaysNothing)
{
    openOn(main + L";" + plant, 1);
    host().storeIsThere.usually(false);
    dialog->OnBtnUnLoadMenu();
    EXPECT_EQ(host().trace.back(), kNoStore);
    EXPECT_EQ(host().count("QuUiBaseDialog::MessageBoxW"), 1);
    EXPECT_FALSE(dialog->isChanged());
    EXPECT_EQ(rows(), (Lines{"main", "plant"}));
}

TEST_F(LoadDialogList, UnloadsNothingWhenTheListCannotBeRead)
{
    openOn(main + L";" + plant, 1);
    host().readFailures.next(-1);
    dialog->OnBtnUnLoadMenu();
    EXPECT_EQ(host().trace.back(), "getValue(4, \"CUIX/LoadedCuix\") -> -1");
    EXPECT_FALSE(dialog->isChanged());
    EXPECT_EQ(rows(), (Lines{"main", "plant"}));
}

TEST_F(LoadDialogList, WritesNothingWhenTheListHasNoSuchEntryAnyMore)
{
    for (const std::wstring& now : {std::wstring(), main, main + L";" + tree}) {
        openOn(main + L";" + plant, 1);
        setList(now);
        dialog->OnBtnUnLoadMenu();
        EXPECT_EQ(host().trace.back(), listRead(now));
        EXPECT_FALSE(dialog->isChanged());
        EXPECT_EQ(rows(), (Lines{"main", "plant"}));
    }
}

TEST_F(LoadDialogList, AsksNothingWhenUnloadIsPressedAgain)
{
    openOn(joinedList({main, plant, tree}), 1);
    dialog->OnBtnUnLoadMenu();
    host().forgetCalls();
    dialog->OnBtnUnLoadMenu();
    EXPECT_EQ(host().trace, Lines{kSelectedRow + "-1"});
    EXPECT_EQ(storedList(), joinedList({main, tree}));
    EXPECT_EQ(rows(), (Lines{"main", "tree"}));
}

TEST_F(LoadDialogList, LoadsAgainWhatWasUnloaded)
{
    openOn(joinedList({main, plant, tree}), 1);
    dialog->OnBtnUnLoadMenu();
    type(plant);
    dialog->OnBtnLoadMenu();
    EXPECT_EQ(storedList(), joinedList({main, tree, plant}));
    EXPECT_EQ(rows(), (Lines{"main", "tree", "plant"}));
}

TEST_F(LoadDialogList, StaysChangedWhenALaterLoadIsRefused)
{
    openOn(joinedList({main, plant}), 1);
    dialog->OnBtnUnLoadMenu();
    type(gone);
    dialog->OnBtnLoadMenu();
    dialog->OnBtnUnLoadMenu();
    dialog->UpdateMenuGroupList();
    EXPECT_TRUE(dialog->isChanged());
}

TEST_F(LoadDialogList, UnloadsNamesOfAnyCharacters)
{
    for (const wchar_t* name :
         {L"\u00E9\u4E2D", L"\U0001F600", L"two words", L"50%d", L"\uFEFFmark"}) {
        openOn(main + L";" + folder.file(name + std::wstring(L".cuix")), 1);
        dialog->OnBtnUnLoadMenu();
        EXPECT_EQ(storedList(), main) << toUtf8(name);
    }
}

TEST_F(LoadDialogList, CountsAnUnloadAsChangedWhenTheStoreCannotWrite)
{
    openOn(main + L";" + plant, 1);
    host().writeFailures.next(1);
    dialog->OnBtnUnLoadMenu();
    EXPECT_TRUE(dialog->isChanged());
    EXPECT_EQ(storedList(), main + L";" + plant);
}

TEST_F(LoadDialogList, IsChangedByAnUnloadOnceTheRowsAreDeleted)
{
    const std::wstring other = folder.file(L"other/plant.cuix");
    const std::wstring list = joinedList({main, plant, other});
    openOn(list, 1);
    dialog->OnBtnUnLoadMenu();
    const std::vector<NumberedCall> calls = numbered(host().trace);
    ASSERT_EQ(calls.size(), 10U);
    ASSERT_EQ(calls.back().function, "setValue");
    for (const NumberedCall& call : calls) {
        openOn(list, 1);
        const VxErrorStatus* const thrown = host().throwOnCall(call.function, call.which);
        const auto caught = errorOutOf([this] { dialog->OnBtnUnLoadMenu(); });
        EXPECT_EQ(caught.get(), thrown) << call.function << " " << call.which;
        EXPECT_EQ(dialog->isChanged(), call.function == "setValue") << call.function;
        EXPECT_EQ(storedList(), list) << call.function;
    }
}

} // namespace loaddialog
