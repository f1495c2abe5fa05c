// What a commit would do.
#pragma once

#include "request.hpp"

#include <optional>
#include <string>
#include <vector>

namespace oructl {

/// One consequence of a commit.
struct Step {
    std::string text;
    std::optional<int64_t> radio = {};
    std::optional<int64_t> bss = {};
    std::optional<int64_t> changes = {};
    std::optional<int64_t> stations = {}; ///< that are there now; none: not known
};

int runPlan(Request &request);

/// Shows the plan; the operands are somebody else's.
int showPlan(Request &request);

} // namespace oructl
