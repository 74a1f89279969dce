// The table of contents of a ZIP archive in memory, as it literally stands there.
//
// The library that unpacks tells neither where an entry's bytes lie nor that a name goes on behind
// a zero byte, so that two entries may share bytes unseen. This reads what it does not tell, and
// takes only archives that can be read in one way: one table of contents, directly before the one
// end record, which closes the file. Archives of 4 GiB and more (ZIP64) are not such.
#pragma once

#include "refhost/core/result.h"

#include <QByteArray>
#include <QString>

#include <string>
#include <vector>

namespace quelhost {

struct ZipEntry
{
    std::string name; // bytes as stored
    bool encrypted = false;
    quint16 method = 0;   // 0 stored, 8 deflated
    quint32 unixMode = 0; // kind and permissions; 0 when the packer gave none
    qint64 packedSize = 0;
    qint64 size = 0;  // as stated
    qint64 begin = 0; // of its own header
    qint64 end = 0;   // behind its packed bytes
};

struct ZipDirectory
{
    std::vector<ZipEntry> entries; // in the order of the table of contents
};

// At most `maxEntries` entries are accepted. Two entries that share bytes are a fault.
// `file` is the name for faults.
[[nodiscard]] Result<ZipDirectory> readZipDirectory(const QByteArray& archive, const QString& file,
                                                    qint64 maxEntries);

} // namespace quelhost
