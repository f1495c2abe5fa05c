// The 802.11 mode of a radio.
#include "core/log.hpp"
#include "core/store.hpp"
#include "radio/bands.hpp"
#include "radio/radioinfo.hpp"

namespace oru {
namespace {

constexpr uint32_t kLastMode = 9;
constexpr int32_t kManualChannel = 2;

bool needsExtensions(int32_t mode)
{
    return mode == kOnly11b || mode == 3 || mode == 4 || mode == 9;
}

uint32_t checkBand(const OruSdkOptionParam *param, const Dict &dict)
{
    const auto mode = static_cast<int32_t>(param->featureOptions);
    int32_t band = 0;
    if (getInt(dict, radioKey("radio%d.bandType", param), &band, 0) != 0)
        return fail(ORUSDK_RC_KEY_READ, "Unable to read radio%d.bandType from config file %s",
                    param->radioIndex, kRadioFile);
    if (band == kBand5GHz && (mode == kOnly11b || mode == 3))
        return fail(ORUSDK_RC_MODE_5GHZ, "Invalid mode in 5GHz band");
    if (band == kBand24GHz && mode == 1)
        return fail(ORUSDK_RC_MODE_24GHZ, "Invalid mode in 2.4GHz band");
    return ORUSDK_RC_OK;
}

/// Channel 14 in Japan, for 802.11b as well as for 802.11g: intended.
uint32_t checkCountry(const OruSdkOptionParam *param)
{
    char country[3] = {};
    if (const uint32_t code = getRadioCountryCode(param->radioIndex, country); code != 0)
        return fail(code, "getRadioCountryCode() failed");
    if (country[0] == 'J' && country[1] == 'P')
        return fail(ORUSDK_RC_CHANNEL_14_JAPAN, "Channel 14 invalid for 802.11g mode in Japan");
    return ORUSDK_RC_OK;
}

uint32_t checkExtensionsAndChannel(const OruSdkOptionParam *param, const Dict &dict)
{
    int32_t extensions = 0;
    if (getInt(dict, radioKey("radio%d.standardExt", param), &extensions, 0) != 0)
        return fail(ORUSDK_RC_KEY_READ, "Unable to read radioStandardExt from config file %s",
                    kRadioFile);
    if (extensions == 0)
        return fail(ORUSDK_RC_NEEDS_STD_EXTENSIONS, "Standard extensions must be on");
    int32_t selection = 0;
    if (getInt(dict, radioKey("radio%d.channelSelectionType", param), &selection, 0) != 0)
        return fail(ORUSDK_RC_KEY_READ,
                    "Failed to read radio%d.channelSelectionType from config file %s",
                    param->radioIndex, kRadioFile);
    if (selection != kManualChannel) return ORUSDK_RC_OK;
    int32_t channel = 0;
    if (getInt(dict, radioKey("radio%d.configuredChannel", param), &channel, 0) != 0)
        // The text names the key before: intended.
        return fail(ORUSDK_RC_KEY_READ,
                    "Failed to read radio%d.channelSelectionType from config file %s",
                    param->radioIndex, kRadioFile);
    if (channel == 14) return checkCountry(param);
    return ORUSDK_RC_OK;
}

/// Clears the device's ERP flag on the way: a failure behind it frees the dictionary unsaved.
uint32_t prepareOnly11b(const OruSdkOptionParam *param, const Dict &dict)
{
    int32_t rate = 0;
    // Another status than -1 is no failure here: intended.
    if (getInt(dict, radioKey("radio%d.fixedRate", param), &rate, 0) == -1)
        return fail(ORUSDK_RC_KEY_READ, "Unable to read rate from config file %s", kRadioFile);
    if (setString(dict, "ERPFlag", "0") == -1)
        return fail(ORUSDK_RC_KEY_READ, "Unable to set ERPflag from config file %s", kRadioFile);
    // These are MCS codes, not those of the 802.11a/g rates: intended.
    if (rate >= 69 && rate <= 76)
        return fail(ORUSDK_RC_FIXED_RATE_11AG, "Fixed rate must not be set to 802.11a/g rates");
    int32_t admits11b = 0;
    if (getInt(dict, radioKey("radio%d.adminDot11bStaFlag", param), &admits11b, 0) != 0)
        return fail(ORUSDK_RC_KEY_READ, "Unable to read adminDot11bStaFlag from config file %s",
                    kRadioFile);
    if (admits11b == 0)
        return fail(ORUSDK_RC_REJECTS_11B, "802.11b ONLY mode: must not reject 802.11b stations");
    return ORUSDK_RC_OK;
}

/// One flag for the whole device.
uint32_t setErpFlag(const Dict &dict)
{
    if (setString(dict, "ERPFlag", "1") == -1)
        return fail(ORUSDK_RC_KEY_READ, "Unable to set ERPflag from config file %s", kRadioFile);
    return ORUSDK_RC_OK;
}

} // namespace
} // namespace oru

using namespace oru;

extern "C" {

uint32_t oruSdkGetDot11Mode(OruSdkOptionParam *param)
{
    return getOption(param, "radio%d.dot11Mode");
}

uint32_t oruSdkSetDot11Mode(OruSdkOptionParam *param)
{
    const Key key = radioKey("radio%d.dot11Mode", param);
    Dict dict;
    if (const uint32_t code = sdkOpenRadioDefaults(param, key, 0, kLastMode, dict); code != 0)
        return code;
    if (const uint32_t code = checkBand(param, dict); code != 0) return code;
    const auto mode = static_cast<int32_t>(param->featureOptions);
    if (needsExtensions(mode))
        if (const uint32_t code = checkExtensionsAndChannel(param, dict); code != 0) return code;
    const bool only11b = mode == kOnly11b;
    if (const uint32_t code = only11b ? prepareOnly11b(param, dict) : setErpFlag(dict); code != 0)
        return code;
    return sdkDictWriteAndSave(param, key, std::move(dict));
}

} // extern "C"
