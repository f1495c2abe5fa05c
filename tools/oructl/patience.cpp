#include "patience.hpp"

#include "scratch.hpp"

#include <csignal>
#include <sys/time.h>
#include <unistd.h>

namespace oructl {
namespace {

std::string lastWords;
int lastWordsTo = STDERR_FILENO;
ExitStatus lastStatus = kTimedOut;

/// Calls nothing but what a handler may.
void giveUp(int)
{
    removeScratch();
    (void)!::write(lastWordsTo, lastWords.data(), lastWords.size());
    ::_exit(lastStatus);
}

void setAlarm(int64_t seconds)
{
    itimerval timer = {};
    timer.it_value.tv_sec = static_cast<time_t>(seconds);
    if (seconds == 0) timer.it_value.tv_usec = 1; // no patience at all
    struct sigaction action = {};
    action.sa_handler = giveUp;
    ::sigaction(SIGALRM, &action, nullptr);
    ::setitimer(ITIMER_REAL, &timer, nullptr);
}

} // namespace

Patience::Patience(const Request &request, const std::string &attempt)
{
    if (!request.timeout) return;
    lastWordsTo = request.json ? STDOUT_FILENO : STDERR_FILENO;
    lastWords = reportText(
        request, {.kind = "failed",
                  .attempt = attempt,
                  .message = "no answer within " + std::to_string(*request.timeout) + " seconds"});
    setAlarm(*request.timeout);
}

Patience::Patience(int64_t seconds, const std::string &words)
{
    lastWords = words;
    lastWordsTo = STDOUT_FILENO;
    lastStatus = kDone;
    setAlarm(seconds);
}

Patience::~Patience()
{
    const itimerval none = {};
    ::setitimer(ITIMER_REAL, &none, nullptr);
}

} // namespace oructl
