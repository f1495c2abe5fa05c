// Rate codes in words, and channel numbers.
#include "channels.hpp"
#include "rates.hpp"

#include <gtest/gtest.h>

#include <array>
#include <string>

using namespace oructl;

namespace {

constexpr std::array kMbps = {"1", "2", "5.5", "6", "9", "11", "12", "18", "24", "36", "48", "54"};

struct McsBlock {
    int64_t first;
    const char *width;
    const char *guard;
};

constexpr McsBlock kMcsBlocks[] = {{1, "20 MHz", "long GI"},
                                   {33, "20 MHz", "short GI"},
                                   {65, "40 MHz", "long GI"},
                                   {97, "40 MHz", "short GI"}};

TEST(Rates, ZeroIsAutomatic)
{
    EXPECT_EQ(rateMeaning(0), "automatic");
    EXPECT_EQ(kLegacyRate.word(0), "auto");
    EXPECT_EQ(kMcsRate.word(0), "auto");
    EXPECT_EQ(kLegacyBroadcastRate.word(0), "") << "a broadcast rate is never automatic";
    EXPECT_EQ(kMcsBroadcastRate.word(0), "");
}

TEST(Rates, CodesOfIndexedMcsTellWidthAndGuardInterval)
{
    for (const McsBlock &block : kMcsBlocks)
        for (int64_t index = 0; index < 32; ++index) {
            const int64_t code = block.first + index;
            const std::string number = std::to_string(index);
            EXPECT_EQ(rateMeaning(code), "MCS " + number + ", " + block.width + ", " + block.guard)
                << code;
            EXPECT_EQ(kMcsRate.word(code), number) << code;
            EXPECT_EQ(kMcsBroadcastRate.word(code), number) << code;
            EXPECT_EQ(kLegacyRate.word(code), "") << code;
            EXPECT_EQ(kLegacyBroadcastRate.word(code), "") << code;
        }
}

TEST(Rates, LegacyCodesAreMbps)
{
    for (size_t i = 0; i < kMbps.size(); ++i) {
        const auto code = static_cast<int64_t>(129 + i);
        EXPECT_EQ(rateMeaning(code), std::string(kMbps[i]) + " Mbps") << code;
        EXPECT_EQ(kLegacyRate.word(code), kMbps[i]) << code;
        EXPECT_EQ(kLegacyBroadcastRate.word(code), kMbps[i]) << code;
        EXPECT_EQ(kMcsRate.word(code), "") << code;
        EXPECT_EQ(kMcsBroadcastRate.word(code), "") << code;
    }
}

TEST(Rates, Mcs32HasTwoCodesAndIsNoBroadcastRate)
{
    EXPECT_EQ(rateMeaning(141), "MCS 32, long GI");
    EXPECT_EQ(rateMeaning(142), "MCS 32, short GI");
    for (const int64_t code : {141, 142}) {
        EXPECT_EQ(kMcsRate.word(code), "32");
        EXPECT_EQ(kMcsBroadcastRate.word(code), "");
        EXPECT_EQ(kLegacyRate.word(code), "");
    }
}

TEST(Rates, OtherCodesAreNoRate)
{
    for (const int64_t code : {int64_t{-1}, int64_t{143}, int64_t{160}, int64_t{INT32_MIN},
                               int64_t{INT32_MAX}, int64_t{4294967296 + 129}, INT64_MIN}) {
        EXPECT_EQ(rateMeaning(code), "no known rate") << code;
        for (const Coded *coded :
             {&kLegacyRate, &kMcsRate, &kLegacyBroadcastRate, &kMcsBroadcastRate})
            EXPECT_EQ(coded->word(code), "") << code;
    }
}

TEST(Channels, RadarChannelsAreTheMiddleOfTheBand)
{
    int radar = 0;
    for (int64_t channel = -1; channel < 300; ++channel) radar += isRadarChannel(channel) ? 1 : 0;
    EXPECT_EQ(radar, 15);
    for (const int64_t channel : {52, 64, 100, 140}) EXPECT_TRUE(isRadarChannel(channel));
    for (const int64_t channel : {0, 14, 48, 53, 149}) EXPECT_FALSE(isRadarChannel(channel));
}

TEST(Channels, PartnersAt5GHzArePairs)
{
    int paired = 0;
    for (const uint8_t channel : allChannels()) {
        const int64_t partner = partnerAt5GHz(channel);
        if (partner == 0) continue;
        ++paired;
        EXPECT_EQ(partnerAt5GHz(partner), channel);
    }
    EXPECT_EQ(paired, 22);
    EXPECT_EQ(partnerAt5GHz(36), 40);
    EXPECT_EQ(partnerAt5GHz(40), 36);
    EXPECT_EQ(partnerAt5GHz(136), 132);
    EXPECT_EQ(partnerAt5GHz(149), 153);
    EXPECT_EQ(partnerAt5GHz(161), 157);
    for (const int64_t none : {0, 6, 14, 37, 140, 165, -36, 1000})
        EXPECT_EQ(partnerAt5GHz(none), 0) << none;
}

TEST(Channels, OnlyChannelsOfTheTableExist)
{
    int channels = 0;
    for (int64_t channel = -1; channel < 300; ++channel) channels += isChannel(channel) ? 1 : 0;
    EXPECT_EQ(channels, 37);
    for (const int64_t none : {0, 15, 35, 38, 65, 99, 144, 165}) EXPECT_FALSE(isChannel(none));
}

} // namespace
