// Channel tables and the regulatory domain. Each case needs a process of its own.
#include "radio/channels.hpp"
#include "radio/wsm.hpp"

#include <gmock/gmock.h>

#include <map>
#include <set>

namespace oru::test {
namespace {

using ::testing::ElementsAre;
using ::testing::ElementsAreArray;
using ::testing::IsEmpty;

// ---- Tables, over every byte and what would match if only the low byte counted

const std::set<uint32_t> kValid{1,   2,   3,   4,   5,   6,   7,   8,   9,   10,  11,  12,
                                13,  36,  40,  44,  48,  52,  56,  60,  64,  100, 104, 108,
                                112, 116, 120, 124, 128, 132, 136, 140, 149, 153, 157, 161};
const std::set<uint32_t> kRadar{52,  56,  60,  64,  100, 104, 108, 112,
                                116, 120, 124, 128, 132, 136, 140};
const std::map<uint32_t, uint32_t> kPartner{
    {36, 40},   {40, 36},   {44, 48},   {48, 44},   {52, 56},   {56, 52},   {60, 64},   {64, 60},
    {100, 104}, {104, 100}, {108, 112}, {112, 108}, {116, 120}, {120, 116}, {124, 128}, {128, 124},
    {132, 136}, {136, 132}, {149, 153}, {153, 149}, {157, 161}, {161, 157}};

TEST(ChannelTable, ValidChannels)
{
    for (uint32_t channel = 0; channel <= 512; ++channel)
        for (const int32_t flag : {0, 1, 2, -1})
            EXPECT_EQ(isValidChannel(channel, flag),
                      kValid.contains(channel) || (channel == 14 && flag == 0))
                << channel << " flag " << flag;
    EXPECT_FALSE(isValidChannel(0xffffffff, 0));
    EXPECT_FALSE(isValidChannel(0x80000024, 0));
}

TEST(ChannelTable, RadarChannels)
{
    for (uint32_t channel = 0; channel <= 512; ++channel)
        EXPECT_EQ(isRadarChannel(channel), kRadar.contains(channel)) << channel;
    EXPECT_FALSE(isRadarChannel(0x80000000 + 52));
}

TEST(ChannelTable, Pairs)
{
    for (uint32_t primary = 0; primary <= 300; ++primary)
        for (uint32_t secondary = 0; secondary <= 300; ++secondary) {
            const auto found = kPartner.find(primary);
            const bool expected = found != kPartner.end() && found->second == secondary;
            if (isChannelPair(primary, secondary) != expected)
                ADD_FAILURE() << primary << "/" << secondary;
        }
    EXPECT_FALSE(isChannelPair(136, 140));
    EXPECT_FALSE(isChannelPair(140, 136));
    EXPECT_TRUE(isChannelPair(149, 153));
    EXPECT_TRUE(isChannelPair(153, 149));
}

// ---- The regulatory domain of a radio

struct RegDomain : AccessPointTest {
    OruRegChannelInfo info{};

    uint32_t build(const Radio &radio, const std::string &mode, int16_t index = 0)
    {
        box.set(kWsm, "radio0.dot11Mode", index == 0 ? mode : "x");
        box.set(kWsm, "radio1.dot11Mode", index == 1 ? mode : "x");
        const Radio other;
        standIn.replyWith(
            radioReply(index == 0 ? std::vector{radio, other} : std::vector{other, radio}));
        info.radioIndex = index;
        return buildRegChannelInfo(&info);
    }
    [[nodiscard]] Bytes list24() const { return {info.channels24, info.channels24 + info.count24}; }
    [[nodiscard]] Bytes list5() const { return {info.channels5, info.channels5 + info.count5}; }
};

TEST_F(RegDomain, ChannelsAreSplitAt15InTheRadiosOrder)
{
    EXPECT_EQ(build({"USI", {36, 14, 15, 1, 161, 6}}, "3"), 0u);
    EXPECT_THAT(list24(), ElementsAre(14, 1, 6));
    EXPECT_THAT(list5(), ElementsAre(36, 15, 161));
}

TEST_F(RegDomain, RadioIsThatOfTheRecord)
{
    EXPECT_EQ(build({"DEI", {13, 100}}, "3", 1), 0u);
    EXPECT_THAT(list24(), ElementsAre(13));
    EXPECT_THAT(list5(), ElementsAre(100));
    EXPECT_EQ(info.domainClass, 4);
}

TEST_F(RegDomain, CountryIsLoggedAtLevel6)
{
    EXPECT_EQ(build({"DEO"}, "3"), 0u);
    EXPECT_LOGGED_AT(6, "CountryCode DEO");
}

TEST_F(RegDomain, FullListsTakeNoMore)
{
    std::vector<uint8_t> channels(29, 1);
    channels.insert(channels.end(), {2, 3});
    channels.insert(channels.end(), 28, 36);
    EXPECT_EQ(build({"USI", channels}, "3"), 0u);
    EXPECT_EQ(info.count24, 30);
    EXPECT_EQ(info.channels24[29], 2);
    EXPECT_EQ(info.count5, 28);
    EXPECT_EQ(info.channels5[28], 0);
}

TEST_F(RegDomain, FullListOf5GHzTakesNoMore)
{
    std::vector<uint8_t> channels(30, 36);
    channels.insert(channels.end(), {40, 44, 1});
    EXPECT_EQ(build({"USI", channels}, "3"), 0u);
    EXPECT_EQ(info.count5, 30);
    EXPECT_EQ(info.channels5[29], 36);
    EXPECT_THAT(list24(), ElementsAre(1));
    EXPECT_EQ(info.domainClass, 0);
}

TEST_F(RegDomain, RefusedEntryIsReadNoFurtherThanItsRoom)
{
    standIn.replyWith(radioReply({{"USI", {}, 1, 255}}));
    info.radioIndex = 0;
    box.set(kWsm, "radio0.dot11Mode", "3");
    EXPECT_EQ(buildRegChannelInfo(&info), 1u);
    EXPECT_ERRORS("oruSdkGetRadioParam() failed", "getRadioInfo() failed",
                  "getRadioCountryCode() failed");
    EXPECT_EQ(buildRegChannelInfo(&info), 0u);
    EXPECT_LE(info.count24, 30);
    EXPECT_EQ(info.count5, 0);
}

// Channel 14 in Japan

TEST_F(RegDomain, JapanLosesTheLastOf14ChannelsOutside11b)
{
    EXPECT_EQ(build({"JPI", kChannels1To14}, "3"), 0u);
    EXPECT_EQ(info.domainClass, 10);
    EXPECT_EQ(info.count24, 13);
    EXPECT_FALSE(isChannelInRegDomain(&info, 14, 0));
}

TEST_F(RegDomain, JapanKeeps14ChannelsIn11b)
{
    EXPECT_EQ(build({"JPI", kChannels1To14}, "2"), 0u);
    EXPECT_EQ(info.count24, 14);
}

TEST_F(RegDomain, OtherCountriesKeep14Channels)
{
    EXPECT_EQ(build({"USI", kChannels1To14}, "3"), 0u);
    EXPECT_EQ(info.count24, 14);
}

TEST_F(RegDomain, JapanKeepsChannel14OfFewerChannels)
{
    EXPECT_EQ(build({"JPI", {12, 13, 14, 36}}, "3"), 0u);
    EXPECT_THAT(list24(), ElementsAre(12, 13, 14));
}

TEST_F(RegDomain, JapanKeepsChannel14OfMoreChannels)
{
    EXPECT_EQ(build({"JPI", channelsFrom(0, 15)}, "3"), 0u);
    EXPECT_EQ(info.count24, 15);
}

// Failures, in order

TEST_F(RegDomain, MissingFileIs7BeforeWsmIsAsked)
{
    box.remove(kWsm);
    EXPECT_EQ(buildRegChannelInfo(&info), 7u);
    EXPECT_LOGGED("Unable to read WSM Defaults file /var/wsmDefaults");
    EXPECT_THAT(standIn.sent(), IsEmpty());
}

TEST_F(RegDomain, CountryComesBeforeTheMode)
{
    box.unset(kWsm, "radio0.dot11Mode");
    standIn.failOnly("oruAsfIpcOpen");
    standIn.failAt(1);
    EXPECT_EQ(buildRegChannelInfo(&info), 48u);
    EXPECT_ERRORS("IPC Open failed", "oruSdkGetRadioParam() failed", "getRadioInfo() failed",
                  "getRadioCountryCode() failed");
    EXPECT_EQ(buildRegChannelInfo(&info), 42u);
    EXPECT_ERRORS("Unable to read dot11Mode from config file /var/wsmDefaults");
}

TEST_F(RegDomain, MissingModeIs42AndLeavesTheRecord)
{
    EXPECT_EQ(build({"JPI"}, "g"), 42u);
    EXPECT_LOGGED("Unable to read dot11Mode from config file /var/wsmDefaults");
    EXPECT_EQ(info.domainClass, 0);
    EXPECT_THAT(list24(), IsEmpty());
}

// Membership

TEST(Membership, IsByBandType)
{
    OruRegChannelInfo info{0, 2, {1, 6}, 2, {36, 40}, 0};
    struct {
        uint32_t channel;
        std::set<int32_t> bands;
    } const rows[] = {
        {1, {0, 1, 3, 4}},
        {6, {0, 1, 3, 4}},
        {36, {0, 2, 3, 4}},
        {40, {0, 2, 3, 4}},
        {11, {}},
        {44, {}},
        {0, {}}, // the room behind the last entry
        {256 + 36, {}},
        {0xffffff00 + 1, {}},
    };
    for (const auto &row : rows)
        for (const int32_t band : {0, 1, 2, 3, 4, 5, 6, 100, 0x7fffffff, -1})
            EXPECT_EQ(isChannelInRegDomain(&info, row.channel, band), row.bands.contains(band))
                << row.channel << " band " << band;
}

TEST(Membership, EmptyListsHoldNothing)
{
    const OruRegChannelInfo info{};
    for (uint32_t channel = 0; channel < 256; ++channel)
        EXPECT_FALSE(isChannelInRegDomain(&info, channel, 0)) << channel;
}

// ---- Domain classes: each country in a process of its own

struct Country {
    std::string letters;
    int32_t domainClass;
};

std::vector<Country> countries()
{
    const std::vector<std::vector<std::string>> classes{
        {"US", "CA", "CO"},
        {"MX"},
        {"AR"},
        {"BR"},
        {"AL", "AN", "BY", "BA", "BG", "HR", "CZ", "DK", "EE", "FI", "DE", "GI", "GR",
         "HU", "IS", "IE", "IT", "LV", "LI", "LT", "LU", "MK", "MT", "MD", "MC", "NL",
         "NO", "PL", "PT", "RO", "RU", "SM", "SK", "SI", "SW", "UA", "GB", "VA", "YU"},
        {"FR"},
        {"AT"},
        {"BE"},
        {"ES"},
        {"CH"},
        {"JP"},
        {"SG"},
        {"IL"},
        {"CN"},
        {"JO"},
        {"TH"},
        // Every other code is of class 0: known ones, lower case, pairs over a boundary, none.
    };
    std::vector<Country> all;
    for (size_t i = 0; i < classes.size(); ++i)
        for (const std::string &letters : classes[i])
            all.push_back({letters, static_cast<int32_t>(i)});
    for (const char *other : {"SE", "AU", "KR", "ZW", "jp", "PJ", "LA", "XX"})
        all.push_back({other, 0});
    return all;
}

struct DomainClass : RegDomain, ::testing::WithParamInterface<Country> {};

TEST_P(DomainClass, GoesByTheFirstTwoLetters)
{
    EXPECT_EQ(build({GetParam().letters + "O", {1}}, "3"), 0u);
    EXPECT_EQ(info.domainClass, GetParam().domainClass);
}

INSTANTIATE_TEST_SUITE_P(Countries, DomainClass, ::testing::ValuesIn(countries()),
                         [](const auto &info) { return info.param.letters; });

TEST_F(RegDomain, CountryOfZerosIsOfClass0)
{
    box.set(kWsm, "radio0.dot11Mode", "3");
    info.domainClass = 99;
    EXPECT_EQ(buildRegChannelInfo(&info), 0u); // WSM says nothing
    EXPECT_EQ(info.domainClass, 0);
    EXPECT_EQ(info.count24, 0);
}

} // namespace
} // namespace oru::test
