#include "radio/channels.hpp"

#include "core/dict.hpp"
#include "core/key.hpp"
#include "core/log.hpp"
#include "radio/radioinfo.hpp"

#include <algorithm>
#include <string_view> // std::size(), std::begin(); <iterator> brings the streams along

namespace oru {
namespace {

constexpr uint8_t kChannels[] = {1,   2,   3,   4,   5,   6,   7,   8,   9,   10,  11,  12,
                                 13,  36,  40,  44,  48,  52,  56,  60,  64,  100, 104, 108,
                                 112, 116, 120, 124, 128, 132, 136, 140, 149, 153, 157, 161};
constexpr uint8_t kRadarChannels[] = {52,  56,  60,  64,  100, 104, 108, 112,
                                      116, 120, 124, 128, 132, 136, 140};

/// A primary channel and its 40 MHz partner. Channel 140 has none: intended.
struct Pair {
    uint8_t primary;
    uint8_t secondary;
};
constexpr Pair kPairs[] = {{36, 40},   {40, 36},   {44, 48},   {48, 44},   {52, 56},   {56, 52},
                           {60, 64},   {64, 60},   {100, 104}, {104, 100}, {108, 112}, {112, 108},
                           {116, 120}, {120, 116}, {124, 128}, {128, 124}, {132, 136}, {136, 132},
                           {149, 153}, {153, 149}, {157, 161}, {161, 157}};

/// The countries of each regulatory domain class, two letters each, the classes divided by ";"; all
/// others are of class 0. "SW" and "YU" stand in class 4 although the one is no country and the
/// other no more: intended.
constexpr char kCountries[] =
    "US CA CO;MX;AR;BR;"
    "AL AN BY BA BG HR CZ DK EE FI DE GI GR HU IS IE IT LV LI LT LU MK MT MD MC NL NO PL PT RO RU "
    "SM SK SI SW UA GB VA YU;"
    "FR;AT;BE;ES;CH;JP;SG;IL;CN;JO;TH";

constexpr int32_t kJapan = 10;
constexpr int32_t k11bOnly = 2; // 802.11 mode

template <size_t Size>
constexpr bool contains(const uint8_t (&channels)[Size], uint32_t channel)
{
    return std::find(std::begin(channels), std::end(channels), channel) != std::end(channels);
}

constexpr bool isPair(uint32_t primary, uint32_t secondary)
{
    return std::any_of(std::begin(kPairs), std::end(kPairs), [=](const Pair &pair) {
        return pair.primary == primary && pair.secondary == secondary;
    });
}

constexpr int32_t domainClassOf(char first, char second)
{
    int32_t domainClass = 0;
    for (const char *country = kCountries;; country += 3) {
        if (country[0] == first && country[1] == second) return domainClass;
        if (country[2] == '\0') return 0;
        if (country[2] == ';') ++domainClass;
    }
}

static_assert(std::size(kChannels) == 36 &&
              std::is_sorted(std::begin(kChannels), std::end(kChannels)));
static_assert(std::size(kRadarChannels) == 15 &&
              std::all_of(std::begin(kRadarChannels), std::end(kRadarChannels),
                          [](uint8_t channel) { return contains(kChannels, channel); }));
static_assert(std::size(kPairs) == 22 &&
              std::all_of(std::begin(kPairs), std::end(kPairs), [](const Pair &pair) {
                  return contains(kChannels, pair.primary) &&
                         isPair(pair.secondary, pair.primary) &&
                         (pair.primary + 4 == pair.secondary || pair.secondary + 4 == pair.primary);
              }));
static_assert(!isPair(140, 136) && !isPair(136, 140));
static_assert(domainClassOf('T', 'H') == 15);
static_assert(domainClassOf('J', 'P') == kJapan && domainClassOf('S', 'E') == 0);

/// Appends a channel unless the list is full.
template <size_t Room>
void append(uint8_t (&list)[Room], uint8_t &count, uint8_t channel)
{
    if (count < Room) list[count++] = channel;
}

bool isListed(const uint8_t *list, uint8_t count, uint32_t channel)
{
    return std::find(list, list + count, channel) != list + count;
}

} // namespace

bool isValidChannel(uint32_t channel, int32_t flag)
{
    return contains(kChannels, channel) || (channel == 14 && flag == 0);
}

bool isRadarChannel(uint32_t channel)
{
    return contains(kRadarChannels, channel);
}

bool isChannelPair(uint32_t primary, uint32_t secondary)
{
    return isPair(primary, secondary);
}

uint32_t buildRegChannelInfo(OruRegChannelInfo *info)
{
    const auto radio = static_cast<uint32_t>(info->radioIndex);
    const Dict dict{kRadioFile};
    if (!dict) return fail(ORUSDK_RC_FILE_READ, "Unable to read WSM Defaults file %s", kRadioFile);
    char country[3] = {};
    if (const uint32_t code = getRadioCountryCode(radio, country); code != 0)
        return fail(code, "getRadioCountryCode() failed");
    int32_t mode = 0;
    if (getInt(dict, Key{"radio%d.dot11Mode", info->radioIndex}, &mode, 0) != 0)
        return fail(ORUSDK_RC_KEY_READ, "Unable to read dot11Mode from config file %s", kRadioFile);
    logInfo("CountryCode %c%c%c", country[0], country[1], country[2]);
    info->domainClass = domainClassOf(country[0], country[1]);

    OruSdkRadioInfoEntry entry;
    entry.channelCount = 0;
    if (getRadioInfo(radio, &entry) != 0) logError("getRadioInfo() failed"); // no channels then
    const size_t channels = std::min<size_t>(entry.channelCount, sizeof entry.channels);
    uint8_t count24 = 0;
    uint8_t count5 = 0;
    for (size_t i = 0; i < channels; ++i) {
        const uint8_t channel = entry.channels[i];
        if (channel < 15) append(info->channels24, count24, channel);
        else append(info->channels5, count5, channel);
    }
    // In Japan channel 14, the last one, is for 802.11b alone.
    if (info->domainClass == kJapan && mode != k11bOnly && count24 == 14) count24 = 13;
    info->count24 = count24;
    info->count5 = count5;
    return ORUSDK_RC_OK;
}

bool isChannelInRegDomain(const OruRegChannelInfo *info, uint32_t channel, int32_t bandType)
{
    const bool in24 = isListed(info->channels24, info->count24, channel);
    const bool in5 = isListed(info->channels5, info->count5, channel);
    switch (bandType) {
    case 1: return in24;
    case 2: return in5;
    case 0:
    case 3:
    case 4: return in24 || in5;
    default: return false;
    }
}

} // namespace oru
