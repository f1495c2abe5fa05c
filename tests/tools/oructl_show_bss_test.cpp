// What is stored of the BSSes, all in a table and one in detail, through the real program.
#include "tools/oructl_run.hpp"

#include <gmock/gmock.h>

#include <fstream>
#include <sstream>

using namespace oru::test;
using nlohmann::json;
using testing::HasSubstr;
using testing::Not;
using testing::SizeIs;

namespace {

std::string factory(const std::string &name)
{
    std::ifstream file(ORU_SOURCE_DIR "/share/" + name, std::ios::binary);
    std::ostringstream text;
    text << file.rdbuf();
    return text.str();
}

json onOff(bool on)
{
    return {{"word", on ? "on" : "off"}, {"number", on ? 1 : 0}};
}

class ShowBss : public OructlTest {
protected:
    ShowBss()
    {
        write(kWsm, factory("wsmDefaults.orig"));
        write(kAa, factory("1x.conf.orig"));
    }

    /// The rows of the table, without its line of names.
    std::vector<std::string> rows() const
    {
        std::istringstream out{run({"show", "bss"}).out};
        std::vector<std::string> lines;
        for (std::string line; std::getline(out, line);) lines.push_back(line);
        if (!lines.empty()) lines.erase(lines.begin());
        return lines;
    }
};

// ---- show bss

TEST_F(ShowBss, OneRowABss)
{
    set(kWsm, "bss1.ssId", "\"Lobby\"");
    ASSERT_EQ(run({"set", "hide-ssid", "1", "on"}).exit, 0);
    ASSERT_EQ(run({"set", "assign", "1", "1", "on"}).exit, 0);
    ASSERT_EQ(run({"set", "vlan", "1", "4095"}).exit, 0);
    ASSERT_EQ(run({"set", "intra-bss", "1", "off"}).exit, 0);
    ASSERT_EQ(run({"set", "inter-bss", "0", "on"}).exit, 0);
    ASSERT_EQ(run({"set", "security", "1", "wpa2", "psk"}).exit, 0);
    ASSERT_EQ(run({"set", "timeouts", "1", "600", "300"}).exit, 0);
    const Transcript run = this->run({"show", "bss"});
    EXPECT_EQ(run.exit, 0);
    EXPECT_EQ(run.err, "");
    EXPECT_EQ(run.out, "bss  ssid     hidden  radios  vlan  intra  inter  security  timeouts(s)  "
                       "wps  wps-state\n"
                       "0    \"oru\"    off     0,1     1     on     0      open      none/3600    "
                       "on   not-configured\n"
                       "1    \"Lobby\"  on      1       4095  off    0      wpa2/psk  600/300      "
                       "off  configured\n"
                       "2    \"oru-2\"  off     none    1     on     0      open      none/3600    "
                       "off  not-configured\n"
                       "3    \"oru-3\"  off     none    1     on     0      open      none/3600    "
                       "off  not-configured\n");
}

TEST_F(ShowBss, EachModeHasItsWord)
{
    const auto mode = [this] {
        std::istringstream row{rows().at(0)};
        std::string word;
        for (int i = 0; i < 8; ++i) row >> word;
        return word;
    };
    EXPECT_EQ(mode(), "open");
    ASSERT_EQ(run({"set", "security", "0", "wep"}).exit, 0);
    EXPECT_EQ(mode(), "wep") << "without its key length";
    ASSERT_EQ(run({"set", "security", "0", "wpa", "radius"}).exit, 0);
    EXPECT_EQ(mode(), "wpa/radius");
    set(kAa, "bss0.wpaEnabled", "false");
    EXPECT_EQ(mode(), "none");
}

TEST_F(ShowBss, OneBssHasAllItsItemsUnderHeadings)
{
    const Transcript run = this->run({"show", "bss", "0"});
    EXPECT_EQ(run.exit, 0);
    EXPECT_EQ(run.err, "");
    EXPECT_EQ(run.out, "identity\n"
                       "  ssid                        \"oru\"\n"
                       "  hide-ssid                   off\n"
                       "  assign.radio0               on\n"
                       "  assign.radio1               on\n"
                       "  vlan                        1\n"
                       "forwarding\n"
                       "  intra-bss                   on\n"
                       "  inter-bss.radio0            off\n"
                       "  inter-bss.radio1            off\n"
                       "security\n"
                       "  security.mode               open\n"
                       "  timeouts.session-timeout    none\n"
                       "  timeouts.group-key-timeout  3600 seconds\n"
                       "  mac-auth                    0\n"
                       "wps\n"
                       "  wps                         on\n"
                       "  wps-state                   not-configured\n"
                       "  registrar                   0\n"
                       "  enforce-pin-timeout         off\n"
                       "  uuid                        \"5af1c0de0b5500000000020000000a00\"\n"
                       "  wps-interface               \"bss0\"\n");
}

TEST_F(ShowBss, JsonHasTheValuesOfAGet)
{
    ASSERT_EQ(run({"set", "security", "2", "wpa-mixed", "psk"}).exit, 0);
    const json object = jsonOf({"--json", "show", "bss", "2"}, 0);
    EXPECT_EQ(object["show"], "bss");
    EXPECT_EQ(object["bss"], 2);
    ASSERT_THAT(object["rows"], SizeIs(1));
    const json row = object["rows"][0];
    EXPECT_EQ(row["index"], 2);
    EXPECT_EQ(row["failed"], json::object());
    EXPECT_EQ(row["items"]["inter-bss"],
              (json{{"radio0", onOff(false)}, {"radio1", onOff(false)}}));
    for (const char *item :
         {"ssid", "hide-ssid", "assign", "vlan", "intra-bss", "security", "timeouts", "mac-auth",
          "wps", "wps-state", "registrar", "enforce-pin-timeout", "uuid", "wps-interface"})
        EXPECT_EQ(row["items"][item], jsonOf({"--json", "get", item, "2"}, 0)["value"]) << item;
    EXPECT_THAT(row["items"], SizeIs(15)) << "inter-bss and these";
}

TEST_F(ShowBss, JsonOfAllHasARowEach)
{
    const json object = jsonOf({"--json", "show", "bss"}, 0);
    EXPECT_EQ(object["bss"], nullptr);
    ASSERT_THAT(object["rows"], SizeIs(4));
    for (int bss = 0; bss < 4; ++bss) {
        EXPECT_EQ(object["rows"][bss]["index"], bss);
        EXPECT_EQ(object["rows"][bss],
                  jsonOf({"--json", "show", "bss", std::to_string(bss)}, 0)["rows"][0]);
    }
}

TEST_F(ShowBss, WhatCannotBeReadIsADashWithItsReason)
{
    set(kWsm, "bss1.ssId", '"' + std::string(33, 'x') + '"');
    set(kWsm, "bss1.registrarinfo", "x");
    const Transcript all = run({"show", "bss"});
    EXPECT_EQ(all.exit, 0);
    EXPECT_EQ(rows().at(1).substr(0, 6), "1    -");
    EXPECT_THAT(all.out, testing::EndsWith("\n\nbss 1: ssid: Invalid SSID length "
                                           "(code 23)\n"))
        << "of what the table has";
    const Transcript one = run({"show", "bss", "1"});
    EXPECT_EQ(one.exit, 0);
    EXPECT_THAT(one.out,
                HasSubstr("  ssid                        -  Invalid SSID length (code 23)\n"));
    EXPECT_THAT(one.out, HasSubstr("  registrar                   -  This config item not "));
    EXPECT_THAT(one.out, HasSubstr("  wps-interface               \"bss1\"\n"));
    const json row = jsonOf({"--json", "show", "bss", "1"}, 0)["rows"][0];
    EXPECT_EQ(row["items"]["ssid"], nullptr);
    EXPECT_EQ(row["failed"]["ssid"], (json{{"code", 23}, {"message", "Invalid SSID length"}}));
    EXPECT_EQ(row["failed"]["registrar"]["code"], 109);
    EXPECT_THAT(row["failed"], SizeIs(2));
}

TEST_F(ShowBss, NothingThatCanBeReadIsAFailure)
{
    remove(kWsm);
    EXPECT_EQ(run({"show", "bss"}).exit, 0) << "the items of the other file are there";
    remove(kAa);
    for (const Arguments &arguments : {Arguments{"show", "bss"}, Arguments{"show", "bss", "0"}}) {
        const Transcript run = this->run(arguments);
        EXPECT_EQ(run.exit, 7);
        EXPECT_EQ(run.out, "");
        EXPECT_THAT(run.err, HasSubstr("(code 7)"));
    }
}

TEST_F(ShowBss, AnIndexIsRefusedByTheLibraryAndNeverCut)
{
    for (const char *bss : {"4", "255", "256", "65535"})
        EXPECT_EQ(run({"show", "bss", bss}).err, std::string{"oructl: show bss "} + bss +
                                                     ": refused: Invalid BSS Number (code 115); "
                                                     "BSS is 0 to 3\n");
    EXPECT_EQ(run({"show", "bss", "65536"}).exit, 2);
    EXPECT_EQ(run({"show", "bss", "-1"}).exit, 2);
    EXPECT_EQ(run({"show", "bss", "0", "1"}).exit, 2);
}

TEST_F(ShowBss, NamesOfOthersDoNotDriveATerminal)
{
    ASSERT_EQ(run({"set", "ssid", "0", "--hex", "1b5b324a22"}).exit, 0);
    EXPECT_THAT(rows().at(0), HasSubstr("\"\\x1b[2J\\\"\""));
    EXPECT_THAT(run({"show", "bss", "0"}).out, HasSubstr("\"\\x1b[2J\\\"\"\n"));
}

TEST_F(ShowBss, NoSecretIsShown)
{
    ASSERT_EQ(run({"set", "security", "0", "wpa2", "psk"}).exit, 0);
    ASSERT_EQ(runWithInput("secret of the house\n", {"set", "psk", "0", "-"}).exit, 0);
    EXPECT_THAT(run({"--show-secrets", "--json", "show", "bss", "0"}).out, Not(HasSubstr("house")));
}

TEST_F(ShowBss, FieldsAreItemsAndTerseIsTheirValuesAlone)
{
    set(kWsm, "bss1.registrarinfo", "x");
    EXPECT_EQ(run({"show", "--fields", "registrar,ssid", "bss"}).out,
              "bss  registrar  ssid\n"
              "0    0          \"oru\"\n"
              "1    -          \"oru-1\"\n"
              "2    0          \"oru-2\"\n"
              "3    0          \"oru-3\"\n\n"
              "bss 1: registrar: This config item not set, Disabled (code 109)\n");
    EXPECT_EQ(run({"show", "--terse", "--fields", "timeouts,registrar,ssid", "bss"}).out,
              "none\t3600\t0\toru\n"
              "none\t3600\t\toru-1\n"
              "none\t3600\t0\toru-2\n"
              "none\t3600\t0\toru-3\n");
    const json row = jsonOf({"show", "--json", "--fields", "vlan", "bss", "1"}, 0)["rows"][0];
    EXPECT_EQ(row, (json{{"index", 1}, {"items", {{"vlan", 1}}}, {"failed", json::object()}}));
    EXPECT_EQ(run({"show", "--terse", "bss", "0"}).out,
              "oru\toff\ton\ton\t1\ton\toff\toff\topen\t\t\t\t\tnone\t3600\t0\ton\t"
              "not-configured\t0\toff\t5af1c0de0b5500000000020000000a00\tbss0\n");
    EXPECT_EQ(run({"show", "--fields", "none", "bss"}).exit, 2);
}

// ---- show bss-info

TEST_F(ShowBss, ASummaryIsInWordsAndAsTheLibraryGivesIt)
{
    ASSERT_EQ(run({"set", "hide-ssid", "2", "on"}).exit, 0);
    ASSERT_EQ(run({"set", "security", "2", "wpa2", "psk"}).exit, 0);
    const Transcript run = this->run({"show", "bss-info", "2"});
    EXPECT_EQ(run.exit, 0);
    EXPECT_EQ(run.err, "");
    EXPECT_EQ(run.out, "ssid           \"oru-2\"\n"
                       "hidden         on\n"
                       "security       wpa2\n"
                       "security-text  \"WPA2 \"\n");
    EXPECT_EQ(jsonOf({"--json", "show", "bss-info", "2"}, 0),
              (json{{"schema", "oructl/1"},
                    {"show", "bss-info"},
                    {"bss", 2},
                    {"facts",
                     {{"ssid", {{"text", "oru-2"}, {"hex", "6f72752d32"}}},
                      {"hidden", onOff(true)},
                      {"security", {{"word", "wpa2"}, {"number", 2}}},
                      {"security-text", "WPA2 "}}}}));
}

TEST_F(ShowBss, EachTextOfASummaryHasItsWord)
{
    const auto expect = [this](const std::string &word, const json &text) {
        const json facts = jsonOf({"--json", "show", "bss-info", "0"}, 0)["facts"];
        EXPECT_EQ(facts["security"]["word"], word);
        EXPECT_EQ(facts["security-text"], text);
    };
    expect("open", "OPEN Mode");
    set(kAa, "bss0.openAccessEnabled", "false");
    expect("none-or-dynamic-wep", nullptr);
    EXPECT_THAT(run({"show", "bss-info", "0"}).out,
                HasSubstr("security       none-or-dynamic-wep\nsecurity-text  -\n"));
    set(kAa, "bss0.wpaEnabled", "true");
    set(kAa, "bss0.wpaAuthTypes", "1");
    const char *const words[] = {"unknown", "wpa", "wpa2", "wpa-mixed"};
    const char *const texts[] = {"UnKNown", "WPA ", "WPA2 ", "WPA + WPA2 "};
    for (size_t mode = 0; mode < 4; ++mode) {
        set(kAa, "bss0.mixedIeMode", std::to_string(mode));
        expect(words[mode], texts[mode]);
    }
    set(kAa, "bss0.wepEnabled", "true");
    expect("wep", "WEP Mode");
}

TEST_F(ShowBss, ASummaryFailsWhereACommitWouldAndSaysWhatToChange)
{
    ASSERT_EQ(run({"set", "security", "1", "wpa2", "radius"}).exit, 0);
    const Transcript run = this->run({"show", "bss-info", "1"});
    EXPECT_EQ(run.exit, 6);
    EXPECT_EQ(run.out, "");
    EXPECT_THAT(run.err, HasSubstr("oructl: show bss-info 1: failed: "));
    EXPECT_THAT(run.err, HasSubstr("(code 81); no RADIUS server is configured; set one with: "));
    EXPECT_EQ(jsonOf({"--json", "show", "bss-info", "1"}, 6)["error"]["code"], 81);
    EXPECT_THAT(this->run({"show", "bss-info", "4"}).err, HasSubstr("(code 115); BSS is 0 to 3"));
    EXPECT_EQ(this->run({"show", "bss-info"}).exit, 2);
}

} // namespace
