// Log lines whose write fails.
#include "oruAsf.h"
#include "support/faults.hpp"
#include "support/tempdir.hpp"

#include <gtest/gtest.h>

#include <algorithm>
#include <cerrno>
#include <string>

using namespace oru::test;

namespace {

struct LogFault : ::testing::Test {
    LogFault() { ::setenv("ORU_LOG", ("file:" + box.at("/log")).c_str(), 1); }
    ~LogFault() override { ::unsetenv("ORU_LOG"); }

    /// Logs one line, whose first write fails; how many there are.
    static long writesOfOneLine(int error)
    {
        Faults::arm(Faults::Kind::fail, 1, error, "write");
        errno = 4711;
        oruAsfLogMsg(3, "source", 42, 0, "number %d", 7);
        EXPECT_EQ(errno, 4711);
        const auto calls = Faults::disarm();
        EXPECT_TRUE(Faults::struck());
        return std::count(calls.begin(), calls.end(), "write");
    }

    TempDir box;
};

} // namespace

TEST_F(LogFault, ThatIsAnInterruptionIsNone)
{
    EXPECT_EQ(writesOfOneLine(EINTR), 2);
    EXPECT_EQ(box.read("/log"), "source:42: error: number 7\n");
}

TEST_F(LogFault, DropsTheLineAndHarmsNobody)
{
    EXPECT_EQ(writesOfOneLine(ENOSPC), 1);
    EXPECT_EQ(box.read("/log"), "");
}
