// Lets each call of an operation into the support library fail in turn.
#pragma once

#include "support/accesspoint.hpp"

#include <functional>
#include <ostream>
#include <string>
#include <vector>

namespace oru::test {

/// What an operation does when one call fails.
struct Step {
    std::string call; // the call, with its key or path as StandIn::calls shows it
    uint32_t code;    // 0: the operation goes on
    std::string log;  // the one log line; empty: none
    int32_t level = 3;
    bool writes = false;      // files may have changed by then
    int leftOpen = 0;         // dictionaries that stay open on purpose
    std::string thenLog = {}; // a second log line; empty: none
    bool onlyMinus1 = false;  // another status than -1 is no failure
};

/// An operation whose calls all pass on the prepared access point.
struct SweepRow {
    std::string name;
    std::function<void(AccessPoint &, StandIn &)> prepare; // may be null
    std::function<uint32_t()> operation;
    std::vector<Step> steps; // every call that can fail, in order
    int leftOpen = 0;        // dictionaries that a success leaves open on purpose
};

std::ostream &operator<<(std::ostream &to, const SweepRow &row);

/// Instantiate with rows: INSTANTIATE_TEST_SUITE_P(Room, FailureSweep, ValuesIn(rows), rowName);
class FailureSweep : public AccessPointTest, public ::testing::WithParamInterface<SweepRow> {
protected:
    void TearDown() override {} // the sweep looks at the handles itself, after each call
};

/// For the same rows: a status other than -1 is a failure too.
class StatusSweep : public FailureSweep {};

inline std::string rowName(const ::testing::TestParamInfo<SweepRow> &info)
{
    return info.param.name;
}

} // namespace oru::test
