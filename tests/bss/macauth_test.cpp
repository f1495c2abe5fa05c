#include "oruSdk.h"
#include "support/accesspoint.hpp"
#include "support/sweep.hpp"

#include <gmock/gmock.h>

namespace oru::test {
namespace {

using ::testing::IsEmpty;

struct MacAuth : AccessPointTest {
    MacAuth() { box.set(kAa, "bss1.macAuthType", "1"); }
};

TEST_F(MacAuth, EveryTypeFrom0To2IsStored)
{
    for (const uint32_t type : {0u, 1u, 2u}) {
        const OruSdkMacAuthParam param{1, 99, type};
        EXPECT_EQ(oruSdkSetMacAuth(&param), 0u);
        EXPECT_EQ(box.value(kAa, "bss1.macAuthType"), std::to_string(type));
        OruSdkMacAuthParam read{1, 99, 77};
        EXPECT_EQ(oruSdkGetMacAuth(&read), 0u);
        EXPECT_EQ(read.authType, type);
        EXPECT_EQ(read.radioIndex, 99u);
    }
    EXPECT_NOTHING_LOGGED();
}

TEST_F(MacAuth, TypeAbove2Is47)
{
    const std::string before = box.everything();
    for (const uint32_t type : {3u, 255u, 4294967295u}) {
        const OruSdkMacAuthParam param{1, 0, type};
        EXPECT_EQ(oruSdkSetMacAuth(&param), 47u);
        EXPECT_LOGGED("Invalid MAC static WEP auth type " +
                      std::to_string(static_cast<int32_t>(type)));
    }
    EXPECT_THAT(standIn.calls, IsEmpty());
    EXPECT_EQ(box.everything(), before);
}

TEST_F(MacAuth, BssAbove3Is115BeforeTheType)
{
    for (const int32_t bss : {4, INT32_MAX}) {
        const OruSdkMacAuthParam param{bss, 5, 3};
        EXPECT_EQ(oruSdkSetMacAuth(&param), 115u);
        EXPECT_LOGGED("Invalid Bss Num: " + std::to_string(bss));
    }
    EXPECT_THAT(standIn.calls, IsEmpty());
}

TEST_F(MacAuth, Bss0And3AreAccepted)
{
    for (const int32_t bss : {0, 3}) {
        const OruSdkMacAuthParam param{bss, 0, 2};
        EXPECT_EQ(oruSdkSetMacAuth(&param), 0u);
        EXPECT_EQ(box.value(kAa, "bss" + std::to_string(bss) + ".macAuthType"), "2");
        OruSdkMacAuthParam read{bss, 0, 77};
        EXPECT_EQ(oruSdkGetMacAuth(&read), 0u);
        EXPECT_EQ(read.authType, 2u);
    }
    EXPECT_EQ(box.value(kAa, "bss1.macAuthType"), "1");
}

TEST_F(MacAuth, GetterNamesTheRadioWhenTheBssIsAbove3)
{
    OruSdkMacAuthParam param{4, 4294967295u, 77};
    EXPECT_EQ(oruSdkGetMacAuth(&param), 115u);
    EXPECT_LOGGED("Invalid radio ID: -1");
    EXPECT_EQ(param.authType, 77u);
    EXPECT_THAT(standIn.calls, IsEmpty());
}

TEST_F(MacAuth, NullRecordIs2)
{
    EXPECT_EQ(oruSdkSetMacAuth(nullptr), 2u);
    EXPECT_LOGGED("NULL pointer");
    EXPECT_EQ(oruSdkGetMacAuth(nullptr), 2u);
    EXPECT_LOGGED("NULL pointer");
}

TEST_F(MacAuth, NegativeBssFormsItsKeyWithTheSign)
{
    const OruSdkMacAuthParam param{-3, 0, 2};
    EXPECT_EQ(oruSdkSetMacAuth(&param), 0u);
    EXPECT_EQ(box.value(kAa, "bss-3.macAuthType"), "2");
    EXPECT_EQ(box.value(kAa, "bss1.macAuthType"), "1");
    OruSdkMacAuthParam read{-3, 0, 77};
    EXPECT_EQ(oruSdkGetMacAuth(&read), 0u);
    EXPECT_EQ(read.authType, 2u);
}

TEST_F(MacAuth, StoredNumberIsNotChecked)
{
    box.set(kAa, "bss1.macAuthType", "-9");
    OruSdkMacAuthParam param{1, 0, 77};
    EXPECT_EQ(oruSdkGetMacAuth(&param), 0u);
    EXPECT_EQ(param.authType, static_cast<uint32_t>(-9));
    box.set(kAa, "bss1.macAuthType", "x");
    param.authType = 77;
    EXPECT_EQ(oruSdkGetMacAuth(&param), 42u);
    EXPECT_LOGGED("Unable to read macAuthType from config file /var/1x.conf");
    EXPECT_EQ(param.authType, 77u);
}

std::vector<SweepRow> rows()
{
    return {
        {"SetMacAuth",
         [](AccessPoint &box, StandIn &) { box.set(kAa, "bss1.macAuthType", "1"); },
         [] {
             const OruSdkMacAuthParam param{1, 7, 2};
             return oruSdkSetMacAuth(&param);
         },
         {{"oruAsfDictCreate /var/1x.conf", 7, "Unable to read WSM Defaults file /var/1x.conf"},
          {"oruAsfDictSetString bss1.macAuthType", 25,
           "Unable to write radio7 MAC static WEP auth type to dictionary"},
          {"oruAsfDictSave /var/1x.conf", 8, "Unable to write WSM Defaults file /var/1x.conf"}}},
        {"GetMacAuth",
         [](AccessPoint &box, StandIn &) { box.set(kAa, "bss1.macAuthType", "1"); },
         [] {
             OruSdkMacAuthParam param{1, 7, 0};
             return oruSdkGetMacAuth(&param);
         },
         {{"oruAsfDictCreate /var/1x.conf", 7, "Unable to read AA Defaults file /var/1x.conf"},
          {"oruAsfDictGetInt bss1.macAuthType", 42,
           "Unable to read macAuthType from config file /var/1x.conf"}}}};
}
INSTANTIATE_TEST_SUITE_P(MacAuth, FailureSweep, ::testing::ValuesIn(rows()), rowName);
INSTANTIATE_TEST_SUITE_P(MacAuth, StatusSweep, ::testing::ValuesIn(rows()), rowName);

} // namespace
} // namespace oru::test
