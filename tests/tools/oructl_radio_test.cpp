// What holds for the items of every family of a radio. Their rows are in files of their own.
#include "catalogue.hpp"
#include "oruSdk.h"
#include "tools/oructl_radio_items.hpp"

#include <nlohmann/json.hpp>

#include <gmock/gmock.h>

#include <filesystem>

using namespace oru::test;
using nlohmann::json;
using testing::HasSubstr;
using testing::IsEmpty;

namespace {

// ---- The two shapes of tables

TEST_P(EachItem, WritesItsKeysAloneAndShowsThemInBothForms)
{
    const Row &row = GetParam();
    apply(row.given);
    const Settings before = stored();
    Arguments words = wordsOf(row.set);
    words.insert(words.begin(), "set");
    const Transcript done = run(words);
    EXPECT_EQ(done.exit, 0) << done.err;
    EXPECT_EQ(done.out + done.err, "");
    EXPECT_EQ(changedSince(before), row.written);

    Arguments get = {"get", words[1]};
    if (words[1] != "world-mode") get.push_back(words[2]);
    EXPECT_EQ(run(get).out, row.shown);
    get.insert(get.begin(), "--json");
    const json object = json::parse(run(get).out, nullptr, false);
    ASSERT_FALSE(object.is_discarded());
    EXPECT_EQ(object["value"], json::parse(row.value));
}

TEST_P(EachRefusal, SaysWhatToChangeAndChangesNothing)
{
    const Refused &row = GetParam();
    apply(row.given);
    start(row.wsm);
    const std::string before = read(kWsm);
    Arguments words = wordsOf(row.call);
    const Transcript text = run(words);
    EXPECT_EQ(text.exit, exitOfRefusal(row.code, row.detail));
    EXPECT_EQ(text.out, "");
    const std::string code = "(code " + std::to_string(row.code) + ")";
    EXPECT_THAT(text.err, testing::EndsWith(*row.detail == '\0' ? code + "\n"
                                                                : code + "; " + row.detail + "\n"));
    words.insert(words.begin(), "--json");
    const json error = json::parse(run(words).out, nullptr, false)["error"];
    EXPECT_EQ(error["code"], row.code);
    EXPECT_EQ(error["kind"], row.kind);
    EXPECT_EQ(error["attempt"], row.call);
    EXPECT_EQ(error["detail"], *row.detail == '\0' ? json(nullptr) : json(row.detail));
    EXPECT_EQ(read(kWsm), before);
}

// ---- Reasons need a state that can be read

struct Guess {
    const char *item;
    uint32_t code;
    int64_t value; ///< of the first field
};

/// Refusals that rest on a state. The factory's settings contradict each of them.
constexpr Guess kGuesses[] = {
    {"channel", ORUSDK_RC_RADAR_CHANNEL, 52},
    {"channel", ORUSDK_RC_SECONDARY_CHANNEL, 36},
    {"channel", ORUSDK_RC_CHANNEL, 36},
    {"dot11-mode", ORUSDK_RC_MODE_5GHZ, 3},
    {"dot11-mode", ORUSDK_RC_NEEDS_STD_EXTENSIONS, 3},
    {"dot11-mode", ORUSDK_RC_REJECTS_11B, 2},
    {"rate", ORUSDK_RC_RATE_ONLY_11B, 11},
    {"mcs-rate", ORUSDK_RC_RATE_CODE, 7},
    {"bg-scanning", ORUSDK_RC_PERIODIC_DFS, 0},
    {"11b-admission", ORUSDK_RC_NEEDS_STD_EXTENSIONS, 0},
    {"11b-admission", ORUSDK_RC_MODE_IS_11B_ONLY, 0},
    {"wmm", ORUSDK_RC_NEEDS_STD_EXTENSIONS, 1},
    {"wmm", ORUSDK_RC_WMM, 1},
    {"dynamic-profile", ORUSDK_RC_NEEDS_WMM, 0},
    {"dot11-mac", ORUSDK_RC_RTS_THRESHOLD, 256},
    {"beacon", ORUSDK_RC_DTIM_PERIOD, 100},
};

TEST_F(RadioItems, AReasonIsNeverGuessed)
{
    ::setenv("ORU_ROOT", root().c_str(), 1);
    ::setenv("ORU_LOG", "none", 1);
    for (const bool readable : {true, false}) {
        if (!readable) remove(kWsm);
        for (const Guess &guess : kGuesses) {
            const oructl::Item *item = oructl::findItem(guess.item);
            ASSERT_NE(item, nullptr) << guess.item;
            oructl::Call call;
            call.values.resize(item->fields.size());
            call.values[0] = {.given = true, .number = guess.value};
            EXPECT_EQ(item->reason(guess.code, call), "")
                << guess.item << ' ' << guess.code << (readable ? "" : " without the file");
        }
    }
    ::unsetenv("ORU_ROOT");
    ::unsetenv("ORU_LOG");
}

TEST_F(RadioItems, RefusalsFollowTheOrderOfTheChecks)
{
    startWsmOfBothBands();
    apply({{"radio0.standardExt", "0"}});
    // the order of the checks: a mode is refused for its extensions, whatever else can't be read
    set(kWsm, "radio0.fixedRate", "x");
    EXPECT_THAT(run({"set", "dot11-mode", "0", "11b-only"}).err,
                HasSubstr("(code 59); the standard extensions"));
    apply({{"radio0.standardExt", "1"}, {"radio0.adminDot11bStaFlag", "x"}});
    EXPECT_THAT(run({"set", "dot11-mode", "0", "11b-only"}).err,
                HasSubstr("failed: Error in reading element from configuration file (code 42); "
                          "keys radio0.dot11Mode, radio0.bandType, "));
}

TEST_F(RadioItems, AFailureOfAnotherKeyNamesTheKeysOfTheChecks)
{
    set(kWsm, "radio1.bandType", "x");
    startWsmOfBothBands();
    const Transcript failed = run({"set", "channel", "1", "36"});
    EXPECT_THAT(failed.err, HasSubstr("set channel 1 36: failed: "));
    EXPECT_THAT(failed.err, HasSubstr("radio1.bandType, radio1.fixedRate of /var/wsmDefaults\n"));
    EXPECT_THAT(run({"get", "basic-rates", "0"}).err, IsEmpty());
}

// ---- Channels with WSM

TEST_F(RadioItems, AFixedChannelIsSetWhereWsmAllowsIt)
{
    startWsmOfBothBands();
    set(kWsm, "radio1.channelBondingMode", "1");
    const Settings before = stored();
    const Transcript done = run({"set", "channel", "1", "44", "--secondary", "48"});
    EXPECT_EQ(done.exit, 0) << done.err;
    EXPECT_EQ(changedSince(before), (Settings{{"radio1.configuredChannel", "44"},
                                              {"radio1.configuredSecondaryChannel", "48"},
                                              {"radio1.broadcastRate5GHz", "69"}}));
    EXPECT_EQ(run({"get", "channel", "1"}).out,
              "channel[1].channel = 44\nchannel[1].secondary = 48\n");
    const Transcript none = run({"set", "channel", "0", "1", "--secondary", "none"});
    EXPECT_EQ(none.exit, 0) << none.err;
    EXPECT_EQ(run({"get", "channel", "0"}).out,
              "channel[0].channel = 1\nchannel[0].secondary = none\n");
}

TEST_F(RadioItems, PreferredChannelsAt5GHzHaveNoSecondaryWithoutBonding)
{
    startWsmOfBothBands();
    EXPECT_EQ(run({"set", "dfs-preferred-channels", "1", "5ghz", "44", "48"}).exit, 0);
    EXPECT_EQ(value(kWsm, "dfsPreferred5GPrimChan"), "44");
    EXPECT_EQ(value(kWsm, "dfsPreferred5GSecdChan"), "0");
    set(kWsm, "radio1.channelBondingMode", "1");
    EXPECT_EQ(run({"set", "dfs-preferred-channels", "1", "5ghz", "44", "48"}).exit, 0);
    EXPECT_EQ(value(kWsm, "dfsPreferred5GSecdChan"), "48");
}

TEST_F(RadioItems, TheCountryComesFromWsmUnlessItIsConfigured)
{
    startWsmOfBothBands();
    apply({{"countryCodeFlag", "0"}, {"countryCode", "\"DEI\""}});
    EXPECT_THAT(run({"get", "world-mode"}).out, HasSubstr("world-mode.country = \"US\"\n"));
    set(kWsm, "countryCodeFlag", "1");
    EXPECT_THAT(run({"get", "world-mode"}).out, HasSubstr("world-mode.country = \"DE\"\n"));
}

// ---- Values that don't go together

TEST_F(RadioItems, ConflictsOfACommandLineAreWrongUsage)
{
    const std::map<std::string, std::string> conflicts = {
        {"channel 0 6 --mode once", "--mode goes with auto alone"},
        {"channel 0 6 --dfs-interval 5", "--dfs-interval goes with auto alone"},
        {"channel 0 6 --keep-periodic", "--keep-periodic goes with auto alone"},
        {"channel 0 auto --secondary 10", "--secondary does not go with auto"},
        {"channel 0 auto --keep-periodic --dfs-interval 5",
         "--keep-periodic goes with neither --mode nor --dfs-interval"},
        {"channel 0 auto --keep-periodic --mode periodic",
         "--keep-periodic goes with neither --mode nor --dfs-interval"},
        {"channel 0 auto --mode once --dfs-interval 5",
         "--dfs-interval goes with --mode periodic alone"},
        {"channel 0 auto --mode periodic", "--mode periodic needs --dfs-interval"},
        {"channel 0 auto --keep-periodic on", "'on' is one operand too many"},
        {"channel 0 auto --secondary", "--secondary needs a value"},
        {"channel 0 6 --secondary x", "--secondary: 'x' is no whole number"},
        {"dfs-preferred-channels 0 2.4ghz 6 10 --preferred-band 3",
         "--preferred-band takes 0 to 2 or any"},
        {"dfs-preferred-channels 0 2.4ghz 6 10 --preferred-band 256",
         "--preferred-band takes 0 to 2 or any"},
        {"dfs-preferred-channels 0 2.4ghz 6", "secondary is missing"},
        {"dfs-weight-margin 256 1", "'256' does not fit the RADIO of dfs-weight-margin"},
        {"radar-detect 65536 on", "'65536' does not fit the RADIO of radar-detect"},
        {"bg-scanning 65536 on", "'65536' does not fit the RADIO of bg-scanning"},
        {"protection 0 by-mode", "by-mode needs --mode"},
        {"protection 0 on --mode 1", "--mode goes with by-mode alone"},
        {"dot11-mac 0", "no value is given"},
        {"beacon 0", "no value is given"},
        {"broadcast-rate 0 auto", "'auto' is none of its values"},
        {"rate 0 5.0", "'5.0' is none of its values"},
        {"mcs-rate 0 5.5", "'5.5' is no whole number"},
        {"basic-rates 0 g " + std::string(64, '6'), "rates take at most 63 bytes"},
        {"sbs 0 1", "counter is missing"},
    };
    const std::string before = read(kWsm);
    for (const auto &[call, message] : conflicts) {
        Arguments words = wordsOf(call);
        words.insert(words.begin(), "set");
        const Transcript wrong = run(words);
        EXPECT_EQ(wrong.exit, 2) << call;
        EXPECT_THAT(wrong.err, HasSubstr(message)) << call;
        EXPECT_THAT(wrong.err, HasSubstr("\nusage: oructl ")) << call;
    }
    EXPECT_EQ(read(kWsm), before);
}

TEST_F(RadioItems, ATextOf63BytesStillFitsTheRecord)
{
    const std::string blanks(61, ',');
    EXPECT_EQ(run({"set", "basic-rates", "0", "a", blanks + "54"}).exit, 0);
    EXPECT_EQ(value(kWsm, "radio0.dot11aRates"), "0C:12:18:24:30:48:60:EC");
}

// ---- Settings of which only one direction exists

TEST_F(RadioItems, RadarChannelsAreWrittenToTheirOwnFile)
{
    constexpr const char *kList = "/config/wsmSavedRadarDetectList";
    const Transcript missing = run({"set", "radar-channels", "52"});
    EXPECT_EQ(missing.exit, 7);
    EXPECT_THAT(missing.err, HasSubstr("(code 7); key rdrChans of " + std::string(kList)));
    EXPECT_EQ(run({"get", "radar-channels"}).exit, 2);

    std::filesystem::create_directories(root() + "/config");
    write(kList, "rdrChans=\n");
    EXPECT_EQ(run({"set", "radar-channels", "52 56"}).exit, 0);
    EXPECT_THAT(read(kList), HasSubstr("52 56"));
    EXPECT_EQ(run({"set", "radar-channels", ""}).exit, 0);
    EXPECT_EQ(read(kList), "rdrChans=\n");
}

// ---- What is shown of unusual numbers

TEST_F(RadioItems, StoredNumbersWithoutAWordAreShownAsTheyAre)
{
    apply({{"radio0.fixedRate", "143"},
           {"radio0.channelBondingMode", "3"},
           {"edcaProfile", "7"},
           {"radio0.configuredSecondaryChannel", "-1"}});
    EXPECT_EQ(run({"get", "rate", "0"}).out, "rate[0] = no known rate (code 143)\n");
    EXPECT_EQ(json::parse(run({"--json", "get", "rate", "0"}).out)["value"],
              (json{{"word", nullptr}, {"number", 143}, {"meaning", "no known rate"}}));
    EXPECT_EQ(run({"get", "channel-bonding", "0"}).out, "channel-bonding[0] = 3\n");
    EXPECT_EQ(run({"get", "edca-profile", "0"}).out, "edca-profile[0] = 7\n");
    EXPECT_EQ(run({"get", "channel", "0"}).out,
              "channel[0].channel = 6\nchannel[0].secondary = -1\n");
}

TEST_F(RadioItems, TheRateOfTheOtherFamilyHasNoWord)
{
    set(kWsm, "radio0.fixedRate", "104");
    const auto wordOf = [this](const char *item) {
        return json::parse(run({"--json", "get", item, "0"}).out)["value"]["word"];
    };
    EXPECT_EQ(wordOf("rate"), nullptr);
    EXPECT_EQ(wordOf("mcs-rate"), "7");
}

TEST_F(RadioItems, CompletionOffersWordsAndOptions)
{
    const auto candidates = [this](Arguments words) {
        words.insert(words.begin(), "--complete-args");
        return run(words).out;
    };
    EXPECT_EQ(candidates({"set", "channel-set", "0"}), "any\n2.4ghz\n5ghz\n");
    EXPECT_EQ(candidates({"set", "channel", "0", "auto"}),
              "--secondary\n--mode\n--dfs-interval\n--keep-periodic\n");
    EXPECT_EQ(candidates({"set", "dot11-mac", "0"}),
              "--frag-threshold\n--rts-threshold\n--short-retry-limit\n--long-retry-limit\n");
}

} // namespace
