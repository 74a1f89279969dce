// The program on a terminal under the keys of a person in a hurry: lines typed with slips, cancels,
// completion tried and given up, older lines brought back, and ends in the middle of a question.
#include "refhost/core/widetext.h"
#include "tests/hurry/world.h"
#include "tests/support/testrounds.h"
#include "tests/support/pseudoterminal.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QRegularExpression>

#include <memory>
#include <sys/wait.h>

using namespace hurry;
using quelhost::toUtf8;

namespace {

using Prompt = ConsoleModel::Prompt;

const QByteArray kUp = "\x1B[A";
const QByteArray kDown = "\x1B[B";
const QByteArray kRight = "\x1B[C";
const QByteArray kLeft = "\x1B[D";
const QByteArray kHome = "\x1B[H";
const QByteArray kEnd = "\x1B[F";
const QByteArray kCtrlC = "\x03";
const QByteArray kCtrlD = "\x04";
const QByteArray kEscape = "\x1B";
const QByteArray kBackspace = "\x7F";
const QByteArray kEnter = "\r";

QString text(const char* utf8)
{
    return QString::fromUtf8(utf8);
}

// How a prompt ends, or what of it is the same whatever the variables hold.
QByteArray shown(Prompt prompt)
{
    switch (prompt) {
    case Prompt::Command:
        return "Command: ";
    case Prompt::Load:
        return "Enter name of menu file to load:";
    case Prompt::Unload:
        return "Enter the name of a Menu Group to unload:";
    case Prompt::Menu:
        return "Enter customization file name or [. (for none)]<";
    case Prompt::MenuFile:
        return "File: ";
    case Prompt::Reinit:
        return "[OK/Cancel]: ";
    case Prompt::Editor:
        return "<Accelerator>: ";
    case Prompt::SetName:
    case Prompt::GetName:
        return "Name of the system variable: ";
    case Prompt::SetValue:
        return "New value: ";
    }
    return {};
}

class HurriedTerminal : public testing::Test
{
protected:
    void SetUp() override { ASSERT_TRUE(QDir::setCurrent(world.workFolder())); }
    void TearDown() override { QDir::setCurrent(m_before); }

    void start()
    {
        m_terminal = std::make_unique<PseudoTerminal>(TerminalSize{24, 200});
        ASSERT_TRUE(m_terminal->spawn({text(QUELHOST_PROGRAM), text("--console"), text("--profile"),
                                       world.profile(), text("--lang"), text("en"),
                                       text("--report-status")},
                                      {{text("TERM"), text("xterm-256color")},
                                       {text("LC_ALL"), text("C.UTF-8")},
                                       {text("NO_COLOR"), text("1")}}));
        ASSERT_TRUE(m_terminal->expect("Command: ")) << world.story();
        ASSERT_EQ(world.restart(world.storedList()), "") << world.story();
        m_isSure = true;
    }

    // One thing that a person does, and what comes of it.
    void step()
    {
        const std::size_t kind = world.random.below(100);
        if (kind < 60)
            enter(slips(), typed(world.lines.nextTyped(world.model.prompt())));
        else if (kind < 75)
            giveUp();
        else if (kind < 85)
            recall();
        else if (kind < 97)
            enter(slips(), {});
        else
            return leave();
        expectOutcome();
    }

    // The end of a session that was begun.
    void leave()
    {
        world.done.add("(Ctrl-D)");
        world.model.end();
        m_terminal->write(kCtrlD);
    }

    void expectEnd()
    {
        expectStatuses();
        const std::optional<int> status = m_terminal->waitExit();
        ASSERT_TRUE(status) << "it hangs; " << world.story();
        ASSERT_TRUE(WIFEXITED(*status) && WEXITSTATUS(*status) == 0)
            << "status " << *status << "; " << world.story() << m_terminal->rest().toStdString();
        m_terminal.reset();
        ASSERT_EQ(toUtf8(world.storedList()), toUtf8(world.model.list().text())) << world.story();
    }

    World world{Typist::Person};

private:
    // Text as the keys of a keyboard send it.
    [[nodiscard]] static QByteArray typed(const std::string& bytes)
    {
        static const QRegularExpression noKeys(QStringLiteral("[\\x{80}-\\x{9F}]"));
        QString keys = QString::fromUtf8(QByteArray::fromStdString(bytes));
        keys.remove(noKeys);
        return keys.toUtf8();
    }

    // Keys that leave the line empty.
    [[nodiscard]] QByteArray slips()
    {
        switch (world.random.below(6)) {
        case 0:
            return "oops" + kHome + kRight + kEnd + kBackspace.repeated(4);
        case 1:
            return kLeft + kBackspace + "x" + kLeft + kEnd + kBackspace;
        case 2:
            return kUp + kDown;
        default:
            return {};
        }
    }

    void enter(const QByteArray& before, const QByteArray& line)
    {
        world.done.add((before + line).toStdString() + " Enter");
        const std::wstring wide = quelhost::fromUtf8(line.toStdString());
        remember(wide);
        world.model.line(wide);
        m_terminal->write(before + line + kEnter);
    }

    // Begins something, lets it be completed perhaps, and cancels. The key that interrupts has no
    // place in a line, so it is pressed only when the program surely waits for keys. Esc is no key
    // of its own where another follows at once, so what it does is waited for.
    void giveUp()
    {
        const bool asksCommand = world.model.prompt() == Prompt::Command;
        const bool byEscape = !m_isSure || world.random.percent(50);
        QByteArray keys = world.random.percent(50) ? QByteArray("me") : typed(world.files.folder());
        if (!asksCommand || !byEscape)
            keys += QByteArray("\t").repeated(static_cast<int>(world.random.below(4)));
        world.done.add(keys.toStdString() + (byEscape ? " Esc" : " Ctrl-C"));
        world.model.cancel();
        m_terminal->write(keys + (byEscape ? kEscape : kCtrlC));
        if (asksCommand && byEscape) {
            EXPECT_TRUE(m_terminal->expect(keys) && m_terminal->expect("\r\n")) << world.story();
        }
    }

    // Brings an older line back.
    void recall()
    {
        const std::size_t age = world.random.below(std::min<std::size_t>(m_history.size(), 5) + 1);
        const std::wstring line = age == 0 ? L"" : m_history[m_history.size() - age];
        world.done.add("(" + std::to_string(age) + " lines back) Enter");
        m_terminal->write(kUp.repeated(static_cast<int>(age)) + kEnter);
        remember(line);
        world.model.line(line);
    }

    // Lines at the command prompt come back with the arrow keys.
    void remember(const std::wstring& line)
    {
        const std::wstring kept = line.substr(0, line.find_last_not_of(L" \t") + 1);
        const bool isRepeated = !m_history.empty() && m_history.back() == kept;
        if (world.model.prompt() == Prompt::Command && !kept.empty() && !isRepeated)
            m_history.push_back(kept);
    }

    // A command that has ended is told. At the command prompt an echo tells that the whole line was
    // read, and what is asked next is shown behind that.
    void expectOutcome()
    {
        expectStatuses();
        m_isSure = !world.model.hasEnded() && world.model.prompt() == Prompt::Command;
        if (m_isSure) {
            enter({}, "ECHO on");
            expectStatuses();
        }
        if (!world.model.hasEnded()) {
            ASSERT_TRUE(m_terminal->expect(shown(world.model.prompt()))) << world.story();
        }
    }

    void expectStatuses()
    {
        for (const std::string& status : world.model.takeStatuses())
            EXPECT_TRUE(m_terminal->expect(QByteArray::fromStdString(status)))
                << status << "; " << world.story();
    }

    std::unique_ptr<PseudoTerminal> m_terminal;
    const QString m_before = QDir::currentPath();
    std::vector<std::wstring> m_history;
    bool m_isSure = false; // that the program waits for keys
};

} // namespace

TEST_F(HurriedTerminal, EndsEachCommandAndKeepsTheListAsItMust)
{
    const unsigned int all = wantedRounds(100);
    // Until something was loaded and something unloaded, too.
    const unsigned int most = all + 2000;
    const ConsoleModel& model = world.model;
    const auto isEnough = [&](unsigned int done) {
        return done >= all && model.loads() > 0 && model.unloads() > 0;
    };
    bool isRunning = false;
    for (unsigned int done = 0; !isEnough(done) && !HasFailure(); ++done) {
        ASSERT_LT(done, most) << world.story();
        if (!isRunning) {
            ASSERT_NO_FATAL_FAILURE(start());
        }
        if (world.random.percent(20))
            world.changeFiles();
        ASSERT_NO_FATAL_FAILURE(step());
        isRunning = !world.model.hasEnded();
        if (!isRunning) {
            ASSERT_NO_FATAL_FAILURE(expectEnd());
        }
    }
    if (isRunning && !HasFailure()) {
        leave();
        ASSERT_NO_FATAL_FAILURE(expectEnd());
    }
}
