#include "host/dialogs.h"

#include "host/messageboxes.h"
#include "refhost/core/widetext.h"
#include "refhost/dialogs/dialogdescription.h"
#include "refhost/dialogs/dialogservices.h"
#include "refhost/dialogs/modalrun.h"

#include <QAbstractButton>
#include <QGuiApplication>
#include <QMetaMethod>
#include <QResizeEvent>
#include <QScreen>
#include <QWindow>

#include <map>

using quelhost::toQString;

namespace {

constexpr int kResultOk = 1;
constexpr int kResultOther = 2;
constexpr int kNotShown = -1;

constexpr wchar_t kOkButton[] = L"IDOK";
constexpr wchar_t kCancelButton[] = L"IDCANCEL";

// A class may have the slot or not: it is looked up by its signature.
void deliverSize(QObject& dialog, const QSize& size)
{
    const QMetaObject& about = *dialog.metaObject();
    const int slot = about.indexOfMethod("OnSize(uint,int,int)");
    if (slot < 0)
        return;
    about.method(slot).invoke(&dialog, Qt::DirectConnection, Q_ARG(unsigned int, 0U),
                              Q_ARG(int, size.width()), Q_ARG(int, size.height()));
}

// A dialog without a parent stays in front of the main window all the same, and over its middle
// unless it was placed.
void keepInFront(QWidget& dialog)
{
    QWidget* const behind = quelhost::windowBehindDialogs();
    if (behind == nullptr || dialog.parentWidget() != nullptr)
        return;
    if (!dialog.testAttribute(Qt::WA_Moved)) {
        QRect place = dialog.geometry();
        place.moveCenter(behind->geometry().center());
        dialog.setGeometry(place);
    }
    dialog.winId(); // makes the native window
    dialog.windowHandle()->setTransientParent(behind->windowHandle());
}

// The place of a rectangle whose edges may be any numbers: a far edge that was summed up too large
// has wrapped, and a place beyond what the toolkit can hold is drawn in.
QRect placeOf(const RECT& rect)
{
    const auto size = [](int low, int high) {
        const unsigned int difference =
            static_cast<unsigned int>(high) - static_cast<unsigned int>(low);
        return qBound(0, static_cast<int>(difference), QWIDGETSIZE_MAX);
    };
    const auto edge = [](int at) { return qBound(-QWIDGETSIZE_MAX, at, QWIDGETSIZE_MAX); };
    return {edge(rect.left), edge(rect.top), size(rect.left, rect.right),
            size(rect.top, rect.bottom)};
}

// A dialog on a screen that is no longer there would wait for somebody who cannot see it.
void keepOnScreen(QWidget& dialog)
{
    const QRect place = dialog.geometry();
    for (const QScreen* screen : QGuiApplication::screens()) {
        if (screen->availableGeometry().intersects(place))
            return;
    }
    QRect centred(QPoint(0, 0), place.size());
    centred.moveCenter(QGuiApplication::primaryScreen()->availableGeometry().center());
    dialog.setGeometry(centred);
}

// Only objects themselves may ask who listens to them.
struct Listeners : QObject
{
    static int count(const QObject& object, const char* signal)
    {
        return (object.*(&Listeners::receivers))(signal);
    }
};

} // namespace

struct QuUiBaseDialog::Private
{
    // The controls by their widgets, as GetDlgItem gives them out.
    std::map<const QWidget*, CWnd> controls;
    bool sizesDelivered = false;
    bool faultTold = false; // why there are no controls
};

QuUiBaseDialog::QuUiBaseDialog(QWidget* parent)
    : QDialog(parent)
    , m_private(std::make_unique<Private>())
{
    setWindowFlag(Qt::WindowContextHelpButtonHint, false);
}

QuUiBaseDialog::~QuUiBaseDialog() = default;

int QuUiBaseDialog::DoModal()
{
    if (!quelhost::canShowDialogs()) {
        quelhost::tellOnCommandLine(qtTrId("dialog-no-display"));
        return kNotShown;
    }
    if (!m_controlsGenerated) {
        if (!m_private->faultTold)
            quelhost::tellOnCommandLine(qtTrId("dialog-no-controls"));
        return kNotShown;
    }
    deliverSize(*this, size());
    m_private->sizesDelivered = true;
    OnInitDialog();
    keepInFront(*this);
    keepOnScreen(*this);
    return quelhost::runModal(*this) == QDialog::Accepted ? kResultOk : kResultOther;
}

void QuUiBaseDialog::resizeEvent(QResizeEvent* event)
{
    QDialog::resizeEvent(event);
    if (m_private->sizesDelivered)
        deliverSize(*this, event->size());
}

void QuUiBaseDialog::OnOK()
{
    accept();
}

bool QuUiBaseDialog::OnInitDialog()
{
    DoDataExchange(nullptr);
    return true;
}

void QuUiBaseDialog::DoDataExchange(CDataExchange*) {}

void QuUiBaseDialog::bindSingals()
{
    const auto* const ok = qobject_cast<QAbstractButton*>(getWidgetsFromOrignal(kOkButton));
    if (ok != nullptr && !CheckIfConnected(kOkButton))
        connect(ok, &QAbstractButton::clicked, this, [this] { OnOK(); });
    const auto* const cancel = qobject_cast<QAbstractButton*>(getWidgetsFromOrignal(kCancelButton));
    if (cancel != nullptr && !CheckIfConnected(kCancelButton))
        connect(cancel, &QAbstractButton::clicked, this, &QDialog::reject);
}

bool QuUiBaseDialog::generateUICtrls(const wchar_t* dialogName, const wchar_t* resourceName, int,
                                     int, int)
{
    const quelhost::Status built =
        quelhost::buildDialog(*this, {quelhost::dialogResourceFolder(), toQString(resourceName),
                                      toQString(dialogName), quelhost::dialogLanguage()});
    if (!built)
        quelhost::tellOnCommandLine(built.fault().text());
    m_private->faultTold = !built;
    return static_cast<bool>(built);
}

QWidget* QuUiBaseDialog::getWidgetsFromOrignal(const wchar_t* objectName) const
{
    const QString name = objectName == nullptr ? QString() : toQString(objectName);
    return name.isEmpty() ? nullptr : findChild<QWidget*>(name);
}

bool QuUiBaseDialog::CheckIfConnected(const wchar_t* objectName) const
{
    const QWidget* const widget = getWidgetsFromOrignal(objectName);
    if (widget == nullptr)
        return false;
    return Listeners::count(*widget, SIGNAL(clicked(bool))) > 0;
}

CWnd* QuUiBaseDialog::GetDlgItem(const wchar_t* objectName) const
{
    QWidget* const widget = getWidgetsFromOrignal(objectName);
    if (widget == nullptr)
        return nullptr;
    return &m_private->controls.try_emplace(widget, widget).first->second;
}

void QuUiBaseDialog::DDX_Control(CDataExchange*, const wchar_t* objectName, CWnd& member)
{
    member.attach(getWidgetsFromOrignal(objectName));
}

int QuUiBaseDialog::MessageBoxW(const wchar_t* text, const wchar_t* caption, unsigned int flags)
{
    const wchar_t* const title = caption == nullptr ? GetOemProductName() : caption;
    return quelhost::askBoxOverDialog({text == nullptr ? L"" : text, title, flags});
}

void QuUiBaseDialog::GetClientRect(RECT* rect) const
{
    *rect = {0, 0, width(), height()};
}

void QuUiBaseDialog::GetWindowRect(RECT* rect) const
{
    const QPoint corner = mapToGlobal(QPoint(0, 0));
    *rect = {corner.x(), corner.y(), corner.x() + width(), corner.y() + height()};
}

void QuUiBaseDialog::MoveWindow(const RECT& rect, bool repaint)
{
    setGeometry(placeOf(rect));
    if (repaint)
        update();
}

void QuUiBaseDialog::ScreenToClient(RECT* rect) const
{
    const QPoint corner = mapToGlobal(QPoint(0, 0));
    *rect = {rect->left - corner.x(), rect->top - corner.y(), rect->right - corner.x(),
             rect->bottom - corner.y()};
}

void quelInvokeHelp(QuUiBaseDialog* dialog)
{
    quelhost::showDialogHelp(dialog->objectName());
}
