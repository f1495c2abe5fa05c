// Runs oructl and kills it at a chosen moment: at the n-th stop at a system call, where it enters
// one or returns from it.
#pragma once

#include <string>
#include <vector>

namespace oru::test {

enum class KilledAt {
    Stop,  ///< the n-th one
    Sleep, ///< it began to wait
    Never  ///< it ended before
};

/// A run that begins to wait is killed there.
KilledAt runAndKill(const std::string &root, const std::vector<std::string> &arguments,
                    size_t stop);

/// The stops of a run to visit: all with ORU_KILL_EVERYWHERE=1, otherwise every so many.
size_t killStride(size_t usual);

} // namespace oru::test
