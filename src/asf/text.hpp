// The syntax of a configuration file, one setting a line: key=value or key="delimited value".
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace oru {

/// Longest configuration text.
constexpr size_t kMaxText = size_t{4} * 1024 * 1024;

/// Bytes that must be readable in front of a text; the one right before it is a line feed, so that
/// the first line starts like every other.
constexpr size_t kFrontRoom = 16;

/// Whether a key can stand at the start of a line and be found again.
bool isKey(std::string_view key);

/// The key of a line, empty when the line is no setting.
std::string_view keyOfLine(std::string_view line);

/// The last line that sets key (without its line feed), or one with a null data() when there is
/// none. The text must have kFrontRoom in front of it.
std::string_view findLastLine(std::string_view text, std::string_view key);

/// How a value stands in the file.
enum class Form { bare, delimited };

/// The form that reads back the same: bare where that is possible.
Form plainForm(std::string_view value);

/// Bytes that a value takes in a form.
size_t writtenSize(std::string_view value, Form form);

/// Writes a value in a form and returns the end.
char *writeValue(char *at, std::string_view value, Form form);

/// The length of a written value once it is read; -1 when its delimited form is damaged.
ptrdiff_t readSize(std::string_view written);

/// Reads a written value that readSize() accepted, and returns the end.
char *readValue(char *at, std::string_view written);

} // namespace oru
