#include "channel_rules.hpp"

#include "channels.hpp"

#include <algorithm>

namespace oructl {
namespace {

constexpr int64_t k40MHz = 1;
constexpr int64_t k11a = 1;
constexpr int64_t k11bOnly = 2;
constexpr int64_t k11bg = 3;

using Channels = std::vector<uint8_t>;

bool contains(const Channels &channels, int64_t channel)
{
    return std::find(channels.begin(), channels.end(), channel) != channels.end();
}

bool isIn24GHzList(uint8_t channel)
{
    return channel <= 14; // 0 too, which is no channel
}

bool keepsChannel14For11b(const RadioFacts &facts, int64_t mode)
{
    return facts.country == "JP" && mode != k11bOnly;
}

/// The channels that a set finds in the country's lists, which have room for 30 of each band. In
/// Japan the last of 14 at 2.4 GHz is for 802.11b alone.
Channels countryChannels(const RadioFacts &facts, int64_t mode)
{
    constexpr size_t kRoom = 30;
    Channels low;
    Channels high;
    for (const uint8_t channel : facts.channels) {
        Channels &list = isIn24GHzList(channel) ? low : high;
        if (list.size() < kRoom) list.push_back(channel);
    }
    if (low.size() == 14 && keepsChannel14For11b(facts, mode)) low.pop_back();
    low.insert(low.end(), high.begin(), high.end());
    return low;
}

bool isInChannelSet(int64_t set, uint8_t channel)
{
    const bool any = set == 0 || set == 3 || set == 4;
    return any || set == (isIn24GHzList(channel) ? 1 : 2);
}

bool isForMode(int64_t mode, uint8_t channel)
{
    return isAt24GHz(channel) ? mode != k11a : mode != k11bOnly && mode != k11bg;
}

/// Whatever the country allows.
Channels partnersOf(uint8_t channel)
{
    Channels partners;
    if (isAt24GHz(channel)) {
        for (const int partner : {channel - 4, channel + 4})
            if (channel != 14 && partner >= 1 && partner <= 13)
                partners.push_back(static_cast<uint8_t>(partner));
    } else if (const int64_t partner = partnerAt5GHz(channel); partner != 0) {
        partners.push_back(static_cast<uint8_t>(partner));
    }
    return partners;
}

} // namespace

std::vector<uint8_t> knownChannels(const RadioFacts &facts)
{
    Channels known;
    for (const uint8_t channel : allChannels())
        if (isAt24GHz(channel) || !facts.only24GHz) known.push_back(channel);
    for (const uint8_t channel : facts.channels)
        if (channel != 0) known.push_back(channel); // 0 stands for automatic selection
    std::sort(known.begin(), known.end());
    known.erase(std::unique(known.begin(), known.end()), known.end());
    return known;
}

std::vector<uint8_t> secondariesOf(const ChannelSettings &settings, uint8_t channel)
{
    if (settings.bonding != k40MHz) return {};
    const Channels country = countryChannels(settings.facts, settings.mode);
    Channels secondaries;
    for (const uint8_t partner : partnersOf(channel))
        if (contains(country, partner)) secondaries.push_back(partner);
    return secondaries;
}

std::vector<Refusal> refusalsOf(const ChannelSettings &settings, uint8_t channel)
{
    std::vector<Refusal> refusals;
    const auto refuseIf = [&](bool wrong, Check check, uint32_t code) {
        if (wrong) refusals.push_back({check, code});
    };
    const bool bonded = settings.bonding == k40MHz;
    const bool hasPartner = !partnersOf(channel).empty();
    const bool listed = contains(countryChannels(settings.facts, settings.mode), channel);
    const bool listedFor11b = contains(countryChannels(settings.facts, k11bOnly), channel);
    const bool at5GHz = !isAt24GHz(channel);

    refuseIf(settings.radarDetect == 1 && isRadarChannel(channel), Check::RadarDetect,
             ORUSDK_RC_RADAR_CHANNEL);
    refuseIf(bonded && !hasPartner, Check::ChannelBonding, ORUSDK_RC_SECONDARY_CHANNEL);
    refuseIf(!isForMode(settings.mode, channel), Check::Dot11Mode, ORUSDK_RC_CHANNEL);
    refuseIf(!isChannel(channel), Check::NoSuchChannel, ORUSDK_RC_CHANNEL);
    refuseIf(channel == 14 && settings.bonding != 0 && !bonded, Check::ChannelBonding,
             ORUSDK_RC_CHANNEL);
    refuseIf(settings.facts.only24GHz && at5GHz, Check::Product, ORUSDK_RC_CHANNEL_BG_ONLY);
    refuseIf(!isInChannelSet(settings.channelSet, channel), Check::ChannelSet,
             ORUSDK_RC_REG_DOMAIN);
    refuseIf(!listedFor11b, Check::Country, ORUSDK_RC_REG_DOMAIN);
    refuseIf(listedFor11b && !listed, Check::Dot11Mode, ORUSDK_RC_REG_DOMAIN);
    refuseIf(listed && bonded && hasPartner && secondariesOf(settings, channel).empty(),
             Check::Country, ORUSDK_RC_REG_DOMAIN);
    refuseIf(listed && channel == 14 && keepsChannel14For11b(settings.facts, settings.mode),
             Check::Dot11Mode, ORUSDK_RC_CHANNEL_14_JAPAN);
    // The codes that count as 802.11b rates here.
    refuseIf(settings.rate >= 65 && settings.rate <= 68 && at5GHz, Check::Rate,
             ORUSDK_RC_CHANNEL_FOR_11B_RATE);
    return refusals;
}

} // namespace oructl
