// Archives of which one entry cannot be trusted; the rest of each is good.
#include "tests/support/damagedarchives.h"
#include "tests/support/hostilepackages.h"

#include <zlib.h>

namespace packages {

namespace {

using Bytes = QByteArray;

const char* const kWrong = ": \"images/a.png\" is damaged: its content does not have the size and "
                           "checksum that the archive states.";
const char* const kSpecial = ": \"images/a.png\" is a link or a device, not a plain file.";
const char* const kEncrypted = ": \"images/a.png\" is encrypted; a package must not be.";
const char* const kMethodFault = ": \"images/a.png\" is compressed in a way that is not supported; "
                                 "only stored and deflated entries are.";
const char* const kMissing = ": The archive has no customization.xml.";

[[nodiscard]] PackageBuilder withText()
{
    return PackageBuilder().add("customization.xml", customization(), Packing::Store);
}

[[nodiscard]] Bytes good()
{
    return withText().add("images/a.png", png(16, 16)).build();
}

[[nodiscard]] Bytes ofKind(quint32 mode)
{
    return withText().add("images/a.png", "/etc/passwd").unixMode(mode).build();
}

// A good archive whose image is packed in a way of its own, with the size and the checksum that
// the image should have.
[[nodiscard]] Bytes packedAs(const Bytes& packed, quint32 method = 8)
{
    const Bytes image = png(16, 16);
    const auto sum = static_cast<quint32>(crc32(
        0, reinterpret_cast<const Bytef*>(image.constData()), static_cast<uInt>(image.size())));
    Bytes archive = withText().add("images/a.png", packed, Packing::Store).build();
    archive = withField16(archive, 1, kMethod, method);
    archive = withField32(archive, 1, kSize, static_cast<quint32>(image.size()));
    return withField32(archive, 1, kChecksum, sum);
}

// The image as deflate packs it.
[[nodiscard]] Bytes packedImage()
{
    return qCompress(png(16, 16)).mid(6).chopped(4); // without the size, header and checksum
}

[[nodiscard]] Bytes withPackedByte(int at, char byte)
{
    Bytes packed = packedImage();
    packed[at] = byte;
    return packedAs(packed);
}

[[nodiscard]] std::vector<HostilePackage> kinds()
{
    constexpr FaultIn kHeaders = FaultIn::Headers;
    return {
        {"a link to a local file", kHeaders, [] { return ofKind(0120777); }, {kSpecial}},
        {"a character device", kHeaders, [] { return ofKind(0020644); }, {kSpecial}},
        {"a block device", kHeaders, [] { return ofKind(0060644); }, {kSpecial}},
        {"a pipe", kHeaders, [] { return ofKind(0010644); }, {kSpecial}},
        {"a socket", kHeaders, [] { return ofKind(0140644); }, {kSpecial}},
        {"a kind that nobody knows", kHeaders, [] { return ofKind(0170644); }, {kSpecial}},
        {"a text that is a link",
         kHeaders,
         [] {
             return PackageBuilder()
                 .add("customization.xml", "/etc/passwd")
                 .unixMode(0120777)
                 .build();
         },
         {": \"customization.xml\" is a link or a device, not a plain file."}},
        {"a folder with content",
         kHeaders,
         [] { return withText().add("images/b/", "x").build(); },
         {": The folder \"images/b/\" has content of its own."}},
        {"an entry twice",
         kHeaders,
         [] {
             Bytes archive =
                 withText().add("images/a.png", png(1, 1)).add("images/b.png", "x").build();
             rename(archive, 2, "images/a.png");
             return archive;
         },
         {": The archive has more than one entry \"images/a.png\"."}},
        {"the text twice",
         kHeaders,
         [] {
             Bytes archive = withText().add("customization.XML", customization()).build();
             rename(archive, 1, "customization.xml");
             return archive;
         },
         {": The archive has more than one entry \"customization.xml\"."}},
        {"an archive of nothing",
         kHeaders,
         [] { return Bytes("PK\5\6", 4) + Bytes(18, '\0'); },
         {kMissing}},
        {"images without a text",
         kHeaders,
         [] { return PackageBuilder().add("images/a.png", png(16, 16)).build(); },
         {kMissing}},
        {"only folders",
         kHeaders,
         [] { return PackageBuilder().add("images/", "", Packing::Store).build(); },
         {kMissing}},
    };
}

[[nodiscard]] std::vector<HostilePackage> packings()
{
    constexpr FaultIn kHeaders = FaultIn::Headers;
    const auto flagged = [](quint32 flags) {
        return [flags] { return withField16(good(), 1, kFlags, flags); };
    };
    const auto packed = [](quint32 method) {
        return [method] { return withField16(good(), 1, kMethod, method); };
    };
    return {
        {"encrypted",
         kHeaders,
         [] { return withText().add("images/a.png", png(16, 16)).encrypt().build(); },
         {kEncrypted}},
        {"said to be encrypted", kHeaders, flagged(0x0001), {kEncrypted}},
        {"said to be strongly encrypted", kHeaders, flagged(0x0041), {kEncrypted}},
        {"said to have its header encrypted", kHeaders, flagged(0x2000), {kEncrypted}},
        {"encrypted as only its own header says",
         kHeaders,
         [] { return withLocal16(good(), 1, kFlags.local, 1); },
         {kEncrypted}},
        {"encrypted as only the table of contents says",
         kHeaders,
         [] { return withCentral16(good(), 1, kFlags.central, 1); },
         {kEncrypted}},
        {"an encrypted text",
         kHeaders,
         [] {
             return PackageBuilder().add("customization.xml", customization()).encrypt().build();
         },
         {": \"customization.xml\" is encrypted; a package must not be."}},
        {"packed with bzip2",
         kHeaders,
         [] { return withText().add("images/a.png", Bytes(5000, 'x'), Packing::Bzip2).build(); },
         {kMethodFault}},
        {"packed by shrinking", kHeaders, packed(1), {kMethodFault}},
        {"packed by imploding", kHeaders, packed(6), {kMethodFault}},
        {"packed with a larger deflate", kHeaders, packed(9), {kMethodFault}},
        {"packed with lzma", kHeaders, packed(14), {kMethodFault}},
        {"packed with zstd", kHeaders, packed(93), {kMethodFault}},
        {"packed with xz", kHeaders, packed(95), {kMethodFault}},
        {"packed as encrypted entries are", kHeaders, packed(99), {kMethodFault}},
        {"packed in a way nobody knows", kHeaders, packed(0xFFFF), {kMethodFault}},
    };
}

[[nodiscard]] std::vector<HostilePackage> contents()
{
    constexpr FaultIn kContent = FaultIn::Content;
    const auto sized = [](int more) {
        return [more] {
            return withField32(good(), 1, kSize, static_cast<quint32>(png(16, 16).size() + more));
        };
    };
    return {
        {"a wrong checksum",
         kContent,
         [] { return withField32(good(), 1, kChecksum, 0x12345678); },
         {kWrong}},
        {"a wrong checksum of a stored entry",
         kContent,
         [] {
             return withField32(withText().add("images/a.png", png(1, 1), Packing::Store).build(),
                                1, kChecksum, 0x12345678);
         },
         {kWrong}},
        {"a wrong checksum of the text",
         kContent,
         [] { return withField32(packageOf(customization()), 0, kChecksum, 1); },
         {": \"customization.xml\" is damaged: its content does not have the size and checksum "
          "that "
          "the archive states."}},
        {"one byte more than stated", kContent, sized(-1), {kWrong}},
        {"one byte fewer than stated", kContent, sized(1), {kWrong}},
        {"far fewer bytes than stated",
         kContent,
         [] { return withField32(good(), 1, kSize, 16 * kMiB); },
         {kWrong}},
        {"bytes where none are stated",
         kContent,
         [] { return withField32(good(), 1, kSize, 0); },
         {kWrong}},
        {"a bomb that is said to be of one byte",
         kContent,
         [] {
             return withField32(withText().add("images/a.png", Bytes(16 * kMiB, '\0')).build(), 1,
                                kSize, 1);
         },
         {kWrong}},
        {"packed bytes cut short",
         kContent,
         [] { return packedAs(packedImage().chopped(8)); },
         {kWrong}},
        {"no packed bytes", kContent, [] { return packedAs({}); }, {kWrong}},
        {"a block of a kind that does not exist",
         kContent,
         [] { return withPackedByte(0, '\7'); },
         {kWrong}},
        {"a block with a wrong length",
         kContent,
         [] { return packedAs(Bytes("\1\5\0\0\0xxxxx", 10)); },
         {kWrong}},
        {"a repetition of what was not there",
         kContent,
         [] { return packedAs(Bytes("\x4B\x04\x42\x00", 4)); },
         {kWrong}},
        {"a code table with too many codes",
         kContent,
         [] { return packedAs(Bytes("\xFD\xFF\xFF\xFF\xFF\xFF\xFF\xFF", 8)); },
         {kWrong}},
        {"a wrong byte among the packed ones",
         kContent,
         [] { return withPackedByte(20, '\x55'); },
         {kWrong}},
        {"stored bytes said to be packed",
         kContent,
         [] { return packedAs(png(16, 16)); },
         {kWrong}},
        {"packed bytes said to be stored",
         kContent,
         [] { return packedAs(packedImage(), 0); },
         {kWrong}},
    };
}

} // namespace

std::vector<HostilePackage> hostileEntries()
{
    std::vector<HostilePackage> all;
    for (const auto& part : {kinds(), packings(), contents()})
        all.insert(all.end(), part.begin(), part.end());
    return all;
}

} // namespace packages
