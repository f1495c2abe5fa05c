// The on/off switches and numeric options: one table, every rule for every row.
#include "oruSdk.h"
#include "support/accesspoint.hpp"
#include "support/sweep.hpp"

#include <gmock/gmock.h>

#include <set>

namespace oru::test {
namespace {

using ::testing::IsEmpty;
using ::testing::ValuesIn;

/// "radio%d." in a key gives way to the radio's index.
std::string keyFor(const std::string &pattern, int radio)
{
    std::string key = pattern;
    const size_t at = key.find("%d");
    if (at != std::string::npos) key.replace(at, 2, std::to_string(radio));
    return key;
}

bool isPerRadio(const std::string &pattern)
{
    return pattern.find("%d") != std::string::npos;
}

struct Switch {
    const char *name;
    uint32_t (*get)(OruSdkFeatureParam *);
    uint32_t (*set)(OruSdkFeatureParam *);
    const char *key;
};

std::ostream &operator<<(std::ostream &to, const Switch &row)
{
    return to << row.name;
}

#define SWITCH(name, key)                                                                          \
    Switch                                                                                         \
    {                                                                                              \
#name, oruSdkGet##name, oruSdkSet##name, key                                               \
    }
const Switch kSwitches[] = {
    SWITCH(ShortGuardInterval40MHz, "radio%d.ShortGuardInterval40MHz"),
    SWITCH(ShortGuardInterval20MHz, "radio%d.ShortGuardInterval20MHz"),
    SWITCH(RifsSupport, "radio%d.RifsSupport"),
    SWITCH(SmartBackgroundScan, "radio%d.sbsEnabled"),
    SWITCH(GreenfieldCapability, "radio%d.GreenfieldCapability"),
    SWITCH(11bSupport, "radio%d.11bSupport"),
    SWITCH(EnhancedRates, "radio%d.enchRatesFlag"),
    SWITCH(Coexist2040, "radio%d.dot112040BSSCoexistenceManagementSupport"),
    SWITCH(SpectrumMgmt, "spectrumManagementFlag"),
    SWITCH(ReverseFcs, "reverseFcsFlag"),
    SWITCH(Proximity, "proximity"),
    SWITCH(Mimo, "mimoFlag"),
    SWITCH(RadioProprietaryExt, "radioProprietaryExt"),
};

struct Option {
    const char *name;
    uint32_t (*get)(OruSdkOptionParam *);
    uint32_t (*set)(OruSdkOptionParam *);
    const char *key;
    uint32_t min;
    uint32_t max;
};

std::ostream &operator<<(std::ostream &to, const Option &row)
{
    return to << row.name;
}

#define OPTION(name, key, min, max)                                                                \
    Option                                                                                         \
    {                                                                                              \
#name, oruSdkGet##name, oruSdkSet##name, key, min, max                                     \
    }
const Option kOptions[] = {
    OPTION(LocalPowerConstraint, "localPowerConstraint", 0, 30),
    OPTION(MaxMpduFactor, "radio%d.MaxMpduFactor", 0, 3),
    OPTION(MpduDensity, "radio%d.MpduDensity", 0, 7),
    OPTION(BlockAckAuto, "radio%d.BlockAckAuto", 0, 1),
    OPTION(Bss2040CoexistElement, "bss2040CoexistElement", 0, 255),
    OPTION(BssWidthTriggerScanInterval, "dot11BSSWidthTriggerScanInterval", 10, 900),
    OPTION(NumSs, "numSs", 0, 3),
    OPTION(TxPowerAdj, "radio%d.txPowerAdj", 0, 30),
    OPTION(TxPower, "radio%d.txPower", 0, 2),
    OPTION(NwkDensityValue, "radio%d.networkDensityValue", 0, 65535),
    OPTION(NwkDensity, "radio%d.networkDensity", 0, 4),
    OPTION(PreambleType, "radio%d.shortPreambleFlag", 0, 1),
};

template <class Row>
std::string nameOf(const ::testing::TestParamInfo<Row> &info)
{
    return info.param.name;
}

// ---- Switches

struct Switches : AccessPointTest, ::testing::WithParamInterface<Switch> {
    const Switch &row = GetParam();
};

TEST_P(Switches, SetWritesTheKeyAndGetReadsIt)
{
    for (uint16_t radio : {uint16_t{0}, uint16_t{1}})
        for (uint32_t flag : {1u, 0u}) {
            OruSdkFeatureParam param{0xabcd, radio, flag};
            EXPECT_EQ(row.set(&param), 0u);
            EXPECT_EQ(box.value(kWsm, keyFor(row.key, radio)), std::to_string(flag));
            OruSdkFeatureParam read{0xabcd, radio, 99};
            EXPECT_EQ(row.get(&read), 0u);
            EXPECT_EQ(read.activationFlag, flag);
            EXPECT_EQ(read.reserved, 0xabcd);
        }
    EXPECT_NOTHING_LOGGED();
}

TEST_P(Switches, RadiosShareTheKeyExactlyWhenItIsDeviceWide)
{
    OruSdkFeatureParam first{0, 0, 0};
    OruSdkFeatureParam second{0, 1, 1};
    EXPECT_EQ(row.set(&first), 0u);
    EXPECT_EQ(row.set(&second), 0u);
    EXPECT_EQ(row.get(&first), 0u);
    EXPECT_EQ(first.activationFlag, isPerRadio(row.key) ? 0u : 1u);
}

TEST_P(Switches, SetChangesNothingElse)
{
    const std::string key = keyFor(row.key, 1);
    const std::string before = box.read(kWsm);
    const std::string now = *box.value(kWsm, key);
    OruSdkFeatureParam param{0, 1, now == "1" ? 0u : 1u};
    ASSERT_EQ(row.set(&param), 0u);
    EXPECT_NE(box.read(kWsm), before);
    box.set(kWsm, key, now);
    EXPECT_EQ(box.read(kWsm), before);
}

TEST_P(Switches, GetGivesWhateverNumberIsStored)
{
    box.set(kWsm, keyFor(row.key, 1), "5");
    OruSdkFeatureParam param{0, 1, 0};
    EXPECT_EQ(row.get(&param), 0u);
    EXPECT_EQ(param.activationFlag, 5u);
}

TEST_P(Switches, SetRefusesOtherFlagsBeforeItOpensTheFile)
{
    const std::string before = box.everything();
    for (uint32_t flag : {2u, 0x80000000u, 0xffffffffu}) {
        OruSdkFeatureParam param{0, 1, flag};
        EXPECT_EQ(row.set(&param), 47u);
        EXPECT_LOGGED("Invalid Activation Flag " + std::to_string(static_cast<int32_t>(flag)) +
                      " for " + keyFor(row.key, 1));
    }
    EXPECT_THAT(standIn.calls, IsEmpty());
    EXPECT_EQ(box.everything(), before);
}

TEST_P(Switches, RadioIsCheckedBeforeTheFlag)
{
    for (uint16_t radio : {uint16_t{2}, uint16_t{0x8000}, uint16_t{0xffff}}) {
        OruSdkFeatureParam param{0, radio, 2};
        EXPECT_EQ(row.set(&param), 3u);
        EXPECT_LOGGED("Invalid radio ID: " + std::to_string(radio));
        EXPECT_EQ(row.get(&param), 3u);
        EXPECT_LOGGED("Invalid radio ID: " + std::to_string(radio));
    }
    EXPECT_THAT(standIn.calls, IsEmpty());
}

TEST_P(Switches, NullRecordIs2)
{
    EXPECT_EQ(row.get(nullptr), 2u);
    EXPECT_LOGGED("NULL pointer");
    EXPECT_EQ(row.set(nullptr), 2u);
    EXPECT_LOGGED("NULL pointer");
    EXPECT_THAT(standIn.calls, IsEmpty());
}

TEST_P(Switches, DamagedValueOrFileLeavesTheRecord)
{
    OruSdkFeatureParam param{0, 0, 77};
    box.set(kWsm, keyFor(row.key, 0), "on");
    EXPECT_EQ(row.get(&param), 42u);
    EXPECT_LOGGED("Unable to read " + keyFor(row.key, 0) + " from config file /var/wsmDefaults");
    box.write(kWsm, std::string("radio0.a=1\0b=2\n", 15));
    EXPECT_EQ(row.get(&param), 7u);
    EXPECT_LOGGED("Unable to read WSM Defaults file /var/wsmDefaults");
    EXPECT_EQ(param.activationFlag, 77u);
}

INSTANTIATE_TEST_SUITE_P(All, Switches, ValuesIn(kSwitches), nameOf<Switch>);

// ---- Options

struct Options : AccessPointTest, ::testing::WithParamInterface<Option> {
    const Option &row = GetParam();
};

TEST_P(Options, BothBoundsAreTakenAndRead)
{
    for (uint32_t radio : {0u, 1u})
        for (uint32_t value : {row.min, row.max}) {
            OruSdkOptionParam param{0xabcdef, radio, value};
            EXPECT_EQ(row.set(&param), 0u);
            EXPECT_EQ(box.value(kWsm, keyFor(row.key, static_cast<int>(radio))),
                      std::to_string(value));
            OruSdkOptionParam read{0xabcdef, radio, 99999};
            EXPECT_EQ(row.get(&read), 0u);
            EXPECT_EQ(read.featureOptions, value);
            EXPECT_EQ(read.reserved, 0xabcdefu);
        }
    EXPECT_NOTHING_LOGGED();
}

TEST_P(Options, ValuesOutsideTheBoundsAreRefusedBeforeTheFileIsOpened)
{
    const std::string before = box.everything();
    std::set<uint32_t> outside{row.max + 1, 0x7fffffff, 0x80000000, 0xffffffff};
    if (row.min > 0) outside.insert({row.min - 1, 0});
    for (const uint32_t value : outside) {
        OruSdkOptionParam param{0, 1, value};
        EXPECT_EQ(row.set(&param), 47u) << value;
        EXPECT_LOGGED("Invalid feature option " + std::to_string(static_cast<int32_t>(value)) +
                      " for " + keyFor(row.key, 1));
    }
    EXPECT_THAT(standIn.calls, IsEmpty());
    EXPECT_EQ(box.everything(), before);
}

TEST_P(Options, RadioIsCheckedBeforeTheValue)
{
    for (const uint32_t radio : {2u, 0x80000000u, 0xffffffffu}) {
        OruSdkOptionParam param{0, radio, 0xffffffff};
        EXPECT_EQ(row.set(&param), 3u);
        EXPECT_LOGGED("Invalid radio ID: " + std::to_string(static_cast<int32_t>(radio)));
        EXPECT_EQ(row.get(&param), 3u);
        EXPECT_LOGGED("Invalid radio ID: " + std::to_string(static_cast<int32_t>(radio)));
    }
    EXPECT_THAT(standIn.calls, IsEmpty());
}

TEST_P(Options, RadiosShareTheKeyExactlyWhenItIsDeviceWide)
{
    OruSdkOptionParam first{0, 0, row.min};
    OruSdkOptionParam second{0, 1, row.max};
    EXPECT_EQ(row.set(&first), 0u);
    EXPECT_EQ(row.set(&second), 0u);
    EXPECT_EQ(row.get(&first), 0u);
    EXPECT_EQ(first.featureOptions, isPerRadio(row.key) ? row.min : row.max);
}

TEST_P(Options, GetNeverValidates)
{
    for (const char *stored : {"-1", "2147483647", "-2147483648", "7000"}) {
        box.set(kWsm, keyFor(row.key, 0), stored);
        OruSdkOptionParam param{0, 0, 0};
        EXPECT_EQ(row.get(&param), 0u);
        EXPECT_EQ(std::to_string(static_cast<int32_t>(param.featureOptions)), stored);
    }
}

TEST_P(Options, NullRecordIs2)
{
    EXPECT_EQ(row.get(nullptr), 2u);
    EXPECT_LOGGED("NULL pointer");
    EXPECT_EQ(row.set(nullptr), 2u);
    EXPECT_LOGGED("NULL pointer");
    EXPECT_THAT(standIn.calls, IsEmpty());
}

TEST_P(Options, MissingKeyAndMissingFileLeaveTheRecord)
{
    OruSdkOptionParam param{0, 0, 77};
    box.unset(kWsm, keyFor(row.key, 0));
    EXPECT_EQ(row.get(&param), 42u);
    EXPECT_LOGGED("Unable to read " + keyFor(row.key, 0) + " from config file /var/wsmDefaults");
    box.remove(kWsm);
    EXPECT_EQ(row.get(&param), 7u);
    EXPECT_LOGGED("Unable to read WSM Defaults file /var/wsmDefaults");
    EXPECT_EQ(param.featureOptions, 77u);
    param.featureOptions = row.min;
    EXPECT_EQ(row.set(&param), 7u);
    EXPECT_LOGGED("Unable to read WSM Defaults file /var/wsmDefaults");
}

INSTANTIATE_TEST_SUITE_P(All, Options, ValuesIn(kOptions), nameOf<Option>);

// ---- Each call fails in turn

std::vector<SweepRow> switchRows()
{
    std::vector<SweepRow> rows;
    for (const Switch &row : kSwitches) {
        const std::string key = keyFor(row.key, 1);
        rows.push_back({std::string("Get") + row.name,
                        nullptr,
                        [get = row.get] {
                            OruSdkFeatureParam param{0, 1, 0};
                            return get(&param);
                        },
                        {{"oruAsfDictCreate /var/wsmDefaults", 7,
                          "Unable to read WSM Defaults file /var/wsmDefaults"},
                         {"oruAsfDictGetInt " + key, 42,
                          "Unable to read " + key + " from config file /var/wsmDefaults"}}});
        rows.push_back(
            {std::string("Set") + row.name,
             nullptr,
             [set = row.set] {
                 OruSdkFeatureParam param{0, 1, 1};
                 return set(&param);
             },
             {{"oruAsfDictCreate /var/wsmDefaults", 7,
               "Unable to read WSM Defaults file /var/wsmDefaults"},
              {"oruAsfDictSetString " + key, 25, "Unable to write " + key + " to dictionary"},
              {"oruAsfDictSave /var/wsmDefaults", 8,
               "Unable to write WSM Defaults file /var/wsmDefaults"}}});
    }
    return rows;
}

std::vector<SweepRow> optionRows()
{
    std::vector<SweepRow> rows;
    for (const Option &row : kOptions) {
        const std::string key = keyFor(row.key, 1);
        rows.push_back({std::string("Get") + row.name,
                        nullptr,
                        [get = row.get] {
                            OruSdkOptionParam param{0, 1, 0};
                            return get(&param);
                        },
                        {{"oruAsfDictCreate /var/wsmDefaults", 7,
                          "Unable to read WSM Defaults file /var/wsmDefaults"},
                         {"oruAsfDictGetInt " + key, 42,
                          "Unable to read " + key + " from config file /var/wsmDefaults"}}});
        rows.push_back(
            {std::string("Set") + row.name,
             nullptr,
             [set = row.set, value = row.max] {
                 OruSdkOptionParam param{0, 1, value};
                 return set(&param);
             },
             {{"oruAsfDictCreate /var/wsmDefaults", 7,
               "Unable to read WSM Defaults file /var/wsmDefaults"},
              {"oruAsfDictSetString " + key, 25,
               "Unable to write featureOptions " + std::to_string(row.max) + " to dictionary"},
              {"oruAsfDictSave /var/wsmDefaults", 8,
               "Unable to write WSM Defaults file /var/wsmDefaults"}}});
    }
    return rows;
}

INSTANTIATE_TEST_SUITE_P(Switches, FailureSweep, ValuesIn(switchRows()), rowName);
INSTANTIATE_TEST_SUITE_P(Switches, StatusSweep, ValuesIn(switchRows()), rowName);
INSTANTIATE_TEST_SUITE_P(Options, FailureSweep, ValuesIn(optionRows()), rowName);
INSTANTIATE_TEST_SUITE_P(Options, StatusSweep, ValuesIn(optionRows()), rowName);

TEST(SwitchTable, NamesEveryKeyOnce)
{
    std::set<std::string> keys;
    for (const Switch &row : kSwitches) EXPECT_TRUE(keys.insert(row.key).second) << row.key;
    for (const Option &row : kOptions) EXPECT_TRUE(keys.insert(row.key).second) << row.key;
    EXPECT_EQ(keys.size(), 25u);
}

} // namespace
} // namespace oru::test
