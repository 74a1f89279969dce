// The program is killed at random moments while it loads and unloads packages, starts or ends; its
// next start goes on from the last list that was acknowledged, or the next one.
#include "tests/program/storedprofile.h"

#include <gtest/gtest.h>

#include <QElapsedTimer>

#include <vector>

#include <unistd.h>

namespace {

QString text(const char* utf8)
{
    return QString::fromUtf8(utf8);
}

// Commands that are typed ahead, and the list after so many of them.
struct Plan
{
    QString lines;
    std::vector<QStringList> lists; // one more than there are commands
    QStringList statuses;

    [[nodiscard]] int commands() const { return statuses.size(); }
};

// How long things take here, to place kills among them.
struct Durations
{
    qint64 start = 0; // microseconds
    qint64 command = 0;
    qint64 end = 0;
};

struct Kill
{
    int afterStatuses = 0;
    qint64 delay = 0; // microseconds
};

class Killed : public testing::Test
{
protected:
    Killed()
    {
        for (int number = 1; number <= 5; ++number)
            m_packages << profile.package(number);
    }

    // A session on the profile that is to be killed.
    [[nodiscard]] ProgramRun victim(const QString& lines) const
    {
        ProgramRun run = profile.script(lines);
        run.leakSearch = LeakSearch::None;
        return run;
    }

    unsigned int below(qint64 bound)
    {
        return static_cast<unsigned int>(m_random() %
                                         static_cast<quint64>(std::max(bound, qint64{1})));
    }

    // Loads and unloads packages at random, beginning with those that are loaded.
    Plan plan(QStringList loaded)
    {
        Plan result;
        result.lists.push_back(loaded);
        for (unsigned int left = 1 + below(20); left > 0; --left) {
            const QString package = m_packages[static_cast<int>(below(m_packages.size()))];
            const QString command =
                loaded.contains(package) ? text("MENUUNLOAD") : text("MENULOAD");
            if (!loaded.removeOne(package))
                loaded << package;
            result.lines += command + text(" ") + package + text("\n");
            result.statuses << command + text("\t5100");
            result.lists.push_back(loaded);
        }
        return result;
    }

    Durations measure()
    {
        const Plan commands = plan({});
        QElapsedTimer timer;
        timer.start();
        LiveProgram program(victim(commands.lines));
        program.waitForStatuses(1);
        Durations durations;
        durations.start = timer.nsecsElapsed() / 1000;
        program.waitForStatuses(commands.commands());
        const qint64 commandsEnd = timer.nsecsElapsed() / 1000;
        durations.command = (commandsEnd - durations.start) / commands.commands();
        program.waitForEnd();
        durations.end = timer.nsecsElapsed() / 1000 - commandsEnd;
        return durations;
    }

    // A third of the kills in the start, a sixth in the end, the others among the commands.
    Kill kill(const Plan& commands, const Durations& durations)
    {
        const unsigned int part = below(6);
        if (part < 2)
            return {0, below(durations.start)};
        if (part == 2)
            return {commands.commands(), below(durations.end)};
        return {static_cast<int>(below(commands.commands())), below(2 * durations.command)};
    }

    const StoredProfile profile;
    QStringList m_packages;
    std::mt19937_64 m_random;
};

} // namespace

TEST_F(Killed, GoesOnFromTheLastAcknowledgedListOrTheNext)
{
    const unsigned int seed = wantedSeed();
    SCOPED_TRACE("seed " + std::to_string(seed));
    m_random.seed(seed);
    const Durations durations = measure();
    QStringList loaded = profile.loadedBehindTheMainFile();
    const QStringList names = profile.files().keys();
    int kills = 0;
    int acknowledged = 0;
    int oneFurther = 0;
    const int wanted = wantedRounds(15);
    for (int round = 0; kills < wanted; ++round) {
        ASSERT_LT(round, 10 * wanted) << "most programs had ended before their kill";
        const Plan commands = plan(loaded);
        const Kill moment = kill(commands, durations);
        SCOPED_TRACE("round " + std::to_string(round) + ", " + std::to_string(moment.delay) +
                     " us after status " + std::to_string(moment.afterStatuses));
        LiveProgram program(victim(commands.lines));
        ASSERT_TRUE(program.waitForStatuses(moment.afterStatuses));
        ::usleep(static_cast<useconds_t>(moment.delay));
        kills += program.kill() ? 1 : 0;

        const QStringList statuses = program.statuses();
        const int done = statuses.size();
        ASSERT_EQ(statuses, commands.statuses.mid(0, done));
        EXPECT_TRUE(program.output().isEmpty() || program.output().startsWith(text("Command: ")))
            << program.output().toStdString();
        const QString listing = profile.listing();
        const auto lists = commands.lists.begin() + done;
        const bool further = listing != profile.listedLine(*lists);
        ASSERT_TRUE(!further || done < commands.commands()) << listing.toStdString();
        ASSERT_TRUE(!further || listing == profile.listedLine(lists[1])) << listing.toStdString();
        EXPECT_EQ(profile.keptAside(), QStringList());
        loaded = further ? lists[1] : lists[0];
        acknowledged += done;
        oneFurther += further ? 1 : 0;
    }
    RecordProperty("acknowledged", acknowledged);
    RecordProperty("oneFurther", oneFurther);
    EXPECT_GT(acknowledged, 0);
    EXPECT_EQ(profile.toldBySession(), QStringList());
    EXPECT_EQ(profile.listing(), profile.listedLine(loaded));
    EXPECT_EQ(profile.files().keys(), names);
}
