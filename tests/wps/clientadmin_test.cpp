#include "oruSdk.h"
#include "support/accesspoint.hpp"
#include "support/sweep.hpp"

#include <gmock/gmock.h>

#include <cstring>

namespace oru::test {
namespace {

using ::testing::IsEmpty;

constexpr const char kBssid[] = "00:11:22:aa:bb:cc";

uint32_t set(const char *ssid, const char *bssid, uint32_t radio = 0)
{
    std::string ssidText = ssid == nullptr ? "" : ssid;
    std::string bssidText = bssid == nullptr ? "" : bssid;
    OruSdkClientAdminCritParam param{radio, ssid == nullptr ? nullptr : ssidText.data(),
                                     bssid == nullptr ? nullptr : bssidText.data()};
    return oruSdkSetClientAdminCrit(&param);
}

struct ClientAdmin : AccessPointTest {
    void expectStored(const std::string &ssid, const std::string &count, const std::string &bssid)
    {
        EXPECT_EQ(box.value(kWsm, "wdsRulesSsId"), ssid);
        EXPECT_EQ(box.value(kAa, "ssid"), ssid);
        EXPECT_EQ(box.value(kWsm, "bssNum"), count);
        EXPECT_EQ(box.value(kWsm, "bssId"), bssid);
        EXPECT_NOTHING_LOGGED();
    }
};

// ---- Setting

TEST_F(ClientAdmin, BothAreStored)
{
    EXPECT_EQ(set("join me", kBssid, 1), 0u);
    expectStored("join me", "1", kBssid);
}

TEST_F(ClientAdmin, NoneGivenStoresTheEmptySsidAndTheZeroBssid)
{
    EXPECT_EQ(set("join me", kBssid), 0u);
    EXPECT_EQ(set(nullptr, nullptr), 0u);
    expectStored("", "0", "00:00:00:00:00:00");
}

TEST_F(ClientAdmin, EachMayBeGivenAlone)
{
    EXPECT_EQ(set("ssid", nullptr), 0u);
    expectStored("ssid", "0", "00:00:00:00:00:00");
    EXPECT_EQ(set(nullptr, kBssid), 0u);
    expectStored("", "1", kBssid);
}

TEST_F(ClientAdmin, SsidOf32CharactersPassesAnd33Is79)
{
    EXPECT_EQ(set(std::string(32, 's').c_str(), nullptr), 0u);
    expectStored(std::string(32, 's'), "0", "00:00:00:00:00:00");
    EXPECT_EQ(set("", nullptr), 0u);
    const std::string before = box.everything();
    standIn.calls.clear();
    for (const size_t length : {33, 34, 1000}) {
        const std::string ssid(length, 's');
        EXPECT_EQ(set(ssid.c_str(), "short"), 79u); // before the BSSID
        EXPECT_LOGGED("Invalid SSID: " + ssid);
    }
    EXPECT_THAT(standIn.calls, IsEmpty());
    EXPECT_EQ(box.everything(), before);
}

TEST_F(ClientAdmin, BssidHasExactly17CharactersOfAnyKind)
{
    EXPECT_EQ(set("s", "no address at all"), 0u);
    expectStored("s", "1", "no address at all");
    const std::string before = box.everything();
    standIn.calls.clear();
    for (const size_t length : {0, 1, 16, 18, 100}) {
        const std::string bssid(length, 'b');
        EXPECT_EQ(set("s", bssid.c_str()), 78u);
        EXPECT_LOGGED("Invalid BSSID " + bssid);
    }
    EXPECT_THAT(standIn.calls, IsEmpty());
    EXPECT_EQ(box.everything(), before);
}

TEST_F(ClientAdmin, RecordThenRadioComeFirst)
{
    EXPECT_EQ(oruSdkSetClientAdminCrit(nullptr), 2u);
    EXPECT_LOGGED("NULL pointer");
    EXPECT_EQ(set(std::string(33, 's').c_str(), "x", 2), 3u);
    EXPECT_LOGGED("Invalid radio ID: 2");
    EXPECT_EQ(set(nullptr, nullptr, 4294967295u), 3u);
    EXPECT_LOGGED("Invalid radio ID: -1");
    EXPECT_THAT(standIn.calls, IsEmpty());
}

TEST_F(ClientAdmin, HostileTextsChangeTheirKeysAlone)
{
    EXPECT_EQ(set("harmless", kBssid), 0u);
    const std::string harmless = box.everything();
    for (const std::string text :
         {"\nbssNum=9\nx=", "\"quoted\"", "a=b", "#", "  ", "\\\"", "\xff\x01", "a\r\nb"}) {
        std::string bssid = text + "00:00:00:00:00:00";
        bssid.resize(17);
        EXPECT_EQ(set(text.c_str(), bssid.c_str()), 0u);
        expectStored(text, "1", bssid);
        box.setDelimited(kWsm, "wdsRulesSsId", "harmless");
        box.setDelimited(kAa, "ssid", "harmless");
        box.set(kWsm, "bssId", kBssid);
        EXPECT_EQ(box.everything(), harmless);
    }
}

TEST_F(ClientAdmin, FailedSecondSaveLeavesTheRadioFileSaved)
{
    EXPECT_EQ(set("old", kBssid), 0u);
    standIn.failOnly("oruAsfDictSave");
    standIn.failAt(2);
    EXPECT_EQ(set("new", nullptr), 8u);
    EXPECT_LOGGED("Unable to write AA Defaults file /var/wsmDefaults");
    EXPECT_EQ(box.value(kWsm, "wdsRulesSsId"), "new");
    EXPECT_EQ(box.value(kWsm, "bssNum"), "0");
    EXPECT_EQ(box.value(kAa, "ssid"), "old");
}

// ---- Reading

struct ClientAdminRead : ClientAdmin {
    char ssid[34]; // each with one byte more than the operation's room
    char bssid[19];
    OruSdkClientAdminCritParam param{1, ssid, bssid};

    ClientAdminRead()
    {
        std::memset(ssid, '?', sizeof ssid);
        std::memset(bssid, '?', sizeof bssid);
    }
};

TEST_F(ClientAdminRead, GivesWhatWasSet)
{
    EXPECT_EQ(set("join me", kBssid), 0u);
    EXPECT_EQ(oruSdkGetClientAdminCrit(&param), 0u);
    EXPECT_STREQ(ssid, "join me");
    EXPECT_STREQ(bssid, kBssid);
    EXPECT_EQ(set(nullptr, nullptr), 0u);
    EXPECT_EQ(oruSdkGetClientAdminCrit(&param), 0u);
    EXPECT_STREQ(ssid, "");
    EXPECT_STREQ(bssid, "00:00:00:00:00:00");
    EXPECT_NOTHING_LOGGED();
}

TEST_F(ClientAdminRead, StoredTextsAreCutToTheirRoom)
{
    for (const size_t length : {16, 17, 18, 32, 33, 300}) {
        const std::string text(length, 't');
        box.setDelimited(kWsm, "wdsRulesSsId", text);
        box.set(kWsm, "bssId", text);
        EXPECT_EQ(oruSdkGetClientAdminCrit(&param), 0u);
        EXPECT_EQ(ssid, text.substr(0, 32));
        EXPECT_EQ(bssid, text.substr(0, 17));
        EXPECT_EQ(ssid[33], '?');
        EXPECT_EQ(bssid[18], '?');
    }
}

TEST_F(ClientAdminRead, MissingKeysAre42AndTheSsidIsFilledFirst)
{
    EXPECT_EQ(set("join me", kBssid), 0u);
    box.unset(kWsm, "bssId");
    EXPECT_EQ(oruSdkGetClientAdminCrit(&param), 42u);
    EXPECT_LOGGED("Unable to read bssId from config file /var/wsmDefaults");
    EXPECT_STREQ(ssid, "join me");
    EXPECT_EQ(bssid[0], '?');
    box.unset(kWsm, "wdsRulesSsId");
    ssid[0] = '?';
    EXPECT_EQ(oruSdkGetClientAdminCrit(&param), 42u);
    EXPECT_LOGGED("Unable to read wdsRulesSsId from config file /var/wsmDefaults");
    EXPECT_EQ(ssid[0], '?');
}

TEST_F(ClientAdminRead, RecordThenRadioThenPointers)
{
    EXPECT_EQ(oruSdkGetClientAdminCrit(nullptr), 2u);
    EXPECT_LOGGED("NULL pointer");
    param = {2, nullptr, nullptr};
    EXPECT_EQ(oruSdkGetClientAdminCrit(&param), 3u);
    EXPECT_LOGGED("Invalid radio ID: 2");
    param = {0, nullptr, bssid};
    EXPECT_EQ(oruSdkGetClientAdminCrit(&param), 2u);
    EXPECT_LOGGED("NULL pointer");
    param = {0, ssid, nullptr};
    EXPECT_EQ(oruSdkGetClientAdminCrit(&param), 2u);
    EXPECT_LOGGED("NULL pointer");
    EXPECT_THAT(standIn.calls, IsEmpty());
}

TEST_F(ClientAdminRead, StatusWithoutATextIsAMissingKey)
{
    EXPECT_EQ(set("join me", kBssid), 0u);
    standIn.failOnly("oruAsfDictGetString");
    standIn.failAt(1, 5);
    EXPECT_EQ(oruSdkGetClientAdminCrit(&param), 42u);
    EXPECT_LOGGED("Unable to read bssId from config file /var/wsmDefaults");
    standIn.failOnly("oruAsfDictGetDelimitedString");
    standIn.failAt(1, 5);
    EXPECT_EQ(oruSdkGetClientAdminCrit(&param), 42u);
    EXPECT_LOGGED("Unable to read wdsRulesSsId from config file /var/wsmDefaults");
}

std::vector<SweepRow> rows()
{
    const Step open{"oruAsfDictCreate /var/wsmDefaults", 7,
                    "Unable to read WSM Defaults file /var/wsmDefaults"};
    return {{"SetClientAdminCrit",
             nullptr,
             [] { return set("join me", kBssid); },
             {open,
              {"oruAsfDictCreate /var/1x.conf", 7, "Unable to read AA Defaults file /var/1x.conf"},
              {"oruAsfDictSetDelimitedString wdsRulesSsId", 25,
               "Unable to write wdsRulesSsId to dictionary"},
              {"oruAsfDictSetDelimitedString ssid", 25, "Unable to write ssid to dictionary"},
              {"oruAsfDictSetString bssNum", 25, "Unable to write bssNum to dictionary"},
              {"oruAsfDictSetString bssId", 25, "Unable to write bssId to dictionary"},
              {"oruAsfDictSave /var/wsmDefaults", 8,
               "Unable to write WSM Defaults file /var/wsmDefaults"},
              {"oruAsfDictSave /var/1x.conf", 8,
               "Unable to write AA Defaults file /var/wsmDefaults", 3, true}}},
            {"GetClientAdminCrit",
             [](AccessPoint &box, StandIn &) {
                 box.setDelimited(kWsm, "wdsRulesSsId", "join me");
                 box.set(kWsm, "bssId", kBssid);
             },
             [] {
                 char ssid[33];
                 char bssid[18];
                 OruSdkClientAdminCritParam param{0, ssid, bssid};
                 return oruSdkGetClientAdminCrit(&param);
             },
             {open,
              {"oruAsfDictGetDelimitedString wdsRulesSsId", 42,
               "Unable to read wdsRulesSsId from config file /var/wsmDefaults"},
              {"oruAsfDictGetString bssId", 42,
               "Unable to read bssId from config file /var/wsmDefaults"}}}};
}
INSTANTIATE_TEST_SUITE_P(ClientAdmin, FailureSweep, ::testing::ValuesIn(rows()), rowName);
INSTANTIATE_TEST_SUITE_P(ClientAdmin, StatusSweep, ::testing::ValuesIn(rows()), rowName);

} // namespace
} // namespace oru::test
