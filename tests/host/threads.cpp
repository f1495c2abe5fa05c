// threads [ROUNDS]: operations of all kinds in several threads at once, built with its own copy of
// the libraries under the thread sanitizer, which ends the program with a report when two of them
// meet.
#include "host/operations.hpp"
#include "oruAsf.h"
#include "oruSdk.h"

#include <atomic>
#include <cstdio>
#include <cstdlib>
#include <thread>
#include <unistd.h>
#include <vector>

using namespace oru::test;

namespace {

std::atomic<bool> over = false;

/// A service that answers every request with the same few bytes.
void serve(OruAsfListener *listener)
{
    const unsigned char reply[] = {1, 9, 0, 18, 0, 0, 0, 0, 0, 3, 0, 10, 0, 4, 0, 0, 0, 0};
    while (!over) {
        OruAsfIpc *caller = oruAsfIpcAccept(listener, 20);
        if (caller == nullptr) continue;
        char request[2048];
        if (oruAsfIpcCheck(caller, 1000) > 0) oruAsfIpcRecv(caller, request, sizeof request);
        oruAsfIpcSend(caller, reply, sizeof reply);
        oruAsfIpcClose(caller);
    }
}

/// Each thread begins at another operation, so that all meet all.
size_t work(size_t start, size_t rounds)
{
    size_t calls = 0;
    for (size_t i = 0; i < rounds; ++i) {
        const Operation &operation = operations()[(start + i * 7) % operations().size()];
        if (runsShell(operation)) continue; // copies a file in place, under the others' hands
        operation.call();
        ++calls;
    }
    return calls;
}

} // namespace

int main(int argc, char **argv)
{
    const size_t rounds = argc > 1 ? std::strtoul(argv[1], nullptr, 10) : 0;
    if (rounds == 0) return 2;
    std::vector<OruAsfListener *> listeners;
    std::vector<std::thread> services;
    for (const uint32_t number : {port, authPort}) {
        listeners.push_back(oruAsfIpcListen(number, vers));
        if (listeners.back() == nullptr) return 3;
        services.emplace_back(serve, listeners.back());
    }
    std::atomic<size_t> calls = 0;
    std::vector<std::thread> threads;
    for (size_t start : {0u, 50u, 100u, 150u})
        threads.emplace_back([&calls, start, rounds] { calls += work(start, rounds); });
    for (std::thread &thread : threads) thread.join();
    over = true;
    for (std::thread &service : services) service.join();
    for (OruAsfListener *listener : listeners) oruAsfIpcUnlisten(listener);
    std::printf("torture: host programs, threads under a sanitizer: %zu threads, %zu calls\n",
                threads.size(), calls.load());
    return calls > rounds ? 0 : 4;
}
