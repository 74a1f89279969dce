#include "refhost/core/variables.h"

#include "refhost/core/settingsstore.h"
#include "tests/core/settingssupport.h"

#include <gtest/gtest.h>

#include <string>

using namespace quelhost;
using namespace quelhost::test;

namespace {

constexpr wchar_t kMain[] = L"/p/QUELD";

QString text(const char* utf8)
{
    return QString::fromUtf8(utf8);
}

// "7", "\"text\"" or "none".
std::wstring valueOf(const Variables& variables, const char* name)
{
    const VariableValue* value = variables.find(text(name));
    if (value == nullptr)
        return L"none";
    if (const auto* number = std::get_if<std::int16_t>(value))
        return std::to_wstring(*number);
    return L"\"" + std::get<std::wstring>(*value) + L"\"";
}

struct Kept
{
    ScratchFolder profile;
    std::unique_ptr<SettingsStore> store = openStore(profile.path());
};

} // namespace

TEST(Variables, StartAsANewProfileHasThem)
{
    const Kept kept;
    const Variables variables(*kept.store, kMain);
    EXPECT_EQ(Variables::names(),
              (QStringList{QStringLiteral("FILEDIA"), QStringLiteral("MENUNAME")}));
    EXPECT_EQ(valueOf(variables, "FILEDIA"), L"1");
    EXPECT_EQ(valueOf(variables, "MENUNAME"), L"\"/p/QUELD\"");
}

TEST(Variables, AreFoundInAnyCaseAndByTheirWholeName)
{
    const Kept kept;
    const Variables variables(*kept.store, kMain);
    for (const char* name : {"filedia", "FileDia", "FILEDIA"})
        EXPECT_EQ(valueOf(variables, name), L"1");
    for (const char* name : {"FILE", "FILEDIA ", "", "FILEDIAX"})
        EXPECT_EQ(valueOf(variables, name), L"none");
}

TEST(Variables, TakeWhatTheirKindAllows)
{
    struct Row
    {
        const char* name;
        const char* variable;
        const char* typed;
        const char* result;
        const wchar_t* value;
    };
    const Row rows[] = {
        {"nought", "FILEDIA", "0", "done", L"0"},
        {"the largest", "FILEDIA", "32767", "done", L"32767"},
        {"the smallest", "filedia", "-32768", "done", L"-32768"},
        {"blanks around", "FILEDIA", " 7 ", "done", L"7"},
        {"too large", "FILEDIA", "32768", "BadInput", L"1"},
        {"too small", "FILEDIA", "-32769", "BadInput", L"1"},
        {"a fraction", "FILEDIA", "1.5", "BadInput", L"1"},
        {"a word", "FILEDIA", "no", "BadInput", L"1"},
        {"nothing", "FILEDIA", "", "BadInput", L"1"},
        {"two numbers", "FILEDIA", "1 2", "BadInput", L"1"},
        {"a path", "MENUNAME", "/t/a b;%s", "done", L"\"/t/a b;%s\""},
        {"another script", "menuname", "\xD0\xBC\xD0\xB5\xD0\xBD\xD1\x8E", "done",
         L"\"\u043C\u0435\u043D\u044E\""},
        {"the empty text", "MENUNAME", "", "done", L"\"\""},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        const Kept kept;
        Variables variables(*kept.store, kMain);
        EXPECT_EQ(told(Variables::check(text(row.variable), text(row.typed))), row.result);
        EXPECT_EQ(told(variables.set(text(row.variable), text(row.typed))), row.result);
        EXPECT_EQ(valueOf(variables, row.variable), row.value);
    }
}

TEST(Variables, AFaultSaysWhatIsWrong)
{
    const Kept kept;
    Variables variables(*kept.store, kMain);

    const Status unknown = variables.set(text("COLOUR"), text("1"));
    ASSERT_FALSE(unknown);
    EXPECT_EQ(unknown.fault().kind, FaultKind::NotFound);
    EXPECT_EQ(unknown.fault().sentence.toStdString(),
              "There is no system variable COLOUR; there are FILEDIA, MENUNAME.");
    EXPECT_EQ(Variables::unknown(text("COLOUR")).sentence, unknown.fault().sentence);

    const Status noNumber = variables.set(text("filedia"), text("%1"));
    ASSERT_FALSE(noNumber);
    EXPECT_EQ(noNumber.fault().sentence.toStdString(),
              "FILEDIA takes an integer from -32768 to 32767, not \"%1\".");
}

TEST(Variables, SetAndKeepGoesIntoTheProfile)
{
    const ScratchFolder profile;
    {
        const auto store = openStore(profile.path());
        Variables variables(*store, kMain);
        EXPECT_EQ(told(variables.setAndKeep(text("filedia"), text("0"))), "done");
        EXPECT_EQ(told(variables.setAndKeep(text("MENUNAME"), text("/t/caf\xC3\xA9"))), "done");
        EXPECT_EQ(valueOf(variables, "FILEDIA"), L"0");
    }
    const auto store = openStore(profile.path());
    const Variables variables(*store, kMain);
    EXPECT_EQ(valueOf(variables, "FILEDIA"), L"0");
    EXPECT_EQ(valueOf(variables, "MENUNAME"), L"\"/t/caf\u00E9\"");
}

TEST(Variables, SetIsForThisRunOnly)
{
    const Kept kept;
    {
        Variables variables(*kept.store, kMain);
        EXPECT_EQ(told(variables.set(text("FILEDIA"), text("0"))), "done");
    }
    EXPECT_TRUE(itemsIn(*kept.store).empty());
    EXPECT_EQ(valueOf(Variables(*kept.store, kMain), "FILEDIA"), L"1");
}

TEST(Variables, AValueThatCannotBeTakenIsNotKept)
{
    const Kept kept;
    Variables variables(*kept.store, kMain);
    EXPECT_EQ(told(variables.setAndKeep(text("FILEDIA"), text("x"))), "BadInput");
    EXPECT_EQ(told(variables.setAndKeep(text("COLOUR"), text("1"))), "NotFound");
    EXPECT_TRUE(itemsIn(*kept.store).empty());
}

TEST(Variables, WhatTheProfileCannotKeepHoldsForThisRun)
{
    const ScratchFolder profile;
    const auto store = openStore(profile.path(), SettingsAccess::ReadOnly);
    Variables variables(*store, kMain);
    EXPECT_EQ(told(variables.setAndKeep(text("FILEDIA"), text("0"))), "NotPermitted");
    EXPECT_EQ(valueOf(variables, "FILEDIA"), L"0");
}

TEST(Variables, AKeptValueOfAnotherKindIsLeftAlone)
{
    const Kept kept;
    {
        Variables variables(*kept.store, kMain);
        ASSERT_EQ(told(variables.setAndKeep(text("FILEDIA"), text("0"))), "done");
        ASSERT_EQ(told(variables.setAndKeep(text("MENUNAME"), text("/t/a"))), "done");
    }
    const Result<std::vector<Item>> items = kept.store->all();
    ASSERT_TRUE(items);
    ASSERT_EQ(items.value().size(), 2U);
    for (const Item& item : items.value()) {
        const bool number = item.kind == ItemKind::Integer;
        const Status changed =
            kept.store->write(number ? Item::string(item.category, item.key, L"5")
                                     : Item::integer(item.category, item.key, 5));
        ASSERT_EQ(told(changed), "done");
    }
    const Variables variables(*kept.store, kMain);
    EXPECT_EQ(valueOf(variables, "FILEDIA"), L"1");
    EXPECT_EQ(valueOf(variables, "MENUNAME"), L"\"/p/QUELD\"");
}
