// Any bytes as a customization package, and any files in one.
//
// An input that begins with "PK" is the package. Every other one is files that are packed first, so
// that checksums do not keep what is in them from being read: a line with a letter for the packing
// (s stored, d deflated, e said to be encrypted, l a link) and the name, then the content up to a
// line "--". In all but pictures four of its bytes stand for more (stretchedText).
#include "fuzz/support/broken.h"
#include "fuzz/support/groupcheck.h"
#include "fuzz/support/hosttexts.h"
#include "fuzz/support/plainzip.h"
#include "fuzz/support/stretchedtext.h"

#include "refhost/core/package.h"

#include <QImage>
#include <QXmlStreamReader>

#include <array>

using fuzzing::mustHold;

namespace {

constexpr std::size_t kMostFiles = 8;

// The part in front of `mark`; text and mark are passed over.
std::string_view takeUpTo(std::string_view mark, std::string_view& text)
{
    const std::string_view part = text.substr(0, text.find(mark));
    text.remove_prefix(std::min(part.size() + mark.size(), text.size()));
    return part;
}

bool isPicture(std::string_view name)
{
    constexpr std::string_view ending = ".png";
    return name.size() >= ending.size() && name.substr(name.size() - ending.size()) == ending;
}

QByteArray packed(std::string_view text)
{
    std::vector<fuzzing::PackedFile> files;
    std::array<QByteArray, kMostFiles> stretched;
    while (!text.empty() && files.size() < kMostFiles) {
        std::string_view name = takeUpTo("\n", text);
        const char packing = name.empty() ? 's' : name.front();
        name.remove_prefix(name.empty() ? 0 : 1);
        fuzzing::PackedFile file{name, takeUpTo("\n--\n", text)};
        file.deflated = packing == 'd';
        file.encrypted = packing == 'e';
        file.mode = packing == 'l' ? 0120777 : 0100644;
        if (!isPicture(name)) {
            QByteArray& bytes = stretched[files.size()];
            bytes = fuzzing::stretchedText(file.bytes);
            file.bytes = {bytes.constData(), static_cast<std::size_t>(bytes.size())};
        }
        files.push_back(file);
    }
    return fuzzing::plainZip(files);
}

bool isSame(QStringView name, const char* other)
{
    return name.compare(QLatin1String(other), Qt::CaseInsensitive) == 0;
}

// As a renderer reads it: nothing is fetched or run.
void checkSvg(const QByteArray& svg)
{
    QXmlStreamReader xml(svg);
    xml.setNamespaceProcessing(false);
    while (!xml.atEnd()) {
        mustHold(xml.readNext() != QXmlStreamReader::DTD, "an image has no document type");
        if (!xml.isStartElement())
            continue;
        const QStringRef whole = xml.qualifiedName();
        const QStringView name = QStringView(whole).mid(whole.lastIndexOf(QLatin1Char(':')) + 1);
        for (const char* const forbidden : {"image", "use", "script", "foreignObject"})
            mustHold(!isSame(name, forbidden), "an image has nothing that fetches or runs");
        for (const QXmlStreamAttribute& attribute : xml.attributes()) {
            const QStringRef prefixed = attribute.qualifiedName();
            const QStringView plain =
                QStringView(prefixed).mid(prefixed.lastIndexOf(QLatin1Char(':')) + 1);
            mustHold(!plain.startsWith(QLatin1String("on"), Qt::CaseInsensitive),
                     "an image has no events");
            const QStringRef target = attribute.value().trimmed();
            mustHold(!isSame(plain, "href") || target.isEmpty() ||
                         target.startsWith(QLatin1Char('#')),
                     "an image's references stay in it");
        }
    }
    mustHold(!xml.hasError(), "an image can be read to its end");
}

void checkImage(const QString& name, const QByteArray& bytes)
{
    mustHold(name.startsWith(QLatin1String("images/")) && !name.contains(QLatin1String("..")),
             "an image is where images are");
    if (name.endsWith(QLatin1String(".svg"), Qt::CaseInsensitive))
        return checkSvg(bytes);
    const QImage image = QImage::fromData(bytes, "png");
    mustHold(!image.isNull() && image.width() <= 256 && image.height() <= 256,
             "a picture is one and not too large");
}

void checkPackage(const QByteArray& bytes)
{
    static const QString file = QStringLiteral("fuzz.cuix");
    const quelhost::PackageReading reading = quelhost::readPackageBytes(bytes, file);
    if (!reading) {
        // A refusal without a reason would leave the user in the dark.
        mustHold(!reading.faults().empty(), "a refusal has a reason");
        return fuzzing::checkFaults(reading.faults(), file);
    }
    std::set<QString> images;
    for (const auto& [name, image] : reading.group().images) {
        checkImage(name, image);
        images.insert(name);
    }
    fuzzing::checkGroup(reading.group(), images);
}

} // namespace

extern "C" int LLVMFuzzerInitialize(int* argc, char*** argv)
{
    return fuzzing::installTexts(*argc, *argv) ? 0 : 1;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    checkPackage(bytes.substr(0, 2) == "PK"
                     ? QByteArray(bytes.data(), static_cast<int>(bytes.size()))
                     : packed(bytes));
    return 0;
}
