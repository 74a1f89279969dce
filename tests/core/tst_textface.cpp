// The face without a display: boxes, the file dialog and help on the command line.
#include "refhost/core/textface.h"

#include "host/messageboxes.h"
#include "tests/core/settingssupport.h"
#include "tests/support/scriptedlines.h"

#include <gtest/gtest.h>

#include <QDir>

#include <string>

using namespace quelhost;
using namespace quelhost::test;

namespace {

struct TextFaceParts
{
    explicit TextFaceParts(std::initializer_list<const wchar_t*> typed)
        : lines(output, typed)
        , prompts(lines, output)
        , face(prompts, output, {folder.path(), QStringLiteral("de_AT")})
    {}

    ScratchFolder folder;
    CollectedOutput output;
    ScriptedLines lines;
    Prompts prompts;
    TextFace face;
};

FileRequest request()
{
    return {QStringLiteral("Select Menu File"), {}, {QStringLiteral("All(*.*)")}, 2};
}

} // namespace

TEST(TextFace, ABoxIsAQuestion)
{
    TextFaceParts host{L"c"};
    EXPECT_EQ(host.face.askBox({L"Unload?", L"Quelhost", QuelBox::kOkCancel}), 2);
    EXPECT_EQ(host.output.text(), "Unload?\n[OK/Cancel]: c\n");
}

TEST(TextFace, AFileIsAPathUnderTheTitleOfTheDialog)
{
    TextFaceParts host{};
    const QString file = host.folder.file("a b.cuix");
    ASSERT_TRUE(setBytes(file, "x"));
    host.lines.add(L"  " + file.toStdWString() + L" ");
    const std::optional<PickedFile> picked = host.face.pickFile(request());
    ASSERT_TRUE(picked);
    EXPECT_EQ(picked->path, file);
    EXPECT_EQ(picked->filterIndex, 2);
    EXPECT_EQ(host.output.text().rfind("Select Menu File\n", 0), 0U);
    ASSERT_EQ(host.lines.requests.size(), 1U);
    EXPECT_EQ(host.lines.requests[0].completion, Completion::Paths);
}

TEST(TextFace, AQuotedPathIsTakenWithoutItsQuotes)
{
    TextFaceParts host{};
    const QString file = host.folder.file("a b.cuix");
    ASSERT_TRUE(setBytes(file, "x"));
    host.lines.add(L"\"" + file.toStdWString() + L"\"");
    const std::optional<PickedFile> picked = host.face.pickFile(request());
    ASSERT_TRUE(picked);
    EXPECT_EQ(picked->path, file);
}

TEST(TextFace, APathIsAskedForUntilItIsThatOfAFile)
{
    TextFaceParts host{};
    const QString file = host.folder.file("a.cuix");
    ASSERT_TRUE(setBytes(file, "x"));
    host.lines.add(host.folder.file("lost%1.cuix").toStdWString());
    host.lines.add(host.folder.path().toStdWString());
    host.lines.add(file.toStdWString());
    const std::optional<PickedFile> picked = host.face.pickFile(request());
    ASSERT_TRUE(picked);
    EXPECT_EQ(picked->path, file);
    EXPECT_EQ(host.lines.requests.size(), 3U);
    EXPECT_NE(host.output.text().find("lost%1.cuix"), host.output.text().rfind("lost%1.cuix"));
}

TEST(TextFace, EnterACancelAndTheEndPickNothing)
{
    TextFaceParts entered{L"", L"more"};
    EXPECT_FALSE(entered.face.pickFile(request()));
    EXPECT_EQ(entered.lines.unread(), 1U);
    TextFaceParts cancelled{L"/nowhere/lost.cuix", L"^C", L"more"};
    EXPECT_FALSE(cancelled.face.pickFile(request()));
    EXPECT_EQ(cancelled.lines.unread(), 1U);
    TextFaceParts ended{L"/nowhere/lost.cuix"};
    EXPECT_FALSE(ended.face.pickFile(request()));
}

TEST(TextFace, HelpIsAPageOfTextInTheUsersLanguage)
{
    TextFaceParts host{};
    ASSERT_TRUE(QDir(host.folder.path()).mkpath(QStringLiteral("en")));
    ASSERT_TRUE(setBytes(host.folder.file("en/VxMenuLoadDlg.html"),
                         "<h1>Load and unload</h1><p>Unload \xC3\xA9.</p>"));
    host.face.showHelp(QStringLiteral("VxMenuLoadDlg"));
    EXPECT_EQ(host.output.take(), "Load and unload\nUnload \xC3\xA9.\n");
    ASSERT_TRUE(QDir(host.folder.path()).mkpath(QStringLiteral("de")));
    ASSERT_TRUE(setBytes(host.folder.file("de/VxMenuLoadDlg.html"), "<p>Laden</p>"));
    host.face.showHelp(QStringLiteral("VxMenuLoadDlg"));
    EXPECT_EQ(host.output.take(), "Laden\n");
    host.face.showHelp(QStringLiteral("Lost%1"));
    EXPECT_NE(host.output.text().find("Lost%1"), std::string::npos) << host.output.text();
}
