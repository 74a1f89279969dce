#include "menuload/menuloadmessages.h"

#include "module/resourcestring.h"

namespace {

constexpr unsigned int kNotFoundId = 11070;
constexpr wchar_t kNotFound[] = L"Menu file load failed.  File not found:\"%s\"";
constexpr unsigned int kAlreadyLoadedId = 11065;

} // namespace

CStdStr<wchar_t> menuFileNotFoundMessage(const wchar_t* path)
{
    const QuString format = qumdQuResourceString(kNotFoundId, kNotFound);
    CStdStr<wchar_t> message;
    message.Format(textOrEmpty(format), path);
    return message;
}

CStdStr<wchar_t> menuFileAlreadyLoadedMessage(const wchar_t* path)
{
    CStdStr<wchar_t> message;
    message.Format(kAlreadyLoadedId, path);
    return message;
}
