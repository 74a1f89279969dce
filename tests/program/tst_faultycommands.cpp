// Commands of a module that goes wrong: the program tells it and goes on.
#include "tests/support/programfolders.h"

#include <gtest/gtest.h>

namespace {

QString text(const char* utf8)
{
    return QString::fromUtf8(utf8);
}

struct FaultyCommands : testing::Test
{
    ProgramResult type(const QString& lines) const
    {
        return folders.script(lines, {text("--module"), text(QUEL_FAULTY_MODULE)}).run();
    }

    ProgramFolders folders;
};

} // namespace

TEST_F(FaultyCommands, WhatACommandThrowsIsToldInOneLine)
{
    const ProgramResult result =
        type(text("THROWSTATUS\nTHROWMESSAGE\nTHROWSTANDARD\nTHROWNUMBER\nECHO on\n"));
    EXPECT_EQ(result.exitStatus, 0);
    const QStringList rows = result.rows();
    EXPECT_TRUE(rows.contains(text("The command THROWSTATUS failed: error status 6")));
    EXPECT_TRUE(rows.contains(text("The command THROWMESSAGE failed: the valve is stuck")));
    EXPECT_TRUE(rows.contains(text("The command THROWSTANDARD failed: the pipe burst")));
    EXPECT_TRUE(rows.contains(text("The command THROWNUMBER failed: an error of an unknown kind")));
    EXPECT_TRUE(rows.contains(text("on")));
    EXPECT_EQ(result.diagnostics,
              text("THROWSTATUS\t-5001\nTHROWMESSAGE\t-5001\nTHROWSTANDARD\t-5001\n"
                   "THROWNUMBER\t-5001\nECHO\t5100\n"));
}

TEST_F(FaultyCommands, AScopeLeftOpenIsClosed)
{
    const ProgramResult result = type(text("LEAVEOPEN\nLEAVEOPEN\nECHO on\n"));
    EXPECT_EQ(result.exitStatus, 0);
    EXPECT_EQ(result.diagnostics, text("LEAVEOPEN\t1\nLEAVEOPEN\t1\nECHO\t5100\n"));
}

TEST_F(FaultyCommands, NoPromptOutlivesTheInput)
{
    const ProgramResult result = type(text("ASKON\none two three\n\n"));
    EXPECT_TRUE(result.ended);
    EXPECT_EQ(result.exitStatus, 0);
    EXPECT_EQ(result.diagnostics, text("ASKON\t-5002\n"));
    EXPECT_TRUE(result.rows().contains(text("More:three")));
}
