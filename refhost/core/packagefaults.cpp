#include "refhost/core/packagefaults.h"

#include <QVector>

#include <algorithm>
#include <tuple>
#include <utility>

namespace quelhost {

namespace {

constexpr int kShownCharacters = 80;

[[nodiscard]] bool isUnprintable(uint character)
{
    const QChar::Category category = QChar::category(character);
    return category == QChar::Other_Control || category == QChar::Other_Format ||
           category == QChar::Separator_Line || category == QChar::Separator_Paragraph;
}

} // namespace

PackageFaults::PackageFaults(QString file)
    : m_file(std::move(file))
{}

void PackageFaults::add(const QString& sentence, FaultKind kind)
{
    m_faults.push_back({kind, sentence, m_file, 0, 0});
}

void PackageFaults::add(TextPlace place, const QString& sentence)
{
    m_faults.push_back({FaultKind::BadInput, sentence, m_file, place.line, place.column});
}

void PackageFaults::add(const Fault& fault)
{
    m_faults.push_back(fault);
}

std::vector<Fault> PackageFaults::take()
{
    std::stable_sort(m_faults.begin(), m_faults.end(), [](const Fault& a, const Fault& b) {
        return std::tie(a.line, a.column) < std::tie(b.line, b.column);
    });
    return std::exchange(m_faults, {});
}

bool hasControlCharacter(const QString& text)
{
    return std::any_of(text.begin(), text.end(), [](QChar character) {
        return character.category() == QChar::Other_Control;
    });
}

QString shownText(const QString& text)
{
    const auto isPlain = [](QChar character) {
        return character.unicode() >= 0x20 && character.unicode() < 0x7F;
    };
    if (text.size() <= kShownCharacters && std::all_of(text.begin(), text.end(), isPlain))
        return text;
    // Two units a character at most, so that a name of megabytes is not converted whole.
    QVector<uint> characters = text.left(2 * kShownCharacters + 2).toUcs4();
    const bool cut = characters.size() > kShownCharacters;
    if (cut)
        characters.resize(kShownCharacters);
    for (uint& character : characters) {
        if (isUnprintable(character))
            character = QChar::ReplacementCharacter;
    }
    QString shown = QString::fromUcs4(characters.constData(), characters.size());
    if (cut)
        shown += QChar(0x2026);
    return shown;
}

} // namespace quelhost
