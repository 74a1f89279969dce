// The configuration store that modules see, over the profile's settings.
#pragma once

#include "host/settings.h"
#include "refhost/core/result.h"

#include <functional>

namespace quelhost {

class SettingsStore;
struct Item;

class StoredConfig final : public QueldConfig
{
public:
    using Report = std::function<void(const Fault&)>;

    // `report` is told each fault of the store: a failed write is never silent.
    // REQUIRES: `store` outlives this object.
    StoredConfig(SettingsStore& store, Report report);

    // As host/settings.h promises. Sections have no value to read; types other than 1 and 5 are
    // refused.
    [[nodiscard]] int getValue(Path category, const wchar_t* key, QuelVariant& value) override;
    int setValue(Path category, const wchar_t* key, const QuelVariant& value) override;
    [[nodiscard]] bool isItemExist(Path category, const wchar_t* section) override;
    int addItem(Path category, const wchar_t* section) override;

private:
    int write(const Item& item);

    SettingsStore& m_store;
    Report m_report;
};

} // namespace quelhost
