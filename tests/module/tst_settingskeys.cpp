// Keys, variables and default texts, character by character: in a literal a backslash or one of two
// blanks is easily lost, so the expected texts are numbers.
#include "settings/settingskeys.h"

#include "tests/module/menuloadfixture.h"

#include <algorithm>

using recording::host;

namespace {

std::wstring text(std::initializer_list<int> codes)
{
    std::wstring result(codes.size(), L'\0');
    std::transform(codes.begin(), codes.end(), result.begin(),
                   [](int code) { return static_cast<wchar_t>(code); });
    return result;
}

} // namespace

TEST(SettingsKeys, AreTheseCharacters)
{
    EXPECT_EQ(std::wstring(SettingsKey::kLoadedMenuFiles),
              text({67, 85, 73, 88, 47, 76, 111, 97, 100, 101, 100, 67, 117, 105, 120}));
    EXPECT_EQ(std::wstring(SettingsKey::kFileDialog),
              text({85, 115, 101, 114, 73,  110, 116, 101, 114, 102, 97,  99,  101,
                    83, 101, 116, 116, 105, 110, 103, 115, 92,  83,  101, 108, 101,
                    99, 116, 32,  77,  101, 110, 117, 32,  70,  105, 108, 101}));
    EXPECT_EQ(std::wstring(SettingsKey::kFileDialogFilter),
              text({85,  115, 101, 114, 73,  110, 116, 101, 114, 102, 97,  99,  101, 83,  101,
                    116, 116, 105, 110, 103, 115, 92,  83,  101, 108, 101, 99,  116, 32,  77,
                    101, 110, 117, 32,  70,  105, 108, 101, 92,  73,  110, 105, 116, 105, 97,
                    108, 70,  105, 108, 116, 101, 114, 73,  110, 100, 101, 120}));
    EXPECT_EQ(std::wstring(SettingsKey::kFileDialogFile),
              text({85,  115, 101, 114, 73,  110, 116, 101, 114, 102, 97,  99,  101, 83,
                    101, 116, 116, 105, 110, 103, 115, 92,  83,  101, 108, 101, 99,  116,
                    32,  77,  101, 110, 117, 32,  70,  105, 108, 101, 92,  73,  110, 105,
                    116, 105, 97,  108, 68,  105, 114, 101, 99,  116, 111, 114, 121}));
    EXPECT_EQ(
        std::wstring(SettingsKey::kLoadDialog),
        text({85,  115, 101, 114, 73, 110, 116, 101, 114, 102, 97,  99, 101, 83, 101, 116, 116,
              105, 110, 103, 115, 92, 77,  101, 110, 117, 76,  111, 97, 100, 68, 108, 103}));
    EXPECT_EQ(std::wstring(SettingsKey::kLoadDialogX),
              text({85,  115, 101, 114, 73,  110, 116, 101, 114, 102, 97, 99,
                    101, 83,  101, 116, 116, 105, 110, 103, 115, 92,  77, 101,
                    110, 117, 76,  111, 97,  100, 68,  108, 103, 92,  88}));
    EXPECT_EQ(std::wstring(SettingsKey::kLoadDialogY),
              text({85,  115, 101, 114, 73,  110, 116, 101, 114, 102, 97, 99,
                    101, 83,  101, 116, 116, 105, 110, 103, 115, 92,  77, 101,
                    110, 117, 76,  111, 97,  100, 68,  108, 103, 92,  89}));
    EXPECT_EQ(std::wstring(SettingsKey::kLoadDialogWidth),
              text({85, 115, 101, 114, 73,  110, 116, 101, 114, 102, 97,  99,  101,
                    83, 101, 116, 116, 105, 110, 103, 115, 92,  77,  101, 110, 117,
                    76, 111, 97,  100, 68,  108, 103, 92,  87,  73,  68,  84,  72}));
    EXPECT_EQ(std::wstring(SettingsKey::kLoadDialogHeight),
              text({85,  115, 101, 114, 73,  110, 116, 101, 114, 102, 97,  99,  101, 83,
                    101, 116, 116, 105, 110, 103, 115, 92,  77,  101, 110, 117, 76,  111,
                    97,  100, 68,  108, 103, 92,  72,  69,  73,  71,  72,  84}));
}

TEST(SettingsKeys, AreKeptInCategoryFour)
{
    EXPECT_EQ(static_cast<int>(kSettingsPath), 4);
}

TEST(SystemVariables, AreTheseCharacters)
{
    EXPECT_EQ(std::wstring(SystemVariable::kFileDialogs), text({70, 73, 76, 69, 68, 73, 65}));
    EXPECT_EQ(std::wstring(SystemVariable::kMainMenuFile), text({77, 69, 78, 85, 78, 65, 77, 69}));
}

TEST_F(MenuLoad, ItsDefaultTextsAreTheseCharacters)
{
    type(L"missing");
    type(folder.file(L"plant.cuix"));
    ASSERT_EQ(run(), 5100);
    ASSERT_EQ(host().defaultTexts.size(), 3U);
    EXPECT_EQ(host().defaultTexts[11066],
              text({69,  110, 116, 101, 114, 32,  110, 97, 109, 101, 32, 111, 102, 32, 109, 101,
                    110, 117, 32,  102, 105, 108, 101, 32, 116, 111, 32, 108, 111, 97, 100, 58}));
    EXPECT_EQ(host().defaultTexts[11070],
              text({77,  101, 110, 117, 32,  102, 105, 108, 101, 32, 108, 111, 97,  100, 32,
                    102, 97,  105, 108, 101, 100, 46,  32,  32,  70, 105, 108, 101, 32,  110,
                    111, 116, 32,  102, 111, 117, 110, 100, 58,  34, 37,  115, 34}));
    EXPECT_EQ(host().defaultTexts[11064],
              text({10,  76, 111, 97,  100, 105, 110, 103, 32,  34,  37,  115, 34, 32, 115,
                    117, 99, 99,  101, 115, 115, 46,  103, 114, 111, 117, 112, 58, 37, 115}));
}
