// A fuzzer's bytes taken apart from the front. Behind the end there are only zeros and empty texts,
// so every input means something. Texts end with their line: seeds are written by hand.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace fuzzing {

class FuzzInput
{
public:
    FuzzInput(const std::uint8_t* data, std::size_t size)
        : m_rest(reinterpret_cast<const char*>(data), size)
    {}

    [[nodiscard]] bool isAtEnd() const { return m_rest.empty(); }

    unsigned int byte()
    {
        if (m_rest.empty())
            return 0;
        const auto value = static_cast<unsigned char>(m_rest.front());
        m_rest.remove_prefix(1);
        return value;
    }

    unsigned int upTo(unsigned int most) { return byte() % (most + 1); }

    std::string_view bytes(std::size_t most)
    {
        const std::string_view found = m_rest.substr(0, most);
        m_rest.remove_prefix(found.size());
        return found;
    }

    // The bytes up to the next newline, which is passed over, or to the end.
    std::string_view line()
    {
        const std::size_t end = m_rest.find('\n');
        const std::string_view found = m_rest.substr(0, end);
        m_rest.remove_prefix(end == m_rest.npos ? m_rest.size() : end + 1);
        return found;
    }

    std::string_view rest() { return bytes(m_rest.size()); }

private:
    std::string_view m_rest;
};

// Any bytes as wide characters other than null. Well-formed UTF-8 is what it says, and so are the
// forms of surrogates and of numbers above U+10FFFF. A byte 0xFF takes the four behind it as one
// character of any value; every other byte that fits nowhere stands for itself.
[[nodiscard]] std::wstring wideText(std::string_view bytes);

} // namespace fuzzing
