// Help pages in the system's browser or in a window.
#include "refhost/dialogs/widgetface.h"
#include "tests/core/settingssupport.h"
#include "tests/dialogs/modalscript.h"

#include <gtest/gtest.h>

#include <QDesktopServices>
#include <QPointer>
#include <QTextBrowser>
#include <QUrl>
#include <QtTest/QTest>

using quelhost::HelpPages;
using quelhost::WidgetFace;
using quelhost::test::ScratchFolder;

namespace {

QString text(const char* utf8)
{
    return QString::fromUtf8(utf8);
}

const QString kPage = text("IDD_MENU_LOAD_DLG");

// An environment variable with another value as long as it lives.
class OtherValue
{
public:
    OtherValue(const char* name, const QByteArray& value)
        : m_name(name)
        , m_before(qgetenv(name))
    {
        qputenv(name, value);
    }
    ~OtherValue() { qputenv(m_name, m_before); }
    OtherValue(const OtherValue&) = delete;
    OtherValue& operator=(const OtherValue&) = delete;

private:
    const char* const m_name;
    const QByteArray m_before;
};

struct Help : testing::Test
{
    // What the desktop answers when it is asked for a browser.
    void makeDesktopAnswer(const QByteArray& answer) const
    {
        const QString asker = programs.file("xdg-mime");
        ASSERT_TRUE(quelhost::test::setBytes(asker, "#!/bin/sh\necho " + answer + "\n"));
        ASSERT_TRUE(quelhost::test::setMode(asker, 0755));
    }
    static HelpPages pages(const char* language) { return {text(QUEL_HELP), text(language)}; }

    // The help window over `parent`, or null.
    static QDialog* windowOver(const QWidget& parent)
    {
        return parent.findChild<QDialog*>(QString(), Qt::FindDirectChildrenOnly);
    }

    ScratchFolder programs;
    OtherValue path{"PATH", programs.path().toUtf8()};
    OtherValue browser{"BROWSER", {}};
    dialogtest::ModalScript script;
};

// A browser that only notes what it is to show.
class NotedBrowser : public QObject
{
    Q_OBJECT

public:
    NotedBrowser() { QDesktopServices::setUrlHandler(text("file"), this, "open"); }
    ~NotedBrowser() override { QDesktopServices::unsetUrlHandler(text("file")); }

    QStringList opened;

public slots:
    void open(const QUrl& url) { opened << url.toLocalFile(); }
};

} // namespace

TEST_F(Help, OpensInTheBrowserInTheUsersLanguage)
{
    makeDesktopAnswer("browser.desktop");
    NotedBrowser noted;
    WidgetFace(pages("de_AT")).showHelp(kPage);
    WidgetFace(pages("fi")).showHelp(kPage);
    const QString file = text(QUEL_HELP "/%1/IDD_MENU_LOAD_DLG.html");
    EXPECT_EQ(noted.opened, (QStringList{file.arg(text("de")), file.arg(text("en"))}));
    EXPECT_EQ(script.shown(), 0);
}

TEST_F(Help, WithoutABrowserItIsAWindowOverTheDialogThatCanBeWorkedOn)
{
    makeDesktopAnswer("");
    NotedBrowser noted;
    QDialog dialog;
    WidgetFace face(pages("de"));
    script.next([&](QDialog& shown) {
        face.showHelp(kPage);
        QDialog* const window = windowOver(shown);
        ASSERT_NE(window, nullptr);
        EXPECT_TRUE(window->isVisible());
        EXPECT_FALSE(window->isModal());
        EXPECT_EQ(window->windowTitle(), text("Anpassungsdateien laden und entladen"));
        const auto* const page = window->findChild<QTextBrowser*>();
        ASSERT_NE(page, nullptr);
        EXPECT_TRUE(page->toPlainText().contains(text("schließt den Dialog")));
        EXPECT_FALSE(page->accessibleName().isEmpty());
        EXPECT_EQ(QApplication::activeModalWidget(), &shown);
        const QPointer<QDialog> first(window);
        face.showHelp(kPage);
        EXPECT_TRUE(first.isNull()); // one window is enough
        QTest::keyClick(windowOver(shown), Qt::Key_Escape);
        EXPECT_TRUE(shown.isVisible());
        shown.reject();
    });
    dialog.exec();
    EXPECT_TRUE(noted.opened.isEmpty());
}

TEST_F(Help, AWindowThatIsClosedIsGone)
{
    makeDesktopAnswer("");
    QDialog dialog;
    script.next([&](QDialog& shown) {
        WidgetFace face(pages("en"));
        face.showHelp(kPage);
        const QPointer<QDialog> window(windowOver(shown));
        window->close();
        QCoreApplication::sendPostedEvents(window, QEvent::DeferredDelete);
        EXPECT_TRUE(window.isNull());
        face.showHelp(kPage);
        EXPECT_NE(windowOver(shown), nullptr);
        shown.reject();
    });
    dialog.exec();
}

TEST_F(Help, WithoutADialogTheCallReturnsWhenTheWindowIsClosed)
{
    makeDesktopAnswer("");
    WidgetFace face(pages("en"));
    script.next([](QDialog& window) {
        EXPECT_EQ(window.windowTitle(), text("Loading and unloading customization files"));
        QTest::keyClick(&window, Qt::Key_Escape);
    });
    face.showHelp(kPage);
    EXPECT_EQ(script.shown(), 1);
}

TEST_F(Help, AMissingPageIsToldInAWindow)
{
    makeDesktopAnswer("browser.desktop");
    NotedBrowser noted;
    WidgetFace face(pages("en"));
    script.next([](QDialog& window) {
        EXPECT_EQ(window.windowTitle(), text("Help"));
        EXPECT_EQ(window.findChild<QTextBrowser*>()->toPlainText(),
                  text("There is no help on IDD_<b>OTHER</b>."));
        window.reject();
    });
    face.showHelp(text("IDD_<b>OTHER</b>"));
    EXPECT_TRUE(noted.opened.isEmpty());
}

TEST_F(Help, WithoutADesktopsAnswerTheBrowserIsTried)
{
    NotedBrowser noted; // there is no program to ask
    WidgetFace(pages("en")).showHelp(kPage);
    EXPECT_EQ(noted.opened.size(), 1);
}

TEST_F(Help, ANamedBrowserIsTakenWhateverTheDesktopSays)
{
    makeDesktopAnswer("");
    const OtherValue named("BROWSER", "/usr/bin/some-browser");
    NotedBrowser noted;
    WidgetFace(pages("en")).showHelp(kPage);
    EXPECT_EQ(noted.opened.size(), 1);
}

#include "tst_helpwindow.moc"
