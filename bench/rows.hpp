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

/// What is measured for files of kGrowth[] keys.
struct Growing {
    const char *what;
    const char *job;
};

constexpr int kGrowth[] = {100, 1000, 10000, 100000};
const std::vector<Growing> &growing();

/// What a key of the largest file may cost, against one of a file of 1000.
constexpr double kGrowthLimit = 3;
constexpr int kGrowthBase = 1; // kGrowth[1] is 1000

} // namespace oru::bench
