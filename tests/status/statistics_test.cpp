#include "oruSdk.h"
#include "support/reply.hpp"
#include "support/sweep.hpp"

#include <gmock/gmock.h>

#include <memory>

namespace oru::test {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

/// A reply whose body is a text.
Bytes textReply(const std::string &body, uint16_t type = 274)
{
    return reply({Bytes(body.begin(), body.end())}, type, 0);
}

struct Statistics : AccessPointTest {
    std::unique_ptr<OruSdkRadioStatsParam> radio = std::make_unique<OruSdkRadioStatsParam>();
    std::unique_ptr<OruSdkStaStatsParam> station = std::make_unique<OruSdkStaStatsParam>();

    Statistics()
    {
        *radio = {0x12, 0x34, "before"};
        *station = {0x56, 0x78, {0x00, 0x11, 0x22, 0xaa, 0xbb, 0xcc}, "before"};
    }
};

TEST_F(Statistics, RadioRequestCarriesTheSelectorsFirstByteHigh)
{
    EXPECT_EQ(oruSdkGetRadioStats(radio.get()), 0u);
    EXPECT_THAT(standIn.sent().at(0).message, ElementsAre(0x01, 0x11, 0, 6, 0x12, 0x34));
    EXPECT_EQ(standIn.sent()[0].port, 5000002u);
    EXPECT_THAT(standIn.waits(), ElementsAre(20000u));
}

TEST_F(Statistics, StationRequestCarriesSelectorsAndAddress)
{
    EXPECT_EQ(oruSdkGetStaStats(station.get()), 0u);
    EXPECT_THAT(standIn.sent().at(0).message,
                ElementsAre(0x01, 0x13, 0, 12, 0x56, 0x78, 0x00, 0x11, 0x22, 0xaa, 0xbb, 0xcc));
}

TEST_F(Statistics, NoReplyLeavesTheTextAndSucceeds)
{
    EXPECT_EQ(oruSdkGetRadioStats(radio.get()), 0u);
    EXPECT_EQ(oruSdkGetStaStats(station.get()), 0u);
    EXPECT_STREQ(radio->statsStr, "before");
    EXPECT_STREQ(station->statsStr, "before");
    EXPECT_NOTHING_LOGGED();
}

TEST_F(Statistics, TextBehindTheHeadIsCopied)
{
    standIn.replyWith(textReply("tx 42 rx 7"));
    EXPECT_EQ(oruSdkGetRadioStats(radio.get()), 0u);
    EXPECT_EQ(oruSdkGetStaStats(station.get()), 0u);
    EXPECT_STREQ(radio->statsStr, "tx 42 rx 7");
    EXPECT_STREQ(station->statsStr, "tx 42 rx 7");
    EXPECT_THAT(standIn.rooms(), ElementsAre(20000u, 20000u));
    EXPECT_NOTHING_LOGGED();
}

TEST_F(Statistics, HeadAloneGivesAnEmptyText)
{
    standIn.replyWith(textReply(""));
    EXPECT_EQ(oruSdkGetRadioStats(radio.get()), 0u);
    EXPECT_STREQ(radio->statsStr, "");
}

TEST_F(Statistics, LongestReplyFitsTheRecord)
{
    standIn.replyWith(textReply(std::string(19996, 'x')));
    EXPECT_EQ(oruSdkGetRadioStats(radio.get()), 0u);
    EXPECT_EQ(std::string(radio->statsStr), std::string(19996, 'x'));
    EXPECT_EQ(oruSdkGetStaStats(station.get()), 0u);
    EXPECT_EQ(std::string(station->statsStr).size(), 19996u);
}

TEST_F(Statistics, LengthInTheHeadIsNotLookedAt)
{
    Bytes lying = textReply("tx 42");
    lying[2] = 0xff;
    lying[3] = 0xff;
    standIn.replyWith(lying);
    EXPECT_EQ(oruSdkGetRadioStats(radio.get()), 0u);
    EXPECT_STREQ(radio->statsStr, "tx 42");
}

TEST_F(Statistics, ReplyWithoutAWholeHeadIsAFailedReceive)
{
    for (size_t size : {1u, 2u, 3u}) {
        standIn.replyWith(Bytes(size, 1));
        EXPECT_EQ(oruSdkGetRadioStats(radio.get()), 48u);
        EXPECT_LOGGED("IPC Recv failed");
        EXPECT_EQ(oruSdkGetStaStats(station.get()), 48u);
        EXPECT_LOGGED("IPC Recv failed");
    }
    EXPECT_STREQ(radio->statsStr, "before");
}

TEST_F(Statistics, TypeZeroReportsAFailureAtTwoLevelsWithATextOrWithout)
{
    for (const std::string why : {"no such radio", ""}) {
        standIn.replyWith(textReply(why, 0));
        EXPECT_EQ(oruSdkGetRadioStats(radio.get()), 1u);
        EXPECT_LOGGED("param->statsStr:" + why + "\n");
        EXPECT_EQ(radio->statsStr, why);
        EXPECT_EQ(oruSdkGetStaStats(station.get()), 1u);
        EXPECT_LOGGED_AT(6, why + "\n");
        EXPECT_EQ(station->statsStr, why);
    }
}

TEST_F(Statistics, OnlyTheWholeTypeZeroIsAFailure)
{
    for (const uint16_t type : std::initializer_list<uint16_t>{1, 255, 256, 0x8000, 0xff00}) {
        standIn.replyWith(textReply("tx 1", type));
        EXPECT_EQ(oruSdkGetRadioStats(radio.get()), 0u) << type;
        EXPECT_EQ(oruSdkGetStaStats(station.get()), 0u) << type;
    }
    EXPECT_NOTHING_LOGGED();
}

TEST_F(Statistics, EverythingBehindTheHeadIsCopiedNulBytesToo)
{
    const std::string body("tx 1\0rx 2", 9);
    standIn.replyWith(textReply(body));
    EXPECT_EQ(oruSdkGetRadioStats(radio.get()), 0u);
    EXPECT_EQ(std::string(radio->statsStr, 10), body + '\0');
    EXPECT_EQ(oruSdkGetStaStats(station.get()), 0u);
    EXPECT_EQ(std::string(station->statsStr, 10), body + '\0');
}

TEST_F(Statistics, FormatDirectivesOfAServiceAreOnlyText)
{
    standIn.replyWith(textReply("%s%n%d", 0));
    EXPECT_EQ(oruSdkGetRadioStats(radio.get()), 1u);
    EXPECT_LOGGED("param->statsStr:%s%n%d\n");
}

TEST_F(Statistics, NullRecordIs2)
{
    EXPECT_EQ(oruSdkGetRadioStats(nullptr), 2u);
    EXPECT_LOGGED("NULL pointer");
    EXPECT_EQ(oruSdkGetStaStats(nullptr), 2u);
    EXPECT_LOGGED("NULL pointer");
    EXPECT_THAT(standIn.calls, IsEmpty());
}

struct LookUp {
    const char *why;
    const char *name;
    const char *text;
    int32_t value;
};

TEST(StatsValue, PicksACounterOutOfAText)
{
    const LookUp rows[] = {
        {"plain", "tx", "tx 42", 42},
        {"negative", "tx", "tx -3", -3},
        {"in the middle", "rx", "tx 42 rx 5 err 0", 5},
        {"several blanks", "tx", "tx    7", 7},
        {"line feeds and tabs are blanks", "tx", "rx 1\ntx\t8\n", 8},
        {"first occurrence is the start of a longer word", "rx", "rxBytes 10 rx 5", -1},
        {"at the end of a longer word", "rx", "totalrx 7", 7},
        {"absent", "rx", "tx 42", -1},
        {"no number behind", "tx", "tx", -1},
        {"no number behind, but a word", "tx", "tx many", -1},
        {"number with a tail", "tx", "tx 12abc", 12},
        {"plus sign", "tx", "tx +9", 9},
        {"empty text", "tx", "", -1},
        {"empty name", "", "tx 42", -1},
        {"name with a blank is no word", "tx 42", "tx 42 43", -1},
        {"largest", "tx", "tx 2147483647", 2147483647},
        {"beyond the largest", "tx", "tx 4294967295", 2147483647},
        {"beyond the smallest", "tx", "tx -99999999999999999999", INT32_MIN},
        {"NULL name", nullptr, "tx 42", -1},
        {"NULL text", "tx", nullptr, -1},
    };
    for (const LookUp &row : rows)
        EXPECT_EQ(oruSdkGetStatsValue(row.name, row.text), row.value) << row.why;
    EXPECT_TRUE(StandIn::get().logs.empty());
}

const std::vector<Step> kSteps{{"oruAsfIpcOpen", 48, "IPC Open failed"},
                               {"oruAsfIpcConnect 5000002", 48, "IPC Connect failed"},
                               {"oruAsfIpcSend", 48, "IPC Send failed"},
                               {"oruAsfIpcCheck", 0, ""},
                               {"oruAsfIpcRecv", 48, "IPC Recv failed"}};
const auto kAnswer = [](AccessPoint &, StandIn &standIn) { standIn.replyWith(textReply("tx 1")); };
const std::vector<SweepRow> kRows{
    {"GetRadioStats", kAnswer,
     [] {
         const auto param = std::make_unique<OruSdkRadioStatsParam>();
         return oruSdkGetRadioStats(param.get());
     },
     kSteps},
    {"GetStaStats", kAnswer,
     [] {
         const auto param = std::make_unique<OruSdkStaStatsParam>();
         return oruSdkGetStaStats(param.get());
     },
     kSteps},
};
INSTANTIATE_TEST_SUITE_P(Statistics, FailureSweep, ::testing::ValuesIn(kRows), rowName);

} // namespace
} // namespace oru::test
