#include "fuzz/support/plainzip.h"

#include <zlib.h>

namespace fuzzing {

namespace {

constexpr std::uint32_t kDeflated = 8;
constexpr std::uint32_t kUtf8Names = 0x0800;
constexpr std::uint32_t kEncrypted = 0x0001;
constexpr std::uint32_t kFirstDay = 0x0021; // of 1980
constexpr std::uint32_t kVersion = 20;
constexpr std::uint32_t kMadeOnUnix = 0x0300 + kVersion;

void put16(QByteArray& to, std::uint32_t value)
{
    to += static_cast<char>(value & 0xFFU);
    to += static_cast<char>(value >> 8 & 0xFFU);
}

void put32(QByteArray& to, std::uint32_t value)
{
    put16(to, value & 0xFFFFU);
    put16(to, value >> 16);
}

void putBytes(QByteArray& to, std::string_view bytes)
{
    to.append(bytes.data(), static_cast<int>(bytes.size()));
}

// As blocks of bytes as they are.
QByteArray deflated(std::string_view content)
{
    constexpr std::size_t kLongestBlock = 0xFFFF;
    QByteArray bytes;
    for (bool isLast = false; !isLast;) {
        const std::string_view block = content.substr(0, kLongestBlock);
        content.remove_prefix(block.size());
        isLast = content.empty();
        const auto size = static_cast<std::uint32_t>(block.size());
        bytes += isLast ? '\1' : '\0';
        put16(bytes, size);
        put16(bytes, ~size & 0xFFFFU);
        putBytes(bytes, block);
    }
    return bytes;
}

QByteArray content(const PackedFile& file)
{
    return file.deflated ? deflated(file.bytes)
                         : QByteArray(file.bytes.data(), static_cast<int>(file.bytes.size()));
}

// What both headers have, from the version that is needed to the length of the name.
void putCommon(QByteArray& to, const PackedFile& file, int packedSize)
{
    const auto* const data = reinterpret_cast<const Bytef*>(file.bytes.data());
    put16(to, kVersion);
    put16(to, kUtf8Names | (file.encrypted ? kEncrypted : 0));
    put16(to, file.deflated ? kDeflated : 0);
    put16(to, 0);
    put16(to, kFirstDay);
    put32(to, static_cast<std::uint32_t>(crc32(0, data, static_cast<uInt>(file.bytes.size()))));
    put32(to, static_cast<std::uint32_t>(packedSize));
    put32(to, static_cast<std::uint32_t>(file.bytes.size()));
    put16(to, static_cast<std::uint32_t>(file.name.size()));
    put16(to, 0);
}

} // namespace

QByteArray plainZip(const std::vector<PackedFile>& files)
{
    QByteArray archive;
    QByteArray directory;
    for (const PackedFile& file : files) {
        const QByteArray bytes = content(file);
        directory += "PK\1\2";
        put16(directory, kMadeOnUnix);
        putCommon(directory, file, bytes.size());
        put16(directory, 0);
        put16(directory, 0);
        put16(directory, 0);
        put32(directory, file.mode << 16);
        put32(directory, static_cast<std::uint32_t>(archive.size()));
        putBytes(directory, file.name);
        archive += "PK\3\4";
        putCommon(archive, file, bytes.size());
        putBytes(archive, file.name);
        archive += bytes;
    }
    const auto start = static_cast<std::uint32_t>(archive.size());
    archive += directory;
    archive += "PK\5\6";
    put32(archive, 0);
    put16(archive, static_cast<std::uint32_t>(files.size()));
    put16(archive, static_cast<std::uint32_t>(files.size()));
    put32(archive, static_cast<std::uint32_t>(directory.size()));
    put32(archive, start);
    put16(archive, 0);
    return archive;
}

} // namespace fuzzing
