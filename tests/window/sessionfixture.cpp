#include "tests/window/sessionfixture.h"

#include "refhost/core/settingslisting.h"
#include "refhost/window/mainwindow.h"
#include "tests/window/shownwindow.h"

#include <QAbstractButton>
#include <QApplication>
#include <QFile>
#include <QFileDialog>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QWindow>
#include <QtTest/QTest>

using quelhost::MainWindow;

namespace windowtest {

namespace {

// Whether it is there for the user. The toolkit does not always notice that a window is the active
// one again after a dialog over it was closed at once, so only who needs it waits for that.
bool isThere(const QWidget& window)
{
    return window.isVisible() && window.windowHandle()->isExposed();
}

// The dialog in front, if it is of that type; null otherwise.
template<class Dialog>
Dialog* inFront()
{
    auto* const dialog = qobject_cast<Dialog*>(QApplication::activeModalWidget());
    return dialog != nullptr && isThere(*dialog) ? dialog : nullptr;
}

QDialog* loadDialog()
{
    auto* const dialog = inFront<QDialog>();
    const QString name = QStringLiteral("IDD_MENU_LOAD_DLG");
    return dialog != nullptr && dialog->objectName() == name ? dialog : nullptr;
}

bool isAsked(const QString& prompt)
{
    const MainWindow* const window = shownWindow();
    return window != nullptr && isThere(*window) && QApplication::activeModalWidget() == nullptr &&
           part<QLineEdit>(*window, "line").isEnabled() &&
           part<QLabel>(*window, "prompt").text().startsWith(prompt);
}

} // namespace

void click(const QWidget& of, const char* button)
{
    QTest::mouseClick(&part<QAbstractButton>(of, button), Qt::LeftButton);
}

void fill(const QWidget& of, const char* field, const QString& text)
{
    auto& line = part<QLineEdit>(of, field);
    line.setFocus();
    line.selectAll();
    if (text.isEmpty())
        QTest::keyClick(&line, Qt::Key_Delete);
    else
        QTest::keyClicks(&line, text);
}

WindowSession::WindowSession()
    : m_plant(copyOf("plant", "plant.cuix"))
{
    m_options.window = true;
    m_options.language = QStringLiteral("en");
    m_options.profile = m_folder.filePath(QStringLiteral("profile"));
}

// Only when the line is said again behind its prompt has somebody taken it.
void WindowSession::typeLine(const QString& line, const QString& prompt)
{
    atPrompt(
        [this, line] {
            m_echo = part<QLabel>(window(), "prompt").text() + line;
            m_echoes = said().count(m_echo);
            auto& field = part<QLineEdit>(window(), "line");
            QTest::keyClicks(&field, line);
            QTest::keyClick(&field, Qt::Key_Return);
        },
        prompt);
    m_driver.step("somebody to take " + line.toStdString(),
                  [this] { return said().count(m_echo) > m_echoes; });
}

void WindowSession::atPrompt(StepDriver::Action action, const QString& prompt)
{
    m_driver.step(
        "the prompt " + prompt.toStdString(), [prompt] { return isAsked(prompt); },
        std::move(action));
}

void WindowSession::waitForKeyboard()
{
    m_driver.step("the keyboard at the main window", [] {
        const MainWindow* const window = shownWindow();
        return window != nullptr && window->isActiveWindow();
    });
}

void WindowSession::closeWindow(const QString& prompt)
{
    atPrompt([] { window().close(); }, prompt);
}

void WindowSession::waitForText(const QString& text)
{
    m_driver.step("the text " + text.toStdString(), [text] { return said().contains(text); });
}

void WindowSession::inLoadDialog(std::function<void(QDialog& dialog)> action)
{
    m_driver.step(
        "the load dialog", [] { return loadDialog() != nullptr; },
        [action = std::move(action)] { action(*loadDialog()); });
}

void WindowSession::inFileDialog(std::function<void(QFileDialog& dialog)> action)
{
    m_driver.step(
        "the file dialog", [] { return inFront<QFileDialog>() != nullptr; },
        [action = std::move(action)] { action(*inFront<QFileDialog>()); });
}

void WindowSession::inBox(std::function<void(QMessageBox& box)> action)
{
    m_driver.step(
        "a message box", [] { return inFront<QMessageBox>() != nullptr; },
        [action = std::move(action)] { action(*inFront<QMessageBox>()); });
}

void WindowSession::useLoadDialog(std::function<void(QDialog& dialog)> action)
{
    typeLine(QStringLiteral("MENULOAD"));
    if (action)
        inLoadDialog(std::move(action));
    inLoadDialog([](QDialog& dialog) { click(dialog, "IDOK"); });
}

std::string WindowSession::run()
{
    const auto files = quelhost::InstalledFiles::beside(QCoreApplication::applicationDirPath());
    quelhost::Status result = quelhost::Done{};
    m_driver.run([&] { quelhostRunWindow(m_options, files, result); });
    return result ? "" : result.fault().text().toStdString();
}

QStringList WindowSession::menus()
{
    QStringList texts;
    for (const QAction* action : window().menuBar()->actions())
        texts += action->text();
    return texts;
}

QString WindowSession::said()
{
    const MainWindow* const window = shownWindow();
    return window == nullptr ? QString() : part<QPlainTextEdit>(*window, "said").toPlainText();
}

MainWindow& WindowSession::window()
{
    MainWindow* const window = shownWindow();
    if (window == nullptr)
        throw std::runtime_error("a main window");
    return *window;
}

QStringList WindowSession::stored(const char* key) const
{
    const quelhost::Result<QByteArray> listing = quelhost::listSettings(m_options.profile);
    if (!listing)
        return {listing.fault().text()};
    QStringList found;
    for (const QString& row : QString::fromUtf8(listing.value()).split(QLatin1Char('\n'))) {
        if (row.startsWith(QString::fromLatin1(key)))
            found += row;
    }
    return found;
}

QString WindowSession::copyOf(const char* example, const char* name) const
{
    const QString copy = m_folder.filePath(QString::fromLatin1(name));
    QFile::copy(QStringLiteral(QUEL_EXAMPLES "/%1.cuix").arg(QLatin1String(example)), copy);
    return copy;
}

} // namespace windowtest
