// The files of the settings store in a profile folder, and how one takes another's place.
//
//     settings.db              the settings, with -wal and -shm beside it while they are in use
//     settings.good.db         the last good copy, one complete file
//     settings.new.db          a copy in the making; of no value until it got one of the two names
//     settings.damaged-DATE.db a damaged file that was kept aside, DATE as 20240131-174530;
//     settings.good.damaged-DATE.db   a second one of the same moment ends in -2
//
// Of an open database no function here opens the file: closing it would drop the locks that the
// database library holds for this process.
#pragma once

#include "refhost/core/result.h"

#include <QString>

namespace quelhost {

[[nodiscard]] QString settingsFile(const QString& folder);
[[nodiscard]] QString goodCopyFile(const QString& folder);
[[nodiscard]] QString newCopyFile(const QString& folder);

enum class FilePresence {
    Absent,      // no file of that name
    Present,     // a file with something in it
    Unusable,    // there is something, but never a database: empty, a folder, a link to nowhere
    Unreachable, // the system does not let us look
};
[[nodiscard]] FilePresence presenceOf(const QString& file);

// Whether files that belong to database `file` stand beside it (a log, its index, a journal).
[[nodiscard]] bool hasCompanions(const QString& file);

// Renames `file` and its companions to a dated name that no file has yet, so that the database
// library can still open them together. Returns the new name of `file`.
// On a fault the files whose turn had not come stand where they were.
[[nodiscard]] Result<QString> keepAside(const QString& file);

// Deletes `file` and its companions; that one of them is not there is no fault.
[[nodiscard]] Status discard(const QString& file);

// Has the closed file `from` written to disk and gives it the name `to` in one step, replacing what
// had it. Should the machine stop, `to` is the former file or the new one, each of them whole.
// REQUIRES: both in one folder.
[[nodiscard]] Status replaceWhole(const QString& from, const QString& to);

// The same; when it returns, it is the new file that a machine that stops finds.
[[nodiscard]] Status putInPlace(const QString& from, const QString& to);

// Has the entries of a folder written to disk.
[[nodiscard]] Status syncFolder(const QString& folder);

} // namespace quelhost
