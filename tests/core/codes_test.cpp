#include "oruSdk.h"

#include <gtest/gtest.h>

#include <cstring>
#include <set>
#include <string>

namespace {

// What callers see before any call; tests run as processes of their own.
TEST(Codes, ServiceConstantsHaveTheirValuesBeforeAnyCall)
{
    EXPECT_EQ(port, 5000002u);
    EXPECT_EQ(vers, 1001u);
    EXPECT_EQ(authPort, 5000003u);
    EXPECT_EQ(ifi, 0u);
    EXPECT_EQ(sizeof ifi, 2u);
}

TEST(Codes, VersionIsTheSameTextOnEveryCall)
{
    EXPECT_STREQ(oruSdkGetVersion(), "5.0.600.16");
    EXPECT_EQ(oruSdkGetVersion(), oruSdkGetVersion());
}

TEST(Codes, TableHasItsFirstAndLastEntries)
{
    static_assert(sizeof oruSdkRcStr / sizeof *oruSdkRcStr == ORUSDK_RC_COUNT);
    EXPECT_STREQ(oruSdkRcStr[0], "Not defined");
    EXPECT_STREQ(oruSdkRcStr[121],
                 "Current channel is radar channel, please change current channel before enabling "
                 "Radar detection");
}

TEST(Codes, EntryOf120IsTwoSentencesRunTogether)
{
    EXPECT_STREQ(oruSdkRcStr[120],
                 "This is a radar channel. Please disable radar detection before using this "
                 "channelRadar is already in requested state");
}

TEST(Codes, TextsKeepTheirOddities)
{
    EXPECT_STREQ(oruSdkRcStr[112], "Invalid RCR Chan Length ");
    EXPECT_STREQ(oruSdkRcStr[119], "Given parameters are invalid at this instance");
    EXPECT_STREQ(
        oruSdkRcStr[100],
        "Invalid EDCA Profile specified!\nThe valid options are - 1 for WMM and 0 for Tavon");
    EXPECT_STREQ(
        oruSdkRcStr[103],
        "Invalid dynamic profile selected!\nThe valid options are: 0 - Tavon, 1 - WMM, 2 - "
        "Dynamic profile selection OFF");
    EXPECT_STREQ(
        oruSdkRcStr[97],
        "Invalid broadcast rate specified!\nThe valid rates are - \nFor 802.11A/G: 1, 2, "
        "5(for 5.5), 6, 9, 11, 12, 18, 24, 36, 48, 54 \nFor Enhanced Rate: 42, 72, 84, 96, "
        "108, 126, 144, 168, 192, 216, 240");
    EXPECT_STREQ(oruSdkRcStr[99], "Invalid broadcast rate for pure 11B specified!\nThe valid rates "
                                  "are -\nFor 802.11B: - 1, 2, 5(for 5.5) or 11");
}

struct Named {
    uint32_t code;
    const char *text;
};

TEST(Codes, NamedCodesStandAtTheirTexts)
{
    const Named named[] = {
        {ORUSDK_RC_NULL_POINTER, "NULL pointer"},
        {ORUSDK_RC_RADIO_ID, "Invalid radio ID"},
        {ORUSDK_RC_FILE_READ, "Error in reading configuration file"},
        {ORUSDK_RC_FILE_WRITE, "Error in writing configuration file"},
        {ORUSDK_RC_DICT_WRITE, "Error in writing to dictionary"},
        {ORUSDK_RC_DICT_READ, "Error in reading from dictionary"},
        {ORUSDK_RC_KEY_READ, "Error in reading element from configuration file"},
        {ORUSDK_RC_OPTION, "Invalid radio administrative status"},
        {ORUSDK_RC_WSM_REQUEST, "Failed to send request to radio mgt module(WSM)"},
        {ORUSDK_RC_AA_REQUEST, "Failed to send request to authorization agent module(AA)"},
        {ORUSDK_RC_FILE_COPY, "Failed to copy configuration file"},
        {ORUSDK_RC_PSK_MISSING, "PSK is not set"},
        {ORUSDK_RC_NO_SECURITY_MODE, "No security mode set"},
        {ORUSDK_RC_NO_RADIUS_SERVER, "No RADIUS servers configured"},
        {ORUSDK_RC_RADIUS_TOTAL_TIME, "The total time for trying to reach a RADIUS server (timeout "
                                      "x maxTries) must be less than "
                                      "20 seconds"},
        {ORUSDK_RC_MEMORY, "System Error: Memory allocation failed"},
        {ORUSDK_RC_NOT_SET, "This config item not set, Disabled"},
        {ORUSDK_RC_BSS_NUMBER, "Invalid BSS Number"},
        {ORUSDK_RC_ETH_NUMBER, "Invalid Eth Number"},
        {ORUSDK_RC_PARAMETERS, "Given parameters are invalid at this instance"},
    };
    for (const Named &row : named) EXPECT_STREQ(oruSdkRcStr[row.code], row.text) << row.code;
}

TEST(Codes, NoMessageIsEmptyOrEndsInALineFeed)
{
    std::set<std::string> seen;
    for (uint32_t code = 0; code < ORUSDK_RC_COUNT; ++code) {
        const std::string text = oruSdkRcStr[code];
        ASSERT_FALSE(text.empty()) << code;
        EXPECT_NE(text.back(), '\n') << code;
        EXPECT_TRUE(seen.insert(text).second) << "twice: " << text;
    }
}

TEST(Codes, WholeTableIsUnchanged)
{
    // FNV-1a over all messages with their terminators: a changed character anywhere shows.
    uint64_t hash = 0xcbf29ce484222325;
    size_t bytes = 0;
    for (const char *text : oruSdkRcStr) {
        for (size_t i = 0; i <= std::strlen(text); ++i, ++bytes)
            hash = (hash ^ static_cast<unsigned char>(text[i])) * 0x100000001b3;
    }
    EXPECT_EQ(bytes, 4589u);
    EXPECT_EQ(hash, 0xf6ed8bd946fa1474u);
}

TEST(Codes, Code122HasNoEntry)
{
    EXPECT_EQ(ORUSDK_RC_CONFIGURED_RADAR_CHANNEL, ORUSDK_RC_COUNT);
}

} // namespace
