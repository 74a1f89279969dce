#include "bench/support/plainreading.h"

#include <QImage>
#include <QXmlStreamReader>
#include <QtEndian>

#include <zlib.h>

#include <algorithm>

namespace plainreading {

namespace {

constexpr int kHeaderSize = 30;
constexpr int kPiece = 4096;
constexpr int kLongestToken = 64 * 1024;
const QByteArray kSignature("PK\3\4", 4);

[[nodiscard]] QByteArray inflated(const QByteArray& packed)
{
    z_stream stream = {};
    if (inflateInit2(&stream, -MAX_WBITS) != Z_OK)
        return {};
    stream.next_in = reinterpret_cast<Bytef*>(const_cast<char*>(packed.constData()));
    stream.avail_in = static_cast<uInt>(packed.size());
    QByteArray bytes;
    int status = Z_OK;
    while (status == Z_OK) {
        const int filled = bytes.size();
        bytes.resize(std::max(2 * filled, kPiece));
        stream.next_out = reinterpret_cast<Bytef*>(bytes.data() + filled);
        stream.avail_out = static_cast<uInt>(bytes.size() - filled);
        status = inflate(&stream, Z_NO_FLUSH);
        bytes.chop(static_cast<int>(stream.avail_out));
    }
    inflateEnd(&stream);
    return bytes;
}

void parseXml(const QByteArray& text)
{
    QXmlStreamReader reader;
    reader.setNamespaceProcessing(false);
    int fed = 0;
    int tokenBegin = 0;
    for (;;) {
        const QXmlStreamReader::TokenType token = reader.readNext();
        if (token == QXmlStreamReader::EndDocument)
            return;
        if (token != QXmlStreamReader::Invalid) {
            tokenBegin = fed;
            continue;
        }
        const bool ranDry = reader.error() == QXmlStreamReader::PrematureEndOfDocumentError;
        if (!ranDry || fed >= text.size() || fed - tokenBegin > kLongestToken)
            return;
        reader.addData(text.mid(fed, kPiece));
        fed += kPiece;
    }
}

void parse(const QByteArray& name, const QByteArray& content)
{
    if (name.endsWith(".png"))
        static_cast<void>(QImage::fromData(content, "png"));
    else
        parseXml(content);
}

} // namespace

long read(const QByteArray& archive)
{
    long parsed = 0;
    int at = archive.indexOf(kSignature);
    if (at < 0 || at + kHeaderSize > archive.size()) {
        const QByteArray content = inflated(archive);
        parseXml(archive);
        return content.size() + archive.size();
    }
    while (at >= 0 && at + kHeaderSize <= archive.size()) {
        const char* const header = archive.constData() + at;
        const auto method = qFromLittleEndian<quint16>(header + 8);
        const auto packed = qFromLittleEndian<quint32>(header + 18);
        const int nameSize = qFromLittleEndian<quint16>(header + 26);
        const int begin = at + kHeaderSize + nameSize + qFromLittleEndian<quint16>(header + 28);
        const int size = static_cast<int>(std::min<qint64>(packed, archive.size() - begin));
        const QByteArray bytes = archive.mid(begin, std::max(size, 0));
        const QByteArray content = method == 0 ? bytes : inflated(bytes);
        parse(archive.mid(at + kHeaderSize, nameSize), content);
        parsed += content.size();
        at = archive.indexOf(kSignature, std::max(begin + size, at + 1));
    }
    return parsed;
}

} // namespace plainreading
