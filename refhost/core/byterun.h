// How far a text goes on in the same way.
//
// Hostile texts have megabytes of one character, and what tests them must not cost much more than
// inflating them did. Both look at whole blocks without a branch for each byte, which compilers
// turn into a few instructions a block.
#pragma once

#include <cstddef>
#include <string_view>

namespace quelhost {

namespace byterun {

inline constexpr std::size_t kBlock = 64;

// Whether all of a block's bytes are such as `is` says.
template<typename Is>
[[nodiscard]] bool isBlockOf(const char* block, const Is& is)
{
    unsigned char others = 0;
    for (std::size_t i = 0; i < kBlock; ++i)
        others = static_cast<unsigned char>(others | (is(block[i]) ? 0U : 1U));
    return others == 0;
}

} // namespace byterun

// The number of bytes before the first that is not as `is` says.
template<typename Is>
[[nodiscard]] std::size_t leadingRun(std::string_view text, const Is& is)
{
    std::size_t at = 0;
    while (at + byterun::kBlock <= text.size() && byterun::isBlockOf(text.data() + at, is))
        at += byterun::kBlock;
    while (at < text.size() && is(text[at]))
        ++at;
    return at;
}

// The number of bytes behind the last that is not as `is` says.
template<typename Is>
[[nodiscard]] std::size_t trailingRun(std::string_view text, const Is& is)
{
    std::size_t left = text.size();
    while (left >= byterun::kBlock && byterun::isBlockOf(text.data() + left - byterun::kBlock, is))
        left -= byterun::kBlock;
    while (left > 0 && is(text[left - 1]))
        --left;
    return text.size() - left;
}

} // namespace quelhost
