// A whole host on a profile of its own, with scripted lines.
#pragma once

#include "refhost/core/host.h"
#include "refhost/core/settingsstore.h"
#include "tests/core/settingssupport.h"
#include "tests/support/scriptedlines.h"

#include <QStringList>

#include <initializer_list>
#include <memory>
#include <string>

namespace quelhost::test {

struct TestHostKind
{
    Typist typist = Typist::Person;
    bool hasDisplay = false;
    bool reportStatus = false;
    QString language = QStringLiteral("en");
    SettingsAccess access = SettingsAccess::ReadWrite;
    QStringList searchFolders = {};
};

// One at a time, like the host in it. The alias file of the profile is not there unless a test
// writes it.
class TestHost
{
public:
    explicit TestHost(std::initializer_list<const wchar_t*> typedLines = {},
                      const TestHostKind& kind = {});

    // Runs the session and returns what the user read in it.
    std::string run();

    // Runs one command with the given answers and without dialogs, and returns its status.
    int runPrepared(const char* name, std::initializer_list<const wchar_t*> answers);

    ScratchFolder profile;
    std::unique_ptr<SettingsStore> settings;
    CollectedOutput output;
    ScriptedLines lines;
    std::unique_ptr<Host> host; // null only in a test that has ended it
};

// A package in the folder of `folder`, with that group and, inside the group, that text. Returns
// its path; empty when it could not be written.
[[nodiscard]] std::wstring writePackage(const ScratchFolder& folder, const char* file,
                                        const QByteArray& group, const QByteArray& inside = {});

// Everything that `text` says, row by row.
[[nodiscard]] std::vector<std::string> rowsOf(const std::string& text);

} // namespace quelhost::test
