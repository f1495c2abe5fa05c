// Which channels a radio can be set to with the settings that it has, and what forbids the others.
#pragma once

#include "radio_state.hpp"

#include <cstdint>
#include <vector>

namespace oructl {

/// What decides: items that can be changed, and what is given.
enum class Check : uint8_t {
    RadarDetect,
    ChannelBonding,
    Dot11Mode,
    NoSuchChannel,
    Product,
    ChannelSet,
    Country,
    Rate
};

/// A check that a channel does not pass, with the code of "set channel".
struct Refusal {
    Check check;
    uint32_t code;
};

/// All that "set channel" looks at, as getters tell it.
struct ChannelSettings {
    int64_t radarDetect = 0;
    int64_t bonding = 0;
    int64_t mode = 0;
    int64_t channelSet = 0;
    int64_t rate = 0;
    RadioFacts facts = {};
};

/// The channels of the product's bands and those that WSM tells of, in ascending order.
std::vector<uint8_t> knownChannels(const RadioFacts &facts);

/// The secondary channels that may go with a channel; none where channels aren't bonded.
std::vector<uint8_t> secondariesOf(const ChannelSettings &settings, uint8_t channel);

/// What forbids a channel, in the order in which "set channel" looks at it; empty: it is allowed.
std::vector<Refusal> refusalsOf(const ChannelSettings &settings, uint8_t channel);

} // namespace oructl
