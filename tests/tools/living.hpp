// A living access point in one process: the real library calls, the test's thread steps.
#pragma once

#include "oruSdk.h"
#include "orusim/control.hpp"
#include "orusim/simulator.hpp"
#include "simbox.hpp"

#include <gmock/gmock.h>

#include <chrono>
#include <future>

namespace orusim::test {

class LivingTest : public ::testing::Test {
protected:
    LivingTest()
    {
        EXPECT_EQ(initialise(kFactory, false, {}), "");
        start();
    }

    void start(uint64_t seed = 1, size_t stations = 0)
    {
        sim.reset();
        sim = std::make_unique<Simulator>(
            Simulator::Options{.log = [this](std::string_view line) { lines.emplace_back(line); },
                               .seed = seed,
                               .stations = stations},
            clock);
        ASSERT_EQ(sim->start(), "");
        lines.clear();
    }

    /// Calls the library in a thread of its own, and serves it.
    template <class Call>
    auto call(Call operation)
    {
        using namespace std::chrono_literals;
        auto result = std::async(std::launch::async, operation);
        while (result.wait_for(0s) != std::future_status::ready) sim->runOnce(1);
        return result.get();
    }

    /// Moves the clock and lets the simulator notice.
    void pass(int64_t ms)
    {
        clock.advance(ms);
        sim->runOnce(0);
    }

    std::string command(std::string_view text) { return obey(*sim, text); }
    void commit()
    {
        ASSERT_EQ(call([] { return oruSdkCommitAll(); }), 0u);
        sim->runOnce(0);
    }
    World &world() { return sim->wsm().world(); }

    Box box;
    ManualClock clock;
    std::vector<std::string> lines;
    std::unique_ptr<Simulator> sim;
};

inline uint32_t number(const uint8_t (&bytes)[4])
{
    return oruAsfGet32(bytes);
}

} // namespace orusim::test
