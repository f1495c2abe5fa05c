#include "asf/faults.hpp"

#include <cerrno>
#include <climits>
#include <cstdarg>
#include <cstdlib>
#include <cstring>
#include <dlfcn.h>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

namespace oru::test {
namespace {

constexpr int kMostCalls = 4096;

bool armed;
Faults::Kind kind;
int countdown;
int error_;
const char *only_;
bool struck_;
const char *calls[kMostCalls];
int callCount;
int lowest;

/// Notes a call. True when it meets its fault, with errno set where that is a failure.
bool strikes(const char *name)
{
    if (!armed) return false;
    if (callCount < kMostCalls) calls[callCount++] = name;
    if (only_ != nullptr && std::strcmp(only_, name) != 0) return false;
    if (--countdown != 0 || kind == Faults::Kind::none) return false;
    struck_ = true;
    if (kind == Faults::Kind::die) ::_exit(9);
    errno = error_;
    return true;
}

/// The same for a call that works on a file.
bool strikesFile(const char *name, int file)
{
    if (armed && file < lowest) lowest = file;
    return strikes(name);
}

/// Where 64-bit times and places in files are a choice, as on 32-bit machines with glibc, the
/// headers give these calls other names, and so do the definitions below.
const char *nameInLibc(const char *name)
{
#if defined(__GLIBC__) && __SIZEOF_LONG__ == 4
    constexpr std::pair<const char *, const char *> kOthers[] = {{"fstat", "__fstat64_time64"},
                                                                 {"fstatat", "__fstatat64_time64"},
                                                                 {"open", "open64"},
                                                                 {"openat", "openat64"}};
    for (const auto &[plain, wide] : kOthers)
        if (std::strcmp(name, plain) == 0) return wide;
#endif
    return name;
}

template <class Call>
Call next(const char *name)
{
    return reinterpret_cast<Call>(::dlsym(RTLD_NEXT, nameInLibc(name)));
}

} // namespace

void Faults::arm(Kind what, int n, int error, const char *only)
{
    kind = what;
    countdown = n;
    error_ = error;
    only_ = only;
    struck_ = false;
    callCount = 0;
    lowest = INT_MAX;
    armed = true;
}

std::vector<std::string> Faults::disarm()
{
    armed = false;
    return {calls, calls + callCount};
}

int Faults::lowestDescriptor()
{
    return lowest;
}

bool Faults::struck()
{
    return struck_;
}

} // namespace oru::test

using namespace oru::test;

// NAME(parameters) that fails with -1, or goes on to libc's.
#define INTERPOSE(result, name, parameters, arguments)                                             \
    extern "C" result name parameters                                                              \
    {                                                                                              \
        static const auto real = next<result(*) parameters>(#name);                                \
        return strikes(#name) ? -1 : real arguments;                                               \
    }

// The same whose first parameter is a file.
#define INTERPOSE_FILE(result, name, parameters, arguments)                                        \
    extern "C" result name parameters                                                              \
    {                                                                                              \
        static const auto real = next<result(*) parameters>(#name);                                \
        return strikesFile(#name, file) ? -1 : real arguments;                                     \
    }

INTERPOSE_FILE(ssize_t, read, (int file, void *to, size_t size), (file, to, size))
INTERPOSE_FILE(int, flock, (int file, int operation) noexcept, (file, operation))
INTERPOSE_FILE(int, fchmod, (int file, mode_t mode) noexcept, (file, mode))
INTERPOSE_FILE(int, fchown, (int file, uid_t user, gid_t group) noexcept, (file, user, group))
INTERPOSE_FILE(int, fstat, (int file, struct stat *status) noexcept, (file, status))
INTERPOSE(int, fstatat, (int folder, const char *name, struct stat *status, int flags) noexcept,
          (folder, name, status, flags))
INTERPOSE(int, faccessat, (int folder, const char *name, int mode, int flags) noexcept,
          (folder, name, mode, flags))
INTERPOSE(int, unlinkat, (int folder, const char *name, int flags) noexcept, (folder, name, flags))
INTERPOSE(int, renameat, (int from, const char *old, int to, const char *name) noexcept,
          (from, old, to, name))
INTERPOSE(ssize_t, readlink, (const char *path, char *to, size_t size) noexcept, (path, to, size))

// No test can see whether a disk holds what it should, so none waits for it.
extern "C" int fsync(int file)
{
    return strikesFile("fsync", file) || ::fcntl(file, F_GETFD) < 0 ? -1 : 0;
}

extern "C" ssize_t write(int file, const void *bytes, size_t size)
{
    static const auto real = next<ssize_t (*)(int, const void *, size_t)>("write");
    if (!strikesFile("write", file)) return real(file, bytes, size);
    return kind == Faults::Kind::cut ? real(file, bytes, size / 2) : -1;
}

extern "C" int open(const char *path, int flags, ...)
{
    static const auto real = next<int (*)(const char *, int, ...)>("open");
    va_list values;
    va_start(values, flags);
    const mode_t mode = (flags & O_CREAT) != 0 ? va_arg(values, mode_t) : 0;
    va_end(values);
    return strikes("open") ? -1 : real(path, flags, mode);
}

extern "C" int openat(int folder, const char *path, int flags, ...)
{
    static const auto real = next<int (*)(int, const char *, int, ...)>("openat");
    va_list values;
    va_start(values, flags);
    const mode_t mode = (flags & O_CREAT) != 0 ? va_arg(values, mode_t) : 0;
    va_end(values);
    return strikes("openat") ? -1 : real(folder, path, flags, mode);
}

// Allocations. The sanitizers have their own, which can't be stood before.
#if !defined(__SANITIZE_ADDRESS__)

namespace {

bool counting;
int deniedIn;
bool denied;
int blocks;

bool denies()
{
    if (!counting || --deniedIn != 0) return false;
    denied = true;
    errno = ENOMEM;
    return true;
}

} // namespace

extern "C" void *__libc_malloc(size_t size);
extern "C" void *__libc_realloc(void *block, size_t size);
extern "C" void __libc_free(void *block);

extern "C" void *malloc(size_t size) noexcept
{
    if (denies()) return nullptr;
    void *block = __libc_malloc(size);
    if (counting && block != nullptr) ++blocks;
    return block;
}

extern "C" void *realloc(void *block, size_t size) noexcept
{
    if (denies()) return nullptr;
    void *moved = __libc_realloc(block, size);
    if (counting && block == nullptr && moved != nullptr) ++blocks;
    return moved;
}

extern "C" void free(void *block) noexcept
{
    if (counting && block != nullptr) --blocks;
    __libc_free(block);
}

void Faults::denyMemory(int n)
{
    deniedIn = n;
    denied = false;
    blocks = 0;
    counting = true;
}

bool Faults::allowMemory()
{
    counting = false;
    return denied;
}

int Faults::blocksLeft()
{
    return blocks;
}

#endif
