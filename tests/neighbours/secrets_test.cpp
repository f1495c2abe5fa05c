// Another user who tries to open every configuration file, and whatever stands beside one, as fast
// as it can while they are written: not one opens, whatever the umask. ORU_TORTURE=1 writes more.
#include "asf/child.hpp"
#include "oruAsf.h"
#include "oruSdk.h"
#include "support/tempdir.hpp"
#include "tools/oructl_run.hpp"

#include <gtest/gtest.h>

#include <atomic>
#include <csignal>
#include <cstdio>
#include <dirent.h>
#include <fcntl.h>
#include <sys/mman.h>
#include <sys/stat.h>

using namespace oru::test;
using std::string;

namespace {

constexpr const char *kSecret = "a secret of the test";

size_t often(size_t sampled, size_t whole)
{
    return std::getenv("ORU_TORTURE") != nullptr ? whole : sampled;
}

/// The other user, until the test's end.
class Spy {
public:
    explicit Spy(const string &root)
    {
        void *page = ::mmap(nullptr, sizeof(Seen), PROT_READ | PROT_WRITE,
                            MAP_SHARED | MAP_ANONYMOUS, -1, 0);
        if (page == MAP_FAILED) std::abort();
        seen_ = new (page) Seen;
        child_ = startChild([&] {
            if (!becomePlainUser()) return 1;
            for (;; ++seen_->rounds)
                for (const char *folder : {"/var", "/config", "/tmp"}) look(root + folder, 0);
        });
        waitForRounds(1);
    }
    ~Spy()
    {
        ::kill(child_, SIGKILL);
        EXPECT_EQ(waitForChild(child_), 1000 + SIGKILL);
        ::munmap(seen_, sizeof *seen_);
    }
    Spy(const Spy &) = delete;
    Spy &operator=(const Spy &) = delete;

    /// Waits until it has looked around once more.
    void waitForRounds(size_t more) const
    {
        const size_t end = seen_->rounds + more;
        while (seen_->rounds < end) ::usleep(100);
    }

    [[nodiscard]] size_t attempts() const { return seen_->attempts; }
    [[nodiscard]] size_t opened() const { return seen_->opened; }
    [[nodiscard]] string path() const { return seen_->path; } ///< of the last that opened

private:
    struct Seen {
        std::atomic<size_t> rounds = 0;
        std::atomic<size_t> attempts = 0;
        std::atomic<size_t> opened = 0;
        char path[512] = {};
    };

    void attempt(const string &path) const
    {
        ++seen_->attempts;
        const int file = ::open(path.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC | O_NOFOLLOW);
        if (file < 0) return;
        ::close(file);
        path.copy(seen_->path, sizeof seen_->path - 1);
        ++seen_->opened;
    }

    // NOLINTNEXTLINE(misc-no-recursion): folders stand in folders
    void look(const string &folder, int depth) const
    {
        for (const char *name : {"/1x.conf", "/.1x.conf.new", "/wsmDefaults", "/.wsmDefaults.new"})
            attempt(folder + name);
        DIR *const entries = ::opendir(folder.c_str());
        if (entries == nullptr) return;
        while (const dirent *entry = ::readdir(entries)) {
            const string name = entry->d_name;
            if (name == "." || name == "..") continue;
            const string path = folder + '/' + name;
            if (entry->d_type == DT_DIR && depth < 4) look(path, depth + 1);
            else if (entry->d_type != DT_DIR) attempt(path);
        }
        ::closedir(entries);
    }

    Seen *seen_;
    pid_t child_;
};

class Secrets : public OructlTest {
protected:
    Secrets() : umask_(::umask(0))
    {
        ::chmod(root().c_str(), 0755);
        for (const char *folder : {"/config", "/tmp"})
            std::filesystem::create_directory(root() + folder);
        set(kAaFactory, "bss0.wpaEnabled", "true"); // it takes a key then
        for (const char *path : {kWsm, kAa, kWsmFactory, kAaFactory})
            ::chmod((root() + path).c_str(), 0600);
        ::setenv("ORU_ROOT", root().c_str(), 1);
        ::setenv("ORU_LOG", "none", 1);
        variables_ = {"TMPDIR=" + root() + "/tmp"};
    }
    ~Secrets() override { ::umask(umask_); }

    void SetUp() override
    {
        if (::geteuid() != 0) GTEST_SKIP() << "needs another user";
    }

    static void expectNothingSeen(const Spy &spy, const char *what, size_t count)
    {
        spy.waitForRounds(2);
        EXPECT_EQ(spy.opened(), 0u) << spy.path();
        EXPECT_GT(spy.attempts(), 0u);
        std::printf("torture: secrets during %s: %zu runs, %zu attempts, %zu opened\n", what, count,
                    spy.attempts(), spy.opened());
    }

    void saveSecret(size_t number) const
    {
        OruAsfDict *dict = nullptr;
        ASSERT_EQ(oruAsfDictCreate(&dict, kAaFactory), 0);
        const string value = kSecret + std::to_string(number);
        EXPECT_EQ(oruAsfDictSetDelimitedString(dict, "bss0.wpaPsk", value.c_str()), 0);
        if (number % 10 == 0) remove(kAa); // then the file is a new one
        EXPECT_EQ(oruAsfDictSave(dict, kAa), 0);
        oruAsfDictFree(dict);
    }

private:
    mode_t umask_;
};

} // namespace

TEST_F(Secrets, OfACarelessWriterAreSeen)
{
    const Spy spy{root()};
    const string path = root() + "/var/.1x.conf.new";
    size_t writes = 0;
    for (; spy.opened() == 0 && writes < 1'000'000; ++writes) {
        const int file = ::open(path.c_str(), O_WRONLY | O_CREAT | O_CLOEXEC, 0666);
        ::fchmod(file, 0600);
        ::close(file);
        ::unlink(path.c_str());
    }
    EXPECT_EQ(spy.path(), path) << writes;
}

TEST_F(Secrets, AreNotSeenDuringSaves)
{
    const size_t count = often(60, 10'000);
    const Spy spy{root()};
    for (size_t i = 0; i < count; ++i) {
        saveSecret(i);
        OruSdkFeatureParam param{0, 0, static_cast<uint8_t>(i % 2)};
        ASSERT_EQ(oruSdkSetMimo(&param), 0u);
        const string psk = kSecret + std::to_string(i % 2);
        ASSERT_EQ(oruSdkSetWpaPsk(0, psk.c_str()), 0u);
    }
    expectNothingSeen(spy, "saves", 3 * count);
}

TEST_F(Secrets, AreNotSeenDuringRunsOfOructl)
{
    const size_t count = often(6, 500);
    const Spy spy{root()};
    for (size_t i = 0; i < count; ++i) {
        const string psk = kSecret + std::to_string(i % 2);
        ASSERT_EQ(run({"--yes", "reset", "all"}).exit, 0);
        ASSERT_EQ(runWithInput(psk, {"set", "psk", "0", "-"}).exit, 0);
        ASSERT_EQ(run({"set", "security", "0", i % 2 == 0 ? "wep" : "open"}).exit, 0);
        ASSERT_EQ(run({"--show-secrets", "export", root() + "/tmp/export"}).exit, 0);
        ASSERT_EQ(run({"commit", "radio"}).exit, 4) << "there are no services";
    }
    expectNothingSeen(spy, "runs of oructl", 5 * count);
}

TEST_F(Secrets, AreNotSeenDuringResets)
{
    const size_t count = often(20, 2000);
    const Spy spy{root()};
    for (size_t i = 0; i < count; ++i) {
        saveSecret(i);
        if (i % 5 == 0) remove(kAa); // then cp makes it
        ASSERT_EQ(oruSdkResetToDefaults(), 0u);
        ASSERT_EQ(oruSdkResetToBss(0), 0u);
        struct stat status {};
        ASSERT_EQ(::stat((root() + kAa).c_str(), &status), 0);
        ASSERT_EQ(status.st_mode & 07777, 0600u);
    }
    expectNothingSeen(spy, "resets", 2 * count);
}
