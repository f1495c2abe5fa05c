#include "oruSdk.h"
#include "support/reply.hpp"
#include "support/sweep.hpp"

#include <gmock/gmock.h>

namespace oru::test {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::SizeIs;

const Bytes kStation{0x00, 0x11, 0x22, 0xaa, 0xbb, 0xcc};

struct AdminStatus : AccessPointTest {};

TEST_F(AdminStatus, GetReadsTheRadiosKeyAsItIs)
{
    box.set(kWsm, "radio0.adminStatus", "1");
    box.set(kWsm, "radio1.adminStatus", "7");
    OruSdkFeatureParam param{0, 0, 99};
    EXPECT_EQ(oruSdkGetAdminStatus(&param), 0u);
    EXPECT_EQ(param.activationFlag, 1u);
    param.radioIndex = 1;
    EXPECT_EQ(oruSdkGetAdminStatus(&param), 0u);
    EXPECT_EQ(param.activationFlag, 7u);
    EXPECT_THAT(standIn.sent(), IsEmpty());
}

TEST_F(AdminStatus, RadioAbove1Is3AndTheKeyIsNotFormed)
{
    OruSdkFeatureParam param{0, 2, 2};
    EXPECT_EQ(oruSdkGetAdminStatus(&param), 3u);
    EXPECT_LOGGED("Invalid radio ID: 2");
    EXPECT_EQ(oruSdkSetAdminStatus(&param), 3u);
    EXPECT_LOGGED("Invalid radio ID: 2");
}

TEST_F(AdminStatus, NullRecordIs2)
{
    EXPECT_EQ(oruSdkGetAdminStatus(nullptr), 2u);
    EXPECT_LOGGED("NULL pointer");
    EXPECT_EQ(oruSdkSetAdminStatus(nullptr), 2u);
    EXPECT_LOGGED("NULL pointer");
}

TEST_F(AdminStatus, SetStoresAndTellsWsmAtOnce)
{
    OruSdkFeatureParam param{0, 1, 0};
    EXPECT_EQ(oruSdkSetAdminStatus(&param), 0u);
    EXPECT_EQ(box.value(kWsm, "radio1.adminStatus"), "0");
    EXPECT_THAT(standIn.sent().at(0).message,
                ElementsAre(0x01, 0x08, 0, 24, 0, 0, 0x4e, 0x20, 0, 2, 0, 9, 0, 2, 0, 1, 0, 2, 0, 8,
                            0, 2, 0, 0));
    EXPECT_NOTHING_LOGGED();
}

TEST_F(AdminStatus, RefusedStatusTellsNobody)
{
    const std::string before = box.everything();
    OruSdkFeatureParam param{0, 1, 2};
    EXPECT_EQ(oruSdkSetAdminStatus(&param), 47u);
    EXPECT_LOGGED("Invalid Activation Flag 2 for radio1.adminStatus");
    EXPECT_THAT(standIn.sent(), IsEmpty());
    EXPECT_EQ(box.everything(), before);
}

TEST_F(AdminStatus, WithWsmDownTheFileChangesAndTheCodeIs48)
{
    box.set(kWsm, "radio0.adminStatus", "1");
    standIn.failOnly("oruAsfIpcConnect");
    standIn.failAt(1);
    OruSdkFeatureParam param{0, 0, 0};
    EXPECT_EQ(oruSdkSetAdminStatus(&param), 48u);
    EXPECT_THAT(standIn.logTexts(),
                ElementsAre("IPC Connect failed", "Failed to send admin state request to WSM"));
    EXPECT_EQ(box.value(kWsm, "radio0.adminStatus"), "0");
}

TEST_F(AdminStatus, UnexpectedAnswerIs48)
{
    standIn.replyWith(reply({number16(3, 0)}));
    OruSdkFeatureParam param{0, 0, 1};
    EXPECT_EQ(oruSdkSetAdminStatus(&param), 48u);
    EXPECT_LOGGED("Failed to send admin state request to WSM");
}

struct Disassociation : AccessPointTest {};

TEST_F(Disassociation, SendsTheAddress)
{
    EXPECT_EQ(sendDisAssocReq(kStation.data()), 0u);
    EXPECT_THAT(standIn.sent().at(0).message,
                ElementsAre(0x01, 0x06, 0, 20, 0, 0, 0x4e, 0x20, 0, 12, 0, 7, 0, 6, 0x00, 0x11,
                            0x22, 0xaa, 0xbb, 0xcc));
    EXPECT_NOTHING_LOGGED();
}

TEST_F(Disassociation, NullAddressIs2)
{
    EXPECT_EQ(sendDisAssocReq(nullptr), 2u);
    EXPECT_LOGGED("NULL pointer");
    EXPECT_THAT(standIn.calls, IsEmpty());
}

TEST_F(Disassociation, AnyResultCodeIsOnlyLogged)
{
    const Bytes answer = reply({mac(7, kStation), number32(10, 0xffffffff)}, 263);
    standIn.replyWith(answer);
    EXPECT_EQ(sendDisAssocReq(kStation.data()), 0u);
    EXPECT_THAT(
        standIn.logTexts(),
        ElementsAre(":Recv: (30) 01:07:00:1e:00:00:00:00:00:0c:00:07:00:06:00:11:22:aa:bb:cc:"
                    "00:03:00:0a:00:04:ff:ff:ff:ff\n",
                    "macAddr 00:11:22:aa:bb:cc\n", "Result Code -1\n"));
    for (const LogLine &line : standIn.logs) EXPECT_EQ(line.level, 3);
    EXPECT_THAT(standIn.rooms(), ElementsAre(2000u));
}

TEST_F(Disassociation, ReplyWithoutElementsSucceeds)
{
    standIn.replyWith(reply({}));
    EXPECT_EQ(sendDisAssocReq(kStation.data()), 0u);
    EXPECT_THAT(standIn.logTexts(), SizeIs(1));
}

TEST_F(Disassociation, ReplyShorterThan8BytesIsAFailedReceive)
{
    for (size_t size = 1; size < 8; ++size) {
        standIn.replyWith(Bytes(size, 0));
        EXPECT_EQ(sendDisAssocReq(kStation.data()), 48u) << size;
        EXPECT_LOGGED("IPC Recv failed");
    }
}

TEST_F(Disassociation, OtherElementOrUnsuitableLengthIs48)
{
    const Bytes bad[] = {number16(3, 0), number16(10, 0), text(7, "12345"), text(10, "12345"),
                         element(12u << 16 | 7, {1, 2, 3})};
    for (const Bytes &one : bad) {
        standIn.logs.clear();
        standIn.replyWith(reply({one, number32(10, 0)}));
        EXPECT_EQ(sendDisAssocReq(kStation.data()), 48u);
        ASSERT_THAT(standIn.logTexts(), SizeIs(2));
        EXPECT_EQ(standIn.logTexts()[1], "Default\n");
    }
}

TEST_F(Disassociation, LongestReplyIsDumpedWhole)
{
    standIn.replyWith(Bytes(2500, 0xee));
    EXPECT_EQ(sendDisAssocReq(kStation.data()), 48u);
    const std::string dump = standIn.logTexts().at(0);
    EXPECT_EQ(dump.substr(0, 20), ":Recv: (2000) ee:ee:");
    EXPECT_EQ(dump.size(), std::string(":Recv: (2000) \n").size() + 5999);
}

const std::vector<SweepRow> kRows{
    {"GetAdminStatus",
     nullptr,
     [] {
         OruSdkFeatureParam param{0, 1, 0};
         return oruSdkGetAdminStatus(&param);
     },
     {{"oruAsfDictCreate /var/wsmDefaults", 7, "Unable to read WSM Defaults file /var/wsmDefaults"},
      {"oruAsfDictGetInt radio1.adminStatus", 42,
       "Unable to read radio1.adminStatus from config file /var/wsmDefaults"}}},
    {"SendDisAssocReq",
     [](AccessPoint &, StandIn &) {},
     [] { return sendDisAssocReq(kStation.data()); },
     {{"oruAsfIpcOpen", 48, "IPC Open failed"},
      {"oruAsfIpcConnect 5000002", 48, "IPC Connect failed"},
      {"oruAsfIpcSend", 48, "IPC Send failed"},
      {"oruAsfIpcCheck", 0, ""}}},
};
INSTANTIATE_TEST_SUITE_P(Control, FailureSweep, ::testing::ValuesIn(kRows), rowName);
INSTANTIATE_TEST_SUITE_P(Control, StatusSweep, ::testing::ValuesIn(kRows), rowName);

TEST_F(AdminStatus, EachCallOfASetThatFails)
{
    struct Row {
        const char *call;
        uint32_t code;
        std::vector<std::string> logs;
        bool stored;
    };
    const std::string told = "Failed to send admin state request to WSM";
    const Row rows[] = {
        {"oruAsfDictCreate", 7, {"Unable to read WSM Defaults file /var/wsmDefaults"}, false},
        {"oruAsfDictSetString", 25, {"Unable to write radio0.adminStatus to dictionary"}, false},
        {"oruAsfDictSave", 8, {"Unable to write WSM Defaults file /var/wsmDefaults"}, false},
        {"oruAsfIpcOpen", 48, {"IPC Open failed", told}, true},
        {"oruAsfIpcConnect", 48, {"IPC Connect failed", told}, true},
        {"oruAsfIpcSend", 48, {"IPC Send failed", told}, true},
        {"oruAsfIpcCheck", 0, {}, true},
        {"oruAsfIpcRecv", 48, {"IPC Recv failed", told}, true},
        {"oruAsfGetStructTtlv", 48, {told}, true},
    };
    for (size_t n = 0; n < std::size(rows); ++n) {
        SCOPED_TRACE(rows[n].call);
        box.set(kWsm, "radio0.adminStatus", "1");
        standIn.reset();
        standIn.replyWith(reply({number32(10, 0)}));
        standIn.failAt(static_cast<int>(n) + 1);
        OruSdkFeatureParam param{0, 0, 0};
        EXPECT_EQ(oruSdkSetAdminStatus(&param), rows[n].code);
        EXPECT_EQ(standIn.failed(), rows[n].call);
        EXPECT_EQ(standIn.logTexts(), rows[n].logs);
        EXPECT_EQ(box.value(kWsm, "radio0.adminStatus"), rows[n].stored ? "0" : "1");
        EXPECT_EQ(standIn.openDicts() + standIn.openConnections() + standIn.openElements(), 0);
    }
}

TEST_F(Disassociation, ElementThatCannotBeDecodedIs48)
{
    standIn.replyWith(reply({number32(10, 0)}));
    standIn.failOnly("oruAsfGetStructTtlv");
    standIn.failAt(1);
    EXPECT_EQ(sendDisAssocReq(kStation.data()), 48u);
    EXPECT_EQ(standIn.logTexts().back(), "Default\n");
    standIn.failOnly("oruAsfIpcRecv");
    standIn.failAt(1);
    standIn.logs.clear();
    EXPECT_EQ(sendDisAssocReq(kStation.data()), 48u);
    EXPECT_LOGGED("IPC Recv failed");
}

} // namespace
} // namespace oru::test
