// The program on a disk that is full or cannot be written, from the start, in the middle or at the
// end: it is told once, the former value stays, and with room everything works again.
#include "tests/program/storedprofile.h"
#include "tests/support/smalldisk.h"

#include <gtest/gtest.h>

namespace {

QString text(const char* utf8)
{
    return QString::fromUtf8(utf8);
}

int timesNotStored(const QString& output)
{
    return output.count(text("was not stored"));
}

// The rows before the first prompt.
QStringList toldAtStart(const QString& output)
{
    const QString before = output.left(output.indexOf(text("Command: ")));
    return before.split(QLatin1Char('\n'), Qt::SkipEmptyParts);
}

class FullDisk : public testing::Test
{
protected:
    void SetUp() override
    {
        ASSERT_TRUE(disk.isMounted()) << "this test needs the right to mount a file system in "
                                         "memory, of the superuser or of a user namespace";
        one = profile.package(1);
        two = profile.package(2);
        three = profile.package(3);
    }

    bool load(const QString& package) const
    {
        return profile.script(text("MENULOAD %1\n").arg(package)).run().exitStatus == 0;
    }

    const StoredProfile profile;
    const SmallDisk disk{profile.path(QString()), 512};
    QString one;
    QString two;
    QString three;
};

// What the program prints until it has run one more line.
QString answerTo(LiveProgram& program, const QString& line)
{
    const int before = program.output().size();
    const int statuses = program.statuses().size();
    program.type(line + text("\n"));
    return program.waitForStatuses(statuses + 1) ? program.output().mid(before) : text("no answer");
}

} // namespace

TEST_F(FullDisk, BeforeTheStart)
{
    ASSERT_TRUE(load(one));
    ASSERT_TRUE(disk.fill());
    const ProgramResult full = profile.script(text("MENULOAD %1\nGROUPS\n").arg(two)).run();
    EXPECT_EQ(full.exitStatus, 0);
    EXPECT_EQ(full.diagnostics, text("MENULOAD\t5100\nGROUPS\t5100\n"));
    ASSERT_EQ(toldAtStart(full.output).size(), 1) << full.output.toStdString();
    EXPECT_TRUE(toldAtStart(full.output)[0].contains(text(": the disk is full. Until that")));
    EXPECT_EQ(timesNotStored(full.output), 1);
    EXPECT_TRUE(full.rows().contains(text("GROUP2"))) << "it is shown for this run";
    EXPECT_EQ(profile.listing(), profile.listedLine({one}));

    ASSERT_TRUE(disk.makeRoom());
    EXPECT_EQ(profile.toldBySession(), QStringList());
    EXPECT_EQ(profile.listing(), profile.listedLine({one}));
    ASSERT_TRUE(load(two));
    EXPECT_EQ(profile.listing(), profile.listedLine({one, two}));
}

TEST_F(FullDisk, BeforeTheFirstStart)
{
    ASSERT_TRUE(disk.fill());
    const ProgramResult full = profile.script(text("MENULOAD %1\n").arg(one)).run();
    EXPECT_EQ(full.exitStatus, 0);
    const QStringList told = toldAtStart(full.output);
    EXPECT_EQ(told.filter(text("QUELD.cuix cannot be written")).size(), 1)
        << full.output.toStdString();
    EXPECT_EQ(told.filter(text("settings")).size(), 1) << full.output.toStdString();
    EXPECT_EQ(timesNotStored(full.output), 1) << full.output.toStdString();

    ASSERT_TRUE(disk.makeRoom());
    EXPECT_EQ(profile.toldBySession(), QStringList());
    EXPECT_EQ(profile.listing(), profile.listedLine({}));
    const StoredProfile::Files files = profile.files();
    EXPECT_GT(files[text("QUELD.cuix")].size(), 0);
    EXPECT_GT(files[text("QUELD.pgp")].size(), 0);
}

TEST_F(FullDisk, WhileTheProgramRuns)
{
    ASSERT_TRUE(load(one));
    LiveProgram program(profile.script(QString()), true);
    EXPECT_EQ(timesNotStored(answerTo(program, text("MENULOAD ") + two)), 0);
    for (int attempt = 0; attempt < 2; ++attempt) {
        ASSERT_TRUE(disk.fill()); // also what giving up the first attempt made free
        const QString said = answerTo(program, text("MENULOAD ") + three);
        EXPECT_EQ(timesNotStored(said), 1) << said.toStdString();
        EXPECT_TRUE(said.contains(text(": the disk is full."))) << said.toStdString();
        EXPECT_EQ(profile.listing(), profile.listedLine({one, two}));
    }
    ASSERT_TRUE(disk.makeRoom());
    EXPECT_EQ(timesNotStored(answerTo(program, text("MENULOAD ") + three)), 0);
    EXPECT_EQ(profile.listing(), profile.listedLine({one, two, three}));
    EXPECT_TRUE(program.waitForEnd());
    EXPECT_EQ(program.result().exitStatus, 0);
    EXPECT_EQ(profile.toldBySession(), QStringList());
    EXPECT_EQ(profile.listing(), profile.listedLine({one, two, three}));
}

TEST_F(FullDisk, AtTheEnd)
{
    ASSERT_TRUE(load(one));
    LiveProgram program(profile.script(QString()), true);
    EXPECT_EQ(timesNotStored(answerTo(program, text("MENULOAD ") + two)), 0);
    ASSERT_TRUE(disk.fill());
    EXPECT_TRUE(program.waitForEnd());
    EXPECT_EQ(program.result().exitStatus, 0);
    const QStringList rows = program.output().split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    const QStringList told = rows.mid(rows.lastIndexOf(text("Command: ")) + 1);
    ASSERT_EQ(told.size(), 1) << program.output().toStdString();
    EXPECT_TRUE(told[0].startsWith(text("The last good copy of the settings was not renewed.")));
    EXPECT_EQ(profile.listing(), profile.listedLine({one, two}));
    ASSERT_TRUE(disk.makeRoom());
    EXPECT_EQ(profile.toldBySession(), QStringList());
    EXPECT_EQ(profile.listing(), profile.listedLine({one, two}));
}

// Room that ends at any step of start, load and end.
TEST_F(FullDisk, WithAnyAmountOfRoomTheListIsStoredOrThatIsToldOnce)
{
    ASSERT_TRUE(load(one));
    const StoredProfile::Files model = profile.files();
    const int most = 120; // kilobytes, more than a session needs
    const int step = std::max(4, most / wantedRounds(6) / 4 * 4);
    int stored = 0;
    int refused = 0;
    for (int room = 0; room <= most; room += step) {
        SCOPED_TRACE(std::to_string(room) + " kilobytes");
        ASSERT_TRUE(profile.putBack(model));
        ASSERT_TRUE(disk.fill(room));
        const ProgramResult result = profile.script(text("MENULOAD %1\n").arg(two)).run();
        ASSERT_TRUE(disk.makeRoom());
        EXPECT_EQ(result.exitStatus, 0);
        const bool told = timesNotStored(result.output) > 0;
        EXPECT_LE(timesNotStored(result.output), 1) << result.output.toStdString();
        EXPECT_EQ(profile.listing(),
                  profile.listedLine(told ? QStringList{one} : QStringList{one, two}));
        EXPECT_EQ(profile.toldBySession(), QStringList());
        EXPECT_EQ(profile.listing(),
                  profile.listedLine(told ? QStringList{one} : QStringList{one, two}));
        refused += told ? 1 : 0;
        stored += told ? 0 : 1;
    }
    EXPECT_GT(stored, 0);
    EXPECT_GT(refused, 0);
}

TEST_F(FullDisk, ADamagedFileWaitsForRoomToBeReplaced)
{
    ASSERT_TRUE(load(one));
    StoredProfile::Files files = profile.files();
    files[text("settings.db")] = "no database";
    ASSERT_TRUE(profile.putBack(files));
    ASSERT_TRUE(disk.fill());
    const ProgramResult full = profile.script(text("MENULOAD %1\nGROUPS\n").arg(two)).run();
    EXPECT_EQ(full.exitStatus, 0);
    EXPECT_TRUE(full.rows().contains(text("GROUP1"))) << "from the good copy";
    EXPECT_EQ(timesNotStored(full.output), 1);
    EXPECT_EQ(toldAtStart(full.output).filter(text("damaged")).size(), 1);
    EXPECT_EQ(profile.files()[text("settings.db")], QByteArray("no database"));
    EXPECT_EQ(profile.keptAside(), QStringList());

    ASSERT_TRUE(disk.makeRoom());
    EXPECT_EQ(profile.toldBySession().filter(text("restored")).size(), 1);
    EXPECT_EQ(profile.listing(), profile.listedLine({one}));
    ASSERT_EQ(profile.keptAside().size(), 1);
    EXPECT_EQ(profile.files()[profile.keptAside()[0]], QByteArray("no database"));
}

TEST_F(FullDisk, WithAnyAmountOfRoomADamagedFileIsToldAndItsGoodCopyIsInForce)
{
    ASSERT_TRUE(load(one));
    StoredProfile::Files damaged = profile.files();
    damaged[text("settings.db")] = "no database";
    int replaced = 0;
    int stayed = 0;
    const int most = 80; // kilobytes, more than a repair needs
    const int step = std::max(4, most / wantedRounds(10) / 4 * 4);
    for (int room = 0; room <= most; room += step) {
        SCOPED_TRACE(std::to_string(room) + " kilobytes");
        ASSERT_TRUE(profile.putBack(damaged));
        ASSERT_TRUE(disk.fill(room));
        const ProgramResult result = profile.script(text("GROUPS\n")).run();
        const QStringList kept = profile.keptAside();
        ASSERT_TRUE(disk.makeRoom());
        EXPECT_EQ(result.exitStatus, 0) << result.diagnostics.toStdString();
        const QStringList told = toldAtStart(result.output);
        EXPECT_EQ(told.filter(text("is damaged")).size(), 1) << result.output.toStdString();
        EXPECT_EQ(told.filter(text("is kept as")).size(), kept.size());
        EXPECT_EQ(told.filter(text("The last good copy, made ")).size(), 1)
            << result.output.toStdString();
        EXPECT_TRUE(result.rows().contains(text("GROUP1"))) << "from the good copy";

        const QStringList next = profile.toldBySession();
        EXPECT_EQ(next.filter(text("restored")).size(), kept.isEmpty() ? 1 : 0)
            << next.join(text("\n")).toStdString();
        EXPECT_TRUE(kept.isEmpty() || next.isEmpty()) << next.join(text("\n")).toStdString();
        EXPECT_EQ(profile.listing(), profile.listedLine({one}));
        ASSERT_EQ(profile.keptAside().size(), 1);
        EXPECT_EQ(profile.files()[profile.keptAside()[0]], QByteArray("no database"));
        replaced += kept.isEmpty() ? 0 : 1;
        stayed += kept.isEmpty() ? 1 : 0;
    }
    EXPECT_GT(replaced, 0);
    EXPECT_GT(stayed, 0);
}

TEST_F(FullDisk, ADiskThatCannotBeWrittenIsReadAndLeftAsItWas)
{
    ASSERT_TRUE(load(one));
    const StoredProfile::Files before = profile.files();
    ASSERT_TRUE(disk.setReadOnly(true));
    const ProgramResult result =
        profile.script(text("MENULOAD %1\nMENUUNLOAD %2\nGROUPS\n").arg(two, one)).run();
    EXPECT_EQ(result.exitStatus, 0);
    EXPECT_EQ(toldAtStart(result.output).size(), 1) << result.output.toStdString();
    EXPECT_EQ(timesNotStored(result.output), 2) << "once for each command";
    EXPECT_TRUE(result.rows().contains(text("GROUP2"))) << "it is shown for this run";
    EXPECT_EQ(profile.listing(), profile.listedLine({one}));
    EXPECT_EQ(profile.files(), before);

    ASSERT_TRUE(disk.setReadOnly(false));
    EXPECT_EQ(profile.toldBySession(), QStringList());
    ASSERT_TRUE(load(two));
    EXPECT_EQ(profile.listing(), profile.listedLine({one, two}));
}
