#include "tests/core/translationfile.h"

#include <QDir>
#include <QFile>
#include <QXmlStreamReader>

#include <algorithm>

namespace quelhost::test {

namespace {

// The text of a <translation>; of one with forms, the last one, which is for many.
std::string readTranslation(QXmlStreamReader& xml)
{
    std::string text;
    while (xml.readNext() != QXmlStreamReader::EndElement) {
        if (xml.isCharacters())
            text += xml.text().toString().toStdString();
        else if (xml.isStartElement())
            text = xml.readElementText().trimmed().toStdString();
        if (xml.hasError() || xml.atEnd())
            break;
    }
    return text;
}

TranslationEntry readMessage(QXmlStreamReader& xml)
{
    TranslationEntry entry;
    entry.id = xml.attributes().value(QLatin1String("id")).toString().toStdString();
    entry.hasForms = xml.attributes().hasAttribute(QLatin1String("numerus"));
    while (xml.readNextStartElement()) {
        const bool isText = xml.name() == QLatin1String("translation");
        if (isText)
            entry.finished = !xml.attributes().hasAttribute(QLatin1String("type"));
        if (isText)
            entry.text = readTranslation(xml);
        else
            entry.source = xml.readElementText().toStdString();
    }
    return entry;
}

std::vector<TranslationEntry> readEntries(const QString& path)
{
    std::vector<TranslationEntry> entries;
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return entries;
    QXmlStreamReader xml(&file);
    while (!xml.atEnd()) {
        xml.readNext();
        if (xml.isStartElement() && xml.name() == QLatin1String("message"))
            entries.push_back(readMessage(xml));
    }
    return xml.hasError() ? std::vector<TranslationEntry>() : entries;
}

} // namespace

const TranslationEntry* TranslationFile::find(const std::string& id) const
{
    const auto found =
        std::find_if(entries.begin(), entries.end(),
                     [&id](const TranslationEntry& entry) { return entry.id == id; });
    return found == entries.end() ? nullptr : &*found;
}

std::vector<std::string> TranslationFile::ids() const
{
    std::vector<std::string> result;
    for (const TranslationEntry& entry : entries)
        result.push_back(entry.id);
    std::sort(result.begin(), result.end());
    return result;
}

std::vector<TranslationFile> translationsOf(const std::string& set)
{
    const QDir folder(QStringLiteral(QUEL_RESOURCE_SOURCES "/") + QString::fromStdString(set));
    std::vector<TranslationFile> files;
    for (const QString& name :
         folder.entryList({QStringLiteral("*.ts")}, QDir::Files, QDir::Name)) {
        const QString language = name.mid(static_cast<int>(set.size()) + 1).chopped(3);
        files.push_back({set, language.toStdString(), readEntries(folder.filePath(name))});
    }
    return files;
}

QString compiledFile(const TranslationFile& file)
{
    return QStringLiteral(QUEL_RESOURCES "/%1/%1_%2.qm")
        .arg(QString::fromStdString(file.set), QString::fromStdString(file.language));
}

std::string placeOf(const TranslationFile& file, const std::string& id)
{
    return file.set + "_" + file.language + " " + id;
}

} // namespace quelhost::test
