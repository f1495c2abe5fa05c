// Whole files: read one, replace one.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace oru {

/// A file that was read: `front` bytes of room, then the text, in one block of malloc().
struct ReadFile {
    char *block = nullptr; // null: it could not be read; belongs to the caller
    size_t size = 0;       // bytes of the text
};

/// Reads a regular file of at most kMaxText bytes.
ReadFile readFile(const char *path, size_t front);

/// Replaces a file, atomically and durably: it holds the old bytes or the new ones, whole, whatever
/// happens. Owner, mode and a symbolic link's target are kept; a new file has mode 0600. Writes
/// nothing when the file holds these bytes already.
/// @return 0 or -1
int32_t replaceFile(const char *path, std::string_view bytes);

} // namespace oru
