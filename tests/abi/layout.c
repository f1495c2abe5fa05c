/* The records of the interface, byte for byte: a program that was built against an older header, or
 * a device with another processor, reads them in the same places. */
#include "oruAsf.h"
#include "oruSdk.h"
#include <stddef.h>

#if UINTPTR_MAX == UINT64_MAX
#define AT(lp64, ilp32) lp64
#else
#define AT(lp64, ilp32) ilp32
#endif

_Static_assert(sizeof(void *) == AT(8, 4), "LP64 or ILP32");
_Static_assert(sizeof(long) == sizeof(void *), "LP64 or ILP32");

#define SIZE(record, bytes) _Static_assert(sizeof(record) == (bytes), #record)
#define FIELD(record, field, place, bytes)                                                         \
    _Static_assert(offsetof(record, field) == (place) && sizeof(((record *)0)->field) == (bytes),  \
                   #record "." #field)

/* clang-format off */
SIZE(OruSdkFeatureParam, 8);
FIELD(OruSdkFeatureParam, reserved, 0, 2);
FIELD(OruSdkFeatureParam, radioIndex, 2, 2);
FIELD(OruSdkFeatureParam, activationFlag, 4, 4);

SIZE(OruSdkOptionParam, 12);
FIELD(OruSdkOptionParam, reserved, 0, 4);
FIELD(OruSdkOptionParam, radioIndex, 4, 4);
FIELD(OruSdkOptionParam, featureOptions, 8, 4);

SIZE(OruSdkRadioInfoEntry, 96);
FIELD(OruSdkRadioInfoEntry, countryCode, 0, 3);
FIELD(OruSdkRadioInfoEntry, attr1, 4, 2);
FIELD(OruSdkRadioInfoEntry, attr2, 6, 2);
FIELD(OruSdkRadioInfoEntry, attr3, 8, 2);
FIELD(OruSdkRadioInfoEntry, attr4, 10, 2);
FIELD(OruSdkRadioInfoEntry, attr5, 12, 4);
FIELD(OruSdkRadioInfoEntry, attr6, 16, 1);
FIELD(OruSdkRadioInfoEntry, attr7, 18, 2);
FIELD(OruSdkRadioInfoEntry, attr8, 20, 2);
FIELD(OruSdkRadioInfoEntry, attr9, 24, 4);
FIELD(OruSdkRadioInfoEntry, bandSupport, 28, 4);
FIELD(OruSdkRadioInfoEntry, channelCount, 32, 1);
FIELD(OruSdkRadioInfoEntry, channels, 33, 63);

SIZE(OruSdkRadioInfo, 196);
FIELD(OruSdkRadioInfo, radioCount, 0, 4);
FIELD(OruSdkRadioInfo, entries, 4, 192);

SIZE(OruSdkWorldModeParam, 8);
FIELD(OruSdkWorldModeParam, worldModeSupport, 0, 4);
FIELD(OruSdkWorldModeParam, countryCode, 4, 3);

SIZE(OruSdkChannelParam, 20);
FIELD(OruSdkChannelParam, radioIndex, 0, 4);
FIELD(OruSdkChannelParam, channel, 4, 4);
FIELD(OruSdkChannelParam, secondaryChannel, 8, 4);
FIELD(OruSdkChannelParam, autoSelMode, 12, 4);
FIELD(OruSdkChannelParam, periodicDfsTimer, 16, 4);

SIZE(OruSdkDfsParam, 24);
FIELD(OruSdkDfsParam, radioIndex, 0, 1);
FIELD(OruSdkDfsParam, paramId, 1, 1);
FIELD(OruSdkDfsParam, preferred24GPrimChan, 2, 1);
FIELD(OruSdkDfsParam, preferred24GSecdChan, 3, 1);
FIELD(OruSdkDfsParam, preferred5GPrimChan, 4, 1);
FIELD(OruSdkDfsParam, preferred5GSecdChan, 5, 1);
FIELD(OruSdkDfsParam, lowUniiBand, 6, 1);
FIELD(OruSdkDfsParam, midUniiBand, 7, 1);
FIELD(OruSdkDfsParam, highUniiBand, 8, 1);
FIELD(OruSdkDfsParam, preferredBand, 9, 1);
FIELD(OruSdkDfsParam, weightMargin, 10, 1);
FIELD(OruSdkDfsParam, persistRdr, 11, 1);
FIELD(OruSdkDfsParam, forceChSelChan, 12, 1);
FIELD(OruSdkDfsParam, rdrParking, 13, 1);
FIELD(OruSdkDfsParam, cbSwitch, 16, 4);
FIELD(OruSdkDfsParam, rdrChanWghtFactor, 20, 4);

SIZE(OruSdkMaxRateParam, 8);
FIELD(OruSdkMaxRateParam, radioIndex, 0, 4);
FIELD(OruSdkMaxRateParam, maxRate, 4, 4);

SIZE(OruSdkBasicRateSetParam, 72);
FIELD(OruSdkBasicRateSetParam, radioIndex, 0, 4);
FIELD(OruSdkBasicRateSetParam, rateMode, 4, 4);
FIELD(OruSdkBasicRateSetParam, rateSet, 8, 64);

SIZE(OruSdkBasicRateSetInfo, 260);
FIELD(OruSdkBasicRateSetInfo, radioIndex, 0, 4);
FIELD(OruSdkBasicRateSetInfo, dot11aRates, 4, 64);
FIELD(OruSdkBasicRateSetInfo, dot11bRates, 68, 64);
FIELD(OruSdkBasicRateSetInfo, dot11gRates, 132, 64);
FIELD(OruSdkBasicRateSetInfo, dot11nRates, 196, 64);

SIZE(OruSdkDot11MacParam, 20);
FIELD(OruSdkDot11MacParam, radioIndex, 0, 4);
FIELD(OruSdkDot11MacParam, fragThreshold, 4, 4);
FIELD(OruSdkDot11MacParam, rtsThreshold, 8, 4);
FIELD(OruSdkDot11MacParam, shortRetryLimit, 12, 4);
FIELD(OruSdkDot11MacParam, longRetryLimit, 16, 4);

SIZE(OruSdkBeaconParam, 12);
FIELD(OruSdkBeaconParam, radioIndex, 0, 4);
FIELD(OruSdkBeaconParam, beaconPeriod, 4, 4);
FIELD(OruSdkBeaconParam, dtimPeriod, 8, 4);

SIZE(OruSdkProtectionParam, 12);
FIELD(OruSdkProtectionParam, radioIndex, 0, 4);
FIELD(OruSdkProtectionParam, prtnEnable, 4, 4);
FIELD(OruSdkProtectionParam, protectionMode, 8, 4);

SIZE(OruSdkRadioSwitchParam, 8);
FIELD(OruSdkRadioSwitchParam, reserved, 0, 2);
FIELD(OruSdkRadioSwitchParam, radioIndex, 2, 2);
FIELD(OruSdkRadioSwitchParam, enable, 4, 4);

SIZE(OruSdkWmmParam, 12);
FIELD(OruSdkWmmParam, radioIndex, 0, 4);
FIELD(OruSdkWmmParam, wmmEnabled, 4, 4);
FIELD(OruSdkWmmParam, trafficClassifier, 8, 4);

SIZE(OruSdkAssignBssParam, 12);
FIELD(OruSdkAssignBssParam, bssIndex, 0, 4);
FIELD(OruSdkAssignBssParam, radioIndex, 4, 4);
FIELD(OruSdkAssignBssParam, enable, 8, 4);

SIZE(OruSdkSuppressSsidParam, 8);
FIELD(OruSdkSuppressSsidParam, bssIndex, 0, 4);
FIELD(OruSdkSuppressSsidParam, suppress, 4, 4);

SIZE(OruSdkSecTimeoutsParam, 8);
FIELD(OruSdkSecTimeoutsParam, sessionTimeout, 0, 4);
FIELD(OruSdkSecTimeoutsParam, groupKeyTimeout, 4, 4);

SIZE(OruSdkMacAuthParam, 12);
FIELD(OruSdkMacAuthParam, bssIndex, 0, 4);
FIELD(OruSdkMacAuthParam, radioIndex, 4, 4);
FIELD(OruSdkMacAuthParam, authType, 8, 4);

SIZE(OruSdkRadiusServer, 140);
FIELD(OruSdkRadiusServer, name, 0, 65);
FIELD(OruSdkRadiusServer, port, 68, 4);
FIELD(OruSdkRadiusServer, secret, 72, 66);

SIZE(OruSdkRegistrarParam, 12);
FIELD(OruSdkRegistrarParam, bssIndex, 0, 4);
FIELD(OruSdkRegistrarParam, radioIndex, 4, 4);
FIELD(OruSdkRegistrarParam, registrarInfo, 8, 4);

SIZE(OruSdkClientAdminCritParam, AT(24, 12));
FIELD(OruSdkClientAdminCritParam, radioIndex, 0, 4);
FIELD(OruSdkClientAdminCritParam, ssid, AT(8, 4), AT(8, 4));
FIELD(OruSdkClientAdminCritParam, bssid, AT(16, 8), AT(8, 4));

SIZE(OruSdkRadioStatsParam, 20000);
FIELD(OruSdkRadioStatsParam, selector1, 0, 1);
FIELD(OruSdkRadioStatsParam, selector2, 1, 1);
FIELD(OruSdkRadioStatsParam, statsStr, 2, 19998);

SIZE(OruSdkStaStatsParam, 20006);
FIELD(OruSdkStaStatsParam, selector1, 0, 1);
FIELD(OruSdkStaStatsParam, selector2, 1, 1);
FIELD(OruSdkStaStatsParam, macAddr, 2, 6);
FIELD(OruSdkStaStatsParam, statsStr, 8, 19998);

SIZE(OruSdkBssEntry, 96);
FIELD(OruSdkBssEntry, element17, 0, 4);
FIELD(OruSdkBssEntry, ssid, 4, 33);
FIELD(OruSdkBssEntry, reserved1, 37, 40);
FIELD(OruSdkBssEntry, bssid, 77, 18);
FIELD(OruSdkBssEntry, reserved2, 95, 1);

SIZE(OruSdkBssListParam, 396);
FIELD(OruSdkBssListParam, bss, 0, 384);
FIELD(OruSdkBssListParam, radioIndex, 384, 2);
FIELD(OruSdkBssListParam, element1, 386, 2);
FIELD(OruSdkBssListParam, numBss, 388, 4);
FIELD(OruSdkBssListParam, element18, 392, 2);

SIZE(OruSdkScanEntry, 55);
FIELD(OruSdkScanEntry, bssid, 0, 18);
FIELD(OruSdkScanEntry, ssid, 18, 33);
FIELD(OruSdkScanEntry, reserved, 51, 4);

SIZE(OruSdkScanlistParam, 61113);
FIELD(OruSdkScanlistParam, numEntries, 0, 4);
FIELD(OruSdkScanlistParam, reserved, 4, 4);
FIELD(OruSdkScanlistParam, entries, 8, 61105);

SIZE(OruSdkStationEntry, 22);
FIELD(OruSdkStationEntry, staId, 0, 4);
FIELD(OruSdkStationEntry, macAddr, 4, 18);

SIZE(OruSdkStationParam, 5640);
FIELD(OruSdkStationParam, stations, 0, 5632);
FIELD(OruSdkStationParam, numStations, 5632, 4);
FIELD(OruSdkStationParam, bssIndex, 5636, 2);
FIELD(OruSdkStationParam, radioIndex, 5638, 2);

SIZE(OruSdkRadioEntry, 460);
FIELD(OruSdkRadioEntry, element1, 0, 4);
FIELD(OruSdkRadioEntry, element2, 4, 17);
FIELD(OruSdkRadioEntry, element3, 21, 4);
FIELD(OruSdkRadioEntry, element8, 25, 4);
FIELD(OruSdkRadioEntry, element4, 29, 4);
FIELD(OruSdkRadioEntry, element277, 33, 4);
FIELD(OruSdkRadioEntry, reserved, 37, 33);
FIELD(OruSdkRadioEntry, element6, 70, 4);
FIELD(OruSdkRadioEntry, element18, 74, 2);
FIELD(OruSdkRadioEntry, bss, 76, 384);

SIZE(OruSdkRadioParam, 924);
FIELD(OruSdkRadioParam, radios, 0, 920);
FIELD(OruSdkRadioParam, numRadios, 920, 4);

SIZE(OruSdkBssInfoParam, 56);
FIELD(OruSdkBssInfoParam, bssIndex, 0, 4);
FIELD(OruSdkBssInfoParam, ssid, 4, 33);
FIELD(OruSdkBssInfoParam, suppressSsid, 40, 4);
FIELD(OruSdkBssInfoParam, securityMode, 44, 12);

SIZE(OruAsfTtlv, AT(16, 12));
FIELD(OruAsfTtlv, type, 0, 4);
FIELD(OruAsfTtlv, length, 4, 4);
FIELD(OruAsfTtlv, value, 8, AT(8, 4));
