#include "tests/window/listwatch.h"

#include "refhost/core/widetext.h"
#include "refhost/window/mainwindow.h"
#include "refhost/window/saidrows.h"
#include "tests/window/shownwindow.h"

#include <QAbstractButton>
#include <QDialog>
#include <QLineEdit>
#include <QListWidget>
#include <QMessageBox>
#include <QTextBlock>

#include <array>
#include <string_view>
#include <sys/stat.h>
#include <utility>
#include <vector>

using quelhost::MainWindow;
using quelhost::toUtf8;
using quelhost::toWide;

namespace windowtest {

namespace {

constexpr std::wstring_view kLoadPrompt = L"Enter name of menu file to load:";
constexpr std::wstring_view kUnloadPrompt = L"Enter the name of a Menu Group to unload:";
constexpr wchar_t kBlanks[] = L" \t";
constexpr int kRead = 1; // state of a row
constexpr char kIsWatched[] = "isWatched";

bool exists(const std::wstring& path)
{
    struct stat about = {};
    return !path.empty() && ::stat(toUtf8(path).c_str(), &about) == 0;
}

// The first answer of a line that was typed.
std::wstring firstAnswer(const std::wstring& line)
{
    const std::size_t begin = line.find_first_not_of(kBlanks);
    if (begin == line.npos)
        return {};
    const std::size_t closing = line[begin] == L'"' ? line.find(L'"', begin + 1) : line.npos;
    if (closing != line.npos)
        return line.substr(begin + 1, closing - begin - 1);
    if (line[begin] == L'"')
        return line.substr(begin);
    return line.substr(begin, line.find_first_of(kBlanks, begin) - begin);
}

// What the dialog lists a file by.
std::wstring shownName(const std::wstring& path)
{
    const std::wstring name = path.substr(path.rfind(L'/') + 1);
    return name.substr(0, name.find(L'.'));
}

// By its name in the dialog an entry goes, whether its file is there or not.
void unloadNamed(std::wstring& list, const std::wstring& name)
{
    std::vector<std::wstring> kept;
    for (const std::wstring& entry : listrules::partsOf(list)) {
        if (shownName(entry) != name)
            kept.push_back(entry);
    }
    list.clear();
    for (const std::wstring& entry : kept)
        list += (&entry == &kept.front() ? L"" : L";") + entry;
}

// Files that are not there any more, and so on, change nothing.
void loadInto(std::wstring& list, const std::wstring& path)
{
    static_cast<void>(listrules::load(list, path, exists));
}

void unloadFrom(std::wstring& list, const std::wstring& path)
{
    static_cast<void>(listrules::unload(list, path, exists));
}

} // namespace

void ListWatch::watch(QWidget& front)
{
    auto* const dialog = qobject_cast<QDialog*>(&front);
    if (dialog == nullptr || dialog->property(kIsWatched).toBool())
        return;
    dialog->setProperty(kIsWatched, true);
    if (auto* const box = qobject_cast<QMessageBox*>(dialog)) {
        connect(box, &QMessageBox::buttonClicked, this, [this](const QAbstractButton* button) {
            const std::optional<std::wstring> name = std::exchange(m_asked, std::nullopt);
            if (name && button->text().remove(QLatin1Char('&')) == QLatin1String("OK"))
                become([&name](std::wstring& list) { unloadNamed(list, *name); });
        });
        connect(box, &QDialog::finished, this, [this] { m_asked.reset(); });
    } else {
        watchMenuDialog(*dialog);
    }
}

// A button is told to be released before it does what it is for.
void ListWatch::watchMenuDialog(QDialog& dialog)
{
    const auto* const load =
        dialog.findChild<QAbstractButton*>(QStringLiteral("IDC_MENULOAD_LOAD"));
    const auto* const unload =
        dialog.findChild<QAbstractButton*>(QStringLiteral("IDC_MENULOAD_BTNUNLOAD"));
    const auto* const file = dialog.findChild<QLineEdit*>(QStringLiteral("IDC_MENULOAD_EDITCMD"));
    const auto* const names = dialog.findChild<QListWidget*>(QStringLiteral("IDC_MENULOAD_LIST"));
    if (load == nullptr || unload == nullptr || file == nullptr || names == nullptr)
        return;
    connect(load, &QAbstractButton::released, this, [this, file] {
        m_asked.reset();
        readAnswers(*shownWindow());
        const std::wstring path = toWide(file->text());
        become([&path](std::wstring& list) { loadInto(list, path); });
    });
    connect(unload, &QAbstractButton::released, this, [this, names] {
        m_asked.reset();
        readAnswers(*shownWindow());
        // The main file's row is the first, and stays.
        if (names->currentRow() > 0 && !names->currentItem()->text().isEmpty())
            m_asked = toWide(names->currentItem()->text());
    });
}

std::string ListWatch::expect(const MainWindow& window, const std::wstring& found)
{
    readAnswers(window);
    return expect(found);
}

std::string ListWatch::expect(const std::wstring& found)
{
    if (m_possible.count(found) > 0) {
        m_possible = {found};
        return {};
    }
    std::string wrong = "the list is " + toUtf8(found);
    for (const std::wstring& list : m_possible)
        wrong += "\nand not " + toUtf8(list);
    return wrong;
}

// All whole rows since the last time. Each is marked, and what was marked is old.
void ListWatch::readAnswers(const MainWindow& window)
{
    const auto* const said = window.findChild<quelhost::SaidRows*>();
    QTextBlock row = said->document()->lastBlock();
    while (row.previous().isValid() && row.previous().userState() != kRead)
        row = row.previous();
    for (; row.next().isValid(); row = row.next()) {
        row.setUserState(kRead);
        readAnswer(toWide(row.text()));
    }
}

// A row shows an answer that was typed ahead alone, and else the line that it begins.
void ListWatch::readAnswer(const std::wstring& row)
{
    using Change = void (*)(std::wstring&, const std::wstring&);
    constexpr std::array<std::pair<std::wstring_view, Change>, 2> kPrompts = {
        {{kLoadPrompt, loadInto}, {kUnloadPrompt, unloadFrom}}};
    for (const auto& [prompt, change] : kPrompts) {
        if (row.compare(0, prompt.size(), prompt) != 0)
            continue;
        const std::wstring line = row.substr(prompt.size());
        const std::set<std::wstring> before = m_possible;
        become([&, change = change](std::wstring& list) { change(list, line); });
        if (firstAnswer(line) == line)
            continue;
        std::set<std::wstring> either = std::exchange(m_possible, before);
        become([&, change = change](std::wstring& list) { change(list, firstAnswer(line)); });
        m_possible.merge(either);
    }
}

template<typename Step>
void ListWatch::become(const Step& step)
{
    std::set<std::wstring> changed;
    bool isAnother = false;
    for (std::wstring list : m_possible) {
        step(list);
        isAnother |= m_possible.count(list) == 0;
        changed.insert(std::move(list));
    }
    m_changes += isAnother ? 1 : 0;
    m_possible = std::move(changed);
}

} // namespace windowtest
