// Opening the settings file with the database library, and what its errors mean here.
#pragma once

#include "refhost/core/result.h"
#include "refhost/core/systemfault.h"

#include <QString>

#include <memory>

#include <SQLiteCpp/Database.h>
#include <sqlite3.h>

namespace quelhost {

using SettingsConnection = std::unique_ptr<SQLite::Database>;

// What went wrong and, as part of a sentence, why: "the disk is full".
struct SettingsTrouble
{
    FaultKind kind = FaultKind::Io;
    QString reason;
};

// `code` is an extended result code of the database library, `systemError` the errno behind it or
// 0.
[[nodiscard]] SettingsTrouble troubleOf(int code, int systemError);
[[nodiscard]] SettingsTrouble troubleOf(const SQLite::Exception& error,
                                        const SQLite::Database& connection);

// Runs `work`, which returns a Result, and makes a fault of what the library throws in it;
// `sentence` gets the reason and returns the fault's sentence.
template<typename Work, typename Sentence>
auto attempt(const SQLite::Database& connection, const Work& work, const Sentence& sentence)
    -> decltype(work())
{
    try {
        return work();
    } catch (const SQLite::Exception& error) {
        const SettingsTrouble trouble = troubleOf(error, connection);
        return plainFault(trouble.kind, sentence(trouble.reason));
    }
}

// Opens an existing file for reading and writing. Until `foldLogOnClose` is called, closing leaves
// file and log as they are, so that looking at a damaged file does not change it.
// Fails with NotPermitted when the file can only be read.
[[nodiscard]] Result<SettingsConnection> connectForWriting(const QString& file);
void foldLogOnClose(SQLite::Database& connection);

// Opens an existing file for reading, with all that was ever acknowledged, in a folder that can be
// written or not and beside a program that is writing the file. Changes neither file nor log.
[[nodiscard]] Result<SettingsConnection> connectForReading(const QString& file);

// Makes a new, empty database file. REQUIRES: no file of that name.
// Nothing of it is synchronised: a file that is not complete when the program ends is worth
// nothing, and the complete one is synchronised once, when it is put in its place.
[[nodiscard]] Result<SettingsConnection> connectToNew(const QString& file);

} // namespace quelhost
