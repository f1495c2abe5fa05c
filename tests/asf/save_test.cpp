// Saving: whole files, whatever happens meanwhile.
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
