// The controls of the menu load dialog by their object names in the description IDD_MENU_LOAD_DLG.
#pragma once

namespace MenuLoadControl {
constexpr wchar_t kGroups[] = L"IDC_MENULOAD_LIST";         // list box of the loaded groups
constexpr wchar_t kGroupsFrame[] = L"IDC_MENULOAD_GRPMENU"; // frame around it
constexpr wchar_t kFile[] = L"IDC_MENULOAD_EDITCMD";        // line edit: the file to load
constexpr wchar_t kFileFrame[] = L"IDC_MENULOAD_GRPFILE";   // frame around the file's row
constexpr wchar_t kFileLabel[] = L"IDC_MENULOAF_FILENAME";  // label beside it, spelled like this
constexpr wchar_t kLoad[] = L"IDC_MENULOAD_LOAD";           // push buttons
constexpr wchar_t kUnload[] = L"IDC_MENULOAD_BTNUNLOAD";
constexpr wchar_t kBrowse[] = L"IDC_MENULOAD_BROWSE";
constexpr wchar_t kHelp[] = L"IDC_MENULOAD_HELP";
constexpr wchar_t kOk[] = L"IDOK";
} // namespace MenuLoadControl
