// Completion as the shells ask for it, with a simulated access point.
#include "tools/simulated.hpp"

#include <gmock/gmock.h>

#include <cstdio>

using namespace oru::test;
using testing::AllOf;
using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

namespace {

#define SCRIPTS ORU_SOURCE_DIR "/share/completion"
#define SHELLS ORU_SOURCE_DIR "/tests/tools/shells"

class Completion : public SimulatedTest {
protected:
    Completion() { standIn("oructl", "exec " ORUCTL " \"$@\"\n"); }

    /// The services, with one station.
    void startServices()
    {
        SimulatedTest::startServices();
        control("station add 0 02:00:00:00:00:01");
    }

    std::string behind(Arguments words) const
    {
        words.insert(words.begin(), {"--complete", ""});
        const Transcript run = this->run(words);
        EXPECT_EQ(run.exit, 0);
        EXPECT_EQ(run.err, "");
        return run.out;
    }

    std::string become(const std::string &current, Arguments words) const
    {
        words.insert(words.begin(), {"--complete", current});
        return run(words).out;
    }

    /// What a command of this machine prints; words are quoted for it.
    std::string output(const Arguments &words) const
    {
        std::string line = "env -i HOME=" + root() + " TERM=dumb";
        for (const std::string &variable : environment()) line += " '" + variable + "'";
        for (std::string word : words) {
            for (size_t at = 0; (at = word.find('\'', at)) != word.npos; at += 4)
                word.replace(at, 1, "'\\''");
            line += " '" + word + "'";
        }
        std::string text;
        FILE *const pipe = ::popen((line + " 2>&1").c_str(), "r");
        for (int c = 0; (c = std::fgetc(pipe)) != EOF;) text += static_cast<char>(c);
        EXPECT_EQ(::pclose(pipe), 0) << line;
        return text;
    }

    static bool isInstalled(const std::string &shell)
    {
        return std::system(("command -v " + shell + " >/dev/null").c_str()) == 0;
    }

    std::string bash(const std::string &line, Arguments words) const
    {
        words.insert(words.begin(), {"bash", "--norc", "--noprofile", SHELLS "/complete.bash",
                                     SCRIPTS "/oructl.bash", line});
        return output(words);
    }

    std::string zsh(const std::string &line) const
    {
        return output({"timeout", "30", "zsh", "-f", SHELLS "/complete.zsh", SCRIPTS, line});
    }

    std::string fish(const std::string &line) const
    {
        return output({"fish", "--no-config", "-c",
                       "source " SCRIPTS "/oructl.fish; complete -C '" + line + "'"});
    }
};

// ---- The grammar

TEST_F(Completion, OffersVerbsAndGlobalOptionsWithTheirSummaries)
{
    EXPECT_THAT(behind({}), AllOf(StartsWith("get\tshows the stored value of an item\n"),
                                  Not(HasSubstr("--json"))));
    EXPECT_THAT(become("--", {}), StartsWith("--json\toutput as one line of JSON"));
    EXPECT_EQ(become("--ter", {"get"}),
              "--terse\toutput for scripts: values alone, between tabs\n");
}

TEST_F(Completion, OffersTheValuesOfOptions)
{
    EXPECT_EQ(behind({"--color"}), "auto\nalways\nnever\n");
    EXPECT_EQ(become("--color=a", {"get"}), "--color=auto\n--color=always\n");
    EXPECT_EQ(behind({"set", "--secret-file"}), ":files\n");
    EXPECT_EQ(behind({"--root"}), ":folders\n");
    EXPECT_EQ(behind({"--timeout"}), "");
    EXPECT_EQ(behind({"--timeout", "3", "--json", "radio", "up"}), "0\tRADIO\n1\tRADIO\n");
}

TEST_F(Completion, OffersWhatASetTakesNext)
{
    EXPECT_EQ(behind({"set", "tx-power", "0"}), "0\n1\n2\n");
    EXPECT_EQ(behind({"set", "channel", "0", "auto", "--mode"}),
              "once\tof auto: how often the channel is selected; once unless given\n"
              "periodic\tof auto: how often the channel is selected; once unless given\n"
              "keep-periodic\tof auto: how often the channel is selected; once unless given\n");
    EXPECT_THAT(behind({"set", "channel", "0", "auto", "--mode", "once"}),
                AllOf(HasSubstr("--dfs-interval\t"), Not(HasSubstr("--mode"))));
    EXPECT_THAT(behind({"set", "psk", "0"}), HasSubstr("\n:@files\n"));
    EXPECT_EQ(behind({"set", "ssid", "0", "--hex"}), "");
    EXPECT_EQ(behind({"set", "ssid", "0", "--hex", "00ff"}), "");
}

TEST_F(Completion, ReadsSynopsesOfVerbs)
{
    EXPECT_EQ(behind({"reset"}), "all\nbss\n");
    EXPECT_EQ(behind({"reset", "bss"}), "0\n1\n2\n3\n");
    EXPECT_EQ(behind({"reset", "all"}), "");
    EXPECT_THAT(behind({"explain"}), HasSubstr("\n7\tError in reading configuration file\n"));
    EXPECT_THAT(behind({"help"}), AllOf(HasSubstr("commit\t"), HasSubstr("mimo\t")));
}

// ---- Live values

TEST_F(Completion, OffersAddressesCountersAndChannelsOfThisMoment)
{
    startServices();
    EXPECT_EQ(behind({"disassoc"}), "02:00:00:00:00:01\tstation\n");
    EXPECT_THAT(behind({"show", "stats", "0"}), StartsWith("02:00:00:00:00:01\tstation\n"));
    EXPECT_THAT(behind({"stats", "get"}), HasSubstr("beacons\tcounter\n"));
    EXPECT_EQ(behind({"stats", "get", "beacons", "1"}), "02:00:00:00:00:01\tstation\n");

    const std::string radar = "52\tallowed now\n";
    EXPECT_THAT(behind({"set", "channel", "1"}),
                AllOf(StartsWith("auto\n"), HasSubstr("\n36\t"), Not(HasSubstr(radar))));
    EXPECT_EQ(run({"set", "radar-detect", "1", "off"}).exit, 0);
    EXPECT_THAT(behind({"set", "channel", "1"}), HasSubstr(radar));
}

TEST_F(Completion, ServicesThatAreAwayGiveNoCandidates)
{
    EXPECT_EQ(behind({"stats", "get"}), "");
    EXPECT_EQ(behind({"stats", "get", "beacons", "1"}), "");
    EXPECT_EQ(behind({"set", "channel", "1"}), "auto\n");
}

TEST_F(Completion, ServicesThatAreSilentAreGivenUpAfterASecond)
{
    startServices();
    services_->signal(SIGSTOP);
    const auto start = std::chrono::steady_clock::now();
    EXPECT_EQ(behind({"disassoc"}), "");
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds{5});
}

// ---- The shells

TEST_F(Completion, InBash)
{
    startServices();
    EXPECT_EQ(bash("oructl set mim", {"oructl", "set", "mim"}), "mimo\n");
    EXPECT_EQ(bash("oructl --color=al", {"oructl", "--color", "=", "al"}), "always\n");
    EXPECT_EQ(bash("oructl --color ne", {"oructl", "--color", "ne"}), "never\n");
    EXPECT_EQ(bash("oructl --root ", {"oructl", "--root", ""}), "compopt -o dirnames\n");
    EXPECT_EQ(bash("oructl \"set\" ssid 0 'a b", {"oructl", "\"set\"", "ssid", "0", "'a b"}), "");
    EXPECT_EQ(bash("oructl show stations ", {"oructl", "show", "stations", ""}), "0\n1\n");
}

TEST_F(Completion, InBashWhichCutsAtColons)
{
    startServices();
    EXPECT_EQ(bash("oructl disassoc 02:00:0", {"oructl", "disassoc", "02", ":", "00", ":", "0"}),
              "00:00:00:01\n");
    EXPECT_EQ(bash("oructl disassoc \"02:00", {"oructl", "disassoc", "\"02:00"}),
              "02:00:00:00:00:01\n");
    EXPECT_EQ(bash("oructl show stats 0 02:01 --w",
                   {"oructl", "show", "stats", "0", "02", ":", "01", "--w"}),
              "--watch\n");
}

TEST_F(Completion, InZsh)
{
    if (!isInstalled("zsh")) GTEST_SKIP() << "zsh is not installed";
    startServices();
    EXPECT_EQ(zsh("oructl set mimo 0 of"), "oructl set mimo 0 off \n");
    EXPECT_EQ(zsh("oructl --color=al"), "oructl --color=always \n");
    EXPECT_EQ(zsh("oructl disassoc 02:00"), "oructl disassoc 02:00:00:00:00:01 \n");
    EXPECT_EQ(zsh("oructl --root " + root() + "/va"), "oructl --root " + root() + "/var/\n");
}

TEST_F(Completion, InFish)
{
    if (!isInstalled("fish")) GTEST_SKIP() << "fish is not installed";
    startServices();
    EXPECT_EQ(fish("oructl set mim"), "mimo\tMIMO operation\n");
    EXPECT_EQ(fish("oructl --color=al"), "--color=always\n");
    EXPECT_EQ(fish("oructl disassoc 02:00"), "02:00:00:00:00:01\tstation\n");
    EXPECT_EQ(fish("oructl --root " + root() + "/va"), root() + "/var/\n");
    EXPECT_EQ(fish("oructl set psk 0 @" + root() + "/va"), "@" + root() + "/var/\n");
}

} // namespace
