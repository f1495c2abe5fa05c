// The folder tree of an access point, as it leaves the factory.
#pragma once

#include "text.hpp"

#include <string>

namespace orusim {

/// Makes the folders below ORU_ROOT and puts the factory files in their places, mode 0600, and the
/// radios of a product: the named one's, or those of the US product. Files that exist stay, unless
/// `force`; the radios of a product that is named are always put there. Tells of each file. An
/// empty text, or what went wrong.
std::string initialise(const std::string &factory, bool force, const Log &log,
                       const std::string &product = "");

} // namespace orusim
