#include "refhost/core/textface.h"

#include "refhost/core/messageboxes.h"
#include "refhost/core/widetext.h"

#include <QFile>
#include <QFileInfo>

namespace quelhost {

TextFace::TextFace(Prompts& prompts, Output& output, QString helpFolder)
    : m_prompts(prompts)
    , m_output(output)
    , m_helpFolder(std::move(helpFolder))
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
    QFile file(QStringLiteral("%1/%2.txt").arg(m_helpFolder, page));
    const QString text = file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll())
                                                        : qtTrId("help-missing").arg(page);
    m_output.writeRow(toWide(text.trimmed()));
}

} // namespace quelhost
