// Settings files with changed bytes or cut off, wherever it happened: what is read is what was
// stored, or the last good copy, and then it is told and the damaged file kept.
#include "refhost/core/settingsfiles.h"
#include "refhost/core/settingsstore.h"
#include "tests/core/damagedprofile.h"
#include "tests/support/testrounds.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <string>
#include <vector>

using namespace quelhost;
using namespace quelhost::test;

namespace {

using Items = std::vector<std::string>;

// A cleanly ended profile whose good copy is one value behind its settings file.
class ChangedProfile
{
public:
    explicit ChangedProfile(int items)
        : m_made(fillProfile(m_model.path(), items))
    {
        m_good = bytesOf(goodCopyFile(m_model.path()));
        m_goodItems = readItems();
        const auto store = openStore(m_model.path());
        m_made = m_made && store && store->write(Item::string(4, L"K", L"stored")) &&
                 store->close() && m_good != bytesOf(goodCopyFile(m_model.path()));
        m_sound = bytesOf(settingsFile(m_model.path()));
        m_items = readItems();
    }

    [[nodiscard]] bool isMade() const { return m_made && m_items != m_goodItems; }
    [[nodiscard]] const QByteArray& sound() const { return m_sound; }
    [[nodiscard]] const Items& items() const { return m_items; }
    [[nodiscard]] const Items& goodItems() const { return m_goodItems; }

    // Opens a profile whose settings file holds these bytes. What came of it: "stored" when all
    // is read as it was stored and nothing told; "good copy" when the last good copy is in force,
    // the bytes are kept and that is told; else what was wrong.
    [[nodiscard]] std::string opened(const QByteArray& bytes) const
    {
        const ScratchFolder profile;
        if (!setBytes(settingsFile(profile.path()), bytes) ||
            !setBytes(goodCopyFile(profile.path()), m_good))
            return "not prepared";
        const auto store = openStore(profile.path());
        if (!store)
            return "not opened";
        const QStringList kept = keptAsideFiles(profile.path());
        const Items items = itemsIn(*store);
        if (items == m_items && store->notices().empty() && kept.isEmpty())
            return "stored";
        if (items != m_goodItems)
            return items == m_items ? "told although nothing was wrong" : "other values";
        if (kept.size() != 1 || bytesOf(profile.path() + QLatin1Char('/') + kept[0]) != bytes)
            return "the damaged file is not kept";
        const std::vector<QString>& told = store->notices();
        const bool all = told.size() == 3 && told[0].contains(settingsFile(profile.path())) &&
                         told[1].contains(kept[0]) && told[2].contains(QStringLiteral("restored"));
        return all ? "good copy" : "not told in its three sentences";
    }

private:
    [[nodiscard]] Items readItems() const
    {
        const auto store = openStore(m_model.path(), SettingsAccess::ReadOnly);
        return store ? itemsIn(*store) : Items{"not opened"};
    }

    const ScratchFolder m_model;
    bool m_made;
    QByteArray m_good;
    QByteArray m_sound;
    Items m_goodItems;
    Items m_items;
};

// Lengths from 0 to below `size`: all, or about so many of them, evenly spread.
std::vector<int> lengthsBelow(int size, int most)
{
    const int step = std::max(1, size / std::max(1, most));
    std::vector<int> lengths;
    for (int length = 0; length < size; length += step)
        lengths.push_back(length);
    return lengths;
}

// Fills a profile and lets killed hosts write to its log. What of "last" was acknowledged, the
// first state before any of it; fewer than all of them when that failed.
Items writtenInLog(const QString& folder)
{
    Items states;
    if (fillProfile(folder, 8))
        states.push_back("nothing");
    for (const wchar_t* state : {L"first", L"second", L"third"}) {
        if (leaveByKill(folder, state))
            states.push_back(told(Item::string(4, L"last", state)));
    }
    return states;
}

} // namespace

TEST(SettingsChanged, NoChangedBytesEverMakeAnotherValue)
{
    const ChangedProfile profile(60);
    ASSERT_TRUE(profile.isMade());
    ASSERT_EQ(profile.opened(profile.sound()), "stored");
    const unsigned int seed = wantedSeed();
    SCOPED_TRACE("seed " + std::to_string(seed));
    std::mt19937 random(seed);
    const auto size = static_cast<unsigned int>(profile.sound().size());
    int restored = 0;
    const int rounds = wantedRounds(400);
    for (int round = 0; round < rounds; ++round) {
        SCOPED_TRACE("round " + std::to_string(round));
        QByteArray bytes = profile.sound();
        for (auto change = random() % 3; change < 3; ++change) {
            const int place = static_cast<int>(random() % size);
            const auto bits = random() % 2 == 0 ? 1UL << random() % 8 : 1 + random() % 255;
            bytes[place] = static_cast<char>(static_cast<unsigned char>(bytes[place]) ^ bits);
        }
        const std::string came = profile.opened(bytes);
        EXPECT_TRUE(came == "stored" || came == "good copy") << came;
        restored += came == "good copy" ? 1 : 0;
    }
    RecordProperty("restored", restored);
    EXPECT_GT(restored, rounds / 2) << "most places hold values";
}

TEST(SettingsChanged, AFileThatIsCutAtAnyLengthIsReplacedByTheGoodCopy)
{
    const ChangedProfile profile(8);
    ASSERT_TRUE(profile.isMade());
    const QByteArray& sound = profile.sound();
    for (const int length : lengthsBelow(sound.size(), wantedRounds(400))) {
        SCOPED_TRACE("cut after " + std::to_string(length) + " bytes");
        EXPECT_EQ(profile.opened(sound.left(length)), "good copy");
    }
}

// A log has no more in it than its last whole write: one that is cut brings back an earlier state,
// as it was acknowledged then, and never a mixture.
TEST(SettingsChanged, ALogThatIsCutAtAnyLengthEndsWithAWholeWrite)
{
    const ScratchFolder model;
    const Items states = writtenInLog(model.path());
    ASSERT_EQ(states.size(), 4U);
    const QString file = settingsFile(model.path());
    const QByteArray log = bytesOf(file + QStringLiteral("-wal"));
    ASSERT_GT(log.size(), 3 * 4096);
    for (const bool withIndex : {false, true}) {
        SCOPED_TRACE(withIndex ? "beside its index" : "alone");
        auto reached = states.cbegin();
        for (const int length : lengthsBelow(log.size() + 1, wantedRounds(150))) {
            SCOPED_TRACE("cut after " + std::to_string(length) + " bytes");
            const ScratchFolder profile;
            const QString cut = settingsFile(profile.path());
            ASSERT_TRUE(copyFile(file, cut));
            ASSERT_TRUE(setBytes(cut + QStringLiteral("-wal"), log.left(length)));
            ASSERT_TRUE(!withIndex ||
                        copyFile(file + QStringLiteral("-shm"), cut + QStringLiteral("-shm")));
            const auto store = openStore(profile.path());
            ASSERT_TRUE(store);
            const auto state = std::find(reached, states.cend(), valueIn(*store, L"last"));
            ASSERT_NE(state, states.cend()) << valueIn(*store, L"last");
            reached = state;
            EXPECT_EQ(itemsIn(*store).size(), state == states.cbegin() ? 9U : 10U);
            EXPECT_TRUE(store->notices().empty());
            EXPECT_EQ(told(store->write(Item::string(4, L"last", L"later"))), "done");
        }
        EXPECT_GE(reached, states.cend() - 2) << "the longest cut takes at most the last write";
    }
}

TEST(SettingsChanged, NoChangedBytesOfALogEverMakeAnotherValue)
{
    const ScratchFolder model;
    const Items states = writtenInLog(model.path());
    ASSERT_EQ(states.size(), 4U);
    const QString file = settingsFile(model.path());
    const QByteArray log = bytesOf(file + QStringLiteral("-wal"));
    const unsigned int seed = wantedSeed();
    SCOPED_TRACE("seed " + std::to_string(seed));
    std::mt19937 random(seed);
    int changed = 0;
    for (int round = 0; round < wantedRounds(150); ++round) {
        SCOPED_TRACE("round " + std::to_string(round));
        QByteArray bytes = log;
        const int place = static_cast<int>(random() % static_cast<unsigned int>(log.size()));
        bytes[place] =
            static_cast<char>(static_cast<unsigned char>(bytes[place]) ^ (1 + random() % 255));
        const ScratchFolder profile;
        ASSERT_TRUE(copyFile(file, settingsFile(profile.path())));
        ASSERT_TRUE(setBytes(settingsFile(profile.path()) + QStringLiteral("-wal"), bytes));
        const auto store = openStore(profile.path());
        ASSERT_TRUE(store);
        const std::string value = valueIn(*store, L"last");
        EXPECT_NE(std::find(states.begin(), states.end(), value), states.end()) << value;
        EXPECT_EQ(itemsIn(*store).size(), value == "nothing" ? 9U : 10U);
        EXPECT_TRUE(store->notices().empty());
        changed += value != states.back() ? 1 : 0;
    }
    EXPECT_GT(changed, 0);
}
