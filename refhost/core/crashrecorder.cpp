#include "refhost/core/crashrecorder.h"

#include "refhost/core/widetext.h"

#include <QObject>

namespace quelhost {

namespace {

// A command that fails again and again must not fill the memory with its record.
constexpr int kMostLines = 100;

} // namespace

QString describe(const VxErrorStatus& error)
{
    return qtTrId("error-status").arg(static_cast<int>(error.status()));
}

QString describe(const VxExceptionWithMsg& error)
{
    return toQString(error.message());
}

void CrashRecorder::record(const VxErrorStatus* error)
{
    add(describe(*error));
}

void CrashRecorder::record(const VxExceptionWithMsg* error)
{
    add(describe(*error));
}

void CrashRecorder::add(const QString& line)
{
    if (m_lines.size() == kMostLines)
        m_lines.removeFirst();
    m_lines << line;
}

} // namespace quelhost
