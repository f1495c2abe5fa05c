#include "support/trace.hpp"

#include <gtest/gtest.h>

#include <csignal>
#include <sys/ptrace.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

namespace oru::test {
namespace {

constexpr int kSystemCall = SIGTRAP | 0x80;

/// Whether the process is about to sleep.
bool sleeps(pid_t child)
{
    __ptrace_syscall_info info = {};
    ::ptrace(PTRACE_GET_SYSCALL_INFO, child, sizeof info, &info);
    return info.op == PTRACE_SYSCALL_INFO_ENTRY && info.entry.nr == SYS_clock_nanosleep;
}

/// Lets it run to its next stop, and passes signals on. False when it has ended.
bool next(pid_t child)
{
    int signal = 0;
    for (;;) {
        int status = 0;
        ::ptrace(PTRACE_SYSCALL, child, nullptr, signal);
        if (::waitpid(child, &status, 0) != child || !WIFSTOPPED(status)) return false;
        if (WSTOPSIG(status) == kSystemCall) return true;
        signal = WSTOPSIG(status);
    }
}

} // namespace

bool tracesProcesses()
{
    const pid_t child = ::fork();
    if (child == 0) ::_exit(::ptrace(PTRACE_TRACEME, 0, nullptr, nullptr) == 0 ? 0 : 1);
    int status = 1;
    ::waitpid(child, &status, 0);
    return status == 0;
}

KilledAt killTraced(pid_t child, size_t stop, const std::function<void()> &before)
{
    int status = 0;
    ::waitpid(child, &status, 0);
    EXPECT_TRUE(WIFSTOPPED(status)) << "can't trace";
    ::ptrace(PTRACE_SETOPTIONS, child, nullptr, PTRACE_O_TRACESYSGOOD | PTRACE_O_EXITKILL);
    for (size_t count = 1; next(child); ++count) {
        const bool asleep = sleeps(child);
        if (count < stop && !asleep) continue;
        if (before) before();
        ::kill(child, SIGKILL);
        while (::waitpid(child, &status, 0) == child && !WIFSIGNALED(status) && !WIFEXITED(status))
            ::ptrace(PTRACE_CONT, child, nullptr, nullptr);
        return count >= stop ? KilledAt::Stop : KilledAt::Sleep;
    }
    return KilledAt::Never;
}

KilledAt runAndKill(const std::function<void()> &body, size_t stop,
                    const std::function<void()> &before)
{
    const pid_t child = ::fork();
    if (child != 0) return killTraced(child, stop, before);
    ::ptrace(PTRACE_TRACEME, 0, nullptr, nullptr);
    ::raise(SIGSTOP);
    body();
    ::_exit(0);
}

} // namespace oru::test
