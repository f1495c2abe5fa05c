// The configuration as of the last commit: what runs, as far as oructl knows.
#pragma once

#include "install.hpp"

#include <optional>
#include <string>
#include <vector>

namespace oructl {

/// A commit of the radios alone leaves the settings of security as they run.
enum class Committed : uint8_t { Radio, All };

/// Puts right what a killed oructl has left of it. The lock is held.
bool mendSnapshot();

[[nodiscard]] bool hasSnapshot();

/// Takes what is stored for what runs, where nothing is known of it yet. The lock is held.
bool ensureSnapshot();

/// Takes what is stored for what runs. The lock is held.
bool renewSnapshot(Committed what);

/// A configuration file as it was committed; none when it was absent.
std::optional<std::string> committedText(size_t file);

/// The copies of settings that were committed. Radar that was detected is no setting, and isn't
/// forgotten with one.
std::vector<NewFile> committedSettings();

/// Those that a folder of copies holds.
std::vector<NewFile> settingsIn(const std::string &folder);

} // namespace oructl
