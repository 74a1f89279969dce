#include "module/customizationcommandapp.h"

#include "tests/module/sevencommands.h"
#include "tests/support/rawslots.h"
#include "tests/support/recordinghost.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <limits>
#include <type_traits>

using recording::host;
using Lines = std::vector<std::string>;

class EntityParameters
{};

namespace {

const std::wstring kModuleFile = L"VxCuiCmdsRes.dll";
constexpr unsigned int kNoDescription = 4294967295U;

void setName(unsigned int number, const std::wstring& text)
{
    host().resources[kModuleFile][number] = text;
}

Lines lookupLines(const std::string& id, const std::string& result)
{
    return {"SetCurrentResourceName(\"VxCuiCmdsRes.dll\") -> true",
            "AfxGetResourceHandle() -> VxCuiCmdsRes.dll",
            "LoadStringW(VxCuiCmdsRes.dll, " + id + ", 1024) -> " + result,
            "RestorePreviousResource()"};
}

struct EachCommand : testing::TestWithParam<CommandRow>
{
    FactoryPointer factory = GetParam().newFactory();
    std::string number = std::to_string(GetParam().number);
};

INSTANTIATE_TEST_SUITE_P(Commands, EachCommand, testing::ValuesIn(sevenCommands()),
                         [](const auto& row) { return std::string(row.param.name); });

} // namespace

TEST_P(EachCommand, ReportsItsConstantsWithoutALookup)
{
    EXPECT_STREQ(factory->globalName(), GetParam().globalName);
    EXPECT_STREQ(factory->module(), L"VxCuiCmds.dll");
    EXPECT_EQ(factory->flags(), 0U);
    EXPECT_EQ(factory->helpTopicOverride(), nullptr);
    EXPECT_EQ(host().trace, Lines{});
}

TEST_P(EachCommand, LoadsItsNameByItsClassNumberInsideTheModulesFile)
{
    setName(GetParam().number, L"Benutzerwort");
    EXPECT_STREQ(factory->localName(), L"Benutzerwort");
    EXPECT_EQ(host().trace, lookupLines(number, "12"));
    EXPECT_EQ(host().resourceStack, std::vector<std::wstring>{L"QUELDRes.dll"});
}

TEST_P(EachCommand, KeepsALoadedNameAndTouchesNoResourceAgain)
{
    setName(GetParam().number, L"Wort");
    const wchar_t* const first = factory->localName();
    host().trace.clear();
    setName(GetParam().number, L"Anderes");
    EXPECT_EQ(factory->localName(), first);
    EXPECT_STREQ(first, L"Wort");
    EXPECT_EQ(host().trace, Lines{});
}

TEST_P(EachCommand, FallsBackToTheGlobalNameAndTriesAgainEachTime)
{
    for (int round = 0; round < 3; ++round) {
        host().trace.clear();
        EXPECT_EQ(factory->localName(), factory->globalName());
        EXPECT_EQ(host().trace, lookupLines(number, "0"));
    }
    setName(GetParam().number, L"Endlich");
    EXPECT_STREQ(factory->localName(), L"Endlich");
}

TEST_P(EachCommand, HasNoDescriptionAndLooksForOneEachTime)
{
    for (int round = 0; round < 2; ++round) {
        host().trace.clear();
        ASSERT_NE(factory->description(), nullptr);
        EXPECT_STREQ(factory->description(), L"");
        Lines twice = lookupLines("4294967295", "0");
        const Lines once = twice;
        twice.insert(twice.end(), once.begin(), once.end());
        EXPECT_EQ(host().trace, twice);
    }
}

TEST_P(EachCommand, UsesADescriptionThatAFileHasAllTheSame)
{
    host().resources[kModuleFile][kNoDescription] = L"Tells more";
    EXPECT_STREQ(factory->description(), L"Tells more");
    host().trace.clear();
    EXPECT_STREQ(factory->description(), L"Tells more");
    EXPECT_EQ(host().trace, Lines{});
    EXPECT_STREQ(factory->localName(), GetParam().globalName);
}

TEST_P(EachCommand, LooksInTheCurrentFileWhenItsOwnCannotBeSelected)
{
    host().globalScope.usually(false);
    host().resources[L"QUELDRes.dll"][GetParam().number] = L"From the host";
    EXPECT_STREQ(factory->localName(), L"From the host");
    EXPECT_STREQ(factory->description(), L"");
    EXPECT_EQ(host().trace, (Lines{"SetCurrentResourceName(\"VxCuiCmdsRes.dll\") -> false",
                                   "AfxGetResourceHandle() -> QUELDRes.dll",
                                   "LoadStringW(QUELDRes.dll, " + number + ", 1024) -> 13",
                                   "SetCurrentResourceName(\"VxCuiCmdsRes.dll\") -> false",
                                   "AfxGetResourceHandle() -> QUELDRes.dll",
                                   "LoadStringW(QUELDRes.dll, 4294967295, 1024) -> 0"}));
    EXPECT_EQ(host().leavesWithoutEnter, 0);
}

TEST_P(EachCommand, FallsBackWithoutARestoreWhenItsFileCannotBeSelected)
{
    host().globalScope.usually(false);
    EXPECT_STREQ(factory->localName(), GetParam().globalName);
    EXPECT_EQ(host().count("RestorePreviousResource"), 0);
}

TEST_P(EachCommand, MakesAndReleasesCommandsOfItsClass)
{
    IQuelBuildInCommand* const first = factory->create();
    IQuelBuildInCommand* const second = factory->create();
    ASSERT_NE(first, nullptr);
    ASSERT_NE(second, nullptr);
    EXPECT_NE(first, second);
    const IQuelBuildInCommand& object = *first;
    EXPECT_EQ(typeid(object), GetParam().commandClass);
    factory->release(first);
    factory->release(second);
    factory->release(nullptr);
    EXPECT_EQ(host().trace, Lines{});
}

TEST_P(EachCommand, CommandsHaveNoActionOfTheirOwn)
{
    IQuelBuildInCommand* const command = factory->create();
    EntityParameters parameters;
    recording::Context context;
    EXPECT_EQ(command->doAction(&context, parameters, 7), 5100);
    EXPECT_EQ(command->doAction(nullptr, parameters, -1), 5100);
    factory->release(command);
    EXPECT_EQ(host().trace, Lines{});
}

TEST_P(EachCommand, AnswersThroughItsTableInTheOrderOfTheContract)
{
    setName(GetParam().number, L"Wort");
    const IQuelCommandFactory* const object = factory.get();
    auto* const command = raw::call<IQuelBuildInCommand*>(object, 0);
    ASSERT_NE(command, nullptr);
    raw::call<void>(object, 1, command);
    raw::call<void>(object, 3, 6U, true);
    EXPECT_EQ(raw::call<unsigned int>(object, 2), 6U);
    EXPECT_STREQ(raw::call<const wchar_t*>(object, 4), L"VxCuiCmds.dll");
    EXPECT_STREQ(raw::call<const wchar_t*>(object, 5), GetParam().globalName);
    EXPECT_STREQ(raw::call<const wchar_t*>(object, 6), L"Wort");
    EXPECT_STREQ(raw::call<const wchar_t*>(object, 7), L"");
    EXPECT_EQ(raw::call<const void*>(object, 8), nullptr);
}

TEST_P(EachCommand, CommandsAnswerThroughTheirTableInTheOrderOfTheContract)
{
    // Every prompt is cancelled, so each command ends by itself.
    IQuelBuildInCommand* const command = factory->create();
    recording::Context context;
    auto* const asContext = static_cast<IQuelBuildInCommandContext*>(&context);
    EntityParameters parameters;
    EXPECT_EQ(raw::call<int>(command, 2, asContext, &parameters, 3), 5100);
    EXPECT_EQ(host().trace, Lines{});
    raw::call<int>(command, 3, asContext);
    ASSERT_FALSE(host().trace.empty());
    EXPECT_EQ(host().trace.front(), "enterResourceScope(\"VxCuiCmdsRes.dll\") -> true");
    EXPECT_EQ(host().trace.back(), "leaveResourceScope(0)");
    raw::call<void>(command, 1); // the deleting destructor
}

TEST_P(EachCommand, KeepsAFlagsWordAndTwoTextsInThisOrder)
{
    setName(GetParam().number, L"A name of some length");
    host().resources[kModuleFile][kNoDescription] = L"A description of some length";
    factory->addFlags(0xDEADBEEF, true);
    const auto* const memory = reinterpret_cast<const char*>(factory.get());
    unsigned int flags = 0;
    std::memcpy(&flags, memory + sizeof(void*), sizeof flags);
    EXPECT_EQ(flags, 0xDEADBEEFU);
    const auto* const texts = reinterpret_cast<const std::wstring*>(memory + 2 * sizeof(void*));
    EXPECT_EQ(texts[0], L"");
    EXPECT_EQ(texts[1], L"");
    const wchar_t* const name = factory->localName();
    const wchar_t* const description = factory->description();
    EXPECT_EQ(name, texts[0].c_str());
    EXPECT_EQ(description, texts[1].c_str());
    EXPECT_EQ(texts[0], L"A name of some length");
    EXPECT_EQ(texts[1], L"A description of some length");
    EXPECT_EQ(sizeof(Quel6940CmdFactory), 2 * sizeof(void*) + 2 * sizeof(std::wstring));
}

TEST(CommandFactory, CutsANameThatIsTooLong)
{
    struct Row
    {
        const char* name;
        std::size_t length;
        std::size_t kept;
    };
    for (const Row& row : {Row{"one character", 1, 1}, Row{"just fits", 1023, 1023},
                           Row{"one too many", 1024, 1023}, Row{"very long", 5000, 1023}}) {
        recording::reset();
        std::wstring text(row.length, L'n');
        text.back() = L'z';
        setName(6916, text);
        const Quel6916CmdFactory factory;
        EXPECT_EQ(std::wstring(factory.localName()), text.substr(0, row.kept)) << row.name;
        EXPECT_EQ(std::wstring(factory.localName()), text.substr(0, row.kept)) << row.name;
    }
}

TEST(CommandFactory, LoadsTheNameStraightIntoItsCache)
{
    for (const wchar_t* text : {L"N", L"A longer name"}) {
        recording::reset();
        setName(6916, text);
        const Quel6916CmdFactory factory;
        EXPECT_EQ(factory.localName(), host().lastLoadBuffer) << text;
    }
}

TEST(CommandFactory, HandsOverStorageThatIsAllNull)
{
    bool allNull = false;
    host().loadString = [&allNull](unsigned int, wchar_t* buffer, int room) {
        allNull = std::all_of(buffer, buffer + room, [](wchar_t c) { return c == L'\0'; });
        std::wcscpy(buffer, L"Wort");
        return 4;
    };
    const Quel6916CmdFactory factory;
    EXPECT_STREQ(factory.localName(), L"Wort");
    EXPECT_TRUE(allNull);
}

TEST(CommandFactory, GoesByTheTextAndNotByTheLengthThatTheHostReports)
{
    for (const int reported : {-1, 0, 2, 1023, 1024}) {
        recording::reset();
        host().loadString = [reported](unsigned int, wchar_t* buffer, int room) {
            std::fill_n(buffer, room, L'#');
            std::wcscpy(buffer, L"Wort");
            return reported;
        };
        const Quel6916CmdFactory factory;
        EXPECT_EQ(std::wstring(factory.localName()), L"Wort") << reported;
    }
}

TEST(CommandFactory, TakesATextThatTheHostLeftEmptyForNone)
{
    host().loadString = [](unsigned int, wchar_t* buffer, int room) {
        std::fill_n(buffer, room, L'#');
        buffer[0] = L'\0';
        return 17;
    };
    const Quel6935CmdFactory factory;
    EXPECT_STREQ(factory.localName(), L"REINIT");
    EXPECT_STREQ(factory.localName(), L"REINIT");
    EXPECT_EQ(host().count("LoadStringW"), 2);
}

TEST(CommandFactory, LeavesTheFileOnceWhenALookupThrows)
{
    for (const char* call : {"AfxGetResourceHandle", "LoadStringW"}) {
        for (const bool description : {false, true}) {
            recording::reset();
            const VxErrorStatus* const thrown = host().throwOnCall(call);
            const Quel6916CmdFactory factory;
            const VxErrorStatus* caught = nullptr;
            try {
                description ? factory.description() : factory.localName();
            } catch (VxErrorStatus* error) {
                caught = error;
            }
            EXPECT_EQ(caught, thrown) << call;
            EXPECT_EQ(host().count("RestorePreviousResource"), 1) << call;
            EXPECT_EQ(host().trace.back(), "RestorePreviousResource()") << call;
            delete caught;
        }
    }
}

TEST(CommandFactory, LeavesNoFileThatItCouldNotSelectWhenALookupThrows)
{
    host().globalScope.usually(false);
    const VxErrorStatus* const thrown = host().throwOnCall("LoadStringW");
    const Quel6916CmdFactory factory;
    const VxErrorStatus* caught = nullptr;
    try {
        factory.localName();
    } catch (VxErrorStatus* error) {
        caught = error;
    }
    EXPECT_EQ(caught, thrown);
    EXPECT_EQ(host().count("RestorePreviousResource"), 0);
    delete caught;
}

TEST(CommandFactory, LeavesNothingWhenSelectingItselfThrows)
{
    const VxErrorStatus* const thrown = host().throwOnCall("SetCurrentResourceName");
    const Quel6916CmdFactory factory;
    const VxErrorStatus* caught = nullptr;
    try {
        factory.localName();
    } catch (VxErrorStatus* error) {
        caught = error;
    }
    EXPECT_EQ(caught, thrown);
    EXPECT_EQ(host().trace, Lines{"SetCurrentResourceName(\"VxCuiCmdsRes.dll\") -> throws"});
    delete caught;
}

TEST(CommandFactory, AddsAndClearsExactlyTheGivenFlags)
{
    struct Row
    {
        const char* name;
        std::vector<std::pair<unsigned int, bool>> steps;
        unsigned int flags;
    };
    const std::vector<Row> rows{
        {"none", {}, 0},
        {"two set, one cleared", {{0x5, true}, {0x1, false}}, 4},
        {"cleared without being set", {{0x7, false}}, 0},
        {"set twice", {{0x2, true}, {0x2, true}}, 2},
        {"cleared twice", {{0x6, true}, {0x2, false}, {0x2, false}}, 4},
        {"set together with others", {{0x1, true}, {0x6, true}}, 7},
        {"no bits set", {{0x9, true}, {0, true}}, 9},
        {"no bits cleared", {{0x9, true}, {0, false}}, 9},
        {"all set", {{0xFFFFFFFF, true}}, 0xFFFFFFFF},
        {"all set, highest cleared", {{0xFFFFFFFF, true}, {0x80000000, false}}, 0x7FFFFFFF},
    };
    for (const Row& row : rows) {
        Quel6940CmdFactory factory;
        for (const auto& [flags, set] : row.steps)
            factory.addFlags(flags, set);
        EXPECT_EQ(factory.flags(), row.flags) << row.name;
    }
}

TEST(CommandFactory, KeepsFlagsOfItsOwn)
{
    Quel6940CmdFactory one;
    const Quel6941CmdFactory other;
    one.addFlags(0x3, true);
    EXPECT_EQ(one.flags(), 3U);
    EXPECT_EQ(other.flags(), 0U);
}

TEST(CommandFactory, ReleaseDestroysTheObjectItIsGiven)
{
    struct Probe final : IQuelBuildInCommand
    {
        explicit Probe(int& destroyed)
            : m_destroyed(destroyed)
        {}
        ~Probe() override { ++m_destroyed; }
        int execute(IQuelBuildInCommandContext*) override { return 0; }
        int& m_destroyed;
    };
    int destroyed = 0;
    Quel6916CmdFactory factory;
    factory.release(new Probe(destroyed));
    EXPECT_EQ(destroyed, 1);
    factory.release(nullptr);
    EXPECT_EQ(destroyed, 1);
}

TEST(CommandFactory, ANameOutlivesOtherCalls)
{
    setName(6916, L"Wort");
    host().resources[kModuleFile][kNoDescription] = L"Tells more";
    const Quel6916CmdFactory factory;
    const wchar_t* const name = factory.localName();
    const wchar_t* const description = factory.description();
    factory.localName();
    EXPECT_EQ(factory.localName(), name);
    EXPECT_EQ(factory.description(), description);
    EXPECT_STREQ(name, L"Wort");
    EXPECT_STREQ(description, L"Tells more");
}

TEST(CommandFactory, CommandsCarryNoDataOfTheirOwn)
{
    EXPECT_EQ(sizeof(Quel6940Command), sizeof(void*));
    EXPECT_EQ(sizeof(Quel6941Command), sizeof(void*));
    EXPECT_EQ(sizeof(Quel6916Command), sizeof(void*));
    EXPECT_EQ(sizeof(Quel6917Command), sizeof(void*));
    EXPECT_EQ(sizeof(Quel6915Command), sizeof(void*));
    EXPECT_EQ(sizeof(Quel60005Command), sizeof(void*));
    EXPECT_EQ(sizeof(Quel6935Command), sizeof(void*));
}

TEST(CommandFactory, OnlyTheCommandInterfaceHasAVirtualDestructor)
{
    EXPECT_TRUE(std::is_empty_v<IQuelGUIManagerClient>);
    EXPECT_FALSE(std::is_polymorphic_v<IQuelGUIManagerClient>);
    EXPECT_TRUE((std::is_base_of_v<IQuelGUIManagerClient, IQuelBuildInCommand>));
    EXPECT_TRUE(std::has_virtual_destructor_v<IQuelBuildInCommand>);
    EXPECT_FALSE(std::has_virtual_destructor_v<IQuelCommandFactory>);
    EXPECT_FALSE(std::has_virtual_destructor_v<Quel6916CmdFactory>);
    EXPECT_FALSE(std::has_virtual_destructor_v<IQuelBuildInCommandContext>);
}
