// The channels of a radio, against what a set of each of them says.
#include "tools/oructl_run.hpp"
#include "tools/wsm_service.hpp"

#include <gmock/gmock.h>

#include <map>
#include <memory>

using namespace oru::test;
using nlohmann::json;
using testing::HasSubstr;
using testing::SizeIs;

namespace {

using Settings = std::map<std::string, std::string>;

const Bytes kUs24 = {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11};
const Bytes kWorld24 = {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13};
const Bytes kJapan24 = {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14};
const Bytes kLow5 = {36, 40, 44, 48, 52, 56, 60, 64};
const Bytes kHigh5 = {100, 104, 108, 112, 116, 120, 124, 128, 132, 136, 140, 149, 153, 157, 161};
const Bytes kAll5 = joined({kLow5, kHigh5});

class ShowChannels : public OructlTest {
protected:
    ShowChannels() { useFactoryRadios(); }

    void startWsm(const std::vector<Bytes> &radios)
    {
        wsm_ = std::make_unique<WsmService>(root());
        wsm_->answer(266, {radioInfo(radios)});
    }

    void apply(const Settings &settings) const
    {
        for (const auto &[key, value] : settings) set(kWsm, key, value);
    }

    json rows(const char *radio) const
    {
        return jsonOf({"--json", "show", "channels", radio}, 0)["rows"];
    }

    std::unique_ptr<WsmService> wsm_;
};

/// A product, its settings, and how many channels a set takes.
struct Configuration {
    const char *name;
    const char *radio;
    std::vector<Bytes> radios;
    Settings settings;
    size_t listed;
    size_t allowed;
};

void PrintTo(const Configuration &configuration, std::ostream *out)
{
    *out << configuration.name;
}

const std::vector<Bytes> kUs = {radioEntry("USI", true, kUs24), radioEntry("USI", true, kAll5)};
const std::vector<Bytes> kBoth = {radioEntry("DEI", true, joined({kWorld24, kAll5})),
                                  radioEntry("DEI", true, joined({kWorld24, kAll5}))};
const std::vector<Bytes> kOnly24 = {radioEntry("USI", false, kUs24),
                                    radioEntry("USI", false, joined({kUs24, kLow5}))};
const std::vector<Bytes> kJapan = {radioEntry("JPI", true, kJapan24),
                                   radioEntry("JPI", true, joined({kJapan24, kAll5}))};
const Settings kAny0 = {{"radio0.bandType", "0"}, {"radio0.radarDetectFlag", "0"}};

Settings with(Settings settings, const Settings &more)
{
    for (const auto &[key, value] : more) settings[key] = value;
    return settings;
}

const Configuration kConfigurations[] = {
    {"Factory24", "0", kUs, {}, 37, 11},
    {"Factory5", "1", kUs, {}, 37, 8},
    {"RadarDetectionOff", "1", kUs, {{"radio1.radarDetectFlag", "0"}}, 37, 23},
    {"BondedAt24", "0", kUs, {{"radio0.channelBondingMode", "1"}}, 37, 11},
    {"BondedAt5",
     "1",
     kUs,
     {{"radio1.channelBondingMode", "1"}, {"radio1.radarDetectFlag", "0"}},
     37,
     22},
    {"BondedWithoutPartnerInTheCountry",
     "1",
     {radioEntry("USI", true, {}), radioEntry("USI", true, {36, 44, 48, 149})},
     {{"radio1.channelBondingMode", "1"}},
     37,
     2},
    {"BondedAt24WithoutPartnerInTheCountry",
     "0",
     {radioEntry("XXI", true, {1, 5, 7, 9, 14})},
     {{"radio0.channelBondingMode", "1"}},
     37,
     3},
    {"AnyBand", "0", kBoth, kAny0, 37, 36},
    {"AnyBandOfMode1", "0", kBoth, with(kAny0, {{"radio0.dot11Mode", "1"}}), 37, 23},
    {"AnyBandOfMode2", "0", kBoth, with(kAny0, {{"radio0.dot11Mode", "2"}}), 37, 13},
    {"AnyBandOfMode3", "0", kBoth, with(kAny0, {{"radio0.dot11Mode", "3"}}), 37, 13},
    {"AnyBandOfMode9", "0", kBoth, with(kAny0, {{"radio0.dot11Mode", "9"}}), 37, 36},
    {"ModeAndBandThatMeetNowhere", "1", kUs, {{"radio1.dot11Mode", "3"}}, 37, 0},
    {"ChannelSetBehindItsRange", "0", kBoth, with(kAny0, {{"radio0.bandType", "5"}}), 37, 0},
    {"ChannelSet3", "0", kBoth, with(kAny0, {{"radio0.bandType", "3"}}), 37, 36},
    {"ChannelSet4", "0", kBoth, with(kAny0, {{"radio0.bandType", "4"}}), 37, 36},
    {"FixedRateOf11b", "0", kBoth, with(kAny0, {{"radio0.fixedRate", "65"}}), 37, 13},
    {"FixedRateOf11bAtItsEnd", "0", kBoth, with(kAny0, {{"radio0.fixedRate", "68"}}), 37, 13},
    {"FixedRateBehind11b", "0", kBoth, with(kAny0, {{"radio0.fixedRate", "69"}}), 37, 36},
    {"ProductWithout5GHz", "0", kOnly24, {}, 14, 11},
    {"ProductWithout5GHzThatTellsOfSome", "1", kOnly24, {{"radio1.bandType", "0"}}, 22, 11},
    {"Japan", "0", kJapan, {}, 37, 13},
    {"JapanOfMode2", "0", kJapan, {{"radio0.dot11Mode", "2"}}, 37, 14},
    {"JapanOf13Channels",
     "0",
     {radioEntry("JPI", true, {2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14})},
     {},
     37,
     12},
    {"JapanOf14ChannelsInAnotherOrder",
     "0",
     {radioEntry("JPI", true, {14, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13})},
     {},
     37,
     12},
    {"Channel14Bonded",
     "1",
     kJapan,
     {{"radio1.bandType", "0"}, {"radio1.channelBondingMode", "1"}},
     37,
     21},
    {"Channel14OfAnotherBondingMode",
     "0",
     {radioEntry("USI", true, kJapan24)},
     {{"radio0.channelBondingMode", "2"}},
     37,
     13},
    {"Channel14Elsewhere", "0", {radioEntry("USI", true, kJapan24)}, {}, 37, 14},
    {"ChannelsThatNoneKnows",
     "0",
     {radioEntry("USI", true, {0, 1, 1, 15, 38, 165, 255})},
     kAny0,
     41,
     1},
    {"MoreChannelsThanASetLooksAt",
     "1",
     {radioEntry("USI", true, {}), radioEntry("USI", true, joined({Bytes(30, 36), {40}}))},
     {},
     37,
     1},
    {"NoChannels", "0", {radioEntry("USI", true, {})}, {}, 37, 0},
};

class EachConfiguration : public ShowChannels, public ::testing::WithParamInterface<Configuration> {
protected:
    /// The code of a set of a channel; of none with secondary channel 0.
    [[nodiscard]] int codeOfSet(int channel, int secondary) const
    {
        Arguments words = {"--json", "set", "channel", GetParam().radio, std::to_string(channel)};
        if (secondary != 0) {
            words.emplace_back("--secondary");
            words.push_back(std::to_string(secondary));
        }
        const Transcript set = run(words);
        return set.exit == 0 ? 0 : json::parse(set.out)["error"]["code"].get<int>();
    }

    /// Tries the channel with every secondary one that it might have.
    void expectAgreement(const json &row) const
    {
        SCOPED_TRACE(row.dump());
        const bool allowed = row["allowed"]["word"] == "yes";
        ASSERT_EQ(allowed, row["refused-by"].empty());
        const int code = allowed ? 0 : row["refused-by"][0]["code"].get<int>();
        const int channel = row["channel"];
        if (row["secondary"].is_null()) {
            EXPECT_EQ(codeOfSet(channel, 0), code) << "not bonded";
            return;
        }
        std::map<int, int> codes;
        for (const int secondary : {0, channel - 4, channel + 4})
            codes[secondary] = codeOfSet(channel, secondary);
        EXPECT_THAT(codes, testing::Contains(testing::Pair(testing::_, code)));
        for (const json &secondary : row["secondary"]) EXPECT_EQ(codes.at(secondary), code);
        std::erase_if(codes, [](const auto &each) { return each.second != 0; });
        EXPECT_EQ(codes.size(), allowed ? row["secondary"].size() : 0);
    }
};

TEST_P(EachConfiguration, IsAsASetSaysOfEveryChannel)
{
    startWsm(GetParam().radios);
    apply(GetParam().settings);
    const json rows = this->rows(GetParam().radio);
    size_t allowed = 0;
    for (const json &row : rows) {
        expectAgreement(row);
        if (row["allowed"]["number"] == 1) ++allowed;
    }
    EXPECT_THAT(rows, SizeIs(GetParam().listed));
    EXPECT_EQ(allowed, GetParam().allowed);
}

INSTANTIATE_TEST_SUITE_P(Show, EachConfiguration, ::testing::ValuesIn(kConfigurations),
                         [](const auto &info) { return std::string(info.param.name); });

// ---- What is shown

TEST_F(ShowChannels, AreATableBelowWhatDecides)
{
    startWsm({radioEntry("USI", true, {36, 40, 52}), radioEntry("USI", true, {36, 40, 52, 149})});
    apply({{"radio1.channelBondingMode", "1"}});
    const Transcript run = this->run({"show", "channels", "1"});
    EXPECT_EQ(run.exit, 0);
    EXPECT_EQ(run.err, "");
    EXPECT_THAT(run.out, testing::StartsWith("country          \"US\"\n"
                                             "bands            2.4ghz-and-5ghz\n"
                                             "radar-detect     on\n"
                                             "channel-bonding  40mhz\n"
                                             "dot11-mode       4\n"
                                             "channel-set      5ghz\n"
                                             "rate             automatic (code 0)\n"
                                             "\n"
                                             "channel  allowed  secondary  refused-by\n"));
    EXPECT_THAT(run.out, HasSubstr("\n36       yes      40         -\n"));
    EXPECT_THAT(run.out, HasSubstr("\n52       no       -          radar-detect 120,country 88\n"));
    EXPECT_THAT(run.out, HasSubstr("\n149      no       -          country 88\n"));
    EXPECT_THAT(
        run.out,
        HasSubstr(
            "\n14       no       -          channel-bonding 106,channel-set 88,country 88\n"));
}

TEST_F(ShowChannels, AsJsonHaveTheirSettingsAsAGetHas)
{
    startWsm({radioEntry("USI", false, {1})});
    apply({{"radio0.dot11Mode", "1"}});
    const json object = jsonOf({"--json", "show", "channels", "0"}, 0);
    EXPECT_EQ(object["show"], "channels");
    EXPECT_EQ(object["radio"], 0);
    EXPECT_EQ(object["facts"],
              (json{{"country", "US"}, {"bands", {{"word", "2.4ghz"}, {"number", 0}}}}));
    EXPECT_EQ(object["items"]["dot11-mode"], 1);
    EXPECT_EQ(object["items"]["rate"]["meaning"], "automatic");
    EXPECT_EQ(object["rows"][0],
              (json{{"channel", 1},
                    {"allowed", {{"word", "no"}, {"number", 0}}},
                    {"secondary", nullptr},
                    {"refused-by",
                     {{{"check", {{"word", "dot11-mode"}, {"number", 2}}}, {"code", 19}}}}}));
}

TEST_F(ShowChannels, OfBothPartnersAt24GHzThoseOfTheCountryAreSecondary)
{
    startWsm({radioEntry("USI", true, kUs24)});
    apply({{"radio0.channelBondingMode", "1"}});
    const json rows = this->rows("0");
    EXPECT_EQ(rows[3]["secondary"], json::array({8}));
    EXPECT_EQ(rows[5]["secondary"], json::array({2, 10}));
    EXPECT_EQ(rows[8]["secondary"], json::array({5})) << "13 is not allowed";
}

// ---- Failures

TEST_F(ShowChannels, CannotBeToldWithoutWsmOrARadio)
{
    EXPECT_EQ(run({"show", "channels", "0"}).err,
              "oructl: show channels 0: failed: Failed to send request to radio mgt module(WSM) "
              "(code 48)\n");
    startWsm({radioEntry("USI", true, kUs24)});
    EXPECT_EQ(run({"show", "channels", "1"}).err,
              "oructl: show channels 1: WSM tells of no radio 1\n");
    EXPECT_EQ(jsonOf({"--json", "show", "channels", "1"}, 1)["error"]["kind"], "failed");
    EXPECT_EQ(run({"show", "channels", "2"}).err,
              "oructl: show channels 2: refused: Invalid radio ID (code 3); RADIO is 0 to 1\n");
}

TEST_F(ShowChannels, FailWithTheCodeOfTheGetterThatCannotRead)
{
    startWsm(kUs);
    for (const char *key :
         {"radarDetectFlag", "channelBondingMode", "dot11Mode", "bandType", "fixedRate"}) {
        SCOPED_TRACE(key);
        useFactoryRadios();
        set(kWsm, std::string("radio0.") + key, "none");
        EXPECT_EQ(jsonOf({"--json", "show", "channels", "0"}, 1)["error"]["code"], 42);
        EXPECT_EQ(jsonOf({"--json", "set", "channel", "0", "6"}, 1)["error"]["code"], 42);
    }
}

} // namespace
