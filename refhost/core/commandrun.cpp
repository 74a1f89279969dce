#include "refhost/core/commandrun.h"

#include "refhost/core/crashrecorder.h"
#include "refhost/core/filesearch.h"
#include "refhost/core/resources.h"
#include "refhost/core/widetext.h"

#include <exception>
#include <memory>

namespace quelhost {

namespace {

RunResult failed(const QString& what)
{
    return {QuelStatus::kError, what};
}

int createAndExecute(IQuelCommandFactory& factory, IQuelBuildInCommandContext& context)
{
    const auto release = [&factory](IQuelBuildInCommand* command) { factory.release(command); };
    const std::unique_ptr<IQuelBuildInCommand, decltype(release)> command(factory.create(),
                                                                          release);
    return command->execute(&context);
}

} // namespace

CommandContext::CommandContext(std::wstring globalName, bool commandLineOnly, Resources& resources,
                               const FileSearch& files)
    : m_globalName(std::move(globalName))
    , m_commandLineOnly(commandLineOnly)
    , m_resources(resources)
    , m_files(files)
{}

bool CommandContext::enterResourceScope(const wchar_t* name)
{
    return m_resources.push(toQString(name));
}

void CommandContext::leaveResourceScope(int)
{
    m_resources.pop();
}

int CommandContext::findFile(const wchar_t* name, wchar_t* result)
{
    constexpr std::size_t kMostCharacters = 1023;
    const std::optional<std::wstring> found = m_files.find(name);
    if (!found || found->size() > kMostCharacters)
        return 1;
    found->copy(result, found->size());
    result[found->size()] = L'\0';
    return 0;
}

RunResult runCommand(IQuelCommandFactory& factory, IQuelBuildInCommandContext& context)
{
    try {
        return {createAndExecute(factory, context), std::nullopt};
    } catch (VxErrorStatus* error) {
        const std::unique_ptr<VxErrorStatus> owned(error);
        return failed(describe(*error));
    } catch (VxExceptionWithMsg* error) {
        const std::unique_ptr<VxExceptionWithMsg> owned(error);
        return failed(describe(*error));
    } catch (const std::exception& error) {
        return failed(QString::fromUtf8(error.what()));
    } catch (...) {
        return failed(qtTrId("error-unknown"));
    }
}

} // namespace quelhost
