#include "metrics.hpp"

#include "dictionary.hpp"
#include "json_output.hpp"
#include "oruSdk.h"
#include "patience.hpp"
#include "services.hpp"
#include "uncommitted.hpp"
#include "wsm.hpp"

#include <algorithm>

namespace oructl {
namespace {

constexpr int kRadios = 2;
constexpr int kBsses = 4;

/// The metrics of one run. Each stands where its first sample came.
class Metrics {
public:
    explicit Metrics(bool withMacs) : withMacs_(withMacs) {}

    void collect();
    [[nodiscard]] const std::vector<Metric> &all() const { return all_; }

private:
    void add(std::string_view name, std::string_view type, std::string help, Sample sample);
    void gauge(std::string_view name, std::string help, std::vector<Label> labels, int64_t value)
    {
        add(name, "gauge", std::move(help), {std::move(labels), value});
    }

    void collectRadio(int radio);
    void collectBss(int bss);
    bool collectStations(int radio);
    bool collectCounters(int radio);
    bool collectLive();
    bool fetchStations(int radio, int bss, Answer &answer) const;

    Dictionary radio_{"/var/wsmDefaults"};
    Dictionary security_{"/var/1x.conf"};
    std::vector<Metric> all_;
    bool withMacs_;
};

void Metrics::add(std::string_view name, std::string_view type, std::string help, Sample sample)
{
    const auto same = std::find_if(all_.begin(), all_.end(),
                                   [&](const Metric &metric) { return metric.name == name; });
    if (same != all_.end()) return same->samples.push_back(std::move(sample));
    all_.push_back({std::string{name}, type, std::move(help), {std::move(sample)}});
}

Label radioLabel(int radio)
{
    return {"radio", std::to_string(radio)};
}

Label bssLabel(int bss)
{
    return {"bss", std::to_string(bss)};
}

void Metrics::collectRadio(int radio)
{
    const std::string key = "radio" + std::to_string(radio) + '.';
    if (const auto up = radio_.number(key + "adminStatus"))
        gauge("oru_radio_up", "Whether the radio is administratively up, as stored.",
              {radioLabel(radio)}, *up);
    if (const auto channel = radio_.number(key + "configuredChannel"))
        gauge("oru_radio_configured_channel",
              "Channel that the radio is set to; 0 for one that it selects itself.",
              {radioLabel(radio)}, *channel);
}

void Metrics::collectBss(int bss)
{
    const std::string key = "bss" + std::to_string(bss) + '.';
    if (const auto ssid = radio_.text(key + "ssId"))
        gauge("oru_bss_info", "The SSID of a BSS, as stored; always 1.",
              {bssLabel(bss), {"ssid", isUtf8(*ssid) ? *ssid : printable(*ssid)}}, 1);
    if (const auto mask = radio_.number(key + "radio"))
        for (int radio = 0; radio < kRadios; ++radio)
            gauge("oru_bss_assigned", "Whether the BSS is assigned to the radio, as stored.",
                  {bssLabel(bss), radioLabel(radio)}, *mask >> radio & 1);
    if (const auto wps = security_.number(key + "wscEnabledFlag"))
        gauge("oru_bss_wps_enabled", "Whether the BSS has WPS on, as stored.", {bssLabel(bss)},
              *wps);
    if (const auto state = radio_.number(key + "wpsstate"))
        gauge("oru_bss_wps_configured", "Whether WPS takes the BSS as configured, as stored.",
              {bssLabel(bss)}, *state == 2 ? 1 : 0);
}

bool Metrics::fetchStations(int radio, int bss, Answer &answer) const
{
    Arguments arguments;
    arguments.values = {numberValue(radio), numberValue(bss)};
    return findView("stations")->fetch(arguments, answer) == ORUSDK_RC_OK && answer.problem.empty();
}

bool Metrics::collectStations(int radio)
{
    int64_t sum = 0;
    for (int bss = 0; bss < kBsses; ++bss) {
        const int32_t mask = radio_.number("bss" + std::to_string(bss) + ".radio").value_or(0);
        if ((mask >> radio & 1) == 0) continue;
        Answer answer;
        if (!fetchStations(radio, bss, answer)) return false;
        const auto count = static_cast<int64_t>(answer.rows.size());
        sum += count;
        gauge("oru_bss_stations", "Stations of the BSS on the radio.",
              {radioLabel(radio), bssLabel(bss)}, count);
        if (!withMacs_) continue;
        for (const auto &row : answer.rows)
            gauge("oru_station_info", "A station, by its address; always 1.",
                  {radioLabel(radio), bssLabel(bss), {"mac", row[1].text}}, 1);
    }
    gauge("oru_radio_stations", "Stations of the radio.", {radioLabel(radio)}, sum);
    return true;
}

bool Metrics::collectCounters(int radio)
{
    std::string text;
    Answer answer;
    if (askStatistics(numberValue(radio), {}, text, answer) != ORUSDK_RC_OK ||
        !answer.problem.empty())
        return false;
    // Names may differ in letters that no metric has; the stations are counted in their lists.
    std::vector<std::string> seen = {"oru_radio_stations", "oru_radio_channel"};
    for (const Counter &counter : countersOf(text)) {
        const std::string name = counterName(counter.name);
        const bool counts = counter.value.given && counter.value.text.empty() &&
                            counter.value.number >= 0 && !name.empty();
        if (!counts || std::find(seen.begin(), seen.end(), name) != seen.end()) continue;
        seen.push_back(name);
        add(name, name.ends_with("_total") ? "counter" : "gauge",
            "The counter " + printable(counter.name) + " of WSM.",
            {{radioLabel(radio)}, counter.value.number});
    }
    return true;
}

/// What WSM says; false when it doesn't, so that nobody waits for it again.
bool Metrics::collectLive()
{
    for (int radio = 0; radio < kRadios; ++radio)
        if (!collectStations(radio) || !collectCounters(radio)) return false;
    return true;
}

void Metrics::collect()
{
    for (const Service &service : kServices) {
        const bool wsm = service.port == &::port;
        const bool up = isUp(service) && (!wsm || collectLive());
        gauge("oru_service_up", "Whether the service answers; AA is asked nothing but to connect.",
              {{"service", std::string{service.label}}}, up ? 1 : 0);
    }
    for (int radio = 0; radio < kRadios; ++radio) collectRadio(radio);
    for (int bss = 0; bss < kBsses; ++bss) collectBss(bss);
    for (const UncommittedFile &each : comparedFiles())
        gauge("oru_uncommitted_keys", "Keys that changed since the last commit by oructl.",
              {{"file", each.file}}, static_cast<int64_t>(each.keys));
}

std::string escaped(std::string_view value)
{
    std::string out;
    for (const char letter : value) {
        if (letter == '\n') out += "\\n";
        else if (letter == '\\' || letter == '"') out.append(1, '\\').append(1, letter);
        else out += letter;
    }
    return out;
}

bool isUpper(char letter)
{
    return letter >= 'A' && letter <= 'Z';
}

/// Whether a counter of WSM counts nothing: it says how something is at the moment.
bool isPresentValue(std::string_view name)
{
    constexpr std::string_view kWords[] = {"channel", "stations", "signal", "noise",
                                           "rate",    "power",    "load",   "temperature"};
    const std::string_view last = name.substr(name.rfind('_') + 1);
    return std::find(std::begin(kWords), std::end(kWords), last) != std::end(kWords);
}

bool isLowerOrDigit(char letter)
{
    return (letter >= 'a' && letter <= 'z') || (letter >= '0' && letter <= '9');
}

} // namespace

std::string counterName(std::string_view counter)
{
    std::string name;
    bool wordEnds = false;
    for (const char letter : counter) {
        if (isUpper(letter)) {
            if (wordEnds) name += '_';
            name += static_cast<char>(letter - 'A' + 'a');
        } else if (isLowerOrDigit(letter)) {
            name += letter;
        } else if (!name.empty() && name.back() != '_') {
            name += '_';
        }
        wordEnds = isLowerOrDigit(letter);
    }
    while (name.ends_with('_')) name.pop_back();
    if (name.empty()) return "";
    return "oru_radio_" + name + (isPresentValue(name) ? "" : "_total");
}

std::string exposition(const std::vector<Metric> &metrics)
{
    std::string out;
    for (const Metric &metric : metrics) {
        out.append("# HELP ").append(metric.name).append(" ").append(escaped(metric.help));
        out.append("\n# TYPE ").append(metric.name).append(" ").append(metric.type).append("\n");
        for (const Sample &sample : metric.samples) {
            out.append(metric.name).append("{");
            for (const Label &label : sample.labels) {
                if (out.back() != '{') out += ',';
                out.append(label.name).append("=\"").append(escaped(label.value)).append("\"");
            }
            out.append("} ").append(std::to_string(sample.value)).append("\n");
        }
    }
    return out;
}

int runMetrics(Request &request)
{
    if (!request.operands.empty()) return reportUsage(request, "too many operands");
    const Patience patience{request, "metrics"};
    Metrics metrics{request.option("with-macs") != nullptr};
    metrics.collect();
    request.output = request.json ? jsonMetrics(metrics.all()) : exposition(metrics.all());
    return kDone;
}

} // namespace oructl
