// Wi-Fi Protected Setup through the real program.
#include "tools/oructl_run.hpp"
#include "tools/wsm_service.hpp"

#include <gmock/gmock.h>

using namespace oru::test;
using nlohmann::json;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::SizeIs;

namespace {

constexpr uint16_t kEnroll = 278;
constexpr uint16_t kConfig = 280;

/// A status reply: elements right behind the header.
Bytes status(int32_t result)
{
    return reply({number16(16, 1), number32(10, static_cast<uint32_t>(result))}, 281, 0);
}

Bytes lastEight(const Bytes &message)
{
    return {message.end() - 8, message.end()};
}

class Wps : public OructlTest {
protected:
    Wps() : wsm(root()) { set(kAa, "bss1.wscEnabledFlag", "1"); }

    WsmService wsm;
};

// ---- enrollment

TEST_F(Wps, EnrollSendsTheMethod)
{
    wsm.answer(kEnroll, {reply({number32(10, 0)})});
    EXPECT_EQ(runWithInput("12345670\n", {"wps", "enroll", "pin", "0", "1", "-"}).exit, 0);
    EXPECT_EQ(run({"wps", "enroll", "pbc", "1", "1"}).exit, 0);
    const Transcript last = run({"wps", "enroll", "ap-pin", "0", "1"});
    EXPECT_EQ(last.exit, 0);
    EXPECT_EQ(last.out + last.err, "");
    const std::vector<Bytes> sent = wsm.requests();
    ASSERT_THAT(sent, SizeIs(3));
    const auto body = [](const Bytes &message) {
        return Bytes(message.begin() + 8, message.end());
    };
    EXPECT_EQ(body(sent[0]), joined({{0, 0, 0, 1}, text(11, "12345670")}));
    EXPECT_EQ(body(sent[1]), joined({{0, 1, 0, 1}, number16(12, 1)}));
    EXPECT_EQ(body(sent[2]), joined({{0, 0, 0, 1}, number16(13, 1)}));
}

TEST_F(Wps, EnrollAsJsonHidesThePin)
{
    wsm.answer(kEnroll, {reply({})});
    EXPECT_EQ(
        jsonOf({"--json", "--insecure-argv", "wps", "enroll", "pin", "0", "1", "12345670"}, 0),
        (json{{"schema", "oructl/1"}, {"wps", "enroll pin"}, {"radio", 0}, {"bss", 1}}));
}

TEST_F(Wps, EnrollIsRefusedWhereWpsIsOffAndThePinIsNotShown)
{
    set(kAa, "bss0.wscEnabledFlag", "0");
    EXPECT_EQ(runWithInput("12345670\n", {"wps", "enroll", "pin", "0", "0"}).err,
              "oructl: wps enroll pin 0 0: failed: This config item not set, Disabled (code 109); "
              "WPS is off for this BSS\n");
    EXPECT_EQ(run({"wps", "enroll", "pbc", "2", "1"}).err,
              "oructl: wps enroll pbc 2 1: refused: Invalid radio ID (code 3); RADIO is 0 to 1\n");
    EXPECT_THAT(run({"wps", "enroll", "pbc", "0", "4"}).err,
                HasSubstr("(code 115); BSS is 0 to 3"));
    EXPECT_EQ(runWithInput("", {"wps", "enroll", "pin", "0", "1"}).exit, 2);
    EXPECT_EQ(run({"wps", "enroll", "pbc", "65536", "1"}).exit, 2) << "never cut";
    EXPECT_THAT(wsm.requests(), IsEmpty());
}

TEST_F(Wps, AnUnexpectedElementFails)
{
    wsm.answer(kEnroll, {reply({number16(14, 1)})});
    EXPECT_THAT(run({"wps", "enroll", "pbc", "0", "1"}).err, HasSubstr("(code 119)"));
    wsm.answer(kConfig, {reply({number16(99, 1)}, 281, 0)});
    EXPECT_THAT(run({"wps", "status", "0", "1"}).err, HasSubstr("(code 119)"));
    EXPECT_THAT(run({"wps", "status", "0", "1", "--wait"}).err, HasSubstr("(code 119)"));
    EXPECT_THAT(run({"wps", "generate", "0", "1"}).err, HasSubstr("(code 119)"));
    EXPECT_THAT(runWithInput("12345670\n", {"wps", "set-pin", "0", "1"}).err,
                HasSubstr("(code 48)"));
    EXPECT_EQ(jsonOf({"--json", "wps", "status", "0", "1"}, 1)["error"]["code"], 119);
}

// ---- status

TEST_F(Wps, StatusIsAWordAndANumber)
{
    wsm.answer(kConfig, {status(0), status(200), status(201), status(-7)});
    EXPECT_EQ(run({"wps", "status", "0", "1"}).out, "result = success (0)\n");
    EXPECT_EQ(run({"wps", "status", "0", "1"}).out, "result = key-too-long (200)\n");
    EXPECT_EQ(run({"wps", "status", "0", "1"}).out, "result = invalid-checksum (201)\n");
    EXPECT_EQ(run({"wps", "status", "0", "1"}).out, "result = -7\n");
    EXPECT_EQ(jsonOf({"--json", "wps", "status", "0", "1"}, 0)["result"],
              (json{{"word", nullptr}, {"number", -7}}));
    wsm.answer(kConfig, {status(201)});
    EXPECT_EQ(jsonOf({"--json", "wps", "status", "0", "1"}, 0),
              (json{{"schema", "oructl/1"},
                    {"wps", "status"},
                    {"radio", 0},
                    {"bss", 1},
                    {"result", {{"word", "invalid-checksum"}, {"number", 201}}}}));
}

TEST_F(Wps, AStatusWithoutResultIsAFailure)
{
    wsm.answer(kConfig, {reply({number16(16, 1)}, 281, 0)});
    EXPECT_THAT(run({"wps", "status", "0", "1"}).err, HasSubstr("WSM gave no result"));
}

TEST_F(Wps, StatusWaitsForAnOutcome)
{
    wsm.answer(kConfig, {status(1), status(0)});
    EXPECT_EQ(run({"wps", "status", "0", "1", "--wait"}).out, "result = success (0)\n");
    EXPECT_THAT(wsm.requests(), SizeIs(2));
    wsm.answer(kConfig, {status(201)});
    const Transcript failed = run({"wps", "status", "0", "1", "--wait", "5"});
    EXPECT_EQ(failed.exit, 1);
    EXPECT_EQ(failed.out, "");
    EXPECT_EQ(failed.err, "oructl: wps status 0 1: the enrollment has failed: invalid-checksum "
                          "(201)\n");
}

TEST_F(Wps, StatusStopsWaitingInTheEnd)
{
    wsm.answer(kConfig, {status(1)});
    const Transcript run = this->run({"wps", "status", "0", "1", "--wait", "1"});
    EXPECT_EQ(run.exit, 3);
    EXPECT_EQ(
        run.err,
        "oructl: wps status 0 1: no outcome within 1 seconds; last result: in-progress (1)\n");
}

// ---- PIN

TEST_F(Wps, SetPinTellsAndStoresIt)
{
    wsm.answer(kConfig, {reply({number32(10, 201), number16(14, 1)}, 281, 0)});
    const Transcript run = runWithInput("12345678\n", {"wps", "set-pin", "1", "2"});
    EXPECT_EQ(run.exit, 0);
    EXPECT_EQ(run.out + run.err, "");
    EXPECT_EQ(value(kWsm, "bss2.appinpasswd"), "\"12345678\"");
    EXPECT_THAT(runWithInput("12345678\n", {"--json", "wps", "set-pin", "1", "2"}).out,
                Not(HasSubstr("12345678")));
}

TEST_F(Wps, SetPinReadsStandardInput)
{
    wsm.answer(kConfig, {reply({}, 281, 0)});
    const Arguments setPin = {"wps", "set-pin", "0", "1"};
    EXPECT_EQ(runWithInput("12345670\n", setPin).exit, 0);
    EXPECT_EQ(value(kWsm, "bss1.appinpasswd"), "\"12345670\"");
    EXPECT_EQ(runWithInput("22222222", setPin).exit, 0);
    EXPECT_EQ(value(kWsm, "bss1.appinpasswd"), "\"22222222\"");
    write("/pin", "33333333\n");
    EXPECT_EQ(run({"wps", "set-pin", "0", "1", "@" + root() + "/pin"}).exit, 0);
    EXPECT_EQ(value(kWsm, "bss1.appinpasswd"), "\"33333333\"");
    write("/pin", "44444444\n");
    EXPECT_EQ(run({"--secret-file", root() + "/pin", "wps", "set-pin", "0", "1"}).exit, 0);
    EXPECT_EQ(value(kWsm, "bss1.appinpasswd"), "\"44444444\"");
    const Transcript none = runWithInput("", setPin);
    EXPECT_EQ(none.exit, 2);
    EXPECT_THAT(none.err, HasSubstr("oructl: wps: PIN: there is no line left to read it from\n"));
    EXPECT_EQ(runWithInput(std::string("1\0002\n", 4), setPin).exit, 2);
    EXPECT_EQ(runWithInput(std::string(1901, '1'), setPin).exit, 1) << "too long for a message";
    wsm.answer(kEnroll, {reply({})});
    EXPECT_EQ(runWithInput("12345670\n", {"wps", "enroll", "pin", "0", "1", "-"}).exit, 0);
    EXPECT_EQ(lastEight(wsm.requests().back()), (Bytes{'1', '2', '3', '4', '5', '6', '7', '0'}));
    EXPECT_EQ(value(kWsm, "bss1.appinpasswd"), "\"44444444\"");
}

TEST_F(Wps, AMisplacedPinIsNotRepeated)
{
    for (const Arguments &arguments :
         {Arguments{"wps", "enroll", "12345670"}, Arguments{"wps", "12345670"},
          Arguments{"wps", "enroll", "0", "1", "12345670"}}) {
        const Transcript run = this->run(arguments);
        EXPECT_EQ(run.exit, 2);
        EXPECT_THAT(run.err, HasSubstr("wps: no such command: it is enroll pin, enroll pbc, "));
        EXPECT_THAT(run.err, Not(HasSubstr("12345670")));
    }
}

TEST_F(Wps, APinOnTheCommandLineIsTakenOnlyWhenThatIsAskedFor)
{
    wsm.answer(kConfig, {reply({}, 281, 0)});
    wsm.answer(kEnroll, {reply({})});
    const Arguments setPin = {"wps", "set-pin", "0", "1", "12345670"};
    const Arguments enroll = {"wps", "enroll", "pin", "0", "1", "12345670"};
    for (Arguments arguments : {setPin, enroll}) {
        SCOPED_TRACE(testing::PrintToString(arguments));
        const Transcript run = this->run(arguments);
        EXPECT_EQ(run.exit, 2);
        EXPECT_THAT(run.err, HasSubstr("PIN: a secret comes from standard input (-) or a file "
                                       "(@FILE), and only with --insecure-argv from the command "
                                       "line\n"));
        EXPECT_THAT(wsm.requests(), IsEmpty());
        EXPECT_EQ(value(kWsm, "bss1.appinpasswd"), std::nullopt);
    }
    EXPECT_EQ(run({"--insecure-argv", "wps", "set-pin", "0", "1", "@2345670"}).exit, 0);
    EXPECT_EQ(value(kWsm, "bss1.appinpasswd"), "\"@2345670\"") << "as it stands";
    EXPECT_EQ(run({"wps", "--insecure-argv", "enroll", "pin", "0", "1", "12345670"}).exit, 0);
    EXPECT_EQ(lastEight(wsm.requests().back()), (Bytes{'1', '2', '3', '4', '5', '6', '7', '0'}));
}

TEST_F(Wps, APinIsMaskedUnlessItIsAskedFor)
{
    set(kWsm, "bss1.appinpasswd", "\"12345670\"");
    EXPECT_EQ(run({"wps", "get-pin", "1"}).out, "pin = ********\n");
    EXPECT_EQ(run({"--show-secrets", "wps", "get-pin", "1"}).out, "pin = \"12345670\"\n");
    EXPECT_EQ(run({"wps", "--show-secrets", "get-pin", "1"}).out, "pin = \"12345670\"\n");
    EXPECT_EQ(jsonOf({"--json", "wps", "get-pin", "1"}, 0),
              (json{{"schema", "oructl/1"}, {"wps", "get-pin"}, {"bss", 1}, {"pin", "********"}}));
    EXPECT_EQ(jsonOf({"--json", "--show-secrets", "wps", "get-pin", "1"}, 0)["pin"], "12345670");
    set(kWsm, "bss1.appinpasswd", "\"\"");
    EXPECT_EQ(run({"wps", "get-pin", "1"}).out, "pin = \"\"\n");
}

TEST_F(Wps, GetPinFails)
{
    EXPECT_THAT(run({"wps", "get-pin", "4"}).err, HasSubstr("(code 115); BSS is 0 to 3"));
    EXPECT_THAT(run({"wps", "get-pin", "3"}).err, HasSubstr("(code 42)"));
    set(kWsm, "bss3.appinpasswd", '"' + std::string(65, '1') + '"');
    EXPECT_THAT(run({"wps", "get-pin", "3"}).err, HasSubstr("(code 108)"));
}

TEST_F(Wps, GenerateAsks)
{
    wsm.answer(kConfig, {reply({number16(15, 1)}, 281, 0)});
    EXPECT_EQ(run({"wps", "generate", "1", "3"}).exit, 0);
    EXPECT_EQ(wsm.requests().at(0), joined({{0x01, 0x18, 0, 16, 0, 1, 0, 3}, number16(15, 1)}));
    EXPECT_EQ(jsonOf({"--json", "wps", "generate", "1", "3"}, 0),
              (json{{"schema", "oructl/1"}, {"wps", "generate"}, {"radio", 1}, {"bss", 3}}));
}

} // namespace
