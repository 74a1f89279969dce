// The file dialog for menu files when the host fails: nothing is lost and nothing leaks.
#include "tests/module/filedialogfixture.h"
#include "tests/support/memorywatch.h"
#include "tests/support/thrownerror.h"

#include <array>

namespace filedialog {

TEST_F(FileDialog, GivesTheFileEvenWhenItCannotBeRemembered)
{
    struct Row
    {
        const char* name;
        std::array<int, 3> results; // of making the section and of the two writes
    };
    for (const Row& row : {Row{"no section", {1, 0, 0}}, Row{"no filter", {0, -1, 0}},
                           Row{"no file", {0, 0, 5}}, Row{"nothing", {1, 1, 1}}}) {
        recording::reset();
        for (const int result : row.results)
            host().writeFailures.next(result);
        pick(L"/a.cuix");
        path = L"before";
        EXPECT_EQ(ask(), 5100) << row.name;
        EXPECT_EQ(path, L"/a.cuix") << row.name;
        EXPECT_EQ(host().count("addItem"), 1) << row.name;
        EXPECT_EQ(host().count("setValue"), 2) << row.name;
    }
}

TEST_F(FileDialog, LetsEveryErrorPassAndGivesEverythingBack)
{
    for (const bool remembered : {false, true}) {
        const auto prepare = [&] {
            recording::reset();
            path = L"before";
            if (remembered)
                remember(integer(3), text(L"/d"));
            pick(L"/picked.cuix", 0, 1);
        };
        prepare();
        ASSERT_EQ(ask(), 5100);
        const auto calls = recording::callsThatMayThrow(host().trace);
        ASSERT_EQ(calls.size(), remembered ? 11U : 10U);
        bool chosen = false;
        for (const auto& call : calls) {
            prepare();
            const VxErrorStatus* const thrown = host().throwOnCall(call.function, call.which);
            const auto error = recording::errorThrownBy([this] { return ask(); });
            EXPECT_EQ(error.get(), thrown) << call.function << call.which;
            EXPECT_TRUE(recording::onlyGivesBackBehind(host().trace, call.line))
                << call.function << call.which;
            EXPECT_EQ(path, chosen ? L"/picked.cuix" : L"before") << call.function << call.which;
            EXPECT_TRUE(host().buffers.empty()) << call.function << call.which;
            EXPECT_EQ(host().foreignFrees, 0) << call.function << call.which;
            EXPECT_EQ(host().count("quutRelRb"), chosen ? 1 : 0) << call.function << call.which;
            chosen = chosen || call.function == "vxGetFileDialog";
        }
        EXPECT_TRUE(chosen);
    }
}

TEST_F(FileDialog, GivesBackWhatADialogLeftThatThrew)
{
    auto* const thrown = new VxErrorStatus(Quel::eNoMemory, L"made by the test", 42);
    host().fileDialog = [thrown](resbuf& result, int&) -> int {
        result.type = 5005;
        result.value.string = host().newBuffer(L"/half/chosen.cuix");
        result.link = new resbuf{nullptr, 5005, {}};
        result.link->value.string = host().newBuffer(L"further");
        throw thrown;
    };
    const auto error = recording::errorThrownBy([this] { return ask(); });
    EXPECT_EQ(error.get(), thrown);
    EXPECT_EQ(path, L"before");
    EXPECT_TRUE(host().buffers.empty());
    EXPECT_EQ(host().count("quutDelBuffer"), 1);
    EXPECT_EQ(host().count("quutRelRb"), 1);
    EXPECT_EQ(host().foreignFrees, 0);
}

TEST_F(FileDialog, ReportsThatThereIsNoMemoryForWhatItStores)
{
    struct Row
    {
        const char* name;
        std::size_t refusedSize;
        int writes;
    };
    const std::wstring file(1000, L'f');
    for (const Row& row : {Row{"filter", 8, 0}, Row{"file", 4 + 1001 * 4, 1}}) {
        recording::reset();
        pick(file, 2, 1);
        recording::MemoryWatch watch(recording::Refusal::ofSize(row.refusedSize));
        const auto error = recording::errorThrownBy([&] { watch.run([this] { return ask(); }); });
        ASSERT_NE(error, nullptr) << row.name;
        EXPECT_EQ(watch.refused(), 1) << row.name;
        EXPECT_EQ(error->status(), Quel::eNoMemory) << row.name;
        ASSERT_EQ(host().crashes.size(), 1U) << row.name;
        EXPECT_EQ(host().crashes.front().address, error.get()) << row.name;
        EXPECT_EQ(host().count("setValue"), row.writes) << row.name;
        EXPECT_EQ(host().settings.size(), static_cast<std::size_t>(row.writes)) << row.name;
        EXPECT_TRUE(host().buffers.empty()) << row.name;
        EXPECT_EQ(host().foreignFrees, 0) << row.name;
    }
}

} // namespace filedialog
