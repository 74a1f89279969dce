#include "refhost/console/lineeditor.h"

#include "refhost/console/consolesignals.h"
#include "refhost/core/linehistory.h"
#include "refhost/console/textcolumns.h"
#include "refhost/core/utf8locale.h"
#include "refhost/core/widetext.h"

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cwctype>
#include <histedit.h>
#include <sys/ioctl.h>
#include <unistd.h>

namespace quelhost {

namespace {

// Encloses in a prompt what is sent to the terminal but takes no room on it.
constexpr wchar_t kUnseen = L'\1';
constexpr wchar_t kReplacement = 0xFFFD;

// The library looks at no more than about this much of a line when it searches the history, and
// damages a longer one.
constexpr std::ptrdiff_t kLongestSearch = 1000;

constexpr wchar_t control(char letter)
{
    return letter & 0x1F;
}

std::string capability(EditLine* editor, const char* name)
{
    const char* text = nullptr;
    const int status = ::el_get(editor, EL_GETTC, name, &text);
    return status == 0 && text != nullptr ? text : std::string();
}

bool isColourWanted()
{
    return qEnvironmentVariableIsEmpty("NO_COLOR");
}

int columnsOfTerminal(int terminal)
{
    winsize size = {};
    const bool known = ::ioctl(terminal, TIOCGWINSZ, &size) == 0 && size.ws_col > 1;
    return known ? size.ws_col : 80;
}

wchar_t drawable(wchar_t character)
{
    const auto code = static_cast<wint_t>(character);
    if (std::iswcntrl(code) != 0)
        return L' ';
    return std::iswprint(code) != 0 ? character : kReplacement;
}

std::FILE* silence()
{
    static std::FILE* const stream = ::fopencookie(nullptr, "w", {});
    return stream;
}

} // namespace

void LineEditor::End::operator()(editline* editor) const
{
    // Otherwise the library throws away what was typed ahead, which is meant for the next program.
    ::el_set(editor, EL_EDITMODE, 0);
    ::el_end(editor);
}

void LineEditor::End::operator()(historyW* history) const
{
    ::history_wend(history);
}

std::unique_ptr<LineEditor> LineEditor::open(int input, int output)
{
    const Utf8Locale utf8;
    std::unique_ptr<LineEditor> editor(new LineEditor(input, output));
    if (!editor->isCapable())
        return nullptr;
    editor->setUp();
    return editor;
}

LineEditor::LineEditor(int input, int output)
    : m_input(input)
    , m_output(output)
    , m_screen(output, m_cells)
    , m_editor(::el_init_fd("quelhost", stdin, m_screen.file(), silence(), input, output, output))
    , m_history(::history_winit())
    , m_keys([this](int timeoutMs) { return readByte(timeoutMs); })
{}

LineEditor::~LineEditor() = default;

bool LineEditor::isCapable() const
{
    if (!m_editor || !m_history)
        return false;
    int edits = 0;
    const bool known = ::el_set(m_editor.get(), EL_TERMINAL, nullptr) == 0;
    return known && ::el_get(m_editor.get(), EL_EDITMODE, &edits) == 0 && edits != 0 &&
           !capability(m_editor.get(), "up").empty() && !capability(m_editor.get(), "ce").empty();
}

void LineEditor::setUp()
{
    EditLine* const editor = m_editor.get();
    ::el_wset(editor, EL_CLIENTDATA, this);
    ::el_wset(editor, EL_EDITOR, L"emacs");
    ::el_wset(editor, EL_SIGNAL, 0);
    // Ctrl-C, Ctrl-Z and Ctrl-backslash come as keys while a line is read.
    ::el_wset(editor, EL_SETTY, L"-d", L"-isig", nullptr);
    // What is typed between two lines is neither shown twice nor cut to what a terminal's own line
    // editing can hold.
    ::el_wset(editor, EL_SETTY, L"-x", L"-echo", L"-icanon", nullptr);
    ::el_wset(editor, EL_PROMPT_ESC, promptText, static_cast<int>(kUnseen));
    ::el_wset(editor, EL_GETCFN, nextCharacter);

    HistEventW event = {};
    ::history_w(m_history.get(), &event, H_SETSIZE, static_cast<int>(LineHistory::kMostLines));
    ::el_wset(editor, EL_HIST, ::history_w, m_history.get());
    bindKeys();
}

void LineEditor::bindKeys()
{
    struct Function
    {
        const wchar_t* name;
        unsigned char (*function)(EditLine*, unsigned int);
    };
    constexpr Function functions[] = {{L"combine", combine},
                                      {L"complete", complete},
                                      {L"older-line", olderLine},
                                      {L"newer-line", newerLine}};
    for (const Function& function : functions)
        ::el_wset(m_editor.get(), EL_ADDFN, function.name, function.name, function.function);

    struct Binding
    {
        wchar_t key;
        const wchar_t* function;
    };
    constexpr Binding bindings[] = {{Key::Up, L"older-line"},
                                    {Key::Down, L"newer-line"},
                                    {control('P'), L"older-line"},
                                    {control('N'), L"newer-line"},
                                    {Key::Left, L"ed-prev-char"},
                                    {Key::Right, L"ed-next-char"},
                                    {Key::Home, L"ed-move-to-beg"},
                                    {Key::EndOfLine, L"ed-move-to-end"},
                                    {Key::Delete, L"ed-delete-next-char"},
                                    {Key::WordLeft, L"ed-prev-word"},
                                    {Key::WordRight, L"em-next-word"},
                                    {Key::DeleteWordBefore, L"ed-delete-prev-word"},
                                    {Key::DeleteWordAfter, L"em-delete-next-word"},
                                    {Key::UpperCase, L"em-upper-case"},
                                    {Key::LowerCase, L"em-lower-case"},
                                    {Key::Capitalize, L"em-capitol-case"},
                                    {Key::SearchBack, L"ed-search-prev-history"},
                                    {Key::SearchForward, L"ed-search-next-history"},
                                    {Key::Combine, L"combine"},
                                    {L'\t', L"complete"}};
    for (const Binding& binding : bindings) {
        const wchar_t key[] = {binding.key, 0};
        ::el_wset(m_editor.get(), EL_BIND, key, binding.function, nullptr);
    }
}

void LineEditor::addToHistory(const std::wstring& line)
{
    const Utf8Locale utf8;
    m_lines.push_back(m_cells.toCells(line));
    if (m_lines.size() > LineHistory::kMostLines)
        m_lines.erase(m_lines.begin());
    HistEventW event = {};
    ::history_w(m_history.get(), &event, H_ENTER, m_lines.back().c_str());
}

Line LineEditor::read(const LineRequest& request)
{
    if (m_ended)
        return {};
    const Utf8Locale utf8;
    m_request = &request;
    setPrompt(request.prompt);
    m_columns = columnsOfTerminal(m_output);
    m_cancelled = false;
    m_age = 0;
    m_tabs = 0;
    int length = 0;
    // Before the prompt is seen: what is typed at it must come as keys.
    ::el_wset(m_editor.get(), EL_PREP_TERM, 1);
    const wchar_t* const cells = ::el_wgets(m_editor.get(), &length);
    m_request = nullptr;
    if (cells == nullptr) {
        m_ended = true;
        return {};
    }
    if (m_cancelled)
        return {Line::Kind::Cancel, {}};
    std::wstring text = m_cells.toText({cells, static_cast<std::size_t>(length)});
    if (!text.empty() && text.back() == L'\n')
        text.pop_back();
    return {Line::Kind::Text, std::move(text)};
}

void LineEditor::setPrompt(const std::wstring& prompt)
{
    std::wstring shown = prompt;
    std::transform(shown.begin(), shown.end(), shown.begin(), drawable);
    m_promptCells = m_cells.toCells(shown);
    m_prompt = m_promptCells;
    const std::string bold = capability(m_editor.get(), "md");
    const std::string plain = capability(m_editor.get(), "me");
    // What is unseen needs a character behind it to stand before, so the last one is not bold.
    // Delays, which "$<" begins, are for the library's own output only.
    const bool usable = !bold.empty() && !plain.empty() && (bold + plain).find("$<") == bold.npos;
    if (!usable || m_prompt.size() < 2 || !isColourWanted())
        return;
    m_prompt.insert(m_prompt.size() - 1, kUnseen + fromUtf8(plain) + kUnseen);
    m_prompt.insert(0, kUnseen + fromUtf8(bold) + kUnseen);
}

LineEditor& LineEditor::of(editline* editor)
{
    void* self = nullptr;
    ::el_wget(editor, EL_CLIENTDATA, &self);
    return *static_cast<LineEditor*>(self);
}

wchar_t* LineEditor::promptText(editline* editor)
{
    return of(editor).m_prompt.data();
}

int LineEditor::nextCharacter(editline* editor, wchar_t* character)
{
    return of(editor).readKey(*character) ? 1 : 0;
}

// A cancelled line ends like any other, with Enter, so that the row ends and the library is left in
// good order; what stands in it is dropped.
bool LineEditor::readKey(wchar_t& character)
{
    while (!m_cancelled) {
        const Key key = m_keys.next();
        switch (key.kind) {
        case Key::Kind::Cancel:
            m_cancelled = true;
            break;
        case Key::Kind::End:
            return false;
        case Key::Kind::Suspend:
            // As the terminal would: the whole job stops, whoever else belongs to it.
            ::kill(0, SIGTSTP);
            break;
        case Key::Kind::Quit:
            ::kill(0, SIGQUIT);
            break;
        case Key::Kind::Character:
            m_tabs = key.character == L'\t' ? m_tabs + 1 : 0;
            character = asCell(key.character);
            return true;
        }
    }
    character = L'\n';
    return true;
}

wchar_t LineEditor::asCell(wchar_t character)
{
    constexpr wchar_t searches[] = {Key::SearchBack, Key::SearchForward, control('R'),
                                    control('S')};
    const bool isSearch =
        std::find(std::begin(searches), std::end(searches), character) != std::end(searches);
    const LineInfoW* const line = ::el_wline(m_editor.get());
    if (isSearch && line->lastchar - line->buffer > kLongestSearch)
        return control('G');
    if (isCombining(character)) {
        m_combining = character;
        return Key::Combine;
    }
    return m_cells.toCells({&character, 1}).front();
}

int LineEditor::readByte(int timeoutMs)
{
    for (;;) {
        switch (waitForInput(m_input, timeoutMs)) {
        case InputState::TimedOut:
            return KeyReader::kNoByte;
        case InputState::Signalled:
            if (takeInterrupt())
                return KeyReader::kCancelled;
            takeSignals();
            continue;
        case InputState::Ready:
            break;
        }
        unsigned char byte = 0;
        const ssize_t count = ::read(m_input, &byte, 1);
        if (count == 1)
            return byte;
        if (count == 0 || (errno != EINTR && errno != EAGAIN))
            return KeyReader::kNoMoreBytes;
    }
}

void LineEditor::takeSignals()
{
    if (takeContinue()) {
        // Whoever had the terminal in the meantime has set it as it liked.
        ::el_wset(m_editor.get(), EL_PREP_TERM, 0);
        ::el_wset(m_editor.get(), EL_PREP_TERM, 1);
        std::fputs("\r", m_screen.file());
        redraw();
    }
    if (takeResize())
        redrawResized();
}

void LineEditor::redraw()
{
    ::el_wset(m_editor.get(), EL_REFRESH);
}

// Some terminals wrap their rows anew when the window changes and some do not. The cursor goes up
// by as many rows as it stands below the prompt in either case, so that nothing above is lost.
void LineEditor::redrawResized()
{
    const int columns = columnsOfTerminal(m_output);
    const std::wstring before = cellsBeforeCursor();
    const int rows = std::min(rowOf(before, m_columns), rowOf(before, columns));
    m_columns = columns;
    std::fputs("\r", m_screen.file());
    for (int i = 0; i < rows; ++i)
        ::el_wset(m_editor.get(), EL_ECHOTC, L"-s", L"up", nullptr);
    ::el_wset(m_editor.get(), EL_ECHOTC, L"-s", L"cd", nullptr);
    ::el_resize(m_editor.get());
    redraw();
}

std::wstring LineEditor::cellsBeforeCursor() const
{
    const LineInfoW* const line = ::el_wline(m_editor.get());
    return {line->buffer, line->cursor};
}

std::wstring LineEditor::cellsAfterCursor() const
{
    const LineInfoW* const line = ::el_wline(m_editor.get());
    return {line->cursor, line->lastchar};
}

int LineEditor::rowOf(const std::wstring& cells, int columns) const
{
    int row = 0;
    int column = 0;
    for (const wchar_t cell : m_promptCells + cells) {
        const int width = columnsOf(cell, column);
        if (column + width > columns) {
            ++row;
            column = 0;
        }
        column += width;
        if (column >= columns) {
            ++row;
            column = 0;
        }
    }
    return row;
}

void LineEditor::replaceBeforeCursor(const std::wstring& cells)
{
    ::el_deletestr(m_editor.get(), static_cast<int>(cellsBeforeCursor().size()));
    ::el_winsertstr(m_editor.get(), cells.c_str());
}

void LineEditor::replaceLine(const std::wstring& cells)
{
    ::el_cursor(m_editor.get(), static_cast<int>(cellsAfterCursor().size()));
    replaceBeforeCursor(cells);
}

unsigned char LineEditor::combine(editline* editor, unsigned int)
{
    LineEditor& self = of(editor);
    std::wstring before = self.cellsBeforeCursor();
    const std::wstring base = before.substr(before.empty() ? 0 : before.size() - 1);
    self.replaceBeforeCursor(before.substr(0, before.size() - base.size()) +
                             self.m_cells.toCells(self.m_cells.toText(base) + self.m_combining));
    return CC_REFRESH;
}

unsigned char LineEditor::complete(editline* editor, unsigned int)
{
    LineEditor& self = of(editor);
    const std::wstring before = self.cellsBeforeCursor();
    const std::wstring after = self.cellsAfterCursor();
    const bool blankFollows = !after.empty() && std::iswspace(static_cast<wint_t>(after.front()));
    const CompletedLine completed =
        completeLine(toQString(self.m_cells.toText(before)), blankFollows, *self.m_request);
    if (!completed.found)
        return CC_ERROR;
    const std::wstring line = self.m_cells.toCells(toWide(completed.beforeCursor));
    if (line != before) {
        self.replaceBeforeCursor(line);
        return CC_REFRESH;
    }
    if (completed.candidates.isEmpty() || self.m_tabs < 2)
        return CC_ERROR;
    self.list(completed.candidates);
    return CC_NORM;
}

void LineEditor::list(const QStringList& candidates)
{
    constexpr int most = 200;
    const std::wstring before = cellsBeforeCursor();
    const int below = rowOf(before + cellsAfterCursor(), m_columns) - rowOf(before, m_columns);
    std::wstring rows(static_cast<std::size_t>(below) + 1, L'\n');
    rows += inColumns(candidates.mid(0, most), m_columns);
    if (candidates.size() > most)
        rows += toWide(qtTrId("console-more-matches").arg(candidates.size() - most)) + L'\n';
    std::fputs(toUtf8(rows).c_str(), m_screen.file());
    redraw();
}

unsigned char LineEditor::olderLine(editline* editor, unsigned int)
{
    LineEditor& self = of(editor);
    if (self.m_age == self.m_lines.size())
        return CC_ERROR;
    self.showLine(self.m_age + 1);
    return CC_REFRESH;
}

unsigned char LineEditor::newerLine(editline* editor, unsigned int)
{
    LineEditor& self = of(editor);
    if (self.m_age == 0)
        return CC_ERROR;
    self.showLine(self.m_age - 1);
    return CC_REFRESH;
}

void LineEditor::showLine(std::size_t age)
{
    if (m_age == 0)
        m_typed = cellsBeforeCursor() + cellsAfterCursor();
    m_age = age;
    replaceLine(age == 0 ? m_typed : m_lines[m_lines.size() - age]);
}

} // namespace quelhost
