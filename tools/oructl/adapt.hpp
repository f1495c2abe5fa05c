// Rows from pairs of operations on the two shared records: one item is one expression.
#pragma once

#include "catalogue.hpp"
#include "oruSdk.h"

#include <algorithm>
#include <cstddef>
#include <optional>

namespace oructl {

/// What an operation on a record makes of a call. Numbers cross as their 32 bits: the library
/// refuses what is out of range.
template <class Record>
struct Adapt;

template <>
struct Adapt<OruSdkFeatureParam> {
    static constexpr Bounds kIndex = {0, UINT16_MAX};
    static OruSdkFeatureParam record(const Call &call)
    {
        return {.reserved = 0,
                .radioIndex = static_cast<uint16_t>(call.index),
                .activationFlag = static_cast<uint32_t>(call.values[0].number)};
    }
    static uint32_t number(const OruSdkFeatureParam &record) { return record.activationFlag; }
};

template <>
struct Adapt<OruSdkOptionParam> {
    static constexpr Bounds kIndex = {INT32_MIN, INT32_MAX};
    static OruSdkOptionParam record(const Call &call)
    {
        return {.reserved = 0,
                .radioIndex = static_cast<uint32_t>(call.index),
                .featureOptions = static_cast<uint32_t>(call.values[0].number)};
    }
    static uint32_t number(const OruSdkOptionParam &record) { return record.featureOptions; }
};

template <>
struct Adapt<OruSdkRadioSwitchParam> {
    static constexpr Bounds kIndex = {0, UINT16_MAX};
    static OruSdkRadioSwitchParam record(const Call &call)
    {
        return {.reserved = 0,
                .radioIndex = static_cast<uint16_t>(call.index),
                .enable = static_cast<uint32_t>(call.values[0].number)};
    }
    static uint32_t number(const OruSdkRadioSwitchParam &record) { return record.enable; }
};

template <>
struct Adapt<OruSdkMaxRateParam> {
    static constexpr Bounds kIndex = {INT32_MIN, INT32_MAX};
    static OruSdkMaxRateParam record(const Call &call)
    {
        return {.radioIndex = static_cast<uint32_t>(call.index),
                .maxRate = static_cast<uint32_t>(call.values[0].number)};
    }
    static uint32_t number(const OruSdkMaxRateParam &record) { return record.maxRate; }
};

template <class Record, uint32_t (*Operation)(Record *)>
uint32_t getOne(Call &call)
{
    Record record = Adapt<Record>::record(call);
    const uint32_t code = Operation(&record);
    if (code != ORUSDK_RC_OK) return code;
    call.values[0].number = static_cast<int32_t>(Adapt<Record>::number(record));
    call.values[0].given = true;
    return code;
}

template <class Record, uint32_t (*Operation)(Record *)>
uint32_t setOne(const Call &call)
{
    Record record = Adapt<Record>::record(call);
    return Operation(&record);
}

/// What a getter reads of a radio; nothing when it can't.
template <class Record, uint32_t (*Get)(Record *)>
std::optional<int64_t> stored(int64_t radio)
{
    Call call{.index = radio, .values = std::vector<Value>(1)};
    if (getOne<Record, Get>(call) != ORUSDK_RC_OK) return std::nullopt;
    return call.values[0].number;
}

/// A text that can be a template argument.
template <size_t Size>
struct Literal {
    char text[Size];
    consteval Literal(const char (&from)[Size]) { std::copy_n(from, Size, text); }
};

/// An item that says why it refuses a call, with the keys that its checks read.
constexpr Item explained(Item item, std::string (*reason)(uint32_t, const Call &),
                         std::string_view reads = {})
{
    item.reason = reason;
    item.reads = reads;
    return item;
}

inline constexpr Word kOnOffWords[] = {{"on", 1}, {"off", 0}};
inline constexpr Field kOnOff[] = {
    {.name = "", .kind = Kind::Switch, .bounds = {0, 1}, .words = kOnOffWords}};

/// The only field of an item that is a number.
template <int64_t Min, int64_t Max, Literal Unit = "">
inline constexpr Field kNumber[] = {
    {.name = "", .kind = Kind::Number, .bounds = {Min, Max}, .unit = Unit.text}};

/// An item of one field that a getter and a setter of one shared record read and write. A key
/// without "%d" is shared by both radios.
template <class Record, uint32_t (*Get)(Record *), uint32_t (*Set)(Record *)>
constexpr Item radioItem(std::string_view name, std::span<const Field> field,
                         std::string_view operations, std::string_view key,
                         std::string_view summary)
{
    return {.name = name,
            .scope = Scope::Radio,
            .index = Adapt<Record>::kIndex,
            .fields = field,
            .get = getOne<Record, Get>,
            .set = setOne<Record, Set>,
            .operations = operations,
            .keys = key,
            .files = "/var/wsmDefaults",
            .summary = summary};
}

template <uint32_t (*Get)(OruSdkFeatureParam *), uint32_t (*Set)(OruSdkFeatureParam *)>
constexpr Item radioSwitch(std::string_view name, std::string_view operations, std::string_view key,
                           std::string_view summary)
{
    return radioItem<OruSdkFeatureParam, Get, Set>(name, kOnOff, operations, key, summary);
}

template <uint32_t (*Get)(OruSdkOptionParam *), uint32_t (*Set)(OruSdkOptionParam *)>
constexpr Item radioOption(std::string_view name, std::span<const Field> field,
                           std::string_view operations, std::string_view key,
                           std::string_view summary)
{
    return radioItem<OruSdkOptionParam, Get, Set>(name, field, operations, key, summary);
}

} // namespace oructl
