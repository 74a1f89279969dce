#include "refhost/core/customizationreader.h"

#include "refhost/core/packagefaults.h"

#include <gtest/gtest.h>

#include <string>

using namespace quelhost;

namespace {

const std::set<QString> kEntries = {QStringLiteral("customization.xml"),
                                    QStringLiteral("images/a.png"), QStringLiteral("images/b.SVG"),
                                    QStringLiteral("images/notes.txt")};

CustomizationReading read(const QByteArray& xml)
{
    return readCustomization(xml, QStringLiteral("p"), kEntries);
}

// One line for each fault.
std::string faultsOf(const QByteArray& xml)
{
    std::string text;
    for (const Fault& fault : read(xml).faults)
        text += fault.text().toStdString() + "\n";
    return text;
}

// What stands inside of the group begins in line 3, column 1.
QByteArray group(const QByteArray& inside)
{
    return "<customization format=\"1\">\n<menugroup name=\"G\">\n" + inside +
           "\n</menugroup>\n</customization>\n";
}

// Ends with one good command, `a`; what is handed in stands before it, in line 3 from column 11.
QByteArray commands(const QByteArray& before)
{
    return group("<commands>" + before + "\n<command id=\"a\" text=\"A\" macro=\"x\"/></commands>");
}

// A good command `a` in line 3, and what is handed in from line 4, column 1.
QByteArray withCommand(const QByteArray& after)
{
    return group("<commands><command id=\"a\" text=\"A\" macro=\"x\"/></commands>\n" + after);
}

std::string itemsOf(const std::vector<MenuItem>& items)
{
    std::string text;
    for (const MenuItem& item : items) {
        if (item.kind == MenuItem::Kind::Command)
            text += item.command.toStdString() + " ";
        else if (item.kind == MenuItem::Kind::Separator)
            text += "- ";
        else
            text += item.menu.id.toStdString() + ":" + item.menu.text.toStdString() + "( " +
                    itemsOf(item.menu.items) + ") ";
    }
    return text;
}

} // namespace

TEST(CustomizationReader, readsACompleteGroup)
{
    const CustomizationReading reading = read(R"(<?xml version="1.0" encoding="UTF-8"?>
<customization format="1">
  <menugroup name="PLANT" title="Plant tools">
    <accelerators>
      <accelerator command="pump" keys="Ctrl+Shift+P"/>
      <accelerator command="valve" keys="f7"/>
      <accelerator command="pump" keys="Ctrl+,"/>
    </accelerators>
    <menus>
      <menu id="plant" text="P&amp;lant">
        <item command="pump"/> <separator/>
        <menu id="more" text="More"> <item command="valve"/> <menu id="none" text="None"/> </menu>
        <item command="pump"></item>
      </menu>
      <menu id="second" text="Second"/>
    </menus>
    <!-- commands may come last -->
    <commands>
      <command id="pump" text="&amp;Pump" tip="Insert a pump" icon="images/a.png" macro="{cancel}ECHO pump"/>
      <command macro="ECHO {enter}" text="Valve" id="valve" icon="images/b.SVG"/>
    </commands>
    <toolbars>
      <toolbar id="plant" text="Plant"> <item command="pump"/> <separator/> <item command="valve"/> </toolbar>
      <toolbar id="empty" text="Empty"/>
    </toolbars>
  </menugroup>
</customization>
)");
    EXPECT_TRUE(reading.faults.empty());
    const MenuGroup& group = reading.group;
    EXPECT_EQ(group.name, QStringLiteral("PLANT"));
    EXPECT_EQ(group.title, QStringLiteral("Plant tools"));

    ASSERT_EQ(group.commands.size(), 2U);
    EXPECT_EQ(group.commands[0].id, QStringLiteral("pump"));
    EXPECT_EQ(group.commands[0].text, QStringLiteral("&Pump"));
    EXPECT_EQ(group.commands[0].tip, QStringLiteral("Insert a pump"));
    EXPECT_EQ(group.commands[0].icon, QStringLiteral("images/a.png"));
    EXPECT_EQ(group.commands[0].macro, QStringLiteral("{cancel}ECHO pump"));
    EXPECT_EQ(group.commands[1].id, QStringLiteral("valve"));
    EXPECT_EQ(group.commands[1].text, QStringLiteral("Valve"));
    EXPECT_EQ(group.commands[1].tip, QString());
    EXPECT_EQ(group.commands[1].icon, QStringLiteral("images/b.SVG"));
    EXPECT_EQ(group.commands[1].macro, QStringLiteral("ECHO {enter}"));

    ASSERT_EQ(group.menus.size(), 2U);
    EXPECT_EQ(group.menus[0].id, QStringLiteral("plant"));
    EXPECT_EQ(group.menus[0].text, QStringLiteral("P&lant"));
    EXPECT_EQ(itemsOf(group.menus[0].items), "pump - more:More( valve none:None( ) ) pump ");
    EXPECT_EQ(group.menus[1].id, QStringLiteral("second"));
    EXPECT_TRUE(group.menus[1].items.empty());

    ASSERT_EQ(group.toolbars.size(), 2U);
    EXPECT_EQ(group.toolbars[0].id, QStringLiteral("plant"));
    EXPECT_EQ(group.toolbars[0].text, QStringLiteral("Plant"));
    ASSERT_EQ(group.toolbars[0].items.size(), 3U);
    EXPECT_EQ(group.toolbars[0].items[0].command, QStringLiteral("pump"));
    EXPECT_TRUE(group.toolbars[0].items[1].isSeparator());
    EXPECT_EQ(group.toolbars[0].items[2].command, QStringLiteral("valve"));
    EXPECT_TRUE(group.toolbars[1].items.empty());

    ASSERT_EQ(group.accelerators.size(), 3U);
    EXPECT_EQ(group.accelerators[0].command, QStringLiteral("pump"));
    EXPECT_EQ(group.accelerators[0].keys, QKeySequence(Qt::CTRL + Qt::SHIFT + Qt::Key_P));
    EXPECT_EQ(group.accelerators[1].command, QStringLiteral("valve"));
    EXPECT_EQ(group.accelerators[1].keys, QKeySequence(Qt::Key_F7));
    EXPECT_EQ(group.accelerators[2].keys, QKeySequence(Qt::CTRL + Qt::Key_Comma));
}

TEST(CustomizationReader, acceptsWhatIsOptionalLeftOut)
{
    struct Row
    {
        const char* name;
        QByteArray xml;
    };
    const Row rows[] = {
        {"no section at all", "<customization format='1'><menugroup name='G'/></customization>"},
        {"no format", "<customization><menugroup name='G'/></customization>"},
        {"empty sections", group("<menus/><commands/><accelerators/><toolbars/>")},
        {"empty title and tip",
         "<customization><menugroup name='G' title=''><commands><command id='a' text='A' tip='' "
         "macro='x'/></commands></menugroup></customization>"},
        {"one id in lists of each kind",
         withCommand("<menus><menu id='a' text='A'/></menus>"
                     "<toolbars><toolbar id='a' text='A'/></toolbars>")},
        {"ids that differ in case", commands("<command id='A' text='A' macro='x'/>")},
        {"one command under two keys",
         withCommand("<accelerators><accelerator command='a' keys='F1'/>"
                     "<accelerator command='a' keys='F2'/></accelerators>")},
        {"a command in several places of a menu",
         withCommand("<menus><menu id='m' text='M'><item command='a'/><item command='a'/>"
                     "</menu></menus>")},
        {"percent signs", commands("<command id='%1' text='%2 %3' macro='%s%n'/>")},
    };
    for (const Row& row : rows)
        EXPECT_EQ(faultsOf(row.xml), "") << row.name;
}

TEST(CustomizationReader, acceptsGroupNamesOfLettersDigitsAndTwoSigns)
{
    struct Row
    {
        const char* name;
        QByteArray groupName;
        bool isGood;
    };
    const Row rows[] = {
        {"one letter", "a", true},
        {"everything allowed", "Plant_2-b", true},
        {"digits alone", "42", true},
        {"signs alone", "-_", true},
        {"letters of other scripts",
         "Gr\xC3\xB6\xC3\x9F"
         "e\xE4\xB8\x80",
         true},
        {"64 letters", QByteArray(64, 'x'), true},
        {"65 letters", QByteArray(65, 'x'), false},
        {"64 letters of two units", QByteArray("\xF0\x90\x90\x80").repeated(64), true},
        {"65 letters of two units", QByteArray("\xF0\x90\x90\x80").repeated(65), false},
        {"a blank", "a b", false},
        {"a dot", "a.b", false},
        {"a slash", "a/b", false},
        {"a combining sign", "e\xCC\x81", false},
        {"a symbol", "\xF0\x9F\x98\x80", false},
        {"a fraction", "\xC2\xBD", false},
    };
    for (const Row& row : rows) {
        const QByteArray xml =
            "<customization>\n <menugroup  name='" + row.groupName + "'/></customization>";
        const std::string expected =
            row.isGood ? ""
                       : "p:2:14: \"" + row.groupName.toStdString() +
                             "\" is not a group name: 1 to 64 letters, digits, \"_\" and \"-\" "
                             "are.\n";
        EXPECT_EQ(faultsOf(xml), expected) << row.name;
    }
}

TEST(CustomizationReader, tellsEachKindOfFaultWithItsPlace)
{
    struct Row
    {
        const char* name;
        QByteArray xml;
        const char* faults;
    };
    const Row rows[] = {
        // The frame.
        {"another root", "\n <menugroup name='G'/>",
         "p:2:2: The root element is <menugroup>, not <customization>.\n"},
        {"no group", "<!-- x -->\n<customization/>\n", "p:2:1: There is no <menugroup>.\n"},
        {"two groups",
         "<customization>\n<menugroup name='G'/>\n <menugroup name='H'><x/></menugroup>"
         "</customization>",
         "p:3:2: A package holds one <menugroup> only.\n"},
        {"another format", "<customization\n format='2'><menugroup name='G'/></customization>",
         "p:2:2: Format \"2\" is not known; this program reads format 1.\n"},
        {"an empty format", "<customization format=''><menugroup name='G'/></customization>",
         "p:1:16: Format \"\" is not known; this program reads format 1.\n"},
        {"a group without a name", "<customization>\n  <menugroup/></customization>",
         "p:2:3: <menugroup> needs the attribute \"name\".\n"},
        {"a group with an empty name", "<customization>\n  <menugroup name=''/></customization>",
         "p:2:14: <menugroup> needs a value for its attribute \"name\".\n"},
        // Unknown things.
        {"an unknown element in the root",
         "<customization>\n<group/><menugroup name='G'/></customization>",
         "p:2:1: There is no element <group> inside <customization>.\n"},
        {"an unknown element in the group", group(" <palettes><x/></palettes>"),
         "p:3:2: There is no element <palettes> inside <menugroup>.\n"},
        {"a command outside of its section", group("<command id='a' text='A' macro='x'/>"),
         "p:3:1: There is no element <command> inside <menugroup>.\n"},
        {"an unknown element in each section",
         group("<commands><a/></commands>\n<menus><b/></menus>\n<toolbars><c/></toolbars>\n"
               "<accelerators><d/></accelerators>"),
         "p:3:11: There is no element <a> inside <commands>.\n"
         "p:4:8: There is no element <b> inside <menus>.\n"
         "p:5:11: There is no element <c> inside <toolbars>.\n"
         "p:6:15: There is no element <d> inside <accelerators>.\n"},
        {"an element in a command", commands("<command id='b' text='B' macro='x'>\n<b/></command>"),
         "p:4:1: There is no element <b> inside <command>.\n"},
        {"an element in an accelerator",
         withCommand("<accelerators><accelerator command='a' keys='F1'><b/></accelerator>"
                     "</accelerators>"),
         "p:4:50: There is no element <b> inside <accelerator>.\n"},
        {"an element in an item and a separator",
         withCommand("<menus><menu id='m' text='M'><item command='a'><b/></item>\n"
                     "<separator><c/></separator></menu></menus>"),
         "p:4:48: There is no element <b> inside <item>.\n"
         "p:5:12: There is no element <c> inside <separator>.\n"},
        {"an unknown element in a menu",
         group("<menus><menu id='m' text='M'>\n<x/></menu></menus>"),
         "p:4:1: There is no element <x> inside <menu>.\n"},
        {"a menu in a toolbar",
         group("<toolbars><toolbar id='t' text='T'>\n<menu id='m' text='M'/></toolbar></toolbars>"),
         "p:4:1: There is no element <menu> inside <toolbar>.\n"},
        {"names of another case", group("<Commands/>"),
         "p:3:1: There is no element <Commands> inside <menugroup>.\n"},
        {"names with a prefix", group("<q:commands/>"),
         "p:3:1: There is no element <q:commands> inside <menugroup>.\n"},
        {"an unknown attribute of the root",
         "<customization format='1' version='2'><menugroup name='G'/></customization>",
         "p:1:27: There is no attribute \"version\" of <customization>.\n"},
        {"a namespace", "<customization\nxmlns='u'><menugroup name='G'/></customization>",
         "p:2:1: There is no attribute \"xmlns\" of <customization>.\n"},
        {"unknown attributes everywhere",
         "<customization><menugroup name='G' id='G'>\n"
         "<commands b='1'><command id='a' text='A' macro='x' key='F1'/></commands>\n"
         "<menus c='1'><menu id='m' text='M' tip='x'><item command='a' text='A'/>\n"
         "<separator id='s'/></menu></menus>\n"
         "<toolbars d='1'><toolbar id='t' text='T' icon='x'/></toolbars>\n"
         "<accelerators e='1'><accelerator command='a' keys='F1' id='k'/></accelerators>\n"
         "</menugroup></customization>",
         "p:1:36: There is no attribute \"id\" of <menugroup>.\n"
         "p:2:11: There is no attribute \"b\" of <commands>.\n"
         "p:2:52: There is no attribute \"key\" of <command>.\n"
         "p:3:8: There is no attribute \"c\" of <menus>.\n"
         "p:3:36: There is no attribute \"tip\" of <menu>.\n"
         "p:3:62: There is no attribute \"text\" of <item>.\n"
         "p:4:12: There is no attribute \"id\" of <separator>.\n"
         "p:5:11: There is no attribute \"d\" of <toolbars>.\n"
         "p:5:42: There is no attribute \"icon\" of <toolbar>.\n"
         "p:6:15: There is no attribute \"e\" of <accelerators>.\n"
         "p:6:56: There is no attribute \"id\" of <accelerator>.\n"},
        {"attribute names of another case", commands("<command ID='b' id='b' text='B' macro='x'/>"),
         "p:3:20: There is no attribute \"ID\" of <command>.\n"},
        // What is required.
        {"a command with nothing", commands("\n  <command/>"),
         "p:4:3: <command> needs the attribute \"id\".\n"
         "p:4:3: <command> needs the attribute \"text\".\n"
         "p:4:3: <command> needs the attribute \"macro\".\n"},
        {"a command with empty values", commands("\n<command id='' text='' macro=''/>"),
         "p:4:10: <command> needs a value for its attribute \"id\".\n"
         "p:4:16: <command> needs a value for its attribute \"text\".\n"
         "p:4:24: <command> needs a value for its attribute \"macro\".\n"},
        {"a menu with nothing", group("<menus><menu/></menus>"),
         "p:3:8: <menu> needs the attribute \"id\".\n"
         "p:3:8: <menu> needs the attribute \"text\".\n"},
        {"an inner menu with nothing", group("<menus><menu id='m' text='M'><menu/></menu></menus>"),
         "p:3:30: <menu> needs the attribute \"id\".\n"
         "p:3:30: <menu> needs the attribute \"text\".\n"},
        {"a toolbar with nothing", group("<toolbars><toolbar/></toolbars>"),
         "p:3:11: <toolbar> needs the attribute \"id\".\n"
         "p:3:11: <toolbar> needs the attribute \"text\".\n"},
        {"items with nothing",
         group("<menus><menu id='m' text='M'><item/></menu></menus>\n"
               "<toolbars><toolbar id='t' text='T'><item/></toolbar></toolbars>"),
         "p:3:30: <item> needs the attribute \"command\".\n"
         "p:4:36: <item> needs the attribute \"command\".\n"},
        {"an accelerator with nothing", group("<accelerators><accelerator/></accelerators>"),
         "p:3:15: <accelerator> needs the attribute \"command\".\n"
         "p:3:15: <accelerator> needs the attribute \"keys\".\n"},
        {"an accelerator with empty values",
         group("<accelerators><accelerator command='' keys=''/></accelerators>"),
         "p:3:28: <accelerator> needs a value for its attribute \"command\".\n"
         "p:3:39: <accelerator> needs a value for its attribute \"keys\".\n"},
        // Once only.
        {"sections twice",
         group("<menus/><commands/><toolbars/><accelerators/>\n"
               "<menus/><commands/><toolbars/><accelerators/>"),
         "p:4:1: There is already a section <menus> in line 3.\n"
         "p:4:9: There is already a section <commands> in line 3.\n"
         "p:4:20: There is already a section <toolbars> in line 3.\n"
         "p:4:31: There is already a section <accelerators> in line 3.\n"},
        {"a second section is read too",
         withCommand("<commands><command id='b' text='B' macro='{x}'/></commands>\n"
                     "<menus><menu id='m' text='M'><item command='b'/></menu></menus>"),
         "p:4:1: There is already a section <commands> in line 3.\n"
         "p:4:36: The macro uses unknown words: {x}; known are {cancel} and {enter}.\n"},
        {"a command's id twice",
         commands("<command id='a' text='A' macro='x'/>\n<command id='a' text='A' macro='x'/>"),
         "p:4:10: The id \"a\" is already used in line 3.\n"
         "p:5:10: The id \"a\" is already used in line 3.\n"},
        {"a menu's id twice, one an inner menu's",
         group("<menus><menu id='m' text='M'>\n<menu id='n' text='N'/></menu>\n"
               "<menu text='N' id='n'/></menus>"),
         "p:5:16: The id \"n\" is already used in line 4.\n"},
        {"a toolbar's id twice",
         group("<toolbars><toolbar id='t' text='T'/><toolbar id='t' text='T'/></toolbars>"),
         "p:3:46: The id \"t\" is already used in line 3.\n"},
        {"keys twice",
         withCommand("<accelerators><accelerator command='a' keys='Ctrl+P'/>\n"
                     "<accelerator command='a' keys='ctrl+p'/></accelerators>"),
         "p:5:26: The keys \"Ctrl+P\" are already used in line 4.\n"},
        // References.
        {"no such command",
         withCommand("<menus><menu id='m' text='M'><item command='b'/></menu></menus>\n"
                     "<toolbars><toolbar id='t' text='T'><item command='A'/></toolbar></toolbars>\n"
                     "<accelerators><accelerator keys='F1' command='m'/></accelerators>"),
         "p:4:36: The menu group has no command \"b\".\n"
         "p:5:42: The menu group has no command \"A\".\n"
         "p:6:38: The menu group has no command \"m\".\n"},
        {"a command in a section that is unknown",
         group("<menus><menu id='m' text='M'><item command='a'/></menu></menus>\n"
               "<orders><command id='a' text='A' macro='x'/></orders>"),
         "p:3:36: The menu group has no command \"a\".\n"
         "p:4:1: There is no element <orders> inside <menugroup>.\n"},
        {"no fault follows from a fault of the command",
         group("<commands><command id='a'/></commands>\n"
               "<menus><menu id='m' text='M'><item command='a'/></menu></menus>"),
         "p:3:11: <command> needs the attribute \"text\".\n"
         "p:3:11: <command> needs the attribute \"macro\".\n"},
        {"an icon that is not there",
         commands("<command id='b' text='B' icon='images/c.svg' macro='x'/>"),
         "p:3:36: The icon \"images/c.svg\" is not in the archive.\n"},
        {"an icon of another case",
         commands("<command id='b' text='B' icon='images/A.png' macro='x'/>"),
         "p:3:36: The icon \"images/A.png\" is not in the archive.\n"},
        {"an icon that is no image",
         commands("<command id='b' text='B' icon='images/notes.txt' macro='x'/>"),
         "p:3:36: The icon \"images/notes.txt\" is neither a .png nor an .svg file.\n"},
        {"the text as an icon",
         commands("<command id='b' text='B' icon='customization.xml' macro='x'/>"),
         "p:3:36: The icon \"customization.xml\" is neither a .png nor an .svg file.\n"},
        {"an empty icon", commands("<command id='b' text='B' icon='' macro='x'/>"),
         "p:3:36: The icon \"\" is neither a .png nor an .svg file.\n"},
        // Values.
        {"an unknown word of a macro",
         commands("<command id='b' text='B' macro='{cancel}{esc}A{esc}{Enter}'/>"),
         "p:3:36: The macro uses unknown words: {esc}, {Enter}; known are {cancel} and {enter}.\n"},
        {"braces that do not match",
         commands("<command id='b' text='B' macro='{cancel'/>\n"
                  "<command id='c' text='C' macro='cancel}'/>\n"
                  "<command id='d' text='D' macro='}{x}{'/>"),
         "p:3:36: The macro has an opening brace without a closing one.\n"
         "p:4:26: The macro has a closing brace without an opening one.\n"
         "p:5:26: The macro uses unknown words: {x}; known are {cancel} and {enter}.\n"
         "p:5:26: The macro has an opening brace without a closing one.\n"
         "p:5:26: The macro has a closing brace without an opening one.\n"},
        {"control characters",
         commands("<command id='b&#9;' text='B&#10;B' tip='&#13;' macro='x&#x85;'/>"),
         "p:3:20: The value of \"id\" contains a control character.\n"
         "p:3:31: The value of \"text\" contains a control character.\n"
         "p:3:46: The value of \"tip\" contains a control character.\n"
         "p:3:58: The value of \"macro\" contains a control character.\n"},
        // Text.
        {"text between elements, told once for each element",
         "<customization>\n a <menugroup name='G'>b<commands>c<command id='a' text='A' "
         "macro='x'>d</command> e <!-- --> f</commands> g</menugroup></customization>",
         "p:2:2: Text is not allowed inside <customization>.\n"
         "p:2:24: Text is not allowed inside <menugroup>.\n"
         "p:2:35: Text is not allowed inside <commands>.\n"
         "p:2:71: Text is not allowed inside <command>.\n"},
        {"CDATA", group("<menus><![CDATA[x]]></menus>"),
         "p:3:8: Text is not allowed inside <menus>.\n"},
        {"a blank that is none in XML", group("<menus>\xC2\xA0</menus>"),
         "p:3:8: Text is not allowed inside <menus>.\n"},
    };
    for (const Row& row : rows)
        EXPECT_EQ(faultsOf(row.xml), row.faults) << row.name;
}

TEST(CustomizationReader, acceptsKeysOfOneKnownCombination)
{
    struct Row
    {
        const char* keys;
        const char* understood; // null: not at all
    };
    const Row rows[] = {
        {"Ctrl+Shift+P", "Ctrl+Shift+P"},
        {"ctrl+p", "Ctrl+P"},
        {"Shift+Ctrl+P", "Ctrl+Shift+P"},
        {"P", "P"},
        {"F1", "F1"},
        {"F35", "F35"},
        {"Esc", "Esc"},
        {"Meta+Alt+Del", "Meta+Alt+Del"},
        {"Ctrl+,", "Ctrl+,"},
        {"Ctrl++", "Ctrl++"},
        {"Ctrl+Space", "Ctrl+Space"},
        {"Alt+\xC3\x96", "Alt+\xC3\x96"},
        {"Ctrl+K, Ctrl+C", nullptr},
        {"Ctrl", nullptr},
        {"Ctrl+Shift", nullptr},
        {"Ctrl+", nullptr},
        {"F36", nullptr},
        {"Foo", nullptr},
        {"Ctrl+Foo", nullptr},
        {"Ctrl-P", nullptr},
        {"Strg+P", nullptr},
        {"PP", nullptr},
        {"Ctrl+P+Q", nullptr},
        {" Ctrl+P", nullptr},
        {"Ctrl + P", nullptr},
        {" ", "Space"},
    };
    for (const Row& row : rows) {
        const CustomizationReading reading =
            read(withCommand("<accelerators>\n  <accelerator command='a' keys='" +
                             QByteArray(row.keys) + "'/></accelerators>"));
        if (row.understood == nullptr) {
            ASSERT_EQ(reading.faults.size(), 1U) << row.keys;
            EXPECT_EQ(reading.faults[0].text().toStdString(),
                      "p:5:28: \"" + std::string(row.keys) + "\" is not a key combination.");
        } else {
            EXPECT_TRUE(reading.faults.empty()) << row.keys;
            ASSERT_EQ(reading.group.accelerators.size(), 1U) << row.keys;
            EXPECT_EQ(reading.group.accelerators[0].keys.toString().toStdString(), row.understood);
        }
    }
}

TEST(CustomizationReader, tellsFaultsThatComeTogetherInTheirOrder)
{
    EXPECT_EQ(faultsOf(R"(<customization format="3">
  <menugroup name="my group" colour="red">
    <menus>
      <menu id="m" text="M">
        <item command="missing"/>
        <item/>
      </menu>
    </menus>
    <commands>
      <command id="a" text="A" macro="{nothing}"/>
      <command id="a" text="A"/>
    </commands>
    <accelerators>
      <accelerator command="a" keys="Ctrl+Nothing"/>
    </accelerators>
  </menugroup>
</customization>)"),
              "p:1:16: Format \"3\" is not known; this program reads format 1.\n"
              "p:2:14: \"my group\" is not a group name: 1 to 64 letters, digits, \"_\" and \"-\" "
              "are.\n"
              "p:2:30: There is no attribute \"colour\" of <menugroup>.\n"
              "p:5:15: The menu group has no command \"missing\".\n"
              "p:6:9: <item> needs the attribute \"command\".\n"
              "p:10:32: The macro uses unknown words: {nothing}; known are {cancel} and {enter}.\n"
              "p:11:7: <command> needs the attribute \"macro\".\n"
              "p:11:16: The id \"a\" is already used in line 10.\n"
              "p:14:32: \"Ctrl+Nothing\" is not a key combination.\n");
}

// What could not be read is not said to be missing.
TEST(CustomizationReader, tellsTheFaultsBeforeTheTextBreaksOff)
{
    struct Row
    {
        const char* name;
        QByteArray xml;
        const char* faults;
    };
    const Row rows[] = {
        {"nothing at all", "", "p:1:1: The XML text ends before its root element does.\n"},
        {"before the group", "<customization><!-- ",
         "p:1:20: The XML text ends before its root element does.\n"},
        {"before the commands",
         "<customization>\n<menugroup name='G' x=''>\n<menus><menu id='m' "
         "text='M'><item command='a'/></menu></menus></menugroups>",
         "p:2:21: There is no attribute \"x\" of <menugroup>.\n"
         "p:3:76: This is not well-formed XML: Opening and ending tag mismatch.\n"},
        {"within what is passed over", "<customization><menugroup name='G'/>\n<x><y>",
         "p:2:1: There is no element <x> inside <customization>.\n"
         "p:2:7: The XML text ends before its root element does.\n"},
        {"behind the root", "<customization><menugroup name='G'/></customization>\n<x/>",
         "p:2:1: Nothing but comments may follow the root element.\n"},
        {"behind another root", "<menugroup/>\n<x/>",
         "p:1:1: The root element is <menugroup>, not <customization>.\n"
         "p:2:1: Nothing but comments may follow the root element.\n"},
        {"a document type", "<!DOCTYPE customization>\n<customization/>",
         "p:1:1: A document type (<!DOCTYPE) is not allowed.\n"},
    };
    for (const Row& row : rows) {
        const std::string faults = faultsOf(row.xml);
        EXPECT_EQ(faults.substr(0, std::string(row.faults).size()), row.faults) << row.name;
    }
}

TEST(CustomizationReader, acceptsMenusAsDeepAsElementsMayBe)
{
    const auto nested = [](int depth) {
        QByteArray inside;
        for (int i = 0; i < depth; ++i)
            inside += "<menu id='" + QByteArray::number(i) + "' text='M'>";
        return group("<menus>" + inside + QByteArray("</menu>").repeated(depth) + "</menus>");
    };
    EXPECT_EQ(faultsOf(nested(29)), "");
    // 7 columns of <menus>, 10 menus of 22 columns and 19 of 23.
    EXPECT_EQ(faultsOf(nested(30)), "p:3:665: Elements are nested more than 32 deep.\n");
}

// A fault each for a quarter of a million elements is the most there can be.
TEST(CustomizationReader, staysBoundedWhateverIsWrong)
{
    const CustomizationReading reading =
        read(group("<menus>" + QByteArray("<x/>").repeated(400000) + "</menus>"));
    ASSERT_EQ(reading.faults.size(), kManyFaults + 1);
    EXPECT_EQ(reading.faults.back().sentence.toStdString(),
              "There is no element <x> inside <menus>.");
}

TEST(CustomizationReader, refusesASecondByteOrderMark)
{
    const QByteArray xml = "\xEF\xBB\xBF\xEF\xBB\xBF<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
                           "<!-- remark -->\n<customization format=\"1\">"
                           "<menugroup name=\"X\"/></customization>\n";
    const quelhost::CustomizationReading reading =
        quelhost::readCustomization(xml, QStringLiteral("x.xml"), {});
    ASSERT_EQ(reading.faults.size(), 1U);
    EXPECT_EQ(reading.faults.front().text().toStdString(),
              "x.xml:1:1: The character U+FEFF is not allowed in XML.");
}
