// The menu load dialog as it is described: texts in each language, keys, names for screen readers,
// and controls that leave each other room.
#include "tests/dialogs/menuloaddialogtest.h"

#include <QAccessible>
#include <QScreen>

#include <set>

using dialogtest::Controls;
using dialogtest::services;

namespace {

constexpr QSize kDesigned(560, 300);

QString text(const char* utf8)
{
    return QString::fromUtf8(utf8);
}

// Every text of the dialog by the name of its control and what it is there.
QMap<QString, QString> textsOf(const Controls& controls)
{
    QMap<QString, QString> texts{{text("title"), controls.dialog.windowTitle()},
                                 {text("placeholder"), controls.file.placeholderText()}};
    for (const QWidget* control : controls.all()) {
        const QString name = control->objectName();
        for (const char* property : {"text", "title", "toolTip", "accessibleName"}) {
            const QString value = control->property(property).toString();
            if (!value.isEmpty())
                texts.insert(name + text(".") + text(property), value);
        }
    }
    return texts;
}

std::string nameOf(const QWidget* widget)
{
    return widget->objectName().toStdString();
}

// A dialog in one of the languages.
class MenuLoadLook : public dialogtest::MenuLoadDialog,
                     public testing::WithParamInterface<const char*>
{
protected:
    MenuLoadLook() { services().language = text(GetParam()); }

    void look(const Steps& steps)
    {
        run([&](const Controls& controls) {
            steps(controls);
            controls.dialog.reject();
        });
    }
};

INSTANTIATE_TEST_SUITE_P(Languages, MenuLoadLook, testing::Values("en", "de"),
                         [](const auto& row) { return std::string(row.param); });

struct MenuLoadTexts : dialogtest::MenuLoadDialog
{
    QMap<QString, QString> texts(const char* language)
    {
        services().language = text(language);
        QMap<QString, QString> result;
        run([&](const Controls& controls) {
            result = textsOf(controls);
            controls.pressEscape();
        });
        return result;
    }
};

} // namespace

TEST_F(MenuLoadTexts, AllAreTranslated)
{
    const QMap<QString, QString> english = texts("en");
    const QMap<QString, QString> german = texts("de");
    EXPECT_EQ(english.size(), 15);
    EXPECT_EQ(german.keys(), english.keys());
    for (auto each = english.begin(); each != english.end(); ++each) {
        EXPECT_FALSE(each.value().contains(text("IDD_"))) << each.key().toStdString();
        EXPECT_EQ(german[each.key()] == each.value(), each.key() == text("IDOK.text"))
            << each.key().toStdString();
    }
    EXPECT_EQ(german[text("title")], text("Anpassungsdateien laden und entladen"));
    EXPECT_EQ(german[text("IDC_MENULOAD_BTNUNLOAD.text")], text("&Entladen"));
}

TEST_F(MenuLoadTexts, ARegionHasItsLanguageAndAnUnknownOneEnglish)
{
    EXPECT_EQ(texts("de_AT.UTF-8"), texts("de"));
    EXPECT_EQ(texts("fi"), texts("en"));
    EXPECT_EQ(texts(""), texts("en"));
}

TEST_P(MenuLoadLook, NothingIsWiderOrHigherThanItsControl)
{
    look([](const Controls& controls) {
        for (const int points : {9, 10, 11}) {
            QFont font = controls.dialog.font();
            font.setPointSize(points);
            controls.dialog.setFont(font);
            for (const QWidget* control :
                 std::vector<QWidget*>{&controls.load, &controls.unload, &controls.browse,
                                       &controls.help, &controls.ok, &controls.label}) {
                EXPECT_LE(control->sizeHint().width(), control->width()) << nameOf(control);
                EXPECT_LE(control->sizeHint().height(), control->height()) << nameOf(control);
            }
            EXPECT_LE(controls.file.sizeHint().height(), controls.file.height());
            const QFontMetrics metrics(controls.file.font());
            EXPECT_LE(metrics.horizontalAdvance(controls.file.placeholderText()),
                      controls.file.width() - 16);
            for (const QGroupBox* frame : {&controls.fileFrame, &controls.groupsFrame})
                EXPECT_LE(metrics.horizontalAdvance(frame->title()), frame->width() - 16);
        }
    });
}

TEST_P(MenuLoadLook, EachLetterBelongsToOneControl)
{
    look([](const Controls& controls) {
        std::set<QString> keys;
        int count = 0;
        const QMap<QString, QString> texts = textsOf(controls);
        for (auto each = texts.begin(); each != texts.end(); ++each) {
            if (!each.key().endsWith(text(".text")) && !each.key().endsWith(text(".title")))
                continue;
            const QKeySequence key = QKeySequence::mnemonic(each.value());
            if (key.isEmpty())
                continue;
            ++count;
            EXPECT_TRUE(keys.insert(key.toString()).second) << each.value().toStdString();
        }
        EXPECT_EQ(count, 5); // the label and all buttons but OK, which is the default
        EXPECT_EQ(controls.label.buddy(), &controls.file);
    });
}

TEST_P(MenuLoadLook, TabGoesFromTheFileToOkAndBackToTheFile)
{
    setList(folder.file(L"QUELD.cuix"));
    look([](const Controls& controls) {
        const std::vector<QWidget*> withoutLoad{&controls.browse, &controls.groups,
                                                &controls.unload, &controls.ok,
                                                &controls.help,   &controls.file};
        const std::vector<QWidget*> withLoad{&controls.browse, &controls.load, &controls.groups,
                                             &controls.unload, &controls.ok,   &controls.help,
                                             &controls.file};
        EXPECT_EQ(QApplication::focusWidget(), &controls.file);
        for (QWidget* expected : withoutLoad) {
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
            EXPECT_EQ(QApplication::focusWidget(), expected) << nameOf(expected);
        }
        controls.type(L"x");
        for (QWidget* expected : withLoad) {
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
            EXPECT_EQ(QApplication::focusWidget(), expected) << nameOf(expected);
        }
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Backtab, Qt::ShiftModifier);
        EXPECT_EQ(QApplication::focusWidget(), &controls.help);
    });
}

TEST_P(MenuLoadLook, OnlyOkAnswersReturn)
{
    look([](const Controls& controls) {
        for (QPushButton* button : controls.dialog.findChildren<QPushButton*>()) {
            EXPECT_EQ(button->autoDefault(), button == &controls.ok) << nameOf(button);
            EXPECT_EQ(button->isDefault(), button == &controls.ok) << nameOf(button);
        }
    });
}

TEST_P(MenuLoadLook, EveryControlHasANameForScreenReaders)
{
    look([](const Controls& controls) {
        std::vector<QWidget*> all = controls.all();
        all.push_back(&controls.dialog);
        for (QWidget* control : all) {
            const QAccessibleInterface* const about =
                QAccessible::queryAccessibleInterface(control);
            EXPECT_FALSE(about == nullptr || about->text(QAccessible::Name).isEmpty())
                << nameOf(control);
        }
    });
}

TEST_P(MenuLoadLook, AllControlsAreTheDialogsOwnChildrenWithoutALayout)
{
    look([](const Controls& controls) {
        EXPECT_EQ(controls.dialog.layout(), nullptr);
        EXPECT_EQ(controls.dialog.size(), kDesigned);
        for (const QWidget* control : controls.all())
            EXPECT_EQ(control->parentWidget(), &controls.dialog) << nameOf(control);
    });
}

TEST_P(MenuLoadLook, NothingCoversAnotherAtAnySize)
{
    look([](const Controls& controls) {
        for (const QSize& size :
             {kDesigned, QSize(600, 330), QSize(1600, 1100), QSize(561, 300), QSize(559, 299),
              QSize(420, 220), QSize(300, 160), QSize(160, 90), QSize(1, 1), QSize(1600, 40)}) {
            controls.dialog.resize(size);
            const std::vector<QWidget*> shown = controls.inFront();
            for (std::size_t first = 0; first < shown.size(); ++first) {
                for (std::size_t second = first + 1; second < shown.size(); ++second)
                    EXPECT_FALSE(shown[first]->geometry().intersects(shown[second]->geometry()))
                        << nameOf(shown[first]) << " and " << nameOf(shown[second]) << " at "
                        << size.width() << "x" << size.height();
            }
        }
    });
}

TEST_P(MenuLoadLook, NothingIsCutFromTheDesignedSizeOn)
{
    look([](const Controls& controls) {
        for (const QSize& size : {kDesigned, QSize(600, 330), QSize(1600, 1100)}) {
            controls.dialog.resize(size);
            for (const QWidget* control : controls.all())
                EXPECT_TRUE(controls.dialog.rect().contains(control->geometry()))
                    << nameOf(control) << " at " << size.width();
            EXPECT_TRUE(controls.groupsFrame.geometry().contains(controls.groups.geometry()));
            EXPECT_TRUE(controls.fileFrame.geometry().contains(controls.file.geometry()));
            EXPECT_TRUE(controls.fileFrame.geometry().contains(controls.label.geometry()));
            EXPECT_FALSE(controls.fileFrame.geometry().intersects(controls.groupsFrame.geometry()));
        }
    });
}

TEST_P(MenuLoadLook, TheFramesAreBehindWhatIsInThem)
{
    look([](const Controls& controls) {
        for (const QWidget* control : controls.inFront()) {
            const QWidget* const hit = controls.dialog.childAt(control->geometry().center());
            EXPECT_TRUE(hit == control || control->isAncestorOf(hit)) << nameOf(control);
        }
    });
}
