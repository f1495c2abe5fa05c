#include "oruSdk.h"
#include "support/accesspoint.hpp"
#include "support/sweep.hpp"

#include <gmock/gmock.h>

namespace oru::test {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::SizeIs;

/// The security keys of one BSS, all off; a case switches on what it is about.
void clearBss(const AccessPoint &box, int bss)
{
    const std::string prefix = "bss" + std::to_string(bss) + ".";
    for (const char *flag : {"openAccessEnabled", "wpaEnabled", "wepEnabled", "dynWepEnabled"})
        box.set(kAa, prefix + flag, "false");
    box.unset(kAa, prefix + "wpaPsk");
}

struct Commit : AccessPointTest {
    Commit()
    {
        for (int bss = 0; bss < 4; ++bss) {
            clearBss(box, bss);
            box.set(kAa, "bss" + std::to_string(bss) + ".openAccessEnabled", "true");
        }
        box.unset(kAa, "radiusServer.1");
    }

    void useWpa(const char *auth)
    {
        clearBss(box, 2);
        box.set(kAa, "bss2.wpaEnabled", "true");
        box.set(kAa, "bss2.wpaAuthTypes", auth);
        box.set(kAa, "bss2.wpaEncTypes", "0");
        box.set(kAa, "bss2.mixedIeMode", "2");
    }

    void expectRefused(uint32_t code, const std::string &log)
    {
        const std::string before = box.everything();
        EXPECT_EQ(oruSdkCommitAll(), code);
        EXPECT_LOGGED(log);
        EXPECT_THAT(standIn.sent(), IsEmpty());
        EXPECT_EQ(box.everything(), before);
    }

    void expectRefusedAfter(const std::string &warning, uint32_t code, const std::string &log)
    {
        EXPECT_EQ(oruSdkCommitAll(), code);
        ASSERT_THAT(standIn.logTexts(), ElementsAre(warning, log));
        EXPECT_EQ(standIn.logs[0].level, 4);
        EXPECT_EQ(standIn.logs[1].level, 3);
        EXPECT_THAT(standIn.sent(), IsEmpty());
    }
};

TEST_F(Commit, RadioSendsWsmItsNotice)
{
    EXPECT_EQ(oruSdkCommitRadio(), 0u);
    ASSERT_THAT(standIn.sent(), SizeIs(1));
    EXPECT_EQ(standIn.sent()[0].port, 5000002u);
    EXPECT_THAT(standIn.sent()[0].message, ElementsAre(0x01, 0x0C, 0, 4));
}

TEST_F(Commit, AllTellsAaThenWsm)
{
    EXPECT_EQ(oruSdkCommitAll(), 0u);
    ASSERT_THAT(standIn.sent(), SizeIs(2));
    EXPECT_EQ(standIn.sent()[0].port, 5000003u);
    EXPECT_EQ(standIn.sent()[0].host, "localhost");
    EXPECT_EQ(standIn.sent()[0].version, 1001u);
    EXPECT_THAT(standIn.sent()[0].message, ElementsAre(0x29, 0x02, 0, 4));
    EXPECT_EQ(standIn.sent()[1].port, 5000002u);
    EXPECT_THAT(standIn.sent()[1].message, ElementsAre(0x01, 0x0C, 0, 4));
    EXPECT_THAT(standIn.waits(), IsEmpty());
    EXPECT_NOTHING_LOGGED();
}

TEST_F(Commit, FactoryConfigurationPasses)
{
    box.restore();
    EXPECT_EQ(oruSdkCommitAll(), 0u);
    EXPECT_NOTHING_LOGGED();
}

TEST_F(Commit, BssWithoutAnySecurityModeIs80AndNothingIsSent)
{
    clearBss(box, 3);
    expectRefused(80, "No security mode set");
}

TEST_F(Commit, FirstBssThatFailsDecides)
{
    clearBss(box, 1);
    useWpa("1");
    expectRefused(80, "No security mode set");
    EXPECT_THAT(standIn.calls,
                ::testing::Not(::testing::Contains("oruAsfDictGetBool bss2.wpaEnabled")));
}

TEST_F(Commit, StaticWepAloneIsEnough)
{
    clearBss(box, 0);
    box.set(kAa, "bss0.wepEnabled", "true");
    EXPECT_EQ(oruSdkCommitAll(), 0u);
}

TEST_F(Commit, PreSharedKeyMustBeStored)
{
    useWpa("1");
    expectRefused(72, "Unable to read wpaPsk from dictionary");
    for (const char *key : {"", "correct horse"}) { // what it is, is not looked at
        box.setDelimited(kAa, "bss2.wpaPsk", key);
        EXPECT_EQ(oruSdkCommitAll(), 0u);
    }
}

TEST_F(Commit, RadiusAuthenticationNeedsAServer)
{
    useWpa("0");
    expectRefused(81, "No RADIUS servers have been configured");
    box.set(kAa, "radiusServer.1", "10.0.0.1");
    EXPECT_EQ(oruSdkCommitAll(), 0u);
}

TEST_F(Commit, OtherAuthenticationTypesNeedNothingMore)
{
    for (const char *auth : {"2", "-1"}) {
        useWpa(auth);
        EXPECT_EQ(oruSdkCommitAll(), 0u);
    }
}

TEST_F(Commit, WpaIsCheckedOnAnOpenBssTooAndBeforeTheServerOfDynamicWep)
{
    useWpa("1");
    box.set(kAa, "bss2.openAccessEnabled", "true");
    box.set(kAa, "bss2.dynWepEnabled", "true");
    expectRefused(72, "Unable to read wpaPsk from dictionary");
    box.setDelimited(kAa, "bss2.wpaPsk", "correct horse");
    expectRefused(81, "No RADIUS servers have been configured");
}

TEST_F(Commit, WpaTypesMustBeThere)
{
    useWpa("2");
    box.unset(kAa, "bss2.wpaEncTypes");
    expectRefused(74, "Unable to read wpaEncTypes from dictionary");
    box.unset(kAa, "bss2.wpaAuthTypes");
    expectRefused(73, "Unable to read wpaAuthTypes from dictionary");
}

TEST_F(Commit, MissingMixedIeModeIsOnlyAWarning)
{
    useWpa("2");
    box.unset(kAa, "bss2.mixedIeMode");
    EXPECT_EQ(oruSdkCommitAll(), 0u);
    EXPECT_LOGGED_AT(4, "Unable to read mixedIeMode from dictionary, set to 1");
}

TEST_F(Commit, MissingMixedIeModeIsToldBeforeAMissingServer)
{
    useWpa("0");
    box.unset(kAa, "bss2.mixedIeMode");
    expectRefusedAfter("Unable to read mixedIeMode from dictionary, set to 1", 81,
                       "No RADIUS servers have been configured");
}

TEST_F(Commit, MixedIeModeIsReadWithFlag1)
{
    useWpa("2");
    EXPECT_EQ(oruSdkCommitAll(), 0u);
    EXPECT_THAT(standIn.calls, ::testing::Contains("oruAsfDictGetInt bss2.mixedIeMode flag"));
}

TEST_F(Commit, OpenBssReadsNoWpaTypes)
{
    box.unset(kAa, "bss1.wpaAuthTypes");
    EXPECT_EQ(oruSdkCommitAll(), 0u);
    EXPECT_THAT(standIn.calls,
                ::testing::Not(::testing::Contains("oruAsfDictGetInt bss1.wpaAuthTypes")));
}

TEST_F(Commit, DynamicWepNeedsARadiusServerEvenOnAnOpenBss)
{
    box.set(kAa, "bss1.dynWepEnabled", "true");
    expectRefused(81, "No RADIUS servers have been configured");
    clearBss(box, 1);
    box.set(kAa, "bss1.dynWepEnabled", "true");
    expectRefused(81, "No RADIUS servers have been configured");
    box.set(kAa, "radiusServer.1", "10.0.0.1");
    EXPECT_EQ(oruSdkCommitAll(), 0u);
}

TEST_F(Commit, OnlyTheFirstRadiusServerIsLookedAt)
{
    useWpa("0");
    box.set(kAa, "radiusServer.2", "10.0.0.2");
    expectRefused(81, "No RADIUS servers have been configured");
}

TEST_F(Commit, OtherKeyOfDynamicWepIsNotLookedAt)
{
    box.set(kAa, "bss1.dynamicWepEnabled", "true");
    EXPECT_EQ(oruSdkCommitAll(), 0u);
}

TEST_F(Commit, MissingDynamicWepFlagIsTakenAsOff)
{
    box.unset(kAa, "bss1.dynWepEnabled");
    EXPECT_EQ(oruSdkCommitAll(), 0u);
    EXPECT_LOGGED_AT(4, "Unable to read dynamicWepEnabled from dictionary, set to 0");
}

TEST_F(Commit, MissingDynamicWepFlagIsNoSecurityMode)
{
    clearBss(box, 1);
    box.unset(kAa, "bss1.dynWepEnabled");
    expectRefusedAfter("Unable to read dynamicWepEnabled from dictionary, set to 0", 80,
                       "No security mode set");
}

TEST_F(Commit, HostProgramMayNameAnotherAa)
{
    authPort = 9;
    EXPECT_EQ(oruSdkCommitAll(), 0u);
    EXPECT_EQ(standIn.sent()[0].port, 9u);
    EXPECT_EQ(standIn.sent()[1].port, 5000002u);
    EXPECT_EQ(authPort, 9u);
    authPort = 5000003;
}

TEST_F(Commit, MissingFlagsAre26)
{
    box.unset(kAa, "bss0.wepEnabled");
    expectRefused(26, "Unable to read wepEnabled from dictionary");
    box.unset(kAa, "bss0.wpaEnabled");
    expectRefused(26, "Unable to read wpaEnabled from dictionary");
    box.unset(kAa, "bss0.openAccessEnabled");
    expectRefused(26, "Unable to read openAccessEnabled dictionary");
}

TEST_F(Commit, MissingFileIs7)
{
    box.remove(kAa);
    expectRefused(7, "Unable to read AA Defaults file /var/1x.conf");
}

TEST_F(Commit, OnlyMinusOneCountsAsAFailedReadOfTheWpaTypes)
{
    useWpa("2");
    standIn.failOnly("oruAsfDictGetInt");
    standIn.failAt(1, -2);
    EXPECT_EQ(oruSdkCommitAll(), 81u); // the type stays 0, which asks for a RADIUS server
    EXPECT_LOGGED("No RADIUS servers have been configured");
    standIn.failAt(2, 5);
    EXPECT_EQ(oruSdkCommitAll(), 0u);
    standIn.failAt(3, 5);
    EXPECT_EQ(oruSdkCommitAll(), 0u);
    EXPECT_NOTHING_LOGGED();
}

TEST_F(Commit, ServicesThatAreDownChangeNothing)
{
    for (const char *call : {"oruAsfIpcOpen", "oruAsfIpcConnect", "oruAsfIpcSend"}) {
        const std::string text = std::string("IPC ") + (call + 9) + " failed";
        standIn.failOnly(call);
        standIn.failAt(1); // AA
        EXPECT_EQ(oruSdkCommitAll(), 0u);
        EXPECT_LOGGED(text);
        EXPECT_THAT(standIn.sent(), SizeIs(1));
        EXPECT_EQ(standIn.sent()[0].port, 5000002u);
        standIn.reset();
        standIn.failOnly(call);
        standIn.failAt(2); // WSM
        EXPECT_EQ(oruSdkCommitAll(), 0u);
        EXPECT_LOGGED(text);
        EXPECT_EQ(standIn.sent()[0].port, 5000003u);
        standIn.reset();
        standIn.failOnly(call);
        standIn.failAt(1);
        EXPECT_EQ(oruSdkCommitRadio(), 0u);
        EXPECT_LOGGED(text);
        standIn.reset();
    }
}

/// The reads of a BSS that come first.
std::vector<Step> flagSteps(int bss)
{
    const std::string prefix = "oruAsfDictGetBool bss" + std::to_string(bss) + ".";
    return {{prefix + "openAccessEnabled", 26, "Unable to read openAccessEnabled dictionary"},
            {prefix + "wpaEnabled", 26, "Unable to read wpaEnabled from dictionary"},
            {prefix + "wepEnabled", 26, "Unable to read wepEnabled from dictionary"},
            {prefix + "dynWepEnabled", 0,
             "Unable to read dynamicWepEnabled from dictionary, set to 0", 4}};
}

std::vector<SweepRow> rows()
{
    std::vector<Step> all{
        {"oruAsfDictCreate /var/1x.conf", 7, "Unable to read AA Defaults file /var/1x.conf"}};
    for (int bss = 0; bss < 4; ++bss) {
        const std::vector<Step> flags = flagSteps(bss);
        all.insert(all.end(), flags.begin(), flags.end());
        if (bss == 2)
            all.insert(all.end(), {{.call = "oruAsfDictGetInt bss2.wpaAuthTypes",
                                    .code = 73,
                                    .log = "Unable to read wpaAuthTypes from dictionary",
                                    .onlyMinus1 = true},
                                   {.call = "oruAsfDictGetInt bss2.wpaEncTypes",
                                    .code = 74,
                                    .log = "Unable to read wpaEncTypes from dictionary",
                                    .onlyMinus1 = true},
                                   {.call = "oruAsfDictGetInt bss2.mixedIeMode flag",
                                    .code = 0,
                                    .log = "Unable to read mixedIeMode from dictionary, set to 1",
                                    .level = 4,
                                    .onlyMinus1 = true},
                                   {"oruAsfDictGetDelimitedString bss2.wpaPsk", 72,
                                    "Unable to read wpaPsk from dictionary"}});
        if (bss == 3)
            all.push_back({"oruAsfDictGetString radiusServer.1", 81,
                           "No RADIUS servers have been configured"});
    }
    for (const char *service : {"5000003", "5000002"})
        all.insert(all.end(),
                   {{"oruAsfIpcOpen", 0, "IPC Open failed"},
                    {std::string("oruAsfIpcConnect ") + service, 0, "IPC Connect failed"},
                    {"oruAsfIpcSend", 0, "IPC Send failed"}});
    const auto prepare = [](AccessPoint &box, StandIn &) {
        for (int bss = 0; bss < 4; ++bss) {
            clearBss(box, bss);
            box.set(kAa, "bss" + std::to_string(bss) + ".openAccessEnabled",
                    bss < 2 ? "true" : "false");
        }
        box.set(kAa, "bss2.wpaEnabled", "true");
        box.set(kAa, "bss2.wpaAuthTypes", "1");
        box.set(kAa, "bss2.wpaEncTypes", "0");
        box.set(kAa, "bss2.mixedIeMode", "2");
        box.setDelimited(kAa, "bss2.wpaPsk", "correct horse");
        box.set(kAa, "bss3.wepEnabled", "true");
        box.set(kAa, "bss3.dynWepEnabled", "true");
        box.set(kAa, "radiusServer.1", "10.0.0.1");
    };
    return {{"CommitAll", prepare, [] { return oruSdkCommitAll(); }, all},
            {"CommitRadio",
             nullptr,
             [] { return oruSdkCommitRadio(); },
             {{"oruAsfIpcOpen", 0, "IPC Open failed"},
              {"oruAsfIpcConnect 5000002", 0, "IPC Connect failed"},
              {"oruAsfIpcSend", 0, "IPC Send failed"}}}};
}
INSTANTIATE_TEST_SUITE_P(Commit, FailureSweep, ::testing::ValuesIn(rows()), rowName);
INSTANTIATE_TEST_SUITE_P(Commit, StatusSweep, ::testing::ValuesIn(rows()), rowName);

} // namespace
} // namespace oru::test
