// oructl on a disk whose power is cut at any of its system calls: the next run finds one whole
// configuration, and the one that was promised.
#include "power/disk.hpp"
#include "tools/killed.hpp"

using namespace oru::test;

namespace {

class OructlPowerCut : public KilledTest {
protected:
    OructlPowerCut() : disk_(root(), "ext4 -b 1024", 8192) { fate_ = "without power"; }

    void SetUp() override
    {
        if (!disk_.trouble().empty())
            GTEST_SKIP() << "this machine mounts no disks for the tests: " << disk_.trouble();
        keep();
        ASSERT_TRUE(disk_.mount(kMount)) << disk_.trouble();
        restore();
        change();
        keep();
    }

    KilledAt killAt(const Arguments &arguments, size_t stop) override
    {
        EXPECT_TRUE(disk_.sync());
        const auto cut = [&] { EXPECT_TRUE(disk_.cut(how_)); };
        const KilledAt killed = runAndKill(root(), arguments, stop, cut);
        if (killed == KilledAt::Never) cut();
        EXPECT_TRUE(disk_.unmount() && disk_.mount(kMount)) << disk_.trouble();
        return killed;
    }

    /// In each way of a cut, from the same start.
    template <class Check>
    void cutEverywhere(const Arguments &arguments, size_t usual, Check check)
    {
        for (const Cut how : kCuts) {
            how_ = how;
            restore();
            killEverywhere(arguments, killStride(usual), check);
            if (HasFailure()) break;
        }
    }

    static constexpr const char *kMount = "noauto_da_alloc";
    Cut how_ = Cut::Nothing;
    Disk disk_;
};

TEST_F(OructlPowerCut, ASetOfTwoFilesIsWholeOrUndone)
{
    const Arguments two = {"set", "security", "0", "wpa2", "psk"};
    const Arguments next = {"set", "timeouts", "3", "600", "3600"};
    const auto nextAfter = [&] {
        EXPECT_EQ(run(next).exit, 0);
        return stored();
    };
    const Configuration undone = nextAfter();
    restore();
    ASSERT_EQ(run(two).exit, 0);
    const Configuration after = stored();
    ASSERT_TRUE(new_.first != after.first && new_.second != after.second) << "both files";
    const Configuration finished = nextAfter();
    restore();
    cutEverywhere(two, 67, [&](KilledAt killed) {
        const bool promised = has("install") || stored() == after;
        EXPECT_TRUE(promised || killed == KilledAt::Stop);
        EXPECT_EQ(nextAfter(), promised ? finished : undone);
        EXPECT_FALSE(has("install"));
    });
}

TEST_F(OructlPowerCut, OnAFullDiskASetOfTwoFilesSaysWhatIsStored)
{
    const Arguments two = {"set", "security", "0", "wpa2", "psk"};
    ASSERT_EQ(run(two).exit, 0);
    const Configuration after = stored();
    size_t refused = 0;
    size_t saved = 0;
    for (size_t left = 0; left <= 12; left += killStride(2)) {
        SCOPED_TRACE(left);
        restore();
        ASSERT_TRUE(disk_.fill(left));
        const int exit = run(two).exit;
        EXPECT_FALSE(has("install") || has("install.new"));
        EXPECT_EQ(stored(), exit == 0 ? after : new_);
        ASSERT_TRUE(disk_.free());
        EXPECT_EQ(run({"commit", "radio"}).exit, 4) << "there are no services";
        EXPECT_EQ(stored(), exit == 0 ? after : new_) << "and stays so";
        ++(exit == 0 ? saved : refused);
    }
    EXPECT_GT(refused, 0u);
    EXPECT_GT(saved, 0u);
    std::printf("torture: oructl set on a full disk: %zu refused, %zu saved\n", refused, saved);
}

TEST_F(OructlPowerCut, ATrialIsTakenBackOrHasNotBegun)
{
    cutEverywhere({"commit", "--confirm", "600"}, 41, [&](KilledAt killed) {
        const bool promised = has("pending");
        EXPECT_TRUE(promised || killed == KilledAt::Stop);
        restart();
        expectGuarded(promised ? old_ : new_, old_);
    });
}

} // namespace
