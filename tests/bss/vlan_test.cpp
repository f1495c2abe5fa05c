#include "oruSdk.h"
#include "support/accesspoint.hpp"
#include "support/sweep.hpp"

#include <gmock/gmock.h>

namespace oru::test {
namespace {

using ::testing::IsEmpty;

struct BssVlan : AccessPointTest {};

TEST_F(BssVlan, From1To4095RoundTrips)
{
    for (const int32_t bss : {0, 3})
        for (const uint32_t vlan : {1u, 2u, 4094u, 4095u}) {
            EXPECT_EQ(oruSdkSetVlanId(bss, vlan), 0u);
            EXPECT_EQ(box.value(kWsm, "bss" + std::to_string(bss) + ".wvid"), std::to_string(vlan));
            uint32_t read = 0;
            EXPECT_EQ(oruSdkGetVlanId(&read, static_cast<uint32_t>(bss)), 0u);
            EXPECT_EQ(read, vlan);
        }
    EXPECT_NOTHING_LOGGED();
}

TEST_F(BssVlan, OutOfRangeIs117WithoutALineBeforeTheFile)
{
    const std::string before = box.everything();
    standIn.calls.clear();
    for (const uint32_t vlan : {0u, 4096u, 65537u, 0x80000001u, UINT32_MAX}) {
        EXPECT_EQ(oruSdkSetVlanId(1, vlan), 117u);
        EXPECT_NOTHING_LOGGED();
    }
    EXPECT_THAT(standIn.calls, IsEmpty());
    EXPECT_EQ(box.everything(), before);
}

TEST_F(BssVlan, BssAbove3Is115BeforeTheVlan)
{
    for (const int32_t bss : {4, INT32_MAX}) {
        EXPECT_EQ(oruSdkSetVlanId(bss, 0), 115u);
        EXPECT_LOGGED("Invalid bss number ID: " + std::to_string(bss));
    }
    EXPECT_THAT(standIn.calls, IsEmpty());
}

TEST_F(BssVlan, NegativeBssFormsItsKeyWithTheSign)
{
    EXPECT_EQ(oruSdkSetVlanId(-1, 7), 0u);
    EXPECT_EQ(box.value(kWsm, "bss-1.wvid"), "7");
    EXPECT_EQ(oruSdkSetVlanId(INT32_MIN, 8), 0u);
    EXPECT_EQ(box.value(kWsm, "bss-2147483648.wvid"), "8");
}

TEST_F(BssVlan, ReaderChecksTheBssUnsignedThenThePointer)
{
    for (const uint32_t bss : {4u, UINT32_MAX}) {
        EXPECT_EQ(oruSdkGetVlanId(nullptr, bss), 115u);
        EXPECT_LOGGED("Invalid BSS NUM: " + std::to_string(static_cast<int32_t>(bss)));
    }
    EXPECT_EQ(oruSdkGetVlanId(nullptr, 3), 2u);
    EXPECT_LOGGED("NULL pointer");
    EXPECT_THAT(standIn.calls, IsEmpty());
}

TEST_F(BssVlan, ReaderPassesAnyNumberAndLeavesTheResultOtherwise)
{
    uint32_t read = 99;
    box.set(kWsm, "bss1.wvid", "9999");
    EXPECT_EQ(oruSdkGetVlanId(&read, 1), 0u);
    EXPECT_EQ(read, 9999u);
    box.set(kWsm, "bss1.wvid", "");
    EXPECT_EQ(oruSdkGetVlanId(&read, 1), 42u);
    EXPECT_LOGGED("Unable to read bss1.wvid from config file /var/wsmDefaults");
    EXPECT_EQ(read, 9999u);
}

std::vector<SweepRow> rows()
{
    const Step open{"oruAsfDictCreate /var/wsmDefaults", 7,
                    "Unable to read WSM Defaults file /var/wsmDefaults"};
    return {{"SetVlanId",
             nullptr,
             [] { return oruSdkSetVlanId(1, 77); },
             {open,
              {"oruAsfDictSetString bss1.wvid", 25, "Unable to write bss1.wvid to dictionary"},
              {"oruAsfDictSave /var/wsmDefaults", 8,
               "Unable to write WSM Defaults file /var/wsmDefaults"}}},
            {"GetVlanId",
             nullptr,
             [] {
                 uint32_t read = 0;
                 return oruSdkGetVlanId(&read, 1);
             },
             {open,
              {"oruAsfDictGetInt bss1.wvid", 42,
               "Unable to read bss1.wvid from config file /var/wsmDefaults"}}}};
}
INSTANTIATE_TEST_SUITE_P(BssVlan, FailureSweep, ::testing::ValuesIn(rows()), rowName);
INSTANTIATE_TEST_SUITE_P(BssVlan, StatusSweep, ::testing::ValuesIn(rows()), rowName);

} // namespace
} // namespace oru::test
