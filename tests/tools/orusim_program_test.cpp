// orusim as a program: real processes, real signals, the real library as its caller.
#include "oruSdk.h"
#include "process.hpp"
#include "simbox.hpp"

#include <gmock/gmock.h>

#include <csignal>
#include <unistd.h>

namespace orusim::test {
namespace {

using ::testing::HasSubstr;
using ::testing::StartsWith;

class OrusimProgram : public ::testing::Test {
protected:
    OrusimProgram() { ::setenv("ORUSIM_FACTORY", kFactory, 1); }

    void init()
    {
        const Ended ended = runToEnd({"--root", box.root(), "--init"});
        ASSERT_EQ(ended.status, 0) << ended.output;
    }

    Ended control(const std::string &command) const
    {
        return runToEnd({"--root", box.root(), "--control", command});
    }

    Box box;
};

TEST_F(OrusimProgram, InitTellsOfEachFileAndEnds)
{
    const Ended ended = runToEnd({"--root", box.at("/new"), "--init"});
    EXPECT_EQ(ended.status, 0);
    EXPECT_THAT(ended.output, HasSubstr("wrote " + box.at("/new/var/wsmDefaults.orig") + "\n"));
    EXPECT_THAT(ended.output, HasSubstr("wrote " + box.at("/new/config/wsmSavedRadarDetectList")));
    EXPECT_TRUE(fs::is_directory(box.at("/new/run/oru")));
}

TEST_F(OrusimProgram, InitKeepsWhatExistsUnlessForced)
{
    init();
    box.write("/var/1x.conf", "mine=1\n");
    EXPECT_THAT(runToEnd({"--root", box.root(), "--init"}).output,
                HasSubstr("kept " + box.at("/var/1x.conf") + "\n"));
    EXPECT_EQ(box.read("/var/1x.conf"), "mine=1\n");
    const Ended forced = runToEnd({"--root", box.root(), "--init", "--force", "--quiet"});
    EXPECT_EQ(forced.status, 0);
    EXPECT_EQ(forced.output, "");
    EXPECT_EQ(box.read("/var/1x.conf"), box.read("/var/1x.conf.orig"));
}

TEST_F(OrusimProgram, InitTakesTheFactoryFilesFromWhereItIsTold)
{
    fs::create_directories(box.at("/mine"));
    for (const char *name : {"wsmDefaults.orig", "1x.conf.orig", "wsmSavedRadarDetectList"})
        box.write(std::string("/mine/") + name, "mine=1\n");
    EXPECT_EQ(runToEnd({"--root", box.root(), "--init", "--factory", box.at("/mine")}).status, 0);
    EXPECT_EQ(box.read("/var/wsmDefaults"), "mine=1\n");

    const Ended missing = runToEnd({"--root", box.root(), "--init", "--factory", "/nowhere"});
    EXPECT_EQ(missing.status, 1);
    EXPECT_THAT(missing.output, HasSubstr("/nowhere/wsmDefaults.orig"));
}

TEST_F(OrusimProgram, InitMakesTheNamedProduct)
{
    init();
    const Ended ended = runToEnd({"--root", box.root(), "--init", "--product", "bg"});
    EXPECT_EQ(ended.status, 0);
    EXPECT_THAT(ended.output, HasSubstr("kept " + box.at("/var/1x.conf") + "\n"));
    EXPECT_THAT(ended.output, HasSubstr("wrote " + box.at("/config/orusim.radios") + "\n"));
    EXPECT_THAT(box.read("/config/orusim.radios"), HasSubstr("bandSupport=\"1 1 0 1\"\n"));
    const Ended wrong = runToEnd({"--root", box.root(), "--init", "--product", "xx"});
    EXPECT_EQ(wrong.status, 1);
    EXPECT_THAT(wrong.output, HasSubstr("no such product: xx"));
}

TEST_F(OrusimProgram, LivesByItsOwnClockAndSeed)
{
    init();
    const std::vector<std::string> arguments{"--root",     box.root(), "--seed",  "5",
                                             "--stations", "2",        "--speed", "1000"};
    std::string joined[2];
    for (std::string &line : joined) {
        Process process(arguments);
        ASSERT_TRUE(process.waitFor("orusim: ready\n"));
        line = process.output().substr(process.output().find("station "));
        line.resize(line.find('\n'));
        // Within ten of its minutes every station has left, and another has come.
        EXPECT_TRUE(process.waitFor("leaves: its time\n")) << process.output();
    }
    EXPECT_THAT(joined[0], HasSubstr(" joins"));
    EXPECT_EQ(joined[0], joined[1]);
}

TEST_F(OrusimProgram, EndsOnASignalAndRemovesItsSockets)
{
    for (const int signal : {SIGTERM, SIGINT}) {
        init();
        Process process({"--root", box.root()});
        ASSERT_TRUE(process.waitFor("orusim: ready\n")) << process.output();
        EXPECT_FALSE(fs::is_empty(box.at("/run/oru")));
        process.signal(signal);
        EXPECT_EQ(process.end(), 0) << process.output();
        EXPECT_TRUE(fs::is_empty(box.at("/run/oru")));
    }
}

TEST_F(OrusimProgram, StartsAgainAfterItWasKilled)
{
    init();
    {
        Process process({"--root", box.root()});
        ASSERT_TRUE(process.waitFor("orusim: ready\n"));
        process.signal(SIGKILL);
        EXPECT_EQ(process.end(), -SIGKILL);
    }
    EXPECT_FALSE(fs::is_empty(box.at("/run/oru")));
    Process process({"--root", box.root()});
    ASSERT_TRUE(process.waitFor("orusim: ready\n")) << process.output();
    EXPECT_EQ(control("quit").status, 0);
    EXPECT_EQ(process.end(), 0);
}

TEST_F(OrusimProgram, RefusesToRunTwiceInOneFolder)
{
    init();
    Process first({"--root", box.root()});
    ASSERT_TRUE(first.waitFor("orusim: ready\n"));
    const Ended second = runToEnd({"--root", box.root()});
    EXPECT_EQ(second.status, 1);
    EXPECT_THAT(second.output, HasSubstr("such a service runs there already"));
    EXPECT_EQ(control("status").status, 0) << "the first goes on";
}

TEST_F(OrusimProgram, ReportsWhatTheLibraryCommits)
{
    init();
    Process process({"--root", box.root()});
    ASSERT_TRUE(process.waitFor("orusim: ready\n"));
    OruSdkFeatureParam mimo{};
    ASSERT_EQ(oruSdkSetMimo(&mimo), 0u);
    ASSERT_EQ(oruSdkCommitAll(), 0u);
    EXPECT_TRUE(process.waitFor("WSM:   mimoFlag: 1 -> 0\n")) << process.output();
    EXPECT_TRUE(process.waitFor("AA: reloaded /var/1x.conf: 0 changes\n")) << process.output();
}

TEST_F(OrusimProgram, TakesTheAdministrativeStatusThatTheLibrarySets)
{
    init();
    Process process({"--root", box.root()});
    ASSERT_TRUE(process.waitFor("orusim: ready\n"));
    OruSdkFeatureParam down{};
    down.radioIndex = 1;
    EXPECT_EQ(oruSdkSetAdminStatus(&down), 0u);
    EXPECT_TRUE(process.waitFor("WSM: 264 set administrative status: reply size 20000, radio 1, "
                                "status 0\n"));
    ASSERT_EQ(control("fault wsm wrong").status, 0);
    EXPECT_EQ(oruSdkSetAdminStatus(&down), 48u);
    ASSERT_EQ(control("fault wsm close").status, 0);
    EXPECT_EQ(oruSdkSetAdminStatus(&down), 48u);
}

TEST_F(OrusimProgram, ReloadsOnHangup)
{
    init();
    Process process({"--root", box.root()});
    ASSERT_TRUE(process.waitFor("orusim: ready\n"));
    Box::set("/var/1x.conf", "bss0.sessionTimeout", "60");
    process.signal(SIGHUP);
    EXPECT_TRUE(process.waitFor("AA:   bss0.sessionTimeout: 0 -> 60\n")) << process.output();
}

TEST_F(OrusimProgram, StampsEachLineWithItsTime)
{
    init();
    Process process({"--root", box.root()});
    ASSERT_TRUE(process.waitFor("orusim: ready\n"));
    EXPECT_THAT(process.output(),
                ::testing::ContainsRegex("^20[0-9-]{8}T[0-9:]{8}\\.[0-9]{3}Z WSM: loaded "
                                         "/var/wsmDefaults: [0-9]+ keys\n"));
}

TEST_F(OrusimProgram, QuietPrintsNothingButThatItIsReadyAndLogsToTheFile)
{
    init();
    Process process({"--root", box.root(), "--quiet", "--foreground", "--log", box.at("/log")});
    ASSERT_TRUE(process.waitFor("orusim: ready\n"));
    process.signal(SIGTERM);
    EXPECT_EQ(process.end(), 0);
    EXPECT_EQ(process.output(), "orusim: ready\n");
    EXPECT_THAT(box.read("/log"), HasSubstr("Z WSM: loaded /var/wsmDefaults: "));
}

TEST_F(OrusimProgram, WritesAByteWhenItIsReady)
{
    init();
    int ends[2];
    ASSERT_EQ(::pipe(ends), 0);
    Process process({"--root", box.root(), "--ready-fd", std::to_string(ends[1])});
    ::close(ends[1]);
    char bytes[2];
    EXPECT_EQ(::read(ends[0], bytes, sizeof bytes), 1);
    EXPECT_EQ(::read(ends[0], bytes, sizeof bytes), 0) << "and closes the descriptor";
    ::close(ends[0]);
    EXPECT_TRUE(Caller(kWsmPort).connected());
}

TEST_F(OrusimProgram, SpoilsAnswersOnCommand)
{
    init();
    Process process({"--root", box.root()});
    ASSERT_TRUE(process.waitFor("orusim: ready\n"));
    const Ended set = control("fault wsm close count 1");
    EXPECT_EQ(set.status, 0);
    EXPECT_EQ(set.output, "ok\n");

    const Caller first(kWsmPort);
    ASSERT_TRUE(first.send(adminStatus(0, 0)));
    ASSERT_TRUE(first.ready(kLongestWaitMs));
    EXPECT_TRUE(first.receive().empty());
    const Caller second(kWsmPort);
    ASSERT_TRUE(second.send(adminStatus(0, 0)));
    ASSERT_TRUE(second.ready(kLongestWaitMs));
    EXPECT_EQ(second.receive(), result(0));
}

TEST_F(OrusimProgram, SendsALateAnswerByItsOwnClock)
{
    init();
    Process process({"--root", box.root()});
    ASSERT_TRUE(process.waitFor("orusim: ready\n"));
    ASSERT_EQ(control("fault wsm slow 50").status, 0);
    const Caller caller(kWsmPort);
    const auto before = std::chrono::steady_clock::now();
    ASSERT_TRUE(caller.send(adminStatus(0, 0)));
    ASSERT_TRUE(caller.ready(kLongestWaitMs));
    EXPECT_GE(std::chrono::steady_clock::now() - before, std::chrono::milliseconds(49));
    EXPECT_EQ(caller.receive(), result(0));
}

TEST_F(OrusimProgram, ControlTellsErrorsApart)
{
    init();
    const Ended nobody = control("status");
    EXPECT_EQ(nobody.status, 1);
    EXPECT_THAT(nobody.output, HasSubstr("no simulator answers below " + box.root()));

    Process process({"--root", box.root()});
    ASSERT_TRUE(process.waitFor("orusim: ready\n"));
    const Ended wrong = control("fault wsm loud");
    EXPECT_EQ(wrong.status, 1);
    EXPECT_THAT(wrong.output, StartsWith("error: "));
}

TEST_F(OrusimProgram, RefusesAFolderThatWasNeverMade)
{
    const Ended ended = runToEnd({"--root", box.at("/nowhere")});
    EXPECT_EQ(ended.status, 1);
    EXPECT_THAT(ended.output, HasSubstr("can't read " + box.at("/nowhere/var/wsmDefaults")));
    EXPECT_THAT(ended.output, ::testing::Not(HasSubstr("ready")));
    EXPECT_FALSE(fs::exists(box.at("/nowhere")));
}

TEST_F(OrusimProgram, KeepsAwayFromTheMachinesOwnFolder)
{
    ::unsetenv("ORU_ROOT");
    // Without factory files nothing would be made even if it went on.
    ::setenv("ORUSIM_FACTORY", box.at("/nowhere").c_str(), 1);
    for (const std::vector<std::string> &arguments :
         std::vector<std::vector<std::string>>{{},
                                               {"--init"},
                                               {"--root", "/"},
                                               {"--root", "/tmp/..", "--init"},
                                               {"--control", "status"}}) {
        const Ended ended = runToEnd(arguments);
        EXPECT_EQ(ended.status, 2);
        EXPECT_THAT(ended.output, HasSubstr("no folder given"));
    }
}

TEST_F(OrusimProgram, RefusesAWrongCommandLine)
{
    for (const std::vector<std::string> &arguments :
         std::vector<std::vector<std::string>>{{"--bad"},
                                               {"word"},
                                               {"--root"},
                                               {"--ready-fd", "x"},
                                               {"--ready-fd", "-1"},
                                               {"--ready-fd", ""},
                                               {"--ready-fd", "65536"},
                                               {"--speed", "0"},
                                               {"--speed", "1001"},
                                               {"--seed", "4294967296"},
                                               {"--stations", "257"},
                                               {"--quiet=1"}}) {
        const Ended ended = runToEnd(arguments);
        EXPECT_EQ(ended.status, 2) << arguments[0];
        EXPECT_THAT(ended.output, HasSubstr("Usage: orusim"));
    }
}

TEST_F(OrusimProgram, TellsItsOptionsAndItsVersion)
{
    const Ended help = runToEnd({"--help"});
    EXPECT_EQ(help.status, 0);
    for (const char *word :
         {"--root",       "--init",           "--force",     "--factory",   "--product",
          "--stations",   "--seed",           "--speed",     "--quiet",     "--log",
          "--foreground", "--ready-fd",       "--control",   "--on-device", "--help",
          "--version",    "fault wsm|aa|all", "station add", "stations N",  "advance MS",
          "wps peer",     "status",           "quit"})
        EXPECT_THAT(help.output, HasSubstr(word));
    const Ended version = runToEnd({"--version"});
    EXPECT_EQ(version.status, 0);
    EXPECT_EQ(version.output, "orusim " ORUSIM_VERSION "\n");
}

} // namespace
} // namespace orusim::test
