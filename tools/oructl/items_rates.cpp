// 802.11 mode and rates.
#include "adapt.hpp"
#include "items.hpp"
#include "radio_state.hpp"
#include "rates.hpp"
#include "values.hpp"

#include <algorithm>
#include <cstring>

namespace oructl {
namespace {

constexpr std::string_view kFile = "/var/wsmDefaults";

// ---- 802.11 mode

constexpr Word kModeWords[] = {{"11a", 1}, {"11b-only", 2}, {"11bg", 3}, {"11n-only", 9}};
constexpr Field kMode[] = {{.name = "",
                            .kind = Kind::Number,
                            .bounds = {0, 9},
                            .words = kModeWords,
                            .meaning = "MCS rates are for 0 and 4"}};

std::string whyModeBand(const Call &call, int64_t refusedSet, std::string_view band,
                        std::string_view other)
{
    if (storedChannelSet(call.index) != refusedSet) return "";
    return concat({"the channel set of ", radioName(call.index), " is ", band,
                   ", where this mode is not; change it with: ",
                   setCommand("channel-set", call.index, other)});
}

std::string whyModeRate(int64_t radio)
{
    const std::optional<int64_t> rate = storedRate(radio);
    if (!rate) return "";
    return concat({"the fixed rate of ", radioName(radio), " (code ", std::to_string(*rate), ", ",
                   rateMeaning(*rate), ") counts as an 802.11a/g one here; change it with: ",
                   setCommand("rate", radio, "auto")});
}

std::string whyMode(uint32_t code, const Call &call)
{
    switch (code) {
    case ORUSDK_RC_MODE_5GHZ: return whyModeBand(call, 2, "5 GHz", "2.4ghz");
    case ORUSDK_RC_MODE_24GHZ: return whyModeBand(call, 1, "2.4 GHz", "5ghz");
    case ORUSDK_RC_NEEDS_STD_EXTENSIONS: return whyStandardExt(call.index);
    case ORUSDK_RC_CHANNEL_14_JAPAN:
        return concat({radioName(call.index),
                       " is in Japan and set to channel 14; "
                       "set another channel first, or: ",
                       setCommand("channel", call.index, "auto")});
    case ORUSDK_RC_FIXED_RATE_11AG: return whyModeRate(call.index);
    case ORUSDK_RC_REJECTS_11B:
        if (storedAdmission(call.index) != 0) return "";
        return concat({radioName(call.index), " rejects 802.11b stations; admit them with: ",
                       setCommand("11b-admission", call.index, "admit")});
    default: return "";
    }
}

// ---- Rates

constexpr Word kRateWords[] = {{"auto", 160}, {"1", 1},   {"2", 2},   {"5.5", 5}, {"6", 6},
                               {"9", 9},      {"11", 11}, {"12", 12}, {"18", 18}, {"24", 24},
                               {"36", 36},    {"48", 48}, {"54", 54}};
constexpr std::span<const Word> kBroadcastWords = std::span{kRateWords}.subspan(1);
constexpr std::span<const Word> kAutoWords = std::span{kRateWords}.first(1);

constexpr Field kRate[] = {{.name = "",
                            .kind = Kind::Choice,
                            .bounds = {1, 54},
                            .unit = "Mbps",
                            .words = kRateWords,
                            .coded = &kLegacyRate}};
constexpr Field kBroadcastRate[] = {{.name = "",
                                     .kind = Kind::Choice,
                                     .bounds = {1, 54},
                                     .unit = "Mbps",
                                     .words = kBroadcastWords,
                                     .coded = &kLegacyBroadcastRate}};
constexpr Field kMcs[] = {{.name = "",
                           .kind = Kind::Number,
                           .bounds = {0, 32},
                           .words = kAutoWords,
                           .meaning = "index of the MCS",
                           .coded = &kMcsRate}};
constexpr Field kBroadcastMcs[] = {{.name = "",
                                    .kind = Kind::Number,
                                    .bounds = {0, 31},
                                    .meaning = "index of the MCS",
                                    .coded = &kMcsBroadcastRate}};

std::string whyLegacyRate(uint32_t code, const Call &call)
{
    if (code != ORUSDK_RC_RATE_ONLY_11B || storedMode(call.index) != 2) return "";
    return concat({radioName(call.index),
                   " is in the 802.11b-only mode, which takes no set rate; change it with: ",
                   setCommand("dot11-mode", call.index, "0")});
}

std::string whyMcsRate(uint32_t code, const Call &call)
{
    if (code != ORUSDK_RC_RATE_CODE) return "";
    const std::optional<int64_t> mode = storedMode(call.index);
    if (!mode || mode == 0 || mode == 4) return "";
    return concat(
        {"802.11 mode ", std::to_string(*mode), " of ", radioName(call.index),
         " has no MCS rates; change it with: ", setCommand("dot11-mode", call.index, "4")});
}

/// Sets a code by the word of one family. False when it is none of that family.
template <uint32_t (*Set)(OruSdkOptionParam *)>
bool setCode(const Field &field, const Call &call, uint32_t &code)
{
    Call set{.index = call.index, .values = std::vector<Value>(1)};
    const std::string word = field.coded->word(call.values[0].number);
    if (word.empty() || !parseValue(field, word, set.values[0]).empty()) return false;
    code = setOne<OruSdkOptionParam, Set>(set);
    return true;
}

/// Stores the code that a get gives: of the item's own family or, since both share their key, of
/// the other one.
template <const Field (&Own)[1], uint32_t (*SetOwn)(OruSdkOptionParam *), const Field (&Other)[1],
          uint32_t (*SetOther)(OruSdkOptionParam *)>
uint32_t restoreRate(const Call &call)
{
    uint32_t code = ORUSDK_RC_RATE_CODE;
    if (!setCode<SetOwn>(Own[0], call, code)) setCode<SetOther>(Other[0], call, code);
    return code;
}

constexpr Item restored(Item item, uint32_t (*restore)(const Call &))
{
    item.restore = restore;
    return item;
}

constexpr std::string_view kLegacyReads =
    "radio%d.dot11Mode radio%d.configuredChannel radio%d.bandType";
constexpr std::string_view kMcsReads =
    "radio%d.dot11Mode radio%d.channelBondingMode radio%d.ShortGuardInterval40MHz "
    "radio%d.ShortGuardInterval20MHz";
constexpr std::string_view kBroadcastKeys = "radio%d.broadcastRate24GHz radio%d.broadcastRate5GHz";

std::string whyMaxRate(uint32_t code, const Call &call)
{
    if (code != ORUSDK_RC_NULL_POINTER) return "";
    return concat({"the stored maximum is 0, which counts as none; set one with: ",
                   setCommand("max-rate", call.index, "300")});
}

// ---- Basic rates

enum : size_t { kFamily, kRates, kFirstRead };
enum : int64_t { kA, kB, kG, kN };

constexpr Word kFamilyWords[] = {{"a", kA}, {"b", kB}, {"g", kG}, {"n", kN}};
constexpr Bounds kRateText = {0, sizeof(OruSdkBasicRateSetParam::rateSet) - 1};
constexpr Field kBasicRates[] = {
    {.name = "family",
     .kind = Kind::Choice,
     .use = Use::Set,
     .bounds = {0, 3},
     .words = kFamilyWords,
     .meaning = "802.11a, b, g or n"},
    {.name = "rates",
     .kind = Kind::Text,
     .use = Use::Set,
     .bounds = kRateText,
     .meaning =
         "Mbps, with commas between: 1,2,5.5,11 for b, 6,9,12,18,24,36,48,54 for the others"},
    {.name = "a", .kind = Kind::Text, .use = Use::Get, .bounds = kRateText},
    {.name = "b", .kind = Kind::Text, .use = Use::Get, .bounds = kRateText},
    {.name = "g", .kind = Kind::Text, .use = Use::Get, .bounds = kRateText},
    {.name = "n", .kind = Kind::Text, .use = Use::Get, .bounds = kRateText}};

std::string withCommas(const char (&text)[64])
{
    std::string rates(text, ::strnlen(text, sizeof(text)));
    std::replace(rates.begin(), rates.end(), ' ', ',');
    return rates;
}

uint32_t getBasicRates(Call &call)
{
    OruSdkBasicRateSetInfo info{};
    info.radioIndex = static_cast<uint32_t>(call.index);
    const uint32_t code = oruSdkGetBasicRateSetParam(&info);
    if (code != ORUSDK_RC_OK) return code;
    const char(*const texts[])[64] = {&info.dot11aRates, &info.dot11bRates, &info.dot11gRates,
                                      &info.dot11nRates};
    for (size_t i = 0; i < std::size(texts); ++i)
        call.values[kFirstRead + i] = {.given = true, .text = withCommas(*texts[i])};
    return code;
}

uint32_t setBasicRates(const Call &call)
{
    OruSdkBasicRateSetParam record{};
    record.radioIndex = static_cast<uint32_t>(call.index);
    record.rateMode = static_cast<uint32_t>(call.values[kFamily].number);
    // Longer texts were refused before they came here.
    const std::string_view rates =
        std::string_view{call.values[kRates].text}.substr(0, sizeof record.rateSet - 1);
    std::replace_copy(rates.begin(), rates.end(), record.rateSet, ',', ' ');
    return oruSdkSetBasicRateSetParam(&record);
}

/// Stores what a get gives: the rates of each family, where they are others.
uint32_t restoreBasicRates(const Call &call)
{
    Call now{.index = call.index, .values = std::vector<Value>(std::size(kBasicRates))};
    if (const uint32_t code = getBasicRates(now); code != ORUSDK_RC_OK) return code;
    for (const int64_t family : {kA, kB, kG, kN}) {
        const size_t place = kFirstRead + static_cast<size_t>(family);
        const Value &wanted = call.values[place];
        if (!wanted.given || wanted.text == now.values[place].text) continue;
        Call one{.index = call.index, .values = std::vector<Value>(std::size(kBasicRates))};
        one.values[kFamily] = {.given = true, .number = family};
        one.values[kRates] = wanted;
        if (!isLegal(kBasicRates[kRates], wanted)) return ORUSDK_RC_RATE_SET;
        if (const uint32_t code = setBasicRates(one); code != ORUSDK_RC_OK) return code;
    }
    return ORUSDK_RC_OK;
}

/// A longer text has no room in the record.
std::string basicRatesConflict(const Call &call)
{
    if (isLegal(kBasicRates[kRates], call.values[kRates])) return "";
    return "rates take at most " + std::to_string(kRateText.max) + " bytes";
}

std::string whyBasicRates(uint32_t code, const Call &call)
{
    if (code != ORUSDK_RC_RATE_SET) return "";
    const bool b = call.values[kFamily].number == kB;
    return concat({"rates of 802.11", wordOf(kBasicRates[kFamily], call.values[kFamily].number),
                   " are ", b ? "1, 2, 5.5 and 11" : "6, 9, 12, 18, 24, 36, 48 and 54"});
}

constexpr Item kItems[] = {
    explained(radioOption<oruSdkGetDot11Mode, oruSdkSetDot11Mode>(
                  "dot11-mode", kMode, "oruSdkGetDot11Mode oruSdkSetDot11Mode", "radio%d.dot11Mode",
                  "802.11 mode"),
              whyMode,
              "radio%d.bandType radio%d.standardExt radio%d.channelSelectionType "
              "radio%d.configuredChannel radio%d.fixedRate radio%d.adminDot11bStaFlag"),
    restored(explained(radioOption<oruSdkGetRateParam, oruSdkSetRateParam>(
                           "rate", kRate, "oruSdkGetRateParam oruSdkSetRateParam",
                           "radio%d.fixedRate", "fixed rate, set as a legacy rate"),
                       whyLegacyRate, kLegacyReads),
             restoreRate<kRate, oruSdkSetRateParam, kMcs, oruSdkSetMcsRateParam>),
    restored(explained(radioOption<oruSdkGetMcsRateParam, oruSdkSetMcsRateParam>(
                           "mcs-rate", kMcs, "oruSdkGetMcsRateParam oruSdkSetMcsRateParam",
                           "radio%d.fixedRate", "fixed rate, set as an MCS"),
                       whyMcsRate, kMcsReads),
             restoreRate<kMcs, oruSdkSetMcsRateParam, kRate, oruSdkSetRateParam>),
    restored(explained(radioOption<oruSdkGetBroadcastRate, oruSdkSetBroadcastRate>(
                           "broadcast-rate", kBroadcastRate,
                           "oruSdkGetBroadcastRate oruSdkSetBroadcastRate", kBroadcastKeys,
                           "rate of broadcast frames, set as a legacy rate"),
                       whyLegacyRate, kLegacyReads),
             restoreRate<kBroadcastRate, oruSdkSetBroadcastRate, kBroadcastMcs,
                         oruSdkSetBroadcastMcsRate>),
    restored(explained(radioOption<oruSdkGetBroadcastMcsRate, oruSdkSetBroadcastMcsRate>(
                           "broadcast-mcs-rate", kBroadcastMcs,
                           "oruSdkGetBroadcastMcsRate oruSdkSetBroadcastMcsRate", kBroadcastKeys,
                           "rate of broadcast frames, set as an MCS"),
                       whyMcsRate, kMcsReads),
             restoreRate<kBroadcastMcs, oruSdkSetBroadcastMcsRate, kBroadcastRate,
                         oruSdkSetBroadcastRate>),
    explained(radioItem<OruSdkMaxRateParam, oruSdkGetMaxRate, oruSdkSetMaxRate>(
                  "max-rate", kNumber<0, 300, "Mbps">, "oruSdkGetMaxRate oruSdkSetMaxRate",
                  "MaxRate", "maximum data rate"),
              whyMaxRate),
    {.name = "basic-rates",
     .scope = Scope::Radio,
     .index = {INT32_MIN, INT32_MAX},
     .fields = kBasicRates,
     .get = getBasicRates,
     .set = setBasicRates,
     .operations = "oruSdkGetBasicRateSetParam oruSdkSetBasicRateSetParam",
     .keys = "radio%d.dot11aRates radio%d.dot11bRates radio%d.dot11gRates radio%d.dot11nRates",
     .files = kFile,
     .summary = "basic rates, set for one family at a time",
     .reason = whyBasicRates,
     .conflict = basicRatesConflict,
     .restore = restoreBasicRates},
};

} // namespace

std::span<const Item> rateItems()
{
    return kItems;
}

} // namespace oructl
