#include "refhost/core/filesearch.h"

#include "refhost/core/widetext.h"
#include "tests/core/settingssupport.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>

#include <sys/stat.h>

using namespace quelhost;
using namespace quelhost::test;

namespace {

// The process's current folder, until it goes.
class CurrentFolder
{
public:
    explicit CurrentFolder(const QString& folder)
        : m_former(QDir::currentPath())
        , m_entered(QDir::setCurrent(folder))
    {}
    ~CurrentFolder() { QDir::setCurrent(m_former); }
    CurrentFolder(const CurrentFolder&) = delete;
    CurrentFolder& operator=(const CurrentFolder&) = delete;

    [[nodiscard]] bool entered() const { return m_entered; }

private:
    const QString m_former;
    const bool m_entered;
};

class FileSearchTest : public testing::Test
{
protected:
    void SetUp() override
    {
        ASSERT_TRUE(m_here.entered());
        ASSERT_TRUE(QDir().mkpath(m_first.file("sub")));
        ASSERT_TRUE(setBytes(m_current.file("everywhere"), "c"));
        for (const char* name : {"everywhere", "both", "first \xC3\xA9;", "sub/inner"})
            ASSERT_TRUE(setBytes(in(m_first, name), "1"));
        for (const char* name : {"everywhere", "both", "second", "sub"})
            ASSERT_TRUE(setBytes(m_second.file(name), "2"));
    }

    static QString in(const ScratchFolder& folder, const char* name)
    {
        return folder.path() + QLatin1Char('/') + QString::fromUtf8(name);
    }

    // The file that is found, "none" without one.
    [[nodiscard]] std::wstring found(const QString& name) const
    {
        return m_search.find(toWide(name)).value_or(L"none");
    }
    [[nodiscard]] std::wstring found(const char* name) const
    {
        return found(QString::fromUtf8(name));
    }

    ScratchFolder m_current;
    ScratchFolder m_first;
    ScratchFolder m_second;
    CurrentFolder m_here{m_current.path()};
    FileSearch m_search{{m_first.path(), m_second.path()}};
};

} // namespace

TEST_F(FileSearchTest, TheCurrentFolderComesFirstThenTheOthersInTheirOrder)
{
    EXPECT_EQ(found("everywhere"), toWide(in(m_current, "everywhere")));
    EXPECT_EQ(found("both"), toWide(in(m_first, "both")));
    EXPECT_EQ(found("second"), toWide(in(m_second, "second")));
    EXPECT_EQ(found("first \xC3\xA9;"), toWide(in(m_first, "first \xC3\xA9;")));
    EXPECT_EQ(found("sub/inner"), toWide(in(m_first, "sub/inner")));
    EXPECT_EQ(found("nowhere"), L"none");
    EXPECT_EQ(found(""), L"none");
}

TEST_F(FileSearchTest, AFolderIsNoFile)
{
    // The first folder has a folder of that name, the second a file.
    EXPECT_EQ(found("sub"), toWide(in(m_second, "sub")));
    EXPECT_EQ(found("."), L"none");
    EXPECT_EQ(found(m_first.path()), L"none");
}

TEST_F(FileSearchTest, AnAbsoluteNameIsTakenAsItIs)
{
    EXPECT_EQ(found(in(m_second, "both")), toWide(in(m_second, "both")));
    EXPECT_EQ(found(in(m_second, "nowhere")), L"none");
    EXPECT_EQ(found("/everywhere"), L"none");
    EXPECT_EQ(found(in(m_first, "sub/../both")), toWide(in(m_first, "sub/../both")));
}

TEST_F(FileSearchTest, TheWayBackOutOfALinkedFolderIsTheSystems)
{
    // first/link leads to second/deep, so first/link/../second is second/second.
    ASSERT_TRUE(QDir().mkpath(m_second.file("deep")));
    ASSERT_TRUE(QFile::link(m_second.file("deep"), m_first.file("link")));
    const std::wstring file = found(in(m_first, "link/../second"));
    ASSERT_NE(file, L"none");
    EXPECT_EQ(bytesOf(toQString(file)), QByteArray("2"));
    EXPECT_EQ(bytesOf(toQString(found("link/../second"))), QByteArray("2"));
}

TEST_F(FileSearchTest, ALinkToAFileIsOneAndABrokenOneIsNot)
{
    ASSERT_TRUE(QFile::link(m_second.file("second"), m_first.file("alias")));
    ASSERT_TRUE(QFile::link(m_second.file("gone"), m_first.file("broken")));
    EXPECT_EQ(found("alias"), toWide(in(m_first, "alias")));
    EXPECT_EQ(found("broken"), L"none");
}

TEST_F(FileSearchTest, SearchFoldersMayBeRelative)
{
    ASSERT_TRUE(QDir().mkpath(m_current.file("support")));
    ASSERT_TRUE(setBytes(m_current.file("support/only"), "s"));
    const FileSearch search({QStringLiteral("support")});
    EXPECT_EQ(search.find(L"only"), toWide(in(m_current, "support/only")));
}

TEST_F(FileSearchTest, WithoutFoldersOnlyTheCurrentOneIsSearched)
{
    const FileSearch search({});
    EXPECT_EQ(search.find(L"everywhere"), toWide(in(m_current, "everywhere")));
    EXPECT_EQ(search.find(L"both"), std::nullopt);
}
