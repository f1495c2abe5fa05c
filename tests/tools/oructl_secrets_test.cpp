// Secrets: where they come from, and that no output shows them.
#include "secrets.hpp"
#include "tools/oructl_run.hpp"

#include <gmock/gmock.h>

#include <array>
#include <pty.h>
#include <sys/wait.h>
#include <unistd.h>

using namespace oru::test;
using nlohmann::json;
using testing::HasSubstr;
using testing::Not;

namespace {

class OructlSecrets : public OructlTest {
protected:
    OructlSecrets()
    {
        for (const char bss : {'0', '1', '2', '3'}) {
            const std::string prefix = std::string("bss") + bss + '.';
            set(kAa, prefix + "openAccessEnabled", "false");
            set(kWsm, prefix + "wpsstate", "1");
        }
        set(kWsm, "dot11Mode", "4");
        EXPECT_EQ(run({"set", "wpa", "1", "wpa2", "psk"}).exit, 0);
    }

    [[nodiscard]] std::string psk() const { return value(kAa, "bss1.wpaPsk").value_or("none"); }
};

TEST_F(OructlSecrets, ComeFromStandardInputAndFiles)
{
    EXPECT_EQ(runWithInput("from the pipe\nrest\n", {"set", "psk", "1", "-"}).exit, 0);
    EXPECT_EQ(psk(), "\"from the pipe\"");
    EXPECT_EQ(runWithInput("without an end", {"set", "psk", "1", "-"}).exit, 0);
    EXPECT_EQ(psk(), "\"without an end\"");
    write("/key", "from a file\nrest\n");
    EXPECT_EQ(run({"set", "psk", "1", "@" + root() + "/key"}).exit, 0);
    EXPECT_EQ(psk(), "\"from a file\"");
    write("/key", "from another\n");
    EXPECT_EQ(run({"--secret-file", root() + "/key", "set", "psk", "1"}).exit, 0);
    EXPECT_EQ(psk(), "\"from another\"");
    write("/key", "and one more\n");
    EXPECT_EQ(run({"set", "--secret-file", root() + "/key", "psk", "1", "-"}).exit, 0);
    EXPECT_EQ(psk(), "\"and one more\"");
    EXPECT_EQ(run({"--insecure-argv", "set", "psk", "1", "@as it is"}).exit, 0);
    EXPECT_EQ(psk(), "\"@as it is\"");
}

TEST_F(OructlSecrets, ThatCannotBeReadAreUsageErrors)
{
    const std::string before = psk();
    const auto expectWrong = [&](const Transcript &run, const std::string &message) {
        EXPECT_EQ(run.exit, 2);
        EXPECT_EQ(run.out, "");
        EXPECT_THAT(run.err, HasSubstr(message));
        EXPECT_EQ(psk(), before);
    };
    expectWrong(runWithInput("", {"set", "psk", "1", "-"}), "there is no line left");
    expectWrong(runWithInput("", {"set", "psk", "1"}), "standard input (-) or a file (@FILE)");
    expectWrong(runWithInput(std::string("eight\0by", 8) + "tes\n", {"set", "psk", "1", "-"}),
                "it holds the byte 00");
    expectWrong(runWithInput(std::string(5000, 'x'), {"set", "psk", "1", "-"}), "is too long");
    expectWrong(run({"set", "psk", "1", "@" + root() + "/none"}), "No such file");
    expectWrong(run({"set", "psk", "1", "@" + root()}), "is unreadable");
    expectWrong(run({"--secret-file", root() + "/none", "set", "psk", "1"}), "No such file");
    expectWrong(run({"--secret-file"}), "--secret-file needs a value");
    expectWrong(run({"set", "--secret-file"}), "--secret-file needs a value");
}

TEST_F(OructlSecrets, ListsOfLinesAreReadFromFilesAlone)
{
    std::vector<std::string> lines;
    EXPECT_THAT(oructl::readLines((root() + "/none").c_str(), lines), HasSubstr("No such file"));
    write("/lines", "one\n\n# two\nthree\r\n");
    EXPECT_EQ(oructl::readLines((root() + "/lines").c_str(), lines), "");
    EXPECT_THAT(lines, testing::ElementsAre("one", "three\r"));
    write("/lines", std::string((1 << 20) + 1, 'x'));
    EXPECT_EQ(oructl::readLines((root() + "/lines").c_str(), lines),
              "the file has more than 1 MiB");
}

// ---- no output shows one

struct Plant {
    const char *name;
    Arguments arguments; ///< "CANARY" stands for the secret
    const char *input;   ///< on standard input
};

constexpr const char *kCanary = "c0ffee0ddba11";

/// Commands that take or meet a secret, accepted and refused, well and badly formed.
const Plant kPlants[] = {
    {"psk_accepted", {"set", "psk", "1", "-"}, "CANARY\n"},
    {"psk_refused_mode", {"set", "psk", "0", "-"}, "CANARY\n"},
    {"psk_refused_character", {"set", "psk", "1", "-"}, "CANARY\t\n"},
    {"psk_refused_bss", {"set", "psk", "4", "-"}, "CANARY\n"},
    {"psk_in_argv", {"set", "psk", "1", "CANARY"}, ""},
    {"psk_in_argv_as_file", {"set", "psk", "1", "@CANARY"}, ""},
    {"psk_in_argv_twice", {"set", "psk", "1", "-", "CANARY"}, "12345678\n"},
    {"psk_in_place_of_the_index", {"set", "psk", "CANARY"}, ""},
    {"psk_in_place_of_the_index_of_a_get", {"get", "psk", "CANARY"}, ""},
    {"psk_behind_a_get", {"get", "psk", "1", "CANARY"}, ""},
    {"psk_insecure", {"--insecure-argv", "set", "psk", "1", "CANARY"}, ""},
    {"psk_insecure_refused", {"--insecure-argv", "set", "psk", "0", "CANARY"}, ""},
    {"psk_insecure_twice", {"--insecure-argv", "set", "psk", "1", "CANARY", "CANARY"}, ""},
    {"psk_insecure_without_index", {"--insecure-argv", "set", "psk", "CANARY"}, ""},
    {"security_accepted", {"set", "security", "1", "wpa2", "psk", "--psk", "-"}, "CANARY\n"},
    {"security_refused", {"set", "security", "1", "wpa2", "psk", "--psk", "-"}, "CANARY\t\n"},
    {"security_in_argv", {"set", "security", "1", "wpa2", "psk", "--psk", "CANARY"}, ""},
    {"security_misplaced", {"set", "security", "1", "wpa2", "psk", "CANARY"}, ""},
    {"security_misplaced_mode", {"set", "security", "1", "CANARY"}, ""},
    {"security_misplaced_option", {"set", "security", "1", "wep", "--CANARY"}, ""},
    {"wep_accepted",
     {"set", "wep", "0", "on", "--key2", "-", "--default-key", "2"},
     "CANARYCANARY\n"},
    {"wep_wrong_length", {"set", "wep", "0", "on", "--key1", "-", "--key-length", "5"}, "CANARY\n"},
    {"wep_no_hex", {"set", "wep", "0", "on", "--key1", "-"}, "CANARYCANARYzz\n"},
    {"wep_refused_mode", {"set", "wep", "1", "on", "--key1", "-"}, "CANARYCANARY\n"},
    {"wep_in_argv", {"set", "wep", "0", "on", "--key1", "CANARY"}, ""},
    {"wep_misplaced", {"set", "wep", "0", "on", "CANARY"}, ""},
    {"wep_misplaced_length", {"set", "wep", "0", "on", "--key-length", "CANARY"}, ""},
    {"radius_accepted", {"set", "radius", "1", "1", "host:1812"}, "CANARY\n"},
    {"radius_refused", {"set", "radius", "10", "10", "host:1812"}, "CANARY\n"},
    {"radius_in_argv", {"set", "radius", "1", "1", "host:1812,CANARY"}, ""},
    {"radius_in_argv_without_port", {"set", "radius", "1", "1", "host,CANARY"}, ""},
    {"radius_insecure", {"--insecure-argv", "set", "radius", "1", "1", "host:1,CANARY"}, ""},
    {"radius_insecure_refused", {"--insecure-argv", "set", "radius", "9", "9", "h:1,CANARY"}, ""},
    {"radius_insecure_port", {"--insecure-argv", "set", "radius", "1", "1", "h:x,CANARY"}, ""},
    {"radius_too_long",
     {"set", "radius", "1", "1", "h:1"},
     "CANARYCANARYCANARYCANARYCANARYCANARYCANARY\n"},
    {"pin_without_service", {"wps", "set-pin", "0", "1"}, "CANARY\n"},
    {"pin_refused", {"wps", "set-pin", "0", "4", "-"}, "CANARY\n"},
    {"pin_in_argv", {"wps", "set-pin", "0", "1", "CANARY"}, ""},
    {"pin_in_argv_twice", {"wps", "set-pin", "0", "1", "-", "CANARY"}, "12345670\n"},
    {"pin_misplaced", {"wps", "set-pin", "0", "CANARY"}, ""},
    {"pin_insecure", {"--insecure-argv", "wps", "set-pin", "0", "1", "CANARY"}, ""},
    {"pin_of_a_station", {"wps", "enroll", "pin", "0", "1", "-"}, "CANARY\n"},
    {"pin_of_a_station_in_argv", {"wps", "enroll", "pin", "0", "1", "CANARY"}, ""},
    {"pin_of_a_station_misplaced", {"wps", "enroll", "pin", "CANARY"}, ""},
};

std::string planted(std::string text)
{
    constexpr std::string_view kWord = "CANARY";
    for (size_t at = text.find(kWord); at != text.npos; at = text.find(kWord, at))
        text.replace(at, kWord.size(), kCanary);
    return text;
}

class Canary : public OructlSecrets, public ::testing::WithParamInterface<Plant> {
protected:
    void expectHidden(const Arguments &arguments) const
    {
        const Transcript run = runWithInput(planted(GetParam().input), arguments);
        EXPECT_THAT(run.out + run.err, Not(HasSubstr(kCanary)));
        EXPECT_THAT(run.out + run.err, Not(HasSubstr("c0:ff:ee")));
    }
};

TEST_P(Canary, IsInNoOutput)
{
    Arguments arguments;
    for (const std::string &argument : GetParam().arguments) arguments.push_back(planted(argument));
    expectHidden(arguments);
    arguments.insert(arguments.begin(), "--json");
    expectHidden(arguments);
    for (const Arguments &get :
         {Arguments{"get", "psk", "1"}, Arguments{"get", "wep", "0"}, Arguments{"get", "radius"},
          Arguments{"get", "security", "1"}, Arguments{"--json", "get", "psk", "1"},
          Arguments{"--json", "get", "wep", "0"}, Arguments{"--json", "get", "radius"},
          Arguments{"commit"}})
        expectHidden(get);
}

INSTANTIATE_TEST_SUITE_P(Oructl, Canary, ::testing::ValuesIn(kPlants),
                         [](const auto &info) { return std::string(info.param.name); });

TEST_F(OructlSecrets, AreShownOnDemand)
{
    EXPECT_EQ(runWithInput(planted("CANARY\n"), {"set", "psk", "1", "-"}).exit, 0);
    EXPECT_EQ(run({"get", "psk", "1"}).out, "psk[1] = ********\n");
    EXPECT_EQ(jsonOf({"--json", "get", "psk", "1"}, 0)["value"], "********");
    EXPECT_EQ(run({"--show-secrets", "get", "psk", "1"}).out, planted("psk[1] = \"CANARY\"\n"));
    EXPECT_EQ(jsonOf({"get", "--json", "--show-secrets", "psk", "1"}, 0)["value"], kCanary);
}

// ---- at a terminal

TEST_F(OructlSecrets, AreAskedForAtATerminalWithoutEcho)
{
    int terminal = -1;
    const std::vector<std::string> variables = environment();
    std::vector<char *> pointers;
    for (const std::string &variable : variables)
        pointers.push_back(const_cast<char *>(variable.c_str()));
    pointers.push_back(nullptr);
    const pid_t child = ::forkpty(&terminal, nullptr, nullptr, nullptr);
    ASSERT_NE(child, -1);
    if (child == 0) {
        ::execle(ORUCTL, "oructl", "set", "psk", "1", nullptr, pointers.data());
        ::_exit(127);
    }
    std::string seen;
    std::array<char, 256> bytes{};
    bool answered = false;
    for (ssize_t got = 0; (got = ::read(terminal, bytes.data(), bytes.size())) > 0;) {
        seen.append(bytes.data(), static_cast<size_t>(got));
        if (answered || !seen.ends_with("VALUE: ")) continue;
        answered = true;
        const std::string line = planted("CANARY\n");
        EXPECT_EQ(::write(terminal, line.data(), line.size()), static_cast<ssize_t>(line.size()));
    }
    int status = 0;
    ::waitpid(child, &status, 0);
    ::close(terminal);
    EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0) << seen;
    EXPECT_EQ(seen, "VALUE: \r\n");
    EXPECT_EQ(psk(), planted("\"CANARY\""));
}

} // namespace
