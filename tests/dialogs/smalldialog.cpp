#include "tests/dialogs/smalldialog.h"

#include "tests/dialogs/testservices.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QPushButton>

#include <stdexcept>

namespace dialogtest {

namespace {

QByteArray number(const char* name, int value)
{
    return QByteArray("<") + name + ">" + QByteArray::number(value) + "</" + name + ">";
}

QByteArray geometry(const QRect& place)
{
    return "<property name=\"geometry\"><rect>" + number("x", place.x()) + number("y", place.y()) +
           number("width", place.width()) + number("height", place.height()) + "</rect></property>";
}

QByteArray described(const DescribedControl& control)
{
    QByteArray text = QByteArray("<widget class=\"") + control.widgetClass + "\" name=\"" +
                      control.name + "\">" + geometry(control.place);
    if (*control.text != '\0')
        text +=
            QByteArray("<property name=\"text\"><string>") + control.text + "</string></property>";
    return text + "</widget>";
}

std::string sized(const char* what, int width, int height)
{
    return std::string(what) + " " + std::to_string(width) + "x" + std::to_string(height);
}

} // namespace

QByteArray describe(const char* name, const std::vector<DescribedControl>& controls)
{
    QByteArray text = "<?xml version=\"1.0\" encoding=\"UTF-8\"?><ui version=\"4.0\"><class>" +
                      QByteArray(name) + "</class><widget class=\"QDialog\" name=\"" + name +
                      "\">" + geometry({0, 0, 300, 200});
    for (const DescribedControl& control : controls)
        text += described(control);
    return text + "</widget></ui>";
}

QByteArray smallDescription()
{
    return describe("IDD_SMALL", {{"QPushButton", "IDOK", {10, 160, 80, 30}, "OK"},
                                  {"QPushButton", "IDCANCEL", {100, 160, 80, 30}, "Cancel"},
                                  {"QLineEdit", "IDC_EDIT", {10, 10, 200, 30}, "typed"},
                                  {"QListWidget", "IDC_LIST", {10, 50, 200, 100}},
                                  {"QPushButton", "IDC_ACTION", {190, 160, 80, 30}, "&amp;Act"}});
}

DescriptionFolder::DescriptionFolder()
{
    services().resourceFolder = m_folder.path();
}

QString DescriptionFolder::write(const char* name, const QByteArray& description) const
{
    const QString path =
        m_folder.filePath(QStringLiteral("Small/Part/%1.ui").arg(QLatin1String(name)));
    QFile file(path);
    if (!QDir().mkpath(QFileInfo(path).path()) || !file.open(QIODevice::WriteOnly) ||
        file.write(description) != description.size())
        throw std::runtime_error("cannot write a description");
    return path;
}

SmallDialog::SmallDialog(const wchar_t* name, QWidget* parent)
    : QuUiBaseDialog(parent)
{
    m_controlsGenerated = generateUICtrls(name, L"Small/Part", 1, 0, 0);
    if (!m_controlsGenerated)
        return;
    if (auto* const action = qobject_cast<QPushButton*>(getWidgetsFromOrignal(L"IDC_ACTION"))) {
        connect(action, &QPushButton::clicked, this, [this] {
            if (atAction)
                atAction();
        });
    }
    QuUiBaseDialog::bindSingals();
}

void SmallDialog::OnSize(unsigned int type, int cx, int cy)
{
    steps.push_back(sized(type == 0 ? "size" : "other", cx, cy));
    if (atSize)
        atSize();
}

void SmallDialog::OnOK()
{
    steps.emplace_back("ok");
    if (atOk)
        atOk();
    QuUiBaseDialog::OnOK();
}

bool SmallDialog::OnInitDialog()
{
    steps.emplace_back("init");
    const bool result = QuUiBaseDialog::OnInitDialog();
    if (atInit)
        atInit();
    return result;
}

void SmallDialog::DoDataExchange(CDataExchange* exchange)
{
    QuUiBaseDialog::DoDataExchange(exchange);
    DDX_Control(exchange, L"IDC_LIST", rows);
    steps.emplace_back("bind");
}

} // namespace dialogtest
