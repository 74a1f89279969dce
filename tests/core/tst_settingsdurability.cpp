// What is on disk when: acknowledged writes, failed writes, ends in the middle.
#include "refhost/core/settingsconnection.h"
#include "refhost/core/settingsdatabase.h"
#include "refhost/core/settingsfiles.h"
#include "refhost/core/settingsstore.h"
#include "tests/core/childprocess.h"
#include "tests/core/faultyvfs.h"
#include "tests/core/settingssupport.h"

#include <gtest/gtest.h>

#include <QElapsedTimer>

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <limits>
#include <string>
#include <vector>

#include <sqlite3.h>
#include <unistd.h>

using namespace quelhost;
using namespace quelhost::test;

namespace {

// Long enough to need several pages of the file.
std::wstring longText(wchar_t letter)
{
    return std::wstring(5000, letter);
}

std::string shortOf(const std::string& told)
{
    const std::string start = "string ";
    const bool uniform =
        told.size() > start.size() &&
        told.find_first_not_of(told[start.size()], start.size()) == std::string::npos;
    return uniform ? told.substr(0, start.size() + 1) + " times " +
                         std::to_string(told.size() - start.size())
                   : told;
}

// What a machine that lost power now would find: the file and its log without the log's index.
// A process of its own reads them, since closing them in this one would drop the store's locks.
std::string afterPowerLoss(const QString& folder)
{
    const ScratchFolder other;
    const auto copyAndRead = [&]() -> std::string {
        for (const char* suffix : {"", "-wal"}) {
            const QString name = QStringLiteral("/settings.db") + QString::fromLatin1(suffix);
            if (presenceOf(folder + name) == FilePresence::Present &&
                !copyFile(folder + name, other.path() + name))
                return "not copied";
        }
        const auto store = openStore(other.path());
        return store && store->notices().empty() ? shortOf(valueIn(*store, L"K")) : "not opened";
    };
    return runInChild(copyAndRead).output;
}

} // namespace

TEST(SettingsDurability, AnAcknowledgedWriteIsSynchronised)
{
    const ScratchFolder profile;
    const FaultyVfs vfs;
    const auto store = openStore(profile.path());
    ASSERT_TRUE(store);
    for (int number = 0; number < 5; ++number) {
        const int syncsBefore = vfs.logSyncs();
        ASSERT_EQ(told(store->write(Item::integer(4, L"K", number))), "done");
        EXPECT_GT(vfs.logSyncs(), syncsBefore);
        EXPECT_EQ(vfs.unsyncedLogWrites(), 0);
        EXPECT_EQ(afterPowerLoss(profile.path()), "integer " + std::to_string(number));
    }
}

// Every single call of a write to the system is refused once, until a write gets by unrefused.
TEST(SettingsDurability, WhereverAWriteFailsTheFormerValueStaysInForce)
{
    for (const WriteFailure& failure : writeFailures()) {
        SCOPED_TRACE(failure.name);
        int faults = 0;
        for (int call = 1;; ++call) {
            SCOPED_TRACE("call " + std::to_string(call));
            const ScratchFolder profile;
            FaultyVfs vfs;
            auto store = openStore(profile.path());
            ASSERT_TRUE(store);
            ASSERT_EQ(told(store->write(Item::string(4, L"K", longText(L'o')))), "done");

            vfs.refuse(call, failure.code, failure.refusal);
            const Status written = store->write(Item::string(4, L"K", longText(L'n')));
            const int refused = vfs.refused();
            const std::string inForce = written ? "string n times 5000" : "string o times 5000";
            EXPECT_EQ(shortOf(valueIn(*store, L"K")), inForce);
            vfs.carryOutAll();
            EXPECT_EQ(shortOf(valueIn(*store, L"K")), inForce);
            EXPECT_EQ(afterPowerLoss(profile.path()), inForce);
            faults += written ? 0 : 1;
            ASSERT_EQ(refused > 0, !written) << "a refused call and a fault go together";

            EXPECT_EQ(told(store->write(Item::string(4, L"K", longText(L'x')))), "done");
            EXPECT_EQ(told(store->close()), "done");
            store = openStore(profile.path());
            ASSERT_TRUE(store);
            EXPECT_EQ(shortOf(valueIn(*store, L"K")), "string x times 5000");
            EXPECT_TRUE(store->notices().empty());
            store = nullptr;
            if (refused == 0)
                break;
        }
        EXPECT_GE(faults, 3);
    }
}

TEST(SettingsDurability, AFileThatMayNotGrowKeepsTheFormerValueUntilItMay)
{
    for (const unsigned long long room : {0ULL, 1ULL, 100ULL, 4096ULL, 8300ULL, 16000ULL}) {
        SCOPED_TRACE(room);
        const ScratchFolder profile;
        const ChildEnd end = runInChild([&]() -> std::string {
            const auto store = openStore(profile.path());
            std::string output = told(store->write(Item::string(4, L"K", L"old")));
            const auto size =
                static_cast<unsigned long long>(bytesOf(profile.file("settings.db-wal")).size());
            if (!limitFileSize(size + room))
                return "no limit";
            output += ", " + told(store->write(Item::string(4, L"K", longText(L'n'))));
            output += ", " + valueIn(*store, L"K");
            if (!liftFileSizeLimit())
                return "limit stays";
            output += ", " + valueIn(*store, L"K");
            output += ", " + told(store->write(Item::string(4, L"K", L"new")));
            return output + ", " + valueIn(*store, L"K");
        });
        EXPECT_EQ(end.output, "done, Io, string old, string old, done, string new");
        const auto store = openStore(profile.path());
        ASSERT_TRUE(store);
        EXPECT_EQ(valueIn(*store, L"K"), "string new");
    }
}

TEST(SettingsDurability, AProcessEndedAfterAFailedWriteLeavesTheFormerValue)
{
    const ScratchFolder profile;
    const ChildEnd end = runInChild([&]() -> std::string {
        const auto store = openStore(profile.path());
        const bool stored = told(store->write(Item::string(4, L"K", L"old"))) == "done";
        const auto size =
            static_cast<unsigned long long>(bytesOf(profile.file("settings.db-wal")).size());
        if (!stored || !limitFileSize(size + 9000))
            return "not prepared";
        const bool refused = !store->write(Item::string(4, L"K", longText(L'n')));
        static_cast<void>(::raise(refused ? SIGKILL : SIGTERM));
        return "still there";
    });
    ASSERT_EQ(end.signal, SIGKILL);
    const auto store = openStore(profile.path());
    ASSERT_TRUE(store);
    EXPECT_EQ(valueIn(*store, L"K"), "string old");
    EXPECT_TRUE(store->notices().empty());
}

// The library tells it in one way when it writes, and in another when it opens.
TEST(SettingsDurability, AFullDiskIsCalledThatHoweverItIsFound)
{
    const SettingsTrouble writing = troubleOf(SQLITE_FULL, 0);
    for (const int error : {ENOSPC, EDQUOT}) {
        const SettingsTrouble opening = troubleOf(SQLITE_CANTOPEN, error);
        EXPECT_EQ(nameOf(opening.kind), "Io");
        EXPECT_EQ(opening.reason, writing.reason);
    }
}

// The disk is full when the program starts, and somebody makes room while it runs.
TEST(SettingsDurability, AStoreOpenedOnAFullDiskReadsAndTakesWritesLater)
{
    struct Row
    {
        const char* name;
        bool profileHasSettings;
        const char* whileFull;
    };
    for (const Row& row :
         {Row{"settings from before", true, "string old"}, Row{"new profile", false, "nothing"}}) {
        SCOPED_TRACE(row.name);
        const ScratchFolder profile;
        if (row.profileHasSettings) {
            const auto store = openStore(profile.path());
            ASSERT_TRUE(store);
            ASSERT_EQ(told(store->write(Item::string(4, L"K", L"old"))), "done");
            ASSERT_EQ(told(store->close()), "done");
        }
        const ChildEnd end = runInChild([&]() -> std::string {
            if (!limitFileSize(0))
                return "no limit";
            const auto store = openStore(profile.path());
            if (!store)
                return "not opened";
            std::string output = store->writable() ? "writable" : "not writable";
            output += store->notices().empty() ? ", silent, " : ", told, ";
            output += valueIn(*store, L"K") + ", ";
            output += told(store->write(Item::string(4, L"K", L"too early"))) + ", ";
            if (!liftFileSizeLimit())
                return "limit stays";
            output += told(store->write(Item::string(4, L"K", L"new"))) + ", ";
            output += store->writable() ? "writable, " : "not writable, ";
            output += valueIn(*store, L"K") + ", ";
            return output + told(store->close());
        });
        EXPECT_EQ(end.output, std::string("not writable, told, ") + row.whileFull +
                                  ", Io, done, writable, string new, done");
        const auto store = openStore(profile.path());
        ASSERT_TRUE(store);
        EXPECT_EQ(valueIn(*store, L"K"), "string new");
    }
}

TEST(SettingsDurability, AGoodCopyThatCannotBeFinishedLeavesTheFormerOne)
{
    const ScratchFolder profile;
    const QString good = goodCopyFile(profile.path());
    auto store = openStore(profile.path());
    ASSERT_TRUE(store);
    ASSERT_EQ(told(store->write(Item::string(4, L"K", longText(L'o')))), "done");
    ASSERT_EQ(told(store->close()), "done");
    store = nullptr;
    const QByteArray before = bytesOf(good);
    const ChildEnd end = runInChild([&]() -> std::string {
        const auto opened = openStore(profile.path());
        const bool stored = told(opened->write(Item::string(4, L"K", longText(L'n')))) == "done";
        if (!stored || !limitFileSize(8192))
            return "not prepared";
        const Status kept = opened->keepGoodCopy();
        return told(kept) + ", " + (kept ? "" : kept.fault().sentence.toStdString());
    });
    EXPECT_EQ(end.output.substr(0, 4), "Io, ");
    EXPECT_NE(end.output.find("settings.new.db"), std::string::npos) << end.output;
    EXPECT_EQ(bytesOf(good), before);
    EXPECT_EQ(presenceOf(newCopyFile(profile.path())), FilePresence::Absent);
}

// A host is killed at arbitrary moments of a run of writes.
TEST(SettingsDurability, EveryAcknowledgedWriteOutlivesAKill)
{
    for (const int acknowledgements : {1, 7, 40, 150}) {
        SCOPED_TRACE(acknowledgements);
        const ScratchFolder profile;
        ChildProcess writer([&](int output) {
            const auto store = openStore(profile.path());
            for (int number = 0; store; ++number) {
                const std::wstring text(static_cast<std::size_t>(number * 13 % 3000), L't');
                const bool stored =
                    static_cast<bool>(
                        store->write(Item::integer(4, L"N" + std::to_wstring(number), number))) &&
                    static_cast<bool>(store->write(Item::string(4, L"Text", text)));
                writeAll(output, stored ? std::to_string(number) + "\n" : "fault\n");
            }
        });
        std::string last;
        for (int line = 0; line < acknowledgements; ++line)
            last = writer.readLine();
        writer.kill();
        const ChildEnd end = writer.wait();
        ASSERT_EQ(end.signal, SIGKILL);
        ASSERT_EQ(end.output.find("fault"), std::string::npos);
        ASSERT_EQ(last, std::to_string(acknowledgements - 1));

        const std::size_t newline = end.output.rfind('\n');
        const int known = newline == std::string::npos
                              ? acknowledgements - 1
                              : std::stoi(end.output.substr(
                                    newline == 0 ? 0 : end.output.rfind('\n', newline - 1) + 1));
        const auto store = openStore(profile.path());
        ASSERT_TRUE(store);
        EXPECT_TRUE(store->notices().empty());
        for (int number = 0; number <= known; ++number) {
            EXPECT_EQ(valueIn(*store, (L"N" + std::to_wstring(number)).c_str()),
                      "integer " + std::to_string(number));
        }
        const auto text = store->read(4, L"Text");
        ASSERT_TRUE(text && text.value());
        const auto length = static_cast<int>(text.value()->text.size());
        EXPECT_TRUE(length == known * 13 % 3000 || length == (known + 1) * 13 % 3000) << length;
    }
}

namespace {

enum class BeforeEachStart { Nothing, Damage };

// Starts and ends on a profile again and again, and says after each end how many microseconds that
// took.
void startAndEnd(const QString& folder, BeforeEachStart before, int output)
{
    writeAll(output, "begins\n");
    for (;;) {
        QElapsedTimer timer;
        timer.start();
        if (before == BeforeEachStart::Damage && !setBytes(settingsFile(folder), "no database"))
            return;
        const auto store = openStore(folder);
        static_cast<void>(store->close());
        writeAll(output, std::to_string(timer.nsecsElapsed() / 1000) + "\n");
    }
}

// How long the first start and end of a process take on such a profile, in microseconds, where
// nothing else holds them up. 0 when they failed.
qint64 timeToStartAndEnd(BeforeEachStart before)
{
    qint64 least = std::numeric_limits<qint64>::max();
    for (int times = 0; times < 3; ++times) {
        const ScratchFolder profile;
        if (!leaveByKill(profile.path(), L"kept") || !openStore(profile.path())->close())
            return 0;
        ChildProcess child([&](int output) { startAndEnd(profile.path(), before, output); });
        static_cast<void>(child.readLine());
        least = std::min(least, QString::fromStdString(child.readLine()).toLongLong());
    }
    return least;
}

} // namespace

// Kills in the middle of starts and ends, where files are copied and renamed.
TEST(SettingsDurability, StartsEndsAndRepairsMayBeKilledAtAnyMoment)
{
    struct Row
    {
        const char* name;
        BeforeEachStart before;
    };
    for (const Row& row : {Row{"sound file", BeforeEachStart::Nothing},
                           Row{"damaged file", BeforeEachStart::Damage}}) {
        SCOPED_TRACE(row.name);
        qint64 once = timeToStartAndEnd(row.before);
        ASSERT_GT(once, 0);
        const ScratchFolder profile;
        ASSERT_TRUE(leaveByKill(profile.path(), L"kept"));
        ASSERT_EQ(told(openStore(profile.path())->close()), "done");
        constexpr int kKills = 100;
        int ends = 0;
        for (int kill = 0; kill < kKills; ++kill) {
            const qint64 moment = 2 * once * kill / kKills;
            SCOPED_TRACE(std::to_string(moment) + " us");
            ChildProcess child(
                [&](int output) { startAndEnd(profile.path(), row.before, output); });
            ASSERT_EQ(child.readLine(), "begins");
            ::usleep(static_cast<useconds_t>(moment));
            child.kill();
            const ChildEnd end = child.wait();
            ASSERT_EQ(end.signal, SIGKILL);
            ends += end.output.empty() ? 0 : 1;
            if (end.output.empty())
                once = std::max(once, moment); // the machine has more to do by now
            const auto good = SettingsDatabase::openForReading(goodCopyFile(profile.path()));
            ASSERT_TRUE(good);
            EXPECT_EQ(told(good.value()->read(4, L"last")), "string kept");
        }
        // Some kills came late enough for everything to have been done once.
        EXPECT_GT(ends, 0);
        const std::vector<std::string> names = profile.names();
        const bool wasKeptAside = std::any_of(names.begin(), names.end(), [](const auto& name) {
            return name.find("damaged") != std::string::npos;
        });
        EXPECT_EQ(wasKeptAside, row.before == BeforeEachStart::Damage);
        auto store = openStore(profile.path());
        ASSERT_TRUE(store);
        EXPECT_EQ(valueIn(*store, L"last"), "string kept");
        EXPECT_TRUE(row.before == BeforeEachStart::Damage || store->notices().empty());
        EXPECT_EQ(told(store->close()), "done");
        store = openStore(profile.path());
        ASSERT_TRUE(store);
        EXPECT_TRUE(store->notices().empty());
        RecordProperty(row.name, std::to_string(once) + " us, " + std::to_string(ends) + " ends");
    }
}
