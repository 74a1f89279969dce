// What every test of MENULOAD starts from: prompts instead of dialogs, an empty list, a folder of
// real files.
#pragma once

#include "menuload/menuloadcommand.h"

#include "tests/support/menufolder.h"
#include "tests/support/recordinghost.h"

#include <gtest/gtest.h>

struct MenuLoad : testing::Test
{
    recording::MenuFolder folder;
    recording::Context context;
    Quel6916Command command;

    MenuLoad()
    {
        recording::host().setVariable(L"FILEDIA", short{0});
        setList(L"");
    }

    int run() { return command.execute(&context); }

    static void type(const std::wstring& text) { recording::host().strings.next({5100, text}); }
    static void answerStatus(int status) { recording::host().strings.next({status, std::nullopt}); }

    static std::wstring stored() { return recording::host().stringSetting(L"CUIX/LoadedCuix"); }
    static void setList(const std::wstring& text)
    {
        recording::host().setStringSetting(L"CUIX/LoadedCuix", text);
    }

    static int prompts() { return recording::host().count("quedGetString"); }
    static int messages() { return recording::host().count("quutPrintf"); }
    static int writes() { return recording::host().count("setValue"); }
    static int loads() { return recording::host().count("loadMenuFile"); }
};
