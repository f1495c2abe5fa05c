#include "oruSdk.h"
#include "support/reply.hpp"
#include "support/sweep.hpp"

#include <gmock/gmock.h>

namespace oru::test {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

/// A reply to message 280: elements right behind the head.
Bytes configReply(const std::vector<Bytes> &elements)
{
    return reply(elements, 281, 0);
}

struct DevicePin : AccessPointTest {
    char pin[65] = "before";
    uint32_t length = 77;

    std::optional<std::string> stored() { return box.value(kWsm, "bss2.appinpasswd"); }
};

TEST_F(DevicePin, SetSendsThePinAndStoresIt)
{
    EXPECT_EQ(oruSdkSetDevicePin(1, 2, "12345670"), 0u);
    EXPECT_THAT(standIn.sent().at(0).message,
                ElementsAre(0x01, 0x18, 0, 30, 0, 1, 0, 2, 0, 8, 0, 14, 0, 8, '1', '2', '3', '4',
                            '5', '6', '7', '0', 0, 2, 0, 17, 0, 2, 0, 2));
    EXPECT_THAT(standIn.waits(), ElementsAre(20000u));
    EXPECT_EQ(stored(), "12345670");
    EXPECT_NOTHING_LOGGED();
}

TEST_F(DevicePin, WsmsVerdictIsOnlyLogged)
{
    standIn.replyWith(configReply({number32(10, static_cast<uint32_t>(-5)), number16(14, 1)}));
    EXPECT_EQ(oruSdkSetDevicePin(0, 2, "12345671"), 0u);
    EXPECT_THAT(standIn.logTexts(),
                ElementsAre("Result Code is -5\n", "wsc config set AP password\n"));
    EXPECT_EQ(stored(), "12345671");
    EXPECT_THAT(standIn.rooms(), ElementsAre(20000u));
    EXPECT_EQ(oruSdkGetDevicePin(2, pin, &length), 0u);
    EXPECT_STREQ(pin, "12345671");
    EXPECT_EQ(length, 8u);
}

TEST_F(DevicePin, UnexpectedElementIs48AndStoresNothing)
{
    const std::string before = box.everything();
    for (const Bytes &bad :
         {number16(15, 1), number16(16, 1), number16(10, 0), text(10, "12345")}) {
        standIn.logs.clear();
        standIn.replyWith(configReply({bad}));
        EXPECT_EQ(oruSdkSetDevicePin(0, 2, "1"), 48u);
        EXPECT_LOGGED("Default\n");
    }
    EXPECT_EQ(box.everything(), before);
}

TEST_F(DevicePin, ReplyShorterThanItsHeadIsAFailedReceiveAndStoresNothing)
{
    for (const size_t size : {1, 2, 3}) {
        standIn.replyWith(Bytes(size, 0));
        EXPECT_EQ(oruSdkSetDevicePin(0, 2, "1"), 48u);
        EXPECT_LOGGED("IPC Recv failed");
        EXPECT_EQ(oruSdkGenPassword(0, 2), 48u);
        EXPECT_LOGGED("IPC Recv failed");
    }
    EXPECT_THAT(standIn.calls,
                ::testing::Not(::testing::Contains("oruAsfDictCreate /var/wsmDefaults")));
}

TEST_F(DevicePin, ElementsThatAreOnlyNamedMayHoldAnything)
{
    const auto all = [](uint16_t id) {
        return configReply({number8(id, 0), number32(id, 7), text(id, ""), text(id, "abc")});
    };
    standIn.replyWith(all(14));
    EXPECT_EQ(oruSdkSetDevicePin(0, 2, "1"), 0u);
    EXPECT_EQ(standIn.logTexts(), std::vector<std::string>(4, "wsc config set AP password\n"));
    standIn.logs.clear();
    standIn.replyWith(all(15));
    EXPECT_EQ(oruSdkGenPassword(0, 2), 0u);
    EXPECT_EQ(standIn.logTexts(),
              std::vector<std::string>(4, "wsc config set generate AP password\n"));
}

TEST_F(DevicePin, HeadAloneIsAReplyWithoutElements)
{
    standIn.replyWith(configReply({}));
    EXPECT_EQ(oruSdkSetDevicePin(0, 2, "1"), 0u);
    EXPECT_EQ(oruSdkGenPassword(0, 2), 0u);
    EXPECT_NOTHING_LOGGED();
}

TEST_F(DevicePin, NullPinIsRefusedBeforeWsmIsAsked)
{
    EXPECT_EQ(oruSdkSetDevicePin(0, 2, nullptr), 2u);
    EXPECT_LOGGED("NULL pointer");
    EXPECT_THAT(standIn.calls, IsEmpty());
}

TEST_F(DevicePin, LowBitsOfTheIndexesCount)
{
    EXPECT_EQ(oruSdkSetDevicePin(0x10001, 0x70002, "1"), 0u);
    EXPECT_EQ(stored(), "1");
    EXPECT_EQ(oruSdkSetDevicePin(0x10002, 9, nullptr), 3u);
    EXPECT_NOTHING_LOGGED();
    EXPECT_EQ(oruSdkSetDevicePin(0, 0x10004, nullptr), 115u);
    EXPECT_LOGGED("Invalid bss number ID: 4");
    EXPECT_EQ(oruSdkSetDevicePin(0, 0, nullptr), 2u);
    EXPECT_LOGGED("NULL pointer");
}

TEST_F(DevicePin, AnyPinThatFitsIsStoredAndTooLongIs48)
{
    for (const std::string &any : {std::string(), std::string(64, '9'), std::string("a \"b\"\n=#"),
                                   std::string(1900, 'x')}) {
        EXPECT_EQ(oruSdkSetDevicePin(0, 2, any.c_str()), 0u);
        EXPECT_EQ(stored(), any);
    }
    const std::string before = box.everything();
    const size_t sent = standIn.sent().size();
    EXPECT_EQ(oruSdkSetDevicePin(0, 2, std::string(1901, 'x').c_str()), 48u);
    EXPECT_EQ(oruSdkSetDevicePin(0, 2, std::string(100000, 'x').c_str()), 48u);
    EXPECT_EQ(standIn.sent().size(), sent);
    EXPECT_EQ(box.everything(), before);
}

TEST_F(DevicePin, EachBssHasItsOwn)
{
    const auto other = stored();
    for (const uint32_t bss : {0u, 3u}) {
        const std::string own = "1000000" + std::to_string(bss);
        EXPECT_EQ(oruSdkSetDevicePin(1, bss, own.c_str()), 0u);
        EXPECT_EQ(box.value(kWsm, "bss" + std::to_string(bss) + ".appinpasswd"), own);
        EXPECT_EQ(oruSdkGetDevicePin(static_cast<int32_t>(bss), pin, &length), 0u);
        EXPECT_EQ(pin, own);
    }
    EXPECT_EQ(stored(), other);
}

TEST_F(DevicePin, GetTakes64CharactersAndRefuses65)
{
    box.setDelimited(kWsm, "bss2.appinpasswd", std::string(64, '7'));
    EXPECT_EQ(oruSdkGetDevicePin(2, pin, &length), 0u);
    EXPECT_EQ(std::string(pin), std::string(64, '7'));
    EXPECT_EQ(length, 64u);
    box.setDelimited(kWsm, "bss2.appinpasswd", std::string(65, '8'));
    EXPECT_EQ(oruSdkGetDevicePin(2, pin, &length), 108u);
    EXPECT_LOGGED("Invalid PIN length: 65\n");
    EXPECT_EQ(std::string(pin), std::string(64, '7'));
}

TEST_F(DevicePin, GetChecksPointersThenBssThenFileThenKey)
{
    EXPECT_EQ(oruSdkGetDevicePin(4, nullptr, &length), 2u);
    EXPECT_LOGGED("NULL pointer");
    EXPECT_EQ(oruSdkGetDevicePin(4, pin, nullptr), 2u);
    EXPECT_LOGGED("NULL pointer");
    EXPECT_EQ(oruSdkGetDevicePin(4, pin, &length), 115u);
    EXPECT_LOGGED("Invalid bss number ID: 4");
    EXPECT_THAT(standIn.calls, IsEmpty());
    EXPECT_EQ(oruSdkGetDevicePin(-1, pin, &length), 42u);
    EXPECT_LOGGED("Unable to read AP pin from config file /var/wsmDefaults");
    EXPECT_THAT(standIn.calls,
                ::testing::Contains("oruAsfDictGetDelimitedString bss-1.appinpasswd"));
    EXPECT_STREQ(pin, "before");
    EXPECT_EQ(length, 77u);
}

TEST_F(DevicePin, StatusWithoutATextCountsAsAMissingKey)
{
    standIn.failOnly("oruAsfDictGetDelimitedString");
    standIn.failAt(1, 5);
    EXPECT_EQ(oruSdkGetDevicePin(2, pin, &length), 42u);
    EXPECT_LOGGED("Unable to read AP pin from config file /var/wsmDefaults");
    EXPECT_EQ(length, 77u);
}

struct Password : AccessPointTest {};

TEST_F(Password, GenerateAsksWsmAndStoresNothing)
{
    const std::string before = box.everything();
    standIn.replyWith(configReply({number32(10, 0), number16(15, 1)}));
    EXPECT_EQ(oruSdkGenPassword(1, 3), 0u);
    EXPECT_THAT(standIn.sent().at(0).message,
                ElementsAre(0x01, 0x18, 0, 16, 0, 1, 0, 3, 0, 2, 0, 15, 0, 2, 0, 1));
    EXPECT_THAT(standIn.logTexts(),
                ElementsAre("Result Code is 0\n", "wsc config set generate AP password\n"));
    EXPECT_EQ(box.everything(), before);
}

TEST_F(Password, UnexpectedElementIs119)
{
    for (const Bytes &bad : {number16(14, 1), number16(16, 1), number16(10, 0)}) {
        standIn.replyWith(configReply({bad}));
        EXPECT_EQ(oruSdkGenPassword(0, 0), 119u);
        EXPECT_LOGGED("Default\n");
    }
}

TEST_F(Password, IndexesAreChecked)
{
    EXPECT_EQ(oruSdkGenPassword(2, 4), 3u);
    EXPECT_NOTHING_LOGGED();
    EXPECT_EQ(oruSdkGenPassword(1, 4), 115u);
    EXPECT_LOGGED("Invalid bss number ID: 4");
    EXPECT_THAT(standIn.calls, IsEmpty());
    EXPECT_EQ(oruSdkGenPassword(0x10000, 0x10000), 0u);
}

std::vector<Step> exchange(uint32_t undecodable)
{
    return {{"oruAsfIpcOpen", 48, "IPC Open failed"},
            {"oruAsfIpcConnect 5000002", 48, "IPC Connect failed"},
            {"oruAsfIpcSend", 48, "IPC Send failed"},
            {"oruAsfIpcCheck", 0, ""},
            {"oruAsfIpcRecv", 48, "IPC Recv failed"},
            {"oruAsfGetStructTtlv", undecodable, "ttlv is NULL \n"}};
}

std::vector<SweepRow> rows()
{
    std::vector<Step> set = exchange(48);
    set.pop_back();
    set.insert(set.end(), {{"oruAsfDictCreate /var/wsmDefaults", 7,
                            "Unable to read WSM Defaults file /var/wsmDefaults"},
                           {"oruAsfDictSetDelimitedString bss2.appinpasswd", 25,
                            "Unable to write AP pin to dictionary"},
                           {"oruAsfDictSave /var/wsmDefaults", 8,
                            "Unable to write WSM Defaults file /var/wsmDefaults"}});
    return {
        {"SetDevicePin",
         [](AccessPoint &, StandIn &standIn) { standIn.replyWith(configReply({})); },
         [] { return oruSdkSetDevicePin(0, 2, "12345670"); }, set},
        {"GetDevicePin",
         [](AccessPoint &box, StandIn &) { box.setDelimited(kWsm, "bss2.appinpasswd", "1"); },
         [] {
             char pin[65];
             uint32_t length = 0;
             return oruSdkGetDevicePin(2, pin, &length);
         },
         {{"oruAsfDictCreate /var/wsmDefaults", 7,
           "Unable to read WSM Defaults file /var/wsmDefaults"},
          {"oruAsfDictGetDelimitedString bss2.appinpasswd", 42,
           "Unable to read AP pin from config file /var/wsmDefaults"}}},
    };
}
INSTANTIATE_TEST_SUITE_P(DevicePin, FailureSweep, ::testing::ValuesIn(rows()), rowName);
INSTANTIATE_TEST_SUITE_P(DevicePin, StatusSweep, ::testing::ValuesIn(rows()), rowName);

TEST_F(DevicePin, ElementThatCannotBeDecodedIs48AndStoresNothing)
{
    const std::string before = box.everything();
    standIn.replyWith(configReply({Bytes{0, 3, 0, 10, 0, 4, 0}}));
    EXPECT_EQ(oruSdkSetDevicePin(0, 2, "1"), 48u);
    EXPECT_LOGGED("ttlv is NULL \n");
    EXPECT_EQ(oruSdkGenPassword(0, 2), 119u);
    EXPECT_LOGGED("ttlv is NULL \n");
    EXPECT_EQ(box.everything(), before);
}

TEST_F(Password, EachCallThatFails)
{
    const std::vector<Step> steps = exchange(119);
    for (size_t n = 0; n < steps.size(); ++n) {
        SCOPED_TRACE(steps[n].call);
        standIn.reset();
        standIn.replyWith(configReply({number16(15, 1)}));
        standIn.failAt(static_cast<int>(n) + 1);
        EXPECT_EQ(oruSdkGenPassword(0, 0), steps[n].code);
        if (steps[n].log.empty()) {
            EXPECT_NOTHING_LOGGED();
        } else {
            EXPECT_LOGGED(steps[n].log);
        }
        EXPECT_EQ(standIn.openConnections(), 0);
    }
}

} // namespace
} // namespace oru::test
