// Small help with texts.
#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace orusim {

using Bytes = std::vector<uint8_t>;
using Address = std::array<uint8_t, 6>; // a MAC address

/// Takes one line, without a line feed.
using Log = std::function<void(std::string_view)>;

/// As printf, into a text.
[[gnu::format(printf, 1, 2)]] std::string format(const char *format, ...);

/// The text in one line: control and non-ASCII bytes, and backslashes, as \xHH; in quotes when it
/// is empty, or has blanks or quotes.
std::string printable(std::string_view text);

/// Lower-case pairs joined by colons.
std::string hex(std::span<const uint8_t> bytes);

/// A whole decimal number without a sign.
std::optional<uint32_t> toNumber(std::string_view text);

/// Six pairs of hexadecimal digits joined by colons.
std::optional<Address> toAddress(std::string_view text);

/// The words between blanks.
std::vector<std::string_view> words(std::string_view text);

/// An absolute path below ORU_ROOT, when the environment names one, as oruAsf finds its files.
std::string rooted(std::string_view path);

} // namespace orusim
