// One request and its reply of 100 bytes, on a fresh connection.
#include "folder.hpp"
#include "oruSdk.h"
#include "service.hpp"

#include <benchmark/benchmark.h>

#include <cstdio>
#include <poll.h>
#include <sys/socket.h>
#include <sys/un.h>

namespace oru::bench {
namespace {

std::string servicePath()
{
    return memory().root() + "/run/oru/" + std::to_string(port) + "." + std::to_string(vers);
}

/// Answers everyone, once.
[[noreturn]] void serve(int listener)
{
    for (;;) {
        const int caller = ::accept4(listener, nullptr, nullptr, SOCK_CLOEXEC);
        uint8_t request[2000];
        if (::recv(caller, request, sizeof request, 0) > 0)
            ::send(caller, answer(), kAnswerBytes, MSG_NOSIGNAL);
        ::close(caller);
    }
}

/// Both sides of the comparison ask the same service.
bool startService()
{
    static const bool started = [] {
        const int listener = listenAt(servicePath(), SOCK_SEQPACKET);
        return Service::start([listener] { serve(listener); });
    }();
    return started;
}

void AskBssList(benchmark::State &state)
{
    memory().use();
    if (!startService()) return state.SkipWithError("no service");
    for (auto _ : state) {
        OruSdkBssListParam list{};
        if (oruSdkGetBssListParam(&list) != 0 || list.numBss != 2)
            return state.SkipWithError("ask");
        benchmark::DoNotOptimize(list);
    }
}

bool askFloor(const sockaddr_un &address)
{
    const uint8_t request[8] = {1, 2, 0, 8};
    uint8_t reply[20000];
    const int socket = ::socket(AF_UNIX, SOCK_SEQPACKET | SOCK_CLOEXEC, 0);
    const bool sent =
        ::connect(socket, reinterpret_cast<const sockaddr *>(&address), sizeof address) == 0 &&
        ::send(socket, request, sizeof request, MSG_NOSIGNAL) == sizeof request;
    pollfd entry{socket, POLLIN, 0};
    const bool answered = sent && ::poll(&entry, 1, 20000) == 1 &&
                          ::recv(socket, reply, sizeof reply, 0) == kAnswerBytes;
    ::close(socket);
    benchmark::DoNotOptimize(reply);
    return answered;
}

void AskFloor(benchmark::State &state)
{
    if (!startService()) return state.SkipWithError("no service");
    sockaddr_un address{AF_UNIX, {}};
    std::snprintf(address.sun_path, sizeof address.sun_path, "%s", servicePath().c_str());
    for (auto _ : state)
        if (!askFloor(address)) return state.SkipWithError("ask");
}

BENCHMARK(AskBssList);
BENCHMARK(AskFloor);

} // namespace
} // namespace oru::bench
