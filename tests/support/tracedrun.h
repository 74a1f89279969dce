// Runs the program under the system's eye and ends it at one of its system calls, right before the
// system carries it out or right after: nothing in the program gets to run any more.
//
// Moments are counted from 1 within a part of the run. An odd one is right before a call, the even
// one that follows is right after the same call.
#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <string>

// What of the run counts.
enum class RunPart {
    Start,   // from the first call that names the profile to the first reading of a line
    Command, // from the end of the first line to the next reading of one
    End,     // from the end of the input
};

struct TracedRun
{
    QStringList arguments;
    QByteArray input; // of standard input, which ends behind it
    QString profile;  // absolute
    RunPart part = RunPart::Command;
    int killAt = 0; // the moment; 0 for none

    // Of a command every call counts, of start and end those that may change a file of the profile
    // or write to the user: the others change nothing that outlives the process.
    [[nodiscard]] struct TracedEnd run() const;
};

struct TracedEnd
{
    bool traced = false; // the system let us watch
    bool killed = false; // at the moment that was asked for
    int exitStatus = -1; // -1: it did not exit by itself
    int moments = 0;     // that came to pass in the part
    std::string call;    // what it was killed at, for messages: "pwrite64 settings.db-wal after"
    QStringList calls;   // that counted, with the profile's file or the stream: "write stderr"
    QString output;
    QString diagnostics;
};
