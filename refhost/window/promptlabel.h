// The prompt beside the line that is being typed.
#pragma once

#include <QLabel>

namespace quelhost {

// Plain text in one row. Where there is not enough room for it, the middle is left out, and the
// tool tip has all of it: a long path in a prompt must not make the window wider.
class PromptLabel final : public QLabel
{
    Q_OBJECT

public:
    explicit PromptLabel(QWidget* parent = nullptr);

    void showPrompt(const QString& text);

    [[nodiscard]] QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
};

} // namespace quelhost
