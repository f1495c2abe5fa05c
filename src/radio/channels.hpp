// Channel tables, and what a radio may use in its regulatory domain.
#pragma once

#include <cstdint>

namespace oru {

/// The allowed channels of a radio, by band, and its regulatory domain class.
struct OruRegChannelInfo {
    int16_t radioIndex; // set by the caller
    uint8_t count24;
    uint8_t channels24[30];
    uint8_t count5;
    uint8_t channels5[30];
    int32_t domainClass; // 0 to 15
};

/// Whether a channel exists; 14 only when flag (the channel bonding mode) is 0.
bool isValidChannel(uint32_t channel, int32_t flag);

/// Whether radar detection applies to a channel.
bool isRadarChannel(uint32_t channel);

/// Whether a secondary channel above 35 is the 40 MHz partner of a primary one.
bool isChannelPair(uint32_t primary, uint32_t secondary);

/// Fills lists and class for info->radioIndex; the record was zeroed before.
uint32_t buildRegChannelInfo(OruRegChannelInfo *info);

/// Whether a channel is allowed in a band: 1 the 2.4 GHz list, 2 the 5 GHz list, 0, 3 and 4 both.
bool isChannelInRegDomain(const OruRegChannelInfo *info, uint32_t channel, int32_t bandType);

} // namespace oru
