// Resource files by language, and the stack of current ones.
#include "refhost/core/resources.h"

#include "tests/core/childprocess.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>

using namespace quelhost;

namespace {

// The folder with SampleRes (de_AT, de, en), HollowRes (en, without a text) and QUELDRes (en).
QString folder()
{
    return QStringLiteral(QUEL_TEST_RESOURCES);
}

std::unique_ptr<QuelResource> sample(const char* language)
{
    return QuelResource::open(folder() + QStringLiteral("/SampleRes"),
                              languageFallbacks(QString::fromLatin1(language)));
}

std::wstring text(const QuelResource& resource, unsigned int id)
{
    return resource.string(id).value_or(L"(none)");
}

bool push(Resources& resources, const char* name)
{
    return resources.push(QString::fromUtf8(name));
}

} // namespace

TEST(Resources, LanguagesFallBackToEnglish)
{
    struct Row
    {
        const char* name;
        const char* language;
        const char* expected;
    };
    const Row rows[] = {
        {"a language of a country", "de_AT", "de_AT de en"},
        {"the same written with a dash", "de-AT", "de_AT de en"},
        {"a language", "de", "de en"},
        {"with a character set", "de_AT.UTF-8", "de_AT de en"},
        {"with a variant", "de_DE@euro", "de_DE de en"},
        {"English of a country", "en_GB", "en_GB en"},
        {"English", "en", "en"},
        {"the C locale", "C", "en"},
        {"the C locale with a character set", "C.UTF-8", "en"},
        {"the POSIX locale", "POSIX", "en"},
        {"none", "", "en"},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(languageFallbacks(QString::fromLatin1(row.language))
                      .join(QLatin1Char(' '))
                      .toStdString(),
                  row.expected);
    }
}

TEST(Resources, EachTextComesFromTheBestLanguageThatHasIt)
{
    struct Row
    {
        const char* language;
        const wchar_t* one;
        const wchar_t* two;
        const wchar_t* three;
    };
    const Row rows[] = {
        {"de_AT", L"oans", L"zwei \u20AC\U0001F600", L"three"},
        {"de_CH", L"eins", L"zwei \u20AC\U0001F600", L"three"},
        {"de", L"eins", L"zwei \u20AC\U0001F600", L"three"},
        {"en", L"one", L"two", L"three"},
        {"fr", L"one", L"two", L"three"},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.language);
        const auto resource = sample(row.language);
        ASSERT_NE(resource, nullptr);
        EXPECT_EQ(text(*resource, 1), row.one);
        EXPECT_EQ(text(*resource, 2), row.two);
        EXPECT_EQ(text(*resource, 3), row.three);
        EXPECT_EQ(text(*resource, 4), L"(none)");
        EXPECT_EQ(text(*resource, 0xFFFFFFFF), L"last");
    }
}

TEST(Resources, AFileWithoutATextIsAFile)
{
    const auto hollow =
        QuelResource::open(folder() + QStringLiteral("/HollowRes"), {QStringLiteral("en")});
    ASSERT_NE(hollow, nullptr);
    EXPECT_EQ(text(*hollow, 1), L"(none)");
}

TEST(Resources, WithoutAFileThereIsNone)
{
    EXPECT_EQ(QuelResource::open(folder() + QStringLiteral("/LostRes"), {QStringLiteral("en")}),
              nullptr);
    EXPECT_EQ(QuelResource::open(folder() + QStringLiteral("/SampleRes"), {QStringLiteral("fr")}),
              nullptr);
}

TEST(Resources, TheHostsOwnFileIsAtTheBottom)
{
    Resources resources(folder(), QStringLiteral("de_AT"));
    EXPECT_EQ(resources.depth(), 0U);
    ASSERT_NE(resources.current(), nullptr);
    EXPECT_EQ(text(*resources.current(), 1), L"bottom");
    resources.pop();
    resources.pop();
    EXPECT_EQ(resources.depth(), 0U);
    EXPECT_EQ(text(*resources.current(), 1), L"bottom");
}

TEST(Resources, ScopesNest)
{
    Resources resources(folder(), QStringLiteral("de"));
    ASSERT_TRUE(push(resources, "SampleRes.dll"));
    EXPECT_EQ(text(*resources.current(), 1), L"eins");
    const QuelResource* const outer = resources.current();
    ASSERT_TRUE(push(resources, "QUELDRes.dll"));
    EXPECT_EQ(text(*resources.current(), 1), L"bottom");
    ASSERT_TRUE(push(resources, "SampleRes.dll"));
    EXPECT_EQ(resources.current(), outer);
    EXPECT_EQ(resources.depth(), 3U);
    resources.pop();
    EXPECT_EQ(text(*resources.current(), 1), L"bottom");
    resources.pop();
    EXPECT_EQ(text(*resources.current(), 1), L"eins");
    resources.pop();
    EXPECT_EQ(resources.depth(), 0U);
}

TEST(Resources, ANameWithoutAFileIsRefusedAndChangesNothing)
{
    Resources resources(folder(), QStringLiteral("en"));
    ASSERT_TRUE(push(resources, "SampleRes.dll"));
    for (const char* name :
         {"LostRes.dll", "SampleRes", "", ".dll", "..dll", "../resources/SampleRes.dll",
          "SampleRes.dll/", "SampleRes.dll ", "/SampleRes.dll"}) {
        SCOPED_TRACE(name);
        EXPECT_FALSE(push(resources, name));
        EXPECT_FALSE(push(resources, name));
        EXPECT_EQ(resources.depth(), 1U);
        EXPECT_EQ(text(*resources.current(), 1), L"one");
    }
}

TEST(Resources, WithoutAnyFileTheBottomHoldsNothing)
{
    const Resources resources(QStringLiteral("/nowhere"), QStringLiteral("en"));
    ASSERT_NE(resources.current(), nullptr);
    EXPECT_EQ(text(*resources.current(), 1), L"(none)");
}

TEST(HostTexts, AreInTheBestLanguageThereIs)
{
    for (const char* language : {"de", "de_AT.UTF-8"}) {
        SCOPED_TRACE(language);
        const test::ChildEnd end = test::runInChild([language] {
            const bool installed =
                installHostTexts(QStringLiteral(QUEL_RESOURCES), QString::fromLatin1(language));
            return std::string(installed ? "installed, " : "not installed, ") +
                   qtTrId("box-yes").toStdString();
        });
        EXPECT_EQ(end.output, "installed, Ja");
    }
    EXPECT_EQ(qtTrId("box-yes").toStdString(), "Yes");
}

TEST(HostTexts, AreOfNoUseWithoutTheEnglishOnes)
{
    EXPECT_FALSE(installHostTexts(QStringLiteral("/nowhere"), QStringLiteral("en")));
    EXPECT_FALSE(installHostTexts(QStringLiteral("/nowhere"), QStringLiteral("de")));
    EXPECT_EQ(qtTrId("box-yes").toStdString(), "Yes");
}
