#include "scratch.hpp"

#include "state.hpp"

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <dirent.h>
#include <fcntl.h>
#include <memory>
#include <string_view>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>
#include <vector>

namespace oructl {
namespace {

constexpr int kSignals[] = {SIGINT, SIGTERM, SIGHUP, SIGQUIT};

/// What the handler of signals removes, files before their folders. It changes while they are
/// blocked.
std::vector<std::string> leftovers;

/// Calls nothing but what a handler may.
void cleanUp(int signal)
{
    removeScratch();
    ::signal(signal, SIG_DFL);
    ::raise(signal);
}

class BlockedSignals {
public:
    BlockedSignals()
    {
        sigset_t set;
        ::sigemptyset(&set);
        for (const int each : kSignals) ::sigaddset(&set, each);
        ::sigprocmask(SIG_BLOCK, &set, &before_);
    }
    ~BlockedSignals() { ::sigprocmask(SIG_SETMASK, &before_, nullptr); }
    BlockedSignals(const BlockedSignals &) = delete;
    BlockedSignals &operator=(const BlockedSignals &) = delete;

private:
    sigset_t before_;
};

void removeLater(std::string path)
{
    const BlockedSignals blocked;
    leftovers.insert(leftovers.begin(), std::move(path));
}

void catchSignals()
{
    struct sigaction action = {};
    action.sa_handler = cleanUp;
    action.sa_flags = SA_RESTART | SA_NODEFER;
    for (const int each : kSignals) {
        struct sigaction before = {};
        if (::sigaction(each, nullptr, &before) == 0 && before.sa_handler == SIG_DFL)
            ::sigaction(each, &action, nullptr);
    }
}

/// Memory, where there is a folder of it.
std::string parentFolder()
{
    const char *const wanted = std::getenv("TMPDIR");
    if (wanted != nullptr && wanted[0] == '/') return wanted;
    return ::access("/dev/shm", W_OK | X_OK) == 0 ? "/dev/shm" : "/tmp";
}

constexpr std::string_view kName = "/oructl-scratch.";

/// Opens and locks a scratch folder of this user: the lock says that its process lives. -1 where
/// another process holds it or has removed it.
int lockFolder(const std::string &path)
{
    const int folder = ::open(path.c_str(), O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC);
    if (folder < 0) return -1;
    struct stat status = {};
    if (::flock(folder, LOCK_EX | LOCK_NB) == 0 && ::fstat(folder, &status) == 0 &&
        status.st_uid == ::geteuid() && status.st_nlink > 0)
        return folder;
    ::close(folder);
    return -1;
}

/// Removes the scratch folders of processes that were killed.
void removeAbandoned(const std::string &parent)
{
    const std::unique_ptr<DIR, int (*)(DIR *)> entries{::opendir(parent.c_str()), ::closedir};
    if (entries == nullptr) return;
    while (const dirent *entry = ::readdir(entries.get())) {
        const std::string path = parent + '/' + entry->d_name;
        if (!std::string_view{path}.substr(parent.size()).starts_with(kName)) continue;
        const int lock = lockFolder(path);
        if (lock < 0) continue;
        removeFolder(path);
        ::close(lock);
    }
}

bool isCopied(std::string_view path)
{
    return std::any_of(kConfigurationFiles.begin(), kConfigurationFiles.end(),
                       [&](std::string_view file) { return file == path; });
}

} // namespace

void removeScratch()
{
    for (const std::string &path : leftovers)
        if (::unlink(path.c_str()) != 0) (void)::rmdir(path.c_str());
}

Scratch::Scratch()
{
    const std::string original = rootFolder();
    const std::string parent = parentFolder();
    removeAbandoned(parent);
    catchSignals();
    if (!makeRoot(parent)) return;
    made_ =
        link(original, "/run") && fillFolder(original, "/var") && fillFolder(original, "/config");
    for (const char *const file : kConfigurationFiles) {
        const auto text = readFile(original + file);
        if (text) made_ = made_ && write(file, *text);
    }
}

Scratch::~Scratch()
{
    const BlockedSignals blocked;
    removeScratch();
    leftovers.clear();
    if (lock_ >= 0) ::close(lock_);
}

/// Makes the folder. Again, when another process took it for an abandoned one before it was locked.
bool Scratch::makeRoot(const std::string &parent)
{
    for (int attempt = 0; lock_ < 0 && attempt < 10; ++attempt) {
        std::string pattern = parent + std::string{kName} + "XXXXXX";
        if (::mkdtemp(pattern.data()) == nullptr) return false;
        root_ = std::move(pattern);
        removeLater(root_);
        lock_ = lockFolder(root_);
    }
    return lock_ >= 0;
}

bool Scratch::link(const std::string &original, const std::string &name)
{
    const std::string path = root_ + name;
    if (::symlink((original + name).c_str(), path.c_str()) != 0) return false;
    removeLater(path);
    return true;
}

/// Makes a folder with links to the files that aren't copied.
bool Scratch::fillFolder(const std::string &original, const std::string &folder)
{
    const std::string path = root_ + folder;
    if (::mkdir(path.c_str(), 0700) != 0) return false;
    removeLater(path);
    const std::unique_ptr<DIR, int (*)(DIR *)> entries{::opendir((original + folder).c_str()),
                                                       ::closedir};
    if (entries == nullptr) return true; // the library will say so
    while (const dirent *entry = ::readdir(entries.get())) {
        const std::string name = folder + '/' + entry->d_name;
        if (entry->d_name[0] == '.' || name == kOwnFolder || isCopied(name)) continue;
        if (!link(original, name)) return false;
    }
    return true;
}

bool Scratch::write(const char *file, const std::string &text)
{
    const std::string path = root_ + file;
    const size_t name = path.rfind('/') + 1; // and the library's, of a save that was interrupted
    removeLater(path.substr(0, name) + '.' + path.substr(name) + ".new");
    removeLater(path);
    const int fd = ::open(path.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0600);
    if (fd < 0) return false;
    size_t done = 0;
    while (done < text.size()) {
        const ssize_t wrote = ::write(fd, text.data() + done, text.size() - done);
        if (wrote < 0 && errno == EINTR) continue;
        if (wrote <= 0) break;
        done += static_cast<size_t>(wrote);
    }
    return ::close(fd) == 0 && done == text.size();
}

} // namespace oructl
