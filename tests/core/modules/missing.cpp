// A module that needs functions and an object that nobody has, beside some that its host and the
// C library have.
#include "host/commands.h"

#include <cstdlib>

#include "tests/support/moduletrace.h"

#define ELSEWHERE __attribute__((visibility("default")))

namespace lost {
class Machine
{
public:
    ELSEWHERE int turn(int times) const;
};
ELSEWHERE extern int wheels;
} // namespace lost

ELSEWHERE bool lostText(const wchar_t* text);
extern "C" ELSEWHERE int lost_plain(int value);
extern "C" ELSEWHERE __attribute__((weak)) int lost_but_weak();

extern "C" QUEL_HOST_API IQuelCmdApplication* GetQuelCmdApplication();
IQuelCmdApplication* GetQuelCmdApplication()
{
    noteModuleCall("entry");
    const lost::Machine machine;
    const int optional = lost_but_weak == nullptr ? 0 : lost_but_weak();
    const int turns = machine.turn(lost_plain(std::abs(lost::wheels)));
    return lostText(L"") || turns + optional > 0 ? nullptr : nullptr;
}
