#include "uncommitted.hpp"

#include "state.hpp"
#include "transaction.hpp"

#include <cstring>

namespace oructl {

std::vector<UncommittedFile> comparedFiles()
{
    const std::string folder = rootFolder().append(kOwnFolder) + "/committed";
    std::vector<UncommittedFile> files;
    for (const char *const file : {kConfigurationFiles[0], kConfigurationFiles[1]}) {
        const auto committed = readFile(folder + std::strrchr(file, '/'));
        const auto stored = readFile(rootFolder() + file);
        if (!committed || !stored) continue;
        files.push_back({file, changedKeys(*committed, *stored, file).size()});
    }
    return files;
}

} // namespace oructl
