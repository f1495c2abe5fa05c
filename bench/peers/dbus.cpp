// D-Bus through its daemon: connects, says hello, calls a method that returns 100 bytes, closes.
#include "folder.hpp"
#include "service.hpp"

#include <benchmark/benchmark.h>
#include <dbus/dbus.h>

#include <cstdio>
#include <unistd.h>

namespace oru::bench {
namespace {

constexpr char kName[] = "bench.Service";
constexpr char kObject[] = "/bench";

/// A daemon of our own, which lets everyone talk to everyone.
std::string startDaemon()
{
    const std::string configuration = memory().root() + "/dbus.conf";
    std::FILE *file = std::fopen(configuration.c_str(), "w");
    if (file == nullptr) return {};
    std::fprintf(file,
                 "<busconfig><listen>unix:path=%s/dbus</listen><auth>EXTERNAL</auth>"
                 "<policy context=\"default\"><allow send_destination=\"*\"/>"
                 "<allow receive_sender=\"*\"/><allow own=\"*\"/></policy></busconfig>",
                 memory().root().c_str());
    std::fclose(file);
    const std::string option = "--config-file=" + configuration;
    const char *const arguments[] = {"dbus-daemon", option.c_str(), "--nofork", "--print-address",
                                     nullptr};
    return startProgram(arguments);
}

DBusConnection *connectTo(const char *address)
{
    DBusConnection *bus = dbus_connection_open_private(address, nullptr);
    if (bus == nullptr) return nullptr;
    dbus_connection_set_exit_on_disconnect(bus, FALSE);
    if (dbus_bus_register(bus, nullptr) != FALSE) return bus;
    dbus_connection_close(bus);
    dbus_connection_unref(bus);
    return nullptr;
}

/// Answers every call; writes one byte to `ready` once it has its name.
void serve(const char *address, int ready)
{
    DBusConnection *bus = connectTo(address);
    if (bus == nullptr || dbus_bus_request_name(bus, kName, 0, nullptr) < 0) return;
    if (::write(ready, "", 1) != 1) return;
    while (dbus_connection_read_write(bus, -1) != FALSE) {
        while (DBusMessage *call = dbus_connection_pop_message(bus)) {
            if (dbus_message_get_type(call) == DBUS_MESSAGE_TYPE_METHOD_CALL) {
                const uint8_t *bytes = answer();
                DBusMessage *reply = dbus_message_new_method_return(call);
                dbus_message_append_args(reply, DBUS_TYPE_ARRAY, DBUS_TYPE_BYTE, &bytes,
                                         static_cast<int>(kAnswerBytes), DBUS_TYPE_INVALID);
                dbus_connection_send(bus, reply, nullptr);
                dbus_message_unref(reply);
            }
            dbus_message_unref(call);
        }
    }
}

/// The bus's address, empty when there is none.
std::string startService()
{
    std::string address = startDaemon();
    int ends[2];
    char byte;
    if (address.empty() || ::pipe(ends) != 0) return {};
    Service::start([&] { serve(address.c_str(), ends[1]); });
    ::close(ends[1]);
    if (::read(ends[0], &byte, 1) != 1) address.clear();
    ::close(ends[0]);
    return address;
}

bool ask(const char *address)
{
    DBusConnection *bus = connectTo(address);
    if (bus == nullptr) return false;
    DBusMessage *call = dbus_message_new_method_call(kName, kObject, kName, "Ask");
    DBusMessage *reply = dbus_connection_send_with_reply_and_block(bus, call, -1, nullptr);
    const uint8_t *bytes = nullptr;
    int size = 0;
    const bool answered = reply != nullptr &&
                          dbus_message_get_args(reply, nullptr, DBUS_TYPE_ARRAY, DBUS_TYPE_BYTE,
                                                &bytes, &size, DBUS_TYPE_INVALID) != FALSE &&
                          size == static_cast<int>(kAnswerBytes);
    if (reply != nullptr) dbus_message_unref(reply);
    dbus_message_unref(call);
    dbus_connection_close(bus);
    dbus_connection_unref(bus);
    return answered;
}

void AskDBus(benchmark::State &state)
{
    static const std::string address = startService();
    if (address.empty()) return state.SkipWithError("no daemon");
    for (auto _ : state)
        if (!ask(address.c_str())) return state.SkipWithError("ask");
}

BENCHMARK(AskDBus);

} // namespace
} // namespace oru::bench
