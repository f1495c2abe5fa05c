#include "tools/kill_run.hpp"

#include <cstdlib>
#include <fcntl.h>
#include <sys/ptrace.h>
#include <sys/stat.h>
#include <unistd.h>

namespace oru::test {
namespace {

[[noreturn]] void becomeOructl(const std::string &root, const std::vector<std::string> &arguments)
{
    std::vector<const char *> words = {"oructl"};
    for (const std::string &argument : arguments) words.push_back(argument.c_str());
    words.push_back(nullptr);
    ::setenv("ORU_ROOT", root.c_str(), 1);
    ::setenv("ORU_LOG", "none", 1);
    ::mkdir(scratchOf(root).c_str(), 0700);
    ::setenv("TMPDIR", scratchOf(root).c_str(), 1);
    ::setenv("ASAN_OPTIONS", "detect_leaks=0", 1); // its search is a tracer too
    const int null = ::open("/dev/null", O_RDWR);
    for (int fd = 0; fd <= 2; ++fd) ::dup2(null, fd);
    ::ptrace(PTRACE_TRACEME, 0, nullptr, nullptr);
    ::execv(ORUCTL, const_cast<char *const *>(words.data()));
    ::_exit(127);
}

} // namespace

std::string scratchOf(const std::string &root)
{
    return root + ".scratch";
}

KilledAt runAndKill(const std::string &root, const std::vector<std::string> &arguments, size_t stop,
                    const std::function<void()> &before)
{
    const pid_t child = ::fork();
    if (child == 0) becomeOructl(root, arguments);
    return killTraced(child, stop, before); // it stops when it is oructl
}

size_t killStride(size_t usual)
{
    return std::getenv("ORU_KILL_EVERYWHERE") != nullptr ? 1 : usual;
}

} // namespace oru::test
