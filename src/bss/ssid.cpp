// The SSID of a BSS, which both files hold.
#include "core/dict.hpp"
#include "core/key.hpp"
#include "core/log.hpp"
#include "core/store.hpp"
#include "oruSdk.h"

#include <string.h>

namespace oru {
namespace {

constexpr size_t kSsidLength = 32;
constexpr int32_t kNotConfigured = 1; // WPS state: the BSS still has its factory settings

/// A BSS whose SSID is set counts as configured. In the dictionary alone: the caller saves.
uint32_t leaveUnconfiguredState(OruAsfDict *wsm, int32_t bss)
{
    const Key key{"bss%d.wpsstate", bss};
    int32_t state = 0;
    if (getInt(wsm, key, &state, 0) != 0 || state != kNotConfigured) return ORUSDK_RC_OK;
    if (setString(wsm, key, "2") != 0)
        return fail(ORUSDK_RC_DICT_WRITE, "Unable to write wpsstate to dictionary");
    return ORUSDK_RC_OK;
}

} // namespace
} // namespace oru

using namespace oru;

extern "C" {

uint32_t oruSdkSetSsid(int32_t bssIndex, const char *ssid)
{
    // The WPS state comes before the arguments are looked at: intended.
    Dict wsm{kRadioFile};
    if (!wsm) return fail(ORUSDK_RC_FILE_READ, "Unable to read WSM Defaults file %s", kRadioFile);
    if (const uint32_t code = leaveUnconfiguredState(wsm, bssIndex); code != 0) return code;
    if (ssid == nullptr) {
        wsm.keepOpen(); // intended
        return fail(ORUSDK_RC_NULL_POINTER, "NULL pointer");
    }
    if (bssIndex > 3) { // a negative number passes and forms its keys with the sign: intended
        wsm.keepOpen(); // intended
        return fail(ORUSDK_RC_BSS_NUMBER, "Invalid bss number ID: %d", bssIndex);
    }

    char text[kSsidLength + 1] = {}; // a longer SSID is cut
    memcpy(text, ssid, strnlen(ssid, kSsidLength));
    const Key key{"bss%d.ssId", bssIndex};
    if (setDelimitedString(wsm, key, text) != 0)
        return fail(ORUSDK_RC_DICT_WRITE, "Unable to write ssId to dictionary");
    const Dict aa{kSecurityFile};
    if (!aa) return fail(ORUSDK_RC_FILE_READ, "Unable to read AA Defaults file %s", kSecurityFile);
    if (setDelimitedString(aa, key, text) != 0)
        return fail(ORUSDK_RC_DICT_WRITE, "Unable to write ssid to dictionary");

    if (const uint32_t code = saveRadioFile(wsm); code != 0) return code;
    if (oruAsfDictSave(aa, kSecurityFile) != 0) // names the first file: intended
        return fail(ORUSDK_RC_FILE_WRITE, "Unable to write AA Defaults file %s", kRadioFile);
    return ORUSDK_RC_OK;
}

uint32_t oruSdkGetSsid(int32_t bssIndex, char ssid[33], uint32_t *length)
{
    if (ssid == nullptr || length == nullptr) return fail(ORUSDK_RC_NULL_POINTER, "NULL pointer");
    // A negative number passes: intended.
    if (bssIndex > 3) return fail(ORUSDK_RC_BSS_NUMBER, "Invalid bss number ID: %d", bssIndex);
    const Dict dict{kRadioFile};
    if (!dict) return fail(ORUSDK_RC_FILE_READ, "Unable to read WSM Defaults file %s", kRadioFile);

    const char *stored = nullptr;
    const int32_t size = getDelimitedString(dict, Key{"bss%d.ssId", bssIndex}, &stored, 0);
    if (size < 0 || stored == nullptr) // names the other file: intended
        return fail(ORUSDK_RC_KEY_READ, "Unable to read ssid from config file %s", kSecurityFile);
    if (size > static_cast<int32_t>(kSsidLength))
        return fail(ORUSDK_RC_SSID_LENGTH, "Invalid SSID length: %d", size);
    const size_t copied = strnlen(stored, static_cast<size_t>(size));
    memcpy(ssid, stored, copied);
    ssid[copied] = '\0';
    ssid[kSsidLength] = '\0';
    *length = static_cast<uint32_t>(size);
    return ORUSDK_RC_OK;
}

} // extern "C"
