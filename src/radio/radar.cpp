// Radar detection, and the list of channels on which radar was seen.
#include "core/dict.hpp"
#include "core/key.hpp"
#include "core/log.hpp"
#include "core/store.hpp"
#include "oruSdk.h"
#include "radio/channels.hpp"

using namespace oru;

namespace {

constexpr const char kRadarFile[] = "/config/wsmSavedRadarDetectList";

} // namespace

extern "C" {

uint32_t oruSdkGetRadarDetect(OruSdkFeatureParam *param)
{
    return sdkGetRadioFeature(param, radioKey("radio%d.radarDetectFlag", param));
}

uint32_t oruSdkSetRadarDetect(OruSdkFeatureParam *param)
{
    if (param == nullptr) return fail(ORUSDK_RC_NULL_POINTER, "NULL pointer");
    if (param->radioIndex >= kRadios) return fail(ORUSDK_RC_RADIO_ID, "Invalid radio ID");
    const int32_t radio = param->radioIndex;
    const Key key{"radio%d.radarDetectFlag", radio};
    if (param->activationFlag >= 2)
        return fail(ORUSDK_RC_OPTION, "Invalid Activation Flag %d for %s", param->activationFlag,
                    key);
    const Dict dict{kRadioFile};
    if (!dict) return fail(ORUSDK_RC_FILE_READ, "Unable to read WSM Defaults file %s", kRadioFile);
    int32_t stored = 0;
    if (getInt(dict, key, &stored, 0) != 0)
        return fail(ORUSDK_RC_KEY_READ,
                    "Failed to read radio%d.radarDetectFlag flag from config file %s", radio,
                    kRadioFile);
    // Both refusals are silent: intended.
    if (static_cast<uint32_t>(stored) == param->activationFlag) return ORUSDK_RC_RADAR_UNCHANGED;
    int32_t channel = 0;
    if (getInt(dict, Key{"radio%d.configuredChannel", radio}, &channel, 0) != 0)
        return fail(ORUSDK_RC_KEY_READ,
                    "Failed to read radio%d.configuredChannel from config file %s", radio,
                    kRadioFile);
    if (isRadarChannel(static_cast<uint32_t>(channel))) return ORUSDK_RC_CONFIGURED_RADAR_CHANNEL;
    if (setString(dict, key, Number{param->activationFlag}) != 0)
        return fail(ORUSDK_RC_DICT_WRITE, "Unable to write %s to dictionary", key);
    return saveRadioFile(dict);
}

uint32_t oruSdkSetRdrPersistChan(const char *channels)
{
    if (channels == nullptr) return fail(ORUSDK_RC_NULL_POINTER, "NULL pointer");
    const Dict dict{kRadarFile};
    if (!dict) return fail(ORUSDK_RC_FILE_READ, "Unable to read Radar channel file %s", kRadarFile);
    if (setString(dict, "rdrChans", channels) != 0) // "rdrPersistChans": intended
        return fail(ORUSDK_RC_DICT_WRITE, "Unable to write rdrPersistChans to dictionary");
    if (oruAsfDictSave(dict, kRadarFile) != 0)
        return fail(ORUSDK_RC_FILE_WRITE, "Unable to write Radar channel file %s", kRadarFile);
    return ORUSDK_RC_OK;
}

} // extern "C"
