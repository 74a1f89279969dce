// Faults that the operating system is the cause of.
#pragma once

#include "refhost/core/result.h"

#include <QString>

#include <cerrno>

namespace quelhost {

// Whether an errno says that access is refused, rather than that something failed.
[[nodiscard]] inline bool isRefusal(int error)
{
    return error == EACCES || error == EPERM || error == EROFS;
}

[[nodiscard]] inline FaultKind kindOfError(int error)
{
    return isRefusal(error) ? FaultKind::NotPermitted : FaultKind::Io;
}

// A fault that is not at a place in a file.
[[nodiscard]] inline Fault plainFault(FaultKind kind, const QString& sentence)
{
    return {kind, sentence, {}, 0, 0};
}

} // namespace quelhost
