// The host's error objects and its crash recorder.
//
// Error objects are thrown BY POINTER: the thrower allocates with new, hands the pointer to the
// crash recorder when there is one, and throws it; whoever catches it deletes it. Their virtual
// functions are defined in the host, so a host may read an object after the module that threw it
// has been unloaded.
#pragma once

#include "host/api.h"

#include <string>

namespace Quel {

// Statuses that an error object carries. Only those that modules use are named.
enum ErrorStatus : int {
    eOk = 0,
    eBadType = 3,  // a value of a type that the operation does not know
    eNoMemory = 6, // memory is exhausted
};

} // namespace Quel

// An error with a status of the host.
class QUEL_HOST_API VxErrorStatus
{
public:
    // `context` tells where the error was made; it is copied and may be null (then empty).
    VxErrorStatus(Quel::ErrorStatus status, const wchar_t* context, int code);
    virtual ~VxErrorStatus();
    VxErrorStatus(const VxErrorStatus&) = default;
    VxErrorStatus& operator=(const VxErrorStatus&) = default;

    // The status given at construction.
    virtual Quel::ErrorStatus status() const;
    // The context and code given at construction; the pointer lives as long as the object.
    const wchar_t* context() const;
    int code() const;

private:
    Quel::ErrorStatus m_status;
    int m_code;
    std::wstring m_context;
};

// An error with a message for the user.
class QUEL_HOST_API VxExceptionWithMsg
{
public:
    // `context` and `message` are copied and may be null (then empty).
    VxExceptionWithMsg(const wchar_t* context, int code, const wchar_t* message);
    virtual ~VxExceptionWithMsg();
    VxExceptionWithMsg(const VxExceptionWithMsg&) = default;
    VxExceptionWithMsg& operator=(const VxExceptionWithMsg&) = default;

    // The message given at construction; the pointer lives as long as the object.
    virtual const wchar_t* message() const;
    const wchar_t* context() const;
    int code() const;

private:
    int m_code;
    std::wstring m_context;
    std::wstring m_message;
};

// Keeps a record of errors for a crash report.
class QUEL_HOST_API QuelCrashRecorder
{
public:
    // Notes an error that is about to be thrown. The recorder copies what it needs during the call
    // and never owns, keeps or deletes the object.
    // REQUIRES: `error` is not null.
    virtual void record(const VxErrorStatus* error) = 0;
    virtual void record(const VxExceptionWithMsg* error) = 0;

protected:
    ~QuelCrashRecorder() = default;
};

// The host's recorder, or null when it keeps none. Owned by the host, valid until it ends.
QUEL_HOST_API QuelCrashRecorder* quelGetCrashRecorder();
