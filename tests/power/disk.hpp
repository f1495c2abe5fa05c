// A disk of a test's own: an image file with an ext2 or ext4 file system, mounted where nobody else
// sees it, whose power can be cut.
#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <string>

namespace oru::test {

/// How the file system goes down; what it would have written later is lost. What the disk was given
/// stays: a disk that loses its own cache is not simulated.
enum class Cut : uint32_t {
    Flushed = 0,    ///< everything was written just before
    LogFlushed = 1, ///< the journal was, file contents that wait were not
    Nothing = 2     ///< not even the journal
};
inline constexpr Cut kCuts[] = {Cut::Flushed, Cut::LogFlushed, Cut::Nothing};

class Disk {
public:
    /// Makes the image beside the tests' temporary files, to be mounted on a folder. `mkfs` names
    /// the file system and its options: "ext4 -b 1024". Why it can't be used here is in trouble().
    Disk(std::string folder, const std::string &mkfs, size_t kibibytes = 4096);
    ~Disk();
    Disk(const Disk &) = delete;
    Disk &operator=(const Disk &) = delete;

    /// Why this machine mounts no disks for the tests; empty when it does.
    [[nodiscard]] const std::string &trouble() const { return trouble_; }

    /// Mounts it, which repeats what the journal holds. Says why when it can't.
    bool mount(const std::string &options = "");
    bool unmount();

    /// Cuts the power of the mounted disk. What follows fails until it is mounted again.
    [[nodiscard]] bool cut(Cut how) const;

    /// Fills the mounted disk with a file, up to what is left of so many blocks of 1 KiB.
    [[nodiscard]] bool fill(size_t leave) const;
    /// Removes that file.
    [[nodiscard]] bool free() const;

    /// Everything so far is on the disk.
    [[nodiscard]] bool sync() const;

private:
    [[nodiscard]] std::string filler() const { return folder_ + "/filler"; }

    std::string place_;
    std::string folder_;
    std::string trouble_;
    bool mounted_ = false;
};

} // namespace oru::test
