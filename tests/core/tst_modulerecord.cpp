// Loading, using and unloading command modules, and every way in which that can fail.
#include "refhost/core/modulerecord.h"

#include "refhost/core/commandstore.h"
#include "refhost/core/widetext.h"
#include "tests/core/settingssupport.h"
#include "tests/support/moduletrace.h"

#include <gtest/gtest.h>

#include <QDir>

#include <string>
#include <vector>

using namespace quelhost;
using namespace quelhost::test;

namespace {

using State = ModuleRecord::State;
using Calls = std::vector<std::string>;

QString moduleFile(const char* name)
{
    return QStringLiteral(QUEL_TEST_MODULES "/") + QString::fromLatin1(name);
}

class Modules : public testing::Test
{
protected:
    Modules() { static_cast<void>(takeModuleCalls()); }

    CommandStore m_store;
    ScratchFolder m_folder;
};

} // namespace

TEST_F(Modules, AGoodOneIsSetUpUsedAndTakenDown)
{
    ModuleRecord record(moduleFile("good.so"));
    EXPECT_EQ(record.state(), State::Unloaded);
    EXPECT_EQ(record.path(), moduleFile("good.so"));
    EXPECT_FALSE(isMapped("/good.so"));

    ASSERT_EQ(told(record.start(m_store)), "done");
    EXPECT_EQ(record.state(), State::Registered);
    EXPECT_EQ(takeModuleCalls(), (Calls{"initialize", "registCommand"}));
    EXPECT_TRUE(isMapped("/good.so"));
    EXPECT_NE(m_store.find(QStringLiteral("tryout")), nullptr);

    record.send(kQuelSessionStarted);
    record.send(kQuelSessionEnding);
    EXPECT_EQ(takeModuleCalls(), (Calls{"message 1", "message 2"}));

    record.stop();
    EXPECT_EQ(record.state(), State::Unloaded);
    EXPECT_EQ(takeModuleCalls(), (Calls{"unregistCommand", "uninitialize"}));
    EXPECT_TRUE(m_store.all().empty());
    EXPECT_FALSE(isMapped("/good.so"));

    record.stop();
    record.send(kQuelSessionStarted);
    EXPECT_EQ(takeModuleCalls(), Calls{});
}

TEST_F(Modules, TheEndOfARecordTakesItsModuleDown)
{
    {
        ModuleRecord record(moduleFile("good.so"));
        ASSERT_EQ(told(record.start(m_store)), "done");
        static_cast<void>(takeModuleCalls());
    }
    EXPECT_EQ(takeModuleCalls(), (Calls{"unregistCommand", "uninitialize"}));
    EXPECT_TRUE(m_store.all().empty());
    EXPECT_FALSE(isMapped("/good.so"));
}

TEST_F(Modules, AReloadedOneIsANewOne)
{
    ModuleRecord record(moduleFile("good.so"));
    for (int round = 0; round < 20; ++round) {
        ASSERT_EQ(told(record.start(m_store)), "done");
        IQuelCommandFactory* factory = m_store.find(QStringLiteral("TRYOUT"));
        ASSERT_NE(factory, nullptr);
        EXPECT_EQ(factory->flags(), 0U);
        factory->addFlags(5, true);
        EXPECT_EQ(factory->flags(), 5U);
        record.stop();
        ASSERT_FALSE(isMapped("/good.so"));
    }
}

TEST_F(Modules, StartingOneThatIsUpChangesNothing)
{
    ModuleRecord record(moduleFile("good.so"));
    ASSERT_EQ(told(record.start(m_store)), "done");
    static_cast<void>(takeModuleCalls());
    EXPECT_EQ(told(record.start(m_store)), "done");
    EXPECT_EQ(record.state(), State::Registered);
    EXPECT_EQ(takeModuleCalls(), Calls{});
    record.stop();
    EXPECT_FALSE(isMapped("/good.so"));
}

TEST_F(Modules, EachFailureIsNamedAndLeavesNothingBehind)
{
    ASSERT_TRUE(setBytes(m_folder.file("text.so"), "This is no library.\n"));
    ASSERT_TRUE(setBytes(m_folder.file("empty.so"), {}));
    ASSERT_TRUE(QDir().mkpath(m_folder.file("folder.so")));
    struct Row
    {
        const char* name;
        QString path;
        const char* kind;
        std::vector<const char*> said;
        Calls calls;
    };
    const Row rows[] = {
        {"no such file", m_folder.file("lost.so"), "NotFound", {"lost.so does not exist"}, {}},
        {"an empty name", QString(), "NotFound", {"does not exist"}, {}},
        {"a folder", m_folder.file("folder.so"), "BadInput", {"cannot be loaded"}, {}},
        {"a text", m_folder.file("text.so"), "BadInput", {"cannot be loaded"}, {}},
        {"an empty file", m_folder.file("empty.so"), "BadInput", {"cannot be loaded"}, {}},
        {"no entry point",
         moduleFile("noentry.so"),
         "BadInput",
         {"no entry point GetQuelCmdApplication"},
         {}},
        {"an entry point that gives nothing",
         moduleFile("noapplication.so"),
         "BadInput",
         {"gave no application object"},
         {"entry"}},
        {"not ready",
         moduleFile("notready.so"),
         "BadInput",
         {"not ready", "answered 7"},
         {"initialize"}},
        {"symbols that nobody has",
         moduleFile("missing.so"),
         "BadInput",
         {"lost::Machine::turn(int) const", "lost::wheels", "lostText(wchar_t const*)",
          "lost_plain"},
         {}},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        ModuleRecord record(row.path);
        const Status started = record.start(m_store);
        ASSERT_FALSE(started);
        EXPECT_EQ(nameOf(started.fault().kind), row.kind);
        const std::string sentence = started.fault().text().toStdString();
        EXPECT_NE(sentence.find(row.path.toStdString()), std::string::npos) << sentence;
        for (const char* part : row.said)
            EXPECT_NE(sentence.find(part), std::string::npos) << sentence;
        EXPECT_EQ(record.state(), State::Failed);
        EXPECT_EQ(takeModuleCalls(), row.calls);
        EXPECT_TRUE(m_store.all().empty());
        EXPECT_FALSE(!row.path.isEmpty() && isMapped(row.path.toStdString()));

        record.send(kQuelSessionStarted);
        record.stop();
        EXPECT_EQ(record.state(), State::Failed);
        EXPECT_EQ(takeModuleCalls(), Calls{});
    }
}

TEST_F(Modules, OneThatFailedCanBeStartedWhenTheCauseIsGone)
{
    ModuleRecord record(m_folder.file("late.so"));
    EXPECT_EQ(told(record.start(m_store)), "NotFound");
    ASSERT_TRUE(copyFile(moduleFile("good.so"), m_folder.file("late.so")));
    EXPECT_EQ(told(record.start(m_store)), "done");
    EXPECT_EQ(record.state(), State::Registered);
}

TEST_F(Modules, NamesMayBeRelativeAndHoldAnyCharacter)
{
    const QString name = QString::fromUtf8("m\xC3\xA9nu %1.so");
    ASSERT_TRUE(copyFile(moduleFile("good.so"), m_folder.path() + QLatin1Char('/') + name));
    const QString former = QDir::currentPath();
    ASSERT_TRUE(QDir::setCurrent(m_folder.path()));
    ModuleRecord record(name);
    const Status started = record.start(m_store);
    QDir::setCurrent(former);
    EXPECT_EQ(told(started), "done");
}

TEST_F(Modules, TheStoresAnswerToARegistrationIsTheModulesBusiness)
{
    class OddStore final : public IQuelCommandStore
    {
    public:
        int addCommand(IQuelCommandFactory*, int) override { return 123456; }
        int removeCommand(const wchar_t*) override { return 123456; }
    };
    OddStore store;
    ModuleRecord record(moduleFile("good.so"));
    EXPECT_EQ(told(record.start(store)), "done");
    record.stop();
    EXPECT_EQ(takeModuleCalls(),
              (Calls{"initialize", "registCommand", "unregistCommand", "uninitialize"}));
}
