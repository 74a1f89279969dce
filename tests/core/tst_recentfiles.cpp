// The customization files that were loaded last.
#include "refhost/core/recentfiles.h"

#include <gtest/gtest.h>

using namespace quelhost;

namespace {

QStringList numbered(int from, int to)
{
    QStringList names;
    for (int number = from; number != to + (from < to ? 1 : -1); number += from < to ? 1 : -1)
        names << QString::number(number);
    return names;
}

} // namespace

TEST(RecentFiles, AreNoneAtFirst)
{
    EXPECT_EQ(RecentFiles().paths(), QStringList());
}

TEST(RecentFiles, BeginWithTheLast)
{
    RecentFiles files;
    files.add(QStringLiteral("a"));
    files.add(QStringLiteral("b"));
    EXPECT_EQ(files.paths(), (QStringList{QStringLiteral("b"), QStringLiteral("a")}));
}

TEST(RecentFiles, StandThereOnce)
{
    RecentFiles files({QStringLiteral("a"), QStringLiteral("b")});
    files.add(QStringLiteral("b"));
    EXPECT_EQ(files.paths(), (QStringList{QStringLiteral("b"), QStringLiteral("a")}));
}

TEST(RecentFiles, AreTenAtMost)
{
    RecentFiles files;
    for (const QString& name : numbered(1, 12))
        files.add(name);
    EXPECT_EQ(files.paths(), numbered(12, 3));
}

TEST(RecentFiles, TakeFromAStoredListWhatTheyCanUse)
{
    const QStringList twice{QStringLiteral("1"), QString(), QStringLiteral("2"),
                            QStringLiteral("1")};
    EXPECT_EQ(RecentFiles(twice).paths(), numbered(1, 2));
    EXPECT_EQ(RecentFiles(numbered(1, 12)).paths(), numbered(1, 10));
}
