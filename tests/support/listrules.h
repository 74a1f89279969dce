// What loading and unloading make of the stored list, told over plain texts and apart from the
// module: fuzzers and random drivers compare it with this. Where the list lies and what is said of
// it is each one's own.
#pragma once

#include <QString>

#include <algorithm>
#include <cstdint>
#include <functional>
#include <string>
#include <utility>
#include <vector>

namespace listrules {

// Whether there is such a file where the list is used.
using Exists = std::function<bool(const std::wstring& path)>;

enum class Outcome {
    Nothing, // no such customization file, or no entry of its name
    Refused, // loaded already, or the main file where one is unloaded
    Done,    // the only one that changes the list
};

// Character by character: nothing in front is taken for a mark of the encoding.
inline QString plain(const std::wstring& text)
{
    QString result;
    for (const wchar_t character : text) {
        const auto code = static_cast<std::uint32_t>(character);
        if (code > 0xFFFF)
            result += QString(QChar(QChar::highSurrogate(code))) + QChar(QChar::lowSurrogate(code));
        else
            result += QChar(static_cast<ushort>(code));
    }
    return result;
}

// The parts between the semicolons, at least one.
inline std::vector<std::wstring> partsOf(const std::wstring& text)
{
    std::vector<std::wstring> parts(1);
    for (const wchar_t character : text) {
        if (character == L';')
            parts.emplace_back();
        else
            parts.back() += character;
    }
    return parts;
}

// By what a file is known among the loaded ones: its name up to the first dot, in capital letters.
inline QString identityOf(const std::wstring& path)
{
    const std::wstring name = path.substr(path.rfind(L'/') + 1);
    return plain(name.substr(0, name.find(L'.'))).toUpper();
}

inline bool isCustomizationFile(const std::wstring& path, const Exists& exists)
{
    return exists(path) && plain(path).right(4).toUpper() == QStringLiteral("CUIX");
}

inline bool isSameFile(const std::wstring& entry, const std::wstring& path, const Exists& exists)
{
    return exists(entry) && identityOf(entry) == identityOf(path);
}

inline Outcome load(std::wstring& list, const std::wstring& path, const Exists& exists)
{
    if (!isCustomizationFile(path, exists))
        return Outcome::Nothing;
    for (const std::wstring& entry : partsOf(list)) {
        if (isSameFile(entry, path, exists))
            return Outcome::Refused;
    }
    list += L';' + path;
    return Outcome::Done;
}

inline Outcome unload(std::wstring& list, const std::wstring& path, const Exists& exists)
{
    const std::vector<std::wstring> entries = partsOf(list);
    const auto isWanted = [&](const auto& entry) { return isSameFile(entry, path, exists); };
    const auto found = std::find_if(entries.begin(), entries.end(), isWanted);
    if (found == entries.end() || !isCustomizationFile(path, exists))
        return Outcome::Nothing;
    if (found == entries.begin())
        return Outcome::Refused;
    list.clear();
    bool isFirst = true;
    for (const std::wstring& entry : entries) {
        if (!isWanted(entry) && exists(entry))
            list += std::exchange(isFirst, false) ? entry : L';' + entry;
    }
    return Outcome::Done;
}

} // namespace listrules
