// What a function of the reference host returns when it can fail: the value, or a fault with a
// category to act on and a sentence to show. Every fault reaches the user; none is only logged.
#pragma once

#include <QString>

#include <utility>
#include <variant>

namespace quelhost {

enum class FaultKind {
    NotFound,     // the named thing is not there
    BadInput,     // the content is not what its format demands
    NotPermitted, // the system refuses access
    Busy,         // somebody else holds it
    Damaged,      // it was good once and is not now
    Io,           // reading or writing failed: full disk, broken device
};

// One thing that went wrong. `sentence` is finished text in the user's language without a trailing
// newline. `line` and `column` count from 1; 0 says that there is no position.
struct Fault
{
    FaultKind kind = FaultKind::Io;
    QString sentence;
    QString file;
    qint64 line = 0;
    qint64 column = 0;

    // The sentence behind its place: "plant.cuix:12:5: The command ...".
    [[nodiscard]] QString text() const;
};

// Either a T or a Fault.
template<typename T>
class [[nodiscard]] Result
{
public:
    Result(T value)
        : m_state(std::in_place_index<0>, std::move(value))
    {}
    Result(Fault fault)
        : m_state(std::in_place_index<1>, std::move(fault))
    {}

    explicit operator bool() const { return m_state.index() == 0; }

    // REQUIRES: the result holds a value.
    T& value() { return std::get<0>(m_state); }
    const T& value() const { return std::get<0>(m_state); }

    // REQUIRES: the result holds a fault.
    const Fault& fault() const { return std::get<1>(m_state); }

private:
    std::variant<T, Fault> m_state;
};

// For functions that have nothing to hand back: `return Done{};` or a fault.
struct Done
{};
using Status = Result<Done>;

} // namespace quelhost
