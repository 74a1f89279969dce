#include "refhost/core/settingslisting.h"

#include "refhost/core/settingsdatabase.h"
#include "refhost/core/settingsfiles.h"
#include "refhost/core/systemfault.h"
#include "refhost/core/widetext.h"

#include <string>

namespace quelhost {

namespace {

QByteArray escaped(const std::wstring& text)
{
    QByteArray result;
    for (const char byte : toUtf8(text)) {
        if (byte == '\t')
            result += "\\t";
        else if (byte == '\n')
            result += "\\n";
        else if (byte == '\\')
            result += "\\\\";
        else
            result += byte;
    }
    return result;
}

Fault notReadable(const QString& file, FaultKind kind, const QString& reason)
{
    return plainFault(kind, qtTrId("settings-not-read").arg(file, reason));
}

Result<QByteArray> linesOf(const QString& file)
{
    const auto database = SettingsDatabase::openForReading(file);
    if (!database)
        return database.fault();
    const auto items = database.value()->all();
    if (!items)
        return items.fault();
    QByteArray lines;
    for (const Item& item : items.value())
        lines += settingLine(item) + '\n';
    return lines;
}

} // namespace

QByteArray settingLine(const Item& item)
{
    const QByteArray key = escaped(item.key);
    switch (item.kind) {
    case ItemKind::Integer:
        return key + "\tint\t" + QByteArray::number(item.number);
    case ItemKind::String:
        return key + "\tstring\t" + escaped(item.text);
    case ItemKind::Section:
        break;
    }
    return key + "\tsection";
}

Result<QByteArray> listSettings(const QString& profileFolder)
{
    const QString file = settingsFile(profileFolder);
    switch (presenceOf(file)) {
    case FilePresence::Present:
        return linesOf(file);
    case FilePresence::Unusable:
        return notReadable(file, FaultKind::Damaged, qtTrId("settings-reason-damaged"));
    case FilePresence::Unreachable:
        return notReadable(file, FaultKind::NotPermitted, qtTrId("settings-reason-refused"));
    case FilePresence::Absent:
        break;
    }
    return QByteArray();
}

} // namespace quelhost
