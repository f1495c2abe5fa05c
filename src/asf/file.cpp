#include "file.hpp"

#include "descriptor.hpp"
#include "text.hpp"

#include <climits>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <sys/file.h>
#include <sys/stat.h>

namespace oru {
namespace {

/// Reads up to size bytes; fewer only at the end of the file. -1 on failure.
ssize_t readWhole(int file, char *to, size_t size)
{
    size_t done = 0;
    while (done < size) {
        const ssize_t got = uninterrupted([&] { return ::read(file, to + done, size - done); });
        if (got < 0) return -1;
        if (got == 0) break;
        done += static_cast<size_t>(got);
    }
    return static_cast<ssize_t>(done);
}

bool writeWhole(int file, std::string_view bytes)
{
    while (!bytes.empty()) {
        const ssize_t put =
            uninterrupted([&] { return ::write(file, bytes.data(), bytes.size()); });
        if (put <= 0) return false;
        bytes = {bytes.data() + put, bytes.size() - static_cast<size_t>(put)};
    }
    return true;
}

/// The file that a path names once its symbolic links are followed, as a folder and a name in it.
/// The last link's target may be missing.
class Target {
public:
    explicit Target(const char *path)
    {
        const size_t length = std::strlen(path);
        if (length == 0 || length >= sizeof path_) return;
        std::memcpy(path_, path, length + 1);

        constexpr int kMostLinks = 40;
        for (int links = 0; links <= kMostLinks; ++links) {
            exists_ = ::fstatat(AT_FDCWD, path_, &status_, AT_SYMLINK_NOFOLLOW) == 0;
            if (!exists_ && errno != ENOENT) return;
            if (!exists_ || !S_ISLNK(status_.st_mode)) {
                valid_ = !exists_ || S_ISREG(status_.st_mode);
                return;
            }
            if (!followLink()) return;
        }
    }

    [[nodiscard]] bool valid() const { return valid_; }
    [[nodiscard]] bool exists() const { return exists_; }
    [[nodiscard]] const struct stat &status() const { return status_; }
    [[nodiscard]] const char *path() const { return path_; }
    [[nodiscard]] const char *name() const
    {
        const char *slash = std::strrchr(path_, '/');
        return slash == nullptr ? path_ : slash + 1;
    }

    [[nodiscard]] Descriptor openFolder() const
    {
        char folder[PATH_MAX] = ".";
        if (const size_t length = folderLength(); length > 0) {
            std::memcpy(folder, path_, length);
            folder[length] = '\0';
        }
        return Descriptor{
            uninterrupted([&] { return ::open(folder, O_RDONLY | O_DIRECTORY | O_CLOEXEC); })};
    }

private:
    [[nodiscard]] size_t folderLength() const { return static_cast<size_t>(name() - path_); }

    bool followLink()
    {
        char link[PATH_MAX];
        const ssize_t length = ::readlink(path_, link, sizeof link);
        if (length <= 0) return false;
        const size_t keep = link[0] == '/' ? 0 : folderLength();
        const auto size = static_cast<size_t>(length);
        if (keep + size >= sizeof path_) return false;
        std::memcpy(path_ + keep, link, size);
        path_[keep + size] = '\0';
        return true;
    }

    char path_[PATH_MAX];
    struct stat status_ {};
    bool valid_ = false;
    bool exists_ = false;
};

/// The temporary file of a save. There is one name for each configuration file, so that a killed
/// save leaves at most one behind; savers of the same file take turns by a lock on it, which the
/// kernel drops with its holder.
class Temporary {
public:
    Temporary(int folder, const Target &target) : folder_(folder), target_(target)
    {
        const int length = std::snprintf(name_, sizeof name_, ".%s.new", target.name());
        if (static_cast<size_t>(length) >= sizeof name_) return;

        constexpr int kMostTurns = 100000;
        for (int turn = 0; turn < kMostTurns; ++turn) {
            Descriptor file{open()};
            if (!file) {
                if (errno == EINTR || isBeingMade() || discardForeign()) continue;
                return;
            }
            switch (take(file.number())) {
            case State::ours: file_ = file.release(); return;
            case State::replaced: continue; // a saver before us renamed it to its place
            case State::leftOver:
                if (::unlinkat(folder_, name_, 0) != 0) return;
                continue;
            case State::unusable: ::unlinkat(folder_, name_, 0); return;
            }
        }
    }
    ~Temporary()
    {
        if (file_ < 0) return;
        if (!renamed_) ::unlinkat(folder_, name_, 0);
        ::close(file_);
    }
    Temporary(const Temporary &) = delete;
    Temporary &operator=(const Temporary &) = delete;

    explicit operator bool() const { return file_ >= 0; }
    [[nodiscard]] int number() const { return file_; }

    bool setMode() const
    {
        const mode_t mode = target_.exists() ? target_.status().st_mode & 07777 : 0600;
        return mode == (status_.st_mode & 07777) || ::fchmod(file_, mode) == 0;
    }

    bool rename()
    {
        renamed_ =
            whoseName() == State::ours && ::renameat(folder_, name_, folder_, target_.name()) == 0;
        return renamed_;
    }

private:
    enum class State { ours, replaced, leftOver, unusable };

    int open() const
    {
        return ::openat(folder_, name_, O_WRONLY | O_CREAT | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK,
                        0600);
    }

    /// Another user's save makes its file ours to open in the moment after it made it. One that
    /// stays closed for a second is a left-over.
    bool isBeingMade()
    {
        constexpr timespec kMoment{0, 1'000'000};
        if (errno != EACCES || patience_ == 0) return false;
        --patience_;
        ::nanosleep(&kMoment, nullptr);
        return true;
    }

    /// Removes what stands under our name and can't be opened: another user's left-over, a link.
    /// Those who can't keep the target's owner keep their hands off: their save fails anyway.
    bool discardForeign() const
    {
        const bool inTheWay = errno == EACCES || errno == ELOOP || errno == ENXIO || errno == EPERM;
        const uid_t user = ::geteuid();
        const bool entitled = !target_.exists() || user == 0 || user == target_.status().st_uid;
        return inTheWay && entitled && (::unlinkat(folder_, name_, 0) == 0 || errno == ENOENT);
    }

    /// Waits for our turn with what was opened. Only an empty file of our own that nobody else can
    /// have open for reading is written to; a killed save's left-over gives way to a new one.
    State take(int file)
    {
        const State state = lock(file);
        if (state != State::ours) return state;
        const bool fresh = S_ISREG(status_.st_mode) && status_.st_size == 0 &&
                           status_.st_nlink == 1 && status_.st_uid == ::geteuid() &&
                           (status_.st_mode & 077) == 0;
        if (!fresh) return State::leftOver;

        // Before the bytes, so that the owner can wait for our lock. Up to here the owner could
        // only take the file for another user's left-over, hence the second look at the name.
        const struct stat &owner = target_.exists() ? target_.status() : status_;
        if (owner.st_uid == status_.st_uid && owner.st_gid == status_.st_gid) return State::ours;
        if (::fchown(file, owner.st_uid, owner.st_gid) != 0) return State::unusable;
        return whoseName();
    }

    /// Locks what was opened. A lock is asked for again and again, not waited for: a child that was
    /// forked in the middle of a save keeps the lock with its copy of the descriptor when the save
    /// has long renamed the file.
    State lock(int file)
    {
        constexpr timespec kMoment{0, 1'000'000};
        for (int moments = 0;; ++moments) {
            const bool locked = ::flock(file, LOCK_EX | LOCK_NB) == 0;
            const bool busy = !locked && (errno == EWOULDBLOCK || errno == EINTR);
            if ((!locked && !busy) || ::fstat(file, &status_) != 0) return State::unusable;
            const State state = whoseName();
            if (locked || state != State::ours) return state;
            // Whoever needs longer has stopped for good; should it go on after all, it finds
            // another file under its name, and fails.
            if (moments >= kLongestSave) return State::leftOver;
            ::nanosleep(&kMoment, nullptr);
        }
    }

    [[nodiscard]] State whoseName() const
    {
        struct stat named {};
        if (::fstatat(folder_, name_, &named, AT_SYMLINK_NOFOLLOW) != 0)
            return errno == ENOENT ? State::replaced : State::unusable;
        const bool same = named.st_ino == status_.st_ino && named.st_dev == status_.st_dev;
        return same ? State::ours : State::replaced;
    }

    int folder_;
    const Target &target_;
    int file_ = -1;
    bool renamed_ = false;
    static constexpr int kLongestSave = 30'000; // milliseconds
    int patience_ = 1000;                       // milliseconds
    struct stat status_ {};
    char name_[NAME_MAX + 1];
};

bool contains(const char *path, std::string_view bytes)
{
    const ReadFile now = readFile(path, 0);
    const bool same = now.block != nullptr && now.size == bytes.size() &&
                      std::memcmp(now.block, bytes.data(), bytes.size()) == 0;
    std::free(now.block);
    return same;
}

/// Whether a file needs no save: it holds the bytes already, as far as can be told cheaply.
bool isSaved(const Target &target, std::string_view bytes, const FileState &read, bool held)
{
    const struct stat &now = target.status();
    if (held && read.stillHolds(now)) return true;
    if (now.st_size != static_cast<off_t>(bytes.size())) return false;
    // Bytes that differ from those of a moment ago are written without another look: at worst,
    // somebody wrote the same ones in this very moment, and they are written twice.
    if (!held && read.resembles(now)) return false;
    return contains(target.path(), bytes);
}

/// Makes a folder's new entry durable, or what a file holds. What can't be synced has no need to
/// be.
bool sync(const Descriptor &opened)
{
    return opened &&
           (uninterrupted([&] { return ::fsync(opened.number()); }) == 0 || errno == EINVAL);
}

/// Whether what a file holds has come to the disk by now, whoever wrote it: no file system keeps a
/// change in memory alone for so long.
bool isSettled(const struct stat &status)
{
    constexpr time_t kLongest = 90; // seconds; most file systems take 5 to 30, the slowest 60
    timespec now{};
    ::clock_gettime(CLOCK_REALTIME_COARSE, &now);
    return now.tv_sec - status.st_ctim.tv_sec > kLongest;
}

/// Makes what a file holds already durable: who wrote it a moment ago may have been killed, or told
/// that the disk failed, before it was.
bool syncSaved(const Target &target)
{
    if (isSettled(target.status())) return true;
    const Descriptor file{uninterrupted(
        [&] { return ::open(target.path(), O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOFOLLOW); })};
    return sync(file) && sync(target.openFolder());
}

} // namespace

FileState::FileState(const struct stat &status, const timespec &now)
    : device(status.st_dev), inode(status.st_ino), size(status.st_size), changed(status.st_ctim)
{
    // A file's times move with the kernel's tick. Two changes within one look like one, so a state
    // counts only when the file had been at rest for longer.
    constexpr int64_t kRestNs = 50'000'000;
    const int64_t seconds = now.tv_sec - changed.tv_sec;
    known = seconds > 1 ||
            (seconds >= 0 && seconds * 1'000'000'000 + now.tv_nsec - changed.tv_nsec > kRestNs);
}

bool FileState::resembles(const struct stat &status) const
{
    return device == status.st_dev && inode == status.st_ino && size == status.st_size &&
           changed.tv_sec == status.st_ctim.tv_sec && changed.tv_nsec == status.st_ctim.tv_nsec;
}

ReadFile readFile(const char *path, size_t front)
{
    // Without O_NONBLOCK, a FIFO in the file's place would hold the caller for ever.
    const Descriptor file{
        uninterrupted([&] { return ::open(path, O_RDONLY | O_CLOEXEC | O_NONBLOCK); })};
    struct stat status {};
    if (!file || ::fstat(file.number(), &status) != 0) return {};
    if (!S_ISREG(status.st_mode) || status.st_size > static_cast<off_t>(kMaxText)) return {};

    timespec now{};
    ::clock_gettime(CLOCK_REALTIME_COARSE, &now);
    const auto size = static_cast<size_t>(status.st_size);
    auto *block = static_cast<char *>(std::malloc(front + size + 1));
    if (block == nullptr) return {};
    const ssize_t got = readWhole(file.number(), block + front, size);
    if (got < 0) {
        std::free(block);
        return {};
    }
    return {block, static_cast<size_t>(got), FileState{status, now}};
}

int32_t replaceFile(const char *path, std::string_view bytes, const FileState &read, bool holds)
{
    if (bytes.size() > kMaxText) return -1;
    const Target target{path};
    if (!target.valid()) return -1;
    if (target.exists()) {
        if (isSaved(target, bytes, read, holds)) return syncSaved(target) ? 0 : -1;
        if (::faccessat(AT_FDCWD, target.path(), W_OK, AT_EACCESS) != 0) return -1;
    }

    const Descriptor folder = target.openFolder();
    if (!folder) return -1;
    Temporary temporary{folder.number(), target};
    if (!temporary || !writeWhole(temporary.number(), bytes) || !temporary.setMode()) return -1;
    if (uninterrupted([&] { return ::fsync(temporary.number()); }) != 0) return -1;
    if (!temporary.rename()) return -1;
    return sync(folder) ? 0 : -1;
}

} // namespace oru
