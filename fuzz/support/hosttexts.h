// The host's English sentences, for fuzzers that look at faults.
#pragma once

#include "refhost/core/resources.h"

#include <QCoreApplication>

namespace fuzzing {

// Installs them for the rest of the process. Returns whether they are there.
inline bool installTexts(int& argc, char** argv)
{
    static const QCoreApplication application(argc, argv);
    return quelhost::installHostTexts(QStringLiteral(QUEL_RESOURCES), QStringLiteral("en"));
}

} // namespace fuzzing
