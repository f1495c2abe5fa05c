#include "oruSdk.h"
#include "support/accesspoint.hpp"
#include "support/sweep.hpp"

#include <gmock/gmock.h>

#include <functional>

namespace oru::test {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::Not;

/// BSS 2 without any security mode, on a radio in a mode that allows all of them.
void prepare(AccessPoint &box, StandIn &)
{
    box.set(kWsm, "dot11Mode", "4");
    for (const char *key : {"bss2.openAccessEnabled", "bss2.wepEnabled", "bss2.wpaEnabled"})
        box.set(kAa, key, "false");
    for (const char *key : {"bss2.mixedIeMode", "bss2.wpaAuthTypes", "bss2.wpaEncTypes"})
        box.set(kAa, key, "77");
    for (const char *key : {"bss2.BpRSNFlag", "bss2.BpPskFlag", "bss2.wpsstate"})
        box.set(kWsm, key, "77");
}

struct SecurityMode : AccessPointTest {
    SecurityMode() { prepare(box, standIn); }

    std::string aa(const std::string &key) const { return box.value(kAa, key).value_or("-"); }
    std::string wsm(const std::string &key) const { return box.value(kWsm, key).value_or("-"); }

    /// A call that is refused with one line and changes nothing.
    void expectRefused(const std::function<uint32_t()> &call, uint32_t code, const std::string &log)
    {
        const std::string before = box.everything();
        EXPECT_EQ(call(), code);
        EXPECT_LOGGED(log);
        EXPECT_EQ(box.everything(), before);
    }
};

// ---- Open access

struct SecModeOpen : SecurityMode {};

TEST_F(SecModeOpen, OnWritesItsFlagAndClearsTheRadioSide)
{
    EXPECT_EQ(oruSdkSetSecModeOpen(2, 1), 0u);
    EXPECT_EQ(aa("bss2.openAccessEnabled"), "true");
    EXPECT_EQ(wsm("bss2.BpRSNFlag"), "0");
    EXPECT_EQ(wsm("bss2.BpPskFlag"), "77");
    EXPECT_EQ(wsm("bss2.wpsstate"), "77");
    EXPECT_NOTHING_LOGGED();
    uint32_t enabled = 9;
    EXPECT_EQ(oruSdkGetSecModeOpen(2, &enabled), 0u);
    EXPECT_EQ(enabled, 1u);
}

TEST_F(SecModeOpen, OffAlwaysSucceedsAndTouchesNothingElse)
{
    const std::string radios = box.read(kWsm);
    const std::string before = box.everything();
    for (const char *flag : {"bss2.wepEnabled", "bss2.wpaEnabled"}) box.set(kAa, flag, "true");
    box.set(kAa, "bss2.openAccessEnabled", "true");
    box.set(kWsm, "dot11Mode", "9");
    standIn.calls.clear();
    EXPECT_EQ(oruSdkSetSecModeOpen(2, 0), 0u);
    EXPECT_THAT(standIn.calls,
                ElementsAre("oruAsfDictCreate /var/1x.conf", "oruAsfDictCreate /var/wsmDefaults",
                            "oruAsfDictSetString bss2.openAccessEnabled",
                            "oruAsfDictSave /var/1x.conf"));
    EXPECT_EQ(aa("bss2.wepEnabled"), "true");
    EXPECT_EQ(aa("bss2.wpaEnabled"), "true");
    for (const char *flag : {"bss2.wepEnabled", "bss2.wpaEnabled"}) box.set(kAa, flag, "false");
    box.set(kWsm, "dot11Mode", "4");
    EXPECT_EQ(box.everything(), before);
    uint32_t enabled = 9;
    EXPECT_EQ(oruSdkGetSecModeOpen(2, &enabled), 0u);
    EXPECT_EQ(enabled, 0u);
    EXPECT_NOTHING_LOGGED();
}

TEST_F(SecModeOpen, FlagThenBssBeforeTheFiles)
{
    box.remove(kAa);
    box.remove(kWsm);
    standIn.calls.clear();
    EXPECT_EQ(oruSdkSetSecModeOpen(4, 2), 38u);
    EXPECT_LOGGED("Invalid BOOLEAN value 2");
    EXPECT_EQ(oruSdkSetSecModeOpen(4, UINT32_MAX), 38u);
    EXPECT_LOGGED("Invalid BOOLEAN value -1");
    for (const uint32_t enable : {0u, 1u}) {
        EXPECT_EQ(oruSdkSetSecModeOpen(4, enable), 115u);
        EXPECT_LOGGED("Invalid bss number ID: 4");
    }
    EXPECT_THAT(standIn.calls, IsEmpty());
    EXPECT_EQ(oruSdkSetSecModeOpen(3, 1), 7u);
    EXPECT_LOGGED("Unable to read AA Defaults file /var/1x.conf");
}

TEST_F(SecModeOpen, ChecksModeThenWepThenWpa)
{
    box.set(kAa, "bss2.wepEnabled", "true");
    box.set(kAa, "bss2.wpaEnabled", "true");
    box.set(kWsm, "dot11Mode", "9");
    const auto refused = [this](uint32_t code, const std::string &log) {
        expectRefused([] { return oruSdkSetSecModeOpen(2, 1); }, code, log);
    };
    refused(114, "Open mode should not set since 11mode is 11n ONLY\n");
    EXPECT_THAT(standIn.openDictPaths(), ElementsAre(kAa, kWsm)); // intended
    box.set(kWsm, "dot11Mode", "8");
    refused(46, "WEP must not be enabled");
    box.set(kAa, "bss2.wepEnabled", "false");
    refused(45, "WPA must not be enabled");
    box.set(kAa, "bss2.wpaEnabled", "false");
    EXPECT_EQ(oruSdkSetSecModeOpen(2, 1), 0u);
    expectOpenDicts(2);
}

TEST_F(SecModeOpen, UnreadableModeThenWepThenWpa)
{
    box.unset(kWsm, "dot11Mode");
    box.unset(kAa, "bss2.wepEnabled");
    box.unset(kAa, "bss2.wpaEnabled");
    const auto refused = [this](uint32_t code, const std::string &log) {
        expectRefused([] { return oruSdkSetSecModeOpen(2, 1); }, code, log);
    };
    refused(42, "Unable to read dot11Mode from config file");
    box.set(kWsm, "dot11Mode", "4");
    refused(26, "Unable to read wepEnabledfrom dictionary");
    box.set(kAa, "bss2.wepEnabled", "false");
    refused(26, "Unable to read wpaEnabled from dictionary");
    box.set(kAa, "bss2.wpaEnabled", "1"); // no boolean
    refused(26, "Unable to read wpaEnabled from dictionary");
}

TEST_F(SecModeOpen, NegativeBssFormsItsKeysWithTheSign)
{
    box.set(kAa, "bss-1.wepEnabled", "false");
    box.set(kAa, "bss-1.wpaEnabled", "false");
    EXPECT_EQ(oruSdkSetSecModeOpen(-1, 1), 0u);
    EXPECT_EQ(aa("bss-1.openAccessEnabled"), "true");
    EXPECT_EQ(wsm("bss-1.BpRSNFlag"), "0");
    uint32_t enabled = 0;
    EXPECT_EQ(oruSdkGetSecModeOpen(-1, &enabled), 0u);
    EXPECT_EQ(enabled, 1u);
}

TEST_F(SecModeOpen, ReaderChecksPointerThenBss)
{
    uint32_t enabled = 9;
    standIn.calls.clear();
    EXPECT_EQ(oruSdkGetSecModeOpen(4, nullptr), 2u);
    EXPECT_LOGGED("NULL pointer");
    EXPECT_EQ(oruSdkGetSecModeOpen(4, &enabled), 115u);
    EXPECT_LOGGED("Invalid bss number ID: 4");
    EXPECT_THAT(standIn.calls, IsEmpty());
    box.unset(kAa, "bss2.openAccessEnabled");
    EXPECT_EQ(oruSdkGetSecModeOpen(2, &enabled), 26u);
    EXPECT_LOGGED("Unable to read openAccessEnabled from dictionary");
    EXPECT_EQ(enabled, 9u);
}

TEST_F(SecurityMode, Bss0And3AreAccepted)
{
    for (const int32_t bss : {0, 3}) {
        const std::string prefix = "bss" + std::to_string(bss) + ".";
        for (const char *flag : {"openAccessEnabled", "wepEnabled", "wpaEnabled"})
            box.set(kAa, prefix + flag, "false");
        uint32_t enabled = 9;
        uint32_t auth = 9;
        uint32_t enc = 9;
        EXPECT_EQ(oruSdkSetSecModeOpen(bss, 1), 0u);
        EXPECT_EQ(oruSdkGetSecModeOpen(bss, &enabled), 0u);
        EXPECT_EQ(enabled, 1u);
        EXPECT_EQ(oruSdkSetSecModeOpen(bss, 0), 0u);
        EXPECT_EQ(oruSdkSetSecModeWpa(bss, 2, 1, 0), 0u);
        EXPECT_EQ(oruSdkGetSecModeWpa(bss, &enabled, &auth, &enc), 0u);
        EXPECT_EQ(enabled, 2u);
        EXPECT_EQ(wsm(prefix + "wpsstate"), "2");
    }
    EXPECT_NOTHING_LOGGED();
}

// ---- WPA on

struct SecModeWpa : SecurityMode {
    /// Of the switch to WPA with these types, on BSS 2.
    void refused(uint32_t code, const std::string &log, int32_t auth = 1, uint32_t enc = 0)
    {
        expectRefused([=] { return oruSdkSetSecModeWpa(2, 1, auth, enc); }, code, log);
    }
};

TEST_F(SecModeWpa, OnWritesBothFiles)
{
    EXPECT_EQ(oruSdkSetSecModeWpa(2, 3, 1, 2), 0u);
    EXPECT_EQ(aa("bss2.wpaEnabled"), "true");
    EXPECT_EQ(aa("bss2.mixedIeMode"), "3");
    EXPECT_EQ(aa("bss2.wpaAuthTypes"), "1");
    EXPECT_EQ(aa("bss2.wpaEncTypes"), "2");
    EXPECT_EQ(wsm("bss2.BpRSNFlag"), "3");
    EXPECT_EQ(wsm("bss2.BpPskFlag"), "1");
    EXPECT_EQ(wsm("bss2.wpsstate"), "2");
    EXPECT_EQ(aa("bss2.openAccessEnabled"), "false");
    EXPECT_EQ(aa("bss2.wepEnabled"), "false");
    EXPECT_NOTHING_LOGGED();
}

TEST_F(SecModeWpa, EveryModeAndTypeRoundTrips)
{
    for (uint32_t mode = 1; mode <= 3; ++mode)
        for (int32_t auth = 0; auth <= 1; ++auth)
            for (uint32_t enc = 0; enc <= 2; ++enc) {
                EXPECT_EQ(oruSdkSetSecModeWpa(2, mode, auth, enc), 0u);
                uint32_t readMode = 9;
                uint32_t readAuth = 9;
                uint32_t readEnc = 9;
                EXPECT_EQ(oruSdkGetSecModeWpa(2, &readMode, &readAuth, &readEnc), 0u);
                EXPECT_EQ(readMode, mode);
                EXPECT_EQ(readAuth, static_cast<uint32_t>(auth));
                EXPECT_EQ(readEnc, enc);
                EXPECT_EQ(wsm("bss2.BpRSNFlag"), std::to_string(enc + 1));
                EXPECT_EQ(wsm("bss2.BpPskFlag"), std::to_string(auth));
            }
}

TEST_F(SecModeWpa, NegativeAuthTypePasses)
{
    for (const int32_t auth : {-1, INT32_MIN}) {
        EXPECT_EQ(oruSdkSetSecModeWpa(2, 1, auth, 0), 0u);
        EXPECT_EQ(aa("bss2.wpaAuthTypes"), std::to_string(auth));
        EXPECT_EQ(wsm("bss2.BpPskFlag"), std::to_string(auth));
    }
}

TEST_F(SecModeWpa, ModeThenBssBeforeTheFiles)
{
    box.remove(kAa);
    box.remove(kWsm);
    standIn.calls.clear();
    EXPECT_EQ(oruSdkSetSecModeWpa(4, 4, 9, 9), 30u);
    EXPECT_LOGGED("Invalid WPA mode value 4");
    EXPECT_EQ(oruSdkSetSecModeWpa(4, UINT32_MAX, 9, 9), 30u);
    EXPECT_LOGGED("Invalid WPA mode value -1");
    for (const uint32_t mode : {0u, 3u}) {
        EXPECT_EQ(oruSdkSetSecModeWpa(4, mode, 9, 9), 115u);
        EXPECT_LOGGED("Invalid bss number ID: 4");
    }
    EXPECT_THAT(standIn.calls, IsEmpty());
    EXPECT_EQ(oruSdkSetSecModeWpa(3, 1, 9, 9), 7u);
    EXPECT_LOGGED("Unable to read AA Defaults file /var/1x.conf");
}

TEST_F(SecModeWpa, ChecksOpenThenWepThenTypesThenMode)
{
    box.set(kAa, "bss2.openAccessEnabled", "true");
    box.set(kAa, "bss2.wepEnabled", "true");
    box.set(kWsm, "dot11Mode", "9");
    refused(32, "OPEN must not be enabled", 2, 3);
    box.set(kAa, "bss2.openAccessEnabled", "false");
    refused(46, "WEP must not be enabled", 2, 3);
    box.set(kAa, "bss2.wepEnabled", "false");
    refused(28, "Invalid authType 2", 2, 3);
    refused(29, "Invalid encType 3", 1, 3);
    refused(29, "Invalid encType -1", -1, UINT32_MAX);
    EXPECT_THAT(standIn.openDictPaths(), IsEmpty());
    refused(29, "AES enc type should be set since 11mode is 11n ONLY\n", 1, 2);
    EXPECT_THAT(standIn.openDictPaths(), ElementsAre(kAa, kWsm)); // intended
    expectOpenDicts(2);
}

TEST_F(SecModeWpa, UnreadableOpenThenWepThenModeAmongTheTypes)
{
    box.unset(kAa, "bss2.openAccessEnabled");
    box.unset(kAa, "bss2.wepEnabled");
    box.unset(kWsm, "dot11Mode");
    refused(26, "Unable to read openAccessEnabled dictionary", 2, 3);
    box.set(kAa, "bss2.openAccessEnabled", "false");
    refused(26, "Unable to read wepEnabledfrom dictionary", 2, 3);
    box.set(kAa, "bss2.wepEnabled", "false");
    refused(28, "Invalid authType 2", 2, 3);
    refused(29, "Invalid encType 3", 1, 3);
    refused(42, "Unable to read dot11Mode from config file");
}

TEST_F(SecModeWpa, Mode9TakesAesAlone)
{
    box.set(kWsm, "dot11Mode", "9");
    for (const uint32_t enc : {1u, 2u})
        refused(29, "AES enc type should be set since 11mode is 11n ONLY\n", 0, enc);
    EXPECT_EQ(oruSdkSetSecModeWpa(2, 2, 0, 0), 0u);
    EXPECT_EQ(wsm("bss2.BpRSNFlag"), "1");
    expectOpenDicts(4);
}

TEST_F(SecModeWpa, AWpaThatIsOnAlreadyIsWrittenAgain)
{
    box.set(kAa, "bss2.wpaEnabled", "true");
    EXPECT_EQ(oruSdkSetSecModeWpa(2, 2, 0, 1), 0u);
    EXPECT_EQ(aa("bss2.mixedIeMode"), "2");
}

TEST_F(SecModeWpa, FailedSecondSaveLeavesTheRadioSideWritten)
{
    standIn.failOnly("oruAsfDictSave");
    standIn.failAt(2);
    EXPECT_EQ(oruSdkSetSecModeWpa(2, 1, 1, 1), 8u);
    EXPECT_LOGGED("Unable to write AA Defaults file /var/1x.conf");
    EXPECT_EQ(wsm("bss2.BpRSNFlag"), "2");
    EXPECT_EQ(aa("bss2.wpaEnabled"), "false");
}

// ---- WPA off

TEST_F(SecModeWpa, OffClearsTheFlagsAndKeepsTheTypes)
{
    box.set(kAa, "bss2.wpaEnabled", "true");
    // No other mode, type or 802.11 mode is looked at.
    box.unset(kWsm, "dot11Mode");
    box.set(kAa, "bss2.openAccessEnabled", "true");
    box.set(kAa, "bss2.wepEnabled", "true");
    EXPECT_EQ(oruSdkSetSecModeWpa(2, 0, 9, 9), 0u);
    EXPECT_EQ(aa("bss2.wpaEnabled"), "false");
    EXPECT_EQ(wsm("bss2.BpRSNFlag"), "0");
    EXPECT_EQ(wsm("bss2.BpPskFlag"), "0");
    EXPECT_EQ(wsm("bss2.wpsstate"), "77");
    for (const char *key : {"bss2.mixedIeMode", "bss2.wpaAuthTypes", "bss2.wpaEncTypes"})
        EXPECT_EQ(aa(key), "77");
    EXPECT_EQ(aa("bss2.openAccessEnabled"), "true");
    EXPECT_EQ(aa("bss2.wepEnabled"), "true");
    EXPECT_NOTHING_LOGGED();
    EXPECT_THAT(standIn.openDictPaths(), ElementsAre(kWsm)); // intended
    expectOpenDicts(1);
}

TEST_F(SecModeWpa, OffOpensTheRadioFileTwice)
{
    standIn.calls.clear();
    EXPECT_EQ(oruSdkSetSecModeWpa(2, 0, 0, 0), 0u);
    EXPECT_THAT(
        standIn.calls,
        ElementsAre("oruAsfDictCreate /var/1x.conf", "oruAsfDictCreate /var/wsmDefaults",
                    "oruAsfDictSetString bss2.wpaEnabled", "oruAsfDictCreate /var/wsmDefaults",
                    "oruAsfDictSetString bss2.BpRSNFlag", "oruAsfDictSetString bss2.BpPskFlag",
                    "oruAsfDictSave /var/wsmDefaults", "oruAsfDictSave /var/1x.conf"));
    expectOpenDicts(1);
}

TEST_F(SecModeWpa, NegativeBssFormsItsKeysWithTheSign)
{
    box.set(kAa, "bss-1.openAccessEnabled", "false");
    box.set(kAa, "bss-1.wepEnabled", "false");
    EXPECT_EQ(oruSdkSetSecModeWpa(-1, 1, 0, 0), 0u);
    EXPECT_EQ(aa("bss-1.wpaEnabled"), "true");
    EXPECT_EQ(wsm("bss-1.wpsstate"), "2");
    uint32_t mode = 0;
    uint32_t auth = 9;
    uint32_t enc = 9;
    EXPECT_EQ(oruSdkGetSecModeWpa(-1, &mode, &auth, &enc), 0u);
    EXPECT_EQ(mode, 1u);
    EXPECT_EQ(oruSdkSetSecModeWpa(-1, 0, 0, 0), 0u);
    EXPECT_EQ(aa("bss-1.wpaEnabled"), "false");
    EXPECT_EQ(wsm("bss-1.BpPskFlag"), "0");
    expectOpenDicts(1);
}

// ---- Reading WPA

struct ReadWpa {
    uint32_t mode = 9;
    uint32_t auth = 9;
    uint32_t enc = 9;
    uint32_t code = oruSdkGetSecModeWpa(2, &mode, &auth, &enc);
};

TEST_F(SecModeWpa, ReaderOfAnOffGivesMode0Alone)
{
    const ReadWpa read;
    EXPECT_EQ(read.code, 0u);
    EXPECT_EQ(read.mode, 0u);
    EXPECT_EQ(read.auth, 9u);
    EXPECT_EQ(read.enc, 9u);
    EXPECT_THAT(standIn.calls, Not(Contains("oruAsfDictGetInt bss2.mixedIeMode flag")));
}

TEST_F(SecModeWpa, ReaderPassesAnyStoredNumber)
{
    box.set(kAa, "bss2.wpaEnabled", "true");
    box.set(kAa, "bss2.wpaAuthTypes", "-2");
    const ReadWpa read;
    EXPECT_EQ(read.code, 0u);
    EXPECT_EQ(read.mode, 77u);
    EXPECT_EQ(read.auth, static_cast<uint32_t>(-2));
    EXPECT_EQ(read.enc, 77u);
}

TEST_F(SecModeWpa, ReaderTakesAMissingModeFor1WithAWarning)
{
    box.set(kAa, "bss2.wpaEnabled", "true");
    box.unset(kAa, "bss2.mixedIeMode");
    const ReadWpa read;
    EXPECT_EQ(read.code, 0u);
    EXPECT_EQ(read.mode, 1u);
    EXPECT_EQ(read.auth, 77u);
    EXPECT_LOGGED_AT(4, "Unable to read mixedIeMode from dictionary, using 1");
    EXPECT_THAT(standIn.calls, Contains("oruAsfDictGetInt bss2.mixedIeMode flag"));
}

TEST_F(SecModeWpa, ReaderFillsWhatItReadBeforeAFailure)
{
    box.set(kAa, "bss2.wpaEnabled", "true");
    box.unset(kAa, "bss2.wpaEncTypes");
    const ReadWpa encMissing;
    EXPECT_EQ(encMissing.code, 42u);
    EXPECT_LOGGED("Unable to read wpaEncTypes from config file /var/1x.conf");
    EXPECT_EQ(encMissing.mode, 77u);
    EXPECT_EQ(encMissing.auth, 77u);
    EXPECT_EQ(encMissing.enc, 9u);
    box.unset(kAa, "bss2.wpaAuthTypes");
    const ReadWpa authMissing;
    EXPECT_EQ(authMissing.code, 42u);
    EXPECT_LOGGED("Unable to read wpaAuthTypes from config file /var/1x.conf");
    EXPECT_EQ(authMissing.mode, 77u);
    EXPECT_EQ(authMissing.auth, 9u);
    box.unset(kAa, "bss2.wpaEnabled");
    const ReadWpa flagMissing;
    EXPECT_EQ(flagMissing.code, 26u);
    EXPECT_LOGGED("Unable to read wpaEnabled from dictionary");
    EXPECT_EQ(flagMissing.mode, 9u);
}

TEST_F(SecModeWpa, ReaderChecksThePointersThenTheBss)
{
    uint32_t number = 0;
    standIn.calls.clear();
    EXPECT_EQ(oruSdkGetSecModeWpa(4, nullptr, &number, &number), 2u);
    EXPECT_LOGGED("NULL pointer");
    EXPECT_EQ(oruSdkGetSecModeWpa(4, &number, nullptr, &number), 2u);
    EXPECT_LOGGED("NULL pointer");
    EXPECT_EQ(oruSdkGetSecModeWpa(4, &number, &number, nullptr), 2u);
    EXPECT_LOGGED("NULL pointer");
    EXPECT_EQ(oruSdkGetSecModeWpa(4, &number, &number, &number), 115u);
    EXPECT_LOGGED("Invalid bss number ID: 4");
    EXPECT_THAT(standIn.calls, IsEmpty());
}

// ---- Each call failing

const Step kOpenAa{"oruAsfDictCreate /var/1x.conf", 7,
                   "Unable to read AA Defaults file /var/1x.conf"};
const Step kOpenWsm{"oruAsfDictCreate /var/wsmDefaults", 7,
                    "Unable to read WSM Defaults file /var/wsmDefaults"};
const Step kSaveWsm{"oruAsfDictSave /var/wsmDefaults", 8,
                    "Unable to write WSM Defaults file /var/wsmDefaults"};
const Step kSaveAa{"oruAsfDictSave /var/1x.conf", 8,
                   "Unable to write AA Defaults file /var/1x.conf"};

Step written(const Step &step)
{
    Step after = step;
    after.writes = true;
    return after;
}

Step leaving(Step step)
{
    step.leftOpen = 1;
    return step;
}

Step write(const std::string &item)
{
    return {"oruAsfDictSetString bss2." + item, 25, "Unable to write " + item + " to dictionary"};
}

std::vector<SweepRow> rows()
{
    const auto prepareOn = [](AccessPoint &box, StandIn &standIn) {
        prepare(box, standIn);
        box.set(kAa, "bss2.wpaEnabled", "true");
        standIn.calls.clear();
    };
    const Step readMode{"oruAsfDictGetInt dot11Mode", 42,
                        "Unable to read dot11Mode from config file"};
    const Step readWep{"oruAsfDictGetBool bss2.wepEnabled", 26,
                       "Unable to read wepEnabledfrom dictionary"};
    const Step readWpa{"oruAsfDictGetBool bss2.wpaEnabled", 26,
                       "Unable to read wpaEnabled from dictionary"};
    return {
        {"SetSecModeOpenOn",
         prepare,
         [] { return oruSdkSetSecModeOpen(2, 1); },
         {kOpenAa, kOpenWsm, readMode, readWep, readWpa, write("openAccessEnabled"),
          write("BpRSNFlag"), kSaveWsm, written(kSaveAa)}},
        {"SetSecModeOpenOff",
         prepare,
         [] { return oruSdkSetSecModeOpen(2, 0); },
         {kOpenAa, kOpenWsm, write("openAccessEnabled"), kSaveAa}},
        {"GetSecModeOpen",
         prepare,
         [] {
             uint32_t enabled = 0;
             return oruSdkGetSecModeOpen(2, &enabled);
         },
         {kOpenAa,
          {"oruAsfDictGetBool bss2.openAccessEnabled", 26,
           "Unable to read openAccessEnabled from dictionary"}}},
        {"SetSecModeWpaOn",
         prepare,
         [] { return oruSdkSetSecModeWpa(2, 1, 1, 1); },
         {kOpenAa,
          kOpenWsm,
          {"oruAsfDictGetBool bss2.openAccessEnabled", 26,
           "Unable to read openAccessEnabled dictionary"},
          readWep,
          readMode,
          write("wpaEnabled"),
          write("wpaAuthTypes"),
          write("wpaEncTypes"),
          write("mixedIeMode"),
          write("BpRSNFlag"),
          write("BpPskFlag"),
          write("wpsstate"),
          kSaveWsm,
          written(kSaveAa)}},
        {"SetSecModeWpaOff",
         prepare,
         [] { return oruSdkSetSecModeWpa(2, 0, 0, 0); },
         {kOpenAa, kOpenWsm, write("wpaEnabled"), leaving(kOpenWsm), leaving(write("BpRSNFlag")),
          leaving(write("BpPskFlag")), leaving(kSaveWsm), leaving(written(kSaveAa))},
         1},
        {"GetSecModeWpa",
         prepareOn,
         [] { return ReadWpa{}.code; },
         {kOpenAa,
          readWpa,
          {"oruAsfDictGetInt bss2.mixedIeMode flag", 0,
           "Unable to read mixedIeMode from dictionary, using 1", 4},
          {"oruAsfDictGetInt bss2.wpaAuthTypes", 42,
           "Unable to read wpaAuthTypes from config file /var/1x.conf"},
          {"oruAsfDictGetInt bss2.wpaEncTypes", 42,
           "Unable to read wpaEncTypes from config file /var/1x.conf"}}},
    };
}
INSTANTIATE_TEST_SUITE_P(SecurityMode, FailureSweep, ::testing::ValuesIn(rows()), rowName);
INSTANTIATE_TEST_SUITE_P(SecurityMode, StatusSweep, ::testing::ValuesIn(rows()), rowName);

} // namespace
} // namespace oru::test
