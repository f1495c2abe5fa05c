#include "support/faults.hpp"

#include <algorithm>
#include <cerrno>
#include <climits>
#include <cstdarg>
#include <cstdlib>
#include <cstring>
#include <ctime>
#include <dlfcn.h>
#include <fcntl.h>
#include <link.h>
#include <poll.h>
#include <sys/file.h>
#include <sys/socket.h>
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
size_t room; // on a disk that gets full

// With the libraries alone armed: where their code is, and what answers them.
struct Range {
    uintptr_t begin;
    uintptr_t end;
};
constexpr int kMostRanges = 16;
bool librariesOnly;
Range ranges[kMostRanges];
int rangeCount;
void (*service_)();
std::function<void()> meanwhile_;
int meanwhileAt; // 0: where the fault is

// Blocks that are still allocated.
int blockCount;

int noteLibrary(dl_phdr_info *info, size_t, void *)
{
    if (std::strstr(info->dlpi_name, "/liboru") == nullptr) return 0;
    for (int i = 0; i < info->dlpi_phnum && rangeCount < kMostRanges; ++i) {
        const ElfW(Phdr) &segment = info->dlpi_phdr[i];
        const uintptr_t begin = info->dlpi_addr + segment.p_vaddr;
        if (segment.p_type == PT_LOAD && (segment.p_flags & PF_X) != 0)
            ranges[rangeCount++] = {begin, begin + segment.p_memsz};
    }
    return 0;
}

bool isLibrary(const void *caller)
{
    const auto at = reinterpret_cast<uintptr_t>(caller);
    for (int i = 0; i < rangeCount; ++i)
        if (at >= ranges[i].begin && at < ranges[i].end) return true;
    return false;
}

/// Whether a call is one of the libraries, which alone are armed.
bool isWatched(const void *caller)
{
    return armed && librariesOnly && isLibrary(caller);
}

void letHappen()
{
    if (!meanwhile_) return;
    armed = false;
    meanwhile_();
    armed = true;
}

/// Notes a call. True when it meets its fault, with errno set where that is a failure.
bool strikes(const char *name, const void *caller)
{
    if (!armed || (librariesOnly && !isLibrary(caller))) return false;
    if (callCount < kMostCalls) calls[callCount++] = name;
    if (callCount == meanwhileAt) letHappen();
    if (only_ != nullptr && std::strcmp(only_, name) != 0) return false;
    if (--countdown != 0 || kind == Faults::Kind::none) return false;
    struck_ = true;
    if (meanwhileAt == 0) letHappen();
    if (kind == Faults::Kind::pass) return false;
    if (kind == Faults::Kind::die) ::_exit(9);
    if (kind == Faults::Kind::failOn) {
        only_ = name;
        countdown = 1;
    }
    errno = error_;
    return true;
}

/// The same for a call that works on a file.
bool strikesFile(const char *name, int file, const void *caller)
{
    if (armed && file < lowest) lowest = file;
    return strikes(name, caller);
}

/// With a disk that gets full: how much of a write it takes. False when that is nothing.
bool takes(size_t &size)
{
    if (!armed || kind != Faults::Kind::full) return true;
    size = std::min(size, room);
    room -= size;
    struck_ |= size == 0;
    errno = size == 0 ? ENOSPC : errno;
    return size > 0;
}

/// Where 64-bit times and places in files are a choice, as on 32-bit machines with glibc, the
/// headers give these calls other names, and so do the definitions below.
const char *nameInLibc(const char *name)
{
#if defined(__GLIBC__) && __SIZEOF_LONG__ == 4
    constexpr std::pair<const char *, const char *> kOthers[] = {{"fcntl", "__fcntl_time64"},
                                                                 {"setsockopt", "__setsockopt64"},
                                                                 {"fstat", "__fstat64_time64"},
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
    meanwhile_ = nullptr;
    meanwhileAt = 0;
    librariesOnly = false;
    armed = true;
}

void Faults::armLibraries(Kind what, int n, int error, void (*service)())
{
    rangeCount = 0;
    ::dl_iterate_phdr(noteLibrary, nullptr);
    service_ = service;
    blockCount = 0;
    arm(what, n, error);
    librariesOnly = true;
}

void Faults::meanwhile(std::function<void()> happens, int call)
{
    meanwhile_ = std::move(happens);
    meanwhileAt = call;
}

bool Faults::strikes(const char *name, const void *caller)
{
    return librariesOnly && oru::test::strikes(name, caller);
}

void Faults::armFullDisk(size_t bytes)
{
    arm(Kind::full);
    room = bytes;
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

int Faults::blocksLeft()
{
    return blockCount;
}

} // namespace oru::test

using namespace oru::test;

// NAME(parameters) that fails with -1, or goes on to libc's.
#define INTERPOSE(result, name, parameters, arguments)                                             \
    extern "C" result name parameters                                                              \
    {                                                                                              \
        static const auto real = next<result(*) parameters>(#name);                                \
        return strikes(#name, __builtin_return_address(0)) ? -1 : real arguments;                  \
    }

// The same whose first parameter is a file.
#define INTERPOSE_FILE(result, name, parameters, arguments)                                        \
    extern "C" result name parameters                                                              \
    {                                                                                              \
        static const auto real = next<result(*) parameters>(#name);                                \
        return strikesFile(#name, file, __builtin_return_address(0)) ? -1 : real arguments;        \
    }

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
    return strikesFile("fsync", file, __builtin_return_address(0)) || ::fcntl(file, F_GETFD) < 0
               ? -1
               : 0;
}

extern "C" ssize_t read(int file, void *to, size_t size)
{
    static const auto real = next<ssize_t (*)(int, void *, size_t)>("read");
    if (!strikesFile("read", file, __builtin_return_address(0))) return real(file, to, size);
    return kind == Faults::Kind::cut && size > 1 ? real(file, to, size / 2) : -1;
}

extern "C" ssize_t write(int file, const void *bytes, size_t size)
{
    static const auto real = next<ssize_t (*)(int, const void *, size_t)>("write");
    if (!strikesFile("write", file, __builtin_return_address(0)))
        return takes(size) ? real(file, bytes, size) : -1;
    return kind == Faults::Kind::cut ? real(file, bytes, size / 2) : -1;
}

extern "C" int open(const char *path, int flags, ...)
{
    static const auto real = next<int (*)(const char *, int, ...)>("open");
    va_list values;
    va_start(values, flags);
    const mode_t mode = (flags & O_CREAT) != 0 ? va_arg(values, mode_t) : 0;
    va_end(values);
    return strikes("open", __builtin_return_address(0)) ? -1 : real(path, flags, mode);
}

extern "C" int openat(int folder, const char *path, int flags, ...)
{
    static const auto real = next<int (*)(int, const char *, int, ...)>("openat");
    va_list values;
    va_start(values, flags);
    const mode_t mode = (flags & O_CREAT) != 0 ? va_arg(values, mode_t) : 0;
    va_end(values);
    return strikes("openat", __builtin_return_address(0)) ? -1 : real(folder, path, flags, mode);
}

// What counts with the libraries alone.
#define INTERPOSE_LIBRARIES(result, name, parameters, arguments)                                   \
    extern "C" result name parameters                                                              \
    {                                                                                              \
        static const auto real = next<result(*) parameters>(#name);                                \
        return Faults::strikes(#name, __builtin_return_address(0)) ? -1 : real arguments;          \
    }

INTERPOSE_LIBRARIES(int, connect, (int file, const sockaddr *address, socklen_t size),
                    (file, address, size))
INTERPOSE_LIBRARIES(ssize_t, send, (int file, const void *bytes, size_t size, int flags),
                    (file, bytes, size, flags))
INTERPOSE_LIBRARIES(ssize_t, recv, (int file, void *bytes, size_t size, int flags),
                    (file, bytes, size, flags))
INTERPOSE_LIBRARIES(int, getsockopt,
                    (int file, int level, int name, void *value, socklen_t *size) noexcept,
                    (file, level, name, value, size))

INTERPOSE_LIBRARIES(int, setsockopt,
                    (int file, int level, int name, const void *value, socklen_t size) noexcept,
                    (file, level, name, value, size))
INTERPOSE_LIBRARIES(int, bind, (int file, const sockaddr *address, socklen_t size) noexcept,
                    (file, address, size))
INTERPOSE_LIBRARIES(int, listen, (int file, int queue) noexcept, (file, queue))
INTERPOSE_LIBRARIES(int, fchmodat, (int folder, const char *name, mode_t mode, int flags) noexcept,
                    (folder, name, mode, flags))

// Of its calls, those whose argument is a number, which are all that the libraries make.
extern "C" int fcntl(int file, int command, ...)
{
    static const auto real = next<int (*)(int, int, ...)>("fcntl");
    va_list values;
    va_start(values, command);
    const long argument = va_arg(values, long);
    va_end(values);
    return Faults::strikes("fcntl", __builtin_return_address(0)) ? -1
                                                                 : real(file, command, argument);
}

// The kernel closes the file even when it reports a failure.
extern "C" int close(int file)
{
    static const auto real = next<int (*)(int)>("close");
    const bool failing = Faults::strikes("close", __builtin_return_address(0));
    const int error = errno;
    const int result = real(file);
    if (!failing) return result;
    errno = error;
    return -1;
}

extern "C" int poll(pollfd *files, nfds_t count, int waitMs)
{
    static const auto real = next<int (*)(pollfd *, nfds_t, int)>("poll");
    const void *caller = __builtin_return_address(0);
    if (!isWatched(caller)) return real(files, count, waitMs);
    if (waitMs < 0) std::abort(); // the libraries never wait for ever
    if (strikes("poll", caller)) return -1;
    armed = false;
    service_();
    armed = true;
    return real(files, count, 0);
}

extern "C" int nanosleep(const timespec *wait, timespec *left)
{
    static const auto real = next<int (*)(const timespec *, timespec *)>("nanosleep");
    return isWatched(__builtin_return_address(0)) ? 0 : real(wait, left);
}

// Allocations. The sanitizers have their own, which can't be stood before.
#if defined(__has_feature)
#if __has_feature(address_sanitizer)
#define __SANITIZE_ADDRESS__ 1
#endif
#endif
#if !defined(__SANITIZE_ADDRESS__)

namespace {

constexpr int kMostBlocks = 4096;
const void *blocks[kMostBlocks];

void noteBlock(const void *block)
{
    if (block != nullptr && blockCount < kMostBlocks) blocks[blockCount++] = block;
}

void forgetBlock(const void *block)
{
    for (int i = blockCount; i-- > 0;)
        if (blocks[i] == block) {
            blocks[i] = blocks[--blockCount];
            return;
        }
}

bool counting;
int deniedIn;
bool denied;

bool denies(const char *name, const void *caller)
{
    if (Faults::strikes(name, caller)) return true;
    if (!counting || --deniedIn != 0) return false;
    denied = true;
    errno = ENOMEM;
    return true;
}

bool counts(const void *caller)
{
    return counting || isWatched(caller);
}

} // namespace

extern "C" void *__libc_malloc(size_t size);
extern "C" void *__libc_realloc(void *block, size_t size);
extern "C" void __libc_free(void *block);

extern "C" void *malloc(size_t size) noexcept
{
    const void *caller = __builtin_return_address(0);
    if (denies("malloc", caller)) return nullptr;
    void *block = __libc_malloc(size);
    if (counts(caller)) noteBlock(block);
    return block;
}

extern "C" void *realloc(void *block, size_t size) noexcept
{
    const void *caller = __builtin_return_address(0);
    if (denies("realloc", caller)) return nullptr;
    void *moved = __libc_realloc(block, size);
    if (moved != nullptr) forgetBlock(block);
    if (counts(caller)) noteBlock(moved);
    return moved;
}

// A call that ends a function has not the function's address to return to: every block is looked
// at.
extern "C" void free(void *block) noexcept
{
    if (block != nullptr) forgetBlock(block);
    __libc_free(block);
}

void Faults::denyMemory(int n)
{
    deniedIn = n;
    denied = false;
    blockCount = 0;
    counting = true;
}

bool Faults::allowMemory()
{
    counting = false;
    return denied;
}

#endif
