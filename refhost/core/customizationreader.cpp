#include "refhost/core/customizationreader.h"

#include "refhost/core/elementvalues.h"
#include "refhost/core/elementwalker.h"
#include "refhost/core/imagecheck.h"
#include "refhost/core/macro.h"
#include "refhost/core/packagefaults.h"

#include <QKeySequence>
#include <QVector>

#include <algorithm>
#include <map>

namespace quelhost {

namespace {

constexpr int kMaxGroupName = 64;

[[nodiscard]] bool isGroupName(const QString& name)
{
    const QVector<uint> characters = name.left(2 * kMaxGroupName + 2).toUcs4();
    return characters.size() <= kMaxGroupName &&
           std::all_of(characters.begin(), characters.end(), [](uint character) {
               return QChar::isLetter(character) || QChar::isDigit(character) || character == '_' ||
                      character == '-';
           });
}

[[nodiscard]] bool isSection(const QString& name)
{
    return name == QLatin1String("commands") || name == QLatin1String("menus") ||
           name == QLatin1String("toolbars") || name == QLatin1String("accelerators");
}

// The combination that `keys` names; empty when it names none, or several one after the other.
[[nodiscard]] QKeySequence readKeys(const QString& keys)
{
    const QKeySequence sequence = QKeySequence::fromString(keys, QKeySequence::PortableText);
    const bool single = sequence.count() == 1 && sequence[0] != Qt::Key_unknown;
    return single ? sequence : QKeySequence();
}

class CustomizationReader
{
public:
    CustomizationReader(const QByteArray& xml, const QString& file,
                        const std::set<QString>& entries)
        : m_walker(xml, file)
        , m_faults(m_walker.faults())
        , m_entries(entries)
    {}

    [[nodiscard]] CustomizationReading read();

private:
    using Seen = std::map<QString, qint64>; // what was seen, and in which line first

    // A command that is named before it is known whether there is one.
    struct Reference
    {
        QString command;
        TextPlace place;
    };

    void readRoot(const XmlElement& root);
    void readGroup(const XmlElement& element);
    void readSection(const XmlElement& element, const XmlElement& group, Seen& sections);
    void readSectionContent(const XmlElement& section);
    void readList(const XmlElement& section, const char* name, const ElementWalker::Child& read);
    void readCommand(const XmlElement& element);
    [[nodiscard]] Menu readMenu(const XmlElement& element);
    [[nodiscard]] Toolbar readToolbar(const XmlElement& element);
    void readAccelerator(const XmlElement& element);
    [[nodiscard]] QString readItem(const XmlElement& element);
    void readSeparator(const XmlElement& element);

    void checkFormat(const XmlElement& root);
    void checkIcon(const XmlAttribute* icon);
    void checkMacro(const XmlAttribute* macro);
    void checkId(const XmlAttribute* id, Seen& seen);
    void checkReferences();
    void refer(const XmlAttribute* command);

    ElementWalker m_walker;
    PackageFaults& m_faults;
    const std::set<QString>& m_entries;
    MenuGroup m_group;
    bool m_hasGroup = false;
    Seen m_commandIds;
    Seen m_menuIds;
    Seen m_toolbarIds;
    Seen m_keys;
    std::vector<Reference> m_references;
};

CustomizationReading CustomizationReader::read()
{
    const std::optional<XmlElement> root = m_walker.root();
    if (root)
        readRoot(*root);
    m_walker.finish();
    if (!m_walker.hasStopped())
        checkReferences();
    return {std::move(m_group), m_faults.take()};
}

void CustomizationReader::readRoot(const XmlElement& root)
{
    if (root.name != QLatin1String("customization")) {
        m_faults.add(root.place, qtTrId("package-root").arg(shownText(root.name)));
        return m_walker.skip();
    }
    checkFormat(root);
    m_walker.children(root, [&](const XmlElement& child) {
        if (child.name == QLatin1String("menugroup"))
            readGroup(child);
        else
            m_walker.unknown(child, root);
    });
    if (!m_hasGroup && !m_walker.hasStopped())
        m_faults.add(root.place, qtTrId("package-group-missing"));
}

void CustomizationReader::checkFormat(const XmlElement& root)
{
    const ElementValues values(root, {{"format", false}}, m_faults);
    const XmlAttribute* format = values.find("format");
    if (format != nullptr && format->value != QLatin1String("1"))
        m_faults.add(format->place, qtTrId("package-format").arg(shownText(format->value)));
}

void CustomizationReader::readGroup(const XmlElement& element)
{
    if (m_hasGroup) {
        m_faults.add(element.place, qtTrId("package-group-second"));
        return m_walker.skip();
    }
    m_hasGroup = true;
    const ElementValues values(element, {{"name", true}, {"title", false}}, m_faults);
    m_group.name = values.value("name");
    m_group.title = values.value("title");
    const XmlAttribute* name = values.findFilled("name");
    if (name != nullptr && !isGroupName(name->value))
        m_faults.add(name->place, qtTrId("package-group-name").arg(shownText(name->value)));
    Seen sections;
    m_walker.children(element,
                      [&](const XmlElement& child) { readSection(child, element, sections); });
}

void CustomizationReader::readSection(const XmlElement& element, const XmlElement& group,
                                      Seen& sections)
{
    if (!isSection(element.name))
        return m_walker.unknown(element, group);
    const auto [first, isNew] = sections.insert({element.name, element.place.line});
    if (!isNew)
        m_faults.add(
            element.place,
            qtTrId("package-section-twice").arg(element.name, QString::number(first->second)));
    // A second section is read too, or all that it defines would seem to be missing.
    readSectionContent(element);
}

void CustomizationReader::readSectionContent(const XmlElement& section)
{
    if (section.name == QLatin1String("commands")) {
        readList(section, "command", [&](const XmlElement& child) { readCommand(child); });
    } else if (section.name == QLatin1String("menus")) {
        readList(section, "menu",
                 [&](const XmlElement& child) { m_group.menus.push_back(readMenu(child)); });
    } else if (section.name == QLatin1String("toolbars")) {
        readList(section, "toolbar",
                 [&](const XmlElement& child) { m_group.toolbars.push_back(readToolbar(child)); });
    } else {
        readList(section, "accelerator", [&](const XmlElement& child) { readAccelerator(child); });
    }
}

void CustomizationReader::readList(const XmlElement& section, const char* name,
                                   const ElementWalker::Child& read)
{
    const ElementValues none(section, {}, m_faults);
    m_walker.children(section, [&](const XmlElement& child) {
        if (child.name == QLatin1String(name))
            read(child);
        else
            m_walker.unknown(child, section);
    });
}

void CustomizationReader::readCommand(const XmlElement& element)
{
    const ElementValues values(
        element, {{"id", true}, {"text", true}, {"tip", false}, {"icon", false}, {"macro", true}},
        m_faults);
    checkId(values.findFilled("id"), m_commandIds);
    checkIcon(values.find("icon"));
    checkMacro(values.findFilled("macro"));
    m_group.commands.push_back({values.value("id"), values.value("text"), values.value("tip"),
                                values.value("icon"), values.value("macro")});
    m_walker.noChildren(element);
}

Menu CustomizationReader::readMenu(const XmlElement& element)
{
    const ElementValues values(element, {{"id", true}, {"text", true}}, m_faults);
    checkId(values.findFilled("id"), m_menuIds);
    Menu menu{values.value("id"), values.value("text"), {}};
    m_walker.children(element, [&](const XmlElement& child) {
        if (child.name == QLatin1String("item")) {
            menu.items.push_back({MenuItem::Kind::Command, readItem(child), {}});
        } else if (child.name == QLatin1String("separator")) {
            readSeparator(child);
            menu.items.push_back({MenuItem::Kind::Separator, {}, {}});
        } else if (child.name == QLatin1String("menu")) {
            menu.items.push_back({MenuItem::Kind::Menu, {}, readMenu(child)});
        } else {
            m_walker.unknown(child, element);
        }
    });
    return menu;
}

Toolbar CustomizationReader::readToolbar(const XmlElement& element)
{
    const ElementValues values(element, {{"id", true}, {"text", true}}, m_faults);
    checkId(values.findFilled("id"), m_toolbarIds);
    Toolbar toolbar{values.value("id"), values.value("text"), {}};
    m_walker.children(element, [&](const XmlElement& child) {
        if (child.name == QLatin1String("item")) {
            toolbar.items.push_back({readItem(child)});
        } else if (child.name == QLatin1String("separator")) {
            readSeparator(child);
            toolbar.items.push_back({});
        } else {
            m_walker.unknown(child, element);
        }
    });
    return toolbar;
}

void CustomizationReader::readAccelerator(const XmlElement& element)
{
    const ElementValues values(element, {{"command", true}, {"keys", true}}, m_faults);
    refer(values.findFilled("command"));
    const XmlAttribute* keys = values.findFilled("keys");
    const QKeySequence sequence = readKeys(values.value("keys"));
    if (keys != nullptr && sequence.isEmpty()) {
        m_faults.add(keys->place, qtTrId("package-keys").arg(shownText(keys->value)));
    } else if (keys != nullptr) {
        // Compared as understood: `ctrl+p` and `Ctrl+P` are the same keys.
        const auto [first, isNew] = m_keys.insert({sequence.toString(), keys->place.line});
        if (!isNew)
            m_faults.add(keys->place,
                         qtTrId("package-keys-twice")
                             .arg(sequence.toString(), QString::number(first->second)));
    }
    m_group.accelerators.push_back({values.value("command"), sequence});
    m_walker.noChildren(element);
}

// Returns the command's id.
QString CustomizationReader::readItem(const XmlElement& element)
{
    const ElementValues values(element, {{"command", true}}, m_faults);
    refer(values.findFilled("command"));
    m_walker.noChildren(element);
    return values.value("command");
}

void CustomizationReader::readSeparator(const XmlElement& element)
{
    const ElementValues none(element, {}, m_faults);
    m_walker.noChildren(element);
}

void CustomizationReader::checkIcon(const XmlAttribute* icon)
{
    if (icon == nullptr)
        return;
    if (!imageKind(icon->value))
        m_faults.add(icon->place, qtTrId("package-icon-kind").arg(shownText(icon->value)));
    else if (m_entries.count(icon->value) == 0)
        m_faults.add(icon->place, qtTrId("package-icon-missing").arg(shownText(icon->value)));
}

void CustomizationReader::checkMacro(const XmlAttribute* macro)
{
    if (macro == nullptr)
        return;
    const MacroReading reading = readMacro(macro->value);
    if (!reading.unknownWords.isEmpty())
        m_faults.add(macro->place,
                     qtTrId("package-macro-word")
                         .arg(shownText(reading.unknownWords.join(QStringLiteral(", ")))));
    if (reading.braceNotClosed)
        m_faults.add(macro->place, qtTrId("package-macro-open"));
    if (reading.braceNotOpened)
        m_faults.add(macro->place, qtTrId("package-macro-close"));
}

void CustomizationReader::checkId(const XmlAttribute* id, Seen& seen)
{
    if (id == nullptr)
        return;
    const auto [first, isNew] = seen.insert({id->value, id->place.line});
    if (!isNew)
        m_faults.add(
            id->place,
            qtTrId("package-id-twice").arg(shownText(id->value), QString::number(first->second)));
}

void CustomizationReader::refer(const XmlAttribute* command)
{
    if (command != nullptr)
        m_references.push_back({command->value, command->place});
}

void CustomizationReader::checkReferences()
{
    for (const Reference& reference : m_references) {
        if (m_commandIds.count(reference.command) == 0)
            m_faults.add(reference.place,
                         qtTrId("package-command-unknown").arg(shownText(reference.command)));
    }
}

} // namespace

CustomizationReading readCustomization(const QByteArray& xml, const QString& file,
                                       const std::set<QString>& entries)
{
    return CustomizationReader(xml, file, entries).read();
}

} // namespace quelhost
