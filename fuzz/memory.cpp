#include "memory.hpp"

#include "fuzz.hpp"

#include <algorithm>
#include <array>
#include <cerrno>
#include <csignal>
#include <cstdarg>
#include <cstdlib>
#include <cstring>
#include <dlfcn.h>
#include <fcntl.h>
#include <poll.h>
#include <sys/file.h>
#include <sys/ioctl.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <sys/time.h>
#include <unistd.h>

namespace oru::fuzz {
namespace {

constexpr std::string_view kRoot = "/memory";
constexpr std::string_view kLog = "/log";
constexpr int kFirstNumber = 1 << 20; // of a descriptor here: above those of the kernel

/// A file, for as long as it has a name or is open.
struct File {
    std::string name; // empty: removed
    std::string text;
    mode_t mode = 0600;
    ino_t inode = 0;
    time_t changed = 0;
    int opened = 0;
};

enum class Kind { free, file, folder, socket };

struct Descriptor {
    Kind kind = Kind::free;
    File *file = nullptr;
    size_t at = 0;
    std::string folder;
    std::string_view reply;
};

std::array<File, 16> files;
std::array<Descriptor, 16> descriptors;
uint64_t writeCount;
time_t now_; // moves with each change, so that no two states of a file look alike
ino_t lastInode;
Service *service_;
bool entered;

bool isHere(const char *path)
{
    return entered && std::string_view{path}.starts_with(kRoot);
}

std::string_view plainName(const char *path)
{
    return std::string_view{path}.substr(kRoot.size());
}

File *find(std::string_view name)
{
    for (File &file : files)
        if (!file.name.empty() && file.name == name) return &file;
    return nullptr;
}

void note(File &file)
{
    file.changed = ++now_;
    ++writeCount;
}

File &create(std::string_view name)
{
    for (File &file : files) {
        if (!file.name.empty() || file.opened > 0) continue;
        file.name = name;
        file.text.clear();
        file.mode = 0600;
        file.inode = ++lastInode;
        note(file);
        return file;
    }
    MUST(files.empty()); // more files than an access point has
    std::abort();
}

Descriptor *descriptor(int number)
{
    if (number < kFirstNumber) return nullptr;
    const auto at = static_cast<size_t>(number - kFirstNumber);
    MUST(at < descriptors.size() && descriptors[at].kind != Kind::free);
    return &descriptors[at];
}

int take(Kind kind, File *file = nullptr, std::string_view folder = {})
{
    for (Descriptor &each : descriptors) {
        if (each.kind != Kind::free) continue;
        each.kind = kind;
        each.file = file;
        each.at = 0;
        each.folder = folder;
        each.reply = {};
        if (file != nullptr) ++file->opened;
        return kFirstNumber + static_cast<int>(&each - descriptors.data());
    }
    MUST(descriptors.empty()); // some were never closed
    std::abort();
}

int openHere(std::string_view name, int flags)
{
    if ((flags & (O_DIRECTORY | O_PATH)) != 0) {
        if (name.ends_with('/')) name.remove_suffix(1);
        return take(Kind::folder, nullptr, name);
    }
    File *file = find(name);
    if (file == nullptr && (flags & O_CREAT) == 0) return errno = ENOENT, -1;
    return take(Kind::file, file == nullptr ? &create(name) : file);
}

int fail(int error)
{
    errno = error;
    return -1;
}

struct stat statusOf(const File &file)
{
    struct stat status {};
    status.st_mode = S_IFREG | file.mode;
    status.st_nlink = file.name.empty() ? 0 : 1;
    status.st_uid = ::geteuid();
    status.st_gid = ::getegid();
    status.st_ino = file.inode;
    status.st_size = static_cast<off_t>(file.text.size());
    status.st_ctim.tv_sec = file.changed;
    return status;
}

/// A line of the log, whole and printable, whatever the values in it.
void checkLine(std::string_view line)
{
    MUST(!line.empty() && line.back() == '\n');
    for (const char byte : line.substr(0, line.size() - 1))
        MUST(static_cast<unsigned char>(byte) >= 0x20 && byte != 0x7f);
}

template <class Call>
Call next(const char *name)
{
    void *found = ::dlsym(RTLD_NEXT, name);
    MUST(found != nullptr);
    return reinterpret_cast<Call>(found);
}

} // namespace

void enterMemory()
{
    const char *root = std::getenv("ORU_ROOT");
    if (root == nullptr || root != kRoot) ::setenv("ORU_ROOT", std::string{kRoot}.c_str(), 1);
    if (entered) return;
    ::setenv("ORU_LOG", ("file:" + std::string{kRoot} + std::string{kLog}).c_str(), 1);
    create(kLog);
    entered = true;
}

std::string_view textOf(const char *path)
{
    const File *file = find(path);
    return file == nullptr ? std::string_view{} : file->text;
}

void putText(const char *path, std::string_view text)
{
    File *file = find(path);
    if (file == nullptr) file = &create(path);
    file->text = text;
    note(*file);
}

uint64_t writes()
{
    return writeCount;
}

void serve(Service *service)
{
    service_ = service;
}

void expectTidy()
{
    for (const Descriptor &each : descriptors) MUST(each.kind == Kind::free);
    for (const File &file : files) MUST(file.name.find("/.") == std::string::npos);
}

} // namespace oru::fuzz

using namespace oru::fuzz;

/// What comes behind us.
#define REAL(name) static const auto real = next<decltype(&::name)>(#name)

extern "C" {

int open(const char *path, int flags, ...)
{
    REAL(open);
    va_list values;
    va_start(values, flags);
    const mode_t mode = (flags & O_CREAT) != 0 ? va_arg(values, mode_t) : 0;
    va_end(values);
    if (isHere(path)) return openHere(plainName(path), flags);
    return entered ? fail(ENOENT) : real(path, flags, mode); // the real root is none of ours
}

int openat(int folder, const char *path, int flags, ...)
{
    REAL(openat);
    va_list values;
    va_start(values, flags);
    const mode_t mode = (flags & O_CREAT) != 0 ? va_arg(values, mode_t) : 0;
    va_end(values);
    const Descriptor *here = descriptor(folder);
    return here != nullptr ? openHere(here->folder + '/' + path, flags)
                           : real(folder, path, flags, mode);
}

int close(int number)
{
    REAL(close);
    Descriptor *here = descriptor(number);
    if (here == nullptr) return real(number);
    if (here->file != nullptr) --here->file->opened;
    here->kind = Kind::free;
    return 0;
}

ssize_t read(int number, void *to, size_t size)
{
    REAL(read);
    Descriptor *here = descriptor(number);
    if (here == nullptr) return real(number, to, size);
    size = std::min(size, here->file->text.size() - here->at);
    std::memcpy(to, here->file->text.data() + here->at, size);
    here->at += size;
    return static_cast<ssize_t>(size);
}

ssize_t write(int number, const void *bytes, size_t size)
{
    REAL(write);
    Descriptor *here = descriptor(number);
    if (here == nullptr) return real(number, bytes, size);
    const std::string_view text{static_cast<const char *>(bytes), size};
    if (here->file->name == kLog) {
        checkLine(text);
        return static_cast<ssize_t>(size);
    }
    here->file->text.append(text);
    note(*here->file);
    return static_cast<ssize_t>(size);
}

int fstat(int number, struct stat *status) noexcept
{
    REAL(fstat);
    const Descriptor *here = descriptor(number);
    if (here == nullptr) return real(number, status);
    *status = statusOf(*here->file);
    return 0;
}

int fstatat(int folder, const char *path, struct stat *status, int flags) noexcept
{
    REAL(fstatat);
    const Descriptor *here = descriptor(folder);
    if (here == nullptr && !isHere(path)) return real(folder, path, status, flags);
    const File *file = here == nullptr ? find(plainName(path)) : find(here->folder + '/' + path);
    if (file == nullptr) return fail(ENOENT);
    *status = statusOf(*file);
    return 0;
}

int faccessat(int folder, const char *path, int mode, int flags) noexcept
{
    REAL(faccessat);
    if (!isHere(path)) return real(folder, path, mode, flags);
    return find(plainName(path)) == nullptr ? fail(ENOENT) : 0;
}

int fsync(int number)
{
    REAL(fsync);
    return descriptor(number) == nullptr ? real(number) : 0;
}

int flock(int number, int operation) noexcept
{
    REAL(flock);
    return descriptor(number) == nullptr ? real(number, operation) : 0;
}

int fchmod(int number, mode_t mode) noexcept
{
    REAL(fchmod);
    Descriptor *here = descriptor(number);
    if (here == nullptr) return real(number, mode);
    here->file->mode = mode;
    return 0;
}

int unlinkat(int folder, const char *path, int flags) noexcept
{
    REAL(unlinkat);
    const Descriptor *here = descriptor(folder);
    if (here == nullptr) return real(folder, path, flags);
    File *file = find(here->folder + '/' + path);
    if (file == nullptr) return fail(ENOENT);
    file->name.clear();
    note(*file);
    return 0;
}

int renameat(int from, const char *old, int to, const char *name) noexcept
{
    REAL(renameat);
    const Descriptor *here = descriptor(from);
    if (here == nullptr) return real(from, old, to, name);
    const Descriptor *there = descriptor(to);
    MUST(there != nullptr);
    File *file = find(here->folder + '/' + old);
    if (file == nullptr) return fail(ENOENT);
    const std::string target = there->folder + '/' + name;
    if (File *replaced = find(target); replaced != nullptr) replaced->name.clear();
    file->name = target;
    note(*file);
    return 0;
}

uid_t geteuid() noexcept
{
    static const uid_t user = static_cast<uid_t>(::syscall(SYS_geteuid));
    return user;
}

// ---- The factory reset, and the Ethernet driver

int system(const char *command)
{
    const bool security = std::strstr(command, "1x.conf") != nullptr;
    const char *from = security ? kAaFactory : kWsmFactory;
    putText(security ? kAa : kWsm, textOf(from));
    return 0;
}

int ioctl(int number, unsigned long request, ...) noexcept
{
    REAL(ioctl);
    va_list values;
    va_start(values, request);
    void *argument = va_arg(values, void *);
    va_end(values);
    return descriptor(number) == nullptr ? real(number, request, argument) : 0;
}

// ---- The services

int socket(int /*domain*/, int /*type*/, int /*protocol*/) noexcept
{
    return take(Kind::socket);
}

int connect(int number, const sockaddr *address, socklen_t size)
{
    REAL(connect);
    if (descriptor(number) == nullptr) return real(number, address, size);
    return service_ == nullptr ? fail(ENOENT) : 0;
}

int getsockopt(int number, int level, int name, void *value, socklen_t *size) noexcept
{
    REAL(getsockopt);
    if (descriptor(number) == nullptr) return real(number, level, name, value, size);
    const ucred peer{1, ::geteuid(), ::getegid()};
    std::memcpy(value, &peer, sizeof peer);
    return 0;
}

ssize_t send(int number, const void *bytes, size_t size, int flags)
{
    REAL(send);
    Descriptor *here = descriptor(number);
    if (here == nullptr) return real(number, bytes, size, flags);
    const auto *head = static_cast<const uint8_t *>(bytes);
    MUST(size >= 4 && size == static_cast<size_t>(head[2] << 8 | head[3]));
    here->reply = service_->reply(static_cast<uint16_t>(head[0] << 8 | head[1]));
    return static_cast<ssize_t>(size);
}

int poll(pollfd *entries, nfds_t count, int waitMs)
{
    REAL(poll);
    const Descriptor *here = count == 1 ? descriptor(entries->fd) : nullptr;
    if (here == nullptr) return real(entries, count, waitMs);
    entries->revents = POLLIN;
    return here->reply.empty() ? 0 : 1;
}

ssize_t recv(int number, void *to, size_t size, int flags)
{
    REAL(recv);
    Descriptor *here = descriptor(number);
    if (here == nullptr) return real(number, to, size, flags);
    size = std::min(size, here->reply.size());
    std::memcpy(to, here->reply.data(), size);
    here->reply = {};
    return static_cast<ssize_t>(size);
}

// ---- The clock: a limit of time that a run sets itself would end the fuzzer

int setitimer(__itimer_which_t which, const itimerval *time, itimerval *before) noexcept
{
    REAL(setitimer);
    return entered ? 0 : real(which, time, before);
}

int sigaction(int signal, const struct sigaction *action, struct sigaction *before) noexcept
{
    REAL(sigaction);
    return entered && signal == SIGALRM ? 0 : real(signal, action, before);
}

} // extern "C"
