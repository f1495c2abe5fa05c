// Rate codes: the tables, and what becomes of a requested rate under each stored setting.
#include "radio/ratecodes.hpp"

#include "support/accesspoint.hpp"

#include <gmock/gmock.h>

#include <limits>
#include <string>

namespace oru::test {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

struct Legacy {
    int32_t mbps;
    uint32_t code;
};

constexpr Legacy kLegacy[] = {{1, 129},  {2, 130},  {5, 131},  {6, 132},  {9, 133},  {11, 134},
                              {12, 135}, {18, 136}, {24, 137}, {36, 138}, {48, 139}, {54, 140}};

// ---- Tables

TEST(RateCodes, EachLegacyRateHasItsCode)
{
    for (const Legacy &rate : kLegacy) EXPECT_EQ(convertExtToIntRateCode(rate.mbps), rate.code);
}

TEST(RateCodes, EveryOtherRateIsAMiss)
{
    for (int32_t mbps = -200; mbps <= 400; ++mbps) {
        bool known = false;
        for (const Legacy &rate : kLegacy) known = known || rate.mbps == mbps;
        if (!known) {
            EXPECT_EQ(convertExtToIntRateCode(mbps), 6u) << mbps;
        }
    }
    EXPECT_EQ(convertExtToIntRateCode(std::numeric_limits<int32_t>::min()), 6u);
    EXPECT_EQ(convertExtToIntRateCode(std::numeric_limits<int32_t>::max()), 6u);
}

TEST(RateCodes, RateOf6IsNoMiss)
{
    EXPECT_EQ(convertExtToIntRateCode(6), 132u);
}

TEST(RateMap, PairsOctetsWithMbps)
{
    static_assert(sizeof rateMap == 24 * sizeof(const char *));
    const std::vector<std::string> texts(rateMap, rateMap + 24);
    EXPECT_THAT(texts, ElementsAre("82", "1", "84", "2", "8B", "5.5", "96", "11", "8C", "6", "92",
                                   "9", "98", "12", "A4", "18", "B0", "24", "C8", "36", "E0", "48",
                                   "EC", "54"));
}

TEST(RateMap, OctetsAreHalfMegabitsWithTheBasicBit)
{
    for (size_t pair = 0; pair < 12; ++pair) {
        const double halfMegabits = 2 * std::stod(rateMap[2 * pair + 1]);
        EXPECT_EQ(std::stoi(rateMap[2 * pair], nullptr, 16), 0x80 + static_cast<int>(halfMegabits));
    }
}

// ---- Validators

/// The settings of radio 1; those of radio 0 are absent.
struct Settings {
    int mode = 0;
    int channel = 6;
    int band = 0;
    int bonding = 0;
    int short40 = 0;
    int short20 = 0;
};

struct Validators : AccessPointTest {
    OruSdkOptionParam param{0xabcd, 1, 0};
    Dict dict;

    void load(const Settings &now, const std::string &without = "-")
    {
        std::string text;
        const auto add = [&](const std::string &key, int value) {
            if (key != without) text += "radio1." + key + "=" + std::to_string(value) + "\n";
        };
        add("dot11Mode", now.mode);
        add("configuredChannel", now.channel);
        add("bandType", now.band);
        add("channelBondingMode", now.bonding);
        add("ShortGuardInterval40MHz", now.short40);
        add("ShortGuardInterval20MHz", now.short20);
        box.write(kWsm, text);
        dict = Dict{kWsm};
        standIn.calls.clear();
    }

    uint32_t legacy(uint32_t rate)
    {
        param.featureOptions = rate;
        return validateAndConvertRate(&param, dict);
    }

    uint32_t mcs(uint32_t index)
    {
        param.featureOptions = index;
        return validateAndConvertMcsRate(&param, dict);
    }

    void TearDown() override
    {
        dict = Dict{};
        EXPECT_EQ(param.reserved, 0xabcdu);
        EXPECT_EQ(param.radioIndex, 1u);
        AccessPointTest::TearDown();
    }
};

struct LegacyValidator : Validators {};

TEST_F(LegacyValidator, TakesEveryRateOnEveryBandChannelAndModeButMode2In24GHz)
{
    for (int mode = 0; mode <= 10; ++mode)
        for (int band = -1; band <= 3; ++band)
            for (const int channel : {1, 35, 36, 165})
                for (const Legacy &rate : kLegacy) {
                    load({.mode = mode, .channel = channel, .band = band});
                    const bool refused = band == 1 && mode == 2;
                    const auto mbps = static_cast<uint32_t>(rate.mbps);
                    ASSERT_EQ(legacy(mbps), refused ? 68u : 0u) << mode << " " << band;
                    ASSERT_EQ(param.featureOptions, refused ? mbps : rate.code);
                    ASSERT_EQ(standIn.openDicts(), refused ? 0 : 1);
                }
}

TEST_F(LegacyValidator, AutomaticPassesBeforeEveryOtherTest)
{
    for (int mode = 0; mode <= 10; ++mode)
        for (int band = -1; band <= 3; ++band) {
            load({.mode = mode, .channel = 36, .band = band});
            EXPECT_EQ(legacy(160), 0u);
            EXPECT_EQ(param.featureOptions, 0u);
            EXPECT_EQ(standIn.openDicts(), 1);
        }
    load({.band = 1}, "bandType");
    EXPECT_EQ(legacy(160), 0u);
    EXPECT_EQ(param.featureOptions, 0u);
    EXPECT_NOTHING_LOGGED();
    EXPECT_THAT(standIn.calls, ElementsAre("oruAsfDictGetInt radio1.dot11Mode",
                                           "oruAsfDictGetInt radio1.configuredChannel"));
}

TEST_F(LegacyValidator, RefusesWhatIsNoRate)
{
    // 129 and 134 are codes of 802.11b rates: as external values they are misses like any other.
    for (const uint32_t rate :
         {0u, 3u, 4u, 7u, 53u, 55u, 129u, 134u, 140u, 159u, 161u, 0xffffffffu}) {
        load({.band = 2});
        EXPECT_EQ(legacy(rate), 6u) << rate;
        ::oru::test::expectLogged(3, {"internal rate code = 6", "Illegal data rate"}, __FILE__,
                                  __LINE__);
        EXPECT_EQ(param.featureOptions, rate);
        EXPECT_EQ(standIn.openDicts(), 0);
    }
}

TEST_F(LegacyValidator, TracesTheCodeOnItsWay)
{
    load({.band = 2});
    EXPECT_EQ(legacy(1), 0u);
    EXPECT_EQ(param.featureOptions, 129u);
    ::oru::test::expectLogged(3, {"internal rate code = 129", "featureOptions = 129"}, __FILE__,
                              __LINE__);
    EXPECT_THAT(standIn.calls, ElementsAre("oruAsfDictGetInt radio1.dot11Mode",
                                           "oruAsfDictGetInt radio1.configuredChannel",
                                           "oruAsfDictGetInt radio1.bandType"));
}

TEST_F(LegacyValidator, RefusesAllRatesInMode2In24GHzWithItsText)
{
    load({.mode = 2, .band = 1});
    EXPECT_EQ(legacy(11), 68u);
    ::oru::test::expectLogged(
        3, {"internal rate code = 134", "802.11b rates ONLY in 802.11b ONLY mode"}, __FILE__,
        __LINE__);
    EXPECT_EQ(param.featureOptions, 11u);
}

TEST_F(LegacyValidator, MissingKeysAre42InTheirOrder)
{
    load({}, "dot11Mode");
    EXPECT_EQ(legacy(160), 42u);
    EXPECT_LOGGED("Unable to read dot11Mode from config file /var/wsmDefaults");
    EXPECT_EQ(standIn.openDicts(), 0);
    load({}, "configuredChannel");
    EXPECT_EQ(legacy(160), 42u);
    EXPECT_LOGGED("Unable to read channel from config file /var/wsmDefaults");
    EXPECT_EQ(standIn.openDicts(), 0);
    EXPECT_EQ(param.featureOptions, 160u);
    load({}, "bandType");
    EXPECT_EQ(legacy(2), 42u);
    ::oru::test::expectLogged(3,
                              {"internal rate code = 130",
                               "Unable to read radio1.bandType from config file /var/wsmDefaults"},
                              __FILE__, __LINE__);
    EXPECT_EQ(standIn.openDicts(), 0);
    EXPECT_EQ(param.featureOptions, 2u);
}

TEST_F(LegacyValidator, RateIsCheckedBeforeTheBandIsRead)
{
    load({}, "bandType");
    EXPECT_EQ(legacy(3), 6u);
}

TEST_F(LegacyValidator, AnyStatusOtherThan0IsAFailedRead)
{
    for (const int call : {1, 2, 3}) {
        load({});
        standIn.failAt(call, 7);
        EXPECT_EQ(legacy(2), 42u) << call;
        EXPECT_EQ(standIn.openDicts(), 0);
    }
}

struct McsValidator : Validators {};

TEST_F(McsValidator, EachIndexHasItsCodeByWidthAndInterval)
{
    for (const int mode : {0, 4})
        for (const int bonding : {0, 1})
            for (const int interval : {0, 1})
                for (uint32_t index = 0; index <= 32; ++index) {
                    // The flag of the other width says the opposite.
                    load({.mode = mode,
                          .bonding = bonding,
                          .short40 = bonding != 0 ? interval : 1 - interval,
                          .short20 = bonding != 0 ? 1 - interval : interval});
                    uint32_t first = 1;
                    if (bonding == 0 && interval == 1) first = 33;
                    if (bonding == 1 && interval == 0) first = 65;
                    if (bonding == 1 && interval == 1) first = 97;
                    const uint32_t code = index < 32 ? first + index : interval == 1 ? 142u : 141u;
                    ASSERT_EQ(mcs(index), 0u);
                    ASSERT_EQ(param.featureOptions, code) << index << bonding << interval;
                }
    EXPECT_NOTHING_LOGGED();
}

TEST_F(McsValidator, EndsOfTheRangesAreWhereTheyShouldBe)
{
    load({});
    EXPECT_EQ(mcs(0), 0u);
    EXPECT_EQ(param.featureOptions, 1u);
    load({.bonding = 1, .short40 = 1});
    EXPECT_EQ(mcs(31), 0u);
    EXPECT_EQ(param.featureOptions, 128u);
}

TEST_F(McsValidator, RefusesIndexesFrom33On)
{
    load({});
    for (const uint32_t index : {33u, 34u, 159u, 161u, 0x80000000u, 0xffffffffu}) {
        EXPECT_EQ(mcs(index), 6u);
        EXPECT_LOGGED("Illegal MCS Rate Index");
        EXPECT_EQ(param.featureOptions, index);
    }
}

TEST_F(McsValidator, NeedsAModeWith80211n)
{
    for (int mode = -1; mode <= 10; ++mode)
        for (const uint32_t index : {0u, 31u, 32u}) {
            load({.mode = mode});
            const bool taken = mode == 0 || mode == 4;
            EXPECT_EQ(mcs(index), taken ? 0u : 6u) << mode;
            if (taken) {
                EXPECT_NOTHING_LOGGED();
            } else {
                EXPECT_LOGGED("Illegal data rate");
                EXPECT_EQ(param.featureOptions, index);
            }
        }
}

TEST_F(McsValidator, IndexIsCheckedBeforeTheMode)
{
    load({.mode = 2});
    EXPECT_EQ(mcs(33), 6u);
    EXPECT_LOGGED("Illegal MCS Rate Index");
}

TEST_F(McsValidator, AutomaticPassesInEveryMode)
{
    for (int mode = 0; mode <= 10; ++mode) {
        load({.mode = mode, .band = 2, .bonding = 1, .short40 = 1});
        EXPECT_EQ(mcs(160), 0u);
        EXPECT_EQ(param.featureOptions, 0u);
    }
    EXPECT_NOTHING_LOGGED();
}

TEST_F(McsValidator, StoredNumbersBeyond1EnterTheFormulaAsTheyAre)
{
    load({.bonding = 2, .short40 = 1});
    EXPECT_EQ(mcs(0), 0u);
    EXPECT_EQ(param.featureOptions, 161u);
    load({.bonding = 3, .short40 = 2});
    EXPECT_EQ(mcs(5), 0u);
    EXPECT_EQ(param.featureOptions, 262u);
    load({.bonding = -1, .short40 = 0});
    EXPECT_EQ(mcs(0), 0u);
    EXPECT_EQ(param.featureOptions, static_cast<uint32_t>(-63));
    load({.short20 = std::numeric_limits<int32_t>::max()});
    EXPECT_EQ(mcs(32), 0u);
    EXPECT_EQ(param.featureOptions, 0x8000008cu);
}

TEST_F(McsValidator, ReadsTheFlagOfTheWidthInUse)
{
    load({.bonding = 1}, "ShortGuardInterval20MHz");
    EXPECT_EQ(mcs(160), 0u);
    EXPECT_THAT(standIn.calls, ElementsAre("oruAsfDictGetInt radio1.dot11Mode",
                                           "oruAsfDictGetInt radio1.channelBondingMode",
                                           "oruAsfDictGetInt radio1.ShortGuardInterval40MHz"));
    load({.bonding = 0}, "ShortGuardInterval40MHz");
    EXPECT_EQ(mcs(160), 0u);
    EXPECT_THAT(standIn.calls, ElementsAre("oruAsfDictGetInt radio1.dot11Mode",
                                           "oruAsfDictGetInt radio1.channelBondingMode",
                                           "oruAsfDictGetInt radio1.ShortGuardInterval20MHz"));
}

TEST_F(McsValidator, MissingKeysAre42InTheirOrderAndNeverFreeTheDictionary)
{
    load({}, "dot11Mode");
    EXPECT_EQ(mcs(160), 42u);
    EXPECT_LOGGED("Unable to read dot11Mode from config file /var/wsmDefaults");
    EXPECT_EQ(standIn.openDicts(), 1);
    load({}, "channelBondingMode");
    EXPECT_EQ(mcs(160), 42u);
    EXPECT_LOGGED("Unable to read channel bonding mode from config file /var/wsmDefaults");
    EXPECT_EQ(standIn.openDicts(), 1);
    for (const int bonding : {0, 1}) {
        load({.bonding = bonding},
             bonding != 0 ? "ShortGuardInterval40MHz" : "ShortGuardInterval20MHz");
        EXPECT_EQ(mcs(160), 42u);
        EXPECT_LOGGED("Unable to read Short Guard Interval from config file /var/wsmDefaults");
        EXPECT_EQ(standIn.openDicts(), 1);
    }
    EXPECT_EQ(param.featureOptions, 160u);
    EXPECT_EQ(mcs(33), 42u); // the reads come first
    standIn.logs.clear();
    load({});
    EXPECT_EQ(mcs(33), 6u);
    EXPECT_EQ(standIn.openDicts(), 1);
}

TEST_F(McsValidator, AnyStatusOtherThan0IsAFailedRead)
{
    for (const int call : {1, 2, 3}) {
        load({});
        standIn.failAt(call, 7);
        EXPECT_EQ(mcs(2), 42u) << call;
    }
}

} // namespace
} // namespace oru::test
