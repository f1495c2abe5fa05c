// World mode: multi-domain operation, and the country.
#include "core/dict.hpp"
#include "core/log.hpp"
#include "core/store.hpp"
#include "oruSdk.h"
#include "radio/radioinfo.hpp"

using namespace oru;

extern "C" {

uint32_t oruSdkGetWorldMode(OruSdkWorldModeParam *param)
{
    constexpr int32_t kConfigured = 1;

    if (param == nullptr) return fail(ORUSDK_RC_NULL_POINTER, "NULL pointer");
    const Dict dict{kRadioFile};
    if (!dict) return fail(ORUSDK_RC_FILE_READ, "Unable to read WSM Defaults file %s", kRadioFile);
    int32_t support = 0;
    if (getInt(dict, "worldModeSupport", &support, 0) != 0)
        return fail(ORUSDK_RC_KEY_READ, "Unable to read worldModeSupport from config file %s",
                    kRadioFile);
    param->worldModeSupport = static_cast<uint32_t>(support);
    int32_t source = 0;
    if (getInt(dict, "countryCodeFlag", &source, 0) != 0)
        return fail(ORUSDK_RC_KEY_READ, "Unable to read countryCodeFlag from config file %s",
                    kRadioFile);

    char radioCountry[3] = {};
    const char *country = "";
    if (source == kConfigured) {
        if (getDelimitedString(dict, "countryCode", &country, 0) < 0)
            return fail(ORUSDK_RC_KEY_READ, "Unable to read country code from config file %s",
                        kRadioFile);
    } else {
        if (const uint32_t code = getRadioCountryCode(0, radioCountry); code != 0)
            return fail(code, "getRadioCountryCode() failed");
        country = radioCountry;
    }
    // Two letters at most; the third, of the environment, is dropped: intended.
    param->countryCode[0] = country[0];
    param->countryCode[1] = country[0] == '\0' ? '\0' : country[1];
    param->countryCode[2] = '\0';
    return ORUSDK_RC_OK;
}

uint32_t oruSdkSetWorldMode(OruSdkWorldModeParam *param)
{
    if (param == nullptr) return fail(ORUSDK_RC_NULL_POINTER, "NULL pointer");
    if (param->worldModeSupport >= 2)
        return fail(ORUSDK_RC_MULTI_DOMAIN, "Invalid multiDomainEnabled input");
    const Dict dict{kRadioFile};
    if (!dict) return fail(ORUSDK_RC_FILE_READ, "Unable to read WSM Defaults file %s", kRadioFile);
    if (setString(dict, "worldModeSupport", Number{param->worldModeSupport}) != 0)
        return fail(ORUSDK_RC_DICT_WRITE, "Unable to write worldModeSupport to dictionary");
    return saveRadioFile(dict);
}

} // extern "C"
