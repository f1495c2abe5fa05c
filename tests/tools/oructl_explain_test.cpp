// What "explain" says: of codes as the header does, of items and of keys.
#include "codes.hpp"
#include "explain.hpp"
#include "returns.hpp"
#include "tools/oructl_run.hpp"

#include <gmock/gmock.h>

#include <fstream>
#include <set>

using namespace oru::test;
using testing::HasSubstr;
using testing::Not;

namespace {

class Explain : public OructlTest {
protected:
    [[nodiscard]] std::string of(const std::string &what) const
    {
        const Transcript run = this->run({"explain", what});
        EXPECT_EQ(run.exit, 0) << run.err;
        EXPECT_EQ(run.err, "");
        return run.out;
    }
};

/// The lines of a file that begin with a text.
size_t linesThatBegin(const std::string &path, const std::string &with)
{
    std::ifstream file(path);
    size_t count = 0;
    for (std::string line; std::getline(file, line);) count += line.starts_with(with) ? 1 : 0;
    return count;
}

TEST(Returns, HoldEveryReturnLineOfTheHeader)
{
    const auto all = oructl::returns();
    EXPECT_EQ(all.size(), linesThatBegin(ORU_SOURCE_DIR "/include/oruSdk.h", " * @retval "));
    for (const auto &row : all) {
        EXPECT_TRUE(oructl::isCode(row.code) || row.code == oructl::kLibraryFailed) << row.code;
        EXPECT_FALSE(row.operation.empty());
        EXPECT_FALSE(row.condition.empty()) << row.operation;
        EXPECT_EQ(row.condition.find('*'), row.condition.npos) << row.condition;
    }
}

TEST(Returns, CoverEveryOperationOfTheCatalogue)
{
    std::set<std::string_view> known;
    for (const auto &row : oructl::returns()) known.insert(row.operation);
    oructl::forEachItem([&](const oructl::Item &item) {
        oructl::forEachWord(item.operations, [&](std::string_view operation) {
            EXPECT_TRUE(known.contains(operation)) << operation;
        });
    });
}

TEST_F(Explain, ACodeNamesItsOperationsAndTheirConditions)
{
    EXPECT_EQ(
        of("106"),
        "106: Invalid Secondary Channel Number\n"
        "- channel bonding is on and there is no secondaryChannel; after the second check of "
        "19, secondaryChannel does not exist, is not four channels apart, or is no partner of "
        "the channel at 5 GHz (36/40, 44/48 and so on; 140 has none): oruSdkSetChannelParam\n"
        "- 5 GHz with channel bonding: the secondary channel is not allowed: "
        "oruSdkSetDfsPrefChans\n"
        "what to do: oructl help channel, oructl help dfs-preferred-channels\n");
    EXPECT_THAT(of("4"), HasSubstr("no operation returns it\n"));
    EXPECT_THAT(of("7"), HasSubstr(" more\n- "));
    EXPECT_THAT(of("1"), Not(HasSubstr("isHex")));
}

TEST_F(Explain, JsonHasEveryOperation)
{
    const auto object = jsonOf({"--json", "explain", "7"}, 0);
    size_t operations = 0;
    for (const auto &cause : object["causes"]) operations += cause["operations"].size();
    size_t expected = 0;
    for (const auto &row : oructl::returns()) expected += row.code == 7 ? 1 : 0;
    EXPECT_EQ(operations, expected);
    EXPECT_GT(expected, 100u);
    EXPECT_EQ(jsonOf({"--json", "explain", "4"}, 0)["causes"], nlohmann::json::array());
}

TEST_F(Explain, AnItemIsItsHelpAndItsCodes)
{
    const std::string help = run({"help", "tx-power"}).out;
    EXPECT_EQ(of("tx-power").substr(0, help.size()), help);
    EXPECT_THAT(of("tx-power"), HasSubstr("codes:\n  2: NULL pointer\n"));
    EXPECT_THAT(of("tx-power"), HasSubstr("\n  47: "));
    EXPECT_THAT(of("security"), HasSubstr("\n  114: "));
    const auto object = jsonOf({"--json", "explain", "tx-power"}, 0);
    EXPECT_EQ(object["item"], "tx-power");
    EXPECT_EQ(object["codes"][0]["code"], 2);
}

TEST_F(Explain, AKeyHasItsFactoryValueAndItsItems)
{
    EXPECT_EQ(of("radio1.txPower"),
              "key radio1.txPower\nfactory value: 2\n\n" + run({"help", "tx-power"}).out);
    const auto object = jsonOf({"--json", "explain", "bss0.wpaPsk"}, 0);
    EXPECT_EQ(object["key"], "bss0.wpaPsk");
    EXPECT_TRUE(object["factory"].is_null());
    EXPECT_EQ(object["items"][0]["item"], "psk");
}

TEST_F(Explain, AFactorySecretIsMasked)
{
    set(kAaFactory, "bss0.wpaPsk", "\"well-hidden\"");
    EXPECT_THAT(of("bss0.wpaPsk"), HasSubstr("factory value: ********\n"));
    EXPECT_THAT(run({"--show-secrets", "explain", "bss0.wpaPsk"}).out, HasSubstr("well-hidden"));
}

TEST(MatchesKey, TakesNumbersWhereThePatternHasThem)
{
    using oructl::matchesKey;
    EXPECT_TRUE(matchesKey("radio%d.txPower", "radio0.txPower"));
    EXPECT_TRUE(matchesKey("mimoFlag", "mimoFlag"));
    EXPECT_TRUE(matchesKey("InterBSS.radio%d", "InterBSS.radio1"));
    EXPECT_TRUE(matchesKey("bss%d.wepKey.1", "bss3.wepKey.4"));
    EXPECT_TRUE(matchesKey("eth%d.vid0", "eth12.vid14"));
    EXPECT_TRUE(matchesKey("radio%d.dot112040BSS", "radio0.dot112040BSS"));
    for (const char *key : {"", "radio.txPower", "radio0.txPowe", "radio0.txPowerAdj",
                            "radio0,txPower", "xradio0.txPower", "radio0"})
        EXPECT_FALSE(matchesKey("radio%d.txPower", key)) << key;
    EXPECT_FALSE(matchesKey("bss%d.wepKey.1", "bss3.wepKey."));
    EXPECT_FALSE(matchesKey("bss%d.wepKey.1", "bss3.wepKey.4x"));
    EXPECT_FALSE(matchesKey("", "x"));
}

TEST_F(Explain, WhatIsNeitherCodeNorItemNorKeyIsRefused)
{
    const Transcript run = this->run({"explain", "tx-powr"});
    EXPECT_EQ(run.exit, 2);
    EXPECT_THAT(run.err,
                HasSubstr("no code, item or key is called 'tx-powr'; did you mean tx-power"));
}

} // namespace
