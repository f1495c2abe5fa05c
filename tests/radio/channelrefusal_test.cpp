// What the channel of a radio can't be, and which of two refusals comes first.
#include "radio/channelscene.hpp"

#include <gmock/gmock.h>

#include <functional>

namespace oru::test {
namespace {

using ::testing::IsEmpty;
using ::testing::ValuesIn;

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

const char kRadar[] = "Illegal channel when radar detection flag set";
const char kNoSecondary[] = "Secondary channel not specified when 40MHz mode set";
const char kNoPair[] = "Invalid channel allocation for 5MHz band";
const char kNoBand[] = "Unable to read radio0.bandType from config file /var/wsmDefaults";
const char kDomain14[] = "Invalid channel 14 in current band OR regulatory domain";
const char kDomainSecondary[] = "Invalid secondary channel 40 in current band OR regulatory domain";

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

} // namespace
} // namespace oru::test
