// What the exit status of the process says. Scripts branch on these numbers: they stay.
#pragma once

#include <cstdint>
#include <span>
#include <string_view>

namespace oructl {

enum ExitStatus : int {
    kDone = 0,
    kFailed = 1,
    kWrongUsage = 2,
    kTimedOut = 3,
    kNotTaken = 4,
    kConflict = 5,
    kIncomplete = 6,
    kFileFailed = 7,
    kNoPermission = 9,
    kNotFound = 10,
    kDifferent = 20
};

struct ExitMeaning {
    ExitStatus status;
    std::string_view meaning;
};

/// All of them, for help and the manual.
std::span<const ExitMeaning> exitMeanings();

/// The status that stands for a code that the library returned.
ExitStatus exitStatusOf(int64_t code);

} // namespace oructl
