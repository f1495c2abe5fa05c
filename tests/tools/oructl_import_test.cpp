// Export, and import of what was exported.
#include "catalogue.hpp"
#include "tools/oructl_run.hpp"
#include "values.hpp"

#include <gmock/gmock.h>

#include <filesystem>
#include <map>
#include <sstream>
#include <sys/stat.h>

using namespace oru::test;
using namespace oructl;
using nlohmann::json;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

namespace {

class Import : public OructlTest {
protected:
    Import() { installFactoryFiles(); }

    void mustRun(const Arguments &arguments) const
    {
        const Transcript done = run(arguments);
        EXPECT_EQ(done.exit, 0) << testing::PrintToString(arguments) << done.err;
    }

    [[nodiscard]] std::string output(const Arguments &arguments) const
    {
        const Transcript done = run(arguments);
        EXPECT_EQ(done.exit, 0) << testing::PrintToString(arguments) << done.err;
        return done.out;
    }

    /// An import that stores nothing; yields what it says.
    [[nodiscard]] std::string refused(const std::string &text, int exit) const
    {
        const std::string before = read(kWsm) + read(kAa);
        const Transcript done = runWithInput(text, {"import", "-"});
        EXPECT_EQ(done.exit, exit) << done.err;
        EXPECT_EQ(done.out, "");
        EXPECT_EQ(read(kWsm) + read(kAa), before) << "something is stored";
        EXPECT_THAT(done.err, HasSubstr("oructl: import -: nothing is stored\n"));
        return done.err;
    }
};

/// How the walk over the catalogue changes an item whose values aren't one number.
struct Way {
    std::vector<Arguments> before; ///< commands that make an interesting value
    std::vector<Arguments> change; ///< commands that make another one
};

const std::map<std::string, Way> kWays = {
    {"world-mode", {{}, {{"set", "world-mode", "on"}}}},
    {"channel",
     {{{"set", "channel", "1", "auto"}},
      {{"set", "channel", "1", "auto", "--dfs-interval", "20"}}}},
    {"dfs-unii-bands", {{}, {{"set", "dfs-unii-bands", "1", "off", "on", "off"}}}},
    {"dfs-preferred-channels",
     {{}, {{"set", "dfs-preferred-channels", "1", "2.4ghz", "5", "9", "--preferred-band", "1"}}}},
    {"rate", {{{"set", "mcs-rate", "1", "7"}}, {{"set", "rate", "1", "54"}}}},
    {"mcs-rate", {{{"set", "rate", "1", "12"}}, {{"set", "mcs-rate", "1", "7"}}}},
    {"broadcast-rate", {{}, {{"set", "broadcast-rate", "1", "12"}}}},
    {"broadcast-mcs-rate", {{}, {{"set", "broadcast-mcs-rate", "1", "5"}}}},
    {"basic-rates",
     {{}, {{"set", "basic-rates", "1", "a", "6"}, {"set", "basic-rates", "1", "b", "1,2"}}}},
    {"dot11-mac", {{}, {{"set", "dot11-mac", "1", "--rts-threshold", "100"}}}},
    {"beacon", {{}, {{"set", "beacon", "1", "--dtim-period", "3"}}}},
    {"protection", {{}, {{"set", "protection", "1", "by-mode", "--mode", "2"}}}},
    {"sbs", {{}, {{"set", "sbs", "1", "5", "6"}}}},
    {"wmm", {{}, {{"set", "wmm", "1", "off", "--classifier", "wmm"}}}},
    {"assign", {{}, {{"set", "assign", "1", "0", "on"}, {"set", "assign", "1", "1", "on"}}}},
    {"ssid", {{{"set", "ssid", "1", "--hex", "ff4122"}}, {{"set", "ssid", "1", "other"}}}},
    {"security", {{{"set", "security", "1", "wpa2", "psk"}}, {{"set", "security", "1", "open"}}}},
    {"wpa", {{{"set", "security", "1", "wpa-mixed", "radius"}}, {{"set", "wpa", "1", "off"}}}},
    {"wep",
     {{{"--insecure-argv", "set", "security", "1", "wep", "--key1", "1234567890", "--key3",
        "0987654321"}},
      {{"set", "wep", "1", "off"}}}},
    {"psk",
     {{{"--insecure-argv", "set", "security", "1", "wpa2", "psk", "--psk", "the old secret"}},
      {{"--insecure-argv", "set", "psk", "1", "the new secret"}}}},
    {"timeouts", {{}, {{"set", "timeouts", "1", "60", "40"}}}},
    {"radius",
     {{{"--insecure-argv", "set", "radius", "3", "2", "a.example:1812,hush", "b:1813,mush"}},
      {{"--insecure-argv", "set", "radius", "4", "1", "c:1,x"}}}},
    {"mac-acl",
     {{{"set", "mac-acl", "1", "00:11:22:33:44:55", "00:11:22:33:44:66"}},
      {{"set", "mac-acl", "off"}}}},
    {"uuid", {{}, {{"set", "uuid", "1", "00112233445566778899aabbccddeeff"}}}},
    {"wps-interface", {{}, {{"set", "wps-interface", "1", "eth9"}}}},
    {"client-admission",
     {{{"set", "client-admission", "1", "home", "--bssid", "02:00:00:00:00:01"}},
      {{"set", "client-admission", "1", "other"}}}},
};

Arguments getOf(const Item &item)
{
    Arguments words = {"--show-secrets", "--json", "get", std::string{item.name}};
    if (item.scope != Scope::None) words.push_back("1");
    return words;
}

/// The other end of the range of an item of one number.
Arguments otherNumber(const Item &item, const json &shown)
{
    const Field &field = item.fields[0];
    const json &value = shown["value"];
    const int64_t stored =
        value.is_object() ? value["number"].get<int64_t>() : value.get<int64_t>();
    int64_t other = stored == field.bounds.max ? field.bounds.min : field.bounds.max;
    return {"set", std::string{item.name}, "1", std::to_string(other)};
}

TEST_F(Import, WhatGetShowsOfAnItemCanBeFedBack)
{
    size_t items = 0;
    forEachItem([&](const Item &item) {
        if (item.get == nullptr || item.set == nullptr || item.atOnce) return;
        SCOPED_TRACE(item.name);
        installFactoryFiles();
        const auto way = kWays.find(std::string{item.name});
        if (way != kWays.end())
            for (const Arguments &command : way->second.before) mustRun(command);
        const std::string shown = output(getOf(item));
        if (way == kWays.end()) {
            ASSERT_EQ(item.fields.size(), 1u) << "no way to change it is known";
            mustRun(otherNumber(item, json::parse(shown)));
        } else {
            for (const Arguments &command : way->second.change) mustRun(command);
        }
        ASSERT_NE(run(getOf(item)).out, shown) << "nothing has changed";

        const Transcript imported = runWithInput(shown, {"import", "-"});
        EXPECT_EQ(imported.exit, 0) << imported.err << shown;
        EXPECT_EQ(output(getOf(item)), shown);
        ++items;
    });
    EXPECT_GT(items, 60u);
}

TEST_F(Import, ExportHasEveryItemAtEveryIndex)
{
    std::istringstream lines{output({"export"})};
    std::map<std::string, int> counts;
    for (std::string line; std::getline(lines, line);) {
        const json object = json::parse(line);
        EXPECT_EQ(object["schema"], "oructl/1");
        EXPECT_EQ(object.contains("value") + object.contains("error"), 1) << line;
        ++counts[object["item"].get<std::string>()];
    }
    forEachItem([&](const Item &item) {
        if (item.get == nullptr || item.set == nullptr) return;
        const int expected = item.scope == Scope::None ? 1 : item.scope == Scope::Bss ? 4 : 2;
        EXPECT_EQ(counts[std::string{item.name}], expected) << item.name;
    });
}

TEST_F(Import, AnExportBringsBackAllThatItHas)
{
    mustRun({"--insecure-argv", "set", "security", "0", "wpa2", "psk", "--psk", "of the house"});
    mustRun({"--insecure-argv", "set", "security", "1", "wep", "--key1", "1234567890"});
    mustRun({"set", "channel-bonding", "1", "40mhz"});
    mustRun({"set", "broadcast-mcs-rate", "1", "3"});
    mustRun({"set", "ssid", "2", "cafe"});
    const std::string file = root() + "/export";
    mustRun({"--show-secrets", "export", file});
    const std::string all = output({"--show-secrets", "export"});
    mustRun({"reset", "all"});
    EXPECT_NE(output({"--show-secrets", "export"}), all);
    mustRun({"import", file});
    EXPECT_EQ(output({"--show-secrets", "export"}), all);
}

TEST_F(Import, TheOrderOfTheLinesIsOfNoMatter)
{
    mustRun({"--insecure-argv", "set", "security", "1", "wpa2", "psk", "--psk", "of the house"});
    mustRun({"set", "channel-bonding", "1", "40mhz"});
    const std::string all = output({"--show-secrets", "export"});
    std::istringstream lines{all};
    std::string backwards;
    for (std::string line; std::getline(lines, line);) backwards.insert(0, line + '\n');
    mustRun({"reset", "all"});
    const Transcript imported = runWithInput(backwards, {"import", "-"});
    EXPECT_EQ(imported.exit, 0) << imported.err;
    EXPECT_EQ(output({"--show-secrets", "export"}), all);
}

TEST_F(Import, AnExportWithSecretsIsForItsOwnerAlone)
{
    const std::string file = root() + "/export";
    const auto modeOf = [&] {
        struct stat status = {};
        EXPECT_EQ(::stat(file.c_str(), &status), 0);
        return status.st_mode & 0777;
    };
    mustRun({"--show-secrets", "export", file});
    EXPECT_EQ(modeOf(), 0600u);
    std::filesystem::permissions(file, std::filesystem::perms{0644});
    mustRun({"--show-secrets", "export", file});
    EXPECT_EQ(modeOf(), 0600u) << "of an older file";
    EXPECT_EQ(run({"export", "/nowhere/export"}).exit, 7);
}

TEST_F(Import, ExportToADashIsStandardOutput)
{
    EXPECT_EQ(run({"export", "-"}).out, run({"export"}).out);
    EXPECT_FALSE(std::filesystem::exists("-"));
}

TEST_F(Import, ExportMasksSecretsAndFailsWithoutAFile)
{
    mustRun({"--insecure-argv", "set", "security", "0", "wpa2", "psk", "--psk", "of the house"});
    const std::string all = output({"export"});
    EXPECT_THAT(all, HasSubstr("********"));
    EXPECT_THAT(all, Not(HasSubstr("of the house")));
    remove(kAa);
    const Transcript failed = run({"export"});
    EXPECT_EQ(failed.exit, 7);
    EXPECT_THAT(failed.err, HasSubstr("can't read /var/1x.conf"));
    EXPECT_EQ(failed.out, "");
}

TEST_F(Import, MaskedSecretsKeepWhatIsStoredAndItSaysSo)
{
    mustRun({"--insecure-argv", "set", "security", "0", "wpa2", "psk", "--psk", "of the house"});
    mustRun({"--insecure-argv", "set", "radius", "3", "2", "a:1812,hush", "b:1813,mush"});
    const std::string masked =
        output({"--json", "get", "psk", "0"}) +
        R"({"item":"radius","value":{"timeout-seconds":2,"tries":3,"servers":[)"
        R"({"name":"b","port":1813,"secret":"********"},)"
        R"({"name":"c","port":1,"secret":"new"}]}})";
    const Transcript imported = runWithInput(masked, {"import", "-"});
    EXPECT_EQ(imported.exit, 0) << imported.err;
    EXPECT_EQ(imported.out, "psk[0]: the secret is masked; the stored one stays\n"
                            "radius: the secret is masked; the stored one stays\n");
    EXPECT_EQ(output({"--show-secrets", "--terse", "get", "psk", "0"}), "of the house\n");
    EXPECT_EQ(output({"--show-secrets", "--terse", "--fields", "servers", "get", "radius"}),
              "b 1813 mush,c 1 new\n");
    EXPECT_EQ(runWithInput(masked, {"--quiet", "import", "-"}).out, "");
    const json quiet = json::parse(runWithInput(masked, {"--json", "import", "-"}).out);
    EXPECT_EQ(quiet["import"], 0);
    EXPECT_EQ(quiet["notes"].size(), 2u);
}

TEST_F(Import, AMaskedSecretThatIsNotStoredIsRefused)
{
    EXPECT_THAT(refused(R"({"item":"psk","index":1,"value":"********"})", 1),
                HasSubstr("line 1: psk[1]: the secret is masked, and none is stored\n"));
    EXPECT_THAT(refused(R"({"item":"wep","index":1,"value":{"state":"on","key1":"********"}})", 1),
                HasSubstr("the secret is masked, and none is stored"));
}

TEST_F(Import, AllProblemsAreReportedAndNothingIsStored)
{
    const std::string said = refused("{\"item\":\"mimo\",\"index\":0,\"value\":\"off\"}\n"
                                     "\n"
                                     "{\"item\":\"tx-power\",\"index\":0,\"value\":77}\n"
                                     "garbage\n"
                                     "{\"item\":\"mimmo\",\"index\":0,\"value\":1}\n"
                                     "{\"item\":\"sbs\",\"index\":1,\"value\":{\"threshold\":3}}\n"
                                     "{\"item\":\"wmm\",\"index\":1,\"value\":{\"on\":3}}\n"
                                     "{\"item\":\"mimo\",\"index\":0,\"value\":1}\n"
                                     "{\"schema\":\"oructl/2\",\"item\":\"mimo\"}\n"
                                     "{\"schema\":\"oructl/1\",\"error\":{\"code\":5}}\n"
                                     "{\"item\":\"ssid\",\"index\":1,\"value\":{\"hex\":\"00\"}}\n",
                                     2);
    for (const char *line :
         {"line 3: tx-power[0]: refused: ", "line 4: it is no JSON\n",
          "line 5: no item is called 'mimmo'\n", "line 6: sbs[1]: counter is missing\n",
          "line 7: wmm[1]: no field of it is called 'on'\n",
          "line 8: mimo[0] stands in line 1 already\n", "line 9: its schema is not oructl/1\n",
          "line 10: it names no item\n", "line 11: ssid[1]: the byte 00 ends a text"})
        EXPECT_THAT(said, HasSubstr(line));
    EXPECT_THAT(said, Not(HasSubstr("line 1:")));
}

TEST_F(Import, TwoItemsThatContradictEachOtherAreRefused)
{
    // one key for both radios
    EXPECT_THAT(refused("{\"item\":\"mimo\",\"index\":0,\"value\":0}\n"
                        "{\"item\":\"mimo\",\"index\":1,\"value\":1}\n",
                        1),
                HasSubstr("line 1: mimo[0]: set, but another value is stored in the end"));
}

TEST_F(Import, TakesWordsNumbersAndBoth)
{
    const auto imports = [this](const std::string &value) {
        mustRun({"set", "mimo", "0", "on"});
        const Transcript done =
            runWithInput(R"({"item":"mimo","index":0,"value":)" + value + "}", {"import", "-"});
        return done.exit == 0 ? this->value(kWsm, "mimoFlag").value_or("") : done.err;
    };
    for (const char *off : {"\"off\"", "0", "false", "{\"word\":\"off\"}", "{\"number\":0}",
                            "{\"word\":\"off\",\"number\":0}", "\"0\""})
        EXPECT_EQ(imports(off), "0") << off;
    for (const char *wrong : {"1.5", "\"offf\"", "[]", "{}", "99999999999"})
        EXPECT_THAT(imports(wrong), HasSubstr("nothing is stored")) << wrong;
    EXPECT_EQ(runWithInput(R"([{"item":"ssid","index":1,"value":"plain"}])", {"import", "-"}).exit,
              0);
    EXPECT_EQ(output({"--terse", "get", "ssid", "1"}), "plain\n");
    EXPECT_EQ(runWithInput(R"({"item":"rate","index":1,"value":"54"})", {"import", "-"}).exit, 0);
    EXPECT_EQ(output({"--terse", "get", "rate", "1"}), "54\n");
}

TEST_F(Import, WhatActsAtOnceIsLeftAloneOrRefused)
{
    const Transcript same =
        runWithInput(output({"--json", "get", "admin-status", "0"}), {"import", "-"});
    EXPECT_EQ(same.exit, 0);
    EXPECT_EQ(same.out, "admin-status[0]: acts at once; it is as stored\n");
    EXPECT_THAT(refused(R"({"item":"admin-status","index":0,"value":"down"})", 1),
                HasSubstr("line 1: admin-status[0]: it acts at once, and can't be imported\n"));
}

TEST_F(Import, ADryRunChecksAndSaysWhatItWouldStore)
{
    const std::string before = read(kWsm);
    const Transcript dry =
        runWithInput(R"({"item":"mimo","index":0,"value":"off"})", {"--dry-run", "import", "-"});
    EXPECT_EQ(dry.exit, 0);
    EXPECT_EQ(dry.out, "would change mimoFlag of /var/wsmDefaults\n");
    EXPECT_EQ(read(kWsm), before);
    EXPECT_EQ(
        runWithInput(R"({"item":"mimo","index":7,"value":"off"})", {"--dry-run", "import", "-"})
            .exit,
        10);
}

TEST_F(Import, RefusalsShowNoWordOfAnItemWithASecret)
{
    const std::string said = refused(
        R"({"item":"radius","value":{"timeout-seconds":"misplaced hush","tries":1,"servers":[]}})",
        2);
    EXPECT_THAT(said, HasSubstr("line 1: radius: timeout-seconds: a word is no whole number "));
    EXPECT_THAT(said, Not(HasSubstr("hush")));
}

TEST_F(Import, TheModeWepIsRefusedWithoutItsKeys)
{
    mustRun({"--insecure-argv", "set", "security", "1", "wep", "--key1", "1234567890"});
    const std::string mode = output({"--json", "get", "security", "1"});
    const std::string keys = output({"--show-secrets", "--json", "get", "wep", "1"});
    const std::string open = "{\"item\":\"open-access\",\"index\":1,\"value\":0}\n";
    mustRun({"set", "security", "1", "open"});
    EXPECT_THAT(refused(mode, 1), HasSubstr("import the item wep\n"));
    EXPECT_EQ(runWithInput(mode + keys + open, {"import", "-"}).exit, 0);
    EXPECT_EQ(output({"--show-secrets", "--json", "get", "wep", "1"}), keys);
}

} // namespace
