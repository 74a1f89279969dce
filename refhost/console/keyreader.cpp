#include "refhost/console/keyreader.h"

#include "refhost/core/utf8cursor.h"
#include "refhost/core/widetext.h"

#include <string_view>
#include <utility>

namespace quelhost {

namespace {

constexpr int kEscape = 0x1B;
constexpr int kBackspace = 0x08;
constexpr int kDelete = 0x7F;
constexpr wchar_t kReplacement = 0xFFFD;
constexpr std::size_t kLongestSequence = 32;

constexpr int control(char letter)
{
    return letter & 0x1F;
}

Key characterKey(wchar_t character)
{
    return {Key::Kind::Character, character};
}

struct Sequence
{
    std::string_view text; // behind Esc [, or behind Esc O where it is a single letter
    wchar_t key;
};

// Modifiers stand behind ";": 3 is Alt, 5 is Ctrl.
constexpr Sequence kSequences[] = {
    {"A", Key::Up},
    {"B", Key::Down},
    {"C", Key::Right},
    {"D", Key::Left},
    {"H", Key::Home},
    {"F", Key::EndOfLine},
    {"1~", Key::Home},
    {"7~", Key::Home},
    {"4~", Key::EndOfLine},
    {"8~", Key::EndOfLine},
    {"3~", Key::Delete},
    {"5~", Key::SearchBack},
    {"6~", Key::SearchForward},
    {"1;3C", Key::WordRight},
    {"1;5C", Key::WordRight},
    {"1;3D", Key::WordLeft},
    {"1;5D", Key::WordLeft},
    {"3;3~", Key::DeleteWordAfter},
    {"3;5~", Key::DeleteWordAfter},
};

struct AltKey
{
    int byte;
    wchar_t key;
};

constexpr AltKey kAltKeys[] = {
    {'b', Key::WordLeft},
    {'f', Key::WordRight},
    {'d', Key::DeleteWordAfter},
    {kBackspace, Key::DeleteWordBefore},
    {kDelete, Key::DeleteWordBefore},
    {'u', Key::UpperCase},
    {'l', Key::LowerCase},
    {'c', Key::Capitalize},
    {'p', Key::SearchBack},
    {'n', Key::SearchForward},
};

std::optional<Key> sequenceKey(std::string_view text)
{
    for (const Sequence& sequence : kSequences) {
        if (sequence.text == text)
            return characterKey(sequence.key);
    }
    return std::nullopt;
}

std::optional<Key> altKey(int byte)
{
    for (const AltKey& alt : kAltKeys) {
        if (alt.byte == byte)
            return characterKey(alt.key);
    }
    return std::nullopt;
}

// Bytes of the sequence that `lead` begins, or 1 when it begins none.
std::size_t lengthByLead(int lead)
{
    if (lead >= 0xF0 && lead <= 0xF4)
        return 4;
    if (lead >= 0xE0 && lead < 0xF0)
        return 3;
    return lead >= 0xC2 && lead < 0xE0 ? 2 : 1;
}

} // namespace

KeyReader::KeyReader(NextByte nextByte)
    : m_nextByte(std::move(nextByte))
{}

Key KeyReader::next()
{
    for (;;) {
        const int byte = take(-1);
        const std::optional<Key> key = byte == kEscape ? afterEscape() : plainKey(byte);
        if (key)
            return *key;
    }
}

int KeyReader::take(int timeoutMs)
{
    if (m_putBack)
        return *std::exchange(m_putBack, std::nullopt);
    return m_nextByte(timeoutMs);
}

std::optional<Key> KeyReader::plainKey(int byte)
{
    switch (byte) {
    case kNoMoreBytes:
        return Key{Key::Kind::End, 0};
    case kCancelled:
    case control('C'):
        return Key{Key::Kind::Cancel, 0};
    case control('Z'):
        return Key{Key::Kind::Suspend, 0};
    case control('\\'):
        return Key{Key::Kind::Quit, 0};
    default:
        return byte < 0x80 ? characterKey(static_cast<wchar_t>(byte)) : multiByteCharacter(byte);
    }
}

std::optional<Key> KeyReader::afterEscape()
{
    const int byte = take(kSequenceGapMs);
    if (byte == '[')
        return controlSequence();
    if (byte == 'O')
        return singleShift();
    if (const std::optional<Key> key = altKey(byte))
        return key;
    // Alt with a key that means nothing here is nothing; a control key was no Alt key at all.
    if (byte >= 0x20)
        return std::nullopt;
    if (byte != kNoByte)
        m_putBack = byte;
    return Key{Key::Kind::Cancel, 0};
}

std::optional<Key> KeyReader::controlSequence()
{
    std::string text;
    while (text.size() < kLongestSequence) {
        const int byte = take(kSequenceGapMs);
        if (byte < 0x20 || byte > 0x7E) {
            if (byte != kNoByte)
                m_putBack = byte;
            return std::nullopt;
        }
        text += static_cast<char>(byte);
        // A Linux console sends Esc [ [ and a letter for its function keys.
        const bool isFinal = byte >= 0x40 && text != "[";
        if (isFinal)
            return sequenceKey(text);
    }
    return std::nullopt;
}

std::optional<Key> KeyReader::singleShift()
{
    const int byte = take(kSequenceGapMs);
    if (byte >= 0x20 && byte <= 0x7E) {
        const auto letter = static_cast<char>(byte);
        return sequenceKey({&letter, 1});
    }
    if (byte != kNoByte)
        m_putBack = byte;
    return std::nullopt;
}

std::optional<Key> KeyReader::multiByteCharacter(int lead)
{
    std::string bytes(1, static_cast<char>(lead));
    while (bytes.size() < lengthByLead(lead)) {
        const int byte = take(-1);
        if (byte < 0x80 || byte > 0xBF) {
            m_putBack = byte;
            return characterKey(kReplacement);
        }
        bytes += static_cast<char>(byte);
    }
    if (utf8Length(bytes) == 0)
        return characterKey(kReplacement);
    const wchar_t character = fromUtf8(bytes).front();
    const bool isControl = character <= 0x9F;
    return isControl ? std::nullopt : std::make_optional(characterKey(character));
}

} // namespace quelhost
