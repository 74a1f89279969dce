// The program is ended right before and right after each of its system calls: while it stores a
// setting, where it starts and repairs, where it ends.
#include "tests/program/storedprofile.h"
#include "tests/support/tracedrun.h"

#include <gtest/gtest.h>

#include <ostream>

namespace {

QString text(const char* utf8)
{
    return QString::fromUtf8(utf8);
}

enum class Before {
    CleanEnd,
    Kill, // the log holds what was stored
    Damage,
    FirstStart,
};

struct KilledRow
{
    const char* name;
    Before before;
    RunPart part;
    const char* line; // %1 is a package
    int leastMoments; // that there must be at all
};

std::ostream& operator<<(std::ostream& out, const KilledRow& row)
{
    return out << row.name;
}

class KilledAtCalls : public testing::TestWithParam<KilledRow>
{
protected:
    TracedRun traced(RunPart part, const QString& line, int killAt) const
    {
        const ProgramRun run = profile.script(line);
        return {run.arguments, run.input, profile.profile(), part, killAt};
    }

    // Makes the profile that the row begins with.
    bool prepare()
    {
        bool done = profile.script(text("MENULOAD %1\n").arg(profile.package(1))).run().ended;
        const QString second = text("MENULOAD %1\n").arg(profile.package(2));
        if (GetParam().before == Before::Kill)
            done = traced(RunPart::End, second, 1).run().killed && done;
        else
            done = profile.script(second).run().ended && done;
        StoredProfile::Files files = profile.files();
        if (GetParam().before == Before::Damage)
            files[text("settings.db")] = m_damaged;
        if (GetParam().before == Before::FirstStart)
            files.clear();
        m_model = files;
        return done && profile.putBack(files);
    }

    QString line() const
    {
        return QString::fromUtf8(GetParam().line).replace(text("%1"), profile.package(3));
    }

    const StoredProfile profile;
    const QByteArray m_damaged = QByteArray("no database");
    StoredProfile::Files m_model;
};

INSTANTIATE_TEST_SUITE_P(
    Program, KilledAtCalls,
    testing::Values(
        KilledRow{"LoadingAPackage", Before::CleanEnd, RunPart::Command, "MENULOAD %1\n", 30},
        KilledRow{"LoadingAfterAKill", Before::Kill, RunPart::Command, "MENULOAD %1\n", 30},
        KilledRow{"StartingAfterACleanEnd", Before::CleanEnd, RunPart::Start, "", 30},
        KilledRow{"StartingAfterAKill", Before::Kill, RunPart::Start, "", 30},
        KilledRow{"RepairingADamagedFile", Before::Damage, RunPart::Start, "", 30},
        KilledRow{"StartingForTheFirstTime", Before::FirstStart, RunPart::Start, "", 30},
        KilledRow{"EndingAfterALoad", Before::CleanEnd, RunPart::End, "MENULOAD %1\n", 30}),
    [](const auto& row) { return std::string(row.param.name); });

// At most so many of the moments 1 to `all`, evenly spread from a random one on.
std::vector<int> chosen(int all, int most, unsigned int seed)
{
    const int step = std::max(1, (all + most - 1) / most);
    std::vector<int> moments;
    for (int moment = 1 + static_cast<int>(seed % static_cast<unsigned int>(step)); moment <= all;
         moment += step)
        moments.push_back(moment);
    return moments;
}

} // namespace

TEST_P(KilledAtCalls, LeavesTheListAsItWasAcknowledgedOrTheNextOne)
{
    const KilledRow& row = GetParam();
    ASSERT_TRUE(prepare());
    const QString stored = profile.listing();
    const TracedEnd whole = traced(row.part, line(), 0).run();
    ASSERT_TRUE(whole.traced) << "this system does not let programs be traced";
    ASSERT_EQ(whole.exitStatus, 0) << whole.output.toStdString();
    ASSERT_GE(whole.moments, row.leastMoments);
    const QString next = profile.listing();
    ASSERT_TRUE(next.startsWith(text("CUIX/LoadedCuix\tstring\t"))) << next.toStdString();
    const QStringList names = profile.files().keys();

    RecordProperty("moments", whole.moments);
    const unsigned int seed = wantedSeed();
    SCOPED_TRACE("seed " + std::to_string(seed));
    for (const int moment : chosen(whole.moments, wantedRounds(3), seed)) {
        ASSERT_TRUE(profile.putBack(m_model));
        const TracedEnd end = traced(row.part, line(), moment).run();
        SCOPED_TRACE("moment " + std::to_string(moment) + ", " + end.call);
        ASSERT_TRUE(end.killed);
        const QString left = profile.listing();
        const QStringList told = profile.toldBySession();
        const QString list = profile.listing();
        if (row.before == Before::Damage) {
            const bool repaired = left == next;
            EXPECT_EQ(list.toStdString(), next.toStdString());
            EXPECT_EQ(told.isEmpty(), repaired) << told.join(text("\n")).toStdString();
            EXPECT_TRUE(end.output.contains(text("is damaged.\n")) ||
                        !told.filter(text("is damaged.")).isEmpty())
                << end.output.toStdString() << told.join(text("\n")).toStdString();
            EXPECT_TRUE(!repaired || end.output.contains(text("is restored.\n")))
                << end.output.toStdString();
            ASSERT_EQ(profile.keptAside().size(), 1);
            EXPECT_EQ(profile.files()[profile.keptAside()[0]], m_damaged);
            continue;
        }
        const bool acknowledged = end.diagnostics.contains(text("\t5100\n"));
        const bool isNext = list == next;
        EXPECT_TRUE(isNext || (list == stored && !acknowledged)) << list.toStdString();
        EXPECT_TRUE(left == list || row.before == Before::FirstStart) << left.toStdString();
        EXPECT_TRUE(told.isEmpty()) << told.join(text("\n")).toStdString();
        EXPECT_EQ(profile.files().keys(), names);
    }
}

// What only a loss of power would show.
TEST(SynchronisedSettings, ACommandIsReportedAfterItsWriteIsOnDisk)
{
    const StoredProfile profile;
    ASSERT_TRUE(profile.script(QString()).run().ended);
    const ProgramRun run = profile.script(text("MENULOAD %1\n").arg(profile.package(1)));
    const QStringList calls =
        TracedRun{run.arguments, run.input, profile.profile(), RunPart::Command, 0}.run().calls;
    const int written = calls.lastIndexOf(text("pwrite64 settings.db-wal"));
    const int synchronised = calls.lastIndexOf(text("fdatasync settings.db-wal"));
    const int reported = calls.indexOf(text("write stderr"));
    EXPECT_GT(written, 0);
    EXPECT_GT(synchronised, written) << calls.join(text("\n")).toStdString();
    EXPECT_GT(reported, synchronised) << calls.join(text("\n")).toStdString();
}

TEST(SynchronisedSettings, AFileIsOnDiskBeforeItTakesItsPlace)
{
    struct Row
    {
        const char* name;
        bool firstStart;
        RunPart part;
        bool folderToo; // a former good copy is as good
    };
    for (const Row& row : {Row{"the settings of a first start", true, RunPart::Start, true},
                           Row{"the good copy of an end", false, RunPart::End, false}}) {
        SCOPED_TRACE(row.name);
        const StoredProfile profile;
        ASSERT_TRUE(row.firstStart || profile.script(QString()).run().ended);
        const ProgramRun run = profile.script(text("MENULOAD %1\n").arg(profile.package(1)));
        const QStringList calls =
            TracedRun{run.arguments, run.input, profile.profile(), row.part, 0}.run().calls;
        const int renamed = calls.indexOf(text("rename settings.new.db"));
        const int written = calls.lastIndexOf(text("pwrite64 settings.new.db"), renamed);
        ASSERT_GT(renamed, 0) << calls.join(text("\n")).toStdString();
        ASSERT_GT(written, 0) << calls.join(text("\n")).toStdString();
        EXPECT_GT(calls.lastIndexOf(text("fsync settings.new.db"), renamed), written)
            << calls.join(text("\n")).toStdString();
        EXPECT_TRUE(!row.folderToo || calls.mid(renamed, 3).contains(text("fsync .")))
            << calls.join(text("\n")).toStdString();
    }
}
