#include "support/sweep.hpp"

namespace oru::test {

std::ostream &operator<<(std::ostream &to, const SweepRow &row)
{
    return to << row.name;
}

GTEST_ALLOW_UNINSTANTIATED_PARAMETERIZED_TEST(FailureSweep);
GTEST_ALLOW_UNINSTANTIATED_PARAMETERIZED_TEST(StatusSweep);

namespace {

/// A status that says failure as well as -1 does; 0 where there is none.
int32_t otherStatus(const Step &step)
{
    const auto reads = [&](const char *call) { return step.call.starts_with(call); };
    if (step.onlyMinus1 || !reads("oruAsfDict") || reads("oruAsfDictGetString")) return 0;
    return reads("oruAsfDictGetDelimitedString") ? -7 : 7; // 7 would be a length
}

} // namespace

TEST_P(StatusSweep, AnyOtherStatusIsAFailureTooWhereNothingElseIsSaid)
{
    const SweepRow &row = GetParam();
    int n = 0;
    for (const Step &step : row.steps) {
        ++n;
        const int32_t status = otherStatus(step);
        if (status == 0) continue;
        SCOPED_TRACE(row.name + ", " + step.call);
        box.restore();
        standIn.reset();
        if (row.prepare) row.prepare(box, standIn);
        standIn.failAt(n, status);
        const bool handedOn = step.code == UINT32_MAX;
        EXPECT_EQ(row.operation(), handedOn ? static_cast<uint32_t>(status) : step.code);
        EXPECT_EQ(standIn.openDicts(), step.leftOpen);
        ASSERT_EQ(standIn.logs.empty(), step.log.empty());
        EXPECT_EQ(step.log.empty() ? "" : standIn.logs[0].text, step.log);
    }
}

TEST_P(FailureSweep, EachCallThatFailsGivesItsCodeOneLogLineAndLeavesNothingOpen)
{
    const SweepRow &row = GetParam();
    for (size_t n = 0; n <= row.steps.size(); ++n) {
        SCOPED_TRACE(row.name + ", failing call " + std::to_string(n + 1));
        box.restore();
        standIn.reset();
        if (row.prepare) row.prepare(box, standIn);
        const std::string before = box.everything();
        standIn.failAt(static_cast<int>(n) + 1);
        const uint32_t code = row.operation();

        if (n == row.steps.size()) {
            EXPECT_EQ(standIn.failed(), "") << "one more call can fail: "
                                            << (standIn.calls.empty() ? "" : standIn.calls.back());
            EXPECT_EQ(code, 0u);
            EXPECT_EQ(standIn.openDicts(), row.leftOpen);
        } else {
            const Step &step = row.steps[n];
            ASSERT_NE(standIn.failed(), "") << "expected to fail: " << step.call;
            const bool seen = std::find(standIn.calls.begin(), standIn.calls.end(), step.call) !=
                              standIn.calls.end();
            EXPECT_EQ(step.call.substr(0, step.call.find(' ')), standIn.failed());
            EXPECT_TRUE(seen) << "expected to fail: " << step.call;
            EXPECT_EQ(code, step.code);
            if (step.log.empty()) {
                EXPECT_NOTHING_LOGGED();
            } else if (!step.thenLog.empty()) {
                expectLogged(step.level, {step.log, step.thenLog}, __FILE__, __LINE__);
            } else {
                EXPECT_LOGGED_AT(step.level, step.log);
            }
            EXPECT_EQ(standIn.openDicts(), step.leftOpen);
            if (step.code != 0 && !step.writes) {
                EXPECT_EQ(box.everything(), before);
            }
        }
        EXPECT_EQ(standIn.openConnections(), 0);
        EXPECT_EQ(standIn.openElements(), 0);
        EXPECT_EQ(standIn.openSockets(), 0);
    }
}

} // namespace oru::test
