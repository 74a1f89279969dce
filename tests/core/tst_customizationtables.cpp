// Accelerators and toolbars as tables of text.
#include "refhost/core/customizationtables.h"

#include "refhost/core/hostlistings.h"
#include "refhost/core/shownmenugroups.h"

#include "tests/support/globallocale.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

using namespace quelhost;

namespace {

using Lines = std::vector<std::string>;

QString text(const char* utf8)
{
    return QString::fromUtf8(utf8);
}

Lines lines(const QStringList& rows)
{
    Lines result;
    for (const QString& row : rows)
        result.push_back(row.toStdString());
    return result;
}

Keys keys(const char* typed)
{
    return QKeySequence::listFromString(text(typed));
}

ShownGroup plant()
{
    ShownGroup shown;
    shown.group.name = text("PLANT");
    for (const char* const id : {"pump", "Pipe", "tank", "Valve"})
        shown.group.commands.push_back({text(id), text(id), {}, {}, {}});
    shown.group.accelerators = {{text("tank"), QKeySequence(text("F9"))},
                                {text("pump"), QKeySequence(text("Ctrl+Shift+P"))},
                                {text("Pipe"), QKeySequence(text("F8"))},
                                {text("pump"), QKeySequence(text("F7"))}};
    shown.group.toolbars = {
        {text("two"), text("&Zwei"), {{text("tank")}}},
        {text("one"), text("&Bar && Co"), {{text("pump")}, {}, {text("Pipe")}}},
    };
    return shown;
}

ShownGroup survey()
{
    ShownGroup shown;
    shown.group.name = text("SURVEY");
    shown.group.commands.push_back({text("pump"), text("pump"), {}, {}, {}});
    shown.group.accelerators = {{text("pump"), QKeySequence(text("F5"))}};
    return shown;
}

} // namespace

TEST(CustomizationTables, AcceleratorsStandByCommandAndGroup)
{
    EXPECT_EQ(
        lines(acceleratorRows({survey(), plant()}, {})),
        (Lines{"COMMAND  KEY               GROUP   CHANGED", //
               "Pipe     F8                PLANT   no",
               "pump     Ctrl+Shift+P; F7  PLANT   no", //
               "pump     F5                SURVEY  no", "tank     F9                PLANT   no"}));
}

TEST(CustomizationTables, AcceleratorsSayWhatTheUserChanged)
{
    const KeyChanges changes{{{text("PLANT"), text("pump")}, keys("F2")},
                             {{text("PLANT"), text("Pipe")}, {}},
                             {{text("PLANT"), text("Valve")}, keys("Ctrl+K, L")},
                             {{text("PLANT"), text("tank")}, keys("F9")},
                             {{text("OTHER"), text("tank")}, keys("F3")}};
    EXPECT_EQ(lines(acceleratorRows({plant()}, changes)),
              (Lines{"COMMAND  KEY        GROUP  CHANGED", //
                     "Pipe     none       PLANT  yes",     //
                     "pump     F2         PLANT  yes",     //
                     "tank     F9         PLANT  no",      //
                     "Valve    Ctrl+K, L  PLANT  yes"}));
}

TEST(CustomizationTables, ToolbarsStandByTitleAndGroup)
{
    EXPECT_EQ(lines(toolbarRows({plant()}, {})),
              (Lines{"TITLE     GROUP  COMMANDS     CHANGED", //
                     "Bar & Co  PLANT  pump | Pipe  no",      //
                     "Zwei      PLANT  tank         no"}));
}

TEST(CustomizationTables, ToolbarsSayWhatTheUserChanged)
{
    ToolbarChange deleted;
    deleted.deleted = true;
    ToolbarChange hidden;
    hidden.hidden = true;
    hidden.title = text("\xE4\xB8\xAD\xE6\x96\x87\x1B");
    ToolbarChange own;
    own.title = text("mine");
    own.entries = {{text("SURVEY"), text("pump")}, {}, {text("GONE"), text("x")}};
    ToolbarChange empty;
    empty.title = text("Empty");
    empty.entries = {{text("GONE"), text("x")}};
    const ToolbarChanges changes{{{text("PLANT"), text("one")}, deleted},
                                 {{text("PLANT"), text("two")}, hidden},
                                 {{QString(), text("1")}, own},
                                 {{QString(), text("2")}, empty}};
    EXPECT_EQ(
        lines(toolbarRows({plant(), survey()}, changes)),
        (Lines{"TITLE     GROUP    COMMANDS     CHANGED", "Bar & Co  PLANT    pump | Pipe  deleted",
               "Empty     (yours)  none         yes", //
               "mine      (yours)  SURVEY/pump  yes",
               "\xE4\xB8\xAD\xE6\x96\x87\xEF\xBF\xBD     PLANT    tank         hidden"}));
}

TEST(CustomizationTables, SayWhenThereIsNothing)
{
    ShownGroup bare;
    bare.group.name = text("BARE");
    EXPECT_EQ(lines(acceleratorRows({bare}, {})),
              Lines{"No command of the loaded menu groups has a key."});
    EXPECT_EQ(lines(toolbarRows({bare}, {})), Lines{"There are no toolbars."});
}

TEST(CustomizationTables, WideCharactersTakeTwoPlacesWhateverTheLocale)
{
    const recording::GlobalLocale plain("C");
    EXPECT_EQ(lines(tableRows({{text("\xE4\xB8\xAD"), text("x")},
                               {text("abc"), text("y")},
                               {text("u\xCC\x88"), text("z")},
                               {text("\xF0\x9F\x98\x80"), text("w")}})),
              (Lines{"\xE4\xB8\xAD   x", "abc  y", "u\xCC\x88    z", "\xF0\x9F\x98\x80   w"}));
}
