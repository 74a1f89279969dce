// What the user reads: UTF-8 text on one file descriptor, with the position in the row known, so
// that a prompt never begins behind a message that did not end its row.
#pragma once

#include <string>
#include <string_view>

namespace quelhost {

enum class TextKind {
    Said,
    Answer, // a prompt and what answers it; what shows text may set it off
};

class Output
{
public:
    virtual ~Output() = default;

    // Writes `text` as it stands.
    void write(std::wstring_view text, TextKind kind = TextKind::Said);
    // Ends the current row unless it is empty.
    void startRow();
    // Writes `text` on rows of its own: starts a row, writes, ends the row.
    void writeRow(std::wstring_view text, TextKind kind = TextKind::Said);
    // Lets the user see what was written, where that may take a moment.
    virtual void flush() {}
    // Tells that something else moved to the start of a row: a terminal on Enter.
    void rowStarted() { m_column = 0; }

protected:
    virtual void put(const std::string& utf8) = 0;
    // Of what is put now.
    [[nodiscard]] TextKind kind() const { return m_kind; }

private:
    TextKind m_kind = TextKind::Said;
    std::size_t m_column = 0;
};

// Writes to a file descriptor that it does not own, at once, without a buffer of its own. A reader
// who has gone is no error: what is written then is lost.
class DescriptorOutput final : public Output
{
public:
    explicit DescriptorOutput(int descriptor)
        : m_descriptor(descriptor)
    {}

protected:
    void put(const std::string& utf8) override;

private:
    const int m_descriptor;
};

} // namespace quelhost
