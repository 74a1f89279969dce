// Sessions whose settings cannot be stored: each write of a start, a command and an end fails once,
// in every way. It is told once, the former list stays, and what comes after works.
#include "refhost/core/settingsfiles.h"
#include "tests/core/childprocess.h"
#include "tests/core/damagedprofile.h"
#include "tests/core/faultyvfs.h"
#include "tests/core/sessionfixture.h"

#include <QRegularExpression>

#include <string>
#include <vector>

using namespace quelhost;
using namespace quelhost::test;

namespace {

using Rows = std::vector<std::string>;

class SessionFaults : public Sessions
{
protected:
    void SetUp() override
    {
        Sessions::SetUp();
        for (const char* name : {"one", "two", "three"})
            m_packages.push_back(
                writePackage(m_program.folder(), (std::string(name) + ".cuix").c_str(), name));
    }

    // Makes a profile that has loaded package one and was ended.
    void makeProfile()
    {
        QDir(m_options.profile).removeRecursively();
        run();
        Result<std::unique_ptr<Session>> session = open();
        load(*session.value(), 0);
        session.value()->run();
        static_cast<void>(m_output.take());
    }

    // Loads a package; what is printed.
    std::string load(Session& session, std::size_t package)
    {
        static_cast<void>(m_output.take());
        m_status =
            session.host().runCommandLineOnly(QStringLiteral("MENULOAD"), {m_packages[package]});
        return m_output.take();
    }

    // What `listed` says when these packages are loaded.
    std::string list(std::initializer_list<std::size_t> packages) const
    {
        std::string result = "string " + inProfile("QUELD.cuix").toStdString();
        for (const std::size_t package : packages)
            result += ";" + toUtf8(m_packages[package]);
        return result;
    }

    // The rows of a session that nobody types anything in, but its prompt.
    Rows toldBySession()
    {
        Rows told;
        for (const std::string& row : rowsOf(run())) {
            if (row != "Command: ")
                told.push_back(row);
        }
        return told;
    }

    // All that is told when the session ends, and by another one after it.
    Rows rowsToTheNextEnd(std::unique_ptr<Session> session)
    {
        session->run();
        Rows rows = rowsOf(m_output.take());
        session.reset();
        const Rows next = toldBySession();
        rows.insert(rows.end(), next.begin(), next.end());
        return rows;
    }

    std::vector<std::wstring> m_packages;
    int m_status = 0;
};

int rowsWith(const std::string& text, const char* part)
{
    int count = 0;
    for (const std::string& row : rowsOf(text))
        count += row.find(part) != std::string::npos ? 1 : 0;
    return count;
}

constexpr int kDone = 5100;

class FailingWrites : public SessionFaults, public testing::WithParamInterface<WriteFailure>
{};

INSTANTIATE_TEST_SUITE_P(Settings, FailingWrites, testing::ValuesIn(writeFailures()),
                         [](const auto& row) {
                             return QString::fromUtf8(row.param.name)
                                 .remove(QRegularExpression(QStringLiteral("[^a-z]")))
                                 .toStdString();
                         });

} // namespace

TEST_P(FailingWrites, WhereverALoadCannotBeStoredItIsToldOnceAndTheListStays)
{
    int faults = 0;
    int refused = 1;
    for (int call = 1; refused > 0; ++call) {
        SCOPED_TRACE("call " + std::to_string(call));
        makeProfile();
        FaultyVfs vfs;
        Result<std::unique_ptr<Session>> session = open();
        ASSERT_TRUE(session);
        vfs.refuse(call, GetParam().code, GetParam().refusal);
        const std::string printed = load(*session.value(), 1);
        refused = vfs.refused();
        vfs.carryOutAll();
        EXPECT_EQ(m_status, kDone);
        EXPECT_EQ(rowsWith(printed, "success.group:two"), 1) << "it is loaded all the same";
        const int told = rowsWith(printed, "\"CUIX/LoadedCuix\" was not stored");
        EXPECT_EQ(told, refused > 0 ? 1 : 0) << printed;
        EXPECT_EQ(rowsOf(printed).size(), told > 0 ? 4U : 3U) << printed;
        EXPECT_EQ(listed(), told > 0 ? list({0}) : list({0, 1}));
        faults += told;

        EXPECT_EQ(rowsWith(load(*session.value(), 2), "not stored"), 0);
        const std::string whole = told > 0 ? list({0, 2}) : list({0, 1, 2});
        EXPECT_EQ(listed(), whole);
        EXPECT_EQ(rowsToTheNextEnd(std::move(session.value())), Rows{"Command: "});
        EXPECT_EQ(listed(), whole);
    }
    EXPECT_GE(faults, 3);
}

TEST_P(FailingWrites, WhereverAStartFailsTheListIsThereAndStaysWhole)
{
    int faults = 0;
    int refused = 1;
    for (int call = 1; refused > 0; ++call) {
        SCOPED_TRACE("call " + std::to_string(call));
        makeProfile();
        FaultyVfs vfs;
        vfs.refuse(call, GetParam().code, GetParam().refusal);
        Result<std::unique_ptr<Session>> session = open();
        refused = vfs.refused();
        ASSERT_TRUE(session) << session.fault().text().toStdString();
        const std::string told = m_output.take();
        EXPECT_LE(rowsOf(told).size(), 1U) << told;
        EXPECT_EQ(session.value()->host().groups.groups().size(), 2U) << told;
        faults += told.empty() ? 0 : 1;
        vfs.carryOutAll();
        EXPECT_EQ(listed(), list({0}));

        EXPECT_EQ(rowsWith(load(*session.value(), 1), "not stored"), 0);
        EXPECT_EQ(rowsToTheNextEnd(std::move(session.value())), Rows{"Command: "});
        EXPECT_EQ(listed(), list({0, 1}));
    }
    EXPECT_GE(faults, 3);
}

TEST_P(FailingWrites, WhereverARepairFailsItsCauseIsToldAndTheGoodCopyIsInForce)
{
    for (const bool missing : {false, true}) {
        SCOPED_TRACE(missing ? "missing" : "damaged");
        const char* const cause = missing ? "is missing." : "is damaged.";
        int faults = 0;
        int refused = 1;
        for (int call = 1; refused > 0; ++call) {
            SCOPED_TRACE("call " + std::to_string(call));
            makeProfile();
            QFile settings(settingsFile(m_options.profile));
            ASSERT_TRUE(missing ? settings.remove() : settings.resize(100));
            FaultyVfs vfs;
            vfs.refuse(call, GetParam().code, GetParam().refusal);
            Result<std::unique_ptr<Session>> session = open();
            refused = vfs.refused();
            vfs.carryOutAll();
            ASSERT_TRUE(session) << session.fault().text().toStdString();
            const std::string told = m_output.take();
            EXPECT_EQ(rowsWith(told, cause), 1) << told;
            EXPECT_EQ(rowsWith(told, "The last good copy, made "), 1) << told;
            const int kept = keptAsideFiles(m_options.profile).size();
            EXPECT_EQ(rowsWith(told, "is kept as "), kept) << told;
            EXPECT_EQ(session.value()->host().groups.groups().size(), 2U) << told;
            faults += rowsWith(told, "is read instead") + rowsWith(told, "Until that changes");
            session.value().reset();

            const Rows next = toldBySession();
            EXPECT_EQ(next.empty(), rowsWith(told, "is restored.") == 1) << told;
            EXPECT_EQ(listed(), list({0}));
            EXPECT_EQ(toldBySession(), Rows());
            EXPECT_EQ(keptAsideFiles(m_options.profile).size(), missing ? 0 : 1);
        }
        EXPECT_GE(faults, 3);
    }
}

TEST_P(FailingWrites, WhereverAnEndFailsItIsToldAtMostOnceAndTheListStays)
{
    int faults = 0;
    int refused = 1;
    for (int call = 1; refused > 0; ++call) {
        SCOPED_TRACE("call " + std::to_string(call));
        makeProfile();
        FaultyVfs vfs;
        Result<std::unique_ptr<Session>> session = open();
        ASSERT_TRUE(session);
        EXPECT_EQ(rowsWith(load(*session.value(), 1), "not stored"), 0);
        vfs.refuse(call, GetParam().code, GetParam().refusal);
        session.value()->run();
        session.value().reset();
        refused = vfs.refused();
        vfs.carryOutAll();
        const Rows rows = rowsOf(m_output.take());
        ASSERT_LE(rows.size(), 2U);
        EXPECT_EQ(rows[0], "Command: ");
        EXPECT_TRUE(rows.size() == 1 || rows[1].rfind("The last good copy", 0) == 0) << rows[1];
        faults += rows.size() == 2 ? 1 : 0;
        EXPECT_EQ(listed(), list({0, 1}));
        EXPECT_EQ(toldBySession(), Rows());
        EXPECT_EQ(listed(), list({0, 1}));
    }
    EXPECT_GE(faults, 3);
}

// What is open stays open: the running session can store, and says at its end what it could not do.
TEST_F(SessionFaults, PermissionsLostWhileItRunsAreToldAtTheEndAndNothingIsLost)
{
    makeProfile();
    ASSERT_TRUE(giveToOrdinaryUser(m_options.profile.toStdString()));
    for (const QString& name : QDir(m_options.profile).entryList(QDir::Files))
        ASSERT_TRUE(
            giveToOrdinaryUser((m_options.profile + QLatin1Char('/') + name).toStdString()));
    const ChildEnd end = runInChild([&]() -> std::string {
        if (!becomeOrdinaryUser())
            return "not another user";
        Result<std::unique_ptr<Session>> session = open();
        if (!session)
            return "not opened";
        std::string printed = m_output.take();
        for (const char* name : {"settings.db", "settings.db-wal", "settings.db-shm"}) {
            if (!setMode(inProfile(name), 0444))
                return "no permissions taken";
        }
        if (!setMode(m_options.profile, 0555))
            return "no permissions taken";
        printed += load(*session.value(), 1);
        session.value()->run();
        return printed + m_output.take();
    });
    EXPECT_EQ(rowsWith(end.output, "not stored"), 0) << end.output;
    EXPECT_EQ(rowsWith(end.output, "The last good copy of the settings was not renewed."), 1)
        << end.output;
    EXPECT_EQ(rowsOf(end.output).size(), 5U) << end.output;
    EXPECT_EQ(listed(), list({0, 1}));

    const ChildEnd again = runInChild([&]() -> std::string {
        if (!becomeOrdinaryUser())
            return "not another user";
        Result<std::unique_ptr<Session>> session = open();
        if (!session)
            return "not opened";
        const std::string told = m_output.take();
        return told + load(*session.value(), 2);
    });
    EXPECT_EQ(rowsWith(again.output, "cannot be written"), 2) << again.output;
    EXPECT_EQ(rowsWith(again.output, "was not stored"), 1) << again.output;
    EXPECT_EQ(rowsWith(again.output, "success.group:three"), 1) << again.output;
    EXPECT_EQ(listed(), list({0, 1}));

    ASSERT_TRUE(setMode(m_options.profile, 0755));
    for (const QString& name : QDir(m_options.profile).entryList(QDir::Files))
        ASSERT_TRUE(setMode(m_options.profile + QLatin1Char('/') + name, 0644));
    EXPECT_EQ(toldBySession(), Rows());
    EXPECT_EQ(listed(), list({0, 1}));
}
