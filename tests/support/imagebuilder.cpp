#include "tests/support/imagebuilder.h"

#include "tests/support/packagebuilder.h"

namespace packages {

QByteArray svg(const QByteArray& inside)
{
    return "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"24\" height=\"24\">\n" + inside +
           "</svg>";
}

QByteArray withSize(const QByteArray& image, const QByteArray& widthAndHeight)
{
    const QByteArray rest = image.mid(24, 5); // depth, colours, methods
    return image.left(8) + pngChunk("IHDR", widthAndHeight + rest) + image.mid(33);
}

QByteArray withChunk(const QByteArray& image, const QByteArray& name, const QByteArray& content)
{
    return image.left(33) + pngChunk(name, content) + image.mid(33);
}

QByteArray packedText(int megabytes)
{
    return QByteArray("Comment\0\0", 9) + qCompress(QByteArray(megabytes << 20, 'x'), 9).mid(4);
}

QByteArray pngEnd()
{
    return pngChunk("IEND", {});
}

} // namespace packages
