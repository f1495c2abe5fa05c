// In which band a radio may work: its channel set (band type) and its persona.
#include "core/log.hpp"
#include "core/store.hpp"
#include "radio/bands.hpp"
#include "radio/radioinfo.hpp"

namespace oru {
namespace {

constexpr uint32_t kAnyPersona = 0;
constexpr uint32_t kLastChoice = 2;

} // namespace
} // namespace oru

using namespace oru;

extern "C" {

uint32_t oruSdkGetRadioPersona(OruSdkOptionParam *param)
{
    return getOption(param, "radio%d.persona");
}

uint32_t oruSdkSetRadioPersona(OruSdkOptionParam *param)
{
    Dict dict;
    if (const uint32_t code = sdkOpenRadioDefaults(param, "Radio Persona", 0, kLastChoice, dict);
        code != 0)
        return code;
    if (param->featureOptions == kAnyPersona && getRadioProductBand(param->radioIndex) != 0)
        return fail(ORUSDK_RC_PERSONA_BG_ONLY, "Persona ANY is invalid for b/g only radio product");
    return sdkDictWriteAndSave(param, radioKey("radio%d.persona", param), std::move(dict));
}

uint32_t oruSdkGetChannelSet(OruSdkOptionParam *param)
{
    return getOption(param, "radio%d.bandType");
}

uint32_t oruSdkSetChannelSet(OruSdkOptionParam *param)
{
    Dict dict;
    if (const uint32_t code = sdkOpenRadioDefaults(param, "Radio Band", 0, kLastChoice, dict);
        code != 0)
        return code;
    const bool beyond24GHz = param->featureOptions != kBand24GHz;
    if (beyond24GHz && getRadioProductBand(param->radioIndex) != 0)
        return fail(ORUSDK_RC_BAND_BG_ONLY,
                    "Any and 5Ghz bands are invalid for b/g only radio product");
    int32_t rate = 0;
    // Another status than -1 is no failure here: intended.
    if (getInt(dict, radioKey("radio%d.fixedRate", param), &rate, 0) == -1)
        return fail(ORUSDK_RC_KEY_READ, "Unable to read rate from config file %s", kRadioFile);
    // These are MCS codes, not those of the 802.11b rates: intended.
    if (beyond24GHz && rate >= 65 && rate <= 68)
        return fail(ORUSDK_RC_FIXED_RATE_11B, "Fixed rate must not be set to 802.11b rates");
    return sdkDictWriteAndSave(param, radioKey("radio%d.bandType", param), std::move(dict));
}

} // extern "C"
