// The program at work: what is typed into it, what it says, how it ends. Whoever waits for it waits
// for what it says; only a program that is silent for long has hung.
#pragma once

#include <QByteArray>
#include <QProcess>
#include <QString>
#include <QStringList>

#include <string>
#include <vector>

namespace hurry {

class RunningProgram
{
public:
    // Starts the program without a display, in that folder.
    RunningProgram(const QStringList& arguments, const QString& folder);
    // Ends it, if it still runs.
    ~RunningProgram();
    RunningProgram(const RunningProgram&) = delete;
    RunningProgram& operator=(const RunningProgram&) = delete;

    void write(const QByteArray& bytes) { m_process.write(bytes); }
    // What it said up to and with that text, since this was asked last. Empty when it hangs, has
    // ended, or says more than anybody would.
    [[nodiscard]] QByteArray readUntil(const QByteArray& text);
    // Lets it come to its end; what is wrong with that, or nothing.
    [[nodiscard]] std::string end();

    // The rows of the standard error so far; waits until there are that many.
    [[nodiscard]] std::vector<std::string> takeDiagnostics(std::size_t rows);

    // Memory of its own, in KiB: without what it maps from files. 0 when unknown.
    [[nodiscard]] long ownMemory() const;

private:
    [[nodiscard]] bool hear();

    QProcess m_process;
    QByteArray m_said;
    QByteArray m_diagnostics;
};

} // namespace hurry
