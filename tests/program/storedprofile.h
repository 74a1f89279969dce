// A profile whose settings tests of the program end in the middle of things, put back as they were,
// and look at from outside.
#pragma once

#include "tests/support/packagebuilder.h"
#include "tests/support/programfolders.h"
#include "tests/support/testrounds.h"

#include <QMap>
#include <QRegularExpression>

class StoredProfile : public ProgramFolders
{
public:
    using Files = QMap<QString, QByteArray>; // names in the profile and what is in them

    // A package with a group of its own; returns its path.
    [[nodiscard]] QString package(int number) const
    {
        const QByteArray group = "GROUP" + QByteArray::number(number);
        const QByteArray xml = "<customization format=\"1\"><menugroup name=\"" + group +
                               "\"></menugroup></customization>";
        return file(QStringLiteral("package%1.cuix").arg(number), packages::packageOf(xml));
    }

    [[nodiscard]] Files files() const
    {
        Files result;
        const QDir folder(profile());
        for (const QString& name : folder.entryList(QDir::Files)) {
            QFile file(folder.filePath(name));
            result.insert(name, file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray());
        }
        return result;
    }

    // Makes the profile hold these files and no others; without files there is no profile.
    [[nodiscard]] bool putBack(const Files& files) const
    {
        bool done = QDir(profile()).removeRecursively();
        if (!files.isEmpty())
            done = QDir().mkpath(profile()) && done;
        for (auto each = files.begin(); each != files.end(); ++each) {
            QFile file(profile() + QLatin1Char('/') + each.key());
            done = file.open(QIODevice::WriteOnly) &&
                   file.write(each.value()) == each.value().size() && done;
        }
        return done;
    }

    // The files that were kept aside as damaged.
    [[nodiscard]] QStringList keptAside() const
    {
        return files().keys().filter(QStringLiteral("damaged"));
    }

    // All that is stored, as a process of its own reads it; "exit N" where it could not.
    [[nodiscard]] QString listing() const
    {
        ProgramRun run;
        run.arguments =
            QStringList{QStringLiteral("--profile"), profile(), QStringLiteral("--list-settings")};
        const ProgramResult result = run.run();
        return result.exitStatus == 0 ? result.output
                                      : QStringLiteral("exit %1").arg(result.exitStatus);
    }

    // The rows that a session on the profile prints before its first prompt and after its last.
    [[nodiscard]] QStringList toldBySession() const
    {
        const ProgramResult result = script(QStringLiteral("ECHO on\n")).run();
        QStringList rows = result.rows();
        for (const char* expected : {"Command: ECHO on", "on", "Command: ", ""})
            rows.removeOne(QLatin1String(expected));
        if (result.exitStatus != 0)
            rows << QStringLiteral("exit %1").arg(result.exitStatus) << result.diagnostics;
        return rows;
    }

    // The stored list without its first entry.
    [[nodiscard]] QStringList loadedBehindTheMainFile() const
    {
        return storedList().split(QLatin1Char(';')).mid(1);
    }

    // The line of the listing that holds these entries behind the main file.
    [[nodiscard]] QString listedLine(const QStringList& entries) const
    {
        const QStringList all = QStringList{mainFile()} + entries;
        return QStringLiteral("CUIX/LoadedCuix\tstring\t%1\n").arg(all.join(QLatin1Char(';')));
    }
};
