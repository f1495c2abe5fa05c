// Options of the command line, as rows: reading, help and completion follow from them.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

namespace oructl {

struct Request;

/// An option, of every command or of one verb.
struct Option {
    const char *name;  ///< without the dashes
    const char *value; ///< how its value is called; NULL: it stands alone
    std::string_view summary;
    std::string_view words = {}; ///< its legal values, where they are words, between blanks
};

/// Those of every command.
std::span<const Option> globalOptions();

/// An option as it was given.
struct GivenOption {
    const Option *option;
    const char *value; ///< NULL for one that stands alone
};

/// Reads options from words[1] up to the first operand, and sets `operand` to where that stands.
/// Returns what is wrong, or an empty text.
std::string parseOptions(int count, char **words, std::span<const Option> ofVerb, Request &request,
                         int &operand);

} // namespace oructl
