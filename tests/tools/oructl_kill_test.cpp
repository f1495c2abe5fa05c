// oructl killed at any system call: what stands in the files afterwards is one whole configuration,
// and the one that was promised. ORU_KILL_EVERYWHERE=1 visits every stop; otherwise some.
#include "tools/killed.hpp"

using namespace oru::test;

namespace {

using Killed = KilledTest;

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
