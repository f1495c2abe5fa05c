// Whole files: read one, replace one.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <sys/stat.h>

namespace oru {

/// Which file, in which state. Two equal ones mean that the bytes are the same.
struct FileState {
    dev_t device = 0;
    ino_t inode = 0;
    off_t size = -1;
    timespec modified{};
    timespec changed{};

    FileState() = default;
    explicit FileState(const struct stat &from);
    bool operator==(const FileState &other) const;
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
/// nothing when the file holds these bytes already; `unchanged` is a state in which it is known to,
/// null when none is known.
/// @return 0 or -1
int32_t replaceFile(const char *path, std::string_view bytes, const FileState *unchanged);

} // namespace oru
