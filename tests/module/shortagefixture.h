// Runs of the module in which memory runs out or the host throws, at every place in turn.
#pragma once

#include "host/commands.h"

#include "refhost/core/widetext.h"
#include "tests/support/memorywatch.h"
#include "tests/support/menufolder.h"
#include "tests/support/recordinghost.h"
#include "tests/support/thrownerror.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <functional>
#include <new>
#include <ostream>
#include <sstream>
#include <string>
#include <vector>

namespace shortage {

using recording::host;
using Lines = std::vector<std::string>;

// Files that exist, with names too long to need no memory, and one that does not.
struct Files
{
    recording::MenuFolder folder;
    const std::wstring main = folder.file(L"main.cuix");
    const std::wstring plant = folder.file(L"plant.cuix");
    const std::wstring survey = folder.file(L"survey.cuix");
    const std::wstring other = folder.file(L"other.cuix");
    // Names with a character that is one here and two in the toolkit's texts.
    const std::wstring odd = folder.file(L"\U0001F4D0 odd.cuix");
    const std::wstring oddLoaded = folder.file(L"\U0001F4D0 loaded.cuix");
    const std::wstring gone = folder.path(L"gone.cuix");
    const std::wstring lost = folder.path(L"lost.cuix");
    const std::wstring loaded =
        main + L";" + gone + L";" + plant + L";;" + survey + L";" + oddLoaded;
};

struct Case
{
    const char* name;
    std::function<void()> prepare; // scripts a host that is new but for the list
    std::function<int()> run;      // what the host does with the module
    // Of a dialog, what its list shows now, and whether it says that it has changed the stored one.
    std::function<Lines()> rows = nullptr;
    std::function<bool()> changed = nullptr;
    std::function<void()> fillAgain = nullptr;
};

struct Group
{
    const char* name;
    std::vector<Case> (*cases)(const Files& files);
    int leastRefused; // in all of its cases: about half of what there was to refuse when written
    void (*finish)() = nullptr;
};
inline std::ostream& operator<<(std::ostream& stream, const Group& group)
{
    return stream << group.name;
}

struct Outcome
{
    enum Thrown { Nothing, BadAlloc, HostError, SomethingElse } thrown = Nothing;
    const void* error = nullptr; // the host's error object, deleted already
    int errorStatus = 0;
    int result = 0;
    int requests = 0;
    int refused = 0;
    Lines live;  // blocks that were not freed
    Lines trace; // of the host
    std::wstring listBefore;
    std::wstring list;
};

inline void startAnew(const Case& row, const Files& files)
{
    recording::reset();
    host().setVariable(L"FILEDIA", short{0});
    host().setStringSetting(L"CUIX/LoadedCuix", files.loaded);
    row.prepare();
}

// Runs what has been prepared.
inline Outcome outcomeOf(const Case& row, recording::Refusal refusal = {})
{
    Outcome outcome;
    outcome.listBefore = host().stringSetting(L"CUIX/LoadedCuix");
    recording::MemoryWatch watch(refusal);
    try {
        outcome.result = watch.run(row.run);
    } catch (const std::bad_alloc&) {
        outcome.thrown = Outcome::BadAlloc;
    } catch (const VxErrorStatus* error) {
        outcome.thrown = Outcome::HostError;
        outcome.error = error;
        outcome.errorStatus = error->status();
        delete error;
    } catch (...) {
        outcome.thrown = Outcome::SomethingElse;
    }
    outcome.requests = watch.requests();
    outcome.refused = watch.refused();
    outcome.live = watch.live();
    outcome.trace = host().trace;
    outcome.list = host().stringSetting(L"CUIX/LoadedCuix");
    return outcome;
}

inline Outcome outcomeAnew(const Case& row, const Files& files, recording::Refusal refusal = {})
{
    startAnew(row, files);
    return outcomeOf(row, refusal);
}

inline bool isListWrite(const std::string& line)
{
    const std::string call = R"(setValue(4, "CUIX/LoadedCuix", )";
    return line.compare(0, call.size(), call) == 0 && line.find("throws") == line.npos;
}

inline bool hasWritten(const Lines& trace)
{
    return std::any_of(trace.begin(), trace.end(), isListWrite);
}

// The list as it must be after a run that came as far as `trace`: the old one, or the new one of a
// whole run.
inline std::wstring listAfter(const Lines& trace, const Outcome& whole)
{
    return hasWritten(trace) ? whole.list : whole.listBefore;
}

// What a dialog shows of the stored list: the base names of the files that exist.
inline Lines shownOf(const std::wstring& list)
{
    Lines names;
    std::stringstream entries(quelhost::toUtf8(list));
    for (std::string entry; std::getline(entries, entry, ';');) {
        const std::filesystem::path path(entry);
        if (std::filesystem::exists(path))
            names.push_back(path.stem().string());
    }
    return names;
}

// Whether `trace` is the beginning of a whole run's, and behind it the host was only given back
// what it gave, and its recorder told.
inline bool brokeOff(const Lines& trace, const Lines& whole)
{
    std::size_t line = 0;
    while (line < trace.size() && line < whole.size() && trace[line] == whole[line])
        ++line;
    return std::all_of(trace.begin() + static_cast<std::ptrdiff_t>(line), trace.end(),
                       [](const std::string& call) {
                           const std::string function = call.substr(0, call.find('('));
                           return recording::givesBack(function) || function == "record" ||
                                  function == "quelGetCrashRecorder";
                       });
}

// What must hold after every run, whole or not: nothing for none, else what is wrong.
inline Lines leftBehind(const Outcome& outcome)
{
    Lines wrong = outcome.live;
    if (host().resourceStack.size() != 1)
        wrong.push_back(std::to_string(host().resourceStack.size() - 1) + " scopes");
    if (host().leavesWithoutEnter != 0)
        wrong.push_back(std::to_string(host().leavesWithoutEnter) + " scopes left twice");
    if (!host().buffers.empty())
        wrong.push_back(std::to_string(host().buffers.size()) + " buffers of the host");
    if (host().foreignFrees != 0)
        wrong.push_back(std::to_string(host().foreignFrees) + " buffers freed twice");
    return wrong;
}

class Shortage : public testing::TestWithParam<Group>
{
protected:
    ~Shortage() override
    {
        if (GetParam().finish != nullptr)
            GetParam().finish();
    }

    Files files;
    std::vector<Case> cases = GetParam().cases(files);
};

} // namespace shortage
