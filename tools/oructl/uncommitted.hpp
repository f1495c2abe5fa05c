// What was stored since the last commit that oructl has seen.
#pragma once

#include <string>
#include <vector>

namespace oructl {

struct UncommittedFile {
    std::string file;
    size_t keys; ///< that differ
};

/// The files of settings that differ from what was committed; none where no commit was seen.
std::vector<UncommittedFile> uncommittedFiles();

} // namespace oructl
