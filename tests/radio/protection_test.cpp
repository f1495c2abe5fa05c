#include "oruSdk.h"
#include "radio/steps.hpp"
#include "support/accesspoint.hpp"

#include <gmock/gmock.h>

namespace oru::test {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

// ---- 802.11g protection

struct Protection : AccessPointTest {
    Protection()
    {
        box.set(kWsm, "radio0.dot11Protection", "0");
        box.set(kWsm, "radio1.dot11Protection", "0");
        box.set(kWsm, "radio0.ProtectionMode", "50");
        box.set(kWsm, "radio1.ProtectionMode", "51");
        box.set(kWsm, "dot11gShortSlotTime", "52");
    }
};

TEST_F(Protection, ModeGoesToItsKeyAndToTheSlotTimeOfTheDevice)
{
    OruSdkProtectionParam param{1, 4, 7};
    EXPECT_EQ(oruSdkSetDot11Protection(&param), 0u);
    EXPECT_EQ(box.value(kWsm, "radio1.dot11Protection"), "4");
    EXPECT_EQ(box.value(kWsm, "radio1.ProtectionMode"), "7");
    EXPECT_EQ(box.value(kWsm, "dot11gShortSlotTime"), "7");
    EXPECT_EQ(box.value(kWsm, "radio0.dot11Protection"), "0");
    EXPECT_EQ(box.value(kWsm, "radio0.ProtectionMode"), "50");
}

TEST_F(Protection, WithoutAModeTheSlotTimeTakesTheSwitch)
{
    for (const uint32_t enable : {1u, 3u, 0u, 2u}) {
        OruSdkProtectionParam param{0, enable, 7};
        EXPECT_EQ(oruSdkSetDot11Protection(&param), 0u);
        EXPECT_EQ(box.value(kWsm, "radio0.dot11Protection"), std::to_string(enable));
        EXPECT_EQ(box.value(kWsm, "dot11gShortSlotTime"), std::to_string(enable));
        EXPECT_EQ(box.value(kWsm, "radio0.ProtectionMode"), "50");
    }
}

TEST_F(Protection, AnyModeIsTakenAsASignedNumber)
{
    OruSdkProtectionParam param{0, 4, 0xffffffff};
    EXPECT_EQ(oruSdkSetDot11Protection(&param), 0u);
    EXPECT_EQ(box.value(kWsm, "radio0.ProtectionMode"), "-1");
    EXPECT_EQ(box.value(kWsm, "dot11gShortSlotTime"), "-1");
    param.protectionMode = 0;
    EXPECT_EQ(oruSdkGetDot11Protection(&param), 0u);
    EXPECT_EQ(param.protectionMode, 0xffffffffu);
}

TEST_F(Protection, FiveAndMoreAre51BeforeTheFileIsOpened)
{
    const std::string before = box.everything();
    standIn.reset();
    for (const uint32_t enable : {5u, 0x80000000u, 0xffffffffu}) {
        OruSdkProtectionParam param{0, enable, 1};
        EXPECT_EQ(oruSdkSetDot11Protection(&param), 51u);
        EXPECT_LOGGED("Invalid prtnEnable: " + std::to_string(static_cast<int32_t>(enable)));
    }
    EXPECT_THAT(standIn.calls, IsEmpty());
    EXPECT_EQ(box.everything(), before);
}

TEST_F(Protection, GetReadsTheModeOnlyWhenTheSwitchIs4)
{
    OruSdkProtectionParam param{1, 99, 77};
    for (const char *stored : {"0", "3", "5", "-4"}) {
        box.set(kWsm, "radio1.dot11Protection", stored);
        EXPECT_EQ(oruSdkGetDot11Protection(&param), 0u);
        EXPECT_EQ(std::to_string(static_cast<int32_t>(param.prtnEnable)), stored);
        EXPECT_EQ(param.protectionMode, 77u);
    }
    box.set(kWsm, "radio1.dot11Protection", "4");
    EXPECT_EQ(oruSdkGetDot11Protection(&param), 0u);
    EXPECT_EQ(param.prtnEnable, 4u);
    EXPECT_EQ(param.protectionMode, 51u);
    box.unset(kWsm, "radio1.ProtectionMode"); // not looked at
    box.set(kWsm, "radio1.dot11Protection", "3");
    EXPECT_EQ(oruSdkGetDot11Protection(&param), 0u);
    EXPECT_EQ(param.prtnEnable, 3u);
    EXPECT_EQ(param.protectionMode, 51u);
    EXPECT_NOTHING_LOGGED();
}

TEST_F(Protection, MissingModeLeavesTheSwitchFilled)
{
    box.set(kWsm, "radio0.dot11Protection", "4");
    box.unset(kWsm, "radio0.ProtectionMode");
    OruSdkProtectionParam param{0, 99, 77};
    EXPECT_EQ(oruSdkGetDot11Protection(&param), 42u);
    EXPECT_LOGGED("Unable to read protectionMode from config file /var/wsmDefaults");
    EXPECT_EQ(param.prtnEnable, 4u);
    EXPECT_EQ(param.protectionMode, 77u);
    box.unset(kWsm, "radio0.dot11Protection");
    param.prtnEnable = 99;
    EXPECT_EQ(oruSdkGetDot11Protection(&param), 42u);
    EXPECT_LOGGED("Unable to read dot11Protection from config file /var/wsmDefaults");
    EXPECT_EQ(param.prtnEnable, 99u);
}

// ---- Standard extensions

struct StandardExtensions : AccessPointTest {
    StandardExtensions()
    {
        for (const char *radio : {"radio0.", "radio1."}) {
            box.set(kWsm, std::string{radio} + "standardExt", "1");
            box.set(kWsm, std::string{radio} + "dot11Mode", "3");
            box.set(kWsm, std::string{radio} + "adminDot11bStaFlag", "0");
        }
        box.set(kWsm, "wmmEnabledFlag", "1");
        box.set(kWsm, "adminDot11bStaFlag", "0");
        standIn.reset();
    }
};

TEST_F(StandardExtensions, OffMakesTheRadio11bOnlyAndTurnsWmmOff)
{
    OruSdkRadioSwitchParam param{0xabcd, 1, 0};
    EXPECT_EQ(oruSdkSetDot11StdExt(&param), 0u);
    EXPECT_EQ(box.value(kWsm, "radio1.standardExt"), "0");
    EXPECT_EQ(box.value(kWsm, "radio1.dot11Mode"), "2");
    EXPECT_EQ(box.value(kWsm, "wmmEnabledFlag"), "0");
    EXPECT_EQ(box.value(kWsm, "adminDot11bStaFlag"), "1");
    // The radio's own admission key is another one.
    EXPECT_EQ(box.value(kWsm, "radio1.adminDot11bStaFlag"), "0");
    EXPECT_EQ(box.value(kWsm, "radio0.standardExt"), "1");
    EXPECT_EQ(box.value(kWsm, "radio0.dot11Mode"), "3");
    EXPECT_NOTHING_LOGGED();
}

TEST_F(StandardExtensions, OnWritesItsOwnKeyAlone)
{
    box.set(kWsm, "radio0.standardExt", "0");
    standIn.reset();
    OruSdkRadioSwitchParam param{0, 0, 1};
    EXPECT_EQ(oruSdkSetDot11StdExt(&param), 0u);
    EXPECT_THAT(standIn.calls, ElementsAre("oruAsfDictCreate /var/wsmDefaults",
                                           "oruAsfDictSetString radio0.standardExt",
                                           "oruAsfDictSave /var/wsmDefaults"));
    EXPECT_EQ(box.value(kWsm, "radio0.standardExt"), "1");
}

TEST_F(StandardExtensions, OtherValuesAre53BeforeTheFileIsOpened)
{
    const std::string before = box.everything();
    standIn.reset();
    for (const uint32_t enable : {2u, 0xffffffffu}) {
        OruSdkRadioSwitchParam param{0, 0, enable};
        EXPECT_EQ(oruSdkSetDot11StdExt(&param), 53u);
        EXPECT_LOGGED("Invalid stdExtEnable: " + std::to_string(static_cast<int32_t>(enable)));
    }
    EXPECT_THAT(standIn.calls, IsEmpty());
    EXPECT_EQ(box.everything(), before);
}

TEST_F(StandardExtensions, GetGivesWhateverNumberIsStored)
{
    box.set(kWsm, "radio1.standardExt", "-3");
    OruSdkRadioSwitchParam param{0xabcd, 1, 77};
    EXPECT_EQ(oruSdkGetDot11StdExt(&param), 0u);
    EXPECT_EQ(param.enable, static_cast<uint32_t>(-3));
    EXPECT_EQ(param.reserved, 0xabcd);
    box.unset(kWsm, "radio1.standardExt");
    param.enable = 77;
    EXPECT_EQ(oruSdkGetDot11StdExt(&param), 42u);
    EXPECT_LOGGED("Unable to read radioStandardExt from config file /var/wsmDefaults");
    EXPECT_EQ(param.enable, 77u);
}

// ---- Admission of 802.11b stations

struct Admission : StandardExtensions {
    OruSdkRadioSwitchParam reject{0xabcd, 1, 0};
    OruSdkRadioSwitchParam admit{0xabcd, 1, 1};

    /// Tries to reject, and expects that nothing changes.
    void expectRefused(uint32_t code, const std::string &text)
    {
        const std::string before = box.everything();
        EXPECT_EQ(oruSdkSetStaAcceptCriteria(&reject), code);
        EXPECT_LOGGED(text);
        EXPECT_EQ(box.everything(), before);
    }
};

TEST_F(Admission, RejectingWritesTheKeyOfTheRadio)
{
    box.set(kWsm, "radio1.adminDot11bStaFlag", "1");
    box.set(kWsm, "adminDot11bStaFlag", "1");
    EXPECT_EQ(oruSdkSetStaAcceptCriteria(&reject), 0u);
    EXPECT_EQ(box.value(kWsm, "radio1.adminDot11bStaFlag"), "0");
    EXPECT_EQ(box.value(kWsm, "adminDot11bStaFlag"), "1");
    OruSdkRadioSwitchParam read{0xabcd, 1, 77};
    EXPECT_EQ(oruSdkGetStaAcceptCriteria(&read), 0u);
    EXPECT_EQ(read.enable, 0u);
    EXPECT_EQ(read.reserved, 0xabcd);
}

TEST_F(Admission, RejectingNeedsStandardExtensionsAndAnotherModeThan11bOnly)
{
    box.set(kWsm, "radio1.dot11Mode", "2");
    expectRefused(60, "2.4Ghz mode must not 802.11b only");
    box.set(kWsm, "radio1.standardExt", "0"); // comes first
    expectRefused(59, "Standard extensions must be on");
    box.unset(kWsm, "radio1.dot11Mode"); // not looked at
    expectRefused(59, "Standard extensions must be on");
    box.set(kWsm, "radio1.standardExt", "1");
    expectRefused(42, "Unable to read dot11Mode from config file /var/wsmDefaults");
    box.unset(kWsm, "radio1.standardExt");
    expectRefused(42, "Unable to read radioStandardExt from config file /var/wsmDefaults");
}

TEST_F(Admission, OnlyA0SwitchesExtensionsOffAndOnly2IsThe11bOnlyMode)
{
    for (const char *mode : {"0", "1", "3", "9", "-2"}) {
        box.set(kWsm, "radio1.standardExt", "-1");
        box.set(kWsm, "radio1.dot11Mode", mode);
        EXPECT_EQ(oruSdkSetStaAcceptCriteria(&reject), 0u) << mode;
    }
}

TEST_F(Admission, AdmittingNeverChecksAnything)
{
    box.unset(kWsm, "radio1.standardExt");
    box.unset(kWsm, "radio1.dot11Mode");
    standIn.reset();
    EXPECT_EQ(oruSdkSetStaAcceptCriteria(&admit), 0u);
    EXPECT_THAT(standIn.calls, ElementsAre("oruAsfDictCreate /var/wsmDefaults",
                                           "oruAsfDictSetString radio1.adminDot11bStaFlag",
                                           "oruAsfDictSave /var/wsmDefaults"));
    EXPECT_EQ(box.value(kWsm, "radio1.adminDot11bStaFlag"), "1");
}

TEST_F(Admission, GetGivesWhateverNumberIsStored)
{
    box.set(kWsm, "radio1.adminDot11bStaFlag", "-3");
    OruSdkRadioSwitchParam param{0xabcd, 1, 77};
    EXPECT_EQ(oruSdkGetStaAcceptCriteria(&param), 0u);
    EXPECT_EQ(param.enable, static_cast<uint32_t>(-3));
    box.unset(kWsm, "radio1.adminDot11bStaFlag"); // that of the device is another one
    param.enable = 77;
    EXPECT_EQ(oruSdkGetStaAcceptCriteria(&param), 42u);
    EXPECT_LOGGED("Unable to read adminDot11bStaFlag from config file /var/wsmDefaults");
    EXPECT_EQ(param.enable, 77u);
}

TEST_F(Admission, OtherValuesAre56BeforeTheFileIsOpened)
{
    const std::string before = box.everything();
    standIn.reset();
    for (const uint32_t enable : {2u, 0xffffffffu}) {
        OruSdkRadioSwitchParam param{0, 0, enable};
        EXPECT_EQ(oruSdkSetStaAcceptCriteria(&param), 56u);
        EXPECT_LOGGED("Invalid dot11bStaAccept: " + std::to_string(static_cast<int32_t>(enable)));
    }
    EXPECT_THAT(standIn.calls, IsEmpty());
    EXPECT_EQ(box.everything(), before);
}

// ---- Each call fails in turn

void prepare(AccessPoint &box, StandIn &)
{
    box.set(kWsm, "radio1.dot11Protection", "4");
    box.set(kWsm, "radio1.ProtectionMode", "1");
    box.set(kWsm, "radio1.standardExt", "1");
    box.set(kWsm, "radio1.dot11Mode", "3");
    box.set(kWsm, "radio1.adminDot11bStaFlag", "1");
}

template <class Param>
std::function<uint32_t()> with(uint32_t (*operation)(Param *), Param param)
{
    return [=]() mutable { return operation(&param); };
}

const SweepRow kSweep[] = {
    {"GetDot11Protection",
     prepare,
     with(oruSdkGetDot11Protection, {1, 0, 0}),
     {kLoad, readStep("radio1.dot11Protection", "Unable to read dot11Protection"),
      readStep("radio1.ProtectionMode", "Unable to read protectionMode")}},
    {"SetDot11Protection",
     prepare,
     with(oruSdkSetDot11Protection, {1, 4, 2}),
     {kLoad, writeStep("radio1.dot11Protection", "Unable to write dot11Protection"),
      writeStep("radio1.ProtectionMode", "Unable to write protectionMode"),
      writeStep("dot11gShortSlotTime", "Unable to write dot11gShortSlotTime"), kSave}},
    {"GetDot11StdExt",
     prepare,
     with(oruSdkGetDot11StdExt, {0, 1, 0}),
     {kLoad, readStep("radio1.standardExt", "Unable to read radioStandardExt")}},
    {"SetDot11StdExt",
     prepare,
     with(oruSdkSetDot11StdExt, {0, 1, 0}),
     {kLoad, writeStep("radio1.standardExt", "Unable to write radioStandardExt"),
      writeStep("radio1.dot11Mode", "Unable to write dot11Mode"),
      writeStep("wmmEnabledFlag", "Unable to write wmmEnabledFlag"),
      writeStep("adminDot11bStaFlag", "Unable to write adminDot11bStaFlag"), kSave}},
    {"GetStaAcceptCriteria",
     prepare,
     with(oruSdkGetStaAcceptCriteria, {0, 1, 0}),
     {kLoad, readStep("radio1.adminDot11bStaFlag", "Unable to read adminDot11bStaFlag")}},
    {"SetStaAcceptCriteria",
     prepare,
     with(oruSdkSetStaAcceptCriteria, {0, 1, 0}),
     {kLoad, readStep("radio1.standardExt", "Unable to read radioStandardExt"),
      readStep("radio1.dot11Mode", "Unable to read dot11Mode"),
      writeStep("radio1.adminDot11bStaFlag", "Unable to write adminDot11bStaFlag"), kSave}},
};

INSTANTIATE_TEST_SUITE_P(Protection, FailureSweep, ::testing::ValuesIn(kSweep), rowName);
INSTANTIATE_TEST_SUITE_P(Protection, StatusSweep, ::testing::ValuesIn(kSweep), rowName);

} // namespace
} // namespace oru::test
