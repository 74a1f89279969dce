// What the tests of whole sessions share: the program's files, and a profile to open.
#pragma once

#include "refhost/core/session.h"
#include "refhost/core/settingsstore.h"
#include "refhost/core/widetext.h"
#include "tests/support/testhost.h"

#include <gtest/gtest.h>

#include <QDir>

#include <initializer_list>
#include <memory>
#include <string>

namespace quelhost::test {

// A copy of the program's files, which everybody may read, and room for profiles.
class Installation
{
public:
    Installation()
    {
        for (const char* folder : {"VxCuiCmdsRes", "QUELDRes"}) {
            const QDir from(QStringLiteral(QUEL_RESOURCES "/") + QString::fromLatin1(folder));
            m_complete = QDir().mkpath(m_folder.file("res/") + from.dirName()) && m_complete;
            for (const QString& name : from.entryList({QStringLiteral("*.qm")}))
                m_complete = copyFile(from.filePath(name), m_folder.file("res/") + from.dirName() +
                                                               QLatin1Char('/') + name) &&
                             m_complete;
        }
        m_complete = copyFile(QStringLiteral(QUEL_MODULE), m_folder.file("module.so")) &&
                     copyFile(QStringLiteral(QUEL_EXAMPLES "/queld.cuix"), files().mainPackage) &&
                     copyFile(QStringLiteral(QUEL_EXAMPLES "/QUELD.pgp"), files().aliasFile) &&
                     m_complete;
    }

    [[nodiscard]] bool isComplete() const { return m_complete; }
    [[nodiscard]] InstalledFiles files() const
    {
        return {m_folder.file("res"),       m_folder.path(),
                m_folder.file("module.so"), m_folder.file("queld.cuix"),
                m_folder.file("QUELD.pgp"), {}};
    }
    [[nodiscard]] const ScratchFolder& folder() const { return m_folder; }

private:
    ScratchFolder m_folder;
    bool m_complete = true;
};

class Sessions : public testing::Test
{
protected:
    void SetUp() override
    {
        ASSERT_TRUE(m_program.isComplete());
        m_options.profile = m_program.folder().file("profile");
    }

    Result<std::unique_ptr<Session>> open(std::initializer_list<const wchar_t*> lines = {})
    {
        const auto makeLines = [&](const Profile&) -> Result<std::unique_ptr<LineSource>> {
            return std::unique_ptr<LineSource>(std::make_unique<ScriptedLines>(m_output, lines));
        };
        return Session::open(m_options, m_files, makeLines, m_output, false);
    }

    // Runs a session; what was printed from its opening to its end, or the fault that it is not
    // opened for.
    std::string run(std::initializer_list<const wchar_t*> lines = {})
    {
        Result<std::unique_ptr<Session>> session = open(lines);
        if (!session)
            return session.fault().text().toStdString();
        session.value()->run();
        session.value().reset();
        return m_output.take();
    }

    [[nodiscard]] QString inProfile(const char* name) const
    {
        return m_options.profile + QLatin1Char('/') + QString::fromLatin1(name);
    }

    [[nodiscard]] std::string listed() const
    {
        const auto store = openStore(m_options.profile, SettingsAccess::ReadOnly);
        return store ? valueIn(*store, L"CUIX/LoadedCuix") : "no store";
    }

    Installation m_program;
    InstalledFiles m_files = m_program.files();
    Options m_options;
    CollectedOutput m_output;
};

} // namespace quelhost::test
