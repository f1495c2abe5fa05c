// The families of items, one source file a family.
#pragma once

#include "catalogue.hpp"

namespace oructl {

std::span<const Item> radioSwitches();
std::span<const Item> radioOptions();

} // namespace oructl
