#include "oruSdk.h"
#include "support/accesspoint.hpp"
#include "support/sweep.hpp"

#include <gmock/gmock.h>

namespace oru::test {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

struct AssignBss : AccessPointTest {
    void store(const std::string &mask) const
    {
        box.set(kWsm, "bss1.radio", mask);
        box.set(kAa, "bss1.radioctrl", "77");
    }
    void expectMask(const std::string &mask) const
    {
        EXPECT_EQ(box.value(kWsm, "bss1.radio"), mask);
        EXPECT_EQ(box.value(kAa, "bss1.radioctrl"), mask);
    }
};

struct Change {
    const char *stored;
    uint32_t radio;
    uint32_t enable;
    const char *mask;
};

TEST_F(AssignBss, BothFilesAndTheRecordReceiveTheNewMask)
{
    for (const Change &row : {
             Change{"0", 0, 1, "1"}, Change{"0", 1, 1, "2"}, Change{"1", 1, 1, "3"},
             Change{"2", 0, 1, "3"}, Change{"3", 0, 0, "2"}, Change{"3", 1, 0, "1"},
             Change{"1", 0, 0, "0"}, Change{"2", 1, 0, "0"},
             Change{"65536", 0, 1, "1"},          // only the low 16 bits survive
             Change{"65536", 1, 1, "2"},          //
             Change{"-1", 0, 0, "65534"},         //
             Change{"-1", 1, 0, "65533"},         //
             Change{"2147483646", 0, 1, "65535"}, //
         }) {
        SCOPED_TRACE(row.stored);
        store(row.stored);
        OruSdkAssignBssParam param{1, row.radio, row.enable};
        EXPECT_EQ(oruSdkAssignBss(&param), 0u);
        expectMask(row.mask);
        EXPECT_EQ(std::to_string(param.enable), row.mask);
        EXPECT_NOTHING_LOGGED();
    }
}

TEST_F(AssignBss, NothingButTheTwoKeysChanges)
{
    box.set(kWsm, "bss1.radio", "1");
    box.set(kAa, "bss1.radioctrl", "1");
    const std::string before = box.everything();
    store("0");
    OruSdkAssignBssParam param{1, 0, 1};
    EXPECT_EQ(oruSdkAssignBss(&param), 0u);
    EXPECT_EQ(box.everything(), before);
}

TEST_F(AssignBss, RequestedStateAlreadyWritesNothingAndNamesRadio0ForBothRadios)
{
    for (const Change &row : {Change{"1", 0, 1, ""}, Change{"2", 0, 0, ""}, Change{"2", 1, 1, ""},
                              Change{"1", 1, 0, ""}, Change{"65536", 0, 0, ""}}) {
        store(row.stored);
        const std::string before = box.everything();
        OruSdkAssignBssParam param{1, row.radio, row.enable};
        EXPECT_EQ(oruSdkAssignBss(&param), 0u);
        EXPECT_LOGGED("Bss1 is already set to radio0\n");
        EXPECT_EQ(param.enable, row.enable);
        EXPECT_EQ(box.everything(), before);
    }
}

TEST_F(AssignBss, TheTwoLinesComeFromTwoPlaces)
{
    store("3");
    for (const uint32_t radio : {0u, 1u}) {
        OruSdkAssignBssParam param{1, radio, 1};
        EXPECT_EQ(oruSdkAssignBss(&param), 0u);
    }
    ASSERT_EQ(standIn.logs.size(), 2u);
    EXPECT_NE(standIn.logs[0].line, standIn.logs[1].line);
    EXPECT_EQ(standIn.logs[0].format, "Bss%d is already set to radio0\n");
}

TEST_F(AssignBss, AnyOtherRadioWritesTheMaskBackAsItWas)
{
    for (const uint32_t radio : {2u, UINT32_MAX})
        for (const char *mask : {"1", "70000", "-5"}) {
            store(mask);
            OruSdkAssignBssParam param{1, radio, 0};
            EXPECT_EQ(oruSdkAssignBss(&param), 0u);
            expectMask(mask);
            EXPECT_EQ(param.enable, static_cast<uint32_t>(std::stoi(mask)));
        }
    EXPECT_NOTHING_LOGGED();
}

TEST_F(AssignBss, NullRecordIs2)
{
    EXPECT_EQ(oruSdkAssignBss(nullptr), 2u);
    EXPECT_LOGGED("NULL pointer");
    EXPECT_THAT(standIn.calls, IsEmpty());
}

TEST_F(AssignBss, BssAbove3Is115BeforeTheFlagAndTheFiles)
{
    for (const int32_t bss : {4, INT32_MAX}) {
        OruSdkAssignBssParam param{bss, 0, 2};
        EXPECT_EQ(oruSdkAssignBss(&param), 115u);
        EXPECT_LOGGED("Invalid bss number ID: " + std::to_string(bss));
        EXPECT_EQ(param.enable, 2u);
    }
    EXPECT_THAT(standIn.calls, IsEmpty());
}

TEST_F(AssignBss, Bss0And3AreAccepted)
{
    for (const int32_t bss : {0, 3}) {
        const std::string key = "bss" + std::to_string(bss);
        box.set(kWsm, key + ".radio", "0");
        OruSdkAssignBssParam param{bss, 1, 1};
        EXPECT_EQ(oruSdkAssignBss(&param), 0u);
        EXPECT_EQ(box.value(kWsm, key + ".radio"), "2");
        EXPECT_EQ(box.value(kAa, key + ".radioctrl"), "2");
    }
}

TEST_F(AssignBss, NegativeBssFormsItsKeysWithTheSign)
{
    box.set(kWsm, "bss-2.radio", "0");
    OruSdkAssignBssParam param{-2, 0, 1};
    EXPECT_EQ(oruSdkAssignBss(&param), 0u);
    EXPECT_EQ(box.value(kWsm, "bss-2.radio"), "1");
    EXPECT_EQ(box.value(kAa, "bss-2.radioctrl"), "1");
}

TEST_F(AssignBss, FlagAbove1Is38AfterBothFilesAndTheMask)
{
    for (const uint32_t enable : {2u, UINT32_MAX}) {
        store("0");
        const std::string before = box.everything();
        standIn.calls.clear();
        OruSdkAssignBssParam param{1, 0, enable};
        EXPECT_EQ(oruSdkAssignBss(&param), 38u);
        EXPECT_LOGGED("Invalid BOOLEAN value " + std::to_string(static_cast<int32_t>(enable)));
        EXPECT_THAT(standIn.calls,
                    ElementsAre("oruAsfDictCreate /var/wsmDefaults",
                                "oruAsfDictCreate /var/1x.conf", "oruAsfDictGetInt bss1.radio"));
        EXPECT_EQ(box.everything(), before);
    }
}

TEST_F(AssignBss, RefusedFlagStaysInTheRecordForEveryRadio)
{
    store("1");
    for (const uint32_t radio : {0u, 1u, 2u})
        for (const uint32_t enable : {2u, 3u, UINT32_MAX}) {
            OruSdkAssignBssParam param{1, radio, enable};
            EXPECT_EQ(oruSdkAssignBss(&param), 38u);
            EXPECT_EQ(param.enable, enable);
            EXPECT_LOGGED("Invalid BOOLEAN value " + std::to_string(static_cast<int32_t>(enable)));
        }
}

TEST_F(AssignBss, MissingMaskComesBeforeTheFlagAndLeavesTheSecurityFileOpen)
{
    box.unset(kWsm, "bss1.radio");
    OruSdkAssignBssParam param{1, 0, 2};
    EXPECT_EQ(oruSdkAssignBss(&param), 42u);
    EXPECT_LOGGED("Unable to read bss1.radio from config file /var/wsmDefaults");
    EXPECT_THAT(standIn.openDictPaths(), ElementsAre(kAa));
    expectOpenDicts(1);
}

TEST_F(AssignBss, MissingSecurityFileComesBeforeTheMaskAndLeavesTheRadioFileOpen)
{
    box.unset(kWsm, "bss1.radio");
    box.remove(kAa);
    OruSdkAssignBssParam param{1, 0, 2};
    EXPECT_EQ(oruSdkAssignBss(&param), 7u);
    EXPECT_LOGGED("Unable to read AA file /var/1x.conf");
    EXPECT_THAT(standIn.openDictPaths(), ElementsAre(kWsm));
    expectOpenDicts(1);
}

TEST_F(AssignBss, RadioFileComesFirst)
{
    box.remove(kWsm);
    box.remove(kAa);
    OruSdkAssignBssParam param{1, 0, 2};
    EXPECT_EQ(oruSdkAssignBss(&param), 7u);
    EXPECT_LOGGED("Unable to read WSM Defaults file /var/wsmDefaults");
}

TEST_F(AssignBss, FailureBehindTheFirstSaveLeavesTheSecurityFileChanged)
{
    for (const char *call : {"oruAsfDictSetString", "oruAsfDictSave"}) {
        store("0");
        standIn.failOnly(call);
        standIn.failAt(2);
        OruSdkAssignBssParam param{1, 0, 1};
        EXPECT_EQ(oruSdkAssignBss(&param), call == std::string("oruAsfDictSave") ? 8u : 25u);
        EXPECT_EQ(box.value(kWsm, "bss1.radio"), "0");
        EXPECT_EQ(box.value(kAa, "bss1.radioctrl"), "1");
        EXPECT_EQ(param.enable, 1u);
    }
}

TEST_F(AssignBss, RecordHoldsTheNewMaskEvenWhenTheFirstWriteFails)
{
    store("1");
    standIn.failOnly("oruAsfDictSetString");
    standIn.failAt(1);
    OruSdkAssignBssParam param{1, 1, 1};
    EXPECT_EQ(oruSdkAssignBss(&param), 25u);
    EXPECT_EQ(param.enable, 3u);
}

// ---- Reading

TEST_F(AssignBss, ReaderGivesTheStoredNumberOfTheRadioFileAlone)
{
    for (const char *mask : {"0", "3", "70000", "-1"}) {
        store(mask);
        uint32_t value = 99;
        EXPECT_EQ(oruSdkGetAssignBssReq(1, &value), 0u);
        EXPECT_EQ(value, static_cast<uint32_t>(std::stoi(mask)));
    }
    box.set(kWsm, "bss-1.radio", "2");
    uint32_t value = 99;
    EXPECT_EQ(oruSdkGetAssignBssReq(-1, &value), 0u);
    EXPECT_EQ(value, 2u);
}

TEST_F(AssignBss, ReaderChecksTheBssThenThePointerThenOpens)
{
    EXPECT_EQ(oruSdkGetAssignBssReq(4, nullptr), 115u);
    EXPECT_LOGGED("Invalid bss number ID: 4");
    EXPECT_EQ(oruSdkGetAssignBssReq(3, nullptr), 2u);
    EXPECT_LOGGED("NULL pointer");
    EXPECT_THAT(standIn.calls, IsEmpty());
}

TEST_F(AssignBss, ReaderLeavesTheResultWhenTheKeyIsNoNumber)
{
    store("x");
    uint32_t value = 99;
    EXPECT_EQ(oruSdkGetAssignBssReq(1, &value), 42u);
    EXPECT_LOGGED("Unable to read bss1.radio from config file /var/wsmDefaults");
    EXPECT_EQ(value, 99u);
}

// ---- Each call failing

std::vector<SweepRow> rows()
{
    const auto prepare = [](AccessPoint &box, StandIn &) {
        box.set(kWsm, "bss1.radio", "0");
        box.set(kAa, "bss1.radioctrl", "0");
    };
    return {
        {"AssignBss",
         prepare,
         [] {
             OruSdkAssignBssParam param{1, 1, 1};
             return oruSdkAssignBss(&param);
         },
         {{"oruAsfDictCreate /var/wsmDefaults", 7,
           "Unable to read WSM Defaults file /var/wsmDefaults"},
          {"oruAsfDictCreate /var/1x.conf", 7, "Unable to read AA file /var/1x.conf", 3, false, 1},
          {"oruAsfDictGetInt bss1.radio", 42,
           "Unable to read bss1.radio from config file /var/wsmDefaults", 3, false, 1},
          {"oruAsfDictSetString bss1.radioctrl", 25,
           "Unable to write featureOptions 2 to dictionary"},
          {"oruAsfDictSave /var/1x.conf", 8, "Unable to write 1x.conf file /var/1x.conf"},
          {"oruAsfDictSetString bss1.radio", 25, "Unable to write featureOptions 2 to dictionary",
           3, true},
          {"oruAsfDictSave /var/wsmDefaults", 8,
           "Unable to write WSM Defaults file /var/wsmDefaults", 3, true}}},
        {"GetAssignBssReq",
         prepare,
         [] {
             uint32_t mask = 0;
             return oruSdkGetAssignBssReq(1, &mask);
         },
         {{"oruAsfDictCreate /var/wsmDefaults", 7,
           "Unable to read WSM Defaults file /var/wsmDefaults"},
          {"oruAsfDictGetInt bss1.radio", 42,
           "Unable to read bss1.radio from config file /var/wsmDefaults"}}}};
}
INSTANTIATE_TEST_SUITE_P(Assignment, FailureSweep, ::testing::ValuesIn(rows()), rowName);
INSTANTIATE_TEST_SUITE_P(Assignment, StatusSweep, ::testing::ValuesIn(rows()), rowName);

} // namespace
} // namespace oru::test
