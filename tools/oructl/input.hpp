// Files that a verb reads or writes as a whole.
#pragma once

#include "request.hpp"

#include <optional>
#include <string>

namespace oructl {

/// The text of the file that is the request's only operand, "-" for standard input; none after a
/// report, with the exit status.
std::optional<std::string> readOperandFile(Request &request, int &status);

/// The text of a file, or of standard input; none with the reason in errno.
std::optional<std::string> readInput(const char *path);

/// Writes a file anew; one that holds secrets is for its owner alone. False with the reason in
/// errno.
bool writeOutput(const char *path, const std::string &text, bool hasSecrets);

} // namespace oructl
