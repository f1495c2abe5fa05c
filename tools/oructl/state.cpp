#include "state.hpp"

#include "oruAsf.h"

#include <cerrno>
#include <climits>
#include <cstdlib>
#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace oructl {
namespace {

constexpr size_t kLargestFile = size_t{4} << 20;

/// An open file or folder.
class Descriptor {
public:
    explicit Descriptor(int fd) : fd_(fd) {}
    ~Descriptor()
    {
        if (fd_ >= 0) ::close(fd_);
    }
    Descriptor(const Descriptor &) = delete;
    Descriptor &operator=(const Descriptor &) = delete;
    operator int() const { return fd_; }

private:
    int fd_;
};

void removeEntries(int folder)
{
    DIR *const entries = ::fdopendir(folder);
    if (entries == nullptr) return;
    while (const dirent *entry = ::readdir(entries)) {
        const std::string_view name = entry->d_name;
        if (name == "." || name == "..") continue;
        if (::unlinkat(folder, entry->d_name, 0) == 0) continue;
        const int inner =
            ::openat(folder, entry->d_name, O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC);
        if (inner < 0) continue;
        removeEntries(inner);
        (void)::unlinkat(folder, entry->d_name, AT_REMOVEDIR);
    }
    ::closedir(entries);
}

} // namespace

std::string rootFolder()
{
    const char *const root = ::secure_getenv("ORU_ROOT");
    std::string folder = root != nullptr ? root : "";
    while (folder.ends_with('/')) folder.pop_back();
    return folder;
}

void setRootFolder(const std::string &folder)
{
    if (folder.empty()) ::unsetenv("ORU_ROOT");
    else ::setenv("ORU_ROOT", folder.c_str(), 1);
}

std::optional<std::string> readFile(const std::string &path)
{
    const Descriptor file{::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NOCTTY | O_NONBLOCK)};
    if (file < 0) return std::nullopt;
    std::string text;
    for (size_t size = 0;;) {
        text.resize(size + 65536);
        const ssize_t got = ::read(file, text.data() + size, text.size() - size);
        if (got < 0 && errno == EINTR) continue;
        if (got < 0) return std::nullopt;
        size += static_cast<size_t>(got);
        text.resize(size);
        if (got == 0) return text;
        if (size > kLargestFile) {
            errno = EFBIG;
            return std::nullopt;
        }
    }
}

bool copyDictionary(const std::string &fromRoot, const std::string &from, const std::string &toRoot,
                    const std::string &to)
{
    OruAsfDict *dict = nullptr;
    {
        const MovedRoot source{fromRoot};
        if (oruAsfDictCreate(&dict, from.c_str()) != 0) return false;
    }
    const MovedRoot target{toRoot};
    const bool saved = oruAsfDictSave(dict, to.c_str()) == 0;
    const int error = errno;
    oruAsfDictFree(dict);
    errno = error;
    return saved;
}

bool makeOwnFolder()
{
    const std::string folder = rootFolder().append(kOwnFolder);
    if (::mkdir(folder.c_str(), 0700) == 0) return syncFolder(rootFolder() + "/var");
    if (errno != EEXIST) return false;
    struct stat status = {};
    if (::lstat(folder.c_str(), &status) != 0) return false;
    if (S_ISDIR(status.st_mode)) return true;
    errno = ENOTDIR;
    return false;
}

bool syncFolder(const std::string &path)
{
    const Descriptor folder{::open(path.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC)};
    return folder >= 0 && ::fsync(folder) == 0;
}

void removeFolder(const std::string &path)
{
    const int folder = ::open(path.c_str(), O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC);
    if (folder < 0) return;
    removeEntries(folder);
    (void)::rmdir(path.c_str());
}

} // namespace oructl
