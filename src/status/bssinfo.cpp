// Summary of one BSS from the configuration files, with the checks that a commit makes of it.
#include "core/dict.hpp"
#include "core/key.hpp"
#include "core/log.hpp"
#include "core/store.hpp"
#include "oruSdk.h"

#include <cstddef>
#include <cstring>

static_assert(sizeof(OruSdkBssInfoParam) == 56);
static_assert(offsetof(OruSdkBssInfoParam, bssIndex) == 0);
static_assert(offsetof(OruSdkBssInfoParam, ssid) == 4 && sizeof OruSdkBssInfoParam{}.ssid == 33);
static_assert(offsetof(OruSdkBssInfoParam, suppressSsid) == 40);
static_assert(offsetof(OruSdkBssInfoParam, securityMode) == 44);

namespace oru {
namespace {

constexpr int32_t kLastBss = 3;
constexpr int32_t kSsidLength = 32;
constexpr int32_t kRadiusServers = 3;

/// The security of a BSS as it is stored.
struct Security {
    int32_t open = 0;
    int32_t wpa = 0;
    int32_t wep = 0;
    int32_t dynamicWep = 0;
    int32_t mixedIe = 0;
};

uint32_t readIdentity(OruAsfDict *wsm, OruSdkBssInfoParam *param)
{
    const char *ssid = nullptr;
    const int32_t length = getDelimitedString(wsm, Key{"bss%d.ssId", param->bssIndex}, &ssid, 0);
    if (length < 0 || ssid == nullptr)
        return fail(ORUSDK_RC_KEY_READ, "Unable to read ssid from config file %s", kRadioFile);
    if (length > kSsidLength) return fail(ORUSDK_RC_SSID_LENGTH, "Invalid SSID length: %d", length);
    std::strncpy(param->ssid, ssid, kSsidLength);
    param->ssid[kSsidLength] = '\0';

    const Key suppress{"bss%d.suppressSSIDFlag", param->bssIndex};
    int32_t value = 0;
    if (getInt(wsm, suppress, &value, 0) != 0)
        return fail(ORUSDK_RC_KEY_READ, "Unable to read %s from config file %s", suppress,
                    kRadioFile);
    param->suppressSsid = static_cast<uint32_t>(value);
    return ORUSDK_RC_OK;
}

uint32_t readFlags(OruAsfDict *aa, int32_t bss, Security &security)
{
    if (getBool(aa, Key{"bss%d.openAccessEnabled", bss}, &security.open, 0) != 0)
        return fail(ORUSDK_RC_DICT_READ, "Unable to read openAccessEnabled dictionary");
    if (getBool(aa, Key{"bss%d.wpaEnabled", bss}, &security.wpa, 0) != 0)
        return fail(ORUSDK_RC_DICT_READ, "Unable to read wpaEnabled from dictionary");
    if (getBool(aa, Key{"bss%d.wepEnabled", bss}, &security.wep, 0) != 0)
        return fail(ORUSDK_RC_DICT_READ, "Unable to read wepEnabled from dictionary");
    if (getBool(aa, Key{"bss%d.dynamicWepEnabled", bss}, &security.dynamicWep, 0) != 0) {
        logWarning("Unable to read dynamicWepEnabled from dictionary, set to 0");
        security.dynamicWep = 0;
    }
    return ORUSDK_RC_OK;
}

uint32_t readWpa(OruAsfDict *aa, int32_t bss, Security &security)
{
    constexpr int32_t kRadius = 0;
    int32_t auth = 0;
    if (getInt(aa, Key{"bss%d.wpaAuthTypes", bss}, &auth, 0) == -1)
        return fail(ORUSDK_RC_AUTH_TYPE_MISSING, "Unable to read wpaAuthTypes from dictionary");
    int32_t encryption = 0;
    if (getInt(aa, Key{"bss%d.wpaEncTypes", bss}, &encryption, 0) == -1)
        return fail(ORUSDK_RC_ENC_TYPE_MISSING, "Unable to read wpaEncTypes from dictionary");
    if (getInt(aa, Key{"bss%d.mixedIeMode", bss}, &security.mixedIe, 1) == -1) {
        logWarning("Unable to read mixedIeMode from dictionary, set to 1");
        security.mixedIe = 1;
    }
    if (auth == kRadius && !sdkRadiusServerConfigured(aa, kRadiusServers))
        return fail(ORUSDK_RC_NO_RADIUS_SERVER, "No RADIUS servers have been configured");
    return ORUSDK_RC_OK;
}

uint32_t readSecurity(OruAsfDict *aa, int32_t bss, Security &security)
{
    if (const uint32_t code = readFlags(aa, bss, security); code != 0) return code;
    if (security.wpa == 1)
        if (const uint32_t code = readWpa(aa, bss, security); code != 0) return code;
    if (security.dynamicWep == 1 && !sdkRadiusServerConfigured(aa, kRadiusServers))
        return fail(ORUSDK_RC_NO_RADIUS_SERVER, "No RADIUS servers have been configured");
    return ORUSDK_RC_OK;
}

/// The mode as callers show it, blanks and capitals included; NULL with dynamic WEP alone.
const char *modeText(const Security &security)
{
    if (security.open == 1) return "OPEN Mode";
    if (security.wep == 1) return "WEP Mode";
    if (security.wpa != 1) return nullptr;
    switch (security.mixedIe) {
    case 1: return "WPA ";
    case 2: return "WPA2 ";
    case 3: return "WPA + WPA2 ";
    default: return "UnKNown";
    }
}

} // namespace
} // namespace oru

using namespace oru;

extern "C" {

uint32_t oruSdkGetBssInfoParam(OruSdkBssInfoParam *param)
{
    if (param == nullptr) return fail(ORUSDK_RC_NULL_POINTER, "NULL pointer");
    if (param->bssIndex > kLastBss) // a negative number passes and forms its keys: intended
        return fail(ORUSDK_RC_BSS_NUMBER, "Invalid bss number ID: %d", param->bssIndex);

    const Dict aa{kSecurityFile};
    if (!aa) return fail(ORUSDK_RC_FILE_READ, "Unable to read AA Defaults file %s", kSecurityFile);
    const Dict wsm{kRadioFile};
    if (!wsm) return fail(ORUSDK_RC_FILE_READ, "Unable to read WSM Default file %s", kRadioFile);
    if (const uint32_t code = readIdentity(wsm, param); code != 0) return code;
    Security security;
    if (const uint32_t code = readSecurity(aa, param->bssIndex, security); code != 0) return code;
    if (const char *text = modeText(security); text != nullptr)
        std::memcpy(param->securityMode, text, std::strlen(text) + 1);
    return ORUSDK_RC_OK;
}

} // extern "C"
