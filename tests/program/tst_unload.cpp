// MENUUNLOAD and CUIUNLOAD through the whole program, by scripts.
#include "tests/support/programfolders.h"

#include <gtest/gtest.h>

#include <QFileInfo>
#include <QProcess>
#include <QRegularExpression>

namespace {

QString text(const char* utf8)
{
    return QString::fromUtf8(utf8);
}

struct UnloadByScript : testing::Test
{
    // The groups that the last GROUPS of a run listed.
    static QStringList groups(const ProgramResult& result)
    {
        const QStringList rows = result.rows();
        QStringList names;
        const QRegularExpression group(text("^([A-Z]+)  \\S"));
        for (int row = rows.lastIndexOf(text("Command: GROUPS")) + 1; row < rows.size(); ++row) {
            const QRegularExpressionMatch match = group.match(rows.at(row));
            if (match.hasMatch())
                names << match.captured(1);
        }
        return names;
    }

    static QString joined(const QStringList& entries) { return entries.join(QLatin1Char(';')); }

    ProgramFolders folders;
    const QString plant = ProgramFolders::example("plant");
    const QString survey = ProgramFolders::example("survey");
    const QString loadBoth = text("MENULOAD %1\nMENULOAD %2\n").arg(plant, survey);
};

} // namespace

TEST_F(UnloadByScript, RemovesAPackageAndItsGroup)
{
    const ProgramResult result =
        folders.script(loadBoth + text("MENUUNLOAD\n%1\nGROUPS\n").arg(plant)).run();
    EXPECT_EQ(result.exitStatus, 0);
    EXPECT_EQ(groups(result), (QStringList{text("QUELD"), text("SURVEY")}))
        << result.output.toStdString();
    EXPECT_EQ(result.diagnostics,
              text("MENULOAD\t5100\nMENULOAD\t5100\nMENUUNLOAD\t5100\nGROUPS\t5100\n"));
    EXPECT_EQ(folders.storedList(), joined({folders.mainFile(), survey}));
}

TEST_F(UnloadByScript, ThePackageStaysAwayAtTheNextStart)
{
    ASSERT_EQ(folders.script(loadBoth + text("MENUUNLOAD %1\n").arg(plant)).run().exitStatus, 0);
    const ProgramResult result = folders.script(text("GROUPS\n")).run();
    EXPECT_EQ(groups(result), (QStringList{text("QUELD"), text("SURVEY")}));
}

TEST_F(UnloadByScript, APackageCanBeLoadedAgain)
{
    const ProgramResult result =
        folders
            .script(loadBoth +
                    text("MENUUNLOAD %1\nMENULOAD %1\nGROUPS\nCUIUNLOAD %1\n").arg(plant))
            .run();
    EXPECT_EQ(groups(result), (QStringList{text("QUELD"), text("SURVEY"), text("PLANT")}));
    EXPECT_EQ(folders.storedList(), joined({folders.mainFile(), survey}));
    EXPECT_TRUE(result.diagnostics.endsWith(text("GROUPS\t5100\nCUIUNLOAD\t5100\n")));
}

TEST_F(UnloadByScript, TheMainFileStays)
{
    const QString elsewhere = folders.path(text("queld.cuix"));
    ASSERT_TRUE(QFile::copy(ProgramFolders::example("plant"), elsewhere));
    const ProgramResult result =
        folders
            .script(loadBoth + text("MENUUNLOAD\n%1\nMENUUNLOAD\n%2\nCUIUNLOAD\n%1\nGROUPS\n")
                                   .arg(folders.mainFile(), elsewhere))
            .run();
    EXPECT_EQ(groups(result), (QStringList{text("QUELD"), text("PLANT"), text("SURVEY")}))
        << result.output.toStdString();
    EXPECT_EQ(result.diagnostics,
              text("MENULOAD\t5100\nMENULOAD\t5100\nMENUUNLOAD\t0\nMENUUNLOAD\t0\nCUIUNLOAD\t5100\n"
                   "GROUPS\t5100\n"));
    EXPECT_EQ(folders.storedList(), joined({folders.mainFile(), plant, survey}));
}

TEST_F(UnloadByScript, TheSecondNameCompletesWhateverHappened)
{
    const ProgramResult result =
        folders.script(text("MENUUNLOAD\n^C\nCUIUNLOAD\n^C\nMENULOAD\n^C\nCUILOAD\n^C\n")).run();
    EXPECT_EQ(result.diagnostics,
              text("MENUUNLOAD\t-5002\nCUIUNLOAD\t5100\nMENULOAD\t-5002\nCUILOAD\t5100\n"));
    const ProgramResult ended = folders.script(text("CUIUNLOAD")).run();
    EXPECT_EQ(ended.exitStatus, 0);
    EXPECT_EQ(ended.diagnostics, text("CUIUNLOAD\t5100\n"));
}

TEST_F(UnloadByScript, TellsWhatCannotBeUnloaded)
{
    const QString notes = folders.file(text("notes.txt"), "x");
    for (const QString& answer : {text("/t/no.cuix"), notes, text("PLANT"), text("/t/50%d.cuix")}) {
        const ProgramResult result =
            folders.script(text("MENULOAD %1\nMENUUNLOAD %2\n").arg(plant, answer)).run();
        EXPECT_TRUE(result.rows().contains(text("\"") + answer + text("\" cannot be unloaded.")))
            << result.output.toStdString();
        EXPECT_TRUE(result.diagnostics.endsWith(text("MENUUNLOAD\t5100\n")));
        EXPECT_EQ(folders.storedList(), joined({folders.mainFile(), plant}));
    }
}

TEST_F(UnloadByScript, SpeaksGermanWhenAsked)
{
    const ProgramResult result =
        folders.script(text("MENUUNLOAD\n/t/no.cuix\n"), {text("--lang"), text("de_AT")}).run();
    EXPECT_TRUE(result.rows().contains(text("Name der zu entfernenden Menügruppe:/t/no.cuix")))
        << result.output.toStdString();
    EXPECT_TRUE(result.rows().contains(text("\"/t/no.cuix\" kann nicht entfernt werden.")))
        << result.output.toStdString();
}

TEST_F(UnloadByScript, SaysNothingAboutAPackageThatIsNotLoaded)
{
    const ProgramResult result = folders.script(text("MENUUNLOAD %1\nECHO on\n").arg(plant)).run();
    EXPECT_EQ(result.diagnostics, text("MENUUNLOAD\t5100\nECHO\t5100\n"));
    EXPECT_FALSE(result.output.contains(text("cannot")));
    EXPECT_EQ(folders.storedList(), folders.mainFile());
}

TEST_F(UnloadByScript, ADeletedPackageLeavesTheListWithTheNextOne)
{
    const QString copy = folders.copyOf("plant", text("copy.cuix"));
    ASSERT_EQ(folders.script(text("MENULOAD %1\nMENULOAD %2\n").arg(copy, survey)).run().exitStatus,
              0);
    ASSERT_TRUE(QFile::remove(copy));
    ASSERT_EQ(folders.script(text("MENUUNLOAD %1\n").arg(plant)).run().exitStatus, 0);
    EXPECT_EQ(folders.storedList(), joined({folders.mainFile(), copy, survey}));
    ASSERT_EQ(folders.script(text("MENUUNLOAD %1\n").arg(survey)).run().exitStatus, 0);
    EXPECT_EQ(folders.storedList(), folders.mainFile());
}

TEST_F(UnloadByScript, AnExplicitDialogWithoutADisplayIsOneLine)
{
    const ProgramResult result = folders.script(text("MENUUNLOAD\n~\nCUIUNLOAD\n~\n")).run();
    EXPECT_EQ(result.exitStatus, 0);
    EXPECT_EQ(result.output.count(text("There is no display, so the dialog cannot be shown.")), 2);
    EXPECT_EQ(result.diagnostics, text("MENUUNLOAD\t5100\nCUIUNLOAD\t5100\n"));
}

namespace {

// A folder whose files take no time to be synchronised, where there is such a place.
QString quickFolder()
{
    const QFileInfo memory(text("/dev/shm"));
    const bool usable = memory.isDir() && memory.isWritable();
    return (usable ? memory.filePath() : QDir::tempPath()) + text("/quelhost-XXXXXX");
}

// A running program that reads what the test writes.
class Holder
{
public:
    explicit Holder(const QString& profile)
    {
        m_process.start(text(QUELHOST_PROGRAM), {text("--profile"), profile, text("--var"),
                                                 text("FILEDIA=0"), text("--script"), text("-")});
    }
    ~Holder()
    {
        m_process.closeWriteChannel();
        if (!m_process.waitForFinished(30000))
            m_process.kill();
    }
    Holder(const Holder&) = delete;
    Holder& operator=(const Holder&) = delete;

    // Types the lines and returns all that they print; empty when the program hangs or ends.
    QString type(const QString& lines)
    {
        const QByteArray mark = "mark" + QByteArray::number(++m_marks);
        m_process.write(lines.toUtf8() + "ECHO " + mark + "\n");
        QByteArray said;
        while (!said.contains('\n' + mark + '\n')) {
            if (!m_process.waitForReadyRead(90000))
                return {};
            said += m_process.readAllStandardOutput();
        }
        return QString::fromUtf8(said);
    }

    [[nodiscard]] QStringList openFiles() const
    {
        const QDir descriptors(file("fd"));
        QStringList targets;
        for (const QString& name : descriptors.entryList(QDir::System | QDir::Files))
            targets << QFile::symLinkTarget(descriptors.filePath(name));
        targets.sort();
        return targets;
    }

    // Memory of the program's own, in KiB: without what it maps from files. 0 when unknown.
    [[nodiscard]] long ownMemory() const
    {
        QFile status(file("status"));
        if (!status.open(QIODevice::ReadOnly))
            return 0;
        const QRegularExpression row(text("RssAnon:\\s*(\\d+) kB"));
        return row.match(QString::fromUtf8(status.readAll())).captured(1).toLong();
    }

private:
    [[nodiscard]] QString file(const char* name) const
    {
        return text("/proc/%1/%2").arg(m_process.processId()).arg(text(name));
    }

    QProcess m_process;
    int m_marks = 0;
};

} // namespace

TEST(UnloadingRounds, LeaveMemoryAndOpenFilesAsTheyWere)
{
    const QTemporaryDir folder(quickFolder());
    Holder holder(folder.filePath(text("profile")));
    const QString round =
        text("MENULOAD %1\nMENUUNLOAD %1\n").arg(ProgramFolders::example("plant"));
    const QString success = text("success.group:PLANT\n");
    ASSERT_EQ(holder.type(round.repeated(100)).count(success), 100);
    const QStringList filesBefore = holder.openFiles();
    const long memoryBefore = holder.ownMemory();
    EXPECT_GE(filesBefore.size(), 3);
    EXPECT_GT(memoryBefore, 0);

    const QString said = holder.type(round.repeated(1000));
    EXPECT_EQ(said.count(success), 1000);
    EXPECT_EQ(said.count(text("already loaded")), 0);
    EXPECT_EQ(holder.openFiles(), filesBefore);
#if !defined(__SANITIZE_ADDRESS__) && !defined(__SANITIZE_THREAD__)
    // Less than a quarter of a kilobyte for each round. The sanitizers keep freed memory.
    EXPECT_LT(holder.ownMemory(), memoryBefore + 250);
#endif
    const QString listed = holder.type(text("SETTINGS CUIX/LoadedCuix\nGROUPS\n"));
    EXPECT_FALSE(listed.contains(text("plant.cuix"))) << listed.toStdString();
    EXPECT_TRUE(listed.contains(text("QUELD.cuix"))) << listed.toStdString();
}
