#include "tests/core/childprocess.h"

#include <cerrno>
#include <csignal>
#include <cstdlib>

#include <grp.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

namespace quelhost::test {

namespace {

constexpr uid_t kOrdinaryUser = 65534;
constexpr int kLeftByException = 99;

int runGuarded(const std::function<void(int)>& work, int output)
{
    try {
        work(output);
        return 0;
    } catch (...) {
        return kLeftByException;
    }
}

std::string readToEnd(int descriptor)
{
    std::string text;
    char buffer[4096];
    for (;;) {
        const ssize_t count = ::read(descriptor, buffer, sizeof buffer);
        if (count > 0)
            text.append(buffer, static_cast<std::size_t>(count));
        else if (count == 0 || errno != EINTR)
            return text;
    }
}

} // namespace

ChildProcess::ChildProcess(const std::function<void(int output)>& work)
{
    int ends[2] = {-1, -1};
    if (::pipe(ends) != 0)
        return;
    m_output = ends[0];
    m_id = ::fork();
    if (m_id == 0) {
        ::close(ends[0]);
        // The parent's clean-up is not the child's: leave without it.
        ::_exit(runGuarded(work, ends[1]));
    }
    ::close(ends[1]);
}

ChildProcess::~ChildProcess()
{
    if (m_id > 0) {
        kill();
        static_cast<void>(wait());
    }
    if (m_output >= 0)
        ::close(m_output);
}

std::string ChildProcess::readLine()
{
    std::string line;
    char character = 0;
    while (::read(m_output, &character, 1) == 1 && character != '\n')
        line += character;
    return line;
}

void ChildProcess::kill() const
{
    if (m_id > 0)
        ::kill(m_id, SIGKILL);
}

ChildEnd ChildProcess::wait()
{
    ChildEnd end;
    end.output = readToEnd(m_output);
    int status = 0;
    if (m_id > 0 && ::waitpid(m_id, &status, 0) == m_id) {
        end.exitCode = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
        end.signal = WIFSIGNALED(status) ? WTERMSIG(status) : 0;
    }
    m_id = -1;
    return end;
}

ChildEnd runInChild(const std::function<std::string()>& work)
{
    ChildProcess child([&](int output) { writeAll(output, work()); });
    return child.wait();
}

bool becomeOrdinaryUser()
{
    if (::geteuid() != 0)
        return true;
    return ::setgroups(0, nullptr) == 0 && ::setgid(kOrdinaryUser) == 0 &&
           ::setuid(kOrdinaryUser) == 0;
}

bool giveToOrdinaryUser(const std::string& path)
{
    return ::geteuid() != 0 || ::chown(path.c_str(), kOrdinaryUser, kOrdinaryUser) == 0;
}

bool limitFileSize(unsigned long long bytes)
{
    struct rlimit limit = {};
    if (::getrlimit(RLIMIT_FSIZE, &limit) != 0)
        return false;
    limit.rlim_cur = bytes;
    return std::signal(SIGXFSZ, SIG_IGN) != SIG_ERR && ::setrlimit(RLIMIT_FSIZE, &limit) == 0;
}

bool liftFileSizeLimit()
{
    struct rlimit limit = {};
    if (::getrlimit(RLIMIT_FSIZE, &limit) != 0)
        return false;
    limit.rlim_cur = limit.rlim_max;
    return ::setrlimit(RLIMIT_FSIZE, &limit) == 0;
}

void writeAll(int descriptor, const std::string& text)
{
    std::size_t done = 0;
    while (done < text.size()) {
        const ssize_t count = ::write(descriptor, text.data() + done, text.size() - done);
        if (count <= 0)
            return;
        done += static_cast<std::size_t>(count);
    }
}

} // namespace quelhost::test
