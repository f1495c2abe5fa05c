// A configuration file that is saved, in a folder of its own.
#pragma once

#include "asf/child.hpp"
#include "oruAsf.h"
#include "support/tempdir.hpp"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <sys/stat.h>

namespace oru::test {

constexpr const char *kFile = "/config";
constexpr const char *kLeftOver = "/.config.new";

/// Loads a file, sets one key and saves. 0, or which step failed.
inline int saveValue(const std::string &value, const char *from = kFile, const char *to = kFile)
{
    OruAsfDict *dict = nullptr;
    if (oruAsfDictCreate(&dict, from) != 0) return 2;
    const std::unique_ptr<OruAsfDict, void (*)(OruAsfDict *)> owner{dict, oruAsfDictFree};
    if (oruAsfDictSetString(dict, "key", value.c_str()) != 0) return 3;
    return oruAsfDictSave(dict, to) == 0 ? 0 : 1;
}

inline void leave(const std::string &path, const std::string &text, mode_t mode)
{
    std::ofstream{path} << text;
    EXPECT_EQ(::chmod(path.c_str(), mode), 0);
}

inline size_t openDescriptors()
{
    namespace fs = std::filesystem;
    return static_cast<size_t>(std::distance(fs::directory_iterator{"/proc/self/fd"}, {}));
}

class Save : public ::testing::Test {
protected:
    Save() { box.write(kFile, kOld); }

    [[nodiscard]] struct stat status(const char *plain = kFile) const
    {
        struct stat found {};
        EXPECT_EQ(::lstat(box.at(plain).c_str(), &found), 0) << plain;
        return found;
    }

    [[nodiscard]] mode_t mode(const char *plain = kFile) const
    {
        return status(plain).st_mode & 07777;
    }

    void chmod(mode_t mode, const char *plain = kFile) const
    {
        ASSERT_EQ(::chmod(box.at(plain).c_str(), mode), 0);
    }

    void link(const std::string &target, const char *plain) const
    {
        ASSERT_EQ(::symlink(target.c_str(), box.at(plain).c_str()), 0);
    }

    /// Gives the folder, and the file, to a user.
    void giveTo(uid_t user) const
    {
        ASSERT_EQ(::chown(box.at().c_str(), user, user), 0);
        ASSERT_EQ(::chown(box.at(kFile).c_str(), user, user), 0);
    }

    /// The file holds the old text, and nothing stands beside it.
    void expectUntouched(const std::string &when = "") const
    {
        EXPECT_EQ(box.read(kFile), kOld) << when;
        EXPECT_THAT(box.names(), testing::ElementsAre("config")) << when;
    }

    const std::string kOld = "# the old text\nkey=old\n";
    const std::string kNew = "# the old text\nkey=new value\n";
    TempDir box;
};

using SaveLink = Save;
using SaveRefused = Save;
using SaveLeftOver = Save;
using SaveFault = Save;
using SaveTogether = Save;
using SaveMemory = Save;

} // namespace oru::test
