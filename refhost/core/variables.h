// System variables: their values for this run, and what of them is kept in the profile.
#pragma once

#include "refhost/core/result.h"

#include <QString>
#include <QStringList>

#include <array>
#include <cstdint>
#include <string>
#include <variant>

namespace quelhost {

class SettingsStore;

// A 16-bit integer or a text.
using VariableValue = std::variant<std::int16_t, std::wstring>;

class Variables
{
public:
    // FILEDIA starts at 1, MENUNAME at `mainMenuName`, the path of the main customization file
    // without its extension; a value kept in the profile goes before that.
    // REQUIRES: `store` outlives this object.
    Variables(SettingsStore& store, std::wstring mainMenuName);

    // The value of the variable of that name, in any case, or null.
    [[nodiscard]] const VariableValue* find(const QString& name) const;

    // Sets a variable from typed text, for this run only or kept in the profile as well. Fails as
    // check() does, and when the profile cannot keep it; the value then holds for this run.
    [[nodiscard]] Status set(const QString& name, const QString& text);
    [[nodiscard]] Status setAndKeep(const QString& name, const QString& text);

    [[nodiscard]] static QStringList names();
    // Whether there is a variable of that name, and it can have a value typed so.
    [[nodiscard]] static Status check(const QString& name, const QString& text);
    // The fault that there is no variable of that name.
    [[nodiscard]] static Fault unknown(const QString& name);

private:
    void restore(std::size_t index);

    SettingsStore& m_store;
    std::array<VariableValue, 2> m_values; // in the order of names()
};

} // namespace quelhost
