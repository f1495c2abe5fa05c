#include "radio/radioinfo.hpp"

#include "core/log.hpp"
#include "core/messages.hpp"
#include "core/store.hpp"

#include <algorithm>
#include <cstddef>
#include <cstring>

static_assert(offsetof(OruSdkRadioInfoEntry, attr1) == 4);
static_assert(offsetof(OruSdkRadioInfoEntry, attr5) == 12);
static_assert(offsetof(OruSdkRadioInfoEntry, attr6) == 16);
static_assert(offsetof(OruSdkRadioInfoEntry, attr7) == 18);
static_assert(offsetof(OruSdkRadioInfoEntry, attr9) == 24);
static_assert(offsetof(OruSdkRadioInfoEntry, bandSupport) == 28);
static_assert(offsetof(OruSdkRadioInfoEntry, channelCount) == 32);
static_assert(offsetof(OruSdkRadioInfoEntry, channels) == 33);
static_assert(sizeof(OruSdkRadioInfoEntry) == 96);
static_assert(offsetof(OruSdkRadioInfo, entries) == 4);
static_assert(sizeof(OruSdkRadioInfo) == 4 + 2 * 96);

namespace oru {
namespace {

constexpr uint32_t kFixedPart = 29;   // of an entry in the reply, before its channels
constexpr uint32_t kCountAt = 28;     // where that part holds the number of channels
constexpr uint32_t kMaxChannels = 59; // of an entry
static_assert((kReplyRoom - kHeaderSize) / kFixedPart == ORUSDK_RADIO_INFO_MAX_RADIOS);

/// Filled by the first view of the process, and never again: not after a commit, not after a
/// failure. Intended.
struct Cache {
    uint32_t fetched;
    OruSdkRadioInfo info;
};
Cache cache;

void writeCount(OruSdkRadioInfo *info, uint32_t count)
{
    for (int i = 3; i >= 0; --i, count >>= 8) info->radioCount[i] = static_cast<uint8_t>(count);
}

void decodeFixedPart(const uint8_t *at, OruSdkRadioInfoEntry &entry)
{
    std::memcpy(entry.countryCode, at, sizeof entry.countryCode);
    entry.attr1 = oruAsfGet16(at + 3);
    entry.attr2 = oruAsfGet16(at + 5);
    entry.attr3 = oruAsfGet16(at + 7);
    entry.attr4 = oruAsfGet16(at + 9);
    entry.attr5 = oruAsfGet32(at + 11);
    entry.attr6 = at[15];
    entry.attr7 = oruAsfGet16(at + 16);
    entry.attr8 = oruAsfGet16(at + 18);
    entry.attr9 = oruAsfGet32(at + 20);
    std::memcpy(entry.bandSupport, at + 24, sizeof entry.bandSupport);
    entry.channelCount = at[kCountAt];
}

/// Decodes the entries between two places into at most `room` slots of the record, and writes their
/// number. Stops where fewer bytes remain than the next entry needs.
uint32_t decodeEntries(const uint8_t *at, const uint8_t *end, OruSdkRadioInfo *info, uint32_t room)
{
    OruSdkRadioInfoEntry *slot = info->entries;
    uint32_t count = 0;
    for (; count < room; ++count) {
        const auto left = static_cast<size_t>(end - at);
        if (left < kFixedPart) break;
        const uint32_t channels = at[kCountAt];
        const bool refused = channels > kMaxChannels;
        if (!refused && left < kFixedPart + channels) break;
        decodeFixedPart(at, slot[count]);
        if (refused) return ORUSDK_RC_ERROR; // without a line or the number of entries: intended
        std::memcpy(slot[count].channels, at + kFixedPart, channels);
        at += kFixedPart + channels;
    }
    writeCount(info, count);
    return ORUSDK_RC_OK;
}

/// Asks WSM for its radios and takes as many as the record has room for.
uint32_t fetchRadioInfo(OruSdkRadioInfo *info, uint32_t room)
{
    constexpr uint16_t kMessage = 266;

    Connection wsm;
    if (const uint32_t code = wsm.open(port); code != 0) return code;
    Request request;
    request.number32(kReplyRoom);
    if (const uint32_t code = wsm.send(request.finish(kMessage)); code != 0) return code;

    Reply<kReplyRoom> reply;
    if (const uint32_t code = wsm.receive(reply, kHeaderSize); code != 0) return code;
    if (reply.size == 0) { // a service that says nothing has no radios: intended
        writeCount(info, 0);
        return ORUSDK_RC_OK;
    }
    oruAsfNtohHdr(reply.bytes);
    return decodeEntries(reply.bytes + kHeaderSize, reply.bytes + reply.size, info, room);
}

/// The cached entry of a radio; an empty one where the cache holds none.
const OruSdkRadioInfoEntry &cached(uint32_t radio)
{
    static constexpr OruSdkRadioInfoEntry kNone{};
    return radio < kRadios ? cache.info.entries[radio] : kNone;
}

} // namespace

uint32_t getRadioInfo(uint32_t radio, OruSdkRadioInfoEntry *out)
{
    if (cache.fetched == 0) {
        cache.fetched = 1; // first, so that a failure is never tried again: intended
        // The text names another operation: intended.
        if (const uint32_t code = fetchRadioInfo(&cache.info, kRadios); code != 0)
            return fail(code, "oruSdkGetRadioParam() failed");
    }
    // A refused entry stays in the cache with a number of channels that may be above its room.
    const OruSdkRadioInfoEntry &entry = cached(radio);
    std::memcpy(out, &entry, offsetof(OruSdkRadioInfoEntry, channels));
    std::memcpy(out->channels, entry.channels,
                std::min<size_t>(entry.channelCount, sizeof entry.channels));
    return ORUSDK_RC_OK;
}

uint32_t getRadioCountryCode(uint32_t radio, char code[3])
{
    OruSdkRadioInfoEntry entry;
    if (const uint32_t failure = getRadioInfo(radio, &entry); failure != 0)
        return fail(failure, "getRadioInfo() failed");
    std::memcpy(code, entry.countryCode, sizeof entry.countryCode);
    return ORUSDK_RC_OK;
}

uint32_t getRadioProductBand(uint32_t /*radio*/)
{
    OruSdkRadioInfoEntry entry;
    if (getRadioInfo(0, &entry) != 0) {
        logError("getRadioInfo() failed");
        logError("getRadioProductBand() failed");
        return 0; // not for 2.4 GHz only
    }
    return entry.bandSupport[2] == 0 ? 1 : 0;
}

} // namespace oru

using namespace oru;

extern "C" uint32_t oruSdkGetRadioInfo(OruSdkRadioInfo *info)
{
    if (info == nullptr) return fail(ORUSDK_RC_NULL_POINTER, "NULL pointer");
    return fetchRadioInfo(info, ORUSDK_RADIO_INFO_MAX_RADIOS); // the caller has room for all
}
