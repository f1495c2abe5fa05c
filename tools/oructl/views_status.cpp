// What WSM says at this moment: radios, BSSes, stations, neighbours, counters.
#include "oruSdk.h"
#include "views.hpp"

#include "wsm.hpp"

#include <cstring>

namespace oructl {
namespace {

constexpr Operand kRadio[] = {kRadioOperand};
constexpr Operand kRadioAndBss[] = {kRadioOperand, kBssOperand};

/// The operand as a record's field of 16 bits holds it.
uint16_t operand16(const Arguments &arguments, size_t at)
{
    return static_cast<uint16_t>(arguments.values[at].number);
}

void putNumber(uint8_t (&to)[2], uint16_t number)
{
    to[0] = static_cast<uint8_t>(number >> 8);
    to[1] = static_cast<uint8_t>(number);
}

// ---- stations

constexpr Field kStationColumns[] = {{.name = "id", .kind = Kind::Number},
                                     {.name = "mac", .kind = Kind::Mac}};

uint32_t fetchStations(const Arguments &arguments, Answer &answer)
{
    Wsm<OruSdkStationParam> list;
    putNumber(list->radioIndex, operand16(arguments, 0));
    putNumber(list->bssIndex, operand16(arguments, 1));
    if (const uint32_t code = list.ask(oruSdkGetStationParam); code != ORUSDK_RC_OK) return code;
    const Value count = wsmNumber(list->numStations);
    if (list.unanswered(count)) return nobodyAnswered(answer);
    for (int64_t i = 0; i < count.number; ++i) {
        const OruSdkStationEntry &station = list->stations[i];
        answer.rows.push_back({wsmNumber(station.staId), wsmText(station.macAddr)});
    }
    return ORUSDK_RC_OK;
}

// ---- scan

constexpr Field kScanColumns[] = {{.name = "bssid", .kind = Kind::Mac},
                                  {.name = "ssid", .kind = Kind::Bytes}};

uint32_t fetchScan(const Arguments &, Answer &answer)
{
    Wsm<OruSdkScanlistParam> list;
    if (const uint32_t code = list.ask(oruSdkGetScanlistParam); code != ORUSDK_RC_OK) return code;
    const Value count = wsmNumber(list->numEntries);
    if (!count.given) return answer.problem = "the last network of the list has no SSID", 0;
    if (list.unanswered(count)) return nobodyAnswered(answer);
    for (int64_t i = 0; i < count.number; ++i)
        answer.rows.push_back({wsmText(list->entries[i].bssid), wsmText(list->entries[i].ssid)});
    return ORUSDK_RC_OK;
}

// ---- bss-list

constexpr Field kBssColumns[] = {{.name = "element17", .kind = Kind::Number},
                                 {.name = "ssid", .kind = Kind::Bytes},
                                 {.name = "bssid", .kind = Kind::Mac}};
constexpr Field kBssFacts[] = {{.name = "element1", .kind = Kind::Number},
                               {.name = "element18", .kind = Kind::Number}};

uint32_t fetchBssList(const Arguments &arguments, Answer &answer)
{
    Wsm<OruSdkBssListParam> list;
    list->radioIndex = operand16(arguments, 0);
    if (const uint32_t code = list.ask(oruSdkGetBssListParam); code != ORUSDK_RC_OK) return code;
    if (list.unanswered(numberValue(list->numBss))) return nobodyAnswered(answer);
    answer.facts = {wsmNumber(list->element1), wsmNumber(list->element18)};
    for (uint32_t i = 0; i < list->numBss; ++i) {
        const OruSdkBssEntry &bss = list->bss[i];
        answer.rows.push_back({wsmNumber(bss.element17), wsmText(bss.ssid), wsmText(bss.bssid)});
    }
    return ORUSDK_RC_OK;
}

// ---- radios

constexpr Field kSlotFields[] = {{.name = "element17", .kind = Kind::Number},
                                 {.name = "bssid", .kind = Kind::Mac}};
constexpr Field kRadioColumns[] = {{.name = "id", .kind = Kind::Number},
                                   {.name = "element2", .kind = Kind::Text},
                                   {.name = "element3", .kind = Kind::Number},
                                   {.name = "element4", .kind = Kind::Number},
                                   {.name = "element6", .kind = Kind::Number},
                                   {.name = "element8", .kind = Kind::Number},
                                   {.name = "element18", .kind = Kind::Number},
                                   {.name = "element277", .kind = Kind::Number},
                                   {.name = "bsses", .kind = Kind::List, .entry = kSlotFields}};

Value slotsOf(const OruSdkRadioEntry &radio)
{
    Value list{.given = true};
    for (const OruSdkBssEntry &slot : radio.bss) {
        const Value number = wsmNumber(slot.element17);
        const Value bssid = wsmText(slot.bssid);
        if (number.given || bssid.given) list.entries.push_back({number, bssid});
    }
    return list;
}

uint32_t fetchRadios(const Arguments &, Answer &answer)
{
    Wsm<OruSdkRadioParam> list;
    if (const uint32_t code = list.ask(oruSdkGetRadioParam); code != ORUSDK_RC_OK) return code;
    const Value count = wsmNumber(list->numRadios);
    if (list.unanswered(count)) return nobodyAnswered(answer);
    for (int64_t i = 0; i < count.number; ++i) {
        const OruSdkRadioEntry &radio = list->radios[i];
        answer.rows.push_back(
            {wsmNumber(radio.element1), wsmText(radio.element2), wsmNumber(radio.element3),
             wsmNumber(radio.element4), wsmNumber(radio.element6), wsmNumber(radio.element8),
             wsmNumber(radio.element18), wsmNumber(radio.element277), slotsOf(radio)});
    }
    return ORUSDK_RC_OK;
}

// ---- stats

constexpr Field kCounterColumns[] = {{.name = "counter", .kind = Kind::Text},
                                     {.name = "value", .kind = Kind::Number}};

uint32_t fetchStats(const Arguments &arguments, Answer &answer)
{
    std::string text;
    if (const uint32_t code = askStatistics(arguments.values[0], arguments.values[1], text, answer);
        code != ORUSDK_RC_OK || !answer.problem.empty())
        return code;
    for (const Counter &counter : countersOf(text))
        answer.rows.push_back({textValue(counter.name), counter.value});
    return ORUSDK_RC_OK;
}

constexpr View kViews[] = {
    {"radios",
     {},
     kRadioColumns,
     "no radios",
     "the radios, with the BSSIDs of their BSSes",
     "oruSdkGetRadioParam",
     fetchRadios},
    {"bss-list", kRadio, kBssColumns, "no BSSes", "the BSSes of a radio", "oruSdkGetBssListParam",
     fetchBssList, kBssFacts},
    {"stations", kRadioAndBss, kStationColumns, "no stations", "the stations of a BSS",
     "oruSdkGetStationParam", fetchStations},
    {"scan",
     {},
     kScanColumns,
     "no networks",
     "the networks that the radios hear",
     "oruSdkGetScanlistParam",
     fetchScan},
    {"stats", kStatisticsOperands, kCounterColumns, "no counters",
     "the counters of a radio or of a station", "oruSdkGetRadioStats oruSdkGetStaStats",
     fetchStats},
};

} // namespace

std::span<const View> statusViews()
{
    return kViews;
}

} // namespace oructl
