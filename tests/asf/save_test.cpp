// Saving: whole files, whatever happens meanwhile.
#include "asf/child.hpp"
#include "asf/smalldisk.hpp"
#include "oruAsf.h"
#include "support/faults.hpp"
#include "support/tempdir.hpp"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

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

namespace {

constexpr const char *kFile = "/config";
constexpr const char *kLeftOver = "/.config.new";

/// Loads a file, sets one key and saves. 0, or which step failed.
int saveValue(const string &value, const char *from = kFile, const char *to = kFile)
{
    OruAsfDict *dict = nullptr;
    if (oruAsfDictCreate(&dict, from) != 0) return 2;
    const std::unique_ptr<OruAsfDict, void (*)(OruAsfDict *)> owner{dict, oruAsfDictFree};
    if (oruAsfDictSetString(dict, "key", value.c_str()) != 0) return 3;
    return oruAsfDictSave(dict, to) == 0 ? 0 : 1;
}

void leave(const string &path, const string &text, mode_t mode)
{
    std::ofstream{path} << text;
    EXPECT_EQ(::chmod(path.c_str(), mode), 0);
}

size_t openDescriptors()
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

    void link(const string &target, const char *plain) const
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
    void expectUntouched(const string &when = "") const
    {
        EXPECT_EQ(box.read(kFile), kOld) << when;
        EXPECT_THAT(box.names(), ElementsAre("config")) << when;
    }

    const string kOld = "# the old text\nkey=old\n";
    const string kNew = "# the old text\nkey=new value\n";
    TempDir box;
};

using SaveLink = Save;
using SaveRefused = Save;
using SaveLeftOver = Save;
using SaveFault = Save;
using SaveTogether = Save;
using SaveMemory = Save;

} // namespace

TEST_F(Save, ReplacesTheFile)
{
    const ino_t before = status().st_ino;
    EXPECT_EQ(saveValue("new value"), 0);
    EXPECT_EQ(box.read(kFile), kNew);
    EXPECT_NE(status().st_ino, before);
    EXPECT_THAT(box.names(), ElementsAre("config"));
}

TEST_F(Save, MakesANewFileForItsUserAloneWhateverTheUmask)
{
    for (const mode_t umask : {0, 022, 077, 0777}) {
        const string file = "/new" + std::to_string(umask);
        const mode_t before = ::umask(umask);
        EXPECT_EQ(saveValue("new value", kFile, file.c_str()), 0);
        ::umask(before);
        EXPECT_EQ(mode(file.c_str()), 0600u) << umask;
        EXPECT_EQ(box.read(file), kNew);
    }
}

TEST_F(Save, KeepsTheMode)
{
    for (const mode_t kept : {0600, 0640, 0644, 0666, 0777, 0700, 02640, 04755}) {
        chmod(kept);
        EXPECT_EQ(saveValue(std::to_string(kept)), 0);
        EXPECT_EQ(mode(), kept);
    }
}

TEST_F(Save, KeepsTheOwner)
{
    if (::geteuid() != 0) GTEST_SKIP() << "only root can give files away";
    ASSERT_EQ(::chown(box.at(kFile).c_str(), 1234, 5678), 0);
    chmod(0640);
    EXPECT_EQ(saveValue("new value"), 0);
    EXPECT_EQ(status().st_uid, 1234u);
    EXPECT_EQ(status().st_gid, 5678u);
    EXPECT_EQ(mode(), 0640u);
    EXPECT_EQ(box.read(kFile), kNew);
}

TEST_F(Save, KeepsTheGroupOfAnOwnFile)
{
    if (::geteuid() != 0) GTEST_SKIP() << "only root can give files away";
    ASSERT_EQ(::chown(box.at(kFile).c_str(), 0, 5678), 0);
    EXPECT_EQ(saveValue("new value"), 0);
    EXPECT_EQ(status().st_uid, 0u);
    EXPECT_EQ(status().st_gid, 5678u);
}

TEST_F(Save, WorksOnAPathWithoutAFolder)
{
    EXPECT_EQ(inChild([&] {
                  if (::chdir(box.at().c_str()) != 0) return 4;
                  return saveValue("new value", "config", "config");
              }),
              0);
    EXPECT_EQ(box.read(kFile), kNew);
    EXPECT_THAT(box.names(), ElementsAre("config"));
}

TEST_F(Save, SyncsTheFileBeforeItGetsItsNameAndTheFolderAfterwards)
{
    Faults::arm();
    EXPECT_EQ(saveValue("new value"), 0);
    auto calls = Faults::disarm();
    const auto isOther = [](const string &call) {
        return call != "write" && call != "fsync" && call != "renameat";
    };
    calls.erase(std::remove_if(calls.begin(), calls.end(), isOther), calls.end());
    EXPECT_THAT(calls, ElementsAre("write", "fsync", "renameat", "fsync"));
}

TEST_F(Save, OfWhatTheFileHoldsAlreadyWritesNothing)
{
    const auto expectNothingWritten = [&](const char *when, OruAsfDict *dict) {
        const struct stat before = status();
        Faults::arm();
        EXPECT_EQ(oruAsfDictSave(dict, kFile), 0) << when;
        for (const string &call : Faults::disarm())
            EXPECT_THAT(call, AnyOf("open", "read", "fstat", "fstatat", "fsync")) << when;
        EXPECT_EQ(status().st_ino, before.st_ino) << when;
        EXPECT_EQ(status().st_mtim.tv_nsec, before.st_mtim.tv_nsec) << when;
        EXPECT_EQ(status().st_ctim.tv_nsec, before.st_ctim.tv_nsec) << when;
    };
    OruAsfDict *dict = nullptr;
    ASSERT_EQ(oruAsfDictCreate(&dict, kFile), 0);
    expectNothingWritten("nothing was set", dict);
    ASSERT_EQ(oruAsfDictSetString(dict, "key", "old"), 0);
    expectNothingWritten("the same was set", dict);
    ASSERT_EQ(oruAsfDictSetString(dict, "key", "new value"), 0);
    ASSERT_EQ(saveValue("new value"), 0);
    expectNothingWritten("another process wrote the same meanwhile", dict);
    chmod(0400);
    EXPECT_EQ(asPlainUser([&] { return oruAsfDictSave(dict, kFile) == 0 ? 0 : 1; }),
              ::geteuid() == 0 ? 1 : 0)
        << "a file of root's can't be compared by another user";
    oruAsfDictFree(dict);
}

TEST_F(SaveLink, KeepsTheLinkAndWritesWhatItPointsTo)
{
    ASSERT_EQ(::mkdir(box.at("/real").c_str(), 0755), 0);
    box.write("/real/config", kOld);
    link("real/config", "/relative");
    link(box.at("/real/config"), "/absolute");
    link("../real/../relative", "/real/upwards");
    link("real/upwards", "/chain");
    int number = 0;
    for (const char *path : {"/relative", "/absolute", "/real/upwards", "/chain"}) {
        const string value = std::to_string(number++);
        const struct stat before = status(path);
        EXPECT_EQ(saveValue(value, path, path), 0) << path;
        EXPECT_EQ(status(path).st_ino, before.st_ino) << path;
        EXPECT_EQ(box.read("/real/config"), "# the old text\nkey=" + value + "\n") << path;
    }
    EXPECT_THAT(box.names("/real"), ElementsAre("config", "upwards"));
    EXPECT_EQ(box.read(kFile), kOld);
}

TEST_F(SaveLink, ToNothingMakesTheFileThatItPointsTo)
{
    ASSERT_EQ(::mkdir(box.at("/real").c_str(), 0755), 0);
    link("real/config", "/dangling");
    EXPECT_EQ(saveValue("new value", kFile, "/dangling"), 0);
    EXPECT_TRUE(S_ISLNK(status("/dangling").st_mode));
    EXPECT_EQ(box.read("/real/config"), kNew);
    EXPECT_EQ(mode("/real/config"), 0600u);
}

TEST_F(SaveLink, ThatEndsNowhereIsRefused)
{
    link("loop2", "/loop1");
    link("loop1", "/loop2");
    link("self", "/self");
    link("missing/config", "/lost");
    for (const char *path : {"/loop1", "/self", "/lost"})
        EXPECT_EQ(saveValue("new value", kFile, path), 1) << path;
    EXPECT_THAT(box.names(), ElementsAre("config", "loop1", "loop2", "lost", "self"));
}

TEST_F(SaveLink, ThatMakesThePathTooLongIsRefused)
{
    string folder;
    while (box.at(folder).size() < PATH_MAX - 600) {
        folder += "/" + string(250, 'f');
        ASSERT_EQ(::mkdir(box.at(folder).c_str(), 0755), 0);
    }
    link(string(3000, 'x'), (folder + "/link").c_str());
    link(string(10, 'x'), (folder + "/short").c_str());
    EXPECT_EQ(saveValue("new value", kFile, (folder + "/link").c_str()), 1);
    EXPECT_EQ(saveValue("new value", kFile, (folder + "/short").c_str()), 0);
    EXPECT_THAT(box.names(folder), ElementsAre("link", "short", string(10, 'x')));
}

TEST_F(SaveLink, ThatCannotBeReadIsRefused)
{
    link("config", "/link");
    Faults::arm(Faults::Kind::fail, 1, EIO, "readlink");
    EXPECT_EQ(saveValue("new value", kFile, "/link"), 1);
    Faults::disarm();
    EXPECT_TRUE(Faults::struck());
    EXPECT_EQ(box.read(kFile), kOld);
    EXPECT_THAT(box.names(), ElementsAre("config", "link"));
}

TEST_F(SaveRefused, ForWhatIsNoFile)
{
    ASSERT_EQ(::mkdir(box.at("/folder").c_str(), 0755), 0);
    ASSERT_EQ(::mkfifo(box.at("/fifo").c_str(), 0600), 0);
    for (const char *path : {"/folder", "/folder/", "/fifo", "/missing/file", "/config/", "", "/"})
        EXPECT_EQ(saveValue("new value", kFile, path), 1) << path;
    EXPECT_EQ(saveValue("new value", kFile, ("/" + string(5000, 'x')).c_str()), 1) << "too long";
    EXPECT_EQ(saveValue("new value", kFile, ("/" + string(252, 'x')).c_str()), 1)
        << "no room for a temporary file's name";
    EXPECT_THAT(box.names(), ElementsAre("config", "fifo", "folder"));
    EXPECT_TRUE(box.names("/folder").empty());
}

TEST_F(SaveRefused, ForAReadOnlyFileOrFolderOfAPlainUser)
{
    if (::geteuid() == 0) giveTo(kPlainUser);
    chmod(0444);
    EXPECT_EQ(asPlainUser([] { return saveValue("new value"); }), 1);
    expectUntouched("a file of mode 0444");
    chmod(0644);
    chmod(0555, "");
    EXPECT_EQ(asPlainUser([] { return saveValue("new value"); }), 1);
    expectUntouched("a folder of mode 0555");
    chmod(0755, "");
    EXPECT_EQ(asPlainUser([] { return saveValue("new value"); }), 0);
    EXPECT_EQ(box.read(kFile), kNew);
}

TEST_F(SaveRefused, ForAUserWhoCouldNotKeepTheOwner)
{
    if (::geteuid() != 0) GTEST_SKIP() << "needs files of another user";
    chmod(0777, "");
    chmod(0666);
    box.write(kLeftOver, "of the save that runs\n");
    chmod(0600, kLeftOver);
    EXPECT_EQ(asPlainUser([] { return saveValue("new value"); }), 1);
    EXPECT_EQ(box.read(kFile), kOld);
    EXPECT_EQ(box.read(kLeftOver), "of the save that runs\n");
}

TEST_F(SaveRefused, WhenTheFileWouldGetTooLargeForTheUser)
{
    EXPECT_EQ(
        inChild([] {
            const rlimit limit{4096, RLIM_INFINITY};
            const rlimit none{RLIM_INFINITY, RLIM_INFINITY}; // for what the child's end writes
            ::signal(SIGXFSZ, SIG_IGN);
            if (::setrlimit(RLIMIT_FSIZE, &limit) != 0) return kNotHere;
            const int result = saveValue(string(5000, 'x'));
            return ::setrlimit(RLIMIT_FSIZE, &none) == 0 ? result : 4;
        }),
        1);
    expectUntouched();
}

TEST_F(SaveRefused, OnAFullDisk)
{
    const int result = onSmallDisk(box, [&] {
        box.write("/disk/config", kOld);
        if (saveValue(string(100000, 'x'), "/disk/config", "/disk/config") != 1) return 1;
        if (box.read("/disk/config") != kOld || box.names("/disk").size() != 1) return 2;
        return saveValue("new value", "/disk/config", "/disk/config") == 0 ? 0 : 3;
    });
    if (result == kNotHere) GTEST_SKIP() << "this machine mounts no file system for the tests";
    EXPECT_EQ(result, 0);
}

TEST_F(SaveRefused, OnAReadOnlyDisk)
{
    const int result = onSmallDisk(box, [&] {
        box.write("/disk/config", kOld);
        const string disk = box.at("/disk");
        if (::mount(nullptr, disk.c_str(), nullptr, MS_REMOUNT | MS_RDONLY, nullptr) != 0)
            return kNotHere;
        if (saveValue("new value", "/disk/config", "/disk/config") != 1) return 1;
        if (saveValue("new value", "/disk/config", "/disk/new") != 1) return 2;
        if (saveValue("old", "/disk/config", "/disk/config") != 0) return 3; // nothing to write
        return box.read("/disk/config") == kOld && box.names("/disk").size() == 1 ? 0 : 4;
    });
    if (result == kNotHere) GTEST_SKIP() << "this machine mounts no file system for the tests";
    EXPECT_EQ(result, 0);
}

TEST_F(SaveLeftOver, GoesWithTheNextSave)
{
    const struct {
        const char *reason;
        void (*leave)(const string &path);
    } rows[] = {
        {"empty, as a save begins", [](const string &path) { leave(path, "", 0600); }},
        {"with text", [](const string &path) { leave(path, "key=half", 0600); }},
        {"longer than the new text",
         [](const string &path) { leave(path, string(9999, 'x'), 0600); }},
        {"read-only", [](const string &path) { leave(path, "x", 0400); }},
        {"without any right", [](const string &path) { leave(path, "", 0); }},
        {"readable by all, which ours never is", [](const string &path) { leave(path, "", 0666); }},
        {"a link to a file",
         [](const string &path) { EXPECT_EQ(::symlink("victim", path.c_str()), 0); }},
        {"a link to nothing",
         [](const string &path) { EXPECT_EQ(::symlink("nowhere", path.c_str()), 0); }},
        {"a second name of a file",
         [](const string &path) {
             EXPECT_EQ(::link((path.substr(0, path.rfind('/')) + "/victim").c_str(), path.c_str()),
                       0);
         }},
        {"a second name of an empty file",
         [](const string &path) {
             const string other = path.substr(0, path.rfind('/')) + "/empty";
             std::ofstream{other};
             EXPECT_EQ(::chmod(other.c_str(), 0600), 0);
             EXPECT_EQ(::link(other.c_str(), path.c_str()), 0);
         }},
        {"a FIFO", [](const string &path) { EXPECT_EQ(::mkfifo(path.c_str(), 0600), 0); }},
    };
    for (const auto &row : rows) {
        box.write(kFile, kOld);
        box.write("/victim", "of somebody else\n");
        row.leave(box.at(kLeftOver));
        EXPECT_EQ(saveValue("new value"), 0) << row.reason;
        EXPECT_EQ(box.read(kFile), kNew) << row.reason;
        EXPECT_EQ(box.read("/victim"), "of somebody else\n") << row.reason;
        EXPECT_EQ(box.read("/empty"), "") << row.reason;
        std::filesystem::remove(box.at("/empty"));
        EXPECT_THAT(box.names(), ElementsAre("config", "victim")) << row.reason;
    }
}

TEST_F(SaveLeftOver, ThatCannotBeRemovedRefusesTheSave)
{
    const struct {
        const char *reason;
        void (*leave)(const string &path);
    } rows[] = {{"with text", [](const string &path) { std::ofstream{path} << "key=half"; }},
                {"a link that can't be opened",
                 [](const string &path) { EXPECT_EQ(::symlink("victim", path.c_str()), 0); }}};
    for (const auto &row : rows) {
        row.leave(box.at(kLeftOver));
        Faults::arm(Faults::Kind::fail, 1, EIO, "unlinkat");
        EXPECT_EQ(saveValue("new value"), 1) << row.reason;
        Faults::disarm();
        EXPECT_TRUE(Faults::struck()) << row.reason;
        EXPECT_EQ(box.read(kFile), kOld) << row.reason;
        EXPECT_THAT(box.names(), ElementsAre(".config.new", "config")) << row.reason;
        ASSERT_EQ(::unlink(box.at(kLeftOver).c_str()), 0);
    }
}

TEST_F(SaveLeftOver, OfAnotherUserWithoutTextIsNotTakenOver)
{
    if (::geteuid() != 0) GTEST_SKIP() << "needs files of another user";
    box.write(kLeftOver, "");
    chmod(0600, kLeftOver);
    ASSERT_EQ(::chown(box.at(kLeftOver).c_str(), 1234, 1234), 0);
    const int itsUsers = ::open(box.at(kLeftOver).c_str(), O_RDONLY | O_CLOEXEC);
    EXPECT_EQ(saveValue("new value"), 0);
    char byte;
    EXPECT_EQ(::read(itsUsers, &byte, 1), 0) << "its user has it open and sees our text";
    ::close(itsUsers);
    EXPECT_EQ(status().st_uid, 0u);
    EXPECT_EQ(box.read(kFile), kNew);
    EXPECT_THAT(box.names(), ElementsAre("config"));
}

TEST_F(SaveLeftOver, OfAnotherUserGoesToo)
{
    if (::geteuid() != 0) GTEST_SKIP() << "needs files of another user";
    for (const mode_t left : {0, 0600, 0666})
        for (const uid_t leaver : {uid_t{0}, uid_t{1234}}) {
            box.write(kFile, kOld);
            giveTo(kPlainUser);
            for (const bool asRoot : {false, true}) {
                box.write(kLeftOver, "key=half");
                chmod(left, kLeftOver);
                ASSERT_EQ(::chown(box.at(kLeftOver).c_str(), leaver, leaver), 0);
                const auto save = [&] { return saveValue(asRoot ? "by root" : "by its user"); };
                EXPECT_EQ(asRoot ? inChild(save) : asPlainUser(save), 0) << left << ' ' << leaver;
                EXPECT_EQ(status().st_uid, kPlainUser);
                EXPECT_THAT(box.names(), ElementsAre("config"));
            }
        }
}

TEST_F(SaveLeftOver, ThatIsAFifoWithAReaderGetsNoByte)
{
    const string fifo = box.at(kLeftOver);
    ASSERT_EQ(::mkfifo(fifo.c_str(), 0600), 0);
    const int reader = ::open(fifo.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC);
    ASSERT_GE(reader, 0);
    EXPECT_EQ(saveValue("new value"), 0);
    char byte;
    EXPECT_EQ(::read(reader, &byte, 1), 0);
    ::close(reader);
    EXPECT_EQ(box.read(kFile), kNew);
    EXPECT_TRUE(S_ISREG(status().st_mode));
    EXPECT_THAT(box.names(), ElementsAre("config"));
}

TEST_F(SaveLeftOver, WhoseLockNobodyGivesBackGoesInTheEnd)
{
    box.write(kLeftOver, "");
    chmod(0600, kLeftOver);
    const int holder = ::open(box.at(kLeftOver).c_str(), O_RDONLY | O_CLOEXEC);
    ASSERT_EQ(::flock(holder, LOCK_EX), 0);
    Faults::armLibraries(Faults::Kind::none, 0, 0, [] {}); // nothing sleeps
    EXPECT_EQ(saveValue("new value"), 0);
    Faults::disarm();
    char byte;
    EXPECT_EQ(::read(holder, &byte, 1), 0) << "it is left as it was";
    ::close(holder);
    EXPECT_EQ(box.read(kFile), kNew);
    EXPECT_THAT(box.names(), ElementsAre("config"));
}

TEST_F(SaveLeftOver, ThatIsAFolderIsNoneAndStays)
{
    ASSERT_EQ(::mkdir(box.at(kLeftOver).c_str(), 0755), 0);
    EXPECT_EQ(saveValue("new value"), 1);
    EXPECT_EQ(box.read(kFile), kOld);
    EXPECT_THAT(box.names(), ElementsAre(".config.new", "config"));
}

TEST_F(SaveFault, OfAnyCallLeavesTheOldFileAndNothingBesideIt)
{
    // Texts of other lengths are not compared first. As root the file is another user's, so that
    // its owner is set, too.
    if (::geteuid() == 0) giveTo(kPlainUser);
    chmod(0644);
    Faults::arm();
    ASSERT_EQ(saveValue("new value"), 0);
    const auto calls = Faults::disarm();
    ASSERT_GE(calls.size(), 12u);
    ASSERT_EQ(calls.back(), "fsync");

    for (const int error : {EIO, ENOSPC, EROFS, EACCES, EMFILE, ENOMEM, EPERM})
        for (size_t n = 1; n <= calls.size(); ++n) {
            box.write(kFile, kOld);
            const size_t open = openDescriptors();
            Faults::arm(Faults::Kind::fail, static_cast<int>(n), error);
            const int result = saveValue("new value");
            Faults::disarm();
            const string when = calls[n - 1] + ", the call " + std::to_string(n) + ", fails with " +
                                ::strerrorname_np(error);
            ASSERT_TRUE(Faults::struck()) << when;
            EXPECT_EQ(openDescriptors(), open) << when;
            // Another user's temporary file in the way is waited for, or removed: no failure.
            if (calls[n - 1] == "openat" && (error == EACCES || error == EPERM)) {
                EXPECT_EQ(result, 0) << when;
                EXPECT_EQ(box.read(kFile), kNew) << when;
                continue;
            }
            EXPECT_NE(result, 0) << when;
            if (n == calls.size()) { // the file has its name already when the folder is synced
                EXPECT_EQ(box.read(kFile), kNew) << when;
                EXPECT_THAT(box.names(), ElementsAre("config")) << when;
            } else {
                expectUntouched(when);
            }
        }
}

TEST_F(SaveFault, OfAComparisonOnlyMeansThatTheFileIsWritten)
{
    OruAsfDict *dict = nullptr;
    ASSERT_EQ(oruAsfDictCreate(&dict, kFile), 0);
    for (const char *call : {"read", "fstat"}) {
        const ino_t before = status().st_ino;
        Faults::arm(Faults::Kind::fail, 1, EIO, call);
        EXPECT_EQ(oruAsfDictSave(dict, kFile), 0) << call;
        Faults::disarm();
        EXPECT_TRUE(Faults::struck()) << call;
        EXPECT_NE(status().st_ino, before) << call;
        expectUntouched(call);
    }
    oruAsfDictFree(dict);
}

TEST_F(SaveFault, ThatIsAnInterruptionIsNone)
{
    for (const char *call : {"open", "openat", "read", "write", "flock", "fsync"}) {
        int faults = 0;
        for (int n = 1;; ++n, ++faults) {
            box.write(kFile, kOld);
            Faults::arm(Faults::Kind::fail, n, EINTR, call);
            EXPECT_EQ(saveValue("new value"), 0) << call << ' ' << n;
            Faults::disarm();
            EXPECT_EQ(box.read(kFile), kNew) << call << ' ' << n;
            if (!Faults::struck()) break;
        }
        EXPECT_GT(faults, 0) << call;
    }
}

TEST_F(SaveFault, ThatCutsAWriteIsMadeGood)
{
    Faults::arm(Faults::Kind::cut, 1, 0, "write");
    EXPECT_EQ(saveValue("new value"), 0);
    Faults::disarm();
    EXPECT_TRUE(Faults::struck());
    EXPECT_EQ(box.read(kFile), kNew);
}

TEST_F(SaveFault, OfAFolderThatCannotBeSyncedIsNone)
{
    Faults::arm(Faults::Kind::fail, 2, EINVAL, "fsync");
    EXPECT_EQ(saveValue("new value"), 0);
    Faults::disarm();
    EXPECT_TRUE(Faults::struck());
    EXPECT_EQ(box.read(kFile), kNew);
}

TEST_F(SaveFault, ThatKillsAtAnyCallLeavesAWholeFileAndAtMostOneTemporaryFile)
{
    if (::geteuid() == 0) giveTo(kPlainUser);
    chmod(0640);
    int n = 1;
    bool sawLeftOver = false;
    bool sawNew = false;
    for (;; ++n) {
        box.write(kFile, kOld);
        const int result = inChild([&] {
            Faults::arm(Faults::Kind::die, n);
            return saveValue("new value");
        });
        if (result == 0) break;
        ASSERT_EQ(result, 9) << n;
        EXPECT_THAT(box.read(kFile), AnyOf(kOld, kNew)) << n;
        EXPECT_THAT(box.names(),
                    AnyOf(ElementsAre("config"), ElementsAre(".config.new", "config")));
        sawNew |= box.read(kFile) == kNew;
        sawLeftOver |= box.names().size() == 2;

        EXPECT_EQ(saveValue("the next"), 0) << n;
        EXPECT_EQ(box.read(kFile), "# the old text\nkey=the next\n") << n;
        EXPECT_THAT(box.names(), ElementsAre("config")) << n;
        EXPECT_EQ(mode(), 0640u);
    }
    EXPECT_GE(n, 12);
    EXPECT_TRUE(sawNew && sawLeftOver);
}

TEST_F(SaveFault, ThatKillsAtAnyMomentLeavesAWholeFileAndAtMostOneTemporaryFile)
{
    std::mt19937 random{20215};
    const string texts[] = {string(30, 'a'), string(60000, 'b')};
    ASSERT_EQ(saveValue(texts[0]), 0);
    for (int round = 0; round < 300; ++round) {
        const auto wait = static_cast<suseconds_t>(random() % 3000 + 1);
        const int result = inChild([&] {
            const itimerval timer{{0, 0}, {0, wait}};
            ::setitimer(ITIMER_REAL, &timer, nullptr);
            for (int i = 0;; ++i)
                if (const int failed = saveValue(texts[i % 2]); failed != 0) return failed;
        });
        ASSERT_EQ(result, 1000 + SIGALRM);
        const string text = box.read(kFile);
        ASSERT_TRUE(text == "# the old text\nkey=" + texts[0] + "\n" ||
                    text == "# the old text\nkey=" + texts[1] + "\n");
        ASSERT_THAT(box.names(),
                    AnyOf(ElementsAre("config"), ElementsAre(".config.new", "config")));
    }
    EXPECT_EQ(saveValue("new value"), 0);
    EXPECT_THAT(box.names(), ElementsAre("config"));
}

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

TEST_F(Save, WithoutStandardStreamsKeepsOffTheirNumbers)
{
    EXPECT_EQ(inChild([] {
                  for (const int number : {0, 1, 2}) ::close(number);
                  Faults::arm();
                  if (saveValue("new value") != 0) return 1;
                  if (Faults::lowestDescriptor() <= 2) return 2;
                  for (const int number : {0, 1, 2})
                      if (::fcntl(number, F_GETFD) >= 0) return 3;
                  return 0;
              }),
              0);
    EXPECT_EQ(box.read(kFile), kNew);
    EXPECT_THAT(box.names(), ElementsAre("config"));
}

#if !defined(__SANITIZE_ADDRESS__) // which brings allocations of its own

namespace {

/// What a setter does, and more; nothing in here allocates but the library. 0 when all went well,
/// 1 when something failed as it may, 2 when a result was wrong.
int useDictionary()
{
    OruAsfDict *dict = nullptr;
    if (oruAsfDictCreate(&dict, kFile) != 0) return dict == nullptr ? 1 : 2;
    int result = 0;
    const auto check = [&](int32_t status) {
        if (status < 0) result = std::max(result, 1);
    };
    for (int i = 0; i < 4; ++i) { // the third one builds an index
        const char *text = nullptr;
        const int32_t status = oruAsfDictGetString(dict, "key", &text, 0);
        check(status);
        if (status == 0 && (text == nullptr || std::strcmp(text, "old") != 0)) result = 2;
        if (status != 0 && text != nullptr) result = 2;
    }
    char key[] = "key0";
    for (int i = 0; i < 9; ++i, ++key[3]) {
        const int32_t status = oruAsfDictSetDelimitedString(dict, key, "value");
        check(status);
        const char *text = nullptr;
        if (oruAsfDictGetString(dict, key, &text, 0) < 0) result = std::max(result, 1);
        else if ((text != nullptr) != (status == 0)) result = 2;
    }
    const int32_t visited = oruAsfDictVisit(
        dict, [](void *, const char *, const char *value) { return value == nullptr ? 7 : 0; },
        nullptr);
    check(visited);
    if (visited == 7) result = 2; // no value is damaged
    check(oruAsfDictSave(dict, kFile));
    oruAsfDictFree(dict);
    return result;
}

} // namespace

TEST_F(SaveMemory, ThatIsDeniedFailsOrDoesNoHarmAndNothingLeaks)
{
    int n = 1;
    for (;; ++n) {
        box.write(kFile, kOld);
        Faults::denyMemory(n);
        const int result = useDictionary();
        const bool denied = Faults::allowMemory();
        ASSERT_EQ(Faults::blocksLeft(), 0) << n;
        ASSERT_NE(result, 2) << n;
        if (!denied) {
            EXPECT_EQ(result, 0);
            break;
        }
        const string saved = box.read(kFile);
        EXPECT_TRUE(saved == kOld || saved.compare(0, kOld.size(), kOld) == 0) << n;
        EXPECT_THAT(box.names(), ElementsAre("config")) << n;
    }
    EXPECT_GT(n, 10);
}

TEST_F(SaveMemory, ThatIsDeniedToADeletionLeavesTheKey)
{
    OruAsfDict *dict = nullptr;
    ASSERT_EQ(oruAsfDictCreate(&dict, kFile), 0);
    int n = 1;
    for (;; ++n) {
        Faults::denyMemory(n);
        const int32_t status = n % 2 == 0 ? oruAsfDictSetString(dict, "key", nullptr)
                                          : oruAsfDictSetDelimitedString(dict, "key", nullptr);
        if (!Faults::allowMemory()) {
            EXPECT_EQ(status, 0);
            break;
        }
        EXPECT_EQ(status, -1) << n;
        const char *value = nullptr;
        EXPECT_EQ(oruAsfDictGetString(dict, "key", &value, 0), 0);
        EXPECT_STREQ(value, "old") << n;
    }
    EXPECT_GT(n, 2);
    const char *value = nullptr;
    EXPECT_EQ(oruAsfDictGetString(dict, "key", &value, 0), 0);
    EXPECT_EQ(value, nullptr);
    oruAsfDictFree(dict);
}

TEST_F(SaveMemory, ThatIsDeniedToAVisitIsNotTakenForADamagedValue)
{
    box.write(kFile, "key=\"" + string(10000, 'x') + "\"\n");
    OruAsfDict *dict = nullptr;
    ASSERT_EQ(oruAsfDictCreate(&dict, kFile), 0);
    const auto isDamaged = [](void *, const char *, const char *value) {
        return value == nullptr ? 1 : 0;
    };
    int n = 1;
    for (;; ++n) {
        Faults::denyMemory(n);
        const int32_t result = oruAsfDictVisit(dict, isDamaged, nullptr);
        if (!Faults::allowMemory()) {
            EXPECT_EQ(result, 0);
            break;
        }
        EXPECT_EQ(result, -1) << n;
    }
    EXPECT_GT(n, 1);
    oruAsfDictFree(dict);
}

TEST_F(SaveMemory, ThatIsDeniedToASaveLeavesTheOldFile)
{
    OruAsfDict *dict = nullptr;
    ASSERT_EQ(oruAsfDictCreate(&dict, kFile), 0);
    ASSERT_EQ(oruAsfDictSetString(dict, "key", "new value"), 0);
    int n = 1;
    for (;; ++n) {
        Faults::denyMemory(n);
        const int32_t status = oruAsfDictSave(dict, kFile);
        if (!Faults::allowMemory()) {
            EXPECT_EQ(status, 0);
            break;
        }
        EXPECT_EQ(status, -1) << n;
        expectUntouched();
    }
    EXPECT_GT(n, 1);
    EXPECT_EQ(box.read(kFile), kNew);
    oruAsfDictFree(dict);
}

#endif
