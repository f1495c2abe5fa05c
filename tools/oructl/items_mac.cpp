// MAC thresholds, beacons, protection, extensions, scanning and admission.
#include "adapt.hpp"
#include "items.hpp"
#include "radio_state.hpp"
#include "values.hpp"

#include <algorithm>
#include <array>

namespace oructl {
namespace {

constexpr std::string_view kFile = "/var/wsmDefaults";
constexpr Bounds kIndex = {INT32_MIN, INT32_MAX};

Value given(uint32_t number)
{
    return {.given = true, .number = static_cast<int32_t>(number)};
}

// ---- Records of which a set may name a part

/// The numbers of a record, in the order of the item's fields.
template <class Record>
struct Parts;

template <>
struct Parts<OruSdkDot11MacParam> {
    static constexpr std::array kOf = {
        &OruSdkDot11MacParam::fragThreshold, &OruSdkDot11MacParam::rtsThreshold,
        &OruSdkDot11MacParam::shortRetryLimit, &OruSdkDot11MacParam::longRetryLimit};
};

template <>
struct Parts<OruSdkBeaconParam> {
    static constexpr std::array kOf = {&OruSdkBeaconParam::beaconPeriod,
                                       &OruSdkBeaconParam::dtimPeriod};
};

template <class Record, uint32_t (*Get)(Record *)>
uint32_t getParts(Call &call)
{
    Record record{};
    record.radioIndex = static_cast<uint32_t>(call.index);
    const uint32_t code = Get(&record);
    if (code != ORUSDK_RC_OK) return code;
    for (size_t i = 0; i < call.values.size(); ++i)
        call.values[i] = given(record.*Parts<Record>::kOf[i]);
    return code;
}

/// What the call leaves out stays as it is stored.
template <class Record, uint32_t (*Get)(Record *), uint32_t (*Set)(Record *)>
uint32_t setParts(const Call &call)
{
    Record record{};
    record.radioIndex = static_cast<uint32_t>(call.index);
    if (std::any_of(call.values.begin(), call.values.end(),
                    [](const Value &v) { return !v.given; }))
        if (const uint32_t code = Get(&record); code != ORUSDK_RC_OK) return code;
    for (size_t i = 0; i < call.values.size(); ++i)
        if (call.values[i].given)
            record.*Parts<Record>::kOf[i] = static_cast<uint32_t>(call.values[i].number);
    return Set(&record);
}

std::string nothingGiven(const Call &call)
{
    const bool given = std::any_of(call.values.begin(), call.values.end(),
                                   [](const Value &value) { return value.given; });
    return given ? "" : "no value is given";
}

constexpr Field kMacFields[] = {{.name = "frag-threshold",
                                 .kind = Kind::Number,
                                 .bounds = {256, 2346},
                                 .unit = "bytes",
                                 .option = "frag-threshold"},
                                {.name = "rts-threshold",
                                 .kind = Kind::Number,
                                 .bounds = {1, 2347},
                                 .unit = "bytes",
                                 .option = "rts-threshold"},
                                {.name = "short-retry-limit",
                                 .kind = Kind::Number,
                                 .bounds = {0, 255},
                                 .option = "short-retry-limit"},
                                {.name = "long-retry-limit",
                                 .kind = Kind::Number,
                                 .bounds = {0, 255},
                                 .option = "long-retry-limit"}};

constexpr Field kBeaconFields[] = {{.name = "beacon-period",
                                    .kind = Kind::Number,
                                    .bounds = {1, 65535},
                                    .unit = "time units",
                                    .option = "beacon-period"},
                                   {.name = "dtim-period",
                                    .kind = Kind::Number,
                                    .bounds = {1, 255},
                                    .unit = "beacons",
                                    .option = "dtim-period"}};

/// For a refusal of a part that the call left out: it is stored with an illegal value.
template <class Record, uint32_t (*Get)(Record *)>
std::string whyLeftOut(size_t part, std::span<const Field> fields, const Call &call)
{
    if (part >= fields.size() || call.values[part].given) return "";
    Call read{.index = call.index, .values = std::vector<Value>(fields.size())};
    if (getParts<Record, Get>(read) != ORUSDK_RC_OK) return "";
    if (isLegal(fields[part], read.values[part])) return "";
    return concat({fields[part].name, " is stored as ", std::to_string(read.values[part].number),
                   "; set it too, with: --", fields[part].option, " (", legalValues(fields[part]),
                   ")"});
}

std::string whyMac(uint32_t code, const Call &call)
{
    return whyLeftOut<OruSdkDot11MacParam, oruSdkGetDot11MacParam>(code - ORUSDK_RC_FRAG_THRESHOLD,
                                                                   kMacFields, call);
}

std::string whyBeacon(uint32_t code, const Call &call)
{
    return whyLeftOut<OruSdkBeaconParam, oruSdkGetBeaconParam>(code - ORUSDK_RC_BEACON_PERIOD,
                                                               kBeaconFields, call);
}

// ---- Protection

enum : size_t { kState, kProtectionMode };
constexpr int64_t kByMode = 4;

constexpr Word kProtectionWords[] = {{"off", 0}, {"on", 1}, {"by-mode", kByMode}};
constexpr Field kProtectionFields[] = {
    {.name = "state", .kind = Kind::Number, .bounds = {0, 4}, .words = kProtectionWords},
    {.name = "mode",
     .kind = Kind::Number,
     .bounds = {INT32_MIN, INT32_MAX},
     .option = "mode",
     .meaning = "of by-mode"}};

uint32_t getProtection(Call &call)
{
    OruSdkProtectionParam record{};
    record.radioIndex = static_cast<uint32_t>(call.index);
    const uint32_t code = oruSdkGetDot11Protection(&record);
    if (code != ORUSDK_RC_OK) return code;
    call.values[kState] = given(record.prtnEnable);
    if (record.prtnEnable == kByMode) call.values[kProtectionMode] = given(record.protectionMode);
    return code;
}

uint32_t setProtection(const Call &call)
{
    OruSdkProtectionParam record{.radioIndex = static_cast<uint32_t>(call.index),
                                 .prtnEnable = static_cast<uint32_t>(call.values[kState].number),
                                 .protectionMode =
                                     static_cast<uint32_t>(call.values[kProtectionMode].number)};
    return oruSdkSetDot11Protection(&record);
}

std::string protectionConflict(const Call &call)
{
    const bool byMode = call.values[kState].number == kByMode;
    if (byMode == call.values[kProtectionMode].given) return "";
    return byMode ? "by-mode needs --mode" : "--mode goes with by-mode alone";
}

// ---- Switches that depend on each other

template <uint32_t (*Get)(OruSdkRadioSwitchParam *), uint32_t (*Set)(OruSdkRadioSwitchParam *)>
constexpr Item dependent(std::string_view name, std::span<const Field> field,
                         std::string_view operations, std::string_view key,
                         std::string_view summary)
{
    return radioItem<OruSdkRadioSwitchParam, Get, Set>(name, field, operations, key, summary);
}

/// Periodic selection is one for both radios, but only a radio that uses it can show it.
std::string whyBgScanning(uint32_t code, const Call &)
{
    if (code != ORUSDK_RC_PERIODIC_DFS) return "";
    for (const int64_t radio : {0, 1}) {
        ChannelChoice choice;
        if (readChannelChoice(radio, choice) != ORUSDK_RC_OK || choice.fixed || choice.mode != 1)
            continue;
        return concat({radioName(radio),
                       " selects its channel periodically, which needs scanning; "
                       "end that with: ",
                       setCommand("channel", radio, "auto")});
    }
    return "";
}

constexpr Word kAdmissionWords[] = {{"admit", 1}, {"reject", 0}};
constexpr Field kAdmission[] = {
    {.name = "", .kind = Kind::Choice, .bounds = {0, 1}, .words = kAdmissionWords}};

std::string whyAdmission(uint32_t code, const Call &call)
{
    if (code == ORUSDK_RC_NEEDS_STD_EXTENSIONS) return whyStandardExt(call.index);
    if (code != ORUSDK_RC_MODE_IS_11B_ONLY || storedMode(call.index) != 2) return "";
    return concat({radioName(call.index), " is in the 802.11b-only mode; change it with: ",
                   setCommand("dot11-mode", call.index, "11bg")});
}

// ---- Smart background scanning

constexpr Field kSbsFields[] = {
    {.name = "threshold", .kind = Kind::Number, .bounds = {INT32_MIN, INT32_MAX}},
    {.name = "counter", .kind = Kind::Number, .bounds = {INT32_MIN, INT32_MAX}}};

uint32_t getSbs(Call &call)
{
    uint32_t threshold = 0;
    uint32_t counter = 0;
    const uint32_t code =
        oruSdkGetSbsParams(static_cast<int32_t>(call.index), &threshold, &counter);
    if (code == ORUSDK_RC_OK) call.values = {given(threshold), given(counter)};
    return code;
}

uint32_t setSbs(const Call &call)
{
    return oruSdkSetSbsParams(static_cast<int32_t>(call.index),
                              static_cast<uint32_t>(call.values[0].number),
                              static_cast<uint32_t>(call.values[1].number));
}

constexpr Item kItems[] = {
    {.name = "dot11-mac",
     .scope = Scope::Radio,
     .index = kIndex,
     .fields = kMacFields,
     .get = getParts<OruSdkDot11MacParam, oruSdkGetDot11MacParam>,
     .set = setParts<OruSdkDot11MacParam, oruSdkGetDot11MacParam, oruSdkSetDot11MacParam>,
     .operations = "oruSdkGetDot11MacParam oruSdkSetDot11MacParam",
     .keys = "radio%d.fragThPeriod radio%d.rtsThPeriod radio%d.shortRetryLimit "
             "radio%d.longRetryLimit",
     .files = kFile,
     .summary = "MAC thresholds and retry limits; what a set leaves out stays",
     .reason = whyMac,
     .conflict = nothingGiven},
    {.name = "beacon",
     .scope = Scope::Radio,
     .index = kIndex,
     .fields = kBeaconFields,
     .get = getParts<OruSdkBeaconParam, oruSdkGetBeaconParam>,
     .set = setParts<OruSdkBeaconParam, oruSdkGetBeaconParam, oruSdkSetBeaconParam>,
     .operations = "oruSdkGetBeaconParam oruSdkSetBeaconParam",
     .keys = "radio%d.beaconPeriod radio%d.dtimPeriod",
     .files = kFile,
     .summary = "beacon and DTIM periods; what a set leaves out stays",
     .reason = whyBeacon,
     .conflict = nothingGiven},
    {.name = "protection",
     .scope = Scope::Radio,
     .index = kIndex,
     .fields = kProtectionFields,
     .get = getProtection,
     .set = setProtection,
     .operations = "oruSdkGetDot11Protection oruSdkSetDot11Protection",
     .keys = "radio%d.dot11Protection radio%d.ProtectionMode dot11gShortSlotTime",
     .files = kFile,
     .summary = "802.11g protection",
     .conflict = protectionConflict},
    dependent<oruSdkGetDot11StdExt, oruSdkSetDot11StdExt>(
        "standard-ext", kOnOff, "oruSdkGetDot11StdExt oruSdkSetDot11StdExt", "radio%d.standardExt",
        "standard extensions; off sets the 802.11b-only mode, and WMM off for both radios"),
    explained(dependent<oruSdkGetBgScanning, oruSdkSetBgScanning>(
                  "bg-scanning", kOnOff, "oruSdkGetBgScanning oruSdkSetBgScanning",
                  "measurementDisabled", "background scanning"),
              whyBgScanning, "periodicDfsFlag"),
    explained(dependent<oruSdkGetStaAcceptCriteria, oruSdkSetStaAcceptCriteria>(
                  "11b-admission", kAdmission,
                  "oruSdkGetStaAcceptCriteria oruSdkSetStaAcceptCriteria",
                  "radio%d.adminDot11bStaFlag", "admission of 802.11b stations"),
              whyAdmission, "radio%d.standardExt radio%d.dot11Mode"),
    {.name = "sbs",
     .scope = Scope::Radio,
     .index = kIndex,
     .fields = kSbsFields,
     .get = getSbs,
     .set = setSbs,
     .operations = "oruSdkGetSbsParams oruSdkSetSbsParams",
     .keys = "radio%d.sbsThreshold radio%d.sbsCounter",
     .files = kFile,
     .summary = "threshold and counter of smart background scanning"},
};

} // namespace

std::span<const Item> macItems()
{
    return kItems;
}

} // namespace oructl
