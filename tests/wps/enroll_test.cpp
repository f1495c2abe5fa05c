#include "oruSdk.h"
#include "support/reply.hpp"
#include "support/sweep.hpp"

#include <gmock/gmock.h>

namespace oru::test {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::SizeIs;

/// The log lines behind the dump of the reply.
std::vector<std::string> behindDump(const StandIn &standIn)
{
    std::vector<std::string> texts = standIn.logTexts();
    if (!texts.empty() && texts[0].rfind("Recv: (", 0) == 0) texts.erase(texts.begin());
    return texts;
}

struct Enroll : AccessPointTest {
    Enroll() { box.set(kAa, "bss2.wscEnabledFlag", "1"); }
};

TEST_F(Enroll, RequestCarriesTheMethod)
{
    EXPECT_EQ(sendWscEnroll(0, 1, 2, "12345670"), 0u);
    EXPECT_EQ(sendWscEnroll(1, 1, 2, ""), 0u);
    EXPECT_EQ(sendWscEnroll(2, 1, 2, ""), 0u);
    ASSERT_THAT(standIn.sent(), SizeIs(3));
    EXPECT_THAT(standIn.sent()[0].message,
                ElementsAre(0x01, 0x16, 0, 26, 0, 0, 0x4e, 0x20, 0, 1, 0, 2, 0, 8, 0, 11, 0, 8, '1',
                            '2', '3', '4', '5', '6', '7', '0'));
    EXPECT_THAT(standIn.sent()[1].message, ElementsAre(0x01, 0x16, 0, 20, 0, 0, 0x4e, 0x20, 0, 1, 0,
                                                       2, 0, 2, 0, 12, 0, 2, 0, 1));
    EXPECT_THAT(standIn.sent()[2].message, ElementsAre(0x01, 0x16, 0, 20, 0, 0, 0x4e, 0x20, 0, 1, 0,
                                                       2, 0, 2, 0, 13, 0, 2, 0, 1));
    EXPECT_NOTHING_LOGGED();
}

TEST_F(Enroll, UnknownMethodIs48AfterTheConnectionWasMade)
{
    EXPECT_EQ(sendWscEnroll(3, 0, 2, ""), 48u);
    EXPECT_THAT(standIn.calls, ::testing::Contains("oruAsfIpcConnect 5000002"));
    EXPECT_THAT(standIn.sent(), IsEmpty());
    EXPECT_NOTHING_LOGGED();
}

TEST_F(Enroll, TooLongPinIs48AndNothingIsSent)
{
    EXPECT_EQ(sendWscEnroll(0, 0, 2, std::string(100000, '1').c_str()), 48u);
    EXPECT_LOGGED("IPC Send failed");
    EXPECT_THAT(standIn.sent(), IsEmpty());
    EXPECT_EQ(sendWscEnroll(1, 0, 2, std::string(100000, '1').c_str()), 0u);
}

TEST_F(Enroll, LowBitsOfTheIndexesCount)
{
    EXPECT_EQ(sendWscEnroll(1, 65536, 65538, ""), 0u);
    EXPECT_EQ(standIn.sent()[0].message[9], 0);
    EXPECT_EQ(standIn.sent()[0].message[11], 2);
    EXPECT_EQ(sendWscEnroll(1, 2, 4, nullptr), 3u);
    EXPECT_NOTHING_LOGGED();
    EXPECT_EQ(sendWscEnroll(1, 1, 65540, nullptr), 115u);
    EXPECT_LOGGED("Invalid bss number ID: 4");
    EXPECT_EQ(sendWscEnroll(1, 1, 2, nullptr), 2u);
    EXPECT_LOGGED("NULL pointer");
}

TEST_F(Enroll, WpsMustBeOn)
{
    box.set(kAa, "bss2.wscEnabledFlag", "0");
    EXPECT_EQ(sendWscEnroll(1, 0, 2, ""), 109u);
    EXPECT_LOGGED("WSC feature not enabled in /var/1x.conf");
    box.unset(kAa, "bss2.wscEnabledFlag");
    EXPECT_EQ(sendWscEnroll(1, 0, 2, ""), 109u);
    EXPECT_LOGGED("Unable to read wscEnabledFlag from config file /var/1x.conf");
    box.remove(kAa);
    EXPECT_EQ(sendWscEnroll(1, 0, 2, ""), 7u);
    EXPECT_LOGGED("Unable to read WSM Defaults file /var/1x.conf");
    EXPECT_THAT(standIn.calls, ::testing::Not(::testing::Contains("oruAsfIpcOpen")));
}

TEST_F(Enroll, EachBssHasItsOwnFlag)
{
    for (const uint32_t bss : {0u, 3u}) {
        const std::string flag = "bss" + std::to_string(bss) + ".wscEnabledFlag";
        box.set(kAa, flag, "0");
        EXPECT_EQ(sendWscEnroll(1, 0, bss, ""), 109u);
        EXPECT_LOGGED("WSC feature not enabled in /var/1x.conf");
        box.set(kAa, flag, "1");
        EXPECT_EQ(sendWscEnroll(1, 0, bss, ""), 0u);
        EXPECT_EQ(standIn.sent().back().message[11], bss);
    }
}

TEST_F(Enroll, OnlyTheNumber0IsOff)
{
    for (const char *flag : {"2", "-1", "256"}) {
        box.set(kAa, "bss2.wscEnabledFlag", flag);
        EXPECT_EQ(sendWscEnroll(1, 0, 2, ""), 0u) << flag;
    }
    EXPECT_NOTHING_LOGGED();
}

TEST_F(Enroll, NullPinIsRefusedBeforeTheFileIsRead)
{
    box.remove(kAa);
    EXPECT_EQ(sendWscEnroll(1, 0, 2, nullptr), 2u);
    EXPECT_LOGGED("NULL pointer");
    EXPECT_THAT(standIn.calls, IsEmpty());
}

TEST_F(Enroll, ReplyWithoutElementsIsDumpedAndSucceeds)
{
    standIn.replyWith(reply({}, 279));
    EXPECT_EQ(sendWscEnroll(1, 0, 2, ""), 0u);
    EXPECT_LOGGED("Recv: (8) 01:17:00:08:00:00:00:00\n");
    EXPECT_THAT(standIn.rooms(), ElementsAre(2000u));
}

TEST_F(Enroll, ResultsAreOnlyLogged)
{
    struct Row {
        uint32_t result;
        std::vector<std::string> lines;
    };
    const Row rows[] = {
        {0, {"Result Code is 0\n", "Result Code is SUCCESS \n"}},
        {200, {"Result Code is 200\n", "Result code is FAIL, reason Key lenght too long \n"}},
        {201, {"Result Code is 201\n", "Result code is FAIL, invalid checksum\n"}},
        {7, {"Result Code is 7\n"}},
        {0xffffffff, {"Result Code is -1\n"}},
    };
    for (const Row &row : rows) {
        standIn.logs.clear();
        standIn.replyWith(reply({number32(10, row.result)}));
        EXPECT_EQ(sendWscEnroll(1, 0, 2, ""), 0u);
        EXPECT_EQ(behindDump(standIn), row.lines);
    }
}

TEST_F(Enroll, MethodElementsAreLogged)
{
    standIn.replyWith(
        reply({number32(10, 201), number16(12, 1), number16(11, 1), number16(13, 1)}));
    EXPECT_EQ(sendWscEnroll(1, 0, 2, ""), 0u);
    EXPECT_THAT(behindDump(standIn),
                ElementsAre("Result Code is 201\n", "Result code is FAIL, invalid checksum\n",
                            "wsc method is PBC \n", "wsc method is PIN method \n",
                            "AP as enrollee PIN method \n"));
    for (const LogLine &line : standIn.logs) EXPECT_EQ(line.level, 3);
}

TEST_F(Enroll, MethodElementsMayHoldAnything)
{
    for (const uint16_t id : std::initializer_list<uint16_t>{11, 12, 13})
        for (const Bytes &any : {number8(id, 0), number32(id, 7), text(id, ""), text(id, "abc")}) {
            standIn.replyWith(reply({any}));
            EXPECT_EQ(sendWscEnroll(1, 0, 2, ""), 0u) << id;
        }
}

TEST_F(Enroll, UnexpectedElementIs119)
{
    for (const Bytes &bad :
         {number16(14, 1), number16(16, 1), number16(10, 0), text(10, "12345")}) {
        standIn.logs.clear();
        standIn.replyWith(reply({bad, number32(10, 0)}));
        EXPECT_EQ(sendWscEnroll(1, 0, 2, ""), 119u);
        EXPECT_THAT(behindDump(standIn), ElementsAre("Default \n"));
    }
}

TEST_F(Enroll, EveryCutOfAReply)
{
    const Bytes whole = reply({number32(10, 0), number16(12, 1)});
    for (size_t size = 1; size <= whole.size(); ++size) {
        standIn.reset();
        standIn.replyWith(Bytes(whole.begin(), whole.begin() + static_cast<ptrdiff_t>(size)));
        const bool atEnd = size == 8 || size == 18 || size == whole.size();
        EXPECT_EQ(sendWscEnroll(1, 0, 2, ""), size < 8 ? 48u : atEnd ? 0u : 119u) << size;
        if (size < 8) {
            EXPECT_LOGGED("IPC Recv failed");
        } else if (!atEnd) {
            EXPECT_EQ(standIn.logTexts().back(), "ttlv is NULL \n");
        }
    }
}

// ---- Status

/// A reply to message 280: elements right behind the head.
Bytes statusReply(const std::vector<Bytes> &elements)
{
    return reply(elements, 281, 0);
}

struct WscStatus : AccessPointTest {
    uint32_t result = 77;
};

TEST_F(WscStatus, AsksForAnyIndexes)
{
    EXPECT_EQ(oruSdkGetWscStatus(0x1ffff, 0x20009, &result), 0u);
    EXPECT_THAT(standIn.sent().at(0).message,
                ElementsAre(0x01, 0x18, 0, 16, 0xff, 0xff, 0, 9, 0, 2, 0, 16, 0, 2, 0, 1));
    EXPECT_EQ(result, 77u);
    EXPECT_NOTHING_LOGGED();
}

TEST_F(WscStatus, StoresTheResultCode)
{
    standIn.replyWith(statusReply({number16(16, 1), number32(10, 201)}));
    EXPECT_EQ(oruSdkGetWscStatus(0, 0, &result), 0u);
    EXPECT_EQ(result, 201u);
    EXPECT_THAT(standIn.logTexts(), ElementsAre("wps status\n", "Result Code is 201\n"));
    EXPECT_THAT(standIn.rooms(), ElementsAre(20000u));
}

TEST_F(WscStatus, StatusElementMayHoldAnything)
{
    for (const Bytes &any : {number8(16, 0), number32(16, 7), text(16, ""), text(16, "abc")}) {
        standIn.replyWith(statusReply({any}));
        EXPECT_EQ(oruSdkGetWscStatus(0, 0, &result), 0u);
        EXPECT_LOGGED("wps status\n");
    }
    EXPECT_EQ(result, 77u);
}

TEST_F(WscStatus, HeadAloneLeavesTheResult)
{
    standIn.replyWith(statusReply({}));
    EXPECT_EQ(oruSdkGetWscStatus(0, 0, &result), 0u);
    EXPECT_EQ(result, 77u);
}

TEST_F(WscStatus, ReplyShorterThanItsHeadIsAFailedReceive)
{
    for (const size_t size : {1, 2, 3}) {
        standIn.replyWith(Bytes(size, 0));
        EXPECT_EQ(oruSdkGetWscStatus(0, 0, &result), 48u);
        EXPECT_LOGGED("IPC Recv failed");
    }
    EXPECT_EQ(result, 77u);
}

TEST_F(WscStatus, UnexpectedElementIs119AndKeepsWhatCameBefore)
{
    for (const uint16_t id : std::initializer_list<uint16_t>{11, 12, 13, 14, 15, 17}) {
        standIn.replyWith(statusReply({number32(10, id), number16(id, 1)}));
        standIn.logs.clear();
        EXPECT_EQ(oruSdkGetWscStatus(0, 0, &result), 119u);
        EXPECT_EQ(result, id);
        EXPECT_EQ(standIn.logTexts().back(), "Default\n");
    }
}

TEST_F(WscStatus, ResultOfAnotherLengthThan4Is119AndIsNotTaken)
{
    for (const Bytes &bad : {number16(10, 3), number8(10, 3), element(0x0008000a, {}),
                             element(0x0008000a, {1, 2, 3})}) {
        standIn.replyWith(statusReply({bad}));
        standIn.logs.clear();
        EXPECT_EQ(oruSdkGetWscStatus(0, 0, &result), 119u);
        EXPECT_EQ(result, 77u);
        EXPECT_LOGGED("Default\n");
    }
}

TEST_F(WscStatus, NullResultIs2)
{
    EXPECT_EQ(oruSdkGetWscStatus(0, 0, nullptr), 2u);
    EXPECT_LOGGED("NULL pointer");
    EXPECT_THAT(standIn.calls, IsEmpty());
}

const std::vector<Step> kExchange{{"oruAsfIpcOpen", 48, "IPC Open failed"},
                                  {"oruAsfIpcConnect 5000002", 48, "IPC Connect failed"},
                                  {"oruAsfIpcSend", 48, "IPC Send failed"},
                                  {"oruAsfIpcCheck", 0, ""}};

std::vector<SweepRow> rows()
{
    std::vector<Step> enroll{
        {"oruAsfDictCreate /var/1x.conf", 7, "Unable to read WSM Defaults file /var/1x.conf"},
        {"oruAsfDictGetInt bss2.wscEnabledFlag", 109,
         "Unable to read wscEnabledFlag from config file /var/1x.conf"}};
    enroll.insert(enroll.end(), kExchange.begin(), kExchange.end());
    return {{"SendWscEnroll",
             [](AccessPoint &box, StandIn &) { box.set(kAa, "bss2.wscEnabledFlag", "1"); },
             [] { return sendWscEnroll(0, 0, 2, "12345670"); }, enroll},
            {"GetWscStatus", nullptr,
             [] {
                 uint32_t result = 0;
                 return oruSdkGetWscStatus(0, 0, &result);
             },
             kExchange}};
}
INSTANTIATE_TEST_SUITE_P(Enroll, FailureSweep, ::testing::ValuesIn(rows()), rowName);
INSTANTIATE_TEST_SUITE_P(Enroll, StatusSweep, ::testing::ValuesIn(rows()), rowName);

TEST_F(WscStatus, ReceiveAndDecodeThatFail)
{
    standIn.replyWith(statusReply({number32(10, 0)}));
    standIn.failOnly("oruAsfIpcRecv");
    standIn.failAt(1);
    EXPECT_EQ(oruSdkGetWscStatus(0, 0, &result), 48u);
    EXPECT_LOGGED("IPC Recv failed");
    standIn.failOnly("oruAsfGetStructTtlv");
    standIn.failAt(1);
    EXPECT_EQ(oruSdkGetWscStatus(0, 0, &result), 119u);
    EXPECT_LOGGED("ttlv is NULL \n");
    EXPECT_EQ(result, 77u);
}

TEST_F(Enroll, ReceiveThatFails)
{
    standIn.replyWith(reply({}));
    standIn.failOnly("oruAsfIpcRecv");
    standIn.failAt(1);
    EXPECT_EQ(sendWscEnroll(1, 0, 2, ""), 48u);
    EXPECT_LOGGED("IPC Recv failed");
}

} // namespace
} // namespace oru::test
