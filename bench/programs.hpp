// Whole processes, by the instructions that they execute: exact, whatever else the machine does.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace oru::bench {

struct Program {
    std::string what;
    int64_t instructions = -1; // -1: not counted, a program or valgrind is missing
};

/// What one `oructl get mimo 0` may execute.
constexpr int64_t kOructlLimit = 600'000;

/// An empty program, oructl, and others asked the same question: a setting of 1000.
std::vector<Program> countPrograms();

} // namespace oru::bench
