// The 802.11 mode. WSM is asked once in a process, so each case that lets it answer needs one of
// its own, as ctest gives it.
#include "oruSdk.h"
#include "radio/wsm.hpp"
#include "support/accesspoint.hpp"
#include "support/sweep.hpp"

#include <gmock/gmock.h>

#include <string>
#include <vector>

namespace oru::test {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::ValuesIn;

/// What radio 1 has unless a case says otherwise: every mode that its band allows can be set. The
/// keys of radio 0 are absent.
void preparePlain(const AccessPoint &box)
{
    box.write(kWsm, "ERPFlag=5\n"
                    "radio1.dot11Mode=7\n"
                    "radio1.bandType=0\n"
                    "radio1.standardExt=1\n"
                    "radio1.channelSelectionType=1\n"
                    "radio1.configuredChannel=14\n"
                    "radio1.fixedRate=129\n"
                    "radio1.adminDot11bStaFlag=1\n");
}

struct Dot11Mode : AccessPointTest {
    Dot11Mode() { preparePlain(box); }

    void set(const std::string &key, int value) const
    {
        box.set(kWsm, "radio1." + key, std::to_string(value));
    }
    [[nodiscard]] std::string value(const std::string &key) const
    {
        return box.value(kWsm, key).value_or("absent");
    }

    /// Sets radio 1's mode; what is refused leaves record and files.
    uint32_t setMode(uint32_t mode)
    {
        const std::string before = box.everything();
        OruSdkOptionParam param{0xabcd, 1, mode};
        standIn.calls.clear();
        const uint32_t code = oruSdkSetDot11Mode(&param);
        EXPECT_EQ(param.reserved, 0xabcdu);
        EXPECT_EQ(param.radioIndex, 1u);
        EXPECT_EQ(param.featureOptions, mode);
        if (code == 0) {
            EXPECT_EQ(value("radio1.dot11Mode"), std::to_string(mode));
            EXPECT_EQ(value("ERPFlag"), mode == 2 ? "0" : "1");
        } else {
            EXPECT_EQ(box.everything(), before);
        }
        return code;
    }

    void setManualChannel(int channel) const
    {
        set("channelSelectionType", 2);
        set("configuredChannel", channel);
    }
};

constexpr uint32_t kGuarded[] = {2, 3, 4, 9}; // need standard extensions

bool isGuarded(uint32_t mode)
{
    return std::find(std::begin(kGuarded), std::end(kGuarded), mode) != std::end(kGuarded);
}

// ---- Modes and bands

TEST_F(Dot11Mode, EachModeOnEachBand)
{
    for (int band = -1; band <= 3; ++band)
        for (uint32_t mode = 0; mode <= 10; ++mode) {
            preparePlain(box);
            set("bandType", band);
            uint32_t code = 0;
            std::string log;
            if (mode == 10) {
                code = 47;
                log = "Invalid feature option 10 for radio1.dot11Mode";
            } else if (band == 2 && (mode == 2 || mode == 3)) {
                code = 107;
                log = "Invalid mode in 5GHz band";
            } else if (band == 1 && mode == 1) {
                code = 18;
                log = "Invalid mode in 2.4GHz band";
            }
            EXPECT_EQ(setMode(mode), code) << "mode " << mode << ", band " << band;
            if (code == 0) {
                EXPECT_NOTHING_LOGGED();
            } else {
                EXPECT_LOGGED(log);
            }
        }
}

TEST_F(Dot11Mode, RangeIsCheckedBeforeTheFileIsOpened)
{
    box.remove(kWsm);
    for (const uint32_t mode : {10u, 0x80000000u, 0xffffffffu}) {
        OruSdkOptionParam param{0, 1, mode};
        EXPECT_EQ(oruSdkSetDot11Mode(&param), 47u);
        EXPECT_LOGGED("Invalid feature option " + std::to_string(static_cast<int32_t>(mode)) +
                      " for radio1.dot11Mode");
    }
    EXPECT_THAT(standIn.calls, IsEmpty());
}

TEST_F(Dot11Mode, RecordThenRadioAreCheckedFirst)
{
    for (const auto operation : {oruSdkSetDot11Mode, oruSdkGetDot11Mode}) {
        EXPECT_EQ(operation(nullptr), 2u);
        EXPECT_LOGGED("NULL pointer");
        for (const uint32_t radio : {2u, 0x80000000u, 0xffffffffu}) {
            OruSdkOptionParam param{0, radio, 10};
            EXPECT_EQ(operation(&param), 3u);
            EXPECT_LOGGED("Invalid radio ID: " + std::to_string(static_cast<int32_t>(radio)));
        }
    }
    EXPECT_THAT(standIn.calls, IsEmpty());
}

TEST_F(Dot11Mode, GetterGivesWhateverIsStored)
{
    OruSdkOptionParam param{0xabcd, 1, 99};
    for (const int stored : {0, 9, 10, -1}) {
        set("dot11Mode", stored);
        EXPECT_EQ(oruSdkGetDot11Mode(&param), 0u);
        EXPECT_EQ(param.featureOptions, static_cast<uint32_t>(stored));
    }
    param = {0, 0, 99};
    EXPECT_EQ(oruSdkGetDot11Mode(&param), 42u);
    EXPECT_LOGGED("Unable to read radio0.dot11Mode from config file /var/wsmDefaults");
    EXPECT_EQ(param.featureOptions, 99u);
}

TEST_F(Dot11Mode, ModeOfOneRadioLeavesTheOther)
{
    box.set(kWsm, "radio0.dot11Mode", "6");
    EXPECT_EQ(setMode(3), 0u);
    EXPECT_EQ(value("radio0.dot11Mode"), "6");
    EXPECT_EQ(value("radio1.dot11Mode"), "3");
}

TEST_F(Dot11Mode, UnguardedModesReadTheBandAlone)
{
    box.write(kWsm, "radio1.bandType=2\n");
    for (const uint32_t mode : {0u, 1u, 5u, 6u, 7u, 8u}) {
        EXPECT_EQ(setMode(mode), 0u);
        EXPECT_THAT(standIn.calls,
                    ElementsAre("oruAsfDictCreate /var/wsmDefaults",
                                "oruAsfDictGetInt radio1.bandType", "oruAsfDictSetString ERPFlag",
                                "oruAsfDictSetString radio1.dot11Mode",
                                "oruAsfDictSave /var/wsmDefaults"));
    }
}

TEST_F(Dot11Mode, LeavingMode2SetsTheFlagOfTheWholeDeviceBack)
{
    EXPECT_EQ(setMode(2), 0u);
    EXPECT_EQ(value("ERPFlag"), "0");
    EXPECT_EQ(setMode(3), 0u);
    EXPECT_EQ(value("ERPFlag"), "1");
}

// ---- Standard extensions

TEST_F(Dot11Mode, ExtensionsMustBeOnForTheGuardedModes)
{
    set("standardExt", 0);
    for (uint32_t mode = 0; mode <= 9; ++mode) {
        EXPECT_EQ(setMode(mode), isGuarded(mode) ? 59u : 0u) << mode;
        if (isGuarded(mode)) {
            EXPECT_LOGGED("Standard extensions must be on");
        } else {
            EXPECT_NOTHING_LOGGED();
        }
    }
    for (const int other : {2, -1}) { // anything but 0 is on
        set("standardExt", other);
        EXPECT_EQ(setMode(9), 0u);
    }
}

TEST_F(Dot11Mode, BandIsCheckedBeforeTheExtensions)
{
    set("standardExt", 0);
    set("bandType", 2);
    EXPECT_EQ(setMode(3), 107u);
    EXPECT_EQ(setMode(4), 59u);
}

TEST_F(Dot11Mode, ExtensionsAreCheckedBeforeTheChannelIsRead)
{
    set("standardExt", 0);
    box.unset(kWsm, "radio1.channelSelectionType");
    EXPECT_EQ(setMode(4), 59u);
}

// ---- Channel 14 in Japan

TEST_F(Dot11Mode, GuardedModesAreRefusedOnManualChannel14InJapan)
{
    standIn.replyWith(radioReply({{.country = "USI"}, {.country = "JPI"}}));
    setManualChannel(14);
    for (uint32_t mode = 0; mode <= 9; ++mode) {
        EXPECT_EQ(setMode(mode), isGuarded(mode) ? 64u : 0u) << mode;
        if (isGuarded(mode)) {
            EXPECT_LOGGED("Channel 14 invalid for 802.11g mode in Japan");
        } else {
            EXPECT_NOTHING_LOGGED();
        }
    }
    EXPECT_EQ(standIn.sent().size(), 1u);
}

TEST_F(Dot11Mode, CountryIsThatOfTheRadio)
{
    standIn.replyWith(radioReply({{.country = "JPI"}, {.country = "USI"}}));
    setManualChannel(14);
    for (const uint32_t mode : kGuarded) EXPECT_EQ(setMode(mode), 0u);
}

TEST_F(Dot11Mode, BothLettersOfTheCountryCount)
{
    standIn.replyWith(radioReply({{.country = "JMP"}, {.country = "PPJ"}}));
    setManualChannel(14);
    EXPECT_EQ(setMode(3), 0u);
    box.set(kWsm, "radio0.bandType", "0");
    box.set(kWsm, "radio0.standardExt", "1");
    box.set(kWsm, "radio0.channelSelectionType", "2");
    box.set(kWsm, "radio0.configuredChannel", "14");
    OruSdkOptionParam param{0, 0, 3};
    EXPECT_EQ(oruSdkSetDot11Mode(&param), 0u);
}

TEST_F(Dot11Mode, AutomaticSelectionLooksAtNeitherChannelNorCountry)
{
    standIn.replyWith(radioReply({{.country = "JPI"}, {.country = "JPI"}}));
    box.unset(kWsm, "radio1.configuredChannel");
    for (const int type : {0, 1, 3}) {
        set("channelSelectionType", type);
        EXPECT_EQ(setMode(3), 0u);
    }
    EXPECT_THAT(standIn.sent(), IsEmpty());
}

TEST_F(Dot11Mode, OtherManualChannelsDontAskForTheCountry)
{
    standIn.replyWith(radioReply({{.country = "JPI"}, {.country = "JPI"}}));
    for (const int channel : {0, 1, 13, 15, 36}) {
        setManualChannel(channel);
        for (const uint32_t mode : kGuarded) EXPECT_EQ(setMode(mode), 0u);
    }
    EXPECT_THAT(standIn.sent(), IsEmpty());
}

TEST_F(Dot11Mode, CountryThatCantBeHadGivesItsOwnCode)
{
    setManualChannel(14);
    standIn.failOnly("oruAsfIpcConnect");
    standIn.failAt(1);
    EXPECT_EQ(setMode(3), 48u);
    expectLogged(3,
                 {"IPC Connect failed", "oruSdkGetRadioParam() failed", "getRadioInfo() failed",
                  "getRadioCountryCode() failed"},
                 __FILE__, __LINE__);
    // From then on the country is three zero bytes.
    EXPECT_EQ(setMode(3), 0u);
    EXPECT_NOTHING_LOGGED();
}

TEST_F(Dot11Mode, DamagedAnswerGives1)
{
    standIn.replyWith(radioReply({{.country = "JPI", .channelCount = 60}}));
    setManualChannel(14);
    EXPECT_EQ(setMode(3), 1u);
}

TEST_F(Dot11Mode, JapanIsCheckedBeforeTheRatesOfMode2)
{
    standIn.replyWith(radioReply({{.country = "JPI"}, {.country = "JPI"}}));
    setManualChannel(14);
    box.unset(kWsm, "radio1.fixedRate");
    EXPECT_EQ(setMode(2), 64u);
}

// ---- 802.11b only

TEST_F(Dot11Mode, Mode2RefusesFixedRates69To76)
{
    for (const int rate : {-1, 0, 68, 69, 70, 75, 76, 77, 132, 140}) {
        set("fixedRate", rate);
        const bool refused = rate >= 69 && rate <= 76;
        EXPECT_EQ(setMode(2), refused ? 63u : 0u) << rate;
        if (refused) {
            EXPECT_LOGGED("Fixed rate must not be set to 802.11a/g rates");
        }
    }
    EXPECT_NOTHING_LOGGED();
}

TEST_F(Dot11Mode, OtherModesTakeAnyFixedRate)
{
    set("fixedRate", 70);
    for (const uint32_t mode : {0u, 1u, 3u, 4u, 5u, 6u, 7u, 8u, 9u}) EXPECT_EQ(setMode(mode), 0u);
}

TEST_F(Dot11Mode, Mode2NeedsStationsOf80211bAdmitted)
{
    set("adminDot11bStaFlag", 0);
    EXPECT_EQ(setMode(2), 71u);
    EXPECT_LOGGED("802.11b ONLY mode: must not reject 802.11b stations");
    for (const uint32_t mode : {0u, 3u, 4u, 9u}) EXPECT_EQ(setMode(mode), 0u);
    set("adminDot11bStaFlag", 2);
    EXPECT_EQ(setMode(2), 0u);
}

TEST_F(Dot11Mode, Mode2ChecksTheRateBeforeItReadsTheStationFlag)
{
    set("fixedRate", 70);
    box.unset(kWsm, "radio1.adminDot11bStaFlag");
    EXPECT_EQ(setMode(2), 63u);
}

TEST_F(Dot11Mode, Mode2WritesTheFlagBetweenReadingAndCheckingTheRate)
{
    set("fixedRate", 70);
    standIn.failOnly("oruAsfDictSetString");
    standIn.failAt(1);
    EXPECT_EQ(setMode(2), 42u);
    EXPECT_LOGGED("Unable to set ERPflag from config file /var/wsmDefaults");
    EXPECT_THAT(standIn.calls,
                ElementsAre("oruAsfDictCreate /var/wsmDefaults", "oruAsfDictGetInt radio1.bandType",
                            "oruAsfDictGetInt radio1.standardExt",
                            "oruAsfDictGetInt radio1.channelSelectionType",
                            "oruAsfDictGetInt radio1.fixedRate", "oruAsfDictSetString ERPFlag"));
}

// ---- Statuses

TEST_F(Dot11Mode, OnlyMinus1FailsTheRateAndTheFlag)
{
    set("fixedRate", 70); // not seen: the value starts as 0
    standIn.failAt(5, 3);
    EXPECT_EQ(setMode(2), 0u);
    EXPECT_EQ(standIn.failed(), "oruAsfDictGetInt");

    set("fixedRate", 0);
    for (const uint32_t mode : {2u, 5u}) {
        preparePlain(box);
        standIn.failOnly("oruAsfDictSetString");
        standIn.failAt(1, 3);
        OruSdkOptionParam param{0, 1, mode};
        EXPECT_EQ(oruSdkSetDot11Mode(&param), 0u);
        EXPECT_EQ(standIn.failed(), "oruAsfDictSetString");
        EXPECT_EQ(value("radio1.dot11Mode"), std::to_string(mode));
        EXPECT_EQ(value("ERPFlag"), "5");
    }
    EXPECT_NOTHING_LOGGED();
}

TEST_F(Dot11Mode, FormatsTakeTheRadio)
{
    box.unset(kWsm, "radio1.channelSelectionType");
    EXPECT_EQ(setMode(3), 42u);
    box.unset(kWsm, "radio1.bandType");
    EXPECT_EQ(setMode(3), 42u);
    ASSERT_EQ(standIn.logs.size(), 2u);
    EXPECT_EQ(standIn.logs[0].format,
              "Failed to read radio%d.channelSelectionType from config file %s");
    EXPECT_EQ(standIn.logs[1].format, "Unable to read radio%d.bandType from config file %s");
}

TEST_F(Dot11Mode, AnyStatusFailsTheOtherReads)
{
    for (const char *key : {"bandType", "standardExt", "channelSelectionType"}) {
        const int call = key == std::string("bandType")      ? 2
                         : key == std::string("standardExt") ? 3
                                                             : 4;
        standIn.failAt(call, 3);
        EXPECT_EQ(setMode(2), 42u) << key;
    }
    setManualChannel(14);
    standIn.failAt(5, 3);
    EXPECT_EQ(setMode(3), 42u);
    setManualChannel(1);
    standIn.failAt(8, 3);
    EXPECT_EQ(setMode(2), 42u);
    EXPECT_EQ(standIn.logTexts().back(),
              "Unable to read adminDot11bStaFlag from config file /var/wsmDefaults");
}

// ---- Failures of the support library

/// Manual channel 14, in a country that WSM has told before.
void prepareChannel14(AccessPoint &box, StandIn &standIn)
{
    preparePlain(box);
    box.set(kWsm, "radio1.channelSelectionType", "2");
    standIn.replyWith(radioReply({Radio{}, Radio{}}));
    OruSdkOptionParam param{0, 1, 3};
    ASSERT_EQ(oruSdkSetDot11Mode(&param), 0u);
    preparePlain(box);
    box.set(kWsm, "radio1.channelSelectionType", "2");
    standIn.reset();
}

Step failedRead(const std::string &key, const std::string &text)
{
    return {.call = "oruAsfDictGetInt radio1." + key,
            .code = 42,
            .log = text + " from config file /var/wsmDefaults",
            .onlyMinus1 = key == "fixedRate"};
}

SweepRow modeRow(const std::string &name, uint32_t mode, std::vector<Step> checks)
{
    std::vector<Step> steps = {{"oruAsfDictCreate /var/wsmDefaults", 7,
                                "Unable to read WSM Defaults file /var/wsmDefaults"},
                               failedRead("bandType", "Unable to read radio1.bandType")};
    steps.insert(steps.end(), checks.begin(), checks.end());
    steps.push_back({"oruAsfDictSetString radio1.dot11Mode", 25,
                     "Unable to write featureOptions " + std::to_string(mode) + " to dictionary"});
    steps.push_back({"oruAsfDictSave /var/wsmDefaults", 8,
                     "Unable to write WSM Defaults file /var/wsmDefaults"});
    return {name, prepareChannel14,
            [mode] {
                OruSdkOptionParam param{0, 1, mode};
                return oruSdkSetDot11Mode(&param);
            },
            steps};
}

std::vector<SweepRow> sweeps()
{
    const Step extensions = failedRead("standardExt", "Unable to read radioStandardExt");
    const Step selection =
        failedRead("channelSelectionType", "Failed to read radio1.channelSelectionType");
    const Step channel =
        failedRead("configuredChannel", "Failed to read radio1.channelSelectionType");
    const Step flag{.call = "oruAsfDictSetString ERPFlag",
                    .code = 42,
                    .log = "Unable to set ERPflag from config file /var/wsmDefaults",
                    .onlyMinus1 = true};
    const Step rate = failedRead("fixedRate", "Unable to read rate");
    const Step stations = failedRead("adminDot11bStaFlag", "Unable to read adminDot11bStaFlag");
    return {modeRow("SetMode5", 5, {flag}),
            modeRow("SetMode4", 4, {extensions, selection, channel, flag}),
            modeRow("SetMode2", 2, {extensions, selection, channel, rate, flag, stations}),
            {"GetMode",
             [](AccessPoint &box, StandIn &) { preparePlain(box); },
             [] {
                 OruSdkOptionParam param{0, 1, 0};
                 return oruSdkGetDot11Mode(&param);
             },
             {{"oruAsfDictCreate /var/wsmDefaults", 7,
               "Unable to read WSM Defaults file /var/wsmDefaults"},
              failedRead("dot11Mode", "Unable to read radio1.dot11Mode")}}};
}
INSTANTIATE_TEST_SUITE_P(Dot11Mode, FailureSweep, ValuesIn(sweeps()), rowName);
INSTANTIATE_TEST_SUITE_P(Dot11Mode, StatusSweep, ValuesIn(sweeps()), rowName);

} // namespace
} // namespace oru::test
