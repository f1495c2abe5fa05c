// Return codes in words.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace oructl {

constexpr int64_t kLastCode = 122;

/// The status -1 of the support library, which two getters give instead of a return code.
constexpr int64_t kLibraryFailed = 0xffffffff;

/// Whether an operation can return this code, as far as the interface names codes.
bool isCode(int64_t code);

/// The table's message of a code as it stands; empty for codes behind the table.
std::string_view tableMessage(int64_t code);

/// The message on one line. For codes without one, what they mean.
std::string messageLine(int64_t code);

/// What a code really means: the message, but for the codes whose message says something else.
std::string codeMeaning(int64_t code);

} // namespace oructl
