// Radio facts that WSM knows: country, allowed channels, product band. Asked for once in a process.
#pragma once

#include "oruSdk.h"

#include <cstdint>

namespace oru {

/// Copies a radio's entry, of its channels as many as there are, out of the cache, which the first
/// call of the process fills. The radio index is the caller's to check: one above 1 gives an empty
/// entry.
uint32_t getRadioInfo(uint32_t radio, OruSdkRadioInfoEntry *out);

/// Copies the three bytes of a radio's country code.
uint32_t getRadioCountryCode(uint32_t radio, char code[3]);

/// 1 when the product works in the 2.4 GHz band only, else 0; always looks at radio 0, since both
/// radios belong to one product.
uint32_t getRadioProductBand(uint32_t radio);

} // namespace oru
