#include "radiofacts.hpp"
#include "services.hpp"

#include <algorithm>

namespace orusim {
namespace {

const Field kReplySize{"reply size", Field::Kind::number32};
const Field kSelectors{"selectors", Field::Kind::number16};
const Field kStationField{"station", Field::Kind::address};
const Field kRadioField{"radio", Field::Kind::number16};
const Field kBssField{"bss", Field::Kind::number16};

// Elements of requests and answers. The lower 16 bits tell what it is, the upper ones of what kind.
enum : uint32_t {
    kId = 0x00020001, // of a radio or a station
    kBandText = 0x00080002,
    kChannel = 0x00030003,
    kTxPower = 0x00030004,
    kSsid = 0x00080005,
    kStationCount = 0x00030006,
    kAddress = 0x000c0007,
    kStatus = 0x00020008,
    kRadioStatus = 0x00030008,
    kRadio = 0x00020009,
    kResultCode = 0x0003000a,
    kPinText = 0x0008000b,
    kPinMethod = 0x0002000b,
    kButton = 0x0002000c,
    kEnrollee = 0x0002000d,
    kDevicePin = 0x0008000e,
    kDevicePinSet = 0x0002000e,
    kGenerate = 0x0002000f,
    kWpsStatus = 0x00020010,
    kBss = 0x00020011,
    kBssNumber = 0x00010011,
    kBeaconPeriod = 0x00020012,
    kSecondaryChannel = 0x00030115,
};

enum Result : uint32_t { kDone = 0, kRefused = 1 };

std::span<const uint8_t> bytesOf(std::string_view text)
{
    return {reinterpret_cast<const uint8_t *>(text.data()), text.size()};
}

std::string textOf(std::span<const uint8_t> bytes)
{
    return {bytes.begin(), bytes.end()};
}

Address addressOf(std::span<const uint8_t> bytes)
{
    Address address{};
    if (bytes.size() == address.size()) std::ranges::copy(bytes, address.begin());
    return address;
}

/// Statistics are text; type 0 says that there are none.
Writer statistics(uint16_t type, const std::string &text)
{
    Writer writer{type};
    writer.put(bytesOf(text));
    return writer;
}

std::string countersText(const Counters &counters)
{
    const auto number = [](uint64_t value) { return static_cast<unsigned long long>(value); };
    return format(
        "txPackets %llu txBytes %llu rxPackets %llu rxBytes %llu retries %llu errors %llu",
        number(counters.txPackets), number(counters.txBytes), number(counters.rxPackets),
        number(counters.rxBytes), number(counters.retries), number(counters.errors));
}

bool is5GHz(uint32_t channel)
{
    return channel > 14;
}

} // namespace

Wsm::Wsm(Log log, const Clock &clock, uint64_t seed)
    : Service("WSM", 5000002, "/var/wsmDefaults", std::move(log)), clock_(clock),
      world_(seed, [this](std::string_view text) { say(text); }),
      wps_(seed + 1, {[this](size_t bss, size_t radio) { return world_.onAir(bss, radio); },
                      [this](size_t bss, size_t radio) { world_.admit(bss, radio); },
                      [this](std::string_view text) { say(text); }})
{
    addTables();
    addControls();
    addWps();
}

void Wsm::addTables()
{
    const auto answered = [this](auto answer) {
        return [this, answer](const Message &message) { return answer(this, message); };
    };
    add({256, "radios", {{kReplySize}}, [this](const Message &) { return radios(); }});
    add({258,
         "stations",
         {{kReplySize}, {{{kBss, "bss"}, {kId, "radio"}}}},
         answered(std::mem_fn(&Wsm::stations))});
    add({260, "scan list", {{kReplySize}}, [this](const Message &) { return scanList(); }});
    add({266, "radio information", {{kReplySize}}, [this](const Message &) {
             return radioInfo();
         }});
    add({273, "radio statistics", {{kSelectors}}, answered(std::mem_fn(&Wsm::radioStatistics))});
    add({275,
         "station statistics",
         {{kSelectors, kStationField}},
         answered(std::mem_fn(&Wsm::stationStatistics))});
    add({283,
         "BSS list",
         {{kReplySize}, {{{kId, "radio"}}}},
         answered(std::mem_fn(&Wsm::bssList))});
}

void Wsm::addControls()
{
    add({262,
         "disassociate",
         {{kReplySize}, {{{kAddress, "station"}}}},
         [this](const Message &message) { return disassociate(message); }});
    add({264,
         "set administrative status",
         {{kReplySize}, {{{kRadio, "radio"}, {kStatus, "status"}}}},
         [this](const Message &message) { return setAdminStatus(message); }});
    add({268, "commit", {}, [this](const Message &) { return reload(), std::nullopt; }, true});
}

void Wsm::addWps()
{
    constexpr bool kSecret = true;
    add({278,
         "WPS enrollment",
         {{kReplySize, kRadioField, kBssField},
          {{{kPinText, "pin", kSecret}}, {{kButton, "button"}}, {{kEnrollee, "enrollee"}}}},
         [this](const Message &message) { return enroll(message); }});
    add({280,
         "WPS",
         {{kRadioField, kBssField},
          {{{kWpsStatus, "status"}},
           {{kDevicePin, "pin", kSecret}, {kBss, "bss"}},
           {{kGenerate, "generate"}}}},
         [this](const Message &message) { return wpsSettings(message); }});
}

void Wsm::configured()
{
    world_.configure(configuration());
    for (size_t bss = 0; bss < kBsses; ++bss)
        wps_.savedPin(bss, configuration().text(format("bss%zu.appinpasswd", bss)).value_or(""));
}

void Wsm::catchUp()
{
    const int64_t now = clock_.nowMs();
    world_.skipTo(now);
    while (world_.nextStep() <= now) {
        wps_.advanceTo(world_.nextStep());
        world_.step();
    }
    wps_.advanceTo(now);
}

// ---- Tables

Writer Wsm::radios() const
{
    Writer writer = answer(257);
    for (uint32_t index = 0; index < kRadios; ++index) {
        const Radio &radio = world_.radio(index);
        writer.number(kId, index)
            .element(kBandText, bytesOf(is5GHz(radio.channel) ? "5 GHz" : "2.4 GHz"))
            .number(kChannel, radio.channel)
            .number(kRadioStatus, radio.up ? 1 : 0)
            .number(kTxPower, radio.txPower)
            .number(kSecondaryChannel, radio.secondaryChannel)
            .number(kStationCount, static_cast<uint32_t>(world_.stationsOf(index)))
            .number(kBeaconPeriod, radio.beaconPeriod);
        for (uint32_t bss = 0; bss < kBsses; ++bss)
            if (world_.bss(bss).isOn(index))
                writer.number(kBssNumber, bss).element(kAddress, World::bssid(bss, index));
    }
    return writer;
}

Writer Wsm::stations(const Message &message) const
{
    Writer writer = answer(259);
    for (const Station &station : world_.stations())
        if (station.bss == message.number(kBss) && station.radio == message.number(kId))
            writer.number(kId, station.id).element(kAddress, station.address);
    return writer;
}

Writer Wsm::scanList() const
{
    Writer writer = answer(261);
    for (const Neighbour &neighbour : world_.scanList())
        writer.element(kAddress, neighbour.bssid).element(kSsid, bytesOf(neighbour.ssid));
    return writer;
}

Writer Wsm::bssList(const Message &message) const
{
    const uint32_t radio = message.number(kId);
    Writer writer = answer(284);
    if (radio >= kRadios) return writer;
    writer.number(kId, radio);
    for (uint32_t index = 0; index < kBsses; ++index) {
        const Bss &bss = world_.bss(index);
        if (bss.isOn(radio))
            writer.number(kBssNumber, index)
                .element(kSsid, bytesOf(bss.ssid))
                .element(kAddress, World::bssid(index, radio));
    }
    return writer.number(kBeaconPeriod, world_.radio(radio).beaconPeriod);
}

Writer Wsm::radioInfo() const
{
    std::string error;
    auto facts = RadioFacts::load(error);
    if (!facts) {
        say(format("  %s: %s, answering as the US product", kRadioFactsPath, error.c_str()));
        facts = RadioFacts::standard();
    }
    Writer writer{267};
    for (size_t radio = 0; radio < kRadios; ++radio) writer.put(facts->entry(radio));
    return writer;
}

Writer Wsm::radioStatistics(const Message &message) const
{
    const uint32_t index = message.field(0) >> 8; // the second selector is of no meaning
    if (index >= kRadios) return statistics(0, "no such radio");
    const Radio &radio = world_.radio(index);
    return statistics(274, format("channel %u stations %zu beacons %llu %s", radio.channel,
                                  world_.stationsOf(index),
                                  static_cast<unsigned long long>(radio.beacons),
                                  countersText(radio.counters).c_str()));
}

Writer Wsm::stationStatistics(const Message &message) const
{
    const uint32_t radio = message.field(0) >> 8;
    const Station *station = world_.find(addressOf(message.fields.at(1).value));
    if (radio >= kRadios) return statistics(0, "no such radio");
    if (station == nullptr || station->radio != radio) return statistics(0, "no such station");
    return statistics(276, format("signal %d rate %u connected %lld %s", station->signal,
                                  station->rate(),
                                  static_cast<long long>(clock_.nowMs() - station->joinedAt) / 1000,
                                  countersText(station->counters).c_str()));
}

// ---- Control

Writer Wsm::disassociate(const Message &message)
{
    const Address address = addressOf(message.bytes(kAddress));
    const bool removed = world_.remove(address, "disassociated");
    return answer(263).element(kAddress, address).number(kResultCode, removed ? kDone : kRefused);
}

Writer Wsm::setAdminStatus(const Message &message)
{
    const uint32_t radio = message.number(kRadio);
    const uint32_t status = message.number(kStatus);
    const bool known = radio < kRadios && status <= 1;
    if (known) world_.setUp(radio, status == 1);
    return answer(265).number(kResultCode, known ? kDone : kRefused);
}

// ---- WPS

Writer Wsm::enroll(const Message &message)
{
    struct {
        uint32_t requested;
        uint32_t answered;
        Wps::Method method;
    } constexpr kMethods[] = {{kPinText, kPinMethod, Wps::Method::pin},
                              {kButton, kButton, Wps::Method::button},
                              {kEnrollee, kEnrollee, Wps::Method::enrollee}};
    Writer writer = answer(279);
    for (const auto &[requested, answered, method] : kMethods) {
        if (!message.has(requested)) continue;
        const WpsResult result = wps_.enroll(message.field(2), message.field(1), method,
                                             textOf(message.bytes(requested)), clock_.nowMs());
        writer.number(kResultCode, static_cast<uint32_t>(result)).number(answered, 1);
    }
    return writer;
}

/// The answer has no 32-bit field before its elements.
Writer Wsm::wpsSettings(const Message &message)
{
    const uint32_t bss = message.field(1);
    const auto answered = [](uint32_t element, WpsResult result) {
        return Writer{281}.number(element, 1).number(kResultCode, static_cast<uint32_t>(result));
    };
    if (message.has(kDevicePin))
        return answered(kDevicePinSet, wps_.setPin(bss, textOf(message.bytes(kDevicePin))));
    if (message.has(kGenerate)) return answered(kGenerate, wps_.generatePin(bss));
    return answered(kWpsStatus, wps_.result(bss, message.field(0)));
}

} // namespace orusim
