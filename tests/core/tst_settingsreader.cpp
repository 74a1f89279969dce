// The reader of listings holds the program to its word: what it prints is read again, and nothing
// that it does not print is taken for a listing.
#include "tests/support/settingsreader.h"

#include "refhost/core/settingslisting.h"

#include <gtest/gtest.h>

using namespace quelhost;
using quelhost::test::readSettingsListing;

namespace {

std::string listing(const std::vector<Item>& items)
{
    QByteArray lines;
    for (const Item& item : items)
        lines += settingLine(item) + '\n';
    return lines.toStdString();
}

} // namespace

TEST(SettingsReader, ReadsEveryItemThatIsListed)
{
    const std::vector<Item> items{
        Item::section(0, L"UserInterfaceSettings\\MenuLoadDlg"),
        Item::integer(0, L"X", -2147483647 - 1),
        Item::integer(0, L"", 2147483647),
        Item::string(0, L"CUIX/LoadedCuix", L"/t/m.cuix;;/t/a.cuix"),
        Item::string(0, L"tab\tnewline\nbackslash\\", L"\\t\t\\n\n\\\\ \r"),
        Item::string(0, L"\uFEFFmark", L"\uFEFF"),
        Item::string(0, L"\U0001F600", std::wstring(L"a\0b", 3)),
        Item::string(0, L"empty", L""),
    };
    const auto read = readSettingsListing(listing(items));
    ASSERT_TRUE(read);
    ASSERT_EQ(read->size(), items.size());
    for (std::size_t i = 0; i < items.size(); ++i) {
        SCOPED_TRACE(i);
        EXPECT_EQ(read->at(i).kind, items[i].kind);
        EXPECT_EQ(read->at(i).key, items[i].key);
        EXPECT_EQ(read->at(i).number, items[i].number);
        EXPECT_EQ(read->at(i).text, items[i].text);
    }
}

TEST(SettingsReader, ReadsNoLinesAsNoItems)
{
    const auto read = readSettingsListing("");
    ASSERT_TRUE(read);
    EXPECT_TRUE(read->empty());
}

TEST(SettingsReader, RefusesWhatIsNeverListed)
{
    struct Row
    {
        const char* name;
        const char* text;
    };
    for (const Row& row : {
             Row{"a last line without its end", "K\tint\t1"},
             Row{"an empty line", "\n"},
             Row{"a key alone", "K\n"},
             Row{"an unknown kind", "K\treal\t1\n"},
             Row{"a section with a value", "K\tsection\t\n"},
             Row{"a number without a value", "K\tint\n"},
             Row{"no number", "K\tint\tone\n"},
             Row{"an empty number", "K\tint\t\n"},
             Row{"a number too large", "K\tint\t2147483648\n"},
             Row{"a leading zero", "K\tint\t07\n"},
             Row{"a leading plus", "K\tint\t+7\n"},
             Row{"a minus without a number", "K\tint\t-0\n"},
             Row{"a tab too many", "K\tstring\ta\tb\n"},
             Row{"an unknown escape", "K\tstring\t\\x\n"},
             Row{"a backslash at the end", "K\tstring\t\\\n"},
             Row{"bytes that are no UTF-8", "K\tstring\t\xFF\n"},
             Row{"a surrogate", "K\tstring\t\xED\xA0\x80\n"},
         })
        EXPECT_FALSE(readSettingsListing(row.text)) << row.name;
}
