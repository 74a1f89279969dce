// Any bytes as an alias file.
#include "fuzz/support/broken.h"
#include "fuzz/support/hosttexts.h"

#include "refhost/core/aliases.h"

#include <cstddef>
#include <cstdint>
#include <string_view>

using fuzzing::mustHold;
using quelhost::AliasReading;
using quelhost::AliasTable;
using quelhost::Fault;

namespace {

const QLatin1String kFile("fuzz.pgp");

// How many bytes the character at the front has; 0 when there is none.
std::size_t characterLength(std::string_view bytes)
{
    const auto at = [bytes](std::size_t index) {
        return index < bytes.size() ? static_cast<unsigned char>(bytes[index]) : 0U;
    };
    const unsigned int lead = at(0);
    if (lead < 0x80)
        return 1;
    // Shorter forms, surrogates and what is above U+10FFFF are told by the second byte.
    const unsigned int least = lead == 0xE0 ? 0xA0 : lead == 0xF0 ? 0x90 : 0x80;
    const unsigned int most = lead == 0xED ? 0x9F : lead == 0xF4 ? 0x8F : 0xBF;
    const std::size_t length = lead < 0xC2    ? 0
                               : lead < 0xE0  ? 2
                               : lead < 0xF0  ? 3
                               : lead <= 0xF4 ? 4
                                              : 0;
    if (length == 0 || at(1) < least || at(1) > most)
        return 0;
    for (std::size_t i = 2; i < length; ++i) {
        if ((at(i) & 0xC0U) != 0x80)
            return 0;
    }
    return length;
}

bool isUtf8(std::string_view bytes)
{
    while (!bytes.empty()) {
        const std::size_t length = characterLength(bytes);
        if (length == 0)
            return false;
        bytes.remove_prefix(length);
    }
    return true;
}

// Whether something must be said about the line, good or bad.
bool saysSomething(std::string_view line)
{
    if (!line.empty() && line.back() == '\r')
        line.remove_suffix(1);
    return !isUtf8(line) || line.substr(0, line.find('#')).find_first_not_of(" \t") != line.npos;
}

struct Lines
{
    int all = 0;
    int saying = 0;
};

Lines linesOf(std::string_view text)
{
    constexpr std::string_view mark = "\xEF\xBB\xBF";
    if (text.substr(0, mark.size()) == mark)
        text.remove_prefix(mark.size());
    Lines lines;
    for (std::size_t end = 0; end != text.npos;
         text.remove_prefix(end == text.npos ? 0 : end + 1)) {
        end = text.find('\n');
        ++lines.all;
        lines.saying += saysSomething(text.substr(0, end)) ? 1 : 0;
    }
    return lines;
}

void checkFaults(const std::vector<Fault>& faults, int lines)
{
    qint64 before = 1;
    for (const Fault& fault : faults) {
        mustHold(!fault.sentence.isEmpty() && fault.file == kFile, "a fault says what and where");
        mustHold(fault.line >= before && fault.line <= lines, "faults come in the order of lines");
        before = fault.line;
    }
}

// Behind a mark of the encoding: an alias may begin with the same character.
QByteArray written(const AliasTable& aliases)
{
    QByteArray text("\xEF\xBB\xBF");
    for (auto each = aliases.begin(); each != aliases.end(); ++each)
        text += each.key().toUtf8() + " = " + each.value().toUtf8() + '\n';
    return text;
}

} // namespace

extern "C" int LLVMFuzzerInitialize(int* argc, char*** argv)
{
    return fuzzing::installTexts(*argc, *argv) ? 0 : 1;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    const AliasReading reading =
        quelhost::parseAliases(QByteArray(text.data(), static_cast<int>(size)), kFile);
    const Lines lines = linesOf(text);
    checkFaults(reading.faults, lines.all);
    mustHold(static_cast<std::size_t>(lines.saying) ==
                 static_cast<std::size_t>(reading.aliases.size()) + reading.faults.size(),
             "every line that is not empty gives an alias or a fault");
    const AliasReading again = quelhost::parseAliases(written(reading.aliases), kFile);
    mustHold(again.faults.empty() && again.aliases == reading.aliases,
             "the aliases that were read are read again");
    return 0;
}
