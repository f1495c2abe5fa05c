// A call of an item's operation that a verb makes: what it is called, and why it was refused.
#pragma once

#include "catalogue.hpp"
#include "request.hpp"

#include <string>
#include <string_view>

namespace oructl {

/// What a call is called in reports: as it was typed, but without its values when one of them is a
/// secret.
std::string callAttempt(const Item &item, std::string_view verb, const Call &call,
                        const std::string &typed);

/// Why a call was refused or has failed, and what would be legal.
Problem callProblem(const Item &item, Use verb, uint32_t code, const Call &call,
                    std::string attempt);

/// Why a reset of one BSS was refused or has failed.
Problem resetProblem(int64_t bss, uint32_t code, std::string attempt);

/// Reads the operand of a reset of one BSS. Returns what is wrong, or an empty text.
std::string parseResetBss(Words operands, int64_t &bss);

} // namespace oructl
