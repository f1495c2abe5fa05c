// Dynamic frequency selection: what guides WSM when it picks and re-picks channels. The keys belong
// to the device, not to a radio.
#include "core/dict.hpp"
#include "core/key.hpp"
#include "core/log.hpp"
#include "core/store.hpp"
#include "oruSdk.h"
#include "radio/channels.hpp"

namespace oru {
namespace {

/// Reads a number into a field, which keeps the low bits that it has room for.
template <class Field>
bool read(OruAsfDict *dict, const char *key, Field &field)
{
    int32_t value = 0;
    if (getInt(dict, key, &value, 0) != 0) return false;
    field = static_cast<Field>(value);
    return true;
}

uint32_t readChannels(OruAsfDict *dict, OruSdkDfsParam &param)
{
    if (!read(dict, "dfsPreferred24GPrimChan", param.preferred24GPrimChan))
        return fail(ORUSDK_RC_KEY_READ,
                    "Failed to read dfsPreferred24GPrimChan from config file %s", kRadioFile);
    if (!read(dict, "dfsPreferred24GSecdChan", param.preferred24GSecdChan))
        return fail(ORUSDK_RC_KEY_READ,
                    "Failed to read dfsPreferred24GSecdChan from config file %s", kRadioFile);
    if (!read(dict, "dfsPreferred5GPrimChan", param.preferred5GPrimChan))
        return fail(ORUSDK_RC_KEY_READ, "Failed to read dfsPreferred5GPrimChan from config file %s",
                    kRadioFile);
    if (!read(dict, "dfsPreferred5GSecdChan", param.preferred5GSecdChan))
        return fail(ORUSDK_RC_KEY_READ, "Failed to read dfsPreferred5GSecdChan from config file %s",
                    kRadioFile);
    return ORUSDK_RC_OK;
}

uint32_t readBands(OruAsfDict *dict, OruSdkDfsParam &param)
{
    if (!read(dict, "dfsLowUNIIBand", param.lowUniiBand))
        return fail(ORUSDK_RC_KEY_READ, "Failed to read dfsLowUNIIBand from config file %s",
                    kRadioFile);
    if (!read(dict, "dfsMidUNIIBand", param.midUniiBand))
        return fail(ORUSDK_RC_KEY_READ, "Failed to read dfsMidUNIIBand from config file %s",
                    kRadioFile);
    if (!read(dict, "dfsHighUNIIBand", param.highUniiBand))
        return fail(ORUSDK_RC_KEY_READ, "Failed to read dfsHighUNIIBand from config file %s",
                    kRadioFile);
    if (!read(dict, "dfsPreferredBand",
              param.preferredBand)) // the text names another key: intended
        return fail(ORUSDK_RC_KEY_READ, "Failed to read dfsWeightMargin from config file %s",
                    kRadioFile);
    return ORUSDK_RC_OK;
}

uint32_t readTuning(OruAsfDict *dict, OruSdkDfsParam &param)
{
    if (!read(dict, "dfsWeightMargin", param.weightMargin))
        return fail(ORUSDK_RC_KEY_READ, "Failed to read dfsWeightMargin from config file %s",
                    kRadioFile);
    if (!read(dict, "cbSwitch", param.cbSwitch))
        return fail(ORUSDK_RC_KEY_READ, "Failed to read cbSwitch from config file %s", kRadioFile);
    if (!read(dict, "dfsPersistRdr", param.persistRdr))
        return fail(ORUSDK_RC_KEY_READ, "Failed to read dfsPersistRdr from config file %s",
                    kRadioFile);
    if (!read(dict, "dfsForceChSelChan", param.forceChSelChan))
        return fail(ORUSDK_RC_KEY_READ, "Failed to read dfsForceChSelChan from config file %s",
                    kRadioFile);
    if (!read(dict, "dfsRdrParking", param.rdrParking))
        return fail(ORUSDK_RC_KEY_READ, "Failed to read dfsRdrParking from config file %s",
                    kRadioFile);
    if (!read(dict, "dfsRdrChanWghtFactor", param.rdrChanWghtFactor))
        return fail(ORUSDK_RC_KEY_READ, "Failed to read dfsRdrChanWghtFactor from config file %s",
                    kRadioFile);
    return ORUSDK_RC_OK;
}

uint32_t setSwitch(const OruSdkDfsParam &param, const char *key, uint8_t value)
{
    const OruSdkFeatureParam feature{0, param.radioIndex, value};
    return sdkSetRadioFeature(&feature, key);
}

uint32_t setNumber(const OruSdkDfsParam &param, const char *key, uint32_t value, uint32_t max)
{
    const OruSdkOptionParam option{0, param.radioIndex, value};
    return setOption(&option, key, 0, max);
}

// ---- Preferred channels

constexpr uint8_t kBand5 = 1;
constexpr uint8_t kBand24 = 2;

/// A pair of channels to write.
struct Channels {
    uint32_t primary;
    uint32_t secondary;
};

uint32_t choose24(const OruSdkDfsParam &param, int32_t bonding, Channels &chosen)
{
    const uint32_t primary = param.preferred24GPrimChan;
    const uint32_t secondary = param.preferred24GSecdChan;
    const uint32_t last = bonding != 0 ? 13 : 14;
    if (primary < 1 || primary > last || secondary < 1 || secondary > 13 ||
        (primary + 4 != secondary && secondary + 4 != primary)) // whatever the bonding mode
        return fail(ORUSDK_RC_CHANNEL, "Invalid channels");
    chosen = {primary, secondary};
    return ORUSDK_RC_OK;
}

uint32_t choose5(const OruSdkDfsParam &param, int32_t bonding, Channels &chosen)
{
    constexpr int32_t kOnly5 = 2; // type of band

    OruRegChannelInfo domain{};
    domain.radioIndex = param.radioIndex;
    buildRegChannelInfo(&domain); // when it fails, no channel is listed: intended
    chosen = {param.preferred5GPrimChan, 0};
    if (!isChannelInRegDomain(&domain, chosen.primary, kOnly5))
        return fail(ORUSDK_RC_REG_DOMAIN, "Invalid channel %d in current band OR regulatory domain",
                    chosen.primary);
    if (bonding == 0) return ORUSDK_RC_OK;
    chosen.secondary = param.preferred5GSecdChan;
    if (!isChannelInRegDomain(&domain, chosen.secondary, kOnly5)) // another code: intended
        return fail(ORUSDK_RC_SECONDARY_CHANNEL,
                    "Invalid secondary channel %d in current band OR regulatory domain",
                    chosen.secondary);
    return ORUSDK_RC_OK;
}

uint32_t writePreferred(OruAsfDict *dict, const char *key, uint32_t value)
{
    if (setString(dict, key, Number{value}) != 0)
        return fail(ORUSDK_RC_DICT_WRITE, "Unable to write %s to dictionary", key);
    return ORUSDK_RC_OK;
}

} // namespace
} // namespace oru

using namespace oru;

extern "C" {

uint32_t oruSdkGetDfsParam(OruSdkDfsParam *param)
{
    if (param == nullptr) return fail(ORUSDK_RC_NULL_POINTER, "NULL pointer");
    if (param->radioIndex >= kRadios) return fail(ORUSDK_RC_RADIO_ID, "Invalid radio ID");
    const Dict dict{kRadioFile};
    if (!dict) return fail(ORUSDK_RC_FILE_READ, "Unable to read WSM Defaults file %s", kRadioFile);
    if (const uint32_t code = readChannels(dict, *param); code != 0) return code;
    if (const uint32_t code = readBands(dict, *param); code != 0) return code;
    return readTuning(dict, *param);
}

uint32_t oruSdkSetDfsUniiBands(OruSdkDfsParam *param)
{
    if (param == nullptr) return fail(ORUSDK_RC_NULL_POINTER, "NULL pointer");
    // Three saves: what was saved before a failure stays. Intended.
    if (const uint32_t code = setSwitch(*param, "dfsLowUNIIBand", param->lowUniiBand); code != 0)
        return code;
    if (const uint32_t code = setSwitch(*param, "dfsMidUNIIBand", param->midUniiBand); code != 0)
        return code;
    return setSwitch(*param, "dfsHighUNIIBand", param->highUniiBand);
}

uint32_t oruSdkSetDfsParamEnable(OruSdkDfsParam *param)
{
    if (param == nullptr) return fail(ORUSDK_RC_NULL_POINTER, "NULL pointer");
    switch (param->paramId) {
    case ORUSDK_DFS_PERSIST_RDR: return setSwitch(*param, "dfsPersistRdr", param->persistRdr);
    case ORUSDK_DFS_FORCE_CH_SEL:
        return setSwitch(*param, "dfsForceChSelChan", param->forceChSelChan);
    case ORUSDK_DFS_RDR_PARKING: return setSwitch(*param, "dfsRdrParking", param->rdrParking);
    default: return fail(ORUSDK_RC_ARGUMENTS, "Invalid argument");
    }
}

uint32_t oruSdkSetDfsParamValue(OruSdkDfsParam *param)
{
    constexpr uint32_t kMost = 1000000000;

    if (param == nullptr) return fail(ORUSDK_RC_NULL_POINTER, "NULL pointer");
    switch (param->paramId) {
    case ORUSDK_DFS_PREFERRED_BAND:
        return setNumber(*param, "dfsPreferredBand", param->preferredBand, 2);
    case ORUSDK_DFS_WEIGHT_MARGIN:
        return setNumber(*param, "dfsWeightMargin", param->weightMargin, 100);
    case ORUSDK_DFS_CB_SWITCH: return setNumber(*param, "cbSwitch", param->cbSwitch, kMost);
    case ORUSDK_DFS_RDR_WEIGHT_FACTOR:
        return setNumber(*param, "dfsRdrChanWghtFactor", param->rdrChanWghtFactor, kMost);
    default: return fail(ORUSDK_RC_ARGUMENTS, "Invalid argument");
    }
}

uint32_t oruSdkSetDfsPrefChans(OruSdkDfsParam *param, uint8_t band)
{
    if (param == nullptr) return fail(ORUSDK_RC_NULL_POINTER, "NULL pointer");
    // Any radio index passes and forms its keys: intended.
    if (band != kBand5 && band != kBand24) return fail(ORUSDK_RC_ARGUMENTS, "Invalid argument");
    const Dict dict{kRadioFile};
    if (!dict) return fail(ORUSDK_RC_FILE_READ, "Unable to read WSM defaults file %s", kRadioFile);
    int32_t bonding = 0;
    if (getInt(dict, Key{"radio%d.channelBondingMode", param->radioIndex}, &bonding, 0) !=
        0) // goes on: intended
        logError("Unable to read channel bonding mode from config file %s", kRadioFile);

    const bool is24 = band == kBand24;
    Channels chosen{};
    if (const uint32_t code =
            is24 ? choose24(*param, bonding, chosen) : choose5(*param, bonding, chosen);
        code != 0)
        return code;
    const char *primaryKey = is24 ? "dfsPreferred24GPrimChan" : "dfsPreferred5GPrimChan";
    if (const uint32_t code = writePreferred(dict, primaryKey, chosen.primary); code != 0)
        return code;
    const char *secondaryKey = is24 ? "dfsPreferred24GSecdChan" : "dfsPreferred5GSecdChan";
    if (const uint32_t code = writePreferred(dict, secondaryKey, chosen.secondary); code != 0)
        return code;
    if (const uint32_t code = writePreferred(dict, "dfsPreferredBand", param->preferredBand);
        code != 0)
        return code;
    return saveRadioFile(dict);
}

} // extern "C"
