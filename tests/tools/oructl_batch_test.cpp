// Batches: several sets and resets, all of them or none.
#include "batch.hpp"
#include "tools/oructl_run.hpp"

#include <gmock/gmock.h>

using namespace oru::test;
using nlohmann::json;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

namespace {

std::vector<std::string> wordsOf(std::string_view line)
{
    std::vector<std::string> words;
    EXPECT_EQ(oructl::parseLine(line, words), "") << line;
    return words;
}

TEST(BatchLine, IsPartedAsAShellDoes)
{
    EXPECT_THAT(wordsOf("set mimo\t0  off\r"), ElementsAre("set", "mimo", "0", "off"));
    EXPECT_THAT(wordsOf("a 'b c' d\"e f\"g"), ElementsAre("a", "b c", "de fg"));
    EXPECT_THAT(wordsOf(R"('it'\''s' "q\"uo\te" back\ slash)"),
                ElementsAre("it's", "q\"uo\\te", "back slash"));
    EXPECT_THAT(wordsOf("a '' \"\""), ElementsAre("a", "", ""));
    EXPECT_THAT(wordsOf("a b#c #d e"), ElementsAre("a", "b#c"));
    EXPECT_THAT(wordsOf("  # all"), IsEmpty());
    EXPECT_THAT(wordsOf(""), IsEmpty());
    std::vector<std::string> ignored;
    for (const char *open : {"a 'b", "a \"b", "a \\"})
        EXPECT_EQ(oructl::parseLine(open, ignored), "a quotation has no end") << open;
    EXPECT_NE(oructl::parseLine({"a\0b", 3}, ignored), "");
}

class Batch : public OructlTest {
protected:
    [[nodiscard]] Transcript batch(const std::string &lines, Arguments options = {}) const
    {
        options.insert(options.end(), {"batch", "-"});
        return runWithInput(lines, options);
    }
};

TEST_F(Batch, DoesWhatItsLinesSay)
{
    const Transcript done = batch("# the house\n"
                                  "set mimo 0 off # both radios\n"
                                  "\n"
                                  "set ssid 1 'a house'\n"
                                  "set security 2 wpa2 psk --psk 'of the house'\n"
                                  "set suppress 0\n");
    EXPECT_EQ(done.exit, 2) << "an item that is none";
    const Transcript good = batch("set mimo 0 off\nset ssid 1 'a house'\n"
                                  "set security 2 wpa2 psk --psk 'of the house'\nreset bss 3");
    EXPECT_EQ(good.exit, 0) << good.err;
    EXPECT_EQ(good.out, "");
    EXPECT_EQ(value(kWsm, "mimoFlag"), "0");
    EXPECT_EQ(value(kWsm, "bss1.ssId"), "\"a house\"");
    EXPECT_EQ(run({"--show-secrets", "--terse", "get", "psk", "2"}).out, "of the house\n");
}

TEST_F(Batch, LinesAreDoneInTheirOrder)
{
    set(kWsm, "bss1.ssId", "\"mine\"");
    EXPECT_EQ(batch("set ssid 1 first\nreset bss 1\n").exit, 0);
    EXPECT_EQ(value(kWsm, "bss1.ssId"), "\"factory\"");
    EXPECT_EQ(batch("reset all\nset ssid 1 last\n").exit, 0);
    EXPECT_EQ(value(kWsm, "bss1.ssId"), "\"last\"");
}

TEST_F(Batch, AllProblemsAreReportedByLineAndNothingIsStored)
{
    const std::string before = read(kWsm) + read(kAa);
    const Transcript refused = batch("set mimo 0 off\n"
                                     "set mimo 0 off x\n"
                                     "set ssid 1 'a\n"
                                     "set admin-status 0 up\n"
                                     "get mimo 0\n"
                                     "set tx-power 0 9\n"
                                     "reset bss 7\n"
                                     "set psk 0 short\n"
                                     "reset\n"
                                     "reset bss x\n");
    EXPECT_EQ(refused.exit, 2);
    EXPECT_EQ(refused.out, "");
    for (const char *line :
         {"line 2: set mimo 0 off x: 'x' is one operand too many\n",
          "line 3: a quotation has no end\n",
          "line 4: set admin-status 0 up: admin-status acts at once, and can't be part of a "
          "batch\n",
          "line 5: 'get' is no part of a batch: only set and reset are\n",
          "line 6: set tx-power 0 9: refused: ", "line 7: reset bss 7: failed: ",
          "line 8: set psk 0: refused: ", "line 9: reset: all or bss is missing\n",
          "line 10: reset bss x: 'x' is no number of a BSS\n",
          "oructl: batch -: nothing is stored\n"})
        EXPECT_THAT(refused.err, HasSubstr(line));
    EXPECT_THAT(refused.err, Not(HasSubstr("line 1:")));
    EXPECT_THAT(refused.err, Not(HasSubstr("short")));
    EXPECT_EQ(read(kWsm) + read(kAa), before);
}

TEST_F(Batch, SpeaksJson)
{
    const Transcript refused = batch("set tx-power 0 9\nset x\n", {"--json"});
    EXPECT_EQ(refused.exit, 2);
    EXPECT_EQ(refused.err, "");
    const json error = json::parse(refused.out)["error"];
    EXPECT_EQ(error["message"], "nothing is stored");
    ASSERT_EQ(error["problems"].size(), 2u);
    EXPECT_EQ(error["problems"][1]["attempt"], "line 1: set tx-power 0 9");
    EXPECT_EQ(error["problems"][1]["code"], 47);
    const Transcript done = batch("set mimo 0 off\nset mimo 1 on\n", {"--json"});
    EXPECT_EQ(json::parse(done.out)["batch"], 2);
}

TEST_F(Batch, ADryRunStoresNothing)
{
    const std::string before = read(kWsm);
    const Transcript dry = batch("set mimo 0 off\n", {"--dry-run"});
    EXPECT_EQ(dry.exit, 0);
    EXPECT_EQ(dry.out, "would change mimoFlag of /var/wsmDefaults\n");
    EXPECT_EQ(read(kWsm), before);
}

} // namespace
