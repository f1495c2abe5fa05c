// System calls and allocations that stand before libc's in a test executable. They pass everything
// on until a test arms them; then the n-th one fails, or ends the process.
#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <vector>

namespace oru::test {

class Faults {
public:
    /// What the call in question does. `cut` lets a write end early (a read too, of the
    /// libraries alone), and is no failure; `failOn` fails it and all of its name that follow;
    /// `pass` only lets meanwhile() happen; `full` is what armFullDisk() does.
    enum class Kind { none, fail, failOn, die, cut, pass, full };

    /// Counts and notes every system call from here to disarm(); the n-th one (1 is the first)
    /// meets its fault. With `only`, just the calls of that name count.
    static void arm(Kind kind = Kind::none, int n = 0, int error = 0, const char *only = nullptr);

    /// The same for the calls of liboruAsf and liboruSdk alone, allocations included. Nothing
    /// sleeps meanwhile, and `service` runs before each wait for a message, which then never lasts.
    static void armLibraries(Kind kind, int n, int error, void (*service)());

    /// Writes come to this many bytes; the one that has no room for all of its bytes is cut, and
    /// those that follow fail.
    static void armFullDisk(size_t bytes);

    /// What another process does right before the call in question, or before the `call`-th one
    /// of all; set after arm().
    static void meanwhile(std::function<void()> happens, int call = 0);

    /// For stand-ins of system calls that stand elsewhere: whether this one fails, with errno set.
    static bool strikes(const char *name, const void *caller);

    /// The names of the calls since arm().
    static std::vector<std::string> disarm();

    /// The lowest descriptor that a call since arm() read, wrote, locked or synced.
    static int lowestDescriptor();

    /// Whether the n-th call was reached.
    static bool struck();

    /// Lets the n-th allocation from here to allowMemory() fail.
    static void denyMemory(int n);
    /// Whether one was denied.
    static bool allowMemory();
    /// Allocations less frees since denyMemory() or armLibraries().
    static int blocksLeft();
};

} // namespace oru::test
