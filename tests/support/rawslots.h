// The binary contract of an interface as a caller compiled elsewhere uses it: through the table of
// virtual functions, by position.
#pragma once

#include <array>
#include <cstddef>
#include <cstring>
#include <typeinfo>

namespace raw {

// Calls virtual function `index`, counted from 0, of `object`. The arguments must have exactly the
// types that the function declares.
template<typename Result, typename... Parameters>
Result call(const void* object, std::size_t index, Parameters... arguments)
{
    using Function = Result (*)(const void*, Parameters...);
    void* const* table = nullptr;
    std::memcpy(&table, object, sizeof table);
    Function function = nullptr;
    std::memcpy(&function, &table[index], sizeof function);
    return function(object, arguments...);
}

// An object of an abstract class of which a caller sees nothing but its table: Slots functions with
// the object as their first parameter. In front of them stands what every table has there, for
// whoever asks for the object's type.
template<typename Interface, std::size_t Slots>
class Object
{
public:
    Object()
    {
        m_table.type = &typeid(Interface);
        m_functions = m_table.functions.data();
    }
    Object(const Object&) = delete;
    Object& operator=(const Object&) = delete;

    template<typename Result, typename... Parameters>
    void set(std::size_t index, Result (*function)(Object*, Parameters...))
    {
        std::memcpy(&m_table.functions[index], &function, sizeof function);
    }

    Interface* get() { return reinterpret_cast<Interface*>(this); }

private:
    struct Table
    {
        std::ptrdiff_t offsetToTop = 0;
        const std::type_info* type = nullptr;
        std::array<void*, Slots> functions{};
    };

    const void* m_functions = nullptr; // where a compiler puts it: first
    Table m_table;
};

} // namespace raw
