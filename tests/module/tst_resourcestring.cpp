#include "module/resourcestring.h"

#include "tests/support/recordinghost.h"

#include <gtest/gtest.h>

#include <type_traits>
#include <utility>

using recording::host;
using Lines = std::vector<std::string>;

namespace {

template<typename Text, typename = void>
struct CanTakeText : std::false_type
{};
template<typename Text>
struct CanTakeText<Text, std::void_t<decltype(textOrEmpty(std::declval<Text>()))>> : std::true_type
{};

} // namespace

TEST(ResourceString, IsTheTextOfTheCurrentFile)
{
    host().resources[L"QUELDRes.dll"][8052] = L"Accelerator Toolbar";
    const QuString text = qumdQuResourceString(8052);
    EXPECT_STREQ(text.kwszPtr(), L"Accelerator Toolbar");
    EXPECT_EQ(text.length(), 19);
}

TEST(ResourceString, SelectsNoFileItself)
{
    host().resources[L"VxCuiCmdsRes.dll"][8051] = L"In the other file";
    const QuString text = qumdQuResourceString(8051);
    EXPECT_STREQ(text.kwszPtr(), L"");
    EXPECT_EQ(host().trace, Lines{"loadString(8051) -> false"});
}

TEST(ResourceString, IsTheEmptyTextAndNotNoTextWhenThereIsNone)
{
    const QuString text = qumdQuResourceString(4294967295U);
    ASSERT_NE(text.kwszPtr(), nullptr);
    EXPECT_STREQ(text.kwszPtr(), L"");
    EXPECT_EQ(host().trace, Lines{"loadString(4294967295) -> false"});
}

TEST(ResourceString, HandsOnWhatTheHostMakesOfIt)
{
    host().resources[L"QUELDRes.dll"][8051] = std::nullopt;
    EXPECT_EQ(qumdQuResourceString(8051).kwszPtr(), nullptr);
}

TEST(ResourceString, LetsAnErrorPassUnchanged)
{
    const VxErrorStatus* const thrown = host().throwOnCall("loadString");
    const VxErrorStatus* caught = nullptr;
    try {
        static_cast<void>(qumdQuResourceString(8051));
    } catch (VxErrorStatus* error) {
        caught = error;
    }
    EXPECT_EQ(caught, thrown);
    EXPECT_EQ(host().trace, Lines{"loadString(8051) -> throws"});
    delete caught;
}

TEST(ResourceString, IsNotTheHostsFormWithADefaultText)
{
    const QuString ours = qumdQuResourceString(8051);
    const QuString hosts = qumdQuResourceString(8051, L"default");
    EXPECT_STREQ(ours.kwszPtr(), L"");
    EXPECT_STREQ(hosts.kwszPtr(), L"default");
    EXPECT_EQ(host().trace, (Lines{"loadString(8051) -> false",
                                   "qumdQuResourceString(8051, \"default\") -> \"default\""}));
}

TEST(TextOrEmpty, IsNeverNull)
{
    const QuString none;
    const QuString empty(L"");
    const QuString some(L"text");
    EXPECT_STREQ(textOrEmpty(none), L"");
    EXPECT_STREQ(textOrEmpty(empty), L"");
    EXPECT_EQ(textOrEmpty(some), some.kwszPtr());
    EXPECT_STREQ(textOrEmpty(none.kwszPtr()), L"");
    EXPECT_EQ(textOrEmpty(some.kwszPtr()), some.kwszPtr());
}

TEST(TextOrEmpty, CannotBeTakenFromATextThatIsAboutToDie)
{
    EXPECT_TRUE(CanTakeText<const QuString&>::value);
    EXPECT_TRUE(CanTakeText<QuString&>::value);
    EXPECT_FALSE(CanTakeText<QuString>::value);
}
