// One run of a command: what it sees of the host, and what is left when it ends in any way.
#include "refhost/core/commandrun.h"

#include "host/errors.h"
#include "refhost/core/filesearch.h"
#include "refhost/core/resources.h"
#include "refhost/core/widetext.h"
#include "tests/core/settingssupport.h"
#include "tests/support/functioncommand.h"
#include "tests/support/rawslots.h"

#include <gtest/gtest.h>

#include <QDir>

#include <array>
#include <stdexcept>
#include <string>

using namespace quelhost;
using namespace quelhost::test;

namespace {

// Error objects that tell when they are deleted.
int deletedErrors = 0;

class CountedStatus final : public VxErrorStatus
{
public:
    CountedStatus()
        : VxErrorStatus(Quel::eNoMemory, L"here", 0)
    {}
    ~CountedStatus() override { ++deletedErrors; }
};

class CountedMessage final : public VxExceptionWithMsg
{
public:
    CountedMessage()
        : VxExceptionWithMsg(L"here", 0, L"The pump is \u00E9teinte: %1 %s.")
    {}
    ~CountedMessage() override { ++deletedErrors; }
};

class CommandRun : public testing::Test
{
protected:
    CommandRun() { deletedErrors = 0; }

    // Runs a command that does this, and sees to it that its object was released.
    RunResult run(const FunctionCommand::Function& function)
    {
        FunctionCommand command(L"TRY", function);
        RunResult result = runCommand(command, m_context);
        EXPECT_EQ(command.created, 1);
        EXPECT_EQ(command.released, 1);
        return result;
    }

    ScratchFolder m_folder;
    Resources m_resources{QStringLiteral(QUEL_TEST_RESOURCES), QStringLiteral("en")};
    FileSearch m_files{QStringList{m_folder.path()}};
    CommandContext m_context{L"TRY", false, m_resources, m_files};
};

using Buffer = std::array<wchar_t, 1024>;

Buffer marked()
{
    Buffer buffer{};
    buffer.fill(L'#');
    return buffer;
}

} // namespace

TEST_F(CommandRun, GivesTheStatusOfTheCommand)
{
    for (const int status : {5100, 5000, 0, -5001, -5002, 123456, -1}) {
        const RunResult result = run([status](IQuelBuildInCommandContext&) { return status; });
        EXPECT_EQ(result.status, status);
        EXPECT_FALSE(result.thrown);
    }
}

TEST_F(CommandRun, HandsTheContextToTheCommand)
{
    const IQuelBuildInCommandContext* seen = nullptr;
    const RunResult result = run([&seen](IQuelBuildInCommandContext& context) {
        seen = &context;
        return QuelStatus::kNormal;
    });
    EXPECT_EQ(result.status, 5100);
    EXPECT_EQ(seen, &m_context);
}

TEST_F(CommandRun, TellsAThrownStatusAndDeletesIt)
{
    const RunResult result = run([](IQuelBuildInCommandContext&) -> int {
        throw static_cast<VxErrorStatus*>(new CountedStatus);
    });
    EXPECT_EQ(result.status, -5001);
    ASSERT_TRUE(result.thrown);
    EXPECT_EQ(result.thrown->toStdString(), "error status 6");
    EXPECT_EQ(deletedErrors, 1);
}

TEST_F(CommandRun, TellsAThrownMessageAndDeletesIt)
{
    const RunResult result =
        run([](IQuelBuildInCommandContext&) -> int { throw new CountedMessage; });
    EXPECT_EQ(result.status, -5001);
    ASSERT_TRUE(result.thrown);
    EXPECT_EQ(result.thrown->toStdString(), "The pump is \xC3\xA9teinte: %1 %s.");
    EXPECT_EQ(deletedErrors, 1);
}

TEST_F(CommandRun, TellsEveryOtherException)
{
    const RunResult standard =
        run([](IQuelBuildInCommandContext&) -> int { throw std::out_of_range("\xC3\xA9 is out"); });
    EXPECT_EQ(standard.status, -5001);
    ASSERT_TRUE(standard.thrown);
    EXPECT_EQ(standard.thrown->toStdString(), "\xC3\xA9 is out");

    const RunResult number = run([](IQuelBuildInCommandContext&) -> int { throw 7; });
    EXPECT_EQ(number.status, -5001);
    ASSERT_TRUE(number.thrown);
    EXPECT_EQ(number.thrown->toStdString(), "an error of an unknown kind");
}

TEST_F(CommandRun, AnExceptionOutOfCreateIsToldAndNothingIsReleased)
{
    class Unmakable final : public IQuelCommandFactory
    {
    public:
        IQuelBuildInCommand* create() override { throw std::runtime_error("no memory for it"); }
        void release(IQuelBuildInCommand*) override { ++released; }
        unsigned int flags() const override { return 0; }
        void addFlags(unsigned int, bool) override {}
        const wchar_t* module() const override { return L""; }
        const wchar_t* globalName() const override { return L"U"; }
        const wchar_t* localName() const override { return L"U"; }
        const wchar_t* description() const override { return L""; }
        int released = 0;
    };
    Unmakable factory;
    const RunResult result = runCommand(factory, m_context);
    EXPECT_EQ(result.status, -5001);
    ASSERT_TRUE(result.thrown);
    EXPECT_EQ(result.thrown->toStdString(), "no memory for it");
    EXPECT_EQ(factory.released, 0);
}

TEST_F(CommandRun, TheContextTellsTheRun)
{
    EXPECT_STREQ(m_context.globalName(), L"TRY");
    EXPECT_FALSE(m_context.isCommandLineOnly());
    const CommandContext other(L"OTHER", true, m_resources, m_files);
    EXPECT_STREQ(other.globalName(), L"OTHER");
    EXPECT_TRUE(other.isCommandLineOnly());
}

TEST_F(CommandRun, ResourceScopesNestWithThoseOfTheInterface)
{
    EXPECT_TRUE(m_context.enterResourceScope(L"SampleRes.dll"));
    EXPECT_EQ(m_resources.current()->string(1), L"one");
    EXPECT_FALSE(m_context.enterResourceScope(L"LostRes.dll"));
    EXPECT_TRUE(m_context.enterResourceScope(L"HollowRes.dll"));
    EXPECT_EQ(m_resources.depth(), 2U);
    EXPECT_EQ(m_resources.current()->string(1), std::nullopt);
    m_context.leaveResourceScope(0);
    EXPECT_EQ(m_resources.current()->string(1), L"one");
    m_context.leaveResourceScope(0);
    EXPECT_EQ(m_resources.depth(), 0U);
}

TEST_F(CommandRun, FindFileWritesTheFullPath)
{
    ASSERT_TRUE(setBytes(m_folder.file("a.cuix"), "x"));
    Buffer buffer = marked();
    EXPECT_EQ(m_context.findFile(L"a.cuix", buffer.data()), 0);
    EXPECT_EQ(std::wstring(buffer.data()), toWide(m_folder.file("a.cuix")));
}

TEST_F(CommandRun, FindFileLeavesTheBufferAloneWhenThereIsNone)
{
    for (const wchar_t* name : {L"lost.cuix", L"", L".", L"/"}) {
        Buffer buffer = marked();
        EXPECT_NE(m_context.findFile(name, buffer.data()), 0);
        EXPECT_EQ(buffer, marked());
    }
}

TEST_F(CommandRun, FindFileGivesAtMost1023Characters)
{
    // Folders of 200 characters, and a file whose name fills the path up to the limit.
    QString folder = m_folder.path();
    while (folder.size() + 201 < 1000)
        folder += QLatin1Char('/') + QString(200, QLatin1Char('d'));
    ASSERT_TRUE(QDir().mkpath(folder));
    const QString longest =
        folder + QLatin1Char('/') + QString(1023 - folder.size() - 1, QLatin1Char('f'));
    const QString tooLong = longest + QLatin1Char('f');
    ASSERT_EQ(longest.size(), 1023);
    ASSERT_TRUE(setBytes(longest, "x"));
    ASSERT_TRUE(setBytes(tooLong, "x"));

    Buffer buffer = marked();
    EXPECT_EQ(m_context.findFile(toWide(longest).c_str(), buffer.data()), 0);
    EXPECT_EQ(std::wstring(buffer.data()), toWide(longest));
    buffer = marked();
    EXPECT_NE(m_context.findFile(toWide(tooLong).c_str(), buffer.data()), 0);
    EXPECT_EQ(buffer, marked());
}

TEST_F(CommandRun, ACommandReachesTheContextThroughItsSlots)
{
    ASSERT_TRUE(setBytes(m_folder.file("a.cuix"), "x"));
    const auto* interface = static_cast<IQuelBuildInCommandContext*>(&m_context);
    const wchar_t* const resource = L"SampleRes.dll";
    const wchar_t* const name = L"a.cuix";
    Buffer buffer = marked();
    EXPECT_STREQ(raw::call<const wchar_t*>(interface, 0), L"TRY");
    EXPECT_FALSE(raw::call<bool>(interface, 1));
    EXPECT_TRUE(raw::call<bool>(interface, 2, resource));
    EXPECT_EQ(m_resources.depth(), 1U);
    raw::call<void>(interface, 3, 0);
    EXPECT_EQ(m_resources.depth(), 0U);
    EXPECT_EQ(raw::call<int>(interface, 4, name, buffer.data()), 0);
    EXPECT_EQ(std::wstring(buffer.data()), toWide(m_folder.file("a.cuix")));
}
