#include "oruSdk.h"
#include "radio/steps.hpp"
#include "support/accesspoint.hpp"

#include <gmock/gmock.h>

namespace oru::test {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

// ---- Background scanning

struct BackgroundScanning : AccessPointTest {
    BackgroundScanning()
    {
        box.set(kWsm, "measurementDisabled", "0");
        box.set(kWsm, "periodicDfsFlag", "0");
        standIn.reset();
    }
};

TEST_F(BackgroundScanning, IsStoredInvertedForBothRadios)
{
    for (uint16_t radio : {uint16_t{0}, uint16_t{1}})
        for (const uint32_t enable : {0u, 1u}) {
            OruSdkRadioSwitchParam param{0xabcd, radio, enable};
            EXPECT_EQ(oruSdkSetBgScanning(&param), 0u);
            EXPECT_EQ(box.value(kWsm, "measurementDisabled"), enable == 0 ? "1" : "0");
            for (uint16_t other : {uint16_t{0}, uint16_t{1}}) {
                OruSdkRadioSwitchParam read{0xabcd, other, 77};
                EXPECT_EQ(oruSdkGetBgScanning(&read), 0u);
                EXPECT_EQ(read.enable, enable);
                EXPECT_EQ(read.reserved, 0xabcd);
            }
        }
    EXPECT_NOTHING_LOGGED();
}

TEST_F(BackgroundScanning, OnlyAStored1SaysDisabled)
{
    for (const char *stored : {"0", "2", "-1", "10"}) {
        box.set(kWsm, "measurementDisabled", stored);
        OruSdkRadioSwitchParam param{0, 0, 77};
        EXPECT_EQ(oruSdkGetBgScanning(&param), 0u);
        EXPECT_EQ(param.enable, 1u) << stored;
    }
    box.unset(kWsm, "measurementDisabled");
    OruSdkRadioSwitchParam param{0, 0, 77};
    EXPECT_EQ(oruSdkGetBgScanning(&param), 42u);
    EXPECT_LOGGED("Unable to read measurementDisabled from config file /var/wsmDefaults");
    EXPECT_EQ(param.enable, 77u);
}

TEST_F(BackgroundScanning, StaysOnWhilePeriodicDfsIsOn)
{
    box.set(kWsm, "periodicDfsFlag", "1");
    std::string before = box.everything();
    OruSdkRadioSwitchParam param{0, 1, 0};
    EXPECT_EQ(oruSdkSetBgScanning(&param), 61u);
    EXPECT_LOGGED("Periodic DFS must not be enabled");
    EXPECT_EQ(box.everything(), before);
    box.unset(kWsm, "periodicDfsFlag");
    before = box.everything();
    EXPECT_EQ(oruSdkSetBgScanning(&param), 42u);
    EXPECT_LOGGED("Failed to read periodicDfsFlag from config file /var/wsmDefaults");
    EXPECT_EQ(box.everything(), before);
    box.set(kWsm, "periodicDfsFlag", "2"); // only 1 is on
    EXPECT_EQ(oruSdkSetBgScanning(&param), 0u);
    EXPECT_EQ(box.value(kWsm, "measurementDisabled"), "1");
}

TEST_F(BackgroundScanning, TurningItOnNeverReadsPeriodicDfs)
{
    OruSdkRadioSwitchParam param{0, 0, 1};
    EXPECT_EQ(oruSdkSetBgScanning(&param), 0u);
    EXPECT_THAT(standIn.calls, ElementsAre("oruAsfDictCreate /var/wsmDefaults",
                                           "oruAsfDictSetString measurementDisabled",
                                           "oruAsfDictSave /var/wsmDefaults"));
}

TEST_F(BackgroundScanning, OtherValuesAre55BeforeTheFileIsOpened)
{
    const std::string before = box.everything();
    standIn.reset();
    for (const uint32_t enable : {2u, 0xffffffffu}) {
        OruSdkRadioSwitchParam param{0, 0, enable};
        EXPECT_EQ(oruSdkSetBgScanning(&param), 55u);
        EXPECT_LOGGED("Invalid bgScanningEnable: " + std::to_string(static_cast<int32_t>(enable)));
    }
    EXPECT_THAT(standIn.calls, IsEmpty());
    EXPECT_EQ(box.everything(), before);
}

// ---- Smart background scanning

struct Sbs : AccessPointTest {
    Sbs()
    {
        for (const char *radio : {"radio0.", "radio1."}) {
            box.set(kWsm, std::string{radio} + "sbsThreshold", "20");
            box.set(kWsm, std::string{radio} + "sbsCounter", "30");
        }
        standIn.reset();
    }
    uint32_t threshold = 77;
    uint32_t counter = 78;
};

TEST_F(Sbs, AnyTwoNumbersAreWrittenAndRead)
{
    const uint32_t numbers[] = {0, 1, 0x7fffffff, 0x80000000, 0xffffffff};
    for (const int32_t radio : {0, 1})
        for (const uint32_t first : numbers) {
            EXPECT_EQ(oruSdkSetSbsParams(radio, first, ~first), 0u);
            const std::string prefix = "radio" + std::to_string(radio);
            EXPECT_EQ(box.value(kWsm, prefix + ".sbsThreshold"),
                      std::to_string(static_cast<int32_t>(first)));
            EXPECT_EQ(box.value(kWsm, prefix + ".sbsCounter"),
                      std::to_string(static_cast<int32_t>(~first)));
            EXPECT_EQ(oruSdkGetSbsParams(radio, &threshold, &counter), 0u);
            EXPECT_EQ(threshold, first);
            EXPECT_EQ(counter, ~first);
        }
    EXPECT_NOTHING_LOGGED();
}

TEST_F(Sbs, RadiosHaveTheirOwnNumbers)
{
    EXPECT_EQ(oruSdkSetSbsParams(1, 5, 6), 0u);
    EXPECT_EQ(oruSdkGetSbsParams(0, &threshold, &counter), 0u);
    EXPECT_EQ(threshold, 20u);
    EXPECT_EQ(counter, 30u);
}

TEST_F(Sbs, GetChecksTheRadioBeforeThePointers)
{
    for (const int32_t radio : {2, -1, INT32_MIN}) {
        EXPECT_EQ(oruSdkGetSbsParams(radio, nullptr, nullptr), 3u);
        EXPECT_LOGGED("Invalid radio ID: " + std::to_string(radio));
        EXPECT_EQ(oruSdkSetSbsParams(radio, 1, 1), 3u);
        EXPECT_LOGGED("Invalid radio ID: " + std::to_string(radio));
    }
    EXPECT_EQ(oruSdkGetSbsParams(0, nullptr, &counter), 2u);
    EXPECT_LOGGED("NULL pointer");
    EXPECT_EQ(oruSdkGetSbsParams(1, &threshold, nullptr), 2u);
    EXPECT_LOGGED("NULL pointer");
    EXPECT_THAT(standIn.calls, IsEmpty());
    EXPECT_EQ(threshold, 77u);
    EXPECT_EQ(counter, 78u);
}

TEST_F(Sbs, MissingThresholdIs1WithAWarning)
{
    for (const char *stored : {"", "many"}) {
        box.set(kWsm, "radio1.sbsThreshold", stored);
        EXPECT_EQ(oruSdkGetSbsParams(1, &threshold, &counter), 0u);
        EXPECT_LOGGED_AT(4, "Unable to read mixedIeMode from dictionary, using 1");
        EXPECT_EQ(threshold, 1u);
        EXPECT_EQ(counter, 30u);
    }
    box.unset(kWsm, "radio1.sbsThreshold");
    standIn.reset();
    EXPECT_EQ(oruSdkGetSbsParams(1, &threshold, &counter), 0u);
    EXPECT_LOGGED_AT(4, "Unable to read mixedIeMode from dictionary, using 1");
    // The read says that there is a fallback.
    EXPECT_THAT(standIn.calls, ElementsAre("oruAsfDictCreate /var/wsmDefaults",
                                           "oruAsfDictGetInt radio1.sbsThreshold flag",
                                           "oruAsfDictGetInt radio1.sbsCounter"));
}

TEST_F(Sbs, MissingCounterIs42WithTheThresholdFilled)
{
    box.unset(kWsm, "radio0.sbsCounter");
    EXPECT_EQ(oruSdkGetSbsParams(0, &threshold, &counter), 42u);
    EXPECT_LOGGED("Unable to read sbsCounter from config file /var/wsmDefaults");
    EXPECT_EQ(threshold, 20u);
    EXPECT_EQ(counter, 78u);
}

TEST_F(Sbs, FailedWritesHaveTheSameTextAndTheirOwnPlaces)
{
    standIn.failOnly("oruAsfDictSetString");
    for (const int n : {1, 2}) {
        standIn.failAt(n);
        EXPECT_EQ(oruSdkSetSbsParams(0, 1, 2), 25u);
    }
    ASSERT_EQ(standIn.logs.size(), 2u);
    EXPECT_EQ(standIn.logs[0].text, standIn.logs[1].text);
    EXPECT_NE(standIn.logs[0].line, standIn.logs[1].line);
}

// ---- Each call fails in turn

void prepare(AccessPoint &box, StandIn &)
{
    box.set(kWsm, "measurementDisabled", "0");
    box.set(kWsm, "periodicDfsFlag", "0");
    box.set(kWsm, "radio1.sbsThreshold", "20");
    box.set(kWsm, "radio1.sbsCounter", "30");
}

const SweepRow kSweep[] = {
    {"GetBgScanning",
     prepare,
     [] {
         OruSdkRadioSwitchParam param{0, 1, 0};
         return oruSdkGetBgScanning(&param);
     },
     {kLoad, readStep("measurementDisabled", "Unable to read measurementDisabled")}},
    {"SetBgScanning",
     prepare,
     [] {
         OruSdkRadioSwitchParam param{0, 1, 0};
         return oruSdkSetBgScanning(&param);
     },
     {kLoad, readStep("periodicDfsFlag", "Failed to read periodicDfsFlag"),
      writeStep("measurementDisabled", "Unable to write measurementDisabled"), kSave}},
    {"GetSbsParams",
     prepare,
     [] {
         uint32_t threshold = 0;
         uint32_t counter = 0;
         return oruSdkGetSbsParams(1, &threshold, &counter);
     },
     {kLoad,
      {"oruAsfDictGetInt radio1.sbsThreshold flag", 0,
       "Unable to read mixedIeMode from dictionary, using 1", 4},
      readStep("radio1.sbsCounter", "Unable to read sbsCounter")}},
    {"SetSbsParams",
     prepare,
     [] { return oruSdkSetSbsParams(1, 2, 3); },
     {kLoad,
      writeStep("radio1.sbsThreshold", "Unable to write BpPskFlag"),
      writeStep("radio1.sbsCounter", "Unable to write BpPskFlag"),
      {"oruAsfDictSave /var/wsmDefaults", 8,
       "Unable to write WSM Defaults file /var/1x.conf"}}}, // names the other file
};

INSTANTIATE_TEST_SUITE_P(Scanning, FailureSweep, ::testing::ValuesIn(kSweep), rowName);
INSTANTIATE_TEST_SUITE_P(Scanning, StatusSweep, ::testing::ValuesIn(kSweep), rowName);

} // namespace
} // namespace oru::test
