// Packs files in the plainest way, whatever their names: no compressor, and nothing is refused.
#pragma once

#include <QByteArray>

#include <cstdint>
#include <string_view>
#include <vector>

namespace fuzzing {

struct PackedFile
{
    std::string_view name;
    std::string_view bytes;
    bool deflated = false;  // in blocks that hold their bytes as they are
    bool encrypted = false; // says so; the bytes are not
    std::uint32_t mode = 0100644;
};

// A consistent archive with the right checksums. REQUIRES: no name has 64 KiB.
[[nodiscard]] QByteArray plainZip(const std::vector<PackedFile>& files);

} // namespace fuzzing
