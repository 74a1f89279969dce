// What a person does on a terminal's keyboard, out of the bytes that the terminal sends.
#pragma once

#include <functional>
#include <optional>
#include <string>

namespace quelhost {

// A key, or what happened instead of one. Editing keys have characters of their own, which nobody
// can type: control characters from U+0080 to U+009F are passed over.
struct Key
{
    enum class Kind {
        Character, // `character`, one of those below included
        Cancel,    // Esc or Ctrl-C
        Suspend,   // Ctrl-Z
        Quit,      // Ctrl-backslash
        End,       // there is no further key, now or ever
    };
    Kind kind = Kind::End;
    wchar_t character = 0;

    static constexpr wchar_t Up = 0x80;
    static constexpr wchar_t Down = 0x81;
    static constexpr wchar_t Left = 0x82;
    static constexpr wchar_t Right = 0x83;
    static constexpr wchar_t Home = 0x84;
    static constexpr wchar_t EndOfLine = 0x85;
    static constexpr wchar_t Delete = 0x86;
    static constexpr wchar_t WordLeft = 0x87;
    static constexpr wchar_t WordRight = 0x88;
    static constexpr wchar_t DeleteWordBefore = 0x89;
    static constexpr wchar_t DeleteWordAfter = 0x8A;
    static constexpr wchar_t UpperCase = 0x8B;
    static constexpr wchar_t LowerCase = 0x8C;
    static constexpr wchar_t Capitalize = 0x8D;
    static constexpr wchar_t SearchBack = 0x8E;
    static constexpr wchar_t SearchForward = 0x8F;
    static constexpr wchar_t Combine = 0x90; // never read from a keyboard
};

// Understands UTF-8 and the sequences of the usual terminals, whatever TERM says; what it does not
// know is passed over whole, so that no rest of it ends up in the line. Esc is told from the start
// of a sequence by time: nothing follows it within kSequenceGapMs.
class KeyReader
{
public:
    static constexpr int kSequenceGapMs = 50;

    // A byte, 0 to 255, or one of these.
    enum : int { kNoByte = -1, kCancelled = -2, kNoMoreBytes = -3 };
    // Waits for the next byte, but no longer than the given time, where it is not negative.
    using NextByte = std::function<int(int timeoutMs)>;

    explicit KeyReader(NextByte nextByte);

    [[nodiscard]] Key next();

private:
    [[nodiscard]] int take(int timeoutMs);
    [[nodiscard]] std::optional<Key> plainKey(int byte);
    [[nodiscard]] std::optional<Key> afterEscape();
    [[nodiscard]] std::optional<Key> controlSequence();
    [[nodiscard]] std::optional<Key> singleShift();
    [[nodiscard]] std::optional<Key> multiByteCharacter(int lead);

    NextByte m_nextByte;
    std::optional<int> m_putBack;
};

} // namespace quelhost
