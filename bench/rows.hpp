// A job and its floor, measured in turn.
#pragma once

namespace oru::bench {

/// What is compared: two registered benchmarks by name.
struct Row {
    const char *what;
    const char *job;
    const char *floor;
};

extern const Row kRows[];
extern const int kRowCount;

} // namespace oru::bench
