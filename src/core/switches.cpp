// On/off switches and numeric options: each operation names its key, and the range of what may be
// set. A key with "radio%d." is stored per radio; any other one is shared by both radios, on
// purpose.
#include "core/key.hpp"
#include "core/store.hpp"
#include "oruSdk.h"

namespace oru {
namespace {

uint32_t getSwitch(OruSdkFeatureParam *param, const char *key)
{
    return sdkGetRadioFeature(param, radioKey(key, param));
}

uint32_t setSwitch(const OruSdkFeatureParam *param, const char *key)
{
    return sdkSetRadioFeature(param, radioKey(key, param));
}

} // namespace
} // namespace oru

using namespace oru;

extern "C" {

// ---- Switches: 0 off, 1 on

uint32_t oruSdkGetShortGuardInterval40MHz(OruSdkFeatureParam *param)
{
    return getSwitch(param, "radio%d.ShortGuardInterval40MHz");
}

uint32_t oruSdkSetShortGuardInterval40MHz(OruSdkFeatureParam *param)
{
    return setSwitch(param, "radio%d.ShortGuardInterval40MHz");
}

uint32_t oruSdkGetShortGuardInterval20MHz(OruSdkFeatureParam *param)
{
    return getSwitch(param, "radio%d.ShortGuardInterval20MHz");
}

uint32_t oruSdkSetShortGuardInterval20MHz(OruSdkFeatureParam *param)
{
    return setSwitch(param, "radio%d.ShortGuardInterval20MHz");
}

uint32_t oruSdkGetRifsSupport(OruSdkFeatureParam *param)
{
    return getSwitch(param, "radio%d.RifsSupport");
}

uint32_t oruSdkSetRifsSupport(OruSdkFeatureParam *param)
{
    return setSwitch(param, "radio%d.RifsSupport");
}

uint32_t oruSdkGetSmartBackgroundScan(OruSdkFeatureParam *param)
{
    return getSwitch(param, "radio%d.sbsEnabled");
}

uint32_t oruSdkSetSmartBackgroundScan(OruSdkFeatureParam *param)
{
    return setSwitch(param, "radio%d.sbsEnabled");
}

uint32_t oruSdkGetGreenfieldCapability(OruSdkFeatureParam *param)
{
    return getSwitch(param, "radio%d.GreenfieldCapability");
}

uint32_t oruSdkSetGreenfieldCapability(OruSdkFeatureParam *param)
{
    return setSwitch(param, "radio%d.GreenfieldCapability");
}

uint32_t oruSdkGet11bSupport(OruSdkFeatureParam *param)
{
    return getSwitch(param, "radio%d.11bSupport");
}

uint32_t oruSdkSet11bSupport(OruSdkFeatureParam *param)
{
    return setSwitch(param, "radio%d.11bSupport");
}

uint32_t oruSdkGetEnhancedRates(OruSdkFeatureParam *param)
{
    return getSwitch(param, "radio%d.enchRatesFlag");
}

uint32_t oruSdkSetEnhancedRates(OruSdkFeatureParam *param)
{
    return setSwitch(param, "radio%d.enchRatesFlag");
}

uint32_t oruSdkGetCoexist2040(OruSdkFeatureParam *param)
{
    return getSwitch(param, "radio%d.dot112040BSSCoexistenceManagementSupport");
}

uint32_t oruSdkSetCoexist2040(OruSdkFeatureParam *param)
{
    return setSwitch(param, "radio%d.dot112040BSSCoexistenceManagementSupport");
}

uint32_t oruSdkGetSpectrumMgmt(OruSdkFeatureParam *param)
{
    return getSwitch(param, "spectrumManagementFlag");
}

uint32_t oruSdkSetSpectrumMgmt(OruSdkFeatureParam *param)
{
    return setSwitch(param, "spectrumManagementFlag");
}

uint32_t oruSdkGetReverseFcs(OruSdkFeatureParam *param)
{
    return getSwitch(param, "reverseFcsFlag");
}

uint32_t oruSdkSetReverseFcs(OruSdkFeatureParam *param)
{
    return setSwitch(param, "reverseFcsFlag");
}

uint32_t oruSdkGetProximity(OruSdkFeatureParam *param)
{
    return getSwitch(param, "proximity");
}

uint32_t oruSdkSetProximity(OruSdkFeatureParam *param)
{
    return setSwitch(param, "proximity");
}

uint32_t oruSdkGetMimo(OruSdkFeatureParam *param)
{
    return getSwitch(param, "mimoFlag");
}

uint32_t oruSdkSetMimo(OruSdkFeatureParam *param)
{
    return setSwitch(param, "mimoFlag");
}

uint32_t oruSdkGetRadioProprietaryExt(OruSdkFeatureParam *param)
{
    return getSwitch(param, "radioProprietaryExt");
}

uint32_t oruSdkSetRadioProprietaryExt(OruSdkFeatureParam *param)
{
    return setSwitch(param, "radioProprietaryExt");
}

// ---- Numeric options

uint32_t oruSdkGetLocalPowerConstraint(OruSdkOptionParam *param)
{
    return getOption(param, "localPowerConstraint");
}

uint32_t oruSdkSetLocalPowerConstraint(OruSdkOptionParam *param)
{
    return setOption(param, "localPowerConstraint", 0, 30);
}

uint32_t oruSdkGetMaxMpduFactor(OruSdkOptionParam *param)
{
    return getOption(param, "radio%d.MaxMpduFactor");
}

uint32_t oruSdkSetMaxMpduFactor(OruSdkOptionParam *param)
{
    return setOption(param, "radio%d.MaxMpduFactor", 0, 3);
}

uint32_t oruSdkGetMpduDensity(OruSdkOptionParam *param)
{
    return getOption(param, "radio%d.MpduDensity");
}

uint32_t oruSdkSetMpduDensity(OruSdkOptionParam *param)
{
    return setOption(param, "radio%d.MpduDensity", 0, 7);
}

uint32_t oruSdkGetBlockAckAuto(OruSdkOptionParam *param)
{
    return getOption(param, "radio%d.BlockAckAuto");
}

uint32_t oruSdkSetBlockAckAuto(OruSdkOptionParam *param)
{
    return setOption(param, "radio%d.BlockAckAuto", 0, 1);
}

uint32_t oruSdkGetBss2040CoexistElement(OruSdkOptionParam *param)
{
    return getOption(param, "bss2040CoexistElement");
}

uint32_t oruSdkSetBss2040CoexistElement(OruSdkOptionParam *param)
{
    return setOption(param, "bss2040CoexistElement", 0, 255);
}

uint32_t oruSdkGetBssWidthTriggerScanInterval(OruSdkOptionParam *param)
{
    return getOption(param, "dot11BSSWidthTriggerScanInterval");
}

uint32_t oruSdkSetBssWidthTriggerScanInterval(OruSdkOptionParam *param)
{
    return setOption(param, "dot11BSSWidthTriggerScanInterval", 10, 900);
}

uint32_t oruSdkGetNumSs(OruSdkOptionParam *param)
{
    return getOption(param, "numSs");
}

uint32_t oruSdkSetNumSs(OruSdkOptionParam *param)
{
    return setOption(param, "numSs", 0, 3);
}

uint32_t oruSdkGetTxPowerAdj(OruSdkOptionParam *param)
{
    return getOption(param, "radio%d.txPowerAdj");
}

uint32_t oruSdkSetTxPowerAdj(OruSdkOptionParam *param)
{
    return setOption(param, "radio%d.txPowerAdj", 0, 30);
}

uint32_t oruSdkGetTxPower(OruSdkOptionParam *param)
{
    return getOption(param, "radio%d.txPower");
}

uint32_t oruSdkSetTxPower(OruSdkOptionParam *param)
{
    return setOption(param, "radio%d.txPower", 0, 2);
}

uint32_t oruSdkGetNwkDensityValue(OruSdkOptionParam *param)
{
    return getOption(param, "radio%d.networkDensityValue");
}

uint32_t oruSdkSetNwkDensityValue(OruSdkOptionParam *param)
{
    return setOption(param, "radio%d.networkDensityValue", 0, 65535);
}

uint32_t oruSdkGetNwkDensity(OruSdkOptionParam *param)
{
    return getOption(param, "radio%d.networkDensity");
}

uint32_t oruSdkSetNwkDensity(OruSdkOptionParam *param)
{
    return setOption(param, "radio%d.networkDensity", 0, 4);
}

uint32_t oruSdkGetPreambleType(OruSdkOptionParam *param)
{
    return getOption(param, "radio%d.shortPreambleFlag");
}

uint32_t oruSdkSetPreambleType(OruSdkOptionParam *param)
{
    return setOption(param, "radio%d.shortPreambleFlag", 0, 1);
}

} // extern "C"
