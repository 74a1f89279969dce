#include "refhost/core/hostlistings.h"

#include "refhost/core/cellwidth.h"
#include "refhost/core/commandstore.h"
#include "refhost/core/menutext.h"
#include "refhost/core/settingslisting.h"
#include "refhost/core/shownmenugroups.h"
#include "refhost/core/utf8locale.h"
#include "refhost/core/widetext.h"

#include <QFileInfo>

#include <algorithm>

namespace quelhost {

namespace {

constexpr char kIndent[] = "    ";

template<typename Named>
QString texts(const std::vector<Named>& all)
{
    QStringList result;
    for (const Named& each : all)
        result << plainMenuText(each.text);
    return result.isEmpty() ? qtTrId("groups-none") : result.join(QStringLiteral(", "));
}

QString marked(const QString& path)
{
    const QFileInfo info(path);
    QStringList marks;
    if (info.isRelative())
        marks << qtTrId("groups-relative");
    if (!info.exists())
        marks << qtTrId("groups-missing");
    return marks.isEmpty() ? path
                           : QStringLiteral("%1  (%2)").arg(path, marks.join(QStringLiteral(", ")));
}

QStringList indented(const QStringList& rows)
{
    QStringList result;
    for (const QString& row : rows)
        result << QLatin1String(kIndent) + row;
    return result;
}

int widthOf(const QString& text)
{
    return columnsOf(toWide(text));
}

} // namespace

QStringList tableRows(const std::vector<QStringList>& table)
{
    const Utf8Locale utf8; // for widths
    constexpr int gap = 2;
    std::vector<int> widths;
    for (const QStringList& row : table) {
        widths.resize(std::max(widths.size(), static_cast<std::size_t>(row.size())));
        for (int i = 0; i < row.size(); ++i) {
            int& width = widths[static_cast<std::size_t>(i)];
            width = std::max(width, widthOf(row.at(i)));
        }
    }
    QStringList rows;
    for (const QStringList& row : table) {
        QString text;
        for (int i = 0; i + 1 < row.size(); ++i) {
            const int blanks = widths[static_cast<std::size_t>(i)] + gap - widthOf(row.at(i));
            text += row.at(i) + QString(blanks, QLatin1Char(' '));
        }
        rows << (row.isEmpty() ? QString() : text + row.last());
    }
    return rows;
}

QStringList groupRows(const ShownMenuGroups& groups)
{
    QStringList rows;
    for (const ShownGroup& shown : groups.groups()) {
        const QString title = shown.group.title;
        rows << (title.isEmpty() ? shown.group.name
                                 : QStringLiteral("%1  %2").arg(shown.group.name, title));
        rows << indented(tableRows({{qtTrId("groups-menus"), texts(shown.group.menus)},
                                    {qtTrId("groups-toolbars"), texts(shown.group.toolbars)},
                                    {qtTrId("groups-file"), marked(toQString(shown.path))}}));
    }
    if (rows.isEmpty())
        rows << qtTrId("groups-empty");
    QStringList others;
    for (const std::wstring& path : groups.notShownPaths())
        others << marked(toQString(path));
    if (!others.isEmpty())
        rows << qtTrId("groups-not-shown") << indented(others);
    return rows;
}

QStringList aliasRows(const AliasTable& aliases)
{
    if (aliases.isEmpty())
        return {qtTrId("aliases-none")};
    std::vector<QStringList> table;
    for (auto each = aliases.begin(); each != aliases.end(); ++each)
        table.push_back({each.key(), each.value()});
    return tableRows(table);
}

QStringList commandRows(const CommandStore& commands)
{
    std::vector<QStringList> table{{qtTrId("commands-global"), qtTrId("commands-local"),
                                    qtTrId("commands-module"), qtTrId("commands-description")}};
    for (const IQuelCommandFactory* factory : commands.all())
        table.push_back({toQString(factory->globalName()), toQString(factory->localName()),
                         toQString(factory->module()), toQString(factory->description())});
    return tableRows(table);
}

QStringList helpRows(const CommandStore& commands)
{
    QStringList rows = qtTrId("help-usage").split(QLatin1Char('\n'));
    QStringList names;
    for (const IQuelCommandFactory* factory : commands.all())
        names << toQString(factory->localName());
    names.sort();
    rows << qtTrId("help-commands").arg(names.join(QStringLiteral("  ")));
    return rows;
}

QStringList settingsRows(const std::vector<Item>& items, const std::wstring& key)
{
    QStringList rows;
    for (const Item& item : items) {
        const bool begins = item.key.compare(0, key.size(), key) == 0;
        const bool whole = item.key.size() == key.size();
        const bool below = item.key.size() > key.size() &&
                           (item.key[key.size()] == L'\\' || item.key[key.size()] == L'/');
        if (key.empty() || (begins && (whole || below)))
            rows << QString::fromUtf8(settingLine(item));
    }
    return rows.isEmpty() ? QStringList{qtTrId("settings-none")} : rows;
}

} // namespace quelhost
