// A command module and where it stands: loaded, initialized, registered, and back.
#pragma once

#include "host/commands.h"
#include "refhost/core/result.h"

#include <QString>

namespace quelhost {

// Each step checks the state it expects and undoes itself when it fails; taking down is setting up
// reversed. The destructor takes down whatever is up.
class ModuleRecord
{
public:
    enum class State {
        Unloaded,
        Loaded,      // the library is in the process and has its entry point
        Initialized, // the application object said that it is ready
        Registered,  // its commands are in the store
        Failed,      // a step failed; nothing of it is left in the process
    };

    explicit ModuleRecord(QString path);
    ~ModuleRecord();
    ModuleRecord(const ModuleRecord&) = delete;
    ModuleRecord& operator=(const ModuleRecord&) = delete;

    // Loads the library, initializes the application object and registers its commands. The fault
    // names the way it failed: no such file, not a library, symbols that this host lacks, no entry
    // point, or a module that is not ready. Without effect when it is up already.
    // REQUIRES: `store` outlives the record.
    [[nodiscard]] Status start(IQuelCommandStore& store);

    // Takes the module down. Without effect when it is not up.
    void stop();

    [[nodiscard]] State state() const { return m_state; }
    [[nodiscard]] const QString& path() const { return m_path; }

    // Sends a message to the application object when the module is up.
    void send(QuelCmdAppMsg message);

private:
    [[nodiscard]] Status load();
    [[nodiscard]] Status initialize();
    [[nodiscard]] Status fail(FaultKind kind, const QString& sentence);
    void unload();

    const QString m_path;
    State m_state = State::Unloaded;
    void* m_library = nullptr;
    IQuelCmdApplication* m_application = nullptr;
    IQuelCommandStore* m_store = nullptr;
};

} // namespace quelhost
