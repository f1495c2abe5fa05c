#include "tools/kill_run.hpp"

#include <gtest/gtest.h>

#include <csignal>
#include <cstdlib>
#include <fcntl.h>
#include <sys/ptrace.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

namespace oru::test {
namespace {

constexpr int kSystemCall = SIGTRAP | 0x80;

[[noreturn]] void becomeOructl(const std::string &root, const std::vector<std::string> &arguments)
{
    std::vector<const char *> words = {"oructl"};
    for (const std::string &argument : arguments) words.push_back(argument.c_str());
    words.push_back(nullptr);
    ::setenv("ORU_ROOT", root.c_str(), 1);
    ::setenv("ORU_LOG", "none", 1);
    ::setenv("ASAN_OPTIONS", "detect_leaks=0", 1); // its search is a tracer too
    const int null = ::open("/dev/null", O_RDWR);
    for (int fd = 0; fd <= 2; ++fd) ::dup2(null, fd);
    ::ptrace(PTRACE_TRACEME, 0, nullptr, nullptr);
    ::execv(ORUCTL, const_cast<char *const *>(words.data()));
    ::_exit(127);
}

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

KilledAt runAndKill(const std::string &root, const std::vector<std::string> &arguments, size_t stop)
{
    const pid_t child = ::fork();
    if (child == 0) becomeOructl(root, arguments);
    int status = 0;
    ::waitpid(child, &status, 0); // it is oructl now
    EXPECT_TRUE(WIFSTOPPED(status)) << "can't trace";
    ::ptrace(PTRACE_SETOPTIONS, child, nullptr, PTRACE_O_TRACESYSGOOD | PTRACE_O_EXITKILL);
    for (size_t count = 1; next(child); ++count) {
        const bool asleep = sleeps(child);
        if (count < stop && !asleep) continue;
        ::kill(child, SIGKILL);
        while (::waitpid(child, &status, 0) == child && !WIFSIGNALED(status) && !WIFEXITED(status))
            ::ptrace(PTRACE_CONT, child, nullptr, nullptr);
        return count >= stop ? KilledAt::Stop : KilledAt::Sleep;
    }
    return KilledAt::Never;
}

size_t killStride(size_t usual)
{
    return std::getenv("ORU_KILL_EVERYWHERE") != nullptr ? 1 : usual;
}

} // namespace oru::test
