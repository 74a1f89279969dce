// Customization files that come, go and change under a program that loads them: good and bad ones,
// folders and pipes, the same base name in several folders, names that nobody would choose.
#pragma once

#include "tests/hurry/randomness.h"

#include <map>
#include <optional>
#include <string>
#include <vector>

namespace hurry {

class ScratchFiles
{
public:
    // `folder` and `profile` exist; `mainPackage` is the content of the profile's main file.
    ScratchFiles(std::string folder, std::string profile, std::string mainPackage);
    // Nothing stays that its owner could not remove.
    ~ScratchFiles();
    ScratchFiles(const ScratchFiles&) = delete;
    ScratchFiles& operator=(const ScratchFiles&) = delete;

    // The group that a file brings, if its content is a good package.
    [[nodiscard]] std::optional<std::wstring> groupOf(const std::wstring& path) const;

    // Puts some files there, changes or removes some. Says what it did.
    std::string change(Random& random);
    // The main file goes seldom and comes back soon. Says what it did, if it did anything.
    std::string changeMainFile(Random& random);

    // A name of a file that may be there, absolute or from the folder, spelled in one of many ways.
    [[nodiscard]] std::string path(Random& random) const;
    // One of those that MENULOAD takes by their name.
    [[nodiscard]] std::string loadablePath(Random& random) const;

    [[nodiscard]] const std::string& folder() const { return m_folder; }
    [[nodiscard]] std::string mainFile() const { return m_profile + "/QUELD.cuix"; }

private:
    [[nodiscard]] std::string spelled(Random& random, const std::string& name) const;
    void put(const std::string& name, const std::string& content) const;
    void remove(const std::string& name) const;

    const std::string m_folder;
    const std::string m_profile;
    std::vector<std::string> m_names; // from the folder
    std::vector<std::string> m_contents;
    std::map<std::string, std::wstring> m_groups; // of the contents that are good
};

} // namespace hurry
