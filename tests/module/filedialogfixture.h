// The file dialog for menu files on a recording host.
#pragma once

#include "menufile/menufilepath.h"

#include "tests/support/recordinghost.h"

#include <gtest/gtest.h>

namespace filedialog {

using recording::host;
using Lines = std::vector<std::string>;

inline constexpr wchar_t kSection[] = L"UserInterfaceSettings\\Select Menu File";
inline const std::wstring kFilterKey = std::wstring(kSection) + L"\\InitialFilterIndex";
inline const std::wstring kFileKey = std::wstring(kSection) + L"\\InitialDirectory";

// Parts of the trace.
inline const std::string kTitle = R"("Select Menu File")";
inline const std::string kKinds = R"("cuix;mnu;mns;menuc")";
inline const std::string kFilters = "\"Customization files(*.cuix)|Menu Template(*.mnu)|"
                                    "Menu File(*.mns)|Menu File(*.menuc)\"";
inline const std::string kExists =
    R"(isItemExist(4, "UserInterfaceSettings\\Select Menu File") -> )";
inline const std::string kFilterArgument =
    R"((4, "UserInterfaceSettings\\Select Menu File\\InitialFilterIndex")";
inline const std::string kFileArgument =
    R"((4, "UserInterfaceSettings\\Select Menu File\\InitialDirectory")";

inline const Lines kLookups{"qumdQuResourceString(11062, " + kTitle + ") -> " + kTitle,
                            "qumdQuResourceString(11004, " + kFilters + ") -> " + kFilters,
                            "qumdQuResourceString(11005, " + kKinds + ") -> " + kKinds};

inline std::string opened(const std::string& location, int filter, int status)
{
    return "vxGetFileDialog(" + kTitle + ", " + location + ", " + kKinds +
           ", 0x18080002, record, null, " + std::to_string(filter) + ", " + kFilters +
           ", null) -> " + std::to_string(status);
}

inline Lines joined(std::initializer_list<Lines> parts)
{
    Lines result;
    for (const Lines& part : parts)
        result.insert(result.end(), part.begin(), part.end());
    return result;
}

inline QuelVariant integer(int number)
{
    QuelVariant value;
    value.setInteger(number);
    return value;
}

inline QuelVariant text(const wchar_t* characters, QuelVariant::VarType type = QuelVariant::kString)
{
    QuelVariant value;
    value.setString(characters, type);
    return value;
}

struct FileDialog : testing::Test
{
    CStdStr<wchar_t> path{L"before"};

    int ask(const wchar_t* initial = L"/start") { return getMenuFilePathByDialog(path, initial); }
    static void pick(const std::wstring& file, int filter = 0, int furtherResults = 0)
    {
        host().fileDialogs.next({5100, file, filter, furtherResults});
    }
    static void remember(const QuelVariant& filter, const QuelVariant& file)
    {
        host().sections.insert(kSection);
        host().settings[kFilterKey] = filter;
        host().settings[kFileKey] = file;
    }
};

} // namespace filedialog
