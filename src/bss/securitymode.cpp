// The security modes open access and WPA of a BSS. Switching a mode on is refused while another is
// on; switching it off never touches the others.
#include "core/dict.hpp"
#include "core/key.hpp"
#include "core/log.hpp"
#include "core/store.hpp"
#include "oruSdk.h"

namespace oru {
namespace {

constexpr int32_t kOnly11n = 9; // "dot11Mode"

uint32_t switchOpenOn(Dict &aa, Dict &wsm, int32_t bss)
{
    int32_t value = 0;
    if (getInt(wsm, "dot11Mode", &value, 0) != 0)
        return fail(ORUSDK_RC_KEY_READ, "Unable to read dot11Mode from config file");
    if (value == kOnly11n) {
        aa.keepOpen(); // both: intended
        wsm.keepOpen();
        return fail(ORUSDK_RC_SECURITY_MODE, "Open mode should not set since 11mode is 11n ONLY\n");
    }
    if (getBool(aa, Key{"bss%d.wepEnabled", bss}, &value, 0) != 0)
        return fail(ORUSDK_RC_DICT_READ, "Unable to read wepEnabledfrom dictionary");
    if (value != 0) return fail(ORUSDK_RC_WEP_ENABLED, "WEP must not be enabled");
    if (getBool(aa, Key{"bss%d.wpaEnabled", bss}, &value, 0) != 0)
        return fail(ORUSDK_RC_DICT_READ, "Unable to read wpaEnabled from dictionary");
    if (value != 0) return fail(ORUSDK_RC_WPA_ENABLED, "WPA must not be enabled");

    if (setString(aa, Key{"bss%d.openAccessEnabled", bss}, "true") != 0)
        return fail(ORUSDK_RC_DICT_WRITE, "Unable to write openAccessEnabled to dictionary");
    if (setString(wsm, Key{"bss%d.BpRSNFlag", bss}, "0") != 0)
        return fail(ORUSDK_RC_DICT_WRITE, "Unable to write BpRSNFlag to dictionary");
    return saveRadioFile(wsm);
}

uint32_t switchWpaOff(Dict &aa, Dict &wsm, int32_t bss)
{
    if (setString(aa, Key{"bss%d.wpaEnabled", bss}, "false") != 0)
        return fail(ORUSDK_RC_DICT_WRITE, "Unable to write wpaEnabled to dictionary");
    wsm.keepOpen(); // the file is opened again, and the first handle never freed: intended
    const Dict again{kRadioFile};
    if (!again) return fail(ORUSDK_RC_FILE_READ, "Unable to read WSM Defaults file %s", kRadioFile);
    if (setString(again, Key{"bss%d.BpRSNFlag", bss}, "0") != 0)
        return fail(ORUSDK_RC_DICT_WRITE, "Unable to write BpRSNFlag to dictionary");
    if (setString(again, Key{"bss%d.BpPskFlag", bss}, "0") != 0)
        return fail(ORUSDK_RC_DICT_WRITE, "Unable to write BpPskFlag to dictionary");
    if (const uint32_t code = saveRadioFile(again); code != 0) return code;
    return saveSecurityFile(aa);
}

struct Wpa {
    uint32_t mode;
    int32_t auth;
    uint32_t encryption;
};

/// The order decides which code a caller sees when several things are wrong.
uint32_t checkWpa(Dict &aa, Dict &wsm, int32_t bss, const Wpa &wpa)
{
    int32_t value = 0;
    if (getBool(aa, Key{"bss%d.openAccessEnabled", bss}, &value, 0) != 0)
        return fail(ORUSDK_RC_DICT_READ, "Unable to read openAccessEnabled dictionary");
    if (value != 0) return fail(ORUSDK_RC_OPEN_ENABLED, "OPEN must not be enabled");
    if (getBool(aa, Key{"bss%d.wepEnabled", bss}, &value, 0) != 0)
        return fail(ORUSDK_RC_DICT_READ, "Unable to read wepEnabledfrom dictionary");
    if (value != 0) return fail(ORUSDK_RC_WEP_ENABLED, "WEP must not be enabled");
    if (wpa.auth > 1) // a negative type passes: intended
        return fail(ORUSDK_RC_AUTH_TYPE, "Invalid authType %d", wpa.auth);
    if (wpa.encryption > 2) return fail(ORUSDK_RC_ENC_TYPE, "Invalid encType %d", wpa.encryption);
    if (getInt(wsm, "dot11Mode", &value, 0) != 0)
        return fail(ORUSDK_RC_KEY_READ, "Unable to read dot11Mode from config file");
    if (value == kOnly11n && wpa.encryption != 0) {
        aa.keepOpen(); // both: intended
        wsm.keepOpen();
        return fail(ORUSDK_RC_ENC_TYPE, "AES enc type should be set since 11mode is 11n ONLY\n");
    }
    return ORUSDK_RC_OK;
}

uint32_t switchWpaOn(Dict &aa, Dict &wsm, int32_t bss, const Wpa &wpa)
{
    if (const uint32_t code = checkWpa(aa, wsm, bss, wpa); code != 0) return code;

    if (setString(aa, Key{"bss%d.wpaEnabled", bss}, "true") != 0)
        return fail(ORUSDK_RC_DICT_WRITE, "Unable to write wpaEnabled to dictionary");
    if (setString(aa, Key{"bss%d.wpaAuthTypes", bss}, Number{wpa.auth}) != 0)
        return fail(ORUSDK_RC_DICT_WRITE, "Unable to write wpaAuthTypes to dictionary");
    if (setString(aa, Key{"bss%d.wpaEncTypes", bss}, Number{wpa.encryption}) != 0)
        return fail(ORUSDK_RC_DICT_WRITE, "Unable to write wpaEncTypes to dictionary");
    if (setString(aa, Key{"bss%d.mixedIeMode", bss}, Number{wpa.mode}) != 0)
        return fail(ORUSDK_RC_DICT_WRITE, "Unable to write mixedIeMode to dictionary");

    if (setString(wsm, Key{"bss%d.BpRSNFlag", bss}, Number{wpa.encryption + 1}) != 0)
        return fail(ORUSDK_RC_DICT_WRITE, "Unable to write BpRSNFlag to dictionary");
    if (setString(wsm, Key{"bss%d.BpPskFlag", bss}, Number{wpa.auth}) != 0)
        return fail(ORUSDK_RC_DICT_WRITE, "Unable to write BpPskFlag to dictionary");
    if (setString(wsm, Key{"bss%d.wpsstate", bss}, "2") != 0)
        return fail(ORUSDK_RC_DICT_WRITE, "Unable to write wpsstate to dictionary");

    if (const uint32_t code = saveRadioFile(wsm); code != 0) return code;
    return saveSecurityFile(aa);
}

} // namespace
} // namespace oru

using namespace oru;

extern "C" {

uint32_t oruSdkSetSecModeOpen(int32_t bssIndex, uint32_t enable)
{
    if (enable > 1) return fail(ORUSDK_RC_BOOLEAN, "Invalid BOOLEAN value %d", enable);
    // In this family a negative number passes and forms its keys with the sign: intended.
    if (bssIndex > 3) return fail(ORUSDK_RC_BSS_NUMBER, "Invalid bss number ID: %d", bssIndex);
    Dict aa{kSecurityFile};
    if (!aa) return fail(ORUSDK_RC_FILE_READ, "Unable to read AA Defaults file %s", kSecurityFile);
    Dict wsm{kRadioFile};
    if (!wsm) return fail(ORUSDK_RC_FILE_READ, "Unable to read WSM Defaults file %s", kRadioFile);

    if (enable == 1) {
        if (const uint32_t code = switchOpenOn(aa, wsm, bssIndex); code != 0) return code;
    } else if (setString(aa, Key{"bss%d.openAccessEnabled", bssIndex}, "false") != 0) {
        return fail(ORUSDK_RC_DICT_WRITE, "Unable to write openAccessEnabled to dictionary");
    }
    return saveSecurityFile(aa);
}

uint32_t oruSdkGetSecModeOpen(int32_t bssIndex, uint32_t *enabled)
{
    if (enabled == nullptr) return fail(ORUSDK_RC_NULL_POINTER, "NULL pointer");
    if (bssIndex > 3) return fail(ORUSDK_RC_BSS_NUMBER, "Invalid bss number ID: %d", bssIndex);
    const Dict aa{kSecurityFile};
    if (!aa) return fail(ORUSDK_RC_FILE_READ, "Unable to read AA Defaults file %s", kSecurityFile);
    int32_t value = 0;
    if (getBool(aa, Key{"bss%d.openAccessEnabled", bssIndex}, &value, 0) != 0)
        return fail(ORUSDK_RC_DICT_READ, "Unable to read openAccessEnabled from dictionary");
    *enabled = static_cast<uint32_t>(value);
    return ORUSDK_RC_OK;
}

uint32_t oruSdkSetSecModeWpa(int32_t bssIndex, uint32_t wpaMode, int32_t authType, uint32_t encType)
{
    if (wpaMode > 3) return fail(ORUSDK_RC_WPA_MODE, "Invalid WPA mode value %d", wpaMode);
    if (bssIndex > 3) return fail(ORUSDK_RC_BSS_NUMBER, "Invalid bss number ID: %d", bssIndex);
    Dict aa{kSecurityFile};
    if (!aa) return fail(ORUSDK_RC_FILE_READ, "Unable to read AA Defaults file %s", kSecurityFile);
    Dict wsm{kRadioFile};
    if (!wsm) return fail(ORUSDK_RC_FILE_READ, "Unable to read WSM Defaults file %s", kRadioFile);
    if (wpaMode == 0) return switchWpaOff(aa, wsm, bssIndex);
    return switchWpaOn(aa, wsm, bssIndex, {wpaMode, authType, encType});
}

uint32_t oruSdkGetSecModeWpa(int32_t bssIndex, uint32_t *wpaMode, uint32_t *authType,
                             uint32_t *encType)
{
    if (wpaMode == nullptr || authType == nullptr || encType == nullptr)
        return fail(ORUSDK_RC_NULL_POINTER, "NULL pointer");
    if (bssIndex > 3) return fail(ORUSDK_RC_BSS_NUMBER, "Invalid bss number ID: %d", bssIndex);
    const Dict aa{kSecurityFile};
    if (!aa) return fail(ORUSDK_RC_FILE_READ, "Unable to read AA Defaults file %s", kSecurityFile);
    int32_t value = 0;
    if (getBool(aa, Key{"bss%d.wpaEnabled", bssIndex}, &value, 0) != 0)
        return fail(ORUSDK_RC_DICT_READ, "Unable to read wpaEnabled from dictionary");
    if (value == 0) {
        *wpaMode = 0;
        return ORUSDK_RC_OK;
    }

    value = 0;
    if (getInt(aa, Key{"bss%d.mixedIeMode", bssIndex}, &value, 1) != 0) {
        logWarning("Unable to read mixedIeMode from dictionary, using 1");
        value = 1;
    }
    *wpaMode = static_cast<uint32_t>(value);
    value = 0;
    if (getInt(aa, Key{"bss%d.wpaAuthTypes", bssIndex}, &value, 0) != 0)
        return fail(ORUSDK_RC_KEY_READ, "Unable to read wpaAuthTypes from config file %s",
                    kSecurityFile);
    *authType = static_cast<uint32_t>(value);
    value = 0;
    if (getInt(aa, Key{"bss%d.wpaEncTypes", bssIndex}, &value, 0) != 0)
        return fail(ORUSDK_RC_KEY_READ, "Unable to read wpaEncTypes from config file %s",
                    kSecurityFile);
    *encType = static_cast<uint32_t>(value);
    return ORUSDK_RC_OK;
}

} // extern "C"
