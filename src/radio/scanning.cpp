// Background scanning, and the threshold and counter of smart background scanning.
#include "core/dict.hpp"
#include "core/key.hpp"
#include "core/log.hpp"
#include "core/store.hpp"
#include "oruSdk.h"

using namespace oru;

extern "C" {

uint32_t oruSdkGetBgScanning(OruSdkRadioSwitchParam *param)
{
    if (param == nullptr) return fail(ORUSDK_RC_NULL_POINTER, "NULL pointer");
    if (param->radioIndex >= kRadios)
        return fail(ORUSDK_RC_RADIO_ID, "Invalid radio ID: %d", param->radioIndex);
    const Dict dict{kRadioFile};
    if (!dict) return fail(ORUSDK_RC_FILE_READ, "Unable to read WSM Defaults file %s", kRadioFile);
    int32_t disabled = 0;
    if (getInt(dict, "measurementDisabled", &disabled, 0) != 0)
        return fail(ORUSDK_RC_KEY_READ, "Unable to read measurementDisabled from config file %s",
                    kRadioFile);
    param->enable = disabled == 1 ? 0 : 1;
    return ORUSDK_RC_OK;
}

uint32_t oruSdkSetBgScanning(OruSdkRadioSwitchParam *param)
{
    if (param == nullptr) return fail(ORUSDK_RC_NULL_POINTER, "NULL pointer");
    if (param->radioIndex >= kRadios)
        return fail(ORUSDK_RC_RADIO_ID, "Invalid radio ID: %d", param->radioIndex);
    if (param->enable > 1)
        return fail(ORUSDK_RC_BG_SCANNING, "Invalid bgScanningEnable: %d", param->enable);
    const Dict dict{kRadioFile};
    if (!dict) return fail(ORUSDK_RC_FILE_READ, "Unable to read WSM Defaults file %s", kRadioFile);
    if (param->enable == 0) {
        int32_t periodicDfs = 0;
        if (getInt(dict, "periodicDfsFlag", &periodicDfs, 0) != 0)
            return fail(ORUSDK_RC_KEY_READ, "Failed to read periodicDfsFlag from config file %s",
                        kRadioFile);
        if (periodicDfs == 1)
            return fail(ORUSDK_RC_PERIODIC_DFS, "Periodic DFS must not be enabled");
    }
    // Both radios share this key, which says the opposite of what the record says: intended.
    if (setString(dict, "measurementDisabled", param->enable == 0 ? "1" : "0") != 0)
        return fail(ORUSDK_RC_DICT_WRITE, "Unable to write measurementDisabled to dictionary");
    return saveRadioFile(dict);
}

uint32_t oruSdkGetSbsParams(int32_t radioIndex, uint32_t *threshold, uint32_t *counter)
{
    // The radio is checked before the pointers here: intended.
    if (static_cast<uint32_t>(radioIndex) >= kRadios)
        return fail(ORUSDK_RC_RADIO_ID, "Invalid radio ID: %d", radioIndex);
    if (threshold == nullptr || counter == nullptr)
        return fail(ORUSDK_RC_NULL_POINTER, "NULL pointer");
    const Dict dict{kRadioFile};
    if (!dict) return fail(ORUSDK_RC_FILE_READ, "Unable to read WSM Defaults file %s", kRadioFile);
    int32_t value = 0;
    if (getInt(dict, Key{"radio%d.sbsThreshold", radioIndex}, &value, 1) != 0) {
        logWarning("Unable to read mixedIeMode from dictionary, using 1"); // another key: intended
        value = 1;
    }
    *threshold = static_cast<uint32_t>(value);
    if (getInt(dict, Key{"radio%d.sbsCounter", radioIndex}, &value, 0) != 0)
        return fail(ORUSDK_RC_KEY_READ, "Unable to read sbsCounter from config file %s",
                    kRadioFile);
    *counter = static_cast<uint32_t>(value);
    return ORUSDK_RC_OK;
}

uint32_t oruSdkSetSbsParams(int32_t radioIndex, uint32_t threshold, uint32_t counter)
{
    if (static_cast<uint32_t>(radioIndex) >= kRadios)
        return fail(ORUSDK_RC_RADIO_ID, "Invalid radio ID: %d", radioIndex);
    const Dict dict{kRadioFile};
    if (!dict) return fail(ORUSDK_RC_FILE_READ, "Unable to read WSM Defaults file %s", kRadioFile);
    // The texts of both writes name another key, and that of the save another file: intended.
    if (setString(dict, Key{"radio%d.sbsThreshold", radioIndex}, Number{threshold}) != 0)
        return fail(ORUSDK_RC_DICT_WRITE, "Unable to write BpPskFlag to dictionary");
    if (setString(dict, Key{"radio%d.sbsCounter", radioIndex}, Number{counter}) != 0)
        return fail(ORUSDK_RC_DICT_WRITE, "Unable to write BpPskFlag to dictionary");
    if (oruAsfDictSave(dict, kRadioFile) != 0)
        return fail(ORUSDK_RC_FILE_WRITE, "Unable to write WSM Defaults file %s", kSecurityFile);
    return ORUSDK_RC_OK;
}

} // extern "C"
