// What differs from the last commit, the factory's files or an export.
#include "capture.hpp"
#include "tools/oructl_run.hpp"

#include <gmock/gmock.h>

#include <filesystem>

using namespace oru::test;
using nlohmann::json;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

namespace {

constexpr int kDifferences = 20;

class Diff : public OructlTest {
protected:
    /// Makes what is stored now that of the last commit.
    void commitNow() const
    {
        const std::string folder = "/var/oructl/committed";
        std::filesystem::create_directories(root() + folder);
        write(folder + "/wsmDefaults", read(kWsm));
        write(folder + "/1x.conf", read(kAa));
    }

    [[nodiscard]] std::string differences(const Arguments &arguments) const
    {
        const Transcript diff = run(arguments);
        EXPECT_EQ(diff.exit, kDifferences) << diff.err;
        EXPECT_EQ(diff.err, "");
        return diff.out;
    }

    void expectNone(const Arguments &arguments) const
    {
        const Transcript diff = run(arguments);
        EXPECT_EQ(diff.exit, 0) << diff.err;
        EXPECT_EQ(diff.out, "");
    }
};

TEST_F(Diff, WithoutACommitItSaysSo)
{
    const Transcript diff = run({"diff"});
    EXPECT_EQ(diff.exit, 1);
    EXPECT_EQ(diff.out, "");
    EXPECT_THAT(diff.err, HasSubstr("compare with --factory or --against FILE"));
}

TEST_F(Diff, ShowsWhatHasChangedSinceTheLastCommit)
{
    commitNow();
    expectNone({"diff"});
    ASSERT_EQ(run({"set", "tx-power", "1", "0"}).exit, 0);
    ASSERT_EQ(run({"set", "hide-ssid", "2", "on"}).exit, 0);
    EXPECT_EQ(differences({"diff"}), "tx-power[1]: 2 -> 0\nhide-ssid[2]: off -> on\n");
    commitNow();
    expectNone({"diff"});
}

TEST_F(Diff, ComparesWithTheFactory)
{
    expectNone({"diff", "--factory"});
    ASSERT_EQ(run({"set", "mimo", "0", "off"}).exit, 0);
    EXPECT_EQ(differences({"diff", "--factory"}), "mimo[0]: on -> off\nmimo[1]: on -> off\n");
}

TEST_F(Diff, ComparesWithWhatAnExportHas)
{
    const std::string file = root() + "/export";
    ASSERT_EQ(run({"export", file}).exit, 0);
    expectNone({"diff", "--against", file});
    ASSERT_EQ(run({"set", "tx-power", "1", "0"}).exit, 0);
    ASSERT_EQ(run({"set", "tx-power-adj", "1", "0"}).exit, 0);
    EXPECT_EQ(differences({"diff", "--against", file}),
              "tx-power-adj[1]: 4 -> 0\ntx-power[1]: 2 -> 0\n");
    write("/part", R"({"item":"tx-power","index":1,"value":1})");
    EXPECT_EQ(differences({"diff", "--against", root() + "/part"}), "tx-power[1]: 1 -> 0\n");
    write("/part", "{}");
    EXPECT_EQ(run({"diff", "--against", root() + "/part"}).exit, 7);
    EXPECT_EQ(run({"diff", "--against", "/nowhere/export"}).exit, 7);
    EXPECT_EQ(run({"diff", "--factory", "--against", file}).exit, 2);
}

TEST_F(Diff, NamesKeysThatNoItemStandsFor)
{
    set(kWsm, "nobody", "canary1");
    set(kAa, "bss0.wepKey.1", "canary2"); // which no get shows while WEP is off
    const std::string text = differences({"diff", "--factory"});
    EXPECT_EQ(text, "key nobody of /var/wsmDefaults: differs\n"
                    "key bss0.wepKey.1 of /var/1x.conf: differs\n");
    const json object = json::parse(differences({"--json", "diff", "--factory"}));
    EXPECT_THAT(object["differences"], IsEmpty());
    EXPECT_EQ(object["keys"][0]["key"], "nobody");
    EXPECT_THAT(object.dump(), Not(HasSubstr("canary")));
}

TEST_F(Diff, NeverShowsSecrets)
{
    const auto psk = [this](const char *secret) {
        ASSERT_EQ(run({"--insecure-argv", "set", "psk", "0", secret}).exit, 0);
    };
    ASSERT_EQ(run({"set", "security", "0", "wpa2", "psk"}).exit, 0);
    psk("old canary");
    commitNow();
    psk("new canary");
    EXPECT_EQ(differences({"diff"}), "psk[0]: differs\n");
    EXPECT_EQ(differences({"--terse", "diff"}), "psk\t0\t\t\t\n");
    for (const char *option : {"--json", "--terse", "--color=always"})
        EXPECT_THAT(differences({"--show-secrets", option, "diff"}), Not(HasSubstr("canary")));

    ASSERT_EQ(run({"--insecure-argv", "set", "radius", "3", "2", "a:1812,canary"}).exit, 0);
    commitNow();
    ASSERT_EQ(run({"--insecure-argv", "set", "radius", "3", "2", "a:1812,canary2"}).exit, 0);
    EXPECT_EQ(differences({"diff"}), "radius.servers: differs\n");
}

TEST_F(Diff, SpeaksInEveryForm)
{
    commitNow();
    set(kWsm, "radio0.txPower", "1");
    set(kAa, "nobody", "0");
    EXPECT_EQ(differences({"--terse", "diff"}), "tx-power\t0\t\t2\t1\n\t\tnobody\t\t\n");
    EXPECT_EQ(differences({"--quiet", "diff"}), "");
    EXPECT_THAT(differences({"--color", "always", "diff"}),
                HasSubstr("tx-power[0]: \033[31m2\033[0m -> \033[32m1\033[0m\n"));
    const json object = json::parse(differences({"--json", "diff"}));
    EXPECT_EQ(object["schema"], "oructl/1");
    EXPECT_EQ(object["differences"],
              json::parse(R"([{"item":"tx-power","index":0,"from":2,"to":1}])"));
    EXPECT_EQ(object["keys"], json::parse(R"([{"key":"nobody","file":"/var/1x.conf"}])"));
}

TEST_F(Diff, AsksNoService)
{
    set(kWsm, "countryCodeFlag", "0"); // the country of radio 0, which nobody tells
    commitNow();
    ASSERT_NE(run({"get", "world-mode"}).exit, 0);
    set(kWsm, "worldModeSupport", "1");
    set(kWsm, "countryCode", "\"DEI\"");
    EXPECT_EQ(differences({"diff"}), "world-mode.support: off -> on\n"
                                     "world-mode.country: \"US\" -> \"DE\"\n");
}

TEST(Capture, DifferencesHaveBothSides)
{
    oructl::Texts old = {"mimoFlag=1\n", "", std::nullopt};
    oructl::Texts now = {"mimoFlag=0\neth7.pvid=5\n", "", std::nullopt};
    for (int slot = 0; slot < 15; ++slot)
        now[0]->append("eth7.vid").append(std::to_string(slot)).append("=0\n");
    const auto from = oructl::capture(old);
    const auto to = oructl::capture(now);
    ASSERT_TRUE(from && to);
    const oructl::Differences found = oructl::differences(*from, *to);
    ASSERT_EQ(found.items.size(), 3u);
    EXPECT_EQ(oructl::nameOf(*found.items[0].item, found.items[0].index), "mimo[0]");
    EXPECT_EQ(found.items[0].from->values[0].number, 1);
    EXPECT_EQ(found.items[0].to->values[0].number, 0);
    EXPECT_EQ(oructl::nameOf(*found.items[2].item, found.items[2].index), "ether-vlan[7]");
    EXPECT_EQ(found.items[2].from, nullptr);
    EXPECT_THAT(found.keys, IsEmpty());
}

} // namespace
