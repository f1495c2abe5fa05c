#include "oruSdk.h"
#include "support/accesspoint.hpp"
#include "support/sweep.hpp"

#include <gmock/gmock.h>

#include <cstring>

namespace oru::test {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

struct Ssid : AccessPointTest {
    Ssid() { box.set(kWsm, "bss2.wpsstate", "2"); }

    std::string get(int32_t bss)
    {
        char text[33];
        std::memset(text, '~', sizeof text);
        uint32_t length = 99;
        EXPECT_EQ(oruSdkGetSsid(bss, text, &length), 0u);
        EXPECT_EQ(text[32], '\0');
        EXPECT_EQ(std::strlen(text), length);
        return text;
    }

    /// Both files without the SSID of BSS 2.
    std::string rest() const
    {
        std::string all;
        for (const char *path : {kWsm, kAa}) {
            box.unset(path, "bss2.ssId");
            all += box.read(path);
        }
        return all;
    }
};

TEST_F(Ssid, RoundTripsThroughBothFilesAndChangesNoOtherKey)
{
    const std::string x31(31, 'x');
    const std::vector<std::string> texts{
        "",
        "a",
        x31,
        x31 + "y",
        "with blanks",
        " both ends ",
        "    ",
        "\"quoted\"",
        "\"",
        "'",
        "back\\slash\\",
        "\\n",
        "# no comment",
        "a=b",
        "=",
        "one\ntwo",
        "x\nbss3.wvid=9",
        "\"\nbss3.wvid=\"9",
        "\r\n\t",
        "\n",
        "\xc3\xa4\xe2\x82\xac\xf0\x9f\x93\xb6",
        "\x01\x02\x1b\x7f\xff\x80",
        "%s%n%d",
        "$(id) `id`",
    };
    const std::string before = rest();
    for (const std::string &text : texts) {
        SCOPED_TRACE(text);
        EXPECT_EQ(oruSdkSetSsid(2, text.c_str()), 0u);
        EXPECT_EQ(get(2), text);
        EXPECT_EQ(box.value(kWsm, "bss2.ssId"), text);
        EXPECT_EQ(box.value(kAa, "bss2.ssId"), text);
        EXPECT_EQ(rest(), before);
    }
    EXPECT_NOTHING_LOGGED();
}

TEST_F(Ssid, EveryByteRoundTrips)
{
    for (int c = 1; c < 256; ++c) {
        const std::string text{'[', static_cast<char>(c), ']'};
        EXPECT_EQ(oruSdkSetSsid(2, text.c_str()), 0u);
        EXPECT_EQ(get(2), text);
        EXPECT_EQ(box.value(kAa, "bss2.ssId"), text);
    }
}

TEST_F(Ssid, LongerThan32CharactersIsCutWithoutAnError)
{
    for (const size_t size : {33u, 40u, 100000u}) {
        EXPECT_EQ(oruSdkSetSsid(2, std::string(size, 'k').c_str()), 0u);
        EXPECT_EQ(get(2), std::string(32, 'k'));
        EXPECT_EQ(box.value(kAa, "bss2.ssId"), std::string(32, 'k'));
    }
    EXPECT_NOTHING_LOGGED();
}

TEST_F(Ssid, OnlyThe32CharactersAreRead)
{
    // No terminator behind them: the sanitizers would see a read.
    const auto text = std::make_unique<char[]>(32);
    std::memset(text.get(), 'u', 32);
    EXPECT_EQ(oruSdkSetSsid(2, text.get()), 0u);
    EXPECT_EQ(get(2), std::string(32, 'u'));
}

TEST_F(Ssid, WpsState1Becomes2AndAnyOtherStays)
{
    for (const auto &[stored, expected] : {std::pair{"1", "2"},
                                           {"0", "0"},
                                           {"2", "2"},
                                           {"3", "3"},
                                           {"-1", "-1"},
                                           {"true", "true"}}) {
        box.set(kWsm, "bss2.wpsstate", stored);
        EXPECT_EQ(oruSdkSetSsid(2, "name"), 0u);
        EXPECT_EQ(box.value(kWsm, "bss2.wpsstate"), expected);
    }
    EXPECT_NOTHING_LOGGED();
}

TEST_F(Ssid, MissingWpsStateIsIgnored)
{
    box.unset(kWsm, "bss2.wpsstate");
    EXPECT_EQ(oruSdkSetSsid(2, "name"), 0u);
    EXPECT_EQ(box.value(kWsm, "bss2.wpsstate"), std::nullopt);
    EXPECT_EQ(box.value(kWsm, "bss2.ssId"), "name");
    EXPECT_NOTHING_LOGGED();
}

TEST_F(Ssid, NullSsidIs2AfterTheWpsStateAndLeavesTheFileOpen)
{
    box.set(kWsm, "bss4.wpsstate", "1");
    const std::string before = box.everything();
    standIn.calls.clear();
    EXPECT_EQ(oruSdkSetSsid(4, nullptr), 2u); // before the BSS
    EXPECT_LOGGED("NULL pointer");
    EXPECT_THAT(standIn.calls,
                ElementsAre("oruAsfDictCreate /var/wsmDefaults", "oruAsfDictGetInt bss4.wpsstate",
                            "oruAsfDictSetString bss4.wpsstate"));
    EXPECT_THAT(standIn.openDictPaths(), ElementsAre(kWsm));
    EXPECT_EQ(box.everything(), before);
    expectOpenDicts(1);
}

TEST_F(Ssid, BssAbove3Is115AfterTheWpsStateAndLeavesTheFileOpen)
{
    box.set(kWsm, "bss4.wpsstate", "1");
    const std::string before = box.everything();
    EXPECT_EQ(oruSdkSetSsid(4, "name"), 115u);
    EXPECT_LOGGED("Invalid bss number ID: 4");
    EXPECT_EQ(oruSdkSetSsid(INT32_MAX, "name"), 115u);
    EXPECT_LOGGED("Invalid bss number ID: 2147483647");
    EXPECT_THAT(standIn.openDictPaths(), ElementsAre(kWsm, kWsm));
    EXPECT_EQ(box.everything(), before);
    expectOpenDicts(2);
}

TEST_F(Ssid, FailedWpsStateComesBeforeTheArguments)
{
    box.set(kWsm, "bss4.wpsstate", "1");
    standIn.failOnly("oruAsfDictSetString");
    standIn.failAt(1);
    EXPECT_EQ(oruSdkSetSsid(4, nullptr), 25u);
    EXPECT_LOGGED("Unable to write wpsstate to dictionary");
}

TEST_F(Ssid, FileComesBeforeTheArguments)
{
    box.remove(kWsm);
    EXPECT_EQ(oruSdkSetSsid(4, nullptr), 7u);
    EXPECT_LOGGED("Unable to read WSM Defaults file /var/wsmDefaults");
}

TEST_F(Ssid, Bss0And3AreAccepted)
{
    for (const int32_t bss : {0, 3}) {
        EXPECT_EQ(oruSdkSetSsid(bss, "name"), 0u);
        EXPECT_EQ(get(bss), "name");
    }
    EXPECT_NOTHING_LOGGED();
}

TEST_F(Ssid, NegativeBssFormsItsKeysWithTheSign)
{
    box.set(kWsm, "bss-1.wpsstate", "1");
    EXPECT_EQ(oruSdkSetSsid(-1, "name"), 0u);
    EXPECT_EQ(box.value(kWsm, "bss-1.wpsstate"), "2");
    EXPECT_EQ(box.value(kWsm, "bss-1.ssId"), "name");
    EXPECT_EQ(box.value(kAa, "bss-1.ssId"), "name");
    EXPECT_EQ(get(-1), "name");
}

TEST_F(Ssid, FailedSecondSaveLeavesTheFirstFileWritten)
{
    box.setDelimited(kWsm, "bss2.ssId", "old");
    box.setDelimited(kAa, "bss2.ssId", "old");
    standIn.failOnly("oruAsfDictSave");
    standIn.failAt(2);
    EXPECT_EQ(oruSdkSetSsid(2, "new"), 8u);
    EXPECT_LOGGED("Unable to write AA Defaults file /var/wsmDefaults");
    EXPECT_EQ(box.value(kWsm, "bss2.ssId"), "new");
    EXPECT_EQ(box.value(kAa, "bss2.ssId"), "old");
}

TEST_F(Ssid, MissingSecurityFileLeavesTheRadioFile)
{
    box.set(kWsm, "bss2.wpsstate", "1");
    box.remove(kAa);
    const std::string before = box.everything();
    EXPECT_EQ(oruSdkSetSsid(2, "new"), 7u);
    EXPECT_LOGGED("Unable to read AA Defaults file /var/1x.conf");
    EXPECT_EQ(box.everything(), before);
}

// ---- Reading

TEST_F(Ssid, ReaderReadsTheRadioFile)
{
    box.setDelimited(kWsm, "bss2.ssId", "radio");
    box.setDelimited(kAa, "bss2.ssId", "agent");
    EXPECT_EQ(get(2), "radio");
}

TEST_F(Ssid, ReaderRefusesAStoredSsidOf33Characters)
{
    box.setDelimited(kWsm, "bss2.ssId", std::string(33, 's'));
    char text[33] = "kept";
    uint32_t length = 99;
    EXPECT_EQ(oruSdkGetSsid(2, text, &length), 23u);
    EXPECT_LOGGED("Invalid SSID length: 33");
    EXPECT_STREQ(text, "kept");
    EXPECT_EQ(length, 99u);
    box.setDelimited(kWsm, "bss2.ssId", std::string(32, 's'));
    EXPECT_EQ(get(2), std::string(32, 's'));
}

TEST_F(Ssid, ReaderNamesTheSecurityFileWhenTheKeyIsMissing)
{
    box.unset(kWsm, "bss2.ssId");
    char text[33] = "kept";
    uint32_t length = 99;
    EXPECT_EQ(oruSdkGetSsid(2, text, &length), 42u);
    EXPECT_LOGGED("Unable to read ssid from config file /var/1x.conf");
    EXPECT_STREQ(text, "kept");
    EXPECT_EQ(length, 99u);
}

TEST_F(Ssid, ReaderChecksThePointersThenTheBss)
{
    char text[33];
    uint32_t length = 0;
    EXPECT_EQ(oruSdkGetSsid(4, nullptr, &length), 2u);
    EXPECT_LOGGED("NULL pointer");
    EXPECT_EQ(oruSdkGetSsid(4, text, nullptr), 2u);
    EXPECT_LOGGED("NULL pointer");
    EXPECT_EQ(oruSdkGetSsid(4, text, &length), 115u);
    EXPECT_LOGGED("Invalid bss number ID: 4");
    EXPECT_THAT(standIn.calls, ::testing::Not(::testing::Contains(::testing::HasSubstr("ssId"))));
}

TEST_F(Ssid, ReaderTakesAStatusWithoutATextAsMissing)
{
    char text[33] = "kept";
    uint32_t length = 99;
    standIn.failOnly("oruAsfDictGetDelimitedString");
    standIn.failAt(1, 5);
    EXPECT_EQ(oruSdkGetSsid(2, text, &length), 42u);
    EXPECT_STREQ(text, "kept");
}

// ---- Each call failing

std::vector<SweepRow> rows()
{
    return {{"SetSsid",
             [](AccessPoint &box, StandIn &) { box.set(kWsm, "bss2.wpsstate", "1"); },
             [] { return oruSdkSetSsid(2, "changed"); },
             {{"oruAsfDictCreate /var/wsmDefaults", 7,
               "Unable to read WSM Defaults file /var/wsmDefaults"},
              {"oruAsfDictGetInt bss2.wpsstate", 0, ""},
              {"oruAsfDictSetString bss2.wpsstate", 25, "Unable to write wpsstate to dictionary"},
              {"oruAsfDictSetDelimitedString bss2.ssId", 25, "Unable to write ssId to dictionary"},
              {"oruAsfDictCreate /var/1x.conf", 7, "Unable to read AA Defaults file /var/1x.conf"},
              {"oruAsfDictSetDelimitedString bss2.ssId", 25, "Unable to write ssid to dictionary"},
              {"oruAsfDictSave /var/wsmDefaults", 8,
               "Unable to write WSM Defaults file /var/wsmDefaults"},
              {"oruAsfDictSave /var/1x.conf", 8,
               "Unable to write AA Defaults file /var/wsmDefaults", 3, true}}},
            {"GetSsid",
             nullptr,
             [] {
                 char text[33];
                 uint32_t length = 0;
                 return oruSdkGetSsid(2, text, &length);
             },
             {{"oruAsfDictCreate /var/wsmDefaults", 7,
               "Unable to read WSM Defaults file /var/wsmDefaults"},
              {"oruAsfDictGetDelimitedString bss2.ssId", 42,
               "Unable to read ssid from config file /var/1x.conf"}}}};
}
INSTANTIATE_TEST_SUITE_P(Ssid, FailureSweep, ::testing::ValuesIn(rows()), rowName);
INSTANTIATE_TEST_SUITE_P(Ssid, StatusSweep, ::testing::ValuesIn(rows()), rowName);

} // namespace
} // namespace oru::test
