// Tests the images of a customization package before anything decodes or draws them.
//
// png: the size is read from the header first; then the image must decode. Parts that are no part
// of the picture (texts, colour profiles, animation) are dropped, since some of them unpack to
// gigabytes in a decoder.
//
// svg: must pass the limited XML reader, and hold nothing that a renderer would fetch or run: no
// `image`, `use`, `script`, `foreignObject`, no event attribute, no `href`, `url()` or `@import`
// that leads out of the image. Its own width and height are bounded as well.
#pragma once

#include "refhost/core/result.h"

#include <QByteArray>
#include <QString>

#include <optional>
#include <vector>

namespace quelhost {

enum class ImageKind { Png, Svg };

// Largest width and height. An svg is drawn at no more than the first, whatever it states.
inline constexpr qint64 kMaxPngPixels = 256;
inline constexpr qint64 kMaxSvgPixels = 4096;

// By the name's end, in any case; nothing for other names.
[[nodiscard]] std::optional<ImageKind> imageKind(const QString& name);

struct ImageReading
{
    QByteArray bytes; // safe to hand to a renderer; empty with faults
    std::vector<Fault> faults;
};

// `file` is the name for faults. An svg's faults have line and column.
[[nodiscard]] ImageReading checkPng(const QByteArray& bytes, const QString& file);
[[nodiscard]] ImageReading checkSvg(const QByteArray& bytes, const QString& file);

// By what `name` says the image is; a name of another kind is a fault.
[[nodiscard]] ImageReading checkImage(const QString& name, const QByteArray& bytes,
                                      const QString& file);

} // namespace quelhost
