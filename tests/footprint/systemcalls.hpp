// Counts the system calls that a piece of work makes, as the kernel sees them.
#pragma once

#include <functional>
#include <string>
#include <vector>

namespace oru::test {

/// The names of the calls, in order. The work is done in a child, once before it is counted, so
/// that what a first call sets up is not in it; nor are the heap's calls for more room. Empty when
/// the child can't be traced.
std::vector<std::string> systemCallsOf(const std::function<void()> &work);

} // namespace oru::test
