// Candidates for the next word of a command line, for the completion of shells.
#pragma once

#include "operands.hpp"

#include <string>

namespace oructl {

/// One candidate a line, for the word behind those given.
std::string completions(Words words);

} // namespace oructl
