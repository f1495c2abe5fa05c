// Views of what the getters of many items say of one index or of several.
#pragma once

#include "show.hpp"

namespace oructl {

/// Asks the parts' getters of each index. Yields the first code when nothing could be read.
uint32_t readParts(std::span<const Part> parts, Bounds indexes, Answer &answer);

/// A table of several indexes; of a single one all its items under their headings. Behind an item
/// that could not be read stands why.
std::string textReadings(const View &view, const Answer &answer, Secrets secrets);

/// Values alone: a line for each index, all fields of all items; empty for what wasn't read.
std::string terseReadings(const Answer &answer, Secrets secrets);

/// The items as fields with their names, to choose among.
std::vector<Field> itemNames(std::span<const Part> parts);

/// Keeps the parts at these places, in this order; each has a column then.
std::vector<Part> chooseParts(std::span<const Part> parts, const std::vector<size_t> &places,
                              Answer &answer);

} // namespace oructl
