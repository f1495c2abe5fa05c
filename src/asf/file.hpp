// Whole files: read one, replace one.
#pragma once

#include <cstddef>
#include <cstdint>
#include <ctime>
#include <string_view>
#include <sys/stat.h>

namespace oru {

// Also where that is a choice: a date behind 2038 or a file on a large disk is none that fails.
static_assert(sizeof(time_t) == 8 && sizeof(off_t) == 8 && sizeof(ino_t) == 8);

/// Which file was read, in which state. Two equal ones mean that nobody wrote to it in between.
struct FileState {
    dev_t device = 0;
    ino_t inode = 0;
    off_t size = 0;
    timespec changed{};
    bool known =
        false; // false: it was changed so recently that its times may not show another change

    FileState() = default;
    FileState(const struct stat &status, const timespec &now);
    /// Whether a file looks like the one that was read, in the state in which it was read.
    [[nodiscard]] bool resembles(const struct stat &status) const;
    /// Whether it is sure to hold what was read.
    [[nodiscard]] bool stillHolds(const struct stat &status) const
    {
        return known && resembles(status);
    }
};

/// A file that was read: `front` bytes of room, then the text, in one block of malloc().
struct ReadFile {
    char *block = nullptr; // null: it could not be read; belongs to the caller
    size_t size = 0;       // bytes of the text
    FileState state;
};

/// Reads a regular file of at most kMaxText bytes.
ReadFile readFile(const char *path, size_t front);

/// Replaces a file, atomically and durably: it holds the old bytes or the new ones, whole, whatever
/// happens. Owner, mode and a symbolic link's target are kept; a new file has mode 0600. Writes
/// nothing when the file holds these bytes already.
/// @param read  the state in which the file was read
/// @param holds whether it held these bytes then
/// @return 0 or -1
int32_t replaceFile(const char *path, std::string_view bytes, const FileState &read, bool holds);

} // namespace oru
