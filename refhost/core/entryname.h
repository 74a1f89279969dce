// Which names the entries of a customization package may have.
#pragma once

#include <QString>

#include <string_view>

namespace quelhost {

struct EntryName
{
    QString text;
    QString sentence; // what is wrong with the name; empty when nothing is
    bool isFolder = false;

    [[nodiscard]] bool isGood() const { return sentence.isEmpty(); }
};

// `stored` is the name as the archive has it, byte for byte. Good are `customization.xml` and
// everything below `images/`, the folders themselves included.
[[nodiscard]] EntryName readEntryName(std::string_view stored);

} // namespace quelhost
