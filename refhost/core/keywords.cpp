#include "refhost/core/keywords.h"

#include <algorithm>
#include <numeric>
#include <utility>
#include <vector>

namespace quelhost {

namespace {

QString capitals(const QString& keyword)
{
    QString result;
    std::copy_if(keyword.begin(), keyword.end(), std::back_inserter(result),
                 [](QChar letter) { return letter.isUpper(); });
    return result;
}

bool standsFor(const QString& typed, const QString& keyword)
{
    if (typed.compare(keyword, Qt::CaseInsensitive) == 0)
        return true;
    const QString shortest = capitals(keyword);
    if (shortest.isEmpty() || typed.size() < shortest.size())
        return false;
    return typed.compare(shortest, Qt::CaseInsensitive) == 0 ||
           keyword.startsWith(typed, Qt::CaseInsensitive);
}

// How many letters must be put in, left out or replaced to turn one text into the other.
int distance(const QString& from, const QString& to)
{
    std::vector<int> row(static_cast<std::size_t>(to.size()) + 1);
    std::iota(row.begin(), row.end(), 0);
    for (int i = 0; i < from.size(); ++i) {
        int diagonal = std::exchange(row[0], i + 1);
        for (std::size_t j = 1; j < row.size(); ++j) {
            const int replaced = diagonal + (from.at(i) == to.at(static_cast<int>(j) - 1) ? 0 : 1);
            diagonal = row[j];
            row[j] = std::min({replaced, row[j] + 1, row[j - 1] + 1});
        }
    }
    return row.back();
}

} // namespace

QString matchKeyword(const QStringList& keywords, const QString& typed)
{
    const auto found =
        std::find_if(keywords.begin(), keywords.end(),
                     [&typed](const QString& keyword) { return standsFor(typed, keyword); });
    return found == keywords.end() ? QString() : *found;
}

QStringList nearestNames(const QStringList& names, const QString& typed)
{
    constexpr int kMostNames = 3;
    constexpr int kLongestCompared = 64;
    const QString wanted = typed.left(kLongestCompared).toUpper();
    std::vector<std::pair<int, QString>> ranked;
    for (const QString& name : names) {
        const QString upper = name.toUpper();
        const bool begins = wanted.size() > 1 && upper.startsWith(wanted);
        const int differences = distance(wanted, upper);
        if (begins || differences <= std::max(1, static_cast<int>(upper.size()) / 3))
            ranked.emplace_back(begins ? 0 : differences, name);
    }
    std::sort(ranked.begin(), ranked.end());
    QStringList result;
    for (const auto& [rank, name] : ranked) {
        if (result.size() < kMostNames)
            result << name;
    }
    return result;
}

} // namespace quelhost
