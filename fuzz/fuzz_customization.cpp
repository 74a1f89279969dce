// Any bytes as the customization.xml of a package.
#include "refhost/core/customizationreader.h"

#include <cstddef>
#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const QByteArray xml(reinterpret_cast<const char*>(data), static_cast<int>(size));
    const quelhost::CustomizationReading reading = quelhost::readCustomization(
        xml, QStringLiteral("fuzz.xml"), {QStringLiteral("images/pump.svg")});
    // Good means at least a name: that is what a group is known by.
    if (reading.faults.empty() && reading.group.name.isEmpty())
        __builtin_trap();
    return 0;
}
