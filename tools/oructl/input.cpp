#include "input.hpp"

#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace oructl {
namespace {

constexpr size_t kLargest = size_t{4} << 20;

bool readAll(int fd, std::string &text)
{
    char bytes[16384];
    for (;;) {
        const ssize_t got = ::read(fd, bytes, sizeof bytes);
        if (got < 0 && errno == EINTR) continue;
        if (got <= 0) return got == 0;
        text.append(bytes, static_cast<size_t>(got));
        if (text.size() <= kLargest) continue;
        errno = EFBIG;
        return false;
    }
}

bool writeAll(int fd, std::string_view text)
{
    while (!text.empty()) {
        const ssize_t wrote = ::write(fd, text.data(), text.size());
        if (wrote < 0 && errno == EINTR) continue;
        if (wrote <= 0) return false;
        text.remove_prefix(static_cast<size_t>(wrote));
    }
    return true;
}

} // namespace

std::optional<std::string> readOperandFile(Request &request, int &status)
{
    const Words operands = request.operands;
    if (operands.size() != 1) {
        status = reportUsage(request, operands.empty() ? "FILE is missing" : "too many operands");
        return std::nullopt;
    }
    auto text = readInput(operands[0]);
    if (!text)
        status = report(request, {.kind = "failed",
                                  .attempt = typed(request),
                                  .message = std::string{"can't read it: "} + std::strerror(errno),
                                  .status = errno == EACCES ? kNoPermission : kFileFailed});
    return text;
}

std::optional<std::string> readInput(const char *path)
{
    std::string text;
    if (std::strcmp(path, "-") == 0)
        return readAll(STDIN_FILENO, text) ? std::optional{text} : std::nullopt;
    const int fd = ::open(path, O_RDONLY | O_CLOEXEC | O_NOCTTY);
    if (fd < 0) return std::nullopt;
    const bool good = readAll(fd, text);
    const int error = errno;
    ::close(fd);
    errno = error;
    return good ? std::optional{text} : std::nullopt;
}

bool writeOutput(const char *path, const std::string &text, bool hasSecrets)
{
    const mode_t mode = hasSecrets ? 0600 : 0666;
    const int fd = ::open(path, O_WRONLY | O_CREAT | O_CLOEXEC | O_NOCTTY, mode);
    if (fd < 0) return false;
    struct stat status = {};
    bool good = ::fstat(fd, &status) == 0;
    if (good && S_ISREG(status.st_mode)) // closed to others before a secret is in it
        good = (!hasSecrets || ::fchmod(fd, mode) == 0) && ::ftruncate(fd, 0) == 0;
    good = good && writeAll(fd, text);
    const int error = errno;
    const bool closed = ::close(fd) == 0;
    if (!good) errno = error;
    return good && closed;
}

} // namespace oructl
