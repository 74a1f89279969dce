// Reads what `--list-settings` prints, as a program outside the host would.
#pragma once

#include "refhost/core/settingsitem.h"

#include <optional>
#include <string_view>
#include <vector>

namespace quelhost::test {

// The items of a listing, in its order; the category is not printed and 0 here. Nothing when the
// text is no listing: every line must be as settingLine() writes it and end with a newline.
[[nodiscard]] std::optional<std::vector<Item>> readSettingsListing(std::string_view text);

} // namespace quelhost::test
