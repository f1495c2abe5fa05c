// The configuration store: the helpers on which most getters and setters stand.
#pragma once

#include "core/dict.hpp"
#include "core/key.hpp"
#include "oruSdk.h"

#include <cstdint>

namespace oru {

constexpr uint32_t kRadios = 2;
constexpr uint32_t kBsses = 4;

/// Checks the record and the radio index and, when min differs from max, the option's range; then
/// loads "/var/wsmDefaults". On 0 the dictionary is the caller's.
uint32_t sdkOpenRadioDefaults(const OruSdkOptionParam *param, Key key, uint32_t min, uint32_t max,
                              Dict &dict);

/// Reads an integer key into featureOptions, and frees the dictionary.
uint32_t sdkDictReadInt(OruSdkOptionParam *param, Key key, Dict dict);

/// Writes featureOptions under a key, saves "/var/wsmDefaults", and frees the dictionary.
uint32_t sdkDictWriteAndSave(const OruSdkOptionParam *param, Key key, Dict dict);

/// One whole get of an integer key of "/var/wsmDefaults" into activationFlag.
uint32_t sdkGetRadioFeature(OruSdkFeatureParam *param, Key key);

/// One whole set of a 0/1 key of "/var/wsmDefaults" from activationFlag.
uint32_t sdkSetRadioFeature(const OruSdkFeatureParam *param, Key key);

/// Whether a RADIUS server is configured. Frees nothing.
bool sdkRadiusServerConfigured(OruAsfDict *dict, int32_t serverCount);

// The end of most setters: saves a file. A failure is logged as one of the caller's place.
uint32_t saveRadioFile(OruAsfDict *dict, int32_t line = ORUSDK_LINE_BASE + __builtin_LINE());
uint32_t saveSecurityFile(OruAsfDict *dict, int32_t line = ORUSDK_LINE_BASE + __builtin_LINE());

/// A key of the record's radio; a pattern without "%d" is the key itself. The record may be NULL:
/// the check that follows refuses it.
template <class Param>
Key radioKey(const char *pattern, const Param *param)
{
    return Key{pattern, param == nullptr ? 0 : static_cast<int32_t>(param->radioIndex)};
}

/// The whole of a numeric option's getter.
uint32_t getOption(OruSdkOptionParam *param, const char *pattern);

/// The whole of a numeric option's setter; the bounds are inclusive.
uint32_t setOption(const OruSdkOptionParam *param, const char *pattern, uint32_t min, uint32_t max);

} // namespace oru
