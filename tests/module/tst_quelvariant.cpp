#include "host/quelvariant.h"

#include "tests/support/memorywatch.h"
#include "tests/support/recordinghost.h"

#include <gtest/gtest.h>

#include <sys/mman.h>
#include <unistd.h>

#include <climits>
#include <memory>
#include <stdexcept>

using recording::host;
using recording::MemoryWatch;
using recording::Refusal;
using Lines = std::vector<std::string>;

namespace {

struct FreeBlock
{
    void operator()(void* block) const { std::free(block); }
};
using Block = std::unique_ptr<void, FreeBlock>;

Block allocate(int type, int payloadBytes)
{
    return Block(QuelVariant::allocateValue(static_cast<QuelVariant::VarType>(type), payloadBytes));
}

std::uint32_t sizeField(const void* block)
{
    std::uint32_t size = 0;
    std::memcpy(&size, block, sizeof size);
    return size;
}

// The block as 32-bit words, the size field first.
std::vector<std::uint32_t> words(const QuelVariant& value)
{
    if (value.block() == nullptr)
        return {};
    std::vector<std::uint32_t> result(sizeField(value.block()) / 4);
    std::memcpy(result.data(), value.block(), result.size() * 4);
    return result;
}

QuelVariant stringOf(const wchar_t* text, QuelVariant::VarType type = QuelVariant::kString)
{
    QuelVariant value;
    value.setString(text, type);
    return value;
}

// A block made by hand, as a careless host would.
QuelVariant rawValue(QuelVariant::VarType type, std::uint32_t size,
                     std::initializer_list<std::uint32_t> payload)
{
    void* const block = std::malloc(4 + payload.size() * 4);
    std::memcpy(block, &size, 4);
    if (payload.size() > 0)
        std::memcpy(static_cast<char*>(block) + 4, payload.begin(), payload.size() * 4);
    QuelVariant value;
    value.install(type, block);
    return value;
}

// What comes out when `code` runs; null when nothing does.
template<typename Code>
std::unique_ptr<VxErrorStatus> errorOf(Code code)
{
    try {
        code();
    } catch (VxErrorStatus* error) {
        return std::unique_ptr<VxErrorStatus>(error);
    }
    return nullptr;
}

// The same when it does not get the memory that it asks for first.
template<typename Code>
std::unique_ptr<VxErrorStatus> errorWithoutMemory(Code code)
{
    MemoryWatch watch(Refusal::one(1));
    return errorOf([&] { watch.run(code); });
}

#if !defined(__SANITIZE_THREAD__) // which would keep a note of each of the bytes read
// A text of 2^30 characters. Little memory lies behind it: one piece, seen again and again, and a
// page of zeros at the end.
class EndlessText
{
public:
    EndlessText()
        : m_file(memfd_create("text", 0))
        , m_start(static_cast<char*>(mmap(nullptr, kBytes + kPage, PROT_READ | PROT_WRITE,
                                          MAP_PRIVATE | MAP_ANONYMOUS | MAP_NORESERVE, -1, 0)))
    {
        const std::wstring piece(kPiece / sizeof(wchar_t), L'x');
        if (m_start == MAP_FAILED || write(m_file, piece.data(), kPiece) != kPiece)
            throw std::runtime_error("no text of that length");
        for (std::size_t at = 0; at < kBytes; at += kPiece) {
            if (mmap(m_start + at, kPiece, PROT_READ, MAP_SHARED | MAP_FIXED, m_file, 0) ==
                MAP_FAILED)
                throw std::runtime_error("no text of that length");
        }
    }
    ~EndlessText()
    {
        munmap(m_start, kBytes + kPage);
        close(m_file);
    }
    EndlessText(const EndlessText&) = delete;
    EndlessText& operator=(const EndlessText&) = delete;

    [[nodiscard]] const wchar_t* text() const { return reinterpret_cast<const wchar_t*>(m_start); }

private:
    static constexpr std::size_t kBytes = std::size_t{1} << 32;
    static constexpr ssize_t kPiece = 1 << 22;
    static constexpr std::size_t kPage = 4096;

    int m_file;
    char* m_start;
};
#endif

} // namespace

TEST(QuelVariant, AllocatesBlocksOfTheseSizes)
{
    struct Row
    {
        const char* name;
        int type;
        int payloadBytes;
        std::uint32_t size; // 0: no block
    };
    for (const Row& row :
         {Row{"empty string", 5, 4, 8}, Row{"string", 5, 12, 16}, Row{"one byte", 5, 1, 5},
          Row{"integer by its type", 1, 0, 8}, Row{"integer and a payload", 1, 100, 104},
          Row{"kind 2 by its type", 2, 0, 12}, Row{"kind 3 by its type", 3, 0, 12},
          Row{"kind 3 and a payload", 3, 1, 5}, Row{"none by its type", 0, 0, 0},
          Row{"none and a payload", 0, 8, 12}, Row{"kind 7", 7, 8, 12}, Row{"kind 8", 8, 8, 12},
          Row{"unknown kind and a payload", 99, 8, 12}, Row{"negative, integer", 1, -1, 8},
          Row{"negative, none", 0, INT_MIN, 0}, Row{"negative, kind 2", 2, -8, 12}}) {
        const Block block = allocate(row.type, row.payloadBytes);
        ASSERT_EQ(block != nullptr, row.size != 0) << row.name;
        if (block == nullptr)
            continue;
        EXPECT_EQ(sizeField(block.get()), row.size) << row.name;
        std::memset(static_cast<char*>(block.get()) + 4, 0x5A, row.size - 4);
    }
    EXPECT_EQ(host().trace, Lines{});
}

TEST(QuelVariant, RefusesAKindThatItDoesNotKnowWithoutAPayload)
{
    for (const int type : {4, 5, 6, 7, 8, 9, 99, INT_MAX}) {
        for (const int payloadBytes : {0, -1}) {
            recording::reset();
            const auto error = errorOf([&] { allocate(type, payloadBytes); });
            ASSERT_NE(error, nullptr) << type;
            EXPECT_EQ(error->status(), 3) << type;
            EXPECT_STREQ(error->context(), L"\"\"") << type;
            EXPECT_EQ(error->code(), 0) << type;
            ASSERT_EQ(host().crashes.size(), 1U) << type;
            EXPECT_EQ(host().crashes[0].address, error.get()) << type;
            EXPECT_EQ(host().crashes[0].status, 3) << type;
        }
    }
}

TEST(QuelVariant, ThrowsAllTheSameWhenNobodyKeepsARecord)
{
    host().recorderIsThere.usually(false);
    const auto error = errorOf([] { allocate(5, 0); });
    ASSERT_NE(error, nullptr);
    EXPECT_EQ(error->status(), 3);
    EXPECT_EQ(host().crashes.size(), 0U);
    EXPECT_EQ(host().trace, Lines{"quelGetCrashRecorder() -> null"});
}

TEST(QuelVariant, TellsTheRecorderOnceBeforeItThrows)
{
    const auto error = errorOf([] { allocate(5, 0); });
    EXPECT_NE(error, nullptr);
    EXPECT_EQ(host().trace, (Lines{"quelGetCrashRecorder() -> recorder", "record(status 3)"}));
}

TEST(QuelVariant, ReportsMemoryThatRunsOut)
{
    for (const auto& [type, payloadBytes] :
         {std::pair{5, 4}, std::pair{1, 0}, std::pair{2, 0}, std::pair{0, 8}}) {
        recording::reset();
        const auto error = errorWithoutMemory(
            [type = type, payloadBytes = payloadBytes] { allocate(type, payloadBytes); });
        ASSERT_NE(error, nullptr) << type;
        EXPECT_EQ(error->status(), 6) << type;
        EXPECT_STREQ(error->context(), L"\"\"") << type;
        EXPECT_EQ(error->code(), 0) << type;
        ASSERT_EQ(host().crashes.size(), 1U) << type;
        EXPECT_EQ(host().crashes[0].address, error.get()) << type;
        EXPECT_EQ(host().crashes[0].status, 6) << type;
    }
}

TEST(QuelVariant, AsksForTheWholeSizeOfTheLargestPayload)
{
    MemoryWatch watch(Refusal::ofSize(2147483651U));
    const auto error = errorOf([&] { watch.run([] { allocate(5, INT_MAX); }); });
    ASSERT_NE(error, nullptr);
    EXPECT_EQ(error->status(), 6);
    EXPECT_EQ(watch.refused(), 1);
}

TEST(QuelVariant, StoresStrings)
{
    struct Row
    {
        const char* name;
        const wchar_t* text;
        std::vector<std::uint32_t> words;
    };
    for (const Row& row : {Row{"two letters", L"ab", {16, 'a', 'b', 0}}, Row{"empty", L"", {8, 0}},
                           Row{"null", nullptr, {8, 0}},
                           Row{"outside the basic plane", L"\U0001F600", {12, 0x1F600, 0}},
                           Row{"a leading mark", L"\uFEFFx", {16, 0xFEFF, 'x', 0}}}) {
        for (const auto type :
             {QuelVariant::kString, QuelVariant::kString7, QuelVariant::kString8}) {
            const QuelVariant value = stringOf(row.text, type);
            EXPECT_EQ(value.type(), type) << row.name;
            EXPECT_EQ(words(value), row.words) << row.name << " " << type;
        }
    }
}

TEST(QuelVariant, ReplacesWhatItHeld)
{
    QuelVariant value = stringOf(L"something longer");
    value.setString(L"x", QuelVariant::kString);
    EXPECT_EQ(words(value), (std::vector<std::uint32_t>{12, 'x', 0}));
    value.setInteger(-7);
    EXPECT_EQ(value.type(), QuelVariant::kInteger);
    EXPECT_EQ(words(value), (std::vector<std::uint32_t>{8, 0xFFFFFFF9}));
    value.setString(L"y", QuelVariant::kString7);
    EXPECT_EQ(value.type(), QuelVariant::kString7);
    EXPECT_EQ(words(value), (std::vector<std::uint32_t>{12, 'y', 0}));
}

TEST(QuelVariant, TakesATextOutOfItsOwnBlock)
{
    QuelVariant value = stringOf(L"prefix and a rest that is long enough to matter");
    const auto* const own = reinterpret_cast<const wchar_t*>(
        static_cast<const char*>(value.block()) + sizeof(std::uint32_t));
    value.setString(own + 7, QuelVariant::kString);
    EXPECT_EQ(value.stringOrEmpty(), L"and a rest that is long enough to matter");
    const auto* const again = reinterpret_cast<const wchar_t*>(
        static_cast<const char*>(value.block()) + sizeof(std::uint32_t));
    value.setString(again, QuelVariant::kString8);
    EXPECT_EQ(words(value).size(), 42U);
}

TEST(QuelVariant, HoldsTheNewKindAndNothingWhenMemoryRunsOut)
{
    QuelVariant value;
    value.setInteger(7);
    const auto error =
        errorWithoutMemory([&value] { value.setString(L"text", QuelVariant::kString); });
    ASSERT_NE(error, nullptr);
    EXPECT_EQ(error->status(), 6);
    EXPECT_EQ(value.type(), QuelVariant::kString);
    EXPECT_EQ(value.block(), nullptr);
    EXPECT_EQ(value.stringOrEmpty(), L"");
    const auto second = errorWithoutMemory([&value] { value.setInteger(8); });
    ASSERT_NE(second, nullptr);
    EXPECT_EQ(value.type(), QuelVariant::kInteger);
    EXPECT_EQ(value.integerOrZero(), 0);
    value.setString(L"again", QuelVariant::kString);
    EXPECT_EQ(value.stringOrEmpty(), L"again");
}

TEST(QuelVariant, ReportsMemoryThatRunsOutForALongTextOnlyInItsOwnWay)
{
    const std::wstring text(100000, L'x');
    QuelVariant value = stringOf(L"old");
    MemoryWatch watch(Refusal::ofAtLeast(text.size() * sizeof(wchar_t)));
    const auto error =
        errorOf([&] { watch.run([&] { value.setString(text.c_str(), QuelVariant::kString); }); });
    ASSERT_NE(error, nullptr);
    EXPECT_EQ(error->status(), 6);
    EXPECT_EQ(watch.refused(), 1);
    EXPECT_EQ(host().crashes.size(), 1U);
    EXPECT_EQ(value.block(), nullptr);
}

#if !defined(__SANITIZE_THREAD__)
TEST(QuelVariant, RefusesATextWhoseSizeItsFieldCannotHold)
{
    const EndlessText endless;
    QuelVariant value;
    const auto error = errorOf([&] { value.setString(endless.text(), QuelVariant::kString); });
    ASSERT_NE(error, nullptr);
    EXPECT_EQ(error->status(), 6);
    EXPECT_EQ(value.block(), nullptr);
}

#endif

TEST(QuelVariant, ReadsIntegersOfItsKindOnly)
{
    struct Row
    {
        const char* name;
        QuelVariant value;
        int integer;
    };
    std::vector<Row> rows(8);
    rows[0] = {"an integer", {}, -123456};
    rows[0].value.setInteger(-123456);
    rows[1] = {"the smallest", {}, INT_MIN};
    rows[1].value.setInteger(INT_MIN);
    rows[2] = {"nothing", {}, 0};
    rows[3] = {"a string", stringOf(L"7"), 0};
    rows[4] = {"an integer without a block", {}, 0};
    rows[4].value.install(QuelVariant::kInteger, nullptr);
    rows[5] = {"a block that is too small", rawValue(QuelVariant::kInteger, 6, {0xFFFF0007}), 0};
    rows[6] = {"a block that says nothing", rawValue(QuelVariant::kInteger, 0, {7}), 0};
    rows[7] = {"another kind with an integer's block", rawValue(QuelVariant::kWide2, 8, {7}), 0};
    for (const Row& row : rows)
        EXPECT_EQ(row.value.integerOrZero(), row.integer) << row.name;
}

TEST(QuelVariant, ReadsStringsOfItsKindOnly)
{
    struct Row
    {
        const char* name;
        QuelVariant value;
        std::wstring text;
    };
    std::vector<Row> rows(9);
    rows[0] = {"a string", stringOf(L"a\U0001F600;b"), L"a\U0001F600;b"};
    rows[1] = {"an empty string", stringOf(L""), L""};
    rows[2] = {"nothing", {}, L""};
    rows[3] = {"an integer", {}, L""};
    rows[3].value.setInteger('7');
    rows[4] = {"kind 7", stringOf(L"x", QuelVariant::kString7), L""};
    rows[5] = {"kind 8", stringOf(L"x", QuelVariant::kString8), L""};
    rows[6] = {"a string without a block", {}, L""};
    rows[6].value.install(QuelVariant::kString, nullptr);
    rows[7] = {"no terminator", rawValue(QuelVariant::kString, 12, {'a', 'b'}), L"ab"};
    rows[8] = {"no room for a character", rawValue(QuelVariant::kString, 4, {}), L""};
    for (const Row& row : rows)
        EXPECT_EQ(row.value.stringOrEmpty(), row.text) << row.name;
}

TEST(QuelVariant, InstallsABlockMadeByHand)
{
    QuelVariant value = stringOf(L"old");
    void* const block = QuelVariant::allocateValue(QuelVariant::kString, 4);
    std::memset(static_cast<char*>(block) + 4, 0, 4);
    value.install(QuelVariant::kString, block);
    EXPECT_EQ(value.block(), block);
    EXPECT_EQ(words(value), (std::vector<std::uint32_t>{8, 0}));
    value.install(QuelVariant::kNone, nullptr);
    EXPECT_EQ(value.type(), QuelVariant::kNone);
    EXPECT_EQ(value.block(), nullptr);
}

TEST(QuelVariant, CopiesDeeply)
{
    QuelVariant original = stringOf(L"text");
    const QuelVariant copy(original);
    EXPECT_NE(copy.block(), original.block());
    original.setString(L"changed", QuelVariant::kString);
    EXPECT_EQ(copy.stringOrEmpty(), L"text");
    QuelVariant assigned;
    assigned.setInteger(3);
    assigned = copy;
    EXPECT_NE(assigned.block(), copy.block());
    EXPECT_EQ(assigned.stringOrEmpty(), L"text");
    const QuelVariant& self = assigned;
    assigned = self;
    EXPECT_EQ(assigned.stringOrEmpty(), L"text");
    assigned = QuelVariant();
    EXPECT_EQ(assigned.type(), QuelVariant::kNone);
    EXPECT_EQ(assigned.block(), nullptr);
    const QuelVariant none;
    const QuelVariant copyOfNone(none);
    EXPECT_EQ(copyOfNone.block(), nullptr);
}

TEST(QuelVariant, CopiesABlockThatSaysNothing)
{
    const QuelVariant copy(rawValue(QuelVariant::kString, 0, {7}));
    const QuelVariant second = copy;
    EXPECT_EQ(second.type(), QuelVariant::kString);
    EXPECT_EQ(second.stringOrEmpty(), L"");
}

TEST(QuelVariant, HoldsNothingWhenACopyFindsNoMemory)
{
    const QuelVariant original = stringOf(L"text");
    QuelVariant target = stringOf(L"old");
    const auto error = errorWithoutMemory([&] { target = original; });
    ASSERT_NE(error, nullptr);
    EXPECT_EQ(error->status(), 6);
    EXPECT_EQ(target.block(), nullptr);
    EXPECT_EQ(original.stringOrEmpty(), L"text");
}

TEST(QuelVariant, MovesItsBlock)
{
    QuelVariant original = stringOf(L"text");
    const void* const block = original.block();
    QuelVariant moved(std::move(original));
    EXPECT_EQ(moved.block(), block);
    QuelVariant target = stringOf(L"old");
    target = std::move(moved);
    EXPECT_EQ(target.block(), block);
    EXPECT_EQ(target.stringOrEmpty(), L"text");
}

TEST(QuelVariant, StartsWithoutAValue)
{
    const QuelVariant value;
    EXPECT_EQ(value.type(), 0);
    EXPECT_EQ(value.block(), nullptr);
    EXPECT_EQ(value.integerOrZero(), 0);
    EXPECT_EQ(value.stringOrEmpty(), L"");
}
