// Makes images for packages, good ones and such as nobody should decode or draw.
#pragma once

#include <QByteArray>

namespace packages {

// Elements within a good svg, in line 2.
[[nodiscard]] QByteArray svg(const QByteArray& inside);

// A png with its header chunk of another size (8 bytes, big endian), with a good checksum.
[[nodiscard]] QByteArray withSize(const QByteArray& image, const QByteArray& widthAndHeight);

// With a chunk directly behind the header.
[[nodiscard]] QByteArray withChunk(const QByteArray& image, const QByteArray& name,
                                   const QByteArray& content);

// The content of a zTXt chunk that unpacks to `megabytes` MiB.
[[nodiscard]] QByteArray packedText(int megabytes);

// The last chunk of a png.
[[nodiscard]] QByteArray pngEnd();

} // namespace packages
