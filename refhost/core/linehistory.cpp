#include "refhost/core/linehistory.h"

#include "refhost/core/widetext.h"

#include <QFile>
#include <QFileInfo>
#include <QSaveFile>

#include <utility>

namespace quelhost {

namespace {

constexpr qint64 kLargestFile = 64 * 1024 * 1024;
constexpr wchar_t kBlanks[] = L" \t";
constexpr wchar_t kBlanksAndReturns[] = L" \t\r";
constexpr wchar_t kLineEnds[] = L"\r\n";

std::wstring withoutTrailing(const wchar_t* characters, const std::wstring& line)
{
    return line.substr(0, line.find_last_not_of(characters) + 1);
}

} // namespace

LineHistory::LineHistory(const QString& path)
    : m_path(path)
{
    if (!m_path.isEmpty())
        load();
}

LineHistory::~LineHistory()
{
    if (!m_saved)
        save();
}

bool LineHistory::add(const std::wstring& line)
{
    std::wstring entry = withoutTrailing(kBlanks, line);
    const bool isRepeated = !m_lines.empty() && m_lines.back() == entry;
    if (entry.empty() || isRepeated || entry.size() > kLongestLine ||
        entry.find_first_of(kLineEnds) != entry.npos)
        return false;
    keep(std::move(entry));
    m_saved = false;
    save();
    return true;
}

QString LineHistory::takeProblem()
{
    return std::exchange(m_problem, {});
}

void LineHistory::load()
{
    const QFileInfo information(m_path);
    if (!information.exists())
        return;
    m_mayWrite = false;
    if (!information.isFile())
        return fail(qtTrId("console-history-no-file").arg(m_path));
    if (information.size() > kLargestFile)
        return fail(qtTrId("console-history-too-large").arg(m_path));
    QFile file(m_path);
    if (!file.open(QIODevice::ReadOnly))
        return fail(qtTrId("console-history-unreadable").arg(m_path, file.errorString()));
    const QByteArray content = file.readAll();
    if (file.error() != QFileDevice::NoError)
        return fail(qtTrId("console-history-unreadable").arg(m_path, file.errorString()));
    m_mayWrite = true;
    // Whatever mixture of blanks and returns ends a line, none is left that the next run would
    // take for another end.
    for (const QByteArray& line : content.split('\n'))
        keep(withoutTrailing(
            kBlanksAndReturns,
            lenientText({line.constData(), static_cast<std::size_t>(line.size())})));
}

void LineHistory::keep(std::wstring line)
{
    if (line.empty() || line.size() > kLongestLine)
        return;
    m_lines.push_back(std::move(line));
    if (m_lines.size() > kMostLines)
        m_lines.pop_front();
}

void LineHistory::save()
{
    if (m_path.isEmpty() || !m_mayWrite)
        return;
    std::string content;
    for (const std::wstring& line : m_lines)
        content += toUtf8(line) + '\n';
    const auto size = static_cast<qint64>(content.size());
    QSaveFile file(m_path);
    // A buffer that finds the disk full at the end would be lost without a fault.
    const bool written = file.open(QIODevice::WriteOnly | QIODevice::Unbuffered) &&
                         file.setPermissions(QFile::ReadOwner | QFile::WriteOwner) &&
                         file.write(content.data(), size) == size && file.commit();
    if (!written)
        return fail(qtTrId("console-history-unwritable").arg(m_path, file.errorString()));
    m_saved = true;
}

void LineHistory::fail(const QString& sentence)
{
    if (!std::exchange(m_failed, true))
        m_problem = sentence;
}

} // namespace quelhost
