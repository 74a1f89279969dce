// The whole program under the lines of a person in a hurry: each command ends as the model says,
// and list and groups are the model's after each batch.
#include "refhost/core/widetext.h"
#include "tests/hurry/runningprogram.h"
#include "tests/hurry/world.h"
#include "tests/support/testrounds.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <memory>

using namespace hurry;
using quelhost::toUtf8;

namespace {

QString text(const char* utf8)
{
    return QString::fromUtf8(utf8);
}

// What GROUPS lists: groups with their files, and files whose groups are not shown.
struct Listed
{
    std::string groups;
    std::string others;
};

// A row without what stands in brackets behind its path.
std::string withoutMarks(const QByteArray& row)
{
    return row.left(row.endsWith(')') ? row.lastIndexOf("  (") : row.size())
        .trimmed()
        .toStdString();
}

Listed listedIn(const QByteArray& said)
{
    const QByteArray head = "Command: GROUPS\n";
    const int begin = said.indexOf(head) + head.size();
    const QByteArray rows = said.mid(begin, said.indexOf("Command: SETTINGS", begin) - begin);
    Listed listed;
    bool isShown = true;
    QByteArray group;
    for (const QByteArray& row : rows.split('\n')) {
        if (!row.startsWith("    ")) {
            group = row.split(' ').front();
            isShown = !row.startsWith("Listed, but not shown:");
        } else if (!isShown) {
            listed.others += withoutMarks(row) + '\n';
        } else if (row.startsWith("    file      ")) {
            listed.groups += group.toStdString() + " of " + withoutMarks(row.mid(14)) + '\n';
        }
    }
    return listed;
}

Listed expectedOf(const ListModel& model)
{
    Listed listed;
    for (const ListModel::Shown& shown : model.shown())
        listed.groups += toUtf8(shown.group + L" of " + shown.path) + '\n';
    for (const std::wstring& path : model.notShown())
        listed.others += toUtf8(path) + '\n';
    return listed;
}

class HurriedScript : public testing::TestWithParam<Typist>
{
protected:
    void start()
    {
        QStringList arguments{
            text("--profile"), world.profile(), text("--lang"),         text("en"),
            text("--script"),  text("-"),       text("--report-status")};
        if (GetParam() == Typist::Person)
            arguments << text("--interactive-input");
        program = std::make_unique<RunningProgram>(arguments, world.workFolder());
        program->write("ECHO begun\n");
        ASSERT_FALSE(program->readUntil("\nbegun\n").isEmpty()) << world.story();
        static_cast<void>(program->takeDiagnostics(1));
        ASSERT_EQ(world.restart(world.storedList()), "") << world.story();
    }

    // Types some lines at once; returns how many. The last lets the program end, if it is to.
    std::size_t typeBatch(std::size_t most, Avoid avoid = Avoid::Nothing)
    {
        QByteArray bytes;
        std::size_t lines = 0;
        while (lines < most && !world.model.hasEnded()) {
            bytes += QByteArray::fromStdString(world.nextLine(avoid)) + '\n';
            ++lines;
        }
        program->write(bytes);
        return lines;
    }

    // What is had once and then stays: the toolkit brings all the libraries that may hold parts of
    // dialogs when it builds the first one, shown or not, and a line as long as any leaves its
    // room behind.
    void haveEverythingOnce()
    {
        const QByteArray line = "ECHO " + QByteArray(200000, 'x');
        for (const QByteArray& typed :
             {QByteArray("^C"), QByteArray("MENULOAD ~"), QByteArray("MENUUNLOAD ~"), line}) {
            world.feed(typed.toStdString());
            program->write(typed + '\n');
        }
    }

    // Cancels what is asked and lets everything be listed.
    [[nodiscard]] QByteArray list()
    {
        const QByteArray mark = "mark" + QByteArray::number(++m_marks);
        for (const QByteArray& line : {QByteArray("^C"), QByteArray("GROUPS"),
                                       QByteArray("SETTINGS CUIX/LoadedCuix"), "ECHO " + mark}) {
            world.feed(line.toStdString());
            program->write(line + '\n');
        }
        return program->readUntil('\n' + mark + '\n');
    }

    // What commands ended with: the program's, up to those of the model.
    void expectStatuses()
    {
        const std::vector<std::string> expected = world.model.takeStatuses();
        const std::vector<std::string> got = program->takeDiagnostics(expected.size());
        const auto [left, right] =
            std::mismatch(expected.begin(), expected.end(), got.begin(), got.end());
        ASSERT_TRUE(left == expected.end() && right == got.end())
            << "status " << left - expected.begin() << " of " << expected.size() << " and "
            << got.size() << ": expected " << (left == expected.end() ? "none" : *left) << ", got "
            << (right == got.end() ? "none" : *right) << "; " << world.story();
    }

    void expectListed(const QByteArray& said)
    {
        ASSERT_FALSE(said.isEmpty()) << "no answer: " << program->end() << "; " << world.story();
        ASSERT_NO_FATAL_FAILURE(expectStatuses());
        const ListModel& model = world.model.list();
        const int settings = said.lastIndexOf("Command: SETTINGS");
        ASSERT_EQ(toUtf8(listIn(said.mid(settings))), toUtf8(model.text())) << world.story();
        const Listed listed = listedIn(said.mid(said.lastIndexOf("Command: GROUPS")));
        ASSERT_EQ(listed.groups, expectedOf(model).groups) << world.story();
        ASSERT_EQ(listed.others, expectedOf(model).others) << world.story();
    }

    World world{GetParam()};
    std::unique_ptr<RunningProgram> program;

private:
    int m_marks = 0;
};

} // namespace

TEST_P(HurriedScript, EndsEachCommandAndKeepsTheListAsItMust)
{
    constexpr std::size_t kMostAtOnce = 60;
    constexpr std::size_t kBetweenListings = 500;
    const std::size_t all = wantedRounds(1000);
    std::size_t typed = 0;
    std::size_t listedAt = 0;
    while (typed < all) {
        if (!program) {
            ASSERT_NO_FATAL_FAILURE(start());
            ASSERT_NO_FATAL_FAILURE(expectListed(list()));
        }
        world.changeFiles();
        typed += typeBatch(std::min(all - typed, 1 + world.random.below(kMostAtOnce)));
        if (world.model.hasEnded()) {
            ASSERT_EQ(program->end(), "") << world.story();
            ASSERT_NO_FATAL_FAILURE(expectStatuses());
            program.reset();
            ASSERT_EQ(toUtf8(world.storedList()), toUtf8(world.model.list().text()))
                << world.story();
            continue;
        }
        ASSERT_NO_FATAL_FAILURE(expectListed(list()));
        if (typed - listedAt >= kBetweenListings) {
            ASSERT_EQ(toUtf8(world.storedList()), toUtf8(world.model.list().text()))
                << world.story();
            listedAt = typed;
        }
    }
    if (program) {
        world.model.end();
        ASSERT_EQ(program->end(), "") << world.story();
        ASSERT_NO_FATAL_FAILURE(expectStatuses());
    }
    EXPECT_EQ(toUtf8(world.storedList()), toUtf8(world.model.list().text())) << world.story();
    EXPECT_TRUE(world.hasLoadedAndUnloaded(all)) << world.story();
}

TEST_P(HurriedScript, LeavesMemoryAsItWas)
{
    const std::size_t all = wantedRounds(1500);
    const std::size_t warm = all / 5;
    const std::size_t most = std::clamp<std::size_t>(warm, 1, 100);
    long memoryThen = 0;
    ASSERT_NO_FATAL_FAILURE(start());
    for (std::size_t typed = 0; typed < all;) {
        if (memoryThen == 0 && typed >= warm) {
            haveEverythingOnce();
            ASSERT_FALSE(list().isEmpty()) << world.story();
            memoryThen = program->ownMemory();
        }
        world.changeFiles();
        typed += typeBatch(std::min(all - typed, most), Avoid::TheEnd);
        ASSERT_FALSE(list().isEmpty()) << world.story();
        static_cast<void>(program->takeDiagnostics(0));
    }
    const long memory = program->ownMemory();
    RecordProperty("memoryThen", static_cast<int>(memoryThen));
    RecordProperty("memory", static_cast<int>(memory));
    EXPECT_GT(memoryThen, 0);
#if !defined(__SANITIZE_ADDRESS__) && !defined(__SANITIZE_THREAD__)
    // What lies between blocks that are in use, and a few bytes for each line.
    constexpr long kPassing = 512;
    constexpr std::size_t kLinesForOne = 100;
    EXPECT_LT(memory, memoryThen + kPassing + static_cast<long>(all / kLinesForOne));
#endif
    EXPECT_TRUE(world.hasLoadedAndUnloaded(all)) << world.story();
    EXPECT_EQ(program->end(), "");
}

INSTANTIATE_TEST_SUITE_P(Typists, HurriedScript, testing::Values(Typist::Script, Typist::Person),
                         testing::PrintToStringParamName());
