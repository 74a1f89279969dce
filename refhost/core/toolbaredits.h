// What a user does to toolbars in an editor, step by step, with undo and redo.
#pragma once

#include "refhost/core/effectivecustomization.h"

#include <QString>

#include <cstddef>
#include <functional>
#include <map>
#include <vector>

namespace quelhost {

// Works on copies: nothing is in force or stored before the caller takes result().
//
// Changes of toolbars whose group is not loaded stay as they are, and so do commands of such groups
// on the toolbars that are there. Places count from 0. Every operation is one step of undo; one
// that would change nothing is none.
class ToolbarEdits
{
public:
    // Where a step happened: a toolbar, and one of its entries or -1.
    struct Spot
    {
        GroupEntry toolbar;
        int place = -1;
    };

    ToolbarEdits(std::vector<ShownGroup> groups, ToolbarChanges changes);
    ToolbarEdits(const ToolbarEdits&) = delete;
    ToolbarEdits& operator=(const ToolbarEdits&) = delete;

    [[nodiscard]] const std::vector<ShownGroup>& groups() const { return m_groups; }
    [[nodiscard]] bool isLoaded(const QString& group) const;

    // As effectiveToolbars() has them.
    [[nodiscard]] const std::vector<EffectiveToolbar>& toolbars() const { return m_toolbars; }
    // Null when there is none of that name.
    [[nodiscard]] const EffectiveToolbar* find(const GroupEntry& toolbar) const;
    // Whether it can be worked on: it is there and not deleted.
    [[nodiscard]] bool isEditable(const GroupEntry& toolbar) const;
    // Whether it is a package's and not as the package has it.
    [[nodiscard]] bool isResettable(const GroupEntry& toolbar) const;

    [[nodiscard]] const ToolbarChanges& result() const { return m_steps[m_now].changes; }
    // Whether the result differs from what it was at first.
    [[nodiscard]] bool isChanged() const { return result() != m_steps.front().changes; }

    // That title, or with a number behind it when another toolbar has it.
    [[nodiscard]] QString freeTitle(const QString& title, const GroupEntry& toolbar = {}) const;

    // Operations return whether they changed anything.

    // Makes an empty toolbar of the user's with freeTitle(title) and returns its name.
    // REQUIRES: the title is more than blanks.
    GroupEntry create(const QString& title);
    // Gives it freeTitle(title). A title of blanks is none, the toolbar keeps its own.
    bool rename(const GroupEntry& toolbar, const QString& title);
    // One of the user's is gone; a package's can be reset.
    bool remove(const GroupEntry& toolbar);
    bool setHidden(const GroupEntry& toolbar, bool hidden);
    // Makes a toolbar what its package has.
    bool reset(const GroupEntry& toolbar);
    // The same for the toolbars of all loaded groups; those of the user's stay.
    bool resetAll();

    // Puts an entry in front of the one that is at `place`; a place behind the last is the end.
    bool insert(const GroupEntry& toolbar, int place, const ToolbarEntry& entry);
    bool take(const GroupEntry& toolbar, int place);
    // Moves an entry to the place where it is to stand then.
    bool move(const GroupEntry& toolbar, int from, int to);

    [[nodiscard]] bool canUndo() const { return m_now > 0; }
    [[nodiscard]] bool canRedo() const { return m_now + 1 < m_steps.size(); }
    // Where the last operation, undo or redo happened.
    [[nodiscard]] const Spot& spot() const { return m_spot; }
    // REQUIRES: canUndo(), canRedo().
    void undo();
    void redo();

private:
    using Entries = std::vector<ToolbarEntry>;
    using Change = std::function<void(EffectiveToolbar& toolbar)>;

    struct Step
    {
        ToolbarChanges changes; // after it
        Spot before;            // where to look when it is undone
        Spot after;
    };

    [[nodiscard]] const Toolbar* packageToolbar(const GroupEntry& toolbar) const;
    bool edit(const GroupEntry& toolbar, int before, int after, const Change& change);
    bool put(ToolbarChanges changes, const Spot& before, const Spot& after);
    void show(const Spot& spot);

    const std::vector<ShownGroup> m_groups;
    std::vector<Step> m_steps; // the first is what it was at first
    std::size_t m_now = 0;
    Spot m_spot;
    std::vector<EffectiveToolbar> m_toolbars;
};

} // namespace quelhost
