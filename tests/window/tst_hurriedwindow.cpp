// Sessions in a window under a person in a hurry: nothing crashes or hangs, and whenever the
// command line waits, list, groups and window belong together.
#include "refhost/core/host.h"
#include "refhost/core/widetext.h"
#include "refhost/window/mainwindow.h"
#include "refhost/window/windowprogram.h"
#include "tests/support/testrounds.h"
#include "tests/window/listwatch.h"
#include "tests/window/ownmemory.h"
#include "tests/window/randomuser.h"
#include "tests/window/shownwindow.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QClipboard>
#include <QDesktopServices>
#include <QDir>
#include <QMenuBar>
#include <QPixmapCache>
#include <QToolBar>
#include <QtTest/QTest>

#include <algorithm>
#include <atomic>
#include <chrono>
#include <condition_variable>
#include <cstdio>
#include <map>
#include <mutex>
#include <thread>

using namespace windowtest;
using hurry::ListModel;
using quelhost::Host;
using quelhost::MainWindow;
using quelhost::toUtf8;

namespace {

// Ends the process, with what was done last, when nothing has been done for long.
class Watchdog
{
public:
    explicit Watchdog(const hurry::World& world)
        : m_thread([this, &world] { watch(world); })
    {}
    ~Watchdog()
    {
        {
            const std::lock_guard<std::mutex> lock(m_mutex);
            m_over = true;
        }
        m_changed.notify_all();
        m_thread.join();
    }
    Watchdog(const Watchdog&) = delete;
    Watchdog& operator=(const Watchdog&) = delete;

    void pat() { ++m_pats; }

private:
    void watch(const hurry::World& world)
    {
        constexpr std::chrono::seconds kMost(60); // a hang, not a measure
        std::unique_lock<std::mutex> lock(m_mutex);
        for (unsigned int seen = m_pats;
             !m_changed.wait_for(lock, kMost, [this] { return m_over; }); seen = m_pats) {
            if (seen != m_pats)
                continue;
            std::fprintf(stderr, "It hangs. %s", world.story().c_str());
            std::abort();
        }
    }

    std::mutex m_mutex;
    std::condition_variable m_changed;
    bool m_over = false;
    std::atomic<unsigned int> m_pats{0};
    std::thread m_thread;
};

// Pages for the browser are not shown.
class NoBrowser final : public QObject
{
    Q_OBJECT

public:
    NoBrowser() { QDesktopServices::setUrlHandler(QStringLiteral("file"), this, "open"); }
    ~NoBrowser() override { QDesktopServices::unsetUrlHandler(QStringLiteral("file")); }
    NoBrowser(const NoBrowser&) = delete;
    NoBrowser& operator=(const NoBrowser&) = delete;

public slots:
    void open(const QUrl&) {}
};

std::wstring textOf(const std::vector<std::wstring>& entries)
{
    std::wstring text;
    for (const std::wstring& entry : entries)
        text += (&entry == &entries.front() ? L"" : L";") + entry;
    return text;
}

std::string told(const std::vector<ListModel::Shown>& groups)
{
    std::string rows;
    for (const ListModel::Shown& shown : groups)
        rows += toUtf8(shown.group + L" of " + shown.path) + '\n';
    return rows;
}

// The objects of a window that belong to its groups, by their kind.
std::map<std::string, int> groupObjects(const MainWindow& window)
{
    std::map<std::string, int> counts;
    for (const QObject* object : window.findChildren<QObject*>()) {
        const std::string kind = object->metaObject()->className();
        if (kind.rfind("quelhost::", 0) == 0 || kind == "QToolBar")
            ++counts[kind];
    }
    counts["menus in the bar"] = window.menuBar()->actions().size();
    return counts;
}

// When no session runs, what the toolkit keeps for a while is dropped.
void letRest()
{
    QGuiApplication::clipboard()->clear();
    QPixmapCache::clear();
    QCoreApplication::sendPostedEvents();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

std::ptrdiff_t median(std::vector<std::size_t> values)
{
    std::sort(values.begin(), values.end());
    return static_cast<std::ptrdiff_t>(values[values.size() / 2]);
}

// From the middle third to the last.
std::ptrdiff_t growth(const std::vector<std::size_t>& memory)
{
    const auto third = static_cast<std::ptrdiff_t>(memory.size() / 3);
    if (third == 0)
        return 0;
    return median({memory.end() - third, memory.end()}) -
           median({memory.end() - 2 * third, memory.end() - third});
}

// A margin for what the toolkit keeps of what it saw: glyphs, icons, folders.
constexpr std::ptrdiff_t kMostGrowth = 1 << 20;
// Longer than a button of the toolkit's fades, which it does even where its window has gone.
constexpr int kFadingMs = 500;

constexpr unsigned int kMostInSession = 50;

class HurriedWindow : public testing::Test
{
protected:
    HurriedWindow()
    {
        m_options.window = true;
        m_options.language = QStringLiteral("en");
        m_options.profile = world.profile();
    }
    void SetUp() override { ASSERT_TRUE(QDir::setCurrent(world.workFolder())); }
    void TearDown() override { QDir::setCurrent(m_before); }

    [[nodiscard]] std::string runSession()
    {
        m_model.reset();
        quelhost::Status result = quelhost::Done{};
        quelhostRunWindow(m_options,
                          quelhost::InstalledFiles::beside(QCoreApplication::applicationDirPath()),
                          result);
        return result ? "" : result.fault().text().toStdString();
    }

    // What is wrong in a dialog, or nothing.
    [[nodiscard]] std::string lookInFront(QWidget& dialog)
    {
        m_list.watch(dialog);
        return m_list.expect(*shownWindow(), textOf(Host::current()->groups.listedPaths()));
    }

    // What is wrong, or nothing. Files change only right behind a look.
    [[nodiscard]] std::string look(MainWindow& window)
    {
        m_watchdog.pat();
        Host& host = *Host::current();
        const std::wstring text = textOf(host.groups.listedPaths());
        if (std::string wrong = m_list.expect(window, text); !wrong.empty())
            return wrong;
        if (!m_model)
            m_model.emplace(text, world.workFolder().toStdWString(),
                            [this](const auto& file) { return world.files.groupOf(file); });
        std::vector<ListModel::Shown> shown;
        for (const quelhost::ShownGroup& group : host.groups.groups())
            shown.push_back({group.path, group.group.name.toStdWString(), group.unlisted});
        // Groups are shown anew when something was loaded or unloaded, and back again perhaps.
        if (text != m_model->text() || told(shown) != told(m_model->shown()))
            m_model->follow(text);
        if (told(shown) != told(m_model->shown()))
            return "shown:\n" + told(shown) + "and not:\n" + told(m_model->shown());
        return wrongWindow(window, host);
    }

    // Lets nothing but the main file be listed, without the user's changes, and looks whether the
    // window is as it was in the beginning.
    [[nodiscard]] std::string wrongAfterUnloading(const MainWindow& window)
    {
        Host& host = *Host::current();
        const std::wstring mainFile = host.groups.listedPaths().front();
        QuelVariant list;
        list.setString(mainFile.c_str(), QuelVariant::kString);
        if (host.config.setValue(QueldConfig::kUserProfile, L"CUIX/LoadedCuix", list) != 0 ||
            !host.customization.replaceToolbars({}) || !host.customization.replaceKeys({}))
            return "the settings cannot be written";
        host.groups.refresh();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        m_list.begin(mainFile);
        m_model->follow(mainFile);
        std::string wrong;
        for (const auto& [kind, count] : groupObjects(window)) {
            const auto [first, isFirst] = m_objects.emplace(kind, count);
            if (!isFirst && first->second != count)
                wrong += std::to_string(count) + " of " + kind + " and not " +
                         std::to_string(first->second) + '\n';
        }
        return wrong;
    }

    hurry::World world{hurry::Typist::Person};
    ListWatch m_list;
    std::optional<ListModel> m_model; // of the session that runs

private:
    [[nodiscard]] static std::string wrongWindow(const MainWindow& window, const Host& host)
    {
        int menus = 1; // the host's own
        for (const quelhost::ShownGroup& group : host.groups.groups())
            menus += static_cast<int>(group.group.menus.size());
        const int shown = window.menuBar()->actions().size();
        if (shown != menus)
            return std::to_string(shown) + " menus and not " + std::to_string(menus);
        const auto widgets = QApplication::topLevelWidgets();
        const bool isBlocked =
            std::any_of(widgets.begin(), widgets.end(), [](const QWidget* widget) {
                return widget->isVisible() && widget->isModal();
            });
        return isBlocked ? "a dialog that nobody waits for" : "";
    }

    quelhost::Options m_options;
    const QString m_before = QDir::currentPath();
    NoBrowser m_browser;
    Watchdog m_watchdog{world};
    std::map<std::string, int> m_objects; // when nothing but the main file is loaded
};

} // namespace

TEST_F(HurriedWindow, StaysWhatItsListSays)
{
    unsigned int looks = 0;
    const auto lookAtAll = [&](MainWindow& window) {
        constexpr unsigned int kBetweenUnloading = 100;
        const std::string wrong = look(window);
        const bool isTime = looks++ % kBetweenUnloading == 0;
        return wrong.empty() && isTime ? wrongAfterUnloading(window) : wrong;
    };
    RandomUser user(world, static_cast<unsigned int>(wantedRounds(500)), lookAtAll,
                    [&](QWidget& dialog) { return lookInFront(dialog); });
    m_list.begin(quelhost::fromUtf8(world.files.mainFile()));
    std::vector<std::size_t> memory;
    OwnMemory ownMemory;
    while (!user.hasDoneAll() && user.problem().empty()) {
        std::string wrong;
        user.use([&] { wrong = runSession(); }, kMostInSession);
        ASSERT_EQ(wrong, "") << world.story();
        EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
        EXPECT_EQ(Host::current(), nullptr);
        ASSERT_EQ(m_list.expect(world.storedList()), "") << "stored; " << world.story();
        if (!user.problem().empty())
            break; // what was done last is told
        m_model.reset();
        world.done = {};
        letRest();
        ownMemory.note();
        memory.push_back(liveMemory());
    }
    QTest::qWait(kFadingMs);
    EXPECT_EQ(user.problem(), "") << world.story();
    EXPECT_GT(m_list.changes(), 0) << "the user has to get through to the commands";
    EXPECT_GT(user.seen().size(), 1) << "and to dialogs";
    EXPECT_EQ(ownMemory.grown(), "") << world.story();
    EXPECT_LT(growth(memory), kMostGrowth) << "bytes; " << world.story();
    RecordProperty("changes", m_list.changes());
    RecordProperty("sessions", static_cast<int>(memory.size()));
    RecordProperty("growth", std::to_string(growth(memory)));
    QStringList seen;
    for (auto each = user.seen().begin(); each != user.seen().end(); ++each)
        seen << QStringLiteral("%1 %2").arg(each.key()).arg(each.value());
    RecordProperty("seen", seen.join(QStringLiteral(", ")).toStdString());
}

#include "tst_hurriedwindow.moc"
