#include "refhost/core/packagefaults.h"

#include <gtest/gtest.h>

#include <string>

using namespace quelhost;

TEST(PackageFaults, givesFaultsInTheOrderOfTheirPlaces)
{
    PackageFaults faults(QStringLiteral("f"));
    faults.add({3, 1}, QStringLiteral("third"));
    faults.add({2, 9}, QStringLiteral("first"));
    faults.add({2, 10}, QStringLiteral("second"));
    faults.add({2, 9}, QStringLiteral("first again"));
    faults.add(QStringLiteral("no place"), FaultKind::Damaged);
    EXPECT_FALSE(faults.isEmpty());
    std::string text;
    for (const Fault& fault : faults.take())
        text += fault.text().toStdString() + "\n";
    EXPECT_EQ(text,
              "f: no place\nf:2:9: first\nf:2:9: first again\nf:2:10: second\nf:3:1: third\n");
    EXPECT_TRUE(faults.isEmpty());
}

TEST(PackageFaults, showsTextThatCannotHarmATerminal)
{
    struct Row
    {
        const char* name;
        QString text;
        QString shown;
    };
    const QString eighty(80, QLatin1Char('x'));
    const QString smiley = QString::fromUtf8("\xF0\x9F\x98\x80");
    const Row rows[] = {
        {"letters", QString::fromUtf8("P\xC3\xBCmpe 1"), QString::fromUtf8("P\xC3\xBCmpe 1")},
        {"escape", QStringLiteral("\x1B[2J"), QStringLiteral("\uFFFD[2J")},
        {"a line end", QStringLiteral("a\nb"), QStringLiteral("a\uFFFDb")},
        {"a turn of direction", QStringLiteral("a\u202Egnp"), QStringLiteral("a\uFFFDgnp")},
        {"a line separator", QStringLiteral("a\u2028b"), QStringLiteral("a\uFFFDb")},
        {"80 characters", eighty, eighty},
        {"81 characters", eighty + QLatin1Char('y'), eighty + QChar(0x2026)},
        {"80 characters of two units", smiley.repeated(80), smiley.repeated(80)},
        {"81 characters of two units", smiley.repeated(81), smiley.repeated(80) + QChar(0x2026)},
    };
    for (const Row& row : rows)
        EXPECT_EQ(shownText(row.text).toStdString(), row.shown.toStdString()) << row.name;
}

TEST(PackageFaults, findsControlCharacters)
{
    EXPECT_FALSE(hasControlCharacter(QStringLiteral("a b \u00E4\u200D")));
    EXPECT_TRUE(hasControlCharacter(QStringLiteral("a\tb")));
    EXPECT_TRUE(hasControlCharacter(QStringLiteral("a\u0085")));
}
