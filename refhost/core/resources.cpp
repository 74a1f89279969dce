#include "refhost/core/resources.h"

#include "refhost/core/widetext.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QLibraryInfo>

namespace quelhost {

namespace {

constexpr char kHostResourceFile[] = "QUELDRes.dll";

QString translationFile(const QString& folder, const QString& language)
{
    const QString name = QFileInfo(folder).fileName();
    return QStringLiteral("%1/%2_%3.qm").arg(folder, name, language);
}

} // namespace

QStringList languageFallbacks(const QString& language)
{
    QString name = language.section(QLatin1Char('.'), 0, 0).section(QLatin1Char('@'), 0, 0);
    name.replace(QLatin1Char('-'), QLatin1Char('_'));
    QStringList result;
    if (name != QLatin1String("C") && name != QLatin1String("POSIX") && !name.isEmpty())
        result << name << name.section(QLatin1Char('_'), 0, 0);
    result << QStringLiteral("en");
    result.removeDuplicates();
    return result;
}

std::vector<std::unique_ptr<QTranslator>> installTexts(const QString& folder,
                                                       const QString& language)
{
    std::vector<std::unique_ptr<QTranslator>> installed;
    // The translator installed last is asked first.
    QStringList languages = languageFallbacks(language);
    while (!languages.isEmpty()) {
        auto translator = std::make_unique<QTranslator>();
        if (!translator->load(translationFile(folder, languages.takeLast())))
            continue;
        QCoreApplication::installTranslator(translator.get());
        installed.push_back(std::move(translator));
    }
    return installed;
}

bool installHostTexts(const QString& resourceFolder, const QString& language)
{
    const QString folder = resourceFolder + QStringLiteral("/quelhost");
    const QString english = translationFile(folder, QStringLiteral("en"));
    bool hasEnglish = false;
    for (std::unique_ptr<QTranslator>& translator : installTexts(folder, language)) {
        hasEnglish = hasEnglish || translator->filePath() == english;
        translator.release()->setParent(QCoreApplication::instance()); // which owns it
    }
    return hasEnglish;
}

void installToolkitTexts(const QString& language)
{
    auto texts = std::make_unique<QTranslator>();
    const QString folder = QLibraryInfo::location(QLibraryInfo::TranslationsPath);
    for (const QString& each : languageFallbacks(language)) {
        if (texts->load(QStringLiteral("qtbase_%1").arg(each), folder)) {
            QCoreApplication::installTranslator(texts.get());
            texts.release()->setParent(QCoreApplication::instance()); // which owns it
            return;
        }
    }
}

Resources::Resources(const QString& folder, const QString& language)
    : m_folder(folder)
    , m_language(language)
    , m_languages(languageFallbacks(language))
    , m_none(QuelResource::open(QString(), {}))
{
    const QuelResource* own = find(QLatin1String(kHostResourceFile));
    m_stack.push_back(own == nullptr ? m_none.get() : own);
}

Resources::~Resources() = default;

bool Resources::push(const QString& name)
{
    const QuelResource* file = find(name);
    if (file != nullptr)
        m_stack.push_back(file);
    return file != nullptr;
}

void Resources::pop()
{
    if (depth() > 0)
        m_stack.pop_back();
}

const QuelResource* Resources::find(const QString& name)
{
    const auto known = m_files.find(name);
    if (known != m_files.end())
        return known->second.get();
    const QString suffix = QStringLiteral(".dll");
    if (!name.endsWith(suffix) || name.contains(QLatin1Char('/')))
        return nullptr;
    std::unique_ptr<QuelResource>& file = m_files[name];
    file = QuelResource::open(QDir(m_folder).filePath(name.chopped(suffix.size())), m_languages);
    return file.get();
}

} // namespace quelhost

// Without languages it is the resource file that holds nothing.
std::unique_ptr<QuelResource> QuelResource::open(const QString& folder,
                                                 const QStringList& languages)
{
    std::unique_ptr<QuelResource> resource(new QuelResource);
    bool exists = languages.isEmpty();
    for (const QString& language : languages) {
        const QString path = quelhost::translationFile(folder, language);
        exists = exists || QFileInfo::exists(path);
        auto translator = std::make_unique<QTranslator>();
        if (translator->load(path))
            resource->m_languages.push_back(std::move(translator));
    }
    return exists ? std::move(resource) : nullptr;
}

std::optional<std::wstring> QuelResource::string(unsigned int id) const
{
    const QByteArray key = QByteArray::number(id);
    for (const std::unique_ptr<QTranslator>& language : m_languages) {
        const QString text = language->translate("", key.constData());
        if (!text.isNull())
            return quelhost::toWide(text);
    }
    return std::nullopt;
}
