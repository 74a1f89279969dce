// Any text as the customization.xml of a package; four of its bytes stand for more (stretchedText).
#include "fuzz/support/broken.h"
#include "fuzz/support/groupcheck.h"
#include "fuzz/support/hosttexts.h"
#include "fuzz/support/stretchedtext.h"

#include "refhost/core/customizationreader.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>

using fuzzing::mustHold;
using quelhost::Fault;

namespace {

bool isBefore(const Fault& one, const Fault& other)
{
    return std::pair(one.line, one.column) < std::pair(other.line, other.column);
}

} // namespace

extern "C" int LLVMFuzzerInitialize(int* argc, char*** argv)
{
    return fuzzing::installTexts(*argc, *argv) ? 0 : 1;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static const QString file = QStringLiteral("fuzz.xml");
    static const std::set<QString> entries{QStringLiteral("images/pump.svg"),
                                           QStringLiteral("images/tee.png")};
    const QByteArray xml = fuzzing::stretchedText({reinterpret_cast<const char*>(data), size});
    const quelhost::CustomizationReading reading = quelhost::readCustomization(xml, file, entries);
    fuzzing::checkFaults(reading.faults, file);
    mustHold(std::is_sorted(reading.faults.begin(), reading.faults.end(), isBefore),
             "faults come in the order of their places");
    const auto ends = std::count_if(xml.begin(), xml.end(),
                                    [](char byte) { return byte == '\n' || byte == '\r'; });
    for (const Fault& fault : reading.faults)
        mustHold(fault.line <= ends + 1 && fault.column <= xml.size() + 1,
                 "a fault is somewhere in the text");
    if (reading.faults.empty())
        fuzzing::checkGroup(reading.group, entries);
    return 0;
}
