// sd-bus, peer to peer: connects, calls a method that returns 100 bytes, closes.
#include "folder.hpp"
#include "service.hpp"

#include <benchmark/benchmark.h>
#include <sys/socket.h>
#include <systemd/sd-bus.h>
#include <unistd.h>

namespace oru::bench {
namespace {

constexpr char kObject[] = "/bench";
constexpr char kInterface[] = "bench.Service";

int reply(sd_bus_message *call, void *, sd_bus_error *)
{
    sd_bus_message *message = nullptr;
    sd_bus_message_new_method_return(call, &message);
    sd_bus_message_append_array(message, 'y', answer(), kAnswerBytes);
    const int sent = sd_bus_send(nullptr, message, nullptr);
    sd_bus_message_unref(message);
    return sent < 0 ? sent : 1;
}

/// Serves one caller until it goes.
void serveCaller(int caller)
{
    static const sd_bus_vtable kMethods[] = {
        SD_BUS_VTABLE_START(0), SD_BUS_METHOD("Ask", "", "ay", reply, SD_BUS_VTABLE_UNPRIVILEGED),
        SD_BUS_VTABLE_END};
    sd_id128_t id;
    sd_bus *bus = nullptr;
    sd_id128_randomize(&id);
    sd_bus_new(&bus);
    sd_bus_set_fd(bus, caller, caller);
    sd_bus_set_server(bus, 1, id);
    sd_bus_add_object_vtable(bus, nullptr, kObject, kInterface, kMethods, nullptr);
    sd_bus_start(bus);
    for (int done = 0; done >= 0;) {
        done = sd_bus_process(bus, nullptr);
        if (done == 0) done = sd_bus_wait(bus, UINT64_MAX);
    }
    sd_bus_close(bus);
    sd_bus_unref(bus);
}

std::string startService()
{
    std::string path = memory().root() + "/sdbus";
    const int listener = listenAt(path, SOCK_STREAM);
    Service::start([listener] {
        for (;;) serveCaller(::accept4(listener, nullptr, nullptr, SOCK_CLOEXEC | SOCK_NONBLOCK));
    });
    return "unix:path=" + path;
}

bool ask(const char *address)
{
    sd_bus *bus = nullptr;
    sd_bus_message *message = nullptr;
    const void *bytes = nullptr;
    size_t size = 0;
    sd_bus_new(&bus);
    sd_bus_set_address(bus, address);
    const bool answered =
        sd_bus_start(bus) >= 0 &&
        sd_bus_call_method(bus, nullptr, kObject, kInterface, "Ask", nullptr, &message, "") >= 0 &&
        sd_bus_message_read_array(message, 'y', &bytes, &size) > 0 && size == kAnswerBytes;
    sd_bus_message_unref(message);
    sd_bus_close(bus);
    sd_bus_unref(bus);
    return answered;
}

void AskSdBus(benchmark::State &state)
{
    static const std::string address = startService();
    for (auto _ : state)
        if (!ask(address.c_str())) return state.SkipWithError("ask");
}

BENCHMARK(AskSdBus);

} // namespace
} // namespace oru::bench
