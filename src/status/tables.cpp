// The live tables of WSM: BSSes, neighbouring networks, stations, radios. Each reader says what it
// does with which element; an element that it does not accept ends it with 48, without a line.
#include "core/log.hpp"
#include "core/messages.hpp"
#include "core/store.hpp"
#include "oruSdk.h"

#include <cstddef>
#include <cstring>

namespace oru {
namespace {

using TableReply = Reply<kReplyRoom>;

// What callers unpack byte by byte.
static_assert(sizeof(OruSdkBssEntry) == 96);
static_assert(offsetof(OruSdkBssEntry, ssid) == 4 && offsetof(OruSdkBssEntry, bssid) == 77);
static_assert(offsetof(OruSdkBssListParam, radioIndex) == 384);
static_assert(offsetof(OruSdkBssListParam, element1) == 386);
static_assert(offsetof(OruSdkBssListParam, numBss) == 388);
static_assert(offsetof(OruSdkBssListParam, element18) == 392);
static_assert(sizeof(OruSdkScanEntry) == 55 && sizeof(OruSdkScanlistParam) == 61113);
static_assert(offsetof(OruSdkScanlistParam, entries) == 8);
static_assert(offsetof(OruSdkScanEntry, ssid) == 18);
static_assert(sizeof(OruSdkStationEntry) == 22 && sizeof(OruSdkStationParam) == 5640);
static_assert(offsetof(OruSdkStationParam, numStations) == 5632);
static_assert(offsetof(OruSdkStationParam, bssIndex) == 5636);
static_assert(offsetof(OruSdkStationParam, radioIndex) == 5638);
static_assert(sizeof(OruSdkRadioEntry) == 460 && sizeof(OruSdkRadioParam) == 924);
static_assert(offsetof(OruSdkRadioEntry, element2) == 4);
static_assert(offsetof(OruSdkRadioEntry, element3) == 21);
static_assert(offsetof(OruSdkRadioEntry, element8) == 25);
static_assert(offsetof(OruSdkRadioEntry, element4) == 29);
static_assert(offsetof(OruSdkRadioEntry, element277) == 33);
static_assert(offsetof(OruSdkRadioEntry, element6) == 70);
static_assert(offsetof(OruSdkRadioEntry, element18) == 74);
static_assert(offsetof(OruSdkRadioEntry, bss) == 76);
static_assert(offsetof(OruSdkRadioParam, numRadios) == 920);

void store16(uint8_t (&to)[2], uint32_t value)
{
    oruAsfPut16(to, static_cast<uint16_t>(value));
}

void store32(uint8_t (&to)[4], uint32_t value)
{
    oruAsfPut32(to, value);
}

// What an element must bring: each stores it, or says that its length does not suit.

bool take8(const Element &element, uint8_t (&to)[4])
{
    if (element.length() != 1) return false;
    store32(to, element.number());
    return true;
}

bool take16(const Element &element, uint8_t (&to)[2])
{
    if (element.length() != 2) return false;
    store16(to, element.number());
    return true;
}

bool take16(const Element &element, uint8_t (&to)[4])
{
    if (element.length() != 2) return false;
    store32(to, element.number());
    return true;
}

bool take32(const Element &element, uint8_t (&to)[4])
{
    if (element.length() != 4) return false;
    store32(to, element.number());
    return true;
}

bool takeMac(const Element &element, char (&to)[18])
{
    if (element.length() != kMacSize) return false;
    oruAsfHexStr(element.value(), kMacSize, to, sizeof to);
    return true;
}

/// A longer text is cut.
template <size_t Room>
bool takeText(const Element &element, char (&to)[Room])
{
    const size_t length = element.length() < Room ? element.length() : Room - 1;
    std::memcpy(to, element.value(), length);
    to[length] = '\0';
    to[Room - 1] = '\0';
    return true;
}

/// Asks, and converts the reply's head. A service that keeps silent has an empty table, as has one
/// that answers with the head alone.
uint32_t askTable(const Request &request, TableReply &reply)
{
    if (const uint32_t code = askWsm(request, reply, kElementsStart); code != 0) return code;
    if (reply.size != 0) oruAsfNtohHdr(reply.bytes);
    return ORUSDK_RC_OK;
}

/// Walks the elements; `accept` takes one, or refuses it.
template <class Accept>
uint32_t takeElements(const TableReply &reply, Accept accept)
{
    return forEachElement(reply, kElementsStart, [&](const Element *element) -> uint32_t {
        if (element == nullptr || !accept(*element)) return ORUSDK_RC_WSM_REQUEST;
        return ORUSDK_RC_OK;
    });
}

/// Fills the BSSes of one radio.
class BssListReader {
public:
    explicit BssListReader(OruSdkBssListParam &list) : list_(list) {}

    [[nodiscard]] uint32_t count() const { return count_; }

    bool accept(const Element &element)
    {
        switch (element.id()) {
        case 1: return take16(element, list_.element1);
        case 18: return take16(element, list_.element18);
        case 17:
            return count_ < kBsses && take8(element, list_.bss[count_].element17) && ++count_ > 0;
        case 5: return count_ > 0 && takeText(element, list_.bss[count_ - 1].ssid);
        case 7: return count_ > 0 && takeMac(element, list_.bss[count_ - 1].bssid);
        default: return false;
        }
    }

private:
    OruSdkBssListParam &list_;
    uint32_t count_ = 0;
};

/// Fills the scan list: a BSSID, then its SSID, and so on.
class ScanListReader {
public:
    explicit ScanListReader(OruSdkScanlistParam &list) : list_(list) {}

    [[nodiscard]] uint32_t count() const { return count_; }
    [[nodiscard]] bool pending() const { return pending_; }

    bool accept(const Element &element)
    {
        if (element.id() == 7) {
            if (pending_ || count_ == ORUSDK_SCAN_ENTRIES) return false;
            return pending_ = takeMac(element, list_.entries[count_].bssid);
        }
        if (element.id() != 5 || !pending_) return false;
        pending_ = false;
        return takeText(element, list_.entries[count_++].ssid);
    }

private:
    OruSdkScanlistParam &list_;
    uint32_t count_ = 0;
    bool pending_ = false; // a BSSID waits for its SSID
};

/// Fills the stations of a BSS.
class StationReader {
public:
    explicit StationReader(OruSdkStationParam &list) : list_(list) {}

    [[nodiscard]] uint32_t count() const { return count_; }

    bool accept(const Element &element)
    {
        constexpr uint32_t kStations = sizeof list_.stations / sizeof *list_.stations;
        switch (element.id()) {
        case 1:
            return count_ < kStations && take16(element, list_.stations[count_].staId) &&
                   ++count_ > 0;
        case 7: return count_ > 0 && takeMac(element, list_.stations[count_ - 1].macAddr);
        default: return false;
        }
    }

private:
    OruSdkStationParam &list_;
    uint32_t count_ = 0;
};

/// Fills the radios and their BSSes.
class RadioReader {
public:
    explicit RadioReader(OruSdkRadioParam &list) : list_(list) {}

    [[nodiscard]] uint32_t count() const { return count_; }

    bool accept(const Element &element)
    {
        if (element.id() == 1) {
            if (count_ == kRadios || !take16(element, list_.radios[count_].element1)) return false;
            ++count_;
            slot_ = 0;
            return true;
        }
        return count_ > 0 && fill(element, list_.radios[count_ - 1]);
    }

private:
    bool fill(const Element &element, OruSdkRadioEntry &radio)
    {
        switch (element.id()) {
        case 2: return takeText(element, radio.element2);
        case 3: return take32(element, radio.element3);
        case 4: return take32(element, radio.element4);
        case 6: return take32(element, radio.element6);
        case 8: return take32(element, radio.element8);
        case 18: return take16(element, radio.element18);
        case 277: return take32(element, radio.element277);
        case 17: return slot_ < kBsses && take8(element, radio.bss[slot_].element17);
        case 7: return slot_ < kBsses && takeMac(element, radio.bss[slot_].bssid) && ++slot_ > 0;
        default: return false;
        }
    }

    OruSdkRadioParam &list_;
    uint32_t count_ = 0;
    uint32_t slot_ = 0; // of the current radio's BSSes
};

} // namespace
} // namespace oru

using namespace oru;

extern "C" {

uint32_t oruSdkGetBssListParam(OruSdkBssListParam *param)
{
    constexpr uint16_t kMessage = 283;
    constexpr uint32_t kRadioElement = 0x00020001;
    if (param == nullptr) return fail(ORUSDK_RC_NULL_POINTER, "NULL pointer");

    Request request;
    request.number32(kReplyRoom)
        .element16(kRadioElement, param->radioIndex); // not checked: intended
    TableReply reply;
    if (const uint32_t code = askTable(request.finish(kMessage), reply); code != 0) return code;

    BssListReader reader{*param};
    const uint32_t code = takeElements(reply, [&](const Element &e) { return reader.accept(e); });
    if (code == 0) param->numBss = reader.count();
    return code;
}

uint32_t oruSdkGetScanlistParam(OruSdkScanlistParam *param)
{
    constexpr uint16_t kMessage = 260;
    if (param == nullptr) return fail(ORUSDK_RC_NULL_POINTER, "NULL pointer");

    Request request;
    request.number32(kReplyRoom);
    TableReply reply;
    if (const uint32_t code = askTable(request.finish(kMessage), reply); code != 0) return code;

    ScanListReader reader{*param};
    const uint32_t code = takeElements(reply, [&](const Element &e) { return reader.accept(e); });
    // A last entry without its SSID leaves the count as it was: intended.
    if (code == 0 && !reader.pending()) store32(param->numEntries, reader.count());
    return code;
}

uint32_t oruSdkGetStationParam(OruSdkStationParam *param)
{
    constexpr uint16_t kMessage = 258;
    constexpr uint32_t kBssElement = 0x00020011;
    constexpr uint32_t kRadioElement = 0x00020001;
    if (param == nullptr) return fail(ORUSDK_RC_NULL_POINTER, "NULL pointer");
    const uint16_t radio = oruAsfGet16(param->radioIndex);
    const uint16_t bss = oruAsfGet16(param->bssIndex);
    if (radio >= kRadios) return ORUSDK_RC_RADIO_ID; // without a line: intended
    if (bss >= kBsses) return fail(ORUSDK_RC_BSS_NUMBER, "Invalid bss number ID: %d", bss);

    Request request;
    request.number32(kReplyRoom).element16(kBssElement, bss).element16(kRadioElement, radio);
    TableReply reply;
    if (const uint32_t code = askTable(request.finish(kMessage), reply); code != 0) return code;

    StationReader reader{*param};
    const uint32_t code = takeElements(reply, [&](const Element &e) { return reader.accept(e); });
    if (code == 0) store32(param->numStations, reader.count());
    return code;
}

uint32_t oruSdkGetRadioParam(OruSdkRadioParam *param)
{
    constexpr uint16_t kMessage = 256;
    if (param == nullptr) return fail(ORUSDK_RC_NULL_POINTER, "NULL pointer");

    Request request;
    request.number32(kReplyRoom);
    TableReply reply;
    if (const uint32_t code = askTable(request.finish(kMessage), reply); code != 0) return code;

    RadioReader reader{*param};
    const uint32_t code = takeElements(reply, [&](const Element &e) { return reader.accept(e); });
    if (code == 0) store32(param->numRadios, reader.count());
    return code;
}

} // extern "C"
