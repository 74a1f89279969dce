// The reference host: everything that the host interface offers to modules, in one object.
#pragma once

#include "host/customization.h"
#include "host/prompts.h"
#include "refhost/core/aliases.h"
#include "refhost/core/commandrun.h"
#include "refhost/core/commandstore.h"
#include "refhost/core/crashrecorder.h"
#include "refhost/core/face.h"
#include "refhost/core/filesearch.h"
#include "refhost/core/hostcommand.h"
#include "refhost/core/modulerecord.h"
#include "refhost/core/output.h"
#include "refhost/core/prompts.h"
#include "refhost/core/resources.h"
#include "refhost/core/shownmenugroups.h"
#include "refhost/core/storedconfig.h"
#include "refhost/core/textface.h"
#include "refhost/core/usercustomization.h"
#include "refhost/core/variables.h"

#include <deque>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace quelhost {

class SettingsStore;

// What a host is set up with. Everything borrowed outlives the host.
struct HostSetup
{
    SettingsStore& settings;
    LineSource& lines;
    Output& output;
    QString resourceFolder;
    QString language;
    QString aliasFile;
    std::wstring mainMenuName; // what MENUNAME starts with
    QStringList searchFolders;
    QString helpFolder;
    bool hasDisplay = false;
    bool reportStatus = false;
};

// What quedInitGet set up for the next prompt.
struct PromptOptions
{
    int flags = 0;
    QStringList keywords;
};

// The functions of src/host/ serve the host that was made last; there is one in a program.
class Host final : private QuelAppInterface
{
public:
    explicit Host(const HostSetup& setup);
    ~Host();
    Host(const Host&) = delete;
    Host& operator=(const Host&) = delete;

    // The host that is alive, or null.
    [[nodiscard]] static Host* current();

    // Loads a command module and registers its commands.
    [[nodiscard]] Status loadModule(const QString& path);

    // Asks for commands and runs them until the input ends or QUIT is given.
    void runSession();

    // Runs one command by its global name with prepared answers and without dialogs: its prompts
    // are answered with these, then cancelled. Returns its status.
    int runCommandLineOnly(const QString& globalName, std::deque<std::wstring> answers);

    // Tells the user about a fault.
    void report(const Fault& fault);

    // Whether a command that runs now may show dialogs.
    [[nodiscard]] bool dialogsAllowed() const { return !documentHasNoDialogs(); }
    [[nodiscard]] bool hasDisplay() const { return m_hasDisplay; }

    // How boxes, the file dialog and help are shown. In text until another face is given, which the
    // caller owns and which outlives its use.
    [[nodiscard]] Face& face() { return *m_face; }
    void setFace(Face& face) { m_face = &face; }

    // Opens a customization editor, or prints what it would show where dialogs are not allowed or
    // the face has no such editor. Returns the status of host/editors.h.
    int openEditor(CustomizationEditor editor);

    // The files that the running command is likely to be answered with, as they are typed.
    [[nodiscard]] QStringList expectedFiles() const;

    QuelCustomizationManager* customizationManager() override { return &groups; }
    QuelAppInterface* applicationInterface() { return this; }

    // The services, in the order in which they are set up.
    SettingsStore& settings;
    Output& output;
    Prompts prompts;
    Resources resources;
    Variables variables;
    StoredConfig config;
    ShownMenuGroups groups;
    UserCustomization customization;
    Aliases aliases;
    CrashRecorder crashRecorder;
    CommandStore commands;
    PromptOptions promptOptions;
    QuelDocumentData document{};

private:
    [[nodiscard]] bool documentHasNoDialogs() const;
    void runTyped(const QString& name);
    int run(IQuelCommandFactory& factory, bool commandLineOnly);
    void tellUnknown(const QString& name);
    [[nodiscard]] QStringList completionWords() const;

    TextFace m_textFace;
    Face* m_face = &m_textFace;
    const FileSearch m_files;
    const bool m_hasDisplay;
    const bool m_reportStatus;
    std::vector<std::unique_ptr<HostCommandFactory>> m_ownCommands;
    std::vector<std::unique_ptr<ModuleRecord>> m_modules;
    QString m_lastCommand;
    QString m_running; // global name of the command that runs, empty for none
};

} // namespace quelhost
