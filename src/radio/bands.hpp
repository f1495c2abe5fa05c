// Stored values that several settings of a radio are checked against.
#pragma once

#include <cstdint>

namespace oru {

// "radio%d.bandType"
constexpr int32_t kAnyBand = 0; // decided by the channel
constexpr int32_t kBand24GHz = 1;
constexpr int32_t kBand5GHz = 2;

// "radio%d.dot11Mode"
constexpr int32_t kOnly11b = 2;

} // namespace oru
