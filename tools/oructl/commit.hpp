// Commits, and what has become of them.
#pragma once

#include "request.hpp"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace oructl {

/// What is known of a service that was told.
enum class Reach : uint8_t {
    Untold, ///< by this commit
    Away,
    Listens, ///< takes connections; more can't be known of AA
    Silent,  ///< takes connections, but does not answer
    Answers
};

struct CommitReport {
    std::string_view what; ///< "radio" or "all"
    Reach wsm = Reach::Away;
    Reach aa = Reach::Untold;
    std::optional<bool> onAir = {};        ///< none: nobody says
    std::vector<std::string> missing = {}; ///< from the air, a sentence each
    std::optional<std::string> token = {}; ///< of a trial
    std::optional<int64_t> trialSeconds = {};
};

extern const Option kCommitOptions[3];

int runCommit(Request &request);
int runConfirm(Request &request);
int runRevert(Request &request);
int runGuard(Request &request);

} // namespace oructl
