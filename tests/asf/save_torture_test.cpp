// Saves that end early, at every place where they can. ORU_TORTURE=1 visits them all.
#include "asf/smalldisk.hpp"
#include "oruAsf.h"
#include "support/trace.hpp"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <csignal>
#include <cstdio>
#include <fcntl.h>
#include <memory>
#include <string>
#include <sys/resource.h>

using namespace oru::test;
using std::string;
using ::testing::AnyOf;
using ::testing::ElementsAre;

namespace {

constexpr const char *kFile = "/config";

int saveValue(const string &value, const char *path = kFile)
{
    OruAsfDict *dict = nullptr;
    if (oruAsfDictCreate(&dict, path) != 0) return 2;
    const std::unique_ptr<OruAsfDict, void (*)(OruAsfDict *)> owner{dict, oruAsfDictFree};
    if (oruAsfDictSetString(dict, "key", value.c_str()) != 0) return 3;
    return oruAsfDictSave(dict, path) == 0 ? 0 : 1;
}

size_t stride(size_t usual)
{
    return std::getenv("ORU_TORTURE") != nullptr ? 1 : usual;
}

string textOf(const string &value)
{
    return "# a text\nkey=" + value + "\n";
}

class SaveTorture : public ::testing::Test {
protected:
    SaveTorture() { box.write(kFile, textOf("old")); }

    /// Whether the folder holds one whole text and nothing else, in a child.
    [[nodiscard]] bool holdsAlone(const string &folder, const string &text) const
    {
        return box.read(folder + kFile) == text && box.names(folder).size() == 1;
    }

    TempDir box;
};

/// Fills the disk up to what is left of `pages`.
bool leavePages(const TempDir &box, size_t pages)
{
    const string path = box.at("/disk/filler");
    const int file = ::open(path.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0600);
    const string page(4096, 'x');
    off_t size = 0;
    while (::write(file, page.data(), page.size()) == 4096) size += 4096;
    const bool left = ::ftruncate(file, size - static_cast<off_t>(pages * 4096)) == 0;
    ::close(file);
    return left;
}

} // namespace

TEST_F(SaveTorture, KilledAtAnySystemCallLeavesAWholeFileAndAtMostOneTemporaryFile)
{
    if (!tracesProcesses()) GTEST_SKIP() << "this machine traces no processes";
    const string longValue(5000, 'n');
    size_t stops = 0;
    size_t runs = 0;
    size_t leftOvers = 0;
    size_t newFiles = 0;
    for (const string &value : {string("new"), longValue}) {
        auto killed = KilledAt::Stop;
        for (size_t stop = 1; killed == KilledAt::Stop; stop += stride(2), ++runs) {
            ASSERT_EQ(saveValue("old"), 0);
            killed = runAndKill([&] { saveValue(value); }, stop);
            const string text = box.read(kFile);
            ASSERT_TRUE(text == textOf("old") || text == textOf(value)) << stop << ": " << text;
            ASSERT_THAT(box.names(),
                        AnyOf(ElementsAre("config"), ElementsAre(".config.new", "config")));
            leftOvers += box.names().size() - 1;
            newFiles += text == textOf(value) ? 1 : 0;
            ASSERT_EQ(saveValue("the next"), 0) << stop;
            ASSERT_EQ(box.read(kFile), textOf("the next"));
            ASSERT_THAT(box.names(), ElementsAre("config")) << stop;
            stops = stop;
        }
    }
    EXPECT_GT(stops, 20u);
    EXPECT_GT(leftOvers, 0u);
    EXPECT_GT(newFiles, 1u);
    std::printf(
        "torture: saves killed at a system call: %zu kills, %zu left-overs, %zu new files\n",
        runs - 2, leftOvers, newFiles - 2);
}

TEST_F(SaveTorture, CutAtAnyByteLeavesTheOldFileAlone)
{
    const size_t whole = textOf(string(6000, 'n')).size();
    const int result = inChild([&] {
        ::signal(SIGXFSZ, SIG_IGN);
        for (size_t size = 0; size < whole; size += stride(7)) {
            const rlimit limit{size, RLIM_INFINITY};
            const rlimit none{RLIM_INFINITY, RLIM_INFINITY};
            if (::setrlimit(RLIMIT_FSIZE, &limit) != 0) return kNotHere;
            const int saved = saveValue(string(6000, 'n'));
            ::setrlimit(RLIMIT_FSIZE, &none);
            if (saved != 1) return 1;
            if (!holdsAlone("", textOf("old"))) return 2;
        }
        const rlimit enough{whole, RLIM_INFINITY};
        ::setrlimit(RLIMIT_FSIZE, &enough);
        const int saved = saveValue(string(6000, 'n'));
        const rlimit none{RLIM_INFINITY, RLIM_INFINITY};
        ::setrlimit(RLIMIT_FSIZE, &none);
        return saved == 0 ? 0 : 3;
    });
    if (result == kNotHere) GTEST_SKIP() << "this machine limits no sizes of files";
    EXPECT_EQ(result, 0);
    EXPECT_EQ(box.read(kFile), textOf(string(6000, 'n')));
    std::printf("torture: saves cut at a byte: %zu bytes\n", (whole - 1) / stride(7) + 1);
}

TEST_F(SaveTorture, OnADiskWithAnyRoomLeftIsWholeOrLeavesTheOldFileAlone)
{
    constexpr size_t kMost = 8;
    const int result = onSmallDisk(box, [&] {
        for (size_t left = 0; left <= kMost; ++left)
            for (size_t bytes = 4096; bytes <= kMost * 4096;
                 bytes += bytes % 4096 == 1 ? 4095 : 1) {
                const size_t needed = (bytes + 4095) / 4096; // just full, or of one byte
                const string value(bytes - textOf("").size(), 'n');
                box.write("/disk/config", textOf("old"));
                if (!leavePages(box, left)) return kNotHere;
                const int saved = saveValue(value, "/disk/config");
                ::unlink(box.at("/disk/filler").c_str());
                if (saved != (needed <= left ? 0 : 1)) return 1;
                if (!holdsAlone("/disk", textOf(saved == 0 ? value : "old"))) return 2;
            }
        return 0;
    });
    if (result == kNotHere) GTEST_SKIP() << "this machine mounts no file system for the tests";
    EXPECT_EQ(result, 0);
    std::printf("torture: saves on a full disk: %zu saves\n", (kMost + 1) * (2 * kMost - 1));
}
