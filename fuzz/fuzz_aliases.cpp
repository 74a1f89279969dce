// Any bytes as an alias file.
#include "refhost/core/aliases.h"

#include <cstddef>
#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const QByteArray bytes(reinterpret_cast<const char*>(data), static_cast<int>(size));
    const quelhost::AliasReading reading =
        quelhost::parseAliases(bytes, QStringLiteral("fuzz.pgp"));
    for (auto each = reading.aliases.begin(); each != reading.aliases.end(); ++each) {
        if (each.key().isEmpty() || each.value().isEmpty())
            __builtin_trap();
    }
    return 0;
}
