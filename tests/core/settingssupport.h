// What the tests of the settings share: folders to work in, files to damage, and results as short
// texts that a test can compare and a child process can send.
#pragma once

#include "refhost/core/result.h"
#include "refhost/core/settingsitem.h"
#include "refhost/core/settingsstore.h"

#include <QByteArray>
#include <QString>
#include <QTemporaryDir>

#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace quelhost::test {

// A folder that is gone with the object. It belongs to the ordinary user and everybody may enter
// what is above it.
class ScratchFolder
{
public:
    ScratchFolder();
    ~ScratchFolder();

    [[nodiscard]] QString path() const { return m_folder.path(); }
    [[nodiscard]] QString file(const char* name) const;

    // The names in it, sorted.
    [[nodiscard]] std::vector<std::string> names() const;

private:
    QTemporaryDir m_folder;
};

[[nodiscard]] QByteArray bytesOf(const QString& file);
[[nodiscard]] bool setBytes(const QString& file, const QByteArray& bytes);
[[nodiscard]] bool setMode(const QString& path, unsigned int mode);
[[nodiscard]] bool copyFile(const QString& from, const QString& to);

// "NotPermitted" and so on.
[[nodiscard]] std::string nameOf(FaultKind kind);

// "done", or the fault's kind.
[[nodiscard]] std::string told(const Status& status);

// "section", "integer 5", "string TEXT", "nothing", or the fault's kind.
[[nodiscard]] std::string told(const Result<std::optional<Item>>& item);
[[nodiscard]] std::string told(const Item& item);

// What `told` says of the item with that key in category 4.
[[nodiscard]] std::string valueIn(const SettingsStore& store, const wchar_t* key);

// All items of a store as "CATEGORY KEY VALUE" in its order; one text with the kind for a fault.
[[nodiscard]] std::vector<std::string> itemsIn(const SettingsStore& store);

[[nodiscard]] bool anyContains(const std::vector<QString>& sentences, const QString& part);

// Opens a store that has to open, for writing unless told otherwise; null when it did not.
[[nodiscard]] std::unique_ptr<SettingsStore>
openStore(const QString& folder, SettingsAccess access = SettingsAccess::ReadWrite);

// Leaves a profile as a host that was killed leaves it: "last" is stored as `text`, in the log.
[[nodiscard]] bool leaveByKill(const QString& folder, const std::wstring& text);

// Runs SQL on the settings file as a stranger would; false when that failed.
[[nodiscard]] bool runSql(const QString& file, const char* sql);

} // namespace quelhost::test
