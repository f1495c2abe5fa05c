// MAC timing and retry settings of a radio. Each field is a row: its key, its bounds and its texts.
#include "core/dict.hpp"
#include "core/key.hpp"
#include "core/log.hpp"
#include "core/store.hpp"
#include "oruSdk.h"

#include <cstddef>

namespace oru {
namespace {

template <class Param>
struct Field {
    uint32_t Param::*member;
    char key[24];
    uint32_t min;
    uint32_t max;
    uint32_t code; // of a value out of range
    TableText<36> outOfRange;
    TableText<48> unwritten;
    TableText<52, const char *> unread;
};

// The keys of both thresholds end in "ThPeriod", and the first text is spelled so: intended.
constexpr Field<OruSdkDot11MacParam> kMacFields[] = {
    {
        &OruSdkDot11MacParam::fragThreshold,
        "radio%d.fragThPeriod",
        256,
        2346,
        ORUSDK_RC_FRAG_THRESHOLD,
        "Fragement threshold out of range",
        "Unable to write fragThPeriod to dictionary",
        "Unable to read fragThPeriod from config file %s",
    },
    {
        &OruSdkDot11MacParam::rtsThreshold,
        "radio%d.rtsThPeriod",
        1,
        2347,
        ORUSDK_RC_RTS_THRESHOLD,
        "RTS threshold out of range",
        "Unable to write rtsThPeriod to dictionary",
        "Unable to read rtsThPeriod from config file %s",
    },
    {
        &OruSdkDot11MacParam::shortRetryLimit,
        "radio%d.shortRetryLimit",
        0,
        255,
        ORUSDK_RC_SHORT_RETRY_LIMIT,
        "Short retry limit out of range",
        "Unable to write shortRetryLimit to dictionary",
        "Unable to read shortRetryLimit from config file %s",
    },
    {
        &OruSdkDot11MacParam::longRetryLimit,
        "radio%d.longRetryLimit",
        0,
        255,
        ORUSDK_RC_LONG_RETRY_LIMIT,
        "Long retry limit out of range",
        "Unable to write longRetryLimit to dictionary",
        "Unable to read longRetryLimit from config file %s",
    },
};

constexpr Field<OruSdkBeaconParam> kBeaconFields[] = {
    {
        &OruSdkBeaconParam::beaconPeriod,
        "radio%d.beaconPeriod",
        1,
        65535,
        ORUSDK_RC_BEACON_PERIOD,
        "Beacon period out of range",
        "Unable to write beaconPeriod to dictionary",
        "Unable to read beaconPeriod from config file %s",
    },
    {
        &OruSdkBeaconParam::dtimPeriod,
        "radio%d.dtimPeriod",
        1,
        255,
        ORUSDK_RC_DTIM_PERIOD,
        "DTIM period out of range",
        "Unable to write dtimPeriod to dictionary",
        "Unable to read dtimPeriod from config file %s",
    },
};

/// Every field is checked before the file is loaded, and written before it is saved.
template <class Param, size_t Count>
uint32_t setFields(const Param *param, const Field<Param> (&fields)[Count])
{
    if (param == nullptr) return fail(ORUSDK_RC_NULL_POINTER, "NULL pointer");
    if (param->radioIndex >= kRadios)
        return fail(ORUSDK_RC_RADIO_ID, "Invalid radio ID: %d", param->radioIndex);
    for (const Field<Param> &field : fields)
        if (param->*field.member < field.min || param->*field.member > field.max)
            return fail(field.code, field.outOfRange);
    const Dict dict{kRadioFile};
    if (!dict) return fail(ORUSDK_RC_FILE_READ, "Unable to read WSM Defaults file %s", kRadioFile);
    for (const Field<Param> &field : fields)
        if (setString(dict, radioKey(field.key, param), Number{param->*field.member}) != 0)
            return fail(ORUSDK_RC_DICT_WRITE, field.unwritten);
    return saveRadioFile(dict);
}

/// Each field is stored as soon as it is read.
template <class Param, size_t Count>
uint32_t getFields(Param *param, const Field<Param> (&fields)[Count])
{
    if (param == nullptr) return fail(ORUSDK_RC_NULL_POINTER, "NULL pointer");
    if (param->radioIndex >= kRadios)
        return fail(ORUSDK_RC_RADIO_ID, "Invalid radio ID: %d", param->radioIndex);
    const Dict dict{kRadioFile};
    if (!dict) return fail(ORUSDK_RC_FILE_READ, "Unable to read WSM Defaults file %s", kRadioFile);
    for (const Field<Param> &field : fields) {
        int32_t value = 0;
        if (getInt(dict, radioKey(field.key, param), &value, 0) != 0)
            return fail<const char *>(ORUSDK_RC_KEY_READ, field.unread, kRadioFile);
        param->*field.member = static_cast<uint32_t>(value);
    }
    return ORUSDK_RC_OK;
}

} // namespace
} // namespace oru

using namespace oru;

extern "C" {

uint32_t oruSdkGetDot11MacParam(OruSdkDot11MacParam *param)
{
    return getFields(param, kMacFields);
}

uint32_t oruSdkSetDot11MacParam(OruSdkDot11MacParam *param)
{
    return setFields(param, kMacFields);
}

uint32_t oruSdkGetBeaconParam(OruSdkBeaconParam *param)
{
    return getFields(param, kBeaconFields);
}

uint32_t oruSdkSetBeaconParam(OruSdkBeaconParam *param)
{
    return setFields(param, kBeaconFields);
}

} // extern "C"
