// What a line can be completed to, as a list beside the line.
#pragma once

#include "refhost/core/linecompletion.h"

#include <QListView>
#include <QStringListModel>

#include <vector>

namespace quelhost {

// Lies over the other parts of the line's window and never has the keyboard: who owns the line
// moves through it. A popup window of the toolkit's would take keys and the next click away from
// the line.
class SuggestionList final : public QListView
{
    Q_OBJECT

public:
    // Closed at first. Belongs to `line`'s window while it is open and to `line` otherwise.
    explicit SuggestionList(QWidget* line);

    // Shows these, none of them chosen. No suggestions close the list.
    void open(std::vector<Suggestion> suggestions);
    void close();
    [[nodiscard]] bool isOpen() const { return !isHidden(); }

    // Chooses the next one, or with -1 the one before. Before the first and behind the last, none
    // is chosen.
    void step(int by);
    // Chooses the one that is so many lists full of rows further, at most the first or the last.
    void stepPages(int by);
    // Null when none is chosen.
    [[nodiscard]] const Suggestion* chosen() const;

signals:
    // One of them was clicked and is chosen now.
    void taken();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void place(QWidget& window);

    QWidget* const m_line;
    QStringListModel m_texts;
    std::vector<Suggestion> m_suggestions;
};

} // namespace quelhost
