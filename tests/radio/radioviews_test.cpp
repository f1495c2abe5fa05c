// The views of what WSM told of its radios once. Each case needs a process of its own.
#include "radio/radioinfo.hpp"
#include "radio/wsm.hpp"

#include <gmock/gmock.h>

#include <cstring>

namespace oru::test {
namespace {

using ::testing::Each;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::SizeIs;

struct RadioViews : AccessPointTest {
    OruSdkRadioInfoEntry entry;
    char code[3] = {'x', 'y', 'z'};

    RadioViews() { std::memset(&entry, 0xcc, sizeof entry); }
    [[nodiscard]] Bytes channels(size_t first, size_t end) const
    {
        return {entry.channels + first, entry.channels + end};
    }
};

TEST_F(RadioViews, EachRadioHasItsOwnEntry)
{
    standIn.replyWith(radioReply({{"USI", {1, 6}, 0}, {"DEO", {36, 40, 44}, 1}}));
    EXPECT_EQ(getRadioInfo(1, &entry), 0u);
    EXPECT_EQ(std::string(entry.countryCode, 3), "DEO");
    EXPECT_EQ(entry.attr5, 0x8b8c8d8eu);
    EXPECT_EQ(entry.attr9, 0x94959697u);
    EXPECT_EQ(entry.bandSupport[2], 1);
    EXPECT_EQ(entry.channelCount, 3);
    EXPECT_THAT(channels(0, 3), ElementsAre(36, 40, 44));
    EXPECT_THAT(channels(3, 63), Each(0xcc));
    EXPECT_EQ(getRadioInfo(0, &entry), 0u);
    EXPECT_EQ(std::string(entry.countryCode, 3), "USI");
    EXPECT_THAT(channels(0, 3), ElementsAre(1, 6, 44));
    EXPECT_NOTHING_LOGGED();
}

TEST_F(RadioViews, WsmIsAskedOnceWhateverTheView)
{
    standIn.replyWith(radioReply({{"USI"}, {"DEO"}}));
    EXPECT_EQ(getRadioCountryCode(1, code), 0u);
    EXPECT_THAT(code, ElementsAre('D', 'E', 'O'));
    standIn.replyWith(radioReply({{"JPI", {}, 0}, {"JPI", {}, 0}}));
    EXPECT_EQ(getRadioCountryCode(0, code), 0u);
    EXPECT_THAT(code, ElementsAre('U', 'S', 'I'));
    EXPECT_EQ(getRadioInfo(0, &entry), 0u);
    EXPECT_EQ(getRadioProductBand(0), 0u);
    EXPECT_THAT(standIn.sent(), SizeIs(1));
}

TEST_F(RadioViews, QuestionOfACallerLeavesTheCacheAlone)
{
    standIn.replyWith(radioReply({{"USI"}}));
    EXPECT_EQ(getRadioCountryCode(0, code), 0u);
    standIn.replyWith(radioReply({{"JPI"}}));
    OruSdkRadioInfo info;
    EXPECT_EQ(oruSdkGetRadioInfo(&info), 0u);
    EXPECT_EQ(info.entries[0].countryCode[0], 'J');
    EXPECT_EQ(getRadioCountryCode(0, code), 0u);
    EXPECT_EQ(code[0], 'U');
}

TEST_F(RadioViews, ProductBandIsThatOfRadio0)
{
    standIn.replyWith(radioReply({{"USI", {1}, 0}, {"USI", {36}, 1}}));
    EXPECT_EQ(getRadioProductBand(0), 1u);
    EXPECT_EQ(getRadioProductBand(1), 1u);
}

TEST_F(RadioViews, ProductWithAnyThirdByteWorksIn5GHzToo)
{
    standIn.replyWith(radioReply({{"USI", {1}, 0x80}, {"USI", {36}, 0}}));
    EXPECT_EQ(getRadioProductBand(0), 0u);
    EXPECT_EQ(getRadioProductBand(1), 0u);
}

TEST_F(RadioViews, SilentServiceLeavesZeros)
{
    EXPECT_EQ(getRadioInfo(0, &entry), 0u);
    EXPECT_EQ(entry.channelCount, 0);
    EXPECT_EQ(getRadioProductBand(0), 1u);
    EXPECT_THAT(standIn.sent(), SizeIs(1));
}

TEST_F(RadioViews, CacheTakesTwoRadiosAndIgnoresTheRest)
{
    const Radio refused{"ZZ ", {}, 1, 60};
    standIn.replyWith(radioReply({{"USI"}, {"DEO"}, refused, {"JPI"}}));
    EXPECT_EQ(getRadioCountryCode(1, code), 0u);
    EXPECT_THAT(code, ElementsAre('D', 'E', 'O'));
    EXPECT_NOTHING_LOGGED();
}

TEST_F(RadioViews, RadioBehindTheCacheIsEmpty)
{
    standIn.replyWith(radioReply({{"USI"}, {"DEO"}, {"JPI"}}));
    for (const uint32_t radio : {2u, 255u, 0xffffffffu}) {
        EXPECT_EQ(getRadioInfo(radio, &entry), 0u);
        EXPECT_EQ(entry.channelCount, 0);
        EXPECT_EQ(getRadioCountryCode(radio, code), 0u);
        EXPECT_THAT(code, Each('\0'));
    }
}

TEST_F(RadioViews, RefusedEntryStaysPartlyFilled)
{
    standIn.replyWith(radioReply({{"USI", channelsFrom(1, 60), 1, 255}}));
    EXPECT_EQ(getRadioInfo(0, &entry), 1u);
    EXPECT_ERRORS("oruSdkGetRadioParam() failed");
    EXPECT_EQ(getRadioInfo(0, &entry), 0u);
    EXPECT_EQ(std::string(entry.countryCode, 3), "USI");
    EXPECT_EQ(entry.channelCount, 255);
    EXPECT_THAT(channels(0, 63), Each(0)); // nothing is read past the room of the entry
    EXPECT_EQ(getRadioInfo(1, &entry), 0u);
    EXPECT_EQ(entry.countryCode[0], '\0');
    EXPECT_THAT(standIn.sent(), SizeIs(1));
}

/// The first question fails in one of its calls.
struct FailedFirstFetch : RadioViews,
                          ::testing::WithParamInterface<std::pair<const char *, const char *>> {
    FailedFirstFetch()
    {
        standIn.replyWith(radioReply({{}, {}}));
        standIn.failOnly(GetParam().first);
        standIn.failAt(1);
    }
    const char *line = GetParam().second;

    void expectNeverAskedAgain()
    {
        standIn.calls.clear();
        EXPECT_EQ(getRadioCountryCode(0, code), 0u);
        EXPECT_THAT(code, ElementsAre('\0', '\0', '\0'));
        EXPECT_EQ(getRadioInfo(1, &entry), 0u);
        EXPECT_EQ(entry.channelCount, 0);
        EXPECT_EQ(getRadioProductBand(0), 1u);
        EXPECT_THAT(standIn.calls, IsEmpty());
        EXPECT_NOTHING_LOGGED();
    }
};

TEST_P(FailedFirstFetch, OfAnEntryIsToldOnce)
{
    EXPECT_EQ(getRadioInfo(0, &entry), 48u);
    EXPECT_ERRORS(line, "oruSdkGetRadioParam() failed");
    EXPECT_THAT(channels(0, 63), Each(0xcc));
    expectNeverAskedAgain();
}

TEST_P(FailedFirstFetch, OfACountryIsToldOnce)
{
    EXPECT_EQ(getRadioCountryCode(0, code), 48u);
    EXPECT_ERRORS(line, "oruSdkGetRadioParam() failed", "getRadioInfo() failed");
    EXPECT_THAT(code, ElementsAre('x', 'y', 'z'));
    expectNeverAskedAgain();
}

TEST_P(FailedFirstFetch, OfTheBandMeansBothBandsOnce)
{
    EXPECT_EQ(getRadioProductBand(0), 0u);
    EXPECT_ERRORS(line, "oruSdkGetRadioParam() failed", "getRadioInfo() failed",
                  "getRadioProductBand() failed");
    expectNeverAskedAgain();
}

INSTANTIATE_TEST_SUITE_P(Calls, FailedFirstFetch,
                         ::testing::Values(std::pair{"oruAsfIpcOpen", "IPC Open failed"},
                                           std::pair{"oruAsfIpcConnect", "IPC Connect failed"},
                                           std::pair{"oruAsfIpcSend", "IPC Send failed"},
                                           std::pair{"oruAsfIpcRecv", "IPC Recv failed"}),
                         [](const auto &info) { return std::string(info.param.first); });

} // namespace
} // namespace oru::test
