// A radio's channel: what is written for one that is accepted, what is read, and each call that can
// fail.
#include "radio/channelscene.hpp"

#include <gmock/gmock.h>

#include <functional>
#include <map>

namespace oru::test {
namespace {

using ::testing::IsEmpty;
using ::testing::ValuesIn;

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
        {.call = "oruAsfDictGetInt radio1.fixedRate",
         .code = 42,
         .log = kNoRate,
         .onlyMinus1 = true},
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
INSTANTIATE_TEST_SUITE_P(ChannelParam, StatusSweep, ValuesIn(kRows), rowName);

} // namespace
} // namespace oru::test
