#include "oruSdk.h"
#include "support/accesspoint.hpp"
#include "support/sweep.hpp"

#include <gmock/gmock.h>

#include <cstring>

namespace oru::test {
namespace {

using ::testing::Contains;
using ::testing::IsEmpty;
using ::testing::Not;

/// A BSS with every security mode off.
void clearBss(const AccessPoint &box, const std::string &prefix = "bss1.")
{
    for (const char *flag : {"openAccessEnabled", "wpaEnabled", "wepEnabled", "dynamicWepEnabled"})
        box.set(kAa, prefix + flag, "false");
    for (const char *key : {"wpaAuthTypes", "wpaEncTypes", "mixedIeMode"})
        box.set(kAa, prefix + key, "1");
    box.unset(kAa, "radiusServer.1");
    box.setDelimited(kWsm, prefix + "ssId", "Lobby");
    box.set(kWsm, prefix + "suppressSSIDFlag", "1");
}

struct BssInfo : AccessPointTest {
    OruSdkBssInfoParam info;

    BssInfo()
    {
        std::memset(&info, '?', sizeof info);
        info.bssIndex = 1;
        clearBss(box);
    }

    void on(const char *flag) { box.set(kAa, std::string("bss1.") + flag, "true"); }

    void expectMode(const std::string &text)
    {
        EXPECT_EQ(oruSdkGetBssInfoParam(&info), 0u);
        EXPECT_STREQ(info.ssid, "Lobby");
        EXPECT_EQ(info.suppressSsid, 1u);
        EXPECT_STREQ(info.securityMode, text.c_str());
        if (text.size() + 1 < sizeof info.securityMode) {
            EXPECT_EQ(info.securityMode[text.size() + 1], '?');
        }
        EXPECT_NOTHING_LOGGED();
        std::memset(info.securityMode, '?', sizeof info.securityMode);
    }

    void expectRefused(uint32_t code, const std::string &log)
    {
        EXPECT_EQ(oruSdkGetBssInfoParam(&info), code);
        EXPECT_LOGGED(log);
        EXPECT_EQ(std::string(info.securityMode, 12), std::string(12, '?'));
    }
};

TEST_F(BssInfo, OpenComesFirstThenWepThenWpa)
{
    on("wpaEnabled");
    expectMode("WPA ");
    on("wepEnabled");
    expectMode("WEP Mode");
    on("openAccessEnabled");
    expectMode("OPEN Mode");
}

TEST_F(BssInfo, EachModeAloneHasItsText)
{
    on("openAccessEnabled");
    expectMode("OPEN Mode");
    box.set(kAa, "bss1.openAccessEnabled", "false");
    on("wepEnabled");
    expectMode("WEP Mode");
}

TEST_F(BssInfo, MixedIeModeNamesTheKindOfWpa)
{
    on("wpaEnabled");
    for (const auto &[mode, text] :
         std::vector<std::pair<std::string, std::string>>{{"1", "WPA "},
                                                          {"2", "WPA2 "},
                                                          {"3", "WPA + WPA2 "},
                                                          {"0", "UnKNown"},
                                                          {"4", "UnKNown"},
                                                          {"-1", "UnKNown"},
                                                          {"257", "UnKNown"}}) {
        box.set(kAa, "bss1.mixedIeMode", mode);
        expectMode(text);
    }
}

TEST_F(BssInfo, MissingMixedIeModeIsTakenAs1WithAWarning)
{
    on("wpaEnabled");
    box.unset(kAa, "bss1.mixedIeMode");
    EXPECT_EQ(oruSdkGetBssInfoParam(&info), 0u);
    EXPECT_LOGGED_AT(4, "Unable to read mixedIeMode from dictionary, set to 1");
    EXPECT_STREQ(info.securityMode, "WPA ");
}

TEST_F(BssInfo, WithoutOneOfTheModesTheTextIsLeft)
{
    EXPECT_EQ(oruSdkGetBssInfoParam(&info), 0u);
    EXPECT_EQ(std::string(info.securityMode, 12), std::string(12, '?'));
    on("dynamicWepEnabled");
    box.set(kAa, "radiusServer.1", "10.0.0.1");
    EXPECT_EQ(oruSdkGetBssInfoParam(&info), 0u);
    EXPECT_EQ(std::string(info.securityMode, 12), std::string(12, '?'));
    EXPECT_NOTHING_LOGGED();
}

TEST_F(BssInfo, MissingDynamicWepFlagIsTakenAsOff)
{
    on("openAccessEnabled");
    box.unset(kAa, "bss1.dynamicWepEnabled");
    EXPECT_EQ(oruSdkGetBssInfoParam(&info), 0u);
    EXPECT_LOGGED_AT(4, "Unable to read dynamicWepEnabled from dictionary, set to 0");
    EXPECT_STREQ(info.securityMode, "OPEN Mode");
}

TEST_F(BssInfo, RadiusAuthenticationNeedsAServerAndTheFirstFieldsAreFilled)
{
    on("wpaEnabled");
    box.set(kAa, "bss1.wpaAuthTypes", "0");
    box.set(kAa, "radiusServer.2", "10.0.0.2");
    expectRefused(81, "No RADIUS servers have been configured");
    EXPECT_STREQ(info.ssid, "Lobby");
    EXPECT_EQ(info.suppressSsid, 1u);
    box.set(kAa, "radiusServer.1", "10.0.0.1");
    expectMode("WPA ");
}

TEST_F(BssInfo, OtherAuthenticationTypesNeedNoServer)
{
    on("wpaEnabled");
    for (const char *auth : {"1", "2", "-1", "256"}) {
        box.set(kAa, "bss1.wpaAuthTypes", auth);
        expectMode("WPA ");
    }
}

TEST_F(BssInfo, DynamicWepNeedsAServerEvenOnAnOpenBss)
{
    on("dynamicWepEnabled");
    on("openAccessEnabled");
    expectRefused(81, "No RADIUS servers have been configured");
    box.set(kAa, "radiusServer.1", "10.0.0.1");
    expectMode("OPEN Mode");
}

TEST_F(BssInfo, OtherKeyOfDynamicWepIsNotLookedAt)
{
    on("openAccessEnabled");
    box.set(kAa, "bss1.dynWepEnabled", "true");
    expectMode("OPEN Mode");
}

TEST_F(BssInfo, WpaTypesAreReadWithWpaAlone)
{
    box.unset(kAa, "bss1.wpaAuthTypes");
    on("wepEnabled");
    expectMode("WEP Mode");
    on("wpaEnabled");
    expectRefused(73, "Unable to read wpaAuthTypes from dictionary");
    box.set(kAa, "bss1.wpaAuthTypes", "1");
    box.unset(kAa, "bss1.wpaEncTypes");
    expectRefused(74, "Unable to read wpaEncTypes from dictionary");
}

TEST_F(BssInfo, OnlyMinusOneCountsAsAFailedReadOfTheWpaTypes)
{
    on("wpaEnabled");
    standIn.failOnly("oruAsfDictGetInt");
    standIn.failAt(2, 5);                                        // the first is the hidden SSID's
    expectRefused(81, "No RADIUS servers have been configured"); // the type stays 0
    standIn.failAt(3, -2);
    expectMode("WPA ");
    standIn.failAt(4, 5);
    expectMode("UnKNown");
}

TEST_F(BssInfo, MissingFlagsAre26)
{
    box.unset(kAa, "bss1.wepEnabled");
    expectRefused(26, "Unable to read wepEnabled from dictionary");
    box.set(kAa, "bss1.wpaEnabled", "1");
    expectRefused(26, "Unable to read wpaEnabled from dictionary");
    box.unset(kAa, "bss1.openAccessEnabled");
    expectRefused(26, "Unable to read openAccessEnabled dictionary");
}

TEST_F(BssInfo, SsidOf32CharactersPassesAnd33Is23)
{
    on("openAccessEnabled");
    box.setDelimited(kWsm, "bss1.ssId", std::string(32, 's'));
    EXPECT_EQ(oruSdkGetBssInfoParam(&info), 0u);
    EXPECT_EQ(info.ssid, std::string(32, 's'));
    std::memset(&info, '?', sizeof info);
    info.bssIndex = 1;
    for (const size_t length : {33, 400}) {
        box.setDelimited(kWsm, "bss1.ssId", std::string(length, 's'));
        expectRefused(23, "Invalid SSID length: " + std::to_string(length));
        EXPECT_EQ(info.ssid[0], '?');
    }
}

TEST_F(BssInfo, LengthOfTheSsidComesBeforeTheHiddenFlag)
{
    box.setDelimited(kWsm, "bss1.ssId", std::string(33, 's'));
    box.unset(kWsm, "bss1.suppressSSIDFlag");
    expectRefused(23, "Invalid SSID length: 33");
    EXPECT_THAT(standIn.calls, Not(Contains("oruAsfDictGetInt bss1.suppressSSIDFlag")));
}

TEST_F(BssInfo, BytesBetweenTheFieldsAreLeft)
{
    on("openAccessEnabled");
    EXPECT_EQ(oruSdkGetBssInfoParam(&info), 0u);
    const auto *bytes = reinterpret_cast<const char *>(&info);
    EXPECT_EQ(bytes[36], '\0');
    EXPECT_EQ(std::string(bytes + 37, 3), "???");
}

TEST_F(BssInfo, EmptySsidIsGiven)
{
    on("openAccessEnabled");
    box.setDelimited(kWsm, "bss1.ssId", "");
    EXPECT_EQ(oruSdkGetBssInfoParam(&info), 0u);
    EXPECT_STREQ(info.ssid, "");
}

TEST_F(BssInfo, MissingIdentityIs42)
{
    box.unset(kWsm, "bss1.suppressSSIDFlag");
    expectRefused(42, "Unable to read bss1.suppressSSIDFlag from config file /var/wsmDefaults");
    EXPECT_STREQ(info.ssid, "Lobby");
    EXPECT_EQ(info.suppressSsid, 0x3f3f3f3fu);
    box.unset(kWsm, "bss1.ssId");
    info.ssid[0] = '?';
    expectRefused(42, "Unable to read ssid from config file /var/wsmDefaults");
    EXPECT_EQ(info.ssid[0], '?');
    EXPECT_THAT(standIn.calls, Not(Contains("oruAsfDictGetBool bss1.openAccessEnabled")));
}

TEST_F(BssInfo, BssAbove3Is115BeforeAnythingIsOpened)
{
    for (const int32_t bss : {4, INT32_MAX}) {
        info.bssIndex = bss;
        expectRefused(115, "Invalid bss number ID: " + std::to_string(bss));
    }
    EXPECT_EQ(oruSdkGetBssInfoParam(nullptr), 2u);
    EXPECT_LOGGED("NULL pointer");
    EXPECT_THAT(standIn.calls, IsEmpty());
}

TEST_F(BssInfo, Bss0And3AreAccepted)
{
    for (const int32_t bss : {0, 3}) {
        const std::string prefix = "bss" + std::to_string(bss) + ".";
        clearBss(box, prefix);
        box.set(kAa, prefix + "wepEnabled", "true");
        info.bssIndex = bss;
        expectMode("WEP Mode");
    }
}

TEST_F(BssInfo, NegativeBssFormsItsKeysWithTheSign)
{
    clearBss(box, "bss-1.");
    box.set(kAa, "bss-1.wepEnabled", "true");
    info.bssIndex = -1;
    expectMode("WEP Mode");
}

TEST_F(BssInfo, NothingIsWritten)
{
    on("wpaEnabled");
    const std::string before = box.everything();
    expectMode("WPA ");
    EXPECT_EQ(box.everything(), before);
    EXPECT_THAT(standIn.sent(), IsEmpty());
}

Step onMinusOneAlone(Step step)
{
    step.onlyMinus1 = true;
    return step;
}

std::vector<SweepRow> rows()
{
    return {
        {"GetBssInfoParam",
         [](AccessPoint &box, StandIn &) {
             clearBss(box);
             box.set(kAa, "bss1.wpaEnabled", "true");
             box.set(kAa, "bss1.wpaAuthTypes", "0");
             box.set(kAa, "bss1.dynamicWepEnabled", "true");
             box.set(kAa, "radiusServer.1", "10.0.0.1");
         },
         [] {
             OruSdkBssInfoParam info{};
             info.bssIndex = 1;
             return oruSdkGetBssInfoParam(&info);
         },
         {{"oruAsfDictCreate /var/1x.conf", 7, "Unable to read AA Defaults file /var/1x.conf"},
          {"oruAsfDictCreate /var/wsmDefaults", 7,
           "Unable to read WSM Default file /var/wsmDefaults"},
          {"oruAsfDictGetDelimitedString bss1.ssId", 42,
           "Unable to read ssid from config file /var/wsmDefaults"},
          {"oruAsfDictGetInt bss1.suppressSSIDFlag", 42,
           "Unable to read bss1.suppressSSIDFlag from config file /var/wsmDefaults"},
          {"oruAsfDictGetBool bss1.openAccessEnabled", 26,
           "Unable to read openAccessEnabled dictionary"},
          {"oruAsfDictGetBool bss1.wpaEnabled", 26, "Unable to read wpaEnabled from dictionary"},
          {"oruAsfDictGetBool bss1.wepEnabled", 26, "Unable to read wepEnabled from dictionary"},
          {"oruAsfDictGetBool bss1.dynamicWepEnabled", 0,
           "Unable to read dynamicWepEnabled from dictionary, set to 0", 4},
          onMinusOneAlone({"oruAsfDictGetInt bss1.wpaAuthTypes", 73,
                           "Unable to read wpaAuthTypes from dictionary"}),
          onMinusOneAlone({"oruAsfDictGetInt bss1.wpaEncTypes", 74,
                           "Unable to read wpaEncTypes from dictionary"}),
          onMinusOneAlone({"oruAsfDictGetInt bss1.mixedIeMode flag", 0,
                           "Unable to read mixedIeMode from dictionary, set to 1", 4}),
          {"oruAsfDictGetString radiusServer.1", 81, "No RADIUS servers have been configured"},
          {"oruAsfDictGetString radiusServer.1", 81, "No RADIUS servers have been configured"}}}};
}
INSTANTIATE_TEST_SUITE_P(BssInfo, FailureSweep, ::testing::ValuesIn(rows()), rowName);
INSTANTIATE_TEST_SUITE_P(BssInfo, StatusSweep, ::testing::ValuesIn(rows()), rowName);

} // namespace
} // namespace oru::test
