// What is fixed about channel numbers.
#pragma once

#include <cstdint>
#include <span>

namespace oructl {

/// Every channel that a radio can be set to, in ascending order.
std::span<const uint8_t> allChannels();

bool isChannel(int64_t channel);

/// Whether a radio that detects radar refuses it.
bool isRadarChannel(int64_t channel);

/// 1 to 14.
constexpr bool isAt24GHz(int64_t channel)
{
    return channel >= 1 && channel <= 14;
}

/// The other half of a 40 MHz channel at 5 GHz; 0 when it has none.
int64_t partnerAt5GHz(int64_t channel);

} // namespace oructl
