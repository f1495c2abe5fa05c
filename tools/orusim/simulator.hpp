// The simulated access point: both services and the control socket, served from one loop.
#pragma once

#include "clock.hpp"
#include "control.hpp"
#include "descriptor.hpp"
#include "services.hpp"
#include "text.hpp"

#include <array>
#include <cstdint>
#include <map>
#include <memory>
#include <string>

struct OruAsfIpc;
struct OruAsfListener;

namespace orusim {

class Simulator {
public:
    struct Options {
        Log log;
        size_t maxClients = 0; // connections at a time; 0: what the limit on descriptors leaves
        uint64_t seed = 1;     // of all that chance decides
        uint32_t speed = 1;    // of the world's clock
        size_t stations = 0;   // as many are there in the middle
    };

    Simulator(Options options, const Clock &clock);
    ~Simulator();
    Simulator(const Simulator &) = delete;
    Simulator &operator=(const Simulator &) = delete;

    /// Loads the configuration and listens. An empty text, or what is in the way.
    std::string start();

    /// Waits until something comes in or falls due, at most timeoutMs (-1: as long as it takes),
    /// and does it. False once it has been told to stop.
    bool runOnce(int timeoutMs);

    /// Serves until it is told to stop.
    void run();

    /// For poll() by whoever has a loop of his own: readable when runOnce(0) has something to do,
    /// slow answers excepted.
    [[nodiscard]] int descriptor() const { return epoll_.number(); }

    /// May be called from a signal handler.
    void stop() const { wake('q'); }
    void reload() const { wake('r'); }

    /// Moves the world's clock on.
    void advance(int64_t ms);
    [[nodiscard]] int64_t worldMs() const { return world_.nowMs(); }

    Wsm &wsm() { return wsm_; }
    Aa &aa() { return aa_; }
    std::array<Service *, 2> services() { return {&wsm_, &aa_}; }
    [[nodiscard]] size_t clients() const { return clients_.size(); }

private:
    struct CloseIpc {
        void operator()(OruAsfIpc *ipc) const;
    };
    struct CloseListener {
        void operator()(OruAsfListener *listener) const;
    };
    struct Client {
        std::unique_ptr<OruAsfIpc, CloseIpc> ipc;
        Service *service;
        uint64_t lastSeen; // grows with every event
        uint32_t owed = 0; // answers that are yet to be sent
    };
    struct Late {
        uint64_t client;
        Bytes answer;
    };
    using Clients = std::map<uint64_t, Client>;

    void wake(char command) const;
    bool watch(int descriptor, uint64_t token) const;
    std::string listen(size_t service);
    void dispatch(uint64_t token);
    void obeyWakes();
    void acceptClients(size_t service);
    void admit(Service &service, OruAsfIpc *ipc);
    void dropOldest();
    void serve(Clients::iterator client);
    void conclude(Clients::iterator client, Outcome outcome);
    void send(Clients::iterator client, const Bytes &answer);
    void sendDue();
    [[nodiscard]] int waitFor(int timeoutMs) const;
    void acceptCommander();
    void serveCommander(uint64_t token);

    Options options_;
    const Clock &clock_;
    WorldClock world_;
    Wsm wsm_;
    Aa aa_;
    std::array<std::unique_ptr<OruAsfListener, CloseListener>, 2> listeners_;
    Descriptor epoll_;
    Descriptor wakeRead_;
    Descriptor wakeWrite_;
    std::unique_ptr<CommandListener> commands_;
    std::map<uint64_t, Descriptor> commanders_;
    Clients clients_;
    std::multimap<int64_t, Late> late_; // by the moment when they are due
    Bytes buffer_;
    uint64_t events_ = 0;
    uint64_t nextToken_;
    bool stopped_ = false;
};

} // namespace orusim
