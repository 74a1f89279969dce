// QuelVariant: a configuration value, a type tag and one heap block.
//
// Header-only, because host and module read and fill each other's values and must agree on the
// storage:
//  - the block comes from malloc and is released with free;
//  - it starts with an unsigned 32-bit field, the block's size in bytes with that field included;
//  - type 1: a 32-bit integer follows (8 bytes in all);
//  - types 2 and 3: 8 bytes follow (12 in all), at an address that may be unaligned for them;
//  - types 5, 7 and 8: UTF-32 characters follow with a terminating zero character;
//  - type 0 has no block.
// Who reads a value takes it only when the tag is the expected one and there is a block.
#pragma once

#include "host/errors.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <cwchar>
#include <memory>
#include <string>
#include <utility>

class QuelVariant
{
public:
    enum VarType : std::int32_t {
        kNone = 0,
        kInteger = 1,
        kWide2 = 2, // a 12-byte block; no module reads or writes it
        kWide3 = 3, // likewise
        kString = 5,
        kString7 = 7, // stored like kString
        kString8 = 8, // likewise
    };

    QuelVariant() = default;
    ~QuelVariant() { std::free(m_block); }

    QuelVariant(const QuelVariant& other) { copyFrom(other); }
    QuelVariant& operator=(const QuelVariant& other)
    {
        if (this != &other) {
            reset(kNone);
            copyFrom(other);
        }
        return *this;
    }
    QuelVariant(QuelVariant&& other) noexcept
        : m_type(std::exchange(other.m_type, kNone))
        , m_block(std::exchange(other.m_block, nullptr))
    {}
    QuelVariant& operator=(QuelVariant&& other) noexcept
    {
        std::swap(m_type, other.m_type);
        std::swap(m_block, other.m_block);
        return *this;
    }

    VarType type() const { return m_type; }
    // The block, size field first, or null. Owned by the variant.
    const void* block() const { return m_block; }

    // A new block, owned by the caller until it is installed or freed. A positive `payloadBytes`
    // gives that many bytes behind the size field, whatever the type; otherwise the type decides:
    // 1 gives 8 bytes, 2 and 3 give 12, 0 gives no block. The payload is left uninitialised.
    // Throws VxErrorStatus* with eBadType for another type without a payload, eNoMemory when memory
    // is exhausted.
    [[nodiscard]] static void* allocateValue(VarType type, int payloadBytes)
    {
        return allocateBlock(blockSize(type, payloadBytes));
    }

    // Frees the old block, sets the tag and takes over `block`, which came from allocateValue for
    // that type or is null.
    void install(VarType type, void* block)
    {
        reset(type);
        m_block = block;
    }

    // Stores a copy of `text`, null counting as empty. Throws VxErrorStatus* with eNoMemory.
    // REQUIRES: `type` is 5, 7 or 8. `text` may lie in this variant's own block.
    void setString(const wchar_t* text, VarType type);

    // Stores a 32-bit integer. Throws VxErrorStatus* with eNoMemory.
    void setInteger(std::int32_t value)
    {
        reset(kInteger);
        m_block = allocateValue(kInteger, 0);
        std::memcpy(static_cast<char*>(m_block) + kHeader, &value, sizeof value);
    }

    // The integer, or 0 when the value is no integer or holds no data.
    std::int32_t integerOrZero() const
    {
        std::int32_t value = 0;
        if (m_type == kInteger && payloadBytes() >= sizeof value)
            std::memcpy(&value, payload(), sizeof value);
        return value;
    }

    // The text up to its zero character or the end of the block, whichever comes first; empty when
    // the value is no string of type 5 or holds no data.
    std::wstring stringOrEmpty() const
    {
        if (m_type != kString || m_block == nullptr)
            return {};
        const auto* text = reinterpret_cast<const wchar_t*>(payload());
        const std::size_t length = wcsnlen(text, payloadBytes() / sizeof(wchar_t));
        return std::wstring(text, length); // GCOVR_EXCL_BR_LINE: exception in an unused copy
    }

private:
    static constexpr std::size_t kHeader = sizeof(std::uint32_t);

    static std::size_t blockSize(VarType type, int payloadBytes)
    {
        if (payloadBytes > 0)
            return static_cast<std::size_t>(payloadBytes) + kHeader;
        switch (type) {
        case kNone:
            return 0;
        case kInteger:
            return kHeader + 4;
        case kWide2:
        case kWide3:
            return kHeader + 8;
        default:
            raise(Quel::eBadType);
        }
    }

    // Null for a size of 0. The size field has 32 bits, so a larger block is one too many.
    static void* allocateBlock(std::size_t size)
    {
        if (size == 0)
            return nullptr;
        void* block = size > UINT32_MAX ? nullptr : std::malloc(size);
        if (block == nullptr)
            raise(Quel::eNoMemory);
        const auto field = static_cast<std::uint32_t>(size);
        std::memcpy(block, &field, sizeof field);
        return block;
    }

    [[noreturn]] static void raise(Quel::ErrorStatus status)
    {
        // The context is a pair of double quotes, as everywhere in the host. A recorder that throws
        // takes this error's place.
        // GCOVR_EXCL_BR_START: exceptions in unused copies
        auto error = std::make_unique<VxErrorStatus>(status, L"\"\"", 0);
        if (QuelCrashRecorder* recorder = quelGetCrashRecorder())
            recorder->record(error.get());
        // GCOVR_EXCL_BR_STOP
        throw error.release();
    }

    // Nulls the pointer at once, so that an allocation that throws leaves nothing to free twice.
    void reset(VarType type)
    {
        std::free(std::exchange(m_block, nullptr));
        m_type = type;
    }

    const char* payload() const { return static_cast<const char*>(m_block) + kHeader; }

    std::size_t payloadBytes() const
    {
        if (m_block == nullptr)
            return 0;
        std::uint32_t size = 0;
        std::memcpy(&size, m_block, sizeof size);
        return size < kHeader ? 0 : size - kHeader;
    }

    void copyFrom(const QuelVariant& other);

    VarType m_type = kNone;
    void* m_block = nullptr;
};

inline void QuelVariant::setString(const wchar_t* text, VarType type)
{
    const QuelVariant old(std::move(*this)); // freed last: `text` may lie in its block
    m_type = type;
    const std::size_t bytes = (text == nullptr ? 0 : std::wcslen(text)) * sizeof(wchar_t);
    const std::size_t size = kHeader + bytes + sizeof(wchar_t);
    m_block = allocateBlock(size); // GCOVR_EXCL_BR_LINE: exception in an unused copy
    char* const characters = static_cast<char*>(m_block) + kHeader;
    if (bytes > 0)
        std::memcpy(characters, text, bytes);            // GCOVR_EXCL_BR_LINE: sanitizer
    std::memset(characters + bytes, 0, sizeof(wchar_t)); // GCOVR_EXCL_BR_LINE: sanitizer
}

inline void QuelVariant::copyFrom(const QuelVariant& other)
{
    m_type = other.m_type;
    if (other.m_block == nullptr)
        return;
    const std::size_t size = kHeader + other.payloadBytes();
    m_block = allocateBlock(size);
    std::memcpy(m_block, other.m_block, size); // GCOVR_EXCL_BR_LINE: sanitizer
}
