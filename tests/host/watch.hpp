// Watches the system calls of a child.
#pragma once

#include <functional>
#include <string>
#include <vector>

namespace oru::test {

struct Watched {
    int code = -1;                  ///< what the work gave, in 8 bits
    size_t calls = 0;               ///< system calls that were seen
    std::vector<std::string> wrong; ///< what a guest in another's process must not do
};

/// Runs work() in a child, and looks at every system call that it makes: none may use a descriptor
/// of the standard streams that it opened itself, leave an open descriptor to programs that are
/// started meanwhile, or change what belongs to the process (its mask, folder, signals, identity,
/// limits, timers), signal it or end it. Programs that the work starts are not watched. No call
/// seen: this machine lets nobody watch.
Watched watch(const std::function<void()> &prepare, const std::function<int()> &work,
              bool mayRunPrograms);

} // namespace oru::test
