// The lines that were typed at earlier prompts, kept in a file from one run to the next.
#pragma once

#include <QString>

#include <deque>
#include <string>

namespace quelhost {

// One line of UTF-8 text an entry, the oldest first. The file is replaced as a whole, so that it is
// never half written, and only its owner may read it. A file that cannot be read is never written
// over; without a file, or when it fails, the history lasts as long as the process.
class LineHistory
{
public:
    static constexpr std::size_t kMostLines = 1000;
    static constexpr std::size_t kLongestLine = 16 * 1024; // characters; a longer one is not kept

    // Reads the file at `path`, if there is one. An empty path stands for no file.
    explicit LineHistory(const QString& path);
    ~LineHistory();
    LineHistory(const LineHistory&) = delete;
    LineHistory& operator=(const LineHistory&) = delete;

    // Adds a line and saves. Returns whether it was added: blank lines, what repeats the newest
    // one, and what would not come back from the file as it went in are not.
    bool add(const std::wstring& line);

    [[nodiscard]] const std::deque<std::wstring>& lines() const { return m_lines; }

    // Why the history is not kept, as a sentence for the user, once; empty when it is.
    [[nodiscard]] QString takeProblem();

private:
    void load();
    void save();
    void keep(std::wstring line);
    void fail(const QString& sentence);

    const QString m_path;
    std::deque<std::wstring> m_lines;
    QString m_problem;
    bool m_failed = false; // the problem was noted
    bool m_mayWrite = true;
    bool m_saved = true;
};

} // namespace quelhost
