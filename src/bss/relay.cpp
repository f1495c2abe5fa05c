// What a BSS shows and passes on: the broadcast of its SSID, traffic among its stations, and
// traffic among the BSSes of a radio.
#include "core/dict.hpp"
#include "core/key.hpp"
#include "core/log.hpp"
#include "core/store.hpp"
#include "oruSdk.h"

namespace oru {
namespace {

constexpr const char kSuppressSsid[] = "bss%d.suppressSSIDFlag";

/// Neither the index nor the value is checked: intended.
uint32_t setRelay(Key key, int32_t value)
{
    const Dict dict{kRadioFile};
    if (!dict) return fail(ORUSDK_RC_FILE_READ, "Unable to read WSM Defaults file %s", kRadioFile);
    if (setString(dict, key, Number{value}) != 0) // names another key: intended
        return fail(ORUSDK_RC_DICT_WRITE, "Unable to write fixedRate to dictionary");
    return saveRadioFile(dict);
}

} // namespace
} // namespace oru

using namespace oru;

extern "C" {

uint32_t oruSdkSetSuppressSsid(OruSdkSuppressSsidParam *param)
{
    if (param == nullptr) return fail(ORUSDK_RC_NULL_POINTER, "NULL pointer");
    if (param->bssIndex >= kBsses)
        return fail(ORUSDK_RC_BSS_NUMBER, "Invalid bss number : %d", param->bssIndex);
    const Key key{kSuppressSsid, static_cast<int32_t>(param->bssIndex)};
    if (param->suppress > 1) // the code speaks of the administrative status: intended
        return fail(ORUSDK_RC_OPTION, "Invalid Activation Flag %d for %s", param->suppress, key);
    const Dict dict{kRadioFile};
    if (!dict) return fail(ORUSDK_RC_FILE_READ, "Unable to read WSM Defaults file %s", kRadioFile);
    if (setString(dict, key, Number{param->suppress}) != 0)
        return fail(ORUSDK_RC_DICT_WRITE, "Unable to write %s to dictionary", key);
    return saveRadioFile(dict);
}

uint32_t oruSdkGetSuppressSsid(OruSdkSuppressSsidParam *param)
{
    if (param == nullptr) return fail(ORUSDK_RC_NULL_POINTER, "NULL pointer");
    if (param->bssIndex >= kBsses)
        return fail(ORUSDK_RC_BSS_NUMBER, "Invalid bss number ID: %d", param->bssIndex);
    const Dict dict{kRadioFile};
    if (!dict) return fail(ORUSDK_RC_FILE_READ, "Unable to read WSM Defaults file %s", kRadioFile);
    const Key key{kSuppressSsid, static_cast<int32_t>(param->bssIndex)};
    int32_t value = 0;
    if (getInt(dict, key, &value, 0) != 0)
        return fail(ORUSDK_RC_KEY_READ, "Unable to read %s from config file %s", key, kRadioFile);
    param->suppress = static_cast<uint32_t>(value);
    return ORUSDK_RC_OK;
}

uint32_t oruSdkSetIntraBss(int32_t bssIndex, int32_t value)
{
    return setRelay(Key{"bss%d.IntraBSS", bssIndex}, value);
}

uint32_t oruSdkGetIntraBss(int32_t bssIndex, uint32_t *value)
{
    if (value == nullptr) return fail(ORUSDK_RC_NULL_POINTER, "NULL pointer");
    const Dict dict{kRadioFile};
    if (!dict) return fail(ORUSDK_RC_FILE_READ, "Unable to read WSM Defaults file %s", kRadioFile);
    int32_t stored = 0;
    // The support library's status goes to the caller instead of a return code: intended.
    if (const int32_t status = getInt(dict, Key{"bss%d.IntraBSS", bssIndex}, &stored, 0);
        status != 0)
        return fail(static_cast<uint32_t>(status),
                    "Unable to read intra Bss status from config file %s", kRadioFile);
    *value = static_cast<uint32_t>(stored);
    return ORUSDK_RC_OK;
}

uint32_t oruSdkSetInterBss(int32_t radioIndex, int32_t value)
{
    return setRelay(Key{"InterBSS.radio%d", radioIndex}, value);
}

uint32_t oruSdkGetInterBss(int32_t radioIndex, uint32_t *value)
{
    if (value == nullptr) return fail(ORUSDK_RC_NULL_POINTER, "NULL pointer");
    const Dict dict{kRadioFile};
    if (!dict) return fail(ORUSDK_RC_FILE_READ, "Unable to read WSM Defaults file %s", kRadioFile);
    int32_t stored = 0;
    // The support library's status, as above: intended.
    if (const int32_t status = getInt(dict, Key{"InterBSS.radio%d", radioIndex}, &stored, 0);
        status != 0)
        return fail(static_cast<uint32_t>(status),
                    "Unable to read inter Bss status from config file");
    *value = static_cast<uint32_t>(stored);
    return ORUSDK_RC_OK;
}

} // extern "C"
