// The verb "batch".
#pragma once

#include "request.hpp"

#include <string>
#include <string_view>
#include <vector>

namespace oructl {

int runBatch(Request &request);

/// The words of a line, as a shell would part them: quotes and backslashes keep blanks, and a "#"
/// at the beginning of a word starts a comment. Returns what is wrong, or an empty text.
std::string parseLine(std::string_view line, std::vector<std::string> &words);

} // namespace oructl
