// Candidates for the next word of a command line, for the completion of shells.
#pragma once

#include "operands.hpp"

#include <string>
#include <string_view>

namespace oructl {

/// Lines that stand for names that the shell knows: files, folders, files behind an '@'.
inline constexpr std::string_view kFiles = ":files";
inline constexpr std::string_view kFolders = ":folders";
inline constexpr std::string_view kAtFiles = ":@files";

/// One candidate a line, for the word behind those given.
std::string completions(Words words);

/// What the current word, the first one, may become behind the others: one candidate a line, with
/// its description behind a tab. Options are among them when the word begins as one, or when there
/// is nothing else.
std::string describedCompletions(Words words);

} // namespace oructl
