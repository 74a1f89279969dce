#include "refhost/core/messageboxes.h"

#include "host/messageboxes.h"
#include "refhost/core/widetext.h"

#include <QObject>
#include <QStringList>

#include <vector>

namespace quelhost {

std::vector<BoxButton> boxButtons(unsigned int flags)
{
    constexpr unsigned int kButtonMask = 0x0F;
    const BoxButton ok{QuelBox::kAnswerOk, QStringLiteral("OK"), qtTrId("box-ok")};
    switch (flags & kButtonMask) {
    case QuelBox::kOkCancel:
        return {ok, {QuelBox::kAnswerCancel, QStringLiteral("Cancel"), qtTrId("box-cancel")}};
    case QuelBox::kYesNo:
        return {{QuelBox::kAnswerYes, QStringLiteral("Yes"), qtTrId("box-yes")},
                {QuelBox::kAnswerNo, QStringLiteral("No"), qtTrId("box-no")}};
    default:
        return {ok};
    }
}

namespace {

// The local name goes before the English one where a letter begins both of different buttons.
int answerOf(const std::vector<BoxButton>& all, const QString& typed)
{
    for (const auto& name : {&BoxButton::localName, &BoxButton::englishName}) {
        for (const BoxButton& button : all) {
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
    const std::vector<BoxButton> all = boxButtons(flags);
    if (all.size() == 1)
        return QuelBox::kAnswerOk;
    QStringList names;
    for (const BoxButton& button : all)
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
