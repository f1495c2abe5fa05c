// How a radio deals with older stations: 802.11g protection, standard extensions, and whether
// 802.11b stations are admitted.
#include "core/dict.hpp"
#include "core/key.hpp"
#include "core/log.hpp"
#include "core/store.hpp"
#include "oruSdk.h"

namespace oru {
namespace {

constexpr uint32_t kProtectionByMode = 4; // prtnEnable: a protection mode is given
constexpr int32_t kMode11bOnly = 2;

/// A radio without standard extensions is an 802.11b one, which may reject nobody.
uint32_t writeNoExtensions(OruAsfDict *dict, const OruSdkRadioSwitchParam *param)
{
    if (setString(dict, radioKey("radio%d.dot11Mode", param), Number{kMode11bOnly}) != 0)
        return fail(ORUSDK_RC_DICT_WRITE, "Unable to write dot11Mode to dictionary");
    if (setString(dict, "wmmEnabledFlag", "0") != 0)
        return fail(ORUSDK_RC_DICT_WRITE, "Unable to write wmmEnabledFlag to dictionary");
    // Not the radio's own key, which the admission operations use: intended.
    if (setString(dict, "adminDot11bStaFlag", "1") != 0)
        return fail(ORUSDK_RC_DICT_WRITE, "Unable to write adminDot11bStaFlag to dictionary");
    return ORUSDK_RC_OK;
}

/// 802.11b stations may be rejected only by a radio that serves others.
uint32_t checkMayReject(OruAsfDict *dict, const OruSdkRadioSwitchParam *param)
{
    int32_t extensions = 0;
    if (getInt(dict, radioKey("radio%d.standardExt", param), &extensions, 0) != 0)
        return fail(ORUSDK_RC_KEY_READ, "Unable to read radioStandardExt from config file %s",
                    kRadioFile);
    if (extensions == 0)
        return fail(ORUSDK_RC_NEEDS_STD_EXTENSIONS, "Standard extensions must be on");
    int32_t mode = 0;
    if (getInt(dict, radioKey("radio%d.dot11Mode", param), &mode, 0) != 0)
        return fail(ORUSDK_RC_KEY_READ, "Unable to read dot11Mode from config file %s", kRadioFile);
    if (mode == kMode11bOnly)
        return fail(ORUSDK_RC_MODE_IS_11B_ONLY, "2.4Ghz mode must not 802.11b only");
    return ORUSDK_RC_OK;
}

} // namespace
} // namespace oru

using namespace oru;

extern "C" {

uint32_t oruSdkGetDot11Protection(OruSdkProtectionParam *param)
{
    if (param == nullptr) return fail(ORUSDK_RC_NULL_POINTER, "NULL pointer");
    if (param->radioIndex >= kRadios)
        return fail(ORUSDK_RC_RADIO_ID, "Invalid radio ID: %d", param->radioIndex);
    const Dict dict{kRadioFile};
    if (!dict) return fail(ORUSDK_RC_FILE_READ, "Unable to read WSM Defaults file %s", kRadioFile);
    int32_t value = 0;
    if (getInt(dict, radioKey("radio%d.dot11Protection", param), &value, 0) != 0)
        return fail(ORUSDK_RC_KEY_READ, "Unable to read dot11Protection from config file %s",
                    kRadioFile);
    param->prtnEnable = static_cast<uint32_t>(value);
    if (param->prtnEnable != kProtectionByMode) return ORUSDK_RC_OK;
    if (getInt(dict, radioKey("radio%d.ProtectionMode", param), &value, 0) != 0)
        return fail(ORUSDK_RC_KEY_READ, "Unable to read protectionMode from config file %s",
                    kRadioFile);
    param->protectionMode = static_cast<uint32_t>(value);
    return ORUSDK_RC_OK;
}

uint32_t oruSdkSetDot11Protection(OruSdkProtectionParam *param)
{
    if (param == nullptr) return fail(ORUSDK_RC_NULL_POINTER, "NULL pointer");
    if (param->radioIndex >= kRadios)
        return fail(ORUSDK_RC_RADIO_ID, "Invalid radio ID: %d", param->radioIndex);
    if (param->prtnEnable > kProtectionByMode)
        return fail(ORUSDK_RC_PROTECTION, "Invalid prtnEnable: %d", param->prtnEnable);
    const Dict dict{kRadioFile};
    if (!dict) return fail(ORUSDK_RC_FILE_READ, "Unable to read WSM Defaults file %s", kRadioFile);

    Number text{param->prtnEnable};
    if (setString(dict, radioKey("radio%d.dot11Protection", param), text) != 0)
        return fail(ORUSDK_RC_DICT_WRITE, "Unable to write dot11Protection to dictionary");
    if (param->prtnEnable == kProtectionByMode) {
        text = Number{param->protectionMode};
        if (setString(dict, radioKey("radio%d.ProtectionMode", param), text) != 0)
            return fail(ORUSDK_RC_DICT_WRITE, "Unable to write protectionMode to dictionary");
    }
    // Both radios share this key, and it takes the number that was written last: intended.
    if (setString(dict, "dot11gShortSlotTime", text) != 0)
        return fail(ORUSDK_RC_DICT_WRITE, "Unable to write dot11gShortSlotTime to dictionary");
    return saveRadioFile(dict);
}

uint32_t oruSdkGetDot11StdExt(OruSdkRadioSwitchParam *param)
{
    if (param == nullptr) return fail(ORUSDK_RC_NULL_POINTER, "NULL pointer");
    if (param->radioIndex >= kRadios)
        return fail(ORUSDK_RC_RADIO_ID, "Invalid radio ID: %d", param->radioIndex);
    const Dict dict{kRadioFile};
    if (!dict) return fail(ORUSDK_RC_FILE_READ, "Unable to read WSM Defaults file %s", kRadioFile);
    int32_t value = 0;
    if (getInt(dict, radioKey("radio%d.standardExt", param), &value, 0) != 0)
        return fail(ORUSDK_RC_KEY_READ, "Unable to read radioStandardExt from config file %s",
                    kRadioFile);
    param->enable = static_cast<uint32_t>(value);
    return ORUSDK_RC_OK;
}

uint32_t oruSdkSetDot11StdExt(OruSdkRadioSwitchParam *param)
{
    if (param == nullptr) return fail(ORUSDK_RC_NULL_POINTER, "NULL pointer");
    if (param->radioIndex >= kRadios)
        return fail(ORUSDK_RC_RADIO_ID, "Invalid radio ID: %d", param->radioIndex);
    if (param->enable > 1)
        return fail(ORUSDK_RC_STD_EXTENSION, "Invalid stdExtEnable: %d", param->enable);
    const Dict dict{kRadioFile};
    if (!dict) return fail(ORUSDK_RC_FILE_READ, "Unable to read WSM Defaults file %s", kRadioFile);
    const Number text{param->enable};
    if (setString(dict, radioKey("radio%d.standardExt", param), text) != 0)
        return fail(ORUSDK_RC_DICT_WRITE, "Unable to write radioStandardExt to dictionary");
    if (param->enable == 0)
        if (const uint32_t code = writeNoExtensions(dict, param); code != 0) return code;
    return saveRadioFile(dict);
}

uint32_t oruSdkGetStaAcceptCriteria(OruSdkRadioSwitchParam *param)
{
    if (param == nullptr) return fail(ORUSDK_RC_NULL_POINTER, "NULL pointer");
    if (param->radioIndex >= kRadios)
        return fail(ORUSDK_RC_RADIO_ID, "Invalid radio ID: %d", param->radioIndex);
    const Dict dict{kRadioFile};
    if (!dict) return fail(ORUSDK_RC_FILE_READ, "Unable to read WSM Defaults file %s", kRadioFile);
    int32_t value = 0;
    if (getInt(dict, radioKey("radio%d.adminDot11bStaFlag", param), &value, 0) != 0)
        return fail(ORUSDK_RC_KEY_READ, "Unable to read adminDot11bStaFlag from config file %s",
                    kRadioFile);
    param->enable = static_cast<uint32_t>(value);
    return ORUSDK_RC_OK;
}

uint32_t oruSdkSetStaAcceptCriteria(OruSdkRadioSwitchParam *param)
{
    if (param == nullptr) return fail(ORUSDK_RC_NULL_POINTER, "NULL pointer");
    if (param->radioIndex >= kRadios)
        return fail(ORUSDK_RC_RADIO_ID, "Invalid radio ID: %d", param->radioIndex);
    if (param->enable > 1)
        return fail(ORUSDK_RC_STA_ADMISSION, "Invalid dot11bStaAccept: %d", param->enable);
    const Dict dict{kRadioFile};
    if (!dict) return fail(ORUSDK_RC_FILE_READ, "Unable to read WSM Defaults file %s", kRadioFile);
    if (param->enable == 0)
        if (const uint32_t code = checkMayReject(dict, param); code != 0) return code;
    const Number text{param->enable};
    if (setString(dict, radioKey("radio%d.adminDot11bStaFlag", param), text) != 0)
        return fail(ORUSDK_RC_DICT_WRITE, "Unable to write adminDot11bStaFlag to dictionary");
    return saveRadioFile(dict);
}

} // extern "C"
