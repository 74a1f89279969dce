#include "host/errors.h"

namespace {

std::wstring textOrEmpty(const wchar_t* text)
{
    return text == nullptr ? std::wstring() : std::wstring(text);
}

} // namespace

VxErrorStatus::VxErrorStatus(Quel::ErrorStatus status, const wchar_t* context, int code)
    : m_status(status)
    , m_code(code)
    , m_context(textOrEmpty(context))
{}

VxErrorStatus::~VxErrorStatus() = default;

Quel::ErrorStatus VxErrorStatus::status() const
{
    return m_status;
}

const wchar_t* VxErrorStatus::context() const
{
    return m_context.c_str();
}

int VxErrorStatus::code() const
{
    return m_code;
}

VxExceptionWithMsg::VxExceptionWithMsg(const wchar_t* context, int code, const wchar_t* message)
    : m_code(code)
    , m_context(textOrEmpty(context))
    , m_message(textOrEmpty(message))
{}

VxExceptionWithMsg::~VxExceptionWithMsg() = default;

const wchar_t* VxExceptionWithMsg::message() const
{
    return m_message.c_str();
}

const wchar_t* VxExceptionWithMsg::context() const
{
    return m_context.c_str();
}

int VxExceptionWithMsg::code() const
{
    return m_code;
}
