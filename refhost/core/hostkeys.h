// The keys of the host itself: no menu group can take them.
#pragma once

#include "refhost/core/keyassignment.h"

#include <vector>

namespace quelhost {

// Names of the host's own actions that have keys.
constexpr char kFindCommandAction[] = "findcommand";
constexpr char kCommandLineAction[] = "commandline";
constexpr char kLoadedAction[] = "loaded";

[[nodiscard]] inline std::vector<GroupKey> hostKeys()
{
    const QString host = QStringLiteral("Quelhost");
    const auto key = [&host](const char* action, int letter) {
        return GroupKey{host, QLatin1String(action),
                        QKeySequence(int(Qt::CTRL) + int(Qt::ALT) + letter)};
    };
    return {key(kFindCommandAction, Qt::Key_I), key(kCommandLineAction, Qt::Key_C),
            key(kLoadedAction, Qt::Key_L)};
}

} // namespace quelhost
