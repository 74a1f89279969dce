// Long texts from short inputs. A parser gets its text in pieces and has limits of how much there
// may be of everything; an input that has all that in full is changed at the wrong places and read
// slowly.
#pragma once

#include <QByteArray>

#include <string_view>

namespace fuzzing {

// The text with four control characters, which no markup may have, replaced: 1 stands for 1,000
// blanks, 2 for 4,000, 3 for 64,000, and 4 for 100 attributes, each with a name of its own. Where
// it would grow by more than 72,000 bytes they stay as they are.
[[nodiscard]] QByteArray stretchedText(std::string_view text);

} // namespace fuzzing
