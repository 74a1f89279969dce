// Packages that must be refused: one for each limit, and for each damage that an archive, a text or
// an image can have. Everything about one is good but what its name says, so that exactly that
// fault is told.
#pragma once

#include <QByteArray>

#include <functional>
#include <ostream>
#include <string>
#include <vector>

namespace packages {

// Whether the fault lies in the archive's headers (names and limits included), so that nothing
// needs to be inflated to find it. No other entry of such a package is deflated either.
enum class FaultIn { Headers, Content };

struct HostilePackage
{
    std::string name; // what is wrong, in words; no two are the same
    FaultIn faultIn;
    std::function<QByteArray()> make; // some are large: made when needed
    std::vector<std::string> told;    // each fault's text from behind the file's name on
};

// All of them, in the order of the functions below.
[[nodiscard]] std::vector<HostilePackage> hostilePackages();

// One of those functions, for tests that are done for each kind.
struct HostileKind
{
    const char* name;
    std::vector<HostilePackage> (*make)();
};

inline std::ostream& operator<<(std::ostream& out, const HostileKind& kind)
{
    return out << kind.name;
}

[[nodiscard]] std::vector<HostileKind> hostileKinds();

// By kind.
[[nodiscard]] std::vector<HostilePackage> hostileArchives(); // damaged as a whole
[[nodiscard]] std::vector<HostilePackage> hostileEntries();  // one entry that cannot be trusted
[[nodiscard]] std::vector<HostilePackage> hostileNames();    // of entries
[[nodiscard]] std::vector<HostilePackage> hostileSizes();    // beyond a limit, and bombs
[[nodiscard]] std::vector<HostilePackage> hostileLengths();  // of XML, beyond a limit
[[nodiscard]] std::vector<HostilePackage> hostileTexts();    // no good XML
[[nodiscard]] std::vector<HostilePackage> hostileGroups();   // XML that is no menu group
[[nodiscard]] std::vector<HostilePackage> hostilePngs();
[[nodiscard]] std::vector<HostilePackage> hostileDrawings(); // that reach out, run or swell

} // namespace packages
