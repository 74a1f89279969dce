// The stream that the line editor draws through: stand-ins become what they stand for.
#pragma once

#include <cstdio>
#include <memory>
#include <string>

namespace quelhost {

class CellText;

class CellStream
{
public:
    // REQUIRES: both outlive this object. `descriptor` is borrowed.
    CellStream(int descriptor, const CellText& cells);
    CellStream(const CellStream&) = delete;
    CellStream& operator=(const CellStream&) = delete;

    // For UTF-8 text; what is written is on the screen after std::fflush. Null without memory.
    [[nodiscard]] std::FILE* file() const { return m_file.get(); }

private:
    struct Close
    {
        void operator()(std::FILE* file) const { std::fclose(file); }
    };
    static ssize_t put(void* stream, const char* bytes, std::size_t size);
    void draw(const std::string& utf8);

    const int m_descriptor;
    const CellText& m_cells;
    std::string m_rest; // the start of a character whose other bytes have not come yet
    std::unique_ptr<std::FILE, Close> m_file;
};

} // namespace quelhost
