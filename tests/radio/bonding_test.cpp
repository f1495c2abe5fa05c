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
    for (const char *radio : {"radio0.", "radio1."}) {
        box.set(kWsm, std::string{radio} + "channelBondingMode", "0");
        box.set(kWsm, std::string{radio} + "broadcastRate24GHz", "129");
        box.set(kWsm, std::string{radio} + "broadcastRate5GHz", "132");
    }
    standIn.reset();
}

struct ChannelBonding : AccessPointTest {
    ChannelBonding() { prepare(box, standIn); }

    uint32_t set(uint32_t mode)
    {
        OruSdkOptionParam param{0xab, 1, mode};
        return oruSdkSetChannelBondingMode(&param);
    }
    void expectRates(const char *in24, const char *in5)
    {
        EXPECT_EQ(box.value(kWsm, "radio1.broadcastRate24GHz"), in24);
        EXPECT_EQ(box.value(kWsm, "radio1.broadcastRate5GHz"), in5);
        EXPECT_EQ(box.value(kWsm, "radio0.broadcastRate24GHz"), "129");
        EXPECT_EQ(box.value(kWsm, "radio0.broadcastRate5GHz"), "132");
    }
};

TEST_F(ChannelBonding, EveryChangeResetsTheBroadcastRatesOfItsRadio)
{
    for (const uint32_t mode : {1u, 2u, 3u, 0u}) {
        box.set(kWsm, "radio1.broadcastRate24GHz", "7");
        box.set(kWsm, "radio1.broadcastRate5GHz", "8");
        EXPECT_EQ(set(mode), 0u);
        EXPECT_EQ(box.value(kWsm, "radio1.channelBondingMode"), std::to_string(mode));
        EXPECT_EQ(box.value(kWsm, "radio0.channelBondingMode"), "0");
        expectRates("65", "69");
        OruSdkOptionParam read{0xab, 1, 77};
        EXPECT_EQ(oruSdkGetChannelBondingMode(&read), 0u);
        EXPECT_EQ(read.featureOptions, mode);
    }
    EXPECT_NOTHING_LOGGED();
}

TEST_F(ChannelBonding, SameModeAgainLeavesTheBroadcastRates)
{
    EXPECT_EQ(set(1), 0u);
    expectRates("65", "69");
    box.set(kWsm, "radio1.broadcastRate24GHz", "7");
    box.set(kWsm, "radio1.broadcastRate5GHz", "8");
    standIn.reset();
    EXPECT_EQ(set(1), 0u);
    EXPECT_THAT(standIn.calls, ElementsAre("oruAsfDictCreate /var/wsmDefaults",
                                           "oruAsfDictGetInt radio1.channelBondingMode",
                                           "oruAsfDictSetString radio1.channelBondingMode",
                                           "oruAsfDictSave /var/wsmDefaults"));
    expectRates("7", "8");
}

TEST_F(ChannelBonding, StoredNumberOutOfRangeCountsAsAChange)
{
    box.set(kWsm, "radio1.channelBondingMode", "-1");
    EXPECT_EQ(set(3), 0u);
    expectRates("65", "69");
}

TEST_F(ChannelBonding, OtherModesAre47BeforeTheFileIsOpened)
{
    for (const uint32_t mode : {4u, 0x80000000u, 0xffffffffu}) {
        EXPECT_EQ(set(mode), 47u);
        EXPECT_LOGGED("Invalid feature option " + std::to_string(static_cast<int32_t>(mode)) +
                      " for radio1.channelBondingMode");
    }
    EXPECT_THAT(standIn.calls, IsEmpty());
    EXPECT_EQ(box.value(kWsm, "radio1.channelBondingMode"), "0");
}

TEST_F(ChannelBonding, MissingModeIs42AndWritesNothing)
{
    box.unset(kWsm, "radio1.channelBondingMode");
    const std::string before = box.everything();
    EXPECT_EQ(set(1), 42u);
    EXPECT_LOGGED("Unable to read channel bonding mode from config file /var/wsmDefaults");
    EXPECT_EQ(box.everything(), before);
    OruSdkOptionParam read{0, 1, 77};
    EXPECT_EQ(oruSdkGetChannelBondingMode(&read), 42u);
    EXPECT_LOGGED("Unable to read radio1.channelBondingMode from config file /var/wsmDefaults");
    EXPECT_EQ(read.featureOptions, 77u);
}

TEST_F(ChannelBonding, GetGivesWhateverNumberIsStored)
{
    box.set(kWsm, "radio0.channelBondingMode", "-9");
    OruSdkOptionParam read{0, 0, 77};
    EXPECT_EQ(oruSdkGetChannelBondingMode(&read), 0u);
    EXPECT_EQ(read.featureOptions, static_cast<uint32_t>(-9));
}

TEST_F(ChannelBonding, FailedRateWritesHaveTheSameTextAndTheirOwnPlaces)
{
    standIn.failOnly("oruAsfDictSetString");
    for (const int n : {1, 2}) {
        standIn.failAt(n);
        EXPECT_EQ(set(1), 25u);
    }
    ASSERT_EQ(standIn.logs.size(), 2u);
    EXPECT_EQ(standIn.logs[0].text, standIn.logs[1].text);
    EXPECT_NE(standIn.logs[0].line, standIn.logs[1].line);
}

// ---- Each call fails in turn

const SweepRow kSweep[] = {
    {"GetChannelBondingMode",
     prepare,
     [] {
         OruSdkOptionParam param{0, 1, 0};
         return oruSdkGetChannelBondingMode(&param);
     },
     {kLoad, readStep("radio1.channelBondingMode", "Unable to read radio1.channelBondingMode")}},
    {"SetChannelBondingMode",
     prepare,
     [] {
         OruSdkOptionParam param{0, 1, 2};
         return oruSdkSetChannelBondingMode(&param);
     },
     {kLoad, readStep("radio1.channelBondingMode", "Unable to read channel bonding mode"),
      writeStep("radio1.broadcastRate24GHz", "Unable to write fixedRate"),
      writeStep("radio1.broadcastRate5GHz", "Unable to write fixedRate"),
      writeStep("radio1.channelBondingMode", "Unable to write featureOptions 2"), kSave}},
};

INSTANTIATE_TEST_SUITE_P(Bonding, FailureSweep, ::testing::ValuesIn(kSweep), rowName);
INSTANTIATE_TEST_SUITE_P(Bonding, StatusSweep, ::testing::ValuesIn(kSweep), rowName);

} // namespace
} // namespace oru::test
