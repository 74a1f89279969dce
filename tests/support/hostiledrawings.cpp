// Drawings that reach out of themselves, run something, or swell.
#include "tests/support/hostilepackages.h"
#include "tests/support/imagebuilder.h"
#include "tests/support/packagebuilder.h"

namespace packages {

namespace {

using Bytes = QByteArray;

[[nodiscard]] HostilePackage drawing(const char* name, const std::function<Bytes()>& bytes,
                                     const std::string& told)
{
    const auto make = [bytes] {
        return PackageBuilder()
            .add("customization.xml", customization())
            .add("images/a.svg", bytes())
            .build();
    };
    return {name, FaultIn::Content, make, {"!images/a.svg:" + told}};
}

// Of an element in line 2 of a good drawing.
[[nodiscard]] HostilePackage with(const char* name, const Bytes& inside, const std::string& told)
{
    return drawing(
        name, [inside] { return svg(inside); }, told);
}

[[nodiscard]] HostilePackage element(const char* name, const Bytes& inside, const char* forbidden)
{
    return with(name, inside,
                "2:1: An image of a package must not contain <" + std::string(forbidden) + ">.");
}

[[nodiscard]] HostilePackage leadsOut(const char* name, const Bytes& inside, const char* column,
                                      const char* attribute)
{
    return with(name, inside,
                "2:" + std::string(column) + ": The attribute \"" + attribute +
                    "\" refers to something outside of the image.");
}

[[nodiscard]] HostilePackage sheet(const char* name, const Bytes& style)
{
    return with(name, "<style>" + style + "</style>",
                "2:1: The style sheet refers to something outside of the image.");
}

[[nodiscard]] HostilePackage root(const char* name, const Bytes& attributes,
                                  const std::string& told)
{
    return drawing(
        name, [attributes] { return "<svg " + attributes + "/>"; }, "1:6: " + told);
}

[[nodiscard]] std::vector<HostilePackage> elements()
{
    const std::string event = " runs a script on an event; an image of a package must not.";
    return {
        element("a picture of a local file", "<image width='24' height='24' href='#a'/>", "image"),
        element("a picture under a prefix", "<svg:image/>", "svg:image"),
        element("a picture in another case", "<IMAGE/>", "IMAGE"),
        element("a part used again", "<use/>", "use"),
        element("parts that use each other", "<use id='a' href='#b'><g id='b'/></use>", "use"),
        element("a script", "<script>system('id')</script>", "script"),
        element("a script under a prefix", "<s:script/>", "s:script"),
        element("a page within", "<foreignObject><p>x</p></foreignObject>", "foreignObject"),
        with("an event", "<g onclick='x()'/>", "2:4: The attribute \"onclick\"" + event),
        with("an event in another case", "<g OnLoad='x()'/>",
             "2:4: The attribute \"OnLoad\"" + event),
        with("an event under a prefix", "<g ev:onload='x()'/>",
             "2:4: The attribute \"ev:onload\"" + event),
    };
}

[[nodiscard]] std::vector<HostilePackage> references()
{
    return {
        leadsOut("a gradient of a local file", "<linearGradient xlink:href='file:///etc/passwd'/>",
                 "17", "xlink:href"),
        leadsOut("a link to the net", "<a href='https://example.org/'/>", "4", "href"),
        leadsOut("a link to a script", "<a href='javascript:x()'/>", "4", "href"),
        leadsOut("a link to data", "<a href='data:image/png;base64,AAAA'/>", "4", "href"),
        leadsOut("a link to nothing", "<a href=''/>", "4", "href"),
        leadsOut("a link behind blanks", "<a href=' /etc/passwd'/>", "4", "href"),
        leadsOut("a link in another case", "<a b:HREF='a.svg#x'/>", "4", "b:HREF"),
        leadsOut("a filter's picture of a local file",
                 "<filter><feImage xlink:href='/etc/passwd'/></filter>", "18", "xlink:href"),
        leadsOut("a pattern of a local file", "<pattern xlink:href='/etc/x.svg#p'/>", "10",
                 "xlink:href"),
        leadsOut("a font of a local file",
                 "<font-face><font-face-src><font-face-uri xlink:href='/etc/x.svg#f'/>"
                 "</font-face-src></font-face>",
                 "42", "xlink:href"),
        leadsOut("a colour profile of a local file", "<color-profile xlink:href='/etc/x.icc'/>",
                 "16", "xlink:href"),
        leadsOut("an inclusion of a local file", "<xi:include href='file:///etc/passwd'/>", "13",
                 "href"),
        leadsOut("another base", "<g xml:base='file:///etc/'/>", "4", "xml:base"),
        leadsOut("another base in another case", "<g XML:Base='file:///etc/'/>", "4", "XML:Base"),
        leadsOut("a fill of a local file", "<rect fill='url(file:///etc/passwd)'/>", "7", "fill"),
        leadsOut("a mask of a local file", "<rect mask=\"URL('/etc/x.svg#m')\"/>", "7", "mask"),
        leadsOut("a pointer of a local file", "<rect cursor='url( \"/etc/x.cur\" )'/>", "7",
                 "cursor"),
        leadsOut("a style of a local file", "<rect style='fill:url(/etc/passwd)'/>", "7", "style"),
        leadsOut("the second address of a style",
                 "<rect style='a:url(#b);filter:url(&quot;/etc/x.svg#f&quot;)'/>", "7", "style"),
        leadsOut("an address behind a reference", "<rect style='fill:&#117;rl(/etc/passwd)'/>", "7",
                 "style"),
        leadsOut("an address without its end", "<rect style='fill:url('/>", "7", "style"),
        leadsOut("an attribute that fetches a style", "<rect style='@import \"/etc/x.css\"'/>", "7",
                 "style"),
        leadsOut("a change of an address to a local file",
                 "<animate attributeName='fill' to='url(/etc/passwd)'/>", "31", "to"),
        with("an attribute that spells with a backslash", "<rect style='fill:\\75rl(x)'/>",
             "2:7: The attribute \"style\" contains a backslash."),
    };
}

[[nodiscard]] std::vector<HostilePackage> styles()
{
    return {
        sheet("a style sheet of a local file", ".a { fill: url(/etc/x.svg#a) }"),
        sheet("a style sheet that fetches another", "@import 'file:///etc/x.css';"),
        sheet("a style sheet that fetches another in another case", "@IMPORT URL(x.css);"),
        sheet("a style sheet with a font of a local file",
              "@font-face { font-family: F; src: url('file:///etc/x.ttf') }"),
        sheet("a style sheet cut by a comment", "a:u<!-- -->rl(x)"),
        sheet("a style sheet cut by CDATA", "@im<![CDATA[port]]> 'x'"),
        sheet("a style sheet cut by an element", "@im<g>po</g>rt 'x'"),
        with("a style sheet under a prefix", "<svg:style>@import 'x'</svg:style>",
             "2:1: The style sheet refers to something outside of the image."),
        with("a style sheet that spells with a backslash", "<style>@\\69mport 'x'</style>",
             "2:1: The style sheet contains a backslash."),
        drawing(
            "a style sheet named before the root",
            [] {
                return "<?xml-stylesheet type='text/css' href='file:///etc/passwd'?>\n" + svg("");
            },
            "1:1: A processing instruction is not allowed."),
        drawing(
            "a document type with a local file",
            [] {
                return "<!DOCTYPE svg [<!ENTITY f SYSTEM 'file:///etc/passwd'>]>\n" +
                       svg("<text>&f;</text>");
            },
            "1:1: A document type (<!DOCTYPE) is not allowed."),
        drawing(
            "a document type with entities that multiply",
            [] {
                return "<!DOCTYPE svg [<!ENTITY a 'aaaaaaaa'><!ENTITY b '&a;&a;&a;&a;'>"
                       "<!ENTITY c '&b;&b;&b;&b;'>]>\n" +
                       svg("<text>&c;</text>");
            },
            "1:1: A document type (<!DOCTYPE) is not allowed."),
    };
}

// 20,000 of them, each with a name of its own.
[[nodiscard]] Bytes manyAttributes(const Bytes& name, const Bytes& value)
{
    Bytes text;
    for (int i = 0; i < 20000; ++i)
        text += " " + name + Bytes::number(i) + "='" + value + "'";
    return text;
}

[[nodiscard]] std::vector<HostilePackage> sizes()
{
    return {
        root("a drawing as wide as a street", "width='1e9'",
             "The width of the image is more than 4096 pixels."),
        root("a drawing of 109 cm", "height='109cm'",
             "The height of the image is more than 4096 pixels."),
        root("a drawing of no width", "width='0'", "The width \"0\" is not a length."),
        root("a drawing of less than no width", "width='-1'", "The width \"-1\" is not a length."),
        root("a drawing of no number", "width='nan'", "The width \"nan\" is not a length."),
        root("a drawing without end", "height='1e999'", "The height \"1e999\" is not a length."),
        drawing(
            "no drawing", [] { return Bytes("<html/>"); },
            "1:1: The root element is <html>, not <svg>."),
        drawing(
            "a png called svg", [] { return png(1, 1); },
            "1:1: The byte 89 is not part of UTF-8 text."),
        drawing(
            "a drawing packed with gzip", [] { return Bytes("\x1F\x8B\x08\0", 4); },
            "1:1: The character U+001F is not allowed in XML."),
        drawing(
            "a drawing of 20,000 attributes",
            [] { return "<svg" + manyAttributes("a", "") + "/>"; },
            "1:1: The element has more than 256 attributes."),
        with("a path of 20,000 attributes", "<path" + manyAttributes("d", "M0 0") + "/>",
             "2:1: The element has more than 256 attributes."),
        with("drawings 33 deep", Bytes("<g>").repeated(32) + Bytes("</g>").repeated(32),
             "2:94: Elements are nested more than 32 deep."),
        drawing(
            "a drawing 100,000 deep", [] { return svg(Bytes("<g>").repeated(100000)); },
            "2:94: Elements are nested more than 32 deep."),
        drawing(
            "a path of more than 64 KiB",
            [] { return svg("<path d='" + Bytes(70000, ' ') + "'/>"); },
            "2:1: A single tag, text or comment is longer than 65536 bytes."),
        drawing(
            "a drawing of ten thousand elements and one too many",
            [] { return svg(Bytes("<rect width='1' height='1'/>\n").repeated(10000) + "<use/>"); },
            "10002:1: An image of a package must not contain <use>."),
    };
}

} // namespace

std::vector<HostilePackage> hostileDrawings()
{
    std::vector<HostilePackage> all;
    for (const auto& part : {elements(), references(), styles(), sizes()})
        all.insert(all.end(), part.begin(), part.end());
    return all;
}

std::vector<HostileKind> hostileKinds()
{
    return {
        {"Archives", hostileArchives}, {"Entries", hostileEntries}, {"Names", hostileNames},
        {"Sizes", hostileSizes},       {"Lengths", hostileLengths}, {"Texts", hostileTexts},
        {"Groups", hostileGroups},     {"Pngs", hostilePngs},       {"Drawings", hostileDrawings}};
}

std::vector<HostilePackage> hostilePackages()
{
    std::vector<HostilePackage> all;
    for (const HostileKind& kind : hostileKinds()) {
        const std::vector<HostilePackage> part = kind.make();
        all.insert(all.end(), part.begin(), part.end());
    }
    return all;
}

} // namespace packages
