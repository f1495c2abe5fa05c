// Parts of a test that run in a process of their own.
#pragma once

#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <grp.h>
#include <sys/wait.h>
#include <unistd.h>

namespace oru::test {

constexpr uid_t kPlainUser = 65534;

/// Starts body(), whose result is the child's exit status.
template <class Body>
pid_t startChild(Body body)
{
    std::fflush(nullptr);
    const pid_t child = ::fork();
    if (child != 0) return child;
    int status = 255;
    try {
        status = body();
    } catch (const std::exception &e) {
        std::fprintf(stderr, "child: %s\n", e.what());
    }
    std::fflush(nullptr);
#if defined(ORU_COVERAGE)
    std::exit(status); // adds what it counted to the files of the counters
#else
    ::_exit(status);
#endif
}

/// The exit status of a child, or 1000 and the number of the signal that ended it.
inline int waitForChild(pid_t child)
{
    int status = 0;
    while (::waitpid(child, &status, 0) < 0 && errno == EINTR) continue;
    return WIFEXITED(status) ? WEXITSTATUS(status) : 1000 + WTERMSIG(status);
}

template <class Body>
int inChild(Body body)
{
    return waitForChild(startChild(body));
}

/// Gives root's rights up for good; a plain user has none.
inline bool becomePlainUser(uid_t user = kPlainUser)
{
    if (::geteuid() != 0) return true;
    return ::setgroups(0, nullptr) == 0 && ::setresgid(user, user, user) == 0 &&
           ::setresuid(user, user, user) == 0;
}

/// Runs body() as a user for whom permissions count.
template <class Body>
int asPlainUser(Body body)
{
    return inChild([&] { return becomePlainUser() ? body() : 254; });
}

} // namespace oru::test
