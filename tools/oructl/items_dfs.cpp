// Dynamic frequency selection. All settings are one for both radios.
#include "adapt.hpp"
#include "channels.hpp"
#include "items.hpp"
#include "radio_state.hpp"
#include "values.hpp"

#include <algorithm>

namespace oructl {
namespace {

constexpr std::string_view kFile = "/var/wsmDefaults";
constexpr Bounds kIndex = {0, UINT8_MAX};

/// A number that the record's field can't hold becomes one that every check refuses.
uint8_t low8(int64_t number)
{
    return number < 0 || number > UINT8_MAX ? UINT8_MAX : static_cast<uint8_t>(number);
}

OruSdkDfsParam recordOf(const Call &call)
{
    OruSdkDfsParam record{};
    record.radioIndex = static_cast<uint8_t>(call.index);
    return record;
}

Value given(uint32_t number)
{
    return {.given = true, .number = static_cast<int32_t>(number)};
}

// ---- Single settings

template <auto Part>
uint32_t getPart(Call &call)
{
    OruSdkDfsParam record = recordOf(call);
    const uint32_t code = oruSdkGetDfsParam(&record);
    if (code == ORUSDK_RC_OK) call.values[0] = given(record.*Part);
    return code;
}

template <auto Part, uint8_t Id, uint32_t (*Set)(OruSdkDfsParam *)>
uint32_t setPart(const Call &call)
{
    OruSdkDfsParam record = recordOf(call);
    record.paramId = Id;
    if constexpr (sizeof(record.*Part) == 1) record.*Part = low8(call.values[0].number);
    else record.*Part = static_cast<uint32_t>(call.values[0].number);
    return Set(&record);
}

template <auto Part, uint8_t Id, uint32_t (*Set)(OruSdkDfsParam *)>
constexpr Item dfsItem(std::string_view name, std::span<const Field> field,
                       std::string_view operations, std::string_view key, std::string_view summary)
{
    return {.name = name,
            .scope = Scope::Radio,
            .index = kIndex,
            .fields = field,
            .get = getPart<Part>,
            .set = setPart<Part, Id, Set>,
            .operations = operations,
            .keys = key,
            .files = kFile,
            .summary = summary};
}

template <auto Part, uint8_t Id>
constexpr Item dfsSwitch(std::string_view name, std::string_view key, std::string_view summary)
{
    return dfsItem<Part, Id, oruSdkSetDfsParamEnable>(
        name, kOnOff, "oruSdkGetDfsParam oruSdkSetDfsParamEnable", key, summary);
}

template <auto Part, uint8_t Id>
constexpr Item dfsNumber(std::string_view name, std::span<const Field> field, std::string_view key,
                         std::string_view summary)
{
    return dfsItem<Part, Id, oruSdkSetDfsParamValue>(
        name, field, "oruSdkGetDfsParam oruSdkSetDfsParamValue", key, summary);
}

constexpr Word kAnyWords[] = {{"any", 0}};
constexpr Field kPreferredBand[] = {{.name = "",
                                     .kind = Kind::Number,
                                     .bounds = {0, 2},
                                     .words = kAnyWords,
                                     .meaning = "what 1 and 2 are is for WSM to say"}};

// ---- 5 GHz sub-bands

constexpr Field kUniiBands[] = {
    {.name = "low", .kind = Kind::Switch, .bounds = {0, 1}, .words = kOnOffWords},
    {.name = "mid", .kind = Kind::Switch, .bounds = {0, 1}, .words = kOnOffWords},
    {.name = "high", .kind = Kind::Switch, .bounds = {0, 1}, .words = kOnOffWords}};

uint32_t getUniiBands(Call &call)
{
    OruSdkDfsParam record = recordOf(call);
    const uint32_t code = oruSdkGetDfsParam(&record);
    if (code != ORUSDK_RC_OK) return code;
    call.values = {given(record.lowUniiBand), given(record.midUniiBand),
                   given(record.highUniiBand)};
    return code;
}

uint32_t setUniiBands(const Call &call)
{
    OruSdkDfsParam record = recordOf(call);
    record.lowUniiBand = low8(call.values[0].number);
    record.midUniiBand = low8(call.values[1].number);
    record.highUniiBand = low8(call.values[2].number);
    return oruSdkSetDfsUniiBands(&record);
}

// ---- Preferred channels

enum : size_t { kBand, kPrimary, kSecondary, kPreferred, kFirstRead };
enum : int64_t { k5GHz = 1, k24GHz = 2 };

constexpr Word kBandWords[] = {{"2.4ghz", k24GHz}, {"5ghz", k5GHz}};
constexpr Word kNoneWords[] = {{"none", 0}};
constexpr Field kPreferredChannels[] = {
    {.name = "band", .kind = Kind::Choice, .use = Use::Set, .bounds = {1, 2}, .words = kBandWords},
    {.name = "primary", .kind = Kind::Number, .use = Use::Set, .bounds = {1, 161}},
    {.name = "secondary",
     .kind = Kind::Number,
     .use = Use::Set,
     .bounds = {1, 161},
     .words = kNoneWords,
     .meaning = "none at 5 GHz without channel bonding"},
    {.name = "preferred-band",
     .kind = Kind::Number,
     .bounds = {0, 2},
     .words = kAnyWords,
     .option = "preferred-band",
     .meaning = "as in dfs-preferred-band, and as it is unless given"},
    {.name = "24ghz-primary", .kind = Kind::Number, .use = Use::Get, .bounds = {0, 255}},
    {.name = "24ghz-secondary",
     .kind = Kind::Number,
     .use = Use::Get,
     .bounds = {0, 255},
     .words = kNoneWords},
    {.name = "5ghz-primary", .kind = Kind::Number, .use = Use::Get, .bounds = {0, 255}},
    {.name = "5ghz-secondary",
     .kind = Kind::Number,
     .use = Use::Get,
     .bounds = {0, 255},
     .words = kNoneWords}};

uint32_t getPreferredChannels(Call &call)
{
    OruSdkDfsParam record = recordOf(call);
    const uint32_t code = oruSdkGetDfsParam(&record);
    if (code != ORUSDK_RC_OK) return code;
    call.values[kPreferred] = given(record.preferredBand);
    call.values[kFirstRead] = given(record.preferred24GPrimChan);
    call.values[kFirstRead + 1] = given(record.preferred24GSecdChan);
    call.values[kFirstRead + 2] = given(record.preferred5GPrimChan);
    call.values[kFirstRead + 3] = given(record.preferred5GSecdChan);
    return code;
}

uint32_t setPreferredChannels(const Call &call)
{
    OruSdkDfsParam record = recordOf(call);
    if (call.values[kPreferred].given) {
        record.preferredBand = low8(call.values[kPreferred].number);
    } else if (const uint32_t code = oruSdkGetDfsParam(&record); code != ORUSDK_RC_OK) {
        return code;
    }
    const uint8_t primary = low8(call.values[kPrimary].number);
    const uint8_t secondary = low8(call.values[kSecondary].number);
    record.preferred24GPrimChan = record.preferred5GPrimChan = primary;
    record.preferred24GSecdChan = record.preferred5GSecdChan = secondary;
    return oruSdkSetDfsPrefChans(&record, low8(call.values[kBand].number));
}

/// Stores what a get gives: the channels of each band and the preferred band, where they are
/// others.
uint32_t restorePreferredChannels(const Call &call)
{
    Call now{.index = call.index, .values = std::vector<Value>(std::size(kPreferredChannels))};
    if (const uint32_t code = getPreferredChannels(now); code != ORUSDK_RC_OK) return code;
    const auto differs = [&](size_t field) {
        return call.values[field].given && call.values[field].number != now.values[field].number;
    };
    for (const int64_t band : {k24GHz, k5GHz}) {
        const size_t primary = band == k24GHz ? kFirstRead : kFirstRead + 2;
        if (!differs(primary) && !differs(primary + 1)) continue;
        Call one{.index = call.index, .values = std::vector<Value>(std::size(kPreferredChannels))};
        one.values[kBand] = given(static_cast<uint32_t>(band));
        for (const size_t i : {size_t{0}, size_t{1}})
            one.values[kPrimary + i] =
                call.values[primary + i].given ? call.values[primary + i] : now.values[primary + i];
        if (const uint32_t code = setPreferredChannels(one); code != ORUSDK_RC_OK) return code;
    }
    if (!differs(kPreferred)) return ORUSDK_RC_OK;
    const Call band{.index = call.index, .values = {call.values[kPreferred]}};
    return setPart<&OruSdkDfsParam::preferredBand, ORUSDK_DFS_PREFERRED_BAND,
                   oruSdkSetDfsParamValue>(band);
}

/// The library takes every preferred band here.
std::string preferredConflict(const Call &call)
{
    const Value &band = call.values[kPreferred];
    if (!band.given || (band.number >= 0 && band.number <= 2)) return "";
    return "--preferred-band takes " + legalValues(kPreferredChannels[kPreferred]);
}

std::string whyNotAt5GHz(int64_t radio, const Value &channel)
{
    const RadioFacts facts = radioFacts(radio);
    if (facts.code != ORUSDK_RC_OK)
        return "WSM does not tell which channels are allowed (code " + std::to_string(facts.code) +
               ')';
    if (!facts.told) return "WSM tells of no " + radioName(radio);
    std::vector<uint8_t> allowed = facts.channels;
    std::erase_if(allowed, [](uint8_t each) { return isAt24GHz(each); });
    if (std::find(allowed.begin(), allowed.end(), channel.number) != allowed.end()) return "";
    return concat({"in its country (", printable(facts.country), ") ", radioName(radio),
                   " may use ", allowed.empty() ? "no channel" : listed(allowed), " at 5 GHz, not ",
                   std::to_string(channel.number)});
}

std::string whyPreferredChannels(uint32_t code, const Call &call)
{
    switch (code) {
    case ORUSDK_RC_CHANNEL:
        return "at 2.4 GHz the primary channel is 1 to 14 (1 to 13 with channel bonding), and the "
               "secondary one 1 to 13, four channels above or below";
    case ORUSDK_RC_REG_DOMAIN: return whyNotAt5GHz(call.index, call.values[kPrimary]);
    case ORUSDK_RC_SECONDARY_CHANNEL: return whyNotAt5GHz(call.index, call.values[kSecondary]);
    default: return "";
    }
}

constexpr Item kItems[] = {
    dfsNumber<&OruSdkDfsParam::preferredBand, ORUSDK_DFS_PREFERRED_BAND>(
        "dfs-preferred-band", kPreferredBand, "dfsPreferredBand",
        "band that channel selection prefers"),
    dfsNumber<&OruSdkDfsParam::weightMargin, ORUSDK_DFS_WEIGHT_MARGIN>(
        "dfs-weight-margin", kNumber<0, 100>, "dfsWeightMargin",
        "margin between the weights of two channels"),
    dfsNumber<&OruSdkDfsParam::cbSwitch, ORUSDK_DFS_CB_SWITCH>(
        "cb-switch", kNumber<0, 1000000000>, "cbSwitch", "channel bonding switch of WSM"),
    dfsNumber<&OruSdkDfsParam::rdrChanWghtFactor, ORUSDK_DFS_RDR_WEIGHT_FACTOR>(
        "dfs-radar-weight-factor", kNumber<0, 1000000000>, "dfsRdrChanWghtFactor",
        "weight factor of channels with radar"),
    dfsSwitch<&OruSdkDfsParam::persistRdr, ORUSDK_DFS_PERSIST_RDR>(
        "dfs-persist-radar", "dfsPersistRdr", "remember channels with radar"),
    dfsSwitch<&OruSdkDfsParam::forceChSelChan, ORUSDK_DFS_FORCE_CH_SEL>(
        "dfs-force-channel", "dfsForceChSelChan", "forced selection of a channel"),
    dfsSwitch<&OruSdkDfsParam::rdrParking, ORUSDK_DFS_RDR_PARKING>(
        "dfs-radar-parking", "dfsRdrParking", "radar parking"),
    {.name = "dfs-unii-bands",
     .scope = Scope::Radio,
     .index = kIndex,
     .fields = kUniiBands,
     .get = getUniiBands,
     .set = setUniiBands,
     .operations = "oruSdkGetDfsParam oruSdkSetDfsUniiBands",
     .keys = "dfsLowUNIIBand dfsMidUNIIBand dfsHighUNIIBand",
     .files = kFile,
     .summary = "5 GHz sub-bands that may be selected"},
    {.name = "dfs-preferred-channels",
     .scope = Scope::Radio,
     .index = kIndex,
     .fields = kPreferredChannels,
     .get = getPreferredChannels,
     .set = setPreferredChannels,
     .operations = "oruSdkGetDfsParam oruSdkSetDfsPrefChans",
     .keys = "dfsPreferred24GPrimChan dfsPreferred24GSecdChan dfsPreferred5GPrimChan "
             "dfsPreferred5GSecdChan dfsPreferredBand",
     .files = kFile,
     .summary = "channels that selection prefers, set for one band at a time",
     .reason = whyPreferredChannels,
     .conflict = preferredConflict,
     .reads = "radio%d.channelBondingMode",
     .restore = restorePreferredChannels},
};

} // namespace

std::span<const Item> dfsItems()
{
    return kItems;
}

} // namespace oructl
