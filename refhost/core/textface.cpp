#include "refhost/core/textface.h"

#include "refhost/core/messageboxes.h"
#include "refhost/core/widetext.h"

#include <QFileInfo>

namespace quelhost {

TextFace::TextFace(Prompts& prompts, Output& output, HelpPages help)
    : m_prompts(prompts)
    , m_output(output)
    , m_help(std::move(help))
{}

int TextFace::askBox(const BoxRequest& request)
{
    return askMessageBox(m_prompts, m_output, request.text, request.flags);
}

std::optional<PickedFile> TextFace::pickFile(const FileRequest& request)
{
    m_output.writeRow(toWide(request.title));
    const LineRequest line{toWide(qtTrId("prompt-file")), Completion::Paths, {}};
    for (;;) {
        const Answer answer = m_prompts.ask(line, AnswerEnd::Enter);
        if (answer.kind != Answer::Kind::Text)
            return std::nullopt;
        const QFileInfo file(toQString(answer.text));
        if (file.isFile())
            return PickedFile{file.absoluteFilePath(), request.filterIndex};
        m_output.writeRow(toWide(qtTrId("file-not-there").arg(file.filePath())));
    }
}

void TextFace::showHelp(const QString& page)
{
    const Result<QString> text = helpText(m_help, page);
    m_output.writeRow(toWide(text ? text.value() : text.fault().text()));
}

} // namespace quelhost
