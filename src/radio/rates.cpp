// Rates of a radio: fixed, broadcast and maximum. Legacy and MCS rates share one key each; their
// internal codes tell them apart.
#include "core/log.hpp"
#include "core/store.hpp"
#include "radio/bands.hpp"
#include "radio/ratecodes.hpp"

namespace oru {
namespace {

constexpr uint32_t kBroadcastRates = 55;    // above the fastest one; excludes 160, automatic
constexpr uint32_t kBroadcastMcsRates = 32; // excludes MCS 32 and 160
constexpr uint32_t kMaxRates = 301;

uint32_t openRadioFile(const OruSdkOptionParam *param, Dict &dict)
{
    return sdkOpenRadioDefaults(param, "", 0, 0, dict);
}

uint32_t saveFixedRate(const OruSdkOptionParam *param, const Dict &dict)
{
    if (setString(dict, radioKey("radio%d.fixedRate", param), Number{param->featureOptions}) != 0)
        return fail(ORUSDK_RC_DICT_WRITE, "Unable to write fixedRate to dictionary");
    return saveRadioFile(dict);
}

uint32_t getFixedRate(OruSdkOptionParam *param)
{
    Dict dict;
    if (const uint32_t code = openRadioFile(param, dict); code != 0) return code;
    int32_t rate = 0;
    if (getInt(dict, radioKey("radio%d.fixedRate", param), &rate, 0) != 0)
        // The text names another key: intended.
        return fail(ORUSDK_RC_KEY_READ, "Unable to read ackMode from config file %s", kRadioFile);
    param->featureOptions = static_cast<uint32_t>(rate);
    return ORUSDK_RC_OK;
}

/// Loads the file and chooses the broadcast key of the radio's band.
uint32_t openBroadcast(const OruSdkOptionParam *param, Dict &dict, const char *&pattern)
{
    if (const uint32_t code = openRadioFile(param, dict); code != 0) return code;
    int32_t band = 0;
    if (getInt(dict, radioKey("radio%d.bandType", param), &band, 0) != 0)
        return fail(ORUSDK_RC_KEY_READ, "Unable to read radio%d.bandType from config file %s",
                    param->radioIndex, kRadioFile);
    pattern = band == kBand5GHz ? "radio%d.broadcastRate5GHz" : "radio%d.broadcastRate24GHz";
    return ORUSDK_RC_OK;
}

} // namespace
} // namespace oru

using namespace oru;

extern "C" {

// ---- Fixed rate

uint32_t oruSdkSetRateParam(OruSdkOptionParam *param)
{
    Dict dict;
    if (const uint32_t code = openRadioFile(param, dict); code != 0) return code;
    if (const uint32_t code = validateAndConvertRate(param, dict); code != 0) return code;
    return saveFixedRate(param, dict);
}

uint32_t oruSdkSetMcsRateParam(OruSdkOptionParam *param)
{
    Dict dict;
    if (const uint32_t code = openRadioFile(param, dict); code != 0) return code;
    if (const uint32_t code = validateAndConvertMcsRate(param, dict); code != 0) {
        dict.keepOpen(); // a refused MCS index leaves the handle open: intended
        return code;
    }
    return saveFixedRate(param, dict);
}

uint32_t oruSdkGetRateParam(OruSdkOptionParam *param)
{
    return getFixedRate(param);
}

uint32_t oruSdkGetMcsRateParam(OruSdkOptionParam *param)
{
    return getFixedRate(param);
}

// ---- Broadcast rate

uint32_t oruSdkSetBroadcastRate(OruSdkOptionParam *param)
{
    Dict dict;
    const char *pattern = nullptr;
    if (const uint32_t code = openBroadcast(param, dict, pattern); code != 0) return code;
    const Key key = radioKey(pattern, param);
    if (param->featureOptions >= kBroadcastRates)
        return fail(ORUSDK_RC_OPTION, "Invalid feature option %d for %s", param->featureOptions,
                    key);
    if (const uint32_t code = validateAndConvertRate(param, dict); code != 0) return code;
    logError("key =  %s", key);
    return sdkDictWriteAndSave(param, key, std::move(dict));
}

uint32_t oruSdkSetBroadcastMcsRate(OruSdkOptionParam *param)
{
    Dict dict;
    const char *pattern = nullptr;
    if (const uint32_t code = openBroadcast(param, dict, pattern); code != 0) return code;
    const Key key = radioKey(pattern, param);
    if (param->featureOptions >= kBroadcastMcsRates)
        return fail(ORUSDK_RC_OPTION, "Invalid feature option %d for %s", param->featureOptions,
                    key);
    if (const uint32_t code = validateAndConvertMcsRate(param, dict); code != 0) return code;
    return sdkDictWriteAndSave(param, key, std::move(dict));
}

uint32_t oruSdkGetBroadcastRate(OruSdkOptionParam *param)
{
    Dict dict;
    const char *pattern = nullptr;
    if (const uint32_t code = openBroadcast(param, dict, pattern); code != 0) return code;
    const Key key = radioKey(pattern, param);
    logError("key =  %s", key);
    return sdkDictReadInt(param, key, std::move(dict));
}

uint32_t oruSdkGetBroadcastMcsRate(OruSdkOptionParam *param)
{
    Dict dict;
    const char *pattern = nullptr;
    if (const uint32_t code = openBroadcast(param, dict, pattern); code != 0) return code;
    return sdkDictReadInt(param, radioKey(pattern, param), std::move(dict));
}

// ---- Maximum rate: one key for both radios

uint32_t oruSdkSetMaxRate(OruSdkMaxRateParam *param)
{
    if (param == nullptr) return fail(ORUSDK_RC_NULL_POINTER, "NULL pointer");
    if (param->radioIndex >= kRadios)
        return fail(ORUSDK_RC_RADIO_ID, "Invalid radio ID: %d", param->radioIndex);
    if (param->maxRate >= kMaxRates)
        return fail(ORUSDK_RC_RATE_SET, "Invalid data rate: %d", param->maxRate);
    const Dict dict{kRadioFile};
    if (!dict) return fail(ORUSDK_RC_FILE_READ, "Unable to read WSM Defaults file %s", kRadioFile);
    if (setString(dict, "MaxRate", Number{param->maxRate}) != 0)
        return fail(ORUSDK_RC_DICT_WRITE, "Unable to write MaxRate to dictionary");
    return saveRadioFile(dict);
}

uint32_t oruSdkGetMaxRate(OruSdkMaxRateParam *param)
{
    if (param == nullptr) return fail(ORUSDK_RC_NULL_POINTER, "NULL pointer");
    if (param->radioIndex >= kRadios)
        return fail(ORUSDK_RC_RADIO_ID, "Invalid radio ID: %d", param->radioIndex);
    const Dict dict{kRadioFile};
    if (!dict) return fail(ORUSDK_RC_FILE_READ, "Unable to read WSM Defaults file %s", kRadioFile);
    int32_t rate = 0;
    if (getInt(dict, "MaxRate", &rate, 0) != 0)
        return fail(ORUSDK_RC_KEY_READ, "Unable to read MaxRate from config file %s", kRadioFile);
    // Zero counts as an absent value, with the code of a NULL pointer: intended.
    if (rate == 0) return fail(ORUSDK_RC_NULL_POINTER, "Maximum data rate must be greater than 0");
    param->maxRate = static_cast<uint32_t>(rate);
    return ORUSDK_RC_OK;
}

} // extern "C"
