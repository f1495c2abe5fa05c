// From a command line to what is on the air: oructl, the libraries, their sockets and orusim.
#include "tools/simulated.hpp"

#include <gmock/gmock.h>

#include <filesystem>
#include <set>

using namespace oru::test;
using nlohmann::json;
using testing::Contains;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::SizeIs;

namespace {

class EndToEnd : public SimulatedTest {
protected:
    EndToEnd() { startServices(); }

    /// A run of oructl that is done, and its output.
    std::string done(const Arguments &arguments) const
    {
        const Transcript run = this->run(arguments);
        EXPECT_EQ(run.exit, 0) << testing::PrintToString(arguments) << run.err;
        return run.out;
    }

    /// A commit, which both services have taken when this returns.
    void commit()
    {
        done({"commit"});
        EXPECT_TRUE(services_->waitFor("AA: reloaded /var/1x.conf: ")) << services_->output();
        EXPECT_TRUE(services_->waitFor("WSM: reloaded /var/wsmDefaults: ")) << services_->output();
    }

    /// What the services have reported until their end, which comes now.
    std::string wholeLog()
    {
        control("quit"); // behind what came before it
        EXPECT_EQ(services_->end(), 0);
        return services_->output();
    }

    void secureBss(const std::string &bss)
    {
        done({"set", "security", bss, "wpa2", "psk"});
        EXPECT_EQ(runWithInput("secret of the house\n", {"set", "psk", bss, "-"}).exit, 0);
    }

    std::set<std::string> stations() const
    {
        std::set<std::string> addresses;
        const json object = jsonOf({"--json", "show", "stations", "0", "0"}, 0);
        for (const json &row : object["rows"]) addresses.insert(row["mac"]);
        return addresses;
    }

    int64_t counter(const std::string &name) const
    {
        return jsonOf({"--json", "stats", "get", name, "0"}, 0)["value"];
    }
};

TEST_F(EndToEnd, ACommitOfAnIncompleteBssIsRefusedAndReachesNoService)
{
    done({"set", "security", "0", "wpa2", "psk"});
    const Transcript run = this->run({"commit"});
    EXPECT_EQ(run.exit, 6);
    EXPECT_THAT(run.err, HasSubstr("no key of BSS 0 is stored; set one with: oructl set psk 0 -"));
    EXPECT_THAT(wholeLog(), Not(HasSubstr("reloaded")));
}

TEST_F(EndToEnd, ABssWithAKeyAndAChannelReachTheServices)
{
    secureBss("0");
    write("/key", "secret of the guests\n");
    done({"set", "security", "1", "wpa-mixed", "psk"});
    done({"set", "psk", "1", "@" + root() + "/key"});
    done({"set", "ssid", "1", "Lobby"});
    done({"set", "assign", "1", "1", "on"});

    const Transcript radar = run({"set", "channel", "1", "52"});
    EXPECT_EQ(radar.exit, 1);
    EXPECT_THAT(radar.err, HasSubstr("switch it off with: oructl set radar-detect 1 off"));
    done({"set", "radar-detect", "1", "off"});
    done({"set", "channel", "1", "52"});
    commit();

    const json radio = jsonOf({"--json", "show", "radios"}, 0)["rows"][1];
    EXPECT_EQ(radio["element3"], 52);
    EXPECT_THAT(done({"show", "bss-list", "1"}), HasSubstr("\"Lobby\""));
    EXPECT_THAT(done({"show", "bss", "1"}), HasSubstr("security.mode               "
                                                      "wpa-mixed\n"));
    EXPECT_THAT(done({"show", "bss-info", "0"}), HasSubstr("security-text  \"WPA2 \"\n"));
    const std::string log = wholeLog();
    EXPECT_THAT(log, HasSubstr("radio1.configuredChannel: 36 -> 52"));
    EXPECT_THAT(log, HasSubstr("AA: bss 0: WPA2 with a pre-shared key"));
    EXPECT_THAT(log, Not(HasSubstr("secret of"))) << "never in a log";
}

TEST_F(EndToEnd, StationsComeWithTimeAndOneIsSentAway)
{
    secureBss("0");
    commit();
    EXPECT_EQ(done({"show", "stations", "0", "0"}), "no stations\n");
    control("station add 0 02:00:00:00:00:01");
    control("station add 0 02:00:00:00:00:02");
    control("stations 8");
    control("advance 60000");
    const std::set<std::string> before = stations();
    EXPECT_THAT(before, Contains("02:00:00:00:00:01"));
    EXPECT_THAT(before, Contains("02:00:00:00:00:02"));
    EXPECT_THAT(done({"show", "stats", "0", "02:00:00:00:00:01"}), HasSubstr("\"rxPackets\""));
    EXPECT_GT(before.size(), 2u) << "others came on their own: " << services_->output();

    done({"disassoc", "02:00:00:00:00:01"});
    EXPECT_TRUE(services_->waitFor("leaves: disassociated"));
    EXPECT_THAT(stations(), Not(Contains("02:00:00:00:00:01")));
    EXPECT_THAT(stations(), Contains("02:00:00:00:00:02"));
}

TEST_F(EndToEnd, CountersStandStillWhileTheRadioIsDown)
{
    control("station add 0 02:00:00:00:00:01");
    control("advance 10000");
    const int64_t first = counter("txPackets");
    EXPECT_GT(first, 0);
    control("advance 10000");
    EXPECT_GT(counter("txPackets"), first);

    done({"radio", "down", "0"});
    EXPECT_THAT(stations(), IsEmpty());
    const std::string stopped = done({"show", "stats", "0"});
    control("advance 60000");
    EXPECT_EQ(done({"show", "stats", "0"}), stopped);

    const int64_t beacons = counter("beacons");
    done({"radio", "up", "0"});
    control("advance 10000");
    EXPECT_GT(counter("beacons"), beacons);
}

TEST_F(EndToEnd, AStationIsEnrolledByItsPin)
{
    control("wps peer off");
    const Arguments status = {"wps", "status", "0", "0"};
    EXPECT_EQ(runWithInput("12345671\n", {"wps", "enroll", "pin", "0", "0", "-"}).exit, 0);
    EXPECT_EQ(done(status), "result = invalid-checksum (201)\n");
    EXPECT_EQ(runWithInput("12345670\n", {"wps", "enroll", "pin", "0", "0", "-"}).exit, 0);
    EXPECT_EQ(done(status), "result = in-progress (1)\n");
    EXPECT_THAT(stations(), IsEmpty());
    control("wps peer on");
    control("advance 10000");
    EXPECT_EQ(done({"wps", "status", "0", "0", "--wait"}), "result = success (0)\n");
    EXPECT_THAT(stations(), SizeIs(1));
    EXPECT_THAT(wholeLog(), Not(HasSubstr("1234567"))) << "never in a log";
}

} // namespace
