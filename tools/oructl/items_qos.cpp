// Quality of service and channel bonding.
#include "adapt.hpp"
#include "items.hpp"
#include "radio_state.hpp"

namespace oructl {
namespace {

constexpr std::string_view kFile = "/var/wsmDefaults";

// ---- WMM

enum : size_t { kEnabled, kClassifier };

constexpr Word kClassifierWords[] = {{"disabled", 0}, {"auto", 1}, {"wmm", 2}, {"enhanced", 3}};
constexpr Field kWmmFields[] = {
    {.name = "enabled", .kind = Kind::Switch, .bounds = {0, 1}, .words = kOnOffWords},
    {.name = "classifier",
     .kind = Kind::Choice,
     .bounds = {0, 3},
     .words = kClassifierWords,
     .option = "classifier",
     .meaning = "of traffic; as it is unless given"}};

uint32_t readWmm(int64_t radio, OruSdkWmmParam &record)
{
    record.radioIndex = static_cast<uint32_t>(radio);
    return oruSdkGetWmm(&record);
}

uint32_t getWmm(Call &call)
{
    OruSdkWmmParam record{};
    const uint32_t code = readWmm(call.index, record);
    if (code != ORUSDK_RC_OK) return code;
    call.values[kEnabled] = {.given = true, .number = static_cast<int32_t>(record.wmmEnabled)};
    call.values[kClassifier] = {.given = true,
                                .number = static_cast<int32_t>(record.trafficClassifier)};
    return code;
}

uint32_t setWmm(const Call &call)
{
    OruSdkWmmParam record{};
    record.radioIndex = static_cast<uint32_t>(call.index);
    record.trafficClassifier = static_cast<uint32_t>(call.values[kClassifier].number);
    if (!call.values[kClassifier].given)
        if (const uint32_t code = readWmm(call.index, record); code != ORUSDK_RC_OK) return code;
    record.wmmEnabled = static_cast<uint32_t>(call.values[kEnabled].number);
    return oruSdkSetWmm(&record);
}

/// A classifier that the call left out may be stored with an illegal value.
std::string whyClassifier(const Call &call)
{
    OruSdkWmmParam record{};
    if (call.values[kClassifier].given || readWmm(call.index, record) != ORUSDK_RC_OK) return "";
    if (record.trafficClassifier <= 3) return "";
    return concat({"the classifier is stored as ",
                   std::to_string(static_cast<int32_t>(record.trafficClassifier)),
                   "; set it too, with: --classifier"});
}

std::string whyWmm(uint32_t code, const Call &call)
{
    if (code == ORUSDK_RC_NEEDS_STD_EXTENSIONS) return whyStandardExt(call.index);
    return code == ORUSDK_RC_WMM ? whyClassifier(call) : "";
}

// ---- Profiles

constexpr Word kEdcaWords[] = {{"tavon", 0}, {"wmm", 1}};
constexpr Field kEdca[] = {
    {.name = "", .kind = Kind::Choice, .bounds = {0, 1}, .words = kEdcaWords}};
constexpr Word kDynamicWords[] = {{"tavon", 0}, {"wmm", 1}, {"off", 2}};
constexpr Field kDynamic[] = {
    {.name = "", .kind = Kind::Choice, .bounds = {0, 2}, .words = kDynamicWords}};

std::string whyDynamicProfile(uint32_t code, const Call &call)
{
    OruSdkWmmParam record{};
    if (code != ORUSDK_RC_NEEDS_WMM || readWmm(call.index, record) != ORUSDK_RC_OK) return "";
    if (record.wmmEnabled != 0) return "";
    return "WMM is off; switch it on with: " + setCommand("wmm", call.index, "on");
}

// ---- Channel bonding

constexpr Word kBondingWords[] = {{"20mhz", 0}, {"40mhz", 1}};
constexpr Field kBonding[] = {
    {.name = "", .kind = Kind::Number, .bounds = {0, 3}, .words = kBondingWords}};

constexpr Item kItems[] = {
    {.name = "wmm",
     .scope = Scope::Radio,
     .index = {INT32_MIN, INT32_MAX},
     .fields = kWmmFields,
     .get = getWmm,
     .set = setWmm,
     .operations = "oruSdkGetWmm oruSdkSetWmm",
     .keys = "wmmEnabledFlag TrafficClassifier",
     .files = kFile,
     .summary = "WMM and the traffic classifier",
     .reason = whyWmm,
     .reads = "radio%d.standardExt"},
    radioOption<oruSdkGetEdcaProfile, oruSdkSetEdcaProfile>(
        "edca-profile", kEdca, "oruSdkGetEdcaProfile oruSdkSetEdcaProfile", "edcaProfile",
        "EDCA profile"),
    explained(radioOption<oruSdkGetDynamicProfileSelect, oruSdkSetDynamicProfileSelect>(
                  "dynamic-profile", kDynamic,
                  "oruSdkGetDynamicProfileSelect oruSdkSetDynamicProfileSelect",
                  "dynamicProfileSelection", "dynamic selection of the EDCA profile"),
              whyDynamicProfile, "wmmEnabledFlag TrafficClassifier"),
    radioOption<oruSdkGetChannelBondingMode, oruSdkSetChannelBondingMode>(
        "channel-bonding", kBonding, "oruSdkGetChannelBondingMode oruSdkSetChannelBondingMode",
        "radio%d.channelBondingMode",
        "channel width; a change sets the broadcast rates to MCS at 40 MHz"),
};

} // namespace

std::span<const Item> qosItems()
{
    return kItems;
}

} // namespace oructl
