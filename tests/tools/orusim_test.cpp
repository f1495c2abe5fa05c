// The simulator as a library: stepped and called from one thread, on a clock of its own.
#include "orusim/control.hpp"
#include "orusim/simulator.hpp"
#include "simbox.hpp"

#include <gmock/gmock.h>

#include <poll.h>
#include <random>
#include <sys/resource.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

namespace orusim::test {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Not;
using ::testing::StartsWith;

/// A simulator on factory files, and what it has logged.
class OrusimTest : public ::testing::Test {
protected:
    OrusimTest()
    {
        EXPECT_EQ(initialise(kFactory, false, {}), "");
        start({});
    }

    void start(size_t maxClients)
    {
        sim.reset();
        sim = std::make_unique<Simulator>(
            Simulator::Options{[this](std::string_view line) { lines.emplace_back(line); },
                               maxClients},
            clock);
        ASSERT_EQ(sim->start(), "");
        lines.clear();
    }

    void step() { EXPECT_TRUE(sim->runOnce(0)); }

    /// Sends, steps, and gives the answer that is there then.
    Bytes ask(const Caller &caller, const Bytes &message)
    {
        EXPECT_TRUE(caller.send(message));
        step();
        return caller.ready() ? caller.receive() : Bytes{};
    }

    Box box;
    ManualClock clock;
    std::vector<std::string> lines;
    std::unique_ptr<Simulator> sim;
};

// ---- Messages

TEST_F(OrusimTest, AnswersTheAdministrativeStatusWithOneResultCode)
{
    const Caller caller(kWsmPort);
    EXPECT_EQ(ask(caller, adminStatus(1, 0)), result(0));
    EXPECT_EQ(sim->wsm().adminStatus(0), 1u);
    EXPECT_EQ(sim->wsm().adminStatus(1), 0u);
}

TEST_F(OrusimTest, RefusesTheStatusOfARadioThatIsNotThere)
{
    const Caller caller(kWsmPort);
    EXPECT_EQ(ask(caller, adminStatus(2, 0)), result(1));
    EXPECT_EQ(ask(caller, adminStatus(0, 2)), result(1));
    EXPECT_EQ(sim->wsm().adminStatus(0), 1u);
}

TEST_F(OrusimTest, TakesTheAdministrativeStatusFromTheConfiguration)
{
    Box::set("/var/wsmDefaults", "radio0.adminStatus", "0");
    EXPECT_EQ(sim->wsm().adminStatus(0), 1u);
    const Caller caller(kWsmPort);
    EXPECT_TRUE(ask(caller, kWsmCommit).empty());
    EXPECT_EQ(sim->wsm().adminStatus(0), 0u);
}

TEST_F(OrusimTest, AnswersSeveralRequestsOnOneConnection)
{
    const Caller caller(kWsmPort);
    EXPECT_EQ(ask(caller, adminStatus(0, 0)), result(0));
    EXPECT_EQ(ask(caller, adminStatus(0, 1)), result(0));
    EXPECT_EQ(sim->clients(), 1u);
}

TEST_F(OrusimTest, LogsAMessageAsOneLineWithEveryFieldAndElement)
{
    const Caller caller(kWsmPort);
    ask(caller, adminStatus(1, 0));
    EXPECT_THAT(lines, ElementsAre("WSM: 264 set administrative status: reply size 20000, radio 1, "
                                   "status 0"));
}

TEST_F(OrusimTest, IsNotFoundWithAnotherVersion)
{
    EXPECT_FALSE(Caller(kWsmPort, 1002).connected());
    EXPECT_FALSE(Caller(kAaPort + 1).connected());
}

TEST_F(OrusimTest, ClosesAfterAMessageItDoesNotKnow)
{
    const Caller caller(kWsmPort);
    ASSERT_TRUE(caller.send({0x03, 0xe7, 0x00, 0x05, 0x00}));
    step();
    EXPECT_TRUE(caller.closed());
    EXPECT_THAT(lines, ElementsAre("WSM: unknown message 999 of 5 bytes, closing"));
}

TEST_F(OrusimTest, DoesNotTakeTheOtherServicesNotice)
{
    const Caller wsm(kWsmPort);
    const Caller aa(kAaPort);
    ASSERT_TRUE(wsm.send(kAaCommit) && aa.send(kWsmCommit));
    step();
    EXPECT_TRUE(wsm.closed() && aa.closed());
    EXPECT_THAT(lines, Contains("WSM: unknown message 10498 of 4 bytes, closing"));
    EXPECT_THAT(lines, Contains("AA: unknown message 268 of 4 bytes, closing"));
}

// ---- Malformed messages

struct MalformedRow {
    const char *what;
    Bytes message;
};

Bytes changed(Bytes message, size_t at, uint8_t value)
{
    message.at(at) = value;
    return message;
}

Bytes longer(Bytes message, std::initializer_list<uint8_t> more)
{
    message.insert(message.end(), more);
    message[3] = static_cast<uint8_t>(message.size());
    return message;
}

const MalformedRow kMalformed[] = {
    {"one byte", {0x01}},
    {"no length", {0x01, 0x08}},
    {"a length below the bytes", changed(adminStatus(0, 1), 3, 0x17)},
    {"a length beyond the bytes", changed(adminStatus(0, 1), 3, 0x19)},
    {"a notice with a body", {0x01, 0x0c, 0x00, 0x05, 0x00}},
    {"a body that ends in its field", {0x01, 0x08, 0x00, 0x06, 0x00, 0x00}},
    {"no elements", {0x01, 0x08, 0x00, 0x08, 0x00, 0x00, 0x4e, 0x20}},
    {"an element of another type", changed(adminStatus(0, 1), 11, 0x0a)},
    {"an element of another kind", changed(adminStatus(0, 1), 9, 0x08)},
    {"an element whose length is not its kind's", changed(adminStatus(0, 1), 13, 0x01)},
    {"an element that reaches past the end", changed(adminStatus(0, 1), 21, 0x03)},
    {"an element with a length of 65535", changed(changed(adminStatus(0, 1), 12, 0xff), 13, 0xff)},
    {"the same element twice", changed(adminStatus(0, 1), 19, 0x09)},
    {"an element too many",
     longer(adminStatus(0, 1), {0x00, 0x02, 0x00, 0x08, 0x00, 0x02, 0x00, 0x01})},
    {"a byte too many", longer(adminStatus(0, 1), {0x00})},
};

TEST_F(OrusimTest, ClosesAfterAMalformedMessage)
{
    for (const auto &[what, message] : kMalformed) {
        lines.clear();
        const Caller caller(kWsmPort);
        ASSERT_TRUE(caller.send(message)) << what;
        step();
        EXPECT_TRUE(caller.closed()) << what;
        EXPECT_THAT(lines, ElementsAre(StartsWith("WSM: malformed message of "))) << what;
    }
    EXPECT_EQ(sim->wsm().adminStatus(0), 1u);
}

TEST_F(OrusimTest, ShowsTheBeginningOfAMalformedMessage)
{
    Bytes message(40, 0x0a);
    const Caller caller(kWsmPort);
    ASSERT_TRUE(caller.send(message));
    step();
    ASSERT_EQ(lines.size(), 1u);
    EXPECT_THAT(lines[0], StartsWith("WSM: malformed message of 40 bytes, closing: 0a:0a:"));
    EXPECT_THAT(lines[0], ::testing::EndsWith("0a:0a..."));
}

TEST_F(OrusimTest, RefusesEveryCutOfAGoodMessage)
{
    const Bytes good = adminStatus(0, 0);
    for (size_t length = 1; length < good.size(); ++length) {
        const Bytes cut(good.begin(), good.begin() + static_cast<std::ptrdiff_t>(length));
        EXPECT_TRUE(sim->wsm().receive(cut).close) << length;
        if (length < 4) continue;
        // The same with a length field that fits what is left.
        EXPECT_TRUE(sim->wsm().receive(changed(cut, 3, static_cast<uint8_t>(length))).close)
            << length;
    }
    EXPECT_TRUE(sim->wsm().receive({}).close);
    EXPECT_EQ(sim->wsm().adminStatus(0), 1u);
    EXPECT_FALSE(sim->wsm().receive(good).close);
}

TEST_F(OrusimTest, OutlivesRandomMessages)
{
    std::mt19937 random(20061);
    for (int i = 0; i < 20000; ++i) {
        Bytes message(random() % 64);
        for (uint8_t &byte : message) byte = static_cast<uint8_t>(random());
        if (message.size() >= 4 && i % 2 == 0) {
            // A known type and the right length, so that the rest is decoded.
            message[0] = 0x01, message[1] = i % 4 == 0 ? 0x08 : 0x0c;
            message[2] = 0, message[3] = static_cast<uint8_t>(message.size());
        }
        sim->wsm().receive(message);
        sim->aa().receive(message);
    }
    const Caller caller(kWsmPort);
    EXPECT_EQ(ask(caller, adminStatus(0, 0)), result(0));
}

TEST_F(OrusimTest, OutlivesGoodMessagesWithBytesChanged)
{
    std::mt19937 random(7);
    for (int i = 0; i < 20000; ++i) {
        Bytes message = adminStatus(0, 1);
        for (unsigned n = random() % 4; n > 0; --n)
            message[random() % message.size()] = static_cast<uint8_t>(random());
        sim->wsm().receive(message);
    }
    const Caller caller(kWsmPort);
    EXPECT_EQ(ask(caller, adminStatus(0, 0)), result(0));
}

TEST_F(OrusimTest, RefusesAMessageOfMoreBytesThanItsLengthCanTell)
{
    const Caller caller(kWsmPort);
    ASSERT_TRUE(caller.send(Bytes(70000, 0)));
    step();
    EXPECT_TRUE(caller.closed());
    EXPECT_THAT(lines, ElementsAre(StartsWith("WSM: malformed message of 65536 bytes")));
}

// ---- Reloading

TEST_F(OrusimTest, ReportsEachKeyThatACommitChanges)
{
    Box::set("/var/wsmDefaults", "mimoFlag", "0");
    Box::set("/var/wsmDefaults", "bss0.ssId", "two words");
    const Caller caller(kWsmPort);
    EXPECT_TRUE(ask(caller, kWsmCommit).empty());
    EXPECT_THAT(lines,
                ElementsAre("WSM: 268 commit", "WSM: reloaded /var/wsmDefaults: 2 changes",
                            "WSM:   bss0.ssId: oru -> \"two words\"", "WSM:   mimoFlag: 1 -> 0"));
}

TEST_F(OrusimTest, ComparesWithTheLastReload)
{
    Box::set("/var/wsmDefaults", "mimoFlag", "0");
    const Caller caller(kWsmPort);
    ask(caller, kWsmCommit);
    lines.clear();
    ask(caller, kWsmCommit);
    EXPECT_THAT(lines, ElementsAre("WSM: 268 commit", "WSM: reloaded /var/wsmDefaults: 0 changes"));
}

TEST_F(OrusimTest, ReportsKeysThatComeAndGo)
{
    box.write("/var/1x.conf", "a=1\nb=2\n");
    const Caller caller(kAaPort);
    ask(caller, kAaCommit);
    lines.clear();
    box.write("/var/1x.conf", "b=2\nc=\n");
    ask(caller, kAaCommit);
    EXPECT_THAT(lines, ElementsAre("AA: 10498 commit", "AA: reloaded /var/1x.conf: 2 changes",
                                   "AA:   a: 1 -> (absent)", "AA:   c: (absent) -> \"\"",
                                   "AA: bss 0: no security mode", "AA: bss 1: no security mode",
                                   "AA: bss 2: no security mode", "AA: bss 3: no security mode"));
}

TEST_F(OrusimTest, SaysOneChange)
{
    Box::set("/var/1x.conf", "bss0.sessionTimeout", "60");
    const Caller caller(kAaPort);
    ask(caller, kAaCommit);
    EXPECT_THAT(lines, Contains("AA: reloaded /var/1x.conf: 1 change"));
}

TEST_F(OrusimTest, MasksTheValuesOfSecretKeys)
{
    for (const char *key : {"bss1.wpaPsk", "bss3.wepKey.4", "radiusSecret.2"})
        Box::set("/var/1x.conf", key, "hush");
    Box::set("/var/wsmDefaults", "bss2.appinpasswd", "hush");
    Box::set("/var/1x.conf", "bss0.wepKeyLen", "5");
    const Caller wsm(kWsmPort);
    const Caller aa(kAaPort);
    ask(wsm, kWsmCommit);
    ask(aa, kAaCommit);
    EXPECT_THAT(lines, Contains("AA:   bss1.wpaPsk: (absent) -> ***"));
    EXPECT_THAT(lines, Contains("AA:   bss3.wepKey.4: (absent) -> ***"));
    EXPECT_THAT(lines, Contains("AA:   radiusSecret.2: (absent) -> ***"));
    EXPECT_THAT(lines, Contains("WSM:   bss2.appinpasswd: *** -> ***"));
    EXPECT_THAT(lines, Contains("AA:   bss0.wepKeyLen: 13 -> 5"));
    EXPECT_THAT(lines, Not(Contains(HasSubstr("hush"))));
}

TEST_F(OrusimTest, KeepsALineALineWhateverAValueHolds)
{
    Box::set("/var/1x.conf", "bss0.ssId", "a\nAA: reloaded\x01\\");
    const Caller caller(kAaPort);
    ask(caller, kAaCommit);
    EXPECT_THAT(lines, Contains("AA:   bss0.ssId: oru -> \"a\\x0AAA: reloaded\\x01\\x5C\""));
}

TEST_F(OrusimTest, KeepsWhatItHoldsWhenTheFileCantBeRead)
{
    fs::remove(box.at("/var/1x.conf"));
    const size_t keys = sim->aa().configuration().size();
    const Caller caller(kAaPort);
    ask(caller, kAaCommit);
    EXPECT_THAT(lines, Contains("AA: can't read /var/1x.conf, keeping what was loaded"));
    EXPECT_EQ(sim->aa().configuration().size(), keys);
}

TEST_F(OrusimTest, ReloadsBothServicesWhenTold)
{
    Box::set("/var/wsmDefaults", "mimoFlag", "0");
    sim->reload();
    step();
    EXPECT_THAT(lines,
                ElementsAre("WSM: reloaded /var/wsmDefaults: 1 change", "WSM:   mimoFlag: 1 -> 0",
                            "AA: reloaded /var/1x.conf: 0 changes", "AA: bss 0: open",
                            "AA: bss 1: open", "AA: bss 2: open", "AA: bss 3: open"));
}

// ---- Faults

TEST_F(OrusimTest, StaysSilentWhenToldTo)
{
    sim->wsm().faults().set({Fault::Kind::silent, 0});
    const Caller caller(kWsmPort);
    ASSERT_TRUE(caller.send(adminStatus(0, 0)));
    step();
    EXPECT_FALSE(caller.ready());
    EXPECT_EQ(sim->wsm().adminStatus(0), 0u) << "the request itself is carried out";
    EXPECT_EQ(sim->clients(), 1u);
    EXPECT_THAT(lines, Contains("WSM:   fault: silent"));
}

TEST_F(OrusimTest, AnswersLateWithoutMakingOthersWait)
{
    sim->wsm().faults().set({Fault::Kind::slow, 500}, 1);
    const Caller slow(kWsmPort);
    const Caller quick(kWsmPort);
    EXPECT_TRUE(ask(slow, adminStatus(0, 0)).empty());
    EXPECT_EQ(ask(quick, adminStatus(0, 1)), result(0));

    clock.advance(499);
    step();
    EXPECT_FALSE(slow.ready());
    clock.advance(1);
    step();
    ASSERT_TRUE(slow.ready());
    EXPECT_EQ(slow.receive(), result(0));
}

TEST_F(OrusimTest, SendsLateAnswersInTheOrderInWhichTheyFallDue)
{
    const Caller first(kWsmPort);
    const Caller second(kWsmPort);
    sim->wsm().faults().set({Fault::Kind::slow, 500});
    ask(first, adminStatus(0, 0));
    sim->wsm().faults().set({Fault::Kind::slow, 100});
    ask(second, adminStatus(0, 0));
    clock.advance(100);
    step();
    EXPECT_TRUE(second.ready());
    EXPECT_FALSE(first.ready());
    clock.advance(400);
    step();
    EXPECT_TRUE(first.ready());
}

TEST_F(OrusimTest, ForgetsTheLateAnswerOfACallerWhoHasGone)
{
    sim->wsm().faults().set({Fault::Kind::slow, 500});
    {
        const Caller caller(kWsmPort);
        ask(caller, adminStatus(0, 0));
    }
    step();
    EXPECT_EQ(sim->clients(), 0u);
    clock.advance(500);
    step();
    EXPECT_EQ(sim->clients(), 0u);
}

TEST_F(OrusimTest, OwesNoCallerMoreThan64LateAnswers)
{
    sim->wsm().faults().set({Fault::Kind::slow, 500});
    const Caller caller(kWsmPort);
    for (int i = 0; i < 64; ++i) ask(caller, adminStatus(0, 0));
    EXPECT_EQ(sim->clients(), 1u);
    ask(caller, adminStatus(0, 0));
    EXPECT_EQ(sim->clients(), 0u);
    EXPECT_THAT(lines, Contains("WSM: too many requests at once, closing"));
}

TEST_F(OrusimTest, ClosesEarlyWhenToldTo)
{
    sim->wsm().faults().set({Fault::Kind::close, 0});
    const Caller caller(kWsmPort);
    ASSERT_TRUE(caller.send(adminStatus(0, 0)));
    step();
    EXPECT_TRUE(caller.closed());
    EXPECT_EQ(sim->wsm().adminStatus(0), 1u) << "nothing is carried out";
}

TEST_F(OrusimTest, AnswersWithAWrongElementWhenToldTo)
{
    sim->wsm().faults().set({Fault::Kind::wrong, 0});
    const Caller caller(kWsmPort);
    Bytes expected = result(0);
    expected[11] = 0x03;
    EXPECT_EQ(ask(caller, adminStatus(0, 0)), expected);
}

TEST_F(OrusimTest, CutsTheAnswerWhenToldTo)
{
    const Caller caller(kWsmPort);
    const Bytes whole = result(0);
    for (uint32_t length = 1; length <= whole.size() + 1; ++length) {
        sim->wsm().faults().set({Fault::Kind::cut, length});
        const size_t left = std::min<size_t>(length, whole.size());
        EXPECT_EQ(ask(caller, adminStatus(0, 0)),
                  Bytes(whole.begin(), whole.begin() + static_cast<std::ptrdiff_t>(left)));
    }
}

TEST_F(OrusimTest, FaultsStrikeAsManyRequestsAsToldAndNoNotices)
{
    sim->wsm().faults().set({Fault::Kind::silent, 0}, 2);
    const Caller caller(kWsmPort);
    EXPECT_TRUE(ask(caller, adminStatus(0, 0)).empty());
    ask(caller, kWsmCommit);
    EXPECT_EQ(sim->wsm().faults().text(), "silent (1 left)");
    EXPECT_TRUE(ask(caller, adminStatus(0, 0)).empty());
    EXPECT_EQ(ask(caller, adminStatus(0, 0)), result(0));
    EXPECT_EQ(sim->wsm().faults().text(), "none");
}

TEST_F(OrusimTest, FaultsLastUntilTheyAreCleared)
{
    sim->wsm().faults().set({Fault::Kind::silent, 0});
    const Caller caller(kWsmPort);
    for (int i = 0; i < 5; ++i) EXPECT_TRUE(ask(caller, adminStatus(0, 0)).empty());
    sim->wsm().faults().clear();
    EXPECT_EQ(ask(caller, adminStatus(0, 0)), result(0));
}

// ---- Many callers

TEST_F(OrusimTest, ServesOneCallerAmongAThousandIdleOnes)
{
    rlimit limit{};
    ASSERT_EQ(::getrlimit(RLIMIT_NOFILE, &limit), 0);
    limit.rlim_cur = std::min<rlim_t>(limit.rlim_max, 4096);
    ASSERT_EQ(::setrlimit(RLIMIT_NOFILE, &limit), 0);
    ASSERT_GE(limit.rlim_cur, 2200u) << "both ends of every connection are in this process";
    start({});

    std::vector<Caller> idle;
    for (int i = 0; i < 1000; ++i) {
        idle.emplace_back(i % 2 == 0 ? kWsmPort : kAaPort);
        ASSERT_TRUE(idle.back().connected()) << i;
        if (i % 100 == 99) {
            step();
            step();
        }
    }
    EXPECT_EQ(sim->clients(), 1000u);
    const Caller caller(kWsmPort);
    EXPECT_EQ(ask(caller, adminStatus(0, 0)), result(0));
    EXPECT_FALSE(idle.front().ready()) << "nobody is dropped";

    idle.clear();
    while (sim->clients() > 1) step();
    EXPECT_EQ(ask(caller, adminStatus(0, 1)), result(0));
}

TEST_F(OrusimTest, DropsWhoWasIdleForLongestWhenThereAreTooMany)
{
    start(3);
    const Caller first(kWsmPort);
    const Caller second(kWsmPort);
    const Caller third(kWsmPort);
    EXPECT_EQ(ask(second, adminStatus(0, 0)), result(0));
    EXPECT_EQ(ask(third, adminStatus(0, 0)), result(0));
    EXPECT_EQ(ask(first, adminStatus(0, 0)), result(0));

    const Caller fourth(kAaPort);
    step();
    EXPECT_TRUE(second.closed());
    EXPECT_FALSE(first.ready() || third.ready() || fourth.ready());
    EXPECT_THAT(lines,
                Contains("WSM: too many clients, dropping the one that was idle for longest"));
}

TEST_F(OrusimTest, DropsWhoWaitsForALateAnswerLast)
{
    start(2);
    sim->wsm().faults().set({Fault::Kind::slow, 500}, 1);
    const Caller waiting(kWsmPort);
    ask(waiting, adminStatus(0, 0));
    const Caller idle(kWsmPort);
    ask(idle, adminStatus(0, 1));
    const Caller last(kWsmPort);
    step();
    EXPECT_TRUE(idle.closed());
    clock.advance(500);
    step();
    EXPECT_EQ(waiting.receive(), result(0));
}

TEST_F(OrusimTest, DropsIdleCallersWhenDescriptorsRunOut)
{
    std::vector<Caller> idle;
    for (int i = 0; i < 3; ++i) idle.emplace_back(kWsmPort);
    step();
    const Caller caller(kWsmPort);
    ASSERT_TRUE(caller.send(adminStatus(0, 0)));

    // No descriptor above those in use.
    rlimit before{};
    ASSERT_EQ(::getrlimit(RLIMIT_NOFILE, &before), 0);
    const int lowest = ::dup(0);
    ::close(lowest);
    rlimit tight = before;
    tight.rlim_cur = static_cast<rlim_t>(lowest);
    ASSERT_EQ(::setrlimit(RLIMIT_NOFILE, &tight), 0);
    step();
    ASSERT_EQ(::setrlimit(RLIMIT_NOFILE, &before), 0);

    EXPECT_TRUE(idle[0].closed());
    EXPECT_FALSE(idle[1].ready());
    EXPECT_EQ(caller.receive(), result(0));
}

TEST_F(OrusimTest, DropsACallerThatNeverReads)
{
    const Caller caller(kWsmPort);
    bool sent = true;
    for (int i = 0; i < 100000 && sent && sim->clients() <= 1; ++i) {
        sent = caller.send(adminStatus(0, 0));
        step();
        if (sim->clients() == 0) break;
    }
    EXPECT_EQ(sim->clients(), 0u);
    EXPECT_THAT(lines, Contains("WSM: can't send the answer, closing"));
}

// ---- Start and end

TEST_F(OrusimTest, RefusesToRunTwiceInOneFolder)
{
    Simulator second{{{}, 0}, clock};
    EXPECT_THAT(second.start(),
                HasSubstr("can't listen as WSM (port 5000002 below " + box.at("/run/oru") +
                          "): such a service runs there already"));
    const Caller caller(kWsmPort);
    EXPECT_EQ(ask(caller, adminStatus(0, 0)), result(0)) << "the first goes on";
}

TEST_F(OrusimTest, ReplacesSocketsThatADeadOneLeft)
{
    sim.reset();
    for (const char *name : {"5000002.1001", "5000003.1001", "orusim.control"}) {
        const int socket = ::socket(AF_UNIX, SOCK_SEQPACKET | SOCK_CLOEXEC, 0);
        sockaddr_un address{AF_UNIX, {}};
        std::snprintf(address.sun_path, sizeof address.sun_path, "%s/run/oru/%s",
                      box.root().c_str(), name);
        ASSERT_EQ(::bind(socket, reinterpret_cast<sockaddr *>(&address), sizeof address), 0);
        ::close(socket);
        ASSERT_TRUE(fs::exists(address.sun_path));
    }
    start({});
    const Caller caller(kWsmPort);
    EXPECT_EQ(ask(caller, adminStatus(0, 0)), result(0));
}

TEST_F(OrusimTest, RemovesItsSocketsAtTheEnd)
{
    EXPECT_FALSE(fs::is_empty(box.at("/run/oru")));
    sim.reset();
    EXPECT_TRUE(fs::is_empty(box.at("/run/oru")));
}

TEST_F(OrusimTest, SaysWhichFileItCantReadAtTheStart)
{
    sim.reset();
    fs::remove(box.at("/var/1x.conf"));
    Simulator second{{{}, 0}, clock};
    EXPECT_THAT(second.start(), StartsWith("can't read " + box.at("/var/1x.conf")));
}

TEST_F(OrusimTest, StopsWhenTold)
{
    EXPECT_TRUE(sim->runOnce(0));
    sim->stop();
    EXPECT_FALSE(sim->runOnce(-1));
    sim->run();
}

TEST_F(OrusimTest, HasADescriptorForOthersLoops)
{
    pollfd entry{sim->descriptor(), POLLIN, 0};
    EXPECT_EQ(::poll(&entry, 1, 0), 0);
    const Caller caller(kWsmPort);
    EXPECT_EQ(::poll(&entry, 1, 0), 1);
    step();
    EXPECT_EQ(::poll(&entry, 1, 0), 0);
    ASSERT_TRUE(caller.send(adminStatus(0, 0)));
    EXPECT_EQ(::poll(&entry, 1, 0), 1);
}

TEST_F(OrusimTest, WorksInAFolderWithALongName)
{
    sim.reset();
    const std::string longRoot = box.root() + "/" + std::string(120, 'x');
    fs::create_directories(longRoot);
    ::setenv("ORU_ROOT", longRoot.c_str(), 1);
    EXPECT_EQ(initialise(kFactory, false, {}), "");
    start({});
    EXPECT_TRUE(fs::is_socket(longRoot + "/run/oru/orusim.control"));
    const Caller caller(kWsmPort);
    EXPECT_EQ(ask(caller, adminStatus(0, 0)), result(0));
    sim.reset();
    EXPECT_TRUE(fs::is_empty(longRoot + "/run/oru"));
}

// ---- Commands

TEST_F(OrusimTest, CommandsSetFaults)
{
    struct {
        const char *command;
        const char *wsm;
        const char *aa;
    } const rows[] = {
        {"fault wsm silent", "silent", "none"},
        {"fault aa close count 1", "silent", "close (1 left)"},
        {"fault wsm slow 500", "slow 500", "close (1 left)"},
        {"  fault   all  cut 5 count 3\n", "cut 5 (3 left)", "cut 5 (3 left)"},
        {"fault wsm wrong", "wrong", "cut 5 (3 left)"},
        {"fault all none", "none", "none"},
        {"fault wsm slow 0", "slow 0", "none"},
        {"fault wsm slow 3600000", "slow 3600000", "none"},
        {"fault wsm cut 65535", "cut 65535", "none"},
        {"fault wsm none count 3", "none", "none"},
    };
    for (const auto &[command, wsm, aa] : rows) {
        EXPECT_EQ(obey(*sim, command), "ok\n") << command;
        EXPECT_EQ(sim->wsm().faults().text(), wsm) << command;
        EXPECT_EQ(sim->aa().faults().text(), aa) << command;
    }
}

TEST_F(OrusimTest, CommandsThatAreNoneChangeNothing)
{
    sim->wsm().faults().set({Fault::Kind::silent, 0});
    for (const char *command : {"",
                                " ",
                                "fault",
                                "fault wsm",
                                "fault wsm loud",
                                "fault bsm silent",
                                "fault silent",
                                "fault wsm slow",
                                "fault wsm slow x",
                                "fault wsm slow -1",
                                "fault wsm slow 3600001",
                                "fault wsm slow 99999999999",
                                "fault wsm slow 5x",
                                "fault wsm cut",
                                "fault wsm cut 0",
                                "fault wsm cut 65536",
                                "fault wsm close 5",
                                "fault wsm close count",
                                "fault wsm close count 0",
                                "fault wsm close count 1 2",
                                "fault wsm close counts 1",
                                "status now",
                                "quit please",
                                "reboot"}) {
        EXPECT_THAT(obey(*sim, command), StartsWith("error: ")) << command;
        EXPECT_EQ(sim->wsm().faults().text(), "silent") << command;
    }
    step();
}

TEST_F(OrusimTest, CommandStatusTellsWhatRuns)
{
    obey(*sim, "fault wsm slow 5 count 2");
    const Caller caller(kWsmPort);
    ask(caller, kWsmCommit);
    const std::string status = obey(*sim, "status");
    EXPECT_THAT(status, StartsWith("ok\nclients: 1\n"));
    EXPECT_THAT(status, HasSubstr("WSM: port 5000002, "));
    EXPECT_THAT(status,
                HasSubstr(" keys of /var/wsmDefaults, 1 messages, fault slow 5 (2 left)\n"));
    EXPECT_THAT(status, HasSubstr(" keys of /var/1x.conf, 0 messages, fault none\n"));
}

TEST_F(OrusimTest, CommandQuitStops)
{
    EXPECT_EQ(obey(*sim, "quit"), "ok\n");
    EXPECT_FALSE(sim->runOnce(0));
}

/// Connects to the control socket of the box.
Descriptor commander(const Box &box)
{
    Descriptor socket{::socket(AF_UNIX, SOCK_SEQPACKET | SOCK_CLOEXEC | SOCK_NONBLOCK, 0)};
    sockaddr_un address{AF_UNIX, {}};
    std::snprintf(address.sun_path, sizeof address.sun_path, "%s/run/oru/orusim.control",
                  box.root().c_str());
    EXPECT_EQ(::connect(socket.number(), reinterpret_cast<sockaddr *>(&address), sizeof address),
              0);
    return socket;
}

std::string received(const Descriptor &socket)
{
    char text[kControlRoom];
    const ssize_t got = ::recv(socket.number(), text, sizeof text, 0);
    return {text, got > 0 ? static_cast<size_t>(got) : 0};
}

TEST_F(OrusimTest, TakesCommandsOverItsSocket)
{
    const Descriptor first = commander(box);
    const Descriptor second = commander(box);
    step();
    step();
    ASSERT_EQ(::send(second.number(), "fault wsm silent", 16, 0), 16);
    step();
    EXPECT_EQ(received(second), "ok\n");
    ASSERT_EQ(::send(first.number(), "nonsense", 8, 0), 8);
    step();
    EXPECT_THAT(received(first), StartsWith("error: "));
    EXPECT_EQ(sim->wsm().faults().text(), "silent");
}

TEST_F(OrusimTest, TakesCommandsOfItsOwnUserOnly)
{
    struct stat status {};
    ASSERT_EQ(::stat(box.at("/run/oru/orusim.control").c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 0777, 0600u);
}

TEST_F(OrusimTest, OutlivesCommandersWhoSayNothing)
{
    std::vector<Descriptor> idle;
    for (int i = 0; i < 40; ++i) {
        idle.push_back(commander(box));
        step();
    }
    const Descriptor last = commander(box);
    step();
    ASSERT_EQ(::send(last.number(), "status", 6, 0), 6);
    step();
    EXPECT_THAT(received(last), StartsWith("ok\n"));
}

} // namespace
} // namespace orusim::test
