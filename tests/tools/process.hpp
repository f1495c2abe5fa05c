// A program beside the test, mostly orusim, and its end.
#pragma once

#include <csignal>
#include <fcntl.h>
#include <poll.h>
#include <stdexcept>
#include <string>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

namespace orusim::test {

inline constexpr int kLongestWaitMs = 30000; // before a test gives up

/// A process whose output is read line by line.
class Process {
public:
    explicit Process(std::vector<std::string> arguments, const char *program = ORUSIM)
    {
        int ends[2];
        if (::pipe2(ends, O_CLOEXEC) != 0) throw std::runtime_error("no pipe");
        arguments.insert(arguments.begin(), program);
        std::vector<char *> argv;
        for (std::string &argument : arguments) argv.push_back(argument.data());
        argv.push_back(nullptr);
        pid_ = ::fork();
        if (pid_ == 0) {
            ::dup2(ends[1], STDOUT_FILENO);
            ::dup2(ends[1], STDERR_FILENO);
            ::execv(program, argv.data());
            ::_exit(127);
        }
        ::close(ends[1]);
        output_ = ends[0];
    }
    ~Process()
    {
        if (pid_ > 0) {
            ::kill(pid_, SIGKILL);
            ::waitpid(pid_, nullptr, 0);
        }
        ::close(output_);
    }
    Process(const Process &) = delete;
    Process &operator=(const Process &) = delete;

    void signal(int number) const { ::kill(pid_, number); }

    /// Reads until a line holds the text. False when the output ends, or nothing comes for long.
    bool waitFor(const std::string &text)
    {
        while (all_.find(text) == std::string::npos || all_.back() != '\n')
            if (!readMore()) return false;
        return true;
    }

    /// Waits for the end: the exit status, or the signal's number below 0.
    int end()
    {
        while (readMore()) {}
        int status = 0;
        ::waitpid(pid_, &status, 0);
        pid_ = -1;
        return WIFEXITED(status) ? WEXITSTATUS(status) : -WTERMSIG(status);
    }

    [[nodiscard]] const std::string &output() const { return all_; }

private:
    bool readMore()
    {
        pollfd entry{output_, POLLIN, 0};
        char buffer[4096];
        if (::poll(&entry, 1, kLongestWaitMs) <= 0) return false;
        const ssize_t got = ::read(output_, buffer, sizeof buffer);
        if (got > 0) all_.append(buffer, static_cast<size_t>(got));
        return got > 0;
    }

    pid_t pid_ = -1;
    int output_ = -1;
    std::string all_;
};

struct Ended {
    int status;
    std::string output;
};

inline Ended runToEnd(std::vector<std::string> arguments)
{
    Process process(std::move(arguments));
    const int status = process.end();
    return {status, process.output()};
}

} // namespace orusim::test
