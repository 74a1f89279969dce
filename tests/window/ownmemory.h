// What the program's own code has allocated with operator new and not given back: not the
// libraries, whose stores for fonts and the like grow as they please, and not a module's. Counted
// with a replaced operator new, so not where a sanitizer has its own, which looks for leaks itself.
#pragma once

#include <cstddef>
#include <cstdlib>
#include <functional>
#include <map>
#include <string>
#include <utility>

namespace windowtest {

// For accounts, which do not count themselves.
template<typename Type>
struct Uncounted
{
    using value_type = Type;

    Uncounted() = default;
    template<typename Other>
    Uncounted(const Uncounted<Other>&)
    {}
    Type* allocate(std::size_t count)
    {
        return static_cast<Type*>(std::malloc(count * sizeof(Type)));
    }
    void deallocate(Type* memory, std::size_t) { std::free(memory); }
    template<typename Other>
    bool operator==(const Uncounted<Other>&) const
    {
        return true;
    }
    template<typename Other>
    bool operator!=(const Uncounted<Other>&) const
    {
        return false;
    }
};

template<typename Value>
using Account =
    std::map<const void*, Value, std::less<>, Uncounted<std::pair<const void* const, Value>>>;

// Who compares what is there at times when it should be the same.
class OwnMemory
{
public:
    // Counts the blocks from each place in the code.
    void note();

    // The places from which there were more blocks than ever before again and again, each with
    // where it is in the program's file; nothing when there are none. What is made once and kept
    // is no such thing.
    [[nodiscard]] std::string grown() const;

private:
    struct Place
    {
        int most = 0;
        int times = 0; // that there were more than before
    };

    Account<Place> m_places;
    int m_notes = 0;
};

// How many bytes of the heap are in use, whoever has them.
[[nodiscard]] std::size_t liveMemory();

} // namespace windowtest
