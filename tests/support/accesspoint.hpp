// A private access point in a temporary folder.
#pragma once

#include "support/standin.hpp"

#include <gtest/gtest.h>

#include <optional>
#include <string>

namespace oru::test {

inline constexpr const char *kWsm = "/var/wsmDefaults";
inline constexpr const char *kAa = "/var/1x.conf";
inline constexpr const char *kWsmFactory = "/var/wsmDefaults.orig";
inline constexpr const char *kAaFactory = "/var/1x.conf.orig";
inline constexpr const char *kRadarList = "/config/wsmSavedRadarDetectList";

/// The files of an access point as it leaves the factory, below ORU_ROOT.
class AccessPoint {
public:
    AccessPoint();
    ~AccessPoint();
    AccessPoint(const AccessPoint &) = delete;
    AccessPoint &operator=(const AccessPoint &) = delete;

    /// Puts every file back to its factory text.
    void restore();

    [[nodiscard]] const std::string &root() const { return root_; }
    [[nodiscard]] std::string read(const std::string &path) const;
    void write(const std::string &path, const std::string &text) const;
    void remove(const std::string &path) const;

    /// The value of a key as it reads; none when it is absent.
    [[nodiscard]] std::optional<std::string> value(const std::string &path,
                                                   const std::string &key) const;
    void set(const std::string &path, const std::string &key, const std::string &value) const;
    void setDelimited(const std::string &path, const std::string &key,
                      const std::string &value) const;
    void unset(const std::string &path, const std::string &key) const;

    /// All files of the configuration, one text.
    [[nodiscard]] std::string everything() const;

private:
    std::string root_;
};

/// A test with an access point of its own and a stand-in that has seen nothing.
class AccessPointTest : public ::testing::Test {
protected:
    AccessPointTest() { standIn.reset(); }

    /// After the body: whatever an operation opened is given back.
    void TearDown() override;

    /// For the operations that leave a handle open on purpose.
    void expectOpenDicts(int count) { expectedDicts_ = count; }

    AccessPoint box;
    StandIn &standIn = StandIn::get();

private:
    int expectedDicts_ = 0;
};

/// Matches one caught log line at error level, and nothing else.
#define EXPECT_LOGGED(text) ::oru::test::expectLogged(3, {text}, __FILE__, __LINE__)
#define EXPECT_LOGGED_AT(level, text) ::oru::test::expectLogged(level, {text}, __FILE__, __LINE__)
#define EXPECT_NOTHING_LOGGED() ::oru::test::expectLogged(3, {}, __FILE__, __LINE__)

/// Checks the caught log lines, all at one level, and forgets them.
void expectLogged(int32_t level, const std::vector<std::string> &texts, const char *file, int line);

} // namespace oru::test
