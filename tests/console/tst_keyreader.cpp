#include "refhost/console/keyreader.h"

#include <gtest/gtest.h>

#include <deque>
#include <ostream>
#include <string>
#include <vector>

namespace {

using quelhost::Key;
using quelhost::KeyReader;

constexpr int kPause = KeyReader::kNoByte; // longer than any sequence's gap

std::deque<int> bytes(const std::string& text)
{
    std::deque<int> result;
    for (const char byte : text)
        result.push_back(static_cast<unsigned char>(byte));
    return result;
}

std::deque<int> operator+(std::deque<int> left, const std::deque<int>& right)
{
    left.insert(left.end(), right.begin(), right.end());
    return left;
}

std::wstring shown(const Key& key)
{
    switch (key.kind) {
    case Key::Kind::Character:
        return std::wstring(1, key.character);
    case Key::Kind::Cancel:
        return L"<cancel>";
    case Key::Kind::Suspend:
        return L"<suspend>";
    case Key::Kind::Quit:
        return L"<quit>";
    case Key::Kind::End:
        break;
    }
    return L"<end>";
}

// What is read of `input`, up to and with the end that follows it.
std::wstring keysOf(std::deque<int> input)
{
    KeyReader reader([&input](int timeoutMs) {
        // Who waits without limit sleeps through any pause.
        while (timeoutMs < 0 && !input.empty() && input.front() == kPause)
            input.pop_front();
        if (input.empty())
            return static_cast<int>(KeyReader::kNoMoreBytes);
        const int next = input.front();
        input.pop_front();
        return next;
    });
    std::wstring keys;
    for (;;) {
        const Key key = reader.next();
        keys += shown(key);
        if (key.kind == Key::Kind::End)
            return keys;
    }
}

std::wstring keys(std::initializer_list<wchar_t> characters)
{
    return std::wstring(characters) + L"<end>";
}

struct Case
{
    const char* name;
    std::deque<int> input;
    std::wstring keys;
};

void PrintTo(const Case& row, std::ostream* stream)
{
    *stream << row.name;
}

class KeysOf : public testing::TestWithParam<Case>
{};

TEST_P(KeysOf, AreRead)
{
    EXPECT_EQ(keysOf(GetParam().input), GetParam().keys);
}

INSTANTIATE_TEST_SUITE_P(
    Each, KeysOf,
    testing::Values(
        Case{"Nothing", {}, L"<end>"}, Case{"Letters", bytes("aZ ~"), L"aZ ~<end>"},
        Case{"ControlKeys", bytes("\x01\t\r\n\x7F"), L"\x01\t\r\n\x7F<end>"},
        Case{"CtrlC",
             bytes("a\x03"
                   "b"),
             L"a<cancel>b<end>"},
        Case{"CtrlZ", bytes("\x1A"), L"<suspend><end>"},
        Case{"CtrlBackslash", bytes("\x1C"), L"<quit><end>"},
        Case{"Interrupt", {'a', KeyReader::kCancelled, 'b'}, L"a<cancel>b<end>"},
        Case{"Esc", bytes("\x1B") + std::deque<int>{kPause, 'a'}, L"<cancel>a<end>"},
        Case{"EscAtTheEnd", bytes("\x1B"), L"<cancel><end>"},
        Case{"EscTwice", bytes("\x1B\x1B") + std::deque<int>{kPause}, L"<cancel><cancel><end>"},
        Case{"EscBeforeEnter", bytes("\x1B\r"), L"<cancel>\r<end>"},
        Case{"EscBeforeCtrlC", bytes("\x1B\x03"), L"<cancel><cancel><end>"},
        Case{"Arrows", bytes("\x1B[A\x1B[B\x1B[C\x1B[D"),
             keys({Key::Up, Key::Down, Key::Right, Key::Left})},
        Case{"ApplicationArrows", bytes("\x1BOA\x1BOB\x1BOC\x1BOD"),
             keys({Key::Up, Key::Down, Key::Right, Key::Left})},
        Case{"HomeAndEnd", bytes("\x1B[H\x1B[F\x1BOH\x1BOF\x1B[1~\x1B[4~\x1B[7~\x1B[8~"),
             keys({Key::Home, Key::EndOfLine, Key::Home, Key::EndOfLine, Key::Home, Key::EndOfLine,
                   Key::Home, Key::EndOfLine})},
        Case{"DeleteAndPages", bytes("\x1B[3~\x1B[5~\x1B[6~"),
             keys({Key::Delete, Key::SearchBack, Key::SearchForward})},
        Case{"Words", bytes("\x1B[1;5C\x1B[1;5D\x1B[1;3C\x1B[1;3D\x1B[3;5~"),
             keys({Key::WordRight, Key::WordLeft, Key::WordRight, Key::WordLeft,
                   Key::DeleteWordAfter})},
        Case{"Alt",
             bytes("\x1B"
                   "b\x1B"
                   "f\x1B"
                   "d\x1B\x7F\x1B\x08"),
             keys({Key::WordLeft, Key::WordRight, Key::DeleteWordAfter, Key::DeleteWordBefore,
                   Key::DeleteWordBefore})},
        Case{"UnknownAlt", bytes("\x1Bqa"), L"a<end>"},
        Case{"UnknownSequences", bytes("\x1B[24~\x1B[?1;2c\x1B[[A\x1B[200~\x1BOPa"), L"a<end>"},
        Case{"EndlessSequence", bytes("\x1B[" + std::string(31, '1') + "\x1B[A"), keys({Key::Up})},
        Case{"SequenceThatStops", bytes("\x1B[1") + std::deque<int>{kPause, 'a'}, L"a<end>"},
        Case{"SequenceCutByAControlKey", bytes("\x1B[1\r"), L"\r<end>"},
        Case{"SequenceCutByTheEnd", bytes("\x1B[1"), L"<end>"},
        Case{"SingleShiftThatStops", bytes("\x1BO") + std::deque<int>{kPause, 'a'}, L"a<end>"},
        Case{"SingleShiftCutByAControlKey", bytes("\x1BO\r"), L"\r<end>"},
        Case{"Utf8", bytes("é中😀\u0308"), L"é中😀\u0308<end>"},
        Case{"Utf8WithAPause", std::deque<int>{0xC3, kPause, 0xA9}, L"é<end>"},
        Case{"Utf8CutByAKey",
             bytes("\xE4\xB8"
                   "a"),
             L"\uFFFDa<end>"},
        Case{"Utf8CutByCtrlC", bytes("\xE4\xB8\x03"), L"\uFFFD<cancel><end>"},
        Case{"Utf8CutByTheEnd", bytes("\xE4\xB8"), L"\uFFFD<end>"},
        Case{"Utf8CutByAnotherCharacter", bytes("\xE4\xC3\xA9"), L"\uFFFDé<end>"},
        Case{"LoneContinuation",
             bytes("\x80"
                   "a"),
             L"\uFFFDa<end>"},
        Case{"BytesThatNeverOccur", bytes("\xC0\xC1\xF5\xFF"), L"\uFFFD\uFFFD\uFFFD\uFFFD<end>"},
        Case{"Overlong", bytes("\xE0\x80\x80"), L"\uFFFD<end>"},
        Case{"Surrogate", bytes("\xED\xA0\x80"), L"\uFFFD<end>"},
        Case{"ControlCharactersAboveAscii", bytes("\xC2\x80\xC2\x9B\xC2\x9F\xC2\xA0"),
             L"\u00A0<end>"}),
    [](const auto& row) { return std::string(row.param.name); });

} // namespace
