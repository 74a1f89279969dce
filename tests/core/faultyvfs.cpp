#include "tests/core/faultyvfs.h"

#include <cstring>
#include <new>
#include <ostream>
#include <string_view>

#include <sqlite3.h>

namespace quelhost::test {

namespace {

struct State
{
    int calls = 0;
    int refused = 0;
    int refuseAt = 0; // 0: none
    int code = SQLITE_OK;
    FaultyVfs::Refusal refusal = FaultyVfs::Refusal::OneCall;
    int unsyncedLogWrites = 0;
    int logSyncs = 0;
};

State state;
sqlite3_vfs vfs;
sqlite3_vfs* realVfs = nullptr;

// Begins with what the library expects; the real file follows in the same block.
struct FaultyFile
{
    sqlite3_file base;
    bool log;
};

FaultyFile* ours(sqlite3_file* file)
{
    return reinterpret_cast<FaultyFile*>(file);
}

sqlite3_file* real(sqlite3_file* file)
{
    return reinterpret_cast<sqlite3_file*>(ours(file) + 1);
}

enum class Needs { Room, Nothing };

// What the call that comes now is to answer instead of being carried out; SQLITE_OK: carry it out.
int refusalOf(Needs needs)
{
    ++state.calls;
    if (state.refuseAt == 0)
        return SQLITE_OK;
    const bool once = state.refusal == FaultyVfs::Refusal::OneCall;
    const bool refuse = once ? state.calls == state.refuseAt
                             : state.calls >= state.refuseAt && needs == Needs::Room;
    state.refused += refuse ? 1 : 0;
    return refuse ? state.code : SQLITE_OK;
}

int closeFile(sqlite3_file* file)
{
    return real(file)->pMethods ? real(file)->pMethods->xClose(real(file)) : SQLITE_OK;
}

int readFile(sqlite3_file* file, void* bytes, int count, sqlite3_int64 offset)
{
    return real(file)->pMethods->xRead(real(file), bytes, count, offset);
}

int writeFile(sqlite3_file* file, const void* bytes, int count, sqlite3_int64 offset)
{
    if (const int code = refusalOf(Needs::Room); code != SQLITE_OK)
        return code;
    state.unsyncedLogWrites += ours(file)->log ? 1 : 0;
    return real(file)->pMethods->xWrite(real(file), bytes, count, offset);
}

int truncateFile(sqlite3_file* file, sqlite3_int64 size)
{
    if (const int code = refusalOf(Needs::Nothing); code != SQLITE_OK)
        return code;
    return real(file)->pMethods->xTruncate(real(file), size);
}

int syncFile(sqlite3_file* file, int flags)
{
    if (const int code = refusalOf(Needs::Nothing); code != SQLITE_OK)
        return code;
    if (ours(file)->log) {
        ++state.logSyncs;
        state.unsyncedLogWrites = 0;
    }
    return real(file)->pMethods->xSync(real(file), flags);
}

int fileSize(sqlite3_file* file, sqlite3_int64* size)
{
    return real(file)->pMethods->xFileSize(real(file), size);
}

int lockFile(sqlite3_file* file, int lock)
{
    return real(file)->pMethods->xLock(real(file), lock);
}

int unlockFile(sqlite3_file* file, int lock)
{
    return real(file)->pMethods->xUnlock(real(file), lock);
}

int checkReservedLock(sqlite3_file* file, int* result)
{
    return real(file)->pMethods->xCheckReservedLock(real(file), result);
}

int fileControl(sqlite3_file* file, int operation, void* argument)
{
    return real(file)->pMethods->xFileControl(real(file), operation, argument);
}

int sectorSize(sqlite3_file* file)
{
    return real(file)->pMethods->xSectorSize(real(file));
}

int deviceCharacteristics(sqlite3_file* file)
{
    return real(file)->pMethods->xDeviceCharacteristics(real(file));
}

int mapShared(sqlite3_file* file, int page, int size, int extend, void volatile** memory)
{
    // That an index is read-only means to the library that it is mapped; one that cannot be made is
    // told in another way.
    if (const int code = refusalOf(extend ? Needs::Room : Needs::Nothing); code != SQLITE_OK)
        return code == SQLITE_READONLY ? SQLITE_READONLY_CANTINIT : code;
    return real(file)->pMethods->xShmMap(real(file), page, size, extend, memory);
}

int lockShared(sqlite3_file* file, int offset, int count, int flags)
{
    return real(file)->pMethods->xShmLock(real(file), offset, count, flags);
}

void sharedBarrier(sqlite3_file* file)
{
    real(file)->pMethods->xShmBarrier(real(file));
}

int unmapShared(sqlite3_file* file, int remove)
{
    return real(file)->pMethods->xShmUnmap(real(file), remove);
}

const sqlite3_io_methods methods = {2,
                                    closeFile,
                                    readFile,
                                    writeFile,
                                    truncateFile,
                                    syncFile,
                                    fileSize,
                                    lockFile,
                                    unlockFile,
                                    checkReservedLock,
                                    fileControl,
                                    sectorSize,
                                    deviceCharacteristics,
                                    mapShared,
                                    lockShared,
                                    sharedBarrier,
                                    unmapShared,
                                    nullptr,
                                    nullptr};

int openFile(sqlite3_vfs*, const char* name, sqlite3_file* file, int flags, int* outFlags)
{
    FaultyFile* opened = new (file) FaultyFile();
    opened->log = (flags & SQLITE_OPEN_WAL) != 0;
    std::memset(real(file), 0, static_cast<std::size_t>(realVfs->szOsFile));
    if ((flags & SQLITE_OPEN_CREATE) != 0) {
        if (const int code = refusalOf(Needs::Room); code != SQLITE_OK)
            return code;
    }
    const int code = realVfs->xOpen(realVfs, name, real(file), flags, outFlags);
    opened->base.pMethods = real(file)->pMethods ? &methods : nullptr;
    return code;
}

} // namespace

FaultyVfs::FaultyVfs()
{
    state = State();
    realVfs = sqlite3_vfs_find("unix");
    vfs = *realVfs;
    vfs.zName = "faulty";
    vfs.szOsFile = static_cast<int>(sizeof(FaultyFile)) + realVfs->szOsFile;
    vfs.xOpen = openFile;
    sqlite3_vfs_register(&vfs, 1);
}

FaultyVfs::~FaultyVfs()
{
    sqlite3_vfs_unregister(&vfs);
    sqlite3_vfs_register(realVfs, 1);
}

void FaultyVfs::refuse(int call, int code, Refusal refusal)
{
    state.calls = 0;
    state.refused = 0;
    state.refuseAt = call;
    state.code = code;
    state.refusal = refusal;
}

void FaultyVfs::carryOutAll()
{
    refuse(0, SQLITE_OK, Refusal::OneCall);
}

int FaultyVfs::calls() const
{
    return state.calls;
}

int FaultyVfs::refused() const
{
    return state.refused;
}

int FaultyVfs::unsyncedLogWrites() const
{
    return state.unsyncedLogWrites;
}

int FaultyVfs::logSyncs() const
{
    return state.logSyncs;
}

std::ostream& operator<<(std::ostream& out, const WriteFailure& failure)
{
    return out << failure.name;
}

const std::vector<WriteFailure>& writeFailures()
{
    static const std::vector<WriteFailure> all = {
        {"full disk", SQLITE_FULL, FaultyVfs::Refusal::AllWritesFromNow},
        {"full disk for one call", SQLITE_FULL, FaultyVfs::Refusal::OneCall},
        {"failed write", SQLITE_IOERR_WRITE, FaultyVfs::Refusal::OneCall},
        {"failed sync", SQLITE_IOERR_FSYNC, FaultyVfs::Refusal::OneCall},
        {"disk gone read-only", SQLITE_READONLY, FaultyVfs::Refusal::AllWritesFromNow},
    };
    return all;
}

} // namespace quelhost::test
