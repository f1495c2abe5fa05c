// Dynamic frequency selection. Each case needs a process of its own, since the library asks WSM
// once.
#include "oruSdk.h"
#include "radio/wsm.hpp"
#include "support/sweep.hpp"

#include <gmock/gmock.h>

#include <cstring>

namespace oru::test {
namespace {

using ::testing::IsEmpty;
using ::testing::ValuesIn;

const char kLoadFailed[] = "Unable to read WSM Defaults file /var/wsmDefaults";
const Step kLoad{"oruAsfDictCreate /var/wsmDefaults", 7, kLoadFailed};
const Step kSave{"oruAsfDictSave /var/wsmDefaults", 8,
                 "Unable to write WSM Defaults file /var/wsmDefaults"};

/// Every key in the order of reading.
const std::vector<std::string> kKeys{"dfsPreferred24GPrimChan", "dfsPreferred24GSecdChan",
                                     "dfsPreferred5GPrimChan",  "dfsPreferred5GSecdChan",
                                     "dfsLowUNIIBand",          "dfsMidUNIIBand",
                                     "dfsHighUNIIBand",         "dfsPreferredBand",
                                     "dfsWeightMargin",         "cbSwitch",
                                     "dfsPersistRdr",           "dfsForceChSelChan",
                                     "dfsRdrParking",           "dfsRdrChanWghtFactor"};

/// Key n holds 11 + n.
void prepareKeys(const AccessPoint &box)
{
    for (size_t i = 0; i < kKeys.size(); ++i) box.set(kWsm, kKeys[i], std::to_string(11 + i));
}

/// The fields in the order of reading.
std::vector<uint32_t> fieldsOf(const OruSdkDfsParam &p)
{
    return {p.preferred24GPrimChan, p.preferred24GSecdChan,
            p.preferred5GPrimChan,  p.preferred5GSecdChan,
            p.lowUniiBand,          p.midUniiBand,
            p.highUniiBand,         p.preferredBand,
            p.weightMargin,         p.cbSwitch,
            p.persistRdr,           p.forceChSelChan,
            p.rdrParking,           p.rdrChanWghtFactor};
}

struct Dfs : AccessPointTest {
    OruSdkDfsParam param{};

    Dfs() { prepareKeys(box); }
    std::string key(const std::string &name) { return box.value(kWsm, name).value_or("none"); }
};

// ---- Reading

TEST_F(Dfs, GetFillsEveryFieldFromItsKey)
{
    std::memset(&param, 0xcc, sizeof param);
    param.radioIndex = 1;
    EXPECT_EQ(oruSdkGetDfsParam(&param), 0u);
    const std::vector<uint32_t> fields = fieldsOf(param);
    for (size_t i = 0; i < fields.size(); ++i) EXPECT_EQ(fields[i], 11 + i) << kKeys[i];
    EXPECT_EQ(param.paramId, 0xcc);
    EXPECT_EQ(param.radioIndex, 1);
    EXPECT_NOTHING_LOGGED();
}

TEST_F(Dfs, GetKeepsTheLow8BitsOfSmallFieldsAndAllOfTheOthers)
{
    for (const std::string &name : kKeys) box.set(kWsm, name, "-2");
    EXPECT_EQ(oruSdkGetDfsParam(&param), 0u);
    const std::vector<uint32_t> fields = fieldsOf(param);
    for (size_t i = 0; i < fields.size(); ++i)
        EXPECT_EQ(fields[i], kKeys[i] == "cbSwitch" || i == 13 ? 0xfffffffe : 0xfe) << kKeys[i];
}

TEST_F(Dfs, FirstMissingKeyEndsTheCallAndWhatWasReadStays)
{
    for (size_t missing = 0; missing < kKeys.size(); ++missing) {
        prepareKeys(box);
        for (size_t i = missing; i < kKeys.size(); ++i) box.unset(kWsm, kKeys[i]);
        param = {};
        EXPECT_EQ(oruSdkGetDfsParam(&param), 42u);
        const std::string named =
            kKeys[missing] == "dfsPreferredBand" ? "dfsWeightMargin" : kKeys[missing];
        EXPECT_LOGGED("Failed to read " + named + " from config file /var/wsmDefaults");
        const std::vector<uint32_t> fields = fieldsOf(param);
        for (size_t i = 0; i < fields.size(); ++i)
            EXPECT_EQ(fields[i], i < missing ? 11 + i : 0) << kKeys[i];
    }
}

TEST_F(Dfs, FormatsNameTheKeyAndTakeThePath)
{
    box.unset(kWsm, "cbSwitch");
    EXPECT_EQ(oruSdkGetDfsParam(&param), 42u);
    EXPECT_EQ(standIn.logs.at(0).format, "Failed to read cbSwitch from config file %s");
}

TEST_F(Dfs, GetChecksTheRadioBeforeTheFile)
{
    box.remove(kWsm);
    for (const uint8_t radio : {uint8_t{2}, uint8_t{255}}) {
        param.radioIndex = radio;
        EXPECT_EQ(oruSdkGetDfsParam(&param), 3u);
        EXPECT_LOGGED("Invalid radio ID");
    }
    EXPECT_THAT(standIn.calls, IsEmpty());
}

TEST_F(Dfs, NullRecordIs2Everywhere)
{
    for (uint32_t (*operation)(OruSdkDfsParam *) :
         {oruSdkGetDfsParam, oruSdkSetDfsUniiBands, oruSdkSetDfsParamEnable,
          oruSdkSetDfsParamValue}) {
        EXPECT_EQ(operation(nullptr), 2u);
        EXPECT_LOGGED("NULL pointer");
    }
    for (const uint8_t band : {uint8_t{0}, uint8_t{1}, uint8_t{2}}) {
        EXPECT_EQ(oruSdkSetDfsPrefChans(nullptr, band), 2u);
        EXPECT_LOGGED("NULL pointer");
    }
    EXPECT_THAT(standIn.calls, IsEmpty());
}

// ---- U-NII bands

TEST_F(Dfs, UniiBandsAreWrittenToTheirKeys)
{
    for (const uint8_t bits : {uint8_t{0b001}, uint8_t{0b010}, uint8_t{0b100}}) {
        param.lowUniiBand = bits & 1;
        param.midUniiBand = (bits >> 1) & 1;
        param.highUniiBand = (bits >> 2) & 1;
        param.radioIndex = bits & 1;
        EXPECT_EQ(oruSdkSetDfsUniiBands(&param), 0u);
        EXPECT_EQ(key("dfsLowUNIIBand"), std::to_string(param.lowUniiBand));
        EXPECT_EQ(key("dfsMidUNIIBand"), std::to_string(param.midUniiBand));
        EXPECT_EQ(key("dfsHighUNIIBand"), std::to_string(param.highUniiBand));
    }
    EXPECT_NOTHING_LOGGED();
}

TEST_F(Dfs, UniiBandsBeforeARefusedOneStaySaved)
{
    param.lowUniiBand = 1;
    param.midUniiBand = 2;
    param.highUniiBand = 2;
    EXPECT_EQ(oruSdkSetDfsUniiBands(&param), 47u);
    EXPECT_LOGGED("Invalid Activation Flag 2 for dfsMidUNIIBand");
    EXPECT_EQ(key("dfsLowUNIIBand"), "1");
    EXPECT_EQ(key("dfsMidUNIIBand"), "16");
    param.midUniiBand = 0;
    EXPECT_EQ(oruSdkSetDfsUniiBands(&param), 47u);
    EXPECT_LOGGED("Invalid Activation Flag 2 for dfsHighUNIIBand");
    EXPECT_EQ(key("dfsMidUNIIBand"), "0");
    param.lowUniiBand = 255;
    EXPECT_EQ(oruSdkSetDfsUniiBands(&param), 47u);
    EXPECT_LOGGED("Invalid Activation Flag 255 for dfsLowUNIIBand");
    param.radioIndex = 2;
    EXPECT_EQ(oruSdkSetDfsUniiBands(&param), 3u);
    EXPECT_LOGGED("Invalid radio ID: 2");
}

// ---- Single items

struct Item {
    const char *key;
    uint8_t id;
    uint32_t max; // 1: an on/off item
    void (*put)(OruSdkDfsParam &, uint32_t);
};

#define ITEM(key, id, max, field)                                                                  \
    Item                                                                                           \
    {                                                                                              \
        key, id, max,                                                                              \
            [](OruSdkDfsParam &p, uint32_t v) { p.field = static_cast<decltype(p.field)>(v); }     \
    }
const Item kItems[] = {
    ITEM("dfsPreferredBand", 4, 2, preferredBand),
    ITEM("dfsWeightMargin", 5, 100, weightMargin),
    ITEM("cbSwitch", 6, 1000000000, cbSwitch),
    ITEM("dfsPersistRdr", 7, 1, persistRdr),
    ITEM("dfsForceChSelChan", 8, 1, forceChSelChan),
    ITEM("dfsRdrParking", 9, 1, rdrParking),
    ITEM("dfsRdrChanWghtFactor", 10, 1000000000, rdrChanWghtFactor),
};

struct DfsItem : Dfs, ::testing::WithParamInterface<Item> {
    const Item &item = GetParam();
    const bool isSwitch = item.max == 1;

    DfsItem() { param.paramId = item.id; }
    uint32_t set(uint32_t value)
    {
        item.put(param, value);
        return isSwitch ? oruSdkSetDfsParamEnable(&param) : oruSdkSetDfsParamValue(&param);
    }
    [[nodiscard]] std::string refusal(uint32_t value) const
    {
        return (isSwitch ? "Invalid Activation Flag " : "Invalid feature option ") +
               std::to_string(static_cast<int32_t>(value)) + " for " + item.key;
    }
};

TEST_P(DfsItem, BothBoundsAreWrittenAndNothingElse)
{
    for (const uint8_t radio : {uint8_t{0}, uint8_t{1}})
        for (const uint32_t value : {item.max, 0u}) {
            prepareKeys(box);
            param.radioIndex = radio;
            EXPECT_EQ(set(value), 0u);
            for (size_t i = 0; i < kKeys.size(); ++i)
                EXPECT_EQ(
                    key(kKeys[i]),
                    std::to_string(kKeys[i] == item.key ? value : static_cast<uint32_t>(11 + i)));
        }
    EXPECT_NOTHING_LOGGED();
}

TEST_P(DfsItem, ValuesAboveTheBoundAreRefused)
{
    const std::string before = box.everything();
    EXPECT_EQ(set(item.max + 1), 47u);
    EXPECT_LOGGED(refusal(item.max + 1));
    const uint32_t most = item.max > 255 ? 0xffffffff : 255;
    EXPECT_EQ(set(most), 47u);
    EXPECT_LOGGED(refusal(most));
    EXPECT_EQ(box.everything(), before);
    EXPECT_THAT(standIn.calls, IsEmpty());
}

TEST_P(DfsItem, RadioIsCheckedBeforeTheValue)
{
    param.radioIndex = 2;
    EXPECT_EQ(set(item.max + 1), 3u);
    EXPECT_LOGGED("Invalid radio ID: 2");
}

TEST_P(DfsItem, OtherSetterRefusesIt)
{
    item.put(param, 0);
    EXPECT_EQ(isSwitch ? oruSdkSetDfsParamValue(&param) : oruSdkSetDfsParamEnable(&param), 40u);
    EXPECT_LOGGED("Invalid argument");
    EXPECT_THAT(standIn.calls, IsEmpty());
}

INSTANTIATE_TEST_SUITE_P(Items, DfsItem, ValuesIn(kItems),
                         [](const auto &info) { return std::string(info.param.key); });

TEST_F(Dfs, UnknownItemsAreRefusedBeforeTheRadio)
{
    param.radioIndex = 2;
    for (const int id : {0, 1, 3, 11, 255}) {
        param.paramId = static_cast<uint8_t>(id);
        EXPECT_EQ(oruSdkSetDfsParamValue(&param), 40u) << id;
        EXPECT_LOGGED("Invalid argument");
        EXPECT_EQ(oruSdkSetDfsParamEnable(&param), 40u) << id;
        EXPECT_LOGGED("Invalid argument");
    }
    EXPECT_THAT(standIn.calls, IsEmpty());
}

// ---- Preferred channels

struct PrefChans : Dfs {
    PrefChans()
    {
        param.preferredBand = 7;
        box.set(kWsm, "radio0.channelBondingMode", "0");
        box.set(kWsm, "radio0.dot11Mode", "4");
    }
    uint32_t set24(uint8_t primary, uint8_t secondary, const char *bonding)
    {
        box.set(kWsm, "radio0.channelBondingMode", bonding);
        param.preferred24GPrimChan = primary;
        param.preferred24GSecdChan = secondary;
        return oruSdkSetDfsPrefChans(&param, 2);
    }
    uint32_t set5(uint8_t primary, uint8_t secondary, const char *bonding,
                  std::vector<uint8_t> channels = {1, 36, 40, 44, 149})
    {
        box.set(kWsm, "radio0.channelBondingMode", bonding);
        standIn.replyWith(radioReply({{"USI", std::move(channels)}, {"USI", {100}}}));
        param.preferred5GPrimChan = primary;
        param.preferred5GSecdChan = secondary;
        return oruSdkSetDfsPrefChans(&param, 1);
    }
};

TEST_F(PrefChans, At24GHzAreChecked)
{
    struct {
        uint8_t primary, secondary;
        const char *bonding;
        uint32_t code;
    } const rows[] = {
        {14, 10, "0", 0},  {14, 10, "1", 19}, {14, 10, "2", 19}, {14, 10, "-1", 19},
        {1, 5, "0", 0},    {1, 5, "1", 0},    {13, 9, "1", 0},   {9, 13, "1", 0},
        {5, 1, "0", 0},    {6, 6, "0", 19},   {6, 6, "1", 19},   {0, 4, "0", 19},
        {4, 0, "0", 19},   {10, 14, "0", 19}, {10, 14, "1", 19}, {15, 11, "0", 19},
        {6, 9, "0", 19},   {6, 11, "0", 19},  {6, 0, "0", 19},   {0, 0, "0", 19},
        {36, 40, "0", 19}, {255, 3, "0", 19}, {1, 253, "0", 19},
    };
    for (const auto &row : rows) {
        prepareKeys(box);
        EXPECT_EQ(set24(row.primary, row.secondary, row.bonding), row.code)
            << int{row.primary} << "/" << int{row.secondary} << " bonding " << row.bonding;
        const bool taken = row.code == 0;
        EXPECT_EQ(key("dfsPreferred24GPrimChan"), taken ? std::to_string(row.primary) : "11");
        EXPECT_EQ(key("dfsPreferred24GSecdChan"), taken ? std::to_string(row.secondary) : "12");
        EXPECT_EQ(key("dfsPreferredBand"), taken ? "7" : "18");
        EXPECT_EQ(key("dfsPreferred5GPrimChan"), "13");
        if (taken) {
            EXPECT_NOTHING_LOGGED();
        } else {
            EXPECT_LOGGED("Invalid channels");
        }
    }
    EXPECT_THAT(standIn.sent(), IsEmpty());
}

TEST_F(PrefChans, At5GHzWithoutBondingTheSecondaryIsWrittenAs0)
{
    EXPECT_EQ(set5(36, 99, "0"), 0u);
    EXPECT_EQ(key("dfsPreferred5GPrimChan"), "36");
    EXPECT_EQ(key("dfsPreferred5GSecdChan"), "0");
    EXPECT_EQ(key("dfsPreferredBand"), "7");
    EXPECT_EQ(key("dfsPreferred24GPrimChan"), "11");
    EXPECT_EQ(key("dfsPreferred24GSecdChan"), "12");
    EXPECT_THAT(linesAt(standIn, 3), IsEmpty());
}

TEST_F(PrefChans, At5GHzWithBondingBothMustBeAllowed)
{
    EXPECT_EQ(set5(36, 149, "1"), 0u); // no partner needed
    EXPECT_EQ(key("dfsPreferred5GSecdChan"), "149");
    EXPECT_EQ(set5(36, 48, "2"), 106u);
    EXPECT_ERRORS("Invalid secondary channel 48 in current band OR regulatory domain");
    EXPECT_EQ(set5(48, 52, "1"), 88u);
    EXPECT_ERRORS("Invalid channel 48 in current band OR regulatory domain");
    EXPECT_EQ(set5(36, 0, "1"), 106u);
    EXPECT_ERRORS("Invalid secondary channel 0 in current band OR regulatory domain");
    EXPECT_EQ(key("dfsPreferred5GPrimChan"), "36");
    EXPECT_EQ(key("dfsPreferred5GSecdChan"), "149");
}

TEST_F(PrefChans, At5GHzAChannelOf24GHzIsRefused)
{
    EXPECT_EQ(set5(1, 0, "0"), 88u);
    EXPECT_ERRORS("Invalid channel 1 in current band OR regulatory domain");
}

TEST_F(PrefChans, MissingBondingIsLoggedAndCountsAs0)
{
    box.unset(kWsm, "radio0.channelBondingMode");
    param.preferred24GPrimChan = 14;
    param.preferred24GSecdChan = 10;
    EXPECT_EQ(oruSdkSetDfsPrefChans(&param, 2), 0u);
    EXPECT_LOGGED("Unable to read channel bonding mode from config file /var/wsmDefaults");
    EXPECT_EQ(key("dfsPreferred24GPrimChan"), "14");
}

TEST_F(PrefChans, OtherBandsAre40BeforeTheFileIsLoaded)
{
    for (const int band : {0, 3, 255}) {
        EXPECT_EQ(oruSdkSetDfsPrefChans(&param, static_cast<uint8_t>(band)), 40u);
        EXPECT_LOGGED("Invalid argument");
    }
    EXPECT_THAT(standIn.calls, IsEmpty());
}

TEST_F(PrefChans, RadioIsNotCheckedAndFormsItsKeys)
{
    box.set(kWsm, "radio2.channelBondingMode", "1");
    param.radioIndex = 2;
    param.preferred24GPrimChan = 14;
    param.preferred24GSecdChan = 10;
    EXPECT_EQ(oruSdkSetDfsPrefChans(&param, 2), 19u);
    EXPECT_LOGGED("Invalid channels");
    param.preferred24GPrimChan = 6;
    EXPECT_EQ(oruSdkSetDfsPrefChans(&param, 2), 0u);
}

TEST_F(PrefChans, RadioBehindTheCacheHasNoChannels)
{
    box.set(kWsm, "radio255.channelBondingMode", "0");
    box.set(kWsm, "radio255.dot11Mode", "4");
    param.radioIndex = 255;
    EXPECT_EQ(set5(36, 0, "0"), 88u);
    EXPECT_ERRORS("Invalid channel 36 in current band OR regulatory domain");
}

TEST_F(PrefChans, OfRadio1GoByItsOwnChannels)
{
    box.set(kWsm, "radio1.channelBondingMode", "0");
    box.set(kWsm, "radio1.dot11Mode", "4");
    param.radioIndex = 1;
    EXPECT_EQ(set5(100, 0, "0"), 0u);
    EXPECT_EQ(set5(36, 0, "0"), 88u);
    EXPECT_ERRORS("Invalid channel 36 in current band OR regulatory domain");
}

// ---- Each call that can fail

Step readStep(const std::string &key, const std::string &named)
{
    return {"oruAsfDictGetInt " + key, 42,
            "Failed to read " + named + " from config file /var/wsmDefaults"};
}

Step writeStep(const std::string &key)
{
    return {"oruAsfDictSetString " + key, 25, "Unable to write " + key + " to dictionary"};
}

Step kept(Step step)
{
    step.writes = true;
    return step;
}

std::vector<SweepRow> rows()
{
    std::vector<Step> reads{kLoad};
    for (const std::string &key : kKeys)
        reads.push_back(readStep(key, key == "dfsPreferredBand" ? "dfsWeightMargin" : key));
    std::vector<SweepRow> all;
    all.push_back({"GetDfsParam", [](AccessPoint &box, StandIn &) { prepareKeys(box); },
                   [] {
                       OruSdkDfsParam param{};
                       return oruSdkGetDfsParam(&param);
                   },
                   reads});
    all.push_back(
        {"SetDfsUniiBands",
         [](AccessPoint &box, StandIn &) { prepareKeys(box); },
         [] {
             OruSdkDfsParam param{};
             return oruSdkSetDfsUniiBands(&param);
         },
         {kLoad, writeStep("dfsLowUNIIBand"), kSave, kept(kLoad), kept(writeStep("dfsMidUNIIBand")),
          kept(kSave), kept(kLoad), kept(writeStep("dfsHighUNIIBand")), kept(kSave)}});
    for (const Item &item : kItems) {
        const bool isSwitch = item.max == 1;
        const Step write{std::string("oruAsfDictSetString ") + item.key, 25,
                         isSwitch ? std::string("Unable to write ") + item.key + " to dictionary"
                                  : "Unable to write featureOptions 1 to dictionary"};
        all.push_back({std::string("SetItem_") + item.key,
                       nullptr,
                       [item, isSwitch] {
                           OruSdkDfsParam param{};
                           param.paramId = item.id;
                           item.put(param, 1);
                           return isSwitch ? oruSdkSetDfsParamEnable(&param)
                                           : oruSdkSetDfsParamValue(&param);
                       },
                       {kLoad, write, kSave}});
    }
    const char bonding[] = "Unable to read channel bonding mode from config file /var/wsmDefaults";
    const Step lowerCaseLoad{"oruAsfDictCreate /var/wsmDefaults", 7,
                             "Unable to read WSM defaults file /var/wsmDefaults"};
    const auto prepare = [](AccessPoint &box, StandIn &standIn) {
        prepareKeys(box);
        box.set(kWsm, "radio0.channelBondingMode", "0");
        box.set(kWsm, "radio0.dot11Mode", "4");
        tellRadios(box, standIn, {{}, {}});
    };
    all.push_back({"SetDfsPrefChans24",
                   prepare,
                   [] {
                       OruSdkDfsParam param{};
                       param.preferred24GPrimChan = 1;
                       param.preferred24GSecdChan = 5;
                       return inOneLine(oruSdkSetDfsPrefChans(&param, 2));
                   },
                   {lowerCaseLoad,
                    {"oruAsfDictGetInt radio0.channelBondingMode", 0, bonding},
                    writeStep("dfsPreferred24GPrimChan"),
                    writeStep("dfsPreferred24GSecdChan"),
                    writeStep("dfsPreferredBand"),
                    kSave}});
    const std::string refused = "Invalid channel 36 in current band OR regulatory domain";
    all.push_back(
        {"SetDfsPrefChans5",
         prepare,
         [] {
             OruSdkDfsParam param{};
             param.preferred5GPrimChan = 36;
             return inOneLine(oruSdkSetDfsPrefChans(&param, 1));
         },
         {lowerCaseLoad,
          {"oruAsfDictGetInt radio0.channelBondingMode", 0, bonding},
          {"oruAsfDictCreate /var/wsmDefaults", 88, std::string(kLoadFailed) + " | " + refused},
          {"oruAsfDictGetInt radio0.dot11Mode", 88,
           "Unable to read dot11Mode from config file /var/wsmDefaults | " + refused},
          writeStep("dfsPreferred5GPrimChan"),
          writeStep("dfsPreferred5GSecdChan"),
          writeStep("dfsPreferredBand"),
          kSave}});
    return all;
}
INSTANTIATE_TEST_SUITE_P(Dfs, FailureSweep, ValuesIn(rows()), rowName);
INSTANTIATE_TEST_SUITE_P(Dfs, StatusSweep, ValuesIn(rows()), rowName);

} // namespace
} // namespace oru::test
