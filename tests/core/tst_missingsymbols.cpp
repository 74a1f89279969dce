#include "refhost/core/missingsymbols.h"

#include "tests/core/settingssupport.h"

#include <gtest/gtest.h>

#include <chrono>
#include <cstring>
#include <dlfcn.h>
#include <elf.h>
#include <link.h>

using namespace quelhost;
using namespace quelhost::test;

namespace {

constexpr char kMissing[] = QUEL_TEST_MODULES "/missing.so";

QStringList missing(const QByteArray& path, const char* message)
{
    return missingSymbols(path.constData(), QString::fromLatin1(message));
}

QStringList sorted(QStringList names)
{
    names.sort();
    return names;
}

QStringList texts(std::initializer_list<const char*> all)
{
    QStringList result;
    for (const char* text : all)
        result << QString::fromLatin1(text);
    return result;
}

const QStringList kAllMissing = texts(
    {"lost::Machine::turn(int) const", "lost::wheels", "lostText(wchar_t const*)", "lost_plain"});

// Sets the size of each section of that type.
QByteArray withSectionSize(QByteArray library, unsigned int type, ElfW(Xword) size)
{
    ElfW(Ehdr) header;
    std::memcpy(&header, library.constData(), sizeof header);
    for (std::size_t i = 0; i < header.e_shnum; ++i) {
        char* const place = library.data() + header.e_shoff + i * sizeof(ElfW(Shdr));
        ElfW(Shdr) section;
        std::memcpy(&section, place, sizeof section);
        if (section.sh_type == type)
            section.sh_size = size;
        std::memcpy(place, &section, sizeof section);
    }
    return library;
}

} // namespace

TEST(MissingSymbols, AllAreNamedReadablyTheLoadersFirst)
{
    const QStringList names =
        missing(kMissing, "/m/missing.so: undefined symbol: _ZN4lost6wheelsE");
    ASSERT_FALSE(names.isEmpty());
    EXPECT_EQ(names.first(), QStringLiteral("lost::wheels"));
    EXPECT_EQ(sorted(names), kAllMissing);
}

TEST(MissingSymbols, TheLoadersNameIsReadWithAndWithoutAVersion)
{
    const QByteArray nowhere = "/nowhere/m.so";
    EXPECT_EQ(missing(nowhere, "m.so: undefined symbol: _Z4loadv"), texts({"load()"}));
    EXPECT_EQ(missing(nowhere, "m.so: undefined symbol: _Z4loadv, version HOST_2"),
              texts({"load()"}));
    EXPECT_EQ(missing(nowhere, "m.so: undefined symbol: load_plain (fatal)"),
              texts({"load_plain"}));
}

TEST(MissingSymbols, AnotherRefusalHasNone)
{
    EXPECT_EQ(missing(kMissing, "/m/missing.so: invalid ELF header"), QStringList());
    EXPECT_EQ(missing(kMissing, ""), QStringList());
}

TEST(MissingSymbols, TheLibraryIsNotLoaded)
{
    const QStringList names = missing(kMissing, "m.so: undefined symbol: lost_plain");
    EXPECT_EQ(names.size(), 4);
    EXPECT_EQ(::dlopen(kMissing, RTLD_NOW | RTLD_NOLOAD), nullptr);
}

TEST(MissingSymbols, ABrokenFileYieldsWhatTheLoaderSaidAndNothingElse)
{
    const ScratchFolder folder;
    const QString file = folder.file("broken.so");
    const QByteArray good = bytesOf(QString::fromLatin1(kMissing));
    ASSERT_GT(good.size(), 5000);
    const std::pair<const char*, QByteArray> rows[] = {
        {"empty", {}},
        {"a text", "This is no library.\n"},
        {"its first bytes", good.left(40)},
        {"without its sections", good.left(2000)},
    };
    for (const auto& [name, bytes] : rows) {
        SCOPED_TRACE(name);
        ASSERT_TRUE(setBytes(file, bytes));
        EXPECT_EQ(missing(file.toUtf8(), "m.so: undefined symbol: lost_plain"),
                  texts({"lost_plain"}));
    }
}

TEST(MissingSymbols, ASectionThatClaimsMoreThanTheFileHoldsEndsWithTheFile)
{
    const ScratchFolder folder;
    const QString file = folder.file("broken.so");
    const QByteArray good = bytesOf(QString::fromLatin1(kMissing));
    for (const unsigned int type : {SHT_DYNSYM, SHT_DYNAMIC, SHT_STRTAB}) {
        for (const ElfW(Xword) size : {~ElfW(Xword){0}, ElfW(Xword){1} << 40}) {
            ASSERT_TRUE(setBytes(file, withSectionSize(good, type, size)));
            const auto start = std::chrono::steady_clock::now();
            const QStringList names = missing(file.toUtf8(), "m.so: undefined symbol: lost_plain");
            EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(2));
            EXPECT_TRUE(names.contains(QStringLiteral("lost_plain")));
        }
    }
}
