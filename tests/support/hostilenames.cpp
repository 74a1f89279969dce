// Names of entries that lead out of a package, or that do not belong there.
#include "tests/support/damagedarchives.h"
#include "tests/support/hostilepackages.h"

namespace packages {

namespace {

[[nodiscard]] HostilePackage named(const char* what, const QByteArray& name,
                                   const std::string& told)
{
    return {what, FaultIn::Headers, [name] { return withEntryNamed(name); }, {": " + told}};
}

[[nodiscard]] std::string entryName(const std::string& shown, const char* fault)
{
    return "The entry name \"" + shown + "\" " + fault;
}

[[nodiscard]] HostilePackage leadsUp(const char* what, const char* name)
{
    return named(what, name, entryName(name, "contains \".\" or \"..\" as a folder."));
}

[[nodiscard]] HostilePackage isAbsolute(const char* what, const char* name)
{
    return named(what, name, entryName(name, "is an absolute path."));
}

[[nodiscard]] HostilePackage hasBackslash(const char* what, const char* name)
{
    return named(what, name, entryName(name, "contains a backslash."));
}

[[nodiscard]] HostilePackage hasControl(const char* what, const QByteArray& name, const char* shown)
{
    return named(what, name, entryName(shown, "contains a control character."));
}

[[nodiscard]] HostilePackage isNotUtf8(const char* what, const char* name, const char* shown)
{
    return named(what, name, entryName(shown, "is not UTF-8."));
}

[[nodiscard]] std::string unknown(const std::string& shown)
{
    return "\"" + shown +
           "\" does not belong in a package: only customization.xml and files below images/ do.";
}

[[nodiscard]] HostilePackage isUnknown(const char* what, const char* name)
{
    return named(what, name, unknown(name));
}

} // namespace

std::vector<HostilePackage> hostileNames()
{
    return {
        named("a name of nothing", "", "The archive has an entry without a name."),
        leadsUp("a folder up", ".."),
        leadsUp("up at the beginning", "../images/a.png"),
        leadsUp("up in the middle", "images/../../../etc/cron.d/a"),
        leadsUp("up at the end", "images/a/.."),
        leadsUp("up and back to the text", "images/../customization.xml"),
        leadsUp("the folder itself", "images/./a.png"),
        isAbsolute("an absolute name", "/etc/passwd"),
        isAbsolute("an absolute name below images", "images//etc/passwd"),
        isAbsolute("a name on the net", "//server/share/a.png"),
        isAbsolute("a drive", "C:/images/a.png"),
        isAbsolute("a drive below images", "images/c:a.png"),
        isAbsolute("an address of a file", "file:///etc/passwd"),
        hasBackslash("a backslash for a slash", "images\\a.png"),
        hasBackslash("up with backslashes", "images/..\\..\\a.png"),
        hasBackslash("a drive with backslashes", "C:\\a.png"),
        hasControl("a name with a zero byte", QByteArray("images/a.png\0.sh", 16),
                   "images/a.png\xEF\xBF\xBD.sh"),
        hasControl("the text's name with a zero byte", QByteArray("customization.xml\0", 18),
                   "customization.xml\xEF\xBF\xBD"),
        hasControl("a name with a line end", "images/a\nb.png",
                   "images/a\xEF\xBF\xBD"
                   "b.png"),
        hasControl("a name with a tab", "images/\ta.png",
                   "images/\xEF\xBF\xBD"
                   "a.png"),
        hasControl("a name that controls a terminal", "images/\x1B[2J.png",
                   "images/\xEF\xBF\xBD[2J.png"),
        hasControl("a name that controls a terminal in one character", "images/\xC2\x9B[2J.png",
                   "images/\xEF\xBF\xBD[2J.png"),
        hasControl("a name with a delete", "images/\x7F.png", "images/\xEF\xBF\xBD.png"),
        isNotUtf8("a name in Latin 1", "images/\xE9.png", "images/\xEF\xBF\xBD.png"),
        isNotUtf8("a name with an overlong slash", "images/..\xC0\xAF..",
                  "images/..\xEF\xBF\xBD"
                  "\xEF\xBF\xBD.."),
        isNotUtf8("a name with half a pair", "images/\xED\xA0\x80.png",
                  "images/\xEF\xBF\xBD\xEF\xBF\xBD\xEF\xBF\xBD.png"),
        isNotUtf8("a name cut within a character", "images/a\xE2\x82",
                  "images/a\xEF\xBF\xBD\xEF\xBF\xBD"),
        isUnknown("a file beside the text", "readme.txt"),
        isUnknown("a program", "setup.exe"),
        isUnknown("a package within the package", "inner.cuix"),
        isUnknown("the text in another case", "Customization.XML"),
        isUnknown("the text in a folder", "a/customization.xml"),
        isUnknown("the text as a folder", "customization.xml/"),
        isUnknown("a blank before the text's name", " customization.xml"),
        isUnknown("images as a file", "images"),
        isUnknown("images in another case", "IMAGES/a.png"),
        named("a mark before the folder", "\xEF\xBB\xBFimages/a.png",
              unknown("\xEF\xBF\xBDimages/a.png")),
        named("a mark before the text's name",
              "\xEF\xBB\xBF"
              "customization.xml",
              unknown("\xEF\xBF\xBD"
                      "customization.xml")),
    };
}

} // namespace packages
