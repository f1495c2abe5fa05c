// What a person at a terminal sees and is asked. A script sees none of it.
#pragma once

#include "request.hpp"

#include <string>

namespace oructl {

/// A line of progress that replaces the one before it; without `what` it goes.
void showProgress(const Request &request, const char *what, int64_t seconds);

/// Whether a change that is hard to take back may be made. Asks where standard input and standard
/// error are terminals, unless --yes was given or nothing will be stored.
bool isAllowed(const Request &request, const std::string &question);

} // namespace oructl
