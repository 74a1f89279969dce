// A folder for one test of the program: profiles, copies of the example packages, scripts.
#pragma once

#include "tests/support/programrun.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

class ProgramFolders
{
public:
    [[nodiscard]] QString path(const QString& name) const { return m_folder.filePath(name); }
    [[nodiscard]] QString profile() const { return path(QStringLiteral("profile")); }

    // The built example package of that name ("plant").
    [[nodiscard]] static QString example(const char* name)
    {
        return QStringLiteral(QUEL_EXAMPLES "/%1.cuix").arg(QLatin1String(name));
    }

    // Puts a copy of an example package under another name; returns its path.
    [[nodiscard]] QString copyOf(const char* exampleName, const QString& name) const
    {
        QFile::copy(example(exampleName), path(name));
        return path(name);
    }

    // Writes a file; returns its path.
    [[nodiscard]] QString file(const QString& name, const QByteArray& content) const
    {
        QFile file(path(name));
        if (file.open(QIODevice::WriteOnly))
            file.write(content);
        return file.fileName();
    }

    // A run on this folder's profile that types the script, with file dialogs off.
    [[nodiscard]] ProgramRun script(const QString& lines, const QStringList& more = {}) const
    {
        ProgramRun run;
        run.arguments = QStringList{QStringLiteral("--profile"),      profile(),
                                    QStringLiteral("--var"),          QStringLiteral("FILEDIA=0"),
                                    QStringLiteral("--script"),       QStringLiteral("-"),
                                    QStringLiteral("--report-status")} +
                        more;
        run.input = lines.toUtf8();
        return run;
    }

    // The stored list of loaded files, as --list-settings prints it; null when it is not stored.
    [[nodiscard]] QString storedList() const
    {
        ProgramRun run;
        run.arguments =
            QStringList{QStringLiteral("--profile"), profile(), QStringLiteral("--list-settings")};
        const QString start = QStringLiteral("CUIX/LoadedCuix\tstring\t");
        for (const QString& row : run.run().rows()) {
            if (row.startsWith(start))
                return row.mid(start.size());
        }
        return {};
    }

    // The stored list of a profile in which only its main file is loaded.
    [[nodiscard]] QString mainFile() const { return profile() + QStringLiteral("/QUELD.cuix"); }

private:
    QTemporaryDir m_folder;
};
