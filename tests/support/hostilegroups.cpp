// Good XML that is no menu group, or one that nobody should show.
#include "tests/support/hostilepackages.h"
#include "tests/support/packagebuilder.h"

namespace packages {

namespace {

using Bytes = QByteArray;

[[nodiscard]] HostilePackage text(const char* name, const std::function<Bytes()>& xml,
                                  const std::vector<std::string>& told)
{
    return {name, FaultIn::Content, [xml] { return packageOf(xml()); }, told};
}

[[nodiscard]] HostilePackage text(const char* name, const Bytes& xml, const char* told)
{
    return text(name, [xml] { return xml; }, {told});
}

// An element in line 2 of the section of that name, and a good command `a` in line 3.
[[nodiscard]] Bytes within(const Bytes& section, const Bytes& element)
{
    const Bytes command = "<command id='a' text='A' macro='x'/>";
    const Bytes list = "<" + section + ">\n" + element;
    if (section == "commands")
        return customization(list + "\n" + command + "</commands>");
    return customization(list + "</" + section + "><commands>\n" + command + "</commands>");
}

[[nodiscard]] Bytes groupNamed(const Bytes& name)
{
    return "<customization><menugroup name='" + name + "'/></customization>";
}

[[nodiscard]] HostilePackage macro(const char* name, const Bytes& value, const char* told)
{
    return text(name, within("commands", "<command id='b' text='B' macro='" + value + "'/>"), told);
}

[[nodiscard]] HostilePackage icon(const char* name, const Bytes& value, const char* told)
{
    return text(name,
                within("commands", "<command id='b' text='B' macro='x' icon='" + value + "'/>"),
                told);
}

[[nodiscard]] HostilePackage keys(const char* name, const Bytes& value, const char* told)
{
    return text(name, within("accelerators", "<accelerator command='a' keys='" + value + "'/>"),
                told);
}

// So many unknown elements that each has a fault, and no name is longer than a letter.
[[nodiscard]] HostilePackage manyFaults()
{
    constexpr int kCount = 100000;
    constexpr int kTold = 10001;
    const auto xml = [] {
        return "<customization>\n" + Bytes("<x/>\n").repeated(kCount) +
               "<menugroup name='G'/></customization>";
    };
    std::vector<std::string> told;
    for (int i = 0; i < kTold; ++i)
        told.push_back(":" + std::to_string(i + 2) +
                       ":1: There is no element <x> inside <customization>.");
    told.emplace_back(": There are so many faults that the rest was not checked.");
    return text("a hundred thousand faults", xml, told);
}

} // namespace

std::vector<HostilePackage> hostileGroups()
{
    return {
        text("another root", "<html/>", ":1:1: The root element is <html>, not <customization>."),
        text("no group", "<customization/>", ":1:1: There is no <menugroup>."),
        text("two groups",
             "<customization><menugroup name='G'/><menugroup name='H'/></customization>",
             ":1:37: A package holds one <menugroup> only."),
        text("a format of tomorrow",
             "<customization format='2'><menugroup name='G'/></customization>",
             ":1:16: Format \"2\" is not known; this program reads format 1."),
        text("a group without a name", "<customization><menugroup/></customization>",
             ":1:16: <menugroup> needs the attribute \"name\"."),
        text("a group named by a path", groupNamed("../G"),
             ":1:27: \"../G\" is not a group name: 1 to 64 letters, digits, \"_\" and \"-\" are."),
        text(
            "a group's name of 65 letters", groupNamed(Bytes(65, 'x')),
            ":1:27: \"xxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxx\" is not a "
            "group name: 1 to 64 letters, digits, \"_\" and \"-\" are."),
        text("a group named in two directions",
             groupNamed("a\xE2\x80\xAE"
                        "b"),
             ":1:27: \"a\xEF\xBF\xBD"
             "b\" is not a group name: 1 to 64 letters, digits, \"_\" and \"-\" are."),
        text("an unknown element", customization("<script/>"),
             ":1:47: There is no element <script> inside <menugroup>."),
        text("an inclusion of a file",
             customization("<xi:include href='file:///etc/passwd' parse='text'/>"),
             ":1:47: There is no element <xi:include> inside <menugroup>."),
        text("another base for names",
             "<customization xml:base='file:///etc/'><menugroup name='G'/></customization>",
             ":1:16: There is no attribute \"xml:base\" of <customization>."),
        text("an unknown attribute",
             within("commands", "<command id='b' text='B' macro='x' run='y'/>"),
             ":2:36: There is no attribute \"run\" of <command>."),
        text("text between elements", customization("x"),
             ":1:47: Text is not allowed inside <menugroup>."),
        text("a section twice", customization("<menus/><menus/>"),
             ":1:55: There is already a section <menus> in line 1."),
        text("a line end in a text",
             within("commands", "<command id='b' text='B&#10;C' macro='x'/>"),
             ":2:17: The value of \"text\" contains a control character."),
        text("a line end in a macro",
             within("commands", "<command id='b' text='B' macro='x&#10;QUIT'/>"),
             ":2:26: The value of \"macro\" contains a control character."),
        text("a terminal's control character in a tip",
             within("commands", "<command id='b' text='B' macro='x' tip='&#x9B;2J'/>"),
             ":2:36: The value of \"tip\" contains a control character."),
        text("a command twice", within("commands", "<command id='a' text='B' macro='x'/>"),
             ":3:10: The id \"a\" is already used in line 2."),
        text("a menu within itself by id",
             within("menus", "<menu id='m' text='M'><menu id='m' text='M'/></menu>"),
             ":2:29: The id \"m\" is already used in line 2."),
        text("an item of a command that is not there",
             within("menus", "<menu id='m' text='M'><item command='b'/></menu>"),
             ":2:29: The menu group has no command \"b\"."),
        text("a key of a command that is not there",
             within("accelerators", "<accelerator command='b' keys='F1'/>"),
             ":2:14: The menu group has no command \"b\"."),
        macro("a macro of an unknown word", "{shell}rm -rf",
              ":2:26: The macro uses unknown words: {shell}; known are {cancel} and {enter}."),
        macro("a macro's brace left open", "{cancel",
              ":2:26: The macro has an opening brace without a closing one."),
        macro("a macro's brace closed twice", "{cancel}}",
              ":2:26: The macro has a closing brace without an opening one."),
        icon("an icon that is a local file", "/usr/share/pixmaps/a.png",
             ":2:36: The icon \"/usr/share/pixmaps/a.png\" is not in the archive."),
        icon("an icon up a folder", "images/../../a.png",
             ":2:36: The icon \"images/../../a.png\" is not in the archive."),
        icon("an icon from the net", "http://example.org/a.svg",
             ":2:36: The icon \"http://example.org/a.svg\" is not in the archive."),
        icon("an icon that is the text", "customization.xml",
             ":2:36: The icon \"customization.xml\" is neither a .png nor an .svg file."),
        keys("no keys", "Ctrl+", ":2:26: \"Ctrl+\" is not a key combination."),
        keys("keys one after the other", "Ctrl+K, Ctrl+C",
             ":2:26: \"Ctrl+K, Ctrl+C\" is not a key combination."),
        keys("the same keys twice", "F1'/><accelerator command='a' keys='f1",
             ":2:62: The keys \"F1\" are already used in line 2."),
        manyFaults(),
    };
}

} // namespace packages
