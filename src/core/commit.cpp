// Commit: checks the security configuration and tells the services to reload.
#include "core/dict.hpp"
#include "core/key.hpp"
#include "core/log.hpp"
#include "core/messages.hpp"
#include "core/store.hpp"
#include "oruSdk.h"

namespace oru {
namespace {

constexpr uint16_t kWsmReload = 268;
constexpr uint16_t kAaReload = 10498;
constexpr int32_t kRadiusServers = 3;

/// A BSS with WPA needs an authentication type and what belongs to it.
uint32_t checkWpa(OruAsfDict *dict, int32_t bss)
{
    constexpr int32_t kRadius = 0;
    constexpr int32_t kPreSharedKey = 1;
    int32_t auth = 0;
    if (getInt(dict, Key{"bss%d.wpaAuthTypes", bss}, &auth, 0) == -1)
        return fail(ORUSDK_RC_AUTH_TYPE_MISSING, "Unable to read wpaAuthTypes from dictionary");
    int32_t encryption = 0;
    if (getInt(dict, Key{"bss%d.wpaEncTypes", bss}, &encryption, 0) == -1)
        return fail(ORUSDK_RC_ENC_TYPE_MISSING, "Unable to read wpaEncTypes from dictionary");
    int32_t mixedIe = 0;
    if (getInt(dict, Key{"bss%d.mixedIeMode", bss}, &mixedIe, 1) == -1)
        logWarning("Unable to read mixedIeMode from dictionary, set to 1");
    const char *psk = nullptr;
    if (auth == kPreSharedKey && getDelimitedString(dict, Key{"bss%d.wpaPsk", bss}, &psk, 0) < 0)
        return fail(ORUSDK_RC_PSK_MISSING, "Unable to read wpaPsk from dictionary");
    if (auth == kRadius && !sdkRadiusServerConfigured(dict, kRadiusServers))
        return fail(ORUSDK_RC_NO_RADIUS_SERVER, "No RADIUS servers have been configured");
    return ORUSDK_RC_OK;
}

uint32_t checkBss(OruAsfDict *dict, int32_t bss)
{
    int32_t open = 0;
    if (getBool(dict, Key{"bss%d.openAccessEnabled", bss}, &open, 0) != 0)
        return fail(ORUSDK_RC_DICT_READ, "Unable to read openAccessEnabled dictionary");
    int32_t wpa = 0;
    if (getBool(dict, Key{"bss%d.wpaEnabled", bss}, &wpa, 0) != 0)
        return fail(ORUSDK_RC_DICT_READ, "Unable to read wpaEnabled from dictionary");
    int32_t wep = 0;
    if (getBool(dict, Key{"bss%d.wepEnabled", bss}, &wep, 0) != 0)
        return fail(ORUSDK_RC_DICT_READ, "Unable to read wepEnabled from dictionary");
    int32_t dynamicWep = 0;
    // Everywhere else the key is "dynamicWepEnabled"; this check has always read this one.
    if (getBool(dict, Key{"bss%d.dynWepEnabled", bss}, &dynamicWep, 0) != 0) {
        logWarning("Unable to read dynamicWepEnabled from dictionary, set to 0");
        dynamicWep = 0;
    }

    if (open == 0 && wpa == 0 && dynamicWep == 0 && wep == 0)
        return fail(ORUSDK_RC_NO_SECURITY_MODE, "No security mode set");
    if (wpa == 1)
        if (const uint32_t code = checkWpa(dict, bss); code != 0) return code;
    if (dynamicWep == 1 && !sdkRadiusServerConfigured(dict, kRadiusServers))
        return fail(ORUSDK_RC_NO_RADIUS_SERVER, "No RADIUS servers have been configured");
    return ORUSDK_RC_OK;
}

uint32_t checkEveryBss()
{
    const Dict dict{kSecurityFile};
    if (!dict)
        return fail(ORUSDK_RC_FILE_READ, "Unable to read AA Defaults file %s", kSecurityFile);
    for (int32_t bss = 0; bss < static_cast<int32_t>(kBsses); ++bss)
        if (const uint32_t code = checkBss(dict, bss); code != 0) return code;
    return ORUSDK_RC_OK;
}

/// Tells AA to reload. What fails is logged and changes nothing: intended.
void notifyAa()
{
    Connection aa;
    if (aa.open(authPort) != 0) return;
    Request request;
    aa.send(request.finish(kAaReload));
}

} // namespace
} // namespace oru

using namespace oru;

extern "C" {

uint32_t oruSdkCommitRadio()
{
    sdkSendWsmRequest(kWsmReload); // the caller is never told whether WSM heard it: intended
    return ORUSDK_RC_OK;
}

uint32_t oruSdkCommitAll()
{
    if (const uint32_t code = checkEveryBss(); code != 0) return code;
    notifyAa();
    sdkSendWsmRequest(kWsmReload);
    return ORUSDK_RC_OK;
}

} // extern "C"
