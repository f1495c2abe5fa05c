// Several savers of one file, and its readers.
#include "asf/saving.hpp"
#include "asf/smalldisk.hpp"
#include "support/faults.hpp"

#include <algorithm>
#include <cerrno>
#include <climits>
#include <csignal>
#include <cstring>
#include <fcntl.h>
#include <functional>
#include <memory>
#include <random>
#include <string>
#include <sys/file.h>
#include <sys/mount.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/time.h>
#include <sys/wait.h>
#include <vector>

using namespace oru::test;
using std::string;
using ::testing::AnyOf;
using ::testing::ElementsAre;

TEST_F(SaveTogether, WaitsItsTurnOverWhateverHappensToItsTemporaryFileMeanwhile)
{
    const string temporary = box.at(kLeftOver);
    const string file = box.at(kFile);
    const struct {
        const char *reason;
        std::function<void()> happens;
    } rows[] = {
        {"another saver gave it its place",
         [&] { EXPECT_EQ(::rename(temporary.c_str(), file.c_str()), 0); }},
        {"somebody removed it", [&] { EXPECT_EQ(::unlink(temporary.c_str()), 0); }},
        {"another saver began a new one",
         [&] {
             // The old one keeps a name, so that the new one gets another number.
             EXPECT_EQ(::rename(temporary.c_str(), file.c_str()), 0);
             std::ofstream{temporary};
             EXPECT_EQ(::chmod(temporary.c_str(), 0600), 0);
         }},
    };
    for (const auto &row : rows) {
        box.write(kFile, kOld);
        OruAsfDict *dict = nullptr;
        ASSERT_EQ(oruAsfDictCreate(&dict, kFile), 0);
        ASSERT_EQ(oruAsfDictSetString(dict, "key", "new value"), 0);
        Faults::arm(Faults::Kind::pass, 1, 0, "flock");
        Faults::meanwhile(row.happens);
        EXPECT_EQ(oruAsfDictSave(dict, kFile), 0) << row.reason;
        const auto calls = Faults::disarm();
        EXPECT_EQ(std::count(calls.begin(), calls.end(), "flock"), 2) << row.reason;
        oruAsfDictFree(dict);
        EXPECT_EQ(box.read(kFile), kNew) << row.reason;
        EXPECT_THAT(box.names(), ElementsAre("config")) << row.reason;
    }
}

TEST_F(SaveTogether, IsRefusedWhenItsTemporaryFileIsTakenAwayRightBeforeItsEnd)
{
    // The last look at the name is the fourth of this save: target, turn, owner, name.
    Faults::arm();
    ASSERT_EQ(saveValue("first"), 0);
    const auto calls = Faults::disarm();
    const auto looks = static_cast<int>(std::count(calls.begin(), calls.end(), "fstatat"));
    box.write(kFile, kOld);
    Faults::arm(Faults::Kind::pass, looks, 0, "fstatat");
    Faults::meanwhile([&] { EXPECT_EQ(::unlink(box.at(kLeftOver).c_str()), 0); });
    EXPECT_EQ(saveValue("new value"), 1);
    Faults::disarm();
    expectUntouched();
}

TEST_F(SaveTogether, WithOneWhoCutsTheFileReadsWhatIsLeft)
{
    Faults::arm(Faults::Kind::pass, 1, 0, "read");
    Faults::meanwhile([&] { EXPECT_EQ(::truncate(box.at(kFile).c_str(), 15), 0); });
    OruAsfDict *dict = nullptr;
    ASSERT_EQ(oruAsfDictCreate(&dict, kFile), 0);
    Faults::disarm();
    EXPECT_TRUE(Faults::struck());
    const char *value = nullptr;
    EXPECT_EQ(oruAsfDictGetString(dict, "key", &value, 0), 0);
    EXPECT_EQ(value, nullptr);
    ASSERT_EQ(oruAsfDictSetString(dict, "key", "new value"), 0);
    EXPECT_EQ(oruAsfDictSave(dict, kFile), 0);
    EXPECT_EQ(box.read(kFile), kNew);
    oruAsfDictFree(dict);
}

TEST_F(SaveTogether, WithOneWhoAddsToTheFileWhileItIsComparedWritesItWhole)
{
    OruAsfDict *dict = nullptr;
    ASSERT_EQ(oruAsfDictCreate(&dict, kFile), 0);
    Faults::arm(Faults::Kind::pass, 1, 0, "open");
    Faults::meanwhile([&] { std::ofstream{box.at(kFile), std::ios::app} << "more=1\n"; });
    EXPECT_EQ(oruAsfDictSave(dict, kFile), 0);
    Faults::disarm();
    EXPECT_TRUE(Faults::struck());
    oruAsfDictFree(dict);
    expectUntouched();
}

TEST_F(SaveTogether, WithOthersSucceedsForEach)
{
    constexpr int kSavers = 8;
    std::vector<pid_t> savers;
    for (int saver = 0; saver < kSavers; ++saver)
        savers.push_back(startChild([&] {
            for (int i = 0; i < 100; ++i)
                if (saveValue(string(static_cast<size_t>(1 + 1000 * saver),
                                     static_cast<char>('a' + saver))) != 0)
                    return 1;
            return 0;
        }));
    for (const pid_t saver : savers) EXPECT_EQ(waitForChild(saver), 0);

    const string text = box.read(kFile);
    bool whole = false;
    for (int saver = 0; saver < kSavers; ++saver)
        whole |= text ==
                 "# the old text\nkey=" +
                     string(static_cast<size_t>(1 + 1000 * saver), static_cast<char>('a' + saver)) +
                     "\n";
    EXPECT_TRUE(whole);
    EXPECT_THAT(box.names(), ElementsAre("config"));
}

TEST_F(SaveTogether, WithOneWhoseLockAForkedChildStillHoldsDoesNotWaitForTheChild)
{
    // A program saves, forks in the middle of it, and goes on; its child keeps what was open.
    const int lock = ::open(box.at(kLeftOver).c_str(), O_WRONLY | O_CREAT | O_CLOEXEC, 0600);
    ASSERT_EQ(::flock(lock, LOCK_EX), 0);
    const pid_t child = startChild([] { return ::pause(); });
    const pid_t saver = startChild([] { return saveValue("new value"); });
    ::usleep(50'000); // the saver waits for its turn
    ASSERT_EQ(::rename(box.at(kLeftOver).c_str(), box.at(kFile).c_str()), 0);
    ::close(lock);
    EXPECT_EQ(waitForChild(saver), 0);
    EXPECT_EQ(box.read(kFile), "# the old text\nkey=new value\n");
    ::kill(child, SIGKILL);
    ::waitpid(child, nullptr, 0);
}

TEST_F(SaveTogether, WithOthersHasTheTemporaryFileForItselfWhileItWrites)
{
    // A file that gets too large for the user raises a signal within the write.
    static string temporary;
    static bool alone;
    temporary = box.at(kLeftOver);
    EXPECT_EQ(inChild([] {
                  ::signal(SIGXFSZ, [](int) {
                      const int other = ::open(temporary.c_str(), O_RDONLY | O_CLOEXEC);
                      alone = ::flock(other, LOCK_SH | LOCK_NB) != 0 && errno == EWOULDBLOCK;
                      ::close(other);
                  });
                  const rlimit limit{4096, 4096};
                  if (::setrlimit(RLIMIT_FSIZE, &limit) != 0) return kNotHere;
                  if (saveValue(string(5000, 'x')) != 1) return 1;
                  return alone ? 0 : 2;
              }),
              0);
    expectUntouched();
}

TEST_F(SaveTogether, OfRootAndTheFilesOwnUserSucceedsForBoth)
{
    if (::geteuid() != 0) GTEST_SKIP() << "needs root and another user";
    giveTo(kPlainUser);
    std::vector<pid_t> savers;
    for (int saver = 0; saver < 6; ++saver)
        savers.push_back(startChild([&] {
            if (saver % 2 == 0 && !becomePlainUser()) return 254;
            for (int i = 0; i < 100; ++i)
                if (saveValue(string(static_cast<size_t>(1 + 1000 * saver), 'x')) != 0) return 1;
            return 0;
        }));
    for (const pid_t saver : savers) EXPECT_EQ(waitForChild(saver), 0);
    EXPECT_EQ(status().st_uid, kPlainUser);
    EXPECT_THAT(box.names(), ElementsAre("config"));
}

TEST_F(SaveTogether, WithAReaderShowsItTheOldFileOrTheNewOneWhole)
{
    const string values[] = {string(10, 'a'), string(9000, 'b')};
    ASSERT_EQ(saveValue(values[0]), 0);
    const pid_t writer = startChild([&] {
        for (int i = 0;; ++i)
            if (saveValue(values[i % 2]) != 0) return 1;
    });
    int seen[2] = {0, 0};
    const int loads = std::getenv("ORU_TORTURE") != nullptr ? 1'000'000 : 20'000;
    for (int i = 0; i < loads; ++i) {
        OruAsfDict *dict = nullptr;
        const char *value = nullptr;
        ASSERT_EQ(oruAsfDictCreate(&dict, kFile), 0);
        ASSERT_EQ(oruAsfDictGetString(dict, "key", &value, 0), 0);
        ASSERT_NE(value, nullptr);
        ASSERT_TRUE(value == values[0] || value == values[1]) << value;
        ++seen[value == values[1] ? 1 : 0];
        oruAsfDictFree(dict);
    }
    ::kill(writer, SIGKILL);
    EXPECT_EQ(waitForChild(writer), 1000 + SIGKILL) << "the writer failed";
    EXPECT_GT(seen[0], 0);
    EXPECT_GT(seen[1], 0);
    std::printf("torture: loads beside a saver: %d loads, %d of one text, %d of the other\n", loads,
                seen[0], seen[1]);
}
