// Reads what "export" and "get --json" have written. docs/oructl-json.md describes the objects.
#pragma once

#include "request.hpp"
#include "wanted.hpp"

#include <string>
#include <vector>

namespace oructl {

/// The items of a file: objects one a line, or one array of them. What is wrong is added to the
/// problems, with the place where it stands.
std::vector<Wanted> parseExport(const std::string &text, std::vector<Problem> &problems);

} // namespace oructl
