// A radio's channel. Each case needs a process of its own, since the library asks WSM once.
#include "oruSdk.h"
#include "radio/wsm.hpp"
#include "support/sweep.hpp"

#include <gmock/gmock.h>

#include <functional>
#include <map>

namespace oru::test {
namespace {

using ::testing::IsEmpty;
using ::testing::ValuesIn;

const std::vector<uint8_t> kEveryChannel{
    1,  2,  3,  4,   5,   6,   7,   8,   9,   10,  11,  12,  13,  14,  36,  40,  44,  48, 52,
    56, 60, 64, 100, 104, 108, 112, 116, 120, 124, 128, 132, 136, 140, 149, 153, 157, 161};

/// Settings that refuse nothing, and marks in every key that the setter may write.
void prepareFile(const AccessPoint &box)
{
    for (const std::string radio : {"radio0.", "radio1."}) {
        box.set(kWsm, radio + "radarDetectFlag", "0");
        box.set(kWsm, radio + "channelBondingMode", "0");
        box.set(kWsm, radio + "dot11Mode", "4");
        box.set(kWsm, radio + "bandType", "0");
        box.set(kWsm, radio + "fixedRate", "0");
        box.set(kWsm, radio + "channelSelectionType", "71");
        box.set(kWsm, radio + "configuredChannel", "72");
        box.set(kWsm, radio + "configuredSecondaryChannel", "73");
        box.set(kWsm, radio + "broadcastRate5GHz", "74");
    }
    box.set(kWsm, "periodicDfsFlag", "75");
    box.set(kWsm, "periodicMeasFlag", "76");
    box.set(kWsm, "measurementDisabled", "77");
    box.set(kWsm, "periodicDfsTmr", "78");
}

/// What is asked for, and where.
struct Scene {
    AccessPoint &box;
    StandIn &standIn;
    OruSdkChannelParam &param;
    std::vector<Radio> &radios;

    void set(const std::string &key, const std::string &value) const { box.set(kWsm, key, value); }
    void unset(const std::string &key) const { box.unset(kWsm, key); }
    void channel(uint32_t primary, uint32_t secondary = 0) const
    {
        param.channel = primary;
        param.secondaryChannel = secondary;
    }
    void automatic(uint32_t mode) const
    {
        channel(0);
        param.autoSelMode = mode;
    }
    void bonding(uint32_t primary, uint32_t secondary) const
    {
        set("radio0.channelBondingMode", "1");
        channel(primary, secondary);
    }
    void radarDetection() const { set("radio0.radarDetectFlag", "1"); }
    void mode(const char *value) const { set("radio0.dot11Mode", value); }
    void rate(const char *value) const { set("radio0.fixedRate", value); }
    void productFor24GHz() const { radios[0].band5 = 0; }
    void allow(std::vector<uint8_t> channels) const { radios[0].channels = std::move(channels); }
    void japan() const { radios[0].country = "JPI"; }
    void writesFail() const
    {
        standIn.failOnly("oruAsfDictSetString");
        standIn.failAt(1);
    }
};

struct ChannelTest : AccessPointTest {
    OruSdkChannelParam param{0, 36, 0, 0, 0};
    std::vector<Radio> radios{{"USI", kEveryChannel, 1}, {"USI", kEveryChannel, 1}};
    Scene scene{box, standIn, param, radios};

    ChannelTest() { prepareFile(box); }

    uint32_t set()
    {
        standIn.replyWith(radioReply(radios));
        return oruSdkSetChannelParam(&param);
    }
    std::string key(const std::string &name) { return box.value(kWsm, name).value_or("none"); }

    /// All keys that the setter may write for a radio.
    std::vector<std::string> written(const std::string &radio = "radio0.")
    {
        return {key(radio + "channelSelectionType"),
                key(radio + "configuredChannel"),
                key(radio + "configuredSecondaryChannel"),
                key("periodicDfsFlag"),
                key("periodicMeasFlag"),
                key("measurementDisabled"),
                key("periodicDfsTmr"),
                key(radio + "broadcastRate5GHz")};
    }
    using Values = std::vector<std::string>;
    const Values untouched{"71", "72", "73", "75", "76", "77", "78", "74"};
};

// ---- What is refused, and which of two refusals comes first

struct Refusal {
    std::string name;
    std::function<void(const Scene &)> prepare;
    uint32_t code;
    std::vector<std::string> lines;
};

std::ostream &operator<<(std::ostream &to, const Refusal &row)
{
    return to << row.name;
}

struct SetChannelRefuses : ChannelTest, ::testing::WithParamInterface<Refusal> {};

TEST_P(SetChannelRefuses, WithoutATouchOfTheFile)
{
    const Refusal &row = GetParam();
    row.prepare(scene);
    const std::string before = box.everything();
    EXPECT_EQ(set(), row.code);
    EXPECT_EQ(linesAt(standIn, 3), row.lines);
    EXPECT_EQ(box.everything(), before);
    for (const std::string &call : standIn.calls)
        EXPECT_NE(call.substr(0, 14), "oruAsfDictSave") << call;
}

const char kNoRadarFlag[] = "Unable to read radarDetectFlag from config file /var/wsmDefaults";
const char kRadar[] = "Illegal channel when radar detection flag set";
const char kNoBonding[] = "Unable to read channel bonding mode from config file /var/wsmDefaults";
const char kNoSecondary[] = "Secondary channel not specified when 40MHz mode set";
const char kNoMode[] = "Unable to read dot11Mode from config file /var/wsmDefaults";
const char kNoPair[] = "Invalid channel allocation for 5MHz band";
const char kProduct[] = "Invalid channel for B/G radio product ID";
const char kNoBand[] = "Unable to read radio0.bandType from config file /var/wsmDefaults";
const char kDomain36[] = "Invalid channel 36 in current band OR regulatory domain";
const char kDomain14[] = "Invalid channel 14 in current band OR regulatory domain";
const char kDomainSecondary[] = "Invalid secondary channel 40 in current band OR regulatory domain";
const char kJapan[] = "Channel 14 invalid for 802.11g mode in Japan";
const char kNoRate[] = "Unable to read rate from config file /var/wsmDefaults";

const Refusal kSingle[] = {
    {"RadioAbove1", [](const Scene &s) { s.param.radioIndex = 2; }, 3, {"Invalid radio ID: 2"}},
    {"RadioAsSignedNumber",
     [](const Scene &s) { s.param.radioIndex = 0xffffffff; },
     3,
     {"Invalid radio ID: -1"}},
    {"NoRadarFlag", [](const Scene &s) { s.unset("radio0.radarDetectFlag"); }, 42, {kNoRadarFlag}},
    {"RadarChannel52", [](const Scene &s) { s.radarDetection(), s.channel(52); }, 120, {kRadar}},
    {"RadarChannel140", [](const Scene &s) { s.radarDetection(), s.channel(140); }, 120, {kRadar}},
    {"NoBonding", [](const Scene &s) { s.unset("radio0.channelBondingMode"); }, 42, {kNoBonding}},
    {"BondingWithoutSecondary", [](const Scene &s) { s.bonding(36, 0); }, 106, {kNoSecondary}},
    {"NoMode", [](const Scene &s) { s.unset("radio0.dot11Mode"); }, 42, {kNoMode}},
    {"Channel36In11bg",
     [](const Scene &s) { s.mode("3"), s.channel(36); },
     19,
     {"Invalid 802.11b/g channel: 36"}},
    {"Channel15In11b",
     [](const Scene &s) { s.mode("2"), s.channel(15); },
     19,
     {"Invalid 802.11b/g channel: 15"}},
    {"HugeChannelIn11b",
     [](const Scene &s) { s.mode("2"), s.channel(0x80000001); },
     19,
     {"Invalid 802.11b/g channel: -2147483647"}},
    {"Channel1In11a",
     [](const Scene &s) { s.mode("1"), s.channel(1); },
     19,
     {"Invalid 802.11a channel: 1"}},
    {"Channel6In11a",
     [](const Scene &s) { s.mode("1"), s.channel(6); },
     19,
     {"Invalid 802.11a channel: 6"}},
    {"Channel14In11a",
     [](const Scene &s) { s.mode("1"), s.channel(14); },
     19,
     {"Invalid 802.11a channel: 14"}},
    {"Channel15In11aAsNone",
     [](const Scene &s) { s.mode("1"), s.channel(15); },
     19,
     {"Invalid channel: 15"}},
    {"ChannelThatDoesNotExist",
     [](const Scene &s) { s.channel(165); },
     19,
     {"Invalid channel: 165"}},
    {"ChannelAbove8Bits",
     [](const Scene &s) { s.channel(256 + 36); },
     19,
     {"Invalid channel: 292"}},
    {"Channel14WithBonding",
     [](const Scene &s) { s.bonding(14, 10); },
     19,
     {"Invalid channel: 14"}},
    {"Channel14WithBonding2",
     [](const Scene &s) { s.set("radio0.channelBondingMode", "2"), s.channel(14); },
     19,
     {"Invalid channel: 14"}},
    {"SecondaryThatDoesNotExist",
     [](const Scene &s) { s.channel(161, 165); },
     106,
     {"Invalid Secondary channel: 165"}},
    {"Secondary14WithBonding",
     [](const Scene &s) { s.bonding(10, 14); },
     106,
     {"Invalid Secondary channel: 14"}},
    {"Secondary14WithBonding2",
     [](const Scene &s) { s.set("radio0.channelBondingMode", "2"), s.channel(10, 14); },
     106,
     {"Invalid Secondary channel: 14"}},
    {"SecondaryFiveAway",
     [](const Scene &s) { s.channel(6, 11); },
     106,
     {"Invalid Secondary channel: 11"}},
    {"SecondaryThreeAway",
     [](const Scene &s) { s.channel(6, 3); },
     106,
     {"Invalid Secondary channel: 3"}},
    {"SecondaryEqual",
     [](const Scene &s) { s.channel(36, 36); },
     106,
     {"Invalid Secondary channel: 36"}},
    {"NoPair40And44", [](const Scene &s) { s.channel(40, 44); }, 106, {kNoPair}},
    {"NoPair140And136", [](const Scene &s) { s.channel(140, 136); }, 106, {kNoPair}},
    {"NoPair136And140", [](const Scene &s) { s.channel(136, 140); }, 106, {kNoPair}},
    {"ProductFor24GHz", [](const Scene &s) { s.productFor24GHz(); }, 93, {kProduct}},
    {"NoBand", [](const Scene &s) { s.unset("radio0.bandType"); }, 42, {kNoBand}},
    {"ChannelNotAllowed",
     [](const Scene &s) {
         s.allow({40, 1});
     },
     88,
     {kDomain36}},
    {"ChannelOfTheOtherBand",
     [](const Scene &s) { s.set("radio0.bandType", "1"); },
     88,
     {kDomain36}},
    {"Channel6InThe5GHzBand",
     [](const Scene &s) { s.set("radio0.bandType", "2"), s.channel(6); },
     88,
     {"Invalid channel 6 in current band OR regulatory domain"}},
    {"BandThatDoesNotExist",
     [](const Scene &s) { s.set("radio0.bandType", "5"); },
     88,
     {kDomain36}},
    {"SecondaryNotAllowedWithBonding",
     [](const Scene &s) { s.bonding(36, 40), s.allow({36}); },
     88,
     {kDomainSecondary}},
    {"SilentWsmAllowsNothing",
     [](const Scene &s) { s.radios.clear(), s.channel(6); },
     88,
     {"Invalid channel 6 in current band OR regulatory domain"}},
    {"Channel14InJapan",
     [](const Scene &s) {
         s.japan(), s.mode("3"), s.channel(14), s.allow({13, 14});
     },
     64,
     {kJapan}},
    {"Channel14InJapanIn11n",
     [](const Scene &s) {
         s.japan(), s.mode("9"), s.channel(14), s.allow({13, 14});
     },
     64,
     {kJapan}},
    {"NoRate", [](const Scene &s) { s.unset("radio0.fixedRate"); }, 42, {kNoRate}},
    {"Rate65At5GHz",
     [](const Scene &s) { s.rate("65"); },
     69,
     {"Invalid channel 36 for configured fixed rate 65"}},
    {"Rate68At5GHz",
     [](const Scene &s) { s.rate("68"); },
     69,
     {"Invalid channel 36 for configured fixed rate 68"}},
    {"AutomaticMode3", [](const Scene &s) { s.automatic(3); }, 20, {"Invalid autoSelMode: 3"}},
    {"AutomaticModeAsSignedNumber",
     [](const Scene &s) { s.automatic(0xfffffffe); },
     20,
     {"Invalid autoSelMode: -2"}},
};

// Two things wrong at once: the check that comes first decides.
const Refusal kPairs[] = {
    {"RadioBeforeFile",
     [](const Scene &s) { s.param.radioIndex = 2, s.standIn.failAt(1); },
     3,
     {"Invalid radio ID: 2"}},
    {"FileBeforeRadarFlag",
     [](const Scene &s) { s.unset("radio0.radarDetectFlag"), s.standIn.failAt(1); },
     7,
     {"Unable to read WSM Defaults file /var/wsmDefaults"}},
    {"RadarFlagBeforeRadarChannel",
     [](const Scene &s) { s.radarDetection(), s.channel(52), s.standIn.failAt(2); },
     42,
     {kNoRadarFlag}},
    {"RadarChannelBeforeBonding",
     [](const Scene &s) {
         s.radarDetection(), s.channel(52), s.unset("radio0.channelBondingMode");
     },
     120,
     {kRadar}},
    {"RadarChannelBeforeMissingSecondary",
     [](const Scene &s) { s.radarDetection(), s.bonding(52, 0); },
     120,
     {kRadar}},
    {"BondingBeforeMissingSecondary",
     [](const Scene &s) { s.bonding(36, 0), s.standIn.failAt(3); },
     42,
     {kNoBonding}},
    {"MissingSecondaryBeforeMode",
     [](const Scene &s) { s.bonding(36, 0), s.unset("radio0.dot11Mode"); },
     106,
     {kNoSecondary}},
    {"MissingSecondaryBeforeChannelOfMode",
     [](const Scene &s) { s.bonding(36, 0), s.mode("3"); },
     106,
     {kNoSecondary}},
    {"ModeBeforeItsChannels",
     [](const Scene &s) { s.mode("3"), s.channel(36), s.standIn.failAt(4); },
     42,
     {kNoMode}},
    {"ModeBeforeAutomaticMode",
     [](const Scene &s) { s.unset("radio0.dot11Mode"), s.automatic(3); },
     42,
     {kNoMode}},
    {"BondingBeforeAutomaticMode",
     [](const Scene &s) { s.unset("radio0.channelBondingMode"), s.automatic(3); },
     42,
     {kNoBonding}},
    {"RadarFlagBeforeAutomaticMode",
     [](const Scene &s) { s.unset("radio0.radarDetectFlag"), s.automatic(3); },
     42,
     {kNoRadarFlag}},
    {"AutomaticModeBeforeItsWrites",
     [](const Scene &s) { s.automatic(3), s.writesFail(); },
     20,
     {"Invalid autoSelMode: 3"}},
    {"Mode11bgBeforeValidity",
     [](const Scene &s) { s.mode("3"), s.channel(37); },
     19,
     {"Invalid 802.11b/g channel: 37"}},
    {"Mode11aBeforeValidity",
     [](const Scene &s) { s.mode("1"), s.bonding(14, 10); },
     19,
     {"Invalid 802.11a channel: 14"}},
    {"ValidityBeforeSecondary",
     [](const Scene &s) { s.channel(37, 200); },
     19,
     {"Invalid channel: 37"}},
    {"SecondaryValidityBeforePair",
     [](const Scene &s) { s.channel(40, 45); },
     106,
     {"Invalid Secondary channel: 45"}},
    {"DistanceBeforePair",
     [](const Scene &s) { s.channel(36, 52); },
     106,
     {"Invalid Secondary channel: 52"}},
    {"DistanceBeforeProduct",
     [](const Scene &s) { s.channel(36, 52), s.productFor24GHz(); },
     106,
     {"Invalid Secondary channel: 52"}},
    {"PairBeforeProduct",
     [](const Scene &s) { s.channel(40, 44), s.productFor24GHz(); },
     106,
     {kNoPair}},
    {"ProductBeforeBand",
     [](const Scene &s) { s.productFor24GHz(), s.unset("radio0.bandType"); },
     93,
     {kProduct}},
    {"ProductBeforeDomain",
     [](const Scene &s) { s.productFor24GHz(), s.allow({1}); },
     93,
     {kProduct}},
    {"BandBeforeDomain",
     [](const Scene &s) { s.unset("radio0.bandType"), s.allow({1}); },
     42,
     {kNoBand}},
    {"ChannelBeforeSecondaryInDomain",
     [](const Scene &s) { s.bonding(36, 40), s.allow({1}); },
     88,
     {kDomain36}},
    {"DomainBeforeJapan",
     [](const Scene &s) { s.japan(), s.mode("3"), s.channel(14), s.allow(kChannels1To14); },
     88,
     {kDomain14}},
    {"SecondaryInDomainBeforeRate",
     [](const Scene &s) { s.bonding(36, 40), s.allow({36}), s.unset("radio0.fixedRate"); },
     88,
     {kDomainSecondary}},
    {"DomainBeforeRate", [](const Scene &s) { s.allow({1}), s.rate("65"); }, 88, {kDomain36}},
    {"JapanBeforeRate",
     [](const Scene &s) {
         s.japan(), s.mode("3"), s.channel(14), s.allow({14}), s.unset("radio0.fixedRate");
     },
     64,
     {kJapan}},
    {"RateBeforeWrites",
     [](const Scene &s) { s.rate("65"), s.writesFail(); },
     69,
     {"Invalid channel 36 for configured fixed rate 65"}},
    {"RateReadBeforeWrites",
     [](const Scene &s) { s.unset("radio0.fixedRate"), s.writesFail(); },
     42,
     {kNoRate}},
    {"BroadcastRateBeforeOtherWrites",
     [](const Scene &s) { s.writesFail(); },
     25,
     {"Unable to write fixedRate to dictionary"}},
};

INSTANTIATE_TEST_SUITE_P(One, SetChannelRefuses, ValuesIn(kSingle),
                         [](const auto &info) { return info.param.name; });
INSTANTIATE_TEST_SUITE_P(Order, SetChannelRefuses, ValuesIn(kPairs),
                         [](const auto &info) { return info.param.name; });

struct SetChannel : ChannelTest {};

TEST_F(SetChannel, NullRecordIs2BeforeTheFileIsLoaded)
{
    EXPECT_EQ(oruSdkSetChannelParam(nullptr), 2u);
    EXPECT_LOGGED("NULL pointer");
    EXPECT_THAT(standIn.calls, IsEmpty());
}

TEST_F(SetChannel, WsmIsNotAskedBeforeTheTablesAgree)
{
    scene.channel(40, 44);
    EXPECT_EQ(set(), 106u);
    EXPECT_THAT(standIn.sent(), IsEmpty());
}

TEST_F(SetChannel, UnansweredFirstQuestionCountsAsNoProductFor24GHzAndNoChannels)
{
    standIn.failOnly("oruAsfIpcConnect");
    standIn.failAt(1);
    EXPECT_EQ(set(), 88u);
    EXPECT_ERRORS("IPC Connect failed", "oruSdkGetRadioParam() failed", "getRadioInfo() failed",
                  "getRadioProductBand() failed", kDomain36);
    // From the second call on the zeros of the cache say: 2.4 GHz only.
    EXPECT_EQ(oruSdkSetChannelParam(&param), 93u);
    EXPECT_ERRORS(kProduct);
    EXPECT_THAT(standIn.sent(), IsEmpty());
}

TEST_F(SetChannel, ProductIsLookedAtForEveryChannel)
{
    // The first question fails where the product is checked, not later.
    scene.channel(6);
    standIn.failOnly("oruAsfIpcOpen");
    standIn.failAt(1);
    EXPECT_EQ(set(), 88u);
    EXPECT_ERRORS("IPC Open failed", "oruSdkGetRadioParam() failed", "getRadioInfo() failed",
                  "getRadioProductBand() failed",
                  "Invalid channel 6 in current band OR regulatory domain");
}

TEST_F(SetChannel, EveryOtherReadFailsWithAnyStatus)
{
    tellRadios(box, standIn, radios);
    const uint32_t codes[] = {42, 42, 42, 42, 88, 0}; // the last one is the fixed rate
    for (int n = 0; n < 6; ++n) {
        standIn.reset();
        standIn.failOnly("oruAsfDictGetInt");
        standIn.failAt(n + 1, 5);
        EXPECT_EQ(oruSdkSetChannelParam(&param), codes[n]) << n;
    }
    EXPECT_EQ(standIn.failed(), "oruAsfDictGetInt");
    EXPECT_EQ(written()[1], "36");
}

// ---- What is accepted, and what it writes

struct Accepted {
    std::string name;
    std::function<void(const Scene &)> prepare;
};

std::ostream &operator<<(std::ostream &to, const Accepted &row)
{
    return to << row.name;
}

struct SetChannelAccepts : ChannelTest, ::testing::WithParamInterface<Accepted> {};

TEST_P(SetChannelAccepts, AndWritesTheGroup)
{
    GetParam().prepare(scene);
    EXPECT_EQ(set(), 0u);
    EXPECT_THAT(linesAt(standIn, 3), IsEmpty());
    EXPECT_EQ(written(),
              (Values{"2", std::to_string(param.channel), std::to_string(param.secondaryChannel),
                      "0", "0", "1", "78", param.channel > 35 ? "69" : "74"}));
    EXPECT_EQ(key("radio1.configuredChannel"), "72");
}

const Accepted kAccepted[] = {
    {"Channel1", [](const Scene &s) { s.channel(1); }},
    {"Channel14WithoutBonding", [](const Scene &s) { s.channel(14); }},
    {"Channel36", [](const Scene &s) { s.channel(36); }},
    {"Channel161", [](const Scene &s) { s.channel(161); }},
    {"RadarChannelWithoutDetection", [](const Scene &s) { s.channel(52); }},
    {"RadarFlagOtherThan1",
     [](const Scene &s) { s.set("radio0.radarDetectFlag", "2"), s.channel(52); }},
    {"Channel36WithDetection", [](const Scene &s) { s.radarDetection(), s.channel(36); }},
    {"Pair36And40WithBonding", [](const Scene &s) { s.bonding(36, 40); }},
    {"Pair161And157WithBonding", [](const Scene &s) { s.bonding(161, 157); }},
    {"Pair36And40WithoutBonding", [](const Scene &s) { s.channel(36, 40); }},
    {"Bonding2NeedsNoSecondary",
     [](const Scene &s) { s.set("radio0.channelBondingMode", "2"), s.channel(36); }},
    {"NoTableAt24GHz", [](const Scene &s) { s.channel(6, 2); }},
    {"NoTableAt24GHzUpwards", [](const Scene &s) { s.channel(6, 10); }},
    {"Secondary14WithoutBonding", [](const Scene &s) { s.channel(10, 14); }},
    {"SecondaryNotAllowedWithoutBonding", [](const Scene &s) { s.channel(36, 40), s.allow({36}); }},
    {"SecondaryNotAllowedWithBonding2",
     [](const Scene &s) {
         s.set("radio0.channelBondingMode", "2"), s.channel(36, 40), s.allow({36});
     }},
    {"Channel36In11a", [](const Scene &s) { s.mode("1"), s.channel(36); }},
    {"Channel14In11bg", [](const Scene &s) { s.mode("3"), s.channel(14); }},
    {"Channel36In11n", [](const Scene &s) { s.mode("9"), s.channel(36); }},
    {"Channel6In11n", [](const Scene &s) { s.mode("9"), s.channel(6); }},
    {"Channel14OnAProductFor24GHz", [](const Scene &s) { s.productFor24GHz(), s.channel(14); }},
    {"Channel36InThe5GHzBand", [](const Scene &s) { s.set("radio0.bandType", "2"); }},
    {"Channel6InThe24GHzBand", [](const Scene &s) { s.set("radio0.bandType", "1"), s.channel(6); }},
    {"Channel14InJapanIn11b",
     [](const Scene &s) { s.japan(), s.mode("2"), s.channel(14), s.allow(kChannels1To14); }},
    {"Channel14InJordanIn11g",
     [](const Scene &s) {
         s.radios[0].country = "JOI"; // begins like Japan
         s.mode("3"), s.channel(14), s.allow(kChannels1To14);
     }},
    {"Channel13InJapan",
     [](const Scene &s) { s.japan(), s.mode("3"), s.channel(13), s.allow(kChannels1To14); }},
    {"Rate64At5GHz", [](const Scene &s) { s.rate("64"); }},
    {"Rate69At5GHz", [](const Scene &s) { s.rate("69"); }},
    {"NegativeRateAt5GHz", [](const Scene &s) { s.rate("-65"); }},
    {"Rate65AtChannel14", [](const Scene &s) { s.rate("65"), s.channel(14); }},
    {"Rate68AtChannel1", [](const Scene &s) { s.rate("68"), s.channel(1); }},
    {"AutomaticFieldsOfNoMeaning", [](const Scene &s) { s.param.autoSelMode = 99; }},
};
INSTANTIATE_TEST_SUITE_P(Fixed, SetChannelAccepts, ValuesIn(kAccepted),
                         [](const auto &info) { return info.param.name; });

TEST_F(SetChannel, OfRadio1UsesItsKeysAndItsChannels)
{
    radios[0].channels = {1};
    radios[1].channels = {149};
    param = {1, 149, 0, 0, 0};
    EXPECT_EQ(set(), 0u);
    EXPECT_EQ(written("radio1."), (Values{"2", "149", "0", "0", "0", "1", "78", "69"}));
    EXPECT_EQ(key("radio0.configuredChannel"), "72");
    EXPECT_EQ(key("radio0.broadcastRate5GHz"), "74");
}

TEST_F(SetChannel, OfRadio1GoesByTheProductBandOfRadio0)
{
    radios[0].band5 = 0;
    param.radioIndex = 1;
    EXPECT_EQ(set(), 93u);
    EXPECT_LOGGED(kProduct);
}

TEST_F(SetChannel, OfRadio1GoesByTheCountryOfRadio1)
{
    radios[1] = {"JPI", {13, 14}, 1};
    scene.set("radio1.dot11Mode", "3");
    param = {1, 14, 0, 0, 0};
    EXPECT_EQ(set(), 64u);
    EXPECT_ERRORS(kJapan);
    param.radioIndex = 0;
    EXPECT_EQ(set(), 0u);
}

TEST_F(SetChannel, AutomaticOnceSwitchesMeasurementOff)
{
    param = {0, 0, 40, 0, 3600};
    EXPECT_EQ(set(), 0u);
    EXPECT_EQ(written(), (Values{"0", "0", "0", "0", "0", "1", "78", "74"}));
    EXPECT_NOTHING_LOGGED();
}

TEST_F(SetChannel, AutomaticPeriodicallyStoresTheTimer)
{
    param = {0, 0, 40, 1, 3600};
    EXPECT_EQ(set(), 0u);
    EXPECT_EQ(written(), (Values{"0", "0", "0", "1", "1", "0", "3600", "74"}));
}

TEST_F(SetChannel, AutomaticTimerIsNotChecked)
{
    param = {0, 0, 0, 1, 0xffffffff};
    EXPECT_EQ(set(), 0u);
    EXPECT_EQ(key("periodicDfsTmr"), "-1");
}

TEST_F(SetChannel, AutomaticKeepingPeriodicLeavesTheirKeys)
{
    param = {1, 0, 0, 2, 3600};
    EXPECT_EQ(set(), 0u);
    EXPECT_EQ(written("radio1."), (Values{"0", "0", "0", "75", "76", "77", "78", "74"}));
    EXPECT_EQ(written("radio0."), untouched);
}

TEST_F(SetChannel, AutomaticNeedsNeitherWsmNorBandNorRateNorSecondary)
{
    scene.set("radio0.channelBondingMode", "1");
    scene.unset("radio0.bandType");
    scene.unset("radio0.fixedRate");
    scene.radarDetection();
    scene.mode("1");
    scene.automatic(0);
    EXPECT_EQ(set(), 0u);
    EXPECT_THAT(standIn.sent(), IsEmpty());
    EXPECT_NOTHING_LOGGED();
}

// ---- Reading

struct GetChannel : ChannelTest {
    GetChannel() { param = {0, 91, 92, 93, 94}; }

    void expect(uint32_t channel, uint32_t secondary, uint32_t mode, uint32_t timer)
    {
        EXPECT_EQ(param.channel, channel);
        EXPECT_EQ(param.secondaryChannel, secondary);
        EXPECT_EQ(param.autoSelMode, mode);
        EXPECT_EQ(param.periodicDfsTimer, timer);
    }
};

TEST_F(GetChannel, FixedLeavesTheAutomaticFields)
{
    scene.set("radio0.channelSelectionType", "2");
    EXPECT_EQ(oruSdkGetChannelParam(&param), 0u);
    expect(72, 73, 93, 94);
    EXPECT_NOTHING_LOGGED();
}

TEST_F(GetChannel, AnyOtherSelectionIsAutomatic)
{
    for (const char *selection : {"0", "1", "3", "-2"}) {
        param = {0, 91, 92, 93, 94};
        scene.set("radio0.channelSelectionType", selection);
        EXPECT_EQ(oruSdkGetChannelParam(&param), 0u);
        expect(0, 92, 75, 94);
    }
}

TEST_F(GetChannel, PeriodicReadsTheTimer)
{
    scene.set("periodicDfsFlag", "1");
    EXPECT_EQ(oruSdkGetChannelParam(&param), 0u);
    expect(0, 92, 1, 78);
}

TEST_F(GetChannel, OnceReadsNoTimer)
{
    scene.set("periodicDfsFlag", "0");
    scene.unset("periodicDfsTmr");
    EXPECT_EQ(oruSdkGetChannelParam(&param), 0u);
    expect(0, 92, 0, 94);
}

TEST_F(GetChannel, FieldsReadBeforeAFailureStay)
{
    scene.set("radio0.channelSelectionType", "2");
    scene.unset("radio0.configuredSecondaryChannel");
    EXPECT_EQ(oruSdkGetChannelParam(&param), 42u);
    EXPECT_LOGGED(
        "Failed to read radio0.configuredSecondaryChannel from config file /var/wsmDefaults");
    expect(72, 92, 93, 94);

    param.channel = 91;
    scene.unset("radio0.configuredChannel");
    EXPECT_EQ(oruSdkGetChannelParam(&param), 42u);
    EXPECT_LOGGED("Failed to read radio0.configuredChannel from config file /var/wsmDefaults");
    expect(91, 92, 93, 94);

    scene.set("radio0.channelSelectionType", "0");
    scene.unset("periodicDfsFlag");
    EXPECT_EQ(oruSdkGetChannelParam(&param), 42u);
    EXPECT_LOGGED("Failed to read periodicDfsFlag from config file /var/wsmDefaults");
    expect(0, 92, 93, 94);

    scene.set("periodicDfsFlag", "1");
    scene.unset("periodicDfsTmr");
    EXPECT_EQ(oruSdkGetChannelParam(&param), 42u);
    EXPECT_LOGGED("Failed to read periodicDfsTmr from config file /var/wsmDefaults");
    expect(0, 92, 1, 94);
}

TEST_F(GetChannel, MissingSelectionAndMissingFileLeaveTheRecord)
{
    scene.unset("radio0.channelSelectionType");
    EXPECT_EQ(oruSdkGetChannelParam(&param), 42u);
    EXPECT_LOGGED("Failed to read radio0.channelSelectionType from config file /var/wsmDefaults");
    expect(91, 92, 93, 94);
    box.remove(kWsm);
    EXPECT_EQ(oruSdkGetChannelParam(&param), 7u);
    EXPECT_LOGGED("Unable to read WSM Defaults file /var/wsmDefaults");
    expect(91, 92, 93, 94);
}

TEST_F(GetChannel, ChecksTheRecordThenTheRadio)
{
    EXPECT_EQ(oruSdkGetChannelParam(nullptr), 2u);
    EXPECT_LOGGED("NULL pointer");
    for (const uint32_t radio : {2u, 0xffffffffu}) {
        param.radioIndex = radio;
        EXPECT_EQ(oruSdkGetChannelParam(&param), 3u);
        EXPECT_LOGGED("Invalid radio ID");
    }
    EXPECT_THAT(standIn.calls, IsEmpty());
}

TEST_F(GetChannel, ReadsWhatWasSet)
{
    param = {1, 36, 40, 0, 0};
    EXPECT_EQ(set(), 0u);
    param = {1, 0, 0, 93, 94};
    EXPECT_EQ(oruSdkGetChannelParam(&param), 0u);
    expect(36, 40, 93, 94);
}

// ---- Each call that can fail

const char kLoadFailed[] = "Unable to read WSM Defaults file /var/wsmDefaults";
const Step kLoad{"oruAsfDictCreate /var/wsmDefaults", 7, kLoadFailed};
const Step kSave{"oruAsfDictSave /var/wsmDefaults", 8,
                 "Unable to write WSM Defaults file /var/wsmDefaults"};
const char kMode1[] = "oruAsfDictGetInt radio1.dot11Mode";

Step writeStep(const std::string &key)
{
    return {"oruAsfDictSetString " + key, 25, "Unable to write " + key + " to dictionary"};
}

/// The text lacks the point behind the radio.
Step radioStep(const std::string &name)
{
    return {"oruAsfDictSetString radio1." + name, 25,
            "Unable to write radio1" + name + " to dictionary"};
}

std::vector<Step> operator+(std::vector<Step> steps, const std::vector<Step> &more)
{
    steps.insert(steps.end(), more.begin(), more.end());
    return steps;
}

const std::vector<Step> kChecks{kLoad,
                                {"oruAsfDictGetInt radio1.radarDetectFlag", 42, kNoRadarFlag},
                                {"oruAsfDictGetInt radio1.channelBondingMode", 42, kNoBonding},
                                {kMode1, 42, kNoMode}};

const std::vector<Step> kFixed =
    kChecks +
    std::vector<Step>{
        {"oruAsfDictGetInt radio1.bandType", 42,
         "Unable to read radio1.bandType from config file /var/wsmDefaults"},
        {"oruAsfDictCreate /var/wsmDefaults", 88, std::string(kLoadFailed) + " | " + kDomain36},
        {kMode1, 88, std::string(kNoMode) + " | " + kDomain36},
        {"oruAsfDictGetInt radio1.fixedRate", 42, kNoRate},
        {"oruAsfDictSetString radio1.broadcastRate5GHz", 25,
         "Unable to write fixedRate to dictionary"},
        radioStep("channelSelectionType"),
        radioStep("configuredChannel"),
        radioStep("configuredSecondaryChannel"),
        writeStep("periodicDfsFlag"),
        writeStep("periodicMeasFlag"),
        writeStep("measurementDisabled"),
        kSave};

const std::vector<Step> kAutomatic =
    kChecks + std::vector<Step>{radioStep("configuredChannel"),
                                radioStep("configuredSecondaryChannel"),
                                radioStep("channelSelectionType")};

SweepRow setRow(const std::string &name, OruSdkChannelParam param, std::vector<Step> steps)
{
    return {name,
            [](AccessPoint &box, StandIn &standIn) {
                prepareFile(box);
                const Radio radio{"USI", kEveryChannel, 1};
                tellRadios(box, standIn, {radio, radio});
            },
            [param]() mutable { return inOneLine(oruSdkSetChannelParam(&param)); },
            std::move(steps)};
}

SweepRow getRow(const std::string &name, const std::string &selection, std::vector<Step> steps)
{
    return {name,
            [selection](AccessPoint &box, StandIn &) {
                prepareFile(box);
                box.set(kWsm, "radio1.channelSelectionType", selection);
                box.set(kWsm, "periodicDfsFlag", "1");
            },
            [] {
                OruSdkChannelParam param{1, 0, 0, 0, 0};
                return oruSdkGetChannelParam(&param);
            },
            std::move(steps)};
}

Step readStep(const std::string &key)
{
    return {"oruAsfDictGetInt " + key, 42,
            "Failed to read " + key + " from config file /var/wsmDefaults"};
}

const std::vector<SweepRow> kRows{
    setRow("SetFixed", {1, 36, 40, 0, 0}, kFixed),
    setRow("SetOnce", {1, 0, 0, 0, 0},
           kAutomatic + std::vector<Step>{writeStep("periodicDfsFlag"),
                                          writeStep("periodicMeasFlag"),
                                          writeStep("measurementDisabled"), kSave}),
    setRow("SetPeriodic", {1, 0, 0, 1, 10},
           kAutomatic + std::vector<Step>{writeStep("measurementDisabled"),
                                          writeStep("periodicDfsFlag"),
                                          writeStep("periodicMeasFlag"),
                                          writeStep("periodicDfsTmr"), kSave}),
    setRow("SetKeepingPeriodic", {1, 0, 0, 2, 0}, kAutomatic + std::vector<Step>{kSave}),
    getRow("GetFixed", "2",
           {kLoad, readStep("radio1.channelSelectionType"), readStep("radio1.configuredChannel"),
            readStep("radio1.configuredSecondaryChannel")}),
    getRow("GetAutomatic", "0",
           {kLoad, readStep("radio1.channelSelectionType"), readStep("periodicDfsFlag"),
            readStep("periodicDfsTmr")}),
};
INSTANTIATE_TEST_SUITE_P(ChannelParam, FailureSweep, ValuesIn(kRows), rowName);

} // namespace
} // namespace oru::test
