// Messages between processes when system calls and allocations fail.
#include "asf/child.hpp"
#include "oruAsf.h"
#include "support/faults.hpp"
#include "support/tempdir.hpp"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <cstring>
#include <dlfcn.h>
#include <functional>
#include <string>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>
#include <vector>

using namespace oru::test;
using std::string;
using ::testing::Contains;

extern "C" int socket(int domain, int type, int protocol) noexcept
{
    static const auto real = reinterpret_cast<int (*)(int, int, int)>(::dlsym(RTLD_NEXT, "socket"));
    if (Faults::strikes("socket", __builtin_return_address(0))) return -1;
    return real(domain, type, protocol);
}

extern "C" int accept4(int file, sockaddr *address, socklen_t *size, int flags)
{
    static const auto real =
        reinterpret_cast<int (*)(int, sockaddr *, socklen_t *, int)>(::dlsym(RTLD_NEXT, "accept4"));
    if (Faults::strikes("accept4", __builtin_return_address(0))) return -1;
    return real(file, address, size, flags);
}

namespace {

constexpr uint32_t kPort = 5000002;
constexpr uint32_t kVersion = 1001;

size_t openDescriptors()
{
    namespace fs = std::filesystem;
    return static_cast<size_t>(std::distance(fs::directory_iterator{"/proc/self/fd"}, {}));
}

void armLibrary(Faults::Kind kind = Faults::Kind::none, size_t n = 0, int error = 0)
{
    Faults::armLibraries(kind, static_cast<int>(n), error, [] {});
}

class IpcFault : public ::testing::Test {
protected:
    [[nodiscard]] string socketPath() const { return box.at("/run/oru/5000002.1001"); }

    /// The socket of a service that ended without a word.
    static void leaveSocket()
    {
        ASSERT_EQ(inChild([] { return oruAsfIpcListen(kPort, kVersion) != nullptr ? 0 : 1; }), 0);
    }

    /// Lets each call of a new listener fail in turn; whoever may fail without harm is named.
    void expectEachCallToMatter(void (*prepare)(), const std::vector<string> &mayFail)
    {
        prepare();
        armLibrary();
        OruAsfListener *listener = oruAsfIpcListen(kPort, kVersion);
        const std::vector<string> calls = Faults::disarm();
        ASSERT_NE(listener, nullptr);
        oruAsfIpcUnlisten(listener);

        for (size_t n = 1; n <= calls.size(); ++n) {
            const string when = calls[n - 1] + ", the call " + std::to_string(n);
            prepare();
            const size_t open = openDescriptors();
            armLibrary(Faults::Kind::fail, n, ENOBUFS);
            errno = 0;
            listener = oruAsfIpcListen(kPort, kVersion);
            const int error = errno;
            Faults::disarm();
            EXPECT_TRUE(Faults::struck()) << when;
            if (std::find(mayFail.begin(), mayFail.end(), calls[n - 1]) != mayFail.end()) {
                EXPECT_NE(listener, nullptr) << when;
                oruAsfIpcUnlisten(listener);
            } else {
                EXPECT_EQ(listener, nullptr) << when;
                EXPECT_TRUE(error == ENOBUFS || error == EADDRINUSE) << when << ": " << error;
            }
            EXPECT_EQ(openDescriptors(), open) << when;

            OruAsfListener *next = oruAsfIpcListen(kPort, kVersion);
            EXPECT_NE(next, nullptr) << when << ", and then none does";
            oruAsfIpcUnlisten(next);
        }
    }

    TempDir box;
};

using ListenFault = IpcFault;
using ConnectFault = IpcFault;
using WaitFault = IpcFault;

/// A service's socket with room for one caller, who is there already.
class FullService {
public:
    explicit FullService(const string &path)
    {
        std::filesystem::create_directories(path.substr(0, path.rfind('/')));
        sockaddr_un address{AF_UNIX, {}};
        std::strncpy(address.sun_path, path.c_str(), sizeof address.sun_path - 1);
        socket_ = ::socket(AF_UNIX, SOCK_SEQPACKET | SOCK_CLOEXEC, 0);
        EXPECT_EQ(::bind(socket_, reinterpret_cast<sockaddr *>(&address), sizeof address), 0);
        EXPECT_EQ(::listen(socket_, 0), 0);
        first_ = oruAsfIpcOpen(2, 1, 0);
        EXPECT_EQ(oruAsfIpcConnect(first_, "localhost", kPort, kVersion), 0);
    }
    ~FullService()
    {
        oruAsfIpcClose(first_);
        ::close(socket_);
    }
    FullService(const FullService &) = delete;
    FullService &operator=(const FullService &) = delete;

    void makeRoom() const { ::close(::accept(socket_, nullptr, nullptr)); }

private:
    int socket_;
    OruAsfIpc *first_;
};

} // namespace

TEST_F(ListenFault, OfAnyCallGivesEverythingBackAndNoListener)
{
    // That the mode is set before the socket has a name is the second of two locks.
    expectEachCallToMatter([] {}, {"fchmod"});
    EXPECT_TRUE(box.names("/run/oru").empty());
}

TEST_F(ListenFault, OfAnyCallThatReplacesAStaleSocketGivesNoListener)
{
    expectEachCallToMatter(leaveSocket, {"fchmod", "close"});
    EXPECT_TRUE(box.names("/run/oru").empty());
}

TEST_F(ListenFault, LeavesASocketAloneWhenItIsNotSureWhoseItIs)
{
    OruAsfListener *listener = oruAsfIpcListen(kPort, kVersion);
    ASSERT_NE(listener, nullptr);
    armLibrary(Faults::Kind::fail, 1, EIO); // its look at the socket
    oruAsfIpcUnlisten(listener);
    EXPECT_THAT(Faults::disarm(), Contains("fstatat"));
    EXPECT_THAT(box.names("/run/oru"), ::testing::ElementsAre("5000002.1001"));
    listener = oruAsfIpcListen(kPort, kVersion);
    EXPECT_NE(listener, nullptr) << "nobody listens there";
    oruAsfIpcUnlisten(listener);
}

TEST_F(ConnectFault, OfAServiceWithoutRoomEndsWhenItHasSome)
{
    const FullService service{socketPath()};
    OruAsfIpc *ipc = oruAsfIpcOpen(2, 1, 0);
    armLibrary();
    Faults::meanwhile([&] { service.makeRoom(); }, 2); // behind the first attempt
    EXPECT_EQ(oruAsfIpcConnect(ipc, "localhost", kPort, kVersion), 0);
    const auto calls = Faults::disarm();
    EXPECT_EQ(std::count(calls.begin(), calls.end(), "connect"), 2);
    char byte;
    EXPECT_EQ(oruAsfIpcRecv(ipc, &byte, 1), -1) << "it does not block afterwards";
    EXPECT_EQ(errno, EAGAIN);
    oruAsfIpcClose(ipc);
}

TEST_F(ConnectFault, OfAServiceWithoutRoomIsNoneForAnInterruption)
{
    for (const size_t n : {1u, 5u}) { // the first attempt, and the one that waits
        const FullService service{socketPath()};
        OruAsfIpc *ipc = oruAsfIpcOpen(2, 1, 0);
        armLibrary(Faults::Kind::fail, n, EINTR);
        Faults::meanwhile([&] { service.makeRoom(); }, n == 1 ? 3 : 2);
        EXPECT_EQ(oruAsfIpcConnect(ipc, "localhost", kPort, kVersion), 0) << n;
        const auto calls = Faults::disarm();
        EXPECT_EQ(std::count(calls.begin(), calls.end(), "connect"), 3) << n;
        oruAsfIpcClose(ipc);
        ASSERT_EQ(::unlink(socketPath().c_str()), 0);
    }
}

TEST_F(ConnectFault, OfAServiceThatNeverHasRoomIsOneAfter2Seconds)
{
    const FullService service{socketPath()};
    OruAsfIpc *ipc = oruAsfIpcOpen(2, 1, 0);
    const auto start = std::chrono::steady_clock::now();
    EXPECT_EQ(oruAsfIpcConnect(ipc, "localhost", kPort, kVersion), -1);
    const std::chrono::duration<double> took = std::chrono::steady_clock::now() - start;
    EXPECT_GE(took.count(), 1.9);
    EXPECT_LT(took.count(), 10);
    oruAsfIpcClose(ipc);
}

TEST_F(ConnectFault, OfAnyCallIsNoConnection)
{
    size_t calls = 1;
    for (size_t n = 0; n <= calls; ++n) { // 0: none fails
        const FullService service{socketPath()};
        const size_t open = openDescriptors();
        OruAsfIpc *ipc = oruAsfIpcOpen(2, 1, 0);
        armLibrary(n == 0 ? Faults::Kind::none : Faults::Kind::fail, n, EIO);
        Faults::meanwhile([&] { service.makeRoom(); }, 2);
        EXPECT_EQ(oruAsfIpcConnect(ipc, "localhost", kPort, kVersion), n == 0 ? 0 : -1) << n;
        const auto names = Faults::disarm();
        EXPECT_EQ(Faults::struck(), n > 0) << n;
        if (n == 0) calls = names.size();
        oruAsfIpcClose(ipc);
        EXPECT_EQ(openDescriptors(), open) << n;
        ASSERT_EQ(::unlink(socketPath().c_str()), 0);
    }
    EXPECT_GE(calls, 8u);
}

TEST_F(WaitFault, OfAnInterruptionBehindItsEndLooksOnceMore)
{
    OruAsfListener *listener = oruAsfIpcListen(kPort, kVersion);
    OruAsfIpc *ipc = oruAsfIpcOpen(2, 1, 0);
    ASSERT_EQ(oruAsfIpcConnect(ipc, "localhost", kPort, kVersion), 0);
    armLibrary(Faults::Kind::fail, 1, EINTR);
    Faults::meanwhile([] {
        const auto end = std::chrono::steady_clock::now() + std::chrono::milliseconds{3};
        while (std::chrono::steady_clock::now() < end) continue;
    });
    EXPECT_EQ(oruAsfIpcCheck(ipc, 0), 0);
    EXPECT_THAT(Faults::disarm(), ::testing::ElementsAre("poll", "poll"));
    armLibrary(Faults::Kind::fail, 1, EIO);
    EXPECT_EQ(oruAsfIpcCheck(ipc, 0), -1) << "another failure is one";
    Faults::disarm();
    oruAsfIpcClose(ipc);
    oruAsfIpcUnlisten(listener);
}

TEST_F(WaitFault, ThatIsAnInterruptionIsNone)
{
    OruAsfListener *listener = oruAsfIpcListen(kPort, kVersion);
    OruAsfIpc *ipc = oruAsfIpcOpen(2, 1, 0);
    const auto interrupted = [](const char *name, size_t n, const std::function<void()> &body) {
        armLibrary(Faults::Kind::fail, n, EINTR);
        body();
        const auto calls = Faults::disarm();
        EXPECT_TRUE(Faults::struck()) << name;
        EXPECT_EQ(std::count(calls.begin(), calls.end(), name), 2);
    };
    interrupted("connect", 1,
                [&] { EXPECT_EQ(oruAsfIpcConnect(ipc, "localhost", kPort, kVersion), 0); });
    OruAsfIpc *service = nullptr;
    interrupted("poll", 1, [&] { EXPECT_EQ(oruAsfIpcCheck(ipc, 9), 0); });
    interrupted("accept4", 2, [&] { service = oruAsfIpcAccept(listener, 0); });
    ASSERT_NE(service, nullptr);
    interrupted("send", 1, [&] { EXPECT_EQ(oruAsfIpcSend(ipc, "hello", 5), 5); });
    char buffer[8];
    interrupted("recv", 1, [&] { EXPECT_EQ(oruAsfIpcRecv(service, buffer, sizeof buffer), 5); });
    EXPECT_EQ(string(buffer, 5), "hello");
    oruAsfIpcClose(service);
    oruAsfIpcClose(ipc);
    oruAsfIpcUnlisten(listener);
}

TEST_F(ConnectFault, OfASocketIsNoHandle)
{
    armLibrary(Faults::Kind::fail, 1, EMFILE);
    EXPECT_EQ(oruAsfIpcOpen(2, 1, 0), nullptr);
    EXPECT_EQ(errno, EMFILE);
    Faults::disarm();

    OruAsfListener *listener = oruAsfIpcListen(kPort, kVersion);
    OruAsfIpc *ipc = oruAsfIpcOpen(2, 1, 0);
    ASSERT_EQ(oruAsfIpcConnect(ipc, "localhost", kPort, kVersion), 0);
    armLibrary(Faults::Kind::fail, 2, EMFILE); // behind the wait
    EXPECT_EQ(oruAsfIpcAccept(listener, 0), nullptr);
    EXPECT_THAT(Faults::disarm(), ::testing::ElementsAre("poll", "accept4"));
    OruAsfIpc *accepted = oruAsfIpcAccept(listener, 0);
    EXPECT_NE(accepted, nullptr) << "the caller waits for the next attempt";
    oruAsfIpcClose(accepted);
    oruAsfIpcClose(ipc);
    oruAsfIpcUnlisten(listener);
}

#if !defined(__SANITIZE_ADDRESS__) // which brings allocations of its own

TEST_F(IpcFault, OfMemoryIsNoHandleAndLeavesNoDescriptor)
{
    OruAsfListener *listener = oruAsfIpcListen(kPort, kVersion);
    OruAsfIpc *ipc = oruAsfIpcOpen(2, 1, 0);
    ASSERT_EQ(oruAsfIpcConnect(ipc, "localhost", kPort, kVersion), 0);
    const size_t open = openDescriptors();

    Faults::denyMemory(1);
    OruAsfIpc *denied = oruAsfIpcOpen(2, 1, 0);
    EXPECT_TRUE(Faults::allowMemory());
    EXPECT_EQ(denied, nullptr);

    Faults::denyMemory(1);
    OruAsfIpc *accepted = oruAsfIpcAccept(listener, 0);
    EXPECT_TRUE(Faults::allowMemory());
    EXPECT_EQ(accepted, nullptr);

    Faults::denyMemory(1);
    OruAsfListener *other = oruAsfIpcListen(kPort + 1, kVersion);
    EXPECT_TRUE(Faults::allowMemory());
    EXPECT_EQ(other, nullptr);
    EXPECT_THAT(box.names("/run/oru"), ::testing::ElementsAre("5000002.1001"));

    EXPECT_EQ(openDescriptors(), open);
    oruAsfIpcClose(ipc);
    oruAsfIpcUnlisten(listener);
}

TEST(ElementFault, OfMemoryIsNoElementAndTakesNoBytes)
{
    const uint8_t bytes[] = {0, 1, 0, 7, 0, 1, 42};
    uint32_t consumed = sizeof bytes;
    Faults::denyMemory(1);
    OruAsfTtlv *element = oruAsfGetStructTtlv(bytes, &consumed);
    EXPECT_TRUE(Faults::allowMemory());
    EXPECT_EQ(element, nullptr);
    EXPECT_EQ(consumed, 0u);

    consumed = sizeof bytes;
    element = oruAsfGetStructTtlv(bytes, &consumed);
    ASSERT_NE(element, nullptr);
    EXPECT_EQ(consumed, sizeof bytes);
    oruAsfFreeStructTtlv(element);
}

#endif
