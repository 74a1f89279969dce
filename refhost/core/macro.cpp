#include "refhost/core/macro.h"

#include <algorithm>
#include <set>

namespace quelhost {

namespace {

constexpr QChar kOpen = u'{';
constexpr QChar kClose = u'}';

// The next brace at or behind `at`, or the end of the macro.
[[nodiscard]] int nextBrace(const QString& macro, int at)
{
    const auto found = std::find_if(macro.begin() + at, macro.end(), [](QChar character) {
        return character == kOpen || character == kClose;
    });
    return static_cast<int>(found - macro.begin());
}

class MacroReader
{
public:
    explicit MacroReader(const QString& macro)
        : m_macro(macro)
    {}

    [[nodiscard]] MacroReading read()
    {
        int at = 0;
        while (at < m_macro.size()) {
            const int brace = nextBrace(m_macro, at);
            if (brace > at)
                m_reading.steps.push_back({MacroStep::Kind::Type, m_macro.mid(at, brace - at)});
            at = brace < m_macro.size() ? takeBrace(brace) : brace;
        }
        m_reading.steps.push_back({MacroStep::Kind::Enter, {}});
        return std::move(m_reading);
    }

private:
    // Returns where to go on.
    int takeBrace(int brace)
    {
        if (m_macro.at(brace) == kClose) {
            m_reading.braceNotOpened = true;
            return brace + 1;
        }
        const int end = nextBrace(m_macro, brace + 1);
        if (end == m_macro.size() || m_macro.at(end) == kOpen) {
            m_reading.braceNotClosed = true;
            return end;
        }
        takeWord(m_macro.mid(brace, end + 1 - brace));
        return end + 1;
    }

    // `word` comes with its braces.
    void takeWord(const QString& word)
    {
        if (word == QLatin1String("{cancel}"))
            m_reading.steps.push_back({MacroStep::Kind::Cancel, {}});
        else if (word == QLatin1String("{enter}"))
            m_reading.steps.push_back({MacroStep::Kind::Enter, {}});
        else if (m_unknown.insert(word).second)
            m_reading.unknownWords.push_back(word);
    }

    const QString& m_macro;
    std::set<QString> m_unknown;
    MacroReading m_reading;
};

} // namespace

bool MacroReading::isGood() const
{
    return unknownWords.isEmpty() && !braceNotClosed && !braceNotOpened;
}

MacroReading readMacro(const QString& macro)
{
    return MacroReader(macro).read();
}

} // namespace quelhost
