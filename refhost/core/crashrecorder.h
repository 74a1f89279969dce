// Keeps what errors were thrown in this run, for the report of one that nobody caught.
#pragma once

#include "host/errors.h"

#include <QString>
#include <QStringList>

namespace quelhost {

class CrashRecorder final : public QuelCrashRecorder
{
public:
    void record(const VxErrorStatus* error) override;
    void record(const VxExceptionWithMsg* error) override;

    // One line for each error, in order. Copies: the errors and their module may be gone.
    [[nodiscard]] const QStringList& lines() const { return m_lines; }

private:
    void add(const QString& line);

    QStringList m_lines;
};

// The errors as the user reads them.
[[nodiscard]] QString describe(const VxErrorStatus& error);
[[nodiscard]] QString describe(const VxExceptionWithMsg& error);

} // namespace quelhost
