#include "world.hpp"

#include "configuration.hpp"

#include <algorithm>

namespace orusim {
namespace {

constexpr int64_t kStepMs = 1000;
constexpr int64_t kDayMs = 24 * 3600 * kStepMs;
constexpr int64_t kScanMs = 30 * kStepMs;
constexpr uint32_t kShortestStay = 60; // of a station of chance, in seconds
constexpr uint32_t kLongestStay = 600;
constexpr int kWeakest = -90; // signals, in dBm
constexpr int kStrongest = -35;

uint32_t positive(const Configuration &configuration, const std::string &key, uint32_t fallback)
{
    const int number = configuration.number(key, -1);
    return number < 0 ? fallback : static_cast<uint32_t>(number);
}

std::string radioKey(size_t radio, const char *name)
{
    return format("radio%zu.%s", radio, name);
}

std::string bssKey(size_t bss, const char *name)
{
    return format("bss%zu.%s", bss, name);
}

} // namespace

void Counters::add(const Counters &more)
{
    txPackets += more.txPackets;
    txBytes += more.txBytes;
    rxPackets += more.rxPackets;
    rxBytes += more.rxBytes;
    retries += more.retries;
    errors += more.errors;
}

uint32_t Station::rate() const
{
    constexpr struct {
        int least;
        uint32_t rate;
    } kRates[] = {{-55, 130}, {-62, 104}, {-68, 78}, {-74, 52}, {-80, 26}};
    for (const auto &[least, rate] : kRates)
        if (signal >= least) return rate;
    return 6;
}

World::World(uint64_t seed, Log log) : random_(seed), log_(std::move(log)), nextStep_(kStepMs)
{
    constexpr const char *kNames[] = {"cafe",   "office",  "Hotel Lobby", "",
                                      "garage", "printer", "guest",       "warehouse"};
    const uint32_t count = random_.between(5, 12);
    for (uint32_t i = 0; i < count; ++i) {
        const char *name = kNames[random_.between(0, std::size(kNames) - 1)];
        neighbours_.push_back({newAddress(), name});
    }
}

void World::configure(const Configuration &configuration)
{
    for (size_t radio = 0; radio < kRadios; ++radio) takeRadio(radio, configuration);
    for (size_t bss = 0; bss < kBsses; ++bss) takeBss(bss, configuration);
    removeIf([this](const Station &s) { return !onAir(s.bss, s.radio); }, "no BSS any more");
}

void World::takeRadio(size_t index, const Configuration &configuration)
{
    constexpr int kFixed = 2; // channel selection
    Radio &radio = radios_[index];
    const bool automatic =
        configuration.number(radioKey(index, "channelSelectionType"), kFixed) != kFixed;
    radio.up = configuration.number(radioKey(index, "adminStatus"), 0) != 0;
    radio.channel = positive(configuration, radioKey(index, "configuredChannel"), 0);
    // Left to choose, a radio takes the first channel of its band.
    if (automatic)
        radio.channel = configuration.number(radioKey(index, "bandType"), 1) == 2 ? 36 : 1;
    radio.secondaryChannel =
        positive(configuration, radioKey(index, "configuredSecondaryChannel"), 0);
    radio.txPower = positive(configuration, radioKey(index, "txPower"), 0);
    radio.beaconPeriod =
        std::max(positive(configuration, radioKey(index, "beaconPeriod"), 100), 1u);
}

void World::takeBss(size_t index, const Configuration &configuration)
{
    constexpr size_t kLongestSsid = 32;
    const std::string ssid =
        configuration.text(bssKey(index, "ssId")).value_or("").substr(0, kLongestSsid);
    Bss &bss = bsses_[index];
    if (bss.ssid != ssid)
        removeIf([index](const Station &s) { return s.bss == index; }, "another name");
    bss.ssid = ssid;
    bss.radios = positive(configuration, bssKey(index, "radio"), 0);
    bss.hidden = configuration.number(bssKey(index, "suppressSSIDFlag"), 0) != 0;
}

// ---- Time

void World::step()
{
    now_ = nextStep_;
    nextStep_ += kStepMs;
    removeIf([this](const Station &s) { return s.leavesAt && *s.leavesAt <= now_; }, "its time");
    if (stations_.size() < population_ && random_.oneIn(4)) admitAnywhere();
    for (Station &station : stations_) carry(station);
    for (size_t radio = 0; radio < kRadios; ++radio) beacon(radio);
    if (now_ % kScanMs == 0) listen();
}

void World::skipTo(int64_t now)
{
    if (now - nextStep_ > kDayMs) nextStep_ = now - kDayMs;
}

/// A second's traffic. A station of a radio that is down is none of this world.
void World::carry(Station &station)
{
    station.signal = std::clamp(station.signal + static_cast<int>(random_.between(0, 4)) - 2,
                                kWeakest, kStrongest);
    Counters more;
    more.txPackets = random_.between(1, 200);
    more.txBytes = more.txPackets * random_.between(60, 1500);
    more.rxPackets = random_.between(1, 100);
    more.rxBytes = more.rxPackets * random_.between(60, 1500);
    more.retries = more.txPackets / (station.signal < -70 ? 8 : 32);
    more.errors = random_.oneIn(20) ? 1 : 0;
    station.counters.add(more);
    radios_[station.radio].counters.add(more);
}

void World::beacon(size_t radio)
{
    Radio &beaconing = radios_[radio];
    if (!beaconing.up) return;
    const uint64_t period = uint64_t{beaconing.beaconPeriod} * 1024;
    beaconing.beaconRest += kStepMs * 1000;
    const auto bsses = static_cast<uint64_t>(
        std::ranges::count_if(bsses_, [radio](const Bss &bss) { return bss.isOn(radio); }));
    beaconing.beacons += beaconing.beaconRest / period * bsses;
    beaconing.beaconRest %= period;
}

void World::listen()
{
    for (Neighbour &neighbour : neighbours_) neighbour.heard = !random_.oneIn(8);
}

// ---- Stations

void World::setPopulation(size_t stations)
{
    population_ = std::min(stations, kMostStations);
    while (stations_.size() < population_ && admitAnywhere()) {}
    while (stations_.size() > population_) {
        tell(stations_.back(), "leaves: too many");
        stations_.pop_back();
    }
}

std::string World::add(size_t bss, size_t radio, const Address &address,
                       std::optional<int64_t> stayMs)
{
    if ((address[0] & 1) != 0 || address == Address{}) return "this is no station's address";
    if (!onAir(bss, radio)) return "the BSS is not on the air";
    if (find(address) != nullptr) return "the station is there already";
    if (stations_.size() >= kMostStations) return "there are too many stations";
    Station station;
    station.address = address;
    station.bss = bss;
    station.radio = radio;
    station.id = freeId(bss, radio);
    station.signal = -static_cast<int>(random_.between(40, 75));
    station.joinedAt = now_;
    if (stayMs) station.leavesAt = now_ + *stayMs;
    stations_.push_back(station);
    tell(station, "joins");
    return {};
}

bool World::admit(size_t bss, size_t radio)
{
    const Address address = newAddress();
    return add(bss, radio, address, random_.between(kShortestStay, kLongestStay) * kStepMs).empty();
}

bool World::admitAnywhere()
{
    struct Place {
        size_t bss;
        size_t radio;
    };
    std::vector<Place> places;
    for (size_t bss = 0; bss < kBsses; ++bss)
        for (size_t radio = 0; radio < kRadios; ++radio)
            if (onAir(bss, radio)) places.push_back({bss, radio});
    if (places.empty()) return false;
    const auto &[bss, radio] = places[random_.between(0, static_cast<uint32_t>(places.size() - 1))];
    return admit(bss, radio);
}

bool World::remove(const Address &address, std::string_view reason)
{
    const size_t before = stations_.size();
    removeIf([&](const Station &s) { return s.address == address; }, reason);
    return stations_.size() < before;
}

void World::setUp(size_t radio, bool up)
{
    radios_.at(radio).up = up;
    removeIf([this](const Station &s) { return !onAir(s.bss, s.radio); }, "the radio is down");
}

template <class Predicate>
void World::removeIf(Predicate leaves, std::string_view reason)
{
    std::erase_if(stations_, [&](const Station &station) {
        const bool gone = leaves(station);
        if (gone) tell(station, "leaves: " + std::string(reason));
        return gone;
    });
}

void World::tell(const Station &station, std::string_view what) const
{
    if (log_)
        log_(format("station %s of bss %zu on radio %zu %s", hex(station.address).c_str(),
                    station.bss, station.radio, std::string(what).c_str()));
}

bool World::onAir(size_t bss, size_t radio) const
{
    return bss < kBsses && radio < kRadios && radios_[radio].up && bsses_[bss].isOn(radio);
}

const Station *World::find(const Address &address) const
{
    const auto found = std::ranges::find(stations_, address, &Station::address);
    return found == stations_.end() ? nullptr : &*found;
}

size_t World::stationsOf(size_t radio) const
{
    return static_cast<size_t>(std::ranges::count(stations_, radio, &Station::radio));
}

uint16_t World::freeId(size_t bss, size_t radio) const
{
    uint16_t id = 1;
    const auto taken = [&](const Station &s) {
        return s.bss == bss && s.radio == radio && s.id == id;
    };
    while (std::ranges::any_of(stations_, taken)) ++id;
    return id;
}

Address World::newAddress()
{
    Address address{0x02}; // locally administered
    for (size_t i = 1; i < address.size(); ++i)
        address[i] = static_cast<uint8_t>(random_.between(0, 255));
    return address;
}

std::vector<Neighbour> World::scanList() const
{
    std::vector<Neighbour> heard;
    if (std::ranges::any_of(radios_, &Radio::up))
        std::ranges::copy_if(neighbours_, std::back_inserter(heard), &Neighbour::heard);
    return heard;
}

Address World::bssid(size_t bss, size_t radio)
{
    return {0x02, 'o', 'r', 'u', static_cast<uint8_t>(radio), static_cast<uint8_t>(bss)};
}

} // namespace orusim
