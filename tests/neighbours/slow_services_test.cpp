// Services that drip, flood, close at any moment or hang: an operation waits no longer for them
// than it says, and comes to one of its codes. ORU_TORTURE=1 closes behind each byte of a reply.
#include "neighbours/fake_time.hpp"
#include "neighbours/operations.hpp"
#include "oruAsf.h"
#include "support/tempdir.hpp"

#include <gtest/gtest.h>

#include <cerrno>
#include <cstdio>
#include <fcntl.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

using namespace oru::test;
using std::string;
using std::vector;

namespace {

constexpr int64_t kWaitMs = 20000;   // for a reply
constexpr int64_t kConnectMs = 2000; // for room in a service's queue
constexpr int64_t kLateMs = kWaitMs - 50;
constexpr int64_t kNever = INT64_MAX;

bool isTorture()
{
    return std::getenv("ORU_TORTURE") != nullptr;
}

/// What a service does, with times since the operation began.
struct Manner {
    string name;
    bool queueIsFull = false;
    bool listens = true; // false: it closes its socket while callers wait to be accepted
    int64_t acceptsAt = 0;
    bool closesUnread = false;
    int64_t closesAt = kNever;  // once it has read the request
    vector<Bytes> packets = {}; // what it sends, in turn
    int64_t everyMs = 0;        // 0: as many as fit at once; otherwise one at a time
    int64_t firstMs = 0;        // when the first of them comes
};

/// A service of this process.
class Service {
public:
    Service(const TempDir &box, uint32_t port, const Manner &manner) : manner_(manner)
    {
        sockaddr_un address{AF_UNIX, {}};
        const string path = box.at("/run/oru/" + std::to_string(port) + ".1001");
        path.copy(address.sun_path, sizeof address.sun_path - 1);
        ::unlink(path.c_str());
        const auto *generic = reinterpret_cast<const sockaddr *>(&address);
        listener_ = newSocket();
        EXPECT_EQ(::bind(listener_, generic, sizeof address), 0) << path;
        EXPECT_EQ(::listen(listener_, manner.queueIsFull ? 0 : 64), 0);
        if (manner.queueIsFull) {
            waiting_ = newSocket();
            EXPECT_EQ(::connect(waiting_, generic, sizeof address), 0);
        }
    }
    ~Service()
    {
        for (const int socket : callers_) ::close(socket);
        if (waiting_ >= 0) ::close(waiting_);
        if (listener_ >= 0) ::close(listener_);
    }
    Service(const Service &) = delete;
    Service &operator=(const Service &) = delete;

    void act(int64_t now)
    {
        if (manner_.queueIsFull) return;
        if (!manner_.listens) return closeListener();
        if (now < manner_.acceptsAt) return;
        for (;;) {
            const int caller = ::accept4(listener_, nullptr, nullptr, SOCK_NONBLOCK | SOCK_CLOEXEC);
            if (caller < 0) break;
            if (manner_.closesUnread) ::close(caller);
            else callers_.push_back(caller);
        }
        for (int &caller : callers_) serve(caller, now);
    }

private:
    static int newSocket()
    {
        return ::socket(AF_UNIX, SOCK_SEQPACKET | SOCK_NONBLOCK | SOCK_CLOEXEC, 0);
    }

    void closeListener()
    {
        if (listener_ >= 0) ::close(listener_);
        listener_ = -1;
    }

    void serve(int &caller, int64_t now)
    {
        char request[4096];
        if (caller < 0) return;
        hasRead_ |= ::recv(caller, request, sizeof request, 0) > 0;
        if (!hasRead_ || now < manner_.firstMs) return;
        send(caller, now);
        if (now < manner_.closesAt) return;
        ::close(caller);
        caller = -1;
    }

    void send(int caller, int64_t now)
    {
        while (!manner_.packets.empty() && now >= due_) {
            const Bytes &packet = manner_.packets[sent_ % manner_.packets.size()];
            if (::send(caller, packet.data(), packet.size(), MSG_NOSIGNAL) < 0) return;
            ++sent_;
            if (manner_.everyMs > 0) due_ = now + manner_.everyMs;
            else if (manner_.closesAt != kNever && sent_ == manner_.packets.size()) due_ = kNever;
        }
    }

    Manner manner_;
    int listener_ = -1;
    int waiting_ = -1;
    vector<int> callers_;
    bool hasRead_ = false;
    int64_t due_ = 0;
    size_t sent_ = 0;
};

size_t openDescriptors()
{
    namespace fs = std::filesystem;
    return static_cast<size_t>(std::distance(fs::directory_iterator{"/proc/self/fd"}, {}));
}

class SlowServices : public ::testing::Test {
protected:
    SlowServices()
    {
        std::filesystem::create_directories(box_.at("/run/oru"));
        std::filesystem::create_directories(box_.at("/var"));
        const string share = ORU_SOURCE_DIR "/share";
        std::filesystem::copy(share + "/wsmDefaults.orig", box_.at("/var/wsmDefaults"));
        std::filesystem::copy(share + "/1x.conf.orig", box_.at("/var/1x.conf"));
        std::ofstream{box_.at("/var/1x.conf"), std::ios::app} << kReadersKey << "=1\n";
        ::setenv("ORU_LOG", "none", 1);
    }

    struct Outcome {
        uint32_t code;
        int64_t waitedMs;
    };

    [[nodiscard]] Outcome meet(const Talker &talker, const Manner &manner) const
    {
        Service wsm{box_, kServicePorts[0], manner};
        Service aa{box_, kServicePorts[1], manner};
        const FakeTime time{[&](int64_t now) {
            wsm.act(now);
            aa.act(now);
        }};
        const uint32_t code = talker.call();
        return {code, FakeTime::waitedMs()};
    }

    /// Every operation with this service: none waits for longer than it may.
    void expectNoLongerThanItSays(const Manner &manner)
    {
        for (const Talker &talker : talkers()) expectNoLongerThanItSays(talker, manner);
    }

    void expectNoLongerThanItSays(const Talker &talker, const Manner &manner)
    {
        SCOPED_TRACE(talker.name + ", " + manner.name);
        const size_t open = openDescriptors();
        const Outcome outcome = meet(talker, manner);
        EXPECT_EQ(talker.codes.count(outcome.code), 1u) << "code " << outcome.code;
        const int64_t asked = talker.good.empty() ? 0 : kWaitMs;
        EXPECT_LE(outcome.waitedMs, asked + talker.connections * kConnectMs);
        EXPECT_EQ(openDescriptors(), open);
        longest_ = std::max(longest_, outcome.waitedMs);
        ++runs_;
    }

    void tell(const char *what) const
    {
        std::printf("torture: operations with services that %s: %zu runs\n", what, runs_);
    }

    TempDir box_;
    size_t runs_ = 0;
    int64_t longest_ = 0;
};

const Bytes kOtherKind{0x7f, 0x7f, 0, 8, 0, 0, 0, 0};

} // namespace

TEST_F(SlowServices, AreWaitedForAsLongAsTheOperationSays)
{
    const Talker talker = talkers().front();
    EXPECT_EQ(meet(talker, {.name = "at once", .packets = {talker.good}}).waitedMs, 0);
    const Manner late{.name = "late", .packets = {talker.good}, .firstMs = kLateMs};
    EXPECT_EQ(meet(talker, late).waitedMs, kLateMs);
    EXPECT_EQ(meet(talker, late).code, 0u);
    EXPECT_EQ(meet(talker, {.name = "never"}).waitedMs, kWaitMs);
}

TEST_F(SlowServices, ThatHangCostNoMoreThanTheWait)
{
    for (const Manner &manner : vector<Manner>{
             {.name = "never accepts", .acceptsAt = kNever},
             {.name = "accepts late", .acceptsAt = kLateMs},
             {.name = "reads and says nothing"},
             {.name = "has a full queue", .queueIsFull = true},
         })
        expectNoLongerThanItSays(manner);
    EXPECT_EQ(longest_, kWaitMs);
    tell("hang");
}

TEST_F(SlowServices, ThatDripOrFloodCostNoMoreThanTheWait)
{
    const vector<Bytes> all{{0}, {}, kOtherKind, Bytes(100, 0xff), Bytes(100000, 0)};
    const vector<int64_t> periods =
        isTorture() ? vector<int64_t>{0, 50, 100, 1000, kLateMs} : vector<int64_t>{0, 1000};
    for (const int64_t every : periods)
        for (const int64_t first : {int64_t{0}, kLateMs})
            for (const Bytes &packet : all)
                expectNoLongerThanItSays({.name = std::to_string(packet.size()) + " bytes every " +
                                                  std::to_string(every) + " ms",
                                          .packets = {packet},
                                          .everyMs = every,
                                          .firstMs = first});
    EXPECT_EQ(longest_, kLateMs);
    tell("drip or flood");
}

TEST_F(SlowServices, ThatCloseAtAnyMomentCostNoMoreThanTheWait)
{
    for (const Manner &manner : vector<Manner>{
             {.name = "closes before it accepts", .listens = false},
             {.name = "closes before it reads", .closesUnread = true},
             {.name = "closes without an answer", .closesAt = 0},
             {.name = "closes late", .closesAt = kLateMs},
         })
        expectNoLongerThanItSays(manner);
    for (const Talker &talker : talkers())
        for (size_t size = 0; size <= talker.good.size(); size += isTorture() ? 1 : 7) {
            const Bytes part(talker.good.begin(),
                             talker.good.begin() + static_cast<ptrdiff_t>(size));
            expectNoLongerThanItSays(talker, {.name = "closes behind " + std::to_string(size),
                                              .closesAt = 0,
                                              .packets = {part}});
        }
    EXPECT_EQ(longest_, kLateMs);
    tell("close at any moment");
}
