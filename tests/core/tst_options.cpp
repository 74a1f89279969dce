#include "refhost/core/options.h"

#include <gtest/gtest.h>

#include <QCoreApplication>

#include <functional>
#include <string>

using namespace quelhost;

namespace {

using Arguments = std::initializer_list<const char*>;

QStringList texts(Arguments all)
{
    QStringList result;
    for (const char* text : all)
        result << QString::fromUtf8(text);
    return result;
}

// The options, or those of an empty command line with a note when they were refused.
Options parsed(Arguments arguments)
{
    const Result<Options> options = parseOptions(texts(arguments));
    if (!options)
        ADD_FAILURE() << options.fault().sentence.toStdString();
    return options ? options.value() : Options();
}

// The sentence that refuses them, empty when they were taken.
std::string refused(Arguments arguments)
{
    const Result<Options> options = parseOptions(texts(arguments));
    if (options)
        return {};
    EXPECT_EQ(options.fault().kind, FaultKind::BadInput);
    return options.fault().text().toStdString();
}

} // namespace

TEST(Options, WithoutAnyASessionOnTheDefaultProfileIsRun)
{
    const Options options = parsed({});
    EXPECT_EQ(options.task, Options::Task::Session);
    EXPECT_FALSE(options.console || options.window || options.interactiveInput ||
                 options.reportStatus);
    EXPECT_TRUE(options.script.isEmpty() && options.profile.isEmpty() &&
                options.language.isEmpty());
    EXPECT_TRUE(options.modules.isEmpty() && options.supportFolders.isEmpty() &&
                options.files.isEmpty() && options.variables.empty());
}

TEST(Options, EachIsUnderstood)
{
    EXPECT_TRUE(parsed({"--console"}).console);
    EXPECT_TRUE(parsed({"--window"}).window);
    EXPECT_EQ(parsed({"--script", "a b.scr"}).script, QStringLiteral("a b.scr"));
    EXPECT_EQ(parsed({"--script=-"}).script, QStringLiteral("-"));
    EXPECT_EQ(parsed({"--script", "-"}).script, QStringLiteral("-"));
    EXPECT_TRUE(parsed({"--script", "a.scr", "--interactive-input"}).interactiveInput);
    EXPECT_EQ(parsed({"--profile", "/p"}).profile, QStringLiteral("/p"));
    EXPECT_EQ(parsed({"--lang", "de"}).language, QStringLiteral("de"));
    EXPECT_TRUE(parsed({"--report-status"}).reportStatus);
    EXPECT_EQ(parsed({"--list-settings"}).task, Options::Task::ListSettings);
    EXPECT_EQ(parsed({"--check", "a.cuix"}).task, Options::Task::Check);
    EXPECT_EQ(parsed({"--help"}).task, Options::Task::Help);
    EXPECT_EQ(parsed({"--version"}).task, Options::Task::Version);
}

TEST(Options, SomeMayBeRepeated)
{
    EXPECT_EQ(parsed({"--module", "a.so", "--module", "b.so"}).modules, texts({"a.so", "b.so"}));
    EXPECT_EQ(parsed({"--support", "a", "--support=b"}).supportFolders, texts({"a", "b"}));
    const Options options =
        parsed({"--var", "FILEDIA=0", "--var", "menuname=/t/a=b", "--var=MENUNAME="});
    ASSERT_EQ(options.variables.size(), 3U);
    EXPECT_EQ(options.variables[0].first, QStringLiteral("FILEDIA"));
    EXPECT_EQ(options.variables[0].second, QStringLiteral("0"));
    EXPECT_EQ(options.variables[1].second, QStringLiteral("/t/a=b"));
    EXPECT_EQ(options.variables[2].second, QString());
}

TEST(Options, FilesAreWhatIsLeft)
{
    EXPECT_EQ(parsed({"a.cuix", "--console", "b c.cuix"}).files, texts({"a.cuix", "b c.cuix"}));
    EXPECT_EQ(parsed({"--", "--console.cuix"}).files, texts({"--console.cuix"}));
    EXPECT_EQ(parsed({"--check", "a.cuix", "b.cuix"}).files, texts({"a.cuix", "b.cuix"}));
    EXPECT_EQ(parsed({"\xC3\xA9%1.cuix"}).files, texts({"\xC3\xA9%1.cuix"}));
}

TEST(Options, WrongOnesAreRefusedWithASentence)
{
    struct Row
    {
        const char* name;
        Arguments arguments;
        const char* said;
    };
    const Row rows[] = {
        {"an unknown option", {"--colour"}, "colour"},
        {"an unknown letter", {"-x"}, "x"},
        {"an option without its value", {"--script"}, "script"},
        {"a value for an option that takes none", {"--console=yes"}, "console"},
        {"both faces", {"--console", "--window"}, "--console and --window exclude each other."},
        {"interactive input without a script",
         {"--interactive-input"},
         "--interactive-input needs --script."},
        {"nothing to check", {"--check"}, "--check needs at least one package."},
        {"a variable without a value",
         {"--var", "FILEDIA"},
         "--var takes NAME=VALUE, not \"FILEDIA\"."},
        {"a value without a variable", {"--var", "=0"}, "--var takes NAME=VALUE, not \"=0\"."},
        {"an unknown variable", {"--var", "COLOUR=1"}, "There is no system variable COLOUR"},
        {"a value of the wrong kind", {"--var", "FILEDIA=%1"}, "FILEDIA takes an integer"},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        const Result<Options> options = parseOptions(texts(row.arguments));
        ASSERT_FALSE(options);
        const std::string sentence = options.fault().text().toStdString();
        EXPECT_NE(sentence.find(row.said), std::string::npos) << sentence;
        EXPECT_EQ(sentence.find('\n'), std::string::npos) << sentence;
    }
    EXPECT_NE(refused({"--colour", "--help"}), "");
}

TEST(Options, HelpNamesEveryOption)
{
    const std::string help = parsed({"--help"}).text.toStdString();
    for (const char* option :
         {"--console", "--window", "--script <FILE>", "--interactive-input", "--profile <DIR>",
          "--module <PATH>", "--var <NAME=VALUE>", "--support <DIR>", "--lang <CODE>",
          "--report-status", "--list-settings", "--check", "--help", "--version", "FILE.cuix"})
        EXPECT_NE(help.find(option), std::string::npos) << option << "\n" << help;
    EXPECT_EQ(help.find("options-"), std::string::npos) << help;
}

TEST(Options, TheVersionIsThatOfTheProgram)
{
    const QString former = QCoreApplication::applicationVersion();
    QCoreApplication::setApplicationVersion(QStringLiteral("1.2.3"));
    EXPECT_EQ(parsed({"--version"}).text.toStdString(), "quelhost 1.2.3");
    QCoreApplication::setApplicationVersion(former);
}

TEST(Options, TheLanguageIsFoundBeforeAnythingElse)
{
    struct Row
    {
        const char* name;
        Arguments arguments;
        const char* language;
    };
    const Row rows[] = {
        {"none", {}, ""},
        {"behind the option", {"--lang", "de"}, "de"},
        {"with an equals sign", {"--lang=de_AT"}, "de_AT"},
        {"between others", {"a.cuix", "--lang", "de", "--console"}, "de"},
        {"on a wrong command line", {"--colour", "--lang", "de", "--script"}, "de"},
        {"the last of two", {"--lang", "de", "--lang=en"}, "en"},
        {"without its value", {"--lang"}, ""},
        {"the value of another option", {"--profile", "--lang=de"}, ""},
        {"a file", {"--", "--lang=de"}, ""},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(languageOption(texts(row.arguments)).toStdString(), row.language);
    }
}
