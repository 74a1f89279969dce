// One session of the host on one profile: everything that is opened, in order, and closed again.
#pragma once

#include "refhost/core/host.h"
#include "refhost/core/options.h"
#include "refhost/core/profile.h"

#include <functional>
#include <memory>

namespace quelhost {

// Where the program's own files lie.
struct InstalledFiles
{
    QString resources;   // folder of the resource files
    QString help;        // folder of the help pages
    QString module;      // the command module that is loaded when none is named
    QString mainPackage; // what the main customization file of a new profile is made from
    QString aliasFile;   // likewise its alias file
    QString window;      // the library of the window face

    // Relative to the folder of the program, as built and as installed.
    [[nodiscard]] static InstalledFiles beside(const QString& programFolder);
};

class Session
{
public:
    // Makes the source of lines for an opened profile.
    using MakeLines = std::function<Result<std::unique_ptr<LineSource>>(const Profile&)>;

    // Opens the profile and its settings, makes the host, loads the modules and shows the listed
    // groups. What is no obstacle is told through `output`. The fault is the one sentence that says
    // why there is no session.
    // REQUIRES: `output` outlives the session.
    [[nodiscard]] static Result<std::unique_ptr<Session>> open(const Options& options,
                                                               const InstalledFiles& files,
                                                               const MakeLines& makeLines,
                                                               Output& output, bool hasDisplay);

    ~Session();

    // Loads the files named on the command line, runs the session and ends it.
    void run();

    [[nodiscard]] Host& host() { return *m_host; }

private:
    Session(const Options& options, Output& output);

    [[nodiscard]] Status openProfile(const InstalledFiles& files);
    [[nodiscard]] Status startHost(const InstalledFiles& files, const MakeLines& makeLines,
                                   bool hasDisplay);
    // Each sentence once in the session, whatever led to it.
    void tell(const std::vector<QString>& notices);

    const Options m_options;
    Output& m_output;
    QStringList m_told; // sentences
    std::unique_ptr<Profile> m_profile;
    std::unique_ptr<SettingsStore> m_settings;
    std::unique_ptr<LineSource> m_lines;
    std::unique_ptr<Host> m_host;
};

} // namespace quelhost
