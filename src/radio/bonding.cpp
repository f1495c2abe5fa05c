// Channel bonding: 20 or 40 MHz operation. A change takes the broadcast rates with it.
#include "core/dict.hpp"
#include "core/key.hpp"
#include "core/log.hpp"
#include "core/store.hpp"
#include "oruSdk.h"

#include <utility>

namespace oru {
namespace {

constexpr const char kBondingMode[] = "radio%d.channelBondingMode";
constexpr uint32_t kLastBondingMode = 3;

// Rate codes of 40 MHz channels with the long guard interval.
constexpr const char kMcs0[] = "65";
constexpr const char kMcs4[] = "69";

/// The texts name the fixed rate: intended.
uint32_t resetBroadcastRates(OruAsfDict *dict, const OruSdkOptionParam *param)
{
    if (setString(dict, radioKey("radio%d.broadcastRate24GHz", param), kMcs0) != 0)
        return fail(ORUSDK_RC_DICT_WRITE, "Unable to write fixedRate to dictionary");
    if (setString(dict, radioKey("radio%d.broadcastRate5GHz", param), kMcs4) != 0)
        return fail(ORUSDK_RC_DICT_WRITE, "Unable to write fixedRate to dictionary");
    return ORUSDK_RC_OK;
}

} // namespace
} // namespace oru

using namespace oru;

extern "C" {

uint32_t oruSdkGetChannelBondingMode(OruSdkOptionParam *param)
{
    return getOption(param, kBondingMode);
}

uint32_t oruSdkSetChannelBondingMode(OruSdkOptionParam *param)
{
    const Key key = radioKey(kBondingMode, param);
    Dict dict;
    if (const uint32_t code = sdkOpenRadioDefaults(param, key, 0, kLastBondingMode, dict);
        code != 0)
        return code;
    int32_t stored = 0;
    if (getInt(dict, key, &stored, 0) != 0)
        return fail(ORUSDK_RC_KEY_READ, "Unable to read channel bonding mode from config file %s",
                    kRadioFile);
    // Every change resets the rates, also one back to 20 MHz: intended.
    if (param->featureOptions != static_cast<uint32_t>(stored))
        if (const uint32_t code = resetBroadcastRates(dict, param); code != 0) return code;
    return sdkDictWriteAndSave(param, key, std::move(dict));
}

} // extern "C"
