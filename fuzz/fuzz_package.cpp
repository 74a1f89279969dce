// Any bytes as a customization package.
#include "refhost/core/package.h"

#include <cstddef>
#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const QByteArray bytes(reinterpret_cast<const char*>(data), static_cast<int>(size));
    const quelhost::PackageReading reading =
        quelhost::readPackageBytes(bytes, QStringLiteral("fuzz.cuix"));
    // A refusal without a reason would leave the user in the dark.
    if (!reading && reading.faults().empty())
        __builtin_trap();
    return 0;
}
