#include "oruSdk.h"
#include "radio/steps.hpp"
#include "support/accesspoint.hpp"

#include <gmock/gmock.h>

namespace oru::test {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

void prepare(AccessPoint &box, StandIn &standIn)
{
    box.set(kWsm, "wmmEnabledFlag", "1");
    box.set(kWsm, "TrafficClassifier", "2");
    box.set(kWsm, "edcaProfile", "0");
    box.set(kWsm, "dynamicProfileSelection", "2");
    box.set(kWsm, "radio0.standardExt", "1");
    box.set(kWsm, "radio1.standardExt", "1");
    standIn.reset();
}

struct Qos : AccessPointTest {
    Qos() { prepare(box, standIn); }
};

// ---- WMM

struct Wmm : Qos {};

TEST_F(Wmm, BothNumbersAreWrittenAndReadForBothRadios)
{
    for (const uint32_t radio : {0u, 1u})
        for (const uint32_t enabled : {0u, 1u})
            for (const uint32_t classifier : {0u, 1u, 2u, 3u}) {
                OruSdkWmmParam param{radio, enabled, classifier};
                EXPECT_EQ(oruSdkSetWmm(&param), 0u);
                EXPECT_EQ(box.value(kWsm, "wmmEnabledFlag"), std::to_string(enabled));
                EXPECT_EQ(box.value(kWsm, "TrafficClassifier"), std::to_string(classifier));
                OruSdkWmmParam read{1 - radio, 77, 77};
                EXPECT_EQ(oruSdkGetWmm(&read), 0u);
                EXPECT_EQ(read.wmmEnabled, enabled);
                EXPECT_EQ(read.trafficClassifier, classifier);
            }
    EXPECT_NOTHING_LOGGED();
}

TEST_F(Wmm, ValuesOutOfRangeAre49BeforeTheFileIsOpened)
{
    const std::string before = box.everything();
    standIn.reset();
    for (const uint32_t value : {2u, 0x80000000u, 0xffffffffu}) {
        OruSdkWmmParam param{0, value, 4}; // the first one decides
        EXPECT_EQ(oruSdkSetWmm(&param), 49u);
        EXPECT_LOGGED("Invalid wmmEnable: " + std::to_string(static_cast<int32_t>(value)));
    }
    for (const uint32_t value : {4u, 0x80000000u, 0xffffffffu}) {
        OruSdkWmmParam param{0, 1, value};
        EXPECT_EQ(oruSdkSetWmm(&param), 49u);
        EXPECT_LOGGED("Invalid trafficClassifier: " + std::to_string(static_cast<int32_t>(value)));
    }
    EXPECT_THAT(standIn.calls, IsEmpty());
    EXPECT_EQ(box.everything(), before);
}

TEST_F(Wmm, OnNeedsTheStandardExtensionsOfItsRadio)
{
    box.set(kWsm, "wmmEnabledFlag", "0");
    box.set(kWsm, "radio1.standardExt", "0");
    const std::string before = box.everything();
    OruSdkWmmParam param{1, 1, 3};
    EXPECT_EQ(oruSdkSetWmm(&param), 59u);
    EXPECT_LOGGED("Standard extensions must be on");
    EXPECT_EQ(box.everything(), before);
    param.radioIndex = 0;
    EXPECT_EQ(oruSdkSetWmm(&param), 0u);
    box.unset(kWsm, "radio1.standardExt");
    param.radioIndex = 1;
    EXPECT_EQ(oruSdkSetWmm(&param), 42u);
    EXPECT_LOGGED("Unable to read radioStandardExt from config file /var/wsmDefaults");
    box.set(kWsm, "radio1.standardExt", "-1"); // only 0 is off
    EXPECT_EQ(oruSdkSetWmm(&param), 0u);
}

TEST_F(Wmm, OffNeedsNothing)
{
    box.unset(kWsm, "radio0.standardExt");
    standIn.reset();
    OruSdkWmmParam param{0, 0, 0};
    EXPECT_EQ(oruSdkSetWmm(&param), 0u);
    EXPECT_THAT(standIn.calls, ElementsAre("oruAsfDictCreate /var/wsmDefaults",
                                           "oruAsfDictSetString wmmEnabledFlag",
                                           "oruAsfDictSetString TrafficClassifier",
                                           "oruAsfDictSave /var/wsmDefaults"));
}

TEST_F(Wmm, MissingClassifierLeavesTheSwitchFilled)
{
    box.unset(kWsm, "TrafficClassifier");
    OruSdkWmmParam param{0, 77, 78};
    EXPECT_EQ(oruSdkGetWmm(&param), 42u);
    EXPECT_LOGGED("Unable to read TrafficClassifier from config file /var/wsmDefaults");
    EXPECT_EQ(param.wmmEnabled, 1u);
    EXPECT_EQ(param.trafficClassifier, 78u);
    box.unset(kWsm, "wmmEnabledFlag");
    param.wmmEnabled = 77;
    EXPECT_EQ(oruSdkGetWmm(&param), 42u);
    EXPECT_LOGGED("Unable to read wmmEnabledFlag from config file /var/wsmDefaults");
    EXPECT_EQ(param.wmmEnabled, 77u);
}

// ---- EDCA profile

struct EdcaProfile : Qos {};

TEST_F(EdcaProfile, BothProfilesAreWrittenAndReadForBothRadios)
{
    for (const uint32_t radio : {0u, 1u})
        for (const uint32_t profile : {1u, 0u}) {
            OruSdkOptionParam param{0xab, radio, profile};
            EXPECT_EQ(oruSdkSetEdcaProfile(&param), 0u);
            EXPECT_EQ(box.value(kWsm, "edcaProfile"), std::to_string(profile));
            OruSdkOptionParam read{0xab, 1 - radio, 77};
            EXPECT_EQ(oruSdkGetEdcaProfile(&read), 0u);
            EXPECT_EQ(read.featureOptions, profile);
        }
    EXPECT_NOTHING_LOGGED();
}

TEST_F(EdcaProfile, OtherValuesAre47BeforeTheFileIsOpened)
{
    for (const uint32_t value : {2u, 0xffffffffu}) {
        OruSdkOptionParam param{0, 1, value};
        EXPECT_EQ(oruSdkSetEdcaProfile(&param), 47u);
        EXPECT_LOGGED("Invalid feature option " + std::to_string(static_cast<int32_t>(value)) +
                      " for edcaProfile");
    }
    EXPECT_THAT(standIn.calls, IsEmpty());
    EXPECT_EQ(box.value(kWsm, "edcaProfile"), "0");
}

TEST_F(EdcaProfile, IsNotTiedToWmm)
{
    box.set(kWsm, "wmmEnabledFlag", "0");
    OruSdkOptionParam param{0, 0, 1};
    EXPECT_EQ(oruSdkSetEdcaProfile(&param), 0u);
}

// ---- Dynamic profile selection

struct DynamicProfile : Qos {
    OruSdkOptionParam param{0xab, 1, 1};
};

TEST_F(DynamicProfile, EveryChoiceIsWrittenAndReadForBothRadios)
{
    for (const uint32_t radio : {0u, 1u})
        for (const uint32_t choice : {0u, 1u, 2u}) {
            param = {0xab, radio, choice};
            EXPECT_EQ(oruSdkSetDynamicProfileSelect(&param), 0u);
            EXPECT_EQ(box.value(kWsm, "dynamicProfileSelection"), std::to_string(choice));
            OruSdkOptionParam read{0xab, 1 - radio, 77};
            EXPECT_EQ(oruSdkGetDynamicProfileSelect(&read), 0u);
            EXPECT_EQ(read.featureOptions, choice);
        }
    EXPECT_NOTHING_LOGGED();
}

TEST_F(DynamicProfile, WmmOffIs104)
{
    box.set(kWsm, "wmmEnabledFlag", "0");
    const std::string before = box.everything();
    param.featureOptions = 2;
    EXPECT_EQ(oruSdkSetDynamicProfileSelect(&param), 104u);
    ASSERT_EQ(standIn.logs.size(), 1u);
    EXPECT_EQ(standIn.logs[0].format,
              "WMM is %s. Dynamic Profile Select can be set only if both are enabled.");
    EXPECT_LOGGED("WMM is disabled. Dynamic Profile Select can be set only if both are enabled.");
    EXPECT_EQ(box.everything(), before);
    box.set(kWsm, "wmmEnabledFlag", "-1"); // only 0 is off
    EXPECT_EQ(oruSdkSetDynamicProfileSelect(&param), 0u);
}

TEST_F(DynamicProfile, WmmIsCheckedBeforeTheFileIsLoadedForItsOwnKey)
{
    box.set(kWsm, "wmmEnabledFlag", "0");
    standIn.failOnly("oruAsfDictCreate");
    standIn.failAt(2); // the first one is WMM's
    EXPECT_EQ(oruSdkSetDynamicProfileSelect(&param), 104u);
    EXPECT_EQ(standIn.failed(), "");
}

TEST_F(DynamicProfile, OtherChoicesAre103BeforeWmmIsLookedAt)
{
    box.set(kWsm, "wmmEnabledFlag", "0");
    standIn.reset();
    for (const uint32_t value : {3u, 0x80000000u, 0xffffffffu}) {
        param.featureOptions = value;
        EXPECT_EQ(oruSdkSetDynamicProfileSelect(&param), 103u);
        EXPECT_LOGGED("Invalid dynamicProfileSelect " +
                      std::to_string(static_cast<int32_t>(value)));
    }
    EXPECT_THAT(standIn.calls, IsEmpty());
    EXPECT_EQ(box.value(kWsm, "dynamicProfileSelection"), "2");
}

TEST_F(DynamicProfile, EachCallThatFailsGivesItsCodeAndLines)
{
    const std::string noWmm =
        "Unable to determine WMM state! Dynamic Profile Select cannot be set.";
    struct {
        const char *call;
        uint32_t code;
        std::vector<std::string> lines;
    } const steps[] = {
        {"oruAsfDictCreate /var/wsmDefaults",
         42,
         {"Unable to read WSM Defaults file /var/wsmDefaults", noWmm}},
        {"oruAsfDictGetInt wmmEnabledFlag",
         42,
         {"Unable to read wmmEnabledFlag from config file /var/wsmDefaults", noWmm}},
        {"oruAsfDictGetInt TrafficClassifier",
         42,
         {"Unable to read TrafficClassifier from config file /var/wsmDefaults", noWmm}},
        {"oruAsfDictCreate /var/wsmDefaults",
         7,
         {"Unable to read WSM Defaults file /var/wsmDefaults"}},
        {"oruAsfDictSetString dynamicProfileSelection",
         25,
         {"Unable to write featureOptions 1 to dictionary"}},
        {"oruAsfDictSave /var/wsmDefaults",
         8,
         {"Unable to write WSM Defaults file /var/wsmDefaults"}},
        {"", 0, {}},
    };
    const std::string before = box.everything();
    int n = 0;
    for (const auto &step : steps) {
        standIn.reset();
        standIn.failAt(++n);
        SCOPED_TRACE(n);
        EXPECT_EQ(oruSdkSetDynamicProfileSelect(&param), step.code);
        if (step.code != 0) {
            EXPECT_EQ(standIn.calls.back(), step.call);
            EXPECT_EQ(box.everything(), before);
        } else {
            EXPECT_EQ(standIn.failed(), "");
        }
        expectLogged(3, step.lines, __FILE__, __LINE__);
        EXPECT_EQ(standIn.openDicts(), 0);
    }
}

// ---- Each call fails in turn

template <class Param>
std::function<uint32_t()> with(uint32_t (*operation)(Param *), Param param)
{
    return [=]() mutable { return operation(&param); };
}

const SweepRow kSweep[] = {
    {"GetWmm",
     prepare,
     with(oruSdkGetWmm, {1, 0, 0}),
     {kLoad, readStep("wmmEnabledFlag", "Unable to read wmmEnabledFlag"),
      readStep("TrafficClassifier", "Unable to read TrafficClassifier")}},
    {"SetWmm",
     prepare,
     with(oruSdkSetWmm, {1, 1, 1}),
     {kLoad, readStep("radio1.standardExt", "Unable to read radioStandardExt"),
      writeStep("wmmEnabledFlag", "Unable to write wmmEnabledFlag"),
      writeStep("TrafficClassifier", "Unable to write TrafficClassifier"), kSave}},
    {"GetEdcaProfile",
     prepare,
     with(oruSdkGetEdcaProfile, {0, 1, 0}),
     {kLoad, readStep("edcaProfile", "Unable to read edcaProfile")}},
    {"SetEdcaProfile",
     prepare,
     with(oruSdkSetEdcaProfile, {0, 1, 1}),
     {kLoad, writeStep("edcaProfile", "Unable to write featureOptions 1"), kSave}},
    {"GetDynamicProfileSelect",
     prepare,
     with(oruSdkGetDynamicProfileSelect, {0, 1, 0}),
     {kLoad, readStep("dynamicProfileSelection", "Unable to read dynamicProfileSelection")}},
};

INSTANTIATE_TEST_SUITE_P(Qos, FailureSweep, ::testing::ValuesIn(kSweep), rowName);
INSTANTIATE_TEST_SUITE_P(Qos, StatusSweep, ::testing::ValuesIn(kSweep), rowName);

} // namespace
} // namespace oru::test
