// Quality of service: WMM with the traffic classifier, the EDCA profile, and its dynamic choice.
// Every key is shared by both radios, on purpose: the radio index only has to be valid.
#include "core/dict.hpp"
#include "core/key.hpp"
#include "core/log.hpp"
#include "core/store.hpp"
#include "oruSdk.h"

#include <utility>

namespace oru {
namespace {

constexpr uint32_t kLastTrafficClassifier = 3;
constexpr uint32_t kLastProfileChoice = 2;
constexpr const char kDynamicProfile[] = "dynamicProfileSelection";

/// WMM is one of the standard extensions.
uint32_t checkExtensions(OruAsfDict *dict, const OruSdkWmmParam *param)
{
    int32_t extensions = 0;
    if (getInt(dict, radioKey("radio%d.standardExt", param), &extensions, 0) != 0)
        return fail(ORUSDK_RC_KEY_READ, "Unable to read radioStandardExt from config file %s",
                    kRadioFile);
    if (extensions == 0)
        return fail(ORUSDK_RC_NEEDS_STD_EXTENSIONS, "Standard extensions must be on");
    return ORUSDK_RC_OK;
}

} // namespace
} // namespace oru

using namespace oru;

extern "C" {

uint32_t oruSdkGetWmm(OruSdkWmmParam *param)
{
    if (param == nullptr) return fail(ORUSDK_RC_NULL_POINTER, "NULL pointer");
    if (param->radioIndex >= kRadios)
        return fail(ORUSDK_RC_RADIO_ID, "Invalid radio ID: %d", param->radioIndex);
    const Dict dict{kRadioFile};
    if (!dict) return fail(ORUSDK_RC_FILE_READ, "Unable to read WSM Defaults file %s", kRadioFile);
    int32_t value = 0;
    if (getInt(dict, "wmmEnabledFlag", &value, 0) != 0)
        return fail(ORUSDK_RC_KEY_READ, "Unable to read wmmEnabledFlag from config file %s",
                    kRadioFile);
    param->wmmEnabled = static_cast<uint32_t>(value);
    if (getInt(dict, "TrafficClassifier", &value, 0) != 0)
        return fail(ORUSDK_RC_KEY_READ, "Unable to read TrafficClassifier from config file %s",
                    kRadioFile);
    param->trafficClassifier = static_cast<uint32_t>(value);
    return ORUSDK_RC_OK;
}

uint32_t oruSdkSetWmm(OruSdkWmmParam *param)
{
    if (param == nullptr) return fail(ORUSDK_RC_NULL_POINTER, "NULL pointer");
    if (param->radioIndex >= kRadios)
        return fail(ORUSDK_RC_RADIO_ID, "Invalid radio ID: %d", param->radioIndex);
    if (param->wmmEnabled > 1)
        return fail(ORUSDK_RC_WMM, "Invalid wmmEnable: %d", param->wmmEnabled);
    if (param->trafficClassifier > kLastTrafficClassifier) // no code of its own: intended
        return fail(ORUSDK_RC_WMM, "Invalid trafficClassifier: %d", param->trafficClassifier);
    const Dict dict{kRadioFile};
    if (!dict) return fail(ORUSDK_RC_FILE_READ, "Unable to read WSM Defaults file %s", kRadioFile);
    if (param->wmmEnabled == 1)
        if (const uint32_t code = checkExtensions(dict, param); code != 0) return code;
    if (setString(dict, "wmmEnabledFlag", Number{param->wmmEnabled}) != 0)
        return fail(ORUSDK_RC_DICT_WRITE, "Unable to write wmmEnabledFlag to dictionary");
    if (setString(dict, "TrafficClassifier", Number{param->trafficClassifier}) != 0)
        return fail(ORUSDK_RC_DICT_WRITE, "Unable to write TrafficClassifier to dictionary");
    return saveRadioFile(dict);
}

uint32_t oruSdkGetEdcaProfile(OruSdkOptionParam *param)
{
    return getOption(param, "edcaProfile");
}

uint32_t oruSdkSetEdcaProfile(OruSdkOptionParam *param)
{
    return setOption(param, "edcaProfile", 0, 1);
}

uint32_t oruSdkGetDynamicProfileSelect(OruSdkOptionParam *param)
{
    return getOption(param, kDynamicProfile);
}

uint32_t oruSdkSetDynamicProfileSelect(OruSdkOptionParam *param)
{
    if (param == nullptr) return fail(ORUSDK_RC_NULL_POINTER, "NULL pointer");
    if (param->radioIndex >= kRadios)
        return fail(ORUSDK_RC_RADIO_ID, "Invalid radio ID: %d", param->radioIndex);
    if (param->featureOptions > kLastProfileChoice)
        return fail(ORUSDK_RC_DYNAMIC_PROFILE, "Invalid dynamicProfileSelect %d",
                    param->featureOptions);
    OruSdkWmmParam wmm{param->radioIndex, 0, 0};
    if (oruSdkGetWmm(&wmm) != 0) // its own code gives way to this one: intended
        return fail(ORUSDK_RC_KEY_READ,
                    "Unable to determine WMM state! Dynamic Profile Select cannot be set.");
    if (wmm.wmmEnabled == 0)
        return fail(ORUSDK_RC_NEEDS_WMM,
                    "WMM is %s. Dynamic Profile Select can be set only if both are enabled.",
                    "disabled");
    Dict dict{kRadioFile};
    if (!dict) return fail(ORUSDK_RC_FILE_READ, "Unable to read WSM Defaults file %s", kRadioFile);
    return sdkDictWriteAndSave(param, kDynamicProfile, std::move(dict));
}

} // extern "C"
