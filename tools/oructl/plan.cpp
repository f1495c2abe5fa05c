#include "plan.hpp"

#include "air.hpp"
#include "capture.hpp"
#include "change.hpp"
#include "channels.hpp"
#include "json_output.hpp"
#include "radio_state.hpp"
#include "snapshot.hpp"

#include <cerrno>

namespace oructl {
namespace {

constexpr int64_t kAnswerMs = 3000; // for the tables that a plan can do without

std::string countOf(int64_t count, std::string_view what)
{
    return concat({std::to_string(count), " ", what, count == 1 ? "" : "s"});
}

/// What a change means for the stations that are there.
std::string stationsMay(std::optional<int64_t> stations)
{
    if (!stations) return ": stations may drop";
    if (*stations == 0) return ", which has no stations";
    return concat({": its ", countOf(*stations, "station"), " may drop"});
}

int64_t countAt(const Differences &found, Scope scope, int64_t index)
{
    int64_t count = 0;
    for (const Difference &each : found.items)
        count += each.item->scope == scope && each.index == index ? 1 : 0;
    return count;
}

bool differs(const Differences &found, std::string_view item, int64_t index)
{
    for (const Difference &each : found.items)
        if (each.item->name == item && each.index == index) return true;
    return false;
}

/// With detection of radar a radio listens before it speaks on such a channel.
void planRadarChannel(int64_t radio, std::vector<Step> &steps)
{
    ChannelChoice choice;
    if (readChannelChoice(radio, choice) != 0 || !choice.fixed || !isRadarChannel(choice.channel))
        return;
    const std::string_view says = storedRadarDetect(radio) == 0
                                      ? " may have radar, and its detection is off"
                                      : " needs a radar check: silent for 60 s";
    steps.push_back({.text = concat({"channel ", std::to_string(choice.channel), " of ",
                                     radioName(radio), says}),
                     .radio = radio});
}

void planRadio(int64_t radio, const Differences &found, const std::optional<Air> &air,
               std::vector<Step> &steps)
{
    const int64_t changes = countAt(found, Scope::Radio, radio);
    if (changes == 0) return;
    Step step{.text = {}, .radio = radio, .changes = changes};
    if (air) step.stations = air->radios[static_cast<size_t>(radio)].stations();
    step.text = concat(
        {radioName(radio), " takes ", countOf(changes, "change"), stationsMay(step.stations)});
    steps.push_back(step);
    if (differs(found, "channel", radio) || differs(found, "radar-detect", radio))
        planRadarChannel(radio, steps);
}

/// Why the stations of a BSS have to join anew; empty when they needn't.
std::string_view whyJoinAnew(const Differences &found, int64_t bss)
{
    for (const std::string_view item : {"psk", "wep"})
        if (differs(found, item, bss)) return "key changes";
    for (const std::string_view item : {"security", "wpa", "open", "dynamic-wep"})
        if (differs(found, item, bss)) return "security changes";
    return differs(found, "ssid", bss) ? "SSID changes" : "";
}

void planBss(int64_t bss, const Differences &found, const std::optional<Air> &air,
             std::vector<Step> &steps)
{
    const int64_t changes = countAt(found, Scope::Bss, bss);
    if (changes == 0) return;
    Step step{.text = "BSS " + std::to_string(bss), .bss = bss, .changes = changes};
    if (air) {
        step.stations = 0;
        for (const AirRadio &radio : air->radios)
            *step.stations += radio.bss[static_cast<size_t>(bss)].stations;
    }
    const std::string_view why = whyJoinAnew(found, bss);
    if (why.empty()) step.text += concat({" takes ", countOf(changes, "change")});
    else step.text += concat({": ", why, ", stations must join anew"});
    steps.push_back(step);
}

/// Ports, shared settings, and keys that no item knows.
void planRest(const Differences &found, std::vector<Step> &steps)
{
    for (const Difference &each : found.items)
        if (each.item->scope != Scope::Radio && each.item->scope != Scope::Bss)
            steps.push_back({.text = nameOf(*each.item, each.index) + " changes"});
    for (const KeyChange &each : found.keys)
        steps.push_back({.text = concat({printable(each.key), " of ", each.file, " changes"})});
}

std::string textPlan(const std::vector<Step> &steps)
{
    std::string out;
    for (const Step &step : steps) out.append(step.text).append("\n");
    return out.empty() ? "nothing to commit\n" : out;
}

} // namespace

int showPlan(Request &request)
{
    const auto from = capture(committedTexts());
    const auto to = capture(storedTexts(rootFolder()));
    if (!from || !to)
        return reportTrouble(request, typed(request), systemTrouble("compare", errno));
    const Differences found = differences(*from, *to);
    std::vector<Step> steps;
    if (found.any()) {
        const auto air = askAir(kAnswerMs, Tables::Stations);
        for (int64_t radio = 0; radio < static_cast<int64_t>(kAirRadios); ++radio)
            planRadio(radio, found, air, steps);
        for (int64_t bss = 0; bss < static_cast<int64_t>(kAirBsses); ++bss)
            planBss(bss, found, air, steps);
        planRest(found, steps);
    }
    request.output = request.json ? jsonPlan(steps) : textPlan(steps);
    return kDone;
}

int runPlan(Request &request)
{
    if (!request.operands.empty()) return reportUsage(request, "too many operands");
    return showPlan(request);
}

} // namespace oructl
