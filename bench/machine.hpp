// The machine that is measured on.
#pragma once

#include <string>

namespace oru::bench {

/// Keeps this process and those that it starts on one processor: the last that it may use, or
/// ORU_BENCH_CPU. Returns its number, -1 when that can't be done.
int pinToOneProcessor();

std::string processorName();
std::string kernelName();

/// The kind of file system that a folder lies on: "ext4", "tmpfs", or a number.
std::string fileSystemOf(const std::string &folder);

/// The date and time, in UTC.
std::string now();

} // namespace oru::bench
