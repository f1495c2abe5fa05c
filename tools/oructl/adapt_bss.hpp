// Rows from pairs of operations that take the index of a BSS and a number or a text.
#pragma once

#include "adapt.hpp"
#include "operands.hpp"
#include "values.hpp"

#include <array>
#include <cstring>

namespace oructl {

/// A BSS index of which the library refuses what is above 3. It takes negative ones, on purpose,
/// and would store keys that nothing reads.
inline constexpr Bounds kBssIndex = {0, INT32_MAX};

inline constexpr std::string_view kRadioFile = "/var/wsmDefaults";
inline constexpr std::string_view kSecurityFile = "/var/1x.conf";

template <uint32_t (*Operation)(int32_t, uint32_t *)>
uint32_t getNumber(Call &call)
{
    uint32_t number = 0;
    const uint32_t code = Operation(static_cast<int32_t>(call.index), &number);
    if (code != ORUSDK_RC_OK) return code;
    call.values[0] = {.given = true, .number = static_cast<int32_t>(number)};
    return code;
}

template <class Number, uint32_t (*Operation)(int32_t, Number)>
uint32_t setNumber(const Call &call)
{
    return Operation(static_cast<int32_t>(call.index), static_cast<Number>(call.values[0].number));
}

/// Room is what the operation asks for, a terminator included.
template <uint32_t (*Operation)(int32_t, char *, uint32_t *), size_t Room>
uint32_t getText(Call &call)
{
    std::array<char, Room + 1> text{};
    uint32_t length = 0;
    const uint32_t code = Operation(static_cast<int32_t>(call.index), text.data(), &length);
    if (code != ORUSDK_RC_OK) return code;
    call.values[0] = {.given = true, .text = text.data()};
    return code;
}

template <uint32_t (*Operation)(int32_t, const char *)>
uint32_t setText(const Call &call)
{
    return Operation(static_cast<int32_t>(call.index), call.values[0].text.c_str());
}

/// What the first value out of the bounds of its field should be; an empty text without one.
inline std::string outOfBounds(std::span<const Field> fields, const std::vector<Value> &values)
{
    for (size_t i = 0; i < fields.size(); ++i) {
        if (!values[i].given || isLegal(fields[i], values[i])) continue;
        for (const auto &entry : values[i].entries)
            if (const std::string part = outOfBounds(fields[i].entry, entry); !part.empty())
                return "an entry: " + part;
        return operandName(fields[i]) + " takes " + legalValues(fields[i]);
    }
    return "";
}

/// The conflict of an item whose values the library takes as they are.
template <const auto &Fields>
std::string boundedHere(const Call &call)
{
    return outOfBounds(Fields, call.values);
}

} // namespace oructl
