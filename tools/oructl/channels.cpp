#include "channels.hpp"

#include <algorithm>

namespace oructl {
namespace {

constexpr uint8_t kChannels[] = {1,   2,   3,   4,   5,   6,   7,   8,   9,   10,  11,  12,  13,
                                 14,  36,  40,  44,  48,  52,  56,  60,  64,  100, 104, 108, 112,
                                 116, 120, 124, 128, 132, 136, 140, 149, 153, 157, 161};

bool isWithin(int64_t channel, int64_t first, int64_t last)
{
    return channel >= first && channel <= last;
}

} // namespace

std::span<const uint8_t> allChannels()
{
    return kChannels;
}

bool isChannel(int64_t channel)
{
    return std::find(std::begin(kChannels), std::end(kChannels), channel) != std::end(kChannels);
}

bool isRadarChannel(int64_t channel)
{
    return isChannel(channel) && (isWithin(channel, 52, 64) || isWithin(channel, 100, 140));
}

int64_t partnerAt5GHz(int64_t channel)
{
    if (!isChannel(channel) || isAt24GHz(channel)) return 0;
    const int64_t first = channel < 100 ? 36 : channel < 149 ? 100 : 149;
    const int64_t partner = (channel - first) % 8 == 0 ? channel + 4 : channel - 4;
    return isChannel(partner) ? partner : 0;
}

} // namespace oructl
