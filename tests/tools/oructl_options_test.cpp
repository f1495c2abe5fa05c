// The options that every command takes.
#include "tools/oructl_run.hpp"

#include <fcntl.h>
#include <gmock/gmock.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <filesystem>

using namespace oru::test;
using nlohmann::json;
using testing::HasSubstr;

namespace {

class Options : public OructlTest {};

TEST_F(Options, TerseShowsValuesAloneBetweenTabs)
{
    EXPECT_EQ(run({"--terse", "get", "mimo", "0"}).out, "on\n");
    ASSERT_EQ(run({"set", "security", "0", "wpa2", "psk"}).exit, 0);
    EXPECT_EQ(run({"--terse", "get", "wpa", "0"}).out, "wpa2\tpsk\taes\n");
    EXPECT_EQ(run({"get", "--terse", "wpa", "1"}).out, "off\t\t\n") << "behind the verb, too";
    ASSERT_EQ(run({"set", "ssid", "0", "--hex", "09410a5c"}).exit, 0);
    EXPECT_EQ(run({"--terse", "get", "ssid", "0"}).out, "\\tA\\n\\\\\n");
}

TEST_F(Options, FieldsChooseAndOrder)
{
    ASSERT_EQ(run({"set", "security", "0", "wpa2", "psk"}).exit, 0);
    EXPECT_EQ(run({"--terse", "--fields", "cipher,mode", "get", "wpa", "0"}).out, "aes\twpa2\n");
    EXPECT_EQ(run({"--fields", "auth", "get", "wpa", "0"}).out, "wpa[0].auth = psk\n");
    EXPECT_EQ(jsonOf({"--json", "--fields", "auth,mode", "get", "wpa", "0"}, 0)["value"].size(),
              2u);
    EXPECT_EQ(run({"--fields", "value", "get", "mimo", "0"}).out, "mimo[0] = on\n");
    const Transcript wrong = run({"--fields", "auth,color", "get", "wpa", "0"});
    EXPECT_EQ(wrong.exit, 2);
    EXPECT_EQ(wrong.out, "");
    EXPECT_THAT(wrong.err, HasSubstr("color"));
}

TEST_F(Options, DryRunSaysWhatItWouldStore)
{
    const std::string before = read(kWsm) + read(kAa);
    const Transcript set = run({"--dry-run", "set", "mimo", "0", "off"});
    EXPECT_EQ(set.exit, 0);
    EXPECT_EQ(set.out, "would change mimoFlag of /var/wsmDefaults\n");
    EXPECT_EQ(run({"--dry-run", "set", "mimo", "0", "on"}).out, "would change nothing\n");
    const json object = jsonOf({"--json", "--dry-run", "set", "mimo", "0", "off"}, 0);
    EXPECT_EQ(object["dryRun"], true);
    EXPECT_EQ(object["changes"], json::parse(R"([{"key":"mimoFlag","file":"/var/wsmDefaults"}])"));
    EXPECT_EQ(run({"--dry-run", "set", "tx-power", "0", "9"}).exit, 1) << "checks all the same";
    EXPECT_EQ(run({"--dry-run", "reset", "bss", "1"}).exit, 0);
    EXPECT_EQ(run({"--dry-run", "set", "admin-status", "0", "down"}).exit, 2) << "acts at once";
    EXPECT_EQ(read(kWsm) + read(kAa), before);
    EXPECT_FALSE(std::filesystem::exists(root() + "/var/oructl"));
}

TEST_F(Options, RootIsTheAccessPointThatIsWorkedOn)
{
    const std::string other = root() + "/other";
    std::filesystem::create_directories(other + "/var");
    write("/other/var/wsmDefaults", read(kWsm));
    write("/other/var/1x.conf", read(kAa));
    const std::string before = read(kWsm);
    EXPECT_EQ(run({"--root", other, "set", "mimo", "0", "off"}).exit, 0);
    EXPECT_EQ(value("/other/var/wsmDefaults", "mimoFlag"), "0");
    EXPECT_EQ(read(kWsm), before);
    EXPECT_EQ(run({"--root", root() + "/nowhere", "get", "mimo", "0"}).exit, 2);
}

TEST_F(Options, TimeoutTakesSecondsOfAnHour)
{
    for (const char *good : {"1", "60", "3600"})
        EXPECT_EQ(run({"--timeout", good, "set", "mimo", "0", "off"}).exit, 0) << good;
    for (const char *wrong : {"-1", "3601", "1s", "", "0.5", "99999999999999999999"}) {
        const Transcript refused = run({"--timeout", wrong, "set", "mimo", "0", "on"});
        EXPECT_EQ(refused.exit, 2) << wrong;
        EXPECT_THAT(refused.err, HasSubstr("--timeout takes 0 to 3600 seconds")) << wrong;
    }
    EXPECT_EQ(value(kWsm, "mimoFlag"), "0");
}

TEST_F(Options, ForceStoresWhereNothingStandsAgainstIt)
{
    EXPECT_EQ(run({"--force", "set", "mimo", "0", "off"}).exit, 0);
    EXPECT_EQ(value(kWsm, "mimoFlag"), "0");
    EXPECT_EQ(run({"--force", "set", "tx-power", "0", "9"}).exit, 1) << "is no word to the library";
}

TEST_F(Options, QuietSaysWhatWasAskedForAndWhatFailed)
{
    EXPECT_EQ(run({"--quiet", "get", "mimo", "0"}).out, "mimo[0] = on\n");
    const Transcript steps = run({"--quiet", "set", "security", "0", "wpa2", "psk"});
    EXPECT_EQ(steps.exit, 0);
    EXPECT_EQ(steps.out, "");
    EXPECT_EQ(run({"set", "security", "0", "open"}).out.empty(), false) << "not quiet";
    EXPECT_EQ(run({"--quiet", "--dry-run", "set", "mimo", "0", "on"}).out, "");
    EXPECT_NE(run({"--quiet", "set", "tx-power", "0", "9"}).err, "");
}

// ---- Exit statuses that other tests of refusals don't have

TEST_F(Options, WithoutPermissionTheStatusIsNine)
{
    if (::geteuid() != 0) ASSERT_EQ(::chmod((root() + "/var").c_str(), 0500), 0);
    else ASSERT_EQ(::chmod(root().c_str(), 0755), 0);
    const pid_t child = ::fork();
    ASSERT_GE(child, 0);
    if (child == 0) {
        constexpr uid_t kNobody = 65534;
        if (::geteuid() == 0 && ::setuid(kNobody) != 0) ::_exit(100);
        const int silent = ::open("/dev/null", O_WRONLY);
        ::dup2(silent, STDERR_FILENO);
        ::execl(ORUCTL, "oructl", "--root", root().c_str(), "set", "mimo", "0", "off", nullptr);
        ::_exit(101);
    }
    int status = 0;
    ASSERT_EQ(::waitpid(child, &status, 0), child);
    EXPECT_EQ(WEXITSTATUS(status), 9);
    ASSERT_EQ(::chmod((root() + "/var").c_str(), 0700), 0);
}

} // namespace
