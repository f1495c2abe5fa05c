// Names that are meant by mistyped ones.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace oructl {

/// Single-letter insertions, deletions and replacements between two texts.
size_t editDistance(std::string_view one, std::string_view other);

/// The candidates that are nearest to what was typed, at most three, the nearest first; none when
/// all are far from it.
std::vector<std::string_view> nearest(std::string_view typed,
                                      const std::vector<std::string_view> &candidates);

/// "; did you mean one or other?", or an empty text when all are far from it.
std::string didYouMean(std::string_view typed, const std::vector<std::string_view> &candidates);

} // namespace oructl
