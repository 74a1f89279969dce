#include "fuzz/support/stretchedtext.h"

namespace fuzzing {

namespace {

constexpr int kMostGrowth = 72000;
constexpr int kAttributes = 100;

// The attributes behind the first `count` ones of the text.
QByteArray moreAttributes(int count)
{
    QByteArray attributes;
    for (int i = count; i < count + kAttributes; ++i)
        attributes += " a" + QByteArray::number(i) + "=\"\"";
    return attributes;
}

} // namespace

QByteArray stretchedText(std::string_view text)
{
    QByteArray stretched;
    int attributes = 0;
    int growth = 0;
    for (const char byte : text) {
        QByteArray part(1, byte);
        if (byte == '\1')
            part.fill(' ', 1000);
        else if (byte == '\2')
            part.fill(' ', 4000);
        else if (byte == '\3')
            part.fill(' ', 64000);
        else if (byte == '\4')
            part = moreAttributes(attributes);
        if (growth + part.size() - 1 > kMostGrowth)
            part = QByteArray(1, byte);
        if (byte == '\4')
            attributes += kAttributes;
        growth += part.size() - 1;
        stretched += part;
    }
    return stretched;
}

} // namespace fuzzing
