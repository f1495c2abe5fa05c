// Checks of a requested rate against a radio's stored settings, and its internal code.
#pragma once

#include "core/dict.hpp"
#include "oruSdk.h"

#include <cstdint>

namespace oru {

/// Replaces featureOptions, a legacy rate in Mbps or 160 for an automatic one, by its internal
/// code. On failure the record is left alone and the dictionary ("/var/wsmDefaults") is freed.
uint32_t validateAndConvertRate(OruSdkOptionParam *param, Dict &dict);

/// The same for an MCS index. Never frees the dictionary.
uint32_t validateAndConvertMcsRate(OruSdkOptionParam *param, const Dict &dict);

} // namespace oru
