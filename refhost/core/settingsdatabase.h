// One settings file, opened and known to be sound: its table of items.
//
// Reads and writes check the checksum of every row they touch. What to do about a damaged file, or
// one that cannot be written, is the settings store's business.
#pragma once

#include "refhost/core/result.h"
#include "refhost/core/settingsitem.h"

#include <QString>

#include <memory>
#include <optional>
#include <string_view>
#include <vector>

namespace SQLite {
class Database;
}

namespace quelhost {

struct SettingsRow;

class SettingsDatabase
{
public:
    using Pointer = std::unique_ptr<SettingsDatabase>;

    // More characters than this, key and text together, are refused.
    static constexpr std::size_t kMaxCharacters = 16 * 1024 * 1024;

    // Opens an existing file for reading and writing, write-ahead log on, fully synchronised.
    // Faults: Damaged (the file and its log are left as they are), BadInput (written by a newer
    // version), NotPermitted, Busy, Io.
    [[nodiscard]] static Result<Pointer> openForWriting(const QString& file);

    // The same for reading; also in a folder that cannot be written, also while another program
    // is writing the file.
    [[nodiscard]] static Result<Pointer> openForReading(const QString& file);

    // Makes a complete settings file without items and leaves it closed.
    // REQUIRES: no file of that name.
    [[nodiscard]] static Status create(const QString& file);

    SettingsDatabase(const SettingsDatabase&) = delete;
    SettingsDatabase& operator=(const SettingsDatabase&) = delete;
    ~SettingsDatabase();

    // The stored item, nothing when there is none. Damaged when its row is.
    [[nodiscard]] Result<std::optional<Item>> read(int category, const std::wstring& key) const;

    // All items, by category and then by the code points of the key. Damaged when one of them is.
    [[nodiscard]] Result<std::vector<Item>> all() const;

    // Stores items in place of those with their category and key, and removes items. When it
    // returns, all of it is on disk; on a fault nothing is. A damaged row is neither written over
    // nor removed (Damaged).
    // REQUIRES: the edit is not empty.
    [[nodiscard]] Status change(const SettingsEdit& edit);

    // Writes all items into a new file `copy`, checks it and leaves it closed.
    // REQUIRES: no file of that name.
    [[nodiscard]] Status copyTo(const QString& copy) const;

private:
    SettingsDatabase(const QString& file, std::unique_ptr<SQLite::Database> connection);

    [[nodiscard]] Status checkSound() const;
    [[nodiscard]] Status checkStructure() const;
    [[nodiscard]] Status prepareForWriting();
    [[nodiscard]] Result<std::optional<Item>> fetch(int category, std::string_view key) const;
    [[nodiscard]] Status store(const SettingsRow& row);
    [[nodiscard]] Status remove(int category, std::string_view key);
    void dropFailedWrite();
    [[nodiscard]] QString notReadSentence(const QString& reason) const;

    QString m_file;
    std::unique_ptr<SQLite::Database> m_connection;
};

} // namespace quelhost
