// The manual pages, written from the rows that the program itself works with.
#pragma once

#include <string>
#include <string_view>

namespace oructl {

/// The page as mdoc source: "oructl" of section 1 or "oructl-items" of section 7. Empty for any
/// other name.
std::string manPage(std::string_view name, std::string_view date);

} // namespace oructl
