// Messages between processes. A connection is made before it is accepted, so that one process can
// be both sides.
#include "asf/child.hpp"
#include "oruAsf.h"
#include "support/tempdir.hpp"

#include <gtest/gtest.h>

#include <cerrno>
#include <chrono>
#include <csignal>
#include <cstring>
#include <fcntl.h>
#include <memory>
#include <string>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/time.h>
#include <sys/un.h>
#include <vector>

using namespace oru::test;
using std::string;

namespace {

constexpr uint32_t kPort = 5000002;
constexpr uint32_t kVersion = 1001;
constexpr uint32_t kWait = 10000; // for what must come; nothing waits as long

template <class T, void (*give)(T *)>
struct Give {
    void operator()(T *handle) const { give(handle); }
};
using Ipc = std::unique_ptr<OruAsfIpc, Give<OruAsfIpc, oruAsfIpcClose>>;
using Listener = std::unique_ptr<OruAsfListener, Give<OruAsfListener, oruAsfIpcUnlisten>>;

Listener listenAt(uint32_t port = kPort, uint32_t version = kVersion)
{
    return Listener{oruAsfIpcListen(port, version)};
}

Ipc connected(uint32_t port = kPort, uint32_t version = kVersion)
{
    Ipc ipc{oruAsfIpcOpen(2, 1, 0)};
    EXPECT_NE(ipc, nullptr);
    if (oruAsfIpcConnect(ipc.get(), "localhost", port, version) != 0) ipc.reset();
    return ipc;
}

Ipc accepted(const Listener &listener)
{
    return Ipc{oruAsfIpcAccept(listener.get(), kWait)};
}

bool send(const Ipc &ipc, const string &message)
{
    const auto size = static_cast<uint32_t>(message.size());
    return oruAsfIpcSend(ipc.get(), message.data(), size) == static_cast<int32_t>(size);
}

/// The message that comes, "(gone)" when the peer has gone, "(none)" when nothing is there.
string receive(const Ipc &ipc, uint32_t size = 20000)
{
    string message(size, '?');
    const int32_t got = oruAsfIpcRecv(ipc.get(), message.data(), size);
    if (got <= 0) return got == 0 ? "(gone)" : "(none)";
    message.resize(static_cast<size_t>(got));
    return message;
}

class Ipcs : public ::testing::Test {
protected:
    [[nodiscard]] string socketPath() const { return box.at("/run/oru/5000002.1001"); }

    TempDir box;
};

using Connect = Ipcs;
using Messages = Ipcs;
using Wait = Ipcs;
using Listen = Ipcs;
using Trust = Ipcs;

int64_t msSince(std::chrono::steady_clock::time_point start)
{
    return std::chrono::duration_cast<std::chrono::milliseconds>(std::chrono::steady_clock::now() -
                                                                 start)
        .count();
}

} // namespace

TEST_F(Connect, FindsNobodyWhereNobodyListens)
{
    EXPECT_EQ(connected(), nullptr) << "no folder";
    const Listener listener = listenAt();
    ASSERT_NE(listener, nullptr);
    EXPECT_NE(connected(), nullptr);
    EXPECT_EQ(connected(kPort, kVersion + 1), nullptr) << "another version";
    EXPECT_EQ(connected(kPort, 0), nullptr) << "another version";
    EXPECT_EQ(connected(kPort + 1), nullptr) << "another port";
}

TEST_F(Connect, TellsPortsAndVersionsApart)
{
    const Listener listeners[] = {listenAt(1, 11), listenAt(11, 1),
                                  listenAt(UINT32_MAX, UINT32_MAX)};
    const Ipc client = connected(11, 1);
    ASSERT_NE(client, nullptr);
    EXPECT_EQ(oruAsfIpcAccept(listeners[0].get(), 0), nullptr);
    EXPECT_NE(accepted(listeners[1]), nullptr);
    EXPECT_NE(connected(UINT32_MAX, UINT32_MAX), nullptr);
}

TEST_F(Connect, KnowsThisMachineOnly)
{
    const Listener listener = listenAt();
    for (const char *host : {"", "127.0.0.1", "localhost.", "Localhost", "otherhost"}) {
        const Ipc ipc{oruAsfIpcOpen(2, 1, 0)};
        EXPECT_EQ(oruAsfIpcConnect(ipc.get(), host, kPort, kVersion), -1) << host;
    }
    const Ipc ipc{oruAsfIpcOpen(2, 1, 0)};
    EXPECT_EQ(oruAsfIpcConnect(ipc.get(), nullptr, kPort, kVersion), -1);
    EXPECT_EQ(oruAsfIpcConnect(nullptr, "localhost", kPort, kVersion), -1);
    EXPECT_EQ(oruAsfIpcConnect(ipc.get(), "localhost", kPort, kVersion), 0)
        << "nothing was done yet";
}

TEST_F(Connect, FindsNobodyBehindASocketThatIsStale)
{
    EXPECT_EQ(inChild([] { return oruAsfIpcListen(kPort, kVersion) != nullptr ? 0 : 1; }), 0);
    struct stat status {};
    ASSERT_EQ(::stat(socketPath().c_str(), &status), 0) << "the service died without a word";
    EXPECT_EQ(connected(), nullptr);
}

TEST_F(Connect, ReachesAServiceBelowALongRoot)
{
    string root = box.at();
    for (int i = 0; i < 4; ++i) root += "/" + string(60, static_cast<char>('a' + i));
    ::setenv("ORU_ROOT", root.c_str(), 1);
    const Listener listener = listenAt();
    ASSERT_NE(listener, nullptr);
    EXPECT_TRUE(std::filesystem::is_socket(root + "/run/oru/5000002.1001"));
    const Ipc client = connected();
    ASSERT_NE(client, nullptr);
    EXPECT_TRUE(send(client, "hello"));
    EXPECT_EQ(receive(accepted(listener)), "hello");
    EXPECT_EQ(oruAsfIpcListen(kPort, kVersion), nullptr) << "it is taken";
}

TEST_F(Connect, FailsBelowARootThatIsTooLong)
{
    ::setenv("ORU_ROOT", string(5000, 'r').c_str(), 1);
    EXPECT_EQ(connected(), nullptr);
    errno = 0;
    EXPECT_EQ(oruAsfIpcListen(kPort, kVersion), nullptr);
    EXPECT_EQ(errno, ENAMETOOLONG);
}

TEST_F(Messages, KeepTheirBoundariesAndBytes)
{
    const Listener listener = listenAt();
    const Ipc client = connected();
    const Ipc service = accepted(listener);
    const string all[] = {string("\0\1\2\0", 4), "x", string(20000, 'm'), string(1, '\0')};
    for (const string &message : all) EXPECT_TRUE(send(client, message));
    for (const string &message : all) EXPECT_EQ(receive(service), message);
    for (const string &message : all) EXPECT_TRUE(send(service, message));
    for (const string &message : all) EXPECT_EQ(receive(client), message);
}

TEST_F(Messages, AreCutToTheSizeOfTheBuffer)
{
    const Listener listener = listenAt();
    const Ipc client = connected();
    const Ipc service = accepted(listener);
    ASSERT_TRUE(send(client, "0123456789") && send(client, "next"));
    char buffer[6] = "?????";
    EXPECT_EQ(oruAsfIpcRecv(service.get(), buffer, 4), 4);
    EXPECT_EQ(string(buffer, 5), "0123?");
    EXPECT_EQ(receive(service), "next") << "the rest is gone";
}

TEST_F(Messages, OfAPeerThatHasGoneAreFollowedByItsAbsence)
{
    const Listener listener = listenAt();
    const Ipc client = connected();
    Ipc service = accepted(listener);
    ASSERT_TRUE(send(service, "last words"));
    service.reset();
    EXPECT_NE(oruAsfIpcCheck(client.get(), kWait), 0);
    EXPECT_EQ(receive(client), "last words");
    EXPECT_NE(oruAsfIpcCheck(client.get(), kWait), 0);
    EXPECT_EQ(receive(client), "(gone)");
    EXPECT_FALSE(send(client, "hello?")) << "and no signal ends the process";
}

TEST_F(Messages, ReachAPeerThatHasLeftARequestUnread)
{
    const Listener listener = listenAt();
    const Ipc client = connected();
    Ipc service = accepted(listener);
    ASSERT_TRUE(send(client, "request") && send(client, "unread") && send(service, "reply"));
    EXPECT_EQ(receive(service), "request");
    service.reset();
    EXPECT_NE(oruAsfIpcCheck(client.get(), kWait), 0);
    EXPECT_EQ(receive(client), "reply");
    EXPECT_EQ(receive(client), "(gone)");
}

TEST_F(Messages, ToAServiceThatGoesWithoutReadingAreAnsweredByItsAbsence)
{
    const Listener listener = listenAt();
    const Ipc client = connected();
    ASSERT_TRUE(send(client, "request"));
    accepted(listener).reset();
    EXPECT_NE(oruAsfIpcCheck(client.get(), kWait), 0);
    EXPECT_EQ(receive(client), "(gone)");
}

TEST_F(Messages, ThatCannotBeAreRefused)
{
    const Listener listener = listenAt();
    const Ipc client = connected();
    const Ipc service = accepted(listener);
    const string huge(64 << 20, 'x');
    char buffer[4];
    EXPECT_EQ(oruAsfIpcSend(client.get(), "x", 0), -1) << "empty";
    EXPECT_EQ(oruAsfIpcSend(client.get(), nullptr, 1), -1);
    EXPECT_EQ(oruAsfIpcSend(nullptr, "x", 1), -1);
    EXPECT_FALSE(send(client, huge)) << "larger than the system takes";
    EXPECT_EQ(oruAsfIpcRecv(client.get(), buffer, 0), -1);
    EXPECT_EQ(oruAsfIpcRecv(client.get(), nullptr, 4), -1);
    EXPECT_EQ(oruAsfIpcRecv(nullptr, buffer, 4), -1);
    EXPECT_EQ(receive(client), "(none)") << "taking a message never waits";
    EXPECT_EQ(receive(service), "(none)") << "nothing was sent";
    const Ipc unconnected{oruAsfIpcOpen(2, 1, 0)};
    EXPECT_FALSE(send(unconnected, "x"));
    EXPECT_EQ(receive(unconnected), "(none)");
}

TEST_F(Messages, OfASizeThatIsNoCountAreNeitherSentNorTaken)
{
    const Listener listener = listenAt();
    const Ipc client = connected();
    const Ipc service = accepted(listener);
    ASSERT_TRUE(send(service, "x"));
    char buffer[4];
    for (const uint32_t size : {uint32_t{INT32_MAX} + 1, UINT32_MAX}) {
        errno = 0;
        EXPECT_EQ(oruAsfIpcSend(client.get(), "x", size), -1) << size;
        EXPECT_EQ(oruAsfIpcRecv(client.get(), buffer, size), -1) << size;
        EXPECT_EQ(errno, 0) << "the system is not asked";
    }
    EXPECT_EQ(receive(client), "x");
}

TEST_F(Wait, EndsWhenTheTimeIsOver)
{
    const Listener listener = listenAt();
    EXPECT_EQ(oruAsfIpcAccept(listener.get(), 0), nullptr);
    const Ipc client = connected();
    EXPECT_EQ(oruAsfIpcCheck(client.get(), 0), 0);
    const auto start = std::chrono::steady_clock::now();
    EXPECT_EQ(oruAsfIpcCheck(client.get(), 50), 0);
    EXPECT_GE(msSince(start), 50);
}

TEST_F(Wait, EndsAtOnceWhenAMessageIsThere)
{
    const Listener listener = listenAt();
    const Ipc client = connected();
    const Ipc service = accepted(listener);
    ASSERT_TRUE(send(service, "reply"));
    for (const uint32_t wait : {0u, 20000u, UINT32_MAX})
        EXPECT_NE(oruAsfIpcCheck(client.get(), wait), 0) << wait;
    EXPECT_EQ(receive(client), "reply");
}

TEST_F(Wait, IsNoLongerForSignals)
{
    const Listener listener = listenAt();
    const Ipc client = connected();
    struct sigaction action {};
    struct sigaction before {};
    action.sa_handler = [](int) {};
    ::sigaction(SIGALRM, &action, &before);
    // One signal shortly before the end, and many.
    for (const itimerval timer :
         {itimerval{{0, 0}, {0, 350000}}, itimerval{{0, 7000}, {0, 7000}}}) {
        const auto start = std::chrono::steady_clock::now();
        ::setitimer(ITIMER_REAL, &timer, nullptr);
        EXPECT_EQ(oruAsfIpcCheck(client.get(), 400), 0);
        const int64_t took = msSince(start);
        const itimerval off{};
        ::setitimer(ITIMER_REAL, &off, nullptr);
        EXPECT_GE(took, 400);
        EXPECT_LT(took, 700);
    }
    ::sigaction(SIGALRM, &before, nullptr);
}

TEST_F(Wait, WithoutAHandleIsOver)
{
    EXPECT_NE(oruAsfIpcCheck(nullptr, kWait), 0) << "the receive that follows fails";
    EXPECT_EQ(oruAsfIpcAccept(nullptr, kWait), nullptr);
}

TEST_F(Listen, RefusesToTakeALiveServicesPlace)
{
    const Listener first = listenAt();
    errno = 0;
    EXPECT_EQ(oruAsfIpcListen(kPort, kVersion), nullptr);
    EXPECT_EQ(errno, EADDRINUSE);
    EXPECT_NE(connected(), nullptr);
    EXPECT_NE(accepted(first), nullptr) << "the probe";
    EXPECT_NE(accepted(first), nullptr) << "the client";
}

TEST_F(Listen, ReplacesASocketThatADeadServiceLeft)
{
    EXPECT_EQ(inChild([] { return oruAsfIpcListen(kPort, kVersion) != nullptr ? 0 : 1; }), 0);
    const Listener listener = listenAt();
    ASSERT_NE(listener, nullptr);
    EXPECT_NE(connected(), nullptr);
}

TEST_F(Listen, EndsWithItsSocket)
{
    Listener listener = listenAt();
    const Ipc client = connected();
    listener.reset();
    EXPECT_TRUE(box.names("/run/oru").empty());
    EXPECT_EQ(connected(), nullptr);
    EXPECT_NE(oruAsfIpcCheck(client.get(), kWait), 0) << "who was not accepted hears of it";
    EXPECT_LE(oruAsfIpcRecv(client.get(), &listener, 1), 0);
}

TEST_F(Listen, LeavesASuccessorsSocketAlone)
{
    Listener first = listenAt();
    ASSERT_EQ(::unlink(socketPath().c_str()), 0);
    const Listener second = listenAt();
    ASSERT_NE(second, nullptr);
    first.reset();
    EXPECT_NE(connected(), nullptr);
}

TEST_F(Listen, LetsOwnerAndGroupConnectWhateverTheUmask)
{
    for (const mode_t umask : {0, 022, 077, 0777}) {
        ::mkdir(box.at("/run").c_str(), 0755);
        ::mkdir(box.at("/run/oru").c_str(), 0755);
        const mode_t before = ::umask(umask);
        const Listener listener = listenAt();
        ::umask(before);
        ASSERT_NE(listener, nullptr);
        struct stat status {};
        ASSERT_EQ(::stat(socketPath().c_str(), &status), 0);
        EXPECT_EQ(status.st_mode & 07777, 0660u) << umask;
    }
}

TEST_F(Listen, SaysWhyItFails)
{
    box.write("/run", "a file in the folder's place");
    errno = 0;
    EXPECT_EQ(oruAsfIpcListen(kPort, kVersion), nullptr);
    EXPECT_EQ(errno, ENOTDIR);
}

TEST_F(Listen, HasDescriptorsForPoll)
{
    const Listener listener = listenAt();
    const Ipc client = connected();
    EXPECT_GE(::fcntl(oruAsfIpcListenDescriptor(listener.get()), F_GETFD), FD_CLOEXEC);
    EXPECT_GE(::fcntl(oruAsfIpcDescriptor(client.get()), F_GETFD), FD_CLOEXEC);
    EXPECT_EQ(oruAsfIpcListenDescriptor(nullptr), -1);
    EXPECT_EQ(oruAsfIpcDescriptor(nullptr), -1);
}

TEST_F(Listen, GivesEveryDescriptorBack)
{
    const auto open = [] {
        namespace fs = std::filesystem;
        return std::distance(fs::directory_iterator{"/proc/self/fd"}, {});
    };
    const auto before = open();
    {
        const Listener listener = listenAt();
        const Ipc client = connected();
        const Ipc service = accepted(listener);
        EXPECT_EQ(listenAt(), nullptr);
        EXPECT_EQ(connected(1), nullptr);
        EXPECT_EQ(open(), before + 4); // two sockets, the listener's, and its folder
    }
    EXPECT_EQ(open(), before);
    oruAsfIpcClose(nullptr);
    oruAsfIpcUnlisten(nullptr);
}

TEST_F(Messages, KeepOffTheNumbersOfClosedStandardStreams)
{
    EXPECT_EQ(inChild([] {
                  for (const int number : {0, 1, 2}) ::close(number);
                  OruAsfListener *listener = oruAsfIpcListen(kPort, kVersion);
                  OruAsfIpc *client = oruAsfIpcOpen(2, 1, 0);
                  if (oruAsfIpcConnect(client, "localhost", kPort, kVersion) != 0) return 1;
                  OruAsfIpc *service = oruAsfIpcAccept(listener, kWait);
                  char buffer[8];
                  if (oruAsfIpcSend(client, "hello", 5) != 5) return 2;
                  if (oruAsfIpcRecv(service, buffer, sizeof buffer) != 5) return 3;
                  for (const int number : {0, 1, 2})
                      if (::fcntl(number, F_GETFD) >= 0) return 4;
                  return 0;
              }),
              0);
}

namespace {

/// A service of another user, until the test's end.
class ServiceOf {
public:
    ServiceOf(const TempDir &box, uid_t user)
    {
        const string folder = box.at("/run/oru");
        std::filesystem::create_directories(folder);
        EXPECT_EQ(::chown(folder.c_str(), user, user), 0);
        EXPECT_EQ(::pipe2(ready_, O_CLOEXEC), 0);
        EXPECT_EQ(::pipe2(end_, O_CLOEXEC), 0);
        service_ = startChild([&] {
            if (user != 0 && !becomePlainUser(user)) return 1;
            if (oruAsfIpcListen(kPort, kVersion) == nullptr) return 2;
            ::chmod((folder + "/5000002.1001").c_str(), 0777); // it is the client that refuses
            char byte = 0;
            ::close(end_[1]);
            if (::write(ready_[1], &byte, 1) != 1) return 3;
            return ::read(end_[0], &byte, 1) == 0 ? 0 : 4;
        });
        ::close(ready_[1]);
        char byte;
        EXPECT_EQ(::read(ready_[0], &byte, 1), 1);
    }
    ~ServiceOf()
    {
        ::close(end_[1]);
        EXPECT_EQ(waitForChild(service_), 0);
        ::close(end_[0]);
        ::close(ready_[0]);
    }
    ServiceOf(const ServiceOf &) = delete;
    ServiceOf &operator=(const ServiceOf &) = delete;

private:
    int ready_[2];
    int end_[2];
    pid_t service_;
};

int connectAs(uid_t user)
{
    return inChild([&] {
        if (user != 0 && !becomePlainUser(user)) return 254;
        return connected() != nullptr ? 0 : 1;
    });
}

} // namespace

TEST_F(Trust, IsForServicesOfRootAndOfTheOwnUser)
{
    if (::geteuid() != 0) GTEST_SKIP() << "needs services of other users";
    const struct {
        uid_t service;
        uid_t client;
        int status; // 0: connected
    } rows[] = {
        {0, 0, 0}, {0, 1234, 0}, {1234, 1234, 0}, {1234, 0, 1}, {1234, 5678, 1}, {kPlainUser, 0, 1},
    };
    for (const auto &row : rows) {
        const TempDir own;
        const ServiceOf service{own, row.service};
        EXPECT_EQ(connectAs(row.client), row.status) << row.service << ' ' << row.client;
    }
}
