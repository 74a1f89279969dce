// Text as the line editor can handle it: one character a cell.
//
// The editor draws one character in each cell of the screen and loses a combining one. So a
// character with the ones that combine with it is held as a single stand-in of the same width, from
// ranges that hardly anybody types; one that is typed nevertheless gets a stand-in as well. The
// stand-ins turn back into what they stand for on the way to the screen and out of the editor.
#pragma once

#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace quelhost {

// All functions REQUIRE that the thread's characters are UTF-8 (Utf8Locale).
class CellText
{
public:
    [[nodiscard]] std::wstring toCells(std::wstring_view text);

    // The text that `cells` stand for. Control characters from U+0080 to U+009F are left out.
    [[nodiscard]] std::wstring toText(std::wstring_view cells) const;

    // The same as it is to be drawn: combining characters without a base get one.
    [[nodiscard]] std::wstring toScreen(std::wstring_view cells) const;

private:
    struct StandIns
    {
        wchar_t first;
        wchar_t last;
        std::vector<std::wstring> texts; // what the first, second ... stands for
    };

    void append(std::wstring& cells, std::wstring_view cluster);
    [[nodiscard]] const std::wstring* textOf(wchar_t cell) const;
    [[nodiscard]] bool isStandIn(wchar_t character) const;

    StandIns m_narrow{0x100000, 0x10FFFD, {}}; // private use
    StandIns m_wide{0x2F800, 0x2FA1D, {}};     // compatibility ideographs
    std::map<std::wstring, wchar_t, std::less<>> m_known;
};

// Whether `character` is drawn over the one before it.
[[nodiscard]] bool isCombining(wchar_t character);

// How many columns the editor gives to `cell` when it stands in `column`.
[[nodiscard]] int columnsOf(wchar_t cell, int column);

} // namespace quelhost
