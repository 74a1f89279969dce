#include "refhost/dialogs/helpwindow.h"

#include "refhost/dialogs/modalrun.h"

#include <QDesktopServices>
#include <QProcess>
#include <QStandardPaths>
#include <QTextBrowser>
#include <QUrl>
#include <QVBoxLayout>

namespace quelhost {

namespace {

constexpr char kWindowName[] = "helpWindow";
constexpr QSize kWindowSize(560, 480);
constexpr int kMostMilliseconds = 3000;

// A desktop's opener starts without a word when it finds no browser, so it is asked for one first.
bool openerHasNoBrowser()
{
    const QString asker = QStandardPaths::findExecutable(QStringLiteral("xdg-mime"));
    if (asker.isEmpty() || !qEnvironmentVariableIsEmpty("BROWSER"))
        return false;
    QProcess query;
    query.start(asker,
                {QStringLiteral("query"), QStringLiteral("default"), QStringLiteral("text/html")});
    return query.waitForFinished(kMostMilliseconds) && query.readAll().trimmed().isEmpty();
}

QDialog* makeWindow(QWidget* parent, const QString& file, const QString& sentence)
{
    auto* const window = new QDialog(parent); // deletes itself when it is closed
    window->setAttribute(Qt::WA_DeleteOnClose);
    window->setObjectName(QLatin1String(kWindowName));
    window->setWindowFlag(Qt::WindowContextHelpButtonHint, false);
    auto* const page = new QTextBrowser(window);
    if (file.isEmpty())
        page->setPlainText(sentence);
    else
        page->setSource(QUrl::fromLocalFile(file));
    page->setAccessibleName(qtTrId("help-title"));
    window->setWindowTitle(page->documentTitle().isEmpty() ? qtTrId("help-title")
                                                           : page->documentTitle());
    auto* const layout = new QVBoxLayout(window);
    layout->addWidget(page);
    window->resize(kWindowSize);
    return window;
}

} // namespace

bool openInBrowser(const QString& file)
{
    return !openerHasNoBrowser() && QDesktopServices::openUrl(QUrl::fromLocalFile(file));
}

void showHelpWindow(QWidget* parent, const QString& file, const QString& sentence)
{
    if (parent == nullptr) {
        QDialog* const window = makeWindow(parent, file, sentence);
        window->setAttribute(Qt::WA_DeleteOnClose, false);
        const std::unique_ptr<QDialog> owned(window);
        runModal(*owned);
        return;
    }
    delete parent->findChild<QDialog*>(QLatin1String(kWindowName), Qt::FindDirectChildrenOnly);
    makeWindow(parent, file, sentence)->show();
}

} // namespace quelhost
