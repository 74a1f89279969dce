// The resource functions of the recording host.
#include "host/resources.h"

#include "tests/support/hostcode.h"
#include "tests/support/recordinghost.h"
#include "tests/support/tracetext.h"

#include "refhost/core/widetext.h"

#include <algorithm>
#include <set>

using recording::host;
using recording::HostCode;
using recording::list;
using recording::MaybeText;
using recording::shown;

namespace {

// A handle is the address of its file's name, in a table that is never emptied. Its type stays
// open: the reference host has one of that name, and there are tests with parts of both.
QuelResourceHandle handleOf(const std::wstring& file)
{
    static std::set<std::wstring> files;
    const std::wstring& name = *files.insert(file).first;
    return reinterpret_cast<QuelResourceHandle>(&name);
}

const std::wstring& fileOf(QuelResourceHandle handle)
{
    return *reinterpret_cast<const std::wstring*>(handle);
}

// The resource of that file; nothing when there is none.
const MaybeText* findText(const std::wstring& file, unsigned int id)
{
    const auto texts = host().resources.find(file);
    if (texts == host().resources.end())
        return nullptr;
    const auto text = texts->second.find(id);
    return text == texts->second.end() ? nullptr : &text->second;
}

// Writes the text and makes every character behind it a wrong one.
int copyTo(const MaybeText* text, wchar_t* buffer, int room)
{
    std::fill_n(buffer, room, L'#');
    const std::wstring all = text == nullptr ? L"" : text->value_or(L"");
    const std::size_t length = all.copy(buffer, static_cast<std::size_t>(room - 1));
    buffer[length] = L'\0';
    return static_cast<int>(length);
}

} // namespace

bool SetCurrentResourceName(const wchar_t* name)
{
    const HostCode here;
    return host().enterScope("SetCurrentResourceName", name, host().globalScope);
}

void RestorePreviousResource()
{
    const HostCode here;
    host().called("RestorePreviousResource", "");
    host().leaveScope();
}

QuelResourceHandle AfxGetResourceHandle()
{
    const HostCode here;
    const std::wstring& file = host().resourceStack.back();
    host().called("AfxGetResourceHandle", "", quelhost::toUtf8(file));
    return handleOf(file);
}

int LoadStringW(QuelResourceHandle resource, unsigned int id, wchar_t* buffer, int maxChars)
{
    const HostCode here;
    host().lastLoadBuffer = buffer;
    const std::size_t line = host().trace.size();
    host().called("LoadStringW",
                  list(quelhost::toUtf8(fileOf(resource)), shown(id), shown(maxChars)));
    const int result = host().loadString ? host().loadString(id, buffer, maxChars)
                                         : copyTo(findText(fileOf(resource), id), buffer, maxChars);
    host().amend(line, " -> " + shown(result));
    return result;
}

QuString qumdQuResourceString(unsigned int id, const wchar_t* defaultText)
{
    const HostCode here;
    host().defaultTexts[id] = defaultText == nullptr ? MaybeText() : MaybeText(defaultText);
    const MaybeText* text = findText(host().resourceStack.back(), id);
    QuString result(defaultText);
    if (text != nullptr)
        result = *text ? QuString((*text)->c_str()) : QuString();
    host().called("qumdQuResourceString", list(shown(id), shown(defaultText)), shown(result));
    return result;
}

bool QuString::loadString(unsigned int id)
{
    const HostCode here;
    const MaybeText* text = findText(host().resourceStack.back(), id);
    host().called("loadString", shown(id), shown(text != nullptr));
    if (text != nullptr)
        *this = *text ? QuString((*text)->c_str()) : QuString();
    return text != nullptr;
}
