#include "refhost/core/result.h"

namespace quelhost {

QString Fault::text() const
{
    QString place = file;
    if (line > 0)
        place += QStringLiteral(":%1:%2").arg(line).arg(column);
    return place.isEmpty() ? sentence : place + QStringLiteral(": ") + sentence;
}

} // namespace quelhost
