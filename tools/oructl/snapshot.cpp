#include "snapshot.hpp"

namespace oructl {
namespace {

// A new snapshot is whole before the old one is moved out of its way. In between there is none of
// the right name: then the old one counts.
constexpr const char *kSnapshot = "/var/oructl/committed";
constexpr const char *kNew = "/var/oructl/committed.new";
constexpr const char *kOld = "/var/oructl/committed.old";

constexpr size_t kSecurityFile = 1;
constexpr size_t kSettings = 2; // files of them; those of radar stand behind

const char *current()
{
    return existsBelowRoot(kSnapshot) ? kSnapshot : kOld;
}

/// What runs after a commit: of security, after one of the radios alone, what ran before.
std::vector<NewFile> running(Committed what)
{
    const std::string root = rootFolder();
    std::vector<NewFile> files;
    for (size_t i = 0; i < kConfigurationFiles.size(); ++i) {
        const bool untold = what == Committed::Radio && i == kSecurityFile && hasSnapshot();
        const std::string path = untold ? copyIn(current(), i) : kConfigurationFiles[i];
        if (existsBelowRoot(path)) files.push_back({i, root, path});
    }
    return files;
}

} // namespace

bool mendSnapshot()
{
    const std::string root = rootFolder();
    if (existsBelowRoot(kOld) && !existsBelowRoot(kSnapshot) && !renameOwn(kOld, kSnapshot))
        return false;
    removeFolder(root + kNew);
    removeFolder(root + kOld);
    return true;
}

bool hasSnapshot()
{
    return existsBelowRoot(current());
}

bool ensureSnapshot()
{
    return hasSnapshot() || renewSnapshot(Committed::All);
}

bool renewSnapshot(Committed what)
{
    if (!copyFiles(running(what), kNew)) return false;
    if (existsBelowRoot(kSnapshot) && !renameOwn(kSnapshot, kOld)) return false;
    if (!renameOwn(kNew, kSnapshot)) return false;
    removeFolder(rootFolder() + kOld);
    return true;
}

std::optional<std::string> committedText(size_t file)
{
    return readFile(rootFolder() + copyIn(current(), file));
}

std::vector<NewFile> settingsIn(const std::string &folder)
{
    std::vector<NewFile> files;
    for (size_t i = 0; i < kSettings; ++i)
        if (existsBelowRoot(copyIn(folder, i)))
            files.push_back({i, rootFolder(), copyIn(folder, i)});
    return files;
}

std::vector<NewFile> committedSettings()
{
    return settingsIn(current());
}

} // namespace oructl
