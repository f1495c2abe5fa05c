// Values as text: what a command line says, and what is shown.
#pragma once

#include "catalogue.hpp"

#include <string>
#include <string_view>

namespace oructl {

enum class Decimal : uint8_t { Good, NotANumber, TooLarge };

/// Reads a whole decimal number within 32 bits signed: digits, at most a minus sign before them.
Decimal parseDecimal(std::string_view text, int64_t &number);

/// Where the secrets of a list's entries stand.
enum class EntrySecrets : uint8_t { Within, Apart };

/// Reads an operand as a field's value. Returns what is wrong with it, or an empty text. Whether
/// the value is legal is for the library to say.
std::string parseValue(const Field &field, std::string_view text, Value &value,
                       EntrySecrets secrets = EntrySecrets::Within);

/// Reads pairs of hexadecimal digits as bytes, as parseValue() does.
std::string parseHex(std::string_view digits, Value &value);

/// Whether a value keeps the bounds of its field, words of a choice and entries of a list included.
bool isLegal(const Field &field, const Value &value);

/// The legal values of a field in words: "0 to 30 dB", "on or off".
std::string legalValues(const Field &field);

/// Whether output shows secrets.
enum class Secrets : bool { Masked, Shown };

/// What stands for a secret.
inline constexpr std::string_view kMask = "********";

/// A value as a get shows it: a word, a number, text in double quotes.
std::string shownValue(const Field &field, const Value &value, Secrets secrets = Secrets::Masked);

/// The word of a number, or an empty text.
std::string_view wordOf(const Field &field, int64_t number);

/// Bytes as pairs of lowercase hexadecimal digits.
std::string hexOf(std::string_view bytes);

bool isUtf8(std::string_view bytes);

/// Printable ASCII stays, everything else becomes an escape: safe for a terminal and one line.
std::string printable(std::string_view text);

/// Printable text in single quotes.
std::string quoted(std::string_view text);

/// "a, b or c".
std::string alternatives(const std::vector<std::string_view> &words);

} // namespace oructl
