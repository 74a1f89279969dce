#include "tests/window/randomuser.h"

#include "refhost/core/host.h"
#include "refhost/core/widetext.h"
#include "refhost/window/mainwindow.h"
#include "tests/window/shownwindow.h"

#include <QAbstractButton>
#include <QAbstractEventDispatcher>
#include <QAbstractItemView>
#include <QAction>
#include <QApplication>
#include <QDialog>
#include <QDragEnterEvent>
#include <QFile>
#include <QFileDialog>
#include <QLabel>
#include <QLineEdit>
#include <QMimeData>
#include <QPointer>
#include <QUrl>
#include <QWheelEvent>
#include <QWindow>
#include <QtTest/QTest>

#include <algorithm>
#include <array>
#include <utility>

using hurry::ConsoleModel;
using quelhost::MainWindow;

namespace windowtest {

namespace {

constexpr std::array kKeys = {
    Qt::Key_Return, Qt::Key_Escape, Qt::Key_Tab,   Qt::Key_Backtab,   Qt::Key_Up,  Qt::Key_Down,
    Qt::Key_Left,   Qt::Key_Right,  Qt::Key_Home,  Qt::Key_End,       Qt::Key_F2,  Qt::Key_F10,
    Qt::Key_PageUp, Qt::Key_Space,  Qt::Key_Enter, Qt::Key_Backspace, Qt::Key_Alt, Qt::Key_Menu,
    Qt::Key_M,      Qt::Key_P,      Qt::Key_L,     Qt::Key_A,         Qt::Key_C,   Qt::Key_Delete};
constexpr std::array kModifiers = {Qt::KeyboardModifier::NoModifier,
                                   Qt::KeyboardModifier::NoModifier,
                                   Qt::KeyboardModifier::NoModifier,
                                   Qt::ShiftModifier,
                                   Qt::ControlModifier,
                                   Qt::AltModifier};

// The parts of a window that can be seen, itself included.
QList<QWidget*> partsOf(QWidget& window)
{
    QList<QWidget*> parts{&window};
    for (QWidget* part : window.findChildren<QWidget*>()) {
        if (part->isVisible() && part->window() == window.window() && !part->size().isEmpty())
            parts << part;
    }
    return parts;
}

// What the window asks for now.
ConsoleModel::Prompt promptOf(const MainWindow& window)
{
    using Prompt = ConsoleModel::Prompt;
    const QString prompt = window.findChild<QLabel*>(QStringLiteral("prompt"))->text();
    constexpr std::array<std::pair<const char*, Prompt>, 6> kBeginnings = {
        {{"Enter name of menu file", Prompt::Load},
         {"Enter the name", Prompt::Unload},
         {"Enter customization", Prompt::Menu},
         {"Customize", Prompt::Editor},
         {"Name of", Prompt::SetName},
         {"New value", Prompt::SetValue}}};
    for (const auto& [beginning, kind] : kBeginnings) {
        if (prompt.startsWith(QLatin1String(beginning)))
            return kind;
    }
    return Prompt::Command;
}

bool isAsking(const MainWindow& window)
{
    return window.findChild<QLineEdit*>(QStringLiteral("line"))->isEnabled();
}

} // namespace

RandomUser::RandomUser(hurry::World& world, unsigned int events, Look look, LookInFront lookInFront)
    : m_world(world)
    , m_left(events)
    , m_look(std::move(look))
    , m_lookInFront(std::move(lookInFront))
{
    // Where events are only let through for painting, no input is taken, and nothing waits.
    const auto* const dispatcher = QAbstractEventDispatcher::instance();
    connect(dispatcher, &QAbstractEventDispatcher::aboutToBlock, this, [this] { m_waits = true; });
    connect(dispatcher, &QAbstractEventDispatcher::awake, this, [this] { m_waits = false; });
    connect(&m_timer, &QTimer::timeout, this, [this] {
        // A timer does not run again while it is at work, and what is done may run a loop.
        m_timer.stop();
        QMetaObject::invokeMethod(
            this, [this] { act(); }, Qt::QueuedConnection);
    });
}

void RandomUser::use(const std::function<void()>& session, unsigned int mostEvents)
{
    m_leftInSession = std::min(mostEvents, m_left);
    goOn();
    session();
    m_timer.stop();
}

void RandomUser::goOn()
{
    m_timer.start(0);
}

void RandomUser::act()
{
    goOn();
    MainWindow* const window = shownWindow();
    if (window == nullptr || !m_waits)
        return;
    QWidget* const popup = QApplication::activePopupWidget();
    QWidget* const dialog = QApplication::activeModalWidget();
    if (dialog != nullptr && m_problem.empty())
        m_problem = m_lookInFront(*dialog);
    if (m_leftInSession == 0 || !m_problem.empty())
        return leave();
    if (popup == nullptr && dialog == nullptr && !isAsking(*window))
        return; // a command is at work
    --m_left;
    --m_leftInSession;
    if (const QWidget* const front = popup != nullptr ? popup : dialog)
        ++m_seen[QLatin1String(front->metaObject()->className()) + QLatin1Char(' ') +
                 front->objectName()];
    if (popup != nullptr)
        inPopup(*popup);
    else if (auto* const files = qobject_cast<QFileDialog*>(dialog))
        inFileDialog(*files);
    else if (dialog != nullptr)
        inDialog(*dialog);
    else
        atPrompt(*window);
}

// Closes what is in front; at last the window, whatever is asked there.
void RandomUser::leave()
{
    if (QWidget* const popup = QApplication::activePopupWidget())
        popup->close();
    else if (auto* const dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget()))
        dialog->reject();
    else if (MainWindow* const window = shownWindow(); isAsking(*window)) {
        if (m_problem.empty())
            m_problem = m_look(*window);
        window->close();
    }
}

void RandomUser::atPrompt(MainWindow& window)
{
    m_problem = m_look(window);
    hurry::Random& random = m_world.random;
    const std::size_t kind = random.below(1000);
    if (kind < 300)
        typeLine(window);
    else if (kind < 500)
        clickAnywhere(window);
    else if (kind < 700)
        pressAnyKey(window);
    else if (kind < 760)
        pressAccelerator(window);
    else if (kind < 800)
        press(window, Qt::Key_I, Qt::ControlModifier | Qt::AltModifier);
    else if (kind < 860)
        dropFiles(window);
    else if (kind < 900)
        turnWheel(window);
    else if (kind < 915)
        window.resize(300 + static_cast<int>(random.below(900)),
                      200 + static_cast<int>(random.below(700)));
    else if (kind < 950)
        unloadFrom(window, "loadedUnload");
    else if (kind < 985)
        note(m_world.files.change(random));
    else if (kind < 997)
        removeLoaded();
    else
        window.close();
}

void RandomUser::inPopup(QWidget& popup)
{
    const std::size_t kind = m_world.random.below(10);
    if (kind < 4)
        pressAnyKey(popup);
    else if (kind < 8)
        clickAnywhere(popup);
    else if (kind < 9)
        press(popup, Qt::Key_Return);
    else
        press(popup, Qt::Key_Escape);
}

void RandomUser::inDialog(QWidget& dialog)
{
    hurry::Random& random = m_world.random;
    const auto lines = dialog.findChildren<QLineEdit*>();
    const auto buttons = dialog.findChildren<QAbstractButton*>();
    const std::size_t kind = random.below(22);
    if (kind > 19) {
        unloadFrom(dialog, "IDC_MENULOAD_BTNUNLOAD");
    } else if (kind < 5 && !lines.isEmpty()) {
        QLineEdit& line = *random.of(lines);
        const QString path = QString::fromStdString(m_world.files.loadablePath(random));
        line.setFocus();
        line.setText(path.contains(QLatin1Char(';')) ? QString() : path);
        note("(in a field: " + path.toStdString() + ")");
    } else if (kind < 11 && !buttons.isEmpty()) {
        QAbstractButton& button = *random.of(buttons);
        note("(button " + button.text().toStdString() + ")");
        press(dialog, Qt::Key_Tab);
        button.setFocus();
        press(dialog, Qt::Key_Space);
    } else if (kind < 16) {
        clickAnywhere(dialog);
    } else if (kind < 18) {
        pressAnyKey(dialog);
    } else if (kind == 18) {
        press(dialog, Qt::Key_Escape);
    } else if (QWidget* const window = shownWindow()) {
        clickAnywhere(*window); // which waits behind it
    }
}

// Nothing on the disk is to be renamed or deleted.
void RandomUser::inFileDialog(QFileDialog& dialog)
{
    dialog.setOption(QFileDialog::ReadOnly);
    hurry::Random& random = m_world.random;
    auto* const name = dialog.findChild<QLineEdit*>();
    if (random.percent(60) && name != nullptr) {
        const QString path = QString::fromStdString(m_world.files.loadablePath(random));
        if (path.contains(QLatin1Char(';')))
            return;
        note("(file dialog: " + path.toStdString() + ")");
        name->setFocus();
        name->setText(path);
        press(dialog, Qt::Key_Return);
    } else {
        press(dialog, random.percent(70) ? Qt::Key_Escape : Qt::Key_Tab);
    }
}

void RandomUser::typeLine(MainWindow& window)
{
    QString text = QString::fromStdString(m_world.lines.nextTyped(promptOf(window)));
    // A file with a semicolon in its name is two entries of the list.
    if (text.contains(QLatin1String("it;s")))
        return;
    auto* const line = window.findChild<QLineEdit*>(QStringLiteral("line"));
    line->setFocus();
    // What ends the session stands alone: what was done in front of it is seen before.
    const bool isEnd = text.contains(QLatin1String("QUIT"), Qt::CaseInsensitive);
    if (isEnd) {
        text = QStringLiteral("QUIT");
        line->clear();
    }
    press(window, Qt::Key_unknown, {}, text);
    if (isEnd || m_world.random.percent(90))
        press(window, Qt::Key_Return);
}

void RandomUser::pressAccelerator(MainWindow& window)
{
    QList<QKeySequence> keys;
    for (const QAction* action : window.findChildren<QAction*>())
        keys << action->shortcuts();
    if (keys.isEmpty())
        return;
    const QKeySequence& chosen = m_world.random.of(keys);
    note("accelerator " + chosen.toString().toStdString());
    for (int i = 0; i < chosen.count(); ++i)
        press(window, chosen[static_cast<uint>(i)] & ~Qt::KeyboardModifierMask,
              Qt::KeyboardModifiers(chosen[static_cast<uint>(i)] & Qt::KeyboardModifierMask));
}

void RandomUser::dropFiles(MainWindow& window)
{
    QMimeData data;
    QList<QUrl> urls;
    std::string names;
    for (std::size_t count = 1 + m_world.random.below(3); count > 0; --count) {
        const std::string path = m_world.files.path(m_world.random);
        if (path.find(';') != path.npos)
            continue;
        const QString absolute =
            QDir(m_world.workFolder()).absoluteFilePath(QString::fromStdString(path));
        urls << QUrl::fromLocalFile(absolute);
        names += ' ' + path;
    }
    note("dropped:" + names);
    data.setUrls(urls);
    QDragEnterEvent enter(QPoint(20, 20), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(&window, &enter);
    if (!enter.isAccepted())
        return;
    QDropEvent drop(QPointF(20, 20), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(&window, &drop);
}

void RandomUser::turnWheel(MainWindow& window)
{
    const QList<QWidget*> parts = partsOf(window);
    QWidget& part = *m_world.random.of(parts);
    const QPointF at(part.width() / 2.0, part.height() / 2.0);
    QWheelEvent turned(at, part.mapToGlobal(at.toPoint()), QPoint(), QPoint(0, 120), Qt::NoButton,
                       Qt::NoModifier, Qt::NoScrollPhase, false);
    note(std::string("wheel over ") + part.metaObject()->className());
    QApplication::sendEvent(&part, &turned);
}

// Chooses any of the rows above the button, where there are such, and presses it.
void RandomUser::unloadFrom(QWidget& window, const char* name)
{
    auto* const button = window.findChild<QAbstractButton*>(QLatin1String(name));
    if (button == nullptr)
        return;
    auto* const rows = button->parentWidget()->findChild<QAbstractItemView*>();
    const int count = std::max(rows->model()->rowCount(), 1); // the first need not be there
    const auto row = static_cast<int>(m_world.random.below(static_cast<std::size_t>(count)));
    note("(unload row " + std::to_string(row) + ")");
    rows->setCurrentIndex(rows->model()->index(row, 0));
    button->setFocus();
    press(window, Qt::Key_Space);
}

void RandomUser::removeLoaded()
{
    const std::vector<std::wstring> listed = quelhost::Host::current()->groups.listedPaths();
    const std::wstring& entry = m_world.random.of(listed);
    if (&entry == &listed.front())
        return;
    note("(goes, although loaded: " + quelhost::toUtf8(entry) + ")");
    static_cast<void>(QFile::remove(quelhost::toQString(entry)));
}

void RandomUser::pressAnyKey(QWidget& window)
{
    const Qt::Key key = m_world.random.of(kKeys);
    const Qt::KeyboardModifiers modifiers = m_world.random.of(kModifiers);
    const bool isLetter = key >= Qt::Key_A && key <= Qt::Key_Z && modifiers == Qt::NoModifier;
    press(window, key, modifiers, isLetter ? QString(QChar(key)).toLower() : QString());
}

void RandomUser::press(QWidget& window, int key, Qt::KeyboardModifiers modifiers,
                       const QString& text)
{
    const QPointer<QWindow> handle = window.window()->windowHandle();
    if (handle == nullptr)
        return;
    note("key " + std::to_string(key) + " with " + std::to_string(int(modifiers)) + " \"" +
         text.toStdString() + '"');
    for (const QEvent::Type type : {QEvent::KeyPress, QEvent::KeyRelease}) {
        if (handle != nullptr) // the key may have closed it
            qt_handleKeyEvent(handle, type, key, modifiers, text);
    }
}

void RandomUser::clickAnywhere(QWidget& window)
{
    const QPointer<QWindow> handle = window.window()->windowHandle();
    if (handle == nullptr)
        return;
    hurry::Random& random = m_world.random;
    const QList<QWidget*> parts = partsOf(window);
    QWidget& part = *random.of(parts);
    const QPoint inPart(static_cast<int>(random.below(static_cast<std::size_t>(part.width()))),
                        static_cast<int>(random.below(static_cast<std::size_t>(part.height()))));
    const QPoint at = part.mapTo(window.window(), inPart);
    const Qt::MouseButton button = random.percent(85) ? Qt::LeftButton : Qt::RightButton;
    note(std::string("click ") + (button == Qt::LeftButton ? "" : "right ") + "on " +
         part.metaObject()->className() + " \"" + part.objectName().toStdString() + '"');
    const int times = random.percent(15) ? 2 : 1;
    for (int i = 0; i < times; ++i) {
        for (const QEvent::Type type :
             {QEvent::MouseMove, QEvent::MouseButtonPress, QEvent::MouseButtonRelease}) {
            if (handle == nullptr)
                return; // the click has closed it
            const bool isDown = type == QEvent::MouseButtonPress;
            qt_handleMouseEvent(handle, at, handle->mapToGlobal(at),
                                isDown ? Qt::MouseButtons(button) : Qt::MouseButtons(),
                                type == QEvent::MouseMove ? Qt::NoButton : button, type, {}, 0);
        }
    }
}

} // namespace windowtest
