#include "refhost/core/imagecheck.h"

#include "tests/support/imagebuilder.h"
#include "tests/support/packagebuilder.h"

#include <QBuffer>
#include <QImage>

#include <gtest/gtest.h>

#include <string>
#include <utility>

using namespace quelhost;
using namespace packages;

namespace {

std::string linesOf(const std::vector<Fault>& faults)
{
    std::string text;
    for (const Fault& fault : faults)
        text += fault.text().toStdString() + "\n";
    return text;
}

std::string pngFaults(const QByteArray& bytes)
{
    return linesOf(checkPng(bytes, QStringLiteral("p")).faults);
}

std::string svgFaults(const QByteArray& bytes)
{
    return linesOf(checkSvg(bytes, QStringLiteral("p")).faults);
}

} // namespace

TEST(ImageCheck, knowsImagesByTheirNames)
{
    struct Row
    {
        const char* name;
        std::optional<ImageKind> kind;
    };
    const Row rows[] = {
        {"images/a.png", ImageKind::Png},   {"images/a.PNG", ImageKind::Png},
        {"images/a.svg", ImageKind::Svg},   {"images/a.Svg", ImageKind::Svg},
        {"images/a.b.png", ImageKind::Png}, {"images/png", std::nullopt},
        {"images/a.png.txt", std::nullopt}, {"images/a.jpg", std::nullopt},
        {"images/a.svgz", std::nullopt},    {"", std::nullopt},
    };
    for (const Row& row : rows)
        EXPECT_EQ(imageKind(QString::fromUtf8(row.name)), row.kind) << row.name;
}

TEST(ImageCheck, checksAnImageByWhatItsNameSays)
{
    const QString file = QStringLiteral("p!x");
    const QByteArray drawing = svg("<path d='M0 0'/>");
    EXPECT_TRUE(checkImage(QStringLiteral("x.png"), png(1, 1), file).faults.empty());
    EXPECT_TRUE(checkImage(QStringLiteral("x.svg"), drawing, file).faults.empty());
    EXPECT_EQ(linesOf(checkImage(QStringLiteral("x.png"), drawing, file).faults),
              "p!x: The file is not a PNG image.\n");
    EXPECT_EQ(linesOf(checkImage(QStringLiteral("x.svg"), png(1, 1), file).faults),
              "p!x:1:1: The byte 89 is not part of UTF-8 text.\n");
    EXPECT_EQ(linesOf(checkImage(QStringLiteral("x.gif"), png(1, 1), file).faults),
              "p!x: The file is neither a .png nor an .svg image.\n");
}

TEST(ImageCheck, acceptsPngsThatDecode)
{
    struct Row
    {
        const char* name;
        QByteArray image;
        int width;
        int height;
    };
    const Row rows[] = {
        {"one pixel", png(1, 1), 1, 1},
        {"an icon", png(32, 32), 32, 32},
        {"the largest", png(256, 256), 256, 256},
        {"with bytes behind its end", png(16, 16) + "more", 16, 16},
        {"with a text", withChunk(png(16, 16), "tEXt", QByteArray("Title\0x", 7)), 16, 16},
    };
    for (const Row& row : rows) {
        const ImageReading reading = checkPng(row.image, QStringLiteral("p"));
        EXPECT_TRUE(reading.faults.empty()) << row.name;
        const QImage image = QImage::fromData(reading.bytes, "png");
        EXPECT_EQ(image.width(), row.width) << row.name;
        EXPECT_EQ(image.height(), row.height) << row.name;
        EXPECT_EQ(image.pixelColor(0, 0), QColor(Qt::red)) << row.name;
    }
}

TEST(ImageCheck, keepsOnlyThePicture)
{
    const QByteArray image = png(16, 16);
    const QByteArray plain = checkPng(image, QStringLiteral("p")).bytes;
    const char* const names[] = {"zTXt", "iTXt", "tEXt", "iCCP", "acTL", "eXIf", "abCd"};
    for (const char* name : names) {
        const QByteArray crowded = withChunk(image, name, packedText(1));
        EXPECT_EQ(checkPng(crowded, QStringLiteral("p")).bytes, plain) << name;
    }
    // What a decoder would unpack to 8 GiB.
    QByteArray bomb = image;
    const QByteArray text = packedText(8);
    for (int i = 0; i < 1000; ++i)
        bomb.insert(33, pngChunk("zTXt", text));
    EXPECT_EQ(checkPng(bomb, QStringLiteral("p")).bytes, plain);
}

TEST(ImageCheck, keepsColoursAndTransparency)
{
    QImage image(2, 1, QImage::Format_Indexed8);
    image.setColorTable({qRgba(10, 20, 30, 255), qRgba(200, 100, 50, 128)});
    image.setPixel(0, 0, 0);
    image.setPixel(1, 0, 1);
    QByteArray bytes;
    QBuffer buffer(&bytes);
    ASSERT_TRUE(buffer.open(QIODevice::WriteOnly));
    ASSERT_TRUE(image.save(&buffer, "png"));
    for (const char* part : {"PLTE", "tRNS"})
        EXPECT_TRUE(bytes.contains(part)) << part;
    const ImageReading reading = checkPng(bytes, QStringLiteral("p"));
    EXPECT_EQ(linesOf(reading.faults), "");
    const QImage kept = QImage::fromData(reading.bytes, "png");
    EXPECT_EQ(kept.pixel(0, 0), qRgba(10, 20, 30, 255));
    EXPECT_EQ(kept.pixel(1, 0), qRgba(200, 100, 50, 128));

    // What tells the brightness of its colours, and the shape of its pixels.
    const QByteArray plain = checkPng(png(16, 16), QStringLiteral("p")).bytes;
    const std::pair<const char*, QByteArray> parts[] = {{"gAMA", QByteArray("\0\0\xB1\x8F", 4)},
                                                        {"sRGB", QByteArray(1, '\0')},
                                                        {"pHYs", QByteArray(9, '\1')}};
    for (const auto& [name, content] : parts) {
        const QByteArray more = withChunk(plain, name, content);
        EXPECT_EQ(checkPng(more, QStringLiteral("p")).bytes, more) << name;
    }
}

TEST(ImageCheck, refusesPngsOfBadSizeOrContent)
{
    const QByteArray image = png(16, 16);
    struct Row
    {
        const char* name;
        QByteArray bytes;
        const char* faults;
    };
    const char* const kNoPng = "p: The file is not a PNG image.\n";
    const char* const kBroken = "p: The image cannot be decoded.\n";
    const Row rows[] = {
        {"nothing", "", kNoPng},
        {"another format", "GIF89a" + QByteArray(40, '\0'), kNoPng},
        {"the signature alone", image.left(8), kNoPng},
        {"half of the header", image.left(32), kNoPng},
        {"another chunk first",
         image.left(8) + pngChunk("tEXt", QByteArray("Title\0x", 7)) + image.mid(8), kNoPng},
        {"too wide", png(257, 1),
         "p: The image is 257 x 1 pixels; at most 256 x 256 are allowed.\n"},
        {"too high", png(1, 257),
         "p: The image is 1 x 257 pixels; at most 256 x 256 are allowed.\n"},
        {"said to be enormous", withSize(image, "\x7F\xFF\xFF\xFF\x7F\xFF\xFF\xFF"),
         "p: The image is 2147483647 x 2147483647 pixels; at most 256 x 256 are allowed.\n"},
        {"said to be larger than any", withSize(image, "\xFF\xFF\xFF\xFF\xFF\xFF\xFF\xFF"),
         "p: The image is 4294967295 x 4294967295 pixels; at most 256 x 256 are allowed.\n"},
        {"no width", withSize(image, QByteArray("\0\0\0\0\0\0\0\x10", 8)), kBroken},
        {"the header alone", image.left(33), kBroken},
        {"no pixels", image.left(33) + pngEnd(), kBroken},
        {"no end", image.left(image.size() - 12), kBroken},
        {"the last byte is missing", image.left(image.size() - 1), kBroken},
        {"pixels that do not unpack",
         image.left(33) + pngChunk("IDAT", QByteArray(40, 'x')) + pngEnd(), kBroken},
        {"too few pixels", withSize(image, QByteArray("\0\0\0\x11\0\0\0\x11", 8)), kBroken},
        {"a wrong checksum of the header",
         [&image] {
             QByteArray wrong = image;
             wrong[32] = static_cast<char>(wrong[32] ^ 1);
             return wrong;
         }(),
         kBroken},
        {"a chunk longer than the file",
         image.left(33) + QByteArray("\xFF\xFF\xFF\xFFIDAT", 8) + pngEnd(), kBroken},
        {"a second header of another size",
         image.left(33) + withSize(image, "\x7F\xFF\xFF\xFF\x7F\xFF\xFF\xFF").mid(8), kBroken},
    };
    for (const Row& row : rows) {
        const ImageReading reading = checkPng(row.bytes, QStringLiteral("p"));
        EXPECT_EQ(linesOf(reading.faults), row.faults) << row.name;
        EXPECT_TRUE(reading.bytes.isEmpty()) << row.name;
    }
}

TEST(ImageCheck, refusesEveryBeginningOfAPng)
{
    const QByteArray image = png(16, 16);
    for (int length = 0; length < image.size(); ++length)
        EXPECT_NE(pngFaults(image.left(length)), "") << length;
}

TEST(ImageCheck, acceptsDrawingsThatStayWithinThemselves)
{
    struct Row
    {
        const char* name;
        QByteArray drawing;
    };
    const Row rows[] = {
        {"a path", svg("<path d='M0 0h24' fill='#fff'/>")},
        {"a gradient referred to",
         svg("<defs><linearGradient id='g'/><linearGradient id='h' xlink:href='#g'/></defs>"
             "<rect fill='url(#g)' stroke=\"url( '#h' )\"/>")},
        {"a style sheet", svg("<style type='text/css'>.a { fill: url(#g) }\n"
                              ".b { fill: URL(\"#g\"); stroke: url( '#g') }</style>")},
        {"blanks within the quotes of an address", svg("<rect fill='url(\" #g\")'/>")},
        {"a style sheet in CDATA", svg("<style><![CDATA[.a > .b { fill: red }]]></style>")},
        {"an editor's own notes",
         svg("<sodipodi:namedview inkscape:export-filename='C:\\icons\\a.png'/>"
             "<metadata><rdf:RDF><cc:Work rdf:about=''/></rdf:RDF></metadata>")},
        {"text", svg("<text>image, use and script</text><title>url(http://a/)</title>")},
        {"a link within", svg("<a href='#top'><path d=''/></a>")},
        {"a root with a prefix", "<svg:svg xmlns:svg='http://www.w3.org/2000/svg'/>"},
        {"names that only begin alike",
         svg("<imagery/><user/><scripting/><foreign/><path hrefs='x' o='n'/>")},
    };
    for (const Row& row : rows) {
        const ImageReading reading = checkSvg(row.drawing, QStringLiteral("p"));
        EXPECT_EQ(linesOf(reading.faults), "") << row.name;
        EXPECT_EQ(reading.bytes, row.drawing) << row.name;
    }
}

TEST(ImageCheck, refusesDrawingsThatReachOutOrRun)
{
    struct Row
    {
        const char* name;
        QByteArray drawing;
        const char* faults;
    };
    const char* const kStyle = "p:2:1: The style sheet refers to something outside of the image.\n";
    const Row rows[] = {
        {"image", svg("<g>\n <image href='#a'/></g>"),
         "p:3:2: An image of a package must not contain <image>.\n"},
        {"use", svg("<use href='#a'/>"), "p:2:1: An image of a package must not contain <use>.\n"},
        {"script", svg("<script>x</script>"),
         "p:2:1: An image of a package must not contain <script>.\n"},
        {"foreignObject", svg("<foreignObject/>"),
         "p:2:1: An image of a package must not contain <foreignObject>.\n"},
        {"under a prefix", svg("<svg:image/><s:use/>"),
         "p:2:1: An image of a package must not contain <svg:image>.\n"
         "p:2:13: An image of a package must not contain <s:use>.\n"},
        {"in another case", svg("<Image/><FOREIGNOBJECT/>"),
         "p:2:1: An image of a package must not contain <Image>.\n"
         "p:2:9: An image of a package must not contain <FOREIGNOBJECT>.\n"},
        {"a link to the net", svg("<a href='https://example.org/'/>"),
         "p:2:4: The attribute \"href\" refers to something outside of the image.\n"},
        {"a file's address", svg("<linearGradient xlink:href='file:///etc/passwd'/>"),
         "p:2:17: The attribute \"xlink:href\" refers to something outside of the image.\n"},
        {"a name of a file", svg("<a b:HREF='a.svg#x'/>"),
         "p:2:4: The attribute \"b:HREF\" refers to something outside of the image.\n"},
        {"data within the address", svg("<a href='data:image/png;base64,AAAA'/>"),
         "p:2:4: The attribute \"href\" refers to something outside of the image.\n"},
        {"an empty address", svg("<a href=''/>"),
         "p:2:4: The attribute \"href\" refers to something outside of the image.\n"},
        {"another base", svg("<g xml:base='/etc/'/>"),
         "p:2:4: The attribute \"xml:base\" refers to something outside of the image.\n"},
        {"a fill from elsewhere", svg("<rect id='r' fill='url(/etc/passwd)'/>"),
         "p:2:14: The attribute \"fill\" refers to something outside of the image.\n"},
        {"a style from elsewhere", svg("<rect style='a:url(#b);fill: Url( \"x#b\" )'/>"),
         "p:2:7: The attribute \"style\" refers to something outside of the image.\n"},
        {"an address without its end", svg("<rect style='fill:url('/>"),
         "p:2:7: The attribute \"style\" refers to something outside of the image.\n"},
        {"an address after many blanks",
         svg("<rect style='fill:url(" + QByteArray(60000, ' ') + "x)'/>"),
         "p:2:7: The attribute \"style\" refers to something outside of the image.\n"},
        {"a style that spells in numbers", svg("<rect style='fill:\\75rl(x)'/>"),
         "p:2:7: The attribute \"style\" contains a backslash.\n"},
        {"a style sheet from elsewhere", svg("<style>.a { fill: url(x.svg#a) }</style>"), kStyle},
        {"a style sheet that fetches another", svg("<style>@IMPORT 'x.css';</style>"), kStyle},
        {"a style sheet cut by a comment", svg("<style>a:u<!-- -->rl(x)</style>"), kStyle},
        {"a style sheet cut by CDATA", svg("<style>@im<![CDATA[port]]> 'x'</style>"), kStyle},
        {"a style sheet cut by an element", svg("<style>@im<g>po</g>rt 'x'</style>"), kStyle},
        {"a style sheet behind one within it", svg("<style><style/>@import 'x'</style>"), kStyle},
        {"a good style sheet behind it", svg("<style>@import 'x'</style><style>.a{}</style>"),
         kStyle},
        {"a style sheet under a prefix", svg("<svg:style>@import 'x'</svg:style>"), kStyle},
        {"a style sheet that spells in numbers", svg("<style>@\\69mport 'x'</style>"),
         "p:2:1: The style sheet contains a backslash.\n"},
        {"the second style sheet", svg("<style>.a{}</style><style>@import 'x'</style>"),
         "p:2:20: The style sheet refers to something outside of the image.\n"},
        {"an event", svg("<g onclick='x()'/>"),
         "p:2:4: The attribute \"onclick\" runs a script on an event; an image of a package must "
         "not.\n"},
        {"an event in another case", svg("<g ONLOAD='x()'/>"),
         "p:2:4: The attribute \"ONLOAD\" runs a script on an event; an image of a package must "
         "not.\n"},
        {"a style sheet named before the root",
         "<?xml-stylesheet type='text/css' href='/etc/passwd'?>\n" + svg(""),
         "p:1:1: A processing instruction is not allowed.\n"},
        {"a document type",
         "<!DOCTYPE svg PUBLIC '-//W3C//DTD SVG 1.1//EN' 'http://x/svg11.dtd'>\n" + svg(""),
         "p:1:1: A document type (<!DOCTYPE) is not allowed.\n"},
        {"no drawing", "\n<html/>", "p:2:1: The root element is <html>, not <svg>.\n"},
        {"no XML", "hello", "p:1:1: This is not well-formed XML: Start tag expected.\n"},
        {"a compressed drawing", QByteArray("\x1F\x8B\x08\0", 4),
         "p:1:1: The character U+001F is not allowed in XML.\n"},
        {"several at once", svg("<use/>\n<g onload='' href='x'/>\n<style>@import</style>") + "x",
         "p:2:1: An image of a package must not contain <use>.\n"
         "p:3:4: The attribute \"onload\" runs a script on an event; an image of a package must "
         "not.\n"
         "p:3:14: The attribute \"href\" refers to something outside of the image.\n"
         "p:4:1: The style sheet refers to something outside of the image.\n"
         "p:4:29: Nothing but comments may follow the root element.\n"},
    };
    for (const Row& row : rows) {
        const ImageReading reading = checkSvg(row.drawing, QStringLiteral("p"));
        EXPECT_EQ(linesOf(reading.faults), row.faults) << row.name;
        EXPECT_TRUE(reading.bytes.isEmpty()) << row.name;
    }
}

TEST(ImageCheck, looksForNoMoreFaultsThanAnyoneMends)
{
    const QByteArray drawing = svg(QByteArray("<use/>").repeated(20000));
    EXPECT_EQ(checkSvg(drawing, QStringLiteral("p")).faults.size(), 10001U);
}

TEST(ImageCheck, boundsTheStatedSizeOfDrawings)
{
    const char* const kNone = "";
    const char* const kLarge = "p:1:6: The width of the image is more than 4096 pixels.\n";
    struct Row
    {
        const char* width;
        std::string faults;
    };
    const auto noLength = [](const char* width) {
        return "p:1:6: The width \"" + std::string(width) + "\" is not a length.\n";
    };
    const Row rows[] = {
        {"24", kNone},
        {"24px", kNone},
        {" 1.5em ", kNone},
        {"10ex", kNone},
        {"100%", kNone},
        {"1e3", kNone},
        {"210mm", kNone},
        {"0.01", kNone},
        {"4096", kNone},
        {"4096.5", kLarge},
        {"4097px", kLarge},
        {"3072pt", kNone},
        {"3072.5pt", kLarge},
        {"256pc", kNone},
        {"257pc", kLarge},
        {"42in", kNone},
        {"43in", kLarge},
        {"108cm", kNone},
        {"109cm", kLarge},
        {"1083mm", kNone},
        {"1084mm", kLarge},
        {"256em", kNone},
        {"257em", kLarge},
        {"512ex", kNone},
        {"513ex", kLarge},
        {"1e9", kLarge},
        {"1e300", kLarge},
        {"0", noLength("0")},
        {"-1", noLength("-1")},
        {"", noLength("")},
        {"x", noLength("x")},
        {"1x", noLength("1x")},
        {"nan", noLength("nan")},
        {"inf", noLength("inf")},
        {"1.2.3", noLength("1.2.3")},
        {"%", noLength("%")},
        {"1e999", noLength("1e999")},
        {"1PX", noLength("1PX")},
    };
    for (const Row& row : rows)
        EXPECT_EQ(svgFaults("<svg width='" + QByteArray(row.width) + "'/>"), row.faults)
            << row.width;
    EXPECT_EQ(svgFaults("<svg width='1'\nheight='9999'><g width='9999'/></svg>"),
              "p:2:1: The height of the image is more than 4096 pixels.\n");
    EXPECT_EQ(svgFaults("<svg width='1" + QByteArray(60000, ' ') + "!'/>").substr(0, 25),
              "p:1:6: The width \"1      ");
}

TEST(ImageCheck, readsDrawingsWithinTheLimitsOfXml)
{
    EXPECT_EQ(svgFaults(svg("<path d='" + QByteArray(65536 - 12, ' ') + "'/>")), "");
    EXPECT_EQ(svgFaults(svg("<path d='" + QByteArray(65537 - 12, ' ') + "'/>")),
              "p:2:1: A single tag, text or comment is longer than 65536 bytes.\n");
    EXPECT_EQ(svgFaults(svg(QByteArray("<g>").repeated(31) + QByteArray("</g>").repeated(31))), "");
    EXPECT_EQ(svgFaults(svg(QByteArray("<g>").repeated(32))),
              "p:2:94: Elements are nested more than 32 deep.\n");
}
