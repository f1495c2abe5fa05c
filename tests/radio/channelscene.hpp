// A radio's channel, as tests of its setter and getter find and ask for it. Each case needs a
// process of its own, since the library asks WSM once.
#pragma once

#include "oruSdk.h"
#include "radio/wsm.hpp"
#include "support/sweep.hpp"

#include <string>
#include <vector>

namespace oru::test {

inline const std::vector<uint8_t> kEveryChannel{
    1,  2,  3,  4,   5,   6,   7,   8,   9,   10,  11,  12,  13,  14,  36,  40,  44,  48, 52,
    56, 60, 64, 100, 104, 108, 112, 116, 120, 124, 128, 132, 136, 140, 149, 153, 157, 161};

/// Settings that refuse nothing, and marks in every key that the setter may write.
inline void prepareFile(const AccessPoint &box)
{
    for (const std::string radio : {"radio0.", "radio1."}) {
        box.set(kWsm, radio + "radarDetectFlag", "0");
        box.set(kWsm, radio + "channelBondingMode", "0");
        box.set(kWsm, radio + "dot11Mode", "4");
        box.set(kWsm, radio + "bandType", "0");
        box.set(kWsm, radio + "fixedRate", "0");
        box.set(kWsm, radio + "channelSelectionType", "71");
        box.set(kWsm, radio + "configuredChannel", "72");
        box.set(kWsm, radio + "configuredSecondaryChannel", "73");
        box.set(kWsm, radio + "broadcastRate5GHz", "74");
    }
    box.set(kWsm, "periodicDfsFlag", "75");
    box.set(kWsm, "periodicMeasFlag", "76");
    box.set(kWsm, "measurementDisabled", "77");
    box.set(kWsm, "periodicDfsTmr", "78");
}

/// What is asked for, and where.
struct Scene {
    AccessPoint &box;
    StandIn &standIn;
    OruSdkChannelParam &param;
    std::vector<Radio> &radios;

    void set(const std::string &key, const std::string &value) const { box.set(kWsm, key, value); }
    void unset(const std::string &key) const { box.unset(kWsm, key); }
    void channel(uint32_t primary, uint32_t secondary = 0) const
    {
        param.channel = primary;
        param.secondaryChannel = secondary;
    }
    void automatic(uint32_t mode) const
    {
        channel(0);
        param.autoSelMode = mode;
    }
    void bonding(uint32_t primary, uint32_t secondary) const
    {
        set("radio0.channelBondingMode", "1");
        channel(primary, secondary);
    }
    void radarDetection() const { set("radio0.radarDetectFlag", "1"); }
    void mode(const char *value) const { set("radio0.dot11Mode", value); }
    void rate(const char *value) const { set("radio0.fixedRate", value); }
    void productFor24GHz() const { radios[0].band5 = 0; }
    void allow(std::vector<uint8_t> channels) const { radios[0].channels = std::move(channels); }
    void japan() const { radios[0].country = "JPI"; }
    void writesFail() const
    {
        standIn.failOnly("oruAsfDictSetString");
        standIn.failAt(1);
    }
};

struct ChannelTest : AccessPointTest {
    OruSdkChannelParam param{0, 36, 0, 0, 0};
    std::vector<Radio> radios{{"USI", kEveryChannel, 1}, {"USI", kEveryChannel, 1}};
    Scene scene{box, standIn, param, radios};

    ChannelTest() { prepareFile(box); }

    uint32_t set()
    {
        standIn.replyWith(radioReply(radios));
        return oruSdkSetChannelParam(&param);
    }
    std::string key(const std::string &name) { return box.value(kWsm, name).value_or("none"); }

    /// All keys that the setter may write for a radio.
    std::vector<std::string> written(const std::string &radio = "radio0.")
    {
        return {key(radio + "channelSelectionType"),
                key(radio + "configuredChannel"),
                key(radio + "configuredSecondaryChannel"),
                key("periodicDfsFlag"),
                key("periodicMeasFlag"),
                key("measurementDisabled"),
                key("periodicDfsTmr"),
                key(radio + "broadcastRate5GHz")};
    }
    using Values = std::vector<std::string>;
    const Values untouched{"71", "72", "73", "75", "76", "77", "78", "74"};
};

struct SetChannel : ChannelTest {};

inline constexpr char kNoRadarFlag[] =
    "Unable to read radarDetectFlag from config file /var/wsmDefaults";
inline constexpr char kNoBonding[] =
    "Unable to read channel bonding mode from config file /var/wsmDefaults";
inline constexpr char kNoMode[] = "Unable to read dot11Mode from config file /var/wsmDefaults";
inline constexpr char kDomain36[] = "Invalid channel 36 in current band OR regulatory domain";
inline constexpr char kNoRate[] = "Unable to read rate from config file /var/wsmDefaults";
inline constexpr char kProduct[] = "Invalid channel for B/G radio product ID";
inline constexpr char kJapan[] = "Channel 14 invalid for 802.11g mode in Japan";

} // namespace oru::test
