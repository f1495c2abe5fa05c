// WPS settings of a BSS that are numbers: registrar, enforced PIN timeout, state and enable flag.
// Setters look at the value before the BSS; a negative BSS number passes and forms its key with the
// sign: both intended.
#include "core/dict.hpp"
#include "core/key.hpp"
#include "core/log.hpp"
#include "core/store.hpp"
#include "oruSdk.h"

namespace oru {
namespace {

constexpr int32_t kLastBss = 3;
constexpr uint32_t kLastRegistrar = 3;

/// Reads a number into the caller's; false when the key is missing.
bool readNumber(OruAsfDict *dict, Key key, uint32_t *number)
{
    int32_t value = 0;
    if (getInt(dict, key, &value, 0) != 0) return false;
    *number = static_cast<uint32_t>(value);
    return true;
}

} // namespace
} // namespace oru

using namespace oru;

extern "C" {

// ---- Registrar setting

uint32_t oruSdkGetRegistrarInfo(int32_t bssIndex, uint32_t *registrarInfo)
{
    if (bssIndex > kLastBss)
        return fail(ORUSDK_RC_BSS_NUMBER, "Invalid bss number ID: %d", bssIndex);
    if (registrarInfo == nullptr) return fail(ORUSDK_RC_NULL_POINTER, "NULL pointer");
    const Dict dict{kRadioFile};
    if (!dict) return fail(ORUSDK_RC_FILE_READ, "Unable to read WSM Defaults file %s", kRadioFile);
    if (!readNumber(dict, Key{"bss%d.registrarinfo", bssIndex}, registrarInfo))
        return fail(ORUSDK_RC_NOT_SET, "Unable to read registrarInfo from config file %s",
                    kRadioFile);
    return ORUSDK_RC_OK;
}

uint32_t oruSdkSetRegistrarInfo(OruSdkRegistrarParam *param)
{
    if (param == nullptr) return fail(ORUSDK_RC_NULL_POINTER, "NULL pointer");
    if (param->radioIndex >= kRadios) // checked, and not used further: intended
        return fail(ORUSDK_RC_RADIO_ID, "Invalid radio ID: %d", param->radioIndex);
    if (param->bssIndex > kLastBss)
        return fail(ORUSDK_RC_BSS_NUMBER, "Invalid bss number ID: %d", param->bssIndex);
    if (param->registrarInfo > kLastRegistrar)
        return fail(ORUSDK_RC_REGISTRAR, "Invalid Registrar setting %d", param->registrarInfo);

    const Dict dict{kRadioFile};
    if (!dict) return fail(ORUSDK_RC_FILE_READ, "Unable to read WSM Defaults file %s", kRadioFile);
    if (setString(dict, Key{"bss%d.registrarinfo", param->bssIndex},
                  Number{param->registrarInfo}) != 0) // an unfilled "%d": intended
        return fail(ORUSDK_RC_DICT_WRITE, "Unable to write radio%%d registrarInfo to dictionary");
    return saveRadioFile(dict);
}

// ---- Enforced PIN timeout

uint32_t oruSdkGetApEnforcePinTimeout(int32_t bssIndex, uint32_t *enforce)
{
    if (bssIndex > kLastBss)
        return fail(ORUSDK_RC_BSS_NUMBER, "Invalid bss number ID: %d", bssIndex);
    if (enforce == nullptr) return fail(ORUSDK_RC_NULL_POINTER, "NULL pointer");
    const Dict dict{kRadioFile};
    if (!dict) return fail(ORUSDK_RC_FILE_READ, "Unable to read WSM Defaults file %s", kRadioFile);
    if (!readNumber(dict, Key{"bss%d.enforcepintimeout", bssIndex}, enforce))
        return fail(ORUSDK_RC_KEY_READ, "Unable to read enforcepintimeout info from config file %s",
                    kRadioFile);
    return ORUSDK_RC_OK;
}

uint32_t oruSdkSetApEnforcePinTimeout(int32_t bssIndex, uint32_t enforce)
{
    if (enforce > 1) return fail(ORUSDK_RC_ARGUMENTS, "Invalid input %d", enforce);
    if (bssIndex > kLastBss)
        return fail(ORUSDK_RC_BSS_NUMBER, "Invalid bss number ID: %d", bssIndex);
    const Dict dict{kRadioFile};
    if (!dict) return fail(ORUSDK_RC_FILE_READ, "Unable to read wsm Defaults file %s", kRadioFile);
    // The key goes by another name here, with two blanks behind it: intended.
    if (setString(dict, Key{"bss%d.enforcepintimeout", bssIndex}, Number{enforce}) != 0)
        return fail(ORUSDK_RC_DICT_WRITE, "Unable to write enforcePinTimeout  to dictionary");
    return saveRadioFile(dict);
}

// ---- State

uint32_t oruSdkGetWscState(int32_t bssIndex, uint32_t *state)
{
    if (bssIndex > kLastBss)
        return fail(ORUSDK_RC_BSS_NUMBER, "Invalid bss number ID: %d", bssIndex);
    if (state == nullptr) return fail(ORUSDK_RC_NULL_POINTER, "NULL pointer");
    const Dict dict{kRadioFile};
    if (!dict) // names the other file: intended
        return fail(ORUSDK_RC_FILE_READ, "Unable to read WSM Defaults file %s", kSecurityFile);
    // A missing key says that the feature is off, and is no failure to log.
    return readNumber(dict, Key{"bss%d.wpsstate", bssIndex}, state) ? ORUSDK_RC_OK
                                                                    : ORUSDK_RC_NOT_SET;
}

uint32_t oruSdkSetWscState(int32_t bssIndex, uint32_t state)
{
    if (state < 1 || state > 2) return fail(ORUSDK_RC_ARGUMENTS, "Invalid input %d", state);
    if (bssIndex > kLastBss)
        return fail(ORUSDK_RC_BSS_NUMBER, "Invalid bss number ID: %d", bssIndex);
    const Dict dict{kRadioFile};
    if (!dict) return fail(ORUSDK_RC_FILE_READ, "Unable to read wsm Defaults file %s", kRadioFile);
    if (setString(dict, Key{"bss%d.wpsstate", bssIndex}, Number{state}) != 0)
        return fail(ORUSDK_RC_DICT_WRITE, "Unable to write wpsstate to dictionary");
    return saveRadioFile(dict);
}

// ---- Enable flag, which is AA's

uint32_t oruSdkGetWsc(int32_t bssIndex, uint32_t *enabled)
{
    if (bssIndex > kLastBss)
        return fail(ORUSDK_RC_BSS_NUMBER, "Invalid bss number ID: %d", bssIndex);
    if (enabled == nullptr) return fail(ORUSDK_RC_NULL_POINTER, "NULL pointer");
    const Dict dict{kSecurityFile};
    if (!dict) {
        logError("cannot create dict\n");
        return fail(ORUSDK_RC_FILE_READ, "Unable to read WSM Defaults file %s", kSecurityFile);
    }
    // A missing key says that the feature is off, and is no failure to log.
    return readNumber(dict, Key{"bss%d.wscEnabledFlag", bssIndex}, enabled) ? ORUSDK_RC_OK
                                                                            : ORUSDK_RC_NOT_SET;
}

uint32_t oruSdkSetWsc(int32_t bssIndex, uint32_t enabled)
{
    if (enabled > 1) return fail(ORUSDK_RC_ARGUMENTS, "Invalid input %d", enabled);
    if (bssIndex > kLastBss)
        return fail(ORUSDK_RC_BSS_NUMBER, "Invalid bss number ID: %d", bssIndex);
    const Dict dict{kSecurityFile};
    if (!dict)
        return fail(ORUSDK_RC_FILE_READ, "Unable to read AA Defaults file %s", kSecurityFile);
    if (setString(dict, Key{"bss%d.wscEnabledFlag", bssIndex}, Number{enabled}) != 0)
        return fail(ORUSDK_RC_DICT_WRITE, "Unable to write wscEnabledFlag to dictionary");
    return saveSecurityFile(dict);
}

} // extern "C"
