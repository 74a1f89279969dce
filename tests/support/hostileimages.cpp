// Images that are none, or that no decoder should be given.
#include "tests/support/hostilepackages.h"
#include "tests/support/imagebuilder.h"
#include "tests/support/packagebuilder.h"

namespace packages {

namespace {

using Bytes = QByteArray;

const char* const kNoPng = "The file is not a PNG image.";
const char* const kBroken = "The image cannot be decoded.";

[[nodiscard]] HostilePackage image(const char* name, const std::function<Bytes()>& bytes,
                                   const std::string& told,
                                   const std::string& entry = "images/a.png")
{
    const auto make = [entry, bytes] {
        return PackageBuilder()
            .add("customization.xml", customization())
            .add(entry, bytes())
            .build();
    };
    return {name, FaultIn::Content, make, {"!" + entry + ": " + told}};
}

// A file among the images that is told by its name; the text is stored, so that nothing need be
// inflated.
[[nodiscard]] HostilePackage misnamed(const char* name, const std::function<Bytes()>& bytes,
                                      const std::string& entry)
{
    const auto make = [entry, bytes] {
        return PackageBuilder()
            .add("customization.xml", customization(), Packing::Store)
            .add(entry, bytes())
            .build();
    };
    const std::string told = "The file is neither a .png nor an .svg image.";
    return {name, FaultIn::Headers, make, {"!" + entry + ": " + told}};
}

[[nodiscard]] Bytes withByte(Bytes bytes, int at, char change)
{
    bytes[at] = static_cast<char>(bytes[at] ^ change);
    return bytes;
}

// The header of another kind of colours, with a good checksum.
[[nodiscard]] Bytes withColours(char depth, char kind)
{
    const Bytes good = png(16, 16);
    const Bytes header = good.mid(16, 8) + depth + kind + Bytes(3, '\0');
    return good.left(8) + pngChunk("IHDR", header) + good.mid(33);
}

[[nodiscard]] std::string tooLarge(const char* size)
{
    return std::string("The image is ") + size + " pixels; at most 256 x 256 are allowed.";
}

[[nodiscard]] std::vector<HostilePackage> otherFiles()
{
    return {
        misnamed(
            "a script among the images", [] { return Bytes("#!/bin/sh\n"); }, "images/a.sh"),
        misnamed(
            "a gif", [] { return Bytes("GIF89a" + Bytes(40, '\0')); }, "images/a.gif"),
        misnamed(
            "a packed drawing", [] { return Bytes("\x1F\x8B\x08\0", 4); }, "images/a.svgz"),
        misnamed(
            "an image whose name turns around", [] { return png(1, 1); },
            "images/\xE2\x80\xAEgnp.exe"),
        misnamed(
            "an image without an ending", [] { return png(1, 1); }, "images/png"),
        image(
            "a png of nothing", [] { return Bytes(); }, kNoPng),
        image(
            "a jpeg called png", [] { return Bytes("\xFF\xD8\xFF\xE0") + Bytes(60, '\0'); },
            kNoPng),
        image(
            "a gif called png", [] { return "GIF89a" + Bytes(60, '\0'); }, kNoPng),
        image(
            "a drawing called png", [] { return svg(""); }, kNoPng),
        image(
            "half of a png's signature", [] { return png(16, 16).left(4); }, kNoPng),
        image(
            "a png's signature alone", [] { return png(16, 16).left(8); }, kNoPng),
        image(
            "half of a png's header", [] { return png(16, 16).left(32); }, kNoPng),
        image(
            "a png with line ends changed",
            [] { return png(16, 16).replace("\r\n\x1A\n", "\n\x1A\n"); }, kNoPng),
        image(
            "a png that begins with another chunk",
            [] {
                const Bytes good = png(16, 16);
                return good.left(8) + pngChunk("tEXt", Bytes("a\0b", 3)) + good.mid(8);
            },
            kNoPng),
    };
}

[[nodiscard]] std::vector<HostilePackage> pngSizes()
{
    return {
        image(
            "a png too wide", [] { return png(257, 1); }, tooLarge("257 x 1")),
        image(
            "a png too high", [] { return png(1, 257); }, tooLarge("1 x 257")),
        image(
            "a png of 1,500 pixels a side", [] { return png(1500, 1500); },
            tooLarge("1500 x 1500")),
        image(
            "a png said to be enormous",
            [] { return withSize(png(16, 16), "\x7F\xFF\xFF\xFF\x7F\xFF\xFF\xFF"); },
            tooLarge("2147483647 x 2147483647")),
        image(
            "a png said to be larger than any",
            [] { return withSize(png(16, 16), "\xFF\xFF\xFF\xFF\xFF\xFF\xFF\xFF"); },
            tooLarge("4294967295 x 4294967295")),
        image(
            "a png without width",
            [] { return withSize(png(16, 16), Bytes("\0\0\0\0\0\0\0\x10", 8)); }, kBroken),
        image(
            "a png of more pixels than it has",
            [] { return withSize(png(16, 16), Bytes("\0\0\0\x11\0\0\0\x11", 8)); }, kBroken),
        image(
            "a png with a second header of another size",
            [] {
                const Bytes good = png(16, 16);
                return good.left(33) + withSize(good, "\x7F\xFF\xFF\xFF\x7F\xFF\xFF\xFF").mid(8);
            },
            kBroken),
    };
}

[[nodiscard]] std::vector<HostilePackage> pngDamage()
{
    return {
        image(
            "a png's header alone", [] { return png(16, 16).left(33); }, kBroken),
        image(
            "a png without pixels", [] { return png(16, 16).left(33) + pngEnd(); }, kBroken),
        image(
            "a png without its end", [] { return png(16, 16).chopped(12); }, kBroken),
        image(
            "a png without its last byte", [] { return png(16, 16).chopped(1); }, kBroken),
        image(
            "a png with a wrong checksum", [] { return withByte(png(16, 16), 32, 1); }, kBroken),
        image(
            "a png of a kind that does not exist", [] { return withColours(8, 5); }, kBroken),
        image(
            "a png of a depth that does not exist", [] { return withColours(3, 6); }, kBroken),
        image(
            "a png with colours that are not there", [] { return withColours(8, 3); }, kBroken),
        image(
            "a png of pixels that do not unpack",
            [] { return png(16, 16).left(33) + pngChunk("IDAT", Bytes(40, 'x')) + pngEnd(); },
            kBroken),
        image(
            "a png of pixels cut short",
            [] {
                return png(16, 16).left(33) + pngChunk("IDAT", qCompress(Bytes(100, '\0')).mid(4)) +
                       pngEnd();
            },
            kBroken),
        image(
            "a png with a chunk longer than the file",
            [] { return png(16, 16).left(33) + Bytes("\xFF\xFF\xFF\xFFIDAT", 8) + pngEnd(); },
            kBroken),
        image(
            "a png with a chunk that ends in its name",
            [] { return png(16, 16).left(33) + Bytes("\0\0\0\4ID", 6); }, kBroken),
        image(
            "a png of 80 MiB of text and no end",
            [] {
                Bytes bomb = png(16, 16).chopped(12);
                const Bytes chunk = packedText(8);
                for (int i = 0; i < 10; ++i)
                    bomb = withChunk(bomb, "zTXt", chunk);
                return bomb;
            },
            kBroken),
    };
}

} // namespace

std::vector<HostilePackage> hostilePngs()
{
    std::vector<HostilePackage> all;
    for (const auto& part : {otherFiles(), pngSizes(), pngDamage()})
        all.insert(all.end(), part.begin(), part.end());
    return all;
}

} // namespace packages
