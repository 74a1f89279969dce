// Reads a descriptor line by line and never ahead: what stands behind the end of a line stays
// unread, for whoever reads the descriptor next.
#pragma once

#include <string>

namespace quelhost {

class LineReader
{
public:
    // Of a longer line this many bytes are kept; the rest is read and dropped.
    static constexpr std::size_t kLongestLine = 1024 * 1024;

    enum class Outcome {
        Line,        // a line, which LF, CR LF or the end of the input ended
        Interrupted, // by the user; what had come of a line belongs to the next one
        End,         // of the input, or it cannot be read; so it is for ever
    };
    struct Read
    {
        Outcome outcome = Outcome::End;
        std::wstring text;
    };

    // `descriptor` is borrowed.
    explicit LineReader(int descriptor);

    // Waits for a line. A byte order mark at the very start is passed over.
    [[nodiscard]] Read read();

private:
    enum class Byte { Read, Interrupted, End, Error };
    [[nodiscard]] Byte readByte(char& byte) const;
    [[nodiscard]] Read end(bool withRest);
    [[nodiscard]] std::wstring takeLine();

    const int m_descriptor;
    const bool m_mayBlock;
    bool m_ended; // or cannot be read at all
    bool m_atStart = true;
    std::string m_line;       // what is kept of the current line
    std::size_t m_length = 0; // how many bytes of it have come
};

} // namespace quelhost
