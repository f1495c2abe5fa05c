#include "oruSdk.h"
#include "support/accesspoint.hpp"
#include "support/sweep.hpp"

#include <gmock/gmock.h>

#include <cerrno>
#include <sys/socket.h>

namespace oru::test {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::SizeIs;

/// Calls the setter with a command line of its own; the arguments are those from argv[3] on.
uint32_t set(std::vector<std::string> arguments)
{
    arguments.insert(arguments.begin(), {"set", "ether", "vlan"});
    std::vector<char *> argv;
    for (std::string &argument : arguments) argv.push_back(argument.data());
    return oruSdkSetEtherVlanId(static_cast<int32_t>(argv.size()), argv.data());
}

std::string slotKey(const std::string &port, int slot)
{
    return "eth" + port + ".vid" + std::to_string(slot);
}

struct EtherVlan : AccessPointTest {
    EtherVlan()
    {
        box.set(kWsm, "eth1.pvid", "1");
        for (int slot = 0; slot < 15; ++slot) box.set(kWsm, slotKey("1", slot), "99");
        standIn.calls.clear();
    }
    void TearDown() override
    {
        AccessPointTest::TearDown();
        EXPECT_EQ(standIn.openSockets(), 0);
    }
    std::vector<std::string> slots(const std::string &port) const
    {
        std::vector<std::string> values;
        for (int slot = 0; slot < 15; ++slot)
            values.push_back(box.value(kWsm, slotKey(port, slot)).value_or("-"));
        return values;
    }
};

TEST_F(EtherVlan, WritesThePortVlanAndTheSlotsAndClearsTheRest)
{
    EXPECT_EQ(set({"1", "12", "10", "20", "0", "30"}), 0u);
    EXPECT_EQ(box.value(kWsm, "eth1.pvid"), "12");
    std::vector<std::string> expected(15, "0");
    expected[0] = "10";
    expected[1] = "20";
    expected[3] = "30";
    EXPECT_EQ(slots("1"), expected);
    EXPECT_EQ(box.value(kWsm, slotKey("1", 15)), std::nullopt);
    EXPECT_NOTHING_LOGGED();
}

TEST_F(EtherVlan, WithoutVlansClearsEverySlot)
{
    EXPECT_EQ(set({"1", "5"}), 0u);
    EXPECT_EQ(box.value(kWsm, "eth1.pvid"), "5");
    EXPECT_EQ(slots("1"), std::vector<std::string>(15, "0"));
}

TEST_F(EtherVlan, OtherPortsStay)
{
    box.set(kWsm, "eth0.pvid", "3");
    for (int slot = 0; slot < 15; ++slot) box.set(kWsm, slotKey("0", slot), "7");
    EXPECT_EQ(set({"1", "5", "6"}), 0u);
    EXPECT_EQ(box.value(kWsm, "eth0.pvid"), "3");
    EXPECT_EQ(slots("0"), std::vector<std::string>(15, "7"));
}

TEST_F(EtherVlan, MoreArgumentsThanSlotsMakeKeysBeyondSlot14)
{
    std::vector<std::string> arguments{"1", "5"};
    for (int i = 0; i < 300; ++i) arguments.push_back(std::to_string(1000 + i));
    EXPECT_EQ(set(arguments), 0u);
    for (const int slot : {0, 14, 15, 16, 299})
        EXPECT_EQ(box.value(kWsm, slotKey("1", slot)), std::to_string(1000 + slot)) << slot;
    EXPECT_EQ(box.value(kWsm, slotKey("1", 300)), std::nullopt);
}

TEST_F(EtherVlan, SlotsAreStoredAsTheyStandAndTouchNoOtherKey)
{
    const std::vector<std::string> texts{"abc", "",    " 1 ",      "1\nbss0.wvid=9",      "\"", "#",
                                         "=",   "a\\", "\xff\x01", std::string(9000, 'x')};
    std::vector<std::string> arguments{"1", "5"};
    arguments.insert(arguments.end(), texts.begin(), texts.end());
    const auto wvid = box.value(kWsm, "bss0.wvid");
    EXPECT_EQ(set(arguments), 0u);
    for (size_t i = 0; i < texts.size(); ++i)
        EXPECT_EQ(box.value(kWsm, slotKey("1", static_cast<int>(i))), texts[i]);
    EXPECT_EQ(box.value(kWsm, "bss0.wvid"), wvid);
    EXPECT_EQ(box.value(kWsm, slotKey("1", 14)), "0");
}

TEST_F(EtherVlan, PushesThePortVlanToTheDriverAtOnce)
{
    EXPECT_EQ(set({"1", "12", "10"}), 0u);
    ASSERT_THAT(standIn.ioctls, SizeIs(1));
    const Ioctl &seen = standIn.ioctls[0];
    EXPECT_EQ(seen.request, 0x89f0ul);
    EXPECT_EQ(seen.interface, "eth1");
    EXPECT_EQ(seen.words[0], 1u);
    EXPECT_EQ(seen.words[1], 12u);
    EXPECT_EQ(seen.socketDomain, AF_INET);
    EXPECT_EQ(seen.socketType, SOCK_STREAM);
    EXPECT_EQ(standIn.openSockets(), 0);
}

TEST_F(EtherVlan, DriverIsToldBehindThePortVlanAndBeforeTheSlots)
{
    EXPECT_EQ(set({"1", "12"}), 0u);
    ASSERT_THAT(standIn.calls, SizeIs(2 + 2 + 15 + 1));
    EXPECT_EQ(standIn.calls[1], "oruAsfDictSetString eth1.pvid");
    EXPECT_EQ(standIn.calls[2], "socket");
    EXPECT_EQ(standIn.calls[3], "ioctl");
    EXPECT_EQ(standIn.calls[4], "oruAsfDictSetString eth1.vid0");
    EXPECT_EQ(standIn.calls[18], "oruAsfDictSetString eth1.vid14");
    EXPECT_EQ(standIn.calls[19], "oruAsfDictSave /var/wsmDefaults");
}

TEST_F(EtherVlan, RefusingDriverIsLoggedWithItsErrorAndIgnored)
{
    standIn.ioctlError = EOPNOTSUPP;
    EXPECT_EQ(set({"1", "12"}), 0u);
    EXPECT_LOGGED("Ioctl failed for eth1 errno " + std::to_string(EOPNOTSUPP));
    EXPECT_EQ(box.value(kWsm, "eth1.pvid"), "12");
}

TEST_F(EtherVlan, FailedSocketIsLoggedTheSameWay)
{
    standIn.failOnly("socket");
    standIn.failAt(1);
    EXPECT_EQ(set({"1", "12"}), 0u);
    EXPECT_LOGGED("Ioctl failed for eth1 errno " + std::to_string(EMFILE));
    EXPECT_THAT(standIn.ioctls, IsEmpty());
    EXPECT_EQ(box.value(kWsm, "eth1.pvid"), "12");
}

struct Number {
    const char *text;
    const char *number;
};

TEST_F(EtherVlan, LeadingDigitsCountAndHugeNumbersAreTheNearest)
{
    for (const Number &row : {
             Number{"7", "7"},
             Number{"+7", "7"},
             Number{"-7", "-7"},
             Number{" \t\n7", "7"},
             Number{"7x9", "7"},
             Number{"007", "7"},
             Number{"0x10", "0"},
             Number{"x", "0"},
             Number{"", "0"},
             Number{"- 7", "0"},
             Number{"2147483647", "2147483647"},
             Number{"2147483648", "2147483647"},
             Number{"-2147483648", "-2147483648"},
             Number{"-2147483649", "-2147483648"},
             Number{"99999999999999999999", "2147483647"},
             Number{"-99999999999999999999", "-2147483648"},
             Number{"9223372036854775808", "2147483647"},
         }) {
        SCOPED_TRACE(row.text);
        EXPECT_EQ(set({row.text, row.text}), 0u);
        EXPECT_EQ(box.value(kWsm, std::string("eth") + row.number + ".pvid"), row.number);
        EXPECT_EQ(box.value(kWsm, slotKey(row.number, 14)), "0");
        EXPECT_EQ(standIn.ioctls.back().interface, std::string("eth") + row.number);
        EXPECT_EQ(standIn.ioctls.back().words[1], static_cast<uint32_t>(std::stoi(row.number)));
    }
    EXPECT_NOTHING_LOGGED();
}

TEST_F(EtherVlan, PortIsNotChecked)
{
    EXPECT_EQ(set({"42", "70000"}), 0u);
    EXPECT_EQ(box.value(kWsm, "eth42.pvid"), "70000");
}

TEST_F(EtherVlan, TooFewArgumentsAre2AndNothingIsRead)
{
    char text[] = "1";
    char *argv[] = {text, text, text, text, text, nullptr};
    for (const int32_t argc : {4, 3, 1, 0, -1, INT32_MIN}) {
        // Exactly argc entries: the sanitizers would see a read behind them.
        const std::vector<char *> given(argv, argv + std::max(argc, 0));
        EXPECT_EQ(oruSdkSetEtherVlanId(argc, const_cast<char **>(given.data())), 2u);
        EXPECT_LOGGED("NULL pointer");
    }
    EXPECT_EQ(oruSdkSetEtherVlanId(5, nullptr), 2u);
    EXPECT_LOGGED("NULL pointer");
    EXPECT_THAT(standIn.calls, IsEmpty());
}

TEST_F(EtherVlan, NullArgumentIs2BeforeAnythingIsDone)
{
    char text[] = "1";
    for (const int missing : {3, 4, 5, 6}) {
        std::vector<char *> argv(7, text);
        argv[static_cast<size_t>(missing)] = nullptr;
        EXPECT_EQ(oruSdkSetEtherVlanId(7, argv.data()), 2u);
        EXPECT_LOGGED("NULL pointer");
    }
    EXPECT_THAT(standIn.calls, IsEmpty());
    EXPECT_THAT(standIn.ioctls, IsEmpty());
}

TEST_F(EtherVlan, FirstThreeArgumentsAreNotLookedAt)
{
    char text[] = "1";
    char *argv[] = {nullptr, nullptr, nullptr, text, text};
    EXPECT_EQ(oruSdkSetEtherVlanId(5, argv), 0u);
    EXPECT_EQ(box.value(kWsm, "eth1.pvid"), "1");
}

TEST_F(EtherVlan, FailedSaveLeavesTheFileWithTheDriverTold)
{
    const std::string before = box.everything();
    standIn.failOnly("oruAsfDictSave");
    standIn.failAt(1);
    EXPECT_EQ(set({"1", "12", "10"}), 8u);
    EXPECT_LOGGED("Unable to write WSM Defaults file /var/wsmDefaults");
    EXPECT_EQ(box.everything(), before);
    EXPECT_THAT(standIn.ioctls, SizeIs(1));
}

// ---- Reading

struct Read {
    uint16_t vlans[15];
    uint32_t count = 99;
    uint32_t pvid = 99;
    uint32_t code;

    explicit Read(int32_t port)
    {
        std::fill(std::begin(vlans), std::end(vlans), uint16_t{0xabcd});
        code = oruSdkGetEtherVlanId(vlans, &count, &pvid, port);
    }
    std::vector<uint16_t> filled() const { return {vlans, vlans + std::min(count, 15u)}; }
};

TEST_F(EtherVlan, ReaderSkipsEmptySlots)
{
    EXPECT_EQ(set({"1", "12", "0", "10", "0", "20"}), 0u);
    const Read read{1};
    EXPECT_EQ(read.code, 0u);
    EXPECT_THAT(read.filled(), ElementsAre(10, 20));
    EXPECT_EQ(read.pvid, 12u);
    EXPECT_EQ(read.vlans[2], 0xabcd);
}

TEST_F(EtherVlan, ReaderTakesNoSlotAndAll15)
{
    EXPECT_EQ(set({"1", "12"}), 0u);
    EXPECT_THAT(Read{1}.filled(), IsEmpty());
    std::vector<std::string> arguments{"1", "12"};
    for (int i = 1; i <= 16; ++i) arguments.push_back(std::to_string(i));
    EXPECT_EQ(set(arguments), 0u);
    const Read read{1};
    EXPECT_EQ(read.count, 15u);
    EXPECT_EQ(read.vlans[0], 1);
    EXPECT_EQ(read.vlans[14], 15);
}

TEST_F(EtherVlan, ReaderGivesTheLow16Bits)
{
    EXPECT_EQ(set({"1", "-1", "65537", "65536", "-1"}), 0u);
    const Read read{1};
    EXPECT_THAT(read.filled(), ElementsAre(1, 0, 0xffff));
    EXPECT_EQ(read.pvid, UINT32_MAX);
}

TEST_F(EtherVlan, ReaderTakesAnyPort)
{
    EXPECT_EQ(set({"-3", "12", "4"}), 0u);
    EXPECT_THAT(Read{-3}.filled(), ElementsAre(4));
    const Read missing{5};
    EXPECT_EQ(missing.code, 42u);
    EXPECT_LOGGED("Unable to read eth5.pvid from config file /var/wsmDefaults");
    EXPECT_EQ(missing.pvid, 99u);
}

TEST_F(EtherVlan, ReaderStopsAtASlotThatIsNoNumber)
{
    EXPECT_EQ(set({"1", "12", "10", "x", "30"}), 0u);
    const Read read{1};
    EXPECT_EQ(read.code, 42u);
    EXPECT_LOGGED("Unable to read eth1.vid1 from config file /var/wsmDefaults");
    EXPECT_EQ(read.pvid, 12u); // filled before
    EXPECT_EQ(read.vlans[0], 10);
    EXPECT_EQ(read.vlans[1], 0xabcd);
    EXPECT_EQ(read.count, 99u);
}

TEST_F(EtherVlan, ReaderRefusesNullPointersBeforeTheFile)
{
    uint16_t vlans[15];
    uint32_t number = 0;
    EXPECT_EQ(oruSdkGetEtherVlanId(nullptr, &number, &number, 0), 2u);
    EXPECT_LOGGED("NULL pointer");
    EXPECT_EQ(oruSdkGetEtherVlanId(vlans, nullptr, &number, 0), 2u);
    EXPECT_LOGGED("NULL pointer");
    EXPECT_EQ(oruSdkGetEtherVlanId(vlans, &number, nullptr, 0), 2u);
    EXPECT_LOGGED("NULL pointer");
    EXPECT_THAT(standIn.calls, IsEmpty());
}

// ---- Each call failing

std::vector<SweepRow> rows()
{
    const Step open{"oruAsfDictCreate /var/wsmDefaults", 7,
                    "Unable to read WSM Defaults file /var/wsmDefaults"};
    std::vector<Step> setting{
        open,
        {"oruAsfDictSetString eth1.pvid", 25, "Unable to write eth1.pvid to dictionary"},
        {"socket", 0, "Ioctl failed for eth1 errno " + std::to_string(EMFILE)},
        {"ioctl", 0, "Ioctl failed for eth1 errno " + std::to_string(EIO)}};
    std::vector<Step> getting{open,
                              {"oruAsfDictGetInt eth1.pvid", 42,
                               "Unable to read eth1.pvid from config file /var/wsmDefaults"}};
    const auto addWrite = [&](int slot) {
        const std::string key = slotKey("1", slot);
        setting.push_back(
            {"oruAsfDictSetString " + key, 25, "Unable to write " + key + " to dictionary"});
    };
    for (int slot = 0; slot < 15; ++slot) {
        const std::string key = slotKey("1", slot);
        addWrite(slot);
        getting.push_back({"oruAsfDictGetInt " + key, 42,
                           "Unable to read " + key + " from config file /var/wsmDefaults"});
    }
    for (int slot = 0; slot < 16; ++slot) addWrite(slot);
    setting.push_back({"oruAsfDictSave /var/wsmDefaults", 8,
                       "Unable to write WSM Defaults file /var/wsmDefaults"});
    return {{"SetEtherVlanId", nullptr,
             [] {
                 std::vector<std::string> arguments(18, "5");
                 arguments[0] = "1";
                 return set(arguments);
             },
             setting},
            {"GetEtherVlanId", nullptr, [] { return Read{1}.code; }, getting}};
}
INSTANTIATE_TEST_SUITE_P(EtherVlan, FailureSweep, ::testing::ValuesIn(rows()), rowName);
INSTANTIATE_TEST_SUITE_P(EtherVlan, StatusSweep, ::testing::ValuesIn(rows()), rowName);

} // namespace
} // namespace oru::test
