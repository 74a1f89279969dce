// Runs the program as a user does: arguments, an environment of its own, what it is given to read,
// and what it says.
#pragma once

#include <QByteArray>
#include <QMap>
#include <QProcess>
#include <QString>
#include <QStringList>
#include <QTemporaryDir>

#include <memory>

// Whether a sanitized program looks for its leaks when it ends. One that is traced, or killed in
// the middle of looking, cannot, and says so among its own diagnostics.
enum class LeakSearch { AtEnd, None };

// What the program finds in its environment: no display, and no settings of the user's.
[[nodiscard]] QProcessEnvironment programEnvironment(const QString& home, LeakSearch leakSearch);

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
    LeakSearch leakSearch = LeakSearch::AtEnd;

    // Runs the program to its end, without a display and with no settings of the user's.
    [[nodiscard]] ProgramResult run() const;
};

// The program while it runs, with the input that it was given typed ahead.
class LiveProgram
{
public:
    // Starts it. With `moreInput`, lines can still be typed; else its input ends.
    explicit LiveProgram(const ProgramRun& run, bool moreInput = false);
    LiveProgram(const LiveProgram&) = delete;
    LiveProgram& operator=(const LiveProgram&) = delete;
    ~LiveProgram(); // ends it if it still runs

    void type(const QString& lines);

    // Waits until so many commands have reported how they ended; false when they never will.
    bool waitForStatuses(int count);

    // What was printed so far, and the whole rows of diagnostics, without their ends.
    [[nodiscard]] QString output();
    [[nodiscard]] QStringList statuses();

    // Ends it as the system does; false when it had ended by itself.
    bool kill();

    // Ends its input and lets it end by itself.
    bool waitForEnd();
    [[nodiscard]] ProgramResult result();

private:
    void readAll();

    const int m_timeLimitMs;
    QTemporaryDir m_home;
    std::unique_ptr<QProcess> m_process;
    QByteArray m_output;
    QByteArray m_diagnostics;
};
