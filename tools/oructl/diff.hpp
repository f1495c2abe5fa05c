// The verb "diff".
#pragma once

#include "capture.hpp"
#include "request.hpp"

namespace oructl {

inline constexpr Option kDiffOptions[] = {
    {"factory", nullptr, "compares with the factory's files instead of the last commit"},
    {"against", "FILE", "compares with what was exported into FILE"},
};

int runDiff(Request &request);

/// The differences in the form that the request asks for. Secrets are never shown.
std::string shownDifferences(const Request &request, const Differences &differences);

} // namespace oructl
