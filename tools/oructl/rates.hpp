// Internal rate codes in words.
#pragma once

#include "catalogue.hpp"

#include <string>

namespace oructl {

/// "54 Mbps", "MCS 7, 40 MHz, short GI" or "automatic" for an internal rate code.
std::string rateMeaning(int64_t code);

/// How a rate of a get is shown, and what a set of the same item would take for it.
extern const Coded kLegacyRate;
extern const Coded kMcsRate;
extern const Coded kLegacyBroadcastRate; ///< never automatic
extern const Coded kMcsBroadcastRate;    ///< never automatic, and no MCS 32

} // namespace oructl
