#include "uncommitted.hpp"

#include "state.hpp"
#include "transaction.hpp"

#include <cstring>

namespace oructl {

std::vector<UncommittedFile> uncommittedFiles()
{
    const std::string folder = rootFolder().append(kOwnFolder) + "/committed";
    std::vector<UncommittedFile> files;
    for (const char *const file : {kConfigurationFiles[0], kConfigurationFiles[1]}) {
        const auto committed = readFile(folder + std::strrchr(file, '/'));
        const auto stored = readFile(rootFolder() + file);
        if (!committed || !stored) continue;
        const size_t keys = changedKeys(*committed, *stored, file).size();
        if (keys > 0) files.push_back({file, keys});
    }
    return files;
}

} // namespace oructl
