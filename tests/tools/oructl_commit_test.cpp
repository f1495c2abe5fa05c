// What becomes of a commit, with real services beside it.
#include "tools/oructl_run.hpp"
#include "tools/process.hpp"
#include "tools/wsm_service.hpp"

#include <gmock/gmock.h>

#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <memory>

using namespace oru::test;
using nlohmann::json;
using orusim::test::Ended;
using orusim::test::Process;
using orusim::test::runToEnd;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

namespace {

constexpr const char *kStation = "02:00:00:00:00:aa";

/// The access point as it leaves the factory, simulated.
class Commit : public OructlTest {
protected:
    Commit()
    {
        ::setenv("ORU_LOG", "none", 1);
        const std::string share = ORU_SOURCE_DIR "/share";
        for (const char *name : {"/wsmDefaults", "/1x.conf"})
            for (const char *ending : {"", ".orig"})
                copy(share + name + ".orig", "/var" + (name + std::string{ending}));
        std::filesystem::create_directories(root() + "/config");
        copy(share + "/wsmSavedRadarDetectList", "/config/wsmSavedRadarDetectList");
    }

    void copy(const std::string &from, const std::string &to) const
    {
        std::filesystem::copy_file(from, root() + to,
                                   std::filesystem::copy_options::overwrite_existing);
    }

    void start()
    {
        services_ = std::make_unique<Process>(
            std::vector<std::string>{"--root", root(), "--stations", "0"});
        ASSERT_TRUE(services_->waitFor("ready"));
    }
    void control(const std::string &command) const
    {
        const Ended ended = runToEnd({"--root", root(), "--control", command});
        ASSERT_EQ(ended.status, 0) << ended.output;
    }
    /// A second oructl that runs beside the others.
    std::unique_ptr<Process> startOructl(Arguments arguments) const
    {
        arguments.insert(arguments.begin(), {"--root", root()});
        return std::make_unique<Process>(arguments, ORUCTL);
    }
    /// One with a trial, which waits.
    std::unique_ptr<Process> startTrial(const Arguments &options = {"--confirm", "600"}) const
    {
        Arguments arguments = {"commit"};
        arguments.insert(arguments.end(), options.begin(), options.end());
        auto process = startOructl(arguments);
        EXPECT_TRUE(process->waitFor("oructl confirm")) << process->output();
        return process;
    }
    static std::string tokenOf(const Process &trial)
    {
        constexpr std::string_view kBefore = "oructl confirm ";
        const std::string text = trial.output().substr(trial.output().find(kBefore));
        return text.substr(kBefore.size(), text.find('\n') - kBefore.size());
    }
    void expectSsid(const std::string &ssid) const
    {
        EXPECT_EQ(value(kWsm, "bss0.ssId"), '"' + ssid + '"');
        if (services_ == nullptr) return;
        const json live = jsonOf({"--json", "show", "bss-list", "0"}, 0);
        EXPECT_EQ(live["rows"][0]["ssid"]["text"], ssid);
    }
    void done(const Arguments &arguments) const
    {
        const Transcript run = this->run(arguments);
        EXPECT_EQ(run.exit, 0) << testing::PrintToString(arguments) << run.err;
    }
    [[nodiscard]] bool has(const std::string &name) const
    {
        return std::filesystem::exists(root() + "/var/oructl/" + name);
    }

    std::unique_ptr<Process> services_;
};

// ---- What is known of it

TEST_F(Commit, IsSavedTakenAndOnTheAir)
{
    start();
    done({"set", "ssid", "0", "new name"});
    const Transcript run = this->run({"commit"});
    EXPECT_EQ(run.exit, 0);
    EXPECT_EQ(run.err, "");
    EXPECT_EQ(run.out, "saved   yes\ntaken   WSM answers, AA listens\non air  yes\n");
    expectSsid("new name");
    EXPECT_EQ(jsonOf({"--json", "commit"}, 0),
              (json{{"schema", "oructl/1"},
                    {"commit", "all"},
                    {"saved", true},
                    {"taken", {{"wsm", "answers"}, {"aa", "listens"}}},
                    {"onAir", true},
                    {"missing", json::array()}}));
    EXPECT_EQ(this->run({"commit", "radio"}).out,
              "saved   yes\ntaken   WSM answers\non air  yes\n");
    EXPECT_EQ(this->run({"--quiet", "commit"}).out, "");
}

TEST_F(Commit, WaitsForASlowService)
{
    start();
    control("fault wsm slow 300 count 3");
    EXPECT_EQ(run({"commit"}).exit, 0);
}

TEST_F(Commit, SaysWhichServiceIsAway)
{
    WsmService wsm{root()};
    const Transcript run = this->run({"--timeout", "1", "commit"});
    EXPECT_EQ(run.exit, 4);
    EXPECT_EQ(
        run.out,
        "saved   yes\ntaken   WSM listens but does not answer, AA is away\non air  not known\n");
    EXPECT_EQ(run.err, "oructl: commit: WSM listens but does not answer, AA is away; what is saved "
                       "is taken when the service starts\n");
    EXPECT_EQ(jsonOf({"--json", "--timeout", "1", "commit", "radio"}, 4)["taken"],
              (json{{"wsm", "silent"}, {"aa", "untold"}}));
}

TEST_F(Commit, SaysThatWsmAloneIsAway)
{
    ::setenv("ORU_ROOT", root().c_str(), 1);
    OruAsfListener *const aa = oruAsfIpcListen(5000003, 1001);
    ASSERT_NE(aa, nullptr);
    const Transcript run = this->run({"commit"});
    EXPECT_EQ(run.exit, 4);
    EXPECT_THAT(run.out, HasSubstr("taken   WSM is away, AA listens\n"));
    EXPECT_EQ(run.err,
              "oructl: commit: WSM is away; what is saved is taken when the service starts\n");
    oruAsfIpcUnlisten(aa);
    ::unsetenv("ORU_ROOT");
}

/// A WSM whose tables are the test's.
class CommitWatched : public Commit {
protected:
    CommitWatched() : wsm(root())
    {
        wsm.answer(283, {reply({}), reply({})});
        for (const char bss : {'0', '1', '2', '3'})
            set(kWsm, std::string{"bss"} + bss + ".radio", "0");
        set(kWsm, "radio1.adminStatus", "0");
    }
    static Bytes channel(uint32_t number) { return reply({number16(1, 0), number32(3, number)}); }

    WsmService wsm;
};

TEST_F(CommitWatched, NamesWhatIsNotOnTheAirYet)
{
    wsm.answer(256, {channel(11)});
    const Transcript run = this->run({"commit", "radio"});
    EXPECT_EQ(run.exit, 0);
    EXPECT_THAT(run.out, HasSubstr("on air  not yet: radio 0 is on channel 11, not 6\n"));
    EXPECT_THAT(jsonOf({"--json", "commit", "radio"}, 0)["missing"],
                ElementsAre("radio 0 is on channel 11, not 6"));

    set(kWsm, "bss1.radio", "1");
    EXPECT_THAT(this->run({"commit", "radio"}).out, HasSubstr("; BSS 1 is not on radio 0\n"));
    set(kWsm, "bss1.radio", "0");
    wsm.answer(283, {reply({element(1u << 16 | 0x11, {1}), text(5, "oru")})});
    EXPECT_THAT(this->run({"commit", "radio"}).out, HasSubstr("; BSS 1 is still on radio 0\n"));
    set(kWsm, "bss1.radio", "3");
    set(kWsm, "bss1.ssId", "\"other\"");
    EXPECT_THAT(this->run({"commit", "radio"}).out,
                HasSubstr("; BSS 1 on radio 0 has another SSID\n"));
}

TEST_F(CommitWatched, WaitsUntilItIsOnTheAir)
{
    wsm.answer(256, {channel(11), channel(11), channel(6)});
    const Transcript run = this->run({"commit", "--wait", "20", "radio"});
    EXPECT_EQ(run.exit, 0);
    EXPECT_EQ(run.err, "") << "no progress in a pipe";
    EXPECT_EQ(run.out, "saved   yes\ntaken   WSM answers\non air  yes\n");
    EXPECT_EQ(wsm.requests().size(), 10u) << "the notice, and three tables three times";
}

TEST_F(CommitWatched, GivesUpWaiting)
{
    wsm.answer(256, {channel(11)});
    const Transcript run = this->run({"commit", "--wait", "1", "radio"});
    EXPECT_EQ(run.exit, 3);
    EXPECT_EQ(run.err, "oructl: commit radio: not on the air within 1 seconds\n");
    EXPECT_EQ(jsonOf({"--json", "commit", "--wait", "1", "radio"}, 3)["onAir"], false);
}

// ---- The snapshot

TEST_F(Commit, KeepsWhatWasCommittedForItsOwnerAlone)
{
    namespace fs = std::filesystem;
    done({"set", "ssid", "0", "new name"});
    EXPECT_THAT(read("/var/oructl/committed/wsmDefaults"), HasSubstr("bss0.ssId=\"oru\""))
        << "taken before the first change";
    EXPECT_EQ(run({"commit"}).exit, 4);
    EXPECT_EQ(read("/var/oructl/committed/wsmDefaults"), read(kWsm));
    EXPECT_EQ(read("/var/oructl/committed/1x.conf"), read(kAa));
    EXPECT_EQ(fs::status(root() + "/var/oructl/committed").permissions(), fs::perms::owner_all);
    EXPECT_EQ(fs::status(root() + "/var/oructl/committed/1x.conf").permissions(),
              fs::perms::owner_read | fs::perms::owner_write);
}

TEST_F(Commit, OfTheRadiosLeavesSecurityUncommitted)
{
    done({"set", "mimo", "0", "off"});
    done({"set", "timeouts", "3", "600", "1200"});
    EXPECT_EQ(run({"commit", "radio"}).exit, 4);
    EXPECT_EQ(run({"plan"}).out, "BSS 3 takes 1 change\n");
    EXPECT_EQ(run({"commit"}).exit, 4);
    EXPECT_EQ(run({"plan"}).out, "nothing to commit\n");
}

TEST_F(Commit, RevertUndoesWhatIsNotCommitted)
{
    const std::string before = read(kWsm) + read(kAa);
    done({"set", "ssid", "0", "new name"});
    EXPECT_THAT(run({"--dry-run", "revert"}).out, HasSubstr("would change bss0.ssId of"));
    expectSsid("new name");
    done({"revert"});
    EXPECT_EQ(read(kWsm) + read(kAa), before);
}

// ---- The plan

TEST_F(Commit, PlanSaysWhatStationsHaveToExpect)
{
    start();
    control("station add 0 02:00:00:00:00:aa 0");
    control("station add 0 02:00:00:00:00:ab 0");
    EXPECT_EQ(run({"plan"}).out, "nothing to commit\n");
    done({"set", "channel", "0", "11"});
    done({"set", "preamble-type", "1", "short"});
    done({"set", "ssid", "1", "new name"});
    EXPECT_EQ(run({"plan"}).out, "radio 0 takes 1 change: its 2 stations may drop\n"
                                 "radio 1 takes 1 change, which has no stations\n"
                                 "BSS 1: SSID changes, stations must join anew\n");
    const json plan = jsonOf({"--json", "plan"}, 0)["plan"];
    EXPECT_EQ(plan[0], (json{{"radio", 0},
                             {"bss", nullptr},
                             {"changes", 1},
                             {"stations", 2},
                             {"text", "radio 0 takes 1 change: its 2 stations may drop"}}));
    EXPECT_EQ(run({"--dry-run", "commit"}).out, run({"plan"}).out);
    expectSsid("oru");
}

TEST_F(Commit, PlanKnowsChannelsWithRadar)
{
    start();
    done({"set", "radar-detect", "1", "off"});
    done({"set", "channel", "1", "52"});
    EXPECT_THAT(run({"plan"}).out,
                HasSubstr("channel 52 of radio 1 may have radar, and its detection is off\n"));
    set(kWsm, "radio1.radarDetectFlag", "1");
    EXPECT_THAT(run({"plan"}).out,
                HasSubstr("channel 52 of radio 1 needs a radar check: silent for 60 s\n"));
}

TEST_F(Commit, PlanShowsNoSecret)
{
    done({"set", "security", "2", "wpa2", "psk"});
    EXPECT_EQ(run({"commit"}).exit, 6) << "no key";
    EXPECT_EQ(runWithInput("the secret of the house\n", {"set", "psk", "2", "-"}).exit, 0);
    EXPECT_EQ(run({"commit"}).exit, 4);
    EXPECT_EQ(runWithInput("another secret of it\n", {"set", "psk", "2", "-"}).exit, 0);
    const Transcript run = this->run({"plan"});
    EXPECT_EQ(run.out, "BSS 2: key changes, stations must join anew\n");
    EXPECT_THAT(this->run({"--json", "plan"}).out, Not(HasSubstr("secret")));
}

// ---- Trials

TEST_F(Commit, ATrialStaysWhenItIsConfirmedFromElsewhere)
{
    start();
    done({"set", "ssid", "0", "new name"});
    const auto trial = startTrial();
    expectSsid("new name");
    EXPECT_EQ(run({"confirm", "wrong"}).exit, 1);
    EXPECT_TRUE(has("pending")) << "nothing has changed";
    done({"confirm", tokenOf(*trial)});
    EXPECT_EQ(trial->end(), 0);
    EXPECT_THAT(trial->output(), HasSubstr("confirmed: it stays\n"));
    expectSsid("new name");
    EXPECT_EQ(run({"plan"}).out, "nothing to commit\n");
    EXPECT_FALSE(has("pending"));
}

TEST_F(Commit, ATrialThatNobodyConfirmsIsTakenBack)
{
    start();
    const std::string before = read(kWsm) + read(kAa);
    done({"set", "ssid", "0", "new name"});
    const Transcript run = this->run({"commit", "--confirm", "1"});
    EXPECT_EQ(run.exit, 3);
    EXPECT_THAT(run.out, HasSubstr("not confirmed in time: the configuration before is back\n"));
    expectSsid("oru");
    EXPECT_EQ(read(kWsm) + read(kAa), before);
    EXPECT_EQ(this->run({"plan"}).out, "nothing to commit\n");
}

TEST_F(Commit, ATrialAsJsonIsAnObjectAtEachEnd)
{
    start();
    const Transcript run = this->run({"--json", "commit", "--confirm", "1"});
    EXPECT_EQ(run.exit, 3);
    const size_t line = run.out.find('\n') + 1;
    const json first = json::parse(run.out.substr(0, line));
    EXPECT_EQ(first["trial"]["seconds"], 1);
    EXPECT_EQ(first["trial"]["token"].get<std::string>().size(), 8u);
    EXPECT_EQ(json::parse(run.out.substr(line)),
              (json{{"schema", "oructl/1"}, {"trial", "expired"}}));
}

TEST_F(Commit, ATrialRefusesOtherChanges)
{
    done({"set", "ssid", "0", "new name"});
    const auto trial = startTrial();
    for (const Arguments &arguments :
         {Arguments{"set", "ssid", "0", "x"}, Arguments{"commit"}, Arguments{"reset", "all"},
          Arguments{"commit", "--confirm", "5"}}) {
        const Transcript run = this->run(arguments);
        EXPECT_EQ(run.exit, 5) << testing::PrintToString(arguments);
        EXPECT_THAT(run.err, HasSubstr("a commit is on trial; keep it with: oructl confirm TOKEN, "
                                       "or end it with: oructl revert\n"));
    }
    done({"get", "ssid", "0"});
    done({"revert"});
    EXPECT_EQ(trial->end(), 1);
    EXPECT_THAT(trial->output(), HasSubstr("reverted: the configuration before is back\n"));
    expectSsid("oru");
    done({"set", "ssid", "0", "x"});
}

TEST_F(Commit, ATrialConfirmsItselfWhenStationsCome)
{
    start();
    done({"set", "ssid", "0", "new name"});
    const auto trial = startTrial({"--confirm", "600", "--until", "stations>=1"});
    EXPECT_TRUE(has("pending"));
    control(std::string{"station add 0 "} + kStation);
    EXPECT_EQ(trial->end(), 0);
    expectSsid("new name");
    EXPECT_EQ(run({"plan"}).out, "nothing to commit\n");
}

TEST_F(Commit, ATrialConfirmsItselfWhenItIsOnTheAir)
{
    start();
    done({"set", "channel", "0", "11"});
    EXPECT_EQ(run({"commit", "--confirm", "600", "--until", "on-air"}).exit, 0);
    EXPECT_EQ(value(kWsm, "radio0.configuredChannel"), "11");
}

TEST_F(Commit, ATrialOutlivesItsConnectionButNoInterrupt)
{
    for (const int signal : {SIGINT, SIGTERM}) {
        done({"set", "ssid", "0", "new name"});
        const auto trial = startTrial();
        trial->signal(SIGHUP);
        done({"guard"});
        expectSsid("new name");
        trial->signal(signal);
        EXPECT_EQ(trial->end(), 128 + signal);
        expectSsid("oru");
    }
}

TEST_F(Commit, TheGuardEndsATrialWhoseTimeIsOver)
{
    start();
    done({"set", "ssid", "0", "new name"});
    const auto trial = startTrial({"--confirm", "1"});
    trial->signal(SIGKILL);
    EXPECT_EQ(trial->end(), -SIGKILL);
    EXPECT_EQ(jsonOf({"--json", "guard"}, 0)["trial"], "waiting");
    expectSsid("new name");
    std::string kept = read("/var/oructl/pending/trial");
    const std::string token = kept.substr(0, kept.find('\n'));
    std::string boot = kept.substr(token.size() + 1);
    boot.resize(boot.find('\n') + 1);
    write("/var/oructl/pending/trial", token + '\n' + boot + "1\nall\n");
    const Transcript late = run({"confirm", token});
    EXPECT_EQ(late.exit, 3);
    EXPECT_THAT(late.err, HasSubstr("its time is over"));
    EXPECT_EQ(jsonOf({"--json", "guard"}, 0)["trial"], "reverted");
    expectSsid("oru");
    EXPECT_FALSE(has("pending"));
    EXPECT_EQ(jsonOf({"--json", "guard"}, 0)["trial"], "none");
}

TEST_F(Commit, TheGuardEndsATrialOfAnotherBoot)
{
    for (const char *trial : {"tokentok\nanother boot\n9999999999999\nall\n", "", "tokentok"}) {
        SCOPED_TRACE(trial);
        done({"set", "ssid", "0", "new name"});
        const auto started = startTrial();
        started->signal(SIGKILL);
        started->end();
        write("/var/oructl/pending/trial", trial);
        done({"guard"});
        expectSsid("oru");
        EXPECT_FALSE(has("pending"));
    }
}

TEST_F(Commit, ATrialThatIsRefusedLeavesNothing)
{
    set(kAa, "bss2.openAccessEnabled", "false");
    EXPECT_EQ(run({"commit", "--confirm", "5"}).exit, 6);
    EXPECT_FALSE(has("pending"));
}

TEST_F(Commit, OptionsOfATrialAreChecked)
{
    for (const Arguments &arguments :
         {Arguments{"commit", "--confirm", "0"}, Arguments{"commit", "--confirm", "3601"},
          Arguments{"commit", "--wait", "x"}, Arguments{"commit", "--confirm", "5", "--wait", "5"},
          Arguments{"commit", "--confirm", "5", "--until", "stations>=x"},
          Arguments{"commit", "--confirm", "5", "--until", "stations"}, Arguments{"plan", "0"},
          Arguments{"confirm", "a", "b"}, Arguments{"guard", "x"}, Arguments{"revert", "x"}})
        EXPECT_EQ(run(arguments).exit, 2) << testing::PrintToString(arguments);
}

// ---- Stations that are not there

TEST_F(Commit, AStationThatIsNowhereIsToldApart)
{
    start();
    control(std::string{"station add 0 "} + kStation + " 1");
    done({"stats", "get", "signal", "1", kStation});
    for (const Arguments &arguments :
         {Arguments{"disassoc", "02:00:00:00:00:bb"},
          Arguments{"stats", "get", "signal", "1", "02:00:00:00:00:bb"}}) {
        const Transcript run = this->run(arguments);
        EXPECT_EQ(run.exit, 10);
        EXPECT_THAT(run.err, HasSubstr("no such station; no BSS of either radio has it\n"));
    }
    EXPECT_EQ(run({"stats", "get", "signal", "0", kStation}).exit, 1) << "it is on the other radio";
    done({"disassoc", kStation});
    EXPECT_EQ(run({"disassoc", kStation}).exit, 10);
}

} // namespace
