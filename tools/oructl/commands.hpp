// The commands, one source file a family.
#pragma once

#include "command.hpp"

namespace oructl {

std::span<const Command> controlCommands();
std::span<const Command> wpsCommands();
std::span<const Command> statisticsCommands();

} // namespace oructl
