// World mode and the country.
#include "oruSdk.h"
#include "radio/wsm.hpp"
#include "support/sweep.hpp"

#include <gmock/gmock.h>

namespace oru::test {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::SizeIs;

constexpr const char kRadioFailed[] = "getRadioCountryCode() failed";

void configure(const AccessPoint &box, const std::string &flag, const std::string &country)
{
    box.set(kWsm, "worldModeSupport", "1");
    box.set(kWsm, "countryCodeFlag", flag);
    box.setDelimited(kWsm, "countryCode", country);
}

struct WorldMode : AccessPointTest {
    OruSdkWorldModeParam param{77, {'x', 'y', 'z'}};
};

TEST_F(WorldMode, ConfiguredCountryLosesItsThirdLetter)
{
    configure(box, "1", "JPI");
    EXPECT_EQ(oruSdkGetWorldMode(&param), 0u);
    EXPECT_EQ(param.worldModeSupport, 1u);
    EXPECT_THAT(param.countryCode, ElementsAre('J', 'P', '\0'));
    EXPECT_THAT(standIn.sent(), IsEmpty());
    EXPECT_NOTHING_LOGGED();
}

TEST_F(WorldMode, ShortConfiguredCountryIsFollowedByZeros)
{
    for (const std::string country : {"", "J", "JP", "JPIXYZ"}) {
        configure(box, "1", country);
        param = {77, {'x', 'y', 'z'}};
        EXPECT_EQ(oruSdkGetWorldMode(&param), 0u);
        EXPECT_EQ(std::string(param.countryCode), country.substr(0, 2));
        EXPECT_EQ(param.countryCode[2], '\0');
        if (country.empty()) {
            EXPECT_EQ(param.countryCode[1], '\0');
        }
    }
}

TEST_F(WorldMode, AnyOtherFlagTakesTheCountryOfRadio0)
{
    standIn.replyWith(radioReply({{"DEO"}, {"JPI"}}));
    for (const std::string flag : {"0", "2", "-1"}) {
        configure(box, flag, "USI");
        param = {77, {'x', 'y', 'z'}};
        EXPECT_EQ(oruSdkGetWorldMode(&param), 0u);
        EXPECT_THAT(param.countryCode, ElementsAre('D', 'E', '\0')) << flag;
    }
    EXPECT_THAT(standIn.sent(), SizeIs(1)) << "asked once in a process";
}

TEST_F(WorldMode, StoredSupportIsGivenAsItIs)
{
    configure(box, "1", "JP");
    box.set(kWsm, "worldModeSupport", "-3");
    EXPECT_EQ(oruSdkGetWorldMode(&param), 0u);
    EXPECT_EQ(param.worldModeSupport, static_cast<uint32_t>(-3));
}

TEST_F(WorldMode, FieldsReadBeforeAFailureStay)
{
    configure(box, "1", "JP");
    box.unset(kWsm, "countryCodeFlag");
    EXPECT_EQ(oruSdkGetWorldMode(&param), 42u);
    EXPECT_LOGGED("Unable to read countryCodeFlag from config file /var/wsmDefaults");
    EXPECT_EQ(param.worldModeSupport, 1u);
    EXPECT_EQ(param.countryCode[0], 'x');

    box.set(kWsm, "countryCodeFlag", "1");
    box.unset(kWsm, "countryCode");
    EXPECT_EQ(oruSdkGetWorldMode(&param), 42u);
    EXPECT_LOGGED("Unable to read country code from config file /var/wsmDefaults");
    EXPECT_THAT(param.countryCode, ElementsAre('x', 'y', 'z'));
}

TEST_F(WorldMode, SupportIsReadBeforeTheFlag)
{
    box.unset(kWsm, "worldModeSupport");
    box.unset(kWsm, "countryCodeFlag");
    EXPECT_EQ(oruSdkGetWorldMode(&param), 42u);
    EXPECT_LOGGED("Unable to read worldModeSupport from config file /var/wsmDefaults");
    EXPECT_EQ(param.worldModeSupport, 77u);
}

TEST_F(WorldMode, FailureToAskTheRadioIsTold)
{
    configure(box, "0", "USI");
    standIn.failOnly("oruAsfIpcConnect");
    standIn.failAt(1);
    EXPECT_EQ(oruSdkGetWorldMode(&param), 48u);
    EXPECT_ERRORS("IPC Connect failed", "oruSdkGetRadioParam() failed", "getRadioInfo() failed",
                  kRadioFailed);
    EXPECT_EQ(param.countryCode[0], 'x');

    // Never asked again: the country is empty from now on.
    EXPECT_EQ(oruSdkGetWorldMode(&param), 0u);
    EXPECT_THAT(param.countryCode, ElementsAre('\0', '\0', '\0'));
    EXPECT_THAT(standIn.sent(), IsEmpty());
    EXPECT_NOTHING_LOGGED();
}

TEST_F(WorldMode, SetWritesOneKey)
{
    configure(box, "1", "JPI");
    for (const uint32_t support : {0u, 1u}) {
        param.worldModeSupport = support;
        EXPECT_EQ(oruSdkSetWorldMode(&param), 0u);
        EXPECT_EQ(box.value(kWsm, "worldModeSupport"), std::to_string(support));
    }
    EXPECT_EQ(box.value(kWsm, "countryCode"), "JPI");
    EXPECT_EQ(box.value(kWsm, "countryCodeFlag"), "1");
    EXPECT_NOTHING_LOGGED();
}

TEST_F(WorldMode, SetRefusesOtherValuesBeforeTheFileIsLoaded)
{
    const std::string before = box.everything();
    for (const uint32_t support : {2u, 0x80000000u, 0xffffffffu}) {
        param.worldModeSupport = support;
        EXPECT_EQ(oruSdkSetWorldMode(&param), 15u);
        EXPECT_LOGGED("Invalid multiDomainEnabled input");
    }
    EXPECT_THAT(standIn.calls, IsEmpty());
    EXPECT_EQ(box.everything(), before);
}

TEST_F(WorldMode, NullRecordIs2)
{
    EXPECT_EQ(oruSdkGetWorldMode(nullptr), 2u);
    EXPECT_LOGGED("NULL pointer");
    EXPECT_EQ(oruSdkSetWorldMode(nullptr), 2u);
    EXPECT_LOGGED("NULL pointer");
    EXPECT_THAT(standIn.calls, IsEmpty());
}

const Step kLoad{"oruAsfDictCreate /var/wsmDefaults", 7,
                 "Unable to read WSM Defaults file /var/wsmDefaults"};

const std::vector<SweepRow> kRows{
    {"GetWorldMode",
     [](AccessPoint &box, StandIn &) { configure(box, "1", "JPI"); },
     [] {
         OruSdkWorldModeParam param{};
         return oruSdkGetWorldMode(&param);
     },
     {kLoad,
      {"oruAsfDictGetInt worldModeSupport", 42,
       "Unable to read worldModeSupport from config file /var/wsmDefaults"},
      {"oruAsfDictGetInt countryCodeFlag", 42,
       "Unable to read countryCodeFlag from config file /var/wsmDefaults"},
      {"oruAsfDictGetDelimitedString countryCode", 42,
       "Unable to read country code from config file /var/wsmDefaults"}}},
    {"SetWorldMode",
     nullptr,
     [] {
         OruSdkWorldModeParam param{1, {}};
         return oruSdkSetWorldMode(&param);
     },
     {kLoad,
      {"oruAsfDictSetString worldModeSupport", 25,
       "Unable to write worldModeSupport to dictionary"},
      {"oruAsfDictSave /var/wsmDefaults", 8,
       "Unable to write WSM Defaults file /var/wsmDefaults"}}},
};
INSTANTIATE_TEST_SUITE_P(WorldMode, FailureSweep, ::testing::ValuesIn(kRows), rowName);
INSTANTIATE_TEST_SUITE_P(WorldMode, StatusSweep, ::testing::ValuesIn(kRows), rowName);

} // namespace
} // namespace oru::test
