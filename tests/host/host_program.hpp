// A program that uses the library, with an access point and its services.
#pragma once

#include "asf/child.hpp"
#include "host/operations.hpp"
#include "oruSdk.h"
#include "tools/process.hpp"
#include "tools/simbox.hpp"

#include <gtest/gtest.h>

#include <map>
#include <optional>
#include <set>

namespace oru::test {

namespace fs = std::filesystem;
using std::string;

inline constexpr const char *kFiles[] = {"/var/wsmDefaults", "/var/1x.conf",
                                         "/var/wsmDefaults.orig", "/var/1x.conf.orig",
                                         "/config/wsmSavedRadarDetectList"};

/// Whether all is to be run, and not a sample.
inline bool whole()
{
    return std::getenv("ORU_TORTURE") != nullptr;
}

/// All operations, or some of each kind.
inline std::vector<Operation> sampled()
{
    if (whole()) return operations();
    const std::set<string> always = {"oruSdkSetEtherVlanId", "oruSdkResetToDefaults",
                                     "oruSdkCommitAll",      "oruSdkGetScanlistParam",
                                     "oruSdkSetSsid",        "oruSdkSetAdminStatus"};
    std::vector<Operation> some;
    for (size_t i = 0; i < operations().size(); ++i)
        if (i % 6 == 0 || always.count(operations()[i].name) == 1) some.push_back(operations()[i]);
    return some;
}

inline string readAll(const string &path)
{
    std::ifstream file{path, std::ios::binary};
    std::ostringstream text;
    text << file.rdbuf();
    return text.str();
}

/// What a run of an operation left: its code, the files, and the log.
struct Outcome {
    int code = -1;
    std::map<string, string> files;
    string log;

    bool operator==(const Outcome &other) const
    {
        return code == other.code && files == other.files && log == other.log;
    }
};

inline void PrintTo(const Outcome &outcome, std::ostream *to)
{
    *to << "code " << outcome.code << ", log: " << outcome.log;
    for (const auto &[path, text] : outcome.files) *to << path << ": " << text.size() << " bytes ";
}

class HostProgram : public testing::Test {
protected:
    HostProgram()
    {
        for (const char *folder : {"/var", "/config"}) fs::create_directories(box.at(folder));
        for (const char *path : kFiles) {
            const string name = fs::path{path}.filename();
            const string from = string{ORU_SOURCE_DIR "/share/"} + name;
            fresh[path] = readAll(fs::exists(from) ? from : from + ".orig");
        }
        restore();
        ::setenv("ORU_LOG", ("file:" + box.at("/log")).c_str(), 1);
        startServices();
    }
    ~HostProgram() override { ::unsetenv("ORU_LOG"); }

    /// Anew: nobody reads what they say of each request, and their pipe is full after some
    /// thousands.
    void startServices()
    {
        services.reset();
        services.emplace(
            std::vector<string>{"--root", box.root(), "--stations", "0", "--seed", "7"});
        EXPECT_TRUE(services->waitFor("orusim: ready\n")) << services->output();
    }

    void restore() const
    {
        for (const auto &[path, text] : fresh)
            if (readAll(box.at(path)) != text) box.write(path, text);
        fs::remove(box.at("/log"));
    }

    [[nodiscard]] Outcome outcomeOf(int code) const
    {
        Outcome outcome{code, {}, readAll(box.at("/log"))};
        for (const char *path : kFiles) outcome.files[path] = readAll(box.at(path));
        return outcome;
    }

    /// Runs an operation in a child that prepared itself.
    Outcome run(
        const Operation &operation, const std::function<void()> &prepare = [] {}) const
    {
        restore();
        return outcomeOf(inChild([&] {
            prepare();
            return static_cast<int>(operation.call());
        }));
    }

    /// Every operation does what it does in a program without peculiarities.
    void expectTheSame(const std::function<void()> &prepare, const char *what)
    {
        startServices();
        size_t runs = 0;
        for (const Operation &operation : sampled()) {
            SCOPED_TRACE(operation.name + ", " + what);
            const Outcome plain = run(operation);
            EXPECT_EQ(run(operation, prepare), plain);
            ++runs;
        }
        std::printf("torture: host programs, %s: %zu operations\n", what, runs);
    }

    orusim::test::Box box;
    std::map<string, string> fresh;
    std::optional<orusim::test::Process> services;
};

} // namespace oru::test
