// A file system between the database library and the real one, which counts and can refuse.
//
// While an object lives, every database that is opened goes through it. One at a time; databases
// must be closed before it goes.
#pragma once

#include <iosfwd>
#include <vector>

namespace quelhost::test {

class FaultyVfs
{
public:
    enum class Refusal {
        OneCall,          // the one call fails; the next is carried out again
        AllWritesFromNow, // from that call on every call that needs room fails: a full disk
    };

    FaultyVfs();
    FaultyVfs(const FaultyVfs&) = delete;
    FaultyVfs& operator=(const FaultyVfs&) = delete;
    ~FaultyVfs();

    // Lets the call number `call`, counted from 1 from now on, fail with `code` of the database
    // library. Calls that count: write, sync, truncate, mapping and creating of files.
    void refuse(int call, int code, Refusal refusal);
    void carryOutAll();

    // Since the last `refuse` or `carryOutAll`.
    [[nodiscard]] int calls() const;
    [[nodiscard]] int refused() const;

    // Since the object was made: writes to log files that no sync followed, and syncs of them.
    [[nodiscard]] int unsyncedLogWrites() const;
    [[nodiscard]] int logSyncs() const;
};

// The ways in which a write can fail: what `refuse` is given.
struct WriteFailure
{
    const char* name;
    int code;
    FaultyVfs::Refusal refusal;
};
std::ostream& operator<<(std::ostream& out, const WriteFailure& failure);
[[nodiscard]] const std::vector<WriteFailure>& writeFailures();

} // namespace quelhost::test
