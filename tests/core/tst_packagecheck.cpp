#include "refhost/core/packagecheck.h"

#include "tests/support/packagebuilder.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <string>

using namespace quelhost;
using namespace packages;

namespace {

[[nodiscard]] bool writeFile(const QString& path, const QByteArray& bytes)
{
    QFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size();
}

// What is printed, without the folder.
std::string printed(const PackageCheck& check, const QTemporaryDir& dir)
{
    QString text = check.lines.join(QLatin1Char('\n'));
    return text.remove(dir.path() + QLatin1Char('/')).toStdString();
}

const char* const kPlant = R"(<customization><menugroup name="PLANT"><commands>
<command id="a" text="A" macro="x"/><command id="b" text="B" macro="x"/><command id="c" text="C" macro="x"/></commands>
<menus><menu id="m" text="M"><menu id="n" text="N"/></menu><menu id="o" text="O"/></menus>
<toolbars><toolbar id="t" text="T"/></toolbars>
<accelerators><accelerator command="a" keys="F1"/><accelerator command="a" keys="F2"/>
<accelerator command="b" keys="F3"/><accelerator command="c" keys="F4"/></accelerators>
</menugroup></customization>)";

const char* const kBad = R"(<customization>
  <menugroup name="%1 %2">
    <menus x="1"/>
  </menugroup>
</customization>)";

} // namespace

TEST(PackageCheck, tellsOfEachFileInTurn)
{
    const QTemporaryDir dir;
    const QString plant = dir.filePath(QStringLiteral("plant %1.cuix"));
    const QString bad = dir.filePath(QStringLiteral("bad.cuix"));
    const QString none = dir.filePath(QStringLiteral("none.cuix"));
    const QString small = dir.filePath(QStringLiteral("small.cuix"));
    ASSERT_TRUE(writeFile(plant, packageOf(kPlant)));
    ASSERT_TRUE(writeFile(bad, packageOf(kBad)));
    ASSERT_TRUE(writeFile(small, packageOf(customization())));

    struct Row
    {
        const char* name;
        QStringList paths;
        const char* printed;
        bool allGood;
    };
    const Row rows[] = {
        {"no file", {}, "", true},
        {"a good one",
         {plant},
         "plant %1.cuix: good: menu group \"PLANT\", commands: 3, menus: 2, toolbars: 1, "
         "accelerators: 4\n"
         "plant %1.cuix: adds 2 menus, 1 toolbar, 4 accelerators",
         true},
        {"a bad one",
         {bad},
         "bad.cuix:2:14: \"%1 %2\" is not a group name: 1 to 64 letters, digits, \"_\" and \"-\" "
         "are.\n"
         "bad.cuix:3:12: There is no attribute \"x\" of <menus>.",
         false},
        {"one that is missing", {none}, "none.cuix: There is no such file.", false},
        {"good, missing and good",
         {plant, none, small},
         "plant %1.cuix: good: menu group \"PLANT\", commands: 3, menus: 2, toolbars: 1, "
         "accelerators: 4\n"
         "plant %1.cuix: adds 2 menus, 1 toolbar, 4 accelerators\n"
         "none.cuix: There is no such file.\n"
         "small.cuix: good: menu group \"G\", commands: 0, menus: 0, toolbars: 0, accelerators: 0\n"
         "small.cuix: adds no menus, toolbars or accelerators",
         false},
        {"two good ones",
         {small, small},
         "small.cuix: good: menu group \"G\", commands: 0, menus: 0, toolbars: 0, accelerators: 0\n"
         "small.cuix: adds no menus, toolbars or accelerators\n"
         "small.cuix: good: menu group \"G\", commands: 0, menus: 0, toolbars: 0, accelerators: 0\n"
         "small.cuix: is loaded already",
         true},
    };
    for (const Row& row : rows) {
        const PackageCheck check = checkPackages(row.paths, {});
        EXPECT_EQ(printed(check, dir), row.printed) << row.name;
        EXPECT_EQ(check.allGood, row.allGood) << row.name;
    }
}

TEST(PackageCheck, tellsWhatLoadingChangesBesideWhatIsLoaded)
{
    const QTemporaryDir dir;
    const QString plant = dir.filePath(QStringLiteral("plant.cuix"));
    ASSERT_TRUE(writeFile(plant, packageOf(kPlant)));
    MenuGroup survey;
    survey.name = QStringLiteral("SURVEY");
    survey.accelerators = {{QStringLiteral("s"), QKeySequence(Qt::Key_F2)},
                           {QStringLiteral("s"), QKeySequence(Qt::Key_F4)},
                           {QStringLiteral("s"), QKeySequence(Qt::Key_F5)}};
    const PackageCheck check = checkPackages({plant}, {{{L"/t/survey.cuix", survey, false}}, {}});
    ASSERT_EQ(check.lines.size(), 2);
    EXPECT_EQ(check.lines.at(1), plant + QStringLiteral(": adds 2 menus, 1 toolbar, 2 accelerators;"
                                                        " F2, F4 stay with SURVEY"));
}

TEST(PackageCheck, tellsOfAGroupThatCannotBeShown)
{
    const QTemporaryDir dir;
    const QString first = dir.filePath(QStringLiteral("first.cuix"));
    const QString second = dir.filePath(QStringLiteral("second.cuix"));
    ASSERT_TRUE(writeFile(first, packageOf(kPlant)));
    ASSERT_TRUE(writeFile(second, packageOf(kPlant)));
    const PackageCheck check = checkPackages({first, second}, {});
    EXPECT_TRUE(check.allGood); // the file itself is
    ASSERT_EQ(check.lines.size(), 4);
    EXPECT_EQ(check.lines.at(3),
              second + QStringLiteral(": cannot be shown: its menu group PLANT is that of ") +
                  first);
}

TEST(PackageCheck, findsTheExamplesGood)
{
    const QDir examples(QStringLiteral(QUEL_EXAMPLES));
    QStringList paths;
    for (const QString& name : examples.entryList({QStringLiteral("*.cuix")}))
        paths.push_back(examples.filePath(name));
    EXPECT_GE(paths.size(), 3);
    const PackageCheck check = checkPackages(paths, {});
    EXPECT_TRUE(check.allGood) << check.lines.join(QLatin1Char('\n')).toStdString();
}
