#include "power/disk.hpp"

#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <linux/loop.h>
#include <sched.h>
#include <sys/ioctl.h>
#include <sys/mount.h>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

namespace oru::test {
namespace {

constexpr unsigned long kShutdown = _IOR('X', 125, uint32_t); // EXT4_IOC_SHUTDOWN

/// Closes itself.
class File {
public:
    File(const std::string &path, int flags) : number_(::open(path.c_str(), flags | O_CLOEXEC)) {}
    ~File()
    {
        if (number_ >= 0) ::close(number_);
    }
    File(const File &) = delete;
    File &operator=(const File &) = delete;
    operator int() const { return number_; }

private:
    int number_;
};

std::string because(const std::string &what)
{
    return what + ": " + std::strerror(errno);
}

/// Mounts of this process are seen by it and its children alone, and go with them.
std::string ownMounts()
{
    static const std::string trouble = [] {
        if (::unshare(CLONE_NEWNS) != 0) return because("no mounts of its own");
        if (::mount(nullptr, "/", nullptr, MS_REC | MS_PRIVATE, nullptr) != 0)
            return because("no private mounts");
        return std::string{};
    }();
    return trouble;
}

/// Gives an image to a free loop device, which is free again when nobody has it open. -1 without.
int attach(const std::string &image, std::string &device)
{
    constexpr int kTurns = 100; // others take loop devices too
    const File file{image, O_RDWR};
    const File control{"/dev/loop-control", O_RDWR};
    for (int turn = 0; turn < kTurns; ++turn) {
        const int number = ::ioctl(control, LOOP_CTL_GET_FREE);
        if (number < 0) return -1;
        device = "/dev/loop" + std::to_string(number);
        const int loop = ::open(device.c_str(), O_RDWR | O_CLOEXEC);
        loop_config how{};
        how.fd = static_cast<uint32_t>(file);
        how.info.lo_flags = LO_FLAGS_AUTOCLEAR;
        if (loop >= 0 && ::ioctl(loop, LOOP_CONFIGURE, &how) == 0) return loop;
        const int error = errno;
        if (loop >= 0) ::close(loop);
        errno = error;
        if (error != EBUSY) return -1;
    }
    return -1;
}

} // namespace

Disk::Disk(std::string folder, const std::string &mkfs, size_t kibibytes)
    : folder_(std::move(folder))
{
    place_ = std::filesystem::temp_directory_path() / "oru-disk-XXXXXX";
    if (::mkdtemp(place_.data()) == nullptr) std::abort();
    trouble_ = ownMounts();
    if (!trouble_.empty()) return;

    const std::string image = place_ + "/image";
    const std::string command = "PATH=$PATH:/usr/sbin:/sbin; truncate -s " +
                                std::to_string(kibibytes) + "K " + image + " && mkfs." + mkfs +
                                " -q -F -m 0 " + image + " >" + place_ + "/mkfs.log 2>&1";
    if (std::system(command.c_str()) != 0) trouble_ = "mkfs." + mkfs + " fails";
    else if (mount() && !unmount()) trouble_ = because("it stays mounted");
}

Disk::~Disk()
{
    unmount();
    std::error_code ignored;
    std::filesystem::remove_all(place_, ignored);
}

bool Disk::mount(const std::string &options)
{
    std::string device;
    const int loop = attach(place_ + "/image", device);
    if (loop < 0) {
        trouble_ = because("no loop device");
        return false;
    }
    // The same driver mounts ext2 as well.
    const char *const texts = options.empty() ? nullptr : options.c_str();
    mounted_ = ::mount(device.c_str(), folder_.c_str(), "ext4", 0, texts) == 0;
    if (!mounted_) trouble_ = because("can't mount " + device);
    ::close(loop);
    return mounted_;
}

bool Disk::unmount()
{
    if (mounted_ && ::umount(folder_.c_str()) != 0) return false;
    mounted_ = false;
    return true;
}

bool Disk::cut(Cut how) const
{
    auto flag = static_cast<uint32_t>(how);
    const File root{folder_, O_RDONLY | O_DIRECTORY};
    return ::ioctl(root, kShutdown, &flag) == 0;
}

bool Disk::fill(size_t leave) const
{
    const int file = ::open(filler().c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0600);
    const std::string block(1024, 'x');
    off_t size = 0;
    while (::write(file, block.data(), block.size()) == 1024) size += 1024;
    const bool full =
        ::ftruncate(file, size - static_cast<off_t>(leave * 1024)) == 0 && ::fsync(file) == 0;
    return ::close(file) == 0 && full;
}

bool Disk::free() const
{
    return ::unlink(filler().c_str()) == 0;
}

bool Disk::sync() const
{
    const File root{folder_, O_RDONLY | O_DIRECTORY};
    return root >= 0 && ::syncfs(root) == 0;
}

} // namespace oru::test
