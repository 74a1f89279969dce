// Unpacks a customization package: a ZIP archive of which nothing is believed.
//
// Everything happens in memory; nothing is written. What the archive states is tested against the
// limits before a byte is unpacked, and what comes out against what was stated.
//
// An archive holds `customization.xml` and images below `images/`, stored or deflated. Refused are
// other names, names with `..`, absolute parts, backslashes or control characters, names that are
// not UTF-8, a name that occurs twice, links and devices, encryption, entries that share bytes,
// and contents that do not have the stated size and checksum.
#pragma once

#include "refhost/core/result.h"

#include <QByteArray>
#include <QString>

#include <functional>
#include <vector>

namespace quelhost {

// The largest values that are still accepted.
struct ArchiveLimits
{
    qint64 fileBytes = 72LL * 1024 * 1024;  // of the archive itself
    qint64 entries = 2000;                  // folders included
    qint64 entryBytes = 16LL * 1024 * 1024; // of one entry, unpacked
    qint64 totalBytes = 64LL * 1024 * 1024; // of all entries, unpacked
    qint64 nameBytes = 256LL * 1024;        // of all entries' names
};

struct ArchiveEntry
{
    QString name;
    QByteArray bytes;    // none before it is unpacked
    bool isGood = false; // else there is a fault about it
};

// What came out. A fault that concerns an entry leaves the others readable, so that all faults can
// be told at once; one that concerns the archive as a whole leaves nothing.
struct ArchiveReading
{
    bool isOpen = false;               // its entries could be reached
    std::vector<ArchiveEntry> entries; // files with good names, in the archive's order
    std::vector<Fault> faults;

    // The entry of that name, null when there is none.
    [[nodiscard]] const ArchiveEntry* find(const QString& name) const;
};

// What the caller does with good entries, the text before all others. `reading` has the names of
// all entries, and no faults yet.
struct EntryUse
{
    // Called before an entry is unpacked; one that is not wanted is passed over.
    std::function<bool(const ArchiveReading& reading, const ArchiveEntry& entry)> wants = {};

    // Called as soon as it is unpacked. May take the bytes away, so that those of all entries are
    // never there at once.
    std::function<void(const ArchiveReading& reading, ArchiveEntry& entry)> take = {};
};

// `file` is the name for faults.
[[nodiscard]] ArchiveReading readArchive(const QByteArray& archive, const QString& file,
                                         const ArchiveLimits& limits = {},
                                         const EntryUse& use = {});

} // namespace quelhost
