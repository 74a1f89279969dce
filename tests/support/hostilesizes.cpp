// Packages beyond a limit, and such as swell when they are unpacked.
#include "tests/support/damagedarchives.h"
#include "tests/support/hostilepackages.h"

namespace packages {

namespace {

using Bytes = QByteArray;

const char* const kToken = "A single tag, text or comment is longer than 65536 bytes.";
const char* const kAttributes = "The element has more than 256 attributes.";
const char* const kDepth = "Elements are nested more than 32 deep.";
const char* const kXmlNames =
    "The names of elements and attributes together are longer than 262144 bytes.";
const char* const kTotal = ": The entries together are larger than 64 MiB.";
const char* const kLargeImage = ": \"images/a.png\" is larger than 16 MiB.";

[[nodiscard]] HostilePackage text(const char* name, const std::function<Bytes()>& xml,
                                  const std::string& told)
{
    return {name, FaultIn::Content, [xml] { return packageOf(xml()); }, {":" + told}};
}

[[nodiscard]] Bytes bombs(int count, int size)
{
    PackageBuilder builder;
    builder.add("customization.xml", customization(), Packing::Store);
    const Bytes zeros(size, '\0');
    for (int i = 0; i < count; ++i)
        builder.add("images/" + std::to_string(i) + ".png", zeros);
    return builder.build();
}

[[nodiscard]] Bytes attributes(int count)
{
    Bytes text;
    for (int i = 0; i < count; ++i)
        text += " a" + Bytes::number(i) + "=''";
    return text;
}

// The frame and within it `depth` menus, each in the one before.
[[nodiscard]] Bytes menus(int depth)
{
    Bytes text;
    for (int i = 0; i < depth; ++i)
        text += "<menu id='" + Bytes::number(i) + "' text='M'>";
    return customization("<menus>" + text + Bytes("</menu>").repeated(depth) + "</menus>");
}

// 4 MiB of an archive that packs into itself again.
[[nodiscard]] Bytes nested(int depth)
{
    Bytes inner(4 * kMiB, '\0');
    for (int i = 0; i < depth; ++i)
        inner = PackageBuilder()
                    .add("customization.xml", customization(), Packing::Store)
                    .add("images/inner.png", inner)
                    .build();
    return inner;
}

[[nodiscard]] std::vector<HostilePackage> archives()
{
    constexpr FaultIn kHeaders = FaultIn::Headers;
    return {
        {"a file of more than 72 MiB",
         kHeaders,
         [] { return Bytes(72 * kMiB + 1, 'x'); },
         {": The file is larger than 72 MiB."}},
        {"72 MiB of no archive",
         kHeaders,
         [] { return Bytes(72 * kMiB, 'x'); },
         {": The file is not a ZIP archive."}},
        {"2,001 entries",
         kHeaders,
         [] { return manyEntries(2001); },
         {": The archive has 2001 entries; at most 2000 are allowed."}},
        {"65,535 entries, as it says",
         kHeaders,
         [] { return withCount(manyEntries(2), 0xFFFF); },
         {": The archive has 65535 entries; at most 2000 are allowed."}},
        {"an entry of one byte more than 16 MiB",
         kHeaders,
         [] { return entryOfSize(16 * kMiB + 1); },
         {kLargeImage}},
        {"an entry said to be of 60 MiB",
         kHeaders,
         [] { return withField32(entryOfSize(20), 1, kSize, 60 * kMiB); },
         {kLargeImage}},
        {"an entry said to be of 2 GiB",
         kHeaders,
         [] { return withField32(entryOfSize(20), 1, kSize, 0x80000000); },
         {kTotal}},
        {"an entry said to be of 4 GiB",
         kHeaders,
         [] { return withField32(entryOfSize(20), 1, kSize, 0xFFFFFFFE); },
         {kTotal}},
        {"one byte more than 64 MiB together",
         kHeaders,
         [] { return totalOfSize(64 * kMiB + 1); },
         {kTotal}},
        {"five bombs of 16 MiB", kHeaders, [] { return bombs(5, 16 * kMiB); }, {kTotal}},
        {"names of one byte more than 256 KiB",
         kHeaders,
         [] { return namesOfSize(262145); },
         {": The names of all entries together are longer than 256 KiB."}},
        {"a text of more than 16 MiB",
         kHeaders,
         [] { return packageOf(customization(Bytes(16 * kMiB, ' '))); },
         {": \"customization.xml\" is larger than 16 MiB."}},
        {"a drawing of more than 16 MiB",
         kHeaders,
         [] {
             return PackageBuilder()
                 .add("customization.xml", customization(), Packing::Store)
                 .add("images/a.svg", "<svg>" + Bytes(16 * kMiB, ' ') + "</svg>")
                 .build();
         },
         {": \"images/a.svg\" is larger than 16 MiB."}},
    };
}

[[nodiscard]] std::vector<HostilePackage> bombsWithin()
{
    const auto noPng = [](int count) {
        std::vector<std::string> told;
        for (int i = 0; i < count; ++i)
            told.push_back("!images/" + std::to_string(i) + ".png: The file is not a PNG image.");
        return told;
    };
    return {
        {"a bomb that keeps within an entry", FaultIn::Content, [] { return bombs(1, 16 * kMiB); },
         noPng(1)},
        {"bombs that keep within the limits", FaultIn::Content, [] { return bombs(63, kMiB); },
         noPng(63)},
        {"a bomb in 1,999 entries", FaultIn::Content, [] { return bombs(1999, 33000); },
         noPng(1999)},
        {"an archive in an archive in an archive",
         FaultIn::Content,
         [] { return nested(4); },
         {"!images/inner.png: The file is not a PNG image."}},
    };
}

} // namespace

std::vector<HostilePackage> hostileSizes()
{
    std::vector<HostilePackage> all;
    for (const auto& part : {archives(), bombsWithin()})
        all.insert(all.end(), part.begin(), part.end());
    return all;
}

std::vector<HostilePackage> hostileLengths()
{
    return {
        text(
            "elements 33 deep", [] { return menus(30); }, "1:711: " + std::string(kDepth)),
        text(
            "elements 100,000 deep", [] { return menus(100000); }, "1:711: " + std::string(kDepth)),
        text(
            "257 attributes", [] { return "<customization" + attributes(257) + "/>"; },
            "1:1: " + std::string(kAttributes)),
        text(
            "20,000 attributes", [] { return "<customization" + attributes(20000) + "/>"; },
            "1:1: " + std::string(kAttributes)),
        text(
            "16 MiB of one attribute after the other",
            [] { return "<customization" + Bytes(" a=''").repeated(3 * kMiB) + "/>"; },
            "1:1: " + std::string(kAttributes)),
        text(
            "a tag of more than 64 KiB",
            [] { return "<customization format='" + Bytes(65536, 'x') + "'/>"; },
            "1:1: " + std::string(kToken)),
        text(
            "a tag without end", [] { return "<customization format='" + Bytes(8 * kMiB, 'x'); },
            "1:1: " + std::string(kToken)),
        text(
            "a text of more than 64 KiB",
            [] { return "<customization>" + Bytes(65537, 'x') + "</customization>"; },
            "1:16: " + std::string(kToken)),
        text(
            "a text without end", [] { return "<customization>" + Bytes(8 * kMiB, 'x'); },
            "1:16: " + std::string(kToken)),
        text(
            "a comment without end", [] { return "<!--" + Bytes(8 * kMiB, 'x'); },
            "1:1: " + std::string(kToken)),
        text(
            "a long comment behind the root",
            [] { return customization() + "<!--" + Bytes(65536, 'x') + "-->"; },
            "1:75: " + std::string(kToken)),
        text(
            "CDATA without end", [] { return "<customization><![CDATA[" + Bytes(8 * kMiB, 'x'); },
            "1:16: " + std::string(kToken)),
        text(
            "16 MiB of blanks before the root", [] { return Bytes(16 * kMiB - 4, ' ') + "<a/>"; },
            "1:16777213: " + std::string(kToken)),
        text(
            "16 MiB of nothing but blanks", [] { return Bytes(16 * kMiB, ' '); },
            "1:1: The XML text ends before its root element does."),
        text(
            "a name of 4,097 letters", [] { return "<" + Bytes(4097, 'n') + "/>"; },
            "1:4099: This is not well-formed XML: Length of XML attribute name exceeds "
            "implementation limits (4KiB characters)."),
        text(
            "a name without end", [] { return "<" + Bytes(8 * kMiB, 'n'); },
            "1:4099: This is not well-formed XML: Length of XML attribute name exceeds "
            "implementation limits (4KiB characters)."),
        text(
            "more than 256 KiB of names",
            [] {
                return customization("<menus><menu id='m' text='M'>" +
                                     Bytes("<separator/>").repeated(30000) + "</menu></menus>");
            },
            "1:349528: " + std::string(kXmlNames)),
    };
}

} // namespace packages
