// What WSM tells of its radios, as bytes on the wire. The library keeps the first answer for the
// life of the process: CTest runs each case in a process of its own.
#pragma once

#include "oruSdk.h"
#include "support/accesspoint.hpp"

#include <algorithm>
#include <string>
#include <vector>

namespace oru::test {

/// One radio as WSM tells of it.
struct Radio {
    std::string country = "USI";
    std::vector<uint8_t> channels{1, 6, 11, 36, 40, 149};
    uint8_t band5 = 1;     // third byte of bandSupport: 0 on a product for 2.4 GHz only
    int channelCount = -1; // another count than there are channels
};

inline const std::vector<uint8_t> kChannels1To14{1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14};

/// An entry: 29 bytes and the channels. Every number in it is different.
inline Bytes entryOf(const Radio &radio)
{
    Bytes entry(radio.country.begin(), radio.country.end());
    for (uint8_t byte = 3; byte < 24; ++byte) entry.push_back(static_cast<uint8_t>(0x80 + byte));
    for (const uint8_t byte : {uint8_t{0xb0}, uint8_t{0xb1}, radio.band5, uint8_t{0xb3}})
        entry.push_back(byte);
    entry.push_back(static_cast<uint8_t>(
        radio.channelCount < 0 ? radio.channels.size() : static_cast<size_t>(radio.channelCount)));
    entry.insert(entry.end(), radio.channels.begin(), radio.channels.end());
    return entry;
}

/// A reply to the question for radios.
inline Bytes radioReply(const std::vector<Radio> &radios)
{
    Bytes reply{0x01, 0x0b, 0, 0};
    for (const Radio &radio : radios) {
        const Bytes entry = entryOf(radio);
        reply.insert(reply.end(), entry.begin(), entry.end());
    }
    reply[2] = static_cast<uint8_t>(reply.size() >> 8);
    reply[3] = static_cast<uint8_t>(reply.size());
    return reply;
}

/// Channels from one number on.
inline std::vector<uint8_t> channelsFrom(uint8_t first, size_t count)
{
    std::vector<uint8_t> channels;
    for (size_t i = 0; i < count; ++i) channels.push_back(static_cast<uint8_t>(first + i));
    return channels;
}

/// Log lines by level. The check of a channel tells the country at level 6 in between.
inline std::vector<std::string> linesAt(const StandIn &standIn, int32_t level)
{
    std::vector<std::string> texts;
    for (const LogLine &line : standIn.logs)
        if (line.level == level) texts.push_back(line.text);
    return texts;
}

/// Leaves one line of what was caught: those at error level, joined. For failure sweeps.
inline uint32_t inOneLine(uint32_t code)
{
    StandIn &standIn = StandIn::get();
    std::erase_if(standIn.logs, [](const LogLine &line) { return line.level == 6; });
    for (size_t i = 1; i < standIn.logs.size(); ++i)
        standIn.logs[0].text += " | " + standIn.logs[i].text;
    if (standIn.logs.size() > 1) standIn.logs.resize(1);
    return code;
}

/// Lets the library ask for these radios now, unless it has asked in this process.
inline void tellRadios(const AccessPoint &box, StandIn &standIn, const std::vector<Radio> &radios)
{
    box.set(kWsm, "worldModeSupport", "0");
    box.set(kWsm, "countryCodeFlag", "0");
    standIn.replyWith(radioReply(radios));
    OruSdkWorldModeParam param;
    ASSERT_EQ(oruSdkGetWorldMode(&param), 0u);
    standIn.reset();
}

/// Several lines in one place, in order, and nothing else at error level; forgets them all.
#define EXPECT_ERRORS(...)                                                                         \
    do {                                                                                           \
        EXPECT_EQ(::oru::test::linesAt(standIn, 3), (std::vector<std::string>{__VA_ARGS__}));      \
        standIn.logs.clear();                                                                      \
    } while (false)

} // namespace oru::test
