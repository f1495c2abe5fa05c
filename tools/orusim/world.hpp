// What is on the air: radios, BSSes, stations, neighbours. It moves in steps of a second; all that
// chance decides is decided there, so that the same seed gives the same world.
#pragma once

#include "random.hpp"
#include "text.hpp"

#include <array>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace orusim {

class Configuration;

inline constexpr size_t kRadios = 2;
inline constexpr size_t kBsses = 4;
inline constexpr size_t kMostStations = 256; // in all; as many as one answer may carry

struct Counters {
    uint64_t txPackets = 0;
    uint64_t txBytes = 0;
    uint64_t rxPackets = 0;
    uint64_t rxBytes = 0;
    uint64_t retries = 0;
    uint64_t errors = 0;

    void add(const Counters &more);
};

struct Radio {
    bool up = false;
    uint32_t channel = 0;
    uint32_t secondaryChannel = 0;
    uint32_t txPower = 0;
    uint32_t beaconPeriod = 100; // in time units of 1024 us
    uint64_t beacons = 0;
    uint64_t beaconRest = 0; // us that have passed since the last beacon
    Counters counters;
};

struct Bss {
    uint32_t radios = 0; // a bit each
    std::string ssid;
    bool hidden = false;

    [[nodiscard]] bool isOn(size_t radio) const { return (radios >> radio & 1) != 0; }
};

struct Station {
    Address address{};
    size_t bss = 0;
    size_t radio = 0;
    uint16_t id = 0;                 // within its BSS and radio
    int signal = 0;                  // in dBm
    int64_t joinedAt = 0;            // the step before, in ms
    std::optional<int64_t> leavesAt; // stays when there is none
    Counters counters;

    [[nodiscard]] uint32_t rate() const; // in Mbit/s
};

struct Neighbour {
    Address bssid{};
    std::string ssid;
    bool heard = true;
};

class World {
public:
    World(uint64_t seed, Log log);

    /// Takes what was committed. Stations whose BSS has changed leave.
    void configure(const Configuration &configuration);

    /// When the next step is due, and the step.
    [[nodiscard]] int64_t nextStep() const { return nextStep_; }
    void step();

    /// Passes over steps that nobody can wait for, when the clock has jumped.
    void skipTo(int64_t now);

    /// So many stations from now on, but for their coming and going.
    void setPopulation(size_t stations);

    /// A station that stays for `stayMs`, or until it is removed. Why it can't come, or nothing.
    std::string add(size_t bss, size_t radio, const Address &address,
                    std::optional<int64_t> stayMs = {});
    /// A station of chance. False when the BSS is not on the air there.
    bool admit(size_t bss, size_t radio);
    bool remove(const Address &address, std::string_view reason);
    void setUp(size_t radio, bool up);

    [[nodiscard]] const Radio &radio(size_t index) const { return radios_.at(index); }
    [[nodiscard]] const Bss &bss(size_t index) const { return bsses_.at(index); }
    [[nodiscard]] bool onAir(size_t bss, size_t radio) const;
    [[nodiscard]] const std::vector<Station> &stations() const { return stations_; }
    [[nodiscard]] const Station *find(const Address &address) const;
    [[nodiscard]] size_t stationsOf(size_t radio) const;
    /// What the radios hear; nothing when both are down.
    [[nodiscard]] std::vector<Neighbour> scanList() const;

    /// The address of a BSS on a radio.
    static Address bssid(size_t bss, size_t radio);

private:
    void takeRadio(size_t index, const Configuration &configuration);
    void takeBss(size_t index, const Configuration &configuration);
    template <class Predicate>
    void removeIf(Predicate leaves, std::string_view reason);
    void tell(const Station &station, std::string_view what) const;
    bool admitAnywhere();
    [[nodiscard]] uint16_t freeId(size_t bss, size_t radio) const;
    Address newAddress();
    void carry(Station &station);
    void beacon(size_t radio);
    void listen();

    Random random_;
    Log log_;
    int64_t nextStep_ = 0;
    int64_t now_ = 0;
    size_t population_ = 0;
    std::array<Radio, kRadios> radios_;
    std::array<Bss, kBsses> bsses_;
    std::vector<Station> stations_; // in the order in which they came
    std::vector<Neighbour> neighbours_;
};

} // namespace orusim
