// A profile, files and a conversation for a random driver, with the model of all of it.
#pragma once

#include "tests/hurry/consolemodel.h"
#include "tests/hurry/randomlines.h"
#include "tests/hurry/randomness.h"
#include "tests/hurry/scratchfiles.h"
#include "tests/support/testrounds.h"

#include <QString>
#include <QTemporaryDir>

#include <ostream>
#include <string>

namespace hurry {

enum class Typist { Person, Script };
enum class Avoid { Nothing, Dialogs, TheEnd };

inline std::ostream& operator<<(std::ostream& out, Typist typist)
{
    return out << (typist == Typist::Script ? "AsAScript" : "AsAPerson");
}

class World
{
public:
    explicit World(Typist typist);
    ~World();

    // Changes a few files, the alias file among them.
    void changeFiles();
    // A line that the model has read. It leads to nothing that is to be avoided.
    [[nodiscard]] std::string nextLine(Avoid avoid = Avoid::Nothing);
    // Lets the model read a line.
    void feed(const std::string& line);
    // The program is started again. It puts the main file back and makes it entry 0, where that was
    // lost; returns what is wrong with the list that it found so, or nothing.
    [[nodiscard]] std::string restart(const std::wstring& found);

    // What the profile stores, as another process reads it.
    [[nodiscard]] std::wstring storedList() const;

    [[nodiscard]] QString profile() const;
    [[nodiscard]] QString workFolder() const;
    // Whether so many lines at random changed the list as often as they always do, by loading and
    // by unloading: where nothing can be loaded, nothing can go wrong.
    [[nodiscard]] bool hasLoadedAndUnloaded(std::size_t typed) const;
    // What to know of a failure.
    [[nodiscard]] std::string story() const;

private:
    [[nodiscard]] std::string path(const char* name) const;
    [[nodiscard]] ListModel listModel(std::wstring text) const;
    void writeAliases(const AliasTable& aliases);

    const unsigned int m_seed = wantedSeed();
    QTemporaryDir m_folder;

public:
    Random random{m_seed};
    ScratchFiles files;
    RandomLines lines{random, files};
    ConsoleModel model;
    LastDone done;
};

// What a line of a script says; nothing where it cancels.
[[nodiscard]] std::optional<std::wstring> textOf(const std::string& line);

// The value of the list among the rows of a listing of settings.
[[nodiscard]] std::wstring listIn(const QByteArray& listing);

// A place for files that takes no time to keep them, where there is one.
[[nodiscard]] QString quickPlace();

} // namespace hurry
