// A terminal with a program on it, driven by a test: what is typed, what is shown, how it ends.
//
// Nothing here waits for a time to pass: each step waits for what the program shows, or for its
// end, and gives up after a limit that only a program that hangs reaches.
#pragma once

#include <gtest/gtest.h>

#include <QByteArray>
#include <QMap>
#include <QString>
#include <QStringList>

#include <optional>
#include <sys/types.h>
#include <termios.h>

struct TerminalSize
{
    unsigned short rows = 24;
    unsigned short columns = 80;
};

class PseudoTerminal
{
public:
    static constexpr int kPatienceMs = 20'000;

    explicit PseudoTerminal(TerminalSize size = {});
    // Ends the program, if it still runs, and closes the terminal.
    ~PseudoTerminal();
    PseudoTerminal(const PseudoTerminal&) = delete;
    PseudoTerminal& operator=(const PseudoTerminal&) = delete;

    // Starts the program `args[0]` with this terminal as its controlling one. `environment` is all
    // it gets, but for PATH, HOME and what sanitizers and coverage need. Once only.
    [[nodiscard]] testing::AssertionResult spawn(const QStringList& args,
                                                 const QMap<QString, QString>& environment);

    // Types `bytes`, reading what is shown meanwhile.
    void write(const QByteArray& bytes);

    // Waits until `text` is shown behind what was expected last. A failure tells all that was
    // shown since the start.
    [[nodiscard]] testing::AssertionResult expect(const QByteArray& text,
                                                  int timeoutMs = kPatienceMs);

    void resize(TerminalSize size);

    // Hangs up.
    void close();

    // Waits for the end of the program and tells its status as waitpid(2) does; nothing when it
    // still runs after `timeoutMs`.
    [[nodiscard]] std::optional<int> waitExit(int timeoutMs = kPatienceMs);

    // Sends a signal to the program.
    void signal(int number) const;

    // All that was shown so far.
    [[nodiscard]] const QByteArray& transcript() const { return m_transcript; }
    // What was shown behind the text that was expected last.
    [[nodiscard]] QByteArray rest() const { return m_transcript.mid(m_expected); }

    // The terminal's modes before the program started, and now.
    [[nodiscard]] const termios& initialModes() const { return m_initialModes; }
    [[nodiscard]] termios modes() const;

private:
    [[nodiscard]] bool readShown(int timeoutMs, int alsoFor);
    void drain();
    [[nodiscard]] QByteArray shownTranscript() const;

    int m_master = -1;
    int m_slave = -1; // until the program has it
    pid_t m_process = -1;
    int m_processHandle = -1;
    termios m_initialModes = {};
    QByteArray m_transcript;
    int m_expected = 0; // where in the transcript what was expected last ends
};

// Whether two terminals' modes are the same in every flag and control character.
[[nodiscard]] bool operator==(const termios& left, const termios& right);
