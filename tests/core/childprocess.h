// Running a piece of a test in a process of its own: to end it in the middle, to give it limits,
// to let it be another user.
#pragma once

#include <sys/types.h>

#include <functional>
#include <string>

namespace quelhost::test {

struct ChildEnd
{
    int exitCode = -1; // -1: it did not exit by itself
    int signal = 0;    // the signal that ended it, 0 for none
    std::string output;
};

// A forked process that runs `work` and then exits with 0 (with 99 when an exception leaves it).
// What `work` writes to the descriptor it is given, the parent reads.
class ChildProcess
{
public:
    explicit ChildProcess(const std::function<void(int output)>& work);
    ChildProcess(const ChildProcess&) = delete;
    ChildProcess& operator=(const ChildProcess&) = delete;
    ~ChildProcess(); // ends the process if it still runs

    [[nodiscard]] pid_t id() const { return m_id; }

    // The next line of output without its newline; empty at the end of output.
    [[nodiscard]] std::string readLine();

    void kill() const; // as the system does it: nothing in the process gets to run
    [[nodiscard]] ChildEnd wait();

private:
    pid_t m_id = -1;
    int m_output = -1;
};

// Runs `work` in a child and waits; `output` is what `work` returned.
[[nodiscard]] ChildEnd runInChild(const std::function<std::string()>& work);

// Turns the process into one of an ordinary user for good; false when that failed. A process that
// is one already stays who it is.
[[nodiscard]] bool becomeOrdinaryUser();

// Gives a file or folder to the user that `becomeOrdinaryUser` makes.
[[nodiscard]] bool giveToOrdinaryUser(const std::string& path);

// Sets the size beyond which this process may not grow any file, without a signal when it tries.
[[nodiscard]] bool limitFileSize(unsigned long long bytes);
[[nodiscard]] bool liftFileSizeLimit();

void writeAll(int descriptor, const std::string& text);

} // namespace quelhost::test
