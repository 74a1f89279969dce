// What the tests that type on a terminal have in common: the probe and the keys.
#pragma once

#include "tests/support/pseudoterminal.h"

#include <gtest/gtest.h>

#include <QFile>
#include <QTemporaryDir>

#include <optional>
#include <string>
#include <sys/wait.h>

namespace terminaltest {

using Environment = QMap<QString, QString>;

inline const QByteArray kUp = "\x1B[A";
inline const QByteArray kDown = "\x1B[B";
inline const QByteArray kRight = "\x1B[C";
inline const QByteArray kLeft = "\x1B[D";
inline const QByteArray kHome = "\x1B[H";
inline const QByteArray kEnd = "\x1B[F";
inline const QByteArray kDelete = "\x1B[3~";
inline const QByteArray kCtrlC = "\x03";
inline const QByteArray kCtrlD = "\x04";
inline const QByteArray kEscape = "\x1B";
inline const QByteArray kBeep = "\x07";

inline QString text(const char* utf8)
{
    return QString::fromUtf8(utf8);
}

// The usual terminal, without colour, so that a prompt is found as it stands.
inline Environment usual()
{
    return {{text("TERM"), text("xterm-256color")},
            {text("LC_ALL"), text("C.UTF-8")},
            {text("NO_COLOR"), text("1")}};
}

inline Environment with(const char* name, const char* value)
{
    Environment environment = usual();
    environment[text(name)] = text(value);
    return environment;
}

inline QStringList probe(const QStringList& options = {})
{
    return QStringList{text(QUEL_TERMINAL_PROBE), text("--texts"), text(QUEL_HOST_TEXTS)} + options;
}

inline QStringList commandProbe(const QString& history)
{
    return probe({text("--completion"), text("commands"), text("--history"), history});
}

inline QStringList completingProbe(const char* kind, const char* words = "")
{
    return probe({text("--completion"), text(kind), text("--words"), text(words)});
}

inline bool hasEndedWith(const std::optional<int>& status, int exitStatus)
{
    return status && WIFEXITED(*status) && WEXITSTATUS(*status) == exitStatus;
}

inline bool wasEndedBy(const std::optional<int>& status, int signal)
{
    return status && WIFSIGNALED(*status) && WTERMSIG(*status) == signal;
}

inline bool writeFile(const QString& path, const QByteArray& content)
{
    QFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(content) == content.size();
}

inline QByteArray contentOf(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("(cannot be read)");
}

// The name of a row of a table.
inline const auto rowName = [](const auto& row) { return std::string(row.param.name); };

// A probe on a terminal in a folder of its own.
class TerminalLines : public testing::Test
{
protected:
    [[nodiscard]] testing::AssertionResult start(const QStringList& program = probe(),
                                                 const Environment& environment = usual())
    {
        const testing::AssertionResult started = m_terminal.spawn(program, environment);
        return started ? m_terminal.expect("probe> ") : started;
    }
    // Types Enter, so that the line that has been typed comes back.
    [[nodiscard]] testing::AssertionResult enterGives(const QByteArray& line)
    {
        m_terminal.write("\r");
        return m_terminal.expect("TEXT[" + line + "]");
    }
    [[nodiscard]] testing::AssertionResult ends()
    {
        m_terminal.write(kCtrlD);
        const testing::AssertionResult ended = m_terminal.expect("SIGNALS[restored]");
        if (!ended)
            return ended;
        if (!hasEndedWith(m_terminal.waitExit(), 0))
            return testing::AssertionFailure() << "the program did not end well";
        return testing::AssertionSuccess();
    }
    [[nodiscard]] QString path(const char* name) const { return m_folder.filePath(text(name)); }

    QTemporaryDir m_folder;
    PseudoTerminal m_terminal;
};

} // namespace terminaltest
