// Any bytes as a file of keys.
#include "fuzz/support/broken.h"
#include "fuzz/support/hosttexts.h"

#include "refhost/core/keyfile.h"

#include <cstddef>
#include <cstdint>
#include <string_view>

using fuzzing::mustHold;
using quelhost::KeyChanges;
using quelhost::Keys;

namespace {

const QLatin1String kFile("fuzz.keys");

struct Lines
{
    qint64 all = 0;
    std::size_t saying = 0; // neither empty nor a comment
};

Lines linesOf(std::string_view text)
{
    Lines lines;
    for (std::size_t end = 0; end != text.npos;
         text.remove_prefix(end == text.npos ? 0 : end + 1)) {
        end = text.find('\n');
        std::string_view line = text.substr(0, end);
        if (!line.empty() && line.back() == '\r')
            line.remove_suffix(1);
        ++lines.all;
        lines.saying += line.empty() || line.front() == '#' ? 0 : 1;
    }
    return lines;
}

bool isPlain(const QString& text)
{
    return !text.isEmpty() && !text.contains(QLatin1Char('\t')) &&
           !text.contains(QLatin1Char('\n')) && !text.contains(QLatin1Char('\r'));
}

void checkKeys(const Keys& keys)
{
    for (int i = 0; i < keys.size(); ++i) {
        mustHold(!keys.at(i).isEmpty(), "a shortcut has keys");
        mustHold(keys.indexOf(keys.at(i)) == i, "a command has a shortcut once");
    }
}

void checkChanges(const KeyChanges& changes)
{
    for (const auto& [command, keys] : changes) {
        mustHold(isPlain(command.group) && isPlain(command.id),
                 "a command has a group and an id that are parts of a line");
        checkKeys(keys);
    }
    const QByteArray written = quelhost::keyFileText(changes);
    const auto again = quelhost::parseKeyFile(written, kFile);
    mustHold(again && again.value() == changes, "keys that are written are read again");
}

} // namespace

extern "C" int LLVMFuzzerInitialize(int* argc, char*** argv)
{
    return fuzzing::installTexts(*argc, *argv) ? 0 : 1;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    const auto changes =
        quelhost::parseKeyFile(QByteArray(text.data(), static_cast<int>(size)), kFile);
    const Lines lines = linesOf(text);
    if (!changes) {
        const quelhost::Fault& fault = changes.fault();
        mustHold(!fault.sentence.isEmpty() && fault.file == kFile, "a fault says what and where");
        mustHold(fault.line >= 1 && fault.line <= lines.all, "a fault is in a line of the file");
        return 0;
    }
    mustHold(changes.value().size() + 1 == lines.saying,
             "every line behind the first that says something is a command");
    checkChanges(changes.value());
    return 0;
}
