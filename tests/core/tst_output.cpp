#include "refhost/core/output.h"

#include "tests/core/childprocess.h"
#include "tests/support/pipe.h"
#include "tests/support/scriptedlines.h"

#include <gtest/gtest.h>

#include <array>
#include <cerrno>
#include <clocale>
#include <csignal>
#include <fcntl.h>
#include <functional>
#include <string>
#include <thread>
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
    const Pipe pipe;
    DescriptorOutput output(pipe.input());
    output.write(L"now");
    std::array<char, 8> read{};
    EXPECT_EQ(::read(pipe.output(), read.data(), read.size()), 3);
    EXPECT_STREQ(read.data(), "now");
}

TEST(DescriptorOutput, WritesWhatAPipeCannotHoldAtOnce)
{
    const std::wstring text(kMoreThanAPipeHolds, L'x');
    const std::string bytes = writtenToPipe([&](Output& output) { output.write(text); });
    EXPECT_EQ(bytes, std::string(text.size(), 'x'));
}

TEST(DescriptorOutput, WaitsForAReaderWhereWritingDoesNot)
{
    const Pipe pipe;
    ASSERT_TRUE(makeNonBlocking(pipe.input()));
    std::size_t read = 0;
    std::thread reader([&] {
        std::array<char, 4096> bytes{};
        while (read < kMoreThanAPipeHolds) {
            const ssize_t count = ::read(pipe.output(), bytes.data(), bytes.size());
            if (count <= 0)
                return;
            read += static_cast<std::size_t>(count);
        }
    });
    DescriptorOutput output(pipe.input());
    output.write(std::wstring(kMoreThanAPipeHolds, L'x'));
    output.write(L"\n");
    reader.join();
    EXPECT_EQ(read, kMoreThanAPipeHolds);
}

TEST(DescriptorOutput, AReaderWhoHasGoneIsNoError)
{
    // As the program does it: the signal that would end it is ignored.
    const auto former = std::signal(SIGPIPE, SIG_IGN);
    Pipe pipe;
    pipe.closeOutput();
    DescriptorOutput output(pipe.input());
    output.writeRow(L"lost");
    EXPECT_EQ(errno, EPIPE);
    output.writeRow(L"lost as well");
    std::signal(SIGPIPE, former);
}
