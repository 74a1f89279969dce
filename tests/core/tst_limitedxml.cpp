#include "refhost/core/limitedxml.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

using namespace quelhost;

namespace {

constexpr qint64 kPiece = 4096; // the largest piece in which text is handed on

struct Outcome
{
    std::string tokens; // "<a b=1> text </a> end", or the fault
    qint64 bytesFed = 0;
    qint64 tokensRead = 0;
};

std::string placeText(TextPlace place)
{
    return "@" + std::to_string(place.line) + ":" + std::to_string(place.column);
}

std::string startText(const XmlElement& element)
{
    std::string text = "<" + element.name.toStdString() + placeText(element.place);
    for (const XmlAttribute& attribute : element.attributes)
        text += " " + attribute.name.toStdString() + "=[" + attribute.value.toStdString() + "]" +
                placeText(attribute.place);
    return text + ">";
}

// Everything that comes, with places.
Outcome readAll(const QByteArray& bytes, const XmlLimits& limits = {})
{
    LimitedXml xml(bytes, QStringLiteral("f"), limits);
    Outcome outcome;
    for (;;) {
        const Result<LimitedXml::Token> token = xml.next();
        outcome.bytesFed = xml.bytesFed();
        outcome.tokensRead = xml.tokensRead();
        if (!token) {
            outcome.tokens += token.fault().text().toStdString();
            return outcome;
        }
        if (token.value() == LimitedXml::Token::DocumentEnd) {
            outcome.tokens += "end";
            return outcome;
        }
        if (token.value() == LimitedXml::Token::ElementStart)
            outcome.tokens += startText(xml.element()) + " ";
        else if (token.value() == LimitedXml::Token::ElementEnd)
            outcome.tokens += "</> ";
        else
            outcome.tokens +=
                "[" + xml.text().toStdString() + "]" + placeText(xml.textPlace()) + " ";
    }
}

// The fault alone.
std::string faultOf(const QByteArray& bytes, const XmlLimits& limits = {})
{
    LimitedXml xml(bytes, QStringLiteral("f"), limits);
    for (;;) {
        const Result<LimitedXml::Token> token = xml.next();
        if (!token)
            return token.fault().text().toStdString();
        if (token.value() == LimitedXml::Token::DocumentEnd)
            return "none";
    }
}

QByteArray nested(int depth)
{
    return QByteArray("<a>").repeated(depth) + QByteArray("</a>").repeated(depth);
}

QByteArray manyAttributes(int count)
{
    QByteArray text = "<a";
    for (int i = 0; i < count; ++i)
        text += " a" + QByteArray::number(i) + "=''";
    return text + "/>";
}

QByteArray withLength(const QByteArray& before, int length, const QByteArray& after)
{
    return before + QByteArray(length - before.size() - after.size(), 'x') + after;
}

} // namespace

TEST(LimitedXml, readsTokensWithTheirPlaces)
{
    struct Row
    {
        const char* name;
        QByteArray text;
        const char* tokens;
    };
    const Row rows[] = {
        {"an empty element begins and ends", "<a/>", "<a@1:1> </> end"},
        {"text between tags", "<a>b</a>", "<a@1:1> [b]@1:4 </> end"},
        {"blanks are passed over", " \n <a>\n  \t</a>\n ", "<a@2:2> </> end"},
        {"a text's place is its first letter", "<a>\n  b\n</a>", "<a@1:1> [\n  b\n]@2:3 </> end"},
        {"comments are passed over", "<!-- x --><a><!--y--></a><!--z-->", "<a@1:11> </> end"},
        {"attributes have places of their own", "<a b='1'\n   c = \"2\"\td='>'/>",
         "<a@1:1 b=[1]@1:4 c=[2]@2:4 d=[>]@2:12> </> end"},
        {"a quote of the other kind does not end a value", "<a b='\"' c=\"'\" d='/>'/>",
         "<a@1:1 b=[\"]@1:4 c=[']@1:10 d=[/>]@1:16> </> end"},
        {"references are resolved", "<a b='&amp;&#10;&#x41;'>&lt;</a>",
         "<a@1:1 b=[&\nA]@1:4> [<]@1:25 </> end"},
        {"CDATA is text", "<a><![CDATA[<b>]]></a>", "<a@1:1> [<b>]@1:4 </> end"},
        {"a column is a character, not a byte", "<a>\xC3\xA9\xE2\x82\xAC\xF0\x9F\x98\x80<b/></a>",
         "<a@1:1> [\xC3\xA9\xE2\x82\xAC\xF0\x9F\x98\x80]@1:4 <b@1:7> </> </> end"},
        {"a byte order mark takes no column", "\xEF\xBB\xBF<a/>", "<a@1:1> </> end"},
        {"CR LF ends one line", "<a>\r\n<b/></a>", "<a@1:1> <b@2:1> </> </> end"},
        {"CR alone ends a line", "<a>\r<b/>\r\r<c/></a>",
         "<a@1:1> <b@2:1> </> <c@4:1> </> </> end"},
        {"a declaration", "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<a/>", "<a@2:1> </> end"},
        {"the encoding in any case",
         "<?xml version='1.0' encoding = 'utf-8' standalone='yes'?><a/>", "<a@1:58> </> end"},
        {"a declaration without encoding", "<?xml version='1.0'?><a/>", "<a@1:22> </> end"},
        {"prefixes are part of names", "<p:a xmlns:p='u' p:b='1'/>",
         "<p:a@1:1 xmlns:p=[u]@1:6 p:b=[1]@1:18> </> end"},
        {"prefixes need no declaration", "<p:a q:b='1'/>", "<p:a@1:1 q:b=[1]@1:6> </> end"},
        {"a comment and blanks after the root", "<a/>\n \n<!-- b -->\n", "<a@1:1> </> end"},
    };
    for (const Row& row : rows)
        EXPECT_EQ(readAll(row.text).tokens, row.tokens) << row.name;
}

TEST(LimitedXml, refusesTextThatIsNoGoodXml)
{
    struct Row
    {
        const char* name;
        QByteArray text;
        const char* fault;
    };
    const Row rows[] = {
        {"nothing", "", "f:1:1: The XML text ends before its root element does."},
        {"blanks only", " \n ", "f:1:1: The XML text ends before its root element does."},
        {"an element left open", "<a>\n<b>\n",
         "f:2:4: The XML text ends before its root element does."},
        {"a tag left open", "<a b='1'", "f:1:9: The XML text ends before its root element does."},
        {"a comment left open", "<!-- b\n",
         "f:1:7: The XML text ends before its root element does."},
        {"a comment left open after the root", "<a/><!-- b -",
         "f:1:5: Nothing but comments may follow the root element."},
        {"no XML at all", "hello", "f:1:1: This is not well-formed XML: Start tag expected."},
        {"tags crossed", "<a>\n <b>\n </a>",
         "f:3:5: This is not well-formed XML: Opening and ending tag mismatch."},
        {"an attribute twice", "<a b='1' b='2'/>",
         "f:1:16: This is not well-formed XML: Attribute 'b' redefined."},
        {"a value without quotes", "<a b=1/>",
         "f:1:6: This is not well-formed XML: Expected ''' or '\"', but got '[0-9]'."},
        {"a second root", "<a/>\n<b/>", "f:2:1: Nothing but comments may follow the root element."},
        {"text after the root", "<a/>b",
         "f:1:5: Nothing but comments may follow the root element."},
        {"a processing instruction after the root", "<a/> <?b?>",
         "f:1:6: Nothing but comments may follow the root element."},
        {"dashes within a comment after the root", "<a/> <!-- b -- c -->",
         "f:1:6: Nothing but comments may follow the root element."},
        {"a comment after the root that closes with three dashes", "<a/> <!-- b --->",
         "f:1:6: Nothing but comments may follow the root element."},
        {"dashes that both open and close", "<a/> <!-->",
         "f:1:6: Nothing but comments may follow the root element."},
        {"an entity of its own", "<a>\n&b;</a>",
         "f:2:3: This is not well-formed XML: Entity 'b' not declared."},
        {"a reference to a control character", "<a>&#1;</a>",
         "f:1:7: This is not well-formed XML: Invalid character reference."},
        {"another version", "<?xml version='1.1'?><a/>",
         "f:1:21: This is not well-formed XML: Unsupported XML version."},
        {"a processing instruction", "<a>\n <?b c?></a>",
         "f:2:2: A processing instruction is not allowed."},
        {"a style sheet from elsewhere", "<?xml-stylesheet href='/etc/passwd'?><a/>",
         "f:1:1: A processing instruction is not allowed."},
        {"a document type", "<?xml version='1.0'?>\n <!DOCTYPE a>\n<a/>",
         "f:2:2: A document type (<!DOCTYPE) is not allowed."},
        {"a document type after the root", "<a/>\n<!DOCTYPE a>",
         "f:2:1: A document type (<!DOCTYPE) is not allowed."},
        {"a document type in a comment", "<!-- <!DOCTYPE a> --><a/>",
         "f:1:6: A document type (<!DOCTYPE) is not allowed."},
        {"entities that multiply",
         "<!DOCTYPE a [<!ENTITY b 'bb'><!ENTITY c '&b;&b;'>]>\n<a>&c;</a>",
         "f:1:1: A document type (<!DOCTYPE) is not allowed."},
        {"a Latin 1 declaration", "<?xml version='1.0' encoding='ISO-8859-1'?><a/>",
         "f:1:21: The encoding \"ISO-8859-1\" is not allowed; the text must be UTF-8."},
        {"a UTF-16 declaration", "<?xml version='1.0'\n encoding=\"UTF-16\"?><a/>",
         "f:2:2: The encoding \"UTF-16\" is not allowed; the text must be UTF-8."},
        {"an encoding nobody knows", "<?xml version='1.0' encoding='x-none'?><a/>",
         "f:1:21: The encoding \"x-none\" is not allowed; the text must be UTF-8."},
        {"UTF-16 with a byte order mark", QByteArray("\xFF\xFE<\0a\0/\0>\0", 10),
         "f:1:1: The byte FF is not part of UTF-8 text."},
        {"UTF-16 without", QByteArray("<\0a\0/\0>\0", 8),
         "f:1:2: The character U+0000 is not allowed in XML."},
        {"a zero byte", QByteArray("<a>\n b\0</a>", 11),
         "f:2:3: The character U+0000 is not allowed in XML."},
        {"a zero byte at the end", QByteArray("<a/>\0", 5),
         "f:1:5: The character U+0000 is not allowed in XML."},
        {"a control character", "<a>\x1B[31m</a>",
         "f:1:4: The character U+001B is not allowed in XML."},
        {"a noncharacter", "<a>\xEF\xBF\xBE</a>",
         "f:1:4: The character U+FFFE is not allowed in XML."},
        {"the other noncharacter", "<a>\xEF\xBF\xBF</a>",
         "f:1:4: The character U+FFFF is not allowed in XML."},
        {"a byte that never stands in UTF-8", "<a>\n\xC3\xA9\xFE</a>",
         "f:2:2: The byte FE is not part of UTF-8 text."},
        {"a sequence cut short", "<a>\xE2\x82</a>",
         "f:1:4: The byte E2 is not part of UTF-8 text."},
        {"a sequence cut by the end", "<a/>\xE2\x82",
         "f:1:5: The byte E2 is not part of UTF-8 text."},
        {"a continuation alone", "<a>\x80</a>", "f:1:4: The byte 80 is not part of UTF-8 text."},
        {"an overlong slash", "<a>\xC0\xAF</a>", "f:1:4: The byte C0 is not part of UTF-8 text."},
        {"overlong in three bytes", "<a>\xE0\x80\xAF</a>",
         "f:1:4: The byte E0 is not part of UTF-8 text."},
        {"overlong in four bytes", "<a>\xF0\x80\x80\xAF</a>",
         "f:1:4: The byte F0 is not part of UTF-8 text."},
        {"a surrogate", "<a>\xED\xA0\x80</a>", "f:1:4: The byte ED is not part of UTF-8 text."},
        {"above the last character", "<a>\xF4\x90\x80\x80</a>",
         "f:1:4: The byte F4 is not part of UTF-8 text."},
        {"Latin 1 bytes", "<a>\xE9t\xE9</a>", "f:1:4: The byte E9 is not part of UTF-8 text."},
    };
    for (const Row& row : rows)
        EXPECT_EQ(faultOf(row.text), row.fault) << row.name;
}

TEST(LimitedXml, acceptsEveryLimitAndRefusesOneAbove)
{
    struct Row
    {
        const char* name;
        QByteArray atLimit;
        QByteArray above;
        const char* fault;
    };
    const QByteArray attribute = " n='x'";
    const QByteArray filler = "<!--" + QByteArray(65000, ' ') + "-->";
    const QByteArray padding = filler.repeated(258); // 258 * 65,007 = 16,771,806 bytes
    const int left = 16777216 - 16771806 - 4;
    const QByteArray spaces(left - 1, ' ');
    const QByteArray longName(1023, 'n'); // 1,024 bytes with the element's "e"
    const Row rows[] = {
        {"16 MiB", padding + spaces + "<a/>\n", padding + spaces + "<a/>\n\n",
         "f: The XML text is larger than 16777216 bytes."},
        {"depth 32", nested(32), nested(33), "f:1:97: Elements are nested more than 32 deep."},
        {"256 attributes", manyAttributes(256), manyAttributes(257),
         "f:1:1: The element has more than 256 attributes."},
        {"256 attributes with quotes within",
         "<a q='" + QByteArray(6000, '"') + "'" + manyAttributes(255).mid(2),
         "<a q='" + QByteArray(6000, '"') + "'" + manyAttributes(256).mid(2),
         "f:1:1: The element has more than 256 attributes."},
        {"256 attributes over several pieces",
         "\n<b>" + manyAttributes(256).replace("''", "'0123456789 0123456789'") + "</b>",
         "\n<b>" + manyAttributes(257).replace("''", "'0123456789 0123456789'") + "</b>",
         "f:2:4: The element has more than 256 attributes."},
        {"a start tag of 64 KiB", withLength("<a b='", 65536, "'>") + "</a>",
         "\n" + withLength("<a b='", 65537, "'>") + "</a>",
         "f:2:1: A single tag, text or comment is longer than 65536 bytes."},
        {"an empty element of 64 KiB", withLength("<a b='", 65536, "'/>"),
         withLength("<a b='", 65537, "'/>"),
         "f:1:1: A single tag, text or comment is longer than 65536 bytes."},
        {"an end tag of 64 KiB", "<a></a" + QByteArray(65532, ' ') + ">",
         "<a></a" + QByteArray(65533, ' ') + ">",
         "f:1:4: A single tag, text or comment is longer than 65536 bytes."},
        {"a text of 64 KiB", "<a>" + QByteArray(65536, 'x') + "</a>",
         "<a>" + QByteArray(65537, 'x') + "</a>",
         "f:1:4: A single tag, text or comment is longer than 65536 bytes."},
        {"a text of 64 KiB in long characters",
         "<a>" + QByteArray("\xE2\x82\xAC").repeated(21845) + "x</a>",
         "<a>" + QByteArray("\xE2\x82\xAC").repeated(21845) + "xy</a>",
         "f:1:4: A single tag, text or comment is longer than 65536 bytes."},
        {"blanks of 64 KiB", "<a>" + QByteArray(65536, ' ') + "</a>",
         "<a>" + QByteArray(65537, ' ') + "</a>",
         "f:1:65541: A single tag, text or comment is longer than 65536 bytes."},
        {"a comment of 64 KiB", withLength("<!--", 65536, "-->") + "<a/>",
         withLength("<!--", 65537, "-->") + "<a/>",
         "f:1:1: A single tag, text or comment is longer than 65536 bytes."},
        {"CDATA of 64 KiB", "<a>" + withLength("<![CDATA[", 65536, "]]>") + "</a>",
         "<a>" + withLength("<![CDATA[", 65537, "]]>") + "</a>",
         "f:1:4: A single tag, text or comment is longer than 65536 bytes."},
        {"an element's name of 4,096 characters", "<" + QByteArray(4096, 'n') + "/>",
         "<" + QByteArray(4097, 'n') + "/>",
         "f:1:4099: This is not well-formed XML: Length of XML attribute name exceeds "
         "implementation limits (4KiB characters)."},
        {"an attribute's name of 4,096 characters", "<a " + QByteArray(4096, 'n') + "=''/>",
         "<a " + QByteArray(4097, 'n') + "=''/>",
         "f:1:4101: This is not well-formed XML: Length of XML attribute name exceeds "
         "implementation limits (4KiB characters)."},
        {"names of 256 KiB", // 1 for the root, 255 of 1,024 bytes, one of 1,023
         "<r>" + ("<e " + longName + "=''/>").repeated(255) + "<" + longName + "/></r>",
         "<r>" + ("<e " + longName + "=''/>").repeated(255) + "<e" + longName + "/></r>",
         "f:1:262909: The names of elements and attributes together are longer than 262144 bytes."},
        {"names of 256 KiB in long letters", // 1 for the root, then 3 * 1,000 * 87 and 1,143
         "<r>" + ("<" + QByteArray("\xE4\xB8\x80").repeated(1000) + "/>").repeated(87) + "<eee " +
             QByteArray("\xE4\xB8\x80").repeated(380) + "=''/></r>",
         "<r>" + ("<" + QByteArray("\xE4\xB8\x80").repeated(1000) + "/>").repeated(87) + "<eeee " +
             QByteArray("\xE4\xB8\x80").repeated(380) + "=''/></r>",
         "f:1:87265: The names of elements and attributes together are longer than 262144 bytes."},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(faultOf(row.atLimit), "none") << row.name;
        EXPECT_EQ(faultOf(row.above), row.fault) << row.name;
    }
}

// What hostile text costs is counted, not timed: bytes handed to the parser and tokens made.
TEST(LimitedXml, refusesHostileTextBeforeItCosts)
{
    struct Row
    {
        const char* name;
        QByteArray text;
        qint64 mostBytes;
        qint64 mostTokens;
    };
    constexpr int kMegabyte = 1000000;
    const Row rows[] = {
        {"a megabyte of attributes", manyAttributes(120000), kPiece, 0},
        {"a megabyte of attributes in a tag that never ends",
         "<a" + QByteArray(" b=''").repeated(kMegabyte / 5), kPiece, 0},
        {"attributes of a tag that keeps within 64 KiB", manyAttributes(9000), kPiece, 0},
        {"attributes behind a long one",
         "<a b='" + QByteArray(20000, 'x') + "'" + manyAttributes(9000).mid(2),
         20000 + 3000 + kPiece, 0},
        {"a name that never ends", "<" + QByteArray(kMegabyte, 'a'), 65536 + kPiece, 0},
        {"a value that never ends", "<a b='" + QByteArray(kMegabyte, 'a'), 65536 + kPiece, 0},
        {"a comment that never ends", "<!--" + QByteArray(kMegabyte, 'a'), 65536 + kPiece, 0},
        {"a text that never ends", "<a>" + QByteArray(kMegabyte, 'a'), 65539 + kPiece, 1},
        {"blanks before the root", QByteArray(kMegabyte, ' ') + "<a/>", 65536 + kPiece, 0},
        {"elements within elements", QByteArray("<a>").repeated(kMegabyte / 3), kPiece, 33},
        {"a megabyte of elements", "<r>" + QByteArray("<a><b/></a>").repeated(kMegabyte / 11),
         (262144 / 2 + 1) * 11 + kPiece, (262144 / 2 + 1) * 4},
        {"257 attributes, then a megabyte", manyAttributes(257) + QByteArray(kMegabyte, ' ') + "x",
         kPiece, 1},
        {"a document type with entities that multiply",
         "<!DOCTYPE a [<!ENTITY % b '" + QByteArray("%b;").repeated(kMegabyte / 3) + "'>%b;]><a/>",
         0, 0},
        {"more than 16 MiB", QByteArray(16777217, ' '), 0, 0},
        {"a wrong byte at the very end", "<a>" + QByteArray(kMegabyte, 'a') + "\xFF", 0, 0},
        {"a wrong encoding", "<?xml version='1.0' encoding='UTF-7'?>" + QByteArray(kMegabyte, 'a'),
         0, 0},
    };
    for (const Row& row : rows) {
        const Outcome outcome = readAll(row.text);
        EXPECT_NE(outcome.tokens.substr(outcome.tokens.size() - 3), "end") << row.name;
        EXPECT_LE(outcome.bytesFed, row.mostBytes) << row.name;
        EXPECT_LE(outcome.tokensRead, row.mostTokens) << row.name;
    }
}

// Quotes are counted in start tags only.
TEST(LimitedXml, takesNoOtherQuotesForAttributes)
{
    const QByteArray quotes = QByteArray("'\"").repeated(10000);
    EXPECT_EQ(faultOf("<!--" + quotes + "--><a>" + quotes + "<![CDATA[" + quotes + "]]></a>"),
              "none");
    EXPECT_EQ(faultOf("<a><?b " + quotes + "?></a>"),
              "f:1:4: A processing instruction is not allowed.");
}

TEST(LimitedXml, countsWhatItFeedsOfGoodText)
{
    const QByteArray text = "<r>" + QByteArray("<a/>").repeated(5000) + "</r>";
    const Outcome outcome = readAll(text);
    EXPECT_EQ(outcome.bytesFed, text.size());
    EXPECT_EQ(outcome.tokensRead, 10002);
}

// Pieces may end anywhere: within a tag, a reference, a character, between CR and LF.
TEST(LimitedXml, readsTheSameWhereverAPieceEnds)
{
    const QByteArray unit = "<b c='&amp;\xF0\x9F\x98\x80' d=\"\xE2\x82\xAC\">t&#65;\r\n</b>";
    for (int shift = 0; shift <= unit.size(); ++shift) {
        const QByteArray before =
            "<r><!--" + QByteArray(kPiece - 15 - shift, '-').replace("--", "- ") + " --><q/>";
        const Outcome outcome = readAll(before + unit + "</r><!-- end -->\n");
        const std::string column = std::to_string(before.size() + 1);
        const std::string inC = std::to_string(before.size() + 4);
        const std::string inD = std::to_string(before.size() + 15);
        const std::string inT = std::to_string(before.size() + 21);
        EXPECT_EQ(outcome.tokens.substr(outcome.tokens.find("<b")),
                  "<b@1:" + column + " c=[&\xF0\x9F\x98\x80]@1:" + inC +
                      " d=[\xE2\x82\xAC]@1:" + inD + "> [tA\n]@1:" + inT + " </> </> end")
            << shift;
    }
}

TEST(LimitedXml, endsCleanlyWhereverAPieceEndsBehindTheRoot)
{
    for (int shift = 0; shift < 40; ++shift) {
        const QByteArray root =
            "<r b='" + QByteArray(kPiece - 20 - shift, 'x') + "'/>\n<!-- c -->\n\n<!-- d -->\n";
        const std::string tokens = readAll(root).tokens;
        EXPECT_EQ(tokens.substr(tokens.size() - 7), "</> end") << shift;
        const std::string fault = faultOf(root + "x");
        EXPECT_EQ(fault.substr(0, 6), "f:5:1:") << shift;
    }
}

TEST(LimitedXml, repeatsTheFaultThatEndedTheReading)
{
    LimitedXml xml("<a><b></a>", QStringLiteral("f"));
    ASSERT_TRUE(xml.next());
    ASSERT_TRUE(xml.next());
    const Result<LimitedXml::Token> first = xml.next();
    const Result<LimitedXml::Token> second = xml.next();
    ASSERT_FALSE(first);
    ASSERT_FALSE(second);
    EXPECT_EQ(first.fault().text(), second.fault().text());
}

TEST(LimitedXml, showsOnlyTheBeginningOfWhatIsWrong)
{
    const std::string fault = faultOf("<a>&" + QByteArray(50000, 'b') + ";</a>");
    EXPECT_LT(fault.size(), 200U);
}
