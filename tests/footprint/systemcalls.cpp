#include "footprint/systemcalls.hpp"

#include <csignal>
#include <sys/ptrace.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

namespace oru::test {
namespace {

std::string nameOf(uint64_t number)
{
    const struct {
        uint64_t number;
        const char *name;
    } names[] = {
#if defined(SYS_newfstatat)
        {SYS_newfstatat, "stat"},
#endif
#if defined(SYS_fstat)
        {SYS_fstat, "stat"},
#endif
        {SYS_openat, "open"},
        {SYS_read, "read"},
        {SYS_close, "close"},
        {SYS_write, "write"},
        {SYS_writev, "writev"},
        {SYS_fsync, "fsync"},
        {SYS_faccessat, "access"},
        {SYS_faccessat2, "access"},
        {SYS_flock, "flock"},
        {SYS_fchmod, "chmod"},
        {SYS_geteuid, "geteuid"},
        {SYS_unlinkat, "unlink"},
#if defined(SYS_rename)
        {SYS_rename, "rename"},
#endif
#if defined(SYS_renameat)
        {SYS_renameat, "rename"},
#endif
        {SYS_renameat2, "rename"},
    };
    for (const auto &row : names)
        if (row.number == number) return row.name;
    return "system call " + std::to_string(number);
}

/// The heap's own: when it grows and shrinks depends on what was there before.
bool isOfTheHeap(uint64_t number)
{
    return number == SYS_brk || number == SYS_mmap || number == SYS_munmap || number == SYS_mremap;
}

[[noreturn]] void runTraced(const std::function<void()> &work)
{
    work();
    ::ptrace(PTRACE_TRACEME, 0, nullptr, nullptr);
    ::kill(::getpid(), SIGSTOP);
    work();
    ::_exit(0);
}

} // namespace

std::vector<std::string> systemCallsOf(const std::function<void()> &work)
{
    std::vector<std::string> calls;
    const pid_t child = ::fork();
    if (child == 0) runTraced(work);

    int status = 0;
    ::waitpid(child, &status, 0);
    if (!WIFSTOPPED(status)) return {};
    ::ptrace(PTRACE_SETOPTIONS, child, nullptr, PTRACE_O_TRACESYSGOOD | PTRACE_O_EXITKILL);
    while (::ptrace(PTRACE_SYSCALL, child, nullptr, nullptr) == 0 &&
           ::waitpid(child, &status, 0) == child && WIFSTOPPED(status)) {
        __ptrace_syscall_info info{};
        ::ptrace(PTRACE_GET_SYSCALL_INFO, child, sizeof info, &info);
        if (info.op != PTRACE_SYSCALL_INFO_ENTRY) continue;
        if (info.entry.nr != SYS_exit_group && !isOfTheHeap(info.entry.nr))
            calls.push_back(nameOf(info.entry.nr));
    }
    return calls;
}

} // namespace oru::test
