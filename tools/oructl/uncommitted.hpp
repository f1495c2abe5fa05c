// What was stored since the last commit that oructl has seen.
#pragma once

#include <string>
#include <vector>

namespace oructl {

struct UncommittedFile {
    std::string file;
    size_t keys; ///< that differ; 0 when none do
};

/// The files of settings, compared with what was committed; none where no commit was seen.
std::vector<UncommittedFile> comparedFiles();

} // namespace oructl
