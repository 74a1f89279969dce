// Command aliases: short names for commands, read from the profile's ".pgp" file.
#pragma once

#include "host/aliases.h"
#include "refhost/core/result.h"

#include <QMap>
#include <QString>
#include <QStringList>

#include <functional>
#include <vector>

namespace quelhost {

// Alias names in upper case, with the command that each stands for, as written.
using AliasTable = QMap<QString, QString>;

struct AliasReading
{
    AliasTable aliases;
    std::vector<Fault> faults; // bad lines, each skipped, with file, line and column
};

// Reads the text of an alias file: `ALIAS = COMMAND` on a line, "#" begins a comment, UTF-8. `file`
// names it in the faults.
[[nodiscard]] AliasReading parseAliases(const QByteArray& text, const QString& file);

class Aliases final : public QuCmdAliasManager
{
public:
    using Report = std::function<void(const Fault&)>;

    // `report` is told bad lines and a file that cannot be read.
    Aliases(QString path, Report report);

    // As host/aliases.h promises.
    QuString getCurValidPgpFileName() override;
    void uninitAliasNameList() override;
    bool initAliasNameList(bool reread) override;

    // The command that `name`, in any case, stands for; empty when it is no alias.
    [[nodiscard]] QString commandFor(const QString& name) const;
    [[nodiscard]] const AliasTable& all() const { return m_aliases; }

private:
    const QString m_path;
    Report m_report;
    AliasTable m_aliases;
    bool m_read = false;
};

} // namespace quelhost
