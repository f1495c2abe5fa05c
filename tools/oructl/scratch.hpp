// A copy of the access point's configuration for this process alone, where changes are tried.
#pragma once

#include <string>

namespace oructl {

/// A root folder with copies of the configuration files and links to everything else that the
/// library reads. It lies in memory where there is a folder of it, so that trying costs no flash,
/// and goes with this object, also when a signal ends the process. That of a process that was
/// killed goes with the next one.
class Scratch {
public:
    /// Of the access point below the root folder; a file that can't be read is missing in it.
    Scratch();
    ~Scratch();
    Scratch(const Scratch &) = delete;
    Scratch &operator=(const Scratch &) = delete;

    [[nodiscard]] explicit operator bool() const { return made_; }
    [[nodiscard]] const std::string &root() const { return root_; }

    /// Puts a text into a file of it.
    bool write(const char *file, const std::string &text);

private:
    bool makeRoot(const std::string &parent);
    bool link(const std::string &original, const std::string &name);
    bool fillFolder(const std::string &original, const std::string &folder);

    std::string root_;
    int lock_ = -1;
    bool made_ = false;
};

/// Removes what a scratch folder holds, and calls nothing but what a handler of signals may.
void removeScratch();

} // namespace oructl
