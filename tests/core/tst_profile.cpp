#include "refhost/core/profile.h"

#include "refhost/core/settingsfiles.h"
#include "refhost/core/widetext.h"
#include "tests/core/childprocess.h"
#include "tests/core/settingssupport.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <gtest/gtest.h>

#include <csignal>
#include <functional>
#include <string>
#include <vector>

#include <unistd.h>

using namespace quelhost;
using namespace quelhost::test;

namespace {

std::string asOrdinaryUser(const std::function<std::string()>& work)
{
    const ChildEnd end =
        runInChild([&] { return becomeOrdinaryUser() ? work() : "cannot become another user"; });
    return end.exitCode == 0 ? end.output : "ended by " + std::to_string(end.signal);
}

// "opened", or the kind of the fault.
std::string told(const Result<std::unique_ptr<Profile>>& opened)
{
    return opened ? "opened" : nameOf(opened.fault().kind);
}

QString below(const ScratchFolder& folder, const char* name)
{
    return folder.path() + QLatin1Char('/') + QString::fromUtf8(name);
}

// Sets an environment variable as long as it lives.
class Environment
{
public:
    Environment(const char* name, const QByteArray& value)
        : m_name(name)
        , m_former(qgetenv(name))
        , m_wasSet(qEnvironmentVariableIsSet(name))
    {
        qputenv(name, value);
    }
    ~Environment()
    {
        if (m_wasSet)
            qputenv(m_name, m_former);
        else
            qunsetenv(m_name);
    }
    Environment(const Environment&) = delete;
    Environment& operator=(const Environment&) = delete;

private:
    const char* m_name;
    QByteArray m_former;
    bool m_wasSet;
};

} // namespace

TEST(Profile, TheDefaultFolderFollowsTheConfigurationFolder)
{
    const Environment home("HOME", "/home/somebody");
    {
        const Environment configuration("XDG_CONFIG_HOME", "/somewhere/else/");
        EXPECT_EQ(Profile::defaultFolder(), QStringLiteral("/somewhere/else/quelhost"));
    }
    for (const char* unusable : {"", "relative/path"}) {
        SCOPED_TRACE(unusable);
        const Environment configuration("XDG_CONFIG_HOME", unusable);
        EXPECT_EQ(Profile::defaultFolder(), QStringLiteral("/home/somebody/.config/quelhost"));
    }
}

TEST(Profile, TheFolderIsMadeWithItsParents)
{
    const ScratchFolder scratch;
    const QString folder = below(scratch, "a/b/c");
    const auto profile = Profile::open(folder);
    ASSERT_TRUE(profile);
    EXPECT_TRUE(QFileInfo(folder).isDir());
    EXPECT_EQ(profile.value()->folder(), folder);
    EXPECT_EQ(profile.value()->mainFile(), folder + QStringLiteral("/QUELD.cuix"));
    EXPECT_EQ(profile.value()->aliasFile(), folder + QStringLiteral("/QUELD.pgp"));
    EXPECT_TRUE(profile.value()->writable());
    EXPECT_EQ(profile.value()->settingsAccess(), SettingsAccess::ReadWrite);
    EXPECT_TRUE(profile.value()->notices().empty());
    const auto others = QFileDevice::ReadOther | QFileDevice::ReadGroup;
    EXPECT_FALSE(QFileInfo(folder).permissions() & others) << "what we make is the user's own";
}

TEST(Profile, ARelativePathIsMadeAbsolute)
{
    const ScratchFolder scratch;
    const std::string seen = runInChild([&]() -> std::string {
                                 QDir::setCurrent(scratch.path());
                                 const auto profile = Profile::open(QStringLiteral("x/../y/./z/"));
                                 return profile ? profile.value()->folder().toStdString() : "fault";
                             }).output;
    EXPECT_EQ(seen, below(scratch, "y/z").toStdString());
}

TEST(Profile, AFolderThatCannotBeMadeIsAFaultWithOneSentence)
{
    struct Row
    {
        const char* name;
        const char* file; // a file that is in the way
        const char* folder;
        const char* kind;
    };
    const Row rows[] = {
        {"a file of that name", "profile", "profile", "Io"},
        {"a file where a parent should be", "parent", "parent/profile", "Io"},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        const ScratchFolder scratch;
        ASSERT_TRUE(setBytes(below(scratch, row.file), "x"));
        const auto profile = Profile::open(below(scratch, row.folder));
        ASSERT_EQ(told(profile), row.kind);
        EXPECT_TRUE(profile.fault().sentence.contains(below(scratch, row.folder)));
        EXPECT_FALSE(profile.fault().sentence.contains(QLatin1Char('\n')));
        EXPECT_EQ(bytesOf(below(scratch, row.file)), QByteArray("x"));
    }
}

TEST(Profile, AFolderThatMayNotBeMadeIsAFault)
{
    const ScratchFolder scratch;
    ASSERT_TRUE(setMode(scratch.path(), 0555));
    EXPECT_EQ(asOrdinaryUser([&] { return told(Profile::open(below(scratch, "new"))); }),
              "NotPermitted");
}

TEST(Profile, APathWithASemicolonIsRefusedBeforeAnythingIsMade)
{
    const ScratchFolder scratch;
    const auto profile = Profile::open(below(scratch, "a;b/c"));
    ASSERT_EQ(told(profile), "BadInput");
    EXPECT_TRUE(profile.fault().sentence.contains(below(scratch, "a;b/c")));
    EXPECT_EQ(scratch.names(), std::vector<std::string>());
}

TEST(Profile, AnUnwritableFolderIsToldInOneSentenceAndUsed)
{
    const ScratchFolder scratch;
    ASSERT_TRUE(setMode(scratch.path(), 0555));
    const std::string seen = asOrdinaryUser([&]() -> std::string {
        const auto opened = Profile::open(scratch.path());
        const auto again = Profile::open(scratch.path());
        if (!opened || !again)
            return "fault";
        const Profile& profile = *opened.value();
        std::string result = std::to_string(profile.notices().size());
        result += anyContains(profile.notices(), scratch.path()) ? " names it" : "";
        result += profile.writable() ? ", writable" : ", not writable";
        result += profile.settingsAccess() == SettingsAccess::ReadOnly ? ", read only" : "";
        return result;
    });
    EXPECT_EQ(seen, "1 names it, not writable, read only");
    EXPECT_EQ(scratch.names(), std::vector<std::string>());
}

TEST(Profile, ALockFileThatMayNotBeOpenedMakesItUnwritable)
{
    const ScratchFolder scratch;
    ASSERT_TRUE(setBytes(below(scratch, "lock"), QByteArray()));
    ASSERT_TRUE(setMode(below(scratch, "lock"), 0));
    const std::string seen = asOrdinaryUser([&]() -> std::string {
        const auto profile = Profile::open(scratch.path());
        if (!profile)
            return "fault";
        const bool named = anyContains(profile.value()->notices(), below(scratch, "lock"));
        return std::string(profile.value()->writable() ? "writable" : "not writable") +
               (named ? ", named" : "");
    });
    EXPECT_EQ(seen, "not writable, named");
}

TEST(Profile, ASecondHostIsToldWhoHoldsIt)
{
    const ScratchFolder scratch;
    ChildProcess holder([&](int output) {
        const auto profile = Profile::open(scratch.path());
        writeAll(output, profile ? "holds\n" : "does not\n");
        ::pause();
    });
    ASSERT_EQ(holder.readLine(), "holds");
    const auto second = Profile::open(scratch.path());
    ASSERT_EQ(told(second), "Busy");
    const QString program =
        QFileInfo(QFile::symLinkTarget(QStringLiteral("/proc/self/exe"))).fileName();
    EXPECT_TRUE(second.fault().sentence.contains(scratch.path()));
    EXPECT_TRUE(second.fault().sentence.contains(QString::number(holder.id())));
    EXPECT_TRUE(second.fault().sentence.contains(program));

    holder.kill();
    ASSERT_EQ(holder.wait().signal, SIGKILL);
    EXPECT_EQ(told(Profile::open(scratch.path())), "opened") << "a kill gives the profile up";
}

TEST(Profile, ItIsHeldWithinOneProcessTooAndGivenUpAtTheEnd)
{
    const ScratchFolder scratch;
    {
        const auto first = Profile::open(scratch.path());
        ASSERT_TRUE(first);
        EXPECT_EQ(told(Profile::open(scratch.path())), "Busy");
    }
    EXPECT_EQ(told(Profile::open(scratch.path())), "opened");
}

TEST(Profile, ALeftOverLockFileMeansNothing)
{
    const std::string living = std::to_string(::getpid());
    const std::vector<std::pair<const char*, QByteArray>> contents = {
        {"empty", QByteArray()},
        {"of a living process", QByteArray::fromStdString(living + "\nquelhost\n")},
        {"something else", "no note at all"},
    };
    for (const auto& [name, content] : contents) {
        SCOPED_TRACE(name);
        const ScratchFolder scratch;
        ASSERT_TRUE(setBytes(below(scratch, "lock"), content));
        EXPECT_EQ(told(Profile::open(scratch.path())), "opened");
    }
}

TEST(Profile, AHolderWithoutANoteIsSomebodyElse)
{
    const ScratchFolder scratch;
    const auto holder = Profile::open(scratch.path());
    ASSERT_TRUE(holder);
    ASSERT_TRUE(setBytes(below(scratch, "lock"), QByteArray()));
    const auto second = Profile::open(scratch.path());
    ASSERT_EQ(told(second), "Busy");
    EXPECT_TRUE(second.fault().sentence.contains(scratch.path()));
}

TEST(Profile, ItIsNewUntilThereAreSettings)
{
    const ScratchFolder scratch;
    const auto isNew = [&] { return Profile::open(scratch.path()).value()->isNew(); };
    EXPECT_TRUE(isNew());
    EXPECT_TRUE(isNew()) << "opening alone changes nothing";
    ASSERT_EQ(told(openStore(scratch.path())->close()), "done");
    EXPECT_FALSE(isNew());
    ASSERT_TRUE(QFile::remove(settingsFile(scratch.path())));
    EXPECT_FALSE(isNew()) << "the good copy is to be restored";
}

TEST(Profile, StarterFilesAreWrittenOnlyIntoANewProfileAndOverNothing)
{
    const ScratchFolder scratch;
    const QString mainFile = below(scratch, "QUELD.cuix");
    const QString aliasFile = below(scratch, "QUELD.pgp");
    ASSERT_TRUE(setBytes(aliasFile, "the user's own"));
    {
        const auto profile = Profile::open(scratch.path());
        ASSERT_TRUE(profile);
        EXPECT_EQ(told(profile.value()->writeStarterFiles("main", "alias")), "done");
        EXPECT_EQ(bytesOf(mainFile), QByteArray("main"));
        EXPECT_EQ(bytesOf(aliasFile), QByteArray("the user's own"));
    }
    ASSERT_EQ(told(openStore(scratch.path())->close()), "done");
    ASSERT_TRUE(QFile::remove(aliasFile));
    const auto profile = Profile::open(scratch.path());
    ASSERT_TRUE(profile);
    EXPECT_EQ(told(profile.value()->writeStarterFiles("other", "alias")), "done");
    EXPECT_EQ(bytesOf(mainFile), QByteArray("main"));
    EXPECT_FALSE(QFileInfo::exists(aliasFile)) << "the user took it away";
}

TEST(WriteFileSafely, TheFileIsReplacedOrStaysAsItWas)
{
    const ScratchFolder scratch;
    const QString file = below(scratch, "QUELD.pgp");
    ASSERT_EQ(told(writeFileSafely(file, "old")), "done");
    ASSERT_EQ(told(writeFileSafely(file, QByteArray("n\0w", 3))), "done");
    EXPECT_EQ(bytesOf(file), QByteArray("n\0w", 3));

    struct Row
    {
        const char* name;
        unsigned long long room;
        int size;
    };
    for (const Row& row : {Row{"no room at all", 0, 1}, Row{"no room for its end", 1000, 1001},
                           Row{"no room for the most", 1000, 100000}}) {
        SCOPED_TRACE(row.name);
        const ChildEnd end = runInChild([&]() -> std::string {
            if (!limitFileSize(row.room))
                return "no limit";
            const Status written = writeFileSafely(file, QByteArray(row.size, 'x'));
            const bool named = !written && written.fault().sentence.contains(file);
            return told(written) + (named ? ", named" : "");
        });
        EXPECT_EQ(end.output, "Io, named");
        EXPECT_EQ(bytesOf(file), QByteArray("n\0w", 3));
        EXPECT_EQ(scratch.names(), std::vector<std::string>{"QUELD.pgp"});
    }

    ASSERT_TRUE(setMode(scratch.path(), 0555));
    EXPECT_EQ(asOrdinaryUser([&] { return told(writeFileSafely(file, "x")); }), "NotPermitted");
    EXPECT_EQ(bytesOf(file), QByteArray("n\0w", 3));
}
