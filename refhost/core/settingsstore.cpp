#include "refhost/core/settingsstore.h"

#include "refhost/core/settingsdatabase.h"
#include "refhost/core/settingsfiles.h"
#include "refhost/core/settingsopening.h"
#include "refhost/core/systemfault.h"
#include "refhost/core/widetext.h"

#include <algorithm>

namespace quelhost {

Result<std::unique_ptr<SettingsStore>>
SettingsStore::open(const QString& profileFolder, SettingsAccess access, const TellUser& tellUser)
{
    Result<OpenedSettings> opened = openSettings(profileFolder, access, tellUser);
    if (!opened)
        return opened.fault();
    return std::unique_ptr<SettingsStore>(
        new SettingsStore(profileFolder, access, std::move(opened.value())));
}

SettingsStore::SettingsStore(const QString& folder, SettingsAccess access, OpenedSettings opened)
    : m_folder(folder)
    , m_access(access)
    , m_writable(opened.writable)
    , m_damaged(opened.damaged)
    , m_database(std::move(opened.database))
    , m_notices(std::move(opened.notices))
{}

SettingsStore::~SettingsStore() = default;

Result<std::optional<Item>> SettingsStore::read(int category, const std::wstring& key) const
{
    if (const auto own = m_forThisRun.find({category, key}); own != m_forThisRun.end())
        return std::optional<Item>(own->second);
    if (!m_database)
        return std::optional<Item>();
    Result<std::optional<Item>> item = m_database->read(category, key);
    if (!item)
        rememberDamage(item.fault());
    return item;
}

Result<bool> SettingsStore::exists(int category, const std::wstring& key) const
{
    const Result<std::optional<Item>> item = read(category, key);
    if (!item)
        return item.fault();
    return item.value().has_value();
}

Result<std::vector<Item>> SettingsStore::all() const
{
    std::map<Key, Item, KeyOrder> items = m_forThisRun;
    if (m_database) {
        Result<std::vector<Item>> stored = m_database->all();
        if (!stored) {
            rememberDamage(stored.fault());
            return stored;
        }
        for (Item& item : stored.value())
            items.emplace(Key(item.category, item.key), std::move(item));
    }
    std::vector<Item> result;
    result.reserve(items.size());
    for (auto& entry : items)
        result.push_back(std::move(entry.second));
    return result;
}

Status SettingsStore::write(const Item& item)
{
    return change({{item}, {}});
}

Status SettingsStore::change(const SettingsEdit& edit)
{
    if (edit.isEmpty())
        return Done{};
    Status stored = becomeWritable();
    if (!stored) {
        const Fault& why = stored.fault();
        return plainFault(why.kind, qtTrId("settings-not-stored-because")
                                        .arg(toQString(edit.firstKey()).left(100), why.sentence));
    }
    stored = m_database->change(edit);
    if (!stored) {
        rememberDamage(stored.fault());
        return stored;
    }
    for (const Item& item : edit.written)
        m_forThisRun.erase({item.category, item.key});
    for (const Key& key : edit.removed)
        m_forThisRun.erase(key);
    return stored;
}

void SettingsStore::setForThisRun(const Item& item)
{
    m_forThisRun.insert_or_assign({item.category, item.key}, item);
}

Status SettingsStore::keepGoodCopy()
{
    if (!m_writable || m_damaged)
        return notWritableFault();
    Status copied = renewGoodCopy(*m_database, m_folder);
    if (!copied)
        rememberDamage(copied.fault());
    return copied;
}

Status SettingsStore::close()
{
    const Status copied = m_writable ? keepGoodCopy() : Status(Done{});
    m_writable = false;
    m_access = SettingsAccess::ReadOnly;
    m_database.reset();
    return copied;
}

// A store that was opened on a full disk, or whose file somebody made read-only for a while, takes
// writes again as soon as the system does.
Status SettingsStore::becomeWritable()
{
    if (m_damaged || m_access == SettingsAccess::ReadOnly)
        return notWritableFault();
    if (m_writable)
        return Done{};
    Result<SettingsDatabase::Pointer> opened = openSettingsAgain(m_folder);
    if (!opened) {
        rememberDamage(opened.fault());
        return opened.fault();
    }
    m_database = std::move(opened.value());
    m_writable = true;
    return Done{};
}

Fault SettingsStore::notWritableFault() const
{
    const QString file = settingsFile(m_folder);
    if (m_damaged)
        return plainFault(FaultKind::Damaged, qtTrId("settings-repaired-next-time").arg(file));
    return plainFault(FaultKind::NotPermitted, qtTrId("settings-not-writable").arg(file));
}

void SettingsStore::rememberDamage(const Fault& fault) const
{
    m_damaged = m_damaged || fault.kind == FaultKind::Damaged;
}

bool SettingsStore::KeyOrder::operator()(const Key& left, const Key& right) const
{
    if (left.first != right.first)
        return left.first < right.first;
    const auto before = [](wchar_t one, wchar_t other) {
        return static_cast<char32_t>(one) < static_cast<char32_t>(other);
    };
    return std::lexicographical_compare(left.second.begin(), left.second.end(),
                                        right.second.begin(), right.second.end(), before);
}

} // namespace quelhost
