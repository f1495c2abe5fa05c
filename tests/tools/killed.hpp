// What the tests share in which oructl ends early, wherever it can.
#pragma once

#include "tools/kill_run.hpp"
#include "tools/oructl_run.hpp"

#include <cstdio>
#include <filesystem>
#include <utility>

namespace oru::test {

using Configuration = std::pair<std::string, std::string>;

class KilledTest : public OructlTest {
protected:
    KilledTest() : template_(root() + ".template")
    {
        EXPECT_EQ(run({"commit"}).exit, 4) << "there are no services";
    }
    ~KilledTest() override
    {
        std::error_code ignored;
        std::filesystem::remove_all(template_, ignored);
        std::filesystem::remove_all(scratchOf(root()), ignored);
    }

    /// What a run starts from, again and again.
    void keep()
    {
        std::filesystem::remove_all(template_);
        std::filesystem::copy(root(), template_, std::filesystem::copy_options::recursive);
    }
    void restore()
    {
        std::filesystem::remove_all(root() + "/var");
        std::filesystem::copy(template_ + "/var", root() + "/var",
                              std::filesystem::copy_options::recursive);
    }

    [[nodiscard]] Configuration stored() const { return {read(kWsm), read(kAa)}; }
    [[nodiscard]] Configuration committed() const
    {
        return {read("/var/oructl/committed/wsmDefaults"), read("/var/oructl/committed/1x.conf")};
    }
    [[nodiscard]] bool has(const std::string &name) const
    {
        return std::filesystem::exists(root() + "/var/oructl/" + name);
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

    /// Runs it up to a stop.
    virtual KilledAt killAt(const Arguments &arguments, size_t stop)
    {
        return runAndKill(root(), arguments, stop);
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
            killed = killAt(arguments, stop);
            check(killed);
            ASSERT_FALSE(HasFailure()) << "killed at stop " << stop;
        }
        std::printf("torture: oructl %s %s at a system call: %zu kills, %zu stops\n",
                    arguments.front().c_str(), fate_, runs - 1, stop - stride - 1);
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
    const char *fate_ = "killed";
    Configuration old_;
    Configuration new_;
};

} // namespace oru::test
