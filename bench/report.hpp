// What was measured, as text and as JSON.
#pragma once

#include "programs.hpp"
#include "rows.hpp"

#include <map>
#include <optional>
#include <string>
#include <vector>

namespace oru::bench {

/// Medians over the rounds of one row, in nanoseconds. The ratio's is of the rounds' ratios.
struct Measured {
    double job;
    double base;
    double ratio;
};

struct Growth {
    const Growing *job;
    std::vector<double> ns; // one for each of kGrowth
    double perKey;          // of the largest, against 1000: median of the rounds' ratios
};

struct Results {
    std::string date;
    std::string machine;
    int rounds;
    std::vector<std::optional<Measured>> rows; // in the order of rows(); none: not measured
    std::vector<Growth> growth;
    std::vector<Program> programs;
    std::map<std::string, std::string> problems; // of benchmarks that gave up, by name
};

/// Whether a row's goal is met.
bool meets(const Row &row, const Measured &measured);

std::string asText(const Results &results);
std::string asJson(const Results &results);

/// Keys and nanoseconds per key, a column for each job: what gnuplot draws.
std::string asPlotData(const Results &results);

} // namespace oru::bench
