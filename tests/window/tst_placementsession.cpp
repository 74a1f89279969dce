// Where the load dialog stands and how large it is, from one opening to the next.
#include "refhost/window/mainwindow.h"
#include "tests/window/sessionfixture.h"

#include <QListWidget>
#include <QRegularExpression>
#include <QtTest/QTest>

#include <array>
#include <vector>

using namespace windowtest;

namespace {

constexpr char kKeys[] = "UserInterfaceSettings\\\\MenuLoadDlg";

// A dialog as it stood when it was looked at.
struct Seen
{
    QRect dialog; // without its frame
    QSize list;
};

bool operator==(const Seen& left, const Seen& right)
{
    return left.dialog == right.dialog && left.list == right.list;
}

std::ostream& operator<<(std::ostream& out, const Seen& seen)
{
    return out << seen.dialog.x() << ',' << seen.dialog.y() << ' ' << seen.dialog.width() << 'x'
               << seen.dialog.height() << " list " << seen.list.width() << 'x'
               << seen.list.height();
}

class PlacementSession : public WindowSession
{
protected:
    static Seen look(const QDialog& dialog)
    {
        return {dialog.geometry(), part<QListWidget>(dialog, "IDC_MENULOAD_LIST").size()};
    }

    // Opens the dialog, notes how it stands, and closes it with OK.
    void openAndLook()
    {
        useLoadDialog([this](QDialog& dialog) { m_seen.push_back(look(dialog)); });
    }

    // Opens the dialog and gives it another place and size; leaves it open.
    void openAndChange(const QPoint& place, const QSize& more)
    {
        typeLine(QStringLiteral("MENULOAD"));
        inLoadDialog([this, place, more](QDialog& dialog) {
            m_wanted = QRect(place, dialog.size() + more);
            dialog.setGeometry(m_wanted);
        });
        m_driver.step("the dialog at its new place", [this] {
            const QWidget* const dialog = QApplication::activeModalWidget();
            return dialog != nullptr && dialog->geometry() == m_wanted &&
                   dialog->mapToGlobal(QPoint(0, 0)) == m_wanted.topLeft();
        });
    }

    [[nodiscard]] QStringList storedAs(const QRect& rect) const
    {
        const QString key = QString::fromLatin1(kKeys);
        const auto row = [&key](const char* name, int value) {
            return key + QStringLiteral("\\\\%1\tint\t%2").arg(QLatin1String(name)).arg(value);
        };
        return {key + QStringLiteral("\tsection"), row("HEIGHT", rect.height()),
                row("WIDTH", rect.width()), row("X", rect.x()), row("Y", rect.y())};
    }

    std::vector<Seen> m_seen;
    QRect m_wanted;
};

} // namespace

TEST_F(PlacementSession, IsStoredByOkAsIntegers)
{
    openAndLook();
    closeWindow();
    EXPECT_EQ(run(), "");
    ASSERT_EQ(m_seen.size(), 1U);
    EXPECT_EQ(stored(kKeys), storedAs(m_seen[0].dialog));
}

TEST_F(PlacementSession, IsTheMiddleOfTheWindowTheFirstTime)
{
    QRect around;
    useLoadDialog([this, &around](QDialog& dialog) {
        m_seen.push_back(look(dialog));
        around = window().geometry();
    });
    closeWindow();
    EXPECT_EQ(run(), "");
    ASSERT_EQ(m_seen.size(), 1U);
    // The window manager may count the frame in.
    const QPoint off = m_seen[0].dialog.center() - around.center();
    EXPECT_LT(off.manhattanLength(), 60);
}

TEST_F(PlacementSession, StaysThroughFiveMoreRounds)
{
    for (int round = 0; round < 6; ++round)
        openAndLook();
    closeWindow();
    EXPECT_EQ(run(), "");
    ASSERT_EQ(m_seen.size(), 6U);
    for (const Seen& seen : m_seen)
        EXPECT_EQ(seen, m_seen[0]);
    EXPECT_EQ(stored(kKeys), storedAs(m_seen[0].dialog));
}

TEST_F(PlacementSession, AnEnlargedDialogComesBackAsItWas)
{
    openAndLook();
    openAndChange(QPoint(150, 170), QSize(90, 70));
    inLoadDialog([this](QDialog& dialog) {
        m_seen.push_back(look(dialog));
        click(dialog, "IDOK");
    });
    openAndLook();
    openAndLook();
    closeWindow();
    EXPECT_EQ(run(), "");
    openAndLook();
    closeWindow();
    EXPECT_EQ(run(), "");
    ASSERT_EQ(m_seen.size(), 5U);
    EXPECT_EQ(m_seen[1].dialog.topLeft(), QPoint(150, 170));
    EXPECT_EQ(m_seen[1].dialog.size(), m_seen[0].dialog.size() + QSize(90, 70));
    EXPECT_EQ(m_seen[1].list, m_seen[0].list + QSize(90, 70));
    EXPECT_EQ(m_seen[2], m_seen[1]);
    EXPECT_EQ(m_seen[3], m_seen[1]);
    EXPECT_EQ(m_seen[4], m_seen[1]);
    EXPECT_EQ(stored(kKeys), storedAs(m_seen[1].dialog));
}

TEST_F(PlacementSession, ADialogMadeSmallerThanItsDesignIsNotRestored)
{
    openAndLook();
    openAndChange(QPoint(150, 170), QSize(-60, -40));
    inLoadDialog([this](QDialog& dialog) {
        m_seen.push_back(look(dialog));
        click(dialog, "IDOK");
    });
    openAndLook();
    closeWindow();
    EXPECT_EQ(run(), "");
    ASSERT_EQ(m_seen.size(), 3U);
    EXPECT_EQ(m_seen[1].list, m_seen[0].list - QSize(60, 40));
    EXPECT_EQ(m_seen[2].dialog.size(), m_seen[0].dialog.size());
    EXPECT_EQ(m_seen[2].list, m_seen[0].list);
}

TEST_F(PlacementSession, EscAndTheCloseBoxStoreNothing)
{
    openAndChange(QPoint(150, 170), QSize(90, 70));
    inLoadDialog([](QDialog& dialog) { QTest::keyClick(&dialog, Qt::Key_Escape); });
    openAndChange(QPoint(150, 170), QSize(90, 70));
    inLoadDialog([](QDialog& dialog) { dialog.close(); });
    closeWindow();
    EXPECT_EQ(run(), "");
    EXPECT_EQ(stored(kKeys), QStringList());
}

TEST_F(PlacementSession, EscAndTheCloseBoxLeaveWhatWasStored)
{
    openAndLook();
    openAndChange(QPoint(150, 170), QSize(90, 70));
    inLoadDialog([](QDialog& dialog) { QTest::keyClick(&dialog, Qt::Key_Escape); });
    openAndChange(QPoint(150, 170), QSize(90, 70));
    inLoadDialog([](QDialog& dialog) { dialog.close(); });
    closeWindow();
    EXPECT_EQ(run(), "");
    ASSERT_EQ(m_seen.size(), 1U);
    EXPECT_EQ(stored(kKeys), storedAs(m_seen[0].dialog));
}
