// A file descriptor that closes itself.
#pragma once

#include <cerrno>
#include <fcntl.h>
#include <unistd.h>

namespace oru {

class Descriptor {
public:
    /// Takes a descriptor over. One that landed on the standard streams' numbers, in a program
    /// that closed them, moves up: whatever that program prints must not reach our files.
    explicit Descriptor(int number) : number_(number)
    {
        if (number_ < 0 || number_ > STDERR_FILENO) return;
        number_ = ::fcntl(number, F_DUPFD_CLOEXEC, STDERR_FILENO + 1);
        const int error = errno;
        ::close(number);
        errno = error;
    }
    ~Descriptor()
    {
        if (number_ < 0) return;
        const int error = errno;
        ::close(number_);
        errno = error;
    }
    Descriptor(const Descriptor &) = delete;
    Descriptor &operator=(const Descriptor &) = delete;
    Descriptor(Descriptor &&other) noexcept : number_(other.release()) {}

    explicit operator bool() const { return number_ >= 0; }
    [[nodiscard]] int number() const { return number_; }

    /// Gives the descriptor to the caller.
    int release()
    {
        const int number = number_;
        number_ = -1;
        return number;
    }

private:
    int number_;
};

/// Repeats a system call that a signal interrupted.
template <class Call>
auto uninterrupted(Call call)
{
    auto result = call();
    while (result < 0 && errno == EINTR) result = call();
    return result;
}

} // namespace oru
