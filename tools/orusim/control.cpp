#include "control.hpp"

#include "simulator.hpp"
#include "text.hpp"

#include <algorithm>
#include <cstring>
#include <fcntl.h>
#include <poll.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

namespace orusim {
namespace {

constexpr char kFolder[] = "/run/oru";
constexpr char kName[] = "orusim.control";

Descriptor openFolder()
{
    return Descriptor{::open(rooted(kFolder).c_str(), O_PATH | O_DIRECTORY | O_CLOEXEC)};
}

Descriptor openSocket(int flags)
{
    return Descriptor{::socket(AF_UNIX, SOCK_SEQPACKET | SOCK_CLOEXEC | flags, 0)};
}

/// The socket's address. It holds only 107 characters: the folder, which may be far down, is
/// reached through this process's list of descriptors.
sockaddr_un addressIn(const Descriptor &folder)
{
    sockaddr_un address{AF_UNIX, {}};
    const std::string path = format("/proc/self/fd/%d/%s", folder.number(), kName);
    std::memcpy(address.sun_path, path.c_str(), path.size() + 1);
    return address;
}

const sockaddr *generic(const sockaddr_un &address)
{
    return reinterpret_cast<const sockaddr *>(&address);
}

constexpr char kUsageOfFault[] =
    "error: fault wsm|aa|all none|silent|slow MS|close|wrong|cut BYTES [count N]\n";

std::string setFault(Simulator &simulator, std::vector<std::string_view> words)
{
    if (words.size() < 2) return kUsageOfFault;
    const std::string_view service = words[0];
    words.erase(words.begin());
    const auto fault = parseFault(words);
    if (!fault) return kUsageOfFault;

    std::optional<uint32_t> count;
    if (!words.empty()) {
        if (words.size() != 2 || words[0] != "count") return kUsageOfFault;
        count = toNumber(words[1]);
        if (!count || *count == 0) return kUsageOfFault;
    }
    if (service != "wsm" && service != "aa" && service != "all") return kUsageOfFault;
    if (service != "aa") simulator.wsm().faults().set(*fault, count);
    if (service != "wsm") simulator.aa().faults().set(*fault, count);
    return "ok\n";
}

constexpr char kUsageOfStation[] = "error: station add BSS MAC [RADIO] | station remove MAC\n";

/// The lowest radio on which a BSS is on the air.
size_t radioOf(const World &world, size_t bss)
{
    size_t radio = 0;
    while (radio < kRadios && !world.onAir(bss, radio)) ++radio;
    return radio;
}

std::string addStation(Simulator &simulator, const std::vector<std::string_view> &words)
{
    if (words.size() != 2 && words.size() != 3) return kUsageOfStation;
    World &world = simulator.wsm().world();
    const auto bss = toNumber(words[0]);
    const auto address = toAddress(words[1]);
    const auto radio = words.size() == 3 ? toNumber(words[2]) : std::optional<uint32_t>{0};
    if (!bss || !address || !radio) return kUsageOfStation;

    const size_t on = words.size() == 3 ? *radio : radioOf(world, *bss);
    const std::string error = world.add(*bss, on, *address);
    return error.empty() ? "ok\n" : "error: " + error + '\n';
}

std::string changeStation(Simulator &simulator, const std::vector<std::string_view> &words)
{
    if (words.size() > 1 && words[0] == "add")
        return addStation(simulator, {words.begin() + 1, words.end()});
    if (words.size() != 2 || words[0] != "remove") return kUsageOfStation;
    const auto address = toAddress(words[1]);
    if (!address) return kUsageOfStation;
    if (!simulator.wsm().world().remove(*address, "told to")) return "error: no such station\n";
    return "ok\n";
}

std::string setStations(Simulator &simulator, const std::vector<std::string_view> &words)
{
    const auto count = words.size() == 1 ? toNumber(words[0]) : std::nullopt;
    if (!count || *count > kMostStations) return format("error: stations 0..%zu\n", kMostStations);
    simulator.wsm().world().setPopulation(*count);
    return "ok\n";
}

std::string advance(Simulator &simulator, const std::vector<std::string_view> &words)
{
    constexpr uint32_t kMost = 24 * 3600 * 1000;
    const auto ms = words.size() == 1 ? toNumber(words[0]) : std::nullopt;
    if (!ms || *ms > kMost) return format("error: advance 0..%u\n", kMost);
    simulator.advance(*ms);
    return "ok\n";
}

std::string setPeer(Simulator &simulator, const std::vector<std::string_view> &words)
{
    if (words.size() != 2 || words[0] != "peer" || (words[1] != "on" && words[1] != "off"))
        return "error: wps peer on|off\n";
    simulator.wsm().wps().setPeer(words[1] == "on", simulator.worldMs());
    return "ok\n";
}

/// A line for each radio, and for each BSS on it.
std::string airStatus(const Wsm &wsm)
{
    std::string text;
    for (size_t radio = 0; radio < kRadios; ++radio) {
        const Radio &state = wsm.world().radio(radio);
        text += format("radio %zu: %s, channel %u, %zu stations\n", radio, state.up ? "up" : "down",
                       state.channel, wsm.world().stationsOf(radio));
        for (size_t bss = 0; bss < kBsses; ++bss)
            if (wsm.world().bss(bss).isOn(radio))
                text += format(
                    "  bss %zu: %s%s, WPS %s\n", bss, printable(wsm.world().bss(bss).ssid).c_str(),
                    wsm.world().bss(bss).hidden ? " (hidden)" : "", wsm.wps().stage(bss, radio));
    }
    return text;
}

std::string status(Simulator &simulator)
{
    std::string text = format("ok\nclients: %zu\n", simulator.clients());
    for (Service *service : simulator.services())
        text += format(
            "%s: port %u, %zu keys of %s, %llu messages, fault %s\n", service->name().c_str(),
            service->port(), service->configuration().size(), service->path().c_str(),
            static_cast<unsigned long long>(service->messages()), service->faults().text().c_str());
    return text + airStatus(simulator.wsm());
}

std::string quit(Simulator &simulator)
{
    simulator.stop();
    return "ok\n";
}

} // namespace

const char kCommands[] =
    "  fault wsm|aa|all KIND [count N]  spoil the answers to the next N requests, or until "
    "cleared;\n"
    "                                   KIND: none, silent, slow MS, close, wrong, cut BYTES\n"
    "  station add BSS MAC [RADIO]      a station joins, and stays\n"
    "  station remove MAC               a station leaves\n"
    "  stations N                       so many stations, but for their coming and going\n"
    "  advance MS                       move the world's clock on\n"
    "  wps peer on|off                  whether the other side of an enrollment answers\n"
    "  status                           what runs, what is on the air, which faults are set\n"
    "  quit                             end the simulator\n";

std::string obey(Simulator &simulator, std::string_view command)
{
    using Words = std::vector<std::string_view>;
    constexpr struct {
        const char *name;
        std::string (*run)(Simulator &, const Words &);
    } kRows[] = {{"station", changeStation},
                 {"stations", setStations},
                 {"advance", advance},
                 {"wps", setPeer}};

    const Words all = words(command);
    if (!all.empty() && all[0] == "fault") return setFault(simulator, {all.begin() + 1, all.end()});
    if (all.size() == 1 && all[0] == "status") return status(simulator);
    if (all.size() == 1 && all[0] == "quit") return quit(simulator);
    for (const auto &[name, run] : kRows)
        if (!all.empty() && all[0] == name) return run(simulator, {all.begin() + 1, all.end()});
    return "error: fault, station, stations, advance, wps, status and quit are the commands\n";
}

CommandListener::CommandListener(Descriptor folder, Descriptor socket)
    : folder_(std::move(folder)), socket_(std::move(socket))
{
}

CommandListener::~CommandListener()
{
    ::unlinkat(folder_.number(), kName, 0);
}

std::unique_ptr<CommandListener> CommandListener::make()
{
    Descriptor folder = openFolder();
    Descriptor socket = openSocket(SOCK_NONBLOCK);
    if (!folder || !socket) return {};
    // A socket that stands there is a dead simulator's: a living one would hold the services'.
    ::unlinkat(folder.number(), kName, 0);
    ::fchmod(socket.number(), 0600);
    const sockaddr_un address = addressIn(folder);
    if (::bind(socket.number(), generic(address), sizeof address) != 0 ||
        ::listen(socket.number(), 16) != 0)
        return {};
    return std::unique_ptr<CommandListener>{
        new CommandListener(std::move(folder), std::move(socket))};
}

std::optional<std::string> sendCommand(std::string_view command)
{
    constexpr int kLongestWaitMs = 10000;
    const Descriptor folder = openFolder();
    const Descriptor socket = openSocket(0);
    if (!folder || !socket) return {};
    const sockaddr_un address = addressIn(folder);
    if (::connect(socket.number(), generic(address), sizeof address) != 0) return {};
    if (::send(socket.number(), command.data(), command.size(), MSG_NOSIGNAL) !=
        static_cast<ssize_t>(command.size()))
        return {};

    pollfd entry{socket.number(), POLLIN, 0};
    if (::poll(&entry, 1, kLongestWaitMs) <= 0) return {};
    std::string answer(kControlRoom, '\0');
    const ssize_t got = ::recv(socket.number(), answer.data(), answer.size(), 0);
    if (got <= 0) return {};
    answer.resize(static_cast<size_t>(got));
    return answer;
}

} // namespace orusim
