#include "radio_state.hpp"

#include <cstring>

namespace oructl {
namespace {

/// As much as any answer of WSM can fill.
constexpr size_t kInfoBytes =
    sizeof(OruSdkRadioInfo) + (ORUSDK_RADIO_INFO_MAX_RADIOS - 2) * sizeof(OruSdkRadioInfoEntry);

int64_t bigEndian(const uint8_t (&bytes)[4])
{
    return int64_t{bytes[0]} << 24 | int64_t{bytes[1]} << 16 | int64_t{bytes[2]} << 8 | bytes[3];
}

} // namespace

RadioFacts radioFacts(int64_t radio)
{
    std::vector<uint32_t> room(kInfoBytes / sizeof(uint32_t) + 1);
    auto *const info = reinterpret_cast<OruSdkRadioInfo *>(room.data());
    RadioFacts facts{.code = oruSdkGetRadioInfo(info)};
    facts.told = facts.code == ORUSDK_RC_OK && radio >= 0 && radio < bigEndian(info->radioCount);
    if (!facts.told) return facts;
    const OruSdkRadioInfoEntry *const entries = info->entries;
    const OruSdkRadioInfoEntry &entry = entries[radio];
    facts.country.assign(entry.countryCode, ::strnlen(entry.countryCode, 2));
    facts.only24GHz = entries[0].bandSupport[2] == 0;
    facts.channels.assign(entry.channels, entry.channels + entry.channelCount);
    return facts;
}

uint32_t readChannelChoice(int64_t radio, ChannelChoice &choice)
{
    constexpr auto kUntouched = static_cast<uint32_t>(INT32_MIN);
    OruSdkChannelParam record{.radioIndex = static_cast<uint32_t>(radio),
                              .channel = 0,
                              .secondaryChannel = kUntouched,
                              .autoSelMode = 0,
                              .periodicDfsTimer = 0};
    const uint32_t code = oruSdkGetChannelParam(&record);
    if (code != ORUSDK_RC_OK) return code;
    choice.fixed = record.secondaryChannel != kUntouched;
    choice.channel = static_cast<int32_t>(record.channel);
    choice.secondary = choice.fixed ? static_cast<int32_t>(record.secondaryChannel) : 0;
    choice.mode = static_cast<int32_t>(record.autoSelMode);
    choice.interval = static_cast<int32_t>(record.periodicDfsTimer);
    return code;
}

std::string concat(std::initializer_list<std::string_view> parts)
{
    std::string out;
    for (const std::string_view part : parts) out += part;
    return out;
}

std::string radioName(int64_t radio)
{
    return "radio " + std::to_string(radio);
}

std::string setCommand(std::string_view item, int64_t radio, std::string_view values)
{
    return concat({"oructl set ", item, " ", std::to_string(radio), " ", values});
}

std::string listed(std::span<const uint8_t> channels)
{
    std::string out;
    for (const uint8_t channel : channels)
        out.append(out.empty() ? "" : ", ").append(std::to_string(channel));
    return out;
}

std::string whyStandardExt(int64_t radio)
{
    if (storedStandardExt(radio) != 0) return "";
    return concat({"the standard extensions of ", radioName(radio),
                   " are off; switch them on with: ", setCommand("standard-ext", radio, "on")});
}

} // namespace oructl
