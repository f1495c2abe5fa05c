// Text of somebody else on a terminal: what is shown as it is, and how wide that is.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace oructl {

/// What a terminal can show besides ASCII.
enum class Charset : uint8_t { Ascii, Utf8 };

/// As the environment's locale says.
Charset charsetOfEnvironment();

/// In double quotes. Printable letters stay, everything else becomes an escape, quotes and
/// backslashes too: no text moves a cursor, changes colours or reverses a line.
std::string quotedText(std::string_view text, Charset charset);

/// Bytes of a text's first character; 0 when they are no UTF-8, or make a control character.
size_t harmlessSize(std::string_view text);

/// Columns of a terminal that a text without control characters takes.
size_t displayWidth(std::string_view text);

/// The beginning that fits a number of columns.
std::string_view cutToWidth(std::string_view text, size_t columns);

} // namespace oructl
