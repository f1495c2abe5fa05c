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
    const char *what;
    std::vector<double> ns; // one for each of the table's sizes
    double perThing;        // of the largest, against the base: median of the rounds' ratios
};

struct MeasuredTable {
    const GrowthTable *table;
    std::vector<Growth> jobs;
};

struct Results {
    std::string date;
    std::string machine;
    int rounds;
    std::vector<std::optional<Measured>> rows; // in the order of rows(); none: not measured
    std::vector<MeasuredTable> growth;         // the first is of files
    std::vector<Program> programs;
    std::map<std::string, std::string> problems; // of benchmarks that gave up, by name
};

/// Whether a row's goal is met.
bool meets(const Row &row, const Measured &measured);

std::string asText(const Results &results);
std::string asJson(const Results &results);

/// Keys of a file and nanoseconds per key, a column for each job: what gnuplot draws.
std::string asPlotData(const Results &results);

} // namespace oru::bench
