// Sessions on profiles that are held, cannot be written, or lost something.
#include "refhost/core/settingsfiles.h"
#include "tests/core/childprocess.h"
#include "tests/core/sessionfixture.h"

#include <QFile>

#include <string>
#include <vector>

using namespace quelhost;
using namespace quelhost::test;

namespace {

using Rows = std::vector<std::string>;

} // namespace

TEST_F(Sessions, AMissingMainFileIsWrittenAgainWithOneSentence)
{
    run();
    ASSERT_TRUE(QFile::remove(inProfile("QUELD.cuix")));
    const Rows rows = rowsOf(run());
    ASSERT_EQ(rows.size(), 2U);
    EXPECT_NE(rows[0].find(inProfile("QUELD.cuix").toStdString()), std::string::npos) << rows[0];
    EXPECT_EQ(bytesOf(inProfile("QUELD.cuix")), bytesOf(m_program.files().mainPackage));
}

TEST_F(Sessions, ASecondOneOnTheProfileIsRefusedAndTheFirstGoesOn)
{
    Result<std::unique_ptr<Session>> first = open({L"ECHO still here"});
    ASSERT_TRUE(first);
    const Result<std::unique_ptr<Session>> second = open();
    ASSERT_FALSE(second);
    EXPECT_EQ(second.fault().kind, FaultKind::Busy);
    EXPECT_NE(second.fault().sentence.indexOf(m_options.profile), -1);
    EXPECT_EQ(Host::current(), &first.value()->host());
    first.value()->run();
    EXPECT_NE(m_output.text().find("still here"), std::string::npos);
}

TEST_F(Sessions, AProfileThatCannotBeWrittenIsToldOnceAndTheSessionRuns)
{
    run();
    ASSERT_TRUE(giveToOrdinaryUser(m_options.profile.toStdString()));
    const std::wstring plant = writePackage(m_program.folder(), "plant.cuix", "PLANT");
    const std::wstring line = L"MENULOAD " + plant;
    ASSERT_TRUE(setMode(m_options.profile, 0555));
    const ChildEnd end = runInChild([&] {
        return becomeOrdinaryUser() ? run({line.c_str(), L"GROUPS"}) : "not another user";
    });
    ASSERT_TRUE(setMode(m_options.profile, 0755));
    const Rows rows = rowsOf(end.output);
    ASSERT_GE(rows.size(), 3U) << end.output;
    EXPECT_NE(rows[0].find(m_options.profile.toStdString()), std::string::npos) << end.output;
    EXPECT_EQ(rows[1].rfind("Command: MENULOAD", 0), 0U) << end.output;
    EXPECT_NE(end.output.find("success.group:PLANT"), std::string::npos) << end.output;
    EXPECT_NE(end.output.find("\nPLANT\n"), std::string::npos) << end.output;
    EXPECT_EQ(listed(), "string " + inProfile("QUELD.cuix").toStdString());
}

TEST_F(Sessions, AProfileThatCannotBeMadeIsSaidInOneSentence)
{
    ASSERT_TRUE(QDir().mkpath(m_program.folder().file("closed")));
    ASSERT_TRUE(setMode(m_program.folder().file("closed"), 0555));
    m_options.profile = m_program.folder().file("closed/profile");
    const ChildEnd end =
        runInChild([&] { return becomeOrdinaryUser() ? run() : "not another user"; });
    EXPECT_EQ(rowsOf(end.output).size(), 1U) << end.output;
    EXPECT_NE(end.output.find("closed/profile"), std::string::npos) << end.output;
}

TEST_F(Sessions, SettingsOfANewerVersionAreLeftAlone)
{
    run();
    // 'Q', 'S', 2 and its complement 253.
    ASSERT_TRUE(runSql(inProfile("settings.db"), "PRAGMA user_version = 1364394749"));
    const QByteArray before = bytesOf(inProfile("settings.db"));
    const Result<std::unique_ptr<Session>> session = open();
    ASSERT_FALSE(session);
    EXPECT_EQ(session.fault().kind, FaultKind::BadInput);
    EXPECT_EQ(bytesOf(inProfile("settings.db")), before);
}

TEST_F(Sessions, StarterFilesThatCannotBeWrittenAreToldAndTheSessionRuns)
{
    ASSERT_TRUE(QDir().mkpath(inProfile("QUELD.pgp/inside")));
    const std::string printed = run({L"ECHO on"});
    EXPECT_NE(printed.find("\non\n"), std::string::npos) << printed;
    EXPECT_NE(printed.find(inProfile("QUELD.pgp").toStdString()), std::string::npos) << printed;
}

TEST_F(Sessions, AGoodCopyThatCannotBeRenewedIsTold)
{
    run();
    Result<std::unique_ptr<Session>> session = open();
    ASSERT_TRUE(session);
    ASSERT_TRUE(QFile::remove(goodCopyFile(m_options.profile)));
    ASSERT_TRUE(QDir().mkpath(goodCopyFile(m_options.profile) + QStringLiteral("/inside")));
    static_cast<void>(m_output.take());
    session.value()->run();
    const Rows rows = rowsOf(m_output.take());
    ASSERT_EQ(rows.size(), 2U);
    EXPECT_EQ(rows[0].rfind("Command: ", 0), 0U);
    EXPECT_NE(rows[1].find("good copy"), std::string::npos) << rows[1];
}
