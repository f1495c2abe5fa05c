// Runs the real oructl against an access point's files in a folder of its own.
#pragma once

#include <nlohmann/json.hpp>

#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <vector>

namespace oru::test {

using Arguments = std::vector<std::string>;

struct Transcript {
    int exit = -1;
    std::string out;
    std::string err;
};

/// The exit status of a call that the library refused for this reason.
int exitOfRefusal(int code, const std::string &reason);

/// Where standard output goes.
enum class Stdout { Pipe, Full, Closed };

class OructlTest : public ::testing::Test {
protected:
    OructlTest();
    ~OructlTest() override;

    Transcript run(const Arguments &arguments, Stdout where = Stdout::Pipe) const;

    /// Runs with a text on standard input, a pipe.
    Transcript runWithInput(const std::string &input, const Arguments &arguments) const;

    /// The one JSON object of a run that writes nothing else. Its schema is checked.
    nlohmann::json jsonOf(const Arguments &arguments, int exit) const;

    [[nodiscard]] std::string read(const std::string &path) const;
    void write(const std::string &path, const std::string &text) const;

    /// Replaces the radio file by the one of the factory.
    void useFactoryRadios() const;

    /// The files of an access point as it leaves the factory, instead of small ones.
    void installFactoryFiles() const;

    /// Puts a shell script before the program of this name for the commands that the library runs.
    void standIn(const std::string &program, const std::string &script) const;
    void remove(const std::string &path) const;

    /// The text behind "KEY=" of a file; none when the key is absent.
    [[nodiscard]] std::optional<std::string> value(const std::string &path,
                                                   const std::string &key) const;
    void set(const std::string &path, const std::string &key, const std::string &value) const;

    [[nodiscard]] const std::string &root() const { return root_; }

    /// What a run finds in its environment.
    [[nodiscard]] std::vector<std::string> environment() const;

    static constexpr const char *kWsm = "/var/wsmDefaults";
    static constexpr const char *kAa = "/var/1x.conf";
    static constexpr const char *kWsmFactory = "/var/wsmDefaults.orig";
    static constexpr const char *kAaFactory = "/var/1x.conf.orig";

    std::string locale_ = "C";
    std::string preload_ = "";                ///< a library that goes before all others of a run
    std::string log_ = "none";                ///< where log lines go
    std::vector<std::string> variables_ = {}; ///< more of the environment: "NAME=value"

private:
    Transcript runWith(int input, const Arguments &arguments, Stdout where) const;

    std::string root_;
};

} // namespace oru::test
