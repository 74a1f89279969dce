// The customization editors as commands open them.
#include "host/editors.h"

#include "refhost/core/widetext.h"
#include "tests/support/functioncommand.h"
#include "tests/support/testhost.h"

#include <gtest/gtest.h>

#include <climits>
#include <string>
#include <vector>

using namespace quelhost;
using namespace quelhost::test;

namespace {

// A face that notes which editor is opened and answers what a test says.
class NotingFace final : public Face
{
public:
    [[nodiscard]] int askBox(const BoxRequest&) override { return 0; }
    [[nodiscard]] std::optional<PickedFile> pickFile(const FileRequest&) override { return {}; }
    void showHelp(const QString&) override {}
    [[nodiscard]] std::optional<int> openEditor(CustomizationEditor editor) override
    {
        opened.push_back(editor);
        return answer;
    }

    std::vector<CustomizationEditor> opened;
    std::optional<int> answer = 5100;
};

constexpr char kInside[] =
    "<commands><command id=\"pump\" text=\"&amp;Pump\" macro=\"ECHO\"/></commands>"
    "<toolbars><toolbar id=\"t\" text=\"&amp;Bar\"><item command=\"pump\"/></toolbar></toolbars>"
    "<accelerators><accelerator command=\"pump\" keys=\"Ctrl+P\"/></accelerators>";

TestHostKind withDisplay(Typist typist)
{
    return {typist, true, false, QStringLiteral("en"), SettingsAccess::ReadWrite, {}};
}

// A host that shows the group PLANT.
struct HostEditors : testing::Test
{
    void start(const TestHostKind& kind)
    {
        test.reset();
        test = std::make_unique<TestHost>(std::initializer_list<const wchar_t*>{}, kind);
        const std::wstring file = writePackage(test->profile, "plant.cuix", "PLANT", kInside);
        QuString group;
        ASSERT_TRUE(test->host->groups.loadMenuFile(QuString(file.c_str()), group));
        test->host->setFace(face);
    }
    std::string printedBy(int editor)
    {
        EXPECT_EQ(vxExcuteWSCommand(editor, nullptr, nullptr), 5100);
        return test->output.take();
    }

    NotingFace face;
    std::unique_ptr<TestHost> test;
};

const std::string kKeys = "COMMAND  KEY     GROUP  CHANGED\npump     Ctrl+P  PLANT  no\n";
const std::string kToolbars = "TITLE  GROUP  COMMANDS  CHANGED\nBar    PLANT  pump      no\n";

} // namespace

TEST_F(HostEditors, AreOpenedByTheFace)
{
    start(withDisplay(Typist::Person));
    EXPECT_EQ(printedBy(1), "");
    EXPECT_EQ(printedBy(2), "");
    EXPECT_EQ(face.opened, (std::vector<CustomizationEditor>{CustomizationEditor::Accelerators,
                                                             CustomizationEditor::Toolbars}));
}

TEST_F(HostEditors, PassTheirStatusOn)
{
    start(withDisplay(Typist::Person));
    for (const int status : {5100, -5002, -5001}) {
        face.answer = status;
        EXPECT_EQ(vxExcuteWSCommand(1, nullptr, nullptr), status);
        EXPECT_EQ(vxExcuteWSCommand(2, L"one", L"two"), status);
    }
    EXPECT_EQ(test->output.take(), "");
}

TEST_F(HostEditors, PrintTablesWhereTheFaceHasNone)
{
    start(withDisplay(Typist::Person));
    face.answer = std::nullopt;
    EXPECT_EQ(printedBy(1), kKeys);
    EXPECT_EQ(printedBy(2), kToolbars);
    EXPECT_EQ(face.opened.size(), 2U);
}

TEST_F(HostEditors, PrintTablesInTheTextFace)
{
    start(withDisplay(Typist::Person));
    test = nullptr;
    test = std::make_unique<TestHost>();
    EXPECT_EQ(printedBy(1), "No command of the loaded menu groups has a key.\n");
    EXPECT_EQ(printedBy(2), "There are no toolbars.\n");
}

TEST_F(HostEditors, PrintTablesToScriptsAndInCallsWithoutDialogs)
{
    FunctionCommand opening(L"OPENING", [](IQuelBuildInCommandContext&) {
        return vxExcuteWSCommand(1, nullptr, nullptr);
    });
    start(withDisplay(Typist::Script));
    ASSERT_EQ(test->host->commands.addCommand(&opening, 0), 0);
    test->lines.add(L"OPENING");
    EXPECT_EQ(test->run(), "Command: OPENING\n" + kKeys + "Command: \n");

    start(withDisplay(Typist::Person));
    ASSERT_EQ(test->host->commands.addCommand(&opening, 0), 0);
    EXPECT_EQ(test->runPrepared("OPENING", {}), 5100);
    EXPECT_EQ(test->output.take(), kKeys);
    EXPECT_TRUE(face.opened.empty());
    test->lines.add(L"OPENING");
    EXPECT_EQ(test->run(), "Command: OPENING\nCommand: \n");
    EXPECT_EQ(face.opened.size(), 1U);
}

TEST_F(HostEditors, DoNotExistByAnyOtherNumber)
{
    start(withDisplay(Typist::Person));
    for (const int editor : {0, 3, -1, 60005, INT_MIN, INT_MAX})
        EXPECT_EQ(vxExcuteWSCommand(editor, nullptr, nullptr), -5001) << editor;
    EXPECT_TRUE(face.opened.empty());
    EXPECT_EQ(test->output.take(), "");
}
