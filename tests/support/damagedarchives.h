// Archives as no packer writes them: good ones changed in their finished bytes, and such as leave
// the limits.
#pragma once

#include "tests/support/packagebuilder.h"

#include <QByteArray>

namespace packages {

inline constexpr int kMiB = 1024 * 1024;

// Where a field of an entry stands in its own header, and where in the table of contents.
struct EntryField
{
    int local;
    int central;
};

inline constexpr EntryField kFlags{6, 8};
inline constexpr EntryField kMethod{8, 10};
inline constexpr EntryField kChecksum{14, 16};
inline constexpr EntryField kPackedSize{18, 20};
inline constexpr EntryField kSize{22, 24};

// Fields of the end record.
inline constexpr int kEndPart = 4;
inline constexpr int kEndFirstPart = 6;
inline constexpr int kEndPartEntries = 8;
inline constexpr int kEndEntries = 10;
inline constexpr int kEndDirectorySize = 12;
inline constexpr int kEndDirectory = 16;
inline constexpr int kEndCommentSize = 20;

// With the field of the entry of that index set in both places.
[[nodiscard]] QByteArray withField16(QByteArray archive, int index, EntryField field,
                                     quint32 value);
[[nodiscard]] QByteArray withField32(QByteArray archive, int index, EntryField field,
                                     quint32 value);

// With it set in one place only.
[[nodiscard]] QByteArray withLocal16(QByteArray archive, int index, int offset, quint32 value);
[[nodiscard]] QByteArray withLocal32(QByteArray archive, int index, int offset, quint32 value);
[[nodiscard]] QByteArray withCentral16(QByteArray archive, int index, int offset, quint32 value);
[[nodiscard]] QByteArray withCentral32(QByteArray archive, int index, int offset, quint32 value);

[[nodiscard]] QByteArray withEnd16(QByteArray archive, int offset, quint32 value);
[[nodiscard]] QByteArray withEnd32(QByteArray archive, int offset, quint32 value);
[[nodiscard]] QByteArray withComment(const QByteArray& archive, const QByteArray& comment);

// With another number of entries, in all parts and in this one.
[[nodiscard]] QByteArray withCount(QByteArray archive, quint32 count);

// `inner` as the comment of `outer`, with all its places counted from the beginning of the file:
// whoever takes the last end record reads `inner`, whoever takes the first reads `outer`.
[[nodiscard]] QByteArray withArchiveInComment(const QByteArray& outer, QByteArray inner);

// A good text, stored, and behind it an entry of that name.
[[nodiscard]] QByteArray withEntryNamed(const QByteArray& name);

// The second entry, complete with its header, lies within the bytes of the first: each is good for
// itself, and its header says what the table of contents says.
[[nodiscard]] QByteArray overlapping();

// A good text and empty-handed images, `count` entries in all.
[[nodiscard]] QByteArray manyEntries(int count);

// A good text and an entry "images/a.png" of that many bytes.
[[nodiscard]] QByteArray entryOfSize(int size);

// 3 images of 16 MiB and others that bring the total to `total`. No text.
[[nodiscard]] QByteArray totalOfSize(int total);

// 1,999 names of 131 bytes, and one that brings the total to `total`. No text.
[[nodiscard]] QByteArray namesOfSize(int total);

} // namespace packages
