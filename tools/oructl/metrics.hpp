// The verb "metrics": what monitoring wants to know, in the text format of Prometheus (0.0.4).
#pragma once

#include "request.hpp"

#include <string>
#include <string_view>
#include <vector>

namespace oructl {

struct Label {
    std::string_view name;
    std::string value;
};

struct Sample {
    std::vector<Label> labels;
    int64_t value;
};

/// A metric, with all of its samples.
struct Metric {
    std::string name;
    std::string_view type; ///< "gauge" or "counter"
    std::string help;
    std::vector<Sample> samples = {};
};

inline constexpr Option kMetricsOptions[] = {
    {"with-macs", nullptr, "names stations by their MAC addresses, which are personal"}};

int runMetrics(Request &request);

/// The metrics in the text format.
std::string exposition(const std::vector<Metric> &metrics);

/// "txPackets" as "oru_radio_tx_packets_total", "noise" as "oru_radio_noise"; empty when no letter
/// of it can stand in a name.
std::string counterName(std::string_view counter);

} // namespace oructl
