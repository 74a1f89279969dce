// The whole program with a script of one MENULOAD, beside the smallest program that has the
// toolkit's application object. Both without a display.
//
// What a run stores is on disk before it goes on, so it waits for the disk several times; with its
// profile in memory it does not, and what the program itself takes can be seen.
#include "bench/support/diskfolder.h"
#include "bench/support/processtime.h"
#include "bench/support/ratios.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <cstdio>

namespace {

// A profile that the program has made, as it stands before the run that is measured.
class Profile
{
public:
    explicit Profile(const QString& folderTemplate)
        : m_folder(folderTemplate)
    {}

    [[nodiscard]] bool isInMemory() const { return ratios::isInMemory(m_folder.path()); }

    [[nodiscard]] bool make()
    {
        QFile script(m_folder.filePath(QStringLiteral("load.scr")));
        return script.open(QIODevice::WriteOnly) &&
               script.write("MENULOAD \"" QUEL_PACKAGE "\"\n") > 0 && script.flush() &&
               ratios::runQuietly(QStringLiteral(QUELHOST_PROGRAM),
                                  {QStringLiteral("--profile"), path(), QStringLiteral("--script"),
                                   QStringLiteral("/dev/null")}) == 0 &&
               keep() && scriptLoads() && restore();
    }

    [[nodiscard]] QStringList arguments() const
    {
        return {QStringLiteral("--profile"), path(), QStringLiteral("--script"),
                m_folder.filePath(QStringLiteral("load.scr"))};
    }

    // Puts the files back that were there when it was made.
    [[nodiscard]] bool restore() const
    {
        return QDir(path()).removeRecursively() && copied(kept(), path());
    }

private:
    [[nodiscard]] QString path() const { return m_folder.filePath(QStringLiteral("profile")); }
    [[nodiscard]] QString kept() const { return m_folder.filePath(QStringLiteral("kept")); }
    [[nodiscard]] bool keep() const { return copied(path(), kept()); }

    // A script that fails ends as well as one that loads; only the list tells.
    [[nodiscard]] bool scriptLoads() const
    {
        const QString program = QStringLiteral(QUELHOST_PROGRAM);
        return ratios::runQuietly(program, arguments()) == 0 &&
               ratios::outputOf(program, {QStringLiteral("--profile"), path(),
                                          QStringLiteral("--list-settings")})
                   .contains(";" QUEL_PACKAGE "\n");
    }

    static bool copied(const QString& from, const QString& to)
    {
        if (!QDir().mkpath(to))
            return false;
        bool all = true;
        for (const QString& name : QDir(from).entryList(QDir::Files | QDir::Hidden)) {
            all = all && QFile::copy(from + QLatin1Char('/') + name, to + QLatin1Char('/') + name);
        }
        return all;
    }

    QTemporaryDir m_folder;
};

ratios::Comparison oneLoad(const char* name, const Profile& profile)
{
    const auto arguments = [&profile] {
        return profile.restore() ? profile.arguments() : QStringList(QStringLiteral("--wrong"));
    };
    return {name,
            ratios::process(QStringLiteral(QUELHOST_PROGRAM), arguments),
            "the smallest program of the toolkit",
            ratios::process(QStringLiteral(QUEL_BARE_APPLICATION), [] { return QStringList(); }),
            0.5,
            ratios::Clock::ByHand,
            20};
}

} // namespace

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    Profile onDisk(ratios::diskFolderTemplate());
    Profile inMemory(QStringLiteral("/dev/shm/quelhost-bench-XXXXXX"));
    if (!onDisk.make() || !inMemory.make()) {
        std::fputs("The profiles could not be made.\n", stderr);
        return 1;
    }
    ratios::Comparison disk = oneLoad("scriptOnDisk", onDisk);
    if (onDisk.isInMemory())
        disk.work = [](benchmark::State& state) { state.SkipWithError(ratios::kInMemory); };
    return ratios::run(argc, argv, {disk, oneLoad("scriptInMemory", inMemory)});
}
