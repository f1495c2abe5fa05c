#include "rates.hpp"

#include "oruSdk.h"

namespace oructl {
namespace {

constexpr int64_t kLastIndexedMcs = 128;
constexpr int64_t kMcs32[] = {141, 142}; // with the long and the short guard interval
constexpr int32_t kLegacyMbps[] = {1, 2, 5, 6, 9, 11, 12, 18, 24, 36, 48, 54};

/// "5.5"; empty for a code that is no legacy rate.
std::string mbpsOf(int64_t code)
{
    for (const int32_t mbps : kLegacyMbps)
        if (convertExtToIntRateCode(mbps) == code) return mbps == 5 ? "5.5" : std::to_string(mbps);
    return "";
}

bool isIndexedMcs(int64_t code)
{
    return code >= 1 && code <= kLastIndexedMcs;
}

std::string indexedMcs(int64_t code)
{
    return std::to_string((code - 1) % 32);
}

std::string legacyWord(int64_t code)
{
    return code == 0 ? "auto" : mbpsOf(code);
}

std::string mcsBroadcastWord(int64_t code)
{
    return isIndexedMcs(code) ? indexedMcs(code) : "";
}

std::string mcsWord(int64_t code)
{
    if (code == 0) return "auto";
    return code == kMcs32[0] || code == kMcs32[1] ? "32" : mcsBroadcastWord(code);
}

} // namespace

std::string rateMeaning(int64_t code)
{
    if (code == 0) return "automatic";
    if (code == kMcs32[0]) return "MCS 32, long GI";
    if (code == kMcs32[1]) return "MCS 32, short GI";
    if (isIndexedMcs(code)) {
        const int64_t combination = (code - 1) / 32;
        return "MCS " + indexedMcs(code) + (combination >= 2 ? ", 40 MHz" : ", 20 MHz") +
               (combination % 2 == 1 ? ", short GI" : ", long GI");
    }
    const std::string mbps = mbpsOf(code);
    return mbps.empty() ? "no known rate" : mbps + " Mbps";
}

const Coded kLegacyRate = {rateMeaning, legacyWord};
const Coded kMcsRate = {rateMeaning, mcsWord};
const Coded kLegacyBroadcastRate = {rateMeaning, mbpsOf};
const Coded kMcsBroadcastRate = {rateMeaning, mcsBroadcastWord};

} // namespace oructl
