// Editing of one line on a terminal: the keys, the drawing, the history and completion.
#pragma once

#include "refhost/console/cellstream.h"
#include "refhost/console/celltext.h"
#include "refhost/console/keyreader.h"
#include "refhost/core/linecompletion.h"
#include "refhost/core/linesource.h"

#include <memory>
#include <string>
#include <vector>

struct editline;
struct historyW;

namespace quelhost {

// While a line is read, the terminal sends single keys; between two lines it keeps what is typed
// for the next one, unseen. The modes it had before are the business of TerminalGuard.
class LineEditor
{
public:
    // Null where the terminal cannot move the cursor about, or nobody knows what it can (TERM).
    // Both descriptors are borrowed. REQUIRES: both are the same terminal; one editor at a time.
    [[nodiscard]] static std::unique_ptr<LineEditor> open(int input, int output);
    ~LineEditor();
    LineEditor(const LineEditor&) = delete;
    LineEditor& operator=(const LineEditor&) = delete;

    // Adds a line that the arrow keys bring back.
    void addToHistory(const std::wstring& line);

    // Reads a line at the start of a row and leaves the cursor at the start of one, unless the
    // input ended. `request.prompt` is a single row.
    [[nodiscard]] Line read(const LineRequest& request);

private:
    LineEditor(int input, int output);

    [[nodiscard]] bool isCapable() const;
    void setUp();
    void bindKeys();
    void setPrompt(const std::wstring& prompt);

    // What the editing library calls.
    static int nextCharacter(editline* editor, wchar_t* character);
    static wchar_t* promptText(editline* editor);
    static unsigned char combine(editline* editor, unsigned int key);
    static unsigned char complete(editline* editor, unsigned int key);
    static unsigned char olderLine(editline* editor, unsigned int key);
    static unsigned char newerLine(editline* editor, unsigned int key);
    static LineEditor& of(editline* editor);

    [[nodiscard]] int readByte(int timeoutMs);
    [[nodiscard]] bool readKey(wchar_t& character);
    [[nodiscard]] wchar_t asCell(wchar_t character);
    void takeSignals();
    void redrawResized();
    void redraw();

    [[nodiscard]] std::wstring cellsBeforeCursor() const;
    [[nodiscard]] std::wstring cellsAfterCursor() const;
    [[nodiscard]] int rowOf(const std::wstring& cells, int columns) const;
    void replaceBeforeCursor(const std::wstring& cells);
    void replaceLine(const std::wstring& cells);
    void showLine(std::size_t age);
    void list(const QStringList& candidates);

    struct End
    {
        void operator()(editline* editor) const;
        void operator()(historyW* history) const;
    };

    const int m_input;
    const int m_output;
    CellText m_cells;
    CellStream m_screen;
    std::unique_ptr<editline, End> m_editor;
    std::unique_ptr<historyW, End> m_history; // for searching
    std::vector<std::wstring> m_lines;        // the same as cells, the oldest first
    KeyReader m_keys;

    // Of the line that is being read.
    const LineRequest* m_request = nullptr;
    std::wstring m_prompt;      // as the library wants it
    std::wstring m_promptCells; // what of it is seen
    int m_columns = 0;
    bool m_cancelled = false;
    wchar_t m_combining = 0;
    std::size_t m_age = 0; // of the line shown: 0 is the one being typed, 1 the newest kept one
    std::wstring m_typed;  // what was typed before an older line was shown
    int m_tabs = 0;        // how many of the last keys were Tab

    bool m_ended = false;
};

} // namespace quelhost
