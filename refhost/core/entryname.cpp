#include "refhost/core/entryname.h"

#include "refhost/core/packagefaults.h"
#include "refhost/core/utf8cursor.h"
#include "refhost/core/widetext.h"

#include <QStringList>

#include <algorithm>

namespace quelhost {

namespace {

[[nodiscard]] bool isUtf8(std::string_view text)
{
    while (!text.empty()) {
        const qint64 length = utf8Length(text);
        if (length == 0)
            return false;
        text.remove_prefix(static_cast<std::size_t>(length));
    }
    return true;
}

// `C:` is where some systems begin an absolute path.
[[nodiscard]] bool isDrive(const QString& part)
{
    return part.size() >= 2 && part.at(0).isLetter() && part.at(1) == QLatin1Char(':');
}

[[nodiscard]] bool isAbsolute(const QString& name)
{
    const QStringList parts = name.split(QLatin1Char('/'));
    // An empty part in the middle comes from `//`, which makes what follows absolute when joined.
    const bool emptyPart = std::find(parts.begin(), parts.end() - 1, QString()) != parts.end() - 1;
    return emptyPart || std::any_of(parts.begin(), parts.end(), isDrive);
}

[[nodiscard]] bool hasDots(const QString& name)
{
    const QStringList parts = name.split(QLatin1Char('/'));
    return parts.contains(QStringLiteral("..")) || parts.contains(QStringLiteral("."));
}

[[nodiscard]] QString nameSentence(const QString& name)
{
    if (name.isEmpty())
        return qtTrId("package-name-empty");
    const QString shown = shownText(name);
    if (hasControlCharacter(name))
        return qtTrId("package-name-control").arg(shown);
    if (name.contains(QLatin1Char('\\')))
        return qtTrId("package-name-backslash").arg(shown);
    if (isAbsolute(name))
        return qtTrId("package-name-absolute").arg(shown);
    if (hasDots(name))
        return qtTrId("package-name-dots").arg(shown);
    const bool known =
        name == QLatin1String("customization.xml") || name.startsWith(QLatin1String("images/"));
    return known ? QString() : qtTrId("package-name-unknown").arg(shown);
}

} // namespace

EntryName readEntryName(std::string_view stored)
{
    EntryName name;
    // With a byte order mark in front, if there is one: it makes another name.
    name.text = toQString(fromUtf8(stored));
    name.sentence = isUtf8(stored) ? nameSentence(name.text)
                                   : qtTrId("package-name-utf8").arg(shownText(name.text));
    name.isFolder = name.text.endsWith(QLatin1Char('/'));
    return name;
}

} // namespace quelhost
