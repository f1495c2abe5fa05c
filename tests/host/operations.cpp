#include "host/operations.hpp"

#include "oruSdk.h"

#include <cstdlib>
#include <cstring>
#include <memory>

namespace oru::test {
namespace {

using Rows = std::vector<Operation>;

/// A block of zeros, large enough for every record.
using Block = std::unique_ptr<void, void (*)(void *)>;
constexpr size_t kRoom = 131072;

Block zeros()
{
    return Block{std::calloc(1, kRoom), std::free};
}

template <class Record>
Operation onZeros(const char *name, uint32_t (*operation)(Record *))
{
    return {name, [operation] {
                const Block block = zeros();
                return operation(static_cast<Record *>(block.get()));
            }};
}

/// A record with a value, which the caller may not change.
template <class Record, class Taken>
Operation with(const char *name, uint32_t (*operation)(Taken *), const Record &record)
{
    return {name, [operation, record] {
                Record copy = record;
                return operation(&copy);
            }};
}

/// Two values, of which at least one is not the stored one.
void addSetter(Rows &rows, const char *name, uint32_t (*operation)(OruSdkFeatureParam *))
{
    for (const uint32_t value : {0u, 1u})
        rows.push_back(with(name, operation, OruSdkFeatureParam{0, 0, value}));
}
void addSetter(Rows &rows, const char *name, uint32_t (*operation)(OruSdkOptionParam *))
{
    for (const uint32_t value : {0u, 1u})
        rows.push_back(with(name, operation, OruSdkOptionParam{0, 0, value}));
}
void addSetter(Rows &rows, const char *name, uint32_t (*operation)(OruSdkRadioSwitchParam *))
{
    OruSdkRadioSwitchParam param{};
    std::memset(&param, 0, sizeof param);
    rows.push_back(with(name, operation, param));
}

#define ORU_ZEROS(name) onZeros(#name, name)
#define ORU_ROW(name, ...)                                                                         \
    Operation                                                                                      \
    {                                                                                              \
#name, [] { return static_cast<uint32_t>(name(__VA_ARGS__)); }                             \
    }
#define ORU_PAIR(name)                                                                             \
    rows.push_back(onZeros("oruSdkGet" #name, oruSdkGet##name));                                   \
    addSetter(rows, "oruSdkSet" #name, oruSdkSet##name)

void addSwitches(Rows &rows)
{
    ORU_PAIR(ShortGuardInterval40MHz);
    ORU_PAIR(ShortGuardInterval20MHz);
    ORU_PAIR(RifsSupport);
    ORU_PAIR(SmartBackgroundScan);
    ORU_PAIR(GreenfieldCapability);
    ORU_PAIR(11bSupport);
    ORU_PAIR(EnhancedRates);
    ORU_PAIR(Coexist2040);
    ORU_PAIR(SpectrumMgmt);
    ORU_PAIR(ReverseFcs);
    ORU_PAIR(Proximity);
    ORU_PAIR(Mimo);
    ORU_PAIR(RadioProprietaryExt);
    ORU_PAIR(RadarDetect);
    ORU_PAIR(AdminStatus);
    ORU_PAIR(Dot11StdExt);
    ORU_PAIR(BgScanning);
    ORU_PAIR(StaAcceptCriteria);
}

void addNumbers(Rows &rows)
{
    ORU_PAIR(LocalPowerConstraint);
    ORU_PAIR(MaxMpduFactor);
    ORU_PAIR(MpduDensity);
    ORU_PAIR(BlockAckAuto);
    ORU_PAIR(Bss2040CoexistElement);
    ORU_PAIR(BssWidthTriggerScanInterval);
    ORU_PAIR(NumSs);
    ORU_PAIR(TxPowerAdj);
    ORU_PAIR(TxPower);
    ORU_PAIR(NwkDensityValue);
    ORU_PAIR(NwkDensity);
    ORU_PAIR(PreambleType);
    ORU_PAIR(RadioPersona);
    ORU_PAIR(ChannelSet);
    ORU_PAIR(Dot11Mode);
    ORU_PAIR(RateParam);
    ORU_PAIR(McsRateParam);
    ORU_PAIR(BroadcastRate);
    ORU_PAIR(BroadcastMcsRate);
    ORU_PAIR(EdcaProfile);
    ORU_PAIR(DynamicProfileSelect);
    ORU_PAIR(ChannelBondingMode);
}

/// Reads a record, lets it be changed, and sets it.
template <class Record>
Operation changing(
    const char *name, uint32_t (*get)(Record *), uint32_t (*set)(Record *),
    void (*change)(Record &) = [](Record &) {})
{
    return {name, [get, set, change] {
                const Block block = zeros();
                auto &record = *static_cast<Record *>(block.get());
                get(&record);
                change(record);
                return set(&record);
            }};
}

#define ORU_CHANGE(name, record, field, value)                                                     \
    ORU_ZEROS(oruSdkGet##name),                                                                    \
        changing<record>("oruSdkSet" #name, oruSdkGet##name, oruSdkSet##name,                      \
                         [](record &param) { param.field = value; })

void addRecords(Rows &rows)
{
    const Rows more = {
        ORU_CHANGE(WorldMode, OruSdkWorldModeParam, worldModeSupport, 1),
        ORU_CHANGE(ChannelParam, OruSdkChannelParam, channel, 0),
        ORU_CHANGE(MaxRate, OruSdkMaxRateParam, maxRate, 0),
        ORU_CHANGE(Dot11MacParam, OruSdkDot11MacParam, rtsThreshold, 1000),
        ORU_CHANGE(BeaconParam, OruSdkBeaconParam, beaconPeriod, 200),
        ORU_CHANGE(Dot11Protection, OruSdkProtectionParam, prtnEnable, 1),
        ORU_CHANGE(Wmm, OruSdkWmmParam, wmmEnabled, 0),
        ORU_ZEROS(oruSdkGetDfsParam),
        changing<OruSdkDfsParam>("oruSdkSetDfsUniiBands", oruSdkGetDfsParam, oruSdkSetDfsUniiBands,
                                 [](OruSdkDfsParam &param) { param.lowUniiBand ^= 1; }),
        changing<OruSdkDfsParam>("oruSdkSetDfsParamEnable", oruSdkGetDfsParam,
                                 oruSdkSetDfsParamEnable,
                                 [](OruSdkDfsParam &param) { param.persistRdr ^= 1; }),
        changing<OruSdkDfsParam>("oruSdkSetDfsParamValue", oruSdkGetDfsParam,
                                 oruSdkSetDfsParamValue,
                                 [](OruSdkDfsParam &param) { param.weightMargin ^= 1; }),
        {"oruSdkSetDfsPrefChans",
         [] {
             OruSdkDfsParam param{};
             param.preferred24GPrimChan = 6;
             return oruSdkSetDfsPrefChans(&param, 0);
         }},
        ORU_ZEROS(oruSdkGetBasicRateSetParam),
        with("oruSdkSetBasicRateSetParam", oruSdkSetBasicRateSetParam,
             OruSdkBasicRateSetParam{0, 1, "1 5.5"}),
        ORU_ROW(oruSdkSetRdrPersistChan, "52:56"),
        ORU_ROW(convertExtToIntRateCode, 11),
        {"oruSdkGetSbsParams",
         [] {
             uint32_t values[2] = {};
             return oruSdkGetSbsParams(0, &values[0], &values[1]);
         }},
        ORU_ROW(oruSdkSetSbsParams, 0, 50, 7),
    };
    rows.insert(rows.end(), more.begin(), more.end());
}

/// Room for what a getter gives, of any kind.
struct Results {
    uint32_t numbers[4];
    int32_t count;
    char texts[4][66];
    char list[256 * 18];
};

#define ORU_RESULT(name, ...)                                                                      \
    Operation                                                                                      \
    {                                                                                              \
#name, [] {                                                                                \
            auto r = std::make_unique<Results>();                                                  \
            return name(__VA_ARGS__);                                                              \
        }       \
    }

uint32_t setRadius()
{
    OruSdkRadiusServer server{};
    std::strcpy(server.name, "radius.example");
    std::strcpy(server.secret, "a secret");
    server.port = 1812;
    return oruSdkSetRadiusConf(5, 3, 0, 1, &server);
}

uint32_t setEtherVlan()
{
    std::string words[] = {"oructl", "set", "vlan", "1", "5", "7", "9"};
    char *argv[std::size(words)];
    for (size_t i = 0; i < std::size(words); ++i) argv[i] = words[i].data();
    return oruSdkSetEtherVlanId(std::size(words), argv);
}

void addBss(Rows &rows)
{
    static const uint32_t kAllowed = 1;
    static const int32_t kOne = 1;
    const Rows more = {
        with("oruSdkAssignBss", oruSdkAssignBss, OruSdkAssignBssParam{}),
        ORU_RESULT(oruSdkGetAssignBssReq, 0, r->numbers),
        ORU_ROW(oruSdkSetSsid, 0, "A new name, \xc3\xbc"),
        ORU_RESULT(oruSdkGetSsid, 0, r->texts[0], r->numbers),
        changing<OruSdkSuppressSsidParam>("oruSdkSetSuppressSsid", oruSdkGetSuppressSsid,
                                          oruSdkSetSuppressSsid),
        ORU_ZEROS(oruSdkGetSuppressSsid),
        ORU_ROW(oruSdkSetIntraBss, 0, 0),
        ORU_RESULT(oruSdkGetIntraBss, 0, r->numbers),
        ORU_ROW(oruSdkSetInterBss, 0, 0),
        ORU_RESULT(oruSdkGetInterBss, 0, r->numbers),
        ORU_ROW(oruSdkSetVlanId, 0, 77),
        ORU_RESULT(oruSdkGetVlanId, r->numbers, 0),
        {"oruSdkSetEtherVlanId", setEtherVlan},
        ORU_RESULT(oruSdkGetEtherVlanId, reinterpret_cast<uint16_t *>(r->list), r->numbers,
                   r->numbers + 1, 0),
        ORU_ROW(oruSdkSetSecModeOpen, 0, 0),
        ORU_RESULT(oruSdkGetSecModeOpen, 0, r->numbers),
        ORU_ROW(oruSdkSetSecModeWpa, 1, 3, 2, 2),
        ORU_RESULT(oruSdkGetSecModeWpa, 0, r->numbers, r->numbers + 1, r->numbers + 2),
        ORU_ROW(oruSdkSetSecModeWep, 1, 1, 5, 1, "0123456789", nullptr, nullptr, nullptr),
        ORU_RESULT(oruSdkGetSecModeWep, 0, r->numbers, r->numbers + 1, r->numbers + 2, r->texts[0],
                   r->texts[1], r->texts[2], r->texts[3]),
        ORU_ROW(isHex, "00ff"),
        ORU_ROW(oruSdkSetWpaPsk, 0, "correct horse"),
        ORU_RESULT(oruSdkGetWpaPsk, 0, r->texts[0], r->numbers),
        {"oruSdkSetSecTimeouts",
         [] {
             OruSdkSecTimeoutsParam param{};
             oruSdkGetSecTimeouts(&param, 0);
             param.groupKeyTimeout = 900;
             return oruSdkSetSecTimeouts(&param, 0);
         }},
        {"oruSdkGetSecTimeouts",
         [] {
             OruSdkSecTimeoutsParam param{};
             return oruSdkGetSecTimeouts(&param, 0);
         }},
        with("oruSdkSetMacAuth", oruSdkSetMacAuth, OruSdkMacAuthParam{}),
        ORU_ZEROS(oruSdkGetMacAuth),
        {"oruSdkSetRadiusConf", setRadius},
        ORU_RESULT(oruSdkGetRadiusConf, r->numbers, r->numbers + 1, r->numbers + 2, r->numbers + 3,
                   reinterpret_cast<OruSdkRadiusServer *>(r->list)),
        ORU_ROW(oruSdkSetMacAclList, &kAllowed, &kOne, "00:11:22:33:44:55"),
        ORU_RESULT(oruSdkGetMacAclList, r->numbers, &r->count, r->list),
    };
    rows.insert(rows.end(), more.begin(), more.end());
}

void addWps(Rows &rows)
{
    static char ssid[] = "bridge";
    static char bssid[] = "00:11:22:33:44:55";
    const Rows more = {
        ORU_RESULT(oruSdkGetRegistrarInfo, 0, r->numbers),
        with("oruSdkSetRegistrarInfo", oruSdkSetRegistrarInfo, OruSdkRegistrarParam{0, 0, 2}),
        ORU_RESULT(oruSdkGetApEnforcePinTimeout, 0, r->numbers),
        ORU_ROW(oruSdkSetApEnforcePinTimeout, 0, 1),
        ORU_RESULT(oruSdkGetWscState, 0, r->numbers),
        ORU_ROW(oruSdkSetWscState, 0, 2),
        ORU_RESULT(oruSdkGetWsc, 0, r->numbers),
        ORU_ROW(oruSdkSetWsc, 0, 1),
        ORU_RESULT(oruSdkGetUuid, 0, r->texts[0], r->numbers),
        ORU_ROW(oruSdkSetUuid, 0, "00112233445566778899aabbccddeeff"),
        ORU_RESULT(oruSdkGetWpsIntf, 0, r->texts[0], r->numbers),
        ORU_ROW(oruSdkSetWpsIntf, 0, "wlan7"),
        {"oruSdkGetClientAdminCrit",
         [] {
             char texts[2][33];
             OruSdkClientAdminCritParam param{};
             param.ssid = texts[0];
             param.bssid = texts[1];
             return oruSdkGetClientAdminCrit(&param);
         }},
        {"oruSdkSetClientAdminCrit",
         [] {
             OruSdkClientAdminCritParam param{};
             param.ssid = ssid;
             param.bssid = bssid;
             return oruSdkSetClientAdminCrit(&param);
         }},
        ORU_ROW(oruSdkSetDevicePin, 0, 0, "12345670"),
        ORU_RESULT(oruSdkGetDevicePin, 0, r->texts[0], r->numbers),
        ORU_ROW(oruSdkGenPassword, 0, 0),
        {"sendWscEnroll",
         [] {
             oruSdkSetWsc(0, 1);
             return sendWscEnroll(1, 0, 0, "");
         }},
        ORU_RESULT(oruSdkGetWscStatus, 0, 0, r->numbers),
    };
    rows.insert(rows.end(), more.begin(), more.end());
}

void addStatus(Rows &rows)
{
    static const uint8_t station[6] = {0x02, 0x11, 0x22, 0x33, 0x44, 0x55};
    const Rows more = {
        {"oruSdkGetVersion", [] { return static_cast<uint32_t>(*oruSdkGetVersion() == '\0'); }},
        ORU_ROW(oruSdkCommitRadio),
        ORU_ROW(oruSdkCommitAll),
        ORU_ROW(oruSdkResetToDefaults),
        ORU_ROW(oruSdkResetToBss, 0),
        ORU_ZEROS(oruSdkGetRadioInfo),
        ORU_ZEROS(oruSdkGetRadioStats),
        ORU_ZEROS(oruSdkGetStaStats),
        ORU_ROW(oruSdkGetStatsValue, "tx", "tx 0"),
        ORU_ZEROS(oruSdkGetBssListParam),
        ORU_ZEROS(oruSdkGetScanlistParam),
        ORU_ZEROS(oruSdkGetStationParam),
        ORU_ZEROS(oruSdkGetRadioParam),
        ORU_ROW(sendDisAssocReq, station),
        ORU_ZEROS(oruSdkGetBssInfoParam),
    };
    rows.insert(rows.end(), more.begin(), more.end());
}

} // namespace

const std::vector<Operation> &operations()
{
    static const Rows all = [] {
        Rows rows;
        addSwitches(rows);
        addNumbers(rows);
        addRecords(rows);
        addBss(rows);
        addWps(rows);
        addStatus(rows);
        return rows;
    }();
    return all;
}

} // namespace oru::test
