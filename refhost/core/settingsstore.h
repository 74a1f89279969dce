// The settings of one profile: items by category and key, kept in `settings.db`.
//
// What was acknowledged is on disk. What could not be stored is answered with a fault, and the
// former value stays in force, on disk and in later reads; the next write is tried anew.
//
// Damage found when opening (no database, pages or rows that are not as they were written): the
// damaged file with its log is kept aside under a dated name, the last good copy takes its place,
// or an empty store when there is none or it is not sound itself. `notices` says so.
// Damage found later, in a read, a write or a good copy, is a fault of kind Damaged. From then on
// this store answers every write with that kind and makes no good copy: the next opening brings
// the last good copy back, and what was stored in between would be lost although it had been
// acknowledged. Sound items can still be read.
//
// The store never replaces a database that it merely cannot open; it then works from memory.
#pragma once

#include "refhost/core/result.h"
#include "refhost/core/settingsitem.h"

#include <QString>

#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <utility>
#include <vector>

namespace quelhost {

class SettingsDatabase;
struct OpenedSettings;

enum class SettingsAccess {
    ReadWrite, // REQUIRES: the caller holds the profile
    ReadOnly,  // changes no file; for a profile that cannot be written
};

// Is given a sentence for the user.
using TellUser = std::function<void(const QString&)>;

class SettingsStore
{
public:
    // Opens the store of an existing profile folder, making it when there is none. With ReadWrite
    // a good copy is made when the file was sound.
    //
    // A store that cannot be written is no fault: it is read from the file, from the good copy
    // when the file is damaged, or is empty when there is nothing to read. `writable` tells, and
    // `notices` unless ReadOnly was asked for.
    // `tellUser` hears each notice at once: that something is damaged before it is moved, and what
    // takes its place before it does, so that nothing is replaced untold when the program ends
    // meanwhile or the opening ends with a fault.
    // Faults: Busy when another program keeps the file locked, BadInput when a newer version of
    // this program wrote it.
    [[nodiscard]] static Result<std::unique_ptr<SettingsStore>>
    open(const QString& profileFolder, SettingsAccess access, const TellUser& tellUser = {});

    SettingsStore(const SettingsStore&) = delete;
    SettingsStore& operator=(const SettingsStore&) = delete;

    // Without `close` before it, this makes no good copy; everything acknowledged stays stored.
    ~SettingsStore();

    // What the user was to be told about the opening, each thing by itself.
    [[nodiscard]] const std::vector<QString>& notices() const { return m_notices; }

    // Whether writes reach the disk. With ReadWrite access, a store that could not be written
    // becomes writable in the first `write` that finds the cause gone.
    [[nodiscard]] bool writable() const { return m_writable; }

    // The item in force, nothing when there is none.
    [[nodiscard]] Result<std::optional<Item>> read(int category, const std::wstring& key) const;

    // Whether there is an item of that key, of any kind.
    [[nodiscard]] Result<bool> exists(int category, const std::wstring& key) const;

    // All items in force, by category and then by the code points of the key.
    [[nodiscard]] Result<std::vector<Item>> all() const;

    // Stores the item in place of the one with its category and key.
    // Faults: NotPermitted when the store cannot be written, BadInput when the item is too long or
    // of no known kind, Damaged, Busy, Io.
    [[nodiscard]] Status write(const Item& item);

    // Stores and removes what the edit says, all of it or nothing. An empty edit is always done.
    // Faults as in `write`.
    [[nodiscard]] Status change(const SettingsEdit& edit);

    // Puts an item in force, without storing it, until the store goes or its key is written: for
    // what the program needs and could not store.
    void setForThisRun(const Item& item);

    // Replaces the last good copy by one of the present state, unless it is sound and holds the
    // same. A copy that cannot be completed, or is not sound, leaves the former one as it is.
    // NotPermitted when the store is not writable.
    [[nodiscard]] Status keepGoodCopy();

    // The clean end: keeps a good copy and closes the file; only destruction may follow. A fault
    // concerns the good copy alone. A store that is not writable is only closed.
    [[nodiscard]] Status close();

private:
    using Key = std::pair<int, std::wstring>;

    // Code points are compared as what they are stored as, without a sign.
    struct KeyOrder
    {
        bool operator()(const Key& left, const Key& right) const;
    };

    SettingsStore(const QString& folder, SettingsAccess access, OpenedSettings opened);

    [[nodiscard]] Status becomeWritable();
    [[nodiscard]] Fault notWritableFault() const;
    void rememberDamage(const Fault& fault) const;

    QString m_folder;
    SettingsAccess m_access;
    bool m_writable;
    mutable bool m_damaged; // also found by reads
    std::unique_ptr<SettingsDatabase> m_database;
    std::map<Key, Item, KeyOrder> m_forThisRun;
    std::vector<QString> m_notices;
};

} // namespace quelhost
