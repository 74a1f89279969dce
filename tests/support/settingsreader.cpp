#include "tests/support/settingsreader.h"

#include "refhost/core/widetext.h"

#include <charconv>

namespace quelhost::test {

namespace {

// The text that is written with backslashes before tabs, newlines and themselves.
std::optional<std::wstring> unescaped(std::string_view written)
{
    std::string bytes;
    for (std::size_t at = 0; at < written.size(); ++at) {
        if (written[at] != '\\') {
            bytes += written[at];
            continue;
        }
        constexpr std::string_view letters = "tn\\";
        const std::size_t letter = ++at < written.size() ? letters.find(written[at]) : letters.npos;
        if (letter == letters.npos)
            return std::nullopt;
        bytes += "\t\n\\"[letter];
    }
    const std::wstring text = fromUtf8(bytes);
    // What is no UTF-8 does not come back.
    return toUtf8(text) == bytes ? std::optional(text) : std::nullopt;
}

std::optional<std::int32_t> number(std::string_view digits)
{
    std::int32_t value = 0;
    const char* const end = digits.data() + digits.size();
    const auto [stopped, error] = std::from_chars(digits.data(), end, value);
    const bool isPlain = error == std::errc() && stopped == end && std::to_string(value) == digits;
    return isPlain ? std::optional(value) : std::nullopt;
}

// The part before the next tab, which is passed over; all of the rest when there is none.
std::string_view field(std::string_view& rest)
{
    const std::size_t end = rest.find('\t');
    const std::string_view found = rest.substr(0, end);
    rest.remove_prefix(end == rest.npos ? rest.size() : end + 1);
    return found;
}

std::optional<Item> item(std::string_view line)
{
    if (line.find('\t') == line.npos)
        return std::nullopt;
    std::string_view rest = line;
    const std::optional<std::wstring> key = unescaped(field(rest));
    const bool hasValue = rest.find('\t') != rest.npos;
    const std::string_view kind = field(rest);
    if (!key || rest.find('\t') != rest.npos)
        return std::nullopt;
    if (kind == "section" && !hasValue)
        return Item::section(0, *key);
    if (kind == "int" && hasValue) {
        const std::optional<std::int32_t> value = number(rest);
        return value ? std::optional(Item::integer(0, *key, *value)) : std::nullopt;
    }
    if (kind == "string" && hasValue) {
        const std::optional<std::wstring> value = unescaped(rest);
        return value ? std::optional(Item::string(0, *key, *value)) : std::nullopt;
    }
    return std::nullopt;
}

} // namespace

std::optional<std::vector<Item>> readSettingsListing(std::string_view text)
{
    std::vector<Item> items;
    while (!text.empty()) {
        const std::size_t end = text.find('\n');
        const std::optional<Item> read =
            end == text.npos ? std::nullopt : item(text.substr(0, end));
        if (!read)
            return std::nullopt;
        items.push_back(*read);
        text.remove_prefix(end + 1);
    }
    return items;
}

} // namespace quelhost::test
