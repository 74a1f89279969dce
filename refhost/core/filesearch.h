// How the host searches for a file that a user named.
#pragma once

#include <QString>
#include <QStringList>

#include <optional>
#include <string>

namespace quelhost {

class FileSearch
{
public:
    // `folders` are searched in their order, after the process's current folder.
    explicit FileSearch(QStringList folders);

    // The full path of the file `name`: an absolute name as it is; otherwise the first of the
    // current folder and the search folders that has it. Nothing when there is no such file; a
    // folder is no file.
    [[nodiscard]] std::optional<std::wstring> find(const std::wstring& name) const;

private:
    const QStringList m_folders;
};

} // namespace quelhost
