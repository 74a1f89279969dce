// Files of keys.
#include "refhost/core/keyfile.h"

#include "tests/core/settingssupport.h"

#include <QDir>

#include <gtest/gtest.h>

#include <string>

using namespace quelhost;
using namespace quelhost::test;

namespace {

QString text(const char* utf8)
{
    return QString::fromUtf8(utf8);
}

GroupEntry entry(const char* group, const char* id)
{
    return {text(group), text(id)};
}

Keys keys(const char* typed)
{
    return QKeySequence::listFromString(text(typed));
}

// The file that the given one is the same as, or the fault.
std::string read(const QByteArray& file)
{
    const Result<KeyChanges> changes = parseKeyFile(file, text("my.keys"));
    return changes ? keyFileText(changes.value()).toStdString()
                   : changes.fault().text().toStdString();
}

const KeyChanges kChanges{{entry("PLANT", "pump"), keys("Ctrl+K; F7")},
                          {entry("PLANT", "pipe"), {}},
                          {entry("SURVEY", "a/b # c=d"), keys("Ctrl+;")},
                          {entry("GR\xC3\x9C\xC3\x9F"
                                 "E",
                                 "\xE4\xB8\xAD"),
                           keys("F8, Ctrl+,")}};
constexpr char kFile[] = "quelhost keys 1\n"
                         "GR\xC3\x9C\xC3\x9F"
                         "E\t\xE4\xB8\xAD\tF8, Ctrl+,\n"
                         "PLANT\tpipe\t\n"
                         "PLANT\tpump\tCtrl+K; F7\n"
                         "SURVEY\ta/b # c=d\tCtrl+;\n";

} // namespace

TEST(KeyFile, HasALineForEachCommand)
{
    EXPECT_EQ(keyFileText(kChanges).toStdString(), kFile);
    EXPECT_EQ(keyFileText({}).toStdString(), "quelhost keys 1\n");
}

TEST(KeyFile, ComesBack)
{
    const Result<KeyChanges> changes = parseKeyFile(kFile, text("my.keys"));
    ASSERT_TRUE(changes);
    EXPECT_EQ(changes.value(), kChanges);
    const Result<KeyChanges> none = parseKeyFile("quelhost keys 1", text("my.keys"));
    ASSERT_TRUE(none);
    EXPECT_TRUE(none.value().empty());
}

TEST(KeyFile, MayBeWrittenByHand)
{
    EXPECT_EQ(read("\xEF\xBB\xBFquelhost keys 1\r\n\r\n# mine\r\n#\tx\ty\r\nPLANT\tpump\tf7\r\n"),
              "quelhost keys 1\nPLANT\tpump\tF7\n");
    EXPECT_EQ(read("quelhost keys 1\nB\tb\tshift+ctrl+a\n\n\nA\ta\t"),
              "quelhost keys 1\nA\ta\t\nB\tb\tCtrl+Shift+A\n");
}

TEST(KeyFile, IsRefusedWithItsFirstFault)
{
    const std::string noKeys =
        "my.keys:1:1: This is not a file of keys: its first line has to be \"quelhost keys 1\".";
    const std::string badLine =
        "This line is not a menu group, a command and keys with a tab between them.";
    const struct
    {
        const char* name;
        QByteArray file;
        std::string fault;
    } rows[] = {
        {"nothing", "", noKeys},
        {"another file", "PK\x03\x04\n", noKeys},
        {"a later format", "quelhost keys 2\n", noKeys},
        {"a blank before", " quelhost keys 1\n", noKeys},
        {"words", "quelhost keys 1\nhello\n", "my.keys:2:1: " + badLine},
        {"blanks for tabs", "quelhost keys 1\n\nPLANT pump F7\n", "my.keys:3:1: " + badLine},
        {"no keys", "quelhost keys 1\nPLANT\tpump\n", "my.keys:2:1: " + badLine},
        {"no group", "quelhost keys 1\n\tpump\tF7\n", "my.keys:2:1: " + badLine},
        {"no command", "quelhost keys 1\nPLANT\t\tF7\n", "my.keys:2:1: " + badLine},
        {"too much", "quelhost keys 1\nPLANT\tpump\tF7\tF8\n", "my.keys:2:1: " + badLine},
        {"a control character", "quelhost keys 1\nPLANT\tpu\x1Bmp\tF7\n",
         "my.keys:2:1: " + badLine},
        {"a null character", QByteArray("quelhost keys 1\nPLANT\tpu\0mp\tF7\n", 31),
         "my.keys:2:1: " + badLine},
        {"a carriage return", "quelhost keys 1\nPLANT\tpump\rx\tF7\n", "my.keys:2:1: " + badLine},
        {"an unknown key", "quelhost keys 1\nA\ta\tF7\nPLANT\tpump\tCtrl+Foo\n",
         "my.keys:3:1: \"Ctrl+Foo\" names no keys, or the same ones twice."},
        {"the same keys", "quelhost keys 1\nPLANT\tpump\tF7; f7\n",
         "my.keys:2:1: \"F7; f7\" names no keys, or the same ones twice."},
        {"a command twice", "quelhost keys 1\nPLANT\tpump\tF7\n# more\nPLANT\tpump\tF8\n",
         "my.keys:4:1: The keys of command pump of menu group PLANT stand in line 2 already."},
        {"no UTF-8", "quelhost keys 1\nPLANT\tp\xFCmp\tF7\n",
         "my.keys:2:1: This line is not valid UTF-8."},
        {"two faults", "quelhost keys 1\nfirst\nPLANT\tpump\tFoo\n", "my.keys:2:1: " + badLine},
    };
    for (const auto& row : rows)
        EXPECT_EQ(read(row.file), row.fault) << row.name;
}

TEST(KeyFile, IsExportedAndImported)
{
    const ScratchFolder folder;
    const QString path = folder.file("my.keys");
    ASSERT_EQ(told(exportKeys(path, {})), "done");
    ASSERT_EQ(told(exportKeys(path, kChanges)), "done");
    EXPECT_EQ(bytesOf(path).toStdString(), kFile);
    const Result<KeyChanges> changes = importKeys(path);
    ASSERT_TRUE(changes);
    EXPECT_EQ(changes.value(), kChanges);
    EXPECT_EQ(folder.names(), std::vector<std::string>{"my.keys"});
}

TEST(KeyFile, SaysWhyItCannotBeExportedOrImported)
{
    const ScratchFolder folder;
    const Result<KeyChanges> missing = importKeys(folder.file("none.keys"));
    ASSERT_FALSE(missing);
    EXPECT_EQ(missing.fault().kind, FaultKind::NotFound);
    EXPECT_TRUE(missing.fault().text().contains(text("none.keys")));
    const Result<KeyChanges> noFile = importKeys(folder.path());
    ASSERT_FALSE(noFile);
    EXPECT_EQ(noFile.fault().kind, FaultKind::BadInput);
    ASSERT_TRUE(setBytes(folder.file("bad.keys"), "quelhost keys 1\nx\n"));
    const Result<KeyChanges> bad = importKeys(folder.file("bad.keys"));
    ASSERT_FALSE(bad);
    EXPECT_TRUE(bad.fault().text().startsWith(text("bad.keys:2:1: ")));
    const Status written = exportKeys(folder.file("none/my.keys"), kChanges);
    ASSERT_FALSE(written);
    EXPECT_TRUE(written.fault().text().contains(text("none/my.keys")));
}
