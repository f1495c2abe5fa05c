// Checks of the radios' channels, and of the services.
#include "doctor.hpp"

#include "channels.hpp"
#include "radio_state.hpp"
#include "services.hpp"

#include <algorithm>
#include <cstdlib>

namespace oructl {
namespace {

constexpr int kRadios = 2;

/// A radio whose channel is fixed.
struct FixedChannel {
    int64_t radio;
    std::string key; ///< the beginning of its keys
    int64_t channel;
    int64_t secondary;
    bool bonding;
};

template <class Visit>
void forEachFixedChannel(const Patient &patient, Visit &&visit)
{
    constexpr int32_t kFixed = 2;
    for (int radio = 0; radio < kRadios; ++radio) {
        const std::string key = "radio" + std::to_string(radio) + '.';
        const auto number = [&](const char *name) { return patient.radio.number(key + name); };
        const auto channel = number("configuredChannel");
        if (number("channelSelectionType") != kFixed || !channel) continue;
        visit(FixedChannel{radio, key, *channel, number("configuredSecondaryChannel").value_or(0),
                           number("channelBondingMode") == 1});
    }
}

std::string described(const FixedChannel &fixed)
{
    return radioName(fixed.radio) + " has channel " + std::to_string(fixed.channel);
}

void country(const Patient &patient, Findings &findings)
{
    if (!isUp(kServices[0])) return; // "service" says so
    forEachFixedChannel(patient, [&](const FixedChannel &fixed) {
        const RadioFacts facts = radioFacts(fixed.radio);
        if (!facts.told) return;
        for (const int64_t channel : {fixed.channel, fixed.bonding ? fixed.secondary : 0}) {
            const auto &legal = facts.channels;
            if (channel == 0 || std::find(legal.begin(), legal.end(), channel) != legal.end())
                continue;
            findings.push_back({radioName(fixed.radio) + " has channel " + std::to_string(channel) +
                                    ", which is none of its channels in " +
                                    printable(facts.country),
                                setCommand("channel", fixed.radio, "auto")});
        }
    });
}

void countryUnknown(const Patient &patient, Findings &findings)
{
    bool unknown = false;
    forEachFixedChannel(patient, [&](const FixedChannel &fixed) {
        if (!unknown) unknown = !isUp(kServices[0]) || !radioFacts(fixed.radio).told;
    });
    if (unknown)
        findings.push_back({"whether the channels are legal in the country is not known, since "
                            "WSM doesn't say",
                            "start WSM"});
}

void radar(const Patient &patient, Findings &findings)
{
    forEachFixedChannel(patient, [&](const FixedChannel &fixed) {
        if (!isRadarChannel(fixed.channel) ||
            patient.radio.number(fixed.key + "radarDetectFlag") != 1)
            return;
        findings.push_back({described(fixed) + ", a radar channel, while it detects radar",
                            setCommand("channel", fixed.radio, "CHANNEL")});
    });
}

bool isPartner(const FixedChannel &fixed)
{
    if (!isAt24GHz(fixed.channel)) return partnerAt5GHz(fixed.channel) == fixed.secondary;
    return isAt24GHz(fixed.secondary) && std::abs(fixed.channel - fixed.secondary) == 4;
}

void secondary(const Patient &patient, Findings &findings)
{
    forEachFixedChannel(patient, [&](const FixedChannel &fixed) {
        const std::string mend = setCommand("channel", fixed.radio,
                                            std::to_string(fixed.channel) + " --secondary CHANNEL");
        if (fixed.secondary == 0 && fixed.bonding)
            findings.push_back({described(fixed) + " at 40 MHz, and no secondary one", mend});
        if (fixed.secondary != 0 && !isPartner(fixed))
            findings.push_back({described(fixed) + ", and " + std::to_string(fixed.secondary) +
                                    " can't be its secondary one",
                                mend});
    });
}

void unusedSecondary(const Patient &patient, Findings &findings)
{
    forEachFixedChannel(patient, [&](const FixedChannel &fixed) {
        if (fixed.bonding || fixed.secondary == 0) return;
        findings.push_back({described(fixed) + " at 20 MHz, and a secondary one all the same",
                            setCommand("channel-bonding", fixed.radio, "40mhz")});
    });
}

void service(const Patient &, Findings &findings)
{
    for (const Service &each : kServices)
        if (!isUp(each))
            findings.push_back({std::string{each.name}.append(", ").append(each.means) +
                                    ", doesn't take connections",
                                "start " + std::string{each.name}});
}

constexpr Check kChecks[] = {
    {"country", Level::Error, country},
    {"radar", Level::Error, radar},
    {"secondary", Level::Error, secondary},
    {"unused-secondary", Level::Note, unusedSecondary},
    {"country-unknown", Level::Note, countryUnknown},
    {"service", Level::Note, service},
};

} // namespace

std::span<const Check> radioChecks()
{
    return kChecks;
}

} // namespace oructl
