#include "refhost/core/aliases.h"

#include "refhost/core/widetext.h"

#include <QFile>
#include <QFileInfo>
#include <QHash>
#include <QTextCodec>

#include <algorithm>
#include <optional>

namespace quelhost {

namespace {

bool isBlank(QChar character)
{
    return character == QLatin1Char(' ') || character == QLatin1Char('\t');
}

QString withoutOuterBlanks(const QString& text)
{
    int begin = 0;
    int end = text.size();
    while (begin < end && isBlank(text.at(begin)))
        ++begin;
    while (end > begin && isBlank(text.at(end - 1)))
        --end;
    return text.mid(begin, end - begin);
}

bool isWord(const QString& text)
{
    const auto allowed = [](QChar character) {
        return !isBlank(character) && character != QLatin1Char('=') &&
               character != QLatin1Char('"') && character.category() != QChar::Other_Control;
    };
    return !text.isEmpty() && std::all_of(text.begin(), text.end(), allowed);
}

// Text of one line, or nothing when its bytes are no UTF-8.
std::optional<QString> decoded(const QByteArray& line)
{
    QTextCodec::ConverterState state(QTextCodec::IgnoreHeader);
    static QTextCodec* const utf8 = QTextCodec::codecForName("UTF-8");
    const QString text = utf8->toUnicode(line.constData(), line.size(), &state);
    if (state.invalidChars > 0 || state.remainingChars > 0)
        return std::nullopt;
    return text;
}

class AliasParser
{
public:
    explicit AliasParser(QString file)
        : m_file(std::move(file))
    {}

    void parseLine(const QByteArray& bytes)
    {
        ++m_line;
        const std::optional<QString> text = decoded(bytes);
        if (!text) {
            fault(m_line, qtTrId("alias-not-utf8"));
            return;
        }
        const QString entry = withoutOuterBlanks(text->section(QLatin1Char('#'), 0, 0));
        if (!entry.isEmpty())
            parseEntry(entry);
    }

    AliasReading take()
    {
        std::stable_sort(
            m_reading.faults.begin(), m_reading.faults.end(),
            [](const Fault& left, const Fault& right) { return left.line < right.line; });
        return std::move(m_reading);
    }

private:
    void parseEntry(const QString& entry)
    {
        const int equals = entry.indexOf(QLatin1Char('='));
        const QString alias = withoutOuterBlanks(entry.left(equals)).toUpper();
        const QString command = withoutOuterBlanks(entry.mid(equals + 1));
        if (equals < 0 || !isWord(alias) || !isWord(command)) {
            fault(m_line, qtTrId("alias-bad-line"));
            return;
        }
        if (m_lineOf.contains(alias))
            fault(m_lineOf.value(alias),
                  qtTrId("alias-replaced").arg(alias, QString::number(m_line)));
        m_lineOf.insert(alias, m_line);
        m_reading.aliases.insert(alias, command);
    }

    void fault(int line, const QString& sentence)
    {
        m_reading.faults.push_back({FaultKind::BadInput, sentence, m_file, line, 1});
    }

    const QString m_file;
    int m_line = 0;
    QHash<QString, int> m_lineOf;
    AliasReading m_reading;
};

} // namespace

AliasReading parseAliases(const QByteArray& text, const QString& file)
{
    AliasParser parser(file);
    const QByteArray mark("\xEF\xBB\xBF");
    const QByteArray content = text.startsWith(mark) ? text.mid(mark.size()) : text;
    for (QByteArray line : content.split('\n')) {
        if (line.endsWith('\r'))
            line.chop(1);
        parser.parseLine(line);
    }
    return parser.take();
}

Aliases::Aliases(QString path, Report report)
    : m_path(std::move(path))
    , m_report(std::move(report))
{}

QuString Aliases::getCurValidPgpFileName()
{
    return QuString(toWide(QFileInfo(m_path).fileName()).c_str());
}

void Aliases::uninitAliasNameList()
{
    m_aliases.clear();
    m_read = false;
}

bool Aliases::initAliasNameList(bool reread)
{
    if (m_read && !reread)
        return true;
    QFile file(m_path);
    if (!file.open(QIODevice::ReadOnly)) {
        m_report(
            {FaultKind::Io, qtTrId("alias-unreadable").arg(m_path, file.errorString()), {}, 0, 0});
        return false;
    }
    AliasReading reading = parseAliases(file.readAll(), QFileInfo(m_path).fileName());
    m_aliases = std::move(reading.aliases);
    m_read = true;
    for (const Fault& fault : reading.faults)
        m_report(fault);
    return true;
}

QString Aliases::commandFor(const QString& name) const
{
    return m_aliases.value(name.toUpper());
}

} // namespace quelhost
