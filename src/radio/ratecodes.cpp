// Rate codes: the tables, and a requested rate's way from its external form to the internal code.
#include "radio/ratecodes.hpp"

#include "core/log.hpp"
#include "core/store.hpp"
#include "radio/bands.hpp"

namespace oru {
namespace {

struct LegacyRate {
    int32_t mbps; // 5 stands for 5.5
    uint32_t code;
};

constexpr LegacyRate kLegacyRates[] = {{1, 129},  {2, 130},  {5, 131},  {6, 132},
                                       {9, 133},  {11, 134}, {12, 135}, {18, 136},
                                       {24, 137}, {36, 138}, {48, 139}, {54, 140}};

constexpr uint32_t kAutomatic = 160; // as a caller asks for it
constexpr uint32_t kAutomaticCode = 0;
constexpr uint32_t kMcsRates = 33;
constexpr uint32_t kMcs32 = 32;
constexpr uint32_t kMcs32Code = 141;
constexpr uint32_t kMcsPerWidthAndInterval = 32;

constexpr int32_t kFirst5GHzChannel = 36;

bool is11bCode(uint32_t code)
{
    return code - 129 < 3 || code == 134;
}

bool is80211n(int32_t mode)
{
    return mode == 0 || mode == 4;
}

/// Whether the radio's band takes the rate.
uint32_t checkBand(const OruSdkOptionParam *param, const Dict &dict, int32_t mode, int32_t channel)
{
    int32_t band = 0;
    if (getInt(dict, radioKey("radio%d.bandType", param), &band, 0) != 0)
        return fail(ORUSDK_RC_KEY_READ, "Unable to read radio%d.bandType from config file %s",
                    param->radioIndex, kRadioFile);
    // The first two look at the caller's value in Mbps, not at its code, and so never refuse a
    // rate: intended. The third refuses every rate: intended.
    if (band == kBand5GHz && is11bCode(param->featureOptions))
        return fail(ORUSDK_RC_RATE_11B_IN_5GHZ, "802.11b rates are invalid in 5Ghz band");
    if (band == kAnyBand && channel >= kFirst5GHzChannel && is11bCode(param->featureOptions))
        return fail(ORUSDK_RC_RATE_11B_IN_5GHZ, "802.11b rates are invalid in 5Ghz channels");
    if (band == kBand24GHz && mode == kOnly11b)
        return fail(ORUSDK_RC_RATE_ONLY_11B, "802.11b rates ONLY in 802.11b ONLY mode");
    return ORUSDK_RC_OK;
}

uint32_t convertRate(OruSdkOptionParam *param, const Dict &dict)
{
    int32_t mode = 0;
    if (getInt(dict, radioKey("radio%d.dot11Mode", param), &mode, 0) != 0)
        return fail(ORUSDK_RC_KEY_READ, "Unable to read dot11Mode from config file %s", kRadioFile);
    int32_t channel = 0;
    if (getInt(dict, radioKey("radio%d.configuredChannel", param), &channel, 0) != 0)
        return fail(ORUSDK_RC_KEY_READ, "Unable to read channel from config file %s", kRadioFile);
    if (param->featureOptions == kAutomatic) {
        param->featureOptions = kAutomaticCode;
        return ORUSDK_RC_OK;
    }

    const uint32_t code = convertExtToIntRateCode(static_cast<int32_t>(param->featureOptions));
    logError("internal rate code = %d", code);
    if (code == ORUSDK_RC_RATE_CODE) return fail(ORUSDK_RC_RATE_CODE, "Illegal data rate");
    if (const uint32_t refusal = checkBand(param, dict, mode, channel); refusal != 0)
        return refusal;
    param->featureOptions = code;
    logError("featureOptions = %d", param->featureOptions);
    return ORUSDK_RC_OK;
}

} // namespace

uint32_t validateAndConvertRate(OruSdkOptionParam *param, Dict &dict)
{
    const uint32_t code = convertRate(param, dict);
    if (code != 0) dict = Dict{};
    return code;
}

uint32_t validateAndConvertMcsRate(OruSdkOptionParam *param, const Dict &dict)
{
    int32_t mode = 0;
    if (getInt(dict, radioKey("radio%d.dot11Mode", param), &mode, 0) != 0)
        return fail(ORUSDK_RC_KEY_READ, "Unable to read dot11Mode from config file %s", kRadioFile);
    int32_t bonding = 0;
    if (getInt(dict, radioKey("radio%d.channelBondingMode", param), &bonding, 0) != 0)
        return fail(ORUSDK_RC_KEY_READ, "Unable to read channel bonding mode from config file %s",
                    kRadioFile);
    const char *const interval =
        bonding != 0 ? "radio%d.ShortGuardInterval40MHz" : "radio%d.ShortGuardInterval20MHz";
    int32_t isShort = 0;
    if (getInt(dict, radioKey(interval, param), &isShort, 0) != 0)
        return fail(ORUSDK_RC_KEY_READ, "Unable to read Short Guard Interval from config file %s",
                    kRadioFile);
    if (param->featureOptions == kAutomatic) {
        param->featureOptions = kAutomaticCode;
        return ORUSDK_RC_OK;
    }

    if (param->featureOptions >= kMcsRates)
        return fail(ORUSDK_RC_RATE_CODE, "Illegal MCS Rate Index");
    if (!is80211n(mode)) return fail(ORUSDK_RC_RATE_CODE, "Illegal data rate");
    // Stored numbers beyond 0 and 1 are taken as they are: intended.
    const auto width = static_cast<uint32_t>(bonding);
    const auto shortInterval = static_cast<uint32_t>(isShort);
    if (param->featureOptions == kMcs32) {
        param->featureOptions = kMcs32Code + shortInterval;
        return ORUSDK_RC_OK;
    }
    param->featureOptions += 1 + kMcsPerWidthAndInterval * (2 * width + shortInterval);
    return ORUSDK_RC_OK;
}

} // namespace oru

using namespace oru;

extern "C" {

const char *const rateMap[24] = {
    "82", "1",  "84", "2",  "8B", "5.5", "96", "11", "8C", "6",  "92", "9",
    "98", "12", "A4", "18", "B0", "24",  "C8", "36", "E0", "48", "EC", "54",
};

uint32_t convertExtToIntRateCode(int32_t externalRate)
{
    for (const LegacyRate &rate : kLegacyRates)
        if (rate.mbps == externalRate) return rate.code;
    return ORUSDK_RC_RATE_CODE;
}

} // extern "C"
