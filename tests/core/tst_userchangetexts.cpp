#include "refhost/core/userchangetexts.h"
#include "tests/support/testrounds.h"

#include <gtest/gtest.h>

#include <random>
#include <string>

using namespace quelhost;

namespace {

QString text(const char* utf8)
{
    return QString::fromUtf8(utf8);
}

// The text of the keys that `typed` names, or "none".
std::string read(const char* typed)
{
    const std::optional<Keys> keys = keysOfText(text(typed));
    return keys ? std::to_string(keys->size()) + " " + keysText(*keys).toStdString() : "none";
}

// The text of the toolbar that `typed` describes, or "none".
std::string readToolbar(const char* typed)
{
    const std::optional<ToolbarChange> change = toolbarOfText(text(typed));
    return change ? toolbarText(*change).toStdString() : "none";
}

ToolbarChange sample()
{
    ToolbarChange change;
    change.title = text("M\xC3\xA4rz \"1\" \\ & Co");
    change.entries = {{text("PLANT"), text("pump")}, {}, {text("SURVEY"), text("a/b|c")}};
    change.hidden = true;
    return change;
}

} // namespace

TEST(KeysText, IsReadInAnyCaseAndOrder)
{
    EXPECT_EQ(read(""), "0 ");
    EXPECT_EQ(read("F7"), "1 F7");
    EXPECT_EQ(read("ctrl+shift+p"), "1 Ctrl+Shift+P");
    EXPECT_EQ(read("Shift+Ctrl+P"), "1 Ctrl+Shift+P");
    EXPECT_EQ(read("Ctrl+K; F7"), "2 Ctrl+K; F7");
    EXPECT_EQ(read("Ctrl+K, L"), "1 Ctrl+K, L");
    EXPECT_EQ(read("Ctrl+K, L, M, N; F7"), "2 Ctrl+K, L, M, N; F7");
}

TEST(KeysText, KnowsTheKeysThatSeparateOthers)
{
    EXPECT_EQ(read("Ctrl+;"), "1 Ctrl+;");
    EXPECT_EQ(read("Ctrl+;; F7"), "2 Ctrl+;; F7");
    EXPECT_EQ(read("Ctrl+,"), "1 Ctrl+,");
    EXPECT_EQ(read("Ctrl+,, Ctrl+;; ,, ;"), "2 Ctrl+,, Ctrl+;; ,, ;");
    EXPECT_EQ(read("Ctrl++"), "1 Ctrl++");
}

TEST(KeysText, RefusesWhatNamesNoKeys)
{
    for (const char* const typed :
         {"Ctrl",          "Ctrl+",     "Ctrl+Foo", "Foo",         " ",      "Ctrl+ ",
          " F7",           "Ctrl+\x01", "\x01",     "F7;",         "F7; ",   "; F7",
          "F7;; F8x",      "F7,",       "F7, ",     "Ctrl+K, Foo", "F7; F7", "ctrl+k; Ctrl+K",
          "A, B, C, D, E", "none",      "\t",       "F99"})
        EXPECT_EQ(read(typed), "none") << typed;
}

TEST(KeysText, ComesBackWhateverTheKeys)
{
    const unsigned int seed = wantedSeed();
    SCOPED_TRACE("QUELHOST_TEST_SEED=" + std::to_string(seed));
    std::mt19937 random(seed);
    const auto oneOf = [&random](std::initializer_list<int> all) {
        return *(all.begin() + static_cast<std::ptrdiff_t>(random() % all.size()));
    };
    const auto combination = [&oneOf] {
        return oneOf({Qt::Key_A, Qt::Key_Z, Qt::Key_0, Qt::Key_F1, Qt::Key_F35, Qt::Key_Comma,
                      Qt::Key_Semicolon, Qt::Key_Plus, Qt::Key_Space, Qt::Key_Backslash,
                      Qt::Key_Slash, Qt::Key_NumberSign, Qt::Key_Equal, Qt::Key_Home, Qt::Key_Tab,
                      Qt::Key_Adiaeresis, Qt::Key_Delete, Qt::Key_Bar, Qt::Key_VolumeUp}) |
               oneOf({0, Qt::SHIFT}) | oneOf({0, Qt::CTRL}) | oneOf({0, Qt::ALT}) |
               oneOf({0, Qt::META, Qt::KeypadModifier});
    };
    const int all = wantedRounds(2000);
    for (int round = 0; round < all; ++round) {
        Keys keys;
        for (int count = oneOf({0, 1, 2, 3}); count > 0; --count) {
            const QKeySequence several(combination(), oneOf({0, combination()}));
            if (!keys.contains(several))
                keys << several;
        }
        EXPECT_EQ(keysOfText(keysText(keys)), keys) << keysText(keys).toStdString();
    }
}

TEST(ToolbarText, SaysOnlyWhatIsChanged)
{
    EXPECT_EQ(toolbarText({}).toStdString(), "{}");
    EXPECT_EQ(toolbarText(sample()).toStdString(),
              "{\"entries\":[\"PLANT/pump\",\"|\",\"SURVEY/a/b|c\"],\"hidden\":true,"
              "\"title\":\"M\xC3\xA4rz \\\"1\\\" \\\\ & Co\"}");
    ToolbarChange gone;
    gone.deleted = true;
    EXPECT_EQ(toolbarText(gone).toStdString(), "{\"deleted\":true}");
    ToolbarChange emptied;
    emptied.title = QString();
    emptied.entries.emplace();
    EXPECT_EQ(toolbarText(emptied).toStdString(), "{\"entries\":[],\"title\":\"\"}");
}

TEST(ToolbarText, ComesBack)
{
    EXPECT_EQ(toolbarOfText(toolbarText(sample())), sample());
    EXPECT_EQ(toolbarOfText(text("{}")), ToolbarChange());
    ToolbarChange emptied;
    emptied.title = QString();
    emptied.entries.emplace();
    EXPECT_EQ(toolbarOfText(toolbarText(emptied)), emptied);
    EXPECT_FALSE(emptied.isNone());
    EXPECT_TRUE(ToolbarChange().isNone());
}

TEST(ToolbarText, PassesOverMembersThatAreNotKnown)
{
    EXPECT_EQ(readToolbar("{\"size\":3,\"title\":\"T\",\"deleted\":false}"), "{\"title\":\"T\"}");
}

TEST(ToolbarText, RefusesWhatIsNoToolbar)
{
    for (const char* const typed :
         {"", "x", "[]", "3", "null", "{", "{} x", "{\"title\":3}", "{\"title\":null}",
          "{\"entries\":\"PLANT/pump\"}", "{\"entries\":[3]}", "{\"entries\":[\"\"]}",
          "{\"entries\":[\"pump\"]}", "{\"entries\":[\"/pump\"]}", "{\"entries\":[\"PLANT/\"]}",
          "{\"hidden\":1}", "{\"deleted\":\"yes\"}"})
        EXPECT_EQ(readToolbar(typed), "none") << typed;
}

TEST(EntryText, HasTheGroupBeforeTheFirstSlash)
{
    EXPECT_EQ(entryText({text("PLANT"), text("a/b")}).toStdString(), "PLANT/a/b");
    const std::optional<GroupEntry> entry = entryOfText(text("PLANT/a/b"));
    ASSERT_TRUE(entry);
    EXPECT_EQ(entry->group.toStdString(), "PLANT");
    EXPECT_EQ(entry->id.toStdString(), "a/b");
    for (const char* const none : {"", "PLANT", "/pump", "PLANT/", "/"})
        EXPECT_FALSE(entryOfText(text(none))) << none;
}
