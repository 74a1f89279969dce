// Prompts, variables and output of the recording host.
#include "host/output.h"
#include "host/prompts.h"
#include "host/variables.h"
#include "host/wideformat.h"

#include "tests/support/hostcode.h"
#include "tests/support/recordinghost.h"
#include "tests/support/tracetext.h"

#include "refhost/core/typedformat.h"
#include "refhost/core/widetext.h"

#include <algorithm>
#include <cstdarg>
#include <cstdlib>
#include <cstring>
#include <cwctype>

using recording::Answers;
using recording::host;
using recording::HostCode;
using recording::list;
using recording::PromptAnswer;
using recording::shown;

namespace {

// Reads and writes all of the buffer, whatever the answer's length.
int answerPrompt(const std::string& function, const std::string& arguments,
                 Answers<PromptAnswer>& script, wchar_t* buffer, int room)
{
    const auto size = static_cast<std::size_t>(room);
    host().answerWasZeroed.push_back(
        std::all_of(buffer, buffer + room, [](wchar_t character) { return character == L'\0'; }));
    const PromptAnswer answer = script.take();
    std::string result = shown(answer.status);
    if (answer.text)
        result += " " + shown(*answer.text);
    host().called(function, arguments, result);
    if (answer.text) {
        std::fill_n(buffer, room, L'#');
        buffer[answer.text->copy(buffer, size - 1)] = L'\0';
    }
    return answer.status;
}

std::wstring upperName(const wchar_t* name)
{
    std::wstring result(name);
    for (wchar_t& character : result)
        character = character >= L'a' && character <= L'z' ? character - L'a' + L'A' : character;
    return result;
}

recording::SeenRecord seen(const resbuf& record)
{
    recording::SeenRecord result{record.link != nullptr, record.type, {}};
    std::memcpy(result.value.data(), &record.value, result.value.size());
    return result;
}

// The arguments that `format` names: first those in `taken`, then from `rest`.
std::vector<FormatArgument> takeArguments(const wchar_t* format, std::vector<FormatArgument> taken,
                                          va_list rest)
{
    std::size_t wanted = 0;
    for (const wchar_t* at = std::wcschr(format, L'%'); at != nullptr;
         at = std::wcschr(at + 1, L'%')) {
        at += std::wcsspn(at + 1, L"-+ #0123456789.l") + 1;
        if (*at == L'\0')
            break;
        if ((*at != L's' && *at != L'd') || ++wanted <= taken.size())
            continue;
        if (*at == L's')
            taken.emplace_back(va_arg(rest, const wchar_t*));
        else
            taken.emplace_back(va_arg(rest, int));
    }
    return taken;
}

std::string shownArgument(const FormatArgument& argument)
{
    return argument.kind() == FormatArgument::Kind::Text ? shown(argument.text())
                                                         : std::to_string(argument.signedValue());
}

void print(const std::string& function, const wchar_t* format,
           const std::vector<FormatArgument>& arguments)
{
    std::string noted = shown(format);
    for (const FormatArgument& argument : arguments)
        noted += ", " + shownArgument(argument);
    host().called(function, noted);
    host().printed += quelhost::formatTyped(format, arguments).c_str();
}

} // namespace

int quedInitGet(int flags, const wchar_t* keywords)
{
    const HostCode here;
    host().called("quedInitGet", list(shown(flags), shown(keywords)), shown(QuelStatus::kNormal));
    return QuelStatus::kNormal;
}

int quedGetString(int cronly, const wchar_t* prompt, wchar_t* answer)
{
    const HostCode here;
    return answerPrompt("quedGetString", list(shown(cronly), shown(prompt)), host().strings, answer,
                        kQuelStringAnswerRoom);
}

int quedGetKword(const wchar_t* prompt, wchar_t* answer)
{
    const HostCode here;
    return answerPrompt("quedGetKword", shown(prompt), host().keywords, answer,
                        kQuelKeywordAnswerRoom);
}

bool quedScriptAppRunning()
{
    const HostCode here;
    const bool result = host().scriptRuns.take();
    host().called("quedScriptAppRunning", "", shown(result));
    return result;
}

bool commandShouldUseDialog(IQuelBuildInCommandContext* context)
{
    const HostCode here;
    host().lastContext = context;
    const bool result = host().useDialog.take();
    host().called("commandShouldUseDialog", context == nullptr ? "null" : "context", shown(result));
    return result;
}

QuelDocumentData* GetQuelAppCtxActiveDocData()
{
    const HostCode here;
    static QuelDocumentData data{};
    const auto flags = host().documentFlags;
    data.flags = flags.value_or(0);
    host().called("GetQuelAppCtxActiveDocData", "", flags ? "flags " + shown(int{*flags}) : "null");
    return flags ? &data : nullptr;
}

int quedGetVar(const wchar_t* name, resbuf* result)
{
    const HostCode here;
    host().seenRecords.push_back(seen(*result));
    const auto variable = host().variables.find(upperName(name));
    const bool known = variable != host().variables.end();
    const int status = known ? variable->second(*result) : QuelStatus::kError;
    host().called("quedGetVar", shown(name), shown(status));
    return status;
}

void quutDelBuffer(void*& buffer)
{
    const HostCode here;
    host().called("quutDelBuffer", buffer == nullptr ? "null" : "buffer");
    if (buffer != nullptr && host().buffers.erase(buffer) == 0)
        ++host().foreignFrees;
    else
        std::free(buffer);
    buffer = nullptr;
}

void quutRelRb(resbuf* chain)
{
    const HostCode here;
    host().called("quutRelRb", chain == nullptr ? "null" : "chain");
    while (chain != nullptr) {
        resbuf* const next = chain->link;
        if (chain->type == QuelResultType::kString && chain->value.string != nullptr) {
            host().foreignFrees += host().buffers.erase(chain->value.string) == 0 ? 1 : 0;
            std::free(chain->value.string);
        }
        delete chain;
        chain = next;
    }
}

void quutPrintf(const wchar_t* text)
{
    const HostCode here;
    host().called("quutPrintf", shown(text));
    for (const wchar_t* at = text; at != nullptr && *at != L'\0'; ++at) {
        host().printed += *at;
        if (at[0] == L'%' && at[1] == L'%')
            ++at;
    }
}

void quutPrintf(const wchar_t* format, const wchar_t* first, ...)
{
    const HostCode here;
    va_list rest;
    va_start(rest, first);
    print("quutPrintf", format, takeArguments(format, {first}, rest));
    va_end(rest);
}

void promptf(const wchar_t* format, ...)
{
    const HostCode here;
    va_list rest;
    va_start(rest, format);
    print("promptf", format, takeArguments(format, {}, rest));
    va_end(rest);
}
