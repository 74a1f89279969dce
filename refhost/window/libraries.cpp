#include "refhost/window/libraries.h"

#include "refhost/core/resources.h"

#include <KConfigGroup>
#include <KLocalizedString>
#include <KSharedConfig>

#include <QCoreApplication>
#include <QFileInfo>
#include <QIcon>
#include <QStandardPaths>
#include <QTranslator>

#include <memory>
#include <optional>
#include <vector>

namespace quelhost {

namespace {

// What the libraries read and write. They write what has changed when the last user is gone, so
// there is always one, and it has nothing to write. What of it is stored by others is read: the
// desktop's settings, such as the user's standard keys.
struct Stores
{
    KSharedConfig::Ptr settings;
    KSharedConfig::Ptr state;
};

// Named, it is opened without a look at whether it could be written. Whatever a library should
// store after all stays among the files of the program.
Stores openStores(const QString& folder)
{
    KConfig::setMainConfigName(QFileInfo(folder).absoluteFilePath() +
                               QStringLiteral("/libraries.ini"));
    return {KSharedConfig::openConfig(KConfig::mainConfigName()), KSharedConfig::openStateConfig()};
}

std::optional<Stores>& stores()
{
    static std::optional<Stores> opened;
    return opened;
}

// Answers for the libraries with the text itself, which is English, whatever the environment's
// language is.
class SourceTexts final : public QTranslator
{
public:
    [[nodiscard]] bool isEmpty() const override { return false; }
    [[nodiscard]] QString translate(const char* context, const char* source, const char*,
                                    int count) const override
    {
        const bool isLibrarys = context != nullptr && *context == 'K';
        return isLibrarys && count < 0 ? QString::fromUtf8(source) : QString();
    }
};

// Some of the libraries' texts are kept as the toolkit keeps its own.
std::unique_ptr<QTranslator> libraryTexts(const char* library, const QString& language)
{
    if (language == QLatin1String("en"))
        return std::make_unique<SourceTexts>();
    auto texts = std::make_unique<QTranslator>();
    const QString file = QStandardPaths::locate(
        QStandardPaths::GenericDataLocation,
        QStringLiteral("locale/%1/LC_MESSAGES/%2_qt.qm").arg(language, QLatin1String(library)));
    return !file.isEmpty() && texts->load(file) ? std::move(texts) : nullptr;
}

void installLibraryTexts(const QStringList& languages)
{
    static std::vector<std::unique_ptr<QTranslator>> installed;
    installed.clear(); // which takes them out
    for (const char* const library : {"kwidgetsaddons5", "kitemviews5"}) {
        std::unique_ptr<QTranslator> texts;
        for (auto each = languages.begin(); texts == nullptr && each != languages.end(); ++each)
            texts = libraryTexts(library, *each);
        if (texts != nullptr) {
            QCoreApplication::installTranslator(texts.get());
            installed.push_back(std::move(texts));
        }
    }
}

// A desktop's own pictures go first.
void addIcons()
{
    QIcon::setFallbackSearchPaths(QIcon::fallbackSearchPaths()
                                  << QStringLiteral(":/quelhost/library-icons"));
    if (QIcon::themeName().isEmpty())
        QIcon::setThemeName(QStringLiteral("hicolor")); // without any there are no fallbacks either
}

} // namespace

void prepareLibraries(const QString& language, const QString& folder)
{
    if (!stores()) {
        stores() = openStores(folder);
        // Otherwise a library gives letters to press to the texts of whatever window is shown.
        KConfigGroup(stores()->settings, "Development").writeEntry("AutoCheckAccelerators", false);
        addIcons();
    }
    dropLibraryState();
    const QStringList languages = languageFallbacks(language);
    KLocalizedString::setLanguages(languages);
    installLibraryTexts(languages);
}

void dropLibraryState()
{
    if (!stores())
        return;
    stores()->settings->markAsClean();
    stores()->state->markAsClean();
}

} // namespace quelhost
