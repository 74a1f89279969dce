#include "tests/support/recordinghost.h"

#include "tests/support/hostcode.h"
#include "tests/support/tracetext.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <memory>

namespace recording {

namespace {

std::unique_ptr<Host> theHost;

bool beginsWith(const std::string& line, const std::string& function)
{
    return line.compare(0, function.size() + 1, function + "(") == 0;
}

} // namespace

Host& host()
{
    if (!theHost)
        reset();
    return *theHost;
}

void reset()
{
    theHost = std::make_unique<Host>();
}

Host::Host()
    : resources{{L"QUELDRes.dll", {}}, {L"VxCuiCmdsRes.dll", {}}}
    , resourceStack{L"QUELDRes.dll"}
    , contextCommand(L"MENULOAD")
    , productName(L"Drafting Desk")
    , aliasFile(L"QUELD.pgp")
{}

Host::~Host()
{
    for (void* buffer : buffers)
        std::free(buffer);
    for (const VxErrorStatus* error : m_unthrown)
        delete error;
}

std::vector<std::string> Host::calls(const std::string& function) const
{
    std::vector<std::string> result;
    for (const std::string& line : trace) {
        if (beginsWith(line, function))
            result.push_back(line);
    }
    return result;
}

int Host::count(const std::string& function) const
{
    if (!notesWords) {
        const auto found = m_counts.find(function);
        return found == m_counts.end() ? 0 : found->second;
    }
    return static_cast<int>(calls(function).size());
}

void Host::forgetCalls()
{
    trace.clear();
    m_counts.clear();
}

void Host::onCall(const std::string& function, int which, std::function<void()> hook)
{
    m_hooks[{function, which}] = std::move(hook);
}

const VxErrorStatus* Host::throwOnCall(const std::string& function, int which)
{
    auto* error = new VxErrorStatus(Quel::eNoMemory, L"made by the test", 42);
    m_unthrown.insert(error);
    onCall(function, which, [this, error] {
        m_unthrown.erase(error);
        throw error;
    });
    return error;
}

void Host::called(const std::string& function, const std::string& arguments,
                  const std::string& result)
{
    const int which = ++m_counts[function];
    const std::size_t line = trace.size();
    if (notesWords)
        trace.push_back(function + "(" + arguments + ")");
    if (announce && notesWords)
        std::fprintf(stderr, "%s\n", trace.back().c_str());
    const auto hook = m_hooks.empty() ? m_hooks.end() : m_hooks.find({function, which});
    if (hook != m_hooks.end()) {
        try {
            hook->second();
        } catch (...) {
            amend(line, " -> throws");
            throw;
        }
    }
    if (!result.empty())
        amend(line, " -> " + result);
}

void Host::amend(std::size_t line, const std::string& words)
{
    if (line < trace.size())
        trace[line] += words;
}

bool Host::enterScope(const std::string& function, const wchar_t* file,
                      Answers<std::optional<bool>>& script)
{
    const bool entered = script.take().value_or(resources.count(file) > 0);
    called(function, shown(file), shown(entered));
    if (entered)
        resourceStack.push_back(file);
    return entered;
}

void Host::leaveScope()
{
    if (resourceStack.size() > 1)
        resourceStack.pop_back();
    else
        ++leavesWithoutEnter;
}

void Host::setVariable(const std::wstring& name, short value)
{
    variables[name] = [value](resbuf& record) {
        record.type = QuelResultType::kShort;
        record.value.shortInteger = value;
        return QuelStatus::kNormal;
    };
}

void Host::setVariable(const std::wstring& name, const MaybeText& value)
{
    variables[name] = [this, value](resbuf& record) {
        record.type = QuelResultType::kString;
        record.value.string = value ? newBuffer(*value) : nullptr;
        return QuelStatus::kNormal;
    };
}

wchar_t* Host::newBuffer(const std::wstring& text)
{
    void* buffer = std::calloc(text.size() + 1, sizeof(wchar_t));
    auto* characters = static_cast<wchar_t*>(buffer);
    text.copy(characters, text.size());
    buffers.insert(buffer);
    return characters;
}

std::wstring Host::stringSetting(const std::wstring& key) const
{
    const auto found = settings.find(key);
    return found == settings.end() ? std::wstring() : found->second.stringOrEmpty();
}

void Host::setStringSetting(const std::wstring& key, const std::wstring& text)
{
    settings[key].setString(text.c_str(), QuelVariant::kString);
}

const wchar_t* Context::globalName() const
{
    const HostCode here;
    host().called("globalName", "", shown(host().contextCommand));
    return host().contextCommand.c_str();
}

bool Context::isCommandLineOnly() const
{
    const HostCode here;
    host().called("isCommandLineOnly", "", shown(host().contextIsCommandLineOnly));
    return host().contextIsCommandLineOnly;
}

bool Context::enterResourceScope(const wchar_t* name)
{
    const HostCode here;
    return host().enterScope("enterResourceScope", name, host().contextScope);
}

void Context::leaveResourceScope(int value)
{
    const HostCode here;
    host().called("leaveResourceScope", shown(value));
    host().leaveScope();
}

int Context::findFile(const wchar_t* name, wchar_t* result)
{
    const HostCode here;
    constexpr std::size_t room = 1024;
    const auto found = host().filesToFind.find(name);
    const bool isThere = found != host().filesToFind.end();
    host().called("findFile", shown(name), isThere ? "0 " + shown(found->second) : "1");
    if (!isThere)
        return 1;
    const std::wstring path = found->second.substr(0, room - 1);
    std::fill_n(result, room, L'#');
    path.copy(result, path.size());
    result[path.size()] = L'\0';
    return 0;
}

int CommandStore::addCommand(IQuelCommandFactory* factory, int value)
{
    const HostCode here;
    added.push_back(factory);
    const int result = results.take();
    host().called("addCommand", list(shown(factory->globalName()), shown(value)), shown(result));
    return result;
}

int CommandStore::removeCommand(const wchar_t* globalName)
{
    const HostCode here;
    removedNames.push_back(globalName);
    const int result = results.take();
    host().called("removeCommand", shown(globalName), shown(result));
    return result;
}

} // namespace recording
