// Texts that somebody might give to break what handles them.
#pragma once

#include <cstdlib>
#include <string>
#include <vector>

namespace oru::test {

/// All of them, 200 and more. Some have NUL bytes inside: a C text ends there.
const std::vector<std::string> &hostileTexts();

/// All, or every n-th one where a sample will do.
std::vector<std::string> sampledTexts(size_t n);

/// Whether a program that shows a text to a terminal may put out these bytes: UTF-8 without control
/// characters but line feeds.
bool isHarmlessOutput(const std::string &text);

} // namespace oru::test
