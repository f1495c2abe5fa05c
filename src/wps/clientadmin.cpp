// Client admission criteria: the SSID and BSSID that a client bridge is to join. The radio file and
// the security file both carry the SSID.
#include "core/dict.hpp"
#include "core/log.hpp"
#include "core/store.hpp"
#include "oruSdk.h"

#include <cstring>

namespace oru {
namespace {

constexpr size_t kLongestSsid = 32;
constexpr size_t kBssid = 17;

/// No SSID is stored as an empty one.
uint32_t writeSsid(OruAsfDict *wsm, OruAsfDict *aa, const char *ssid)
{
    if (ssid == nullptr) ssid = "";
    if (setDelimitedString(wsm, "wdsRulesSsId", ssid) != 0)
        return fail(ORUSDK_RC_DICT_WRITE, "Unable to write wdsRulesSsId to dictionary");
    if (setDelimitedString(aa, "ssid", ssid) != 0)
        return fail(ORUSDK_RC_DICT_WRITE, "Unable to write ssid to dictionary");
    return ORUSDK_RC_OK;
}

/// No BSSID is stored as a count of 0 and an address of zeros.
uint32_t writeBssid(OruAsfDict *wsm, const char *bssid)
{
    if (setString(wsm, "bssNum", bssid == nullptr ? "0" : "1") != 0)
        return fail(ORUSDK_RC_DICT_WRITE, "Unable to write bssNum to dictionary");
    if (setString(wsm, "bssId", bssid == nullptr ? "00:00:00:00:00:00" : bssid) != 0)
        return fail(ORUSDK_RC_DICT_WRITE, "Unable to write bssId to dictionary");
    return ORUSDK_RC_OK;
}

} // namespace
} // namespace oru

using namespace oru;

extern "C" {

uint32_t oruSdkSetClientAdminCrit(OruSdkClientAdminCritParam *param)
{
    if (param == nullptr) return fail(ORUSDK_RC_NULL_POINTER, "NULL pointer");
    if (param->radioIndex >= kRadios)
        return fail(ORUSDK_RC_RADIO_ID, "Invalid radio ID: %d", param->radioIndex);
    if (param->ssid != nullptr && ::strnlen(param->ssid, kLongestSsid + 1) > kLongestSsid)
        return fail(ORUSDK_RC_SSID_TEXT, "Invalid SSID: %s", param->ssid);
    if (param->bssid != nullptr && ::strnlen(param->bssid, kBssid + 1) != kBssid)
        return fail(ORUSDK_RC_BSSID_TEXT, "Invalid BSSID %s", param->bssid);

    const Dict wsm{kRadioFile};
    if (!wsm) return fail(ORUSDK_RC_FILE_READ, "Unable to read WSM Defaults file %s", kRadioFile);
    const Dict aa{kSecurityFile};
    if (!aa) return fail(ORUSDK_RC_FILE_READ, "Unable to read AA Defaults file %s", kSecurityFile);
    if (const uint32_t code = writeSsid(wsm, aa, param->ssid); code != 0) return code;
    if (const uint32_t code = writeBssid(wsm, param->bssid); code != 0) return code;
    if (const uint32_t code = saveRadioFile(wsm); code != 0) return code;
    // Names the radio file, which is saved by now and stays so: intended.
    if (oruAsfDictSave(aa, kSecurityFile) != 0)
        return fail(ORUSDK_RC_FILE_WRITE, "Unable to write AA Defaults file %s", kRadioFile);
    return ORUSDK_RC_OK;
}

uint32_t oruSdkGetClientAdminCrit(OruSdkClientAdminCritParam *param)
{
    if (param == nullptr) return fail(ORUSDK_RC_NULL_POINTER, "NULL pointer");
    if (param->radioIndex >= kRadios)
        return fail(ORUSDK_RC_RADIO_ID, "Invalid radio ID: %d", param->radioIndex);
    if (param->ssid == nullptr || param->bssid == nullptr)
        return fail(ORUSDK_RC_NULL_POINTER, "NULL pointer");

    const Dict dict{kRadioFile};
    if (!dict) return fail(ORUSDK_RC_FILE_READ, "Unable to read WSM Defaults file %s", kRadioFile);
    const char *ssid = nullptr;
    if (getDelimitedString(dict, "wdsRulesSsId", &ssid, 0) < 0 || ssid == nullptr)
        return fail(ORUSDK_RC_KEY_READ, "Unable to read wdsRulesSsId from config file %s",
                    kRadioFile);
    std::strncpy(param->ssid, ssid, kLongestSsid);
    param->ssid[kLongestSsid] = '\0';
    const char *bssid = nullptr;
    if (getString(dict, "bssId", &bssid, 0) == -1 || bssid == nullptr)
        return fail(ORUSDK_RC_KEY_READ, "Unable to read bssId from config file %s", kRadioFile);
    std::strncpy(param->bssid, bssid, kBssid);
    param->bssid[kBssid] = '\0';
    return ORUSDK_RC_OK;
}

} // extern "C"
