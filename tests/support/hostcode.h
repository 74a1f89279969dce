// Whose code runs in a thread: the recording host's own, or code that it was called by or calls.
//
// What the host does for its notes must not be taken for the work of a module: a test that refuses
// memory refuses it to the module only.
#pragma once

namespace recording {

inline thread_local bool hostCodeRuns = false;

// While one lives, its thread runs code of the host. Every function of the recording host has one.
class HostCode
{
public:
    HostCode() { hostCodeRuns = true; }
    ~HostCode() { hostCodeRuns = m_before; }
    HostCode(const HostCode&) = delete;
    HostCode& operator=(const HostCode&) = delete;

private:
    const bool m_before = hostCodeRuns;
};

// While one lives, its thread runs code that the host has called, such as a slot of a dialog.
class CalledCode
{
public:
    CalledCode() { hostCodeRuns = false; }
    ~CalledCode() { hostCodeRuns = m_before; }
    CalledCode(const CalledCode&) = delete;
    CalledCode& operator=(const CalledCode&) = delete;

private:
    const bool m_before = hostCodeRuns;
};

} // namespace recording
