// Disks that are full, at every byte and at every block: a save says so, leaves the old file alone
// and nothing beside it, and works when there is room again. ORU_TORTURE=1 visits them all.
#include "oruAsf.h"
#include "oruSdk.h"
#include "power/disk.hpp"
#include "support/faults.hpp"
#include "support/tempdir.hpp"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdio>
#include <fcntl.h>
#include <memory>
#include <string>

using namespace oru::test;
using std::string;
using ::testing::ElementsAre;

namespace {

constexpr const char *kFile = "/var/wsmDefaults";

size_t stride(size_t usual)
{
    return std::getenv("ORU_TORTURE") != nullptr ? 1 : usual;
}

int32_t saveValue(const string &value)
{
    OruAsfDict *dict = nullptr;
    EXPECT_EQ(oruAsfDictCreate(&dict, kFile), 0);
    const std::unique_ptr<OruAsfDict, void (*)(OruAsfDict *)> owner{dict, oruAsfDictFree};
    EXPECT_EQ(oruAsfDictSetString(dict, "key", value.c_str()), 0);
    return oruAsfDictSave(dict, kFile);
}

string textOf(const string &value)
{
    return "# a text\nkey=" + value + "\n";
}

uint32_t setMimo(uint8_t value)
{
    OruSdkFeatureParam param{0, 0, value};
    return oruSdkSetMimo(&param);
}

/// The disk has room for so many bytes of what follows.
class FullDisk : public ::testing::Test {
protected:
    FullDisk()
    {
        std::filesystem::create_directory(box_.at("/var"));
        ::setenv("ORU_LOG", "none", 1);
    }

    void expectHoldsAlone(const string &text) const
    {
        EXPECT_EQ(box_.read(kFile), text);
        EXPECT_THAT(box_.names("/var"), ElementsAre("wsmDefaults"));
    }

    /// Runs what needs `bytes` with every number of them that is too small, then with enough.
    template <class Code, class Operation>
    void fillUpTo(size_t bytes, size_t usual, Code failure, Operation operation)
    {
        const string before = box_.read(kFile);
        size_t full = 0;
        for (size_t room = 0; room < bytes && !HasFailure(); room += stride(usual), ++full) {
            SCOPED_TRACE("room for " + std::to_string(room) + " bytes");
            Faults::armFullDisk(room);
            const Code code = operation();
            Faults::disarm();
            EXPECT_TRUE(Faults::struck());
            EXPECT_EQ(code, failure);
            expectHoldsAlone(before);
        }
        Faults::armFullDisk(bytes);
        EXPECT_EQ(operation(), Code{0});
        Faults::disarm();
        EXPECT_FALSE(Faults::struck());
        std::printf("torture: saves on a disk that is full at a byte: %zu saves\n", full);
    }

    TempDir box_;
};

/// A file system of blocks of 1 KiB.
class FullBlocks : public FullDisk {
protected:
    /// Mounts it. Skips the test where that can't be.
    void make(const string &mkfs, size_t kibibytes)
    {
        disk_ = std::make_unique<Disk>(box_.at("/var"), mkfs, kibibytes);
        if (!disk_->trouble().empty())
            GTEST_SKIP() << "this machine mounts no disks for the tests: " << disk_->trouble();
        ASSERT_TRUE(disk_->mount()) << disk_->trouble();
        std::filesystem::remove_all(box_.at("/var/lost+found"));
    }

    /// A long text and a short one beside each number of free blocks.
    void expectWholeFilesOnAFullDisk(const char *what)
    {
        constexpr size_t kMost = 16;
        size_t refused = 0;
        size_t saved = 0;
        for (size_t left = 0; left <= kMost && !HasFailure(); left += stride(3))
            for (const size_t size : {1u, 1024u, 1025u, 4096u, 4097u, 8192u, 12288u, 12289u}) {
                SCOPED_TRACE(std::to_string(size) + " bytes on " + std::to_string(left) +
                             " blocks");
                const string value(size > 20 ? size - textOf("").size() : 1, 'n');
                box_.write(kFile, textOf("old"));
                ASSERT_TRUE(disk_->fill(left));
                const bool good = saveValue(value) == 0;
                ASSERT_TRUE(disk_->free());
                expectHoldsAlone(textOf(good ? value : "old"));
                EXPECT_EQ(saveValue("the next"), 0);
                ++(good ? saved : refused);
            }
        EXPECT_GT(refused, 0u);
        EXPECT_GT(saved, 0u);
        std::printf("torture: saves on %s with few blocks left: %zu refused, %zu saved\n", what,
                    refused, saved);
    }

    std::unique_ptr<Disk> disk_; // unmounted before the folder goes
};

} // namespace

TEST_F(FullDisk, AtAnyByteRefusesASaveAndLeavesTheOldFileAlone)
{
    const string value(6000, 'n');
    box_.write(kFile, textOf("old"));
    fillUpTo(textOf(value).size(), 41, int32_t{-1}, [&] { return saveValue(value); });
    expectHoldsAlone(textOf(value));
}

TEST_F(FullDisk, AtAnyByteIsTheCodeOfASetter)
{
    std::filesystem::copy(ORU_SOURCE_DIR "/share/wsmDefaults.orig", box_.at(kFile));
    const size_t size = box_.read(kFile).size();
    fillUpTo(size, 41, uint32_t{ORUSDK_RC_FILE_WRITE}, [] { return setMimo(0); });
    EXPECT_EQ(box_.read(kFile).size(), size);
}

TEST_F(FullBlocks, OfExt2LeaveWholeFiles)
{
    make("ext2 -b 1024", 256);
    if (!IsSkipped()) expectWholeFilesOnAFullDisk("ext2");
}

TEST_F(FullBlocks, OfExt4LeaveWholeFiles)
{
    make("ext4 -b 1024", 2048);
    if (!IsSkipped()) expectWholeFilesOnAFullDisk("ext4");
}

TEST_F(FullBlocks, WithoutAFreeInodeLeaveWholeFiles)
{
    make("ext2 -b 1024 -N 16", 256);
    if (IsSkipped()) return;
    box_.write(kFile, textOf("old"));
    int files = 0;
    for (;; ++files) {
        const string path = box_.at("/var/") + std::to_string(files);
        const int file = ::open(path.c_str(), O_WRONLY | O_CREAT | O_CLOEXEC, 0600);
        if (file < 0) break;
        ::close(file);
    }
    ASSERT_GT(files, 0);
    const size_t before = box_.names("/var").size();
    EXPECT_EQ(saveValue("new"), -1);
    EXPECT_EQ(box_.read(kFile), textOf("old"));
    EXPECT_EQ(box_.names("/var").size(), before);
    ASSERT_EQ(::unlink(box_.at("/var/0").c_str()), 0);
    EXPECT_EQ(saveValue("new"), 0);
    EXPECT_EQ(box_.read(kFile), textOf("new"));
}
