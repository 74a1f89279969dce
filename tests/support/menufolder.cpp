#include "tests/support/menufolder.h"

#include "refhost/core/widetext.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <stdexcept>

namespace recording {

namespace {

std::wstring madeOrThrow(int result, const std::wstring& path)
{
    if (result < 0)
        throw std::runtime_error("cannot make " + quelhost::toUtf8(path));
    return path;
}

} // namespace

MenuFolder::MenuFolder()
{
    if (!m_folder.isValid())
        throw std::runtime_error("no temporary folder");
}

std::wstring MenuFolder::path(const std::wstring& name) const
{
    return quelhost::toWide(m_folder.path()) + L"/" + name;
}

std::wstring MenuFolder::file(const std::wstring& name) const
{
    const std::wstring result = path(name);
    const int descriptor = open(quelhost::toUtf8(result).c_str(), O_CREAT | O_WRONLY, 0600);
    if (descriptor >= 0)
        close(descriptor);
    return madeOrThrow(descriptor, result);
}

std::wstring MenuFolder::folder(const std::wstring& name) const
{
    const std::wstring result = path(name);
    return madeOrThrow(mkdir(quelhost::toUtf8(result).c_str(), 0700), result);
}

std::wstring MenuFolder::link(const std::wstring& name, const std::wstring& target) const
{
    const std::wstring result = path(name);
    return madeOrThrow(symlink(quelhost::toUtf8(target).c_str(), quelhost::toUtf8(result).c_str()),
                       result);
}

void MenuFolder::remove(const std::wstring& path) const
{
    madeOrThrow(unlink(quelhost::toUtf8(path).c_str()), path);
}

} // namespace recording
