// Whole sessions on a profile: what is opened, in order, and told.
#include "tests/core/sessionfixture.h"
#include "tests/support/functioncommand.h"

#include <QFile>

#include <functional>
#include <string>
#include <vector>

using namespace quelhost;
using namespace quelhost::test;

namespace {

using Rows = std::vector<std::string>;

} // namespace

TEST_F(Sessions, ANewProfileHasEverything)
{
    EXPECT_EQ(run(), "Command: \n");
    EXPECT_EQ(bytesOf(inProfile("QUELD.cuix")), bytesOf(m_program.files().mainPackage));
    EXPECT_EQ(bytesOf(inProfile("QUELD.pgp")), bytesOf(m_program.files().aliasFile));
    EXPECT_EQ(listed(), "string " + inProfile("QUELD.cuix").toStdString());
}

TEST_F(Sessions, TheHostIsSetUpFromTheProfileAndTheOptions)
{
    m_options.variables.emplace_back(QStringLiteral("FILEDIA"), QStringLiteral("0"));
    m_options.language = QStringLiteral("de");
    {
        Result<std::unique_ptr<Session>> session = open({L"GETVAR MENUNAME", L"GETVAR FILEDIA"});
        ASSERT_TRUE(session);
        Host& host = session.value()->host();
        EXPECT_EQ(Host::current(), &host);
        EXPECT_NE(host.commands.find(QString::fromUtf8("MEN\xC3\x9CLADEN")), nullptr);
        EXPECT_EQ(host.aliases.commandFor(QStringLiteral("ml")), QStringLiteral("MENULOAD"));
        ASSERT_EQ(host.groups.groups().size(), 1U);
        EXPECT_EQ(host.groups.groups()[0].path, toWide(inProfile("QUELD.cuix")));
        session.value()->run();
    }
    const std::string printed = m_output.take();
    EXPECT_NE(printed.find("MENUNAME = " + inProfile("QUELD").toStdString() + "\n"),
              std::string::npos)
        << printed;
    EXPECT_NE(printed.find("FILEDIA = 0\n"), std::string::npos) << printed;

    m_options.variables.clear();
    EXPECT_NE(run({L"GETVAR FILEDIA"}).find("FILEDIA = 1\n"), std::string::npos);
}

TEST_F(Sessions, FilesAreSearchedInTheProfileAndThenInTheSupportFolders)
{
    const QString support = m_program.folder().file("support");
    ASSERT_TRUE(QDir().mkpath(support));
    m_options.supportFolders << support;
    Result<std::unique_ptr<Session>> session = open({L"FIND"});
    ASSERT_TRUE(session);
    for (const char* name : {"/both", "/only"})
        ASSERT_TRUE(setBytes(support + QString::fromLatin1(name), "s"));
    ASSERT_TRUE(setBytes(inProfile("both"), "p"));
    const auto found = [](IQuelBuildInCommandContext& context, const wchar_t* name) {
        wchar_t path[1024] = {};
        return context.findFile(name, path) == 0 ? toQString(path) : QStringLiteral("none");
    };
    QStringList paths;
    FunctionCommand find(L"FIND", [&](IQuelBuildInCommandContext& context) {
        paths << found(context, L"both") << found(context, L"only") << found(context, L"lost");
        return QuelStatus::kNormal;
    });
    ASSERT_EQ(session.value()->host().commands.addCommand(&find, 0), 0);
    session.value()->run();
    EXPECT_EQ(paths, (QStringList{inProfile("both"), support + QStringLiteral("/only"),
                                  QStringLiteral("none")}));
}

TEST_F(Sessions, WhatWasLoadedIsThereInTheNext)
{
    const std::wstring plant = writePackage(m_program.folder(), "plant.cuix", "PLANT");
    const std::wstring line = L"MENULOAD " + plant;
    const std::string loaded = run({line.c_str()});
    EXPECT_NE(loaded.find("success.group:PLANT"), std::string::npos) << loaded;
    EXPECT_EQ(listed(), "string " + inProfile("QUELD.cuix").toStdString() + ";" + toUtf8(plant));
    const std::string next = run({L"GROUPS"});
    EXPECT_NE(next.find("\nPLANT\n"), std::string::npos) << next;
}

TEST_F(Sessions, FilesNamedAtStartAreLoadedFirst)
{
    const std::wstring first = writePackage(m_program.folder(), "a b%1.cuix", "FIRST");
    const std::wstring second = writePackage(m_program.folder(), "second.cuix", "SECOND");
    const QString former = QDir::currentPath();
    ASSERT_TRUE(QDir::setCurrent(m_program.folder().path()));
    m_options.files << toQString(first) << QStringLiteral("second.cuix")
                    << QStringLiteral("lost.cuix");
    const std::string printed = run({L"ECHO done"});
    QDir::setCurrent(former);
    EXPECT_NE(printed.find("Loading \"" + toUtf8(first) + "\" success.group:FIRST"),
              std::string::npos)
        << printed;
    EXPECT_NE(printed.find("Loading \"" + toUtf8(second) + "\" success.group:SECOND"),
              std::string::npos)
        << printed;
    EXPECT_NE(printed.find("File not found:\"" +
                           m_program.folder().file("lost.cuix").toStdString() + "\""),
              std::string::npos)
        << printed;
    EXPECT_LT(printed.find("SECOND"), printed.find("ECHO done"));
    EXPECT_EQ(listed(), "string " + inProfile("QUELD.cuix").toStdString() + ";" + toUtf8(first) +
                            ";" + toUtf8(second));
}

TEST_F(Sessions, AnEntryWhoseFileIsMissingIsToldOnceAtStart)
{
    const std::wstring plant = writePackage(m_program.folder(), "plant.cuix", "PLANT");
    const std::wstring line = L"MENULOAD " + plant;
    run({line.c_str()});
    ASSERT_TRUE(QFile::remove(toQString(plant)));
    const Rows rows = rowsOf(run());
    ASSERT_EQ(rows.size(), 2U);
    EXPECT_NE(rows[0].find("plant.cuix"), std::string::npos) << rows[0];
}

TEST_F(Sessions, WhatMakesItImpossibleIsSaidInOneSentence)
{
    struct Row
    {
        const char* name;
        std::function<void(Options&, InstalledFiles&)> spoil;
        FaultKind kind;
        const char* said;
    };
    const Row rows[] = {
        {"a module that is not there",
         [](Options& options, InstalledFiles&) { options.modules << QStringLiteral("/lost.so"); },
         FaultKind::NotFound, "/lost.so"},
        {"the program's module is not there",
         [](Options&, InstalledFiles& files) { files.module = QStringLiteral("/own.so"); },
         FaultKind::NotFound, "/own.so"},
        {"the main file of new profiles is not there",
         [](Options&, InstalledFiles& files) { files.mainPackage = QStringLiteral("/main.cuix"); },
         FaultKind::NotFound, "/main.cuix"},
        {"the alias file of new profiles is not there",
         [](Options&, InstalledFiles& files) { files.aliasFile = QStringLiteral("/QUELD.pgp"); },
         FaultKind::NotFound, "/QUELD.pgp"},
        {"a variable that there is not",
         [](Options& options, InstalledFiles&) {
             options.variables.emplace_back(QStringLiteral("COLOUR"), QStringLiteral("1"));
         },
         FaultKind::NotFound, "COLOUR"},
        {"a profile below a file",
         [](Options& options, InstalledFiles& files) {
             options.profile = files.aliasFile + QStringLiteral("/profile");
         },
         FaultKind::Io, "QUELD.pgp/profile"},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        const Options good = m_options;
        row.spoil(m_options, m_files);
        const Result<std::unique_ptr<Session>> session = open();
        ASSERT_FALSE(session);
        EXPECT_EQ(session.fault().kind, row.kind);
        EXPECT_NE(session.fault().text().indexOf(QString::fromLatin1(row.said)), -1)
            << session.fault().text().toStdString();
        EXPECT_EQ(Host::current(), nullptr);
        EXPECT_EQ(m_output.take(), "");
        m_options = good;
        m_files = m_program.files();
        EXPECT_EQ(run({L"QUIT"}), "Command: QUIT\n");
    }
}

TEST_F(Sessions, WithoutLinesThereIsNone)
{
    const auto noLines = [](const Profile&) -> Result<std::unique_ptr<LineSource>> {
        return Fault{FaultKind::NotFound, QStringLiteral("There is no script."), {}, 0, 0};
    };
    const Result<std::unique_ptr<Session>> session =
        Session::open(m_options, m_program.files(), noLines, m_output, false);
    ASSERT_FALSE(session);
    EXPECT_EQ(session.fault().sentence, QStringLiteral("There is no script."));
}

TEST(InstalledFiles, LieBesideTheProgram)
{
    const ScratchFolder prefix;
    const InstalledFiles built = InstalledFiles::beside(prefix.file("bin"));
    EXPECT_EQ(built.resources, prefix.file("share/quelhost/resources"));
    EXPECT_EQ(built.help, prefix.file("share/quelhost/help"));
    EXPECT_EQ(built.module, prefix.file("lib/libVxCuiCmds.so"));
    EXPECT_EQ(built.window, prefix.file("lib/libquelhost_window.so"));
    EXPECT_EQ(built.mainPackage, prefix.file("share/quelhost/examples/queld.cuix"));
    EXPECT_EQ(built.aliasFile, prefix.file("share/quelhost/examples/QUELD.pgp"));

    const QString libraries =
        QDir::cleanPath(prefix.file("bin/" QUELHOST_LIBRARIES)) + QLatin1Char('/');
    ASSERT_TRUE(QDir().mkpath(libraries));
    for (const char* library : {"libVxCuiCmds.so", "libquelhost_window.so"})
        ASSERT_TRUE(setBytes(libraries + QLatin1String(library), "x"));
    const InstalledFiles installed = InstalledFiles::beside(prefix.file("bin"));
    EXPECT_EQ(installed.module, libraries + QLatin1String("libVxCuiCmds.so"));
    EXPECT_EQ(installed.window, libraries + QLatin1String("libquelhost_window.so"));
}
