#include "fuzz/support/fuzzinput.h"

namespace fuzzing {

namespace {

std::uint32_t at(std::string_view bytes, std::size_t index)
{
    return index < bytes.size() ? static_cast<unsigned char>(bytes[index]) : 0U;
}

// How many bytes the form that `lead` begins has.
std::size_t formLength(std::uint32_t lead)
{
    if (lead >= 0xC0 && lead < 0xE0)
        return 2;
    if (lead >= 0xE0 && lead < 0xF0)
        return 3;
    return lead >= 0xF0 && lead < 0xF8 ? 4 : 1;
}

// The character at the front; `length` is then the number of its bytes.
std::uint32_t firstCharacter(std::string_view bytes, std::size_t& length)
{
    const std::uint32_t lead = at(bytes, 0);
    if (lead == 0xFF && bytes.size() >= 5) {
        length = 5;
        return at(bytes, 1) << 24 | at(bytes, 2) << 16 | at(bytes, 3) << 8 | at(bytes, 4);
    }
    length = formLength(lead);
    std::uint32_t character = length == 1 ? lead : lead & (0xFFU >> (length + 1));
    for (std::size_t i = 1; i < length; ++i) {
        if ((at(bytes, i) & 0xC0U) != 0x80) {
            length = 1;
            return lead;
        }
        character = character << 6 | (at(bytes, i) & 0x3FU);
    }
    return character;
}

} // namespace

std::wstring wideText(std::string_view bytes)
{
    std::wstring text;
    text.reserve(bytes.size());
    while (!bytes.empty()) {
        std::size_t length = 1;
        const std::uint32_t character = firstCharacter(bytes, length);
        if (character != 0)
            text += static_cast<wchar_t>(character);
        bytes.remove_prefix(length);
    }
    return text;
}

} // namespace fuzzing
