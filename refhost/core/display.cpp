#include "refhost/core/display.h"

#include "refhost/core/dynamicsymbol.h"

#include <QByteArray>
#include <QtGlobal>

#include <memory>

namespace quelhost {

namespace {

// The X protocol's own client library is there wherever windows can be shown and is not needed
// anywhere else, so it is looked for at run time.
bool xServerAnswers()
{
    using Connect = void* (*)(const char*, int*);
    using HasError = int (*)(void*);
    using Disconnect = void (*)(void*);
    const auto close = [](void* library) { dlclose(library); };
    const std::unique_ptr<void, decltype(close)> library(dlopen("libxcb.so.1", RTLD_NOW), close);
    if (!library)
        return false;
    const auto connect = functionNamed<Connect>(library.get(), "xcb_connect");
    const auto hasError = functionNamed<HasError>(library.get(), "xcb_connection_has_error");
    const auto disconnect = functionNamed<Disconnect>(library.get(), "xcb_disconnect");
    if (connect == nullptr || hasError == nullptr || disconnect == nullptr)
        return false;
    void* connection = connect(nullptr, nullptr);
    const bool answers = hasError(connection) == 0;
    disconnect(connection);
    return answers;
}

} // namespace

bool displayAnswers()
{
    const QByteArray platform = qgetenv("QT_QPA_PLATFORM");
    if (!platform.isEmpty() && !platform.startsWith("xcb"))
        return platform.startsWith("wayland");
    return !qEnvironmentVariableIsEmpty("DISPLAY") && xServerAnswers();
}

} // namespace quelhost
