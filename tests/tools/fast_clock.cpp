// Goes before libc in a process: its monotonic clock and its waits run a hundred times as fast.
#include <cstdint>
#include <ctime>
#include <dlfcn.h>
#include <poll.h>

namespace {

constexpr int kFaster = 100;
constexpr int64_t kSecond = 1000000000;

template <class Function>
Function *real(const char *name)
{
    return reinterpret_cast<Function *>(::dlsym(RTLD_NEXT, name));
}

} // namespace

extern "C" {

int clock_gettime(clockid_t clock, timespec *time) noexcept
{
    static auto *const ask = real<int(clockid_t, timespec *)>("clock_gettime");
    const int status = ask(clock, time);
    if (status != 0 || clock != CLOCK_MONOTONIC) return status;
    const int64_t fast = (time->tv_sec * kSecond + time->tv_nsec) % (INT64_MAX / kFaster) * kFaster;
    *time = {fast / kSecond, fast % kSecond};
    return status;
}

int poll(pollfd *entries, nfds_t count, int wait_ms)
{
    static auto *const wait = real<int(pollfd *, nfds_t, int)>("poll");
    return wait(entries, count, wait_ms < 0 ? wait_ms : (wait_ms + kFaster - 1) / kFaster);
}

} // extern "C"
