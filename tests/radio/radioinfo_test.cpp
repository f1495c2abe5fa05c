// The question for WSM's radios.
#include "oruSdk.h"
#include "radio/wsm.hpp"
#include "support/sweep.hpp"

#include <gmock/gmock.h>

#include <cstring>
#include <memory>

namespace oru::test {
namespace {

using ::testing::Each;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::SizeIs;

constexpr uint8_t kUntouched = 0xcc;

/// A record with room for some radios, none of its bytes touched; room ends with the last entry.
class Record {
public:
    explicit Record(size_t radios = 2)
        : size_(sizeof(OruSdkRadioInfo::radioCount) + radios * sizeof(OruSdkRadioInfoEntry)),
          bytes_(static_cast<uint8_t *>(std::malloc(size_)), std::free)
    {
        std::memset(bytes_.get(), kUntouched, size_);
    }
    OruSdkRadioInfo *get() { return reinterpret_cast<OruSdkRadioInfo *>(bytes_.get()); }
    [[nodiscard]] Bytes all() const { return {bytes_.get(), bytes_.get() + size_}; }
    [[nodiscard]] Bytes count() const { return {bytes_.get(), bytes_.get() + 4}; }
    [[nodiscard]] Bytes bytesOf(size_t radio) const
    {
        const uint8_t *at = bytes_.get() + 4 + radio * sizeof(OruSdkRadioInfoEntry);
        return {at, at + sizeof(OruSdkRadioInfoEntry)};
    }
    OruSdkRadioInfoEntry entry(size_t radio)
    {
        OruSdkRadioInfoEntry copy;
        std::memcpy(&copy, bytesOf(radio).data(), sizeof copy);
        return copy;
    }

private:
    size_t size_;
    std::unique_ptr<uint8_t, void (*)(void *)> bytes_;
};

const Bytes kNoCount(4, kUntouched);

struct GetRadioInfo : AccessPointTest {};

TEST_F(GetRadioInfo, AsksWsmForTwentyThousandBytes)
{
    Record record;
    EXPECT_EQ(oruSdkGetRadioInfo(record.get()), 0u);
    ASSERT_THAT(standIn.sent(), SizeIs(1));
    EXPECT_EQ(standIn.sent()[0].host, "localhost");
    EXPECT_EQ(standIn.sent()[0].port, 5000002u);
    EXPECT_EQ(standIn.sent()[0].version, 1001u);
    EXPECT_THAT(standIn.sent()[0].message, ElementsAre(0x01, 0x0a, 0, 8, 0, 0, 0x4e, 0x20));
    EXPECT_THAT(standIn.waits(), ElementsAre(20000u));
}

TEST_F(GetRadioInfo, ReadsEveryFieldOfBothRadios)
{
    standIn.replyWith(radioReply({{"JPI", {1, 14, 36, 255}, 0}, {"US ", {}, 7}}));
    Record record;
    EXPECT_EQ(oruSdkGetRadioInfo(record.get()), 0u);
    EXPECT_THAT(record.count(), ElementsAre(0, 0, 0, 2));
    EXPECT_THAT(standIn.rooms(), ElementsAre(20000u));

    const OruSdkRadioInfoEntry first = record.entry(0);
    EXPECT_EQ(std::string(first.countryCode, 3), "JPI");
    EXPECT_EQ(first.attr1, 0x8384);
    EXPECT_EQ(first.attr2, 0x8586);
    EXPECT_EQ(first.attr3, 0x8788);
    EXPECT_EQ(first.attr4, 0x898a);
    EXPECT_EQ(first.attr5, 0x8b8c8d8eu);
    EXPECT_EQ(first.attr6, 0x8f);
    EXPECT_EQ(first.attr7, 0x9091);
    EXPECT_EQ(first.attr8, 0x9293);
    EXPECT_EQ(first.attr9, 0x94959697u);
    EXPECT_THAT(first.bandSupport, ElementsAre(0xb0, 0xb1, 0, 0xb3));
    EXPECT_EQ(first.channelCount, 4);
    EXPECT_THAT(Bytes(first.channels, first.channels + 4), ElementsAre(1, 14, 36, 255));
    EXPECT_THAT(Bytes(first.channels + 4, first.channels + 63), Each(kUntouched));

    const OruSdkRadioInfoEntry second = record.entry(1);
    EXPECT_EQ(std::string(second.countryCode, 3), "US ");
    EXPECT_THAT(second.bandSupport, ElementsAre(0xb0, 0xb1, 7, 0xb3));
    EXPECT_EQ(second.channelCount, 0);
    EXPECT_THAT(second.channels, Each(kUntouched));
    EXPECT_NOTHING_LOGGED();
}

TEST_F(GetRadioInfo, EntryIsLaidOutIn96Bytes)
{
    standIn.replyWith(radioReply({{"USI", {36, 40}}}));
    Record record;
    ASSERT_EQ(oruSdkGetRadioInfo(record.get()), 0u);
    const Bytes bytes = record.bytesOf(0);
    EXPECT_THAT(Bytes(bytes.begin(), bytes.begin() + 3), ElementsAre('U', 'S', 'I'));
    EXPECT_THAT(Bytes(bytes.begin() + 28, bytes.begin() + 36),
                ElementsAre(0xb0, 0xb1, 1, 0xb3, 2, 36, 40, kUntouched));
    EXPECT_EQ(sizeof(OruSdkRadioInfoEntry), 96u);
    EXPECT_EQ(sizeof(OruSdkRadioInfo), 196u);
}

TEST_F(GetRadioInfo, AsksAfreshEachTime)
{
    Record record;
    standIn.replyWith(radioReply({{}, {}}));
    EXPECT_EQ(oruSdkGetRadioInfo(record.get()), 0u);
    standIn.replyWith(radioReply({{"JPI"}}));
    EXPECT_EQ(oruSdkGetRadioInfo(record.get()), 0u);
    EXPECT_THAT(record.count(), ElementsAre(0, 0, 0, 1));
    EXPECT_EQ(record.entry(0).countryCode[0], 'J');
    EXPECT_THAT(standIn.sent(), SizeIs(2));
}

TEST_F(GetRadioInfo, NullRecordIs2)
{
    EXPECT_EQ(oruSdkGetRadioInfo(nullptr), 2u);
    EXPECT_LOGGED("NULL pointer");
    EXPECT_THAT(standIn.calls, IsEmpty());
}

TEST_F(GetRadioInfo, HeaderAloneMeansNoRadios)
{
    standIn.replyWith({1, 11, 0, 4});
    Record record;
    EXPECT_EQ(oruSdkGetRadioInfo(record.get()), 0u);
    EXPECT_THAT(record.count(), ElementsAre(0, 0, 0, 0));
    EXPECT_THAT(record.bytesOf(0), Each(kUntouched));
    EXPECT_NOTHING_LOGGED();
}

TEST_F(GetRadioInfo, SilenceWithinTheWaitMeansNoRadios)
{
    Record record;
    EXPECT_EQ(oruSdkGetRadioInfo(record.get()), 0u);
    EXPECT_THAT(record.count(), ElementsAre(0, 0, 0, 0));
    EXPECT_THAT(record.bytesOf(0), Each(kUntouched));
    EXPECT_THAT(standIn.rooms(), IsEmpty());
    EXPECT_NOTHING_LOGGED();
}

TEST_F(GetRadioInfo, ReplyShorterThanItsHeaderIsRefused)
{
    for (const Bytes &reply : {Bytes{1}, Bytes{1, 11, 0}}) {
        standIn.replyWith(reply);
        Record record;
        EXPECT_EQ(oruSdkGetRadioInfo(record.get()), 48u);
        EXPECT_LOGGED("IPC Recv failed");
        EXPECT_THAT(record.all(), Each(kUntouched));
    }
}

TEST_F(GetRadioInfo, LengthInTheHeaderIsNotLookedAt)
{
    Bytes reply = radioReply({{}, {}});
    reply[2] = reply[3] = 0;
    standIn.replyWith(reply);
    Record record;
    EXPECT_EQ(oruSdkGetRadioInfo(record.get()), 0u);
    EXPECT_THAT(record.count(), ElementsAre(0, 0, 0, 2));
}

TEST_F(GetRadioInfo, EveryCutOfAReplyGivesTheWholeEntries)
{
    const Radio radio{"USI", {1, 6, 11}, 1};
    const Bytes whole = radioReply({radio, radio});
    ASSERT_THAT(whole, SizeIs(4 + 2 * 32));
    for (size_t size = 4; size <= whole.size(); ++size) {
        standIn.replyWith(Bytes(whole.begin(), whole.begin() + static_cast<ptrdiff_t>(size)));
        Record record;
        EXPECT_EQ(oruSdkGetRadioInfo(record.get()), 0u) << size;
        const size_t entries = (size - 4) / 32;
        EXPECT_THAT(record.count(), ElementsAre(0, 0, 0, entries)) << size;
        for (size_t i = entries; i < 2; ++i)
            EXPECT_THAT(record.bytesOf(i), Each(kUntouched)) << size;
    }
    EXPECT_NOTHING_LOGGED();
}

TEST_F(GetRadioInfo, FiftyNineChannelsAreTaken)
{
    standIn.replyWith(radioReply({{"USI", channelsFrom(1, 59)}, {"DEI", channelsFrom(101, 59)}}));
    Record record;
    EXPECT_EQ(oruSdkGetRadioInfo(record.get()), 0u);
    EXPECT_THAT(record.count(), ElementsAre(0, 0, 0, 2));
    EXPECT_EQ(record.entry(0).channelCount, 59);
    EXPECT_EQ(record.entry(0).channels[58], 59);
    EXPECT_EQ(record.entry(0).channels[59], kUntouched);
    EXPECT_EQ(record.entry(1).channels[58], 159);
}

TEST_F(GetRadioInfo, SixtyChannelsOrMoreAre1WithoutALine)
{
    for (const int count : {60, 61, 63, 64, 128, 255}) {
        const Radio refused{"DEI", channelsFrom(1, 60), 3, count};
        standIn.replyWith(radioReply({{"USI", {36}}, refused}));
        Record record;
        EXPECT_EQ(oruSdkGetRadioInfo(record.get()), 1u) << count;
        EXPECT_EQ(record.count(), kNoCount);
        EXPECT_EQ(record.entry(0).channels[0], 36);     // the entry before it stays
        EXPECT_EQ(record.entry(1).countryCode[0], 'D'); // and its own fixed fields
        EXPECT_EQ(record.entry(1).channelCount, count); // the number is stored, then checked
        EXPECT_THAT(record.entry(1).channels, Each(kUntouched));
    }
    EXPECT_NOTHING_LOGGED();
}

TEST_F(GetRadioInfo, RefusedCountIsRefusedEvenWhenItsChannelsAreCut)
{
    standIn.replyWith(radioReply({{"USI", {}, 1, 60}}));
    Record record;
    EXPECT_EQ(oruSdkGetRadioInfo(record.get()), 1u);
    EXPECT_EQ(record.entry(0).channelCount, 60);
}

TEST_F(GetRadioInfo, CallerWithRoomGetsEveryRadioOfTheReply)
{
    standIn.replyWith(radioReply(std::vector<Radio>(5)));
    Record record{5};
    EXPECT_EQ(oruSdkGetRadioInfo(record.get()), 0u);
    EXPECT_THAT(record.count(), ElementsAre(0, 0, 0, 5));
    for (size_t i = 0; i < 5; ++i) EXPECT_EQ(record.entry(i).countryCode[0], 'U') << i;
}

TEST_F(GetRadioInfo, LongestReplyFillsTheDocumentedRoom)
{
    const Bytes longest = radioReply(std::vector<Radio>(700, Radio{"USI", {}, 1}));
    standIn.replyWith(Bytes(longest.begin(), longest.begin() + 20000));
    Record record{ORUSDK_RADIO_INFO_MAX_RADIOS};
    EXPECT_EQ(oruSdkGetRadioInfo(record.get()), 0u);
    EXPECT_THAT(record.count(), ElementsAre(0, 0, 689 >> 8, 689 & 0xff));
    EXPECT_EQ(record.entry(688).countryCode[0], 'U');
}

const std::vector<SweepRow> kRows{
    {"GetRadioInfo",
     [](AccessPoint &, StandIn &standIn) {
         standIn.replyWith(radioReply({{}, {}}));
     },
     [] { return oruSdkGetRadioInfo(Record{}.get()); },
     {{"oruAsfIpcOpen", 48, "IPC Open failed"},
      {"oruAsfIpcConnect 5000002", 48, "IPC Connect failed"},
      {"oruAsfIpcSend", 48, "IPC Send failed"},
      {"oruAsfIpcCheck", 0, ""},
      {"oruAsfIpcRecv", 48, "IPC Recv failed"}}},
};
INSTANTIATE_TEST_SUITE_P(RadioInfo, FailureSweep, ::testing::ValuesIn(kRows), rowName);
INSTANTIATE_TEST_SUITE_P(RadioInfo, StatusSweep, ::testing::ValuesIn(kRows), rowName);

constexpr char kCountries[] =
    "AD AE AF AG AI AL AM AN AO AQ AR AS AT AU AW AX AZ BA BB BD BE BF BG BH "
    "BI BJ BM BN BO BR BS BT BV BW BY BZ CA CC CD CF CG CH CI CK CL CM CN CO "
    "CR CU CV CX CY CZ DE DJ DK DM DO DZ EC EE EG EH ER ES ET FI FJ FK FM FO "
    "FR GA GB GD GE GF GG GH GI GL GM GN GP GQ GR GS GT GU GW GY HK HM HN HR "
    "HT HU ID IE IL IM IN IO IQ IR IS IT JE JM JO JP KE KG KH KI KM KN KP KR "
    "KW KY KZ LA LB LC LI LK LR LS LT LU LV LY MA MC MD ME MG MH MK ML MM MN "
    "MO MP MQ MR MS MT MU MV MW MX MY MZ NA NC NE NF NG NI NL NO NP NR NU NZ "
    "OM PA PE PF PG PH PK PL PM PN PR PS PT PW PY QA RE RO RS RU RW SA SB SC "
    "SD SE SG SH SI SJ SK SL SM SN SO SR ST SV SY SZ TC TD TF TG TH TJ TK TL "
    "TM TN TO TR TT TV TW TZ UA UG UM US UY UZ VA VC VE VG VI VN VU WF WS YE "
    "YT ZA ZM ZW";

TEST(CountryStrings, AreTheseInThisOrder)
{
    std::string all;
    for (const char *country : oruSdkCountryStrings)
        all += (all.empty() ? "" : " ") + std::string(country);
    EXPECT_EQ(all, kCountries);
}

TEST(CountryStrings, AreTwoCapitalLettersInAscendingOrder)
{
    EXPECT_STREQ(oruSdkCountryStrings[0], "AD");
    EXPECT_STREQ(oruSdkCountryStrings[111], "JP");
    EXPECT_STREQ(oruSdkCountryStrings[243], "ZW");
    for (int i = 0; i < 244; ++i) {
        const std::string country = oruSdkCountryStrings[i];
        ASSERT_THAT(country, SizeIs(2)) << i;
        EXPECT_TRUE(std::isupper(country[0]) && std::isupper(country[1])) << country;
        if (i > 0) {
            EXPECT_LT(oruSdkCountryStrings[i - 1], country) << i;
        }
    }
}

} // namespace
} // namespace oru::test
