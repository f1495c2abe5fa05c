// World mode, channels, radar detection, persona and channel set.
#include "adapt.hpp"
#include "channels.hpp"
#include "items.hpp"
#include "radio_state.hpp"
#include "rates.hpp"
#include "values.hpp"

#include <cstring>

namespace oructl {
namespace {

// ---- World mode

constexpr Field kWorldMode[] = {
    {.name = "support", .kind = Kind::Switch, .bounds = {0, 1}, .words = kOnOffWords},
    {.name = "country",
     .kind = Kind::Text,
     .use = Use::Get,
     .bounds = {0, 2},
     .meaning = "the configured one, or that of radio 0"}};

uint32_t getWorldMode(Call &call)
{
    constexpr auto kUntouched = static_cast<uint32_t>(INT32_MIN);
    OruSdkWorldModeParam record{.worldModeSupport = kUntouched, .countryCode = {}};
    const uint32_t code = oruSdkGetWorldMode(&record);
    if (record.worldModeSupport != kUntouched) // known although WSM doesn't tell the country
        call.values[0] = {.given = true, .number = static_cast<int32_t>(record.worldModeSupport)};
    if (code != ORUSDK_RC_OK) return code;
    const size_t length = ::strnlen(record.countryCode, sizeof(record.countryCode));
    call.values[1] = {.given = true, .text = std::string(record.countryCode, length)};
    return code;
}

uint32_t setWorldMode(const Call &call)
{
    OruSdkWorldModeParam record{.worldModeSupport = static_cast<uint32_t>(call.values[0].number),
                                .countryCode = {}};
    return oruSdkSetWorldMode(&record);
}

std::string whyWorldMode(uint32_t code, const Call &)
{
    if (code != ORUSDK_RC_WSM_REQUEST && code != ORUSDK_RC_ERROR) return "";
    return "the country is the one of radio 0, and WSM did not tell it";
}

// ---- Channel

enum : size_t { kChannel, kSecondary, kMode, kInterval, kKeepPeriodic };
enum : int64_t { kOnce, kPeriodic, kKeep };

constexpr Word kAutoWords[] = {{"auto", 0}};
constexpr Word kNoneWords[] = {{"none", 0}};
constexpr Word kModeWords[] = {{"once", kOnce}, {"periodic", kPeriodic}, {"keep-periodic", kKeep}};
constexpr Field kChannelFields[] = {
    {.name = "channel", .kind = Kind::Number, .bounds = {1, 161}, .words = kAutoWords},
    {.name = "secondary",
     .kind = Kind::Number,
     .bounds = {1, 161},
     .words = kNoneWords,
     .option = "secondary",
     .meaning = "the other half of a 40 MHz channel"},
    {.name = "mode",
     .kind = Kind::Choice,
     .bounds = {0, 2},
     .words = kModeWords,
     .option = "mode",
     .meaning = "of auto: how often the channel is selected; once unless given"},
    {.name = "dfs-interval",
     .kind = Kind::Number,
     .bounds = {INT32_MIN, INT32_MAX},
     .option = "dfs-interval",
     .meaning = "of auto: selects periodically, in a unit of WSM"},
    {.name = "keep-periodic",
     .kind = Kind::Switch,
     .use = Use::Set,
     .bounds = {0, 1},
     .words = kOnOffWords,
     .option = "keep-periodic",
     .meaning = "of auto: leaves the periodic settings as they are",
     .flag = true}};

uint32_t getChannel(Call &call)
{
    ChannelChoice choice;
    const uint32_t code = readChannelChoice(call.index, choice);
    if (code != ORUSDK_RC_OK) return code;
    call.values[kChannel] = {.given = true, .number = choice.channel};
    if (choice.fixed) {
        call.values[kSecondary] = {.given = true, .number = choice.secondary};
        return code;
    }
    call.values[kMode] = {.given = true, .number = choice.mode};
    if (choice.mode == kPeriodic)
        call.values[kInterval] = {.given = true, .number = choice.interval};
    return code;
}

int64_t selectionMode(const Call &call)
{
    if (call.values[kKeepPeriodic].given) return kKeep;
    if (call.values[kMode].given) return call.values[kMode].number;
    return call.values[kInterval].given ? kPeriodic : kOnce;
}

uint32_t setChannel(const Call &call)
{
    OruSdkChannelParam record{
        .radioIndex = static_cast<uint32_t>(call.index),
        .channel = static_cast<uint32_t>(call.values[kChannel].number),
        .secondaryChannel = static_cast<uint32_t>(call.values[kSecondary].number),
        .autoSelMode = static_cast<uint32_t>(selectionMode(call)),
        .periodicDfsTimer = static_cast<uint32_t>(call.values[kInterval].number)};
    return oruSdkSetChannelParam(&record);
}

std::string channelConflict(const Call &call)
{
    const bool automatic = call.values[kChannel].number == 0;
    for (const size_t field : {kMode, kInterval, kKeepPeriodic})
        if (!automatic && call.values[field].given)
            return concat({"--", kChannelFields[field].option, " goes with auto alone"});
    if (automatic && call.values[kSecondary].given) return "--secondary does not go with auto";
    if (call.values[kKeepPeriodic].given &&
        (call.values[kMode].given || call.values[kInterval].given))
        return "--keep-periodic goes with neither --mode nor --dfs-interval";
    if (call.values[kInterval].given && selectionMode(call) != kPeriodic)
        return "--dfs-interval goes with --mode periodic alone";
    if (selectionMode(call) == kPeriodic && !call.values[kInterval].given)
        return "--mode periodic needs --dfs-interval";
    return "";
}

std::string whyRadarChannel(int64_t radio, const std::string &channel)
{
    if (storedRadarDetect(radio) != 1) return "";
    return concat(
        {radioName(radio), " detects radar and ", channel,
         " is a radar channel; switch it off with: ", setCommand("radar-detect", radio, "off")});
}

std::string whySecondary(int64_t radio, int64_t channel, int64_t secondary)
{
    const int64_t partner =
        isAt24GHz(channel) ? (channel > 9 ? channel - 4 : channel + 4) : partnerAt5GHz(channel);
    if (!isChannel(channel)) return "channels are " + listed(allChannels());
    const std::string number = std::to_string(channel);
    if (secondary == 0) {
        if (storedBonding(radio) != 1) return "";
        if (partner == 0)
            return concat({"channels of ", radioName(radio), " are bonded, and ", number,
                           " has no partner; end that with: ",
                           setCommand("channel-bonding", radio, "20mhz")});
        return concat({"channels of ", radioName(radio),
                       " are bonded; say which other one, such as: --secondary ",
                       std::to_string(partner)});
    }
    if (isAt24GHz(channel))
        return "the secondary channel of " + number + " is four channels above or below, 1 to 13";
    if (partner == 0) return "channel " + number + " has no secondary channel";
    return "the secondary channel of " + number + " is " + std::to_string(partner);
}

std::string whyInvalidChannel(int64_t radio, int64_t channel)
{
    if (!isChannel(channel)) return "channels are " + listed(allChannels());
    const std::optional<int64_t> mode = storedMode(radio);
    const std::string number = std::to_string(channel);
    if ((mode == 2 || mode == 3) && !isAt24GHz(channel))
        return concat({"802.11 mode ", std::to_string(*mode), " of ", radioName(radio),
                       " takes channels 1 to 14; change it with: oructl set dot11-mode"});
    if (mode == 1 && isAt24GHz(channel))
        return concat({"802.11 mode 1 of ", radioName(radio),
                       " takes no channels 1 to 14; change it with: oructl set dot11-mode"});
    if (channel != 14 || storedBonding(radio).value_or(0) == 0) return "";
    return concat({"channel 14 can't be bonded; end that with: ",
                   setCommand("channel-bonding", radio, "20mhz")});
}

bool isAllowed(const RadioFacts &facts, int64_t channel)
{
    for (const uint8_t each : facts.channels)
        if (each == channel) return true;
    return false;
}

/// Why a channel lies outside the band of the radio's channel set; empty when it lies within.
std::string whyBand(int64_t radio, int64_t channel)
{
    const std::optional<int64_t> set = storedChannelSet(radio);
    const bool wrong = isAt24GHz(channel) ? set == 2 : set == 1;
    if (!wrong) return "";
    return concat({"the channel set of ", radioName(radio), " is ", set == 1 ? "2.4 GHz" : "5 GHz",
                   "; change it with: ", setCommand("channel-set", radio, "any")});
}

std::string whyDomain(const Call &call)
{
    const int64_t channel = call.values[kChannel].number;
    const int64_t secondary = call.values[kSecondary].number;
    if (std::string why = whyBand(call.index, channel); !why.empty()) return why;
    const RadioFacts facts = radioFacts(call.index);
    if (facts.code != ORUSDK_RC_OK)
        return "WSM does not tell which channels are allowed (code " + std::to_string(facts.code) +
               ')';
    if (!facts.told) return "WSM tells of no " + radioName(call.index);
    const bool whole = isAllowed(facts, channel) && (secondary == 0 || isAllowed(facts, secondary));
    if (whole) return "";
    const std::string refused = std::to_string(isAllowed(facts, channel) ? secondary : channel);
    return concat({"in its country (", printable(facts.country), ") ", radioName(call.index),
                   " may use ", listed(facts.channels), ", not ", refused});
}

std::string whyFixedRate(int64_t radio, std::string_view taken)
{
    const std::optional<int64_t> rate = storedRate(radio);
    if (!rate) return "";
    return concat({"the fixed rate of ", radioName(radio), " (code ", std::to_string(*rate), ", ",
                   rateMeaning(*rate), ") counts as ", taken,
                   " one here; change it with: ", setCommand("rate", radio, "auto")});
}

std::string whyChannel(uint32_t code, const Call &call)
{
    const int64_t channel = call.values[kChannel].number;
    switch (code) {
    case ORUSDK_RC_RADAR_CHANNEL: return whyRadarChannel(call.index, std::to_string(channel));
    case ORUSDK_RC_SECONDARY_CHANNEL:
        return whySecondary(call.index, channel, call.values[kSecondary].number);
    case ORUSDK_RC_CHANNEL: return whyInvalidChannel(call.index, channel);
    case ORUSDK_RC_CHANNEL_BG_ONLY:
        return "the radios of this product have no 5 GHz; take a channel of 1 to 14";
    case ORUSDK_RC_REG_DOMAIN: return whyDomain(call);
    case ORUSDK_RC_CHANNEL_14_JAPAN:
        return concat({"in Japan channel 14 is for 802.11b alone; change the 802.11 mode with: ",
                       setCommand("dot11-mode", call.index, "11b-only")});
    case ORUSDK_RC_CHANNEL_FOR_11B_RATE: return whyFixedRate(call.index, "an 802.11b");
    default: return "";
    }
}

// ---- Radar detection

std::string whyRadarDetect(uint32_t code, const Call &call)
{
    if (code == ORUSDK_RC_RADAR_UNCHANGED)
        return concat({"radar detection of ", radioName(call.index), " is ",
                       call.values[0].number == 0 ? "off" : "on", " already"});
    if (code != ORUSDK_RC_CONFIGURED_RADAR_CHANNEL) return "";
    ChannelChoice choice;
    if (readChannelChoice(call.index, choice) != ORUSDK_RC_OK || !choice.fixed) return "";
    return concat({radioName(call.index), " is set to ", std::to_string(choice.channel),
                   "; set another channel first, or: ", setCommand("channel", call.index, "auto")});
}

constexpr Field kRadarChannels[] = {{.name = "",
                                     .kind = Kind::Text,
                                     .bounds = {0, 131071},
                                     .meaning = "a list in the form that WSM reads"}};

uint32_t setRadarChannels(const Call &call)
{
    return oruSdkSetRdrPersistChan(call.values[0].text.c_str());
}

// ---- Persona and channel set

constexpr Word kAnyWords[] = {{"any", 0}};
constexpr Field kPersona[] = {{.name = "",
                               .kind = Kind::Number,
                               .bounds = {0, 2},
                               .words = kAnyWords,
                               .meaning = "what 1 and 2 are is for WSM to say"}};
constexpr Word kBandWords[] = {{"any", 0}, {"2.4ghz", 1}, {"5ghz", 2}};
constexpr Field kBand[] = {
    {.name = "", .kind = Kind::Choice, .bounds = {0, 2}, .words = kBandWords}};

std::string whyPersona(uint32_t code, const Call &)
{
    if (code != ORUSDK_RC_PERSONA_BG_ONLY) return "";
    return "the radios of this product have no 5 GHz; take persona 1 or 2";
}

std::string whyChannelSet(uint32_t code, const Call &call)
{
    if (code == ORUSDK_RC_BAND_BG_ONLY)
        return "the radios of this product have no 5 GHz; take 2.4ghz";
    return code == ORUSDK_RC_FIXED_RATE_11B ? whyFixedRate(call.index, "an 802.11b") : "";
}

constexpr Item kItems[] = {
    {.name = "world-mode",
     .scope = Scope::None,
     .index = {0, 0},
     .fields = kWorldMode,
     .get = getWorldMode,
     .set = setWorldMode,
     .operations = "oruSdkGetWorldMode oruSdkSetWorldMode",
     .keys = "worldModeSupport countryCodeFlag countryCode",
     .files = "/var/wsmDefaults",
     .summary = "multi-domain operation (802.11d), and the country",
     .reason = whyWorldMode},
    {.name = "channel",
     .scope = Scope::Radio,
     .index = {INT32_MIN, INT32_MAX},
     .fields = kChannelFields,
     .get = getChannel,
     .set = setChannel,
     .operations = "oruSdkGetChannelParam oruSdkSetChannelParam",
     .keys = "radio%d.channelSelectionType radio%d.configuredChannel "
             "radio%d.configuredSecondaryChannel periodicDfsFlag periodicDfsTmr",
     .files = "/var/wsmDefaults",
     .summary = "channel, fixed or selected automatically",
     .reason = whyChannel,
     .conflict = channelConflict,
     .reads = "radio%d.radarDetectFlag radio%d.channelBondingMode radio%d.dot11Mode "
              "radio%d.bandType radio%d.fixedRate"},
    explained(radioSwitch<oruSdkGetRadarDetect, oruSdkSetRadarDetect>(
                  "radar-detect", "oruSdkGetRadarDetect oruSdkSetRadarDetect",
                  "radio%d.radarDetectFlag", "radar detection"),
              whyRadarDetect, "radio%d.configuredChannel"),
    {.name = "radar-channels",
     .scope = Scope::None,
     .index = {0, 0},
     .fields = kRadarChannels,
     .get = nullptr,
     .set = setRadarChannels,
     .operations = "oruSdkSetRdrPersistChan",
     .keys = "rdrChans",
     .files = "/config/wsmSavedRadarDetectList",
     .summary = "channels on which radar was seen, kept across restarts"},
    explained(radioOption<oruSdkGetRadioPersona, oruSdkSetRadioPersona>(
                  "persona", kPersona, "oruSdkGetRadioPersona oruSdkSetRadioPersona",
                  "radio%d.persona", "persona of the radio"),
              whyPersona),
    explained(radioOption<oruSdkGetChannelSet, oruSdkSetChannelSet>(
                  "channel-set", kBand, "oruSdkGetChannelSet oruSdkSetChannelSet",
                  "radio%d.bandType", "band that the radio may work in"),
              whyChannelSet, "radio%d.fixedRate"),
};

} // namespace

std::span<const Item> channelItems()
{
    return kItems;
}

} // namespace oructl
