#include "oruSdk.h"
#include "support/accesspoint.hpp"
#include "support/sweep.hpp"

#include <gmock/gmock.h>

namespace oru::test {
namespace {

using ::testing::IsEmpty;

// ---- Suppressed SSID

struct SuppressSsid : AccessPointTest {};

TEST_F(SuppressSsid, Both0And1RoundTripForEveryBss)
{
    for (uint32_t bss = 0; bss < 4; ++bss)
        for (const uint32_t suppress : {1u, 0u}) {
            OruSdkSuppressSsidParam param{bss, suppress};
            EXPECT_EQ(oruSdkSetSuppressSsid(&param), 0u);
            EXPECT_EQ(box.value(kWsm, "bss" + std::to_string(bss) + ".suppressSSIDFlag"),
                      std::to_string(suppress));
            OruSdkSuppressSsidParam read{bss, 99};
            EXPECT_EQ(oruSdkGetSuppressSsid(&read), 0u);
            EXPECT_EQ(read.suppress, suppress);
        }
    EXPECT_NOTHING_LOGGED();
}

TEST_F(SuppressSsid, SetterChecksRecordThenBssThenFlagBeforeTheFile)
{
    box.remove(kWsm);
    EXPECT_EQ(oruSdkSetSuppressSsid(nullptr), 2u);
    EXPECT_LOGGED("NULL pointer");
    OruSdkSuppressSsidParam param{4, 2};
    EXPECT_EQ(oruSdkSetSuppressSsid(&param), 115u);
    EXPECT_LOGGED("Invalid bss number : 4");
    param = {UINT32_MAX, 0}; // unsigned: no negative numbers
    EXPECT_EQ(oruSdkSetSuppressSsid(&param), 115u);
    EXPECT_LOGGED("Invalid bss number : -1");
    param = {3, 2};
    EXPECT_EQ(oruSdkSetSuppressSsid(&param), 47u);
    EXPECT_LOGGED("Invalid Activation Flag 2 for bss3.suppressSSIDFlag");
    param = {3, UINT32_MAX};
    EXPECT_EQ(oruSdkSetSuppressSsid(&param), 47u);
    EXPECT_LOGGED("Invalid Activation Flag -1 for bss3.suppressSSIDFlag");
    EXPECT_THAT(standIn.calls, IsEmpty());
    param = {3, 1};
    EXPECT_EQ(oruSdkSetSuppressSsid(&param), 7u);
    EXPECT_LOGGED("Unable to read WSM Defaults file /var/wsmDefaults");
}

TEST_F(SuppressSsid, RefusedFlagChangesNothing)
{
    const std::string before = box.everything();
    OruSdkSuppressSsidParam param{1, 2};
    EXPECT_EQ(oruSdkSetSuppressSsid(&param), 47u);
    EXPECT_EQ(box.everything(), before);
}

TEST_F(SuppressSsid, ReaderChecksRecordThenBss)
{
    EXPECT_EQ(oruSdkGetSuppressSsid(nullptr), 2u);
    EXPECT_LOGGED("NULL pointer");
    for (const uint32_t bss : {4u, UINT32_MAX}) {
        OruSdkSuppressSsidParam param{bss, 9};
        EXPECT_EQ(oruSdkGetSuppressSsid(&param), 115u);
        EXPECT_LOGGED("Invalid bss number ID: " + std::to_string(static_cast<int32_t>(bss)));
        EXPECT_EQ(param.suppress, 9u);
    }
    EXPECT_THAT(standIn.calls, IsEmpty());
}

TEST_F(SuppressSsid, ReaderPassesAnyNumberAndLeavesTheFieldOtherwise)
{
    OruSdkSuppressSsidParam param{1, 9};
    box.set(kWsm, "bss1.suppressSSIDFlag", "-7");
    EXPECT_EQ(oruSdkGetSuppressSsid(&param), 0u);
    EXPECT_EQ(param.suppress, static_cast<uint32_t>(-7));
    box.unset(kWsm, "bss1.suppressSSIDFlag");
    EXPECT_EQ(oruSdkGetSuppressSsid(&param), 42u);
    EXPECT_LOGGED("Unable to read bss1.suppressSSIDFlag from config file /var/wsmDefaults");
    EXPECT_EQ(param.suppress, static_cast<uint32_t>(-7));
}

// ---- Relay within a BSS and among BSSes

struct Relay {
    const char *prefix;
    const char *suffix;
    uint32_t (*set)(int32_t, int32_t);
    uint32_t (*get)(int32_t, uint32_t *);
    const char *readLog;

    std::string key(int32_t index) const { return prefix + std::to_string(index) + suffix; }
};

struct RelayTest : AccessPointTest, ::testing::WithParamInterface<Relay> {};

TEST_P(RelayTest, AnyNumberRoundTripsUnderAnyIndex)
{
    const Relay &relay = GetParam();
    for (const int32_t index : {0, 1, 3, 4, 7, -1, INT32_MIN, INT32_MAX})
        for (const int32_t value : {0, 1, 2, -1, INT32_MIN, INT32_MAX}) {
            EXPECT_EQ(relay.set(index, value), 0u);
            EXPECT_EQ(box.value(kWsm, relay.key(index)), std::to_string(value));
            uint32_t read = 99;
            EXPECT_EQ(relay.get(index, &read), 0u);
            EXPECT_EQ(read, static_cast<uint32_t>(value));
        }
    EXPECT_NOTHING_LOGGED();
}

TEST_P(RelayTest, OnlyItsOwnKeyChanges)
{
    const Relay &relay = GetParam();
    box.set(kWsm, relay.key(1), "5");
    const std::string before = box.everything();
    box.set(kWsm, relay.key(1), "0");
    EXPECT_EQ(relay.set(1, 5), 0u);
    EXPECT_EQ(box.everything(), before);
}

TEST_P(RelayTest, NullIs2BeforeTheFile)
{
    EXPECT_EQ(GetParam().get(0, nullptr), 2u);
    EXPECT_LOGGED("NULL pointer");
    EXPECT_THAT(standIn.calls, IsEmpty());
}

TEST_P(RelayTest, FailedReadGivesTheStatusOfTheSupportLibrary)
{
    const Relay &relay = GetParam();
    box.unset(kWsm, relay.key(1));
    uint32_t read = 99;
    EXPECT_EQ(relay.get(1, &read), UINT32_MAX);
    EXPECT_LOGGED(relay.readLog);
    for (const int32_t status : {-1, -7, 3}) {
        standIn.failOnly("oruAsfDictGetInt");
        standIn.failAt(1, status);
        EXPECT_EQ(relay.get(0, &read), static_cast<uint32_t>(status));
        EXPECT_LOGGED(relay.readLog);
    }
    EXPECT_EQ(read, 99u);
}

constexpr Relay kRelays[] = {
    {"bss", ".IntraBSS", oruSdkSetIntraBss, oruSdkGetIntraBss,
     "Unable to read intra Bss status from config file /var/wsmDefaults"},
    {"InterBSS.radio", "", oruSdkSetInterBss, oruSdkGetInterBss,
     "Unable to read inter Bss status from config file"},
};
INSTANTIATE_TEST_SUITE_P(Relay, RelayTest, ::testing::ValuesIn(kRelays),
                         [](const auto &info) { return info.index == 0 ? "Intra" : "Inter"; });

// ---- Each call failing

std::vector<SweepRow> rows()
{
    const Step open{"oruAsfDictCreate /var/wsmDefaults", 7,
                    "Unable to read WSM Defaults file /var/wsmDefaults"};
    const Step save{"oruAsfDictSave /var/wsmDefaults", 8,
                    "Unable to write WSM Defaults file /var/wsmDefaults"};
    const char *fixedRate = "Unable to write fixedRate to dictionary";
    static uint32_t value;
    return {{"SetSuppressSsid",
             nullptr,
             [] {
                 OruSdkSuppressSsidParam param{1, 1};
                 return oruSdkSetSuppressSsid(&param);
             },
             {open,
              {"oruAsfDictSetString bss1.suppressSSIDFlag", 25,
               "Unable to write bss1.suppressSSIDFlag to dictionary"},
              save}},
            {"GetSuppressSsid",
             nullptr,
             [] {
                 OruSdkSuppressSsidParam param{1, 1};
                 return oruSdkGetSuppressSsid(&param);
             },
             {open,
              {"oruAsfDictGetInt bss1.suppressSSIDFlag", 42,
               "Unable to read bss1.suppressSSIDFlag from config file /var/wsmDefaults"}}},
            {"SetIntraBss",
             nullptr,
             [] { return oruSdkSetIntraBss(1, 9); },
             {open, {"oruAsfDictSetString bss1.IntraBSS", 25, fixedRate}, save}},
            {"GetIntraBss",
             nullptr,
             [] { return oruSdkGetIntraBss(1, &value); },
             {open,
              {"oruAsfDictGetInt bss1.IntraBSS", UINT32_MAX,
               "Unable to read intra Bss status from config file /var/wsmDefaults"}}},
            {"SetInterBss",
             nullptr,
             [] { return oruSdkSetInterBss(1, 9); },
             {open, {"oruAsfDictSetString InterBSS.radio1", 25, fixedRate}, save}},
            {"GetInterBss",
             nullptr,
             [] { return oruSdkGetInterBss(1, &value); },
             {open,
              {"oruAsfDictGetInt InterBSS.radio1", UINT32_MAX,
               "Unable to read inter Bss status from config file"}}}};
}
INSTANTIATE_TEST_SUITE_P(Relay, FailureSweep, ::testing::ValuesIn(rows()), rowName);
INSTANTIATE_TEST_SUITE_P(Relay, StatusSweep, ::testing::ValuesIn(rows()), rowName);

} // namespace
} // namespace oru::test
