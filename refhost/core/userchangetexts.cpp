#include "refhost/core/userchangetexts.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

namespace quelhost {

namespace {

const QLatin1String kTitle("title");
const QLatin1String kEntries("entries");
const QLatin1String kHidden("hidden");
const QLatin1String kDeleted("deleted");
const QLatin1String kSeparator("|");

bool isGood(const QKeySequence& keys)
{
    for (int i = 0; i < keys.count(); ++i) {
        const int key = static_cast<int>(static_cast<unsigned int>(keys[static_cast<uint>(i)]) &
                                         ~static_cast<unsigned int>(Qt::KeyboardModifierMask));
        if (key < Qt::Key_Space || key == Qt::Key_unknown)
            return false;
    }
    return !keys.isEmpty();
}

QJsonArray arrayOf(const std::vector<ToolbarEntry>& entries)
{
    QJsonArray array;
    for (const ToolbarEntry& entry : entries)
        array.append(isSeparator(entry) ? QString(kSeparator) : entryText(entry));
    return array;
}

std::optional<std::vector<ToolbarEntry>> entriesOf(const QJsonArray& array)
{
    std::vector<ToolbarEntry> entries;
    for (const QJsonValue& value : array) {
        const QString text = value.toString();
        const std::optional<GroupEntry> entry =
            text == kSeparator ? ToolbarEntry() : entryOfText(text);
        if (!entry)
            return std::nullopt;
        entries.push_back(*entry);
    }
    return entries;
}

// Whether a member is as it has to be where it is there at all.
bool isOf(QJsonValue::Type type, const QJsonValue& value)
{
    return value.isUndefined() || value.type() == type;
}

} // namespace

QString keysText(const Keys& keys)
{
    return QKeySequence::listToString(keys, QKeySequence::PortableText);
}

std::optional<Keys> keysOfText(const QString& text)
{
    Keys keys;
    if (text.isEmpty())
        return keys;
    for (const QString& part : text.split(QStringLiteral("; "))) {
        const QKeySequence sequence = QKeySequence::fromString(part, QKeySequence::PortableText);
        // A text may name more combinations than there is room for.
        const bool whole = part.split(QStringLiteral(", ")).size() == sequence.count();
        // A blank alone would be the space bar.
        if (!isGood(sequence) || !whole || part.trimmed() != part || keys.contains(sequence))
            return std::nullopt;
        keys << sequence;
    }
    return keys;
}

QString toolbarText(const ToolbarChange& change)
{
    QJsonObject object;
    if (change.title)
        object.insert(kTitle, *change.title);
    if (change.entries)
        object.insert(kEntries, arrayOf(*change.entries));
    if (change.hidden)
        object.insert(kHidden, true);
    if (change.deleted)
        object.insert(kDeleted, true);
    return QString::fromUtf8(QJsonDocument(object).toJson(QJsonDocument::Compact));
}

std::optional<ToolbarChange> toolbarOfText(const QString& text)
{
    const QJsonDocument document = QJsonDocument::fromJson(text.toUtf8());
    const QJsonObject object = document.object();
    const QJsonValue title = object.value(kTitle);
    const QJsonValue entries = object.value(kEntries);
    const QJsonValue hidden = object.value(kHidden);
    const QJsonValue deleted = object.value(kDeleted);
    if (!document.isObject() || !isOf(QJsonValue::String, title) ||
        !isOf(QJsonValue::Array, entries) || !isOf(QJsonValue::Bool, hidden) ||
        !isOf(QJsonValue::Bool, deleted))
        return std::nullopt;
    ToolbarChange change;
    if (title.isString())
        change.title = title.toString();
    if (entries.isArray()) {
        change.entries = entriesOf(entries.toArray());
        if (!change.entries)
            return std::nullopt;
    }
    change.hidden = hidden.toBool();
    change.deleted = deleted.toBool();
    return change;
}

QString entryText(const GroupEntry& entry)
{
    return entry.group + QLatin1Char('/') + entry.id;
}

std::optional<GroupEntry> entryOfText(const QString& text)
{
    const int slash = text.indexOf(QLatin1Char('/'));
    if (slash <= 0 || slash + 1 == text.size())
        return std::nullopt;
    return GroupEntry{text.left(slash), text.mid(slash + 1)};
}

} // namespace quelhost
