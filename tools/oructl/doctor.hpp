// The verb "doctor": looks for what doesn't hold between the configuration files, and between them
// and the services. A check is a row in one source file a family.
#pragma once

#include "dictionary.hpp"
#include "request.hpp"

#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace oructl {

enum class Level : uint8_t { Error, Warning, Note };

/// What the checks look at.
struct Patient {
    Dictionary radio{"/var/wsmDefaults"};
    Dictionary security{"/var/1x.conf"};
};

struct Finding {
    std::string message; ///< what is wrong, without a secret
    std::string mend;    ///< the command that mends it, or what else to do
};
using Findings = std::vector<Finding>;

struct Check {
    std::string_view name;
    Level level;
    void (*look)(const Patient &, Findings &);
};

/// What the files are like, whatever they hold.
std::span<const Check> fileChecks();
/// What they hold: looked at when both can be read.
std::span<const Check> keyChecks();
std::span<const Check> securityChecks();
std::span<const Check> radioChecks();

int runDoctor(Request &request);

/// "error", "warning" or "note".
std::string_view levelName(Level level);

/// A finding, and the check that found it.
struct Diagnosis {
    const Check *check;
    Finding finding;
};

} // namespace oructl
