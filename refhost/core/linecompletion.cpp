#include "refhost/core/linecompletion.h"

#include <QDir>
#include <QDirIterator>
#include <QFileInfo>

#include <algorithm>
#include <limits>
#include <optional>

namespace quelhost {

namespace {

constexpr QChar kQuote = QLatin1Char('"');
constexpr QChar kSlash = QLatin1Char('/');
constexpr int kMostLookedAt = 10000; // entries of a folder, at every key

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

QStringList fittingWords(const Typed& typed, const QStringList& words)
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
    return fitting;
}

QString lineWithWord(const Typed& typed, bool blankFollows, const QString& word)
{
    const QString blank = blankFollows ? QString() : QStringLiteral(" ");
    return typed.before + asAnswer(word, typed.quoted, true) + blank;
}

CompletedLine completeWord(const Typed& typed, bool blankFollows, const QStringList& words)
{
    const QStringList fitting = fittingWords(typed, words);
    if (fitting.isEmpty())
        return {};
    if (fitting.size() == 1)
        return {lineWithWord(typed, blankFollows, fitting.first()), {}, true};
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

// The names that begin like a path that is typed.
struct Names
{
    QString folder; // what stands before them
    QStringList names;
};

// What stands in the folder of a path that is typed, folders with a slash. Nothing where there are
// more than `most` entries to look at.
Names namesLike(const QString& path, int most = std::numeric_limits<int>::max())
{
    const QString home = QStringLiteral("~");
    if (path == home)
        return {};
    Names found{path.left(path.lastIndexOf(kSlash) + 1), {}};
    const QString start = path.mid(found.folder.size());
    if (found.folder.startsWith(home + kSlash))
        found.folder = QDir::homePath() + found.folder.mid(1);
    QDir::Filters filters = QDir::AllEntries | QDir::NoDotAndDotDot;
    if (start.startsWith(QLatin1Char('.')))
        filters |= QDir::Hidden;
    QDirIterator entries(found.folder.isEmpty() ? QStringLiteral(".") : found.folder, filters);
    for (int count = 0; entries.hasNext(); ++count) {
        if (count == most)
            return {};
        entries.next();
        const QString name = entries.fileName();
        if (name.startsWith(start) && isTypable(name))
            found.names += entries.fileInfo().isDir() ? name + kSlash : name;
    }
    if (start == QLatin1String(".."))
        found.names += QStringLiteral("../");
    sort(found.names);
    return found;
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
    const auto [folder, names] = namesLike(typed.text);
    if (names.isEmpty())
        return {};
    const QString path = folder + commonStart(names, Qt::CaseSensitive);
    const bool isWhole = names.size() == 1 && !path.endsWith(kSlash);
    return {typed.before + asAnswer(path, typed.quoted, isWhole),
            names.size() == 1 ? QStringList() : names, true};
}

std::vector<Suggestion> suggestWords(const Typed& typed, bool blankFollows,
                                     const QStringList& words)
{
    std::vector<Suggestion> suggestions;
    for (const QString& word : fittingWords(typed, words))
        suggestions.push_back({word, lineWithWord(typed, blankFollows, word)});
    return suggestions;
}

std::vector<Suggestion> suggestPaths(const Typed& typed, const QStringList& expected, int most)
{
    std::vector<Suggestion> suggestions;
    for (const QString& path : expectedPaths(typed.text, expected))
        suggestions.push_back({path, typed.before + asAnswer(path, typed.quoted, true)});
    if (!suggestions.empty())
        return suggestions;
    const auto [folder, names] = namesLike(typed.text, most);
    for (const QString& name : names) {
        const QString path = folder + name;
        const bool isWhole = !name.endsWith(kSlash);
        suggestions.push_back({name, typed.before + asAnswer(path, typed.quoted, isWhole)});
    }
    return suggestions;
}

// The answer at the end of the line; nothing when it cannot be completed.
std::optional<Typed> answerIn(const QString& beforeCursor, Completion completion)
{
    switch (completion) {
    case Completion::Paths:
        return wholeLine(beforeCursor);
    case Completion::Commands:
        return lastWord(beforeCursor);
    case Completion::Keywords: {
        const Typed typed = lastWord(beforeCursor);
        return typed.first ? std::optional<Typed>(typed) : std::nullopt;
    }
    case Completion::Nothing:
        break;
    }
    return std::nullopt;
}

bool isPath(const Typed& typed, Completion completion)
{
    return completion == Completion::Paths || !typed.first;
}

} // namespace

CompletedLine completeLine(const QString& beforeCursor, bool blankFollows,
                           const LineRequest& request)
{
    const std::optional<Typed> typed = answerIn(beforeCursor, request.completion);
    if (!typed)
        return {};
    if (!isPath(*typed, request.completion))
        return completeWord(*typed, blankFollows, request.words);
    const bool isAsked = request.completion == Completion::Paths;
    return completePath(*typed, isAsked ? request.words : QStringList());
}

std::vector<Suggestion> suggestLines(const QString& beforeCursor, bool blankFollows,
                                     const LineRequest& request, Suggest when)
{
    const std::optional<Typed> typed = answerIn(beforeCursor, request.completion);
    const bool whileTyping = when == Suggest::WhileTyping;
    if (!typed || (whileTyping && typed->text.isEmpty()))
        return {};
    if (!isPath(*typed, request.completion)) {
        std::vector<Suggestion> words = suggestWords(*typed, blankFollows, request.words);
        const bool isThere =
            words.size() == 1 && words.front().text.compare(typed->text, Qt::CaseInsensitive) == 0;
        return whileTyping && isThere ? std::vector<Suggestion>() : words;
    }
    const bool isAsked = request.completion == Completion::Paths;
    if (whileTyping && !isAsked && !typed->text.contains(kSlash))
        return {};
    std::vector<Suggestion> paths =
        suggestPaths(*typed, isAsked ? request.words : QStringList(),
                     whileTyping ? kMostLookedAt : std::numeric_limits<int>::max());
    const bool isThere =
        paths.size() == 1 && typed->text.endsWith(paths.front().text) && whileTyping;
    return isThere ? std::vector<Suggestion>() : paths;
}

} // namespace quelhost
