// The loaded menu file list: which customization files the user has loaded.
//
// One string in the host's configuration store: paths in load order, each as it was typed or
// picked, separated by ";" without blanks. Entry 0 is the host's main file. An entry is identified
// by its base name, the file name up to its first dot, so two files of one base name cannot both be
// loaded.
#pragma once

#include "host/settings.h"

#include <optional>
#include <string>
#include <vector>

class LoadedMenuFileList
{
public:
    // The list as it is stored; a value that is no string counts as the empty text. Nothing when
    // the store cannot read it.
    [[nodiscard]] static std::optional<LoadedMenuFileList> read(QueldConfig& store);

    // Whether an entry whose file exists now has the base name of `path`. Base names are compared
    // in capital letters; the directories do not matter. Entries whose file is gone do not count,
    // so a deleted file never blocks another.
    [[nodiscard]] bool isLoaded(const std::wstring& path) const;

    // Adds `path` as the last entry. The separator is written in front of the first entry of an
    // empty list as well: the host's own entry 0 may be the empty one.
    void append(const std::wstring& path);

    // The base names, as written, of the entries whose file exists now, in list order. An entry's
    // place here says nothing about its place in the list.
    [[nodiscard]] std::vector<std::wstring> shownNames() const;
    // Removes every entry of exactly this base name, whether its file exists or not, and returns
    // how many there were. All others stay, empty entries and those whose file is gone included.
    int removeNamed(const std::wstring& baseName);
    // What MENUUNLOAD found of a file.
    enum class Found {
        Nothing,  // no entry of its base name
        MainFile, // entry 0, which is never removed; later entries of the name stay too
        Removed,
    };
    // Removes every entry that has the base name of `path`, compared as in isLoaded, and with them
    // every entry whose file is gone, empty ones included. When nothing of the name is found, or
    // entry 0 has it, nothing at all is removed.
    Found unload(const std::wstring& path);
    // Stores the list. The store tells the user when it cannot, so its result is not looked at.
    void write(QueldConfig& store) const;
    // The same in two steps, for who changes something in between: the first takes all the memory
    // that there is to take.
    [[nodiscard]] QuelVariant value() const;
    static void write(QueldConfig& store, const QuelVariant& value);

private:
    explicit LoadedMenuFileList(std::wstring text)
        : m_text(std::move(text))
    {}

    template<typename Test>
    int removeIf(const Test& isUnwanted);

    std::wstring m_text;
};

// Whether `path` can be loaded at all: the file exists, relative names below the process's current
// directory, and the name ends in "cuix" in any case. No dot is asked for in front of the four.
[[nodiscard]] bool isCustomizationFile(const std::wstring& path);
