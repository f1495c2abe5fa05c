// What oructl does, through the real program.
#include "tools/oructl_run.hpp"

#include <nlohmann/json.hpp>

#include <gmock/gmock.h>

#include <algorithm>
#include <sstream>

using namespace oru::test;
using nlohmann::json;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::StartsWith;

namespace {

class Oructl : public OructlTest {
protected:
    /// The one JSON object of a run that writes nothing else.
    json jsonOf(const Arguments &arguments, int exit) const
    {
        const Transcript run = this->run(arguments);
        EXPECT_EQ(run.exit, exit);
        EXPECT_EQ(run.err, "");
        EXPECT_EQ(run.out.find('\n'), run.out.size() - 1) << "one line";
        json object = json::parse(run.out, nullptr, false);
        EXPECT_FALSE(object.is_discarded()) << run.out;
        EXPECT_EQ(object.value("schema", ""), "oructl/1");
        return object;
    }

    void expectUsageError(const Arguments &arguments, const std::string &message) const
    {
        SCOPED_TRACE(testing::PrintToString(arguments));
        const std::string before = read(kWsm);
        const Transcript run = this->run(arguments);
        EXPECT_EQ(run.exit, 2);
        EXPECT_EQ(run.out, "");
        EXPECT_THAT(run.err, HasSubstr(message));
        EXPECT_THAT(run.err, HasSubstr("\nusage: oructl "));
        EXPECT_EQ(read(kWsm), before);
    }

    void expectRefused(const Arguments &arguments, int code, const std::string &legal) const
    {
        SCOPED_TRACE(testing::PrintToString(arguments));
        const std::string before = read(kWsm);
        const Transcript run = this->run(arguments);
        EXPECT_EQ(run.exit, exitOfRefusal(code, legal));
        EXPECT_EQ(run.out, "");
        EXPECT_THAT(run.err, HasSubstr("(code " + std::to_string(code) + "); " + legal + "\n"));
        EXPECT_EQ(read(kWsm), before);
    }
};

// ---- get and set

TEST_F(Oructl, GetShowsASwitchAsAWord)
{
    const Transcript run = this->run({"get", "mimo", "0"});
    EXPECT_EQ(run.exit, 0);
    EXPECT_EQ(run.out, "mimo[0] = on\n");
    EXPECT_EQ(run.err, "");
}

TEST_F(Oructl, GetShowsAStoredNumberThatHasNoWordAsItIs)
{
    set(kWsm, "mimoFlag", "5");
    EXPECT_EQ(run({"get", "mimo", "0"}).out, "mimo[0] = 5\n");
    EXPECT_EQ(jsonOf({"--json", "get", "mimo", "0"}, 0)["value"],
              (json{{"word", nullptr}, {"number", 5}}));
    set(kWsm, "numSs", "-7");
    EXPECT_EQ(run({"get", "num-ss", "0"}).out, "num-ss[0] = -7\n");
}

TEST_F(Oructl, SetIsSilentAndGetShowsTheNewValue)
{
    const Transcript run = this->run({"set", "tx-power", "1", "0"});
    EXPECT_EQ(run.exit, 0);
    EXPECT_EQ(run.out + run.err, "");
    EXPECT_EQ(this->run({"get", "tx-power", "1"}).out, "tx-power[1] = 0\n");
    EXPECT_EQ(this->run({"get", "tx-power", "0"}).out, "tx-power[0] = 2\n");
}

TEST_F(Oructl, SwitchesTakeWordsAndNumbers)
{
    for (const char *off : {"off", "0", "false"}) {
        set(kWsm, "mimoFlag", "1");
        EXPECT_EQ(run({"set", "mimo", "0", off}).exit, 0) << off;
        EXPECT_EQ(value(kWsm, "mimoFlag"), "0") << off;
    }
    for (const char *on : {"on", "1", "true"}) {
        set(kWsm, "mimoFlag", "0");
        EXPECT_EQ(run({"set", "mimo", "0", on}).exit, 0) << on;
        EXPECT_EQ(value(kWsm, "mimoFlag"), "1") << on;
    }
}

TEST_F(Oructl, ChoicesTakeTheirWords)
{
    EXPECT_EQ(run({"set", "preamble-type", "0", "long"}).exit, 0);
    EXPECT_EQ(value(kWsm, "radio0.shortPreambleFlag"), "0");
    EXPECT_EQ(run({"get", "preamble-type", "0"}).out, "preamble-type[0] = long\n");
}

TEST_F(Oructl, ARefusedValueComesFromTheLibraryWithWhatIsLegal)
{
    expectRefused({"set", "tx-power", "0", "9"}, 47, "tx-power takes 0 to 2");
    expectRefused({"set", "tx-power", "0", "-5"}, 47, "tx-power takes 0 to 2");
    expectRefused({"set", "tx-power", "0", "2147483647"}, 47, "tx-power takes 0 to 2");
    expectRefused({"set", "tx-power", "0", "-2147483648"}, 47, "tx-power takes 0 to 2");
    expectRefused({"set", "mimo", "0", "2"}, 47, "mimo takes on or off");
    expectRefused({"set", "bss-width-trigger-scan-interval", "0", "9"}, 47,
                  "bss-width-trigger-scan-interval takes 10 to 900 seconds");
    expectRefused({"set", "bss-width-trigger-scan-interval", "0", "901"}, 47,
                  "bss-width-trigger-scan-interval takes 10 to 900 seconds");
}

TEST_F(Oructl, ARefusedIndexComesFromTheLibraryWithWhatIsLegal)
{
    expectRefused({"set", "mimo", "2", "on"}, 3, "RADIO is 0 to 1");
    expectRefused({"get", "mimo", "65535"}, 3, "RADIO is 0 to 1");
    expectRefused({"get", "tx-power", "-1"}, 3, "RADIO is 0 to 1");
    expectRefused({"get", "tx-power", "2147483647"}, 3, "RADIO is 0 to 1");
}

TEST_F(Oructl, AnIndexThatItsFieldCannotHoldIsNeverCut)
{
    expectUsageError({"get", "mimo", "65536"}, "'65536' does not fit the RADIO of mimo");
    expectUsageError({"set", "mimo", "65537", "off"}, "'65537' does not fit the RADIO of mimo");
    expectUsageError({"get", "mimo", "-1"}, "'-1' does not fit the RADIO of mimo");
    expectUsageError({"get", "mimo", "4294967296"}, "'4294967296' does not fit 32 bits");
    expectUsageError({"get", "tx-power", "4294967296"}, "'4294967296' does not fit 32 bits");
}

TEST_F(Oructl, NumbersAreWholeAndDecimal)
{
    for (const char *wrong : {"", "+1", "1x", " 1", "1 ", "-", "--1", "0x1", "1.0", "one", "on"})
        expectUsageError({"set", "tx-power", "0", wrong}, "is no whole number");
    for (const char *large : {"2147483648", "4294967296", "-2147483649", "99999999999999999999999"})
        expectUsageError({"set", "tx-power", "0", large}, "does not fit 32 bits");
    for (const char *wrong : {"", "ON", "yes", "+1", "1x"})
        expectUsageError({"set", "mimo", "0", wrong}, "is none of its values");
    for (const char *wrong : {"", "+0", "0x", "on"})
        expectUsageError({"get", "mimo", wrong}, "is no number of a RADIO");
}

TEST_F(Oructl, OperandsAreNeitherMissingNorTooMany)
{
    expectUsageError({"get"}, "ITEM is missing");
    expectUsageError({"get", "mimo"}, "RADIO is missing");
    expectUsageError({"get", "mimo", "0", "1"}, "'1' is one operand too many");
    expectUsageError({"set", "mimo", "0"}, "VALUE is missing");
    expectUsageError({"set", "mimo", "0", "on", "off"}, "'off' is one operand too many");
    expectUsageError({"set", "mimo", "0", "on", "--json"}, "'--json' is one operand too many");
}

TEST_F(Oructl, AMissingFileIsNamed)
{
    remove(kWsm);
    const Transcript run = this->run({"get", "tx-power", "1"});
    EXPECT_EQ(run.exit, 7);
    EXPECT_EQ(run.err, "oructl: get tx-power 1: failed: Error in reading configuration file (code "
                       "7); key radio1.txPower of /var/wsmDefaults\n");
}

TEST_F(Oructl, AMissingKeyIsNamed)
{
    write(kWsm, "");
    EXPECT_THAT(run({"get", "mimo", "1"}).err, HasSubstr("(code 42); key mimoFlag of /var/"));
}

TEST_F(Oructl, WhatWasTypedIsShownWithoutControlCharacters)
{
    const Transcript run = this->run({"get", "\x1b[31mred\n\xff"});
    EXPECT_EQ(run.exit, 2);
    EXPECT_THAT(run.err, HasSubstr("'\\x1b[31mred\\x0a\\xff'"));
    const json object = jsonOf({"--json", "get", "\x1b[31mred\n\xff"}, 2);
    EXPECT_EQ(object["error"]["kind"], "usage");
}

// ---- options

TEST_F(Oructl, OptionsStandBeforeTheVerbOrRightBehindIt)
{
    const std::string before = run({"--json", "get", "mimo", "0"}).out;
    EXPECT_THAT(before, StartsWith("{"));
    EXPECT_EQ(run({"get", "--json", "mimo", "0"}).out, before);
    expectUsageError({"get", "mimo", "--json", "0"}, "'--json' is no number of a RADIO");
    expectUsageError({"get", "mimo", "0", "--json"}, "'--json' is one operand too many");
}

TEST_F(Oructl, UnknownOptionsAreRefused)
{
    expectUsageError({"--bogus"}, "'--bogus' is no option");
    expectUsageError({"get", "--bogus", "mimo", "0"}, "'--bogus' is no option");
    expectUsageError({"get", "--complete-args"}, "'--complete-args' is no option");
    expectUsageError({"--json=1", "get", "mimo", "0"}, "'--json=1' is no option");
    expectUsageError({"-x"}, "'-x' is no option");
    EXPECT_EQ(jsonOf({"--bogus", "--json"}, 2)["error"]["kind"], "usage");
}

TEST_F(Oructl, AMistypedNameIsAnsweredWithTheNearest)
{
    expectUsageError({"gte", "mimo", "0"}, "no verb is called 'gte'; did you mean get");
    expectUsageError({"get", "mimmo", "0"}, "no item is called 'mimmo'; did you mean mimo?");
    expectUsageError({"set", "tx-powr", "0", "1"}, "did you mean tx-power");
    expectUsageError({"help", "comit"}, "did you mean commit");
    expectUsageError({"set", "mimo", "0", "onn"},
                     "'onn' is none of its values (on or off); did you mean on?");
    expectUsageError({"set", "mimo", "0", "maybe"}, "none of its values (on or off)\n");
    expectUsageError({"set", "channel", "0", "atuo"}, "(1 to 161 or auto); did you mean auto?");
    expectUsageError({"set", "channel", "0", "36", "--secondry", "40"},
                     "'--secondry' is no option of channel; did you mean --secondary?");
    expectUsageError({"--josn", "get"}, "'--josn' is no option; did you mean --json?");
    expectUsageError({"commit", "radoi"}, "did you mean radio?");
    expectUsageError({"reset", "al"}, "did you mean all?");
    EXPECT_THAT(run({"get", "qqqqqqqqqqqq"}).err, Not(HasSubstr("did you mean")));
    EXPECT_EQ(run({"get", std::string(100000, 'x')}).exit, 2);
    expectUsageError({"get", ""}, "no item is called ''");
    expectUsageError({""}, "no verb is called ''");
    expectUsageError({}, "VERB is missing");
}

// ---- commit and reset

TEST_F(Oructl, CommitOfAllChecksTheSecurityAndCommitOfTheRadioDoesNot)
{
    set(kAa, "bss2.openAccessEnabled", "false");
    const Transcript all = run({"commit"});
    EXPECT_EQ(all.exit, 6);
    EXPECT_EQ(all.err,
              "oructl: commit: failed: No security mode set (code 80); BSS 2 has no security "
              "mode; set one with: oructl set security 2 open (or wep, wpa, wpa2, "
              "wpa-mixed)\n");
    EXPECT_EQ(jsonOf({"--json", "commit"}, 6)["error"]["code"], 80);
    EXPECT_EQ(run({"commit", "radio"}).exit, 4) << "there is no service";
}

TEST_F(Oructl, ResetAllRestoresBothFiles)
{
    write(kWsm, "mimoFlag=0\n");
    write(kAa, "");
    EXPECT_EQ(run({"reset", "all"}).exit, 0);
    EXPECT_EQ(read(kWsm), read(kWsmFactory));
    EXPECT_EQ(read(kAa), read(kAaFactory));
    EXPECT_EQ(jsonOf({"--json", "reset", "all"}, 0)["reset"], "all");
}

TEST_F(Oructl, ResetAllWithoutFactoryFilesFails)
{
    remove(kWsmFactory);
    const Transcript run = this->run({"reset", "all"});
    EXPECT_EQ(run.exit, 7);
    EXPECT_THAT(run.err, HasSubstr("oructl: reset all: failed: Failed to copy configuration file "
                                   "(code 58)\n"));
}

TEST_F(Oructl, ResetBssRestoresThatBssAlone)
{
    set(kWsm, "bss1.wvid", "77");
    set(kWsm, "bss2.wvid", "78");
    EXPECT_EQ(run({"reset", "bss", "1"}).exit, 0);
    EXPECT_EQ(value(kWsm, "bss1.wvid"), "1");
    EXPECT_EQ(value(kWsm, "bss2.wvid"), "78");
    const json object = jsonOf({"--json", "reset", "bss", "2"}, 0);
    EXPECT_EQ(object["reset"], "bss");
    EXPECT_EQ(object["index"], 2);
    EXPECT_EQ(value(kWsm, "bss2.wvid"), "1");
}

TEST_F(Oructl, ResetRefusesWhatIsNoBss)
{
    expectRefused({"reset", "bss", "4"}, 115, "BSS is 0 to 3");
    EXPECT_THAT(run({"reset", "bss", "-1"}).err, HasSubstr("(code 42)"));
    expectUsageError({"reset"}, "all or bss is missing");
    expectUsageError({"reset", "bss"}, "BSS is missing");
    expectUsageError({"reset", "bss", "one"}, "is no number of a BSS");
    expectUsageError({"reset", "bss", "4294967296"}, "does not fit 32 bits");
    expectUsageError({"reset", "bss", "1", "2"}, "too many operands");
    expectUsageError({"reset", "all", "1"}, "too many operands");
    expectUsageError({"reset", "everything"}, "'everything' is neither all nor bss");
    expectUsageError({"commit", "bss"}, "'bss' is neither radio nor all");
    expectUsageError({"commit", "all", "radio"}, "too many operands");
}

// ---- explain

TEST_F(Oructl, ExplainSaysTheMessageOfEveryCodeOnOneLine)
{
    for (int code = 0; code <= 122; ++code) {
        const Transcript run = this->run({"explain", std::to_string(code)});
        EXPECT_EQ(run.exit, 0) << code;
        EXPECT_THAT(run.out, StartsWith(std::to_string(code) + ": ")) << code;
        std::istringstream lines{run.out};
        std::string line;
        std::getline(lines, line); // the message
        while (std::getline(lines, line))
            EXPECT_THAT(line, testing::AnyOf(StartsWith("meaning: "), StartsWith("- "),
                                             StartsWith("what to do: "),
                                             testing::Eq("no operation returns it")))
                << code;
        EXPECT_THAT(run.out, Not(HasSubstr(" \n"))) << code;
    }
}

TEST_F(Oructl, ExplainSaysWhatTheDisplacedMessagesReallyMean)
{
    EXPECT_THAT(run({"explain", "120"}).out,
                HasSubstr("\nmeaning: the channel is a radar channel while radar detection is on"));
    EXPECT_THAT(run({"explain", "121"}).out,
                HasSubstr("\nmeaning: radar detection is already in the requested state"));
    EXPECT_THAT(run({"explain", "122"}).out,
                StartsWith("122: the configured channel is a radar channel\n- "));
    const json object = jsonOf({"--json", "explain", "122"}, 0);
    EXPECT_EQ(object["message"], nullptr);
    EXPECT_EQ(object["meaning"], "the configured channel is a radar channel");
}

TEST_F(Oructl, ExplainKeepsTheMessageToTheByteInJson)
{
    EXPECT_EQ(jsonOf({"explain", "--json", "112"}, 0)["message"], "Invalid RCR Chan Length ");
    EXPECT_THAT(jsonOf({"explain", "--json", "99"}, 0)["message"].get<std::string>(),
                HasSubstr("specified!\nThe valid rates are -\nFor"));
}

TEST_F(Oructl, ExplainIsSafeForAnyNumber)
{
    for (const char *code : {"123", "-1", "-5", "-2147483648", "2147483647", "4294967296",
                             "-99999999999999999999", "99999999999999999999"}) {
        const Transcript run = this->run({"explain", code});
        EXPECT_EQ(run.exit, 1) << code;
        EXPECT_EQ(run.err,
                  std::string("oructl: explain ") + code + ": no such code; codes are 0 to 122\n");
    }
    EXPECT_EQ(jsonOf({"explain", "--json", "-5"}, 1)["error"]["message"], "no such code");
    for (const char *code : {"", "+1", "1x", "x"})
        expectUsageError({"explain", code}, "no code, item or key is called");
    expectUsageError({"explain"}, "CODE, ITEM or KEY is missing");
    expectUsageError({"explain", "1", "2"}, "too many operands");
}

// ---- list, help, version, completion

TEST_F(Oructl, ListFiltersByNameAndKey)
{
    EXPECT_EQ(run({"list", "sbsEnabled"}).out, run({"list", "smart-background"}).out);
    EXPECT_THAT(run({"list", "sbsEnabled"}).out, StartsWith("smart-background-scan  "));
    const Transcript none = run({"list", "no-such-item"});
    EXPECT_EQ(none.exit, 0);
    EXPECT_EQ(none.out, "");
    EXPECT_THAT(jsonOf({"--json", "list", "no-such-item"}, 0)["items"], IsEmpty());
    expectUsageError({"list", "a", "b"}, "too many operands");
}

TEST_F(Oructl, HelpAnswersInEveryForm)
{
    EXPECT_EQ(run({"help"}).out, run({"--help"}).out);
    EXPECT_EQ(run({"help", "set"}).out, run({"set", "--help"}).out);
    EXPECT_EQ(jsonOf({"--json", "help", "set"}, 0)["text"], run({"help", "set"}).out);
    EXPECT_EQ(jsonOf({"--json", "help"}, 0)["topic"], nullptr);
    EXPECT_THAT(run({"help", "mimo"}).out, HasSubstr("mimoFlag (one for both radios)"));
    expectUsageError({"help", "a", "b"}, "too many operands");
}

TEST_F(Oructl, VersionNamesTheLibraryToo)
{
    EXPECT_EQ(run({"version"}).out, run({"--version"}).out);
    EXPECT_EQ(run({"get", "--version"}).out, run({"version"}).out);
    EXPECT_EQ(jsonOf({"version", "--json"}, 0)["library"], "5.0.600.16");
    expectUsageError({"version", "1"}, "too many operands");
}

TEST_F(Oructl, CompletionOffersWhatCanFollow)
{
    const auto candidates = [this](Arguments words) {
        words.insert(words.begin(), "--complete-args");
        const std::string out = run(words).out;
        return out.substr(0, out.find("--json\n")); // and all options behind it
    };
    EXPECT_THAT(candidates({}), HasSubstr("get\nset\ncommit\n"));
    EXPECT_THAT(candidates({"--json"}), HasSubstr("get\nset\ncommit\n"));
    EXPECT_THAT(candidates({"set"}), HasSubstr("\nmimo\n"));
    EXPECT_EQ(candidates({"get", "mimo"}), "0\n1\n");
    EXPECT_EQ(candidates({"get", "mimo", "0"}), "");
    EXPECT_EQ(candidates({"set", "--json", "mimo", "0"}), "on\noff\n");
    EXPECT_EQ(candidates({"set", "mimo", "0", "on"}), "");
    EXPECT_EQ(candidates({"set", "no-such-item"}), "");
    EXPECT_THAT(candidates({"commit"}), testing::StartsWith("radio\nall\n--"));
    EXPECT_EQ(candidates({"reset", "bss"}), "0\n1\n2\n3\n");
    EXPECT_EQ(candidates({"reset", "all"}), "");
    EXPECT_EQ(candidates({"no-such-verb"}), "");
}

// ---- standard output that can't be written

TEST_F(Oructl, AFullStandardOutputIsAFailure)
{
    const Transcript full = run({"get", "mimo", "0"}, Stdout::Full);
    EXPECT_EQ(full.exit, 1);
    EXPECT_EQ(full.err, "oructl: can't write standard output: No space left on device\n");
    EXPECT_EQ(run({"--json", "get", "nothing"}, Stdout::Full).exit, 2);
    EXPECT_EQ(run({"set", "mimo", "0", "off"}, Stdout::Full).exit, 0) << "nothing to write";
}

TEST_F(Oructl, AClosedStandardOutputIsAFailureAndHarmsNoFile)
{
    const Transcript closed = run({"get", "mimo", "0"}, Stdout::Closed);
    EXPECT_EQ(closed.exit, 1);
    EXPECT_EQ(closed.err, "oructl: can't write standard output: Bad file descriptor\n");
    EXPECT_EQ(run({"set", "--json", "mimo", "0", "off"}, Stdout::Closed).exit, 1);
    EXPECT_EQ(value(kWsm, "mimoFlag"), "0");
    EXPECT_THAT(read(kWsm), Not(HasSubstr("schema")));
}

TEST_F(Oructl, AClosedStandardOutputIsHeldSoThatNoOtherFileTakesItsNumber)
{
    standIn("cp", "held=$(readlink /proc/$$/fd/1); echo \"$held\" > '" + root() + "/held'");
    EXPECT_EQ(run({"reset", "all"}, Stdout::Closed).exit, 0);
    EXPECT_EQ(read("/held"), "/dev/null\n");
}

} // namespace
