// Functions looked up by name in a loaded library.
#pragma once

#include <cstring>
#include <dlfcn.h>

namespace quelhost {

// The function `name` of `library`, null when it has none. The system promises that the address of
// a function fits a pointer to an object; the language has no cast for it.
template<typename Function>
[[nodiscard]] Function functionNamed(void* library, const char* name)
{
    void* const symbol = dlsym(library, name);
    Function function = nullptr;
    static_assert(sizeof function == sizeof symbol);
    std::memcpy(&function, &symbol, sizeof function);
    return function;
}

} // namespace quelhost
