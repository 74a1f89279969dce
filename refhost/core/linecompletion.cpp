#include "refhost/core/linecompletion.h"

#include <QDir>
#include <QFileInfo>

#include <algorithm>
#include <optional>

namespace quelhost {

namespace {

constexpr QChar kQuote = QLatin1Char('"');
constexpr QChar kSlash = QLatin1Char('/');

// The answer at the end of a line that is being typed.
struct Typed
{
    QString before; // the line up to the answer
    QString text;   // the answer, without its leading quote
    bool quoted = false;
    bool first = true; // of the line
};

bool hasBlank(const QString& text)
{
    return std::any_of(text.begin(), text.end(), [](QChar c) { return c.isSpace(); });
}

// The answer as it is to be typed. A quote inside would end a quoted answer too early.
QString asAnswer(const QString& text, bool quoted, bool isWhole)
{
    const bool quotes = quoted || (hasBlank(text) && !text.contains(kQuote));
    if (!quotes)
        return text;
    return kQuote + text + (isWhole ? QString(kQuote) : QString());
}

int afterBlanks(const QString& line, int position)
{
    while (position < line.size() && line[position].isSpace())
        ++position;
    return position;
}

int afterWord(const QString& line, int position)
{
    while (position < line.size() && !line[position].isSpace())
        ++position;
    return position;
}

Typed lastWord(const QString& line)
{
    int start = afterBlanks(line, 0);
    bool first = true;
    while (start < line.size()) {
        if (line[start] == kQuote) {
            const int closing = line.indexOf(kQuote, start + 1);
            if (closing < 0)
                return {line.left(start), line.mid(start + 1), true, first};
            start = afterBlanks(line, closing + 1);
        } else {
            const int end = afterWord(line, start);
            if (end == line.size())
                return {line.left(start), line.mid(start), false, first};
            start = afterBlanks(line, end);
        }
        first = false;
    }
    return {line, {}, false, first};
}

// Nothing when the answer's closing quote is typed already.
std::optional<Typed> wholeLine(const QString& line)
{
    const int start = afterBlanks(line, 0);
    if (start == line.size() || line[start] != kQuote)
        return Typed{line.left(start), line.mid(start), false, true};
    const QString text = line.mid(start + 1);
    if (text.contains(kQuote))
        return std::nullopt;
    return Typed{line.left(start), text, true, true};
}

QString commonStart(const QStringList& texts, Qt::CaseSensitivity sensitivity)
{
    QString common = texts.first();
    for (const QString& text : texts) {
        int length = 0;
        const int limit = std::min(common.size(), text.size());
        while (length < limit && QStringView(common).mid(length, 1).compare(
                                     QStringView(text).mid(length, 1), sensitivity) == 0)
            ++length;
        common.truncate(length);
    }
    if (!common.isEmpty() && common.at(common.size() - 1).isHighSurrogate())
        common.chop(1);
    return common;
}

void sort(QStringList& texts)
{
    std::sort(texts.begin(), texts.end(), [](const QString& left, const QString& right) {
        const int order = left.compare(right, Qt::CaseInsensitive);
        return order != 0 ? order < 0 : left < right;
    });
}

CompletedLine completeWord(const Typed& typed, bool blankFollows, const QStringList& words)
{
    QStringList fitting;
    for (const QString& word : words) {
        if (!word.isEmpty() && word.startsWith(typed.text, Qt::CaseInsensitive))
            fitting += word;
    }
    sort(fitting);
    fitting.erase(std::unique(fitting.begin(), fitting.end(),
                              [](const QString& left, const QString& right) {
                                  return left.compare(right, Qt::CaseInsensitive) == 0;
                              }),
                  fitting.end());
    if (fitting.isEmpty())
        return {};
    if (fitting.size() == 1) {
        const QString blank = blankFollows ? QString() : QStringLiteral(" ");
        return {typed.before + asAnswer(fitting.first(), typed.quoted, true) + blank, {}, true};
    }
    const QString common = commonStart(fitting, Qt::CaseInsensitive);
    const QString& longest = common.size() > typed.text.size() ? common : typed.text;
    return {typed.before + asAnswer(longest, typed.quoted, false), fitting, true};
}

// Whether `name` can be typed as it stands in the file system.
bool isTypable(const QString& name)
{
    return std::none_of(name.begin(), name.end(), [](QChar character) {
        return character.category() == QChar::Other_Control ||
               character == QChar(QChar::ReplacementCharacter);
    });
}

// What stands in `folder` and begins with `start`, folders with a slash.
QStringList namesIn(const QString& folder, const QString& start)
{
    QDir::Filters filters = QDir::AllEntries | QDir::NoDotAndDotDot;
    if (start.startsWith(QLatin1Char('.')))
        filters |= QDir::Hidden;
    QStringList names;
    const QFileInfoList entries =
        QDir(folder.isEmpty() ? QStringLiteral(".") : folder).entryInfoList(filters, QDir::NoSort);
    for (const QFileInfo& entry : entries) {
        const QString name = entry.fileName();
        if (name.startsWith(start) && isTypable(name))
            names += entry.isDir() ? name + kSlash : name;
    }
    if (start == QLatin1String(".."))
        names += QStringLiteral("../");
    sort(names);
    return names;
}

// The expected paths that what is typed may mean.
QStringList expectedPaths(const QString& typed, const QStringList& paths)
{
    QStringList fitting;
    for (const QString& path : paths) {
        const QString file = path.mid(path.lastIndexOf(kSlash) + 1);
        if (path.startsWith(typed) || file.startsWith(typed, Qt::CaseInsensitive))
            fitting += path;
    }
    fitting.removeDuplicates();
    sort(fitting);
    return fitting;
}

CompletedLine completePath(const Typed& typed, const QStringList& expected)
{
    const QStringList fitting = expectedPaths(typed.text, expected);
    if (fitting.size() == 1)
        return {typed.before + asAnswer(fitting.first(), typed.quoted, true), {}, true};
    if (!fitting.isEmpty()) {
        const QString common = commonStart(fitting, Qt::CaseSensitive);
        const QString text = common.startsWith(typed.text) ? common : typed.text;
        return {typed.before + asAnswer(text, typed.quoted, false), fitting, true};
    }
    const QString home = QStringLiteral("~");
    if (typed.text == home)
        return {};
    QString folder = typed.text.left(typed.text.lastIndexOf(kSlash) + 1);
    const QString start = typed.text.mid(folder.size());
    if (folder.startsWith(home + kSlash))
        folder = QDir::homePath() + folder.mid(1);
    const QStringList names = namesIn(folder, start);
    if (names.isEmpty())
        return {};
    const QString path = folder + commonStart(names, Qt::CaseSensitive);
    const bool isWhole = names.size() == 1 && !path.endsWith(kSlash);
    return {typed.before + asAnswer(path, typed.quoted, isWhole),
            names.size() == 1 ? QStringList() : names, true};
}

} // namespace

CompletedLine completeLine(const QString& beforeCursor, bool blankFollows,
                           const LineRequest& request)
{
    if (request.completion == Completion::Paths) {
        const std::optional<Typed> typed = wholeLine(beforeCursor);
        return typed ? completePath(*typed, request.words) : CompletedLine{};
    }
    const Typed typed = lastWord(beforeCursor);
    switch (request.completion) {
    case Completion::Commands:
        return typed.first ? completeWord(typed, blankFollows, request.words)
                           : completePath(typed, {});
    case Completion::Keywords:
        return typed.first ? completeWord(typed, blankFollows, request.words) : CompletedLine{};
    case Completion::Paths:
    case Completion::Nothing:
        break;
    }
    return {};
}

} // namespace quelhost
