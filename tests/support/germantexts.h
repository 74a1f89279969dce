// The host's own sentences in German, as long as it lives.
#pragma once

#include <QCoreApplication>
#include <QTranslator>

namespace quelhost::test {

class GermanTexts
{
public:
    GermanTexts()
        : m_loaded(m_texts.load(QStringLiteral(QUEL_RESOURCES "/quelhost/quelhost_de.qm")))
    {
        QCoreApplication::installTranslator(&m_texts);
    }
    ~GermanTexts() { QCoreApplication::removeTranslator(&m_texts); }
    GermanTexts(const GermanTexts&) = delete;
    GermanTexts& operator=(const GermanTexts&) = delete;

    [[nodiscard]] bool loaded() const { return m_loaded; }

private:
    QTranslator m_texts;
    const bool m_loaded;
};

} // namespace quelhost::test
