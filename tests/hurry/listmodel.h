// What is loaded and shown, as the rules for users tell it: a second implementation, as plain as
// can be, that random drivers compare the program with.
#pragma once

#include "tests/support/listrules.h"

#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace hurry {

// Paths as they are typed; relative ones are below the folder in which the program runs.
class ListModel
{
public:
    // The menu group that a file brings; nothing where it is no good package.
    using GroupOf = std::function<std::optional<std::wstring>(const std::wstring& path)>;

    struct Shown
    {
        std::wstring path;
        std::wstring group;
        bool unlisted = false; // shown for this run alone
    };

    // Begins with a stored list and shows its groups.
    ListModel(std::wstring text, std::wstring folder, GroupOf groupOf);

    listrules::Outcome load(const std::wstring& path);
    listrules::Outcome unload(const std::wstring& path);

    // Somebody else changed the list, and its groups are shown.
    void follow(std::wstring text);

    [[nodiscard]] const std::wstring& text() const { return m_text; }
    [[nodiscard]] const std::vector<Shown>& shown() const { return m_shown; }
    // The entries whose groups are not shown.
    [[nodiscard]] std::vector<std::wstring> notShown() const;

    [[nodiscard]] bool exists(const std::wstring& path) const;
    [[nodiscard]] std::wstring absolute(const std::wstring& path) const;

private:
    [[nodiscard]] std::vector<std::wstring> entries() const;
    [[nodiscard]] listrules::Exists here() const;
    [[nodiscard]] bool isShown(const std::wstring& path) const;
    void show(const std::wstring& path, bool unlisted);
    void refresh();

    std::wstring m_text;
    std::wstring m_folder;
    GroupOf m_groupOf;
    std::vector<Shown> m_shown;
};

} // namespace hurry
