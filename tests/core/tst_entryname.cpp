#include "refhost/core/entryname.h"

#include <gtest/gtest.h>

#include <string>

using namespace quelhost;
using namespace std::string_literals;

TEST(EntryName, acceptsTheTextAndWhatIsBelowImages)
{
    struct Row
    {
        const char* name;
        std::string stored;
        bool isFolder;
    };
    const Row rows[] = {
        {"the text", "customization.xml", false},
        {"an image", "images/a.png", false},
        {"an image in a folder", "images/a/b/c.svg", false},
        {"the folder", "images/", true},
        {"a folder in it", "images/a/", true},
        {"dots that are part of a name", "images/a..b.png", false},
        {"a name that begins with dots", "images/...png", false},
        {"a hidden file", "images/.hidden", false},
        {"blanks and letters of all kinds", "images/ \xC3\xA4 \xE4\xB8\x80.svg", false},
        {"a colon behind more than a letter", "images/ab:c.svg", false},
        {"a colon behind a digit", "images/1:c.svg", false},
    };
    for (const Row& row : rows) {
        const EntryName name = readEntryName(row.stored);
        EXPECT_TRUE(name.isGood()) << row.name << ": " << name.sentence.toStdString();
        EXPECT_EQ(name.text.toStdString(), row.stored) << row.name;
        EXPECT_EQ(name.isFolder, row.isFolder) << row.name;
    }
}

TEST(EntryName, refusesAllElse)
{
    struct Row
    {
        const char* name;
        std::string stored;
        const char* sentence;
    };
    const Row rows[] = {
        {"no name", "", "The archive has an entry without a name."},
        {"another file", "a.xml",
         "\"a.xml\" does not belong in a package: only customization.xml and files below images/ "
         "do."},
        {"the text in another case", "Customization.xml",
         "\"Customization.xml\" does not belong in a package: only customization.xml and files "
         "below images/ do."},
        {"the text in a folder", "a/customization.xml",
         "\"a/customization.xml\" does not belong in a package: only customization.xml and files "
         "below images/ do."},
        {"a mark before the text's name",
         "\xEF\xBB\xBF"
         "customization.xml",
         "\"\xEF\xBF\xBD"
         "customization.xml\" does not belong in a package: only customization.xml and files "
         "below images/ do."},
        {"a mark before the folder", "\xEF\xBB\xBFimages/a.png",
         "\"\xEF\xBF\xBDimages/a.png\" does not belong in a package: only customization.xml and "
         "files "
         "below images/ do."},
        {"images as a file", "images",
         "\"images\" does not belong in a package: only customization.xml and files below images/ "
         "do."},
        {"images in another case", "Images/a.png",
         "\"Images/a.png\" does not belong in a package: only customization.xml and files below "
         "images/ do."},
        {"a folder up", "..", "The entry name \"..\" contains \".\" or \"..\" as a folder."},
        {"a folder up at the beginning", "../images/a.png",
         "The entry name \"../images/a.png\" contains \".\" or \"..\" as a folder."},
        {"a folder up in the middle", "images/../a.png",
         "The entry name \"images/../a.png\" contains \".\" or \"..\" as a folder."},
        {"a folder up at the end", "images/..",
         "The entry name \"images/..\" contains \".\" or \"..\" as a folder."},
        {"the folder itself", "images/./a.png",
         "The entry name \"images/./a.png\" contains \".\" or \"..\" as a folder."},
        {"absolute", "/images/a.png", "The entry name \"/images/a.png\" is an absolute path."},
        {"absolute within", "images//etc/passwd",
         "The entry name \"images//etc/passwd\" is an absolute path."},
        {"a network path", "//server/a.png",
         "The entry name \"//server/a.png\" is an absolute path."},
        {"a drive", "C:/a.png", "The entry name \"C:/a.png\" is an absolute path."},
        {"a drive within", "images/c:", "The entry name \"images/c:\" is an absolute path."},
        {"a backslash", "images\\a.png", "The entry name \"images\\a.png\" contains a backslash."},
        {"a tab", "images/\t.png",
         "The entry name \"images/\xEF\xBF\xBD.png\" contains a control character."},
        {"an escape sequence", "images/\x1B[2J.png",
         "The entry name \"images/\xEF\xBF\xBD[2J.png\" contains a control character."},
        {"a zero byte", "images/a.png\0.exe"s,
         "The entry name \"images/a.png\xEF\xBF\xBD.exe\" contains a control character."},
        {"delete", "images/\x7F.png",
         "The entry name \"images/\xEF\xBF\xBD.png\" contains a control character."},
        {"a control character of the upper half", "images/\xC2\x9B.png",
         "The entry name \"images/\xEF\xBF\xBD.png\" contains a control character."},
        {"Latin 1", "images/\xE9.png", "The entry name \"images/\xEF\xBF\xBD.png\" is not UTF-8."},
        {"an overlong dot", "images/\xC0\xAE/a.png",
         "The entry name \"images/\xEF\xBF\xBD\xEF\xBF\xBD/a.png\" is not UTF-8."},
    };
    for (const Row& row : rows)
        EXPECT_EQ(readEntryName(row.stored).sentence.toStdString(), row.sentence) << row.name;
}
