// A traced process that is killed at a chosen moment: at the n-th stop at a system call, where it
// enters one or returns from it.
#pragma once

#include <cstddef>
#include <functional>
#include <sys/types.h>

namespace oru::test {

enum class KilledAt {
    Stop,  ///< the n-th one
    Sleep, ///< it began to wait
    Never  ///< it ended before
};

/// Whether processes can be traced here; an emulator does not.
[[nodiscard]] bool tracesProcesses();

/// Kills a child that has asked to be traced and stops before it does anything else. One that
/// begins to wait is killed there. `before` is what happens at that moment, while it stands still.
KilledAt killTraced(pid_t child, size_t stop, const std::function<void()> &before = {});

/// Runs body() in a child and kills it at a stop.
KilledAt runAndKill(const std::function<void()> &body, size_t stop,
                    const std::function<void()> &before = {});

} // namespace oru::test
