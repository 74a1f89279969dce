#include "refhost/core/session.h"

#include "refhost/core/settingsstore.h"
#include "refhost/core/widetext.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QLocale>

namespace quelhost {

namespace {

Result<QByteArray> contentOf(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return Fault{FaultKind::NotFound, qtTrId("session-file-lost").arg(path), {}, 0, 0};
    return file.readAll();
}

std::wstring withoutExtension(const QString& path)
{
    const QFileInfo info(path);
    return toWide(QDir(info.path()).filePath(info.completeBaseName()));
}

} // namespace

InstalledFiles InstalledFiles::beside(const QString& programFolder)
{
    const auto path = [&programFolder](const char* folder, const char* name) {
        return QDir::cleanPath(QDir(programFolder).absoluteFilePath(QString::fromUtf8(folder)) +
                               QLatin1Char('/') + QLatin1String(name));
    };
    // A build has the folders of this project, an installation those it was configured with.
    const auto file = [&path](const char* installed, const char* built, const char* name) {
        const QString there = path(installed, name);
        return QFileInfo::exists(there) ? there : path(built, name);
    };
    const auto library = [&file](const char* name) {
        return file(QUELHOST_LIBRARIES, "../lib", name);
    };
    const auto shared = [&file](const char* name) {
        return file(QUELHOST_SHARE, "../share/quelhost", name);
    };
    return {shared("resources"),          shared("help"),
            library("libVxCuiCmds.so"),   shared("examples/queld.cuix"),
            shared("examples/QUELD.pgp"), library("libquelhost_window.so")};
}

Session::Session(const Options& options, Output& output)
    : m_options(options)
    , m_output(output)
{}

Session::~Session() = default;

Result<std::unique_ptr<Session>> Session::open(const Options& options, const InstalledFiles& files,
                                               const MakeLines& makeLines, Output& output,
                                               bool hasDisplay)
{
    std::unique_ptr<Session> session(new Session(options, output));
    const Status opened = session->openProfile(files);
    if (!opened)
        return opened.fault();
    const Status started = session->startHost(files, makeLines, hasDisplay);
    if (!started)
        return started.fault();
    return session;
}

Status Session::openProfile(const InstalledFiles& files)
{
    const QString folder =
        m_options.profile.isEmpty() ? Profile::defaultFolder() : m_options.profile;
    Result<std::unique_ptr<Profile>> profile = Profile::open(folder);
    if (!profile)
        return profile.fault();
    m_profile = std::move(profile.value());
    tell(m_profile->notices());

    const Result<QByteArray> mainPackage = contentOf(files.mainPackage);
    if (!mainPackage)
        return mainPackage.fault();
    const Result<QByteArray> aliasFile = contentOf(files.aliasFile);
    if (!aliasFile)
        return aliasFile.fault();
    if (m_profile->isNew()) {
        const Status written = m_profile->writeStarterFiles(mainPackage.value(), aliasFile.value());
        if (!written)
            tell({written.fault().text()});
    }

    Result<std::unique_ptr<SettingsStore>> settings =
        SettingsStore::open(m_profile->folder(), m_profile->settingsAccess(),
                            [this](const QString& notice) { tell({notice}); });
    if (!settings)
        return settings.fault();
    m_settings = std::move(settings.value());

    const Result<std::vector<QString>> told =
        ensureMainFile(*m_profile, *m_settings, mainPackage.value());
    if (!told)
        return told.fault();
    tell(told.value());
    return Done{};
}

Status Session::startHost(const InstalledFiles& files, const MakeLines& makeLines, bool hasDisplay)
{
    Result<std::unique_ptr<LineSource>> lines = makeLines(*m_profile);
    if (!lines)
        return lines.fault();
    m_lines = std::move(lines.value());
    m_host = std::make_unique<Host>(
        HostSetup{*m_settings, *m_lines, m_output, files.resources, m_options.language,
                  m_profile->aliasFile(), withoutExtension(m_profile->mainFile()),
                  QStringList{m_profile->folder()} + m_options.supportFolders, files.help,
                  hasDisplay, m_options.reportStatus});
    for (const auto& [name, value] : m_options.variables) {
        const Status set = m_host->variables.set(name, value);
        if (!set)
            return set.fault();
    }
    const QStringList modules =
        m_options.modules.isEmpty() ? QStringList{files.module} : m_options.modules;
    for (const QString& module : modules) {
        const Status loaded = m_host->loadModule(module);
        if (!loaded)
            return loaded.fault();
    }
    m_host->aliases.initAliasNameList(true);
    m_host->groups.refresh();
    return Done{};
}

void Session::run()
{
    for (const QString& file : m_options.files)
        m_host->runCommandLineOnly(QStringLiteral("MENULOAD"),
                                   {toWide(QFileInfo(file).absoluteFilePath())});
    m_host->runSession();
    m_host.reset();
    const Status closed = m_settings->close();
    if (!closed)
        tell({closed.fault().text()});
}

void Session::tell(const std::vector<QString>& notices)
{
    for (const QString& notice : notices) {
        if (!m_told.contains(notice))
            m_output.writeRow(toWide(notice));
        m_told << notice;
    }
}

} // namespace quelhost
