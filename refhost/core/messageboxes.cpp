#include "refhost/core/messageboxes.h"

#include "host/messageboxes.h"
#include "refhost/core/widetext.h"

#include <QObject>
#include <QStringList>

#include <vector>

namespace quelhost {

namespace {

struct Button
{
    int answer;
    QString englishName;
    QString localName;
};

// The buttons of a box, the safe one last. None for a box with OK alone.
std::vector<Button> buttons(unsigned int flags)
{
    constexpr unsigned int kButtonMask = 0x0F;
    switch (flags & kButtonMask) {
    case QuelBox::kOkCancel:
        return {{QuelBox::kAnswerOk, QStringLiteral("OK"), qtTrId("box-ok")},
                {QuelBox::kAnswerCancel, QStringLiteral("Cancel"), qtTrId("box-cancel")}};
    case QuelBox::kYesNo:
        return {{QuelBox::kAnswerYes, QStringLiteral("Yes"), qtTrId("box-yes")},
                {QuelBox::kAnswerNo, QStringLiteral("No"), qtTrId("box-no")}};
    default:
        return {};
    }
}

// The local name goes before the English one where a letter begins both of different buttons.
int answerOf(const std::vector<Button>& all, const QString& typed)
{
    for (const auto& name : {&Button::localName, &Button::englishName}) {
        for (const Button& button : all) {
            const QString full = button.*name;
            if (full.compare(typed, Qt::CaseInsensitive) == 0 ||
                full.left(1).compare(typed, Qt::CaseInsensitive) == 0)
                return button.answer;
        }
    }
    return 0;
}

} // namespace

int askMessageBox(Prompts& prompts, Output& output, const std::wstring& text, unsigned int flags)
{
    output.writeRow(text);
    const std::vector<Button> all = buttons(flags);
    if (all.empty())
        return QuelBox::kAnswerOk;
    QStringList names;
    for (const Button& button : all)
        names << button.localName;
    const LineRequest request{toWide(QStringLiteral("[%1]: ").arg(names.join(QLatin1Char('/')))),
                              Completion::Keywords, names};
    for (;;) {
        const Answer answer = prompts.ask(request, AnswerEnd::Blank);
        if (answer.kind == Answer::Kind::Cancelled)
            return all.back().answer;
        if (const int chosen = answerOf(all, toQString(answer.text)))
            return chosen;
    }
}

} // namespace quelhost
