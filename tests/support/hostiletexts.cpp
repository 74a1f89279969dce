// Texts that are no XML as it may stand in a package.
#include "tests/support/hostilepackages.h"
#include "tests/support/packagebuilder.h"

namespace packages {

namespace {

using Bytes = QByteArray;

const char* const kMalformed = "This is not well-formed XML: ";
const char* const kEnds = "The XML text ends before its root element does.";
const char* const kExtra = "Nothing but comments may follow the root element.";
const char* const kInstruction = "A processing instruction is not allowed.";
const char* const kDocumentType = "A document type (<!DOCTYPE) is not allowed.";

[[nodiscard]] HostilePackage text(const char* name, const Bytes& xml, const std::string& place,
                                  const std::string& told)
{
    return {name, FaultIn::Content, [xml] { return packageOf(xml); }, {":" + place + ": " + told}};
}

[[nodiscard]] std::string noByte(const char* byte)
{
    return std::string("The byte ") + byte + " is not part of UTF-8 text.";
}

[[nodiscard]] std::string noCharacter(const char* character)
{
    return std::string("The character U+") + character + " is not allowed in XML.";
}

[[nodiscard]] std::string noEncoding(const char* encoding)
{
    return std::string("The encoding \"") + encoding + "\" is not allowed; the text must be UTF-8.";
}

// The tip of a command, in line 2.
[[nodiscard]] Bytes tip(const Bytes& value)
{
    return customization("<commands>\n<command tip=\"" + value +
                         "\" id=\"a\" text=\"A\" macro=\"x\"/></commands>");
}

[[nodiscard]] std::vector<HostilePackage> broken()
{
    const std::string malformed = kMalformed;
    return {
        text("a text of nothing", "", "1:1", kEnds),
        text("a text of blanks", " \n\t\r\n", "1:1", kEnds),
        text("no XML", "hello", "1:1", malformed + "Start tag expected."),
        text("a root left open", "<customization>\n <menugroup name='G'/>", "2:23", kEnds),
        text("a tag left open", "<customization format='1'", "1:26", kEnds),
        text("a comment left open", "<customization><!-- ", "1:20", kEnds),
        text("a comment left open behind the root", customization() + "<!-- -", "1:75", kExtra),
        text("CDATA left open", "<customization><![CDATA[ x", "1:27", kEnds),
        text("a reference left open", "<customization>&amp", "1:20", kEnds),
        text("tags crossed", "<customization><menugroup name='G'></customization>", "1:51",
             malformed + "Opening and ending tag mismatch."),
        text("an end without a beginning", "</customization>", "1:2",
             malformed + "Expected '?', '!', or '[a-zA-Z]', but got '/'."),
        text("an attribute twice", "<customization format='1' format='1'/>", "1:38",
             malformed + "Attribute 'format' redefined."),
        text("a value without quotes", "<customization format=1/>", "1:23",
             malformed + "Expected ''' or '\"', but got '[0-9]'."),
        text("a bracket in a value", tip("<b>"), "2:15", malformed + "Unexpected '<'."),
        text("an ampersand in a value", tip("a & b"), "2:18",
             malformed + "Expected '#' or '[a-zA-Z]', but got ' '."),
        text("no blank between attributes", "<customization a='1'b='2'/>", "1:21",
             malformed + "Expected '>' or '/', but got '[a-zA-Z]'."),
        text("a name that begins with a digit", "<1a/>", "1:2",
             malformed + "Expected '?', '!', or '[a-zA-Z]', but got '[0-9]'."),
        text("a second root", customization() + "\n<customization/>", "2:1", kExtra),
        text("a text behind the root", customization() + "x", "1:75", kExtra),
        text("the end of CDATA in a text", "<customization>a ]]> b</customization>", "1:20",
             malformed + "Sequence ']]>' not allowed in content."),
        text("dashes within a comment", "<customization><!-- a -- b --></customization>", "1:25",
             malformed + "Expected '>', but got ' '."),
        text("another version of XML", "<?xml version='1.1'?>" + customization(), "1:21",
             malformed + "Unsupported XML version."),
        text("a declaration that is not first", " <?xml version='1.0'?>" + customization(), "1:22",
             malformed + "XML declaration not at start of document."),
    };
}

[[nodiscard]] std::vector<HostilePackage> entities()
{
    const std::string malformed = kMalformed;
    return {
        text("a document type", "<!DOCTYPE customization>" + customization(), "1:1", kDocumentType),
        text("a document type from a file",
             "<!DOCTYPE customization SYSTEM 'file:///etc/passwd'>" + customization(), "1:1",
             kDocumentType),
        text("a document type from the net",
             "<?xml version='1.0'?>\n<!DOCTYPE c PUBLIC 'c' 'http://example.org/c.dtd'>" +
                 customization(),
             "2:1", kDocumentType),
        text("an entity that is a local file",
             "<!DOCTYPE c [<!ENTITY f SYSTEM 'file:///etc/passwd'>]>" + tip("&f;"), "1:1",
             kDocumentType),
        text("entities that multiply",
             "<!DOCTYPE c [<!ENTITY a 'aaaaaaaaaa'><!ENTITY b '&a;&a;&a;&a;&a;&a;&a;&a;'>"
             "<!ENTITY c '&b;&b;&b;&b;&b;&b;&b;&b;'><!ENTITY d '&c;&c;&c;&c;&c;&c;&c;&c;'>]>" +
                 tip("&d;"),
             "1:1", kDocumentType),
        text("an entity of itself", "<!DOCTYPE c [<!ENTITY a '&a;'>]>" + tip("&a;"), "1:1",
             kDocumentType),
        text("a parameter entity of itself", "<!DOCTYPE c [<!ENTITY % a '%a;'>%a;]>" + tip(""),
             "1:1", kDocumentType),
        text("a document type behind the root", customization() + "\n<!DOCTYPE c>", "2:1",
             kDocumentType),
        text("a document type in a comment", "<!-- <!DOCTYPE c> -->" + customization(), "1:6",
             kDocumentType),
        text("a document type in CDATA", "<customization><![CDATA[<!DOCTYPE c>]]></customization>",
             "1:25", kDocumentType),
        text("an entity that is not declared", tip("&nbsp;"), "2:20",
             malformed + "Entity 'nbsp' not declared."),
        text("a reference to a zero", tip("&#0;"), "2:18",
             malformed + "Invalid character reference."),
        text("a reference to half a pair", tip("&#xD800;"), "2:22",
             malformed + "Invalid character reference."),
        text("a reference beyond all characters", tip("&#x110000;"), "2:24",
             malformed + "Invalid character reference."),
        text("a reference of many digits", tip("&#" + Bytes(3000, '9') + ";"), "2:3017",
             malformed + "Invalid character reference."),
        text("an instruction", "<customization>\n<?php system('id'); ?></customization>", "2:1",
             kInstruction),
        text("a style sheet named by an instruction",
             "<?xml-stylesheet href='file:///etc/passwd'?>" + customization(), "1:1", kInstruction),
        text("an instruction behind the root", customization() + "<?a?>", "1:75", kExtra),
    };
}

[[nodiscard]] std::vector<HostilePackage> encodings()
{
    const auto declared = [](const char* encoding) {
        return "<?xml version='1.0' encoding='" + Bytes(encoding) + "'?>" + customization();
    };
    return {
        text("declared to be Latin 1", declared("ISO-8859-1"), "1:21", noEncoding("ISO-8859-1")),
        text("declared to be UTF-16", declared("UTF-16"), "1:21", noEncoding("UTF-16")),
        text("declared to be UTF-7", declared("UTF-7"), "1:21", noEncoding("UTF-7")),
        text("declared to be of another code page", declared("IBM037"), "1:21",
             noEncoding("IBM037")),
        text("UTF-16 with its mark", Bytes("\xFF\xFE<\0c\0/\0>\0", 10), "1:1", noByte("FF")),
        text("UTF-16 turned around", Bytes("\xFE\xFF\0<\0c\0/\0>", 10), "1:1", noByte("FE")),
        text("UTF-16 without its mark", Bytes("<\0c\0/\0>\0", 8), "1:2", noCharacter("0000")),
        text("UTF-32", Bytes("\0\0\xFE\xFF\0\0\0<", 8), "1:1", noCharacter("0000")),
        text("a zero byte", tip(Bytes("a\0b", 3)), "2:16", noCharacter("0000")),
        text("a control character", tip("\x1B[2J"), "2:15", noCharacter("001B")),
        text("a form feed between elements", "<customization>\f</customization>", "1:16",
             noCharacter("000C")),
        text("U+FFFE", tip("\xEF\xBF\xBE"), "2:15", noCharacter("FFFE")),
        text("U+FFFF", tip("\xEF\xBF\xBF"), "2:15", noCharacter("FFFF")),
        text("two byte order marks", "\xEF\xBB\xBF\xEF\xBB\xBF" + customization(), "1:1",
             noCharacter("FEFF")),
        text("Latin 1", tip("\xE9t\xE9"), "2:15", noByte("E9")),
        text("a sequence cut short", tip("\xE2\x82"), "2:15", noByte("E2")),
        text("a sequence cut by the end", customization() + "\xF0\x9F", "1:75", noByte("F0")),
        text("a continuation alone", tip("\x80"), "2:15", noByte("80")),
        text("an overlong bracket", "\xC0\xBC" + customization(), "1:1", noByte("C0")),
        text("an overlong zero", tip("\xC0\x80"), "2:15", noByte("C0")),
        text("overlong in three bytes", tip("\xE0\x80\xAF"), "2:15", noByte("E0")),
        text("overlong in four bytes", tip("\xF0\x80\x80\xAF"), "2:15", noByte("F0")),
        text("half a pair in three bytes", tip("\xED\xA0\x80"), "2:15", noByte("ED")),
        text("above the last character", tip("\xF4\x90\x80\x80"), "2:15", noByte("F4")),
        text("a wrong byte at the end of a megabyte",
             "<customization>" + Bytes(1 << 20, '\n') + "\xFF", "1048577:1", noByte("FF")),
    };
}

} // namespace

std::vector<HostilePackage> hostileTexts()
{
    std::vector<HostilePackage> all;
    for (const auto& part : {broken(), entities(), encodings()})
        all.insert(all.end(), part.begin(), part.end());
    return all;
}

} // namespace packages
