// The menu of the files that were loaded last.
#include "refhost/window/recentfilesmenu.h"
#include "tests/support/packagebuilder.h"
#include "tests/window/groupsfixture.h"

#include <QFile>
#include <QTemporaryDir>

using namespace quelhost;
using namespace windowtest;

namespace {

class RecentFilesMenus : public testing::Test
{
protected:
    RecentFilesMenus()
    {
        QObject::connect(&m_menu, &RecentFilesMenu::fileWanted,
                         [this](const QString& path) { m_wanted << path; });
    }

    // A package with the smallest group, G.
    QString makeFile(const char* name)
    {
        QFile file(m_folder.filePath(QString::fromLatin1(name)));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(packages::packageOf(packages::customization()));
        return file.fileName();
    }
    // The items as the user sees them, "-" before those that cannot be chosen.
    Texts items()
    {
        emit m_menu.aboutToShow();
        Texts texts;
        for (const QAction* action : m_menu.actions())
            texts.push_back((action->isEnabled() ? "" : "-") + action->text().toStdString());
        return texts;
    }
    static ShownGroup shownFrom(const QString& path)
    {
        ShownGroup shown = group("G", {});
        shown.path = path.toStdWString();
        return shown;
    }

    const QTemporaryDir m_folder;
    RecentFilesMenu m_menu{QStringLiteral("Recent")};
    QStringList m_wanted;
};

const ShownGroup kMain = group("QUELD", {});

} // namespace

TEST_F(RecentFilesMenus, SayWhenThereAreNone)
{
    EXPECT_EQ(items(), (Texts{"-No file was loaded yet"}));
}

TEST_F(RecentFilesMenus, TakeNoteOfWhatIsLoadedButForTheMainFile)
{
    const QString file = makeFile("a & b.cuix");
    m_menu.follow(modelOf({kMain, shownFrom(file)}));
    EXPECT_EQ(items(), (Texts{"-&1  a && b.cuix (loaded)"}));
    m_menu.follow(modelOf({kMain}));
    EXPECT_EQ(items(), (Texts{"&1  a && b.cuix"}));
}

TEST_F(RecentFilesMenus, BeginWithTheFileLoadedLast)
{
    const QString first = makeFile("first.cuix");
    const QString second = makeFile("second.cuix");
    m_menu.follow(modelOf({kMain}));
    m_menu.follow(modelOf({kMain, shownFrom(first)}));
    m_menu.follow(modelOf({kMain}));
    m_menu.follow(modelOf({kMain, shownFrom(second)}));
    EXPECT_EQ(m_menu.files().paths(), (QStringList{second, first}));
    m_menu.follow(modelOf({kMain, shownFrom(first)}));
    EXPECT_EQ(m_menu.files().paths(), (QStringList{first, second}));
}

TEST_F(RecentFilesMenus, KeepTheirOrderAtAStartWithFilesThatTheyKnow)
{
    const QString first = makeFile("first.cuix");
    m_menu.setFiles(RecentFiles({QStringLiteral("/t/other.cuix"), first}));
    m_menu.follow(modelOf({kMain, shownFrom(first)}));
    EXPECT_EQ(m_menu.files().paths(), (QStringList{QStringLiteral("/t/other.cuix"), first}));
}

TEST_F(RecentFilesMenus, WantTheFileThatIsChosen)
{
    const QString file = makeFile("a.cuix");
    m_menu.setFiles(RecentFiles({file}));
    m_menu.follow(modelOf({kMain}));
    ASSERT_EQ(items(), (Texts{"&1  a.cuix"}));
    m_menu.actions().front()->trigger();
    EXPECT_EQ(m_wanted, QStringList(file));
}

TEST_F(RecentFilesMenus, MarkWhatIsMissing)
{
    m_menu.setFiles(RecentFiles({QStringLiteral("/nowhere/a.cuix")}));
    m_menu.follow(modelOf({kMain}));
    EXPECT_EQ(items(), (Texts{"-&1  a.cuix (missing)"}));
}

TEST_F(RecentFilesMenus, TellWhatLoadingWouldChangeWhenLookedAt)
{
    const QString file = makeFile("a.cuix");
    QFile bad(m_folder.filePath(QStringLiteral("bad.cuix")));
    ASSERT_TRUE(bad.open(QIODevice::WriteOnly));
    bad.close();
    m_menu.setFiles(RecentFiles({file, bad.fileName()}));
    m_menu.follow(modelOf({kMain}));
    ASSERT_EQ(items().size(), 2U);
    QAction& good = *m_menu.actions().at(0);
    EXPECT_EQ(good.toolTip(), file);
    good.hover();
    EXPECT_EQ(good.toolTip(), file + QStringLiteral("\nadds no menus, toolbars or accelerators"));
    QAction& refused = *m_menu.actions().at(1);
    refused.hover();
    EXPECT_NE(refused.statusTip(), bad.fileName());
    EXPECT_TRUE(refused.toolTip().startsWith(bad.fileName() + QLatin1Char('\n')));
}

TEST_F(RecentFilesMenus, AreGreyWhileACommandAsksAndSayWhy)
{
    m_menu.setFiles(RecentFiles({makeFile("a.cuix")}));
    m_menu.follow(modelOf({kMain}));
    m_menu.setCommandAsking(true);
    EXPECT_EQ(items(), (Texts{"-&1  a.cuix"}));
    EXPECT_EQ(m_menu.actions().front()->toolTip(), qtTrId("window-asking-first"));
    m_menu.setCommandAsking(false);
    EXPECT_EQ(items(), (Texts{"&1  a.cuix"}));
}

TEST_F(RecentFilesMenus, TheTenthHasALetterOfItsOwn)
{
    for (int number = 0; number < 10; ++number) {
        RecentFiles files = m_menu.files();
        files.add(QStringLiteral("/nowhere/%1.cuix").arg(number));
        m_menu.setFiles(files);
    }
    EXPECT_EQ(items().front(), "-&1  9.cuix (missing)");
    EXPECT_EQ(items().back(), "-1&0  0.cuix (missing)");
}

TEST_F(RecentFilesMenus, KnowTheMainFileEvenIfItIsNotShown)
{
    const QString file = makeFile("a.cuix");
    m_menu.follow(GroupModel({}, {shownFrom(file)}, {}, QStringLiteral("/t/main.cuix")));
    EXPECT_EQ(m_menu.files().paths(), QStringList(file));
}
