// Reads lines with TerminalLines and prints each as KIND[text], for tests that type on a terminal.
//
//   terminalprobe [option value | flag] ...
//     --prompt TEXT        default "probe> "
//     --completion KIND    nothing (default), commands, keywords, paths
//     --words A,B,...      what commands and keywords are completed from
//     --history FILE       where lines are kept
//     --texts FILE         the translated sentences
//     --without-privileges gives up the superuser's rights first
//     --ignore-hangup      as under nohup
//
// At the end it prints whether the signals' actions are what they were at the start.
#include "refhost/console/terminallines.h"
#include "refhost/core/widetext.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QTranslator>

#include <csignal>
#include <grp.h>
#include <map>
#include <unistd.h>

namespace {

using quelhost::Completion;
using quelhost::Line;

using Handlers = std::map<int, void (*)(int)>;

Handlers handlers()
{
    Handlers result;
    for (int signal = 1; signal < SIGRTMIN; ++signal) {
        struct sigaction action = {};
        if (::sigaction(signal, nullptr, &action) == 0)
            result[signal] = action.sa_handler;
    }
    return result;
}

Completion completionOf(const QString& name)
{
    const std::map<QString, Completion> kinds = {{QStringLiteral("commands"), Completion::Commands},
                                                 {QStringLiteral("keywords"), Completion::Keywords},
                                                 {QStringLiteral("paths"), Completion::Paths}};
    const auto found = kinds.find(name);
    return found == kinds.end() ? Completion::Nothing : found->second;
}

std::wstring shown(const Line& line)
{
    switch (line.kind) {
    case Line::Kind::Text:
        return L"TEXT[" + line.text + L"]";
    case Line::Kind::Cancel:
        return L"CANCEL[" + line.text + L"]";
    case Line::Kind::End:
        break;
    }
    return L"END[" + line.text + L"]";
}

bool giveUpPrivileges()
{
    constexpr gid_t nobody = 65534;
    return ::geteuid() != 0 || (::setgroups(0, nullptr) == 0 && ::setgid(nobody) == 0 &&
                                ::setuid(static_cast<uid_t>(nobody)) == 0);
}

void readLines(const QCommandLineParser& options, quelhost::Output& output)
{
    quelhost::TerminalLines lines(options.value(QStringLiteral("history")), output);
    const QString problem = lines.takeHistoryProblem();
    if (!problem.isEmpty())
        output.writeRow(L"PROBLEM[" + quelhost::toWide(problem) + L"]");
    const quelhost::LineRequest request{
        quelhost::toWide(options.value(QStringLiteral("prompt"))),
        completionOf(options.value(QStringLiteral("completion"))),
        options.value(QStringLiteral("words")).split(QLatin1Char(','), Qt::SkipEmptyParts)};
    Line line;
    do {
        line = lines.readLine(request);
        output.writeRow(shown(line));
        const QString later = lines.takeHistoryProblem();
        if (!later.isEmpty())
            output.writeRow(L"PROBLEM[" + quelhost::toWide(later) + L"]");
    } while (line.kind != Line::Kind::End);
    output.writeRow(L"AGAIN " + shown(lines.readLine(request)));
}

} // namespace

int main(int argc, char** argv)
{
    QCoreApplication application(argc, argv);
    QCommandLineParser options;
    options.addOptions(
        {{QStringLiteral("prompt"), {}, QStringLiteral("t"), QStringLiteral("probe> ")},
         {QStringLiteral("completion"), {}, QStringLiteral("k")},
         {QStringLiteral("words"), {}, QStringLiteral("w")},
         {QStringLiteral("history"), {}, QStringLiteral("f")},
         {QStringLiteral("texts"), {}, QStringLiteral("f")},
         {QStringLiteral("without-privileges"), {}},
         {QStringLiteral("ignore-hangup"), {}}});
    options.process(application);
    QTranslator texts;
    if (options.isSet(QStringLiteral("texts")) &&
        (!texts.load(options.value(QStringLiteral("texts"))) ||
         !QCoreApplication::installTranslator(&texts)))
        return 3;
    if (options.isSet(QStringLiteral("without-privileges")) && !giveUpPrivileges())
        return 4;
    if (options.isSet(QStringLiteral("ignore-hangup")))
        std::signal(SIGHUP, SIG_IGN);

    quelhost::DescriptorOutput output(STDOUT_FILENO);
    const Handlers before = handlers();
    readLines(options, output);
    output.writeRow(before == handlers() ? L"SIGNALS[restored]" : L"SIGNALS[changed]");
    return 0;
}
