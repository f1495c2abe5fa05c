// What the reasons of refused calls, and the views, need to know of a radio.
#pragma once

#include "adapt.hpp"

#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace oructl {

/// What WSM tells of one radio.
struct RadioFacts {
    uint32_t code = ORUSDK_RC_OK; ///< of the question; the rest is filled when it is 0
    bool told = false;            ///< WSM knows the radio
    std::string country = {};     ///< two letters
    bool only24GHz = false;       ///< the product has no 5 GHz
    std::vector<uint8_t> channels = {};
};

/// Asks WSM, which may take as long as its answer.
RadioFacts radioFacts(int64_t radio);

/// What is stored; nothing when it can't be read.
inline constexpr auto storedRadarDetect = stored<OruSdkFeatureParam, oruSdkGetRadarDetect>;
inline constexpr auto storedBonding = stored<OruSdkOptionParam, oruSdkGetChannelBondingMode>;
inline constexpr auto storedMode = stored<OruSdkOptionParam, oruSdkGetDot11Mode>;
inline constexpr auto storedChannelSet = stored<OruSdkOptionParam, oruSdkGetChannelSet>;
inline constexpr auto storedRate = stored<OruSdkOptionParam, oruSdkGetRateParam>;
inline constexpr auto storedStandardExt = stored<OruSdkRadioSwitchParam, oruSdkGetDot11StdExt>;
inline constexpr auto storedAdmission = stored<OruSdkRadioSwitchParam, oruSdkGetStaAcceptCriteria>;

/// How a radio comes to its channel.
struct ChannelChoice {
    bool fixed = false;
    int64_t channel = 0;   ///< of a fixed one
    int64_t secondary = 0; ///< of a fixed one
    int64_t mode = 0;      ///< of an automatic one
    int64_t interval = 0;  ///< of a periodic one
};
uint32_t readChannelChoice(int64_t radio, ChannelChoice &choice);

/// All parts in one text.
std::string concat(std::initializer_list<std::string_view> parts);

/// "radio 0".
std::string radioName(int64_t radio);

/// "oructl set ITEM RADIO VALUES".
std::string setCommand(std::string_view item, int64_t radio, std::string_view values);

/// "1, 2, 3".
std::string listed(std::span<const uint8_t> channels);

/// The standard extensions are off; the sentence of code 59.
std::string whyStandardExt(int64_t radio);

} // namespace oructl
