#include "refhost/core/imagecheck.h"

#include "refhost/core/packagefaults.h"

#include <QBuffer>
#include <QImage>
#include <QImageReader>
#include <QtEndian>

#include <algorithm>
#include <string_view>

namespace quelhost {

namespace {

constexpr std::string_view kPngSignature("\x89PNG\r\n\x1A\n", 8);
constexpr std::string_view kHeaderChunk("\0\0\0\x0DIHDR", 8);
constexpr qint64 kHeaderEnd = 33; // signature, and the header chunk with length, name, checksum

struct PixelSize
{
    qint64 width = 0;
    qint64 height = 0;
};

[[nodiscard]] std::string_view viewOf(const QByteArray& bytes)
{
    return {bytes.constData(), static_cast<std::size_t>(bytes.size())};
}

[[nodiscard]] std::optional<PixelSize> pngSize(std::string_view bytes)
{
    const bool begins = bytes.substr(0, 8) == kPngSignature && bytes.size() >= kHeaderEnd &&
                        bytes.substr(8, 8) == kHeaderChunk;
    if (!begins)
        return std::nullopt;
    return PixelSize{qFromBigEndian<quint32>(bytes.data() + 16),
                     qFromBigEndian<quint32>(bytes.data() + 20)};
}

[[nodiscard]] bool isPicturePart(std::string_view chunk)
{
    constexpr std::string_view kParts[] = {"IHDR", "PLTE", "tRNS", "gAMA",
                                           "sRGB", "pHYs", "IDAT", "IEND"};
    return std::find(std::begin(kParts), std::end(kParts), chunk) != std::end(kParts);
}

// The image without the chunks that do not bear on the picture; empty when it does not reach its
// end chunk.
[[nodiscard]] QByteArray pictureOnly(std::string_view bytes)
{
    QByteArray picture(bytes.data(), static_cast<int>(kPngSignature.size()));
    std::size_t at = kPngSignature.size();
    while (at + 12 <= bytes.size()) {
        const std::size_t length = qFromBigEndian<quint32>(bytes.data() + at);
        const std::string_view name = bytes.substr(at + 4, 4);
        if (length > bytes.size() - at - 12)
            break;
        const std::string_view chunk = bytes.substr(at, length + 12);
        if (isPicturePart(name))
            picture.append(chunk.data(), static_cast<int>(chunk.size()));
        if (name == "IEND")
            return picture;
        at += chunk.size();
    }
    return {};
}

[[nodiscard]] bool decodes(QByteArray picture)
{
    QBuffer buffer(&picture);
    QImageReader reader(&buffer, "png");
    reader.setAutoDetectImageFormat(false);
    return !reader.read().isNull();
}

[[nodiscard]] QString pngSentence(const std::optional<PixelSize>& size)
{
    if (!size)
        return qtTrId("package-png-header");
    if (size->width <= kMaxPngPixels && size->height <= kMaxPngPixels)
        return {};
    return qtTrId("package-png-size").arg(size->width).arg(size->height).arg(kMaxPngPixels);
}

} // namespace

std::optional<ImageKind> imageKind(const QString& name)
{
    if (name.endsWith(QLatin1String(".png"), Qt::CaseInsensitive))
        return ImageKind::Png;
    if (name.endsWith(QLatin1String(".svg"), Qt::CaseInsensitive))
        return ImageKind::Svg;
    return std::nullopt;
}

ImageReading checkPng(const QByteArray& bytes, const QString& file)
{
    PackageFaults faults(file);
    const QString sentence = pngSentence(pngSize(viewOf(bytes)));
    const QByteArray picture = sentence.isEmpty() ? pictureOnly(viewOf(bytes)) : QByteArray();
    if (!sentence.isEmpty())
        faults.add(sentence);
    else if (picture.isEmpty() || !decodes(picture))
        faults.add(qtTrId("package-png-damaged"), FaultKind::Damaged);
    else
        return {picture, {}};
    return {{}, faults.take()};
}

ImageReading checkImage(const QString& name, const QByteArray& bytes, const QString& file)
{
    const std::optional<ImageKind> kind = imageKind(name);
    if (kind == ImageKind::Png)
        return checkPng(bytes, file);
    if (kind == ImageKind::Svg)
        return checkSvg(bytes, file);
    PackageFaults faults(file);
    faults.add(qtTrId("package-image-kind"));
    return {{}, faults.take()};
}

} // namespace quelhost
