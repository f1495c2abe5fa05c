// The operating channel of a radio: fixed, with or without a 40 MHz partner, or selected by WSM.
#include "core/dict.hpp"
#include "core/key.hpp"
#include "core/log.hpp"
#include "core/store.hpp"
#include "oruSdk.h"
#include "radio/channels.hpp"
#include "radio/radioinfo.hpp"

namespace oru {
namespace {

constexpr int32_t kFixedSelection = 2; // "channelSelectionType"; any other value is automatic
constexpr int32_t k40MHz = 1;          // "channelBondingMode"
constexpr int32_t k11a = 1;            // "dot11Mode"
constexpr int32_t k11bOnly = 2;
constexpr int32_t k11bg = 3;

/// What is asked for a radio, and the settings of that radio which the checks meet again and again.
struct Setting {
    const OruSdkChannelParam &want;
    const Dict dict{kRadioFile};
    const int32_t radio = static_cast<int32_t>(want.radioIndex);
    int32_t bonding = 0;
    int32_t mode = 0;
};

bool is24GHz(uint32_t channel)
{
    return channel >= 1 && channel <= 14;
}

bool is5GHz(uint32_t channel)
{
    return channel > 35;
}

bool areFourApart(uint32_t one, uint32_t other)
{
    return one - other == 4 || other - one == 4;
}

/// The internal rate codes 65 to 68 are taken for the four 802.11b rates here, although these have
/// other codes: intended.
bool is11bRate(int32_t rate)
{
    return static_cast<uint32_t>(rate) - 65 < 4;
}

bool isJapan(const char country[3])
{
    return country[0] == 'J' && country[1] == 'P';
}

template <class Value>
bool write(const Setting &setting, Key key, Value value)
{
    return setString(setting.dict, key, value) == 0;
}

uint32_t save(const Setting &setting)
{
    return saveRadioFile(setting.dict);
}

// ---- Checks, for every channel

uint32_t checkRadar(const Setting &setting)
{
    int32_t detection = 0;
    if (getInt(setting.dict, Key{"radio%d.radarDetectFlag", setting.radio}, &detection, 0) != 0)
        return fail(ORUSDK_RC_KEY_READ, "Unable to read radarDetectFlag from config file %s",
                    kRadioFile);
    if (detection == 1 && isRadarChannel(setting.want.channel))
        return fail(ORUSDK_RC_RADAR_CHANNEL, "Illegal channel when radar detection flag set");
    return ORUSDK_RC_OK;
}

uint32_t checkBonding(Setting &setting)
{
    if (getInt(setting.dict, Key{"radio%d.channelBondingMode", setting.radio}, &setting.bonding,
               0) != 0)
        return fail(ORUSDK_RC_KEY_READ, "Unable to read channel bonding mode from config file %s",
                    kRadioFile);
    if (setting.bonding == k40MHz && setting.want.channel != 0 &&
        setting.want.secondaryChannel == 0)
        return fail(ORUSDK_RC_SECONDARY_CHANNEL,
                    "Secondary channel not specified when 40MHz mode set");
    return ORUSDK_RC_OK;
}

/// Modes other than 1, 2 and 3 may use any channel.
uint32_t checkMode(Setting &setting)
{
    if (getInt(setting.dict, Key{"radio%d.dot11Mode", setting.radio}, &setting.mode, 0) != 0)
        return fail(ORUSDK_RC_KEY_READ, "Unable to read dot11Mode from config file %s", kRadioFile);
    const uint32_t channel = setting.want.channel;
    if ((setting.mode == k11bOnly || setting.mode == k11bg) && channel > 14)
        return fail(ORUSDK_RC_CHANNEL, "Invalid 802.11b/g channel: %d", channel);
    if (setting.mode == k11a && is24GHz(channel))
        return fail(ORUSDK_RC_CHANNEL, "Invalid 802.11a channel: %d", channel);
    return ORUSDK_RC_OK;
}

// ---- Checks of a fixed channel

/// Looked at whatever the bonding mode.
uint32_t checkSecondary(const Setting &setting)
{
    const uint32_t primary = setting.want.channel;
    const uint32_t secondary = setting.want.secondaryChannel;
    if (secondary == 0) return ORUSDK_RC_OK;
    if (!isValidChannel(secondary, setting.bonding))
        return fail(ORUSDK_RC_SECONDARY_CHANNEL, "Invalid Secondary channel: %d", secondary);
    if (!areFourApart(primary, secondary))
        return fail(ORUSDK_RC_SECONDARY_CHANNEL, "Invalid Secondary channel: %d", secondary);
    if (is5GHz(secondary) && !isChannelPair(primary, secondary)) // "5MHz": intended
        return fail(ORUSDK_RC_SECONDARY_CHANNEL, "Invalid channel allocation for 5MHz band");
    return ORUSDK_RC_OK;
}

uint32_t checkProduct(const Setting &setting)
{
    if (getRadioProductBand(setting.want.radioIndex) == 1 && !is24GHz(setting.want.channel))
        return fail(ORUSDK_RC_CHANNEL_BG_ONLY, "Invalid channel for B/G radio product ID");
    return ORUSDK_RC_OK;
}

uint32_t checkRegDomain(const Setting &setting)
{
    const OruSdkChannelParam &want = setting.want;
    int32_t band = 0;
    if (getInt(setting.dict, Key{"radio%d.bandType", setting.radio}, &band, 0) != 0)
        return fail(ORUSDK_RC_KEY_READ, "Unable to read radio%d.bandType from config file %s",
                    setting.radio, kRadioFile);
    OruRegChannelInfo domain{};
    domain.radioIndex = static_cast<int16_t>(setting.radio);
    buildRegChannelInfo(&domain); // when it fails, no channel is listed: intended
    if (!isChannelInRegDomain(&domain, want.channel, band))
        return fail(ORUSDK_RC_REG_DOMAIN, "Invalid channel %d in current band OR regulatory domain",
                    want.channel);
    if (setting.bonding == k40MHz && want.secondaryChannel != 0 &&
        !isChannelInRegDomain(&domain, want.secondaryChannel, band))
        return fail(ORUSDK_RC_REG_DOMAIN,
                    "Invalid secondary channel %d in current band OR regulatory domain",
                    want.secondaryChannel);
    return ORUSDK_RC_OK;
}

uint32_t checkChannel14(const Setting &setting)
{
    if (setting.want.channel != 14) return ORUSDK_RC_OK;
    char country[3] = {};
    if (const uint32_t code = getRadioCountryCode(setting.want.radioIndex, country); code != 0)
        return fail(code, "getRadioCountryCode() failed");
    if (isJapan(country) && setting.mode != k11bOnly)
        return fail(ORUSDK_RC_CHANNEL_14_JAPAN, "Channel 14 invalid for 802.11g mode in Japan");
    return ORUSDK_RC_OK;
}

uint32_t checkFixedRate(const Setting &setting)
{
    const uint32_t channel = setting.want.channel;
    int32_t rate = 0;
    // Any other status than -1 passes: intended.
    if (getInt(setting.dict, Key{"radio%d.fixedRate", setting.radio}, &rate, 0) == -1)
        return fail(ORUSDK_RC_KEY_READ, "Unable to read rate from config file %s", kRadioFile);
    if (is11bRate(rate) && !is24GHz(channel))
        return fail(ORUSDK_RC_CHANNEL_FOR_11B_RATE,
                    "Invalid channel %d for configured fixed rate %d", channel, rate);
    return ORUSDK_RC_OK;
}

// ---- Writes. The texts with "radio%d" lack the point behind it, and that of the broadcast rate
// names another key: intended.

uint32_t writeBroadcastRate(const Setting &setting)
{
    if (!is5GHz(setting.want.channel)) return ORUSDK_RC_OK;
    if (!write(setting, Key{"radio%d.broadcastRate5GHz", setting.radio}, "69"))
        return fail(ORUSDK_RC_DICT_WRITE, "Unable to write fixedRate to dictionary");
    return ORUSDK_RC_OK;
}

uint32_t writeSelectionType(const Setting &setting, int32_t type)
{
    if (!write(setting, Key{"radio%d.channelSelectionType", setting.radio}, Number{type}))
        return fail(ORUSDK_RC_DICT_WRITE,
                    "Unable to write radio%dchannelSelectionType to dictionary", setting.radio);
    return ORUSDK_RC_OK;
}

uint32_t writeChannels(const Setting &setting, uint32_t primary, uint32_t secondary)
{
    if (!write(setting, Key{"radio%d.configuredChannel", setting.radio}, Number{primary}))
        return fail(ORUSDK_RC_DICT_WRITE, "Unable to write radio%dconfiguredChannel to dictionary",
                    setting.radio);
    if (!write(setting, Key{"radio%d.configuredSecondaryChannel", setting.radio},
               Number{secondary}))
        return fail(ORUSDK_RC_DICT_WRITE,
                    "Unable to write radio%dconfiguredSecondaryChannel to dictionary",
                    setting.radio);
    return ORUSDK_RC_OK;
}

uint32_t writeNoMeasurement(const Setting &setting)
{
    if (!write(setting, "periodicDfsFlag", "0"))
        return fail(ORUSDK_RC_DICT_WRITE, "Unable to write periodicDfsFlag to dictionary");
    if (!write(setting, "periodicMeasFlag", "0"))
        return fail(ORUSDK_RC_DICT_WRITE, "Unable to write periodicMeasFlag to dictionary");
    if (!write(setting, "measurementDisabled", "1"))
        return fail(ORUSDK_RC_DICT_WRITE, "Unable to write measurementDisabled to dictionary");
    return ORUSDK_RC_OK;
}

uint32_t writePeriodicMeasurement(const Setting &setting)
{
    if (!write(setting, "measurementDisabled", "0"))
        return fail(ORUSDK_RC_DICT_WRITE, "Unable to write measurementDisabled to dictionary");
    if (!write(setting, "periodicDfsFlag", "1"))
        return fail(ORUSDK_RC_DICT_WRITE, "Unable to write periodicDfsFlag to dictionary");
    if (!write(setting, "periodicMeasFlag", "1"))
        return fail(ORUSDK_RC_DICT_WRITE, "Unable to write periodicMeasFlag to dictionary");
    if (!write(setting, "periodicDfsTmr", Number{setting.want.periodicDfsTimer}))
        return fail(ORUSDK_RC_DICT_WRITE, "Unable to write periodicDfsTmr to dictionary");
    return ORUSDK_RC_OK;
}

uint32_t setFixed(const Setting &setting)
{
    const OruSdkChannelParam &want = setting.want;
    if (!isValidChannel(want.channel, setting.bonding))
        return fail(ORUSDK_RC_CHANNEL, "Invalid channel: %d", want.channel);
    if (const uint32_t code = checkSecondary(setting); code != 0) return code;
    if (const uint32_t code = checkProduct(setting); code != 0) return code;
    if (const uint32_t code = checkRegDomain(setting); code != 0) return code;
    if (const uint32_t code = checkChannel14(setting); code != 0) return code;
    if (const uint32_t code = checkFixedRate(setting); code != 0) return code;

    if (const uint32_t code = writeBroadcastRate(setting); code != 0) return code;
    if (const uint32_t code = writeSelectionType(setting, kFixedSelection); code != 0) return code;
    if (const uint32_t code = writeChannels(setting, want.channel, want.secondaryChannel);
        code != 0)
        return code;
    if (const uint32_t code = writeNoMeasurement(setting); code != 0) return code;
    return save(setting);
}

/// Neither the tables nor the product nor the regulatory domain matter to automatic selection.
uint32_t setAutomatic(const Setting &setting)
{
    constexpr uint32_t kOnce = 0;
    constexpr uint32_t kPeriodic = 1;
    constexpr uint32_t kKeepPeriodic = 2;

    const uint32_t mode = setting.want.autoSelMode;
    if (mode > kKeepPeriodic)
        return fail(ORUSDK_RC_AUTO_SELECT_MODE, "Invalid autoSelMode: %d", mode);
    if (const uint32_t code = writeChannels(setting, 0, 0); code != 0) return code;
    if (const uint32_t code = writeSelectionType(setting, 0); code != 0) return code;
    if (mode == kOnce)
        if (const uint32_t code = writeNoMeasurement(setting); code != 0) return code;
    if (mode == kPeriodic)
        if (const uint32_t code = writePeriodicMeasurement(setting); code != 0) return code;
    return save(setting);
}

// ---- Reads

uint32_t readFixed(OruAsfDict *dict, int32_t radio, OruSdkChannelParam &param)
{
    int32_t value = 0;
    if (getInt(dict, Key{"radio%d.configuredChannel", radio}, &value, 0) != 0)
        return fail(ORUSDK_RC_KEY_READ,
                    "Failed to read radio%d.configuredChannel from config file %s", radio,
                    kRadioFile);
    param.channel = static_cast<uint32_t>(value);
    if (getInt(dict, Key{"radio%d.configuredSecondaryChannel", radio}, &value, 0) != 0)
        return fail(ORUSDK_RC_KEY_READ,
                    "Failed to read radio%d.configuredSecondaryChannel from config file %s", radio,
                    kRadioFile);
    param.secondaryChannel = static_cast<uint32_t>(value);
    return ORUSDK_RC_OK;
}

uint32_t readAutomatic(OruAsfDict *dict, OruSdkChannelParam &param)
{
    param.channel = 0;
    int32_t periodic = 0;
    if (getInt(dict, "periodicDfsFlag", &periodic, 0) != 0)
        return fail(ORUSDK_RC_KEY_READ, "Failed to read periodicDfsFlag from config file %s",
                    kRadioFile);
    param.autoSelMode = static_cast<uint32_t>(periodic); // mode 2 is not stored: intended
    if (periodic != 1) return ORUSDK_RC_OK;
    int32_t timer = 0;
    if (getInt(dict, "periodicDfsTmr", &timer, 0) != 0)
        return fail(ORUSDK_RC_KEY_READ, "Failed to read periodicDfsTmr from config file %s",
                    kRadioFile);
    param.periodicDfsTimer = static_cast<uint32_t>(timer);
    return ORUSDK_RC_OK;
}

} // namespace
} // namespace oru

using namespace oru;

extern "C" {

uint32_t oruSdkGetChannelParam(OruSdkChannelParam *param)
{
    if (param == nullptr) return fail(ORUSDK_RC_NULL_POINTER, "NULL pointer");
    if (param->radioIndex >= kRadios) return fail(ORUSDK_RC_RADIO_ID, "Invalid radio ID");
    const Dict dict{kRadioFile};
    if (!dict) return fail(ORUSDK_RC_FILE_READ, "Unable to read WSM Defaults file %s", kRadioFile);
    const auto radio = static_cast<int32_t>(param->radioIndex);
    int32_t selection = 0;
    if (getInt(dict, Key{"radio%d.channelSelectionType", radio}, &selection, 0) != 0)
        return fail(ORUSDK_RC_KEY_READ,
                    "Failed to read radio%d.channelSelectionType from config file %s", radio,
                    kRadioFile);
    if (selection == kFixedSelection) return readFixed(dict, radio, *param);
    return readAutomatic(dict, *param);
}

uint32_t oruSdkSetChannelParam(OruSdkChannelParam *param)
{
    if (param == nullptr) return fail(ORUSDK_RC_NULL_POINTER, "NULL pointer");
    if (param->radioIndex >= kRadios)
        return fail(ORUSDK_RC_RADIO_ID, "Invalid radio ID: %d", param->radioIndex);
    Setting setting{*param};
    if (!setting.dict)
        return fail(ORUSDK_RC_FILE_READ, "Unable to read WSM Defaults file %s", kRadioFile);
    if (const uint32_t code = checkRadar(setting); code != 0) return code;
    if (const uint32_t code = checkBonding(setting); code != 0) return code;
    if (const uint32_t code = checkMode(setting); code != 0) return code;
    return param->channel == 0 ? setAutomatic(setting) : setFixed(setting);
}

} // extern "C"
