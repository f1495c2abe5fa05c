#include "oruSdk.h"
#include "support/accesspoint.hpp"
#include "support/sweep.hpp"

#include <gmock/gmock.h>

#include <cstring>
#include <memory>

namespace oru::test {
namespace {

using ::testing::IsEmpty;

const std::string kUuid = "0123456789abcdefABCDEF9876543210";

struct WpsNames : AccessPointTest {
    char text[34]; // one byte more than the longest room
    uint32_t length = 77;

    WpsNames() { std::memset(text, '?', sizeof text); }
};

// ---- UUID

TEST_F(WpsNames, UuidOf32DigitsIsStoredAsGiven)
{
    for (const int32_t bss : {0, 3, -2}) {
        EXPECT_EQ(oruSdkSetUuid(bss, kUuid.c_str()), 0u);
        EXPECT_EQ(box.value(kWsm, "bss" + std::to_string(bss) + ".uuid"), kUuid);
        EXPECT_EQ(oruSdkGetUuid(bss, text, &length), 0u);
        EXPECT_STREQ(text, kUuid.c_str());
        EXPECT_EQ(length, 32u);
    }
    EXPECT_THAT(standIn.calls, ::testing::Contains("oruAsfDictSetDelimitedString bss3.uuid"));
    EXPECT_NOTHING_LOGGED();
}

TEST_F(WpsNames, OtherUuidsAre111)
{
    const std::string before = box.everything();
    std::vector<std::string> wrong{"", "0", std::string(31, 'a'), std::string(33, 'a'),
                                   std::string(64, 'a')};
    for (const char *other : {"g", "G", "-", " ", "\n", "\xc3", "="})
        for (const size_t place : {size_t{0}, size_t{15}, size_t{31}})
            wrong.push_back(std::string(kUuid).replace(place, 1, other));
    for (const std::string &uuid : wrong) {
        EXPECT_EQ(oruSdkSetUuid(1, uuid.c_str()), 111u) << uuid;
        EXPECT_LOGGED("Invalid UUID setting");
    }
    EXPECT_THAT(standIn.calls, IsEmpty());
    EXPECT_EQ(box.everything(), before);
}

TEST_F(WpsNames, UuidIsReadUpTo33Bytes)
{
    const std::unique_ptr<char[]> endless(new char[33]); // the sanitizer watches what lies behind
    std::memset(endless.get(), 'a', 33);
    EXPECT_EQ(oruSdkSetUuid(1, endless.get()), 111u);
    EXPECT_LOGGED("Invalid UUID setting");
}

TEST_F(WpsNames, UuidSetterChecksTextThenBssThenDigits)
{
    EXPECT_EQ(oruSdkSetUuid(4, nullptr), 2u);
    EXPECT_LOGGED("NULL pointer");
    for (const int32_t bss : {4, INT32_MAX}) {
        EXPECT_EQ(oruSdkSetUuid(bss, "g"), 115u);
        EXPECT_LOGGED("Invalid bss number ID: " + std::to_string(bss));
    }
    EXPECT_THAT(standIn.calls, IsEmpty());
}

TEST_F(WpsNames, StoredUuidOfUpTo32CharactersIsGiven)
{
    for (const size_t stored : {0, 1, 31, 32}) {
        box.setDelimited(kWsm, "bss1.uuid", std::string(stored, 'u'));
        EXPECT_EQ(oruSdkGetUuid(1, text, &length), 0u);
        EXPECT_EQ(text, std::string(stored, 'u'));
        EXPECT_EQ(length, stored);
        EXPECT_EQ(text[33], '?');
    }
}

TEST_F(WpsNames, LongerStoredUuidIs108)
{
    for (const size_t stored : {33, 500}) {
        box.setDelimited(kWsm, "bss1.uuid", std::string(stored, 'u'));
        EXPECT_EQ(oruSdkGetUuid(1, text, &length), 108u);
        EXPECT_LOGGED("Invalid UUID length: " + std::to_string(stored));
        EXPECT_EQ(text[0], '?');
        EXPECT_EQ(length, 77u);
    }
}

TEST_F(WpsNames, MissingUuidIs42)
{
    box.unset(kWsm, "bss1.uuid");
    EXPECT_EQ(oruSdkGetUuid(1, text, &length), 42u);
    EXPECT_LOGGED("Unable to read uuid from config file /var/wsmDefaults");
    EXPECT_EQ(text[0], '?');
    EXPECT_EQ(length, 77u);
}

// ---- Interface name

TEST_F(WpsNames, InterfaceOfUpTo9CharactersIsStored)
{
    for (const char *name : {"", "w", "wlan0", "123456789"}) {
        EXPECT_EQ(oruSdkSetWpsIntf(2, name), 0u);
        EXPECT_EQ(box.value(kWsm, "bss2.wpsintf"), name);
        EXPECT_EQ(oruSdkGetWpsIntf(2, text, &length), 0u);
        EXPECT_STREQ(text, name);
        EXPECT_EQ(length, std::strlen(name));
    }
    EXPECT_THAT(standIn.calls, ::testing::Contains("oruAsfDictSetDelimitedString bss2.wpsintf"));
    EXPECT_NOTHING_LOGGED();
}

TEST_F(WpsNames, LongerInterfaceIsCutTo9Characters)
{
    for (const char *name : {"123456789a", "123456789ab", "123456789 and so on"}) {
        EXPECT_EQ(oruSdkSetWpsIntf(2, name), 0u);
        EXPECT_EQ(box.value(kWsm, "bss2.wpsintf"), "123456789");
        box.unset(kWsm, "bss2.wpsintf");
    }
    const std::unique_ptr<char[]> endless(new char[9]);
    std::memset(endless.get(), 'a', 9);
    EXPECT_EQ(oruSdkSetWpsIntf(-1, endless.get()), 0u);
    EXPECT_EQ(box.value(kWsm, "bss-1.wpsintf"), "aaaaaaaaa");
}

TEST_F(WpsNames, HostileInterfaceChangesItsKeyAlone)
{
    EXPECT_EQ(oruSdkSetWpsIntf(2, "harmless"), 0u);
    const std::string harmless = box.everything();
    for (const char *name : {"a\nb=c", "\"", "\"\"=", "a=b", "#x", "  ", "\\\\\"\n", "\xff\x01"}) {
        EXPECT_EQ(oruSdkSetWpsIntf(2, name), 0u);
        EXPECT_EQ(box.value(kWsm, "bss2.wpsintf"), name);
        box.setDelimited(kWsm, "bss2.wpsintf", "harmless");
        EXPECT_EQ(box.everything(), harmless);
    }
}

TEST_F(WpsNames, InterfaceSetterChecksTheBssBeforeTheText)
{
    EXPECT_EQ(oruSdkSetWpsIntf(4, nullptr), 115u);
    EXPECT_LOGGED("Invalid bss number ID: 4");
    EXPECT_EQ(oruSdkSetWpsIntf(3, nullptr), 2u);
    EXPECT_LOGGED("NULL pointer");
    EXPECT_THAT(standIn.calls, IsEmpty());
}

TEST_F(WpsNames, StoredInterfaceOf9CharactersPassesAnd10Is1)
{
    box.setDelimited(kWsm, "bss1.wpsintf", "123456789");
    EXPECT_EQ(oruSdkGetWpsIntf(1, text, &length), 0u);
    EXPECT_STREQ(text, "123456789");
    EXPECT_EQ(text[10], '?');
    for (const size_t stored : {10, 11, 300}) {
        length = 77;
        box.setDelimited(kWsm, "bss1.wpsintf", std::string(stored, 'i'));
        EXPECT_EQ(oruSdkGetWpsIntf(1, text, &length), 1u);
        EXPECT_LOGGED("Invalid wps interface length: " + std::to_string(stored) + "\n");
        EXPECT_EQ(length, 77u);
        EXPECT_STREQ(text, "123456789");
    }
}

TEST_F(WpsNames, MissingInterfaceIs109)
{
    box.unset(kWsm, "bss1.wpsintf");
    EXPECT_EQ(oruSdkGetWpsIntf(1, text, &length), 109u);
    EXPECT_LOGGED("Unable to read wpsintf from config file /var/wsmDefaults");
    EXPECT_EQ(text[0], '?');
    EXPECT_EQ(length, 77u);
}

// ---- Both getters

TEST_F(WpsNames, GettersCheckPointersThenTheBss)
{
    for (const auto get : {oruSdkGetUuid, oruSdkGetWpsIntf}) {
        EXPECT_EQ(get(4, nullptr, &length), 2u);
        EXPECT_LOGGED("NULL pointer");
        EXPECT_EQ(get(4, text, nullptr), 2u);
        EXPECT_LOGGED("NULL pointer");
        for (const int32_t bss : {4, INT32_MAX}) {
            EXPECT_EQ(get(bss, text, &length), 115u);
            EXPECT_LOGGED("Invalid bss number ID: " + std::to_string(bss));
        }
    }
    EXPECT_THAT(standIn.calls, IsEmpty());
    for (const int32_t bss : {0, 3, -1}) {
        const std::string key = "bss" + std::to_string(bss) + ".wpsintf";
        box.setDelimited(kWsm, key, "wlan" + std::to_string(bss));
        EXPECT_EQ(oruSdkGetWpsIntf(bss, text, &length), 0u);
        EXPECT_EQ(text, "wlan" + std::to_string(bss));
    }
}

TEST_F(WpsNames, StatusOfZeroOrAboveWithoutATextIsAMissingKey)
{
    standIn.failOnly("oruAsfDictGetDelimitedString");
    standIn.failAt(1, 5);
    EXPECT_EQ(oruSdkGetUuid(1, text, &length), 42u);
    standIn.failAt(1, 5);
    EXPECT_EQ(oruSdkGetWpsIntf(1, text, &length), 109u);
}

std::vector<SweepRow> rows()
{
    const Step open{"oruAsfDictCreate /var/wsmDefaults", 7,
                    "Unable to read WSM Defaults file /var/wsmDefaults"};
    const Step save{"oruAsfDictSave /var/wsmDefaults", 8,
                    "Unable to write WSM Defaults file /var/wsmDefaults"};
    const auto prepare = [](AccessPoint &box, StandIn &) {
        box.setDelimited(kWsm, "bss1.uuid", "a");
        box.setDelimited(kWsm, "bss1.wpsintf", "wlan1");
    };
    return {{"GetUuid",
             prepare,
             [] {
                 char text[33];
                 uint32_t length = 0;
                 return oruSdkGetUuid(1, text, &length);
             },
             {open,
              {"oruAsfDictGetDelimitedString bss1.uuid", 42,
               "Unable to read uuid from config file /var/wsmDefaults"}}},
            {"SetUuid",
             prepare,
             [] { return oruSdkSetUuid(1, kUuid.c_str()); },
             {open,
              {"oruAsfDictSetDelimitedString bss1.uuid", 25, "Unable to write uuid to dictionary"},
              save}},
            {"GetWpsIntf",
             prepare,
             [] {
                 char text[10];
                 uint32_t length = 0;
                 return oruSdkGetWpsIntf(1, text, &length);
             },
             {open,
              {"oruAsfDictGetDelimitedString bss1.wpsintf", 109,
               "Unable to read wpsintf from config file /var/wsmDefaults"}}},
            {"SetWpsIntf",
             prepare,
             [] { return oruSdkSetWpsIntf(1, "wlan0"); },
             {open,
              {"oruAsfDictSetDelimitedString bss1.wpsintf", 25,
               "Unable to write wpsintf to dictionary"},
              save}}};
}
INSTANTIATE_TEST_SUITE_P(WpsNames, FailureSweep, ::testing::ValuesIn(rows()), rowName);
INSTANTIATE_TEST_SUITE_P(WpsNames, StatusSweep, ::testing::ValuesIn(rows()), rowName);

} // namespace
} // namespace oru::test
