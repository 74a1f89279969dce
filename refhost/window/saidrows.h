// The rows above the command line: what was said so far, to be read and copied.
#pragma once

#include "refhost/core/output.h"

#include <QPlainTextEdit>

namespace quelhost {

// Follows what is said as long as its newest row is in sight, and stays where it is while the user
// reads further up.
class SaidRows final : public QPlainTextEdit
{
    Q_OBJECT

public:
    static constexpr int kMostRows = 20000; // older ones go

    explicit SaidRows(QWidget* parent);

    // Adds text as it stands. A prompt with its answer is bold, to be found again.
    void add(const QString& text, TextKind kind);
    void showNewest();
    // Scrolls by pages: up when negative.
    void scrollPages(int pages);

protected:
    // The menu to copy from. By a key, its row is that of the cursor.
    void contextMenuEvent(QContextMenuEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    [[nodiscard]] bool showsNewest() const;
    void openMenu(const QString& row, const QPoint& place);
};

} // namespace quelhost
