#include "refhost/core/variables.h"

#include "refhost/core/settingsstore.h"
#include "refhost/core/widetext.h"

#include <optional>

namespace quelhost {

namespace {

enum Index : std::size_t { kFileDialogs, kMainMenuFile };

std::optional<std::size_t> indexOf(const QString& name)
{
    const QStringList names = Variables::names();
    for (int i = 0; i < names.size(); ++i) {
        if (names.at(i).compare(name, Qt::CaseInsensitive) == 0)
            return static_cast<std::size_t>(i);
    }
    return std::nullopt;
}

// The value that `text` stands for, of the kind of variable `index`.
std::optional<VariableValue> parse(std::size_t index, const QString& text)
{
    if (index == kMainMenuFile)
        return toWide(text);
    bool isNumber = false;
    const std::int16_t number = text.trimmed().toShort(&isNumber);
    if (!isNumber)
        return std::nullopt;
    return number;
}

Item itemFor(std::size_t index, const VariableValue& value)
{
    const std::wstring key =
        L"SystemVariables/" + toWide(Variables::names().at(static_cast<int>(index)));
    if (const auto* number = std::get_if<std::int16_t>(&value))
        return Item::integer(kHostCategory, key, *number);
    return Item::string(kHostCategory, key, std::get<std::wstring>(value));
}

} // namespace

Variables::Variables(SettingsStore& store, std::wstring mainMenuName)
    : m_store(store)
    , m_values{VariableValue(std::int16_t{1}), VariableValue(std::move(mainMenuName))}
{
    for (std::size_t i = 0; i < m_values.size(); ++i)
        restore(i);
}

QStringList Variables::names()
{
    return {QStringLiteral("FILEDIA"), QStringLiteral("MENUNAME")};
}

Fault Variables::unknown(const QString& name)
{
    const QString known = names().join(QStringLiteral(", "));
    return {FaultKind::NotFound, qtTrId("variable-unknown").arg(name, known), {}, 0, 0};
}

Status Variables::check(const QString& name, const QString& text)
{
    const std::optional<std::size_t> index = indexOf(name);
    if (!index)
        return unknown(name);
    if (!parse(*index, text))
        return Fault{
            FaultKind::BadInput, qtTrId("variable-no-integer").arg(name.toUpper(), text), {}, 0, 0};
    return Done{};
}

const VariableValue* Variables::find(const QString& name) const
{
    const std::optional<std::size_t> index = indexOf(name);
    return index ? &m_values[*index] : nullptr;
}

Status Variables::set(const QString& name, const QString& text)
{
    const Status possible = check(name, text);
    if (possible)
        m_values[*indexOf(name)] = *parse(*indexOf(name), text);
    return possible;
}

Status Variables::setAndKeep(const QString& name, const QString& text)
{
    const Status done = set(name, text);
    if (!done)
        return done;
    const std::size_t index = *indexOf(name);
    return m_store.write(itemFor(index, m_values[index]));
}

// A value of another kind than the variable's is left alone: the variable keeps what it starts
// with.
void Variables::restore(std::size_t index)
{
    const Item wanted = itemFor(index, m_values[index]);
    const Result<std::optional<Item>> kept = m_store.read(wanted.category, wanted.key);
    if (!kept || !kept.value() || kept.value()->kind != wanted.kind)
        return;
    const Item& item = *kept.value();
    if (item.kind == ItemKind::String)
        m_values[index] = item.text;
    else
        m_values[index] = static_cast<std::int16_t>(item.number);
}

} // namespace quelhost
