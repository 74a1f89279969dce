#include "refhost/core/keyfile.h"

#include "refhost/core/packagefaults.h"
#include "refhost/core/packagefile.h"
#include "refhost/core/profile.h"
#include "refhost/core/userchangetexts.h"

#include <QFileInfo>
#include <QHash>
#include <QStringList>

#include <algorithm>

namespace quelhost {

namespace {

constexpr char kFirstLine[] = "quelhost keys 1";
constexpr qint64 kMaxBytes = 16 * 1024 * 1024;

class KeyFileParser
{
public:
    explicit KeyFileParser(QString file)
        : m_file(std::move(file))
    {}

    // Takes one line; false when it is wrong.
    [[nodiscard]] bool take(const QByteArray& bytes)
    {
        ++m_line;
        // Passes over a byte order mark.
        const QString line = QString::fromUtf8(bytes.constData(), bytes.size());
        if (m_line == 1)
            return line == QLatin1String(kFirstLine) || refuse(qtTrId("keyfile-no-keys"));
        if (line.toUtf8() != bytes)
            return refuse(qtTrId("keyfile-not-utf8"));
        return line.isEmpty() || line.startsWith(QLatin1Char('#')) || takeCommand(line);
    }

    Result<KeyChanges> result()
    {
        if (m_sentence.isEmpty())
            return std::move(m_changes);
        return Fault{FaultKind::BadInput, m_sentence, m_file, m_line, 1};
    }

private:
    [[nodiscard]] bool takeCommand(const QString& line)
    {
        const QStringList cells = line.split(QLatin1Char('\t'));
        const bool isWhole = cells.size() == 3 && !cells.at(0).isEmpty() && !cells.at(1).isEmpty();
        if (!isWhole || std::any_of(cells.begin(), cells.end(), hasControlCharacter))
            return refuse(qtTrId("keyfile-bad-line"));
        const std::optional<Keys> keys = keysOfText(cells.at(2));
        if (!keys)
            return refuse(qtTrId("keyfile-bad-keys").arg(shownText(cells.at(2))));
        const QString command = line.left(line.lastIndexOf(QLatin1Char('\t')));
        const auto known = m_lineOf.constFind(command);
        if (known != m_lineOf.constEnd())
            return refuse(
                qtTrId("keyfile-twice")
                    .arg(shownText(cells.at(0)), shownText(cells.at(1)), QString::number(*known)));
        m_lineOf.insert(command, m_line);
        m_changes.emplace(GroupEntry{cells.at(0), cells.at(1)}, *keys);
        return true;
    }

    [[nodiscard]] bool refuse(const QString& sentence)
    {
        m_sentence = sentence;
        return false;
    }

    const QString m_file;
    int m_line = 0;
    QString m_sentence;
    QHash<QString, int> m_lineOf;
    KeyChanges m_changes;
};

} // namespace

QByteArray keyFileText(const KeyChanges& changes)
{
    QString text = QLatin1String(kFirstLine) + QLatin1Char('\n');
    for (const auto& [command, keys] : changes)
        text += command.group + QLatin1Char('\t') + command.id + QLatin1Char('\t') +
                keysText(keys) + QLatin1Char('\n');
    return text.toUtf8();
}

Result<KeyChanges> parseKeyFile(const QByteArray& text, const QString& file)
{
    KeyFileParser parser(file);
    for (QByteArray line : text.split('\n')) {
        if (line.endsWith('\r'))
            line.chop(1);
        if (!parser.take(line))
            break;
    }
    return parser.result();
}

Status exportKeys(const QString& path, const KeyChanges& changes)
{
    return writeFileSafely(path, keyFileText(changes));
}

Result<KeyChanges> importKeys(const QString& path)
{
    const Result<QByteArray> bytes = readPackageFile(path, kMaxBytes);
    if (!bytes)
        return bytes.fault();
    return parseKeyFile(bytes.value(), QFileInfo(path).fileName());
}

} // namespace quelhost
