#include "person.hpp"

#include <cerrno>
#include <cstdio>
#include <unistd.h>

namespace oructl {
namespace {

/// The first letter of the answer; a line feed for none.
char readAnswer()
{
    char first = '\n';
    char letter = '\n';
    for (bool atStart = true;; atStart = false) {
        const ssize_t got = ::read(STDIN_FILENO, &letter, 1);
        if (got < 0 && errno == EINTR) continue;
        if (got != 1) return '\n';
        if (atStart) first = letter;
        if (letter == '\n') return first;
    }
}

} // namespace

void showProgress(const Request &request, const char *what, int64_t seconds)
{
    if (request.quiet || request.json || ::isatty(STDERR_FILENO) != 1) return;
    if (what == nullptr) std::fputs("\r\x1b[K", stderr);
    else std::fprintf(stderr, "\r\x1b[K%s: %lld s", what, static_cast<long long>(seconds));
    std::fflush(stderr);
}

bool isAllowed(const Request &request, const std::string &question)
{
    if (request.yes || request.dryRun) return true;
    if (::isatty(STDIN_FILENO) != 1 || ::isatty(STDERR_FILENO) != 1) return true;
    std::fprintf(stderr, "%s [y/N] ", question.c_str());
    std::fflush(stderr);
    const char answer = readAnswer();
    return answer == 'y' || answer == 'Y';
}

} // namespace oructl
