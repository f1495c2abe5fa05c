#include "install.hpp"

#include <cstdio>
#include <cstring>
#include <sys/stat.h>
#include <unistd.h>

namespace oructl {
namespace {

// Several files are put in place in steps that a cut of the power may part. So they first stand
// whole in a folder, and whoever takes the lock next finishes what its name promises.
constexpr const char *kGathering = "/var/oructl/install.new";
constexpr const char *kPromised = "/var/oructl/install";
constexpr const char *kKept = "/var/oructl/install.done";

bool installPromised()
{
    const std::string root = rootFolder();
    for (size_t i = 0; i < kConfigurationFiles.size(); ++i) {
        const std::string copy = copyIn(kPromised, i);
        if (!existsBelowRoot(copy)) continue;
        if (!copyDictionary(root, copy, root, kConfigurationFiles[i])) return false;
    }
    return true;
}

/// Takes the promise back when nothing of it is in place: a change that failed is not made later.
void withdrawPromise()
{
    const std::string root = rootFolder();
    for (size_t i = 0; i < kConfigurationFiles.size(); ++i)
        if (const auto promised = readFile(root + copyIn(kPromised, i));
            promised && promised == readFile(root + kConfigurationFiles[i]))
            return;
    if (renameOwn(kPromised, kKept)) removeFolder(root + kKept);
}

bool putTogether(const std::vector<NewFile> &files)
{
    if (copyFiles(files, kGathering) && renameOwn(kGathering, kPromised) && finishInstall())
        return true;
    const int error = errno;
    removeFolder(rootFolder() + kGathering);
    if (isPromised()) withdrawPromise();
    errno = error;
    return false;
}

} // namespace

std::string copyIn(const std::string &folder, size_t file)
{
    return folder + std::strrchr(kConfigurationFiles[file], '/');
}

bool existsBelowRoot(const std::string &path)
{
    return ::access((rootFolder() + path).c_str(), F_OK) == 0;
}

bool renameOwn(const std::string &from, const std::string &to)
{
    const std::string root = rootFolder();
    return ::rename((root + from).c_str(), (root + to).c_str()) == 0 &&
           syncFolder(root + std::string{kOwnFolder});
}

bool finishInstall()
{
    const std::string root = rootFolder();
    removeFolder(root + kGathering);
    removeFolder(root + kKept);
    if (!isPromised()) return true;
    if (!installPromised() || !renameOwn(kPromised, kKept)) return false;
    removeFolder(root + kKept);
    return true;
}

bool copyFiles(const std::vector<NewFile> &files, const std::string &folder)
{
    const std::string root = rootFolder();
    removeFolder(root + folder);
    if (::mkdir((root + folder).c_str(), 0700) != 0) return false;
    for (const NewFile &each : files)
        if (!copyDictionary(each.root, each.path, root, copyIn(folder, each.file))) return false;
    return syncFolder(root + folder);
}

bool install(const std::vector<NewFile> &files)
{
    const std::string root = rootFolder();
    if (files.empty()) return true;
    if (files.size() == 1)
        return copyDictionary(files[0].root, files[0].path, root,
                              kConfigurationFiles[files[0].file]);
    return putTogether(files);
}

bool isPromised()
{
    return existsBelowRoot(kPromised);
}

} // namespace oructl
