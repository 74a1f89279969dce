// The functions of the host interface, each handed on to the host that is alive. What a function
// does and promises stands in its header in src/host/.

#include "host/aliases.h"
#include "host/cstdstr.h"
#include "host/customization.h"
#include "host/editors.h"
#include "host/errors.h"
#include "host/filedialog.h"
#include "host/messageboxes.h"
#include "host/output.h"
#include "host/prompts.h"
#include "host/resources.h"
#include "host/settings.h"
#include "host/variables.h"
#include "refhost/core/host.h"
#include "refhost/core/keywords.h"
#include "refhost/core/typedformat.h"
#include "refhost/core/widetext.h"

#include <cstdarg>
#include <cstdlib>
#include <cstring>
#include <utility>

using quelhost::Answer;
using quelhost::AnswerEnd;
using quelhost::Completion;
using quelhost::Host;
using quelhost::LineRequest;

namespace {

Host& host()
{
    return *Host::current();
}

std::wstring textOrEmpty(const wchar_t* text)
{
    return text == nullptr ? std::wstring() : std::wstring(text);
}

// Copies at most room - 1 characters and ends them.
void copyInto(wchar_t* target, const std::wstring& text, std::size_t room)
{
    const std::size_t length = text.copy(target, room - 1);
    target[length] = L'\0';
}

wchar_t* newString(const std::wstring& text)
{
    const std::size_t bytes = (text.size() + 1) * sizeof(wchar_t);
    auto* copy = static_cast<wchar_t*>(std::malloc(bytes));
    if (copy != nullptr)
        std::memcpy(copy, text.c_str(), bytes);
    return copy;
}

} // namespace

// host/errors.h

QuelCrashRecorder* quelGetCrashRecorder()
{
    return Host::current() == nullptr ? nullptr : &host().crashRecorder;
}

// host/resources.h and the lookup of host/qustring.h

bool SetCurrentResourceName(const wchar_t* name)
{
    return host().resources.push(quelhost::toQString(textOrEmpty(name)));
}

void RestorePreviousResource()
{
    host().resources.pop();
}

QuelResourceHandle AfxGetResourceHandle()
{
    return host().resources.current();
}

int LoadStringW(QuelResourceHandle resource, unsigned int id, wchar_t* buffer, int maxChars)
{
    const std::wstring text = resource->string(id).value_or(std::wstring());
    copyInto(buffer, text, static_cast<std::size_t>(maxChars));
    return static_cast<int>(std::wcslen(buffer));
}

QuString qumdQuResourceString(unsigned int id, const wchar_t* defaultText)
{
    QuString text(defaultText);
    text.loadString(id);
    return text;
}

bool QuString::loadString(unsigned int id)
{
    const std::optional<std::wstring> text = host().resources.current()->string(id);
    if (text)
        *this = text->c_str();
    return text.has_value();
}

// host/variables.h

int quedGetVar(const wchar_t* name, resbuf* result)
{
    const quelhost::VariableValue* value =
        host().variables.find(quelhost::toQString(textOrEmpty(name)));
    if (value == nullptr)
        return QuelStatus::kError;
    if (const auto* number = std::get_if<std::int16_t>(value)) {
        result->type = QuelResultType::kShort;
        result->value.shortInteger = *number;
    } else {
        result->type = QuelResultType::kString;
        result->value.string = newString(std::get<std::wstring>(*value));
    }
    return QuelStatus::kNormal;
}

void quutDelBuffer(void*& buffer)
{
    std::free(buffer);
    buffer = nullptr;
}

void quutRelRb(resbuf* chain)
{
    while (chain != nullptr) {
        resbuf* const next = chain->link;
        if (chain->type == QuelResultType::kString)
            std::free(chain->value.string);
        std::free(chain);
        chain = next;
    }
}

// host/prompts.h

int quedInitGet(int flags, const wchar_t* keywords)
{
    const QString list = quelhost::toQString(textOrEmpty(keywords));
    host().promptOptions = {flags, list.split(QLatin1Char(' '), Qt::SkipEmptyParts)};
    return QuelStatus::kNormal;
}

int quedGetString(int cronly, const wchar_t* prompt, wchar_t* answer)
{
    host().promptOptions = {}; // they are for one prompt
    const LineRequest request{textOrEmpty(prompt), Completion::Paths, host().expectedFiles()};
    const Answer given =
        host().prompts.ask(request, cronly == 0 ? AnswerEnd::Blank : AnswerEnd::Enter);
    if (given.kind == Answer::Kind::Cancelled)
        return QuelStatus::kCancelled;
    copyInto(answer, given.text, kQuelStringAnswerRoom);
    return QuelStatus::kNormal;
}

int quedGetKword(const wchar_t* prompt, wchar_t* answer)
{
    const QStringList keywords = std::exchange(host().promptOptions, {}).keywords;
    const LineRequest request{textOrEmpty(prompt), Completion::Keywords, keywords};
    for (;;) {
        const Answer given = host().prompts.ask(request, AnswerEnd::Blank);
        if (given.kind == Answer::Kind::Cancelled)
            return QuelStatus::kCancelled;
        if (given.kind == Answer::Kind::Empty)
            return QuelStatus::kEmptyAnswer;
        const QString typed = quelhost::toQString(given.text);
        const QString keyword = quelhost::matchKeyword(keywords, typed);
        if (!keyword.isEmpty()) {
            copyInto(answer, quelhost::toWide(keyword), kQuelKeywordAnswerRoom);
            return QuelStatus::kNormal;
        }
        host().output.writeRow(quelhost::toWide(
            qtTrId("keyword-unknown").arg(typed, keywords.join(QStringLiteral(", ")))));
    }
}

bool quedScriptAppRunning()
{
    return host().prompts.isScript();
}

bool commandShouldUseDialog(IQuelBuildInCommandContext*)
{
    return host().dialogsAllowed();
}

QuelDocumentData* GetQuelAppCtxActiveDocData()
{
    return &host().document;
}

// host/output.h

void quutPrintf(const wchar_t* text)
{
    // Without arguments a format expands %% and leaves everything else as it stands.
    host().output.write(quelhost::formatTyped(text, {}));
}

void quutPrintf(const wchar_t* format, const wchar_t* first, ...)
{
    va_list rest;
    va_start(rest, first);
    host().output.write(quelhost::formatVariadic(format, &first, rest));
    va_end(rest);
}

void promptf(const wchar_t* format, ...)
{
    va_list arguments;
    va_start(arguments, format);
    host().output.write(quelhost::formatVariadic(format, nullptr, arguments));
    va_end(arguments);
}

// host/messageboxes.h

int MessageBoxW(CWnd*, const wchar_t* text, const wchar_t* caption, unsigned int flags)
{
    const wchar_t* shown = caption == nullptr ? GetOemProductName() : caption;
    return host().face().askBox({textOrEmpty(text), shown, flags});
}

int MessageBoxW(const wchar_t* text, const wchar_t* caption, unsigned int flags)
{
    return MessageBoxW(nullptr, text, caption, flags);
}

int AfxMessageBox(const wchar_t* text, unsigned int style, unsigned int)
{
    return MessageBoxW(nullptr, text, nullptr, style);
}

// Boxes find the window that they belong to themselves.
CWnd* AfxGetMainWnd()
{
    return host().face().mainWindow();
}

const wchar_t* GetOemProductName()
{
    return L"Quelhost";
}

// host/filedialog.h

int vxGetFileDialog(const wchar_t* title, const wchar_t* initialPath, const wchar_t*, int,
                    resbuf* result, bool*, int& filterIndex, const wchar_t* filters, const wchar_t*)
{
    const QString filterList = quelhost::toQString(textOrEmpty(filters));
    const std::optional<quelhost::PickedFile> picked = host().face().pickFile(
        {quelhost::toQString(textOrEmpty(title)), quelhost::toQString(textOrEmpty(initialPath)),
         filterList.split(QLatin1Char('|'), Qt::SkipEmptyParts), filterIndex});
    if (!picked)
        return QuelStatus::kCancelled;
    result->type = QuelResultType::kString;
    result->value.string = newString(quelhost::toWide(picked->path));
    filterIndex = picked->filterIndex;
    return QuelStatus::kNormal;
}

// host/settings.h, host/customization.h, host/aliases.h

QueldConfig* quelConfig()
{
    return &host().config;
}

QuelAppInterface* GetQuelAppInterface()
{
    return host().applicationInterface();
}

QuCmdAliasManager* quCmdAliasManagerPtr()
{
    return &host().aliases;
}

// host/editors.h

int vxExcuteWSCommand(int editor, const wchar_t*, const wchar_t*)
{
    switch (editor) {
    case QuelEditor::kAccelerators:
        return host().openEditor(quelhost::CustomizationEditor::Accelerators);
    case QuelEditor::kToolbars:
        return host().openEditor(quelhost::CustomizationEditor::Toolbars);
    default:
        return QuelStatus::kError;
    }
}
