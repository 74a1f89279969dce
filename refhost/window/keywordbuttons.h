// The keywords that answer a prompt, as buttons.
#pragma once

#include <QScrollArea>
#include <QStringList>

#include <vector>

class QToolButton;

namespace quelhost {

// A few rows of flat buttons, as high as they need and never wider than there is room; more rows
// than that scroll. Left, Right, Home and End go from button to button, Enter and the space bar
// press one.
class KeywordButtons final : public QScrollArea
{
    Q_OBJECT

public:
    static constexpr int kMostKeywords = 200; // that get a button; all can be typed

    explicit KeywordButtons(QWidget* parent);

    // Shows a button for each keyword; none hides it all. `byEnter` is the keyword that Enter alone
    // stands for, empty for none.
    void setKeywords(const QStringList& keywords, const QString& byEnter);
    // Puts the keyboard focus on the keyword that Enter stands for, else on the first.
    void takeFocus();

signals:
    void chosen(const QString& keyword);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    [[nodiscard]] QToolButton* addButton();
    void label(QToolButton& button, const QString& keyword, bool isByEnter);
    [[nodiscard]] bool goTo(int index);
    void place();
    [[nodiscard]] int placeWithin(int width);

    std::vector<QToolButton*> m_buttons; // more than there are keywords, perhaps
    QStringList m_keywords;
    int m_byEnter = -1;
};

} // namespace quelhost
