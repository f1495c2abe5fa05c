// The folder tree of an access point, as it leaves the factory.
#pragma once

#include "text.hpp"

#include <string>

namespace orusim {

/// Makes the folders below ORU_ROOT and puts the factory files in their places, mode 0600. Files
/// that exist stay, unless `force`. Tells of each file. An empty text, or what went wrong.
std::string initialise(const std::string &factory, bool force, const Log &log);

} // namespace orusim
