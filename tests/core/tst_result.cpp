#include "refhost/core/result.h"

#include <gtest/gtest.h>

#include <memory>

using namespace quelhost;

TEST(Fault, ItsTextIsTheSentenceBehindItsPlace)
{
    struct Row
    {
        const char* name;
        const char* file;
        qint64 line;
        qint64 column;
        const char* expected;
    };
    const Row rows[] = {
        {"no place", "", 0, 0, "It is bad."},
        {"a file alone", "plant.cuix", 0, 0, "plant.cuix: It is bad."},
        {"a place in a file", "plant.cuix", 12, 5, "plant.cuix:12:5: It is bad."},
        {"a percent sign in the name", "a%1b.cuix", 3, 4, "a%1b.cuix:3:4: It is bad."},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        const Fault fault{FaultKind::BadInput, QStringLiteral("It is bad."),
                          QString::fromLatin1(row.file), row.line, row.column};
        EXPECT_EQ(fault.text().toStdString(), row.expected);
    }
}

TEST(Result, HoldsAValueOrAFault)
{
    const Result<int> value = 7;
    ASSERT_TRUE(value);
    EXPECT_EQ(value.value(), 7);

    const Result<int> fault =
        Fault{FaultKind::Busy, QStringLiteral("Somebody holds it."), {}, 0, 0};
    ASSERT_FALSE(fault);
    EXPECT_EQ(fault.fault().kind, FaultKind::Busy);
}

TEST(Result, AValueCanBeMovedOut)
{
    Result<std::unique_ptr<int>> result = std::make_unique<int>(7);
    ASSERT_TRUE(result);
    const std::unique_ptr<int> taken = std::move(result.value());
    EXPECT_EQ(*taken, 7);
}
