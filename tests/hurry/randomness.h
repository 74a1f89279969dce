// Chance that can be repeated, and what it led to.
#pragma once

#include <algorithm>
#include <iterator>
#include <random>
#include <string>
#include <vector>

namespace hurry {

class Random
{
public:
    explicit Random(unsigned int seed)
        : m_engine(seed)
    {}

    // 0 up to, and without, `end`.
    [[nodiscard]] std::size_t below(std::size_t end)
    {
        return static_cast<std::size_t>(m_engine()) % end;
    }
    // True `times` out of a hundred.
    [[nodiscard]] bool percent(std::size_t times) { return below(100) < times; }
    template<class List>
    [[nodiscard]] const auto& of(const List& list)
    {
        const std::size_t place = below(static_cast<std::size_t>(std::size(list)));
        return *(std::begin(list) + static_cast<std::ptrdiff_t>(place));
    }

private:
    std::mt19937 m_engine;
};

// What was done last, for who has to find out why a random test failed.
class LastDone
{
public:
    void add(const std::string& what)
    {
        m_all.push_back(shortened(what));
        if (m_all.size() > 2 * kMost)
            m_all.erase(m_all.begin(), m_all.begin() + kMost);
    }
    [[nodiscard]] std::string text() const
    {
        std::string rows;
        for (std::size_t i = m_all.size() > kMost ? m_all.size() - kMost : 0; i < m_all.size(); ++i)
            rows += "  " + m_all[i] + '\n';
        return rows;
    }

private:
    static constexpr std::ptrdiff_t kMost = 50;

    // What is no printable ASCII is shown by its number; of a long line the beginning.
    static std::string shortened(const std::string& what)
    {
        constexpr std::size_t kLongest = 200;
        constexpr char kDigits[] = "0123456789ABCDEF";
        std::string shown;
        for (const char byte : what.substr(0, kLongest)) {
            const auto number = static_cast<unsigned char>(byte);
            if (number >= 0x20 && number < 0x7F)
                shown += byte;
            else
                shown += std::string("\\x") + kDigits[number / 16] + kDigits[number % 16];
        }
        const std::size_t more = what.size() - std::min(what.size(), kLongest);
        return more == 0 ? shown : shown + "... and " + std::to_string(more) + " bytes";
    }

    std::vector<std::string> m_all;
};

} // namespace hurry
