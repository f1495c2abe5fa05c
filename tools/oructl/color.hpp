// Colours, for the few words that deserve one.
#pragma once

#include "request.hpp"

#include <string>
#include <string_view>

namespace oructl {

enum class Paint : uint8_t { Error, Warning, Note, Old, New };

/// Whether what goes to a descriptor is coloured. By itself (auto), where a terminal stands behind
/// it that isn't dumb, and the environment's NO_COLOR is absent or empty.
bool inColor(Color wanted, int fd);

/// The text in a colour, or as it is.
std::string painted(std::string_view text, Paint paint, bool colored);

} // namespace oructl
