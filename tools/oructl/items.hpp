// The families of items, one source file a family.
#pragma once

#include "catalogue.hpp"

namespace oructl {

std::span<const Item> radioSwitches();
std::span<const Item> radioOptions();
std::span<const Item> channelItems();
std::span<const Item> dfsItems();
std::span<const Item> rateItems();
std::span<const Item> macItems();
std::span<const Item> qosItems();
std::span<const Item> bssItems();
std::span<const Item> securityItems();
std::span<const Item> radiusItems();
std::span<const Item> wpsItems();
std::span<const Item> controlItems();

} // namespace oructl
