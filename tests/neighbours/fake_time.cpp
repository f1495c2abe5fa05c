#include "neighbours/fake_time.hpp"

#include <algorithm>
#include <cerrno>
#include <ctime>
#include <dlfcn.h>
#include <fcntl.h>
#include <poll.h>
#include <sys/socket.h>
#include <sys/time.h>

namespace oru::test {
namespace {

constexpr int64_t kStepMs = 50;

bool running;
bool inPeer; // what the peer does is no wait of the libraries
int64_t now;
FakeTime::Peer peer_;

bool counts()
{
    return running && !inPeer;
}

/// The other side's turn.
void letPeerAct()
{
    if (!counts()) return;
    inPeer = true;
    peer_(now);
    inPeer = false;
}

template <class Function>
Function *real(const char *name)
{
    return reinterpret_cast<Function *>(::dlsym(RTLD_NEXT, name));
}

int connectNow(int socket, const sockaddr *address, socklen_t size)
{
    static auto *const connect = real<int(int, const sockaddr *, socklen_t)>("connect");
    return connect(socket, address, size);
}

/// How long a connect may block: 0 on a socket that never does, -1 for ever.
int64_t patienceMs(int socket)
{
    if ((::fcntl(socket, F_GETFL) & O_NONBLOCK) != 0) return 0;
    timeval wait{};
    socklen_t size = sizeof wait;
    ::getsockopt(socket, SOL_SOCKET, SO_SNDTIMEO, &wait, &size);
    const int64_t ms = int64_t{wait.tv_sec} * 1000 + wait.tv_usec / 1000;
    return ms == 0 ? -1 : ms;
}

/// A connect of a socket that blocks.
int connectWaiting(int socket, const sockaddr *address, socklen_t size, int64_t patience)
{
    const int flags = ::fcntl(socket, F_GETFL);
    ::fcntl(socket, F_SETFL, flags | O_NONBLOCK);
    const int64_t end = patience < 0 ? INT64_MAX : now + patience;
    int result = -1;
    for (;;) {
        result = connectNow(socket, address, size);
        if (result == 0 || errno != EAGAIN || now >= end) break;
        now += kStepMs;
        letPeerAct();
    }
    const int error = errno;
    ::fcntl(socket, F_SETFL, flags);
    errno = error;
    return result;
}

} // namespace

FakeTime::FakeTime(Peer peer)
{
    peer_ = std::move(peer);
    now = 0;
    running = true;
}

FakeTime::~FakeTime()
{
    running = false;
    peer_ = nullptr;
}

int64_t FakeTime::waitedMs()
{
    return now;
}

} // namespace oru::test

using namespace oru::test;

extern "C" {

int clock_gettime(clockid_t clock, timespec *time) noexcept
{
    static auto *const ask = real<int(clockid_t, timespec *)>("clock_gettime");
    if (!counts() || clock != CLOCK_MONOTONIC) return ask(clock, time);
    *time = {now / 1000, now % 1000 * 1000000};
    return 0;
}

int poll(pollfd *entries, nfds_t count, int waitMs)
{
    static auto *const look = real<int(pollfd *, nfds_t, int)>("poll");
    if (!counts()) return look(entries, count, waitMs);
    for (const int64_t end = now + waitMs;;) {
        letPeerAct();
        const int ready = look(entries, count, 0);
        if (ready != 0 || now >= end) return ready;
        now = std::min(now + kStepMs, end);
    }
}

int connect(int socket, const sockaddr *address, socklen_t size)
{
    const int64_t patience = counts() ? patienceMs(socket) : 0;
    const int result = patience == 0 ? connectNow(socket, address, size)
                                     : connectWaiting(socket, address, size, patience);
    const int error = errno;
    letPeerAct();
    errno = error;
    return result;
}

ssize_t send(int socket, const void *bytes, size_t size, int flags)
{
    static auto *const give = real<ssize_t(int, const void *, size_t, int)>("send");
    const ssize_t sent = give(socket, bytes, size, flags);
    const int error = errno;
    letPeerAct();
    errno = error;
    return sent;
}

ssize_t recv(int socket, void *bytes, size_t size, int flags)
{
    static auto *const take = real<ssize_t(int, void *, size_t, int)>("recv");
    const ssize_t got = take(socket, bytes, size, flags);
    const int error = errno;
    letPeerAct();
    errno = error;
    return got;
}

} // extern "C"
