#include "terminal.hpp"

#include "display.hpp"

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <sys/ioctl.h>
#include <unistd.h>

namespace oructl {
namespace {

constexpr std::string_view kHideCursor = "\x1b[?25l";
constexpr std::string_view kShowCursor = "\x1b[?25h";
constexpr int kSignals[] = {SIGINT, SIGTERM, SIGHUP, SIGQUIT, SIGTSTP};

/// What the handler of signals has to put back.
volatile std::sig_atomic_t cursorHidden = 0;

bool writeAll(int fd, std::string_view text)
{
    while (!text.empty()) {
        const ssize_t written = ::write(fd, text.data(), text.size());
        if (written < 0 && errno == EINTR) continue;
        if (written <= 0) return false;
        text.remove_prefix(static_cast<size_t>(written));
    }
    return true;
}

/// Calls nothing but what a handler may. A stop comes back from here when the process goes on.
void putBack(int signal)
{
    const int error = errno;
    if (cursorHidden != 0) (void)writeAll(STDOUT_FILENO, kShowCursor);
    if (signal != SIGTSTP) ::_exit(128 + signal);
    ::raise(SIGSTOP);
    if (cursorHidden != 0) (void)writeAll(STDOUT_FILENO, kHideCursor);
    errno = error;
}

/// A signal that was ignored before stays so: a background job is not interrupted.
void catchSignals()
{
    struct sigaction action = {};
    action.sa_handler = putBack;
    action.sa_flags = SA_RESTART;
    for (const int each : kSignals) ::sigaddset(&action.sa_mask, each);
    for (const int each : kSignals) {
        struct sigaction before = {};
        if (::sigaction(each, nullptr, &before) == 0 && before.sa_handler != SIG_IGN)
            ::sigaction(each, &action, nullptr);
    }
}

winsize terminalSize()
{
    winsize size = {};
    if (::ioctl(STDOUT_FILENO, TIOCGWINSZ, &size) != 0) size = {};
    if (size.ws_row == 0) size.ws_row = 24;
    if (size.ws_col == 0) size.ws_col = 80;
    return size;
}

} // namespace

LiveText::LiveText()
{
    catchSignals();
    cursorHidden = 1;
    (void)writeAll(STDOUT_FILENO, kHideCursor);
}

LiveText::~LiveText()
{
    (void)writeAll(STDOUT_FILENO, kShowCursor);
    cursorHidden = 0;
}

bool LiveText::draw(std::string_view text)
{
    const winsize size = terminalSize();
    const size_t room = std::max<size_t>(size.ws_row, 2) - 1;
    std::string out;
    if (lines_ > 0)
        out.append("\x1b[").append(std::to_string(std::min(lines_, room))).append("A\r");
    for (lines_ = 0; !text.empty() && lines_ < room; ++lines_) {
        const size_t end = std::min(text.find('\n'), text.size());
        out.append(cutToWidth(text.substr(0, end), size.ws_col)).append("\x1b[K\n");
        text.remove_prefix(std::min(end + 1, text.size()));
    }
    return writeAll(STDOUT_FILENO, out.append("\x1b[J"));
}

bool outputIsTerminal()
{
    const char *const type = std::getenv("TERM");
    return ::isatty(STDOUT_FILENO) == 1 && type != nullptr && std::string_view{type} != "dumb";
}

} // namespace oructl
