// Every configuration key and system variable that the module uses, in one table. Keys belong to
// the store's category kSettingsPath; backslashes and slashes are characters of the key.
#pragma once

#include "host/settings.h"

constexpr QueldConfig::Path kSettingsPath = QueldConfig::kUserProfile;

namespace SettingsKey {

//                key                       stored as: meaning
constexpr wchar_t kLoadedMenuFiles[] = // string: loaded customization files, joined by ";"
    L"CUIX/LoadedCuix";

constexpr wchar_t kFileDialog[] = // section: the menu file dialog's last choices
    L"UserInterfaceSettings\\Select Menu File";
constexpr wchar_t kFileDialogFilter[] = // integer: the filter last chosen, counted from 1
    L"UserInterfaceSettings\\Select Menu File\\InitialFilterIndex";
constexpr wchar_t kFileDialogFile[] = // string: full path of the file last chosen, not its folder
    L"UserInterfaceSettings\\Select Menu File\\InitialDirectory";

constexpr wchar_t kLoadDialog[] = // section: the menu load dialog's placement
    L"UserInterfaceSettings\\MenuLoadDlg";
constexpr wchar_t kLoadDialogX[] = // integer: left edge in screen pixels
    L"UserInterfaceSettings\\MenuLoadDlg\\X";
constexpr wchar_t kLoadDialogY[] = // integer: top edge in screen pixels
    L"UserInterfaceSettings\\MenuLoadDlg\\Y";
constexpr wchar_t kLoadDialogWidth[] = // integer: width in pixels
    L"UserInterfaceSettings\\MenuLoadDlg\\WIDTH";
constexpr wchar_t kLoadDialogHeight[] = // integer: height in pixels
    L"UserInterfaceSettings\\MenuLoadDlg\\HEIGHT";

} // namespace SettingsKey

namespace SystemVariable {

constexpr wchar_t kFileDialogs[] = L"FILEDIA";   // short integer: 1 allows file dialogs
constexpr wchar_t kMainMenuFile[] = L"MENUNAME"; // string: the current main menu file

} // namespace SystemVariable
