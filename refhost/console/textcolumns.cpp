#include "refhost/console/textcolumns.h"

#include "refhost/core/cellwidth.h"
#include "refhost/core/widetext.h"

#include <algorithm>
#include <vector>

namespace quelhost {

std::wstring inColumns(const QStringList& texts, int width)
{
    constexpr int gap = 2;
    std::vector<std::wstring> cells;
    int widest = 0;
    for (const QString& text : texts) {
        cells.push_back(toWide(text));
        widest = std::max(widest, columnsOf(cells.back()));
    }
    // The last column needs no gap behind it, and the cell at the edge stays free.
    const int fitting = std::max((width - 1 + gap) / (widest + gap), 1);
    const auto columns = static_cast<std::size_t>(fitting);
    const std::size_t rows = (cells.size() + columns - 1) / columns;
    std::wstring result;
    for (std::size_t row = 0; row < rows; ++row) {
        for (std::size_t i = row; i < cells.size(); i += rows) {
            result += cells[i];
            const bool isLast = i + rows >= cells.size();
            if (!isLast)
                result.append(static_cast<std::size_t>(widest + gap - columnsOf(cells[i])), L' ');
        }
        result += L'\n';
    }
    return result;
}

} // namespace quelhost
