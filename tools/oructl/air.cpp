#include "air.hpp"

#include "oruAsf.h"
#include "oruSdk.h"
#include "radio_state.hpp"
#include "within.hpp"
#include "wsm.hpp"

#include <cstring>

namespace oructl {
namespace {

constexpr uint32_t kWsmPort = 5000002;
constexpr uint32_t kAaPort = 5000003;
constexpr uint32_t kVersion = 1001;

bool listens(uint32_t port)
{
    OruAsfIpc *const ipc = oruAsfIpcOpen(2, 1, 0);
    const bool connected = oruAsfIpcConnect(ipc, "localhost", port, kVersion) == 0;
    oruAsfIpcClose(ipc);
    return connected;
}

/// The BSS of a table's entry; NULL for a number that no BSS has.
AirBss *bssOf(AirRadio &radio, const OruSdkBssEntry &entry)
{
    const Value number = wsmNumber(entry.element17);
    if (!number.given || number.number >= static_cast<int64_t>(kAirBsses)) return nullptr;
    return &radio.bss[static_cast<size_t>(number.number)];
}

bool readChannels(Air &air)
{
    Wsm<OruSdkRadioParam> list;
    if (list.ask(oruSdkGetRadioParam) != ORUSDK_RC_OK) return false;
    const Value count = wsmNumber(list->numRadios);
    if (!count.given || count.number == 0) return false;
    for (int64_t i = 0; i < count.number; ++i) {
        const OruSdkRadioEntry &entry = list->radios[i];
        const Value id = wsmNumber(entry.element1);
        const Value channel = wsmNumber(entry.element3);
        if (id.given && channel.given && id.number < static_cast<int64_t>(kAirRadios))
            air.radios[static_cast<size_t>(id.number)].channel = channel.number;
    }
    return true;
}

bool readBsses(size_t index, AirRadio &radio)
{
    Wsm<OruSdkBssListParam> list;
    list->radioIndex = static_cast<uint16_t>(index);
    if (list.ask(oruSdkGetBssListParam) != ORUSDK_RC_OK) return false;
    if (list.unanswered(numberValue(list->numBss))) return false;
    for (uint32_t i = 0; i < list->numBss; ++i) {
        AirBss *const bss = bssOf(radio, list->bss[i]);
        if (bss == nullptr) continue;
        bss->on = true;
        const std::string ssid = wsmText(list->bss[i].ssid).text;
        std::memcpy(bss->ssid.data(), ssid.c_str(), ssid.size() + 1);
    }
    return true;
}

template <class Visit>
bool readStations(size_t radio, size_t bss, Visit &&visit)
{
    Wsm<OruSdkStationParam> list;
    oruAsfPut16(list->radioIndex, static_cast<uint16_t>(radio));
    oruAsfPut16(list->bssIndex, static_cast<uint16_t>(bss));
    if (list.ask(oruSdkGetStationParam) != ORUSDK_RC_OK) return false;
    const Value count = wsmNumber(list->numStations);
    for (int64_t i = 0; i < count.number; ++i) visit(list->stations[i]);
    return !list.unanswered(count);
}

bool readAir(Air &air, const void *about)
{
    const Tables tables = *static_cast<const Tables *>(about);
    if (!readChannels(air)) return false;
    for (size_t i = 0; i < kAirRadios; ++i) {
        if (!readBsses(i, air.radios[i])) return false;
        for (size_t bss = 0; tables == Tables::Stations && bss < kAirBsses; ++bss)
            if (!readStations(i, bss, [&](auto &) { ++air.radios[i].bss[bss].stations; }))
                return false;
    }
    return true;
}

/// Whether a station is in any of the tables.
bool findStation(bool &found, const void *about)
{
    const auto &mac = *static_cast<const std::string *>(about);
    const auto compare = [&](const OruSdkStationEntry &station) {
        found = found || wsmText(station.macAddr).text == mac;
    };
    for (size_t radio = 0; radio < kAirRadios; ++radio)
        for (size_t bss = 0; bss < kAirBsses && !found; ++bss)
            if (!readStations(radio, bss, compare)) return false;
    return true;
}

std::string bssName(size_t bss)
{
    return "BSS " + std::to_string(bss);
}

void compareChannel(size_t radio, const AirRadio &live, std::vector<std::string> &missing)
{
    ChannelChoice choice;
    const auto index = static_cast<int64_t>(radio);
    if (readChannelChoice(index, choice) != ORUSDK_RC_OK || !choice.fixed || live.channel < 0)
        return;
    if (live.channel != choice.channel)
        missing.push_back(concat({radioName(index), " is on channel ", std::to_string(live.channel),
                                  ", not ", std::to_string(choice.channel)}));
}

void compareBss(size_t radio, size_t bss, const AirBss &live, std::vector<std::string> &missing)
{
    const auto index = static_cast<int32_t>(bss);
    uint32_t mask = 0;
    if (oruSdkGetAssignBssReq(index, &mask) != ORUSDK_RC_OK) return;
    const bool wanted = (mask >> radio & 1) != 0;
    const std::string where = radioName(static_cast<int64_t>(radio));
    if (live.on != wanted)
        return missing.push_back(
            concat({bssName(bss), wanted ? " is not on " : " is still on ", where}));
    std::array<char, 34> ssid{};
    uint32_t length = 0;
    if (wanted && oruSdkGetSsid(index, ssid.data(), &length) == ORUSDK_RC_OK &&
        std::strcmp(ssid.data(), live.ssid.data()) != 0)
        missing.push_back(concat({bssName(bss), " on ", where, " has another SSID"}));
}

constexpr auto storedStatus = stored<OruSdkFeatureParam, oruSdkGetAdminStatus>;

} // namespace

int64_t AirRadio::stations() const
{
    int64_t sum = 0;
    for (const AirBss &each : bss) sum += each.stations;
    return sum;
}

int64_t Air::stations() const
{
    int64_t sum = 0;
    for (const AirRadio &radio : radios) sum += radio.stations();
    return sum;
}

bool wsmListens()
{
    return listens(kWsmPort);
}

bool aaListens()
{
    return listens(kAaPort);
}

std::optional<Air> askAir(int64_t waitMs, Tables tables)
{
    if (!wsmListens()) return std::nullopt;
    return askWithin<Air>(waitMs, readAir, &tables);
}

bool isNoStation(const std::string &mac)
{
    constexpr int64_t kWaitMs = 3000;
    return wsmListens() && askWithin<bool>(kWaitMs, findStation, &mac) == false;
}

std::vector<std::string> missingOnAir(const Air &air)
{
    std::vector<std::string> missing;
    for (size_t radio = 0; radio < kAirRadios; ++radio) {
        if (storedStatus(static_cast<int64_t>(radio)) == 0) continue;
        compareChannel(radio, air.radios[radio], missing);
        for (size_t bss = 0; bss < kAirBsses; ++bss)
            compareBss(radio, bss, air.radios[radio].bss[bss], missing);
    }
    return missing;
}

} // namespace oructl
