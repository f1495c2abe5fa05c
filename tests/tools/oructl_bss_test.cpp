// Items of BSSes, security and WPS, through the real program and the factory files.
#include "catalogue.hpp"
#include "items.hpp"
#include "tools/oructl_run.hpp"
#include "values.hpp"

#include <gmock/gmock.h>

#include <filesystem>

using namespace oru::test;
using namespace oructl;
using nlohmann::json;
using testing::HasSubstr;
using testing::Not;

namespace {

/// An access point as it leaves the factory.
class OructlBss : public OructlTest {
protected:
    OructlBss()
    {
        for (const char *file : {"wsmDefaults", "1x.conf"})
            std::filesystem::copy_file(std::string(ORU_SOURCE_DIR "/share/") + file + ".orig",
                                       root() + "/var/" + file,
                                       std::filesystem::copy_options::overwrite_existing);
        set(kWsm, "eth77.pvid", "1");
        for (int slot = 0; slot < 15; ++slot) set(kWsm, "eth77.vid" + std::to_string(slot), "0");
    }

    [[nodiscard]] std::string files() const { return read(kWsm) + read(kAa); }

    void expectDone(const Arguments &arguments, const std::string &output = "") const
    {
        SCOPED_TRACE(testing::PrintToString(arguments));
        const Transcript run = this->run(arguments);
        EXPECT_EQ(run.exit, 0);
        EXPECT_EQ(run.out, output);
        EXPECT_EQ(run.err, "");
    }

    /// Refused by the library, with what to change; nothing is written.
    void expectRefused(const Arguments &arguments, int code, const std::string &reason) const
    {
        const int exit = exitOfRefusal(code, reason);
        SCOPED_TRACE(testing::PrintToString(arguments));
        const std::string before = files();
        const Transcript run = this->run(arguments);
        EXPECT_EQ(run.exit, exit);
        EXPECT_EQ(run.out, "");
        EXPECT_THAT(run.err, HasSubstr("(code " + std::to_string(code) + ")"));
        EXPECT_THAT(run.err, HasSubstr("; " + reason));
        EXPECT_EQ(files(), before);
        Arguments asJson = arguments;
        asJson.insert(asJson.begin(), "--json");
        const json error = jsonOf(asJson, exit)["error"];
        EXPECT_EQ(error["code"], code);
        EXPECT_EQ(error["kind"], "refused");
        EXPECT_THAT(error["detail"].get<std::string>(), HasSubstr(reason));
    }

    /// Refused by the tool, before any operation.
    void expectWrong(const Arguments &arguments, const std::string &message) const
    {
        SCOPED_TRACE(testing::PrintToString(arguments));
        const std::string before = files();
        const Transcript run = this->run(arguments);
        EXPECT_EQ(run.exit, 2);
        EXPECT_EQ(run.out, "");
        EXPECT_THAT(run.err, HasSubstr(message));
        EXPECT_EQ(files(), before);
    }

    json valueOf(const Arguments &arguments) const
    {
        Arguments asJson = {"--json", "get"};
        asJson.insert(asJson.end(), arguments.begin(), arguments.end());
        return jsonOf(asJson, 0)["value"];
    }
};

// ---- rows of one number

/// The rows of these families that are one number in one place.
template <class Visit>
void forEachNumber(Visit &&visit)
{
    for (const auto family : {bssItems(), securityItems(), wpsItems()})
        for (const Item &item : family) {
            const Kind kind = item.fields[0].kind;
            const bool number =
                kind == Kind::Number || kind == Kind::Switch || kind == Kind::Choice;
            if (item.fields.size() == 1 && number) visit(item);
        }
}

TEST_F(OructlBss, NumbersAreSetAndReadAtEveryIndexWithinTheirBounds)
{
    int rows = 0;
    forEachNumber([&](const Item &item) {
        SCOPED_TRACE(item.name);
        ++rows;
        const Field &field = item.fields[0];
        if (item.name == "open-access") return; // set and read among the modes
        const std::string name{item.name};
        const int64_t last = item.scope == Scope::Radio ? 1 : 3;
        for (int64_t index = 0; index <= last; ++index)
            for (const int64_t number : {field.bounds.min, field.bounds.max}) {
                const std::string at = std::to_string(index);
                expectDone({"set", name, at, std::to_string(number)});
                Value shown;
                shown.number = number;
                expectDone({"get", name, at},
                           name + '[' + at + "] = " + shownValue(field, shown) + '\n');
                const json read = valueOf({name, at});
                EXPECT_EQ(read.is_object() ? read["number"] : read, number);
                std::string key{item.keys};
                key.replace(key.find("%d"), 2, at);
                EXPECT_EQ(value(std::string{item.files}, key), std::to_string(number));
            }
        for (const int64_t number : {field.bounds.min - 1, field.bounds.max + 1}) {
            const std::string before = files();
            EXPECT_NE(run({"set", name, "0", std::to_string(number)}).exit, 0) << number;
            EXPECT_EQ(files(), before) << number;
        }
        for (const char *index : {"4", "-1", "256", "2147483647"})
            EXPECT_NE(run({"get", name, index}).exit, 0) << index;
    });
    EXPECT_EQ(rows, 10);
}

// ---- BSS assignment and identity

TEST_F(OructlBss, AssignSwitchesOneRadioAndShowsBoth)
{
    expectDone({"get", "assign", "1"}, "assign[1].radio0 = off\nassign[1].radio1 = off\n");
    expectDone({"set", "assign", "1", "1", "on"});
    EXPECT_EQ(value(kWsm, "bss1.radio"), "2");
    EXPECT_EQ(value(kAa, "bss1.radioctrl"), "2");
    EXPECT_EQ(valueOf({"assign", "1"}), (json{{"radio0", {{"word", "off"}, {"number", 0}}},
                                              {"radio1", {{"word", "on"}, {"number", 1}}}}));
    expectDone({"set", "assign", "1", "1", "off"});
    EXPECT_EQ(value(kWsm, "bss1.radio"), "0");
    expectWrong({"set", "assign", "1", "2", "on"}, "radio takes 0 to 1");
    expectWrong({"set", "assign", "1", "0", "2"}, "state takes on or off");
    expectRefused({"set", "assign", "4", "0", "on"}, 115, "BSS is 0 to 3");
}

TEST_F(OructlBss, AnSsidHasAnyBytes)
{
    expectDone({"set", "ssid", "0", "Z\xc3\xbcrich \"1\""});
    expectDone({"get", "ssid", "0"}, "ssid[0] = \"Z\\xc3\\xbcrich \\\"1\\\"\"\n");
    EXPECT_EQ(valueOf({"ssid", "0"}), (json{{"text", "Z\xc3\xbcrich \"1\""},
                                            {"hex", "5ac3bc72696368202231"
                                                    "22"}}));
    expectDone({"set", "ssid", "0", "--hex", "4FFf01"});
    EXPECT_EQ(valueOf({"ssid", "0"}), (json{{"text", nullptr}, {"hex", "4fff01"}}));
    expectDone({"set", "ssid", "0", "--hex", "2d2d686578"});
    EXPECT_EQ(valueOf({"ssid", "0"})["text"], "--hex");
    expectDone({"set", "ssid", "0", ""});
    EXPECT_EQ(valueOf({"ssid", "0"}), (json{{"text", ""}, {"hex", ""}}));
}

TEST_F(OructlBss, AnSsidIsNeverCut)
{
    expectDone({"set", "ssid", "0", std::string(32, 's')});
    expectWrong({"set", "ssid", "0", std::string(33, 's')}, "VALUE takes 0 to 32 bytes");
    expectWrong({"set", "ssid", "0", "--hex", "6f00"}, "the byte 00");
    expectWrong({"set", "ssid", "0", "--hex", "6f6"}, "'6f6' has an odd number of digits");
    expectWrong({"set", "ssid", "0", "--hex", "6g"}, "'6g' is no pair of hexadecimal digits");
    expectWrong({"set", "ssid", "0", "--hex"}, "--hex needs a value");
    set(kWsm, "bss0.ssId", '"' + std::string(33, 's') + '"');
    expectRefused({"get", "ssid", "0"}, 23, "set another with: oructl set ssid 0 SSID");
}

TEST_F(OructlBss, RelayWithoutItsKeyIsNoCodeButNamed)
{
    for (const char *key : {"bss1.IntraBSS", "InterBSS.radio1"}) set(kWsm, key, "no number");
    EXPECT_THAT(run({"get", "intra-bss", "1"}).err,
                HasSubstr("failed: the key is missing or no number (code 4294967295); key "
                          "bss1.IntraBSS of /var/wsmDefaults"));
    EXPECT_THAT(run({"get", "inter-bss", "1"}).err, HasSubstr("; key InterBSS.radio1 of"));
}

// ---- VLANs

TEST_F(OructlBss, EtherVlanHandsOverCheckedNumbers)
{
    const std::string said = "ether-vlan[77]: the Ethernet driver was told the port's own VLAN at "
                             "once (a failure there is only logged); the rest waits for a commit\n";
    expectDone({"set", "ether-vlan", "77", "0100", "10", "020", "4095"}, said);
    EXPECT_EQ(value(kWsm, "eth77.pvid"), "100");
    EXPECT_EQ(value(kWsm, "eth77.vid0"), "10");
    EXPECT_EQ(value(kWsm, "eth77.vid1"), "20");
    EXPECT_EQ(value(kWsm, "eth77.vid2"), "4095");
    EXPECT_EQ(value(kWsm, "eth77.vid3"), "0");
    EXPECT_EQ(valueOf({"ether-vlan", "77"}), (json{{"pvid", 100}, {"members", {10, 20, 4095}}}));
    expectDone({"set", "ether-vlan", "77", "1"}, said);
    EXPECT_EQ(valueOf({"ether-vlan", "77"}), (json{{"pvid", 1}, {"members", json::array()}}));
    EXPECT_EQ(jsonOf({"--json", "set", "ether-vlan", "77", "1"}, 0)["steps"].size(), 1u);
}

TEST_F(OructlBss, EtherVlanTakesFifteenMembershipsAndNoSixteenth)
{
    Arguments command = {"set", "ether-vlan", "77", "1"};
    for (int id = 1; id <= 15; ++id) command.push_back(std::to_string(id));
    EXPECT_EQ(run(command).exit, 0);
    EXPECT_EQ(value(kWsm, "eth77.vid14"), "15");
    command.emplace_back("16");
    expectWrong(command, "members takes 0 to 15 entries");
    EXPECT_EQ(value(kWsm, "eth77.vid15"), std::nullopt);
}

TEST_F(OructlBss, EtherVlanRefusesWhatIsNoVlan)
{
    for (const char *id : {"0", "4096", "-1", "2147483647"}) {
        expectWrong({"set", "ether-vlan", "77", id}, "pvid takes 1 to 4095");
        expectWrong({"set", "ether-vlan", "77", "1", "2", id}, "an entry: VALUE takes 1 to 4095");
    }
    for (const char *id : {"", "x", "10x", "0x10", "+1", "1 "}) {
        expectWrong({"set", "ether-vlan", "77", id}, "is no whole number");
        expectWrong({"set", "ether-vlan", "77", "1", id}, "is no whole number");
    }
    expectWrong({"set", "ether-vlan", "77", "1", "4294967297"}, "does not fit 32 bits");
    expectWrong({"set", "ether-vlan", "77"}, "pvid is missing");
    expectWrong({"set", "ether-vlan", "-1", "1"}, "'-1' does not fit the PORT of ether-vlan");
    expectWrong({"set", "ether-vlan", "eth0", "1"}, "is no number of a PORT");
}

TEST_F(OructlBss, AVlanOutOfRangeIsRefusedInWordsOfItsOwn)
{
    for (const char *id : {"0", "4096"})
        expectRefused({"set", "vlan", "2", id}, 117, "vlan takes 1 to 4095");
}

// ---- security

TEST_F(OructlBss, RawModesAreRefusedWithTheCommandThatHelps)
{
    const Arguments wpa = {"set", "wpa", "1", "wpa2", "psk", "aes"};
    const Arguments wep = {"set", "wep", "1", "on"};
    const Arguments open = {"set", "open-access", "1", "on"};
    const auto off = [](const std::string &mode, const std::string &item) {
        return "BSS 1 uses " + mode + "; switch it off with: oructl set " + item + " 1 off\n";
    };
    for (const Arguments &command : {wpa, wep}) {
        EXPECT_EQ(run(command).exit, 1);
        EXPECT_THAT(run(command).err, HasSubstr("(code 32); " + off("open access", "open-access")));
    }
    expectDone({"set", "open-access", "1", "off"});
    expectDone(wep);
    EXPECT_THAT(run(wpa).err, HasSubstr("(code 46); " + off("WEP", "wep")));
    EXPECT_THAT(run(open).err, HasSubstr("(code 46); " + off("WEP", "wep")));
    expectDone({"set", "wep", "1", "off"});
    expectDone(wpa);
    EXPECT_THAT(run(wep).err, HasSubstr("(code 45); " + off("WPA", "wpa")));
    EXPECT_THAT(run(open).err, HasSubstr("(code 45); " + off("WPA", "wpa")));
    expectDone({"set", "wpa", "1", "off"});
    expectDone(open);
    expectDone({"get", "open-access", "1"}, "open-access[1] = on\n");
}

TEST_F(OructlBss, WpaIsReadWithItsTypesAndWithoutThemWhileItIsOff)
{
    expectDone({"get", "wpa", "0"}, "wpa[0].mode = off\n");
    expectDone({"set", "open-access", "0", "off"});
    expectDone({"set", "wpa", "0", "wpa-mixed", "radius", "2"});
    EXPECT_EQ(value(kAa, "bss0.mixedIeMode"), "3");
    EXPECT_EQ(value(kAa, "bss0.wpaAuthTypes"), "0");
    EXPECT_EQ(value(kAa, "bss0.wpaEncTypes"), "2");
    expectDone({"get", "wpa", "0"},
               "wpa[0].mode = wpa-mixed\nwpa[0].auth = radius\nwpa[0].cipher = 2\n");
    expectRefused({"set", "wpa", "0", "4", "psk"}, 30, "mode of wpa takes off, wpa");
    expectRefused({"set", "wpa", "0", "wpa", "2"}, 28, "auth of wpa takes radius or psk");
    expectRefused({"set", "wpa", "0", "wpa", "psk", "3"}, 29, "cipher of wpa takes aes, 1 or 2");
    expectWrong({"set", "wpa", "0", "wpa"}, "auth is missing");
    expectWrong({"set", "wpa", "0", "wpa", "-1"}, "auth takes radius or psk");
    expectWrong({"set", "wpa", "0", "off", "psk"}, "auth and cipher belong to WPA");
}

TEST_F(OructlBss, AnAccessPointOf11nOnlySaysWhatItCanDo)
{
    set(kWsm, "dot11Mode", "9");
    const std::string instead = "the access point runs 802.11n only, with neither open access nor "
                                "WEP; use: oructl set security 0 wpa2 psk aes";
    expectRefused({"set", "open-access", "0", "on"}, 114, instead);
    expectRefused({"set", "security", "0", "open"}, 114, instead);
    expectRefused({"set", "wep", "0", "on"}, 114, instead);
    expectDone({"set", "open-access", "0", "off"});
    const std::string aes = "the access point runs 802.11n only, which takes the cipher aes alone";
    expectRefused({"set", "wpa", "0", "wpa2", "psk", "1"}, 29, aes);
    expectRefused({"set", "security", "0", "wpa2", "psk", "1"}, 29, aes);
}

TEST_F(OructlBss, SecuritySwitchesOffWhatIsOnAndSaysSo)
{
    const auto modes = [this] {
        return *value(kAa, "bss1.openAccessEnabled") + ' ' + *value(kAa, "bss1.wepEnabled") + ' ' +
               *value(kAa, "bss1.wpaEnabled");
    };
    expectDone({"get", "security", "1"}, "security[1].mode = open\n");
    expectDone({"set", "security", "1", "wep"},
               "security[1]: open access switched off\nsecurity[1]: wep, dynamic switched on\n");
    EXPECT_EQ(modes(), "false true false");
    expectDone({"set", "security", "1", "wpa2", "psk"},
               "security[1]: WEP switched off\n"
               "security[1]: wpa2 with psk and aes switched on\n"
               "security[1]: no key of BSS 1 is stored; set one with: oructl set psk 1 -\n");
    EXPECT_EQ(modes(), "false false true");
    expectDone({"get", "security", "1"},
               "security[1].mode = wpa2\nsecurity[1].auth = psk\nsecurity[1].cipher = aes\n");
    EXPECT_EQ(jsonOf({"--json", "set", "security", "1", "wpa-mixed", "radius", "1"}, 0)["steps"],
              (json{"wpa-mixed with radius and 1 switched on",
                    "no RADIUS server is configured; set one with: oructl set radius TIMEOUT "
                    "TRIES NAME:PORT"}));
    expectDone({"set", "security", "1", "open"},
               "security[1]: WPA switched off\nsecurity[1]: open switched on\n");
    EXPECT_EQ(modes(), "true false false");
    for (const char *key : {"openAccessEnabled", "wepEnabled", "wpaEnabled"})
        set(kAa, std::string("bss1.") + key, "true");
    EXPECT_EQ(run({"set", "security", "1", "open"}).exit, 0) << "even when all three are on";
    EXPECT_EQ(modes(), "true false false");
    set(kAa, "bss1.openAccessEnabled", "false");
    expectDone({"get", "security", "1"}, "security[1].mode = none\n");
}

TEST_F(OructlBss, SecurityStoresTheKeyWithTheMode)
{
    const Transcript run =
        runWithInput("correct horse\n", {"set", "security", "2", "wpa2", "psk", "--psk", "-"});
    EXPECT_EQ(run.exit, 0);
    EXPECT_EQ(run.out, "security[2]: open access switched off\n"
                       "security[2]: wpa2 with psk and aes switched on\n"
                       "security[2]: key stored\n");
    EXPECT_EQ(this->run({"--show-secrets", "get", "psk", "2"}).out, "psk[2] = \"correct horse\"\n");
}

TEST_F(OructlBss, AFailureInTheMiddleOfSecurityStoresNothing)
{
    const std::string before = files();
    const Transcript run =
        runWithInput("tab\there\n", {"set", "security", "2", "wpa2", "psk", "--psk", "-"});
    EXPECT_EQ(run.exit, 1);
    EXPECT_THAT(run.err, HasSubstr("(code 41); a key has 64 hexadecimal digits"));
    EXPECT_EQ(files(), before);
}

TEST_F(OructlBss, AFailureBehindASwitchOffLeavesItOn)
{
    set(kWsm, "dot11Mode", "unknown");
    const std::string before = files();
    const Transcript run = this->run({"set", "security", "2", "wpa2", "psk"});
    EXPECT_EQ(run.exit, 1);
    EXPECT_THAT(run.err, HasSubstr("failed: Error in reading element from configuration file (code "
                                   "42); keys bss2.openAccessEnabled"));
    EXPECT_THAT(run.err, HasSubstr("dot11Mode"));
    EXPECT_EQ(files(), before);
}

TEST_F(OructlBss, SecurityRefusesWhatDoesNotGoTogether)
{
    expectWrong({"set", "security", "1", "none"}, "mode: a word is none of its values");
    expectWrong({"set", "security", "1", "wpa3"}, "wpa2 or wpa-mixed)\n"); // no word near it
    expectWrong({"set", "security", "1", "9"}, "mode takes open, wep, wpa, wpa2 or wpa-mixed");
    expectWrong({"set", "security", "1", "wpa"}, "auth is missing");
    expectWrong({"set", "security", "1", "open", "psk"}, "auth and cipher belong to WPA");
    expectWrong({"set", "security", "1", "open", "--key-length", "5"}, "belong to wep");
    expectWrong({"--insecure-argv", "set", "security", "1", "open", "--psk", "12345678"},
                "--psk belongs to WPA with psk");
    expectWrong({"--insecure-argv", "set", "security", "1", "wpa", "radius", "--psk", "12345678"},
                "--psk belongs to WPA with psk");
    expectWrong({"--insecure-argv", "set", "security", "1", "wpa", "psk", "--psk", "1234567"},
                "psk takes 8 to 64 bytes");
    expectRefused({"set", "security", "4", "open"}, 115, "BSS is 0 to 3");
}

TEST_F(OructlBss, WepTakesKeysOfOneLength)
{
    expectDone({"set", "open-access", "0", "off"});
    EXPECT_EQ(runWithInput("0123456789\nabcdefABCD\n", {"set", "wep", "0", "on", "--key1", "-",
                                                        "--key3", "-", "--default-key", "3"})
                  .exit,
              0);
    EXPECT_EQ(value(kAa, "bss0.wepKeyLen"), "5");
    EXPECT_EQ(value(kAa, "bss0.wepKey.1"), "01:23:45:67:89");
    EXPECT_EQ(value(kAa, "bss0.wepKey.3"), "ab:cd:ef:AB:CD");
    EXPECT_EQ(valueOf({"wep", "0"}), (json{{"state", {{"word", "on"}, {"number", 1}}},
                                           {"key-length-bytes", 5},
                                           {"default-key", 3},
                                           {"key1", "********"},
                                           {"key2", ""},
                                           {"key3", "********"},
                                           {"key4", ""}}));
    EXPECT_THAT(run({"get", "security", "0"}).out, HasSubstr("mode = wep\n"));
    expectDone({"set", "wep", "0", "on"});
    EXPECT_EQ(value(kAa, "bss0.dynamicWepEnabled"), "true");
    EXPECT_EQ(value(kAa, "bss0.wepKey.1"), std::nullopt);
    EXPECT_EQ(value(kAa, "bss0.wepKeyLen"), "13");
    expectWrong({"set", "wep", "0", "off", "--key-length", "5"}, "off takes no keys");
}

TEST_F(OructlBss, WepRefusalsSayWhatAKeyIs)
{
    const auto on = [](Arguments more) {
        more.insert(more.begin(), {"--insecure-argv", "set", "wep", "0", "on"});
        return more;
    };
    const char *key = "0123456789";
    expectRefused(on({"--key-length", "8"}), 34, "a key has 5 or 13 bytes");
    expectRefused(on({"--key1", "01234567"}), 34, "a key has 5 or 13 bytes");
    expectRefused(on({"--default-key", "5"}), 35, "default-key takes 1 to 4");
    expectRefused(on({"--key1", key, "--default-key", "2"}), 37,
                  "the default key is number 2: give it with --key2");
    expectRefused(on({"--key1", key, "--key-length", "13"}), 39,
                  "each key of 13 bytes has 26 hexadecimal digits");
    expectRefused(on({"--key1", key, "--key2", "012345678g"}), 36,
                  "key2 holds other characters than hexadecimal digits");
}

TEST_F(OructlBss, APskNeedsWpaAndAStoredOne)
{
    const Arguments set = {"--insecure-argv", "set", "psk", "1", "12345678"};
    expectRefused(set, 33, "WPA of BSS 1 is off; switch it on with: oructl set security 1 wpa2");
    expectRefused({"get", "psk", "1"}, 72, "set one with: oructl set psk 1 -");
    EXPECT_EQ(run({"set", "security", "1", "wpa2", "psk"}).exit, 0);
    expectDone(set);
    EXPECT_EQ(value(kAa, "bss1.wpaPsk"), "\"12345678\"");
    expectRefused({"--insecure-argv", "set", "psk", "1", "1234567"}, 31,
                  "a key has 64 hexadecimal");
    expectRefused({"--insecure-argv", "set", "psk", "1", "1234567\t"}, 41, "a key has 64");
}

TEST_F(OructlBss, ACommitNamesTheBssThatItRefuses)
{
    set(kAa, "bss2.openAccessEnabled", "false");
    EXPECT_THAT(run({"commit"}).err,
                HasSubstr("(code 80); BSS 2 has no security mode; set one with: oructl set "
                          "security 2 open (or wep, wpa, wpa2, wpa-mixed)"));
    EXPECT_EQ(run({"set", "security", "2", "wpa2", "psk"}).exit, 0);
    EXPECT_THAT(run({"commit"}).err, HasSubstr("(code 72); no key of BSS 2 is stored; set one "
                                               "with: oructl set psk 2 -"));
    EXPECT_EQ(run({"set", "security", "2", "wpa2", "radius"}).exit, 0);
    EXPECT_THAT(run({"commit"}).err, HasSubstr("(code 81); no RADIUS server is configured"));
    EXPECT_EQ(run({"set", "security", "2", "open"}).exit, 0);
    EXPECT_EQ(run({"commit"}).exit, 4) << "there is no service";
}

TEST_F(OructlBss, TimeoutsKeepTheLibrarysExemption)
{
    expectDone({"set", "timeouts", "3", "none", "5"});
    expectDone({"get", "timeouts", "3"},
               "timeouts[3].session-timeout = none\ntimeouts[3].group-key-timeout = 5\n");
    expectDone({"set", "timeouts", "3", "30", "30"});
    EXPECT_EQ(valueOf({"timeouts", "3"}),
              (json{{"session-timeout-seconds", 30}, {"group-key-timeout-seconds", 30}}));
    expectRefused({"set", "timeouts", "3", "29", "30"}, 43, "session-timeout of timeouts takes 30");
    expectRefused({"set", "timeouts", "3", "30", "29"}, 44, "group-key-timeout of timeouts takes");
    expectRefused({"set", "timeouts", "4", "30", "30"}, 115, "BSS is 0 to 3");
    expectWrong({"set", "timeouts", "256", "30", "30"}, "'256' does not fit the BSS of timeouts");
}

// ---- lists of all BSSes

TEST_F(OructlBss, RadiusTakesServersAndTheirSecretsApart)
{
    expectRefused({"get", "radius"}, 81, "no RADIUS server is configured; set one with: ");
    EXPECT_EQ(runWithInput("first\nsecond, \"2\"\n",
                           {"set", "radius", "5", "3", "one.example:1812", "fe80::1:1645"})
                  .exit,
              0);
    EXPECT_EQ(value(kAa, "radiusServer.2"), "fe80::1");
    EXPECT_EQ(value(kAa, "radiusPort.2"), "1645");
    expectDone({"get", "radius"}, "radius.timeout = 5\n"
                                  "radius.tries = 3\n"
                                  "radius.dead-time = not-supported\n"
                                  "radius.servers = 2\n"
                                  "radius.servers.1.name = \"one.example\"\n"
                                  "radius.servers.1.port = 1812\n"
                                  "radius.servers.1.secret = ********\n"
                                  "radius.servers.2.name = \"fe80::1\"\n"
                                  "radius.servers.2.port = 1645\n"
                                  "radius.servers.2.secret = ********\n");
    const json shown = jsonOf({"--json", "--show-secrets", "get", "radius"}, 0)["value"];
    EXPECT_EQ(shown["servers"][1]["secret"], "second, \"2\"");
}

TEST_F(OructlBss, RadiusRefusalsSayWhatIsWrong)
{
    const auto set = [](Arguments more) {
        more.insert(more.begin(), {"--insecure-argv", "set", "radius"});
        return more;
    };
    expectRefused(set({"10", "2", "h:1,s"}), 87, "timeout x tries is 20, and has to stay below 20");
    expectRefused(set({"-1", "2", "h:1,s"}), 82, "timeout of radius takes 0");
    expectRefused(set({"1", "2"}), 84, "servers of radius takes 1 to 3 entries");
    expectRefused(set({"1", "2", "a:1,s", "b:1,s", "c:1,s", "d:1,s"}), 84, "servers of radius");
    for (const size_t length : {64u, 65u, 300u})
        EXPECT_THAT(run(set({"1", "2", std::string(length, 'n') + ":1,s"})).err,
                    HasSubstr("(code 85)"));
    for (const size_t length : {66u, 67u, 300u})
        EXPECT_THAT(run(set({"1", "2", "h:1," + std::string(length, 's')})).err,
                    HasSubstr("(code 86)"));
    EXPECT_EQ(run(set({"1", "2", std::string(63, 'n') + ":1," + std::string(65, 's')})).exit, 0);
    expectWrong(set({"65536", "65536", "h:1,s"}), "timeout x tries stays below 20");
    expectWrong(set({"1", "-1", "h:1,s"}), "tries takes 0 to");
    expectWrong(set({"1", "1", "h:0,s"}), "port takes 1 to 65535");
    expectWrong(set({"1", "1", "h:65536,s"}), "port takes 1 to 65535");
    expectWrong(set({"1", "1", "h,s"}), "is no whole entry");
    expectWrong(set({"1", "1", "h:1"}), "is no whole entry");
}

TEST_F(OructlBss, TheAclComesFromArgumentsAndFiles)
{
    expectDone({"set", "mac-acl", "1", "00:11:22:33:44:55", "aa:BB:cc:dd:ee:ff"});
    expectDone({"get", "mac-acl"}, "mac-acl.mode = 1\n"
                                   "mac-acl.stations = 2\n"
                                   "mac-acl.stations.1 = 00:11:22:33:44:55\n"
                                   "mac-acl.stations.2 = aa:BB:cc:dd:ee:ff\n");
    write("/list", "# the house\n02:00:00:00:00:01\n\n02:00:00:00:00:02");
    expectDone({"set", "mac-acl", "2", "--file", root() + "/list", "00:11:22:33:44:55"});
    EXPECT_EQ(valueOf({"mac-acl"})["stations"],
              (json{"02:00:00:00:00:01", "02:00:00:00:00:02", "00:11:22:33:44:55"}));
    expectDone({"set", "mac-acl", "off"});
    EXPECT_EQ(valueOf({"mac-acl"})["mode"], (json{{"word", "off"}, {"number", 0}}));
    expectWrong({"set", "mac-acl", "off", "00:11:22:33:44:55"}, "off takes no addresses");
    expectWrong({"set", "mac-acl", "1", "00:11:22:33:44"}, "is no MAC address");
    expectWrong({"set", "mac-acl", "1", "--file"}, "--file needs a value");
    expectWrong({"set", "mac-acl", "1", "--file", root() + "/none"}, "No such file");
    write("/list", "02:00:00:00:00:01\nno address\n");
    expectWrong({"set", "mac-acl", "1", "--file", root() + "/list"}, "'no address' is no MAC");
    expectRefused({"set", "mac-acl", "3"}, 90, "mode of mac-acl takes off, 1 or 2");
}

TEST_F(OructlBss, TheAclHasRoomFor256)
{
    std::string list;
    for (int i = 0; i < 256; ++i) {
        char address[24];
        std::snprintf(address, sizeof address, "02:00:00:00:00:%02x\n", static_cast<unsigned>(i));
        list += address;
    }
    write("/list", list);
    expectDone({"set", "mac-acl", "1", "--file", root() + "/list"});
    EXPECT_EQ(valueOf({"mac-acl"})["stations"].size(), 256u);
    write("/list", list + "02:00:00:00:01:00\n");
    expectRefused({"set", "mac-acl", "1", "--file", root() + "/list"}, 89,
                  "stations of mac-acl takes 0 to 256 entries");
}

// ---- WPS

TEST_F(OructlBss, WpsItemsThatAreNotStoredSayHowToSetThem)
{
    const char *const keys[][3] = {{"wps", "bss1.wscEnabledFlag", "on"},
                                   {"wps-state", "bss1.wpsstate", "configured"},
                                   {"registrar", "bss1.registrarinfo", "VALUE"}};
    for (const auto &[item, key, values] : keys) {
        set(std::string{item} == "wps" ? kAa : kWsm, key, "none");
        expectRefused({"get", item, "1"}, 109,
                      std::string("nothing is stored, so the feature is off; set it with: oructl "
                                  "set ") +
                          item + " 1 " + values);
    }
}

TEST_F(OructlBss, UuidAndInterfaceAreTexts)
{
    const std::string uuid = "0123456789abcdefABCDEF0123456789";
    expectDone({"set", "uuid", "1", uuid});
    expectDone({"get", "uuid", "1"}, "uuid[1] = \"" + uuid + "\"\n");
    expectRefused({"set", "uuid", "1", uuid + "0"}, 111, "a UUID has 32 hexadecimal digits");
    expectRefused({"set", "uuid", "1", "g" + uuid.substr(1)}, 111, "a UUID has 32 hexadecimal");
    expectDone({"set", "wps-interface", "1", "eth0.1234"});
    expectDone({"get", "wps-interface", "1"}, "wps-interface[1] = \"eth0.1234\"\n");
    expectWrong({"set", "wps-interface", "1", "eth0.12345"}, "VALUE takes 0 to 9 bytes");
}

TEST_F(OructlBss, ClientAdmissionHasAnSsidAndPerhapsABssid)
{
    expectDone({"set", "client-admission", "0", "net", "--bssid", "00:11:22:33:44:55"});
    expectDone({"get", "client-admission", "1"}, "client-admission[1].ssid = \"net\"\n"
                                                 "client-admission[1].bssid = 00:11:22:33:44:55\n");
    expectDone({"set", "client-admission", "0", "--hex", "ff"});
    EXPECT_EQ(valueOf({"client-admission", "0"}),
              (json{{"ssid", {{"text", nullptr}, {"hex", "ff"}}}, {"bssid", "00:00:00:00:00:00"}}));
    expectRefused({"set", "client-admission", "2", "net"}, 3, "RADIO is 0 to 1");
    expectRefused({"set", "client-admission", "0", std::string(33, 's')}, 79,
                  "ssid of client-admission takes 0 to 32 bytes");
    expectWrong({"set", "client-admission", "0", "net", "--bssid", "x"}, "is no MAC address");
}

} // namespace
