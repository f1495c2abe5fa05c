#include "transaction.hpp"

#include "install.hpp"
#include "snapshot.hpp"
#include "trial.hpp"

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <ctime>
#include <fcntl.h>
#include <map>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace oructl {
namespace {

int64_t nowMs()
{
    timespec now = {};
    ::clock_gettime(CLOCK_MONOTONIC, &now);
    return int64_t{now.tv_sec} * 1000 + now.tv_nsec / 1000000;
}

/// The line that sets a key, by its key. Of a key that stands twice the last one counts.
std::map<std::string_view, std::string_view> linesOf(std::string_view text)
{
    std::map<std::string_view, std::string_view> lines;
    while (!text.empty()) {
        const std::string_view line = text.substr(0, text.find('\n'));
        text.remove_prefix(std::min(line.size() + 1, text.size()));
        const size_t equals = line.find('=');
        if (equals != line.npos && !line.starts_with('#')) lines[line.substr(0, equals)] = line;
    }
    return lines;
}

} // namespace

Trouble systemTrouble(const std::string &what, int error)
{
    const bool forbidden = error == EACCES || error == EPERM;
    return {forbidden ? kNoPermission : kFileFailed, "can't " + what + ": " + std::strerror(error)};
}

Lock::~Lock()
{
    if (fd_ >= 0) ::close(fd_);
}

std::optional<Trouble> Lock::take(int64_t patienceMs)
{
    if (!makeOwnFolder()) return systemTrouble("make the folder " + std::string{kOwnFolder}, errno);
    const std::string path = rootFolder().append(kOwnFolder) + "/lock";
    fd_ = ::open(path.c_str(), O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW, 0600);
    if (fd_ < 0) return systemTrouble("open the lock", errno);
    const int64_t end = nowMs() + patienceMs;
    while (::flock(fd_, LOCK_EX | LOCK_NB) != 0) {
        if (errno != EWOULDBLOCK && errno != EINTR) return systemTrouble("lock", errno);
        if (nowMs() >= end)
            return Trouble{kConflict, "another oructl is changing the configuration",
                           "try again, or wait longer with --timeout SECONDS"};
        const timespec pause = {0, 2000000};
        ::nanosleep(&pause, nullptr);
    }
    mendTrial();
    if (!finishInstall() || !mendSnapshot())
        return systemTrouble("finish an interrupted change", errno);
    if (trials_ == Trials::Refused && pendingTrial())
        return Trouble{kConflict, "a commit is on trial",
                       "keep it with: oructl confirm TOKEN, or end it with: oructl revert"};
    return std::nullopt;
}

Transaction::~Transaction()
{
    if (scratch_) setRootFolder(root_);
}

std::optional<Trouble> Transaction::begin(int64_t patienceMs)
{
    if (kind_ == Kind::Real)
        if (auto trouble = lock_.take(patienceMs)) return trouble;
    if (kind_ == Kind::Real && !ensureSnapshot())
        return systemTrouble("keep what was committed", errno);
    root_ = rootFolder();
    scratch_.emplace();
    if (!*scratch_) {
        const int error = errno;
        scratch_.reset();
        return systemTrouble("copy the configuration", error);
    }
    setRootFolder(scratch_->root());
    for (size_t i = 0; i < kFiles; ++i)
        before_[i] = readFile(scratch_->root() + kConfigurationFiles[i]);
    return std::nullopt;
}

std::optional<Trouble> Transaction::finish(bool force)
{
    setRootFolder(root_);
    std::vector<size_t> changed;
    for (size_t i = 0; i < kFiles; ++i) {
        const char *const file = kConfigurationFiles[i];
        const auto after = readFile(scratch_->root() + file);
        if (after == before_[i]) continue;
        changed.push_back(i);
        const auto keys = changedKeys(before_[i].value_or(""), after.value_or(""), file);
        changes_.insert(changes_.end(), keys.begin(), keys.end());
        if (kind_ == Kind::Real && !force && readFile(root_ + file) != before_[i])
            return Trouble{kConflict, std::string{file} + " was changed meanwhile",
                           "nothing is stored; try again, or overwrite with --force"};
    }
    if (kind_ != Kind::Real || put(changed)) return std::nullopt;
    Trouble trouble = systemTrouble("store the change", errno);
    if (isPromised())
        trouble.detail = "a part is stored; the next change or commit stores the rest";
    return trouble;
}

bool Transaction::put(const std::vector<size_t> &files) const
{
    std::vector<NewFile> all;
    for (const size_t i : files) all.push_back({i, scratch_->root(), kConfigurationFiles[i]});
    return install(all);
}

std::vector<KeyChange> changedKeys(const std::string &before, const std::string &after,
                                   const std::string &file)
{
    const auto old = linesOf(before);
    const auto now = linesOf(after);
    std::vector<KeyChange> changes;
    for (const auto &[key, line] : now)
        if (const auto found = old.find(key); found == old.end() || found->second != line)
            changes.push_back({std::string{key}, file});
    for (const auto &[key, line] : old)
        if (!now.contains(key)) changes.push_back({std::string{key}, file});
    return changes;
}

} // namespace oructl
