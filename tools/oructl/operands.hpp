// The operands of get and set, from words to a call.
#pragma once

#include "catalogue.hpp"
#include "secrets.hpp"

#include <span>
#include <string>
#include <string_view>

namespace oructl {

using Words = std::span<const char *const>;

/// Reads INDEX and, for a set, the values and options behind it. Secrets are read from their
/// source; without one they stand in the words themselves. Returns what is wrong, or an empty text;
/// of an item with a secret without any of the words, since one may be a misplaced secret.
std::string parseOperands(const Item &item, Use verb, Words words, Call &call,
                          SecretSource *secrets = nullptr);

/// A statement without what it quotes, which may be a misplaced secret.
std::string withoutQuotation(const std::string &problem);

/// Whether an item, or an entry of its lists, has a secret.
bool hasSecret(std::span<const Field> fields);

/// How a synopsis shows options: each by its name, or all as one word.
enum class Synopsis : uint8_t { Full, Brief };

/// What stands behind the item's name on a command line: "RADIO on|off".
std::string operandSynopsis(const Item &item, Use verb, Synopsis synopsis = Synopsis::Full);

/// How a field is called in messages, its value on a command line: "fragment", "VALUE".
std::string operandName(const Field &field);

/// The field that takes the next value behind `count` given ones; NULL when none does.
const Field *nextPositional(const Item &item, size_t count);

} // namespace oructl
