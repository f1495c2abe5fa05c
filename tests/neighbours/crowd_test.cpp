// A crowd of clients that say nothing, halves or nonsense, before one that means it.
#include "oruAsf.h"
#include "oruSdk.h"
#include "tools/process.hpp"
#include "tools/simbox.hpp"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <memory>
#include <sys/resource.h>
#include <vector>

using namespace orusim::test;

namespace {

constexpr rlim_t kOwnFiles = 100; // of this process, that are no clients

/// Lets this process open so many files. False when it may not.
bool mayOpen(rlim_t files)
{
    rlimit limit{};
    if (::getrlimit(RLIMIT_NOFILE, &limit) != 0) return false;
    if (limit.rlim_cur >= files) return true;
    limit.rlim_cur = files;
    limit.rlim_max = std::max(limit.rlim_max, files);
    return ::setrlimit(RLIMIT_NOFILE, &limit) == 0;
}

class Crowd : public ::testing::Test {
protected:
    void SetUp() override
    {
        if (!mayOpen(kCrowd + kOwnFiles))
            GTEST_SKIP() << "this machine lets a process open fewer than " << kCrowd << " files";
        ASSERT_EQ(orusim::initialise(kFactory, false, {}), "");
    }

    /// orusim in a shell that first obeys a command.
    void start(const std::string &before)
    {
        const std::string command = before + "exec " ORUSIM " --stations 0 --quiet --log " +
                                    box_.at("/log") + " --root " + box_.root();
        service_ = std::make_unique<Process>(std::vector<std::string>{"-c", command}, "/bin/sh");
        ASSERT_TRUE(service_->waitFor("orusim: ready\n")) << service_->output();
    }

    /// Connects; what each third one says is none, half a header, or no message at all.
    void gather()
    {
        for (size_t i = 0; i < kCrowd; ++i) {
            crowd_.emplace_back(i % 2 == 0 ? kWsmPort : kAaPort);
            connected_ += crowd_.back().connected() ? 1 : 0;
            if (i % 3 == 1) spoken_ += crowd_.back().send({0x01, 0x08}) ? 1 : 0;
            if (i % 3 == 2) spoken_ += crowd_.back().send(Bytes(i, 0xff)) ? 1 : 0;
        }
    }

    /// A request that is answered, and a notice that comes.
    void expectServed()
    {
        const auto list = std::make_unique<OruSdkBssListParam>();
        EXPECT_EQ(oruSdkGetBssListParam(list.get()), 0u);
        EXPECT_GT(list->numBss, 0u);
        EXPECT_EQ(oruSdkCommitAll(), 0u);
        EXPECT_EQ(runToEnd({"--root", box_.root(), "--control", "status"}).status, 0);
        EXPECT_TRUE(says("AA: reloaded /var/1x.conf: 0 changes\n"));
    }

    /// Its log: not its output, which nobody reads while it is asked.
    [[nodiscard]] bool says(const std::string &text) const
    {
        return box_.read("/log").find(text) != std::string::npos;
    }

    /// Those of the crowd whom the service has sent away.
    [[nodiscard]] size_t dropped() const
    {
        return static_cast<size_t>(std::count_if(crowd_.begin(), crowd_.end(),
                                                 [](const Caller &one) { return one.closed(); }));
    }

    using Bytes = orusim::Bytes;
    static constexpr size_t kCrowd = 1000;
    Box box_;
    std::unique_ptr<Process> service_;
    std::vector<Caller> crowd_;
    size_t connected_ = 0;
    size_t spoken_ = 0;
};

} // namespace

TEST_F(Crowd, DoesNotKeepTheServiceFromOneThatMeansIt)
{
    start("");
    gather();
    expectServed();
    const size_t nonsense = dropped();
    EXPECT_EQ(connected_, kCrowd);
    EXPECT_EQ(nonsense, spoken_) << "who says nothing may stay";
    crowd_.clear();
    expectServed();
    std::printf("torture: a service with a crowd: %zu clients, %zu closed for nonsense\n", kCrowd,
                nonsense);
}

TEST_F(Crowd, ThatIsTooLargeLosesThoseWhoWereIdleForLongest)
{
    start("ulimit -n 200; ");
    gather();
    expectServed();
    EXPECT_EQ(connected_, kCrowd);
    EXPECT_TRUE(says("too many clients, dropping the one that was idle for longest\n"));
    EXPECT_TRUE(crowd_.front().closed());
    EXPECT_FALSE(crowd_[kCrowd - 1].closed()) << "the last one, who said nothing";
    EXPECT_GE(dropped(), kCrowd - 200);
    std::printf("torture: a service with a crowd above its limit: %zu clients, %zu dropped\n",
                kCrowd, dropped());
}
