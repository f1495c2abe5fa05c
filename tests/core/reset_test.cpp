#include "oruSdk.h"
#include "support/accesspoint.hpp"
#include "support/sweep.hpp"

#include <gmock/gmock.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>

namespace oru::test {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

struct Reset : AccessPointTest {};

// ---- Everything

TEST_F(Reset, EverythingGoesBackToTheFactoryFiles)
{
    box.set(kWsm, "mimoFlag", "0");
    box.set(kWsm, "added", "1");
    box.set(kAa, "bss1.wpaEnabled", "true");
    EXPECT_EQ(oruSdkResetToDefaults(), 0u);
    EXPECT_EQ(box.read(kWsm), box.read(kWsmFactory));
    EXPECT_EQ(box.read(kAa), box.read(kAaFactory));
    EXPECT_THAT(standIn.sent(), IsEmpty());
    EXPECT_NOTHING_LOGGED();
}

TEST_F(Reset, WithoutARootTheShellGetsTheTwoPlainCommands)
{
    ::unsetenv("ORU_ROOT");
    standIn.runCommands = false;
    EXPECT_EQ(oruSdkResetToDefaults(), 0u);
    EXPECT_THAT(standIn.commands, ElementsAre("cp /var/wsmDefaults.orig /var/wsmDefaults",
                                              "cp /var/1x.conf.orig /var/1x.conf"));
    ::setenv("ORU_ROOT", "", 1);
    standIn.commands.clear();
    EXPECT_EQ(oruSdkResetToDefaults(), 0u);
    EXPECT_EQ(standIn.commands.at(0), "cp /var/wsmDefaults.orig /var/wsmDefaults");
}

TEST_F(Reset, RootReachesTheShellOnlyThroughTheEnvironment)
{
    namespace fs = std::filesystem;
    const std::string evil = box.root() + "/a b'\"; touch $ORU_ROOT; `x` \\";
    fs::create_directories(evil);
    fs::copy(box.root() + "/var", evil + "/var", fs::copy_options::recursive);
    std::ofstream(evil + "/var/wsmDefaults") << "changed=1\n";
    ::setenv("ORU_ROOT", evil.c_str(), 1);
    EXPECT_EQ(oruSdkResetToDefaults(), 0u);
    for (const std::string &command : standIn.commands)
        EXPECT_EQ(command.find("touch"), std::string::npos);
    ::setenv("ORU_ROOT", box.root().c_str(), 1);
    EXPECT_EQ(fs::file_size(evil + "/var/wsmDefaults"), box.read(kWsmFactory).size());
}

TEST_F(Reset, MissingRadioFactoryFileLeavesBothFiles)
{
    box.remove(kWsmFactory);
    const std::string before = box.everything();
    EXPECT_EQ(oruSdkResetToDefaults(), 58u);
    EXPECT_LOGGED("Failed to copy configuration file /var/wsmDefaults");
    EXPECT_EQ(box.everything(), before);
    EXPECT_EQ(standIn.commands.size(), 1u);
}

TEST_F(Reset, MissingSecurityFactoryFileLeavesTheFirstReplaced)
{
    box.set(kWsm, "mimoFlag", "0");
    box.set(kAa, "bss1.wpaEnabled", "true");
    const std::string security = box.read(kAa);
    box.remove(kAaFactory);
    EXPECT_EQ(oruSdkResetToDefaults(), 58u);
    EXPECT_LOGGED("Failed to copy configuration file /var/1x.conf");
    EXPECT_EQ(box.read(kWsm), box.read(kWsmFactory));
    EXPECT_EQ(box.read(kAa), security);
}

// ---- One BSS

TEST_F(Reset, OneBssGoesBackAndNothingElseChanges)
{
    const std::string radios = box.read(kWsm);
    const std::string security = box.read(kAa);
    const auto changeBss = [this](const std::string &bss) {
        box.setDelimited(kWsm, bss + "ssId", "changed");
        for (const char *key : {"suppressSSIDFlag", "BpRSNFlag", "enforcepintimeout"})
            box.set(kWsm, bss + key, "1");
        box.set(kWsm, bss + "wvid", "77");
        for (const char *key :
             {"openAccessEnabled", "wpaEnabled", "wepEnabled", "dynamicWepEnabled"})
            box.set(kAa, bss + key, box.value(kAa, bss + key) == "true" ? "false" : "true");
        for (const char *key : {"mixedIeMode", "wpaAuthTypes", "wpaEncTypes", "macAuthType"})
            box.set(kAa, bss + key, "9");
        box.set(kAa, bss + "wepKeyLen", "99");
        box.set(kAa, bss + "wepDefaultKey", "4");
        box.set(kAa, bss + "wepKey.2", "0a:0b:0c:0d:0e");
    };
    changeBss("bss1.");
    const std::string onlyBss1Radios = box.read(kWsm);
    changeBss("bss2.");
    EXPECT_EQ(oruSdkResetToBss(2), 0u);
    EXPECT_EQ(box.read(kWsm), onlyBss1Radios);
    EXPECT_EQ(oruSdkResetToBss(1), 0u);
    EXPECT_EQ(box.read(kWsm), radios);
    EXPECT_EQ(box.read(kAa), security);
    EXPECT_NOTHING_LOGGED();
    EXPECT_THAT(standIn.sent(), IsEmpty());
}

TEST_F(Reset, FactoryWepKeyComesBack)
{
    box.set(kAaFactory, "bss0.wepKey.3", "11:22:33:44:55");
    EXPECT_EQ(oruSdkResetToBss(0), 0u);
    EXPECT_EQ(box.value(kAa, "bss0.wepKey.3"), "11:22:33:44:55");
    EXPECT_EQ(box.value(kAa, "bss0.wepKey.1"), std::nullopt);
}

TEST_F(Reset, MissingMixedIeModeBecomes1WithAWarning)
{
    box.set(kAa, "bss0.mixedIeMode", "3");
    box.set(kAa, "bss0.wpaAuthTypes", "9");
    box.unset(kAaFactory, "bss0.mixedIeMode");
    EXPECT_EQ(oruSdkResetToBss(0), 0u);
    EXPECT_EQ(box.value(kAa, "bss0.mixedIeMode"), "1");
    EXPECT_EQ(box.value(kAa, "bss0.wpaAuthTypes"), box.value(kAaFactory, "bss0.wpaAuthTypes"));
    EXPECT_LOGGED_AT(4, "Unable to read mixedIeMode from dictionary, using 1");
}

TEST_F(Reset, MissingDynamicWepFlagAnnouncesAFallbackYetStops)
{
    box.unset(kAaFactory, "bss0.dynamicWepEnabled");
    const std::string before = box.everything();
    EXPECT_EQ(oruSdkResetToBss(0), 26u);
    EXPECT_LOGGED_AT(4, "Unable to read dynamicWepEnabled from dictionary, set to 0");
    EXPECT_EQ(box.everything(), before);
}

TEST_F(Reset, BssAbove3Is115BeforeAnythingIsOpened)
{
    for (const int32_t bss : {4, 5, INT32_MAX}) {
        EXPECT_EQ(oruSdkResetToBss(bss), 115u);
        EXPECT_LOGGED("Invalid bss number ID: " + std::to_string(bss));
    }
    EXPECT_THAT(standIn.calls, IsEmpty());
}

TEST_F(Reset, Bss3IsTheLastOne)
{
    box.set(kWsm, "bss3.wvid", "77");
    EXPECT_EQ(oruSdkResetToBss(3), 0u);
    EXPECT_EQ(box.value(kWsm, "bss3.wvid"), box.value(kWsmFactory, "bss3.wvid"));
    EXPECT_NOTHING_LOGGED();
}

TEST_F(Reset, NegativeBssFormsItsKeysWithTheSign)
{
    EXPECT_EQ(oruSdkResetToBss(-1), 42u);
    EXPECT_LOGGED("Unable to read ssid from config file /var/wsmDefaults");
    EXPECT_THAT(standIn.calls, ::testing::Contains("oruAsfDictGetDelimitedString bss-1.ssId"));

    for (const char *path : {kWsmFactory, kAaFactory}) {
        std::string text = "\n" + box.read(path);
        for (size_t at = 0; (at = text.find("\nbss0.", at)) != std::string::npos; at += 7)
            text.replace(at, 6, "\nbss-1.");
        box.write(path, text);
    }
    standIn.logs.clear();
    EXPECT_EQ(oruSdkResetToBss(-1), 0u);
    EXPECT_TRUE(box.value(kWsm, "bss-1.ssId").has_value());
    EXPECT_TRUE(box.value(kAa, "bss-1.wepKeyLen").has_value());
}

TEST_F(Reset, FactorySsidOf32CharactersPassesAnd33LeavesBothFiles)
{
    box.setDelimited(kWsmFactory, "bss0.ssId", std::string(32, 's'));
    EXPECT_EQ(oruSdkResetToBss(0), 0u);
    EXPECT_EQ(box.value(kWsm, "bss0.ssId"), std::string(32, 's'));
    box.setDelimited(kWsmFactory, "bss0.ssId", std::string(33, 's'));
    box.unset(kAaFactory, "bss0.openAccessEnabled"); // which comes next
    const std::string before = box.everything();
    EXPECT_EQ(oruSdkResetToBss(0), 23u);
    EXPECT_LOGGED("Invalid SSID length: 33");
    EXPECT_EQ(box.everything(), before);
}

TEST_F(Reset, EmptyFactorySsidIsCopied)
{
    box.setDelimited(kWsmFactory, "bss0.ssId", "");
    EXPECT_EQ(oruSdkResetToBss(0), 0u);
    EXPECT_EQ(box.value(kWsm, "bss0.ssId"), "");
}

/// A key that is read and, next, written.
void addCopy(std::vector<Step> &steps, const std::string &read, uint32_t code,
             const std::string &log, const std::string &key, const std::string &writeLog,
             int32_t level = 3)
{
    steps.push_back({read + " " + key + (read == "oruAsfDictGetInt" && level == 4 ? " flag" : ""),
                     code, log, level});
    steps.push_back({(read == "oruAsfDictGetDelimitedString" ? "oruAsfDictSetDelimitedString "
                                                             : "oruAsfDictSetString ") +
                         key,
                     25, writeLog});
}

std::vector<SweepRow> rows()
{
    const std::string kInt = "oruAsfDictGetInt";
    const std::string kBool = "oruAsfDictGetBool";
    std::vector<Step> steps{
        {"oruAsfDictCreate /var/1x.conf.orig", 7,
         "Unable to read AA Original Defaults file /var/1x.conf"},
        {"oruAsfDictCreate /var/1x.conf", 7, "Unable to read AA Defaults file /var/1x.conf"},
        {"oruAsfDictCreate /var/wsmDefaults.orig", 7,
         "Unable to read WSM Original Default file /var/wsmDefaults"},
        {"oruAsfDictCreate /var/wsmDefaults", 7,
         "Unable to read WSM Default file /var/wsmDefaults"}};
    addCopy(steps, "oruAsfDictGetDelimitedString", 42,
            "Unable to read ssid from config file /var/wsmDefaults", "bss1.ssId",
            "Unable to write ssId to dictionary");
    addCopy(steps, kBool, 26, "Unable to read openAccessEnabled from dictionary",
            "bss1.openAccessEnabled", "Unable to write openAccessEnabled to dictionary");
    addCopy(steps, kBool, 26, "Unable to read wpaEnabled from dictionary", "bss1.wpaEnabled",
            "Unable to write wpaEnabled to dictionary");
    addCopy(steps, kInt, 0, "Unable to read mixedIeMode from dictionary, using 1",
            "bss1.mixedIeMode", "Unable to write mixedIeMode to dictionary", 4);
    addCopy(steps, kInt, 42, "Unable to read wpaAuthTypes from config file /var/1x.conf",
            "bss1.wpaAuthTypes", "Unable to write wpaAuthTypes to dictionary");
    addCopy(steps, kInt, 42, "Unable to read wpaEncTypes from config file /var/1x.conf",
            "bss1.wpaEncTypes", "Unable to write wpaEncTypes to dictionary");
    addCopy(steps, kInt, 42,
            "Unable to read bss1.suppressSSIDFlag from config file /var/wsmDefaults",
            "bss1.suppressSSIDFlag", "Unable to write suppressSSIDFlag to dictionary");
    addCopy(steps, kInt, 42, "Unable to read macAuthType from config file /var/1x.conf",
            "bss1.macAuthType", "Unable to write radio1 MAC static WEP auth type to dictionary");
    addCopy(steps, kBool, 26, "Unable to read wepEnabled dictionary", "bss1.wepEnabled",
            "Unable to write wepEnabled to dictionary");
    addCopy(steps, kInt, 26, "Unable to read wepKeyLen dictionary", "bss1.wepKeyLen",
            "Unable to write wepKeyLen to dictionary");
    addCopy(steps, kInt, 26, "Unable to read wepDefaultKey dictionary", "bss1.wepDefaultKey",
            "Unable to write wepDefaultKey to dictionary");
    addCopy(steps, kBool, 26, "Unable to read dynamicWepEnabled from dictionary, set to 0",
            "bss1.dynamicWepEnabled", "Unable to write dynamicWepEnabled to dictionary", 4);
    addCopy(steps, kInt, 26, "Unable to read wepDefaultKey dictionary", "bss1.BpRSNFlag",
            "Unable to write BpRSNFlag to dictionary");
    addCopy(steps, kInt, 26, "Unable to read enforcepintimeout dictionary",
            "bss1.enforcepintimeout", "Unable to write enforcepintimeout to dictionary");
    for (const char *number : {"1", "2", "3", "4"}) {
        const std::string key = std::string("bss1.wepKey.") + number;
        steps.push_back({"oruAsfDictGetString " + key, 0, ""});
        steps.push_back(
            {"oruAsfDictSetString " + key, 25, "Unable to write wepkeyArr[cnt] to dictionary"});
    }
    addCopy(steps, kInt, 42, "Unable to read bss1.wvid from config file /var/wsmDefaults",
            "bss1.wvid", "Unable to write bss1.wvid to dictionary");
    steps.push_back({"oruAsfDictSave /var/wsmDefaults", 8,
                     "Unable to write WSM Defaults file /var/wsmDefaults"});
    steps.push_back({"oruAsfDictSave /var/1x.conf", 8,
                     "Unable to write AA Defaults file /var/1x.conf", 3, true});
    return {{"ResetToBss", nullptr, [] { return oruSdkResetToBss(1); }, steps},
            {"ResetToDefaults",
             nullptr,
             [] { return oruSdkResetToDefaults(); },
             {{"system", 58, "Failed to copy configuration file /var/wsmDefaults"},
              {"system", 58, "Failed to copy configuration file /var/1x.conf"}}}};
}
INSTANTIATE_TEST_SUITE_P(Reset, FailureSweep, ::testing::ValuesIn(rows()), rowName);
INSTANTIATE_TEST_SUITE_P(Reset, StatusSweep, ::testing::ValuesIn(rows()), rowName);

TEST_F(Reset, FailedSecondSaveLeavesTheRadioSideRestored)
{
    box.set(kWsm, "bss1.wvid", "77");
    box.set(kAa, "bss1.wepKeyLen", "99");
    standIn.failOnly("oruAsfDictSave");
    standIn.failAt(2);
    EXPECT_EQ(oruSdkResetToBss(1), 8u);
    EXPECT_LOGGED("Unable to write AA Defaults file /var/1x.conf");
    EXPECT_EQ(box.value(kWsm, "bss1.wvid"), box.value(kWsmFactory, "bss1.wvid"));
    EXPECT_EQ(box.value(kAa, "bss1.wepKeyLen"), "99");
}

} // namespace
} // namespace oru::test
