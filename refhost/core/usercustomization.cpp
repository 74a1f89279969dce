#include "refhost/core/usercustomization.h"

#include "refhost/core/packagefaults.h"
#include "refhost/core/settingsstore.h"
#include "refhost/core/systemfault.h"
#include "refhost/core/userchangetexts.h"
#include "refhost/core/widetext.h"

#include <algorithm>

namespace quelhost {

namespace {

const QString kAccelerators = QStringLiteral("Accelerators/");
const QString kToolbars = QStringLiteral("Toolbars/");
const QString kOwnToolbars = QStringLiteral("OwnToolbars/");

bool isOurs(const Item& item)
{
    const QString key = toQString(item.key);
    return item.category == kHostCategory &&
           (key.startsWith(kAccelerators) || key.startsWith(kToolbars) ||
            key.startsWith(kOwnToolbars));
}

QString toolbarKey(const GroupEntry& toolbar)
{
    return toolbar.group.isEmpty() ? kOwnToolbars + toolbar.id : kToolbars + entryText(toolbar);
}

Fault unreadable(const std::wstring& key)
{
    return plainFault(FaultKind::BadInput,
                      qtTrId("customization-unreadable").arg(shownText(toQString(key))));
}

} // namespace

UserCustomization::UserCustomization(SettingsStore& store, const Report& report)
    : m_store(store)
{
    const Result<std::vector<Item>> items = store.all();
    if (!items) {
        report(items.fault());
        return;
    }
    for (const Item& item : items.value()) {
        if (!isOurs(item))
            continue;
        const bool isRead = item.kind == ItemKind::String && take(item.key, item.text);
        m_stored.emplace(item.key, isRead ? std::optional(item.text) : std::nullopt);
        if (!isRead)
            report(unreadable(item.key));
    }
}

Status UserCustomization::replaceKeys(KeyChanges changes)
{
    return put({std::move(changes), m_changes.toolbars});
}

Status UserCustomization::replaceToolbars(ToolbarChanges changes)
{
    for (auto each = changes.begin(); each != changes.end();)
        each = each->second.isNone() ? changes.erase(each) : std::next(each);
    return put({m_changes.keys, std::move(changes)});
}

Status UserCustomization::setKeys(const GroupEntry& command, const Keys& keys)
{
    KeyChanges changes = m_changes.keys;
    changes.insert_or_assign(command, keys);
    return replaceKeys(std::move(changes));
}

Status UserCustomization::resetKeys(const GroupEntry& command)
{
    KeyChanges changes = m_changes.keys;
    changes.erase(command);
    return replaceKeys(std::move(changes));
}

Status UserCustomization::setToolbar(const GroupEntry& toolbar, const ToolbarChange& change)
{
    ToolbarChanges changes = m_changes.toolbars;
    changes.insert_or_assign(toolbar, change);
    return replaceToolbars(std::move(changes));
}

Status UserCustomization::resetToolbar(const GroupEntry& toolbar)
{
    ToolbarChanges changes = m_changes.toolbars;
    changes.erase(toolbar);
    return replaceToolbars(std::move(changes));
}

// Takes a stored item for a change; false when it is none.
bool UserCustomization::take(const std::wstring& key, const std::wstring& text)
{
    const QString name = toQString(key);
    const QString value = toQString(text);
    if (name.startsWith(kAccelerators)) {
        const auto command = entryOfText(name.mid(kAccelerators.size()));
        const auto keys = keysOfText(value);
        return command && keys && m_changes.keys.emplace(*command, *keys).second;
    }
    const bool isOwn = name.startsWith(kOwnToolbars);
    const auto toolbar = isOwn ? GroupEntry{QString(), name.mid(kOwnToolbars.size())}
                               : entryOfText(name.mid(kToolbars.size()));
    const auto change = toolbarOfText(value);
    return toolbar && !toolbar->id.isEmpty() && change && !change->isNone() &&
           m_changes.toolbars.emplace(*toolbar, *change).second;
}

Status UserCustomization::put(UserChanges changes)
{
    m_changes = std::move(changes);
    Status stored = store();
    if (m_changed)
        m_changed();
    return stored;
}

Status UserCustomization::store()
{
    Texts texts;
    for (const auto& [command, keys] : m_changes.keys)
        texts.emplace(toWide(kAccelerators + entryText(command)), toWide(keysText(keys)));
    for (const auto& [toolbar, change] : m_changes.toolbars)
        texts.emplace(toWide(toolbarKey(toolbar)), toWide(toolbarText(change)));

    SettingsEdit edit;
    for (const auto& [key, text] : texts) {
        const auto former = m_stored.find(key);
        if (former == m_stored.end() || former->second != text)
            edit.written.push_back(Item::string(kHostCategory, key, *text));
    }
    for (const auto& [key, text] : m_stored) {
        if (texts.count(key) == 0)
            edit.removed.push_back({kHostCategory, key});
    }
    Status stored = m_store.change(edit);
    if (stored)
        m_stored = std::move(texts);
    return stored;
}

GroupEntry newOwnToolbar(const ToolbarChanges& changes)
{
    int number = 1;
    while (changes.count({QString(), QString::number(number)}) > 0)
        ++number;
    return {QString(), QString::number(number)};
}

} // namespace quelhost
