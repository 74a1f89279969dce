#include "refhost/core/storedconfig.h"

#include "refhost/core/settingsstore.h"
#include "refhost/core/widetext.h"

namespace quelhost {

namespace {

constexpr int kDone = 0;
constexpr int kFailed = 1;

} // namespace

StoredConfig::StoredConfig(SettingsStore& store, Report report)
    : m_store(store)
    , m_report(std::move(report))
{}

int StoredConfig::getValue(Path category, const wchar_t* key, QuelVariant& value)
{
    const Result<std::optional<Item>> found = m_store.read(category, key);
    if (!found) {
        m_report(found.fault());
        return kFailed;
    }
    if (!found.value())
        return kFailed;
    switch (found.value()->kind) {
    case ItemKind::Integer:
        value.setInteger(found.value()->number);
        return kDone;
    case ItemKind::String:
        value.setString(found.value()->text.c_str(), QuelVariant::kString);
        return kDone;
    case ItemKind::Section:
        break;
    }
    return kFailed;
}

int StoredConfig::setValue(Path category, const wchar_t* key, const QuelVariant& value)
{
    switch (value.type()) {
    case QuelVariant::kInteger:
        return write(Item::integer(category, key, value.integerOrZero()));
    case QuelVariant::kString:
        return write(Item::string(category, key, value.stringOrEmpty()));
    default:
        m_report(
            {FaultKind::BadInput, qtTrId("settings-kind-refused").arg(toQString(key)), {}, 0, 0});
        return kFailed;
    }
}

bool StoredConfig::isItemExist(Path category, const wchar_t* section)
{
    const Result<bool> exists = m_store.exists(category, section);
    if (!exists)
        m_report(exists.fault());
    return exists && exists.value();
}

int StoredConfig::addItem(Path category, const wchar_t* section)
{
    const Result<bool> exists = m_store.exists(category, section);
    if (exists && exists.value())
        return kDone;
    return write(Item::section(category, section));
}

int StoredConfig::write(const Item& item)
{
    const Status stored = m_store.write(item);
    if (stored)
        return kDone;
    m_report(stored.fault());
    return kFailed;
}

} // namespace quelhost
