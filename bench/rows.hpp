// What is compared with what, and the goal of each comparison.
#pragma once

#include <string>
#include <vector>

namespace oru::bench {

enum class Sense {
    atMost, // the job takes at most `limit` times what it is held against
    faster  // the job is at least `limit` times faster
};

/// Two registered benchmarks by name: a job, and what it is held against.
struct Row {
    const char *what;
    const char *against;
    const char *job;
    const char *base;
    Sense sense;
    double limit;
};

const std::vector<Row> &rows();

/// What is measured at growing sizes, each the argument of the benchmark `job`.
struct Growing {
    const char *what;
    const char *job;
};

/// Jobs of the same sizes. The time for each key (or entry) of the largest size may be at most
/// `limit` times that of sizes[base].
struct GrowthTable {
    const char *things; // what is counted
    std::vector<int> sizes;
    size_t base;
    double limit;
    std::vector<Growing> jobs;
};

const GrowthTable &fileGrowth();
const GrowthTable &listGrowth();

} // namespace oru::bench
