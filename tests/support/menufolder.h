// A temporary folder of real files, for tests that ask the file system.
#pragma once

#include <QTemporaryDir>

#include <string>

namespace recording {

// Gone with everything in it when it is destroyed. Names are wide strings; on disk they are UTF-8
// whatever the locale.
class MenuFolder
{
public:
    MenuFolder();

    // The absolute path of a name, whether there is such a file or not.
    [[nodiscard]] std::wstring path(const std::wstring& name) const;

    // Each makes the thing with that name and returns its path; throws std::runtime_error when it
    // cannot.
    std::wstring file(const std::wstring& name) const;
    std::wstring folder(const std::wstring& name) const;
    std::wstring link(const std::wstring& name, const std::wstring& target) const;

    // Removes a file.
    void remove(const std::wstring& path) const;

private:
    QTemporaryDir m_folder;
};

} // namespace recording
