// Any items through the listing of settings and its reader, and any bytes through the reader.
//
// An input that begins with "r" is what the reader is given. Every other one is items: a byte for
// the kind, one for the key's length, the key, and the value, a text in the same way or four bytes.
#include "fuzz/support/broken.h"
#include "fuzz/support/fuzzinput.h"

#include "refhost/core/settingslisting.h"
#include "tests/support/settingsreader.h"

#include <algorithm>

using fuzzing::FuzzInput;
using fuzzing::mustHold;
using quelhost::Item;
using quelhost::ItemKind;

namespace {

QByteArray listing(const std::vector<Item>& items)
{
    QByteArray lines;
    for (const Item& item : items)
        lines += quelhost::settingLine(item) + '\n';
    return lines;
}

// A character 1 stands for null, which is in no wide text of a fuzzer's and may be in an item.
std::wstring textOf(FuzzInput& input)
{
    std::wstring text = fuzzing::wideText(input.bytes(input.upTo(40)));
    std::replace(text.begin(), text.end(), L'\1', L'\0');
    return text;
}

std::int32_t numberOf(FuzzInput& input)
{
    std::uint32_t number = 0;
    for (int i = 0; i < 4; ++i)
        number = number << 8 | input.byte();
    return static_cast<std::int32_t>(number);
}

Item itemOf(FuzzInput& input)
{
    const unsigned int kind = input.upTo(2);
    std::wstring key = textOf(input);
    if (kind == 0)
        return Item::section(0, std::move(key));
    if (kind == 1)
        return Item::integer(0, std::move(key), numberOf(input));
    return Item::string(0, std::move(key), textOf(input));
}

// What is no character is listed as the character for that.
std::wstring asListed(std::wstring text)
{
    for (wchar_t& character : text) {
        const auto code = static_cast<std::uint32_t>(character);
        if (code > 0x10FFFF || (code >= 0xD800 && code <= 0xDFFF))
            character = 0xFFFD;
    }
    return text;
}

bool isListed(const Item& item, const Item& read)
{
    return read.kind == item.kind && read.key == asListed(item.key) && read.number == item.number &&
           read.text == asListed(item.text);
}

void checkItems(FuzzInput input)
{
    std::vector<Item> items;
    while (!input.isAtEnd())
        items.push_back(itemOf(input));
    const QByteArray lines = listing(items);
    const auto read = quelhost::test::readSettingsListing(lines.toStdString());
    mustHold(read.has_value(), "every listing can be read");
    mustHold(std::equal(items.begin(), items.end(), read->begin(), read->end(), isListed),
             "a listing has the items, whole and in their order");
}

void checkReader(std::string_view bytes)
{
    const auto items = quelhost::test::readSettingsListing(bytes);
    if (items)
        mustHold(listing(*items) == QByteArray(bytes.data(), static_cast<int>(bytes.size())),
                 "what was read is listed in the same way");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    FuzzInput input(data, size);
    if (size > 0 && data[0] == 'r') {
        input.byte();
        checkReader(input.rest());
    } else {
        checkItems(input);
    }
    return 0;
}
