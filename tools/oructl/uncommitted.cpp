#include "uncommitted.hpp"

#include "snapshot.hpp"
#include "transaction.hpp"

namespace oructl {

std::vector<UncommittedFile> comparedFiles()
{
    std::vector<UncommittedFile> files;
    for (const size_t i : {size_t{0}, size_t{1}}) {
        const std::string file = kConfigurationFiles[i];
        const auto committed = committedText(i);
        const auto stored = readFile(rootFolder() + file);
        if (!committed || !stored) continue;
        files.push_back({file, changedKeys(*committed, *stored, file).size()});
    }
    return files;
}

} // namespace oructl
