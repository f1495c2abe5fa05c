// Changes of the configuration: all of them, or none, and never over those of somebody else. They
// are tried on a copy, under a lock, and put into the place of the files when they have succeeded
// and nobody has changed these meanwhile.
#pragma once

#include "exit_status.hpp"
#include "scratch.hpp"
#include "state.hpp"

#include <array>
#include <optional>
#include <string>
#include <vector>

namespace oructl {

/// Why something can't go on.
struct Trouble {
    ExitStatus status;
    std::string message;
    std::string detail = {};
};

/// A failure of a call of the system: "can't lock: Permission denied".
Trouble systemTrouble(const std::string &what, int error);

/// One oructl at a time changes the files: a lock of the kernel, on a file that is never renamed.
class Lock {
public:
    static constexpr int64_t kPatienceMs = 5000;

    /// Nothing is changed while a commit is on trial, but by what ends the trial.
    enum class Trials : uint8_t { Refused, Allowed };

    explicit Lock(Trials trials = Trials::Refused) : trials_(trials) {}
    ~Lock();
    Lock(const Lock &) = delete;
    Lock &operator=(const Lock &) = delete;

    /// Waits for the lock; then finishes what an oructl that was killed had promised.
    std::optional<Trouble> take(int64_t patienceMs);

private:
    Trials trials_;
    int fd_ = -1;
};

/// A key whose value is another now.
struct KeyChange {
    std::string key;
    std::string file;
};

class Transaction {
public:
    enum class Kind : uint8_t { Real, DryRun };

    explicit Transaction(Kind kind) : kind_(kind) {}
    ~Transaction();
    Transaction(const Transaction &) = delete;
    Transaction &operator=(const Transaction &) = delete;

    /// From here on the library works on the copy.
    std::optional<Trouble> begin(int64_t patienceMs);

    /// Puts what has changed in place, unless this is a dry run. With force, also over what
    /// somebody else has stored meanwhile.
    std::optional<Trouble> finish(bool force);

    /// The keys that have changed, known when it is finished.
    [[nodiscard]] const std::vector<KeyChange> &changes() const { return changes_; }

private:
    static constexpr size_t kFiles = kConfigurationFiles.size();

    bool put(const std::vector<size_t> &files) const;

    Kind kind_;
    Lock lock_;
    std::string root_;
    std::optional<Scratch> scratch_;
    std::array<std::optional<std::string>, kFiles> before_;
    std::vector<KeyChange> changes_;
};

/// The keys whose lines differ between two texts of a file.
std::vector<KeyChange> changedKeys(const std::string &before, const std::string &after,
                                   const std::string &file);

} // namespace oructl
