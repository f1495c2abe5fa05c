// Requests, replies and the two shared request helpers, which are not exported.
#include "core/messages.hpp"
#include "support/accesspoint.hpp"
#include "support/sweep.hpp"

#include <gmock/gmock.h>

namespace oru::test {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::SizeIs;

/// A reply: header, the 32-bit field, and elements.
Bytes replyOf(std::initializer_list<Bytes> elements, uint16_t type = 265)
{
    Bytes reply{static_cast<uint8_t>(type >> 8), static_cast<uint8_t>(type), 0, 0, 0, 0, 0, 0};
    for (const Bytes &element : elements) reply.insert(reply.end(), element.begin(), element.end());
    reply[3] = static_cast<uint8_t>(reply.size());
    return reply;
}

const Bytes kResult{0, 3, 0, 10, 0, 4, 0, 0, 0, 0};
const Bytes kResultOfAnotherKind{0, 2, 0, 10, 0, 2, 0, 0};
const Bytes kOther{0, 2, 0, 3, 0, 2, 0, 0};

struct Messages : AccessPointTest {};

TEST_F(Messages, NoticeIsFourBytesToWsm)
{
    EXPECT_EQ(sdkSendWsmRequest(268), 0u);
    ASSERT_THAT(standIn.sent(), SizeIs(1));
    EXPECT_THAT(standIn.sent()[0].message, ElementsAre(0x01, 0x0C, 0x00, 0x04));
    EXPECT_EQ(standIn.sent()[0].host, "localhost");
    EXPECT_EQ(standIn.sent()[0].port, 5000002u);
    EXPECT_EQ(standIn.sent()[0].version, 1001u);
    EXPECT_THAT(standIn.waits(), IsEmpty());
    EXPECT_NOTHING_LOGGED();
}

TEST_F(Messages, NoticeKeepsTheLow16BitsOfItsType)
{
    EXPECT_EQ(sdkSendWsmRequest(0x70000 + 268), 0u);
    EXPECT_THAT(standIn.sent()[0].message, ElementsAre(0x01, 0x0C, 0x00, 0x04));
}

TEST_F(Messages, HostProgramMayNameOtherServices)
{
    port = 7;
    vers = 8;
    EXPECT_EQ(sdkSendWsmRequest(268), 0u);
    EXPECT_EQ(standIn.sent()[0].port, 7u);
    EXPECT_EQ(standIn.sent()[0].version, 8u);
    EXPECT_EQ(port, 7u);
    EXPECT_EQ(vers, 8u);
    port = 5000002;
    vers = 1001;
}

TEST_F(Messages, TransactionSendsRadioThenStatus)
{
    EXPECT_EQ(sdkWsmTransaction(1, 0), 0u);
    EXPECT_THAT(standIn.sent()[0].message, ElementsAre(0x01, 0x08, 0, 24,      // type 264, 24 bytes
                                                       0, 0, 0x4e, 0x20,       // 20000
                                                       0, 2, 0, 9, 0, 2, 0, 1, // radio 1
                                                       0, 2, 0, 8, 0, 2, 0, 0)); // status 0
    EXPECT_THAT(standIn.waits(), ElementsAre(20000u));
}

TEST_F(Messages, TransactionKeepsTheLow16BitsOfItsArguments)
{
    EXPECT_EQ(sdkWsmTransaction(0x10001, 0xabcd0001), 0u);
    const Bytes &message = standIn.sent()[0].message;
    EXPECT_THAT(Bytes(message.begin() + 14, message.begin() + 16), ElementsAre(0, 1));
    EXPECT_THAT(Bytes(message.begin() + 22, message.end()), ElementsAre(0, 1));
}

TEST_F(Messages, SilenceWithinTheWaitIsAgreement)
{
    standIn.replyWithNothing();
    EXPECT_EQ(sdkWsmTransaction(0, 1), 0u);
    EXPECT_THAT(standIn.rooms(), IsEmpty());
    EXPECT_NOTHING_LOGGED();
}

TEST_F(Messages, ReplyWithoutElementsSucceeds)
{
    standIn.replyWith(replyOf({}));
    EXPECT_EQ(sdkWsmTransaction(0, 1), 0u);
    EXPECT_THAT(standIn.rooms(), ElementsAre(2000u));
}

TEST_F(Messages, ReplyMayCarryAnyNumberOfResults)
{
    standIn.replyWith(replyOf({kResult, kResultOfAnotherKind, kResult}));
    EXPECT_EQ(sdkWsmTransaction(0, 1), 0u);
    EXPECT_NOTHING_LOGGED();
}

TEST_F(Messages, FirstOtherElementEndsTheWalkWithoutALine)
{
    standIn.replyWith(replyOf({kOther}));
    EXPECT_EQ(sdkWsmTransaction(0, 1), 48u);
    standIn.calls.clear();
    standIn.replyWith(replyOf({kResult, kOther, kResult}));
    EXPECT_EQ(sdkWsmTransaction(0, 1), 48u);
    EXPECT_EQ(std::count(standIn.calls.begin(), standIn.calls.end(), "oruAsfGetStructTtlv"), 2);
    EXPECT_NOTHING_LOGGED();
}

TEST_F(Messages, WalkGoesByTheReceivedBytesNotTheReplysOwnLength)
{
    Bytes reply = replyOf({kResult, kOther});
    reply[3] = 8;
    standIn.replyWith(reply);
    EXPECT_EQ(sdkWsmTransaction(0, 1), 48u);
    reply = replyOf({kResult});
    reply[2] = 0xff;
    standIn.replyWith(reply);
    EXPECT_EQ(sdkWsmTransaction(0, 1), 0u);
}

TEST_F(Messages, EveryCutOfAReplyIsRefusedOrEndsAtAnElement)
{
    const Bytes whole = replyOf({kResult, kResult});
    for (size_t size = 1; size <= whole.size(); ++size) {
        standIn.reset();
        standIn.replyWith(Bytes(whole.begin(), whole.begin() + static_cast<ptrdiff_t>(size)));
        const bool atAnElement = size == 8 || size == 18 || size == 28;
        EXPECT_EQ(sdkWsmTransaction(0, 1), atAnElement ? 0u : 48u) << size;
        if (size < 8) EXPECT_LOGGED("IPC Recv failed");
        else EXPECT_NOTHING_LOGGED();
    }
}

TEST_F(Messages, ElementThatReachesBehindTheReplyIsRefused)
{
    Bytes reply = replyOf({kResult});
    reply[12] = 0xff;
    reply[13] = 0xff;
    standIn.replyWith(reply);
    EXPECT_EQ(sdkWsmTransaction(0, 1), 48u);
    EXPECT_NOTHING_LOGGED();
}

TEST_F(Messages, TextElementCountsItsHead)
{
    Request request;
    request.elementText(0x0008000B, "12345670", 8).finish(278);
    EXPECT_THAT(
        Bytes(request.data(), request.data() + request.size()),
        ElementsAre(1, 0x16, 0, 18, 0, 8, 0, 0x0B, 0, 8, '1', '2', '3', '4', '5', '6', '7', '0'));
}

TEST_F(Messages, TextElementHoldsAtMost1900Characters)
{
    const std::string text(5000, 't');
    Request longest;
    longest.elementText(0x0008000B, text.c_str(), 1900);
    EXPECT_EQ(longest.size(), 4u + 6 + 1900);
    for (const uint32_t length : {1901u, 5000u}) {
        Request request;
        request.elementText(0x0008000B, text.c_str(), length);
        EXPECT_EQ(Bytes(request.data() + 4, request.data() + request.size()),
                  Bytes(longest.data() + 4, longest.data() + longest.size()));
    }
}

TEST_F(Messages, NumberOfAnElementGoesByItsLength)
{
    const struct {
        Bytes element;
        uint32_t number;
    } rows[] = {
        {{0, 1, 0, 9, 0, 1, 0xfe}, 0xfe},
        {{0, 2, 0, 9, 0, 2, 0x12, 0x34}, 0x1234},
        {{0, 3, 0, 9, 0, 4, 0x12, 0x34, 0x56, 0x78}, 0x12345678},
        {{0, 8, 0, 9, 0, 1, 0xfe}, 0xfe},
        {{0, 8, 0, 9, 0, 2, 0x12, 0x34}, 0x1234},
        {{0, 8, 0, 9, 0, 4, 0x12, 0x34, 0x56, 0x78}, 0x12345678},
        {{0, 8, 0, 9, 0, 0}, 0},
        {{0, 8, 0, 9, 0, 3, 1, 2, 3}, 0},
        {{0, 12, 0, 9, 0, 6, 1, 2, 3, 4, 5, 6}, 0},
    };
    for (const auto &row : rows) {
        const Element element{row.element.data(), static_cast<uint32_t>(row.element.size())};
        ASSERT_TRUE(static_cast<bool>(element));
        EXPECT_EQ(element.number(), row.number) << element.length();
        EXPECT_EQ(element.size(), row.element.size());
    }
}

const std::vector<SweepRow> kRows{
    {"SendWsmRequest",
     nullptr,
     [] { return sdkSendWsmRequest(268); },
     {{"oruAsfIpcOpen", 48, "IPC Open failed"},
      {"oruAsfIpcConnect 5000002", 48, "IPC Connect failed"},
      {"oruAsfIpcSend", 48, "IPC Send failed"}}},
    {"WsmTransaction",
     [](AccessPoint &, StandIn &standIn) { standIn.replyWith(replyOf({kResult})); },
     [] { return sdkWsmTransaction(0, 1); },
     {{"oruAsfIpcOpen", 48, "IPC Open failed"},
      {"oruAsfIpcConnect 5000002", 48, "IPC Connect failed"},
      {"oruAsfIpcSend", 48, "IPC Send failed"},
      {"oruAsfIpcCheck", 0, ""},
      {"oruAsfIpcRecv", 48, "IPC Recv failed"},
      {"oruAsfGetStructTtlv", 48, ""}}},
};
INSTANTIATE_TEST_SUITE_P(Messages, FailureSweep, ::testing::ValuesIn(kRows), rowName);

} // namespace
} // namespace oru::test
