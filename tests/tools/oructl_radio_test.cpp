// Items of channels, rates, MAC parameters and QoS, through the real program and the factory file.
#include "catalogue.hpp"
#include "oruSdk.h"
#include "tools/oructl_run.hpp"
#include "tools/wsm_service.hpp"

#include <nlohmann/json.hpp>

#include <gmock/gmock.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <map>
#include <memory>
#include <sstream>

using namespace oru::test;
using nlohmann::json;
using testing::HasSubstr;
using testing::IsEmpty;

namespace {

using Settings = std::map<std::string, std::string>;

Arguments wordsOf(const std::string &text)
{
    Arguments words;
    std::istringstream in{text};
    for (std::string word; in >> word;) words.push_back(word == "''" ? "" : word);
    return words;
}

const Bytes kLowChannels = {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11};
const Bytes kHighChannels = {36, 40, 44, 48, 52, 56};

class RadioItems : public OructlTest {
protected:
    RadioItems() { useFactoryRadios(); }

    void apply(const Settings &settings) const
    {
        for (const auto &[key, value] : settings) set(kWsm, key, value);
    }

    Settings stored() const
    {
        Settings settings;
        std::istringstream lines{read(kWsm)};
        for (std::string line; std::getline(lines, line);)
            if (const size_t at = line.find('='); at != line.npos && line[0] != '#')
                settings[line.substr(0, at)] = line.substr(at + 1);
        return settings;
    }

    /// What of the file differs from before.
    Settings changedSince(const Settings &before) const
    {
        Settings changed;
        for (const auto &[key, value] : stored())
            if (const auto old = before.find(key); old == before.end() || old->second != value)
                changed[key] = value;
        return changed;
    }

    void startWsm(const std::vector<Bytes> &radios)
    {
        wsm_ = std::make_unique<WsmService>(root());
        wsm_->answer(266, {radioInfo(radios)});
    }

    void startWsmOfBothBands()
    {
        startWsm({radioEntry("USI", true, kLowChannels), radioEntry("USI", true, kHighChannels)});
    }

private:
    std::unique_ptr<WsmService> wsm_;
};

// ---- What a set writes and a get shows

struct Row {
    const char *name;
    Settings given;    ///< on top of the factory's
    const char *set;   ///< "ITEM INDEX VALUES"
    Settings written;  ///< all that changes
    const char *shown; ///< by a get
    const char *value; ///< its JSON
};

void PrintTo(const Row &row, std::ostream *out)
{
    *out << row.set;
}

const Row kRows[] = {
    {"WorldMode",
     {},
     "world-mode on",
     {{"worldModeSupport", "1"}},
     "world-mode.support = on\nworld-mode.country = \"US\"\n",
     R"({"support":{"word":"on","number":1},"country":"US"})"},
    {"ChannelAutomatic",
     {},
     "channel 0 auto",
     {{"radio0.channelSelectionType", "0"}, {"radio0.configuredChannel", "0"}},
     "channel[0].channel = auto\nchannel[0].mode = once\n",
     R"({"channel":0,"secondary":null,"mode":{"word":"once","number":0},"dfs-interval":null})"},
    {"ChannelModeOnce",
     {{"periodicDfsFlag", "1"}},
     "channel 0 auto --mode once",
     {{"radio0.channelSelectionType", "0"},
      {"radio0.configuredChannel", "0"},
      {"periodicDfsFlag", "0"}},
     "channel[0].channel = auto\nchannel[0].mode = once\n",
     R"({"channel":0,"secondary":null,"mode":{"word":"once","number":0},"dfs-interval":null})"},
    {"ChannelPeriodic",
     {},
     "channel 1 auto --dfs-interval 60",
     {{"radio1.channelSelectionType", "0"},
      {"radio1.configuredChannel", "0"},
      {"periodicDfsFlag", "1"},
      {"periodicMeasFlag", "1"},
      {"measurementDisabled", "0"},
      {"periodicDfsTmr", "60"}},
     "channel[1].channel = auto\nchannel[1].mode = periodic\nchannel[1].dfs-interval = 60\n",
     R"({"channel":0,"secondary":null,"mode":{"word":"periodic","number":1},"dfs-interval":60})"},
    {"ChannelModePeriodic",
     {{"periodicDfsFlag", "1"}},
     "channel 0 auto --mode periodic --dfs-interval 61",
     {{"radio0.channelSelectionType", "0"},
      {"radio0.configuredChannel", "0"},
      {"periodicMeasFlag", "1"},
      {"measurementDisabled", "0"},
      {"periodicDfsTmr", "61"}},
     "channel[0].channel = auto\nchannel[0].mode = periodic\nchannel[0].dfs-interval = 61\n",
     R"({"channel":0,"secondary":null,"mode":{"word":"periodic","number":1},"dfs-interval":61})"},
    {"ChannelKeepingPeriodic",
     {{"periodicDfsFlag", "1"}},
     "channel 0 auto --keep-periodic",
     {{"radio0.channelSelectionType", "0"}, {"radio0.configuredChannel", "0"}},
     "channel[0].channel = auto\nchannel[0].mode = periodic\nchannel[0].dfs-interval = 3600\n",
     R"({"channel":0,"secondary":null,"mode":{"word":"periodic","number":1},"dfs-interval":3600})"},
    {"RadarDetect",
     {},
     "radar-detect 1 off",
     {{"radio1.radarDetectFlag", "0"}},
     "radar-detect[1] = off\n",
     R"({"word":"off","number":0})"},
    {"Persona", {}, "persona 1 2", {{"radio1.persona", "2"}}, "persona[1] = 2\n", "2"},
    {"ChannelSet",
     {},
     "channel-set 1 2.4ghz",
     {{"radio1.bandType", "1"}},
     "channel-set[1] = 2.4ghz\n",
     R"({"word":"2.4ghz","number":1})"},
    {"DfsPreferredBand",
     {},
     "dfs-preferred-band 0 2",
     {{"dfsPreferredBand", "2"}},
     "dfs-preferred-band[0] = 2\n",
     "2"},
    {"DfsPreferredBandAny",
     {{"dfsPreferredBand", "1"}},
     "dfs-preferred-band 0 any",
     {{"dfsPreferredBand", "0"}},
     "dfs-preferred-band[0] = any\n",
     "0"},
    {"DfsWeightMargin",
     {},
     "dfs-weight-margin 1 100",
     {{"dfsWeightMargin", "100"}},
     "dfs-weight-margin[1] = 100\n",
     "100"},
    {"CbSwitch",
     {},
     "cb-switch 0 1000000000",
     {{"cbSwitch", "1000000000"}},
     "cb-switch[0] = 1000000000\n",
     "1000000000"},
    {"DfsRadarWeightFactor",
     {},
     "dfs-radar-weight-factor 0 7",
     {{"dfsRdrChanWghtFactor", "7"}},
     "dfs-radar-weight-factor[0] = 7\n",
     "7"},
    {"DfsPersistRadar",
     {},
     "dfs-persist-radar 0 off",
     {{"dfsPersistRdr", "0"}},
     "dfs-persist-radar[0] = off\n",
     R"({"word":"off","number":0})"},
    {"DfsForceChannel",
     {},
     "dfs-force-channel 1 on",
     {{"dfsForceChSelChan", "1"}},
     "dfs-force-channel[1] = on\n",
     R"({"word":"on","number":1})"},
    {"DfsRadarParking",
     {},
     "dfs-radar-parking 0 on",
     {{"dfsRdrParking", "1"}},
     "dfs-radar-parking[0] = on\n",
     R"({"word":"on","number":1})"},
    {"DfsUniiBands",
     {},
     "dfs-unii-bands 0 on off on",
     {{"dfsMidUNIIBand", "0"}},
     "dfs-unii-bands[0].low = on\ndfs-unii-bands[0].mid = off\ndfs-unii-bands[0].high = on\n",
     R"({"low":{"word":"on","number":1},"mid":{"word":"off","number":0},)"
     R"("high":{"word":"on","number":1}})"},
    {"DfsPreferredChannels",
     {{"dfsPreferredBand", "1"}},
     "dfs-preferred-channels 0 2.4ghz 1 5",
     {{"dfsPreferred24GPrimChan", "1"}, {"dfsPreferred24GSecdChan", "5"}},
     "dfs-preferred-channels[0].preferred-band = 1\n"
     "dfs-preferred-channels[0].24ghz-primary = 1\n"
     "dfs-preferred-channels[0].24ghz-secondary = 5\n"
     "dfs-preferred-channels[0].5ghz-primary = 36\n"
     "dfs-preferred-channels[0].5ghz-secondary = none\n",
     R"({"preferred-band":1,"24ghz-primary":1,"24ghz-secondary":5,"5ghz-primary":36,)"
     R"("5ghz-secondary":0})"},
    {"DfsPreferredChannelsAndBand",
     {},
     "dfs-preferred-channels 1 2.4ghz 11 7 --preferred-band 2",
     {{"dfsPreferred24GPrimChan", "11"},
      {"dfsPreferred24GSecdChan", "7"},
      {"dfsPreferredBand", "2"}},
     "dfs-preferred-channels[1].preferred-band = 2\n"
     "dfs-preferred-channels[1].24ghz-primary = 11\n"
     "dfs-preferred-channels[1].24ghz-secondary = 7\n"
     "dfs-preferred-channels[1].5ghz-primary = 36\n"
     "dfs-preferred-channels[1].5ghz-secondary = none\n",
     R"({"preferred-band":2,"24ghz-primary":11,"24ghz-secondary":7,"5ghz-primary":36,)"
     R"("5ghz-secondary":0})"},
    {"Mode",
     {},
     "dot11-mode 0 11b-only",
     {{"radio0.dot11Mode", "2"}, {"ERPFlag", "0"}},
     "dot11-mode[0] = 11b-only\n",
     "2"},
    {"ModeByNumber", {}, "dot11-mode 1 5", {{"radio1.dot11Mode", "5"}}, "dot11-mode[1] = 5\n", "5"},
    {"Rate",
     {},
     "rate 0 5.5",
     {{"radio0.fixedRate", "131"}},
     "rate[0] = 5.5 Mbps (code 131)\n",
     R"({"word":"5.5","number":131,"meaning":"5.5 Mbps"})"},
    {"RateAutomatic",
     {{"radio1.fixedRate", "140"}},
     "rate 1 auto",
     {{"radio1.fixedRate", "0"}},
     "rate[1] = automatic (code 0)\n",
     R"({"word":"auto","number":0,"meaning":"automatic"})"},
    {"McsRate",
     {{"radio1.channelBondingMode", "1"}},
     "mcs-rate 1 7",
     {{"radio1.fixedRate", "104"}},
     "mcs-rate[1] = MCS 7, 40 MHz, short GI (code 104)\n",
     R"({"word":"7","number":104,"meaning":"MCS 7, 40 MHz, short GI"})"},
    {"McsRateAutomatic",
     {{"radio0.fixedRate", "1"}},
     "mcs-rate 0 auto",
     {{"radio0.fixedRate", "0"}},
     "mcs-rate[0] = automatic (code 0)\n",
     R"({"word":"auto","number":0,"meaning":"automatic"})"},
    {"BroadcastRate",
     {},
     "broadcast-rate 1 54",
     {{"radio1.broadcastRate5GHz", "140"}},
     "broadcast-rate[1] = 54 Mbps (code 140)\n",
     R"({"word":"54","number":140,"meaning":"54 Mbps"})"},
    {"BroadcastMcsRate",
     {},
     "broadcast-mcs-rate 0 31",
     {{"radio0.broadcastRate24GHz", "32"}},
     "broadcast-mcs-rate[0] = MCS 31, 20 MHz, long GI (code 32)\n",
     R"({"word":"31","number":32,"meaning":"MCS 31, 20 MHz, long GI"})"},
    {"MaxRate", {}, "max-rate 1 54", {{"MaxRate", "54"}}, "max-rate[1] = 54\n", "54"},
    {"BasicRates",
     {},
     "basic-rates 0 b 11,5.5",
     {{"radio0.dot11bRates", "02:04:8B:96"}},
     "basic-rates[0].a = \"6,12,24\"\nbasic-rates[0].b = \"5.5,11\"\n"
     "basic-rates[0].g = \"6,12,24\"\nbasic-rates[0].n = \"6,12,24\"\n",
     R"({"a":"6,12,24","b":"5.5,11","g":"6,12,24","n":"6,12,24"})"},
    {"NoBasicRates",
     {},
     "basic-rates 1 n ''",
     {{"radio1.dot11nRates", "0C:12:18:24:30:48:60:6C"}},
     "basic-rates[1].a = \"6,12,24\"\nbasic-rates[1].b = \"1,2,5.5,11\"\n"
     "basic-rates[1].g = \"6,12,24\"\nbasic-rates[1].n = \"\"\n",
     R"({"a":"6,12,24","b":"1,2,5.5,11","g":"6,12,24","n":""})"},
    {"MacPart",
     {},
     "dot11-mac 1 --rts-threshold 500",
     {{"radio1.rtsThPeriod", "500"}},
     "dot11-mac[1].frag-threshold = 2346\ndot11-mac[1].rts-threshold = 500\n"
     "dot11-mac[1].short-retry-limit = 7\ndot11-mac[1].long-retry-limit = 4\n",
     R"({"frag-threshold":2346,"rts-threshold":500,"short-retry-limit":7,"long-retry-limit":4})"},
    {"MacWhole",
     {{"radio0.fragThPeriod", "x"}},
     "dot11-mac 0 --long-retry-limit 255 --short-retry-limit 0 --rts-threshold 1 "
     "--frag-threshold 256",
     {{"radio0.fragThPeriod", "256"},
      {"radio0.rtsThPeriod", "1"},
      {"radio0.shortRetryLimit", "0"},
      {"radio0.longRetryLimit", "255"}},
     "dot11-mac[0].frag-threshold = 256\ndot11-mac[0].rts-threshold = 1\n"
     "dot11-mac[0].short-retry-limit = 0\ndot11-mac[0].long-retry-limit = 255\n",
     R"({"frag-threshold":256,"rts-threshold":1,"short-retry-limit":0,"long-retry-limit":255})"},
    {"BeaconPart",
     {},
     "beacon 0 --dtim-period 3",
     {{"radio0.dtimPeriod", "3"}},
     "beacon[0].beacon-period = 100\nbeacon[0].dtim-period = 3\n",
     R"({"beacon-period":100,"dtim-period":3})"},
    {"BeaconOtherPart",
     {},
     "beacon 1 --beacon-period 65535",
     {{"radio1.beaconPeriod", "65535"}},
     "beacon[1].beacon-period = 65535\nbeacon[1].dtim-period = 1\n",
     R"({"beacon-period":65535,"dtim-period":1})"},
    {"Protection",
     {},
     "protection 0 off",
     {{"radio0.dot11Protection", "0"}, {"dot11gShortSlotTime", "0"}},
     "protection[0].state = off\n",
     R"({"state":0,"mode":null})"},
    {"ProtectionByMode",
     {},
     "protection 1 by-mode --mode 7",
     {{"radio1.dot11Protection", "4"},
      {"radio1.ProtectionMode", "7"},
      {"dot11gShortSlotTime", "7"}},
     "protection[1].state = by-mode\nprotection[1].mode = 7\n",
     R"({"state":4,"mode":7})"},
    {"StandardExt",
     {{"radio0.standardExt", "0"}},
     "standard-ext 0 on",
     {{"radio0.standardExt", "1"}},
     "standard-ext[0] = on\n",
     R"({"word":"on","number":1})"},
    {"BgScanning",
     {},
     "bg-scanning 0 on",
     {{"measurementDisabled", "0"}},
     "bg-scanning[0] = on\n",
     R"({"word":"on","number":1})"},
    {"Admission",
     {},
     "11b-admission 0 reject",
     {{"radio0.adminDot11bStaFlag", "0"}},
     "11b-admission[0] = reject\n",
     R"({"word":"reject","number":0})"},
    {"Sbs",
     {},
     "sbs 1 9 -3",
     {{"radio1.sbsThreshold", "9"}, {"radio1.sbsCounter", "-3"}},
     "sbs[1].threshold = 9\nsbs[1].counter = -3\n",
     R"({"threshold":9,"counter":-3})"},
    {"Wmm",
     {},
     "wmm 0 off",
     {{"wmmEnabledFlag", "0"}},
     "wmm[0].enabled = off\nwmm[0].classifier = auto\n",
     R"({"enabled":{"word":"off","number":0},"classifier":{"word":"auto","number":1}})"},
    {"WmmAndClassifier",
     {{"TrafficClassifier", "x"}},
     "wmm 1 on --classifier enhanced",
     {{"TrafficClassifier", "3"}},
     "wmm[1].enabled = on\nwmm[1].classifier = enhanced\n",
     R"({"enabled":{"word":"on","number":1},"classifier":{"word":"enhanced","number":3}})"},
    {"EdcaProfile",
     {},
     "edca-profile 0 tavon",
     {{"edcaProfile", "0"}},
     "edca-profile[0] = tavon\n",
     R"({"word":"tavon","number":0})"},
    {"DynamicProfile",
     {},
     "dynamic-profile 1 wmm",
     {{"dynamicProfileSelection", "1"}},
     "dynamic-profile[1] = wmm\n",
     R"({"word":"wmm","number":1})"},
    {"ChannelBonding",
     {},
     "channel-bonding 0 40mhz",
     {{"radio0.channelBondingMode", "1"},
      {"radio0.broadcastRate24GHz", "65"},
      {"radio0.broadcastRate5GHz", "69"}},
     "channel-bonding[0] = 40mhz\n",
     "1"},
};

class EachItem : public RadioItems, public ::testing::WithParamInterface<Row> {};

TEST_P(EachItem, WritesItsKeysAloneAndShowsThemInBothForms)
{
    const Row &row = GetParam();
    apply(row.given);
    const Settings before = stored();
    Arguments words = wordsOf(row.set);
    words.insert(words.begin(), "set");
    const Transcript done = run(words);
    EXPECT_EQ(done.exit, 0) << done.err;
    EXPECT_EQ(done.out + done.err, "");
    EXPECT_EQ(changedSince(before), row.written);

    Arguments get = {"get", words[1]};
    if (words[1] != "world-mode") get.push_back(words[2]);
    EXPECT_EQ(run(get).out, row.shown);
    get.insert(get.begin(), "--json");
    const json object = json::parse(run(get).out, nullptr, false);
    ASSERT_FALSE(object.is_discarded());
    EXPECT_EQ(object["value"], json::parse(row.value));
}

INSTANTIATE_TEST_SUITE_P(Radio, EachItem, ::testing::ValuesIn(kRows),
                         [](const auto &info) { return std::string(info.param.name); });

// ---- Why a call is refused

enum class Wsm { None, BothBands, Low, Japan };

struct Refused {
    const char *name;
    Settings given;
    const char *call; ///< "VERB ITEM INDEX VALUES"
    int code;
    const char *kind;
    const char *detail; ///< empty: the message says all
    Wsm wsm = Wsm::None;
};

void PrintTo(const Refused &row, std::ostream *out)
{
    *out << row.call;
}

const Refused kRefused[] = {
    {"RadarChannel",
     {},
     "set channel 1 52",
     120,
     "refused",
     "radio 1 detects radar and 52 is a radar channel; switch it off with: "
     "oructl set radar-detect 1 off"},
    {"SecondaryMissing",
     {{"radio1.channelBondingMode", "1"}},
     "set channel 1 48",
     106,
     "refused",
     "channels of radio 1 are bonded; say which other one, such as: --secondary 44"},
    {"SecondaryMissingAt24GHz",
     {{"radio0.channelBondingMode", "1"}},
     "set channel 0 11",
     106,
     "refused",
     "channels of radio 0 are bonded; say which other one, such as: --secondary 7"},
    {"SecondaryImpossible",
     {{"radio1.channelBondingMode", "1"}, {"radio1.radarDetectFlag", "0"}},
     "set channel 1 140",
     106,
     "refused",
     "channels of radio 1 are bonded, and 140 has no partner; end that with: "
     "oructl set channel-bonding 1 20mhz"},
    {"SecondaryNoPartner",
     {},
     "set channel 1 40 --secondary 44",
     106,
     "refused",
     "the secondary channel of 40 is 36"},
    {"SecondaryTooFar",
     {},
     "set channel 0 6 --secondary 11",
     106,
     "refused",
     "the secondary channel of 6 is four channels above or below, 1 to 13"},
    {"SecondaryOf140",
     {{"radio1.radarDetectFlag", "0"}},
     "set channel 1 140 --secondary 136",
     106,
     "refused",
     "channel 140 has no secondary channel"},
    {"NoSuchChannel",
     {},
     "set channel 1 37",
     19,
     "refused",
     "channels are 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 36, 40, 44, 48, 52, 56, 60, 64, "
     "100, 104, 108, 112, 116, 120, 124, 128, 132, 136, 140, 149, 153, 157, 161"},
    {"ChannelAndMode3",
     {{"radio0.dot11Mode", "3"}},
     "set channel 0 36",
     19,
     "refused",
     "802.11 mode 3 of radio 0 takes channels 1 to 14; change it with: oructl set dot11-mode"},
    {"ChannelAndMode1",
     {{"radio0.dot11Mode", "1"}},
     "set channel 0 6",
     19,
     "refused",
     "802.11 mode 1 of radio 0 takes no channels 1 to 14; change it with: oructl set dot11-mode"},
    {"Channel14Bonded",
     {{"radio0.channelBondingMode", "1"}},
     "set channel 0 14 --secondary 10",
     19,
     "refused",
     "channel 14 can't be bonded; end that with: oructl set channel-bonding 0 20mhz"},
    {"SelectionMode",
     {},
     "set channel 0 auto --mode 3",
     20,
     "refused",
     "mode of channel takes once, periodic or keep-periodic"},
    {"ChannelWithout5GHz",
     {{"radio1.bandType", "0"}},
     "set channel 1 36",
     93,
     "refused",
     "the radios of this product have no 5 GHz; take a channel of 1 to 14",
     Wsm::Low},
    {"ChannelOfOtherBand",
     {},
     "set channel 0 36",
     88,
     "refused",
     "the channel set of radio 0 is 2.4 GHz; change it with: oructl set channel-set 0 any",
     Wsm::BothBands},
    {"ChannelOfOtherBandAt5GHz",
     {},
     "set channel 1 6",
     88,
     "refused",
     "the channel set of radio 1 is 5 GHz; change it with: oructl set channel-set 1 any",
     Wsm::BothBands},
    {"ChannelOfOtherCountry",
     {},
     "set channel 0 12",
     88,
     "refused",
     "in its country (US) radio 0 may use 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, not 12",
     Wsm::BothBands},
    {"SecondaryOfOtherCountry",
     {{"radio0.channelBondingMode", "1"}},
     "set channel 0 9 --secondary 13",
     88,
     "refused",
     "in its country (US) radio 0 may use 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, not 13",
     Wsm::BothBands},
    {"ChannelWithoutWsm",
     {},
     "set channel 0 6",
     88,
     "refused",
     "WSM does not tell which channels are allowed (code 48)"},
    {"Channel14InJapan",
     {{"radio0.dot11Mode", "4"}},
     "set channel 0 14",
     64,
     "refused",
     "in Japan channel 14 is for 802.11b alone; change the 802.11 mode with: "
     "oructl set dot11-mode 0 11b-only",
     Wsm::Japan},
    {"ChannelAndFixedRate",
     {{"radio1.fixedRate", "65"}},
     "set channel 1 36",
     69,
     "refused",
     "the fixed rate of radio 1 (code 65, MCS 0, 40 MHz, long GI) counts as an 802.11b one here; "
     "change it with: oructl set rate 1 auto",
     Wsm::BothBands},
    {"RadarDetectUnchanged",
     {},
     "set radar-detect 1 on",
     121,
     "refused",
     "radar detection of radio 1 is on already"},
    {"RadarDetectUnchangedOff",
     {},
     "set radar-detect 0 off",
     121,
     "refused",
     "radar detection of radio 0 is off already"},
    {"RadarDetectOnRadarChannel",
     {{"radio1.configuredChannel", "100"}},
     "set radar-detect 1 off",
     122,
     "refused",
     "radio 1 is set to 100; set another channel first, or: oructl set channel 1 auto"},
    {"PersonaWithout5GHz",
     {},
     "set persona 0 any",
     95,
     "refused",
     "the radios of this product have no 5 GHz; take persona 1 or 2",
     Wsm::Low},
    {"ChannelSetWithout5GHz",
     {},
     "set channel-set 0 5ghz",
     94,
     "refused",
     "the radios of this product have no 5 GHz; take 2.4ghz",
     Wsm::Low},
    {"ChannelSetAndFixedRate",
     {{"radio0.fixedRate", "68"}},
     "set channel-set 0 any",
     62,
     "refused",
     "the fixed rate of radio 0 (code 68, MCS 3, 40 MHz, long GI) counts as an 802.11b one here; "
     "change it with: oructl set rate 0 auto",
     Wsm::BothBands},
    {"CountryWithoutWsm",
     {{"countryCodeFlag", "0"}},
     "get world-mode",
     48,
     "failed",
     "the country is the one of radio 0, and WSM did not tell it"},
    {"WorldMode", {}, "set world-mode 2", 15, "refused", "support of world-mode takes on or off"},
    {"WeightMarginBeyondItsByte",
     {},
     "set dfs-weight-margin 0 300",
     47,
     "refused",
     "dfs-weight-margin takes 0 to 100"},
    {"WeightMarginNegative",
     {},
     "set dfs-weight-margin 0 -1",
     47,
     "refused",
     "dfs-weight-margin takes 0 to 100"},
    {"CbSwitch",
     {},
     "set cb-switch 0 1000000001",
     47,
     "refused",
     "cb-switch takes 0 to 1000000000"},
    {"UniiBand",
     {},
     "set dfs-unii-bands 0 257 on on",
     47,
     "refused",
     "low of dfs-unii-bands takes on or off"},
    {"PreferredBand",
     {},
     "set dfs-preferred-channels 0 3 6 10",
     40,
     "refused",
     "band of dfs-preferred-channels takes 2.4ghz or 5ghz"},
    {"PreferredBandBeyondItsByte",
     {},
     "set dfs-preferred-channels 0 258 6 10",
     40,
     "refused",
     "band of dfs-preferred-channels takes 2.4ghz or 5ghz"},
    {"PreferredChannels24",
     {},
     "set dfs-preferred-channels 0 2.4ghz 6 6",
     19,
     "refused",
     "at 2.4 GHz the primary channel is 1 to 14 (1 to 13 with channel bonding), and the secondary "
     "one 1 to 13, four channels above or below"},
    {"PreferredChannels5",
     {},
     "set dfs-preferred-channels 1 5ghz 100 none",
     88,
     "refused",
     "in its country (US) radio 1 may use 36, 40, 44, 48, 52, 56 at 5 GHz, not 100",
     Wsm::BothBands},
    {"PreferredSecondary5",
     {{"radio1.channelBondingMode", "1"}},
     "set dfs-preferred-channels 1 5ghz 36 60",
     106,
     "refused",
     "in its country (US) radio 1 may use 36, 40, 44, 48, 52, 56 at 5 GHz, not 60",
     Wsm::BothBands},
    {"PreferredChannelsOfLowRadio",
     {},
     "set dfs-preferred-channels 0 5ghz 36 none",
     88,
     "refused",
     "in its country (US) radio 0 may use no channel at 5 GHz, not 36",
     Wsm::BothBands},
    {"ModeAt5GHz",
     {},
     "set dot11-mode 1 11bg",
     107,
     "refused",
     "the channel set of radio 1 is 5 GHz, where this mode is not; change it with: "
     "oructl set channel-set 1 2.4ghz"},
    {"ModeAt24GHz",
     {},
     "set dot11-mode 0 11a",
     18,
     "refused",
     "the channel set of radio 0 is 2.4 GHz, where this mode is not; change it with: "
     "oructl set channel-set 0 5ghz"},
    {"ModeWithoutExtensions",
     {{"radio0.standardExt", "0"}},
     "set dot11-mode 0 11n-only",
     59,
     "refused",
     "the standard extensions of radio 0 are off; switch them on with: "
     "oructl set standard-ext 0 on"},
    {"ModeAndFixedRate",
     {{"radio0.fixedRate", "70"}},
     "set dot11-mode 0 11b-only",
     63,
     "refused",
     "the fixed rate of radio 0 (code 70, MCS 5, 40 MHz, long GI) counts as an 802.11a/g one "
     "here; change it with: oructl set rate 0 auto"},
    {"ModeAndAdmission",
     {{"radio0.adminDot11bStaFlag", "0"}},
     "set dot11-mode 0 11b-only",
     71,
     "refused",
     "radio 0 rejects 802.11b stations; admit them with: oructl set 11b-admission 0 admit"},
    {"ModeOnChannel14InJapan",
     {{"radio0.configuredChannel", "14"}},
     "set dot11-mode 0 11bg",
     64,
     "refused",
     "radio 0 is in Japan and set to channel 14; set another channel first, or: "
     "oructl set channel 0 auto",
     Wsm::Japan},
    {"Mode",
     {},
     "set dot11-mode 0 10",
     47,
     "refused",
     "dot11-mode takes 0 to 9 or 11a, 11b-only, 11bg or 11n-only"},
    {"NoSuchRate",
     {},
     "set rate 0 7",
     6,
     "refused",
     "rate takes auto, 1, 2, 5.5, 6, 9, 11, 12, 18, 24, 36, 48 or 54"},
    {"RateIn11bMode",
     {{"radio0.dot11Mode", "2"}},
     "set rate 0 11",
     68,
     "refused",
     "radio 0 is in the 802.11b-only mode, which takes no set rate; change it with: "
     "oructl set dot11-mode 0 0"},
    {"BroadcastRateIn11bMode",
     {{"radio0.dot11Mode", "2"}},
     "set broadcast-rate 0 11",
     68,
     "refused",
     "radio 0 is in the 802.11b-only mode, which takes no set rate; change it with: "
     "oructl set dot11-mode 0 0"},
    {"BroadcastRate",
     {},
     "set broadcast-rate 0 160",
     47,
     "refused",
     "broadcast-rate takes 1, 2, 5.5, 6, 9, 11, 12, 18, 24, 36, 48 or 54"},
    {"McsWithout11n",
     {{"radio0.dot11Mode", "3"}},
     "set mcs-rate 0 7",
     6,
     "refused",
     "802.11 mode 3 of radio 0 has no MCS rates; change it with: oructl set dot11-mode 0 4"},
    {"NoSuchMcs", {}, "set mcs-rate 0 33", 6, "refused", "mcs-rate takes 0 to 32 or auto"},
    {"BroadcastMcs",
     {},
     "set broadcast-mcs-rate 0 32",
     47,
     "refused",
     "broadcast-mcs-rate takes 0 to 31"},
    {"MaxRate", {}, "set max-rate 0 301", 22, "refused", "max-rate takes 0 to 300 Mbps"},
    {"NoMaxRate",
     {{"MaxRate", "0"}},
     "get max-rate 0",
     2,
     "refused",
     "the stored maximum is 0, which counts as none; set one with: oructl set max-rate 0 300"},
    {"BasicRateOfOtherFamily",
     {},
     "set basic-rates 0 b 1,6",
     22,
     "refused",
     "rates of 802.11b are 1, 2, 5.5 and 11"},
    {"BasicRate",
     {},
     "set basic-rates 0 g 6,7",
     22,
     "refused",
     "rates of 802.11g are 6, 9, 12, 18, 24, 36, 48 and 54"},
    {"BasicRateFamily",
     {},
     "set basic-rates 0 4 6",
     21,
     "refused",
     "family of basic-rates takes a, b, g or n"},
    {"FragThreshold",
     {},
     "set dot11-mac 0 --frag-threshold 255",
     11,
     "refused",
     "frag-threshold of dot11-mac takes 256 to 2346 bytes"},
    {"RtsThreshold",
     {},
     "set dot11-mac 0 --rts-threshold 2348",
     12,
     "refused",
     "rts-threshold of dot11-mac takes 1 to 2347 bytes"},
    {"StoredShortRetryLimit",
     {{"radio0.shortRetryLimit", "256"}},
     "set dot11-mac 0 --rts-threshold 500",
     13,
     "refused",
     "short-retry-limit is stored as 256; set it too, with: --short-retry-limit (0 to 255)"},
    {"LongRetryLimit",
     {},
     "set dot11-mac 1 --long-retry-limit -1",
     14,
     "refused",
     "long-retry-limit of dot11-mac takes 0 to 255"},
    {"BeaconPeriod",
     {},
     "set beacon 0 --beacon-period 65536",
     9,
     "refused",
     "beacon-period of beacon takes 1 to 65535 time units"},
    {"StoredDtimPeriod",
     {{"radio1.dtimPeriod", "0"}},
     "set beacon 1 --beacon-period 100",
     10,
     "refused",
     "dtim-period is stored as 0; set it too, with: --dtim-period (1 to 255 beacons)"},
    {"Protection",
     {},
     "set protection 0 5",
     51,
     "refused",
     "state of protection takes 0 to 4 or off, on or by-mode"},
    {"StandardExt", {}, "set standard-ext 0 2", 53, "refused", "standard-ext takes on or off"},
    {"BgScanning", {}, "set bg-scanning 0 2", 55, "refused", "bg-scanning takes on or off"},
    {"BgScanningWhilePeriodic",
     {{"periodicDfsFlag", "1"}, {"radio1.channelSelectionType", "0"}},
     "set bg-scanning 0 off",
     61,
     "refused",
     "radio 1 selects its channel periodically, which needs scanning; end that with: "
     "oructl set channel 1 auto"},
    {"BgScanningOfUnknownRadio",
     {{"periodicDfsFlag", "1"}},
     "set bg-scanning 0 off",
     61,
     "failed",
     ""},
    {"AdmissionWithoutExtensions",
     {{"radio0.standardExt", "0"}},
     "set 11b-admission 0 reject",
     59,
     "refused",
     "the standard extensions of radio 0 are off; switch them on with: "
     "oructl set standard-ext 0 on"},
    {"AdmissionIn11bMode",
     {{"radio0.dot11Mode", "2"}},
     "set 11b-admission 0 reject",
     60,
     "refused",
     "radio 0 is in the 802.11b-only mode; change it with: oructl set dot11-mode 0 11bg"},
    {"Admission",
     {},
     "set 11b-admission 0 2",
     56,
     "refused",
     "11b-admission takes admit or reject"},
    {"WmmWithoutExtensions",
     {{"radio1.standardExt", "0"}},
     "set wmm 1 on",
     59,
     "refused",
     "the standard extensions of radio 1 are off; switch them on with: "
     "oructl set standard-ext 1 on"},
    {"Classifier",
     {},
     "set wmm 0 on --classifier 4",
     49,
     "refused",
     "classifier of wmm takes disabled, auto, wmm or enhanced"},
    {"StoredClassifier",
     {{"TrafficClassifier", "9"}},
     "set wmm 0 off",
     49,
     "refused",
     "the classifier is stored as 9; set it too, with: --classifier"},
    {"EdcaProfile", {}, "set edca-profile 0 2", 47, "refused", "edca-profile takes tavon or wmm"},
    {"DynamicProfile",
     {},
     "set dynamic-profile 0 3",
     103,
     "refused",
     "dynamic-profile takes tavon, wmm or off"},
    {"DynamicProfileWithoutWmm",
     {{"wmmEnabledFlag", "0"}},
     "set dynamic-profile 0 off",
     104,
     "refused",
     "WMM is off; switch it on with: oructl set wmm 0 on"},
    {"DynamicProfileWithUnknownWmm",
     {{"wmmEnabledFlag", "x"}},
     "set dynamic-profile 0 off",
     42,
     "failed",
     "keys dynamicProfileSelection, wmmEnabledFlag, TrafficClassifier of /var/wsmDefaults"},
    {"ChannelBonding",
     {},
     "set channel-bonding 0 4",
     47,
     "refused",
     "channel-bonding takes 0 to 3 or 20mhz or 40mhz"},
    {"RadioOfBytes", {}, "set dfs-weight-margin 255 1", 3, "refused", "RADIO is 0 to 1"},
    {"RadioOfWords", {}, "get beacon -1", 3, "refused", "RADIO is 0 to 1"},
};

class EachRefusal : public RadioItems, public ::testing::WithParamInterface<Refused> {
protected:
    void start(Wsm wsm)
    {
        const Bytes japan = {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 14};
        if (wsm == Wsm::BothBands) startWsmOfBothBands();
        if (wsm == Wsm::Low)
            startWsm({radioEntry("USI", false, kLowChannels), radioEntry("USI", true, {})});
        if (wsm == Wsm::Japan)
            startWsm({radioEntry("JPI", true, japan), radioEntry("JPI", true, kHighChannels)});
    }
};

TEST_P(EachRefusal, SaysWhatToChangeAndChangesNothing)
{
    const Refused &row = GetParam();
    apply(row.given);
    start(row.wsm);
    const std::string before = read(kWsm);
    Arguments words = wordsOf(row.call);
    const Transcript text = run(words);
    EXPECT_EQ(text.exit, exitOfRefusal(row.code, row.detail));
    EXPECT_EQ(text.out, "");
    const std::string code = "(code " + std::to_string(row.code) + ")";
    EXPECT_THAT(text.err, testing::EndsWith(*row.detail == '\0' ? code + "\n"
                                                                : code + "; " + row.detail + "\n"));
    words.insert(words.begin(), "--json");
    const json error = json::parse(run(words).out, nullptr, false)["error"];
    EXPECT_EQ(error["code"], row.code);
    EXPECT_EQ(error["kind"], row.kind);
    EXPECT_EQ(error["attempt"], row.call);
    EXPECT_EQ(error["detail"], *row.detail == '\0' ? json(nullptr) : json(row.detail));
    EXPECT_EQ(read(kWsm), before);
}

INSTANTIATE_TEST_SUITE_P(Radio, EachRefusal, ::testing::ValuesIn(kRefused),
                         [](const auto &info) { return std::string(info.param.name); });

// ---- Reasons need a state that can be read

struct Guess {
    const char *item;
    uint32_t code;
    int64_t value; ///< of the first field
};

/// Refusals that rest on a state. The factory's settings contradict each of them.
constexpr Guess kGuesses[] = {
    {"channel", ORUSDK_RC_RADAR_CHANNEL, 52},
    {"channel", ORUSDK_RC_SECONDARY_CHANNEL, 36},
    {"channel", ORUSDK_RC_CHANNEL, 36},
    {"dot11-mode", ORUSDK_RC_MODE_5GHZ, 3},
    {"dot11-mode", ORUSDK_RC_NEEDS_STD_EXTENSIONS, 3},
    {"dot11-mode", ORUSDK_RC_REJECTS_11B, 2},
    {"rate", ORUSDK_RC_RATE_ONLY_11B, 11},
    {"mcs-rate", ORUSDK_RC_RATE_CODE, 7},
    {"bg-scanning", ORUSDK_RC_PERIODIC_DFS, 0},
    {"11b-admission", ORUSDK_RC_NEEDS_STD_EXTENSIONS, 0},
    {"11b-admission", ORUSDK_RC_MODE_IS_11B_ONLY, 0},
    {"wmm", ORUSDK_RC_NEEDS_STD_EXTENSIONS, 1},
    {"wmm", ORUSDK_RC_WMM, 1},
    {"dynamic-profile", ORUSDK_RC_NEEDS_WMM, 0},
    {"dot11-mac", ORUSDK_RC_RTS_THRESHOLD, 256},
    {"beacon", ORUSDK_RC_DTIM_PERIOD, 100},
};

TEST_F(RadioItems, AReasonIsNeverGuessed)
{
    ::setenv("ORU_ROOT", root().c_str(), 1);
    ::setenv("ORU_LOG", "none", 1);
    for (const bool readable : {true, false}) {
        if (!readable) remove(kWsm);
        for (const Guess &guess : kGuesses) {
            const oructl::Item *item = oructl::findItem(guess.item);
            ASSERT_NE(item, nullptr) << guess.item;
            oructl::Call call;
            call.values.resize(item->fields.size());
            call.values[0] = {.given = true, .number = guess.value};
            EXPECT_EQ(item->reason(guess.code, call), "")
                << guess.item << ' ' << guess.code << (readable ? "" : " without the file");
        }
    }
    ::unsetenv("ORU_ROOT");
    ::unsetenv("ORU_LOG");
}

TEST_F(RadioItems, RefusalsFollowTheOrderOfTheChecks)
{
    startWsmOfBothBands();
    apply({{"radio0.standardExt", "0"}});
    // the order of the checks: a mode is refused for its extensions, whatever else can't be read
    set(kWsm, "radio0.fixedRate", "x");
    EXPECT_THAT(run({"set", "dot11-mode", "0", "11b-only"}).err,
                HasSubstr("(code 59); the standard extensions"));
    apply({{"radio0.standardExt", "1"}, {"radio0.adminDot11bStaFlag", "x"}});
    EXPECT_THAT(run({"set", "dot11-mode", "0", "11b-only"}).err,
                HasSubstr("failed: Error in reading element from configuration file (code 42); "
                          "keys radio0.dot11Mode, radio0.bandType, "));
}

TEST_F(RadioItems, AFailureOfAnotherKeyNamesTheKeysOfTheChecks)
{
    set(kWsm, "radio1.bandType", "x");
    startWsmOfBothBands();
    const Transcript failed = run({"set", "channel", "1", "36"});
    EXPECT_THAT(failed.err, HasSubstr("set channel 1 36: failed: "));
    EXPECT_THAT(failed.err, HasSubstr("radio1.bandType, radio1.fixedRate of /var/wsmDefaults\n"));
    EXPECT_THAT(run({"get", "basic-rates", "0"}).err, IsEmpty());
}

// ---- Channels with WSM

TEST_F(RadioItems, AFixedChannelIsSetWhereWsmAllowsIt)
{
    startWsmOfBothBands();
    set(kWsm, "radio1.channelBondingMode", "1");
    const Settings before = stored();
    const Transcript done = run({"set", "channel", "1", "44", "--secondary", "48"});
    EXPECT_EQ(done.exit, 0) << done.err;
    EXPECT_EQ(changedSince(before), (Settings{{"radio1.configuredChannel", "44"},
                                              {"radio1.configuredSecondaryChannel", "48"},
                                              {"radio1.broadcastRate5GHz", "69"}}));
    EXPECT_EQ(run({"get", "channel", "1"}).out,
              "channel[1].channel = 44\nchannel[1].secondary = 48\n");
    const Transcript none = run({"set", "channel", "0", "1", "--secondary", "none"});
    EXPECT_EQ(none.exit, 0) << none.err;
    EXPECT_EQ(run({"get", "channel", "0"}).out,
              "channel[0].channel = 1\nchannel[0].secondary = none\n");
}

TEST_F(RadioItems, PreferredChannelsAt5GHzHaveNoSecondaryWithoutBonding)
{
    startWsmOfBothBands();
    EXPECT_EQ(run({"set", "dfs-preferred-channels", "1", "5ghz", "44", "48"}).exit, 0);
    EXPECT_EQ(value(kWsm, "dfsPreferred5GPrimChan"), "44");
    EXPECT_EQ(value(kWsm, "dfsPreferred5GSecdChan"), "0");
    set(kWsm, "radio1.channelBondingMode", "1");
    EXPECT_EQ(run({"set", "dfs-preferred-channels", "1", "5ghz", "44", "48"}).exit, 0);
    EXPECT_EQ(value(kWsm, "dfsPreferred5GSecdChan"), "48");
}

TEST_F(RadioItems, TheCountryComesFromWsmUnlessItIsConfigured)
{
    startWsmOfBothBands();
    apply({{"countryCodeFlag", "0"}, {"countryCode", "\"DEI\""}});
    EXPECT_THAT(run({"get", "world-mode"}).out, HasSubstr("world-mode.country = \"US\"\n"));
    set(kWsm, "countryCodeFlag", "1");
    EXPECT_THAT(run({"get", "world-mode"}).out, HasSubstr("world-mode.country = \"DE\"\n"));
}

// ---- Values that don't go together

TEST_F(RadioItems, ConflictsOfACommandLineAreWrongUsage)
{
    const std::map<std::string, std::string> conflicts = {
        {"channel 0 6 --mode once", "--mode goes with auto alone"},
        {"channel 0 6 --dfs-interval 5", "--dfs-interval goes with auto alone"},
        {"channel 0 6 --keep-periodic", "--keep-periodic goes with auto alone"},
        {"channel 0 auto --secondary 10", "--secondary does not go with auto"},
        {"channel 0 auto --keep-periodic --dfs-interval 5",
         "--keep-periodic goes with neither --mode nor --dfs-interval"},
        {"channel 0 auto --keep-periodic --mode periodic",
         "--keep-periodic goes with neither --mode nor --dfs-interval"},
        {"channel 0 auto --mode once --dfs-interval 5",
         "--dfs-interval goes with --mode periodic alone"},
        {"channel 0 auto --mode periodic", "--mode periodic needs --dfs-interval"},
        {"channel 0 auto --keep-periodic on", "'on' is one operand too many"},
        {"channel 0 auto --secondary", "--secondary needs a value"},
        {"channel 0 6 --secondary x", "--secondary: 'x' is no whole number"},
        {"dfs-preferred-channels 0 2.4ghz 6 10 --preferred-band 3",
         "--preferred-band takes 0 to 2 or any"},
        {"dfs-preferred-channels 0 2.4ghz 6 10 --preferred-band 256",
         "--preferred-band takes 0 to 2 or any"},
        {"dfs-preferred-channels 0 2.4ghz 6", "secondary is missing"},
        {"dfs-weight-margin 256 1", "'256' does not fit the RADIO of dfs-weight-margin"},
        {"radar-detect 65536 on", "'65536' does not fit the RADIO of radar-detect"},
        {"bg-scanning 65536 on", "'65536' does not fit the RADIO of bg-scanning"},
        {"protection 0 by-mode", "by-mode needs --mode"},
        {"protection 0 on --mode 1", "--mode goes with by-mode alone"},
        {"dot11-mac 0", "no value is given"},
        {"beacon 0", "no value is given"},
        {"broadcast-rate 0 auto", "'auto' is none of its values"},
        {"rate 0 5.0", "'5.0' is none of its values"},
        {"mcs-rate 0 5.5", "'5.5' is no whole number"},
        {"basic-rates 0 g " + std::string(64, '6'), "rates take at most 63 bytes"},
        {"sbs 0 1", "counter is missing"},
    };
    const std::string before = read(kWsm);
    for (const auto &[call, message] : conflicts) {
        Arguments words = wordsOf(call);
        words.insert(words.begin(), "set");
        const Transcript wrong = run(words);
        EXPECT_EQ(wrong.exit, 2) << call;
        EXPECT_THAT(wrong.err, HasSubstr(message)) << call;
        EXPECT_THAT(wrong.err, HasSubstr("\nusage: oructl ")) << call;
    }
    EXPECT_EQ(read(kWsm), before);
}

TEST_F(RadioItems, ATextOf63BytesStillFitsTheRecord)
{
    const std::string blanks(61, ',');
    EXPECT_EQ(run({"set", "basic-rates", "0", "a", blanks + "54"}).exit, 0);
    EXPECT_EQ(value(kWsm, "radio0.dot11aRates"), "0C:12:18:24:30:48:60:EC");
}

// ---- Settings of which only one direction exists

TEST_F(RadioItems, RadarChannelsAreWrittenToTheirOwnFile)
{
    constexpr const char *kList = "/config/wsmSavedRadarDetectList";
    const Transcript missing = run({"set", "radar-channels", "52"});
    EXPECT_EQ(missing.exit, 7);
    EXPECT_THAT(missing.err, HasSubstr("(code 7); key rdrChans of " + std::string(kList)));
    EXPECT_EQ(run({"get", "radar-channels"}).exit, 2);

    std::filesystem::create_directories(root() + "/config");
    write(kList, "rdrChans=\n");
    EXPECT_EQ(run({"set", "radar-channels", "52 56"}).exit, 0);
    EXPECT_THAT(read(kList), HasSubstr("52 56"));
    EXPECT_EQ(run({"set", "radar-channels", ""}).exit, 0);
    EXPECT_EQ(read(kList), "rdrChans=\n");
}

// ---- What is shown of unusual numbers

TEST_F(RadioItems, StoredNumbersWithoutAWordAreShownAsTheyAre)
{
    apply({{"radio0.fixedRate", "143"},
           {"radio0.channelBondingMode", "3"},
           {"edcaProfile", "7"},
           {"radio0.configuredSecondaryChannel", "-1"}});
    EXPECT_EQ(run({"get", "rate", "0"}).out, "rate[0] = no known rate (code 143)\n");
    EXPECT_EQ(json::parse(run({"--json", "get", "rate", "0"}).out)["value"],
              (json{{"word", nullptr}, {"number", 143}, {"meaning", "no known rate"}}));
    EXPECT_EQ(run({"get", "channel-bonding", "0"}).out, "channel-bonding[0] = 3\n");
    EXPECT_EQ(run({"get", "edca-profile", "0"}).out, "edca-profile[0] = 7\n");
    EXPECT_EQ(run({"get", "channel", "0"}).out,
              "channel[0].channel = 6\nchannel[0].secondary = -1\n");
}

TEST_F(RadioItems, TheRateOfTheOtherFamilyHasNoWord)
{
    set(kWsm, "radio0.fixedRate", "104");
    const auto wordOf = [this](const char *item) {
        return json::parse(run({"--json", "get", item, "0"}).out)["value"]["word"];
    };
    EXPECT_EQ(wordOf("rate"), nullptr);
    EXPECT_EQ(wordOf("mcs-rate"), "7");
}

TEST_F(RadioItems, CompletionOffersWordsAndOptions)
{
    const auto candidates = [this](Arguments words) {
        words.insert(words.begin(), "--complete-args");
        return run(words).out;
    };
    EXPECT_EQ(candidates({"set", "channel-set", "0"}), "any\n2.4ghz\n5ghz\n");
    EXPECT_EQ(candidates({"set", "channel", "0"}), "auto\n");
    EXPECT_EQ(candidates({"set", "channel", "0", "auto"}),
              "--secondary\n--mode\n--dfs-interval\n--keep-periodic\n");
    EXPECT_EQ(candidates({"set", "dot11-mac", "0"}),
              "--frag-threshold\n--rts-threshold\n--short-retry-limit\n--long-retry-limit\n");
}

} // namespace
