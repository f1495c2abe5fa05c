// What could be meant on this access point at this moment. Empty when it does not say.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace oructl {

/// The channels that a radio may be set to.
std::vector<std::string> allowedChannels(int64_t radio);

/// The addresses of the stations of all BSSes.
std::vector<std::string> stationAddresses();

/// The names of a radio's counters.
std::vector<std::string> counterNames();

} // namespace oructl
