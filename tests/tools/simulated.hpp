// An access point fresh from the factory, and its services.
#pragma once

#include "tools/oructl_run.hpp"
#include "tools/process.hpp"

#include <filesystem>
#include <optional>

namespace oru::test {

class SimulatedTest : public OructlTest {
protected:
    SimulatedTest()
    {
        using orusim::test::runToEnd;
        std::filesystem::remove_all(root() + "/var");
        EXPECT_EQ(
            runToEnd({"--root", root(), "--init", "--factory", ORU_SOURCE_DIR "/share"}).status, 0);
    }

    /// WSM and AA, in a world without stations that moves as the test says, but for the few moments
    /// of a run.
    void startServices()
    {
        services_.emplace(
            std::vector<std::string>{"--root", root(), "--stations", "0", "--seed", "7"});
        EXPECT_TRUE(services_->waitFor("orusim: ready\n")) << services_->output();
    }

    void control(const std::string &command) const
    {
        const auto ended = orusim::test::runToEnd({"--root", root(), "--control", command});
        EXPECT_EQ(ended.status, 0) << command << ": " << ended.output;
    }

    std::optional<orusim::test::Process> services_;
};

} // namespace oru::test
