#include "core/store.hpp"

#include "core/log.hpp"

namespace oru {

uint32_t sdkOpenRadioDefaults(const OruSdkOptionParam *param, Key key, uint32_t min, uint32_t max,
                              Dict &dict)
{
    if (param == nullptr) return fail(ORUSDK_RC_NULL_POINTER, "NULL pointer");
    if (param->radioIndex >= kRadios)
        return fail(ORUSDK_RC_RADIO_ID, "Invalid radio ID: %d", param->radioIndex);
    // One code for every option, whose text speaks of the administrative status: callers compare
    // it.
    if (min != max && (param->featureOptions < min || param->featureOptions > max))
        return fail(ORUSDK_RC_OPTION, "Invalid feature option %d for %s", param->featureOptions,
                    key);
    dict = Dict{kRadioFile};
    if (!dict) return fail(ORUSDK_RC_FILE_READ, "Unable to read WSM Defaults file %s", kRadioFile);
    return ORUSDK_RC_OK;
}

uint32_t sdkDictReadInt(OruSdkOptionParam *param, Key key, Dict dict)
{
    int32_t value = 0;
    if (getInt(dict, key, &value, 0) != 0)
        return fail(ORUSDK_RC_KEY_READ, "Unable to read %s from config file %s", key, kRadioFile);
    param->featureOptions = static_cast<uint32_t>(value);
    return ORUSDK_RC_OK;
}

uint32_t sdkDictWriteAndSave(const OruSdkOptionParam *param, Key key, Dict dict)
{
    if (setString(dict, key, Number{param->featureOptions}) != 0)
        return fail(ORUSDK_RC_DICT_WRITE, "Unable to write featureOptions %d to dictionary",
                    param->featureOptions);
    return saveRadioFile(dict);
}

uint32_t sdkGetRadioFeature(OruSdkFeatureParam *param, Key key)
{
    if (param == nullptr) return fail(ORUSDK_RC_NULL_POINTER, "NULL pointer");
    if (param->radioIndex >= kRadios)
        return fail(ORUSDK_RC_RADIO_ID, "Invalid radio ID: %d", param->radioIndex);
    const Dict dict{kRadioFile};
    if (!dict) return fail(ORUSDK_RC_FILE_READ, "Unable to read WSM Defaults file %s", kRadioFile);
    int32_t value = 0;
    if (getInt(dict, key, &value, 0) != 0)
        return fail(ORUSDK_RC_KEY_READ, "Unable to read %s from config file %s", key, kRadioFile);
    param->activationFlag = static_cast<uint32_t>(value);
    return ORUSDK_RC_OK;
}

uint32_t sdkSetRadioFeature(const OruSdkFeatureParam *param, Key key)
{
    if (param == nullptr) return fail(ORUSDK_RC_NULL_POINTER, "NULL pointer");
    if (param->radioIndex >= kRadios)
        return fail(ORUSDK_RC_RADIO_ID, "Invalid radio ID: %d", param->radioIndex);
    if (param->activationFlag > 1)
        return fail(ORUSDK_RC_OPTION, "Invalid Activation Flag %d for %s", param->activationFlag,
                    key);
    const Dict dict{kRadioFile};
    if (!dict) return fail(ORUSDK_RC_FILE_READ, "Unable to read WSM Defaults file %s", kRadioFile);
    if (setString(dict, key, Number{param->activationFlag}) != 0)
        return fail(ORUSDK_RC_DICT_WRITE, "Unable to write %s to dictionary", key);
    return saveRadioFile(dict);
}

uint32_t saveRadioFile(OruAsfDict *dict, int32_t line)
{
    if (oruAsfDictSave(dict, kRadioFile) == 0) return ORUSDK_RC_OK;
    return detail::failLine<const char *>(ORUSDK_RC_FILE_WRITE, line,
                                          "Unable to write WSM Defaults file %s", kRadioFile);
}

uint32_t saveSecurityFile(OruAsfDict *dict, int32_t line)
{
    if (oruAsfDictSave(dict, kSecurityFile) == 0) return ORUSDK_RC_OK;
    return detail::failLine<const char *>(ORUSDK_RC_FILE_WRITE, line,
                                          "Unable to write AA Defaults file %s", kSecurityFile);
}

bool sdkRadiusServerConfigured(OruAsfDict *dict, int32_t serverCount)
{
    if (serverCount < 1) return false;
    // Only the first server is looked at, whatever the count: intended. The status says nothing
    // here.
    const char *server = nullptr;
    getString(dict, "radiusServer.1", &server, 0);
    return server != nullptr;
}

uint32_t getOption(OruSdkOptionParam *param, const char *pattern)
{
    const Key key = radioKey(pattern, param);
    Dict dict;
    if (const uint32_t code = sdkOpenRadioDefaults(param, key, 0, 0, dict); code != 0) return code;
    return sdkDictReadInt(param, key, std::move(dict));
}

uint32_t setOption(const OruSdkOptionParam *param, const char *pattern, uint32_t min, uint32_t max)
{
    const Key key = radioKey(pattern, param);
    Dict dict;
    if (const uint32_t code = sdkOpenRadioDefaults(param, key, min, max, dict); code != 0)
        return code;
    return sdkDictWriteAndSave(param, key, std::move(dict));
}

} // namespace oru
