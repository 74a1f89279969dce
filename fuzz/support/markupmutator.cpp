// Changes markup as its writers do: beside the search's own changes of bytes, whole values and tags
// are put in place of others, taken out or doubled. Most texts that are changed byte by byte break
// at their brackets, and what lies behind those is hardly ever reached.
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <random>
#include <string>
#include <string_view>
#include <vector>

extern "C" std::size_t LLVMFuzzerMutate(std::uint8_t* data, std::size_t size, std::size_t maxSize);

namespace {

struct Span
{
    std::size_t begin = 0;
    std::size_t length = 0;
};

// From each `open` to the next `close` behind it, both included.
std::vector<Span> spans(std::string_view text, char open, char close)
{
    std::vector<Span> found;
    for (std::size_t begin = text.find(open); begin != text.npos;) {
        const std::size_t end = text.find(close, begin + 1);
        if (end == text.npos)
            break;
        found.push_back({begin, end + 1 - begin});
        begin = text.find(open, end + 1);
    }
    return found;
}

class MarkupChange
{
public:
    MarkupChange(std::string_view text, unsigned int seed)
        : m_text(text)
        , m_random(seed)
    {}

    // The changed text; the same where there is nothing to change.
    std::string change()
    {
        const bool isValue = oneOf(2) == 0;
        const std::vector<Span> all = isValue ? spans(m_text, '"', '"') : spans(m_text, '<', '>');
        if (all.empty())
            return std::string(m_text);
        const Span from = all[oneOf(all.size())];
        Span to = all[oneOf(all.size())];
        std::string_view with = m_text.substr(from.begin, from.length);
        // A tag may also go, or stand in front of another one.
        const std::size_t way = isValue ? 0 : oneOf(3);
        if (way == 1)
            with = {};
        if (way == 2)
            to.length = 0;
        std::string changed(m_text);
        return changed.replace(to.begin, to.length, with);
    }

private:
    std::size_t oneOf(std::size_t choices)
    {
        return std::uniform_int_distribution<std::size_t>(0, choices - 1)(m_random);
    }

    std::string_view m_text;
    std::minstd_rand m_random;
};

} // namespace

extern "C" std::size_t LLVMFuzzerCustomMutator(std::uint8_t* data, std::size_t size,
                                               std::size_t maxSize, unsigned int seed)
{
    // Half of all changes are the search's own alone, and half of the others have one behind them.
    constexpr unsigned int ways = 4;
    if (seed % ways >= 2)
        return LLVMFuzzerMutate(data, size, maxSize);
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    const std::string changed = MarkupChange(text, seed / ways).change().substr(0, maxSize);
    std::copy(changed.begin(), changed.end(), data);
    return seed % ways == 0 ? changed.size() : LLVMFuzzerMutate(data, changed.size(), maxSize);
}
