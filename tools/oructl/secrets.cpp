#include "secrets.hpp"

#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <termios.h>
#include <unistd.h>

namespace oructl {
namespace {

constexpr size_t kLongestLine = 4096;
constexpr size_t kLargestFile = size_t{1} << 20;
constexpr char kInterrupt = 0x03; // control and C

enum class Line { Read, End, TooLong, Unreadable };

/// A closed file descriptor at the end of its scope.
class Descriptor {
public:
    explicit Descriptor(int fd) : fd_(fd) {}
    ~Descriptor()
    {
        if (fd_ >= 0) ::close(fd_);
    }
    Descriptor(const Descriptor &) = delete;
    Descriptor &operator=(const Descriptor &) = delete;
    [[nodiscard]] int get() const { return fd_; }

private:
    int fd_;
};

ssize_t readSome(int fd, char *bytes, size_t size)
{
    ssize_t got = -1;
    do {
        got = ::read(fd, bytes, size);
    } while (got < 0 && errno == EINTR);
    return got;
}

/// Takes single bytes, so that the next line stays in the pipe.
Line readLine(int fd, std::string &line)
{
    line.clear();
    for (char byte = 0; line.size() <= kLongestLine;) {
        const ssize_t got = readSome(fd, &byte, 1);
        if (got < 0) return Line::Unreadable;
        if (got == 0) return line.empty() ? Line::End : Line::Read;
        if (byte == '\n') return Line::Read;
        line += byte;
    }
    return Line::TooLong;
}

std::string readSecret(int fd, std::string &secret)
{
    switch (readLine(fd, secret)) {
    case Line::Read: break;
    case Line::End: return "there is no line left to read it from";
    case Line::TooLong: return "its line is too long";
    case Line::Unreadable: return std::string{"it is unreadable: "} + std::strerror(errno);
    }
    return secret.find('\0') == secret.npos ? "" : "it holds the byte 00";
}

/// A terminal without echo for as long as it lives. Control and C end the line instead of the
/// process, so that the echo comes back.
class Silence {
public:
    explicit Silence(int terminal) : terminal_(terminal)
    {
        if (::tcgetattr(terminal, &before_) != 0) return;
        termios silent = before_;
        silent.c_lflag &= ~static_cast<tcflag_t>(ECHO | ISIG);
        silent.c_cc[VEOL] = kInterrupt;
        ::tcsetattr(terminal, TCSAFLUSH, &silent);
    }
    ~Silence() { ::tcsetattr(terminal_, TCSAFLUSH, &before_); }
    Silence(const Silence &) = delete;
    Silence &operator=(const Silence &) = delete;

private:
    int terminal_;
    termios before_{};
};

/// The bytes up to the first interrupt, which a terminal passes on as the end of a line.
std::string readUntilInterrupt(int terminal, std::string &secret)
{
    secret.clear();
    for (char byte = 0; secret.size() <= kLongestLine; secret += byte) {
        if (readSome(terminal, &byte, 1) <= 0) return "there is no line to read it from";
        if (byte == kInterrupt) return "interrupted";
        if (byte == '\n') return "";
    }
    return "its line is too long";
}

std::string ask(int terminal, const std::string &name, std::string &secret)
{
    const std::string prompt = name + ": ";
    std::string problem;
    {
        const Silence silence{terminal};
        (void)!::write(terminal, prompt.data(), prompt.size());
        problem = readUntilInterrupt(terminal, secret);
    }
    (void)!::write(terminal, "\n", 1);
    return problem;
}

std::string cannotRead()
{
    return std::string{"the file is unreadable: "} + std::strerror(errno);
}

} // namespace

SecretSource::~SecretSource()
{
    if (fd_ >= 0) ::close(fd_);
}

bool SecretSource::answersUnasked() const
{
    return file_ != nullptr || ::isatty(STDIN_FILENO) == 1;
}

std::string SecretSource::next(const std::string &name, std::string &secret)
{
    if (file_ != nullptr) {
        if (fd_ < 0) fd_ = ::open(file_, O_RDONLY | O_CLOEXEC);
        return fd_ < 0 ? cannotRead() : readSecret(fd_, secret);
    }
    if (::isatty(STDIN_FILENO) == 0) return readSecret(STDIN_FILENO, secret);
    const Descriptor terminal{::open("/dev/tty", O_RDWR | O_CLOEXEC)};
    return terminal.get() < 0 ? cannotRead() : ask(terminal.get(), name, secret);
}

std::string SecretSource::read(std::string_view word, const std::string &name, std::string &secret)
{
    if (word == "-") return next(name, secret);
    if (!word.starts_with('@'))
        return "a secret comes from standard input (-) or a file (@FILE), and only with "
               "--insecure-argv from the command line";
    const Descriptor file{::open(std::string{word.substr(1)}.c_str(), O_RDONLY | O_CLOEXEC)};
    return file.get() < 0 ? cannotRead() : readSecret(file.get(), secret);
}

std::string readLines(const char *path, std::vector<std::string> &lines)
{
    const Descriptor file{::open(path, O_RDONLY | O_CLOEXEC)};
    if (file.get() < 0) return cannotRead();
    char bytes[4096];
    std::string all;
    for (;;) {
        const ssize_t got = readSome(file.get(), bytes, sizeof bytes);
        if (got < 0) return cannotRead();
        if (got == 0) break;
        all.append(bytes, static_cast<size_t>(got));
        if (all.size() > kLargestFile) return "the file has more than 1 MiB";
    }
    for (std::string_view rest = all; !rest.empty();) {
        const size_t end = rest.find('\n');
        const std::string_view line = rest.substr(0, end);
        if (!line.empty() && line[0] != '#') lines.emplace_back(line);
        rest.remove_prefix(end == rest.npos ? rest.size() : end + 1);
    }
    return "";
}

} // namespace oructl
