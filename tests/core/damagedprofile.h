// A profile of many pages for tests that damage it, and what was kept aside of it.
#pragma once

#include "refhost/core/settingsfiles.h"
#include "refhost/core/settingsstore.h"
#include "tests/core/settingssupport.h"

#include <QDir>
#include <QRegularExpression>

#include <string>

namespace quelhost::test {

// Fills a new profile with so many long items and "K", which is "good", and ends it cleanly: the
// good copy has the same content.
inline bool fillProfile(const QString& folder, int items)
{
    const auto store = openStore(folder);
    bool stored = store != nullptr;
    for (int number = 0; stored && number < items; ++number) {
        const std::wstring name = std::to_wstring(number);
        const std::wstring text = L"/t/" + name + std::wstring(150, L'x') + L".cuix";
        stored = static_cast<bool>(store->write(Item::string(4, L"Key" + name, text)));
    }
    return stored && static_cast<bool>(store->write(Item::string(4, L"K", L"good"))) &&
           static_cast<bool>(store->close());
}

// The names of the files that were kept aside.
inline QStringList keptAsideFiles(const QString& folder, const char* stem = "settings")
{
    const QRegularExpression pattern(
        QStringLiteral("^%1\\.damaged-\\d{8}-\\d{6}(-\\d+)?\\.db$").arg(QString::fromLatin1(stem)));
    return QDir(folder)
        .entryList(QDir::AllEntries | QDir::System | QDir::NoDotAndDotDot)
        .filter(pattern);
}

} // namespace quelhost::test
