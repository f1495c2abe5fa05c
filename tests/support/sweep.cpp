#include "support/sweep.hpp"

namespace oru::test {

std::ostream &operator<<(std::ostream &to, const SweepRow &row)
{
    return to << row.name;
}

GTEST_ALLOW_UNINSTANTIATED_PARAMETERIZED_TEST(FailureSweep);

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

GTEST_ALLOW_UNINSTANTIATED_PARAMETERIZED_TEST(StatusSweep);

TEST_P(StatusSweep, AnyStatusOfADictionaryBut0IsAFailure)
{
    constexpr int32_t kStatus = 7;
    const SweepRow &row = GetParam();
    for (size_t n = 0; n < row.steps.size(); ++n) {
        const Step &step = row.steps[n];
        // A read of a text gives a length, or 0 for an absent one.
        const bool text = step.call.starts_with("oruAsfDictGetString") ||
                          step.call.starts_with("oruAsfDictGetDelimitedString");
        if (!step.call.starts_with("oruAsfDict") || text || step.minusOneAlone) continue;
        SCOPED_TRACE(row.name + ", " + step.call);
        box.restore();
        standIn.reset();
        if (row.prepare) row.prepare(box, standIn);
        standIn.failAt(static_cast<int>(n) + 1, kStatus);
        const uint32_t code = row.operation();
        EXPECT_EQ(code, step.code == UINT32_MAX ? kStatus : step.code); // some hand it on
        EXPECT_EQ(standIn.logTexts().empty(), step.log.empty());
        EXPECT_EQ(standIn.openDicts(), step.leftOpen);
    }
}

} // namespace oru::test
