#include "fuzz/support/groupcheck.h"

#include "fuzz/support/broken.h"

#include "refhost/core/customizationreader.h"

#include <QVector>

#include <algorithm>

namespace fuzzing {

namespace {

using quelhost::Accelerator;
using quelhost::Menu;
using quelhost::MenuCommand;
using quelhost::MenuGroup;
using quelhost::MenuItem;
using quelhost::Toolbar;
using quelhost::ToolbarItem;

// --- What holds.

class GroupCheck
{
public:
    explicit GroupCheck(const MenuGroup& group)
    {
        for (const MenuCommand& command : group.commands) {
            mustHold(!command.text.isEmpty() && !command.macro.isEmpty(),
                     "a command has a text and a macro");
            add(command.id, m_commands);
        }
    }

    void menu(const Menu& menu)
    {
        add(menu.id, m_menus);
        mustHold(!menu.text.isEmpty(), "a menu has a text");
        for (const MenuItem& item : menu.items) {
            if (item.kind == MenuItem::Kind::Command)
                leads(item.command);
            else if (item.kind == MenuItem::Kind::Menu)
                this->menu(item.menu);
        }
    }

    void toolbar(const Toolbar& toolbar)
    {
        add(toolbar.id, m_toolbars);
        mustHold(!toolbar.text.isEmpty(), "a toolbar has a text");
        for (const ToolbarItem& item : toolbar.items) {
            if (!item.isSeparator())
                leads(item.command);
        }
    }

    void accelerator(const Accelerator& accelerator)
    {
        leads(accelerator.command);
        mustHold(accelerator.keys.count() == 1, "an accelerator is one combination of keys");
        add(accelerator.keys.toString(QKeySequence::PortableText), m_keys);
        mustHold(!accelerator.chosen, "a package's accelerator is nobody's choice");
    }

private:
    static void add(const QString& id, std::set<QString>& ids)
    {
        mustHold(!id.isEmpty(), "an id is no empty text");
        mustHold(ids.insert(id).second, "an id is there once");
    }

    void leads(const QString& command) const
    {
        mustHold(m_commands.count(command) == 1, "an item leads to a command");
    }

    std::set<QString> m_commands;
    std::set<QString> m_menus;
    std::set<QString> m_toolbars;
    std::set<QString> m_keys;
};

bool isNameCharacter(uint character)
{
    return QChar::isLetterOrNumber(character) || character == '_' || character == '-';
}

// --- The group as a text.

QString attribute(const char* name, const QString& value)
{
    return value.isEmpty()
               ? QString()
               : QStringLiteral(" %1=\"%2\"").arg(QLatin1String(name), value.toHtmlEscaped());
}

QString itemText(const QString& command)
{
    return command.isEmpty() ? QStringLiteral("<separator/>")
                             : QStringLiteral("<item%1/>").arg(attribute("command", command));
}

QString menuText(const Menu& menu)
{
    QString text = QStringLiteral("<menu") + attribute("id", menu.id) +
                   attribute("text", menu.text) + QStringLiteral(">");
    for (const MenuItem& item : menu.items)
        text += item.kind == MenuItem::Kind::Menu ? menuText(item.menu) : itemText(item.command);
    return text + QStringLiteral("</menu>");
}

QString commandText(const MenuCommand& command)
{
    return QStringLiteral("<command") + attribute("id", command.id) +
           attribute("text", command.text) + attribute("tip", command.tip) +
           attribute("icon", command.icon) + attribute("macro", command.macro) +
           QStringLiteral("/>");
}

QString toolbarText(const Toolbar& toolbar)
{
    QString text = QStringLiteral("<toolbar") + attribute("id", toolbar.id) +
                   attribute("text", toolbar.text) + QStringLiteral(">");
    for (const ToolbarItem& item : toolbar.items)
        text += itemText(item.command);
    return text + QStringLiteral("</toolbar>");
}

QString acceleratorText(const Accelerator& accelerator)
{
    return QStringLiteral("<accelerator") + attribute("command", accelerator.command) +
           attribute("keys", accelerator.keys.toString(QKeySequence::PortableText)) +
           QStringLiteral("/>");
}

template<typename Part, typename Text>
QString section(const char* name, const std::vector<Part>& parts, const Text& text)
{
    QString all;
    for (const Part& part : parts)
        all += text(part);
    return QStringLiteral("<%1>%2</%1>")
        .arg(QLatin1String(name))
        .replace(QStringLiteral("%2"), all);
}

QByteArray groupText(const MenuGroup& group)
{
    const QString text = QStringLiteral("<customization format=\"1\"><menugroup") +
                         attribute("name", group.name) + attribute("title", group.title) +
                         QStringLiteral(">") + section("commands", group.commands, commandText) +
                         section("menus", group.menus, menuText) +
                         section("toolbars", group.toolbars, toolbarText) +
                         section("accelerators", group.accelerators, acceleratorText) +
                         QStringLiteral("</menugroup></customization>");
    return text.toUtf8();
}

} // namespace

void checkGroup(const MenuGroup& group, const std::set<QString>& entries)
{
    const QVector<uint> name = group.name.toUcs4();
    mustHold(!name.isEmpty() && name.size() <= 64 &&
                 std::all_of(name.begin(), name.end(), isNameCharacter),
             "a group has a name of letters, digits, underlines and hyphens");
    GroupCheck check(group);
    for (const MenuCommand& command : group.commands)
        mustHold(command.icon.isEmpty() || entries.count(command.icon) == 1,
                 "an icon is an image of the package");
    for (const Menu& menu : group.menus)
        check.menu(menu);
    for (const Toolbar& toolbar : group.toolbars)
        check.toolbar(toolbar);
    for (const Accelerator& accelerator : group.accelerators)
        check.accelerator(accelerator);

    const QByteArray text = groupText(group);
    const quelhost::CustomizationReading again =
        quelhost::readCustomization(text, QStringLiteral("again.xml"), entries);
    mustHold(again.faults.empty() && groupText(again.group) == text,
             "a group that is written down is read as the same group");
}

void checkFaults(const std::vector<quelhost::Fault>& faults, const QString& file)
{
    for (const quelhost::Fault& fault : faults) {
        mustHold(!fault.sentence.isEmpty(), "a fault says something");
        mustHold(fault.file.startsWith(file), "a fault names the file");
        mustHold((fault.line > 0 && fault.column > 0) || (fault.line == 0 && fault.column == 0),
                 "a fault has a line and a column or neither");
    }
}

} // namespace fuzzing
