// Which file was read, in which state, and what a save makes of it.
#include "asf/file.hpp"

#include "support/tempdir.hpp"

#include <gtest/gtest.h>

#include <climits>
#include <cstdint>
#include <string>
#include <sys/time.h>

using oru::FileState;
using oru::test::TempDir;
using std::string;

namespace {

time_t later = 0; // seconds that the clock is ahead
int syncs = 0;

} // namespace

extern "C" int clock_gettime(clockid_t, timespec *now) noexcept
{
    timeval wall{};
    ::gettimeofday(&wall, nullptr);
    *now = {wall.tv_sec + later, static_cast<long>(wall.tv_usec) * 1000};
    return 0;
}

extern "C" int fsync(int)
{
    return ++syncs, 0;
}

namespace {

timespec timeAt(int64_t ns)
{
    constexpr int64_t kSecond = 1'000'000'000;
    const int64_t all = 1'000'000 * kSecond + ns;
    return {all / kSecond, static_cast<long>(all % kSecond)};
}

struct stat statusAt(int64_t ns)
{
    struct stat status {};
    status.st_dev = 1;
    status.st_ino = 2;
    status.st_size = 3;
    status.st_ctim = timeAt(ns);
    return status;
}

} // namespace

TEST(FileState, CountsOfAFileThatHadBeenAtRest)
{
    constexpr int64_t kMs = 1'000'000;
    const struct {
        int64_t changed;
        int64_t readAfter;
        bool holds;
        const char *reason;
    } rows[] = {
        {0, 0, false, "within the tick of its change"},
        {0, 10 * kMs, false, "at the next tick of a slow clock"},
        {0, 50 * kMs, false, "at the limit"},
        {0, 51 * kMs, true, "behind it"},
        {970 * kMs, 40 * kMs, false, "short of the limit, in the next second"},
        {970 * kMs, 60 * kMs, true, "behind the limit, in the next second"},
        {0, 3'600'000 * kMs, true, "much later"},
        {0, -500 * kMs, false, "before its change, by a clock that was set back"},
        {0, -3'600'000 * kMs, false, "long before its change"},
    };
    for (const auto &row : rows) {
        const struct stat status = statusAt(row.changed);
        const FileState state{status, timeAt(row.changed + row.readAfter)};
        EXPECT_TRUE(state.resembles(status)) << row.reason;
        EXPECT_EQ(state.stillHolds(status), row.holds) << row.reason;
    }
}

TEST(FileState, IsThatOfOneFileUntilItChanges)
{
    const struct stat status = statusAt(0);
    const FileState state{status, timeAt(5'000'000'000)};
    EXPECT_TRUE(state.stillHolds(status));
    struct stat other = status;
    other.st_dev = 9;
    EXPECT_FALSE(state.stillHolds(other)) << "another disk";
    other = status;
    other.st_ino = 9;
    EXPECT_FALSE(state.stillHolds(other)) << "another file";
    other = status;
    other.st_size = 9;
    EXPECT_FALSE(state.stillHolds(other)) << "another size";
    EXPECT_FALSE(state.stillHolds(statusAt(1))) << "a nanosecond later";
    EXPECT_FALSE(state.stillHolds(statusAt(1'000'000'000))) << "a second later";
    EXPECT_FALSE(FileState{}.stillHolds(status)) << "no file";
}

TEST(ReplaceFile, DoesNotEvenReadAFileThatIsAsItWasAndHeldTheBytes)
{
    const TempDir box;
    const string path = box.at("/config");
    box.write("/config", "old");
    struct stat status {};
    ASSERT_EQ(::stat(path.c_str(), &status), 0);
    const FileState atRest{status, {int64_t{1} << 33, 0}};
    const FileState fresh{status, {}};
    // That the bytes are others shows whether somebody looked.
    EXPECT_EQ(oru::replaceFile(path.c_str(), "other", atRest, true), 0);
    EXPECT_EQ(box.read("/config"), "old");
    EXPECT_EQ(oru::replaceFile(path.c_str(), "other", fresh, true), 0);
    EXPECT_EQ(box.read("/config"), "other");
    EXPECT_EQ(oru::replaceFile(path.c_str(), "third", atRest, true), 0) << "no longer as it was";
    EXPECT_EQ(box.read("/config"), "third");
}

TEST(ReplaceFile, MakesWhatStandsThereDurableUnlessItHasStoodForLong)
{
    const TempDir box;
    box.write("/config", "text");
    const struct {
        time_t later;
        int syncs; // the file and its folder
    } rows[] = {{0, 2}, {80, 2}, {100, 0}, {-100, 2}};
    for (const auto &row : rows) {
        later = row.later;
        syncs = 0;
        EXPECT_EQ(oru::replaceFile(box.at("/config").c_str(), "text", {}, false), 0);
        EXPECT_EQ(syncs, row.syncs) << row.later;
    }
    later = 0;
}

TEST(ReplaceFile, IsRefusedForNoPathOrOneThatIsTooLong)
{
    for (const string &path : {string{}, string(3 * PATH_MAX, 'x')})
        EXPECT_EQ(oru::replaceFile(path.c_str(), "text", {}, false), -1) << path.size();
}
