// Radar detection and the list of channels with radar.
#include "oruSdk.h"
#include "support/accesspoint.hpp"
#include "support/sweep.hpp"

#include <gmock/gmock.h>

#include <set>

namespace oru::test {
namespace {

using ::testing::IsEmpty;

void store(const AccessPoint &box, const std::string &flag, const std::string &channel,
           const std::string &radio = "radio0.")
{
    box.set(kWsm, radio + "radarDetectFlag", flag);
    box.set(kWsm, radio + "configuredChannel", channel);
}

struct Radar : AccessPointTest {
    OruSdkFeatureParam param{0xabcd, 0, 1};
};

TEST_F(Radar, GetReadsTheRadiosKey)
{
    store(box, "5", "36");
    store(box, "1", "36", "radio1.");
    EXPECT_EQ(oruSdkGetRadarDetect(&param), 0u);
    EXPECT_EQ(param.activationFlag, 5u);
    param.radioIndex = 1;
    EXPECT_EQ(oruSdkGetRadarDetect(&param), 0u);
    EXPECT_EQ(param.activationFlag, 1u);
    param.radioIndex = 2;
    EXPECT_EQ(oruSdkGetRadarDetect(&param), 3u);
    EXPECT_LOGGED("Invalid radio ID: 2");
}

TEST_F(Radar, SetWritesTheRadiosKeyAlone)
{
    store(box, "0", "36");
    store(box, "0", "52", "radio1.");
    EXPECT_EQ(oruSdkSetRadarDetect(&param), 0u);
    EXPECT_EQ(box.value(kWsm, "radio0.radarDetectFlag"), "1");
    EXPECT_EQ(box.value(kWsm, "radio1.radarDetectFlag"), "0");
    param.activationFlag = 0;
    EXPECT_EQ(oruSdkSetRadarDetect(&param), 0u);
    EXPECT_EQ(box.value(kWsm, "radio0.radarDetectFlag"), "0");
    EXPECT_EQ(box.value(kWsm, "radio0.configuredChannel"), "36");
    EXPECT_NOTHING_LOGGED();
}

TEST_F(Radar, NullRecordIs2)
{
    EXPECT_EQ(oruSdkGetRadarDetect(nullptr), 2u);
    EXPECT_LOGGED("NULL pointer");
    EXPECT_EQ(oruSdkSetRadarDetect(nullptr), 2u);
    EXPECT_LOGGED("NULL pointer");
    EXPECT_EQ(oruSdkSetRdrPersistChan(nullptr), 2u);
    EXPECT_LOGGED("NULL pointer");
    EXPECT_THAT(standIn.calls, IsEmpty());
}

TEST_F(Radar, RadioThenFlagThenFile)
{
    box.remove(kWsm);
    for (const uint16_t radio : {uint16_t{2}, uint16_t{0xffff}}) {
        param = {0, radio, 2};
        EXPECT_EQ(oruSdkSetRadarDetect(&param), 3u);
        EXPECT_LOGGED("Invalid radio ID");
    }
    param = {0, 1, 2};
    EXPECT_EQ(oruSdkSetRadarDetect(&param), 47u);
    EXPECT_LOGGED("Invalid Activation Flag 2 for radio1.radarDetectFlag");
    param.activationFlag = 0xffffffff;
    EXPECT_EQ(oruSdkSetRadarDetect(&param), 47u);
    EXPECT_LOGGED("Invalid Activation Flag -1 for radio1.radarDetectFlag");
    EXPECT_THAT(standIn.calls, IsEmpty());
    param.activationFlag = 1;
    EXPECT_EQ(oruSdkSetRadarDetect(&param), 7u);
    EXPECT_LOGGED("Unable to read WSM Defaults file /var/wsmDefaults");
}

TEST_F(Radar, FlagIsReadBeforeTheChannel)
{
    box.unset(kWsm, "radio0.radarDetectFlag");
    box.unset(kWsm, "radio0.configuredChannel");
    EXPECT_EQ(oruSdkSetRadarDetect(&param), 42u);
    EXPECT_EQ(standIn.logs.at(0).format,
              "Failed to read radio%d.radarDetectFlag flag from config file %s");
    EXPECT_LOGGED("Failed to read radio0.radarDetectFlag flag from config file /var/wsmDefaults");
    box.set(kWsm, "radio0.radarDetectFlag", "1");
    EXPECT_EQ(oruSdkSetRadarDetect(&param), 121u); // before the channel is read
    EXPECT_NOTHING_LOGGED();
    param.activationFlag = 0;
    EXPECT_EQ(oruSdkSetRadarDetect(&param), 42u);
    EXPECT_EQ(standIn.logs.at(0).format,
              "Failed to read radio%d.configuredChannel from config file %s");
    EXPECT_LOGGED("Failed to read radio0.configuredChannel from config file /var/wsmDefaults");
}

TEST_F(Radar, StateThatIsThereAlreadyIs121EvenOnARadarChannel)
{
    for (const uint32_t flag : {0u, 1u})
        for (const char *channel : {"36", "100"}) {
            store(box, std::to_string(flag), channel);
            const std::string before = box.everything();
            param.activationFlag = flag;
            EXPECT_EQ(oruSdkSetRadarDetect(&param), 121u);
            EXPECT_EQ(box.everything(), before);
        }
    EXPECT_NOTHING_LOGGED();
}

TEST_F(Radar, ConfiguredRadarChannelIs122BothWays)
{
    const std::set<int> radar{52,  56,  60,  64,  100, 104, 108, 112,
                              116, 120, 124, 128, 132, 136, 140};
    for (const uint32_t flag : {0u, 1u})
        for (int channel = -1; channel <= 170; ++channel) {
            store(box, std::to_string(1 - flag), std::to_string(channel));
            const std::string before = box.everything();
            param.activationFlag = flag;
            const bool refused = radar.contains(channel);
            EXPECT_EQ(oruSdkSetRadarDetect(&param), refused ? 122u : 0u) << channel;
            EXPECT_EQ(box.everything() == before, refused) << channel;
        }
    EXPECT_NOTHING_LOGGED();
}

TEST_F(Radar, ConfiguredChannelIsCheckedBeforeTheFlagIsWritten)
{
    store(box, "0", "100");
    standIn.failOnly("oruAsfDictSetString");
    standIn.failAt(1);
    EXPECT_EQ(oruSdkSetRadarDetect(&param), 122u);
    EXPECT_EQ(standIn.failed(), "");
}

TEST_F(Radar, AnotherStoredNumberIsNoStateOfTheSwitch)
{
    store(box, "2", "36");
    EXPECT_EQ(oruSdkSetRadarDetect(&param), 0u);
    EXPECT_EQ(box.value(kWsm, "radio0.radarDetectFlag"), "1");
}

TEST_F(Radar, ListIsStoredAsItIs)
{
    const std::string before = box.read(kWsm) + box.read(kAa);
    for (const std::string list : {"52,56", "100 104", "", "any # text = \"at all\"", " x "}) {
        EXPECT_EQ(oruSdkSetRdrPersistChan(list.c_str()), 0u);
        EXPECT_EQ(box.value(kRadarList, "rdrChans"), list);
    }
    EXPECT_EQ(box.read(kWsm) + box.read(kAa), before);
    EXPECT_NOTHING_LOGGED();
}

TEST_F(Radar, EmptyListIsAnEmptyValue)
{
    box.write(kRadarList, "rdrChans=52\n");
    EXPECT_EQ(oruSdkSetRdrPersistChan(""), 0u);
    EXPECT_EQ(box.read(kRadarList), "rdrChans=\n");
}

TEST_F(Radar, MissingListFileIs7)
{
    box.remove(kRadarList);
    EXPECT_EQ(oruSdkSetRdrPersistChan("52"), 7u);
    EXPECT_LOGGED("Unable to read Radar channel file /config/wsmSavedRadarDetectList");
}

const Step kLoad{"oruAsfDictCreate /var/wsmDefaults", 7,
                 "Unable to read WSM Defaults file /var/wsmDefaults"};

void prepare(AccessPoint &box, StandIn & /*standIn*/)
{
    store(box, "0", "36", "radio1.");
}

const std::vector<SweepRow> kRows{
    {"GetRadarDetect",
     prepare,
     [] {
         OruSdkFeatureParam param{0, 1, 0};
         return oruSdkGetRadarDetect(&param);
     },
     {kLoad,
      {"oruAsfDictGetInt radio1.radarDetectFlag", 42,
       "Unable to read radio1.radarDetectFlag from config file /var/wsmDefaults"}}},
    {"SetRadarDetect",
     prepare,
     [] {
         OruSdkFeatureParam param{0, 1, 1};
         return oruSdkSetRadarDetect(&param);
     },
     {kLoad,
      {"oruAsfDictGetInt radio1.radarDetectFlag", 42,
       "Failed to read radio1.radarDetectFlag flag from config file /var/wsmDefaults"},
      {"oruAsfDictGetInt radio1.configuredChannel", 42,
       "Failed to read radio1.configuredChannel from config file /var/wsmDefaults"},
      {"oruAsfDictSetString radio1.radarDetectFlag", 25,
       "Unable to write radio1.radarDetectFlag to dictionary"},
      {"oruAsfDictSave /var/wsmDefaults", 8,
       "Unable to write WSM Defaults file /var/wsmDefaults"}}},
    {"SetRdrPersistChan",
     nullptr,
     [] { return oruSdkSetRdrPersistChan("52"); },
     {{"oruAsfDictCreate /config/wsmSavedRadarDetectList", 7,
       "Unable to read Radar channel file /config/wsmSavedRadarDetectList"},
      {"oruAsfDictSetString rdrChans", 25, "Unable to write rdrPersistChans to dictionary"},
      {"oruAsfDictSave /config/wsmSavedRadarDetectList", 8,
       "Unable to write Radar channel file /config/wsmSavedRadarDetectList"}}},
};
INSTANTIATE_TEST_SUITE_P(Radar, FailureSweep, ::testing::ValuesIn(kRows), rowName);
INSTANTIATE_TEST_SUITE_P(Radar, StatusSweep, ::testing::ValuesIn(kRows), rowName);

} // namespace
} // namespace oru::test
