// The world of the simulator, as the library sees it, and by itself.
#include "living.hpp"
#include "orusim/radiofacts.hpp"

#include <algorithm>
#include <random>

namespace orusim::test {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::Not;
using ::testing::StartsWith;

constexpr char kMac[] = "02:00:00:00:00:07";
constexpr Address kAddress{2, 0, 0, 0, 0, 7};

class WorldTest : public LivingTest {
protected:
    OruSdkStationParam stations(uint8_t bss, uint8_t radio)
    {
        OruSdkStationParam param{};
        param.bssIndex[1] = bss;
        param.radioIndex[1] = radio;
        EXPECT_EQ(call([&] { return oruSdkGetStationParam(&param); }), 0u);
        return param;
    }
    std::string radioStats(uint8_t radio, uint32_t code = 0)
    {
        OruSdkRadioStatsParam param{radio, 0, {}};
        EXPECT_EQ(call([&] { return oruSdkGetRadioStats(&param); }), code);
        return param.statsStr;
    }
    std::string stationStats(uint8_t radio, const Address &address, uint32_t code = 0)
    {
        OruSdkStaStatsParam param{radio, 0, {}, {}};
        std::ranges::copy(address, param.macAddr);
        EXPECT_EQ(call([&] { return oruSdkGetStaStats(&param); }), code);
        return param.statsStr;
    }
    uint32_t setAdmin(uint16_t radio, uint32_t status)
    {
        OruSdkFeatureParam param{};
        param.radioIndex = radio;
        param.activationFlag = status;
        return call([&] { return oruSdkSetAdminStatus(&param); });
    }
};

int32_t counter(const std::string &text, const char *name)
{
    return oruSdkGetStatsValue(name, text.c_str());
}

// ---- Radio information

TEST_F(WorldTest, TellsTheRadiosOfTheUsProduct)
{
    OruSdkRadioInfo info[100]{};
    ASSERT_EQ(call([&] { return oruSdkGetRadioInfo(info); }), 0u);
    ASSERT_EQ(number(info->radioCount), 2u);
    for (uint16_t radio = 0; radio < 2; ++radio) {
        const OruSdkRadioInfoEntry &entry = info->entries[radio];
        EXPECT_EQ(std::string(entry.countryCode, 3), "US ");
        EXPECT_EQ(entry.attr1, radio);
        EXPECT_EQ(entry.attr3, 256);
        EXPECT_NE(entry.bandSupport[2], 0);
        ASSERT_EQ(entry.channelCount, 34);
        EXPECT_EQ(entry.channels[10], 11);
        EXPECT_EQ(entry.channels[11], 36);
        EXPECT_EQ(entry.channels[33], 161);
    }
}

TEST_F(WorldTest, TurnsIntoAnotherProductWhenItsRadiosChange)
{
    ASSERT_EQ(initialise(kFactory, false, {}, "bg"), "");
    OruSdkRadioInfo info[100]{};
    ASSERT_EQ(call([&] { return oruSdkGetRadioInfo(info); }), 0u);
    EXPECT_EQ(info->entries[0].bandSupport[2], 0) << "2.4 GHz alone";
    EXPECT_EQ(info->entries[0].channelCount, 11);

    ASSERT_EQ(initialise(kFactory, false, {}, "jp"), "");
    ASSERT_EQ(call([&] { return oruSdkGetRadioInfo(info); }), 0u);
    EXPECT_EQ(std::string(info->entries[1].countryCode, 3), "JP ");
    EXPECT_EQ(info->entries[1].channels[13], 14);
    EXPECT_NE(initialise(kFactory, false, {}, "xx"), "");
}

TEST_F(WorldTest, KeepsTheRadiosWhenNoProductIsNamed)
{
    box.write("/config/orusim.radios", "country=x\n");
    ASSERT_EQ(initialise(kFactory, false, {}), "");
    EXPECT_EQ(box.read("/config/orusim.radios"), "country=x\n");
    ASSERT_EQ(initialise(kFactory, true, {}), "");
    EXPECT_THAT(box.read("/config/orusim.radios"), HasSubstr("country=\"US \"\n"));
}

TEST_F(WorldTest, TakesTheRadiosOfTheFileToTheirBounds)
{
    std::string channels;
    for (int i = 0; i < 59; ++i) channels += std::to_string(197 + i) + ", ";
    const std::string rest = "country=DEO\nbandSupport=0,1,2,255\nradio1.channels=\n";
    box.write("/config/orusim.radios", rest + "radio0.channels=" + channels + "\n");
    std::string error;
    const auto facts = RadioFacts::load(error);
    ASSERT_TRUE(facts) << error;
    EXPECT_EQ(facts->channels[0].size(), 59u);
    EXPECT_EQ(facts->channels[0].back(), 255);
    EXPECT_TRUE(facts->channels[1].empty());
    EXPECT_THAT(facts->bands, ElementsAre(0, 1, 2, 255));

    OruSdkRadioInfo info[100]{};
    ASSERT_EQ(call([&] { return oruSdkGetRadioInfo(info); }), 0u);
    EXPECT_EQ(info->entries[0].channelCount, 59);
    EXPECT_EQ(info->entries[1].channelCount, 0);
}

TEST_F(WorldTest, AnswersAsTheUsProductWhenTheFileSaysWhatCantBe)
{
    const std::string good = "country=\"US \"\nbandSupport=1 1 1 1\nradio0.channels=1\n"
                             "radio1.channels=1\n";
    std::string many;
    for (int i = 0; i < 60; ++i) many += "1 ";
    for (const std::string &bad :
         {std::string("country=\"US\"\n"), std::string("country=USAA\n"),
          std::string("bandSupport=1 1 1\n"), std::string("bandSupport=1 1 1 256\n"),
          std::string("bandSupport=1 1 1 1 1\n"), std::string("radio1.channels=-1\n"),
          std::string("radio0.channels=1x\n"), "radio0.channels=" + many + "\n"}) {
        box.write("/config/orusim.radios", good + bad);
        std::string error;
        EXPECT_FALSE(RadioFacts::load(error)) << bad;
        EXPECT_NE(error, "") << bad;
    }
    box.write("/config/orusim.radios", good);
    std::string error;
    EXPECT_TRUE(RadioFacts::load(error)) << error;

    fs::remove(box.at("/config/orusim.radios"));
    OruSdkRadioInfo info[100]{};
    ASSERT_EQ(call([&] { return oruSdkGetRadioInfo(info); }), 0u);
    EXPECT_EQ(info->entries[0].channelCount, 34);
    EXPECT_THAT(lines, Contains("WSM:   /config/orusim.radios: can't be read, answering as the US "
                                "product"));
}

// ---- Tables

TEST_F(WorldTest, TellsTheRadiosAndTheirBsses)
{
    OruSdkRadioParam radios{};
    ASSERT_EQ(call([&] { return oruSdkGetRadioParam(&radios); }), 0u);
    ASSERT_EQ(number(radios.numRadios), 2u);
    const OruSdkRadioEntry &second = radios.radios[1];
    EXPECT_EQ(number(second.element1), 1u);
    EXPECT_STREQ(second.element2, "5 GHz");
    EXPECT_EQ(number(second.element3), 36u) << "channel";
    EXPECT_EQ(number(second.element8), 1u) << "up";
    EXPECT_EQ(number(second.element4), 0u) << "transmit power";
    EXPECT_EQ(number(second.element277), 0u) << "secondary channel";
    EXPECT_EQ(number(second.element6), 0u) << "stations";
    EXPECT_EQ(oruAsfGet16(second.element18), 100) << "beacon period";
    EXPECT_EQ(number(second.bss[0].element17), 0u);
    EXPECT_STREQ(second.bss[0].bssid, "02:6f:72:75:01:00");
    EXPECT_STREQ(second.bss[1].bssid, "");
}

TEST_F(WorldTest, ChangesWithACommitAlone)
{
    Box::set("/var/wsmDefaults", "radio0.configuredChannel", "11");
    Box::set("/var/wsmDefaults", "bss2.radio", "1");
    Box::set("/var/wsmDefaults", "bss2.ssId", "guests of the house");
    OruSdkRadioParam radios{};
    OruSdkBssListParam list{};
    ASSERT_EQ(call([&] { return oruSdkGetRadioParam(&radios); }), 0u);
    ASSERT_EQ(call([&] { return oruSdkGetBssListParam(&list); }), 0u);
    EXPECT_EQ(number(radios.radios[0].element3), 6u);
    EXPECT_EQ(list.numBss, 1u);

    commit();
    ASSERT_EQ(call([&] { return oruSdkGetRadioParam(&radios); }), 0u);
    ASSERT_EQ(call([&] { return oruSdkGetBssListParam(&list); }), 0u);
    EXPECT_EQ(number(radios.radios[0].element3), 11u);
    EXPECT_EQ(list.numBss, 2u);
    EXPECT_EQ(number(list.bss[1].element17), 2u);
    EXPECT_STREQ(list.bss[1].ssid, "guests of the house");
    EXPECT_STREQ(list.bss[1].bssid, "02:6f:72:75:00:02");
    EXPECT_EQ(oruAsfGet16(list.element18), 100);
}

TEST_F(WorldTest, HasFourBssesOnEachRadioAtMost)
{
    for (const char *key : {"bss1.radio", "bss2.radio", "bss3.radio"})
        Box::set("/var/wsmDefaults", key, "255");
    commit();
    OruSdkRadioParam radios{};
    ASSERT_EQ(call([&] { return oruSdkGetRadioParam(&radios); }), 0u);
    EXPECT_STREQ(radios.radios[1].bss[3].bssid, "02:6f:72:75:01:03");
    OruSdkBssListParam list{};
    list.radioIndex = 1;
    ASSERT_EQ(call([&] { return oruSdkGetBssListParam(&list); }), 0u);
    EXPECT_EQ(list.numBss, 4u);
    EXPECT_EQ(oruAsfGet16(list.element1), 1);
    list.radioIndex = 2;
    ASSERT_EQ(call([&] { return oruSdkGetBssListParam(&list); }), 0u);
    EXPECT_EQ(list.numBss, 0u) << "there is no such radio";
}

TEST_F(WorldTest, HearsNeighboursWhileARadioIsUp)
{
    OruSdkScanlistParam list{};
    ASSERT_EQ(call([&] { return oruSdkGetScanlistParam(&list); }), 0u);
    const uint32_t count = number(list.numEntries);
    EXPECT_EQ(count, world().scanList().size());
    ASSERT_GE(count, 5u);
    EXPECT_EQ(hex(world().scanList()[0].bssid), list.entries[0].bssid);
    EXPECT_EQ(world().scanList()[0].ssid, list.entries[0].ssid);

    ASSERT_EQ(setAdmin(0, 0), 0u);
    ASSERT_EQ(setAdmin(1, 0), 0u);
    ASSERT_EQ(call([&] { return oruSdkGetScanlistParam(&list); }), 0u);
    EXPECT_EQ(number(list.numEntries), 0u);
}

// ---- Stations

TEST_F(WorldTest, ListsTheStationsOfABss)
{
    EXPECT_EQ(command(std::string("station add 0 ") + kMac + " 1"), "ok\n");
    EXPECT_EQ(command("station add 0 02:00:00:00:00:08 1"), "ok\n");
    const OruSdkStationParam on = stations(0, 1);
    ASSERT_EQ(number(on.numStations), 2u);
    EXPECT_STREQ(on.stations[0].macAddr, kMac);
    EXPECT_EQ(number(on.stations[0].staId), 1u);
    EXPECT_EQ(number(on.stations[1].staId), 2u);
    EXPECT_EQ(number(stations(0, 0).numStations), 0u);
    EXPECT_EQ(number(stations(1, 1).numStations), 0u);
}

TEST_F(WorldTest, CarriesAsManyStationsAsOneAnswerMay)
{
    Box::set("/var/wsmDefaults", "bss0.radio", "1");
    commit();
    EXPECT_EQ(command("stations 256"), "ok\n");
    EXPECT_EQ(number(stations(0, 0).numStations), 256u);
    EXPECT_THAT(command(std::string("station add 0 ") + kMac), StartsWith("error: "));
    EXPECT_THAT(command("stations 257"), StartsWith("error: "));
    EXPECT_EQ(command("stations 3"), "ok\n");
    EXPECT_EQ(number(stations(0, 0).numStations), 3u);
}

TEST_F(WorldTest, CountersRise)
{
    command(std::string("station add 0 ") + kMac);
    pass(1000);
    const std::string first = stationStats(0, kAddress);
    const std::string firstRadio = radioStats(0);
    pass(5000);
    const std::string second = stationStats(0, kAddress);
    const std::string secondRadio = radioStats(0);
    for (const char *name : {"txPackets", "txBytes", "rxPackets", "rxBytes"}) {
        EXPECT_GT(counter(first, name), 0) << name;
        EXPECT_GT(counter(second, name), counter(first, name)) << name;
        EXPECT_GT(counter(secondRadio, name), counter(firstRadio, name)) << name;
    }
    EXPECT_EQ(counter(second, "connected"), 6);
    EXPECT_LT(counter(second, "signal"), -30);
    EXPECT_GE(counter(second, "signal"), -90);
    EXPECT_EQ(counter(firstRadio, "beacons"), 9) << "of 102.4 ms";
    EXPECT_EQ(counter(secondRadio, "beacons"), 58);
    EXPECT_EQ(counter(secondRadio, "channel"), 6);
    EXPECT_EQ(counter(secondRadio, "stations"), 1);
}

TEST_F(WorldTest, EveryCounterIsFoundByItsName)
{
    command(std::string("station add 0 ") + kMac);
    pass(1000);
    for (const std::string &text : {stationStats(0, kAddress), radioStats(0)}) {
        const auto all = words(text);
        ASSERT_EQ(all.size() % 2, 0u) << text;
        for (size_t i = 0; i < all.size(); i += 2)
            EXPECT_EQ(std::to_string(counter(text, std::string(all[i]).c_str())), all[i + 1]);
    }
}

TEST_F(WorldTest, HasNoStatisticsOfWhatIsNotThere)
{
    EXPECT_EQ(radioStats(2, 1), "no such radio");
    EXPECT_EQ(stationStats(2, kAddress, 1), "no such radio");
    EXPECT_EQ(stationStats(0, kAddress, 1), "no such station");
    command(std::string("station add 0 ") + kMac + " 1");
    EXPECT_EQ(stationStats(0, kAddress, 1), "no such station") << "it is on the other radio";
    EXPECT_THAT(stationStats(1, kAddress), StartsWith("signal -"));
}

TEST_F(WorldTest, DisassociationRemovesTheStation)
{
    command(std::string("station add 0 ") + kMac);
    EXPECT_EQ(call([] { return sendDisAssocReq(kAddress.data()); }), 0u);
    EXPECT_EQ(number(stations(0, 0).numStations), 0u);
    EXPECT_THAT(lines, Contains("WSM: station 02:00:00:00:00:07 of bss 0 on radio 0 leaves: "
                                "disassociated"));

    // The bytes of both answers: the address, then the result.
    command(std::string("station add 0 ") + kMac);
    const Bytes request{0x01, 0x06, 0, 20, 0, 0, 0x4e, 0x20, 0, 12, 0, 7, 0, 6, 2, 0, 0, 0, 0, 7};
    Bytes expected{0x01, 0x07, 0, 30, 0, 0, 0, 0, 0,  12, 0, 7, 0, 6, 2,
                   0,    0,    0, 0,  7, 0, 3, 0, 10, 0,  4, 0, 0, 0, 0};
    EXPECT_EQ(sim->wsm().receive(request).answer, expected);
    expected.back() = 1;
    EXPECT_EQ(sim->wsm().receive(request).answer, expected) << "there is no such station now";
}

TEST_F(WorldTest, ARadioThatIsDownHasNoStationsAndCountsNothing)
{
    command(std::string("station add 0 ") + kMac);
    command("station add 0 02:00:00:00:00:08 1");
    pass(1000);
    ASSERT_EQ(setAdmin(0, 0), 0u);
    EXPECT_EQ(number(stations(0, 0).numStations), 0u);
    EXPECT_EQ(number(stations(0, 1).numStations), 1u) << "the other radio goes on";
    const std::string before = radioStats(0);
    pass(5000);
    EXPECT_EQ(radioStats(0), before);
    EXPECT_EQ(command(std::string("station add 0 ") + kMac + " 0"),
              "error: the BSS is not on the air\n");
    EXPECT_EQ(command(std::string("station add 0 ") + kMac), "ok\n") << "on the other radio";

    ASSERT_EQ(setAdmin(0, 1), 0u);
    pass(1000);
    EXPECT_NE(radioStats(0), before);
}

TEST_F(WorldTest, ACommitSendsTheStationsOfAChangedBssAway)
{
    command(std::string("station add 0 ") + kMac);
    commit();
    EXPECT_EQ(world().stations().size(), 1u);
    Box::set("/var/wsmDefaults", "bss0.ssId", "another");
    commit();
    EXPECT_EQ(world().stations().size(), 0u);

    command(std::string("station add 0 ") + kMac);
    Box::set("/var/wsmDefaults", "bss0.radio", "2");
    commit();
    EXPECT_EQ(world().stations().size(), 0u);
}

TEST_F(WorldTest, StationsComeAndGo)
{
    start(1, 5);
    std::vector<Address> first;
    for (const Station &station : world().stations()) first.push_back(station.address);
    ASSERT_EQ(first.size(), 5u);

    pass(59'000);
    EXPECT_TRUE(std::ranges::all_of(first, [&](const Address &a) { return world().find(a); }))
        << "nobody stays for less than a minute";
    pass(541'000);
    EXPECT_TRUE(std::ranges::none_of(first, [&](const Address &a) { return world().find(a); }))
        << "nobody stays for more than ten minutes";
    pass(60'000);
    EXPECT_GE(world().stations().size(), 1u) << "others have come";
    EXPECT_LE(world().stations().size(), 5u);
}

TEST_F(WorldTest, AStationThatWasAddedStays)
{
    command(std::string("station add 0 ") + kMac);
    EXPECT_EQ(command("advance 86400000"), "ok\n");
    EXPECT_NE(world().find(kAddress), nullptr);
    EXPECT_EQ(command(std::string("station remove ") + kMac), "ok\n");
    EXPECT_EQ(world().find(kAddress), nullptr);
}

std::string portrait(const World &world)
{
    std::string text;
    for (const Station &s : world.stations())
        text += format("%s %zu %zu %u %d %llu\n", hex(s.address).c_str(), s.bss, s.radio, s.id,
                       s.signal, static_cast<unsigned long long>(s.counters.txBytes));
    for (const Neighbour &n : world.scanList()) text += hex(n.bssid) + n.ssid + '\n';
    return text;
}

TEST_F(WorldTest, TheSameSeedGivesTheSameWorldHoweverTimePasses)
{
    start(7, 6);
    for (int i = 0; i < 1000; ++i) pass(457);
    const std::string inSteps = portrait(world());
    start(7, 6);
    pass(457'000);
    EXPECT_EQ(portrait(world()), inSteps);
    start(7, 6);
    command("advance 457000");
    EXPECT_EQ(portrait(world()), inSteps);
    start(8, 6);
    pass(457'000);
    EXPECT_NE(portrait(world()), inSteps);
}

TEST_F(WorldTest, ASpeedMakesTheWorldRunFasterAndLeavesFaultsAlone)
{
    sim.reset();
    sim = std::make_unique<Simulator>(Simulator::Options{.log = {}, .speed = 60}, clock);
    ASSERT_EQ(sim->start(), "");
    command(std::string("station add 0 ") + kMac);
    pass(1000);
    EXPECT_EQ(counter(stationStats(0, kAddress), "connected"), 60);
    EXPECT_EQ(sim->worldMs(), 60'000);

    command("fault wsm slow 500");
    const Caller caller(kWsmPort);
    ASSERT_TRUE(caller.send(adminStatus(0, 1)));
    sim->runOnce(0);
    pass(499);
    EXPECT_FALSE(caller.ready());
    pass(1);
    EXPECT_TRUE(caller.ready());
}

TEST_F(WorldTest, OutlivesAClockThatJumps)
{
    start(1, 4);
    pass(int64_t{40} * 365 * 24 * 3600 * 1000);
    EXPECT_GE(counter(radioStats(0), "beacons"), 86400 * 9);
    pass(1000);
}

// ---- Commands

TEST_F(WorldTest, RefusesCommandsThatAreNone)
{
    command(std::string("station add 0 ") + kMac);
    for (const char *text : {"station",
                             "station add",
                             "station add 0",
                             "station add 0 x",
                             "station add x 02:00:00:00:00:09",
                             "station add 4 02:00:00:00:00:09",
                             "station add 4294967295 02:00:00:00:00:09",
                             "station add 1 02:00:00:00:00:09",
                             "station add 0 02:00:00:00:00:09 2",
                             "station add 0 02:00:00:00:00:09 x",
                             "station add 0 02:00:00:00:00:07",
                             "station add 0 01:00:00:00:00:09",
                             "station add 0 00:00:00:00:00:00",
                             "station add 0 02:00:00:00:00:0",
                             "station add 0 02:00:00:00:00:0g",
                             "station add 0 02-00-00-00-00-09",
                             "station add 0 02:00:00:00:00:09 1 1",
                             "station remove",
                             "station remove 02:00:00:00:00:08",
                             "station remove x",
                             "station move 02:00:00:00:00:07",
                             "stations",
                             "stations x",
                             "stations 1 2",
                             "stations -1",
                             "advance",
                             "advance x",
                             "advance -1",
                             "advance 86400001",
                             "wps",
                             "wps peer",
                             "wps peer maybe",
                             "wps on"})
        EXPECT_THAT(command(text), StartsWith("error: ")) << text;
    EXPECT_EQ(world().stations().size(), 1u);
    EXPECT_EQ(sim->worldMs(), 0);
}

TEST_F(WorldTest, StatusTellsWhatIsOnTheAir)
{
    Box::set("/var/wsmDefaults", "bss0.suppressSSIDFlag", "1");
    commit();
    command(std::string("station add 0 ") + kMac);
    ASSERT_EQ(setAdmin(1, 0), 0u);
    EXPECT_THAT(command("status"), HasSubstr("radio 0: up, channel 6, 1 stations\n"
                                             "  bss 0: oru (hidden), WPS none\n"
                                             "radio 1: down, channel 36, 0 stations\n"));
}

// ---- Faults and hostile bytes

struct RequestRow {
    const char *name;
    Bytes bytes;
};

const RequestRow kRequests[] = {
    {"256", {1, 0, 0, 8, 0, 0, 0x4e, 0x20}},
    {"258", {1, 2, 0, 24, 0, 0, 0x4e, 0x20, 0, 2, 0, 17, 0, 2, 0, 0, 0, 2, 0, 1, 0, 2, 0, 0}},
    {"260", {1, 4, 0, 8, 0, 0, 0x4e, 0x20}},
    {"262", {1, 6, 0, 20, 0, 0, 0x4e, 0x20, 0, 12, 0, 7, 0, 6, 2, 0, 0, 0, 0, 7}},
    {"266", {1, 10, 0, 8, 0, 0, 0x4e, 0x20}},
    {"273", {1, 17, 0, 6, 0, 0}},
    {"275", {1, 19, 0, 12, 0, 0, 2, 0, 0, 0, 0, 7}},
    {"278 by button", {1, 22, 0, 20, 0, 0, 0x4e, 0x20, 0, 0, 0, 0, 0, 2, 0, 12, 0, 2, 0, 1}},
    {"278 by PIN", {1, 22, 0,  26, 0, 0,   0x4e, 0x20, 0,   0,   0,   0,   0,
                    8, 0,  11, 0,  8, '1', '2',  '3',  '4', '5', '6', '7', '0'}},
    {"280 status", {1, 24, 0, 16, 0, 0, 0, 0, 0, 2, 0, 16, 0, 2, 0, 1}},
    {"280 generate", {1, 24, 0, 16, 0, 0, 0, 0, 0, 2, 0, 15, 0, 2, 0, 1}},
    {"280 PIN",
     {1, 24, 0, 26, 0, 0, 0, 0, 0, 8, 0, 14, 0, 4, '1', '2', '3', '4', 0, 2, 0, 17, 0, 2, 0, 0}},
    {"283", {1, 27, 0, 16, 0, 0, 0x4e, 0x20, 0, 2, 0, 1, 0, 2, 0, 0}},
};

Bytes withLength(Bytes message)
{
    if (message.size() >= 4) message[3] = static_cast<uint8_t>(message.size());
    return message;
}

TEST_F(WorldTest, RefusesEveryCutOfEveryRequest)
{
    for (const auto &[name, bytes] : kRequests) {
        EXPECT_TRUE(sim->wsm().receive(bytes).answer) << name;
        for (size_t length = 0; length < bytes.size(); ++length) {
            const Bytes cut(bytes.data(), bytes.data() + length);
            EXPECT_TRUE(sim->wsm().receive(cut).close) << name << ' ' << length;
            EXPECT_TRUE(sim->wsm().receive(withLength(cut)).close) << name << ' ' << length;
        }
        Bytes longer = bytes;
        longer.push_back(0);
        EXPECT_TRUE(sim->wsm().receive(withLength(longer)).close) << name;
    }
}

TEST_F(WorldTest, OutlivesRequestsWithBytesChanged)
{
    std::mt19937 random(2006);
    command("stations 8");
    for (int i = 0; i < 20000; ++i) {
        Bytes message = kRequests[random() % std::size(kRequests)].bytes;
        for (unsigned n = random() % 4; n > 0; --n)
            message[4 + random() % (message.size() - 4)] = static_cast<uint8_t>(random());
        sim->wsm().receive(message);
        if (i % 100 == 0) pass(700);
    }
    EXPECT_THAT(radioStats(0), StartsWith("channel 6 "));
}

TEST_F(WorldTest, FaultsStrikeEveryRequest)
{
    for (const auto &[name, bytes] : kRequests) {
        command("fault wsm close");
        EXPECT_TRUE(sim->wsm().receive(bytes).close) << name;
        command("fault wsm silent");
        EXPECT_FALSE(sim->wsm().receive(bytes).answer) << name;
        command("fault wsm slow 500");
        EXPECT_EQ(sim->wsm().receive(bytes).delayMs, 500) << name;
        command("fault wsm cut 3");
        EXPECT_EQ(sim->wsm().receive(bytes).answer.value_or(Bytes{}).size(), 3u) << name;
        command("fault wsm wrong");
        const Bytes wrong = sim->wsm().receive(bytes).answer.value_or(Bytes{});
        ASSERT_GE(wrong.size(), 14u) << name;
        EXPECT_EQ(Bytes(wrong.end() - 10, wrong.end()), (Bytes{0, 3, 0, 3, 0, 4, 0, 0, 0, 0}))
            << name;
    }
}

TEST_F(WorldTest, AWrongElementFailsTheLibrarysReaders)
{
    command("fault wsm wrong");
    OruSdkRadioParam radios{};
    OruSdkStationParam stations{};
    OruSdkScanlistParam scan{};
    OruSdkBssListParam bsses{};
    EXPECT_EQ(call([&] { return oruSdkGetRadioParam(&radios); }), 48u);
    EXPECT_EQ(call([&] { return oruSdkGetStationParam(&stations); }), 48u);
    EXPECT_EQ(call([&] { return oruSdkGetScanlistParam(&scan); }), 48u);
    EXPECT_EQ(call([&] { return oruSdkGetBssListParam(&bsses); }), 48u);
    EXPECT_EQ(call([] { return sendDisAssocReq(kAddress.data()); }), 48u);
    EXPECT_EQ(call([] { return sendWscEnroll(1, 0, 0, ""); }), 119u);
    uint32_t result = 0;
    EXPECT_EQ(call([&] { return oruSdkGetWscStatus(0, 0, &result); }), 119u);
}

} // namespace
} // namespace orusim::test
