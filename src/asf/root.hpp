// Where a plain path lies on this machine.
#pragma once

#include <climits>

namespace oru {

/// An absolute path moved below ORU_ROOT, when the environment names one and the process is not
/// set-uid; any other path as it is. Empty when it does not fit.
class RootedPath {
public:
    explicit RootedPath(const char *plain);

    [[nodiscard]] bool empty() const { return text_[0] == '\0'; }
    [[nodiscard]] const char *text() const { return text_; }
    char *writable() { return text_; }

private:
    char text_[PATH_MAX];
};

} // namespace oru
