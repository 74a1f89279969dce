// A session of the host without a program around it: after each line of a person in a hurry the
// stored list and the shown groups are what the model says.
#include "refhost/core/session.h"
#include "refhost/core/settingsstore.h"
#include "refhost/core/widetext.h"
#include "tests/hurry/world.h"
#include "tests/support/testrounds.h"

#include <gtest/gtest.h>

#include <QDir>

using namespace hurry;
using quelhost::toUtf8;

namespace {

class NoOutput final : public quelhost::Output
{
protected:
    void put(const std::string&) override {}
};

std::string told(const std::vector<ListModel::Shown>& groups)
{
    std::string rows;
    for (const ListModel::Shown& shown : groups)
        rows += toUtf8(shown.group + L" of " + shown.path) + '\n';
    return rows;
}

// Types at random until the lines are used up, and looks at the host before each line.
class HurriedLines final : public quelhost::LineSource
{
public:
    HurriedLines(World& world, unsigned int& left, std::string& difference)
        : m_world(world)
        , m_left(left)
        , m_difference(difference)
    {}

    [[nodiscard]] quelhost::Line readLine(const quelhost::LineRequest& request) override
    {
        m_difference = m_difference.empty() ? difference(request) : m_difference;
        if (m_left == 0 || !m_difference.empty()) {
            m_world.model.end();
            return {};
        }
        --m_left;
        if (m_world.random.percent(5))
            m_world.changeFiles();
        return next();
    }
    [[nodiscard]] bool isScript() const override { return false; }

private:
    [[nodiscard]] std::string difference(const quelhost::LineRequest& request) const
    {
        const bool isCommand = request.completion == quelhost::Completion::Commands;
        if (isCommand != (m_world.model.prompt() == ConsoleModel::Prompt::Command))
            return "another prompt: " + toUtf8(request.prompt);
        const quelhost::Host& host = *quelhost::Host::current();
        std::vector<ListModel::Shown> shown;
        for (const quelhost::ShownGroup& group : host.groups.groups())
            shown.push_back({group.path, group.group.name.toStdWString(), group.unlisted});
        if (told(shown) != told(m_world.model.list().shown()))
            return "shown:\n" + told(shown) + "and not:\n" + told(m_world.model.list().shown());
        const std::vector<std::wstring> listed = host.groups.listedPaths();
        if (listed == listrules::partsOf(m_world.model.list().text()))
            return {};
        return "the list is not " + toUtf8(m_world.model.list().text());
    }

    // No line that would open a dialog: there is nothing here to show one.
    [[nodiscard]] quelhost::Line next()
    {
        const std::optional<std::wstring> text = textOf(m_world.nextLine(Avoid::Dialogs));
        if (!text)
            return {quelhost::Line::Kind::Cancel, {}};
        return {quelhost::Line::Kind::Text, *text};
    }

    World& m_world;
    unsigned int& m_left;
    std::string& m_difference;
};

} // namespace

TEST(HurriedSession, AfterEachLineTheListAndTheGroupsAreWhatTheyMustBe)
{
    World world(Typist::Person);
    const QString before = QDir::currentPath();
    ASSERT_TRUE(QDir::setCurrent(world.workFolder()));
    quelhost::Options options;
    options.profile = world.profile();
    options.language = QStringLiteral("en");
    quelhost::InstalledFiles files;
    files.resources = QStringLiteral(QUEL_RESOURCES);
    files.module = QStringLiteral(QUEL_MODULE);
    files.mainPackage = QStringLiteral(QUEL_EXAMPLES "/queld.cuix");
    files.aliasFile = QStringLiteral(QUEL_EXAMPLES "/QUELD.pgp");
    std::string difference;
    const unsigned int all = wantedRounds(1500);
    for (unsigned int left = all; left > 0 && difference.empty();) {
        NoOutput output;
        const auto makeLines = [&](const quelhost::Profile&) {
            return quelhost::Result<std::unique_ptr<quelhost::LineSource>>(
                std::make_unique<HurriedLines>(world, left, difference));
        };
        auto session = quelhost::Session::open(options, files, makeLines, output, false);
        ASSERT_TRUE(session) << session.fault().text().toStdString();
        const auto listed = session.value()->host().groups.listedPaths();
        std::wstring text;
        for (const std::wstring& entry : listed)
            text += (text.empty() ? L"" : L";") + entry;
        EXPECT_EQ(world.restart(text), "") << world.story();
        session.value()->run();
    }
    EXPECT_EQ(difference, "") << world.story();
    EXPECT_TRUE(world.hasLoadedAndUnloaded(all)) << world.story();
    QDir::setCurrent(before);
}
