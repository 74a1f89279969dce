// The host's command store: what is registered, by name.
#pragma once

#include "host/commands.h"

#include <QString>
#include <QStringList>

#include <vector>

namespace quelhost {

class CommandStore final : public IQuelCommandStore
{
public:
    // As host/commands.h promises: 0 done, 1 name taken or not held.
    int addCommand(IQuelCommandFactory* factory, int value) override;
    int removeCommand(const wchar_t* globalName) override;

    // The command of that localized name or, failing that, of that global name, in any case; null
    // when there is none. Borrowed from its module.
    [[nodiscard]] IQuelCommandFactory* find(const QString& name) const;

    // In the order in which they were added.
    [[nodiscard]] const std::vector<IQuelCommandFactory*>& all() const { return m_factories; }

    // Localized and global names, each once, sorted.
    [[nodiscard]] QStringList names() const;

private:
    std::vector<IQuelCommandFactory*> m_factories;
};

} // namespace quelhost
