#include "simulator.hpp"

#include "oruAsf.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <sys/epoll.h>
#include <sys/resource.h>
#include <sys/socket.h>

namespace orusim {
namespace {

enum Token : uint64_t { kWake, kCommand, kServices, kFirstFree = kServices + 2 };

constexpr int kAtATurn = 64;             // events, and callers to be accepted
constexpr size_t kReserve = 64;          // descriptors that are no client's
constexpr uint32_t kMostOwed = 64;       // late answers to one client
constexpr size_t kMostCommanders = 16;   // connections to the control socket
constexpr size_t kUnlimited = 1'000'000; // clients

size_t clientsThatFit()
{
    rlimit limit{};
    if (::getrlimit(RLIMIT_NOFILE, &limit) != 0) return kReserve;
    if (limit.rlim_cur > kUnlimited) return kUnlimited;
    const auto all = static_cast<size_t>(limit.rlim_cur);
    return all > 2 * kReserve ? all - kReserve : kReserve;
}

} // namespace

void Simulator::CloseIpc::operator()(OruAsfIpc *ipc) const
{
    oruAsfIpcClose(ipc);
}

void Simulator::CloseListener::operator()(OruAsfListener *listener) const
{
    oruAsfIpcUnlisten(listener);
}

Simulator::Simulator(Options options, const Clock &clock)
    : options_(std::move(options)), clock_(clock), world_(clock, options_.speed),
      wsm_(options_.log, world_, options_.seed), aa_(options_.log), buffer_(kRoom),
      nextToken_(kFirstFree)
{
    if (options_.maxClients == 0) options_.maxClients = clientsThatFit();
    int ends[2] = {-1, -1};
    if (::pipe2(ends, O_CLOEXEC | O_NONBLOCK) != 0) return;
    wakeRead_ = Descriptor{ends[0]};
    wakeWrite_ = Descriptor{ends[1]};
    epoll_ = Descriptor{::epoll_create1(EPOLL_CLOEXEC)};
}

Simulator::~Simulator() = default;

std::string Simulator::start()
{
    if (!epoll_ || !watch(wakeRead_.number(), kWake)) return "no descriptors left";
    // Looked at first, so that nothing is made in a folder that is no access point's.
    for (const Service *service : services())
        if (!Configuration::load(service->path()))
            return format("can't read %s (is this an access point's folder? --init makes one)",
                          rooted(service->path()).c_str());
    for (size_t i = 0; i < listeners_.size(); ++i)
        if (std::string error = listen(i); !error.empty()) return error;
    commands_ = CommandListener::make();
    if (!commands_ || !watch(commands_->number(), kCommand))
        return std::string("can't make the control socket: ") + std::strerror(errno);
    for (Service *service : services()) service->load();
    wsm_.world().setPopulation(options_.stations);
    return {};
}

std::string Simulator::listen(size_t service)
{
    const Service &listening = *services()[service];
    listeners_[service].reset(oruAsfIpcListen(listening.port(), kVersion));
    if (!listeners_[service]) {
        const char *reason =
            errno == EADDRINUSE ? "such a service runs there already" : std::strerror(errno);
        return format("can't listen as %s (port %u below %s): %s", listening.name().c_str(),
                      listening.port(), rooted("/run/oru").c_str(), reason);
    }
    const int descriptor = oruAsfIpcListenDescriptor(listeners_[service].get());
    return watch(descriptor, kServices + service) ? "" : "no descriptors left";
}

void Simulator::wake(char command) const
{
    // When the pipe is full the loop has been woken more often than it could look.
    [[maybe_unused]] const ssize_t written = ::write(wakeWrite_.number(), &command, 1);
}

bool Simulator::watch(int descriptor, uint64_t token) const
{
    epoll_event event{EPOLLIN, {.u64 = token}};
    return ::epoll_ctl(epoll_.number(), EPOLL_CTL_ADD, descriptor, &event) == 0;
}

void Simulator::run()
{
    while (runOnce(-1)) {}
}

bool Simulator::runOnce(int timeoutMs)
{
    if (stopped_) return false;
    std::array<epoll_event, kAtATurn> events;
    const int count = ::epoll_wait(epoll_.number(), events.data(), kAtATurn, waitFor(timeoutMs));
    for (int i = 0; i < count; ++i) dispatch(events[static_cast<size_t>(i)].data.u64);
    sendDue();
    wsm_.catchUp();
    return !stopped_;
}

int Simulator::waitFor(int timeoutMs) const
{
    constexpr int64_t kLeastStep = 10; // so that a fast world does not take all of the machine
    int64_t left = std::max(world_.realMsUntil(wsm_.world().nextStep()), kLeastStep);
    if (!late_.empty()) left = std::clamp<int64_t>(late_.begin()->first - clock_.nowMs(), 0, left);
    return static_cast<int>(timeoutMs < 0 ? left : std::min<int64_t>(timeoutMs, left));
}

void Simulator::advance(int64_t ms)
{
    world_.advance(ms);
    wsm_.catchUp();
}

void Simulator::dispatch(uint64_t token)
{
    if (token == kWake) return obeyWakes();
    if (token == kCommand) return acceptCommander();
    if (token < kFirstFree) return acceptClients(static_cast<size_t>(token - kServices));
    if (commanders_.contains(token)) return serveCommander(token);
    // A client that was dropped in this turn has no entry any more.
    if (const auto client = clients_.find(token); client != clients_.end()) serve(client);
}

void Simulator::obeyWakes()
{
    char commands[64];
    const ssize_t got = ::read(wakeRead_.number(), commands, sizeof commands);
    const std::string_view all{commands, got > 0 ? static_cast<size_t>(got) : 0};
    if (all.find('r') != all.npos)
        for (Service *service : services()) service->reload();
    if (all.find('q') != all.npos) stopped_ = true;
}

void Simulator::acceptClients(size_t service)
{
    for (int i = 0; i < kAtATurn; ++i) {
        errno = 0;
        if (OruAsfIpc *ipc = oruAsfIpcAccept(listeners_[service].get(), 0); ipc != nullptr)
            admit(*services()[service], ipc);
        else if ((errno == EMFILE || errno == ENFILE || errno == ENOMEM) && !clients_.empty())
            dropOldest();
        else return;
    }
}

void Simulator::admit(Service &service, OruAsfIpc *ipc)
{
    const uint64_t token = nextToken_++;
    const auto client =
        clients_
            .emplace(token, Client{std::unique_ptr<OruAsfIpc, CloseIpc>{ipc}, &service, ++events_})
            .first;
    if (!watch(oruAsfIpcDescriptor(ipc), token)) {
        clients_.erase(client);
        return;
    }
    serve(client); // most have sent their request by now
    if (clients_.size() > options_.maxClients) dropOldest();
}

/// Drops the client from whom nothing was heard for longest, among those who wait for nothing when
/// there are such.
void Simulator::dropOldest()
{
    const auto oldest =
        std::ranges::min_element(clients_, {}, [](const Clients::value_type &entry) {
            return std::pair{entry.second.owed > 0, entry.second.lastSeen};
        });
    oldest->second.service->say("too many clients, dropping the one that was idle for longest");
    clients_.erase(oldest);
}

void Simulator::serve(Clients::iterator client)
{
    client->second.lastSeen = ++events_;
    errno = 0;
    const int32_t got = oruAsfIpcRecv(client->second.ipc.get(), buffer_.data(), kRoom);
    if (got < 0 && (errno == EAGAIN || errno == EINTR)) return;
    if (got <= 0) {
        clients_.erase(client);
        return;
    }
    conclude(client, client->second.service->receive({buffer_.data(), static_cast<size_t>(got)}));
}

void Simulator::conclude(Clients::iterator client, Outcome outcome)
{
    if (outcome.close) {
        clients_.erase(client);
    } else if (outcome.answer && outcome.delayMs > 0) {
        if (++client->second.owed > kMostOwed) {
            client->second.service->say("too many requests at once, closing");
            clients_.erase(client);
            return;
        }
        late_.emplace(clock_.nowMs() + outcome.delayMs,
                      Late{client->first, std::move(*outcome.answer)});
    } else if (outcome.answer) {
        send(client, *outcome.answer);
    }
}

void Simulator::send(Clients::iterator client, const Bytes &answer)
{
    if (oruAsfIpcSend(client->second.ipc.get(), answer.data(),
                      static_cast<uint32_t>(answer.size())) >= 0)
        return;
    client->second.service->say("can't send the answer, closing");
    clients_.erase(client);
}

void Simulator::sendDue()
{
    const int64_t now = late_.empty() ? 0 : clock_.nowMs();
    while (!late_.empty() && late_.begin()->first <= now) {
        const Late late = std::move(late_.begin()->second);
        late_.erase(late_.begin());
        const auto client = clients_.find(late.client);
        if (client == clients_.end()) continue;
        --client->second.owed;
        send(client, late.answer);
    }
}

void Simulator::acceptCommander()
{
    Descriptor socket{
        ::accept4(commands_->number(), nullptr, nullptr, SOCK_CLOEXEC | SOCK_NONBLOCK)};
    if (!socket) return;
    if (commanders_.size() >= kMostCommanders) commanders_.erase(commanders_.begin());
    const uint64_t token = nextToken_++;
    if (watch(socket.number(), token)) commanders_.emplace(token, std::move(socket));
}

void Simulator::serveCommander(uint64_t token)
{
    char command[kControlRoom];
    const Descriptor socket = std::move(commanders_.at(token));
    commanders_.erase(token);
    const ssize_t got = ::recv(socket.number(), command, sizeof command, 0);
    if (got <= 0) return;
    const std::string answer = obey(*this, {command, static_cast<size_t>(got)});
    [[maybe_unused]] const ssize_t sent =
        ::send(socket.number(), answer.data(), answer.size(), MSG_NOSIGNAL);
}

} // namespace orusim
