// Radio switches and numeric options of "/var/wsmDefaults".
#include "adapt.hpp"
#include "items.hpp"

namespace oructl {
namespace {

constexpr Word kPreambleWords[] = {{"long", 0}, {"short", 1}};
constexpr Field kPreamble[] = {
    {.name = "", .kind = Kind::Choice, .bounds = {0, 1}, .words = kPreambleWords}};

constexpr Item kSwitches[] = {
    radioSwitch<oruSdkGetShortGuardInterval40MHz, oruSdkSetShortGuardInterval40MHz>(
        "short-guard-interval-40mhz",
        "oruSdkGetShortGuardInterval40MHz oruSdkSetShortGuardInterval40MHz",
        "radio%d.ShortGuardInterval40MHz", "short guard interval in 40 MHz channels"),
    radioSwitch<oruSdkGetShortGuardInterval20MHz, oruSdkSetShortGuardInterval20MHz>(
        "short-guard-interval-20mhz",
        "oruSdkGetShortGuardInterval20MHz oruSdkSetShortGuardInterval20MHz",
        "radio%d.ShortGuardInterval20MHz", "short guard interval in 20 MHz channels"),
    radioSwitch<oruSdkGetRifsSupport, oruSdkSetRifsSupport>(
        "rifs-support", "oruSdkGetRifsSupport oruSdkSetRifsSupport", "radio%d.RifsSupport",
        "reduced interframe spacing"),
    radioSwitch<oruSdkGetSmartBackgroundScan, oruSdkSetSmartBackgroundScan>(
        "smart-background-scan", "oruSdkGetSmartBackgroundScan oruSdkSetSmartBackgroundScan",
        "radio%d.sbsEnabled", "smart background scanning"),
    radioSwitch<oruSdkGetGreenfieldCapability, oruSdkSetGreenfieldCapability>(
        "greenfield-capability", "oruSdkGetGreenfieldCapability oruSdkSetGreenfieldCapability",
        "radio%d.GreenfieldCapability", "HT greenfield preambles"),
    radioSwitch<oruSdkGet11bSupport, oruSdkSet11bSupport>("11b-support",
                                                          "oruSdkGet11bSupport oruSdkSet11bSupport",
                                                          "radio%d.11bSupport", "802.11b rates"),
    radioSwitch<oruSdkGetEnhancedRates, oruSdkSetEnhancedRates>(
        "enhanced-rates", "oruSdkGetEnhancedRates oruSdkSetEnhancedRates", "radio%d.enchRatesFlag",
        "enhanced rates"),
    radioSwitch<oruSdkGetCoexist2040, oruSdkSetCoexist2040>(
        "coexist-2040", "oruSdkGetCoexist2040 oruSdkSetCoexist2040",
        "radio%d.dot112040BSSCoexistenceManagementSupport", "20/40 MHz BSS coexistence management"),
    radioSwitch<oruSdkGetSpectrumMgmt, oruSdkSetSpectrumMgmt>(
        "spectrum-mgmt", "oruSdkGetSpectrumMgmt oruSdkSetSpectrumMgmt", "spectrumManagementFlag",
        "spectrum management (802.11h)"),
    radioSwitch<oruSdkGetReverseFcs, oruSdkSetReverseFcs>(
        "reverse-fcs", "oruSdkGetReverseFcs oruSdkSetReverseFcs", "reverseFcsFlag",
        "reversed frame check sequence"),
    radioSwitch<oruSdkGetProximity, oruSdkSetProximity>(
        "proximity", "oruSdkGetProximity oruSdkSetProximity", "proximity", "proximity mode"),
    radioSwitch<oruSdkGetMimo, oruSdkSetMimo>("mimo", "oruSdkGetMimo oruSdkSetMimo", "mimoFlag",
                                              "MIMO operation"),
    radioSwitch<oruSdkGetRadioProprietaryExt, oruSdkSetRadioProprietaryExt>(
        "radio-proprietary-ext", "oruSdkGetRadioProprietaryExt oruSdkSetRadioProprietaryExt",
        "radioProprietaryExt", "the maker's own radio extensions"),
};

constexpr Item kOptions[] = {
    radioOption<oruSdkGetLocalPowerConstraint, oruSdkSetLocalPowerConstraint>(
        "local-power-constraint", kNumber<0, 30, "dB">,
        "oruSdkGetLocalPowerConstraint oruSdkSetLocalPowerConstraint", "localPowerConstraint",
        "local power constraint"),
    radioOption<oruSdkGetMaxMpduFactor, oruSdkSetMaxMpduFactor>(
        "max-mpdu-factor", kNumber<0, 3>, "oruSdkGetMaxMpduFactor oruSdkSetMaxMpduFactor",
        "radio%d.MaxMpduFactor", "longest A-MPDU, as an exponent: 2^(13 + value) - 1 bytes"),
    radioOption<oruSdkGetMpduDensity, oruSdkSetMpduDensity>(
        "mpdu-density", kNumber<0, 7>, "oruSdkGetMpduDensity oruSdkSetMpduDensity",
        "radio%d.MpduDensity", "smallest time between MPDUs of an A-MPDU, as its 802.11n class"),
    radioOption<oruSdkGetBlockAckAuto, oruSdkSetBlockAckAuto>(
        "block-ack-auto", kOnOff, "oruSdkGetBlockAckAuto oruSdkSetBlockAckAuto",
        "radio%d.BlockAckAuto", "automatic block acknowledgement"),
    radioOption<oruSdkGetBss2040CoexistElement, oruSdkSetBss2040CoexistElement>(
        "bss-2040-coexist-element", kNumber<0, 255>,
        "oruSdkGetBss2040CoexistElement oruSdkSetBss2040CoexistElement", "bss2040CoexistElement",
        "octet of the 20/40 MHz BSS coexistence element"),
    radioOption<oruSdkGetBssWidthTriggerScanInterval, oruSdkSetBssWidthTriggerScanInterval>(
        "bss-width-trigger-scan-interval", kNumber<10, 900, "seconds">,
        "oruSdkGetBssWidthTriggerScanInterval oruSdkSetBssWidthTriggerScanInterval",
        "dot11BSSWidthTriggerScanInterval", "time between 20/40 MHz trigger scans"),
    radioOption<oruSdkGetNumSs, oruSdkSetNumSs>("num-ss", kNumber<0, 3>,
                                                "oruSdkGetNumSs oruSdkSetNumSs", "numSs",
                                                "number of spatial streams"),
    radioOption<oruSdkGetTxPowerAdj, oruSdkSetTxPowerAdj>(
        "tx-power-adj", kNumber<0, 30, "steps">, "oruSdkGetTxPowerAdj oruSdkSetTxPowerAdj",
        "radio%d.txPowerAdj", "transmit power adjustment, in steps of the radio"),
    radioOption<oruSdkGetTxPower, oruSdkSetTxPower>("tx-power", kNumber<0, 2>,
                                                    "oruSdkGetTxPower oruSdkSetTxPower",
                                                    "radio%d.txPower", "transmit power class"),
    radioOption<oruSdkGetNwkDensityValue, oruSdkSetNwkDensityValue>(
        "nwk-density-value", kNumber<0, 65535>, "oruSdkGetNwkDensityValue oruSdkSetNwkDensityValue",
        "radio%d.networkDensityValue", "network density, as a number of the radio's own scale"),
    radioOption<oruSdkGetNwkDensity, oruSdkSetNwkDensity>(
        "nwk-density", kNumber<0, 4>, "oruSdkGetNwkDensity oruSdkSetNwkDensity",
        "radio%d.networkDensity", "network density class"),
    radioOption<oruSdkGetPreambleType, oruSdkSetPreambleType>(
        "preamble-type", kPreamble, "oruSdkGetPreambleType oruSdkSetPreambleType",
        "radio%d.shortPreambleFlag", "preamble"),
};

} // namespace

std::span<const Item> radioSwitches()
{
    return kSwitches;
}

std::span<const Item> radioOptions()
{
    return kOptions;
}

} // namespace oructl
