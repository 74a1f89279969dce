// What reading a package costs who checks nothing.
#pragma once

#include <QByteArray>

#include <string>

namespace plainreading {

// Inflates every entry of the archive as far as it goes, wherever the header of one is found, and
// hands what comes out to a plain parser: texts and drawings to the XML reader, other images to the
// decoder. Bytes without any entry are themselves inflated and parsed.
//
// The XML reader is given piece after piece, and a tag that has not ended after 64 KiB is given up:
// at its end the reader would compare every attribute with every other, for hours.
// Returns how many bytes were handed to a parser.
[[nodiscard]] long read(const QByteArray& archive);

} // namespace plainreading
