#include "oruSdk.h"
#include "support/accesspoint.hpp"
#include "support/sweep.hpp"

#include <gmock/gmock.h>

namespace oru::test {
namespace {

using ::testing::IsEmpty;

struct Timeouts : AccessPointTest {
    Timeouts()
    {
        for (const char *bss : {"bss0.", "bss1.", "bss2.", "bss3."}) {
            box.set(kAa, std::string(bss) + "sessionTimeout", "1111");
            box.set(kAa, std::string(bss) + "groupKeyTimeout", "2222");
        }
    }

    void expectStored(int32_t session, int32_t groupKey)
    {
        const OruSdkSecTimeoutsParam param{session, groupKey};
        EXPECT_EQ(oruSdkSetSecTimeouts(&param, 2), 0u) << session << " " << groupKey;
        EXPECT_EQ(box.value(kAa, "bss2.sessionTimeout"), std::to_string(session));
        EXPECT_EQ(box.value(kAa, "bss2.groupKeyTimeout"), std::to_string(groupKey));
        OruSdkSecTimeoutsParam read{7, 7};
        EXPECT_EQ(oruSdkGetSecTimeouts(&read, 2), 0u);
        EXPECT_EQ(read.sessionTimeout, session);
        EXPECT_EQ(read.groupKeyTimeout, groupKey);
        EXPECT_NOTHING_LOGGED();
    }

    void expectRefused(int32_t session, int32_t groupKey, uint32_t code)
    {
        const std::string before = box.everything();
        standIn.calls.clear();
        const OruSdkSecTimeoutsParam param{session, groupKey};
        EXPECT_EQ(oruSdkSetSecTimeouts(&param, 2), code) << session << " " << groupKey;
        EXPECT_LOGGED("NULL pointer");
        EXPECT_THAT(standIn.calls, IsEmpty());
        EXPECT_EQ(box.everything(), before);
    }
};

TEST_F(Timeouts, SessionOf0Or30AndMoreIsStored)
{
    expectStored(30, 30);
    expectStored(31, INT32_MAX);
    expectStored(INT32_MAX, 30);
    expectStored(0, 30);
}

TEST_F(Timeouts, SessionBelow30Is43)
{
    for (const int32_t session : {29, 1, -1, INT32_MIN}) {
        expectRefused(session, 60, 43);
        expectRefused(session, 10, 43); // before the group key
    }
}

TEST_F(Timeouts, GroupKeyBelow30Is44)
{
    for (const int32_t groupKey : {29, 10, 0, -1, INT32_MIN}) {
        expectRefused(60, groupKey, 44);
        expectRefused(30, groupKey, 44);
    }
}

TEST_F(Timeouts, WithoutASessionTimeoutAnyGroupKeyTimeoutPasses)
{
    for (const int32_t groupKey : {5, 0, 29, -1, INT32_MIN}) expectStored(0, groupKey);
}

TEST_F(Timeouts, RefusalsThatShareATextHavePlacesOfTheirOwn)
{
    const OruSdkSecTimeoutsParam session{29, 60};
    const OruSdkSecTimeoutsParam groupKey{60, 29};
    oruSdkSetSecTimeouts(nullptr, 0);
    oruSdkSetSecTimeouts(&session, 0);
    oruSdkSetSecTimeouts(&groupKey, 0);
    ASSERT_EQ(standIn.logs.size(), 3u);
    EXPECT_NE(standIn.logs[0].line, standIn.logs[1].line);
    EXPECT_NE(standIn.logs[1].line, standIn.logs[2].line);
    EXPECT_NE(standIn.logs[0].line, standIn.logs[2].line);
}

TEST_F(Timeouts, NullRecordIs2BeforeTheBss)
{
    EXPECT_EQ(oruSdkSetSecTimeouts(nullptr, 4), 2u);
    EXPECT_LOGGED("NULL pointer");
    EXPECT_EQ(oruSdkGetSecTimeouts(nullptr, 4), 2u);
    EXPECT_LOGGED("NULL pointer");
    EXPECT_THAT(standIn.calls, IsEmpty());
}

TEST_F(Timeouts, BssAbove3Is115BeforeTheValues)
{
    OruSdkSecTimeoutsParam param{29, 29};
    for (const uint8_t bss : {uint8_t{4}, uint8_t{128}, uint8_t{255}}) {
        EXPECT_EQ(oruSdkSetSecTimeouts(&param, bss), 115u);
        EXPECT_LOGGED("Invalid bss number ID: " + std::to_string(bss));
        EXPECT_EQ(oruSdkGetSecTimeouts(&param, bss), 115u);
        EXPECT_LOGGED("Invalid bss number ID: " + std::to_string(bss));
    }
    EXPECT_THAT(standIn.calls, IsEmpty());
}

TEST_F(Timeouts, OnlyTheLow8BitsOfTheBssCount)
{
    const OruSdkSecTimeoutsParam param{60, 61};
    const volatile int wide = 260;
    EXPECT_EQ(oruSdkSetSecTimeouts(&param, static_cast<uint8_t>(wide)), 115u);
    EXPECT_LOGGED("Invalid bss number ID: 4");
    EXPECT_EQ(oruSdkSetSecTimeouts(&param, static_cast<uint8_t>(wide - 4)), 0u);
    EXPECT_EQ(box.value(kAa, "bss0.sessionTimeout"), "60");
    EXPECT_EQ(box.value(kAa, "bss1.sessionTimeout"), "1111");
}

TEST_F(Timeouts, EachBssHasItsOwnKeys)
{
    box.set(kAa, "bss3.sessionTimeout", "3333");
    box.set(kAa, "bss3.groupKeyTimeout", "-4");
    OruSdkSecTimeoutsParam param{};
    EXPECT_EQ(oruSdkGetSecTimeouts(&param, 3), 0u);
    EXPECT_EQ(param.sessionTimeout, 3333); // what is stored is not checked
    EXPECT_EQ(param.groupKeyTimeout, -4);
    param = {60, 61};
    EXPECT_EQ(oruSdkSetSecTimeouts(&param, 3), 0u);
    EXPECT_EQ(box.value(kAa, "bss3.sessionTimeout"), "60");
    EXPECT_EQ(box.value(kAa, "bss3.groupKeyTimeout"), "61");
}

TEST_F(Timeouts, FieldIsFilledAsSoonAsItsKeyIsRead)
{
    box.unset(kAa, "bss2.groupKeyTimeout");
    OruSdkSecTimeoutsParam param{7, 8};
    EXPECT_EQ(oruSdkGetSecTimeouts(&param, 2), 42u);
    EXPECT_LOGGED("Unable to read groupKeyTimeout from config file /var/1x.conf");
    EXPECT_EQ(param.sessionTimeout, 1111);
    EXPECT_EQ(param.groupKeyTimeout, 8);
    box.unset(kAa, "bss2.sessionTimeout");
    param = {7, 8};
    EXPECT_EQ(oruSdkGetSecTimeouts(&param, 2), 42u);
    EXPECT_LOGGED("Unable to read sessionTimeout from config file /var/1x.conf");
    EXPECT_EQ(param.sessionTimeout, 7);
}

std::vector<SweepRow> rows()
{
    const Step open{"oruAsfDictCreate /var/1x.conf", 7,
                    "Unable to read AA Defaults file /var/1x.conf"};
    return {{"SetSecTimeouts",
             nullptr,
             [] {
                 const OruSdkSecTimeoutsParam param{61, 62};
                 return oruSdkSetSecTimeouts(&param, 1);
             },
             {open,
              {"oruAsfDictSetString bss1.sessionTimeout", 25,
               "Unable to write sessionTimeout to dictionary"},
              {"oruAsfDictSetString bss1.groupKeyTimeout", 25,
               "Unable to write groupKeyTimeout to dictionary"},
              {"oruAsfDictSave /var/1x.conf", 8, "Unable to write AA Defaults file /var/1x.conf"}}},
            {"GetSecTimeouts",
             [](AccessPoint &box, StandIn &) {
                 box.set(kAa, "bss1.sessionTimeout", "60");
                 box.set(kAa, "bss1.groupKeyTimeout", "60");
             },
             [] {
                 OruSdkSecTimeoutsParam param{};
                 return oruSdkGetSecTimeouts(&param, 1);
             },
             {open,
              {"oruAsfDictGetInt bss1.sessionTimeout", 42,
               "Unable to read sessionTimeout from config file /var/1x.conf"},
              {"oruAsfDictGetInt bss1.groupKeyTimeout", 42,
               "Unable to read groupKeyTimeout from config file /var/1x.conf"}}}};
}
INSTANTIATE_TEST_SUITE_P(Timeouts, FailureSweep, ::testing::ValuesIn(rows()), rowName);
INSTANTIATE_TEST_SUITE_P(Timeouts, StatusSweep, ::testing::ValuesIn(rows()), rowName);

} // namespace
} // namespace oru::test
