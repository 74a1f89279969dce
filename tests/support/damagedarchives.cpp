#include "tests/support/damagedarchives.h"

#include <string>

namespace packages {

QByteArray withField16(QByteArray archive, int index, EntryField field, quint32 value)
{
    return withCentral16(withLocal16(std::move(archive), index, field.local, value), index,
                         field.central, value);
}

QByteArray withField32(QByteArray archive, int index, EntryField field, quint32 value)
{
    return withCentral32(withLocal32(std::move(archive), index, field.local, value), index,
                         field.central, value);
}

QByteArray withLocal16(QByteArray archive, int index, int offset, quint32 value)
{
    set16(archive, localHeader(archive, index) + offset, value);
    return archive;
}

QByteArray withLocal32(QByteArray archive, int index, int offset, quint32 value)
{
    set32(archive, localHeader(archive, index) + offset, value);
    return archive;
}

QByteArray withCentral16(QByteArray archive, int index, int offset, quint32 value)
{
    set16(archive, centralRecord(archive, index) + offset, value);
    return archive;
}

QByteArray withCentral32(QByteArray archive, int index, int offset, quint32 value)
{
    set32(archive, centralRecord(archive, index) + offset, value);
    return archive;
}

QByteArray withEnd16(QByteArray archive, int offset, quint32 value)
{
    set16(archive, endRecord(archive) + offset, value);
    return archive;
}

QByteArray withEnd32(QByteArray archive, int offset, quint32 value)
{
    set32(archive, endRecord(archive) + offset, value);
    return archive;
}

QByteArray withComment(const QByteArray& archive, const QByteArray& comment)
{
    return withEnd16(archive, kEndCommentSize, static_cast<quint32>(comment.size())) + comment;
}

QByteArray withCount(QByteArray archive, quint32 count)
{
    return withEnd16(withEnd16(std::move(archive), kEndEntries, count), kEndPartEntries, count);
}

QByteArray withArchiveInComment(const QByteArray& outer, QByteArray inner)
{
    const auto by = static_cast<quint32>(outer.size());
    const auto count = static_cast<int>(get16(inner, endRecord(inner) + kEndEntries));
    for (int i = 0; i < count; ++i)
        set32(inner, centralRecord(inner, i) + 42, get32(inner, centralRecord(inner, i) + 42) + by);
    const quint32 directory = get32(inner, endRecord(inner) + kEndDirectory);
    return withComment(outer, withEnd32(inner, kEndDirectory, directory + by));
}

QByteArray withEntryNamed(const QByteArray& name)
{
    QByteArray archive = PackageBuilder()
                             .add("customization.xml", customization(), Packing::Store)
                             .add(std::string(static_cast<std::size_t>(name.size()), 'n'), "image")
                             .build();
    rename(archive, 1, name);
    return archive;
}

QByteArray overlapping()
{
    const QByteArray inner = PackageBuilder().add("images/b.png", "inner", Packing::Store).build();
    const int innerEnd = centralRecord(inner, 0);
    const QByteArray archive = PackageBuilder()
                                   .add("images/a.png", inner.left(innerEnd), Packing::Store)
                                   .add("images/b.png", "inner", Packing::Store)
                                   .build();
    return withCentral32(archive, 1, 42, 30 + 12);
}

QByteArray manyEntries(int count)
{
    PackageBuilder builder;
    builder.add("customization.xml", customization(), Packing::Store);
    for (int i = 1; i < count; ++i)
        builder.add("images/" + std::to_string(i) + ".png", "x", Packing::Store);
    return builder.build();
}

QByteArray entryOfSize(int size)
{
    return PackageBuilder()
        .add("customization.xml", customization(), Packing::Store)
        .add("images/a.png", QByteArray(size, 'x'))
        .build();
}

QByteArray totalOfSize(int total)
{
    const QByteArray large(16 * kMiB, 'x');
    return PackageBuilder()
        .add("images/a.png", large)
        .add("images/b.png", large)
        .add("images/c.png", large)
        .add("images/d.png", large.left(8 * kMiB))
        .add("images/e.png", QByteArray(total - 56 * kMiB, 'x'))
        .build();
}

QByteArray namesOfSize(int total)
{
    PackageBuilder builder;
    for (int i = 0; i < 1999; ++i) {
        const std::string number = std::to_string(10000 + i);
        builder.add("images/" + number + std::string(131 - 12, 'n'), "", Packing::Store);
    }
    const auto last = static_cast<std::size_t>(total - 1999 * 131);
    return builder.add("images/" + std::string(last - 7, 'm'), "", Packing::Store).build();
}

} // namespace packages
