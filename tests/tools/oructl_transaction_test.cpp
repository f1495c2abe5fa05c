// Changes are whole, and never over those of somebody else.
#include "footprint/systemcalls.hpp"
#include "install.hpp"
#include "oruSdk.h"
#include "scratch.hpp"
#include "support/reply.hpp"
#include "tools/oructl_run.hpp"
#include "tools/wsm_service.hpp"
#include "transaction.hpp"

#include <gmock/gmock.h>

#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <spawn.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

using namespace oru::test;
using oructl::Lock;
using oructl::Transaction;
using testing::HasSubstr;

namespace fs = std::filesystem;

namespace {

class TransactionTest : public OructlTest {
protected:
    TransactionTest() : moved_(root())
    {
        fs::create_directories(temporary());
        variables_ = {"TMPDIR=" + temporary()};
    }

    [[nodiscard]] std::string temporary() const { return root() + "/tmp"; }

    [[nodiscard]] bool nothingIsLeft() const { return fs::is_empty(temporary()); }

    /// A set of MIMO in a transaction.
    static void switchMimoOff()
    {
        OruSdkFeatureParam record = {.reserved = 0, .radioIndex = 0, .activationFlag = 0};
        ASSERT_EQ(oruSdkSetMimo(&record), 0u);
    }

    const oructl::MovedRoot moved_;
};

TEST_F(TransactionTest, StoresNothingBeforeItIsFinished)
{
    const std::string before = read(kWsm);
    {
        Transaction change{Transaction::Kind::Real};
        ASSERT_FALSE(change.begin(0));
        switchMimoOff();
        EXPECT_EQ(read(kWsm), before);
    }
    EXPECT_EQ(read(kWsm), before) << "it was not finished";
    Transaction change{Transaction::Kind::Real};
    ASSERT_FALSE(change.begin(0));
    switchMimoOff();
    ASSERT_FALSE(change.finish(false));
    EXPECT_EQ(value(kWsm, "mimoFlag"), "0");
    ASSERT_EQ(change.changes().size(), 1u);
    EXPECT_EQ(change.changes()[0].key, "mimoFlag");
}

TEST_F(TransactionTest, IsRefusedOverWhatSomebodyElseHasStored)
{
    Transaction change{Transaction::Kind::Real};
    ASSERT_FALSE(change.begin(0));
    switchMimoOff();
    set(kWsm, "numSs", "1");
    const std::string theirs = read(kWsm);
    const auto trouble = change.finish(false);
    ASSERT_TRUE(trouble);
    EXPECT_EQ(trouble->status, oructl::kConflict);
    EXPECT_EQ(trouble->message, "/var/wsmDefaults was changed meanwhile");
    EXPECT_EQ(read(kWsm), theirs);
}

TEST_F(TransactionTest, StoresOverItByForce)
{
    Transaction change{Transaction::Kind::Real};
    ASSERT_FALSE(change.begin(0));
    switchMimoOff();
    set(kWsm, "numSs", "1");
    ASSERT_FALSE(change.finish(true));
    EXPECT_EQ(value(kWsm, "mimoFlag"), "0");
    EXPECT_EQ(value(kWsm, "numSs"), "2") << "as it was at the beginning";
}

TEST_F(TransactionTest, AChangeOfAnotherFileIsNoConflict)
{
    Transaction change{Transaction::Kind::Real};
    ASSERT_FALSE(change.begin(0));
    switchMimoOff();
    set(kAa, "bss0.macAuthType", "2");
    ASSERT_FALSE(change.finish(false));
    EXPECT_EQ(value(kWsm, "mimoFlag"), "0");
    EXPECT_EQ(value(kAa, "bss0.macAuthType"), "2");
}

TEST_F(TransactionTest, ACopyOfAKilledProcessGoesWithTheNextOne)
{
    const pid_t child = ::fork();
    ASSERT_GE(child, 0);
    if (child == 0) {
        ::setenv("TMPDIR", temporary().c_str(), 1);
        const oructl::Scratch scratch;
        ::raise(SIGKILL);
    }
    int status = 0;
    ASSERT_EQ(::waitpid(child, &status, 0), child);
    ASSERT_TRUE(WIFSIGNALED(status));
    ASSERT_FALSE(nothingIsLeft()) << "it holds secrets";
    EXPECT_EQ(run({"set", "mimo", "0", "off"}).exit, 0);
    EXPECT_TRUE(nothingIsLeft());
}

TEST_F(TransactionTest, ACopyInUseAndWhatIsNoneStay)
{
    ::setenv("TMPDIR", temporary().c_str(), 1);
    const oructl::Scratch scratch;
    ::unsetenv("TMPDIR");
    ASSERT_TRUE(scratch);
    fs::create_directories(temporary() + "/oructl-notes/a");
    fs::create_directory_symlink("oructl-notes", temporary() + "/oructl-scratch.linked");
    write("/tmp/oructl-scratch.file", "");
    EXPECT_EQ(run({"set", "mimo", "0", "off"}).exit, 0);
    EXPECT_TRUE(fs::exists(scratch.root() + kWsm));
    EXPECT_TRUE(fs::exists(temporary() + "/oructl-scratch.linked/a"));
    EXPECT_TRUE(fs::exists(temporary() + "/oructl-scratch.file"));
}

TEST_F(TransactionTest, ALockIsHeldUntilItsEnd)
{
    {
        Lock first;
        ASSERT_FALSE(first.take(0));
        Lock second;
        const auto trouble = second.take(20);
        ASSERT_TRUE(trouble);
        EXPECT_EQ(trouble->status, oructl::kConflict);
        EXPECT_EQ(run({"--timeout", "0", "set", "mimo", "0", "off"}).exit, 5);
        EXPECT_EQ(run({"--dry-run", "set", "mimo", "0", "off"}).exit, 0) << "needs no lock";
    }
    EXPECT_EQ(run({"set", "mimo", "0", "off"}).exit, 0);
}

TEST_F(TransactionTest, AnInterruptedInstallIsFinishedByTheNextOne)
{
    fs::create_directories(root() + "/var/oructl/install");
    fs::create_directories(root() + "/var/oructl/install.new");
    write("/var/oructl/install.new/wsmDefaults", "half=");
    set(kWsm, "numSs", "1");
    write("/var/oructl/install/wsmDefaults", read(kWsm));
    set(kWsm, "numSs", "2");
    set(kAa, "bss0.macAuthType", "2");
    write("/var/oructl/install/1x.conf", read(kAa));
    set(kAa, "bss0.macAuthType", "0");
    {
        Lock lock;
        ASSERT_FALSE(lock.take(0));
    }
    EXPECT_EQ(value(kWsm, "numSs"), "1");
    EXPECT_EQ(value(kAa, "bss0.macAuthType"), "2");
    for (const char *folder : {"install", "install.new", "install.done"})
        EXPECT_FALSE(fs::exists(root() + "/var/oructl/" + folder)) << folder;
}

TEST_F(TransactionTest, APromiseIsDurableBeforeItIsKept)
{
    const std::vector<oructl::NewFile> both = {{0, root(), kWsm}, {1, root(), kAa}};
    {
        Lock lock;
        ASSERT_FALSE(lock.take(0));
    }
    std::vector<std::string> calls = systemCallsOf([&] { EXPECT_TRUE(oructl::install(both)); });
    if (calls.empty()) GTEST_SKIP() << "this machine traces no processes for the tests";
    std::erase_if(calls, [](const auto &call) { return call != "fsync" && call != "rename"; });
    const std::vector<std::string> copy = {"fsync", "rename", "fsync"};
    std::vector<std::string> promise = copy;
    promise.insert(promise.end(), copy.begin(), copy.end());
    promise.insert(promise.end(), copy.begin(), copy.end()); // the folder, its name, that name
    ASSERT_GT(calls.size(), promise.size());
    calls.resize(promise.size());
    EXPECT_EQ(calls, promise);
}

TEST_F(TransactionTest, WhatWasNotPromisedIsDropped)
{
    const std::string before = read(kWsm);
    fs::create_directories(root() + "/var/oructl/install.new");
    write("/var/oructl/install.new/wsmDefaults", "mimoFlag=0\n");
    ASSERT_EQ(run({"set", "tx-power", "0", "2"}).exit, 0);
    EXPECT_EQ(read(kWsm), before);
    EXPECT_FALSE(fs::exists(root() + "/var/oructl/install.new"));
}

TEST_F(TransactionTest, LeavesNoCopyBehindHoweverItEnds)
{
    EXPECT_EQ(run({"set", "mimo", "0", "off"}).exit, 0);
    EXPECT_EQ(run({"set", "tx-power", "0", "9"}).exit, 1);
    EXPECT_EQ(run({"--dry-run", "reset", "all"}).exit, 0);
    EXPECT_EQ(run({"export"}).exit, 0);
    EXPECT_EQ(run({"diff", "--factory"}).exit, 20);
    EXPECT_EQ(runWithInput("garbage", {"import", "-"}).exit, 2);
    EXPECT_EQ(runWithInput("set psk 0 x", {"batch", "-"}).exit, 1);
    EXPECT_TRUE(nothingIsLeft());
}

/// An oructl that waits for a service while its copy of the configuration lies there.
class Waiting : public TransactionTest {
protected:
    Waiting() : wsm_(root())
    {
        fs::create_directories(root() + "/run");
        installFactoryFiles();
    }

    pid_t start(std::vector<const char *> words)
    {
        words.insert(words.begin(), "oructl");
        words.push_back(nullptr);
        std::vector<std::string> texts = environment();
        std::vector<char *> variables;
        for (std::string &text : texts) variables.push_back(text.data());
        variables.push_back(nullptr);
        pid_t child = -1;
        EXPECT_EQ(::posix_spawn(&child, ORUCTL, nullptr, nullptr,
                                const_cast<char *const *>(words.data()), variables.data()),
                  0);
        for (int left = 5000; left > 0 && wsm_.requests().empty(); --left) ::usleep(1000);
        EXPECT_FALSE(wsm_.requests().empty()) << "it asks nothing";
        return child;
    }

    static int end(pid_t child)
    {
        int status = 0;
        EXPECT_EQ(::waitpid(child, &status, 0), child);
        return status;
    }

    WsmService wsm_;
};

class EndedBySignal : public Waiting, public ::testing::WithParamInterface<int> {};

TEST_P(EndedBySignal, LeavesNoCopyBehindAndStoresNothing)
{
    const std::string before = read(kWsm);
    const pid_t child = start({"set", "channel", "0", "6"});
    EXPECT_FALSE(nothingIsLeft()) << "it has no copy";
    ::kill(child, GetParam());
    const int status = end(child);
    EXPECT_TRUE(WIFSIGNALED(status));
    EXPECT_EQ(WTERMSIG(status), GetParam());
    EXPECT_TRUE(nothingIsLeft());
    EXPECT_EQ(read(kWsm), before);
}

INSTANTIATE_TEST_SUITE_P(Each, EndedBySignal, ::testing::Values(SIGINT, SIGTERM, SIGHUP, SIGQUIT),
                         [](const auto &info) { return std::string{::sigabbrev_np(info.param)}; });

TEST_F(Waiting, ATimeOutEndsItWithoutACopyLeft)
{
    const std::string before = read(kWsm);
    const int status = end(start({"--timeout", "1", "set", "channel", "0", "6"}));
    EXPECT_TRUE(WIFEXITED(status));
    EXPECT_EQ(WEXITSTATUS(status), 3);
    EXPECT_TRUE(nothingIsLeft());
    EXPECT_EQ(read(kWsm), before);
}

/// How many sets race: a few hundred, or what ORU_RACES says.
int races()
{
    const char *const text = std::getenv("ORU_RACES");
    return text != nullptr ? std::atoi(text) : 300;
}

TEST_F(TransactionTest, ProcessesThatSetDifferentKeysLoseNoUpdate)
{
    struct Writer {
        const char *item;
        const char *index;
        const char *key;
        int least;
    };
    constexpr Writer kWriters[] = {
        {"nwk-density-value", "0", "radio0.networkDensityValue", 0},
        {"nwk-density-value", "1", "radio1.networkDensityValue", 0},
        {"bss-width-trigger-scan-interval", "0", "dot11BSSWidthTriggerScanInterval", 10}};
    const int rounds = races() / static_cast<int>(std::size(kWriters));
    std::vector<std::thread> threads;
    for (const Writer &writer : kWriters)
        threads.emplace_back([&, rounds] {
            for (int i = 0; i < rounds; ++i) {
                const std::string number = std::to_string(writer.least + i % 800);
                const Transcript done =
                    run({"--timeout", "60", "set", writer.item, writer.index, number});
                ASSERT_EQ(done.exit, 0) << done.err;
                for (int look = 0; look < 3; ++look) // while the others store their own
                    ASSERT_EQ(value(kWsm, writer.key), number) << "lost in round " << i;
            }
        });
    for (std::thread &thread : threads) thread.join();
    EXPECT_TRUE(nothingIsLeft());
}

} // namespace
