// Runs the program as a user does: arguments, an environment of its own, what it is given to read,
// and what it says.
#pragma once

#include <QByteArray>
#include <QMap>
#include <QString>
#include <QStringList>

// What a run left behind.
struct ProgramResult
{
    bool ended = false; // within the time limit, by itself
    int exitStatus = -1;
    QString output;      // standard output
    QString diagnostics; // standard error

    // The rows of the output.
    [[nodiscard]] QStringList rows() const { return output.split(QLatin1Char('\n')); }
};

struct ProgramRun
{
    QStringList arguments;
    QByteArray input; // of standard input, which ends behind it
    QMap<QString, QString> environment;
    QString folder;           // where it runs; empty for a temporary place
    int timeLimitMs = 30000;  // a hang, not a measure
    int runAsUser = 0;        // with these rights instead of the superuser's
    qint64 fileSizeLimit = 0; // no file can grow beyond this many bytes; 0 for no limit

    // Runs the program to its end, without a display and with no settings of the user's.
    [[nodiscard]] ProgramResult run() const;
};
