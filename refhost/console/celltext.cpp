#include "refhost/console/celltext.h"

#include <cwchar>
#include <cwctype>

namespace quelhost {

namespace {

constexpr wchar_t kDottedCircle = 0x25CC;

int widthOf(wchar_t character)
{
    return ::wcwidth(character);
}

bool isC1(wchar_t character)
{
    return character >= 0x80 && character <= 0x9F;
}

// The first character of `text` with the ones that combine with it.
std::wstring_view firstCluster(std::wstring_view text)
{
    std::size_t length = 1;
    if (widthOf(text.front()) >= 0) {
        while (length < text.size() && isCombining(text[length]))
            ++length;
    }
    return text.substr(0, length);
}

} // namespace

bool isCombining(wchar_t character)
{
    return character != 0 && widthOf(character) == 0;
}

int columnsOf(wchar_t cell, int column)
{
    constexpr int tabStop = 8;
    if (cell == L'\t')
        return tabStop - column % tabStop;
    const auto character = static_cast<wint_t>(cell);
    if (character < 0x100 && std::iswcntrl(character) != 0)
        return 2; // as in ^A
    if (std::iswprint(character) != 0)
        return widthOf(cell);
    return character > 0xFFFF ? 8 : 7; // as in \U+ABCD
}

std::wstring CellText::toCells(std::wstring_view text)
{
    std::wstring cells;
    while (!text.empty()) {
        const std::wstring_view cluster = firstCluster(text);
        append(cells, cluster);
        text.remove_prefix(cluster.size());
    }
    return cells;
}

void CellText::append(std::wstring& cells, std::wstring_view cluster)
{
    const wchar_t base = cluster.front();
    if (cluster.size() == 1 && !isCombining(base) && !isStandIn(base)) {
        cells += base;
        return;
    }
    const auto known = m_known.find(cluster);
    if (known != m_known.end()) {
        cells += known->second;
        return;
    }
    StandIns& standIns = widthOf(base) == 2 ? m_wide : m_narrow;
    const auto next =
        static_cast<wchar_t>(standIns.first + static_cast<wchar_t>(standIns.texts.size()));
    if (next > standIns.last) {
        // None is left: drawn poorly, but kept.
        cells += cluster;
        return;
    }
    standIns.texts.emplace_back(cluster);
    m_known.emplace(cluster, next);
    cells += next;
}

bool CellText::isStandIn(wchar_t character) const
{
    const auto in = [character](const StandIns& standIns) {
        return character >= standIns.first && character <= standIns.last;
    };
    return in(m_narrow) || in(m_wide);
}

const std::wstring* CellText::textOf(wchar_t cell) const
{
    for (const StandIns* standIns : {&m_narrow, &m_wide}) {
        if (cell < standIns->first || cell > standIns->last)
            continue;
        const auto index = static_cast<std::size_t>(cell - standIns->first);
        return index < standIns->texts.size() ? &standIns->texts[index] : nullptr;
    }
    return nullptr;
}

std::wstring CellText::toText(std::wstring_view cells) const
{
    std::wstring text;
    for (const wchar_t cell : cells) {
        if (const std::wstring* whole = textOf(cell))
            text += *whole;
        else if (!isC1(cell))
            text += cell;
    }
    return text;
}

std::wstring CellText::toScreen(std::wstring_view cells) const
{
    std::wstring screen;
    for (const wchar_t cell : cells) {
        const std::wstring* whole = textOf(cell);
        if (whole == nullptr) {
            screen += cell;
            continue;
        }
        if (isCombining(whole->front()))
            screen += kDottedCircle;
        screen += *whole;
    }
    return screen;
}

} // namespace quelhost
