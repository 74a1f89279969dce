// The sources of translations, as tests compare them with each other and with what the program
// reads.
#pragma once

#include <QString>
#include <QStringList>

#include <string>
#include <vector>

namespace quelhost::test {

struct TranslationEntry
{
    std::string id;
    std::string source; // the English or default text
    std::string text;   // of one with a form for each number, the form for many
    bool hasForms = false;
    bool finished = true;
};

struct TranslationFile
{
    std::string set;      // "QUELDRes"
    std::string language; // "de_AT"
    std::vector<TranslationEntry> entries;

    // The entry of that id, or null.
    [[nodiscard]] const TranslationEntry* find(const std::string& id) const;
    // Sorted; an id that stands twice is there twice.
    [[nodiscard]] std::vector<std::string> ids() const;
};

// Every translation source of a set, by language. A file that is no translation source has no
// entries.
[[nodiscard]] std::vector<TranslationFile> translationsOf(const std::string& set);

// The compiled form of a file.
[[nodiscard]] QString compiledFile(const TranslationFile& file);

// "QUELDRes_de 11008", to tell where something is wrong.
[[nodiscard]] std::string placeOf(const TranslationFile& file, const std::string& id);

} // namespace quelhost::test
