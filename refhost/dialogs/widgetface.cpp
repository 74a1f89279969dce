#include "refhost/dialogs/widgetface.h"

#include "host/messageboxes.h"
#include "refhost/core/messageboxes.h"
#include "refhost/core/widetext.h"
#include "refhost/dialogs/helpwindow.h"
#include "refhost/dialogs/modalrun.h"

#include <QFileDialog>
#include <QFileInfo>
#include <QMessageBox>
#include <QPushButton>

#include <map>

namespace quelhost {

namespace {

// The folder itself or the nearest one above that there is.
QString nearestFolder(QString path)
{
    while (!QFileInfo(path).isDir())
        path = QFileInfo(path).path();
    return path;
}

// Opens the dialog on a file, or on the folder of what is no file.
void start(QFileDialog& dialog, const QString& location)
{
    if (location.isEmpty())
        return;
    const QFileInfo info(location);
    dialog.setDirectory(nearestFolder(info.absoluteFilePath()));
    if (info.isFile())
        dialog.selectFile(info.absoluteFilePath());
}

// Two filters may read the same: then the one that was shown first counts as chosen. It also stays
// where there are no filters.
int chosenFilter(const QFileDialog& dialog, const FileRequest& request)
{
    const QString chosen = dialog.selectedNameFilter();
    const int index = request.filters.indexOf(chosen);
    const bool asShown = request.filters.value(request.filterIndex) == chosen;
    return asShown || index < 0 ? request.filterIndex : index;
}

} // namespace

WidgetFace::WidgetFace(HelpPages help, QWidget* window)
    : m_help(std::move(help))
    , m_window(window)
{}

QWidget* WidgetFace::frontWindow() const
{
    QWidget* const modal = QApplication::activeModalWidget();
    return modal == nullptr ? m_window : modal;
}

int WidgetFace::askBox(const BoxRequest& request)
{
    const bool warns = (request.flags & QuelBox::kExclamation) == QuelBox::kExclamation;
    QMessageBox box(warns ? QMessageBox::Warning : QMessageBox::NoIcon, toQString(request.caption),
                    toQString(request.text), QMessageBox::NoButton, frontWindow());
    box.setTextFormat(Qt::PlainText);
    std::map<QAbstractButton*, int> answers;
    const std::vector<BoxButton> buttons = boxButtons(request.flags);
    for (const BoxButton& button : buttons) {
        // The roles keep the buttons in this order on every desktop.
        QPushButton* const shown = box.addButton(button.localName, QMessageBox::ActionRole);
        answers.emplace(shown, button.answer);
        box.setEscapeButton(shown);
        if (answers.size() == 1)
            box.setDefaultButton(shown);
    }
    runModal(box);
    const auto answer = answers.find(box.clickedButton());
    return answer == answers.end() ? buttons.back().answer : answer->second;
}

std::optional<PickedFile> WidgetFace::pickFile(const FileRequest& request)
{
    QFileDialog dialog(frontWindow(), request.title);
    dialog.setOption(QFileDialog::DontUseNativeDialog);
    dialog.setFileMode(QFileDialog::ExistingFile);
    if (!request.filters.isEmpty())
        dialog.setNameFilters(request.filters);
    if (request.filterIndex >= 0 && request.filterIndex < request.filters.size())
        dialog.selectNameFilter(request.filters.at(request.filterIndex));
    start(dialog, request.start);
    if (runModal(dialog) != QDialog::Accepted)
        return std::nullopt;
    return PickedFile{dialog.selectedFiles().value(0), chosenFilter(dialog, request)};
}

void WidgetFace::showHelp(const QString& page)
{
    const Result<QString> file = helpFile(m_help, page);
    if (file && openInBrowser(file.value()))
        return;
    showHelpWindow(frontWindow(), file ? file.value() : QString(),
                   file ? QString() : file.fault().text());
}

} // namespace quelhost
