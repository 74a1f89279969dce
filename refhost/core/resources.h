// Resource files and the stack of current ones, as host/resources.h promises them to modules.
#pragma once

#include "host/resources.h"

#include <QString>
#include <QStringList>
#include <QTranslator>

#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace quelhost {

// The languages to look a text up in, best first: "de_AT" gives de_AT, de, en.
[[nodiscard]] QStringList languageFallbacks(const QString& language);

} // namespace quelhost

// A resource file: a folder of id-based translation files, one for each language. Strings are
// looked up in the user's language first and in English last.
struct QuelResource
{
public:
    // Loads `folder`/NAME_<language>.qm for each of `languages`, NAME being the folder's name. Null
    // when there is none.
    [[nodiscard]] static std::unique_ptr<QuelResource> open(const QString& folder,
                                                            const QStringList& languages);

    // The text of string resource `id`, or nothing.
    [[nodiscard]] std::optional<std::wstring> string(unsigned int id) const;

private:
    QuelResource() = default;

    std::vector<std::unique_ptr<QTranslator>> m_languages;
};

namespace quelhost {

// All resource files below one folder, opened when first named, and the stack of current ones. The
// bottom is the host's own file, which is always current when nothing else is.
class Resources
{
public:
    // `folder` holds one folder for each resource file; "NAMERes.dll" names the folder "NAMERes".
    Resources(const QString& folder, const QString& language);
    ~Resources();
    Resources(const Resources&) = delete;
    Resources& operator=(const Resources&) = delete;

    // Makes a resource file current; false and no change when there is none of that name.
    [[nodiscard]] bool push(const QString& name);
    // Goes back to the one before. The bottom stays.
    void pop();
    // Never null.
    [[nodiscard]] const QuelResource* current() const { return m_stack.back(); }

    [[nodiscard]] const QString& folder() const { return m_folder; }
    [[nodiscard]] const QString& language() const { return m_language; }

    // How many scopes are open. The host compares it before and after a run.
    [[nodiscard]] std::size_t depth() const { return m_stack.size() - 1; }

private:
    const QuelResource* find(const QString& name);

    const QString m_folder;
    const QString m_language;
    const QStringList m_languages;
    std::map<QString, std::unique_ptr<QuelResource>> m_files;
    std::unique_ptr<QuelResource> m_none;
    std::vector<const QuelResource*> m_stack;
};

// Makes the texts of the resource file in `folder` answer qtTrId, fallbacks included, as long as
// the result lives.
[[nodiscard]] std::vector<std::unique_ptr<QTranslator>> installTexts(const QString& folder,
                                                                     const QString& language);

// Installs the host's own sentences (qtTrId) for a language on the application, fallbacks included.
// Returns whether the English ones, on which everything rests, were found.
[[nodiscard]] bool installHostTexts(const QString& resourceFolder, const QString& language);

// Installs the toolkit's own texts, those of its file dialog for one, where they are there.
void installToolkitTexts(const QString& language);

} // namespace quelhost
