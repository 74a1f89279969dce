#include "refhost/core/output.h"

#include "tests/core/childprocess.h"
#include "tests/support/scriptedlines.h"

#include <gtest/gtest.h>

#include <array>
#include <clocale>
#include <csignal>
#include <fcntl.h>
#include <functional>
#include <unistd.h>

using namespace quelhost;
using namespace quelhost::test;

namespace {

// What `work` writes, in a process whose reader has it from a pipe.
std::string writtenToPipe(const std::function<void(Output&)>& work)
{
    ChildProcess child([&](int descriptor) {
        DescriptorOutput output(descriptor);
        work(output);
    });
    return child.wait().output;
}

bool makeNonBlocking(int descriptor)
{
    const int flags = ::fcntl(descriptor, F_GETFL);
    return flags >= 0 && ::fcntl(descriptor, F_SETFL, flags | O_NONBLOCK) == 0;
}

constexpr std::size_t kMoreThanAPipeHolds = 1U << 20;

} // namespace

TEST(Output, WritesTextAsItStands)
{
    CollectedOutput output;
    output.write(L"a%s%n \u00E9");
    output.write(L"");
    output.write(L"b\n");
    EXPECT_EQ(output.text(), "a%s%n \xC3\xA9"
                             "b\n");
}

TEST(Output, StartsARowOnlyInsideOne)
{
    struct Row
    {
        const char* name;
        const wchar_t* before;
        const char* expected;
    };
    const Row rows[] = {
        {"nothing was written", L"", ""},           {"inside a row", L"a", "a\n"},
        {"behind the end of a row", L"a\n", "a\n"}, {"inside the second row", L"a\nb", "a\nb\n"},
        {"behind an empty row", L"a\n\n", "a\n\n"},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        CollectedOutput output;
        output.write(row.before);
        output.startRow();
        output.startRow();
        EXPECT_EQ(output.text(), row.expected);
    }
}

TEST(Output, GivesARowOfItsOwn)
{
    CollectedOutput output;
    output.write(L"half");
    output.writeRow(L"whole");
    output.writeRow(L"ended\n");
    output.write(L"next");
    EXPECT_EQ(output.text(), "half\nwhole\nended\nnext");
}

TEST(Output, KnowsThatSomethingElseStartedARow)
{
    CollectedOutput output;
    output.write(L"typed at");
    output.rowStarted();
    output.writeRow(L"next");
    EXPECT_EQ(output.text(), "typed atnext\n");
}

TEST(DescriptorOutput, IsUtf8WhateverTheLocale)
{
    const std::string bytes = writtenToPipe([](Output& output) {
        std::setlocale(LC_ALL, "C");
        output.write(L"\u00E9\n");
    });
    EXPECT_EQ(bytes, "\xC3\xA9\n");
}

TEST(DescriptorOutput, WritesAtOnce)
{
    std::array<int, 2> ends{};
    ASSERT_EQ(::pipe(ends.data()), 0);
    DescriptorOutput output(ends[1]);
    output.write(L"now");
    std::array<char, 8> read{};
    EXPECT_EQ(::read(ends[0], read.data(), read.size()), 3);
    EXPECT_STREQ(read.data(), "now");
    ::close(ends[0]);
    ::close(ends[1]);
}

TEST(DescriptorOutput, WritesWhatAPipeCannotHoldAtOnce)
{
    const std::wstring text(kMoreThanAPipeHolds, L'x');
    const std::string bytes = writtenToPipe([&](Output& output) { output.write(text); });
    EXPECT_EQ(bytes, std::string(text.size(), 'x'));
}

TEST(DescriptorOutput, WaitsForAReaderWhereWritingDoesNot)
{
    ChildProcess child([](int descriptor) {
        if (!makeNonBlocking(descriptor))
            return;
        DescriptorOutput output(descriptor);
        output.write(std::wstring(kMoreThanAPipeHolds, L'x'));
    });
    EXPECT_EQ(child.wait().output.size(), kMoreThanAPipeHolds);
}

TEST(DescriptorOutput, AReaderWhoHasGoneIsNoError)
{
    const ChildEnd end = runInChild([]() -> std::string {
        std::signal(SIGPIPE, SIG_IGN);
        std::array<int, 2> ends{};
        if (::pipe(ends.data()) != 0)
            return "no pipe";
        ::close(ends[0]);
        DescriptorOutput output(ends[1]);
        output.writeRow(L"lost");
        output.writeRow(L"lost as well");
        return "went on";
    });
    EXPECT_EQ(end.output, "went on");
    EXPECT_EQ(end.exitCode, 0);
}
