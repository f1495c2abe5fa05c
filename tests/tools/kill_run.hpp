// Runs oructl and kills it at a chosen stop.
#pragma once

#include "support/trace.hpp"

#include <string>
#include <vector>

namespace oru::test {

/// The folder in which killed runs leave their copies of the configuration.
std::string scratchOf(const std::string &root);

/// A run that begins to wait is killed there. `before` is what happens at that moment.
KilledAt runAndKill(const std::string &root, const std::vector<std::string> &arguments, size_t stop,
                    const std::function<void()> &before = {});

/// The stops of a run to visit: all with ORU_KILL_EVERYWHERE=1, otherwise every so many.
size_t killStride(size_t usual);

} // namespace oru::test
