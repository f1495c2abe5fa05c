// Views of what a service says, and what acts on the spot, through the real program.
#include "tools/oructl_run.hpp"
#include "tools/wsm_service.hpp"

#include <gmock/gmock.h>

#include <chrono>

using namespace oru::test;
using namespace std::chrono_literals;
using nlohmann::json;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::SizeIs;
using testing::StartsWith;

namespace {

const Bytes kOne = {0x02, 0, 0, 0, 0, 0x0A};
const Bytes kTwo = {0x02, 0, 0, 0, 0, 0x0B};
const Bytes kNothing = reply({});

Bytes statistics(const std::string &text, uint16_t type = 274)
{
    Bytes bytes = reply({}, type, 0);
    bytes.insert(bytes.end(), text.begin(), text.end());
    return bytes;
}

class Show : public OructlTest {
protected:
    Show() : wsm(root()) {}

    void expectNotAsExpected(uint16_t type, const Bytes &answer, const Arguments &arguments)
    {
        SCOPED_TRACE(testing::PrintToString(arguments));
        wsm.answer(type, {answer});
        const Transcript run = this->run(arguments);
        EXPECT_EQ(run.exit, 1);
        EXPECT_EQ(run.out, "");
        EXPECT_THAT(run.err, HasSubstr("(code 48)"));
        Arguments withJson = arguments;
        withJson.insert(withJson.begin(), "--json");
        const json object = jsonOf(withJson, 1);
        EXPECT_EQ(object["error"]["code"], 48);
        EXPECT_FALSE(object.contains("rows"));
    }

    WsmService wsm;
};

class WithoutService : public OructlTest {};

// ---- stations

TEST_F(Show, StationsAreATableWithAHeader)
{
    wsm.answer(258, {reply({number16(1, 7), mac(7, kOne), number16(1, 40000), mac(7, kTwo)})});
    const Transcript run = this->run({"show", "stations", "1", "2"});
    EXPECT_EQ(run.exit, 0);
    EXPECT_EQ(run.err, "");
    EXPECT_EQ(run.out, "id     mac\n"
                       "7      02:00:00:00:00:0a\n"
                       "40000  02:00:00:00:00:0b\n");
    const Bytes sent = wsm.requests().at(0);
    EXPECT_EQ(sent,
              joined({{0x01, 0x02, 0, 24, 0, 0, 0x4E, 0x20}, number16(0x11, 2), number16(1, 1)}));
}

TEST_F(Show, StationsAsJson)
{
    wsm.answer(258, {reply({number16(1, 7), number16(1, 40000), mac(7, kTwo)})});
    const json object = jsonOf({"--json", "show", "stations", "0", "3"}, 0);
    EXPECT_EQ(
        object,
        (json{{"schema", "oructl/1"},
              {"show", "stations"},
              {"radio", 0},
              {"bss", 3},
              {"rows",
               {{{"id", 7}, {"mac", nullptr}}, {{"id", 40000}, {"mac", "02:00:00:00:00:0b"}}}}}));
}

TEST_F(Show, AnEmptyTableSaysSo)
{
    for (const uint16_t type : std::initializer_list<uint16_t>{256, 258, 260, 283})
        wsm.answer(type, {kNothing});
    EXPECT_EQ(run({"show", "stations", "0", "0"}).out, "no stations\n");
    EXPECT_EQ(run({"show", "scan"}).out, "no networks\n");
    EXPECT_EQ(run({"show", "radios"}).out, "no radios\n");
    EXPECT_EQ(run({"show", "bss-list", "0"}).out, "element1   -\nelement18  -\n\nno BSSes\n");
    EXPECT_THAT(jsonOf({"--json", "show", "stations", "0", "0"}, 0)["rows"], IsEmpty());
    EXPECT_TRUE(jsonOf({"--json", "show", "scan"}, 0)["rows"].is_array());
}

TEST_F(Show, AnIndexIsRefusedByTheLibraryAndNothingIsSent)
{
    EXPECT_EQ(run({"show", "stations", "2", "0"}).err,
              "oructl: show stations 2 0: refused: Invalid radio ID (code 3); RADIO is 0 to 1\n");
    EXPECT_EQ(run({"show", "stations", "0", "4"}).err,
              "oructl: show stations 0 4: refused: Invalid BSS Number (code 115); BSS is 0 to 3\n");
    EXPECT_EQ(run({"show", "stations", "65536", "0"}).exit, 2) << "never cut";
    EXPECT_EQ(run({"show", "stations", "-1", "0"}).exit, 2);
    EXPECT_THAT(wsm.requests(), IsEmpty());
    wsm.answer(273, {statistics("rx 1")});
    EXPECT_EQ(run({"show", "stats", "256"}).exit, 2) << "never cut";
    EXPECT_EQ(run({"show", "stats", "255"}).exit, 0) << "the service's to refuse";
    EXPECT_THAT(wsm.requests(), ElementsAre(Bytes{0x01, 0x11, 0, 6, 255, 0}));
}

// ---- scan

TEST_F(Show, ScanQuotesNamesAndEscapesWhatDrivesATerminal)
{
    wsm.answer(260, {reply({mac(7, kOne), text(5, "Lobby \"guest\" \\"), mac(7, kTwo),
                            text(5, "\x1b[2J\x07\xc2\x9b\xe2\x80\xae\x7f")})});
    EXPECT_EQ(run({"show", "scan"}).out,
              "bssid              ssid\n"
              "02:00:00:00:00:0a  \"Lobby \\\"guest\\\" \\\\\"\n"
              "02:00:00:00:00:0b  \"\\x1b[2J\\x07\\xc2\\x9b\\xe2\\x80\\xae\\x7f\"\n");
    const Transcript object = run({"--json", "show", "scan"});
    for (const char letter : object.out)
        EXPECT_TRUE((letter >= ' ' && letter < 0x7f) || letter == '\n') << int{letter};
}

TEST_F(Show, ScanShowsLettersOfOtherScriptsWhereTheTerminalCan)
{
    wsm.answer(260, {reply({mac(7, kOne), text(5, "Caf\xc3\xa9 \xe6\x97\xa5"), mac(7, kTwo),
                            text(5, "\xc2\x9b\xe2\x80\xae\xff")})});
    EXPECT_THAT(run({"show", "scan"}).out, HasSubstr("\"Caf\\xc3\\xa9 \\xe6\\x97\\xa5\"\n"));
    locale_ = "C.UTF-8";
    const std::string shown = run({"show", "scan"}).out;
    EXPECT_THAT(shown, HasSubstr("\"Caf\xc3\xa9 \xe6\x97\xa5\"\n"));
    EXPECT_THAT(shown, HasSubstr("\"\\xc2\\x9b\\xe2\\x80\\xae\\xff\"\n"));
}

TEST_F(Show, ScanAsJsonHasNamesAsTextAndAsBytes)
{
    wsm.answer(260, {reply({mac(7, kOne), text(5, "Caf\xc3\xa9"), mac(7, kTwo), text(5, "\xff\x01"),
                            mac(7, kTwo), text(5, "")})});
    const json rows = jsonOf({"--json", "show", "scan"}, 0)["rows"];
    ASSERT_THAT(rows, SizeIs(3));
    EXPECT_EQ(rows[0], (json{{"bssid", "02:00:00:00:00:0a"},
                             {"ssid", {{"text", "Caf\xc3\xa9"}, {"hex", "436166c3a9"}}}}));
    EXPECT_EQ(rows[1]["ssid"], (json{{"text", nullptr}, {"hex", "ff01"}}));
    EXPECT_EQ(rows[2]["ssid"], (json{{"text", ""}, {"hex", ""}}));
}

TEST_F(Show, AScanListThatIsCutIsAFailure)
{
    wsm.answer(260, {reply({mac(7, kOne), text(5, "a"), mac(7, kTwo)})});
    const Transcript run = this->run({"show", "scan"});
    EXPECT_EQ(run.exit, 1);
    EXPECT_EQ(run.err, "oructl: show scan: the last network of the list has no SSID\n");
    const json error = jsonOf({"--json", "show", "scan"}, 1)["error"];
    EXPECT_EQ(error["kind"], "failed");
    EXPECT_EQ(error["code"], nullptr);
}

// ---- bss-list, radios

TEST_F(Show, BssListHasTheRadiosNumbersAboveTheTable)
{
    wsm.answer(283, {reply({number16(1, 1), number8(17, 0), text(5, "first"), mac(7, kOne),
                            number8(17, 255), mac(7, kTwo)})});
    EXPECT_EQ(run({"show", "bss-list", "1"}).out, "element1   1\n"
                                                  "element18  -\n"
                                                  "\n"
                                                  "element17  ssid     bssid\n"
                                                  "0          \"first\"  02:00:00:00:00:0a\n"
                                                  "255        -        02:00:00:00:00:0b\n");
    const json object = jsonOf({"--json", "show", "bss-list", "1"}, 0);
    EXPECT_EQ(object["facts"], (json{{"element1", 1}, {"element18", nullptr}}));
    EXPECT_EQ(object["rows"][1],
              (json{{"element17", 255}, {"ssid", nullptr}, {"bssid", "02:00:00:00:00:0b"}}));
}

TEST_F(Show, RadiosHaveTheirBsses)
{
    wsm.answer(256, {reply({number16(1, 0), text(2, "wlan0"), number32(3, 4294967295),
                            number8(17, 1), mac(7, kOne), number8(17, 2), mac(7, kTwo),
                            number16(1, 1), number16(18, 300)})});
    EXPECT_EQ(
        run({"show", "radios"}).out,
        "id  element2  element3    element4  element6  element8  element18  element277  bsses\n"
        "0   \"wlan0\"   4294967295  -         -         -         -          -           "
        "1 02:00:00:00:00:0a,2 02:00:00:00:00:0b\n"
        "1   -         -           -         -         -         300        -           -\n");
    const json rows = jsonOf({"--json", "show", "radios"}, 0)["rows"];
    EXPECT_EQ(rows[0]["element3"], 4294967295);
    EXPECT_EQ(rows[0]["bsses"][1], (json{{"element17", 2}, {"bssid", "02:00:00:00:00:0b"}}));
    EXPECT_EQ(rows[1]["element2"], nullptr);
    EXPECT_THAT(rows[1]["bsses"], IsEmpty());
}

// ---- statistics

TEST_F(Show, StatsOfARadioAreItsCounters)
{
    wsm.answer(273, {statistics("rxBytes 10\ntx -3  big 9223372036854775808 \x1b[m 5 last")});
    EXPECT_EQ(run({"show", "stats", "1"}).out, "counter    value\n"
                                               "\"rxBytes\"  10\n"
                                               "\"tx\"       -3\n"
                                               "\"big\"      9223372036854775808\n"
                                               "\"\\x1b[m\"   5\n"
                                               "\"last\"     -\n");
    EXPECT_EQ(wsm.requests().at(0), (Bytes{0x01, 0x11, 0, 6, 1, 0}));
    const json object = jsonOf({"--json", "show", "stats", "1"}, 0);
    EXPECT_EQ(object["station"], nullptr);
    EXPECT_EQ(object["rows"][1], (json{{"counter", "tx"}, {"value", -3}}));
    EXPECT_EQ(object["rows"][2]["value"], "9223372036854775808");
    EXPECT_EQ(object["rows"][4]["value"], nullptr);
}

TEST_F(Show, StatsOfAStationNameItsAddress)
{
    wsm.answer(275, {statistics("rx 1")});
    EXPECT_EQ(jsonOf({"--json", "show", "stats", "0", "AA:bb:00:00:00:01"}, 0)["station"],
              "aa:bb:00:00:00:01");
    EXPECT_EQ(wsm.requests().at(0), (Bytes{0x01, 0x13, 0, 12, 0, 0, 0xAA, 0xBB, 0, 0, 0, 0x01}));
    EXPECT_EQ(run({"show", "stats", "0", "aa:bb"}).exit, 2);
}

TEST_F(Show, StatsThatTheServiceRefusesAreAFailureWithItsWords)
{
    wsm.answer(273, {statistics("no such \x1bradio", 0)});
    EXPECT_EQ(run({"show", "stats", "0"}).err,
              "oructl: show stats 0: failed: Error (code 1); WSM says 'no such \\x1bradio'\n");
    wsm.answer(273, {statistics("")});
    EXPECT_EQ(run({"show", "stats", "0"}).out, "no counters\n");
}

TEST_F(Show, StatsGetPicksACounter)
{
    wsm.answer(273, {statistics("rxBytes 10 rx 5 totaltx 7 low -1 big 4294967296 gap")});
    const auto value = [this](const char *name) { return run({"stats", "get", name, "0"}).out; };
    EXPECT_EQ(value("rxBytes"), "10\n");
    EXPECT_EQ(value("rx"), "5\n") << "behind a longer name";
    EXPECT_EQ(value("tx"), "7\n") << "the library takes the end of a longer name";
    EXPECT_EQ(value("low"), "-1\n");
    EXPECT_EQ(value("big"), "4294967296\n") << "not cut to 32 bits";
    EXPECT_EQ(jsonOf({"--json", "stats", "get", "rx", "0"}, 0), (json{{"schema", "oructl/1"},
                                                                      {"stats", "get"},
                                                                      {"counter", "rx"},
                                                                      {"radio", 0},
                                                                      {"station", nullptr},
                                                                      {"value", 5}}));
}

TEST_F(Show, StatsGetOfNoCounterIsAFailure)
{
    wsm.answer(273, {statistics("rxBytes 10 gap")});
    const Transcript run = this->run({"stats", "get", "rxByte", "0"});
    EXPECT_EQ(run.exit, 10);
    EXPECT_EQ(run.err, "oructl: stats get rxByte 0: no counter is called 'rxByte'; did you mean "
                       "'rxBytes'?\n");
    EXPECT_EQ(this->run({"stats", "get", "gap", "0"}).exit, 10) << "without a value";
    EXPECT_EQ(this->run({"stats", "get", "", "0"}).exit, 10);
    EXPECT_EQ(jsonOf({"--json", "stats", "get", "none", "0"}, 10)["error"]["code"], nullptr);
}

// ---- failures

TEST_F(Show, AnUnexpectedElementIsAFailure)
{
    const Bytes wrong = reply({number16(99, 1)});
    expectNotAsExpected(258, wrong, {"show", "stations", "0", "0"});
    expectNotAsExpected(260, wrong, {"show", "scan"});
    expectNotAsExpected(283, wrong, {"show", "bss-list", "0"});
    expectNotAsExpected(256, wrong, {"show", "radios"});
    expectNotAsExpected(262, wrong, {"disassoc", "02:00:00:00:00:01"});
}

TEST_F(WithoutService, EveryViewAndCommandFails)
{
    set(kAa, "bss0.wscEnabledFlag", "1");
    for (const Arguments &arguments :
         {Arguments{"show", "stations", "0", "0"}, Arguments{"show", "scan"},
          Arguments{"show", "radios"}, Arguments{"show", "bss-list", "0"},
          Arguments{"show", "stats", "0"}, Arguments{"show", "stats", "0", "02:00:00:00:00:01"},
          Arguments{"show", "stations", "0", "0", "--watch"}, Arguments{"stats", "get", "rx", "0"},
          Arguments{"disassoc", "02:00:00:00:00:01"}, Arguments{"wps", "status", "0", "0"},
          Arguments{"wps", "status", "0", "0", "--wait"},
          Arguments{"wps", "enroll", "pbc", "0", "0"}, Arguments{"wps", "generate", "0", "0"}}) {
        SCOPED_TRACE(testing::PrintToString(arguments));
        const Transcript run = this->run(arguments);
        EXPECT_EQ(run.exit, 1);
        EXPECT_EQ(run.out, "");
        EXPECT_THAT(run.err, HasSubstr(": failed: Failed to send request to radio mgt module(WSM) "
                                       "(code 48)"));
        Arguments withJson = arguments;
        withJson.insert(withJson.begin(), "--json");
        EXPECT_EQ(jsonOf(withJson, 1)["error"]["code"], 48);
    }
}

/// The library waits 20 seconds for an answer, here those of a fast clock.
TEST_F(Show, SilenceIsAFailureAndNoEmptyList)
{
    preload_ = FAST_CLOCK;
    for (const Arguments &silent :
         {Arguments{"show", "stations", "0", "0"}, Arguments{"show", "scan"},
          Arguments{"show", "radios"}, Arguments{"show", "bss-list", "0"},
          Arguments{"show", "stats", "0"}, Arguments{"stats", "get", "rx", "0"},
          Arguments{"wps", "status", "0", "0"}}) {
        SCOPED_TRACE(testing::PrintToString(silent));
        const auto start = std::chrono::steady_clock::now();
        const Transcript run = this->run(silent);
        EXPECT_GE(std::chrono::steady_clock::now() - start, 200ms) << "a hundredth of the wait";
        EXPECT_EQ(run.exit, 3);
        EXPECT_EQ(run.out, "");
        EXPECT_THAT(run.err, HasSubstr("20 seconds\n"));
    }
}

// ---- control

TEST_F(Show, RadioUpAndDownStoreAndTellAtOnce)
{
    set(kWsm, "radio1.adminStatus", "1");
    wsm.answer(264, {reply({number32(10, 0)})});
    const Transcript down = run({"radio", "down", "1"});
    EXPECT_EQ(down.exit, 0);
    EXPECT_EQ(down.out + down.err, "");
    EXPECT_EQ(value(kWsm, "radio1.adminStatus"), "0");
    EXPECT_EQ(run({"get", "admin-status", "1"}).out, "admin-status[1] = down\n");
    EXPECT_EQ(jsonOf({"--json", "radio", "up", "1"}, 0),
              (json{{"schema", "oructl/1"}, {"radio", "up"}, {"index", 1}}));
    EXPECT_EQ(run({"get", "admin-status", "1"}).out, "admin-status[1] = up\n");
    EXPECT_EQ(run({"set", "admin-status", "1", "down"}).exit, 0);
    const std::vector<Bytes> sent = wsm.requests();
    ASSERT_THAT(sent, SizeIs(3));
    EXPECT_EQ(sent[0], sent[2]);
    EXPECT_EQ(sent[1],
              joined({{0x01, 0x08, 0, 24, 0, 0, 0x4E, 0x20}, number16(9, 1), number16(8, 1)}));
}

TEST_F(WithoutService, ARadioThatCannotBeToldKeepsWhatIsStored)
{
    set(kWsm, "radio0.adminStatus", "1");
    for (const Arguments &arguments :
         {Arguments{"radio", "down", "0"}, Arguments{"set", "admin-status", "0", "down"}}) {
        set(kWsm, "radio0.adminStatus", "1");
        const Transcript run = this->run(arguments);
        EXPECT_EQ(run.exit, 4);
        EXPECT_THAT(run.err, HasSubstr("(code 48); stored, but the radio service could not be "));
        EXPECT_EQ(value(kWsm, "radio0.adminStatus"), "0");
    }
    EXPECT_THAT(run({"radio", "up", "2"}).err, HasSubstr("(code 3); RADIO is 0 to 1"));
    EXPECT_EQ(run({"radio", "up", "65536"}).exit, 2);
    EXPECT_THAT(run({"set", "admin-status", "0", "2"}).err,
                HasSubstr("(code 47); admin-status takes down or up"));
}

TEST_F(Show, DisassocSendsTheAddress)
{
    wsm.answer(258, {reply({number16(1, 1), mac(7, {0xAA, 0xBB, 0xCC, 1, 2, 0xFF})})});
    wsm.answer(262, {reply({mac(7, kOne), number32(10, 5)})});
    EXPECT_EQ(run({"disassoc", "AA:BB:CC:01:02:ff"}).exit, 0);
    EXPECT_EQ(wsm.requests().at(1), joined({{0x01, 0x06, 0, 20, 0, 0, 0x4E, 0x20},
                                            mac(7, {0xAA, 0xBB, 0xCC, 1, 2, 0xFF})}));
    EXPECT_EQ(jsonOf({"--json", "disassoc", "AA:BB:CC:01:02:ff"}, 0),
              (json{{"schema", "oructl/1"}, {"disassoc", true}, {"station", "aa:bb:cc:01:02:ff"}}));
    for (const char *wrong : {"", "02:00:00:00:00", "02-00-00-00-00-01", "02:00:00:00:00:0g"})
        EXPECT_EQ(run({"disassoc", wrong}).exit, 2) << wrong;
}

// ---- command lines

TEST_F(WithoutService, WrongCommandLinesNameWhatIsWrong)
{
    const auto expect = [this](const Arguments &arguments, const std::string &message) {
        SCOPED_TRACE(testing::PrintToString(arguments));
        const Transcript run = this->run(arguments);
        EXPECT_EQ(run.exit, 2);
        EXPECT_EQ(run.out, "");
        EXPECT_THAT(run.err, HasSubstr(message));
        EXPECT_THAT(run.err, HasSubstr("\nusage: oructl [OPTION...] "));
    };
    expect({"show"}, "show: VIEW is missing");
    expect({"show", "station"}, "no view is called 'station'; did you mean stations?");
    expect({"show", "stations"}, "show stations: RADIO is missing");
    expect({"show", "stations", "0"},
           "BSS is missing\nusage: oructl [OPTION...] show stations RADIO "
           "BSS [--watch [SECONDS]]\n");
    expect({"show", "stations", "0", "--watch"}, "'--watch' is no number of a BSS");
    expect({"show", "stations", "0", "0", "1"}, "'1' is one operand too many");
    expect({"show", "scan", "--watch", "0"}, "--watch: '0' is no number of seconds (1 to 86400)");
    expect({"show", "scan", "--watch", "86401"}, "'86401' is no number of seconds");
    expect({"show", "scan", "--watch", "1s"}, "'1s' is no number of seconds");
    expect({"show", "scan", "--watch", "1", "2"}, "'2' is one operand too many");
    expect({"show", "scan", "--wait"}, "'--wait' is one operand too many");
    expect({"radio"}, "radio: up or down is missing");
    expect({"radio", "of", "0"}, "no command of radio is called 'of'; did you mean up?");
    expect({"radio", "up"},
           "radio up: RADIO is missing\nusage: oructl [OPTION...] radio up RADIO\n");
    expect({"disassoc"}, "disassoc: STATION-MAC is missing");
    expect({"wps"}, "enroll pin, enroll pbc,");
    expect({"wps", "enroll"}, "no command of wps is called 'enroll'");
    expect({"wps", "enroll", "pcb", "0", "0"},
           "'enroll pcb'; did you mean enroll pin or enroll pbc?");
    expect({"stats", "get", "rx"}, "RADIO is missing");
}

TEST_F(WithoutService, CompletionKnowsViewsAndCommands)
{
    const auto candidates = [this](Arguments words) {
        words.insert(words.begin(), "--complete-args");
        const std::string out = run(words).out;
        return out.substr(0, out.find("--json\n")); // and all options behind it
    };
    EXPECT_EQ(candidates({"show"}),
              "radios\nbss-list\nstations\nscan\nstats\nradio\nchannels\nbss\nbss-info\n");
    EXPECT_EQ(candidates({"show", "stations"}), "0\n1\n");
    EXPECT_EQ(candidates({"show", "stations", "0"}), "0\n1\n2\n3\n");
    EXPECT_EQ(candidates({"show", "stations", "0", "0"}), "--watch\n");
    EXPECT_EQ(candidates({"show", "stats", "0"}), "--watch\n");
    EXPECT_EQ(candidates({"show", "scan", "--watch"}), "");
    EXPECT_EQ(candidates({"wps"}), "enroll\nstatus\nset-pin\nget-pin\ngenerate\n");
    EXPECT_EQ(candidates({"wps", "enroll"}), "pin\npbc\nap-pin\n");
    EXPECT_EQ(candidates({"wps", "enroll", "pbc"}), "0\n1\n");
    EXPECT_EQ(candidates({"wps", "status", "0", "1"}), "--wait\n");
    EXPECT_EQ(candidates({"radio"}), "up\ndown\n");
    EXPECT_EQ(candidates({"radio", "up"}), "0\n1\n");
    EXPECT_EQ(candidates({"disassoc"}), "");
    EXPECT_EQ(candidates({"get", "admin-status"}), "0\n1\n");
    EXPECT_EQ(candidates({"set", "admin-status", "0"}), "down\nup\n");
}

} // namespace
