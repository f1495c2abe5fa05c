// whoishere: the stations of all BSSes, with how well each is heard.
#include <iostream>
#include <oruSdk.h>
#include <stdexcept>
#include <string>
#include <vector>

namespace {

/// A code other than 0 is an exception. The table has 122 texts; codes may be above.
void check(const char *operation, uint32_t code)
{
    if (code == ORUSDK_RC_OK) return;
    const std::string text = code < ORUSDK_RC_COUNT ? oruSdkRcStr[code] : "unknown code";
    throw std::runtime_error(std::string(operation) + ": " + text + " (code " +
                             std::to_string(code) + ")");
}

/// Numbers of live tables are bytes, the most significant one first.
template <size_t Size>
uint32_t number(const uint8_t (&bytes)[Size])
{
    uint32_t value = 0;
    for (const uint8_t byte : bytes) value = value << 8 | byte;
    return value;
}

std::vector<OruSdkStationEntry> stationsOf(uint8_t radio, uint8_t bss)
{
    OruSdkStationParam table{};
    table.radioIndex[1] = radio;
    table.bssIndex[1] = bss;
    check("stations", oruSdkGetStationParam(&table));
    return {table.stations, table.stations + number(table.numStations)};
}

/// A counter of a station; -1 when the access point does not tell.
int32_t counter(uint8_t radio, const char *mac, const char *name)
{
    OruSdkStaStatsParam stats{};
    stats.selector1 = radio;
    for (int i = 0; i < 6; ++i)
        stats.macAddr[i] = static_cast<uint8_t>(std::stoul(mac + 3 * i, nullptr, 16));
    check("statistics", oruSdkGetStaStats(&stats));
    return oruSdkGetStatsValue(name, stats.statsStr);
}

void report()
{
    for (uint8_t radio = 0; radio < 2; ++radio) {
        OruSdkChannelParam channel{};
        channel.radioIndex = radio;
        check("channel", oruSdkGetChannelParam(&channel));
        std::cout << "radio " << +radio << ", channel " << channel.channel << '\n';
        for (uint8_t bss = 0; bss < 4; ++bss)
            for (const OruSdkStationEntry &station : stationsOf(radio, bss))
                std::cout << "  " << station.macAddr << "  BSS " << +bss << "  at "
                          << counter(radio, station.macAddr, "rate") << " Mbps\n";
    }
}

} // namespace

int main()
{
    try {
        report();
        return 0;
    } catch (const std::exception &error) {
        std::cerr << "whoishere: " << error.what() << '\n';
        return 1;
    }
}
