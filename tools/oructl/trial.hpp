// A commit on trial: unless it is confirmed in time, the configuration before comes back. All that
// is needed for that is kept durably before anything is committed, so that it also holds when
// oructl is killed or the power fails.
#pragma once

#include "snapshot.hpp"
#include "transaction.hpp"

#include <optional>
#include <string>

namespace oructl {

struct Trial {
    std::string token;
    std::string boot;     ///< of the machine, since which the clock of the deadline counts
    int64_t deadline = 0; ///< in ms
    Committed what = Committed::All;
};

/// A trial of this boot with a token of its own.
Trial newTrial(int64_t seconds, Committed what);

/// The trial that is under way. What can't be read of it is empty, and its time is over.
std::optional<Trial> pendingTrial();

/// 0 when the time is over, also because the machine was started anew.
int64_t msLeft(const Trial &trial);

/// Keeps the committed configuration and the trial. The lock is held.
bool beginTrial(const Trial &trial);

enum class Outcome : uint8_t { Confirmed, Reverted };

/// Ends the trial of this token, unless somebody else has done so meanwhile, which is no trouble.
/// A revert brings the configuration before back and commits it.
std::optional<Trouble> endTrial(const std::string &token, Outcome outcome, int64_t patienceMs);

/// Forgets a trial whose commit the library has refused. The lock is held.
bool dropTrial();

/// How the trial of this token has ended.
Outcome outcomeOf(const std::string &token);

/// Removes what a killed oructl has left of a trial. The lock is held.
void mendTrial();

} // namespace oructl
