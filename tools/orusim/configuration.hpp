// A service's view of its configuration file.
#pragma once

#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace orusim {

/// A key whose value differs between two loads. Absent values are empty.
struct Change {
    std::string key;
    std::optional<std::string> before;
    std::optional<std::string> after;

    /// "key: before -> after" in one line; values of secret keys are masked.
    [[nodiscard]] std::string text() const;
};

/// All keys of a file as they were when it was loaded.
class Configuration {
public:
    /// Loads a file; nothing when that fails.
    static std::optional<Configuration> load(const std::string &path);

    [[nodiscard]] size_t size() const { return values_.size(); }
    [[nodiscard]] std::optional<std::string> text(const std::string &key) const;
    [[nodiscard]] int number(const std::string &key, int fallback) const;

    /// What has to change to get from this to the other, by key.
    [[nodiscard]] std::vector<Change> changesTo(const Configuration &other) const;

private:
    std::map<std::string, std::string> values_;
};

/// Whether a key's value must not be shown: pre-shared and WEP keys, RADIUS secrets, PINs.
bool isSecret(std::string_view key);

} // namespace orusim
