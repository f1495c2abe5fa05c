// oructl killed at any system call: what stands in the files afterwards is one whole configuration,
// and the one that was promised. ORU_KILL_EVERYWHERE=1 visits every stop; otherwise some.
#include "tools/kill_run.hpp"
#include "tools/oructl_run.hpp"

#include <cstdio>
#include <filesystem>
#include <utility>

using namespace oru::test;

namespace {

namespace fs = std::filesystem;

using Configuration = std::pair<std::string, std::string>;

class Killed : public OructlTest {
protected:
    Killed() : template_(root() + ".template")
    {
        EXPECT_EQ(run({"commit"}).exit, 4) << "there are no services";
    }
    ~Killed() override
    {
        std::error_code ignored;
        fs::remove_all(template_, ignored);
    }

    /// What a run starts from, again and again.
    void keep()
    {
        fs::remove_all(template_);
        fs::copy(root(), template_, fs::copy_options::recursive);
    }
    void restore()
    {
        fs::remove_all(root() + "/var");
        fs::copy(template_ + "/var", root() + "/var", fs::copy_options::recursive);
    }

    [[nodiscard]] Configuration stored() const { return {read(kWsm), read(kAa)}; }
    [[nodiscard]] Configuration committed() const
    {
        return {read("/var/oructl/committed/wsmDefaults"), read("/var/oructl/committed/1x.conf")};
    }
    [[nodiscard]] bool has(const std::string &name) const
    {
        return fs::exists(root() + "/var/oructl/" + name);
    }

    /// A change of both files.
    void change()
    {
        old_ = stored();
        ASSERT_EQ(run({"set", "ssid", "0", "another"}).exit, 0);
        ASSERT_EQ(run({"set", "security", "0", "wep"}).exit, 0);
        new_ = stored();
        ASSERT_NE(old_.first, new_.first);
        ASSERT_NE(old_.second, new_.second);
    }

    /// The machine starts anew: the boot at which a trial began is over.
    void restart()
    {
        if (!has("pending/trial")) return;
        std::string trial = read("/var/oructl/pending/trial");
        const size_t boot = trial.find('\n') + 1;
        trial.replace(boot, trial.find('\n', boot) - boot, "another boot");
        write("/var/oructl/pending/trial", trial);
    }

    /// Runs it from the same start, killed at each stop in turn; then checks. Tells of how many.
    template <class Check>
    void killEverywhere(const Arguments &arguments, size_t stride, Check check)
    {
        keep();
        size_t stop = 1;
        size_t runs = 0;
        for (auto killed = KilledAt::Stop; killed == KilledAt::Stop; stop += stride, ++runs) {
            restore();
            killed = runAndKill(root(), arguments, stop);
            check(killed);
            ASSERT_FALSE(HasFailure()) << "killed at stop " << stop;
        }
        std::printf("torture: oructl %s killed at a system call: %zu kills, %zu stops\n",
                    arguments.front().c_str(), runs - 1, stop - stride - 1);
        EXPECT_GT(runs, 10u);
    }

    void expectGuarded(const Configuration &wanted, const Configuration &runs) const
    {
        EXPECT_EQ(run({"guard"}).exit, 0);
        EXPECT_EQ(stored(), wanted);
        EXPECT_EQ(committed(), runs);
        EXPECT_FALSE(has("pending"));
        EXPECT_FALSE(has("install"));
    }

    std::string template_;
    Configuration old_;
    Configuration new_;
};

TEST_F(Killed, ATrialLeavesTheNewFilesOrTheOldOnes)
{
    change();
    killEverywhere({"commit", "--confirm", "600"}, killStride(7), [this](KilledAt) {
        const bool promised = has("pending");
        restart();
        expectGuarded(promised ? old_ : new_, old_);
    });
    EXPECT_EQ(run({"guard"}).exit, 0);
}

TEST_F(Killed, TheGuardIsFinishedByTheNextOne)
{
    change();
    EXPECT_EQ(runAndKill(root(), {"commit", "--confirm", "600"}, SIZE_MAX), KilledAt::Sleep);
    restart();
    killEverywhere({"guard"}, killStride(11), [this](KilledAt) { expectGuarded(old_, old_); });
}

TEST_F(Killed, AConfirmationHoldsOrTheOldConfigurationComesBack)
{
    change();
    EXPECT_EQ(runAndKill(root(), {"commit", "--confirm", "600"}, SIZE_MAX), KilledAt::Sleep);
    std::string token = read("/var/oructl/pending/trial");
    token.resize(token.find('\n'));
    killEverywhere({"confirm", token}, killStride(7), [this](KilledAt killed) {
        const bool held = !has("pending");
        EXPECT_TRUE(held || killed == KilledAt::Stop);
        restart();
        expectGuarded(held ? new_ : old_, held ? new_ : old_);
    });
}

TEST_F(Killed, ACommitIsKnownOrNot)
{
    change();
    killEverywhere({"commit"}, killStride(7), [this](KilledAt killed) {
        EXPECT_TRUE(has("committed") || has("committed.old")) << "never without one";
        EXPECT_EQ(run({"commit", "radio"}).exit, 4) << "mends what is left";
        EXPECT_EQ(stored(), new_);
        EXPECT_EQ(committed().first, new_.first);
        EXPECT_TRUE(committed().second == new_.second || committed().second == old_.second);
        EXPECT_TRUE(killed == KilledAt::Stop || committed() == new_);
    });
}

TEST_F(Killed, ASetOfTwoFilesIsFinishedByTheNextOrUndone)
{
    const Arguments two = {"set", "security", "0", "wpa2", "psk"};
    const Arguments next = {"set", "timeouts", "3", "600", "3600"};
    const auto nextAfter = [&] {
        EXPECT_EQ(run(next).exit, 0);
        return stored();
    };
    keep();
    const Configuration before = stored();
    const Configuration undone = nextAfter();
    restore();
    ASSERT_EQ(run(two).exit, 0);
    const Configuration after = stored();
    ASSERT_TRUE(before.first != after.first && before.second != after.second) << "both files";
    const Configuration finished = nextAfter();
    restore();
    killEverywhere(two, killStride(7), [&](KilledAt killed) {
        const bool promised = has("install") || stored() == after;
        EXPECT_TRUE(promised || killed == KilledAt::Stop);
        EXPECT_EQ(nextAfter(), promised ? finished : undone);
        EXPECT_FALSE(has("install"));
    });
}

} // namespace
