// Vectors that share one block.
#include "stream/vxvector.h"

#include "tests/support/memorywatch.h"

#include <gtest/gtest.h>

#include <array>
#include <cstring>
#include <stdexcept>
#include <type_traits>
#include <utility>
#include <vector>

namespace {

using IntVector =
    VxVector<int, VxDefaultMemAllocator<int>, VxRefCounter, VxVectorDefaultGrowPolicy>;

template<typename T, typename A, typename C, typename G>
std::vector<T> elementsOf(const VxVector<T, A, C, G>& vector)
{
    return std::vector<T>(vector.data(), vector.data() + vector.size());
}

IntVector numbers(std::initializer_list<int> values)
{
    return IntVector(values.begin(), values.size());
}

// The vector as others see it: one pointer, to a block that begins with the count.
template<typename Vector>
const void* blockOf(const Vector& vector)
{
    const void* block = nullptr;
    std::memcpy(&block, &vector, sizeof block);
    return block;
}

// How many elements the block has room for: behind the count and the number of elements.
template<typename Vector>
std::size_t roomOf(const Vector& vector)
{
    std::size_t room = 0;
    std::memcpy(&room, static_cast<const unsigned char*>(blockOf(vector)) + 2 * sizeof room,
                sizeof room);
    return room;
}

template<typename Vector>
std::int32_t countOf(const Vector& vector)
{
    std::int32_t count = 0;
    std::memcpy(&count, blockOf(vector), sizeof count);
    return count;
}

// Notes the blocks that are in use.
int blocksInUse = 0;
bool noMoreBlocks = false;

template<typename T>
struct NotingAllocator
{
    static void* allocate(std::size_t bytes)
    {
        if (noMoreBlocks)
            throw std::bad_alloc();
        ++blocksInUse;
        return VxDefaultMemAllocator<T>::allocate(bytes);
    }
    static void release(void* block)
    {
        --blocksInUse;
        VxDefaultMemAllocator<T>::release(block);
    }
};

// An element that is counted, and cannot be copied when it says so.
struct Element
{
    static int alive;
    static int deletedWhileABlockWasThere;

    explicit Element(int number = 0)
        : value(number)
    {
        ++alive;
    }
    Element(const Element& other)
        : value(other.value)
    {
        ++alive;
    }
    Element& operator=(const Element& other)
    {
        if (other.value < 0)
            throw std::runtime_error("no copy");
        value = other.value;
        return *this;
    }
    ~Element()
    {
        --alive;
        deletedWhileABlockWasThere += blocksInUse > 0 ? 1 : 0;
    }

    int value;
};
int Element::alive = 0;
int Element::deletedWhileABlockWasThere = 0;

using ElementVector = VxVector<Element, NotingAllocator<Element>>;

} // namespace

TEST(Vector, IsOnePointerAndNullWhenItIsEmpty)
{
    EXPECT_EQ(sizeof(IntVector), sizeof(void*));
    const IntVector empty;
    const IntVector ofNothing(nullptr, 0);
    for (const IntVector* vector : {&empty, &ofNothing}) {
        EXPECT_EQ(blockOf(*vector), nullptr);
        EXPECT_EQ(vector->size(), 0U);
        EXPECT_EQ(vector->data(), nullptr);
    }
    const IntVector copy(empty);
    EXPECT_EQ(blockOf(copy), nullptr);
    EXPECT_TRUE((std::is_same_v<VxVector<int>, IntVector>));
}

TEST(Vector, CountsThoseThatShareItsBlock)
{
    EXPECT_EQ(sizeof(VxRefCounter), 4U);
    const IntVector vector = numbers({1, 2, 3});
    EXPECT_EQ(countOf(vector), 1);
    {
        const IntVector second(vector);
        const IntVector third(second);
        EXPECT_EQ(countOf(vector), 3);
        EXPECT_EQ(blockOf(third), blockOf(vector));
        EXPECT_EQ(third.data(), vector.data());
    }
    EXPECT_EQ(countOf(vector), 1);
    EXPECT_EQ(elementsOf(vector), (std::vector<int>{1, 2, 3}));
}

TEST(Vector, IsFreedByTheLastOneOnly)
{
    Element::alive = blocksInUse = Element::deletedWhileABlockWasThere = 0;
    {
        const std::array<Element, 3> three;
        std::vector<ElementVector> copies(5, ElementVector(three.data(), 3));
        EXPECT_EQ(Element::alive, 6);
        while (copies.size() > 1) {
            copies.pop_back();
            EXPECT_EQ(Element::alive, 6);
            EXPECT_EQ(blocksInUse, 1);
        }
        copies.pop_back();
        EXPECT_EQ(Element::alive, 3);
        EXPECT_EQ(blocksInUse, 0);
        EXPECT_EQ(Element::deletedWhileABlockWasThere, 3) << "elements go before their block";
    }
    EXPECT_EQ(Element::alive, 0);
}

TEST(Vector, HandsItsBlockOnWhenItIsMoved)
{
    IntVector first = numbers({1, 2});
    const void* const block = blockOf(first);
    const IntVector second(std::move(first));
    EXPECT_EQ(blockOf(second), block);
    EXPECT_EQ(countOf(second), 1);
    EXPECT_EQ(blockOf(first), nullptr); // NOLINT(bugprone-use-after-move): that it is empty
}

TEST(Vector, GivesUpItsBlockWhenItIsAssigned)
{
    const IntVector kept = numbers({1, 2});
    IntVector vector(kept);
    vector = numbers({3});
    EXPECT_EQ(countOf(kept), 1);
    EXPECT_EQ(elementsOf(vector), std::vector<int>{3});
    vector = kept;
    EXPECT_EQ(countOf(kept), 2);
    const IntVector& itself = vector;
    vector = itself;
    EXPECT_EQ(countOf(kept), 2);
    EXPECT_EQ(elementsOf(vector), (std::vector<int>{1, 2}));
    vector = IntVector();
    EXPECT_EQ(countOf(kept), 1);
}

TEST(Vector, GrowsByDoubling)
{
    EXPECT_EQ(VxVectorDefaultGrowPolicy::grow(0, 1), 1U);
    EXPECT_EQ(VxVectorDefaultGrowPolicy::grow(4, 5), 8U);
    EXPECT_EQ(VxVectorDefaultGrowPolicy::grow(4, 20), 20U);
    IntVector vector;
    std::vector<int> expected;
    int blocks = 0;
    for (int i = 0; i < 1000; ++i) {
        const void* const block = blockOf(vector);
        vector.append(i);
        expected.push_back(i);
        blocks += blockOf(vector) == block ? 0 : 1;
        ASSERT_EQ(elementsOf(vector), expected);
    }
    EXPECT_EQ(blocks, 11);
    EXPECT_EQ(countOf(vector), 1);
}

TEST(Vector, GetsABlockOfItsOwnBeforeItChanges)
{
    IntVector vector;
    for (const int number : {1, 2, 3})
        vector.append(number);
    IntVector copy(vector);
    copy.append(9);
    EXPECT_EQ(elementsOf(vector), (std::vector<int>{1, 2, 3}));
    EXPECT_EQ(elementsOf(copy), (std::vector<int>{1, 2, 3, 9}));
    EXPECT_EQ(countOf(vector), 1);
    EXPECT_EQ(countOf(copy), 1);
}

TEST(Vector, DoesNotGrowForSharingAlone)
{
    IntVector vector;
    std::size_t room = 1;
    for (std::size_t i = 0; i < 40; ++i) {
        const IntVector snapshot(vector);
        vector.append(7);
        room = room > i ? room : 2 * room;
        ASSERT_EQ(roomOf(vector), room) << "with " << vector.size();
        ASSERT_EQ(snapshot.size(), i);
    }
    EXPECT_EQ(room, 64U);
    EXPECT_EQ(elementsOf(vector), std::vector<int>(40, 7));
}

TEST(Vector, TakesOneOfItsOwnElements)
{
    IntVector vector = numbers({7});
    for (int i = 0; i < 20; ++i)
        vector.append(*vector.data());
    EXPECT_EQ(elementsOf(vector), std::vector<int>(21, 7));
}

TEST(Vector, SaysWhenThereIsNoMemoryForItsBlock)
{
    const int number = 7;
    IntVector vector(&number, 1);
    // Of all that follows, only the block is as large.
    recording::MemoryWatch watch(recording::Refusal::ofSize(sizeof(void*) * 4));
    EXPECT_THROW(watch.run([&number] { IntVector(&number, 1); }), std::bad_alloc);
    EXPECT_EQ(watch.refused(), 1);
    EXPECT_THROW(watch.run([&vector] { vector.append(8); }), std::bad_alloc);
    EXPECT_EQ(watch.refused(), 2);
    EXPECT_TRUE(watch.live().empty());
    EXPECT_EQ(elementsOf(vector), std::vector<int>{7});
}

TEST(Vector, HasNotMoreElementsThanMemoryCanHold)
{
    const int number = 7;
    EXPECT_THROW(IntVector(&number, SIZE_MAX / 2), std::bad_alloc);
}

TEST(Vector, IsAsItWasWhenItCannotGrow)
{
    Element::alive = blocksInUse = 0;
    {
        const Element one(1);
        ElementVector vector(&one, 1);
        noMoreBlocks = true;
        EXPECT_THROW(vector.append(one), std::bad_alloc);
        noMoreBlocks = false;
        EXPECT_EQ(vector.size(), 1U);
        EXPECT_EQ(Element::alive, 2);

        const Element uncopyable(-1);
        EXPECT_THROW(ElementVector(&uncopyable, 1), std::runtime_error);
        EXPECT_THROW(vector.append(uncopyable), std::runtime_error);
        EXPECT_EQ(vector.size(), 1U);
        EXPECT_EQ(countOf(vector), 1);

        vector.append(one);
        EXPECT_EQ(vector.size(), 2U);
        EXPECT_EQ(vector.data()[1].value, 1);
    }
    EXPECT_EQ(Element::alive, 0);
    EXPECT_EQ(blocksInUse, 0);
}
