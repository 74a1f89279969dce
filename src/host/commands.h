// Command modules and commands: what a module implements for the host to call, and what the host
// hands it. The order of the virtual functions is the binary contract between the two: never
// reorder, insert or overload them. None of these classes has a virtual destructor except the
// command itself, because none is deleted through its interface.
#pragma once

#include "host/api.h"
#include "host/status.h"

// Messages that the host may send to a module's application object. A module ignores those it does
// not know.
enum QuelCmdAppMsg : int {
    kQuelSessionStarted = 1, // every module is loaded and the first prompt is about to be shown
    kQuelSessionEnding = 2,  // the last command has ended and modules are about to be unloaded
};

// Parameters of an action on a drawing entity; only hosts look inside.
class EntityParameters;

// What a command sees of the host while it runs.
class IQuelBuildInCommandContext
{
public:
    // Slot 1: the global name of the command that the user started. Valid for the run.
    virtual const wchar_t* globalName() const = 0;

    // Slot 2: whether this run must do without dialogs, whatever the system variables say.
    virtual bool isCommandLineOnly() const = 0;

    // Slot 3: makes the resource file `name` current for the run and returns whether it did. Scopes
    // nest: each leave undoes the most recent enter.
    virtual bool enterResourceScope(const wchar_t* name) = 0;

    // Slot 4: leaves the scope. `value` is 0.
    // REQUIRES: exactly one call for each enterResourceScope that returned true.
    virtual void leaveResourceScope(int value) = 0;

    // Slot 5: searches for the file `name` the way the host searches for files, and writes its full
    // path, at most 1023 characters and a null, into `result`. Returns 0 when found; otherwise
    // nonzero, and `result` is untouched.
    // REQUIRES: `result` has room for 1024 characters.
    virtual int findFile(const wchar_t* name, wchar_t* result) = 0;

protected:
    ~IQuelBuildInCommandContext() = default;
};

// Base of everything that the host's interface manager may hold. Empty, without virtual functions.
class IQuelGUIManagerClient
{};

// A command object: made by its factory for one run, released by it afterwards.
class IQuelBuildInCommand : public IQuelGUIManagerClient
{
public:
    // Slots 1 and 2.
    virtual ~IQuelBuildInCommand() = default;

    // Slot 3: an action on an entity. Commands that have none inherit this one, which does nothing
    // and returns normal completion.
    virtual int doAction(IQuelBuildInCommandContext* context, EntityParameters& parameters,
                         int value)
    {
        static_cast<void>(context);
        static_cast<void>(parameters);
        static_cast<void>(value);
        return QuelStatus::kNormal;
    }

    // Slot 4: runs the command and returns a status (host/status.h). `context` is the host's and
    // lives for the run.
    // REQUIRES: `context` is not null.
    virtual int execute(IQuelBuildInCommandContext* context) = 0;
};

// A registered command: its names, and the maker of its command objects. Owned by the module; the
// host borrows it from addCommand until removeCommand.
class IQuelCommandFactory
{
public:
    // Slot 1: a new command object, owned by the caller until it is handed to release().
    virtual IQuelBuildInCommand* create() = 0;

    // Slot 2: destroys an object of this factory's create(). Null is ignored.
    virtual void release(IQuelBuildInCommand* command) = 0;

    // Slots 3 and 4: a word of flags that belongs to the host. addFlags sets the bits of `flags`
    // when `set` is true and clears exactly those when it is false.
    virtual unsigned int flags() const = 0;
    virtual void addFlags(unsigned int flags, bool set) = 0;

    // Slots 5 to 8: the module's file name; the command's name in every language; its name in the
    // user's language, the global name when there is none; a description, perhaps empty. Never
    // null. Valid until the same function is called again or the factory is destroyed.
    virtual const wchar_t* module() const = 0;
    virtual const wchar_t* globalName() const = 0;
    virtual const wchar_t* localName() const = 0;
    virtual const wchar_t* description() const = 0;

    // Slot 9: a help topic other than the command's own, or null for none.
    virtual const wchar_t* helpTopicOverride() const { return nullptr; }

protected:
    ~IQuelCommandFactory() = default;
};

// The host's command store.
class IQuelCommandStore
{
public:
    // Slot 1: adds a command; the host borrows `factory` until it is removed. `value` is reserved
    // and 0. Returns 0 when added, 1 when the global name is taken (nothing changes then).
    virtual int addCommand(IQuelCommandFactory* factory, int value) = 0;

    // Slot 2: removes the command of that global name. Returns 0 when removed, 1 when not held.
    virtual int removeCommand(const wchar_t* globalName) = 0;

protected:
    ~IQuelCommandStore() = default;
};

// A module's application object. The host calls initialize, registCommand, later unregistCommand
// and uninitialize, and sends messages in between; it must have unregistered before it unloads the
// module, whose factories die with it.
class IQuelCmdApplication
{
public:
    // Slot 1: returns 1 when the module is ready.
    virtual int initialize() = 0;

    // Slots 2 and 3: add or remove all commands of the module; return the store's last result.
    // REQUIRES: `store` is not null.
    virtual int registCommand(IQuelCommandStore* store) = 0;
    virtual int unregistCommand(IQuelCommandStore* store) = 0;

    // Slot 4: the last call before the module is unloaded.
    virtual void uninitialize() = 0;

    // Slot 5: takes a message; what the parameters mean depends on it. Returns 0 when ignored.
    virtual int sendMessage(QuelCmdAppMsg message, void* param1, void* param2) = 0;

protected:
    ~IQuelCmdApplication() = default;
};

// The one function that the host looks up in a command module, by this name with C linkage. Returns
// the module's application object, the same at every call. Owned by the module; never null.
using GetQuelCmdApplicationFunction = IQuelCmdApplication* (*)();
