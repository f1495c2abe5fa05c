#include "host/watch.hpp"

#include <array>
#include <csignal>
#include <cstdlib>
#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <set>
#include <sys/ptrace.h>
#include <sys/socket.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

namespace oru::test {
namespace {

namespace fs = std::filesystem;

/// System calls that change what belongs to the process. The first ones are those by which libc
/// starts a program, and looks after it.
struct Forbidden {
    long number;
    const char *name;
    bool startsPrograms = false;
};
constexpr Forbidden kForbidden[] = {
    {SYS_rt_sigaction, "sigaction", true},
    {SYS_rt_sigprocmask, "sigprocmask", true},
    {SYS_wait4, "wait4", true},
#ifdef SYS_fork
    {SYS_fork, "fork", true},
    {SYS_vfork, "vfork", true},
#endif
    {SYS_clone, "clone", true},
    {SYS_clone3, "clone3", true},
    {SYS_umask, "umask"},
    {SYS_chdir, "chdir"},
    {SYS_fchdir, "fchdir"},
    {SYS_chroot, "chroot"},
    {SYS_exit, "exit"},
    {SYS_exit_group, "exit"},
    {SYS_execve, "execve"},
    {SYS_kill, "kill"},
    {SYS_tgkill, "tgkill"},
    {SYS_setitimer, "setitimer"},
#ifdef SYS_alarm
    {SYS_alarm, "alarm"},
#endif
    {SYS_sigaltstack, "sigaltstack"},
    {SYS_setuid, "setuid"},
    {SYS_setresuid, "setresuid"},
    {SYS_setgroups, "setgroups"},
    {SYS_setpriority, "setpriority"},
    {SYS_setsid, "setsid"},
    {SYS_setpgid, "setpgid"},
    {SYS_setrlimit, "setrlimit"},
    {SYS_prctl, "prctl"},
    {SYS_mlockall, "mlockall"},
};

/// System calls whose first argument is a descriptor, and that move bytes or change a file.
constexpr long kOnDescriptors[] = {
    SYS_read,  SYS_pread64,   SYS_write,     SYS_pwrite64, SYS_writev, SYS_sendto,
    SYS_flock, SYS_recvfrom,  SYS_connect,   SYS_sendmsg,  SYS_fchmod, SYS_fchown,
    SYS_fsync, SYS_fdatasync, SYS_ftruncate, SYS_bind,     SYS_listen};

class Watcher {
public:
    Watcher(pid_t child, bool mayRunPrograms)
        : child_(child), mayRunPrograms_(mayRunPrograms), process_("/proc/" + std::to_string(child))
    {
        atStart_ = descriptors();
    }

    void onEntry(long number, const uint64_t (&arguments)[6])
    {
        const uint64_t first = arguments[0];
        ++seen.calls;
        if (number == SYS_sendto && (arguments[3] & MSG_NOSIGNAL) == 0)
            wrong("sends what may raise SIGPIPE");
        for (const Forbidden &row : kForbidden)
            if (row.number == number && !(mayRunPrograms_ && row.startsPrograms))
                wrong(std::string{"calls "} + row.name);
        for (const long one : kOnDescriptors)
            if (one == number && first <= STDERR_FILENO && isNew(static_cast<int>(first)))
                wrong("system call " + std::to_string(number) + " on its own descriptor " +
                      std::to_string(first));
    }

    void onReturn()
    {
        for (const int number : descriptors())
            if (atStart_.count(number) == 0 && !closesOnExec(number))
                wrong("descriptor " + std::to_string(number) + " reaches other programs");
    }

    Watched seen;

private:
    void wrong(const std::string &what)
    {
        if (seen.wrong.empty() || seen.wrong.back() != what) seen.wrong.push_back(what);
    }

    [[nodiscard]] std::set<int> descriptors() const
    {
        std::set<int> numbers;
        std::error_code ignored;
        for (const auto &entry : fs::directory_iterator{process_ + "/fd", ignored})
            numbers.insert(std::atoi(entry.path().filename().c_str()));
        return numbers;
    }
    [[nodiscard]] bool isNew(int number) const
    {
        return atStart_.count(number) == 0 && descriptors().count(number) != 0;
    }
    [[nodiscard]] bool closesOnExec(int number) const
    {
        std::ifstream info{process_ + "/fdinfo/" + std::to_string(number)};
        std::string word;
        while (info >> word)
            if (word == "flags:" && info >> word)
                return (std::strtol(word.c_str(), nullptr, 8) & O_CLOEXEC) != 0;
        return true; // gone meanwhile
    }

    pid_t child_;
    bool mayRunPrograms_;
    std::string process_;
    std::set<int> atStart_;
};

/// The end of the work, seen from outside: a call that nobody else makes.
constexpr long kEnd = SYS_getppid;

[[noreturn]] void runWatched(const std::function<void()> &prepare, const std::function<int()> &work)
{
    prepare();
    ::ptrace(PTRACE_TRACEME, 0, nullptr, nullptr);
    ::kill(::getpid(), SIGSTOP);
    const int code = work();
    ::syscall(kEnd);
    ::_exit(code);
}

/// Lets the child run to its next stop at a system call, and hands signals on.
bool next(pid_t child, int &status)
{
    for (int signal = 0;;) {
        if (::ptrace(PTRACE_SYSCALL, child, nullptr, signal) != 0) return false;
        if (::waitpid(child, &status, 0) != child || !WIFSTOPPED(status)) return false;
        if (WSTOPSIG(status) == (SIGTRAP | 0x80)) return true;
        signal = WSTOPSIG(status);
    }
}

} // namespace

Watched watch(const std::function<void()> &prepare, const std::function<int()> &work,
              bool mayRunPrograms)
{
    const pid_t child = ::fork();
    if (child == 0) runWatched(prepare, work);
    int status = 0;
    ::waitpid(child, &status, 0);
    if (!WIFSTOPPED(status)) return {};
    ::ptrace(PTRACE_SETOPTIONS, child, nullptr, PTRACE_O_TRACESYSGOOD | PTRACE_O_EXITKILL);

    Watcher watcher{child, mayRunPrograms};
    bool atWork = true;
    while (next(child, status)) {
        __ptrace_syscall_info info{};
        ::ptrace(PTRACE_GET_SYSCALL_INFO, child, sizeof info, &info);
        if (!atWork) continue;
        if (info.op == PTRACE_SYSCALL_INFO_EXIT) watcher.onReturn();
        if (info.op != PTRACE_SYSCALL_INFO_ENTRY) continue;
        if (static_cast<long>(info.entry.nr) == kEnd) atWork = false;
        else watcher.onEntry(static_cast<long>(info.entry.nr), info.entry.args);
    }
    watcher.seen.code = WIFEXITED(status) ? WEXITSTATUS(status) : 1000 + WTERMSIG(status);
    return watcher.seen;
}

} // namespace oru::test
