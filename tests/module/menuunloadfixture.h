// What every test of MENUUNLOAD starts from: prompts instead of dialogs, a list, a folder of real
// files.
#pragma once

#include "commands/menuunloadcommand.h"

#include "tests/support/menufolder.h"
#include "tests/support/recordinghost.h"
#include "tests/support/tracetext.h"

#include <gtest/gtest.h>

struct MenuUnload : testing::Test
{
    recording::MenuFolder folder;
    recording::Context context;
    Quel6917Command command;

    const std::wstring main = folder.file(L"main.cuix");
    const std::wstring plant = folder.file(L"plant.cuix");
    const std::wstring survey = folder.file(L"survey.cuix");
    const std::wstring all = main + L";" + plant + L";" + survey;

    MenuUnload() { startAnew(all); }

    // A new host with that list, which has dialogs off.
    static void startAnew(const std::wstring& list)
    {
        recording::reset();
        recording::host().setVariable(L"FILEDIA", short{0});
        setList(list);
    }

    int run() { return command.execute(&context); }
    int unload(const std::wstring& answer)
    {
        type(answer);
        return run();
    }

    static void type(const std::wstring& text) { recording::host().strings.next({5100, text}); }

    static std::wstring stored() { return recording::host().stringSetting(L"CUIX/LoadedCuix"); }
    static void setList(const std::wstring& text)
    {
        recording::host().setStringSetting(L"CUIX/LoadedCuix", text);
    }

    static int writes() { return recording::host().count("setValue"); }
    static int refreshes() { return recording::host().count("refresh"); }
    // How often the user was told anything.
    static int messages()
    {
        int count = 0;
        for (const char* function : {"quutPrintf", "promptf", "MessageBoxW", "AfxMessageBox"})
            count += recording::host().count(function);
        return count;
    }
};
