// The files that are measured, and how plain C reads one: the floor of every load.
#pragma once

#include <cstddef>
#include <cstdlib>
#include <string>

namespace oru::bench {

constexpr int kKeys = 1000; // 24 KB
constexpr int kTwenty = 20;

/// The next key to ask for: every place of the file gets its turn, none near the last.
constexpr int next(int i, int count)
{
    return (i + 37) % count;
}

/// The i-th key, and what a plain search looks for. Both are made before anything is measured.
const char *keyAt(int i);
const std::string &needleAt(int i);

/// The value of every file's i-th key.
constexpr int valueAt(int i)
{
    return i % 10000;
}

/// A folder with an access point's files below it: /var/wsmDefaults and /var/1x.conf, each with so
/// many keys. The switches that are measured stand in the middle.
class Folder {
public:
    Folder(const std::string &where, int keys);
    ~Folder();
    Folder(const Folder &) = delete;
    Folder &operator=(const Folder &) = delete;

    /// From here on the library works below this folder.
    void use() const { ::setenv("ORU_ROOT", root_.c_str(), 1); }
    /// Waits until the file has not been changed for 90 seconds: the library then takes it as one
    /// that has come to the disk.
    void settle() const;
    [[nodiscard]] const std::string &root() const { return root_; }
    [[nodiscard]] std::string path() const { return root_ + "/var/wsmDefaults"; }

private:
    std::string root_;
};

/// 1000 keys in memory (/dev/shm) that are only read, so that the file is at rest; 1000 that are
/// changed, in memory and on a disk (ORU_BENCH_DISK, or /var/tmp).
const Folder &memory();
const Folder &changing();
const Folder &disk();
std::string diskFolder();

/// One block with the file's bytes, by open, fstat, malloc, read and close.
char *floorLoad(const char *path, size_t &size);

/// The place of a key by one plain search.
const void *search(const char *text, size_t size, int i);

} // namespace oru::bench
