// The faults of one file while it is being read, and text from that file made fit for a sentence.
#pragma once

#include "refhost/core/result.h"

#include <QString>

#include <vector>

namespace quelhost {

// A place in a text file. Both count from 1; a column is one character, whatever its bytes.
struct TextPlace
{
    qint64 line = 1;
    qint64 column = 1;
};

// How many faults of a file are told: at the next one its reading ends. Whoever wants to mend that
// many mends some first.
inline constexpr std::size_t kManyFaults = 10000;

// Collects the faults of `file`.
class PackageFaults
{
public:
    explicit PackageFaults(QString file);

    [[nodiscard]] const QString& file() const { return m_file; }
    [[nodiscard]] bool isEmpty() const { return m_faults.empty(); }
    [[nodiscard]] bool areTooMany() const { return m_faults.size() > kManyFaults; }

    void add(const QString& sentence, FaultKind kind = FaultKind::BadInput);
    void add(TextPlace place, const QString& sentence);
    void add(const Fault& fault);

    // The faults in the order of their places, those without a place first; leaves this empty.
    [[nodiscard]] std::vector<Fault> take();

private:
    QString m_file;
    std::vector<Fault> m_faults;
};

// Whether a control character (tab and line ends included) is among the characters.
[[nodiscard]] bool hasControlCharacter(const QString& text);

// `text` as it may stand in a sentence on a terminal: characters that control one, or turn the
// direction of writing, become U+FFFD, and only the first 80 characters are kept.
[[nodiscard]] QString shownText(const QString& text);

} // namespace quelhost
