// What holds wherever memory runs out or the host throws: the error reaches the host unchanged,
// scopes are left, nothing is lost, the stored list is whole and the next run knows nothing of it.
#include "tests/module/shortagefixture.h"

#include <iostream>

namespace shortage {

namespace {

struct Kind
{
    const char* name;
    recording::Refusal (*refusal)(int request);
};

constexpr Kind kKinds[] = {
    {"one request fails", recording::Refusal::one},
    {"and all behind it", recording::Refusal::from},
};

} // namespace

TEST_P(Shortage, OfMemoryReachesTheHostAndLeavesNothingBehind)
{
    int refused = 0;
    for (const Case& row : cases) {
        outcomeAnew(row, files); // what is made once for the whole process
        const Outcome whole = outcomeAnew(row, files);
        ASSERT_EQ(whole.thrown, Outcome::Nothing) << row.name;
        ASSERT_EQ(leftBehind(whole), Lines{}) << row.name;
        for (const Kind& kind : kKinds) {
            for (int request = 1; request <= whole.requests; ++request) {
                SCOPED_TRACE(std::string(row.name) + ", request " + std::to_string(request) + ": " +
                             kind.name);
                const Outcome broken = outcomeAnew(row, files, kind.refusal(request));
                ASSERT_GE(broken.refused, 1);
                ++refused;
                EXPECT_TRUE(broken.thrown == Outcome::BadAlloc ||
                            broken.thrown == Outcome::HostError);
                if (broken.thrown == Outcome::HostError) {
                    EXPECT_EQ(broken.errorStatus, Quel::eNoMemory);
                    ASSERT_EQ(host().crashes.size(), 1U);
                    EXPECT_EQ(host().crashes.front().address, broken.error);
                }
                EXPECT_EQ(leftBehind(broken), Lines{});
                EXPECT_TRUE(brokeOff(broken.trace, whole.trace))
                    << ::testing::PrintToString(broken.trace);
                EXPECT_EQ(broken.list, listAfter(broken.trace, whole));
                // A dialog shows what is stored or, where filling the list broke off, nothing.
                if (row.rows) {
                    const Lines rows = row.rows();
                    EXPECT_TRUE(rows.empty() || rows == shownOf(broken.list))
                        << testing::PrintToString(rows);
                    EXPECT_EQ(row.changed(), hasWritten(broken.trace));
                    row.fillAgain();
                    EXPECT_EQ(row.rows(), shownOf(broken.list));
                }

                const Outcome next = outcomeAnew(row, files);
                EXPECT_EQ(next.thrown, Outcome::Nothing);
                EXPECT_EQ(next.result, whole.result);
                EXPECT_EQ(next.trace, whole.trace);
                EXPECT_EQ(next.list, whole.list);
                EXPECT_EQ(leftBehind(next), Lines{});
            }
        }
    }
    EXPECT_GE(refused, GetParam().leastRefused);
    RecordProperty("refused", refused);
    std::cout << "[ REFUSED  ] " << GetParam() << ": " << refused << " allocations in "
              << cases.size() << " cases\n";
}

TEST_P(Shortage, OfTheHostReachesItUnchangedAndLeavesNothingBehind)
{
    int thrownCalls = 0;
    for (const Case& row : cases) {
        const Outcome whole = outcomeAnew(row, files);
        for (const auto& call : recording::callsThatMayThrow(whole.trace)) {
            SCOPED_TRACE(std::string(row.name) + ", " + call.function + " " +
                         std::to_string(call.which));
            startAnew(row, files);
            const VxErrorStatus* const thrown = host().throwOnCall(call.function, call.which);
            ++thrownCalls;
            const Outcome broken = outcomeOf(row);
            EXPECT_EQ(broken.thrown, Outcome::HostError);
            EXPECT_EQ(broken.error, thrown);
            EXPECT_EQ(leftBehind(broken), Lines{});
            EXPECT_TRUE(recording::onlyGivesBackBehind(broken.trace, call.line));
            EXPECT_EQ(broken.list, listAfter(broken.trace, whole));
            if (row.rows) {
                row.fillAgain();
                EXPECT_EQ(row.rows(), shownOf(broken.list));
            }

            const Outcome next = outcomeAnew(row, files);
            EXPECT_EQ(next.thrown, Outcome::Nothing);
            EXPECT_EQ(next.result, whole.result);
            EXPECT_EQ(next.trace, whole.trace);
            EXPECT_EQ(next.list, whole.list);
        }
    }
    EXPECT_GT(thrownCalls, 0);
    RecordProperty("thrownCalls", thrownCalls);
}

} // namespace shortage
