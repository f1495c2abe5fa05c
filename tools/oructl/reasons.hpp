// Why the library refuses what concerns a BSS, and what to change.
#pragma once

#include "catalogue.hpp"

#include <string>

namespace oructl {

/// Of an operation on one BSS. Empty where the message says all.
std::string bssReason(uint32_t code, const Call &call);

/// Of a commit, whose checks go over all BSSes.
std::string commitReason(uint32_t code);

/// "oructl set psk 1 -", for the end of a sentence.
std::string command(std::string_view item, int64_t index, std::string_view values);

} // namespace oructl
