// What a person in a hurry types: commands in any case and half of them, answers ahead and too
// late, cancels, files that are not there, and what a cat on the keyboard would.
#pragma once

#include "tests/hurry/consolemodel.h"
#include "tests/hurry/randomness.h"
#include "tests/hurry/scratchfiles.h"

#include <string>

namespace hurry {

class RandomLines
{
public:
    // REQUIRES: both outlive this object.
    RandomLines(Random& random, const ScratchFiles& files)
        : m_random(random)
        , m_files(files)
    {}

    // A line without its end, as bytes: often one that fits what is asked, and often not.
    [[nodiscard]] std::string next(ConsoleModel::Prompt prompt);
    // The same without control characters and without anything that is no UTF-8.
    [[nodiscard]] std::string nextTyped(ConsoleModel::Prompt prompt);

    // An alias file for REINIT.
    [[nodiscard]] AliasTable aliases();

private:
    [[nodiscard]] std::string line(ConsoleModel::Prompt prompt);
    [[nodiscard]] std::string commandLine();
    [[nodiscard]] std::string command();
    [[nodiscard]] std::string answer(ConsoleModel::Prompt prompt);
    [[nodiscard]] std::string quoted(const std::string& path);
    [[nodiscard]] std::string garbage();
    [[nodiscard]] std::string longLine();
    [[nodiscard]] std::string inAnyCase(std::string text);

    Random& m_random;
    const ScratchFiles& m_files;
};

} // namespace hurry
