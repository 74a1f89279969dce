// Archives that are damaged as a whole: no entry of them can be reached safely.
#include "tests/support/damagedarchives.h"
#include "tests/support/hostilepackages.h"

namespace packages {

namespace {

using Bytes = QByteArray;

const char* const kNoZip = ": The file is not a ZIP archive.";
const char* const kDamaged = ": The ZIP archive is damaged: its table of contents is missing or "
                             "contradicts the rest.";

// Good: a text, stored, and an image, deflated.
[[nodiscard]] Bytes good()
{
    return PackageBuilder()
        .add("customization.xml", customization(), Packing::Store)
        .add("images/a.png", png(16, 16))
        .build();
}

[[nodiscard]] Bytes withByte(Bytes archive, int at, char byte)
{
    archive[at] = byte;
    return archive;
}

// Bytes between the table of contents and the end record, or before the table of contents.
[[nodiscard]] Bytes inserted(int at, const Bytes& bytes)
{
    return good().insert(at, bytes);
}

// What an archive of more than 4 GiB has before its end record.
[[nodiscard]] Bytes longEnd()
{
    const Bytes record = Bytes("PK\6\6", 4) + Bytes("\x2C\0\0\0\0\0\0\0", 8) + Bytes(44, '\0');
    const Bytes locator = Bytes("PK\6\7", 4) + Bytes(16, '\0');
    return record + locator;
}

// Both entries state their sizes in a note for sizes beyond 4 GiB.
[[nodiscard]] Bytes longSizes()
{
    return withField32(withField32(good(), 1, kSize, 0xFFFFFFFF), 1, kPackedSize, 0xFFFFFFFF);
}

// One packed image that many records of the table of contents point to.
[[nodiscard]] Bytes sharedByMany()
{
    PackageBuilder builder;
    const Bytes zeros(kMiB / 2, '\0');
    for (int i = 0; i < 100; ++i)
        builder.add("images/" + std::to_string(100 + i) + ".png", zeros);
    Bytes archive = builder.build();
    for (int i = 1; i < 100; ++i)
        set32(archive, centralRecord(archive, i) + 42, 0);
    return archive;
}

[[nodiscard]] std::vector<HostilePackage> noArchives()
{
    constexpr FaultIn kHeaders = FaultIn::Headers;
    return {
        {"nothing at all", kHeaders, [] { return Bytes(); }, {kNoZip}},
        {"one byte", kHeaders, [] { return Bytes("P"); }, {kNoZip}},
        {"the text without an archive", kHeaders, [] { return customization(); }, {kNoZip}},
        {"a gzip file", kHeaders, [] { return Bytes("\x1F\x8B\x08\0\0\0\0\0", 8); }, {kNoZip}},
        {"a 7z file", kHeaders, [] { return Bytes("7z\xBC\xAF\x27\x1C\0\4", 8); }, {kNoZip}},
        {"a png", kHeaders, [] { return png(16, 16); }, {kNoZip}},
        {"a megabyte of zeros", kHeaders, [] { return Bytes(kMiB, '\0'); }, {kNoZip}},
        {"a megabyte of half signatures",
         kHeaders,
         [] { return Bytes("PK\5").repeated(kMiB / 3); },
         {kNoZip}},
        {"an archive that begins with another signature",
         kHeaders,
         [] { return withByte(good(), 0, 'Q'); },
         {kDamaged}},
    };
}

[[nodiscard]] std::vector<HostilePackage> badEnds()
{
    constexpr FaultIn kHeaders = FaultIn::Headers;
    return {
        {"only the beginning", kHeaders, [] { return good().left(100); }, {kDamaged}},
        {"the end record cut off", kHeaders, [] { return good().chopped(22); }, {kDamaged}},
        {"the last byte missing", kHeaders, [] { return good().chopped(1); }, {kDamaged}},
        {"a byte behind the end", kHeaders, [] { return good() + "x"; }, {kDamaged}},
        {"a script before the beginning",
         kHeaders,
         [] { return "#!/bin/sh\n" + good(); },
         {kDamaged}},
        {"two archives in one file", kHeaders, [] { return good() + good(); }, {kDamaged}},
        {"an end record within the comment",
         kHeaders,
         [] { return withComment(good(), "x" + Bytes("PK\5\6", 4) + Bytes(18, '\0')); },
         {kDamaged}},
        {"another archive within the comment",
         kHeaders,
         [] { return withComment(good(), good()); },
         {kDamaged}},
        {"another archive within the comment, good in its place",
         kHeaders,
         [] { return withArchiveInComment(good(), good()); },
         {kDamaged}},
        {"a comment said to be longer than it is",
         kHeaders,
         [] { return withEnd16(good(), kEndCommentSize, 1); },
         {kDamaged}},
        {"a comment said to be shorter than it is",
         kHeaders,
         [] { return withEnd16(withComment(good(), "comment"), kEndCommentSize, 6); },
         {kDamaged}},
        {"no end signature",
         kHeaders,
         [] { return withByte(good(), endRecord(good()) + 3, '\7'); },
         {kDamaged}},
        {"the second part of several",
         kHeaders,
         [] { return withEnd16(good(), kEndPart, 1); },
         {kDamaged}},
        {"a table of contents in another part",
         kHeaders,
         [] { return withEnd16(good(), kEndFirstPart, 1); },
         {kDamaged}},
        {"entries in another part",
         kHeaders,
         [] { return withEnd16(good(), kEndPartEntries, 1); },
         {kDamaged}},
        {"an end as of an archive beyond 4 GiB",
         kHeaders,
         [] { return inserted(endRecord(good()), longEnd()); },
         {kDamaged}},
        {"sizes and places said to stand elsewhere",
         kHeaders,
         [] {
             return withEnd32(withEnd32(good(), kEndDirectory, 0xFFFFFFFF), kEndDirectorySize,
                              0xFFFFFFFF);
         },
         {kDamaged}},
    };
}

[[nodiscard]] std::vector<HostilePackage> badDirectories()
{
    constexpr FaultIn kHeaders = FaultIn::Headers;
    return {
        {"fewer entries than there are", kHeaders, [] { return withCount(good(), 1); }, {kDamaged}},
        {"more entries than there are", kHeaders, [] { return withCount(good(), 3); }, {kDamaged}},
        {"no entries where there are some",
         kHeaders,
         [] { return withCount(good(), 0); },
         {kDamaged}},
        {"a table of contents at the beginning",
         kHeaders,
         [] { return withEnd32(good(), kEndDirectory, 0); },
         {kDamaged}},
        {"a table of contents beyond the end",
         kHeaders,
         [] { return withEnd32(good(), kEndDirectory, 0xFFFFFFF0); },
         {kDamaged}},
        {"a table of contents one byte too early",
         kHeaders,
         [] {
             return withEnd32(good(), kEndDirectory,
                              static_cast<quint32>(centralRecord(good(), 0) - 1));
         },
         {kDamaged}},
        {"a table of contents shorter than it is",
         kHeaders,
         [] { return withEnd32(good(), kEndDirectorySize, 46); },
         {kDamaged}},
        {"a table of contents without end",
         kHeaders,
         [] { return withEnd32(good(), kEndDirectorySize, 0xFFFFFFFF); },
         {kDamaged}},
        {"bytes behind the table of contents",
         kHeaders,
         [] { return inserted(endRecord(good()), "gap"); },
         {kDamaged}},
        {"a record without its signature",
         kHeaders,
         [] { return withByte(good(), centralRecord(good(), 1), 'Q'); },
         {kDamaged}},
        {"a name that reaches beyond its record",
         kHeaders,
         [] { return withCentral16(good(), 1, 28, 0xFFFF); },
         {kDamaged}},
        {"notes that reach beyond their record",
         kHeaders,
         [] { return withCentral16(good(), 1, 30, 200); },
         {kDamaged}},
        {"a comment that reaches beyond its record",
         kHeaders,
         [] { return withCentral16(good(), 0, 32, 60); },
         {kDamaged}},
        {"an entry that begins beyond the end",
         kHeaders,
         [] { return withCentral32(good(), 1, 42, 0xFFFFFFFF); },
         {kDamaged}},
        {"an entry that begins within another's header",
         kHeaders,
         [] { return withCentral32(good(), 1, 42, 1); },
         {kDamaged}},
        {"an entry that is the table of contents",
         kHeaders,
         [] {
             return withCentral32(good(), 1, 42, static_cast<quint32>(centralRecord(good(), 0)));
         },
         {kDamaged}},
        {"an entry without its header's signature",
         kHeaders,
         [] { return withByte(good(), localHeader(good(), 1), 'Q'); },
         {kDamaged}},
        {"an entry that reaches into the table of contents",
         kHeaders,
         [] { return withField32(good(), 1, kPackedSize, 1000); },
         {kDamaged}},
        {"a packed size beyond 4 GiB", kHeaders, longSizes, {kDamaged}},
        {"a header's notes that reach into the table of contents",
         kHeaders,
         [] { return withLocal16(good(), 1, 28, 0xFFFF); },
         {kDamaged}},
    };
}

[[nodiscard]] std::vector<HostilePackage> contradictions()
{
    constexpr FaultIn kHeaders = FaultIn::Headers;
    return {
        {"a header with another name",
         kHeaders,
         [] { return withByte(good(), localHeader(good(), 1) + 30, 'J'); },
         {kDamaged}},
        {"a header with a shorter name",
         kHeaders,
         [] { return withLocal16(good(), 1, 26, 11); },
         {kDamaged}},
        {"a header with another size",
         kHeaders,
         [] { return withLocal32(good(), 1, kSize.local, 1); },
         {kDamaged}},
        {"a header with another packed size",
         kHeaders,
         [] { return withLocal32(good(), 1, kPackedSize.local, 1); },
         {kDamaged}},
        {"a header with another checksum",
         kHeaders,
         [] { return withLocal32(good(), 1, kChecksum.local, 1); },
         {kDamaged}},
        {"a header with another packing",
         kHeaders,
         [] { return withLocal16(good(), 1, kMethod.local, 0); },
         {kDamaged}},
        {"a table of contents with another size",
         kHeaders,
         [] { return withCentral32(good(), 1, kSize.central, 1); },
         {kDamaged}},
        {"a table of contents with another packing",
         kHeaders,
         [] { return withCentral16(good(), 1, kMethod.central, 0); },
         {kDamaged}},
        {"entries that share bytes",
         kHeaders,
         overlapping,
         {": The entries \"images/a.png\" and \"images/b.png\" share bytes of the archive."}},
        {"two entries in one place",
         kHeaders,
         [] { return withCentral32(good(), 1, 42, 0); },
         {": The entries \"customization.xml\" and \"images/a.png\" share bytes of the archive."}},
        {"one bomb under a hundred names",
         kHeaders,
         sharedByMany,
         {": The entries \"images/100.png\" and \"images/101.png\" share bytes of the archive."}},
    };
}

} // namespace

std::vector<HostilePackage> hostileArchives()
{
    std::vector<HostilePackage> all;
    for (const auto& part : {noArchives(), badEnds(), badDirectories(), contradictions()})
        all.insert(all.end(), part.begin(), part.end());
    return all;
}

} // namespace packages
