#include "trial.hpp"

#include "oruSdk.h"

#include <cerrno>
#include <charconv>
#include <ctime>
#include <fcntl.h>
#include <sys/random.h>
#include <unistd.h>

namespace oructl {
namespace {

constexpr const char *kPending = "/var/oructl/pending";
constexpr const char *kGathering = "/var/oructl/pending.new";
constexpr const char *kEnded = "/var/oructl/pending.done";
constexpr const char *kConfirmed = "/var/oructl/confirmed"; // the token of the last one
constexpr const char *kName = "/trial";
constexpr std::string_view kRadioOnly = "radio";

/// Goes on while the machine sleeps.
int64_t bootTimeMs()
{
    timespec now = {};
    ::clock_gettime(CLOCK_BOOTTIME, &now);
    return int64_t{now.tv_sec} * 1000 + now.tv_nsec / 1000000;
}

std::string bootId()
{
    std::string id = readFile("/proc/sys/kernel/random/boot_id").value_or("unknown");
    return id.substr(0, id.find('\n'));
}

/// Writes a small file, durably; not atomically.
bool writeFile(const std::string &path, std::string_view text)
{
    const int fd = ::open((rootFolder() + path).c_str(),
                          O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC | O_NOFOLLOW, 0600);
    if (fd < 0) return false;
    const bool written = ::write(fd, text.data(), text.size()) == static_cast<ssize_t>(text.size());
    const bool synced = written && ::fsync(fd) == 0;
    return ::close(fd) == 0 && synced;
}

/// The next line, cut off the text.
std::string_view nextLine(std::string_view &text)
{
    const std::string_view line = text.substr(0, text.find('\n'));
    text.remove_prefix(std::min(line.size() + 1, text.size()));
    return line;
}

/// One rename ends it; its remains matter to nobody.
bool removePending()
{
    if (!renameOwn(kPending, kEnded)) return false;
    removeFolder(rootFolder() + kEnded);
    return true;
}

/// The services are told as by any commit. Whether they hear it can't be known, and what a check
/// of security would refuse has run before.
void tellServices()
{
    if (oruSdkCommitAll() != ORUSDK_RC_OK) (void)oruSdkCommitRadio();
}

bool bringBack()
{
    if (!install(settingsIn(kPending))) return false;
    tellServices();
    return renewSnapshot(Committed::All);
}

} // namespace

Trial newTrial(int64_t seconds, Committed what)
{
    constexpr std::string_view kLetters = "abcdefghjkmnpqrstuvwxyz23456789"; // none look alike
    std::array<uint8_t, 8> random{};
    (void)!::getrandom(random.data(), random.size(), 0); // a name, no secret
    Trial trial{
        .token = {}, .boot = bootId(), .deadline = bootTimeMs() + seconds * 1000, .what = what};
    for (const uint8_t byte : random) trial.token += kLetters[byte % kLetters.size()];
    return trial;
}

std::optional<Trial> pendingTrial()
{
    if (!existsBelowRoot(kPending)) return std::nullopt;
    const std::string text = readFile(rootFolder() + kPending + kName).value_or("");
    std::string_view rest = text;
    Trial trial;
    trial.token = nextLine(rest);
    trial.boot = nextLine(rest);
    const std::string_view deadline = nextLine(rest);
    std::from_chars(deadline.data(), deadline.data() + deadline.size(), trial.deadline);
    if (nextLine(rest) == kRadioOnly) trial.what = Committed::Radio;
    return trial;
}

int64_t msLeft(const Trial &trial)
{
    if (trial.boot != bootId()) return 0;
    return std::max<int64_t>(trial.deadline - bootTimeMs(), 0);
}

bool beginTrial(const Trial &trial)
{
    std::string text = trial.token;
    text.append("\n").append(trial.boot).append("\n").append(std::to_string(trial.deadline));
    text.append("\n").append(trial.what == Committed::Radio ? kRadioOnly : "all").append("\n");
    return copyFiles(committedSettings(), kGathering) &&
           writeFile(std::string{kGathering} + kName, text) &&
           syncFolder(rootFolder() + kGathering) && renameOwn(kGathering, kPending);
}

bool dropTrial()
{
    return removePending();
}

std::optional<Trouble> endTrial(const std::string &token, Outcome outcome, int64_t patienceMs)
{
    Lock lock{Lock::Trials::Allowed};
    if (auto trouble = lock.take(patienceMs)) return trouble;
    const auto trial = pendingTrial();
    if (!trial || trial->token != token) return std::nullopt;
    if (outcome == Outcome::Reverted) {
        if (!bringBack()) return systemTrouble("bring the configuration before back", errno);
    } else if (!renewSnapshot(trial->what) || !writeFile(kConfirmed, token)) {
        return systemTrouble("keep what was committed", errno);
    }
    if (!removePending()) return systemTrouble("end the trial", errno);
    return std::nullopt;
}

Outcome outcomeOf(const std::string &token)
{
    return readFile(rootFolder() + kConfirmed) == token ? Outcome::Confirmed : Outcome::Reverted;
}

void mendTrial()
{
    removeFolder(rootFolder() + kGathering);
    removeFolder(rootFolder() + kEnded);
}

} // namespace oructl
